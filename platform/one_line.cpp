#include "platform/one_line.h"

#include <cstdint>
#include <cstdio>

namespace {

constexpr std::uint32_t kNoCharacter = 0xFFFFFFFF;

// A character at the start of a text: its code point, or kNoCharacter for a byte that begins none.
struct Character {
    std::uint32_t code;
    std::size_t size;
};

std::size_t SizeFromFirstByte(unsigned char byte) {
    if (byte < 0x80) return 1;
    if (byte >= 0xC2 && byte < 0xE0) return 2;
    if (byte >= 0xE0 && byte < 0xF0) return 3;
    return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

bool IsValid(std::uint32_t code, std::size_t size) {
    constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    return code >= kSmallest[size] && code <= 0x10FFFF && !isSurrogate;
}

Character FirstCharacter(std::string_view text) {
    constexpr Character kNone{kNoCharacter, 1};
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t size = SizeFromFirstByte(first);
    if (size == 0 || size > text.size()) return kNone;
    std::uint32_t code = size == 1 ? first : first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) return kNone;
        code = (code << 6U) | (byte & 0x3FU);
    }
    return IsValid(code, size) ? Character{code, size} : kNone;
}

bool IsControl(std::uint32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

// Line and paragraph separators, and what turns the direction of writing.
bool IsLayout(std::uint32_t code) {
    return (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

std::string WrittenOut(const char* format, std::uint32_t code) {
    char text[12];
    std::snprintf(text, sizeof text, format, static_cast<unsigned>(code));
    return text;
}

std::string Shown(std::string_view bytes, std::uint32_t code) {
    if (code == kNoCharacter)
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
        const Character character = FirstCharacter(text);
        const std::string shown = Shown(text.substr(0, character.size), character.code);
        if (shown.size() > length - line.size()) return line + "...";
        line += shown;
        text.remove_prefix(character.size);
    }
    return line;
}
