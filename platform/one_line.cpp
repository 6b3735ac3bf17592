#include "platform/one_line.h"

#include <algorithm>

namespace {

bool IsInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool IsControl(char byte) {
    return static_cast<unsigned char>(byte) < ' ' || byte == '\x7F';
}

}  // namespace

std::string OneLine(std::string_view text, std::size_t length) {
    std::size_t end = std::min(length, text.size());
    while (end > 0 && end < text.size() && IsInsideCharacter(text[end]))
        --end;
    std::string line(text.substr(0, end));
    for (char& byte : line)
        if (IsControl(byte)) byte = ' ';
    if (end < text.size()) line += "...";
    return line;
}
