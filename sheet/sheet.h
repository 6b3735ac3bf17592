#pragma once

#include <string>

#include "sheet/sheet_content.h"

/// The calculation sheet as one HTML page that needs nothing else: no file, no script, no network.
/// The same content gives the same bytes everywhere.
std::string SheetHtml(const SheetContent& content);
