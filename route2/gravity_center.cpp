// Centre of gravity of a story: the members that cross a plane just above its lower floor, each
// weighed by the vertical force at its lower end under the dead load.

#include <cmath>
#include <string>

#include "host/units.h"
#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/near_zero.h"
#include "route2/tested_access.h"

namespace {

// The cutting plane stands one tenth of the story height above the lower floor.
constexpr double kCuttingPlaneFraction = 10.0;

}  // namespace

double AijCodeRoute2::WeightAtLowerEnd(std::size_t memberPosition, std::int32_t end) {
    SixDoubles force{};
    hostLink->GetMemberEndForces(memberNumbers[memberPosition], end, deadLoadCaseNumber, force);
    const double weight = force[0] * Vertical(At(memberAxisX, memberPosition)) +
                          force[1] * Vertical(At(memberAxisY, memberPosition)) +
                          force[2] * Vertical(At(memberAxisZ, memberPosition));
    return inchUnits ? weight * kKnPerKip : weight;
}

bool AijCodeRoute2::SumWeights(const StoryInfo& story, WeightSums& sums) {
    const double cuttingLevel = story.lowerLevel + StoryHeight(story) / kCuttingPlaneFraction;
    for (std::size_t j = 0; j < memberNumbers.size(); ++j) {
        const std::int32_t member = memberNumbers[j];
        std::int32_t startNode = 0, endNode = 0;
        hostLink->GetMemberIncidence(member, startNode, endNode);
        const std::int32_t lowerNode = SetLowerNodeNumber(member);
        const std::int32_t upperNode = SetUpperNodeNumber(member);
        const auto lower = nodePositions_.First(lowerNode);
        const auto upper = nodePositions_.First(upperNode);
        if (!lower || !upper) {
            LogWarning(logFile,
                       "Node number is not set correctly. Stops setting gravity center...");
            return false;
        }
        const Vec3& lowerPoint = nodeCoords[*lower];
        if (!(Vertical(lowerPoint) < cuttingLevel && Vertical(nodeCoords[*upper]) >= cuttingLevel))
            continue;

        const double weight = WeightAtLowerEnd(j, startNode == lowerNode ? 0 : 1);
        sums.weight += weight;
        sums.weightTimesX += weight * lowerPoint.x;
        sums.weightTimesZ += weight * PlanZ(lowerPoint);
    }
    return true;
}

void AijCodeRoute2::SetGravityCenter() {
    LogStart(logFile, "gravity center");
    if (!nodeInfoSet) {
        LogWarning(logFile, "Node info. has not set yet. Stops setting gravity center...");
        return;
    }
    if (!RequireStoryInfo("gravity center")) return;

    for (std::size_t i = 0; i < stories.size(); ++i) {
        WeightSums sums;
        if (!SumWeights(stories[i], sums)) return;
        if (!(std::abs(sums.weight) >= kNearlyZero)) {
            LogWarning(logFile, "Total weight is nearly equal to 0 as setting gravity center of " +
                                    std::to_string(i + 1) +
                                    "-th story. Gravity center is set as (0, 0).");
            stories[i].gravityCenter = {0.0, 0.0};
            continue;
        }
        stories[i].gravityCenter = {sums.weightTimesX / sums.weight,
                                    sums.weightTimesZ / sums.weight};
    }
    LogEnd(logFile, "gravity center");
}
