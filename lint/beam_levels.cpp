#include "lint/beam_levels.h"

#include <algorithm>
#include <cmath>

#include "route2/floor_levels.h"
#include "route2/tolerances.h"

namespace {

constexpr double kLeastShareOfPlan = 0.1;

// Share of the plan that a rectangle spans; of a plane frame the share of its length.
double ShareOf(const PlanRectangle& part, const PlanRectangle& whole) {
    const bool isPlane = whole.WidthX() < kSameLevel || whole.WidthV() < kSameLevel;
    const double all = isPlane ? whole.WidthX() + whole.WidthV() : whole.Area();
    const double spanned = isPlane ? part.WidthX() + part.WidthV() : part.Area();
    return all > 0.0 ? spanned / all : 1.0;
}

PlanRectangle PlanOfNodes(const AijCodeRoute2& engine) {
    PlanRectangle plan;
    for (const Vec3& point : engine.nodeCoords)
        plan.Include(point.x, PlanZ(point, engine.zIsVertical));
    return plan;
}

double BaseOf(const ModelView& view) {
    return view.Engine().baseLevel;
}

}  // namespace

std::vector<BeamLevel> FindBeamLevels(const ModelView& view) {
    const AijCodeRoute2& engine = view.Engine();
    const NodeTable nodes = engine.Nodes();
    std::vector<BeamLevel> levels;
    for (const PlacedMember& member : view.Members()) {
        const auto& [startNode, endNode] = engine.memberEndNodes[member.position];
        const MemberEnds ends = FindMemberEnds(startNode, endNode, nodes);
        const auto level = LevelOfHorizontalMember(HeightsOf(ends, nodes));
        if (!level) continue;
        auto found = std::ranges::find_if(levels, [&level](const BeamLevel& other) {
            return std::abs(other.level - *level) < kSameLevel;
        });
        if (found == levels.end()) found = levels.insert(found, {*level, 0, {}});
        ++found->members;
        for (const std::size_t end : {*ends.start, *ends.end})
            found->plan.Include(nodes.coords[end].x, PlanZ(nodes.coords[end], nodes.zIsVertical));
    }
    std::ranges::sort(levels, {}, &BeamLevel::level);
    return levels;
}

bool CarriesAFloor(const BeamLevel& level, const ModelView& view) {
    return level.members >= kLeastMembersOfAFloor &&
           ShareOf(level.plan, PlanOfNodes(view.Engine())) >= kLeastShareOfPlan;
}

std::vector<double> LevelsOfFloors(const ModelView& view) {
    // Where two levels are one floor, the one with more members is taken.
    std::vector<BeamLevel> floors;
    for (const BeamLevel& level : FindBeamLevels(view)) {
        if (level.level <= BaseOf(view) || !CarriesAFloor(level, view)) continue;
        if (floors.empty() || level.level - floors.back().level >= kOneFloor)
            floors.push_back(level);
        else if (level.members > floors.back().members)
            floors.back() = level;
    }
    std::vector<double> levels{BaseOf(view)};
    for (const BeamLevel& floor : floors)
        levels.push_back(floor.level);
    return levels;
}
