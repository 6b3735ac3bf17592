#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 text as one line for a terminal. What could end the line, move the cursor, change colours
/// or turn the order of the characters round is written out (\n, \x1b, \u202e), and so are bytes
/// that are no UTF-8: a file name or a host's text can say nothing in the program's name.
std::string OneLine(std::string_view text);

/// As much of it as fits into `length` bytes, and "..." behind that where there was more.
std::string OneLine(std::string_view text, std::size_t length);
