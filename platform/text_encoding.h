#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How the bytes of a text stand for characters.
enum class TextEncoding {
    kUtf8,      ///< ASCII too
    kShiftJis,  ///< the Japanese code page 932
    kUnknown,   ///< neither, or bytes that no text has
};

struct EncodingFound {
    TextEncoding encoding = TextEncoding::kUtf8;
    std::size_t faultAt = 0;  ///< kUnknown: where the first byte stands that fits neither
};

/// Tells by validity, UTF-8 first. A character that the end of `bytes` cuts is no fault.
EncodingFound FindEncoding(std::string_view bytes);

/// The text in UTF-8; each byte that stands for no character becomes U+FFFD.
std::string ToUtf8(std::string_view bytes, TextEncoding encoding);
