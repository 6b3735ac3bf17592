#pragma once

#include <cstdint>
#include <string>

/// Whole number at the start of `text`, as the C library's atoi reads it: leading blanks are
/// skipped, 0 when there is none. A number beyond 32 bits becomes the nearest 32-bit number.
std::int32_t ToInteger(const std::string& text);

/// Real number at the start of `text`, as the C library's atof reads it; 0 when there is none.
double ToReal(const std::string& text);
