#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "route2/findings.h"

/// The model's members by number; of a number that stands twice, the first. Borrows the findings.
class ModelMembers {
public:
    explicit ModelMembers(const Findings& findings) {
        byNumber_.reserve(findings.members.size());
        for (const ModelMember& member : findings.members)
            byNumber_.push_back(&member);
        // Mostly they are in this order already.
        if (!std::ranges::is_sorted(byNumber_, {}, NumberOf))
            std::ranges::stable_sort(byNumber_, {}, NumberOf);
    }

    /// Null when there is none.
    const ModelMember* Find(std::int32_t number) const {
        const auto found = std::ranges::lower_bound(byNumber_, number, {}, NumberOf);
        return found == byNumber_.end() || (*found)->number != number ? nullptr : *found;
    }

private:
    static std::int32_t NumberOf(const ModelMember* member) { return member->number; }

    std::vector<const ModelMember*> byNumber_;
};
