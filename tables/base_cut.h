#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "tables/checked_building.h"

/// The members that a plane just above the base meets: what stands above them goes through them.
struct BaseCut {
    double level = 0.0;  ///< height of the plane, mm: a tenth of the way up to the next nodes
    std::vector<CarryingMember> members;
};

/// The base is the lowest held node that a member stands on, or else the lowest node.
BaseCut CutAboveBase(const CheckedBuilding& building);

/// Sum of the forces on the lower ends of the members, kN along the global axes: what the base does
/// to the building.
Vec3 ForceFromBelow(const CheckedBuilding& building, const BaseCut& cut, std::int32_t loadCase);
