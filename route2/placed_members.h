#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "host/member_axes.h"
#include "route2/aij_code_route2.h"

/// A member of the model between its two nodes, as the run found them.
struct PlacedMember {
    std::int32_t number = 0;
    std::size_t position = 0;  ///< among the model's members
    std::int32_t startNode = 0;
    std::int32_t lowerNode = 0;
    std::int32_t upperNode = 0;
    Vec3 lower;  ///< mm
    Vec3 upper;  ///< mm
};

/// Every member of the model whose two nodes are there, in the host's order. A number that stands
/// twice comes twice.
std::vector<PlacedMember> PlaceMembers(const AijCodeRoute2& engine);

/// Those that the story's cutting plane meets, in the same order.
std::vector<PlacedMember> CutMembers(const StoryInfo& story,
                                     const std::vector<PlacedMember>& members, bool zIsVertical);

/// The axes that the engine takes a member's shear along: of a number that stands twice among the
/// members, the last one's. Zeros for a member without axes.
MemberAxes ShearAxes(const AijCodeRoute2& engine, const NumberIndex& memberPositions,
                     std::int32_t member);
