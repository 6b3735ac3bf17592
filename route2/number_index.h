#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "host/number_positions.h"

/// Where each number stands in a vector of numbers; the same positions that a search from the
/// front or from the back finds, in constant time.
class NumberIndex {
public:
    NumberIndex() = default;
    explicit NumberIndex(const std::vector<std::int32_t>& numbers);

    /// Position of the first entry equal to `number`.
    std::optional<std::size_t> First(std::int32_t number) const { return first_.Find(number); }

    /// Position of the last entry equal to `number`.
    std::optional<std::size_t> Last(std::int32_t number) const;

private:
    NumberPositions first_;
    std::vector<std::uint32_t> last_;  ///< by first position
};
