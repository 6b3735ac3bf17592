// Eccentricity modulus: the distance between centre of gravity and centre of rigidity, measured
// across a direction, over the elastic radius of that direction.

#include "route2/eccentricity_modulus.h"

#include <cmath>
#include <string>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/near_zero.h"

TorsionalStiffness SumTorsionalStiffness(
    const StoryInfo& story, const std::array<std::int32_t, 2>& earthquakeLoadCaseNumber) {
    TorsionalStiffness sums;
    double ofX = 0.0, ofZ = 0.0;
    for (const StoryMember& record : story.members) {
        if (record.loadCaseNumber == earthquakeLoadCaseNumber[kX]) {
            const double arm = record.planZ - story.rigidityCenter[kZ];
            sums.kx += record.horizontalStiffness[kX];
            ofX += record.horizontalStiffness[kX] * arm * arm;
        }
        if (record.loadCaseNumber == earthquakeLoadCaseNumber[kZ]) {
            const double arm = record.planX - story.rigidityCenter[kX];
            sums.kz += record.horizontalStiffness[kZ];
            ofZ += record.horizontalStiffness[kZ] * arm * arm;
        }
    }
    sums.kr = ofZ + ofX;
    return sums;
}

double EccentricityModulus(double distance, double kr, double k) {
    const double elasticRadius = std::sqrt(kr / k);
    return elasticRadius == 0.0 ? 0.0 : std::abs(distance) / elasticRadius;
}

bool AijCodeRoute2::SetEccentricityModulus() {
    LogStart(logFile, "eccentricity modulus");
    if (!RequireStoryInfo("eccentricity modulus")) return false;
    for (std::size_t i = 0; i < stories.size(); ++i)
        SetEccentricityModulusOf(stories[i], i + 1);
    LogEnd(logFile, "eccentricity modulus");
    return true;
}

void AijCodeRoute2::SetEccentricityModulusOf(StoryInfo& story, std::size_t storyNumber) {
    const TorsionalStiffness sums = SumTorsionalStiffness(story, earthquakeLoadCaseNumber);
    const std::string ofStory =
        " as setting eccentricity modulus of " + std::to_string(storyNumber) + "-th story. ";
    story.eccentricityModulus = {0.0, 0.0};
    if (std::abs(sums.kr) < kNearlyZero || sums.kr < 0.0) {
        LogWarning(logFile, "Totional stiffness(KR) is less than or equal to 0" + ofStory +
                                "Eccentricity modulus is set as 0.");
        return;
    }

    // The X direction has its eccentricity across it, along Z(or Y), and the other way round.
    const double acrossX = story.rigidityCenter[kZ] - story.gravityCenter[kZ];
    const double acrossZ = story.rigidityCenter[kX] - story.gravityCenter[kX];
    // X warns unless its stiffness is large enough, Z(or Y) when it is too small: a NaN warns in X
    // only.
    if (std::abs(sums.kx) >= kNearlyZero)
        story.eccentricityModulus[kX] = EccentricityModulus(acrossX, sums.kr, sums.kx);
    else
        LogWarning(logFile, "Total stiffness(Kx) is nearly equal to 0" + ofStory +
                                "Eccentricity modulus in X direc. is set as 0.");
    if (std::abs(sums.kz) < kNearlyZero)
        LogWarning(logFile, "Total stiffness(Kz) is nearly equal to 0" + ofStory +
                                "Eccentricity modulus in Z direc. is set as 0.");
    else
        story.eccentricityModulus[kZ] = EccentricityModulus(acrossZ, sums.kr, sums.kz);
}
