#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// As much of a UTF-8 text as fits into a message of one line: at most `length` bytes and "..."
/// behind them where there was more. Control characters, line ends among them, become blanks.
std::string OneLine(std::string_view text, std::size_t length);
