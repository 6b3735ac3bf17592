#include "sheet/length_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace {

constexpr double kLongest = 1e12;  // no page is longer

}  // namespace

std::string LengthText(double length) {
    // Whole hundredths: far quicker than the digits of a double, and there are many.
    const double bounded = std::isfinite(length) ? std::clamp(length, -kLongest, kLongest) : 0.0;
    const auto hundredths = static_cast<std::int64_t>(std::llround(100.0 * bounded));
    std::array<char, 32> buffer{};
    char* end = buffer.data();
    if (hundredths < 0) *end++ = '-';
    const std::int64_t amount = std::abs(hundredths);
    end = std::to_chars(end, buffer.data() + buffer.size(), amount / 100).ptr;
    if (amount % 100 != 0) {
        *end++ = '.';
        *end++ = static_cast<char>('0' + amount / 10 % 10);
        if (amount % 10 != 0) *end++ = static_cast<char>('0' + amount % 10);
    }
    return {buffer.data(), end};
}
