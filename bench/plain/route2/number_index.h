#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// Stands in for the product's NumberIndex when the engine is compiled as the benchmark's plain
/// baseline: the same answers, found by searching through all numbers.
class NumberIndex {
public:
    NumberIndex() = default;
    explicit NumberIndex(const std::vector<std::int32_t>& numbers) : numbers_(numbers) {}

    std::optional<std::size_t> First(std::int32_t number) const {
        const auto found = std::find(numbers_.begin(), numbers_.end(), number);
        if (found == numbers_.end()) return std::nullopt;
        return static_cast<std::size_t>(found - numbers_.begin());
    }

    /// Goes through to the end: a later match counts more than an earlier one.
    std::optional<std::size_t> Last(std::int32_t number) const {
        std::optional<std::size_t> last;
        for (std::size_t i = 0; i < numbers_.size(); ++i)
            if (numbers_[i] == number) last = i;
        return last;
    }

private:
    std::vector<std::int32_t> numbers_;
};
