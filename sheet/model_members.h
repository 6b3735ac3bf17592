#pragma once

#include <cstdint>
#include <unordered_map>

#include "route2/findings.h"

/// The model's members by number; of a number that stands twice, the first. Borrows the findings.
class ModelMembers {
public:
    explicit ModelMembers(const Findings& findings) {
        for (const ModelMember& member : findings.members)
            byNumber_.try_emplace(member.number, &member);
    }

    /// Null when there is none.
    const ModelMember* Find(std::int32_t number) const {
        const auto found = byNumber_.find(number);
        return found == byNumber_.end() ? nullptr : found->second;
    }

private:
    std::unordered_map<std::int32_t, const ModelMember*> byNumber_;
};
