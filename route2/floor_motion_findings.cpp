// Whether a floor moves as one piece: the least-squares motion of a rigid body through the plan
// displacements of its nodes, and what each node keeps beside it.

#include <algorithm>
#include <cmath>
#include <map>

#include "route2/direction_findings.h"
#include "route2/member_findings.h"

namespace {

struct FloorNode {
    double x = 0.0;  // mm
    double v = 0.0;
    double alongX = 0.0;  // displacement, mm
    double alongV = 0.0;
};

// The nodes at the upper ends of the story members, each once. None when an answer is missing.
std::vector<FloorNode> AskFloorNodes(const StoryUnderFindings& under, std::int32_t loadCase) {
    const AijCodeRoute2& engine = under.engine;
    const double factor = engine.MillimetresPerHostLength();
    const NodeTable nodes = engine.Nodes();
    std::map<std::int32_t, FloorNode> found;
    for (const MemberRecords& records : StoryMembersOf(engine, under.story)) {
        const std::int32_t node = records.front().upperNodeNumber;
        if (found.contains(node)) continue;
        const auto moved = under.questions.Displacements(node, loadCase);
        if (!moved) return {};
        const Vec3& point = nodes.coords[*nodes.positions.First(node)];
        const std::size_t second = engine.zIsVertical ? 1 : 2;
        found[node] = {point.x, PlanZ(point, engine.zIsVertical), factor * (*moved)[0],
                       factor * (*moved)[second]};
    }
    std::vector<FloorNode> list;
    list.reserve(found.size());
    for (const auto& [number, node] : found)
        list.push_back(node);
    return list;
}

FloorNode MeanOf(const std::vector<FloorNode>& nodes) {
    FloorNode mean;
    const auto count = static_cast<double>(nodes.size());
    for (const FloorNode& node : nodes) {
        mean.x += node.x / count;
        mean.v += node.v / count;
        mean.alongX += node.alongX / count;
        mean.alongV += node.alongV / count;
    }
    return mean;
}

// A small turn t of the floor moves a node at (x, v) from the mean by (-t v, t x).
double TurnOf(const std::vector<FloorNode>& nodes, const FloorNode& mean) {
    double moment = 0.0, inertia = 0.0;
    for (const FloorNode& node : nodes) {
        const double x = node.x - mean.x, v = node.v - mean.v;
        moment += x * (node.alongV - mean.alongV) - v * (node.alongX - mean.alongX);
        inertia += x * x + v * v;
    }
    return inertia > 0.0 ? moment / inertia : 0.0;
}

// The largest amount that a node keeps beside the motion of the whole, per direction, mm.
PerDirection LargestResidual(const std::vector<FloorNode>& nodes) {
    const FloorNode mean = MeanOf(nodes);
    const double turn = TurnOf(nodes, mean);
    PerDirection largest{};
    for (const FloorNode& node : nodes) {
        const double x = node.x - mean.x, v = node.v - mean.v;
        largest[kX] = std::max(largest[kX], std::abs(node.alongX - mean.alongX + turn * v));
        largest[kZ] = std::max(largest[kZ], std::abs(node.alongV - mean.alongV - turn * x));
    }
    return largest;
}

}  // namespace

void FormFloorMotion(const StoryUnderFindings& under, StoryFindings& found) {
    if (!under.rowsStand) return;
    for (const std::size_t axis : {kX, kZ}) {
        const auto nodes = AskFloorNodes(under, under.engine.earthquakeLoadCaseNumber[axis]);
        if (nodes.empty()) continue;
        const PerDirection residual = LargestResidual(nodes);
        found.directions[axis].floorResidual = Finite(std::max(residual[kX], residual[kZ]));
    }
}
