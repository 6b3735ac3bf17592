#pragma once

#include <optional>

#include "host/host_queries.h"
#include "host/member_axes.h"

/// Least volume that a member's three axes must span for a force along them to be told.
///
/// The volume is the squared sine of the angle between the member and the reference vector of its
/// other axes, 1 for most members. Below this limit that angle is less than 1e-6 rad: the axes lie
/// in one plane, and no force across it can be put together from them. Only members with Z vertical
/// come near, level ones at 45 degrees to both plan axes. Down to the limit a force along the axes
/// is up to a million times as large as the global one, and still sums up to it in ten digits.
inline constexpr double kSmallestVolumeOfAxes = 1e-12;

/// A force and a moment given along the global axes as they are along a member's axes, which need
/// not be at right angles: F0 axes.x + F1 axes.y + F2 axes.z = G, for the moment alike. Nothing
/// where the axes lie in one plane.
std::optional<SixDoubles> AlongMemberAxes(const SixDoubles& global, const MemberAxes& axes);
