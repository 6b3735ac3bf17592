#include "sheet/length_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace {

constexpr double kLongest = 1e12;  // no page is longer

// Halves up, as std::llround has it, which is a call for each of very many lengths.
std::uint64_t Rounded(double amount) {
    const auto whole = static_cast<std::int64_t>(amount);  // signed: quicker to convert
    const bool isUp = amount - static_cast<double>(whole) >= 0.5;
    return static_cast<std::uint64_t>(whole) + (isUp ? 1 : 0);
}

}  // namespace

void AppendLengthText(std::string& html, double length) {
    // Whole hundredths: far quicker than the digits of a double, and there are many.
    const double bounded = std::isfinite(length) ? std::clamp(length, -kLongest, kLongest) : 0.0;
    const std::uint64_t amount = Rounded(100.0 * std::abs(bounded));
    std::array<char, 32> buffer{};  // filled from its end
    char* const end = buffer.data() + buffer.size();
    char* first = end;
    const auto putDigit = [&first](std::uint64_t digit) {
        *--first = static_cast<char>('0' + digit);
    };
    const std::uint64_t hundredths = amount % 100;
    if (hundredths % 10 != 0) putDigit(hundredths % 10);
    if (hundredths != 0) {
        putDigit(hundredths / 10);
        *--first = '.';
    }
    std::uint64_t whole = amount / 100;
    do {
        putDigit(whole % 10);
        whole /= 10;
    } while (whole > 0);
    if (bounded < 0.0 && amount > 0) *--first = '-';
    html += std::string_view(first, end);
}

std::string LengthText(double length) {
    std::string text;
    AppendLengthText(text, length);
    return text;
}
