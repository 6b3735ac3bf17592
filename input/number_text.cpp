#include "input/number_text.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

std::int32_t ToInteger(const std::string& text) {
    const long value = std::strtol(text.c_str(), nullptr, 10);
    constexpr long kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr long kHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(value, kLowest, kHighest));
}

double ToReal(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}
