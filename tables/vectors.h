#pragma once

#include <cmath>

#include "host/vec3.h"

inline double LengthOf(const Vec3& v) {
    return std::hypot(v.x, v.y, v.z);
}

inline double Dot(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vec3 Plus(const Vec3& a, const Vec3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Vec3 Minus(const Vec3& a, const Vec3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Vec3 Times(const Vec3& v, double factor) {
    return {v.x * factor, v.y * factor, v.z * factor};
}

inline Vec3 Cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// The direction of a vector that is not zero.
inline Vec3 Unit(const Vec3& v) {
    const double length = LengthOf(v);
    return {v.x / length, v.y / length, v.z / length};
}
