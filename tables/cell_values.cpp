#include "tables/cell_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsWord(std::string_view text, std::string_view word) {
    return std::ranges::equal(text, word, [](char a, char b) {
        return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b);
    });
}

// inf and nan are numbers for the standard library.
bool IsNumberWord(std::string_view text) {
    while (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
    return IsWord(text, "inf") || IsWord(text, "infinity");
}

bool HasDecimalComma(std::string_view text) {
    const auto isOfNumber = [](char c) {
        return IsDigit(c) || std::string_view("+-.,eE").find(c) != std::string_view::npos;
    };
    return text.find(',') != std::string_view::npos && std::ranges::all_of(text, isOfNumber) &&
           std::ranges::any_of(text, IsDigit);
}

// A number with a power of ten too small for a double is 0; one too large is not finite.
CellNumber OutOfRange(std::string_view text) {
    const std::size_t exponent = text.find_first_of("eE");
    const bool isSmall = exponent == std::string_view::npos
                             ? text.find_first_of("123456789") > text.find('.')
                             : text.substr(exponent + 1).starts_with('-');
    if (isSmall) return {0.0, NumberFault::kNone};
    return {0.0, NumberFault::kNotFinite};
}

}  // namespace

CellNumber NumberOf(std::string_view text) {
    if (text.empty()) return {0.0, NumberFault::kEmpty};
    std::string_view digits = text;
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool isWhole = end == digits.data() + digits.size();
    const bool startsAsNumber = !digits.empty() && (IsDigit(digits.back()) || digits.back() == '.');
    if (isWhole && error == std::errc() && startsAsNumber) return {value, NumberFault::kNone};
    if (isWhole && error == std::errc::result_out_of_range) return OutOfRange(digits);
    if (IsNumberWord(text)) return {0.0, NumberFault::kNotFinite};
    return {0.0, HasDecimalComma(text) ? NumberFault::kDecimalComma : NumberFault::kNoNumber};
}

std::optional<std::int32_t> WholeNumberOf(std::string_view text) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

bool LooksWhole(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && std::ranges::all_of(text, IsDigit);
}
