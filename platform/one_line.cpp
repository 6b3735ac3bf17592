#include "platform/one_line.h"

#include <cstdio>

#include "platform/utf8_character.h"

namespace {

bool IsControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

// Line and paragraph separators, and what turns the direction of writing.
bool IsLayout(char32_t code) {
    return (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

std::string WrittenOut(const char* format, char32_t code) {
    char text[12];
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(code));
    return text;
}

std::string Shown(std::string_view bytes, char32_t code) {
    if (code == kNoUtf8Character)
        return WrittenOut("\\x%02x", static_cast<unsigned char>(bytes.front()));
    if (code == '\n') return "\\n";
    if (code == '\r') return "\\r";
    if (code == '\t') return "\\t";
    if (IsControl(code)) return WrittenOut("\\x%02x", code);
    if (IsLayout(code)) return WrittenOut("\\u%04x", code);
    return std::string(bytes);
}

}  // namespace

std::string OneLine(std::string_view text) {
    return OneLine(text, std::string::npos);
}

std::string OneLine(std::string_view text, std::size_t length) {
    std::string line;
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        const std::string shown = Shown(text.substr(0, character.size), character.code);
        if (shown.size() > length - line.size()) return line + "...";
        line += shown;
        text.remove_prefix(character.size);
    }
    return line;
}
