#include "route2/end_forces.h"

std::int32_t LowerEnd(std::int32_t startNode, std::int32_t lowerNode) {
    return startNode == lowerNode ? 0 : 1;
}

Vec3 GlobalForce(const SixDoubles& force, const MemberAxes& axes) {
    const auto& [x, y, z] = axes;
    return {force[0] * x.x + force[1] * y.x + force[2] * z.x,
            force[0] * x.y + force[1] * y.y + force[2] * z.y,
            force[0] * x.z + force[1] * y.z + force[2] * z.z};
}
