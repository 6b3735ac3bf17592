#include "route2/upright.h"

#include <cmath>

#include "route2/node_table.h"
#include "route2/tolerances.h"

namespace {

constexpr double kGreatestSlope = 0.05;  // plan distance over height

}  // namespace

bool IsUpright(const Vec3& oneEnd, const Vec3& otherEnd, bool zIsVertical) {
    const double planDistance = std::hypot(
        oneEnd.x - otherEnd.x, PlanZ(oneEnd, zIsVertical) - PlanZ(otherEnd, zIsVertical));
    const double height = std::abs(Vertical(oneEnd, zIsVertical) - Vertical(otherEnd, zIsVertical));
    return planDistance <= kGreatestSlope * height * (1.0 + kRelativeTolerance);
}
