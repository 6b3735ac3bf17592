#include "lint/display_width.h"

#include <algorithm>
#include <iterator>

#include "platform/utf8_character.h"

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Unicode's East Asian wide and full-width characters, in whole blocks.
constexpr Range kWide[] = {
    {0x1100, 0x115F},    // Hangul Jamo
    {0x2E80, 0x303E},    // CJK radicals and punctuation
    {0x3041, 0xA4CF},    // kana, CJK ideographs, Yi
    {0xAC00, 0xD7A3},    // Hangul
    {0xF900, 0xFAFF},    // CJK compatibility ideographs
    {0xFE30, 0xFE6F},    // CJK compatibility forms
    {0xFF01, 0xFF60},    // full-width forms
    {0xFFE0, 0xFFE6},    // full-width signs
    {0x1F300, 0x1F64F},  // pictographs
    {0x1F900, 0x1F9FF},  // pictographs
    {0x20000, 0x3FFFD},  // CJK ideographs
};

constexpr Range kCombining[] = {
    {0x0300, 0x036F},
    {0x200B, 0x200F},
    {0x3099, 0x309A},
    {0xFE00, 0xFE0F},
};

template <std::size_t N>
bool IsIn(const Range (&ranges)[N], char32_t codePoint) {
    return std::any_of(std::begin(ranges), std::end(ranges), [codePoint](const Range& range) {
        return range.first <= codePoint && codePoint <= range.last;
    });
}

std::size_t WidthOf(char32_t codePoint) {
    if (IsIn(kCombining, codePoint)) return 0;
    return IsIn(kWide, codePoint) ? 2 : 1;
}

}  // namespace

std::size_t DisplayWidth(std::string_view utf8) {
    std::size_t width = 0;
    while (!utf8.empty()) {
        const Utf8Character character = FirstUtf8Character(utf8);
        width += WidthOf(character.code);
        utf8.remove_prefix(character.size);
    }
    return width;
}

std::string_view CutToWidth(std::string_view utf8, std::size_t cells) {
    std::size_t length = 0, width = 0;
    while (length < utf8.size()) {
        const Utf8Character character = FirstUtf8Character(utf8.substr(length));
        width += WidthOf(character.code);
        if (width > cells) break;
        length += character.size;
    }
    return utf8.substr(0, length);
}
