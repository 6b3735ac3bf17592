#include "route2/number_index.h"

NumberIndex::NumberIndex(const std::vector<std::int32_t>& numbers) : last_(numbers.size()) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
        last_[first_.Add(numbers[i], i)] = static_cast<std::uint32_t>(i);
}

std::optional<std::size_t> NumberIndex::Last(std::int32_t number) const {
    const auto first = First(number);
    if (!first) return std::nullopt;
    return last_[*first];
}
