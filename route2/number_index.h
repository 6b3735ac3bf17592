#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

/// Where each number stands in a vector of numbers; the same positions that a search from the
/// front or from the back finds, in constant time.
class NumberIndex {
public:
    NumberIndex() = default;
    explicit NumberIndex(const std::vector<std::int32_t>& numbers);

    /// Position of the first entry equal to `number`.
    std::optional<std::size_t> First(std::int32_t number) const;

    /// Position of the last entry equal to `number`.
    std::optional<std::size_t> Last(std::int32_t number) const;

private:
    struct Positions {
        std::size_t first;
        std::size_t last;
    };
    std::unordered_map<std::int32_t, Positions> positions_;
};
