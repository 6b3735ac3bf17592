#pragma once

#include <cstddef>
#include <string_view>

/// What a byte that begins no character of UTF-8 stands for.
inline constexpr char32_t kNoUtf8Character = 0xFFFFFFFF;

/// What programs of Windows put before a UTF-8 text; no part of it.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Stands in a text for bytes that cannot be read: U+FFFD, in UTF-8.
inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

/// A character of a UTF-8 text.
struct Utf8Character {
    char32_t code = kNoUtf8Character;  ///< its code point
    std::size_t size = 1;              ///< bytes; 1 for a byte that begins no character
};

/// The character at the start of `text`, which is not empty.
Utf8Character FirstUtf8Character(std::string_view text);

/// Bytes of the character that begins with `byte`; 0 when none does.
std::size_t Utf8SizeByFirstByte(char byte);
