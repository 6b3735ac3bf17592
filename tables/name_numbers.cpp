#include "tables/name_numbers.h"

#include "tables/cell_values.h"

std::optional<std::size_t> NameNumbers::Find(std::string_view name) const {
    if (const auto number = WholeNumberOf(name)) {
        const auto found = placesByNumber_.find(*number);
        if (found == placesByNumber_.end()) return std::nullopt;
        return found->second;
    }
    const auto found = placesByName_.find(name);
    if (found == placesByName_.end()) return std::nullopt;
    return found->second;
}

void NameNumbers::Add(const std::string& name) {
    const auto number = WholeNumberOf(name);
    if (number)
        placesByNumber_.emplace(*number, names_.size());
    else
        placesByName_.emplace(name, names_.size());
    names_.push_back(name);
    numbers_.push_back(number);
}

std::vector<std::int32_t> NameNumbers::Numbers(const std::vector<bool>& isWanted) const {
    std::vector<std::int32_t> numbers(names_.size());
    std::int32_t next = 1;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers_[i]) numbers[i] = *numbers_[i];
        if (numbers_[i] || !isWanted[i]) continue;
        while (placesByNumber_.contains(next))
            ++next;
        numbers[i] = next++;
    }
    return numbers;
}
