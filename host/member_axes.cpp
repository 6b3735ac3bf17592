#include "host/member_axes.h"

#include <cmath>

namespace {

constexpr double kZeroLength = 1e-6;  // mm, and for the plan part of a unit vector

// Rounded as the host's own convention has it; a more precise value would turn the axes of a
// member with beta = 90 by 4e-11.
constexpr double kPi = 3.1415926535;

Vec3 Cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vec3 Combine(double factorA, const Vec3& a, double factorB, const Vec3& b) {
    return {factorA * a.x + factorB * b.x, factorA * a.y + factorB * b.y,
            factorA * a.z + factorB * b.z};
}

// The member's y and z directions before the rotation about its axis.
struct ReferenceVectors {
    Vec3 p;
    Vec3 q;
};

ReferenceVectors ReferencesWithYVertical(const Vec3& c) {
    Vec3 w{-c.z, 0.0, c.x};
    const double s = std::sqrt(c.z * c.z + c.x * c.x);
    if (s >= kZeroLength)
        w = {w.x / s, w.y / s, w.z / s};
    else
        w = {-c.z, 0.0, 1.0};  // a column: not normalised
    return {Cross(w, c), w};
}

// Both plan components of u carry a minus sign. This is intended (see the header): do not change
// it to the right-angled (-cy, cx, 0).
ReferenceVectors ReferencesWithZVertical(const Vec3& c) {
    Vec3 u{-c.y, -c.x, 0.0};
    const double s = std::sqrt(c.x * c.x + c.y * c.y);
    if (s >= kZeroLength)
        u = {u.x / s, u.y / s, u.z / s};
    else
        u = {-c.y, 1.0, 0.0};  // a column: not normalised
    return {u, Cross(c, u)};
}

}  // namespace

std::optional<MemberAxes> FormMemberAxes(const Vec3& start, const Vec3& end, double betaDegrees,
                                         bool zIsVertical) {
    const Vec3 d{end.x - start.x, end.y - start.y, end.z - start.z};
    const double length = std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z);
    if (length < kZeroLength) return std::nullopt;

    const Vec3 c{d.x / length, d.y / length, d.z / length};
    const auto [p, q] = zIsVertical ? ReferencesWithZVertical(c) : ReferencesWithYVertical(c);
    const double a = betaDegrees * kPi / 180.0;
    return MemberAxes{c, Combine(std::cos(a), p, std::sin(a), q),
                      Combine(std::cos(a), q, -std::sin(a), p)};
}
