#include "sheet/length_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr double kLongest = 1e12;  // no page is longer

// Halves away from zero, as std::llround has it, which is a call for each of very many lengths.
std::int64_t Rounded(double amount) {
    const auto whole = static_cast<std::int64_t>(amount);
    return amount - static_cast<double>(whole) >= 0.5 ? whole + 1 : whole;
}

}  // namespace

void AppendLengthText(std::string& html, double length) {
    // Whole hundredths: far quicker than the digits of a double, and there are many.
    const double bounded = std::isfinite(length) ? std::clamp(length, -kLongest, kLongest) : 0.0;
    const std::int64_t amount = Rounded(100.0 * std::abs(bounded));
    std::array<char, 32> buffer{};  // filled from its end
    char* const end = buffer.data() + buffer.size();
    char* first = end;
    const auto putDigit = [&first](std::int64_t number) {
        *--first = static_cast<char>('0' + number % 10);
    };
    if (amount % 10 != 0) putDigit(amount);
    if (amount % 100 != 0) {
        putDigit(amount / 10);
        *--first = '.';
    }
    std::int64_t whole = amount / 100;
    do {
        putDigit(whole);
        whole /= 10;
    } while (whole > 0);
    if (bounded < 0.0 && amount > 0) *--first = '-';
    html.append(first, end);
}

std::string LengthText(double length) {
    std::string text;
    AppendLengthText(text, length);
    return text;
}
