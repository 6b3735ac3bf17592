#pragma once

#include <string>
#include <string_view>

/// Shift_JIS text, as the platform knows code page 932, in UTF-8; each byte that stands for no
/// character becomes U+FFFD.
std::string Utf8OfShiftJis(std::string_view bytes);
