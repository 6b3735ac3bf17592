#include "tables/story_loads.h"

#include "route2/floor_levels.h"
#include "route2/gravity_center.h"
#include "tables/vectors.h"

namespace {

// As a run has it: the first node takes part even when it is not held.
double BaseLevelOfARun(const CheckedBuilding& building) {
    const BuildingTables& tables = building.Tables();
    double base = building.HeightOf(building.Point(0));
    for (std::size_t node = 0; node < tables.nodes.names.size(); ++node) {
        const double height = building.HeightOf(building.Point(node));
        if (tables.isHeld[node] && height < base) base = height;
    }
    return base;
}

std::vector<double> FloorLevels(const CheckedBuilding& building) {
    const double base = BaseLevelOfARun(building);
    std::vector<double> levels{base};
    const TableMembers& members = building.Tables().members;
    for (std::size_t bar = 0; bar < members.bars.size(); ++bar) {
        if (!IsLevel(building.Tables(), bar)) continue;
        const double level = building.HeightOf(building.Point(*members.Bar(bar).startNode));
        if (MakesAFloor(level, base)) levels.push_back(level);
    }
    return SortedDistinctLevels(std::move(levels));
}

}  // namespace

std::vector<StoryLoads> StoryLoadsOf(const CheckedBuilding& building, const CaseRoles& roles) {
    const std::vector<double> levels = FloorLevels(building);
    std::vector<StoryLoads> stories;
    for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
        StoryInfo story;
        story.lowerLevel = levels[i];
        story.upperLevel = levels[i + 1];
        StoryLoads loads;
        loads.lowerLevel = levels[i];
        loads.upperLevel = levels[i + 1];
        for (const CarryingMember& member : building.Carrying()) {
            if (!IsCut(building.HeightOf(member.lower), building.HeightOf(member.upper),
                       CuttingLevel(story)))
                continue;
            if (roles.dead)
                loads.weight +=
                    building.HeightOf(building.Force(member.bar, member.lowerEnd, *roles.dead));
            for (const std::int32_t loadCase : roles.earthquake)
                loads.shears[loadCase] =
                    Minus(loads.shears[loadCase],
                          building.InPlan(building.Force(member.bar, member.lowerEnd, loadCase)));
        }
        stories.push_back(loads);
    }
    return stories;
}
