#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "sheet/sheet_content.h"

/// The calculation sheet as one HTML page that needs nothing else: no file, no script, no network.
/// The same content gives the same bytes everywhere.
///
/// `take` gets the page in pieces, from its first to its last: a sheet of megabytes never lies in
/// memory as a whole.
void FormSheet(const SheetContent& content, const std::function<void(std::string_view)>& take);

/// The same as one text.
std::string SheetHtml(const SheetContent& content);
