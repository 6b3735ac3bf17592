#pragma once

#include <cstdint>

#include "host/host_queries.h"
#include "host/member_axes.h"

/// Which end of a member to ask for: 0, the start, when the member starts at its lower node, else
/// 1. Forces are always taken at the lower end.
std::int32_t LowerEnd(std::int32_t startNode, std::int32_t lowerNode);

/// An end force (first three of `force`, along the member's local axes) in global axes, base force
/// unit.
Vec3 GlobalForce(const SixDoubles& force, const MemberAxes& axes);
