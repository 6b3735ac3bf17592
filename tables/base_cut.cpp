#include "tables/base_cut.h"

#include <algorithm>
#include <limits>

#include "route2/gravity_center.h"
#include "route2/tolerances.h"
#include "tables/vectors.h"

namespace {

constexpr double kNone = std::numeric_limits<double>::infinity();

double BaseLevel(const CheckedBuilding& building) {
    double lowestHeld = kNone, lowest = kNone;
    for (const std::size_t node : building.Nodes()) {
        const double height = building.HeightOf(building.Point(node));
        lowest = std::min(lowest, height);
        if (building.Tables().isHeld[node]) lowestHeld = std::min(lowestHeld, height);
    }
    return lowestHeld < kNone ? lowestHeld : lowest;
}

double NextLevelAbove(const CheckedBuilding& building, double level) {
    double next = kNone;
    for (const std::size_t node : building.Nodes()) {
        const double height = building.HeightOf(building.Point(node));
        if (height > level + kSameLevel) next = std::min(next, height);
    }
    return next;
}

}  // namespace

BaseCut CutAboveBase(const CheckedBuilding& building) {
    StoryInfo lowest;
    lowest.lowerLevel = BaseLevel(building);
    lowest.upperLevel = NextLevelAbove(building, lowest.lowerLevel);
    BaseCut cut;
    if (!(lowest.upperLevel < kNone)) return cut;
    cut.level = CuttingLevel(lowest);
    for (const CarryingMember& member : building.Carrying())
        if (IsCut(building.HeightOf(member.lower), building.HeightOf(member.upper), cut.level))
            cut.members.push_back(member);
    return cut;
}

Vec3 ForceFromBelow(const CheckedBuilding& building, const BaseCut& cut, std::int32_t loadCase) {
    Vec3 sum;
    for (const CarryingMember& member : cut.members)
        sum = Plus(sum, building.Force(member.bar, member.lowerEnd, loadCase));
    return sum;
}
