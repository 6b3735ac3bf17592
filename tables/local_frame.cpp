#include "tables/local_frame.h"

#include <cmath>
#include <numbers>

#include "tables/vectors.h"

namespace {

constexpr double kNoPlanExtent = 1e-6;  // of a member's length
constexpr double kNoDirection = 1e-6;   // of a vector's length

LocalFrame Turned(const LocalFrame& frame, double betaDegrees) {
    if (betaDegrees == 0.0) return frame;
    const double angle = betaDegrees * std::numbers::pi / 180.0;
    const double c = std::cos(angle), s = std::sin(angle);
    return {frame.x, Plus(Times(frame.y, c), Times(frame.z, s)),
            Plus(Times(frame.z, c), Times(frame.y, -s))};
}

}  // namespace

LocalFrame StandardFrame(const Vec3& direction, double betaDegrees, bool zUp) {
    const Vec3 x = Unit(direction);
    const Vec3 up = zUp ? Vec3{0.0, 0.0, 1.0} : Vec3{0.0, 1.0, 0.0};
    const double planExtent = zUp ? std::hypot(x.x, x.y) : std::hypot(x.x, x.z);
    if (planExtent <= kNoPlanExtent) {
        const Vec3 alongX{1.0, 0.0, 0.0};
        return Turned({x, alongX, Cross(x, alongX)}, betaDegrees);
    }
    const Vec3 z = Unit(Cross(x, up));
    return Turned({x, Cross(z, x), z}, betaDegrees);
}

std::optional<LocalFrame> FrameOf(const Vec3& direction, const Vec3& inPlane) {
    const double length = LengthOf(inPlane);
    if (!(length > 0.0)) return std::nullopt;
    const Vec3 x = Unit(direction);
    const Vec3 across = Cross(x, Unit(inPlane));
    if (!(LengthOf(across) > kNoDirection)) return std::nullopt;
    const Vec3 z = Unit(across);
    return LocalFrame{x, Cross(z, x), z};
}

Vec3 Combine(const LocalFrame& frame, double f0, double f1, double f2) {
    return Plus(Plus(Times(frame.x, f0), Times(frame.y, f1)), Times(frame.z, f2));
}
