#pragma once

#include <gmock/gmock.h>

#include <cmath>

/// Matches a figure that is there and differs from `value` by rounding only.
inline auto Near(double value) {
    return testing::Optional(testing::DoubleNear(value, 1e-9 * (1.0 + std::abs(value))));
}
