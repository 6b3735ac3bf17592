#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tables/checked_building.h"

/// The part that the load cases of the tables have.
struct CaseRoles {
    std::optional<std::int32_t> dead;
    std::vector<std::int32_t> earthquake;
    std::string from;  ///< who says so, for people
};

/// The input file's; its default is case 1 for the dead load. Without an input file: an earthquake
/// case is a primary case whose largest horizontal displacement is more than three times its
/// largest vertical one; the dead load is the first case that moves more vertically.
CaseRoles RolesOf(const CheckedBuilding& building, const std::optional<InputRoles>& input);
