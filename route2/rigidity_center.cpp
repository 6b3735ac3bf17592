// Centre of rigidity: where the horizontal stiffness of a story's members has its centre. X
// stiffness is weighted with the Z(or Y) coordinate, Z(or Y) stiffness with the X coordinate.

#include "route2/rigidity_center.h"

#include <cmath>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tolerances.h"

StiffnessSums SumStiffness(const std::vector<StoryMember>& members, const EarthquakeCases& cases) {
    StiffnessSums sums;
    for (const StoryMember& record : members) {
        if (record.loadCaseNumber == cases[kX]) {
            sums.kx += record.horizontalStiffness[kX];
            sums.kxTimesZ += record.horizontalStiffness[kX] * record.planZ;
        } else if (record.loadCaseNumber == cases[kZ]) {
            sums.kz += record.horizontalStiffness[kZ];
            sums.kzTimesX += record.horizontalStiffness[kZ] * record.planX;
        }
    }
    return sums;
}

bool HasStiffness(double total) {
    return std::abs(total) >= kNearlyZero;
}

PerDirection RigidityCenter(const StiffnessSums& sums) {
    const double x = HasStiffness(sums.kz) ? sums.kzTimesX / sums.kz : 0.0;
    return {x, sums.kxTimesZ / sums.kx};
}

bool AijCodeRoute2::SetRigidityCenter() {
    LogStart(logFile, "center of rigidity");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForRigidityCenter)) return false;
    for (std::size_t i = 0; i < stories.size(); ++i) {
        const StiffnessSums sums = SumStiffness(stories[i].members, earthquakeLoadCaseNumber);
        if (!HasStiffness(sums.kz)) Warn(WarningKind::kNoKzForRigidityCenter, i + 1);
        // Intended: the warning says 0, but the quotient is stored, so that a story without X
        // stiffness cannot pass for one whose centre lies at 0. A NaN does not warn here.
        if (std::abs(sums.kx) < kNearlyZero) Warn(WarningKind::kNoKxForRigidityCenter, i + 1);
        stories[i].rigidityCenter = RigidityCenter(sums);
    }
    rigidityCenterSet = true;
    LogEnd(logFile, "center of rigidity");
    return true;
}
