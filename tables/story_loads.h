#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "tables/case_roles.h"
#include "tables/checked_building.h"

/// What goes through the members cut above a floor.
struct StoryLoads {
    double lowerLevel = 0.0, upperLevel = 0.0;  ///< mm
    double weight = 0.0;                        ///< kN, under the dead load
    std::map<std::int32_t, Vec3> shears;        ///< by earthquake case, kN, in plan
};

/// The stories between the floors that a run finds in the model, lowest first; without a level
/// member there is none.
std::vector<StoryLoads> StoryLoadsOf(const CheckedBuilding& building, const CaseRoles& roles);
