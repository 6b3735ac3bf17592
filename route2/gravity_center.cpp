// Centre of gravity of a story: the members that cross a plane just above its lower floor, each
// weighed by the vertical force at its lower end under the dead load.

#include "route2/gravity_center.h"

#include <cmath>

#include "host/units.h"
#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/end_forces.h"
#include "route2/tested_access.h"
#include "route2/tolerances.h"

namespace {

constexpr double kCuttingPlaneDivisor = 10.0;  // of the story height

}  // namespace

double CuttingLevel(const StoryInfo& story) {
    return story.lowerLevel + StoryHeight(story) / kCuttingPlaneDivisor;
}

bool IsCut(double lowerHeight, double upperHeight, double cuttingLevel) {
    return lowerHeight < cuttingLevel && upperHeight >= cuttingLevel;
}

double WeightOf(const SixDoubles& force, const MemberAxes& axes, bool zIsVertical, bool inchUnits) {
    const double weight = Vertical(GlobalForce(force, axes), zIsVertical);
    return inchUnits ? weight * kKnPerKip : weight;
}

void AddWeight(WeightSums& sums, double weight, const Vec3& lowerPoint, bool zIsVertical) {
    sums.weight += weight;
    sums.weightTimesX += weight * lowerPoint.x;
    sums.weightTimesZ += weight * PlanZ(lowerPoint, zIsVertical);
}

bool HasWeight(const WeightSums& sums) {
    return std::abs(sums.weight) >= kNearlyZero;
}

PerDirection GravityCenter(const WeightSums& sums) {
    if (!HasWeight(sums)) return {0.0, 0.0};
    return {sums.weightTimesX / sums.weight, sums.weightTimesZ / sums.weight};
}

double AijCodeRoute2::WeightAtLowerEnd(std::size_t memberPosition, std::int32_t end) {
    SixDoubles force{};
    hostLink->GetMemberEndForces(memberNumbers[memberPosition], end, deadLoadCaseNumber, force);
    const MemberAxes axes{At(memberAxisX, memberPosition), At(memberAxisY, memberPosition),
                          At(memberAxisZ, memberPosition)};
    return WeightOf(force, axes, zIsVertical, inchUnits);
}

bool AijCodeRoute2::SumWeights(const StoryInfo& story, WeightSums& sums) {
    const double cuttingLevel = CuttingLevel(story);
    for (std::size_t j = 0; j < memberNumbers.size(); ++j) {
        const std::int32_t member = memberNumbers[j];
        std::int32_t startNode = 0, endNode = 0;
        hostLink->GetMemberIncidence(member, startNode, endNode);
        const std::int32_t lowerNode = SetLowerNodeNumber(member);
        const std::int32_t upperNode = SetUpperNodeNumber(member);
        const auto lower = nodePositions_.First(lowerNode);
        const auto upper = nodePositions_.First(upperNode);
        if (!lower || !upper) {
            Warn(WarningKind::kNodeMissingForGravityCenter);
            return false;
        }
        if (!IsCut(Nodes().HeightOf(*lower), Nodes().HeightOf(*upper), cuttingLevel)) continue;
        AddWeight(sums, WeightAtLowerEnd(j, LowerEnd(startNode, lowerNode)), nodeCoords[*lower],
                  zIsVertical);
    }
    return true;
}

void AijCodeRoute2::SetGravityCenter() {
    LogStart(logFile, "gravity center");
    if (!nodeInfoSet) {
        Warn(WarningKind::kNoNodesForGravityCenter);
        return;
    }
    if (!RequireStoryInfo(WarningKind::kNoStoriesForGravityCenter)) return;

    for (std::size_t i = 0; i < stories.size(); ++i) {
        WeightSums sums;
        if (!SumWeights(stories[i], sums)) return;
        if (!HasWeight(sums)) Warn(WarningKind::kNoWeight, i + 1);
        stories[i].weightAbove = sums.weight;
        stories[i].gravityCenter = GravityCenter(sums);
    }
    LogEnd(logFile, "gravity center");
}
