#include "route2/number_index.h"

NumberIndex::NumberIndex(const std::vector<std::int32_t>& numbers) {
    positions_.reserve(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto [entry, isNew] = positions_.try_emplace(numbers[i], Positions{i, i});
        if (!isNew) entry->second.last = i;
    }
}

std::optional<std::size_t> NumberIndex::First(std::int32_t number) const {
    const auto found = positions_.find(number);
    if (found == positions_.end()) return std::nullopt;
    return found->second.first;
}

std::optional<std::size_t> NumberIndex::Last(std::int32_t number) const {
    const auto found = positions_.find(number);
    if (found == positions_.end()) return std::nullopt;
    return found->second.last;
}
