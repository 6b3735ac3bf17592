#pragma once

#include <optional>

#include "host/vec3.h"

/// A member's local axes in global coordinates. x is a unit vector; y and z are not always (see
/// FormMemberAxes).
struct MemberAxes {
    Vec3 x;
    Vec3 y;
    Vec3 z;
};

/// Local axes of a member from its start to its end node (mm), turned by `betaDegrees` about the
/// member's own axis. Nothing for a member shorter than 1e-6 mm, which has no direction.
///
/// With Z vertical the reference vector of an inclined member is not at right angles to the
/// member. This is intended: the host's end forces are given along these very axes.
std::optional<MemberAxes> FormMemberAxes(const Vec3& start, const Vec3& end, double betaDegrees,
                                         bool zIsVertical);
