#include "platform/utf8_character.h"

namespace {

bool IsValid(char32_t code, std::size_t size) {
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    return code >= kSmallest[size] && code <= 0x10FFFF && !isSurrogate;
}

}  // namespace

std::size_t Utf8SizeByFirstByte(char byte) {
    const auto first = static_cast<unsigned char>(byte);
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

Utf8Character FirstUtf8Character(std::string_view text) {
    constexpr Utf8Character kNone;
    const std::size_t size = Utf8SizeByFirstByte(text.front());
    if (size == 0 || size > text.size()) return kNone;
    const auto first = static_cast<unsigned char>(text.front());
    char32_t code = size == 1 ? first : first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) return kNone;
        code = (code << 6U) | (byte & 0x3FU);
    }
    return IsValid(code, size) ? Utf8Character{code, size} : kNone;
}
