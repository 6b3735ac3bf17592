#pragma once

#include <string>

/// A text of the program's string table; empty when there is none under `id`.
std::wstring ResourceText(int id);
