#pragma once

#include <windows.h>

#include <optional>
#include <string>

/// Asks for the path of a Route 2 Input file in the system's file-open dialog; nothing when the
/// user cancels. The path may name a file that does not exist. The current directory stays
/// where the dialog leaves it. Throws std::runtime_error when the dialog cannot be shown.
std::optional<std::wstring> AskForInputFile(HWND owner);

/// The filter of a string table, its parts divided by '|', as the file dialog wants it: each part
/// ended by a zero.
std::wstring FileDialogFilter(std::wstring text);
