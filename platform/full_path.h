#pragma once

#include <string>

/// A path of Windows in full: from a drive or a server on, without `..` and without the dots and
/// blanks at the end of a name that Windows drops; "\\.\..." for a device. Empty when there is
/// none.
std::wstring FullPath(const std::wstring& path);
