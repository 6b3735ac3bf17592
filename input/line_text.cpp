#include "input/line_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "input/number_text.h"
#include "platform/utf8_character.h"

namespace {

constexpr std::string_view kBlanks = " \t\r\v\f";

// Full-width forms of ASCII stand at a fixed distance from it.
constexpr char32_t kFirstFullWidth = 0xFF01;
constexpr char32_t kLastFullWidth = 0xFF5E;
constexpr char32_t kFullWidthDistance = 0xFEE0;
constexpr char32_t kFullWidthBlank = 0x3000;
constexpr char32_t kIdeographicComma = 0x3001;

// The ASCII character that a full-width one stands for; 0 for any other.
char HalfWidthOf(char32_t character) {
    if (character == kFullWidthBlank) return ' ';
    if (character == kIdeographicComma) return ',';
    if (kFirstFullWidth <= character && character <= kLastFullWidth)
        return static_cast<char>(character - kFullWidthDistance);
    return '\0';
}

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

bool IsBlankRow(std::string_view text) {
    return std::ranges::all_of(
        text, [](char c) { return c == ',' || kBlanks.find(c) != std::string_view::npos; });
}

bool BeginsLikeANumber(std::string_view text) {
    const std::string_view trimmed = Trimmed(text);
    return !trimmed.empty() &&
           std::string_view("0123456789+-.").find(trimmed.front()) != std::string_view::npos;
}

WholeNumber ConvertWholeNumber(std::string_view field) {
    const std::string text(field);
    errno = 0;
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    const std::int32_t taken = ToInteger(text);
    const bool isNumber = end != text.c_str() && errno == 0 && value == taken;
    const auto rest = static_cast<std::size_t>(end - text.c_str());
    return {taken, isNumber && IsBlank(field.substr(rest))};
}

RealNumber ConvertRealNumber(std::string_view field) {
    const std::string text(field);
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    const auto rest = static_cast<std::size_t>(end - text.c_str());
    // The C library reads 0x10, inf and nan, too; nobody writes them here.
    const bool isPlain =
        text.find_first_not_of("+-.0123456789eE", text.find_first_not_of(kBlanks)) >= rest;
    const bool isNumber = end != text.c_str() && std::isfinite(value) && isPlain;
    return {value, isNumber && IsBlank(field.substr(rest))};
}

std::string NumberText(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
    std::array<char, 400> buffer{};  // the largest double has 309 digits, the smallest 325 places
    auto* const end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed)
            .ptr;
    return {buffer.data(), end};
}

std::string RoundedText(double value) {
    constexpr double kPlaces = 1e6;
    constexpr double kLargest = 1e9;  // beyond, all digits of a double are in front
    return NumberText(std::abs(value) < kLargest ? std::round(value * kPlaces) / kPlaces : value);
}

HalfWidthText ToHalfWidth(std::string_view text, TextEncoding encoding) {
    const std::string utf8 = ToUtf8(text, encoding);
    HalfWidthText half;
    for (std::string_view rest = utf8; !rest.empty();) {
        const Utf8Character first = FirstUtf8Character(rest);
        const std::string_view character = rest.substr(0, first.size);
        rest.remove_prefix(first.size);
        const char ascii = HalfWidthOf(first.code);
        if (ascii == '\0') {
            half.text += character;
            continue;
        }
        if (half.firstFullWidth.empty()) half.firstFullWidth = character;
        half.text += ascii;
    }
    return half;
}

bool HasFullWidth(std::string_view text, TextEncoding encoding) {
    return !IsAscii(text) && !ToHalfWidth(text, encoding).firstFullWidth.empty();
}

std::string WithoutQuotes(std::string_view text) {
    std::string bare(text);
    std::erase(bare, '"');
    return std::string(Trimmed(bare));
}
