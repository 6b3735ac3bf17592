#include "route2/floor_shape.h"

#include <algorithm>
#include <cmath>

#include "route2/tolerances.h"

namespace {

constexpr int kFewestMembersOfAFloor = 3;
constexpr double kSmallestShareOfThePlan = 0.1;

}  // namespace

void PlanRectangle::Include(double x, double v) {
    lowX = isEmpty ? x : std::min(lowX, x);
    highX = isEmpty ? x : std::max(highX, x);
    lowV = isEmpty ? v : std::min(lowV, v);
    highV = isEmpty ? v : std::max(highV, v);
    isEmpty = false;
}

bool PlanRectangle::Holds(double x, double v, double margin) const {
    return x >= lowX - margin && x <= highX + margin && v >= lowV - margin && v <= highV + margin;
}

PlanRectangle PlanOf(const std::vector<MemberFindings>& members) {
    PlanRectangle plan;
    for (const MemberFindings& member : members)
        plan.Include(member.x, member.v);
    return plan;
}

FloorShapes::FloorShapes(const Findings& findings)
    : counts_(findings.floorLevels.size()), rectangles_(findings.floorLevels.size()) {
    for (const ModelNode& node : findings.nodes)
        plan_.Include(node.point.x, PlanZ(node.point, findings.zIsVertical));
    for (const ModelMember& member : findings.members)
        Add(findings, member);
}

void FloorShapes::Add(const Findings& findings, const ModelMember& member) {
    if (!member.start || !member.end) return;
    const bool z = findings.zIsVertical;
    const Vec3& start = findings.nodes[*member.start].point;
    const Vec3& end = findings.nodes[*member.end].point;
    if (!(std::abs(Vertical(start, z) - Vertical(end, z)) < kSameLevel)) return;
    hasHorizontalMembers_ = true;
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        if (!(std::abs(Vertical(start, z) - findings.floorLevels[i]) < kSameLevel)) continue;
        ++counts_[i];
        rectangles_[i].Include(start.x, PlanZ(start, z));
        rectangles_[i].Include(end.x, PlanZ(end, z));
    }
}

bool FloorShapes::LooksLikeALanding(std::size_t level) const {
    if (!hasHorizontalMembers_) return false;
    if (counts_[level] < kFewestMembersOfAFloor) return true;
    return rectangles_[level].Area() < kSmallestShareOfThePlan * plan_.Area();
}
