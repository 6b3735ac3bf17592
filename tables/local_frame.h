#pragma once

#include <optional>

#include "host/vec3.h"

/// A member's local axes, of unit length and at right angles, in the model's axes.
struct LocalFrame {
    Vec3 x, y, z;
};

/// The frame that most programs have: x from start to end, y in the vertical plane through the
/// member and upwards, z right-handed. Of a vertical member, one whose plan extent is at most 1e-6
/// of its length, y points along global X. Turned by `betaDegrees` about x. `direction`: from start
/// to end, not zero.
LocalFrame StandardFrame(const Vec3& direction, double betaDegrees, bool zUp);

/// The frame whose local x-y plane holds `inPlane`, on the side of y. Nothing where that vector is
/// zero or lies along the member (to a millionth of its length).
std::optional<LocalFrame> FrameOf(const Vec3& direction, const Vec3& inPlane);

/// f0 along x, f1 along y, f2 along z.
Vec3 Combine(const LocalFrame& frame, double f0, double f1, double f2);
