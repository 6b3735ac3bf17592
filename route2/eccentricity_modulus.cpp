// Eccentricity modulus: the distance between centre of gravity and centre of rigidity, measured
// across a direction, over the elastic radius of that direction.

#include "route2/eccentricity_modulus.h"

#include <cmath>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/rigidity_center.h"
#include "route2/tolerances.h"

TorsionalStiffness SumTorsionalStiffness(const StoryInfo& story, const EarthquakeCases& cases) {
    TorsionalStiffness sums;
    double ofX = 0.0, ofZ = 0.0;
    // The two tests are independent: a record of both cases counts in both.
    for (const StoryMember& record : story.members) {
        if (record.loadCaseNumber == cases[kX]) {
            const double arm = record.planZ - story.rigidityCenter[kZ];
            sums.kx += record.horizontalStiffness[kX];
            ofX += record.horizontalStiffness[kX] * arm * arm;
        }
        if (record.loadCaseNumber == cases[kZ]) {
            const double arm = record.planX - story.rigidityCenter[kX];
            sums.kz += record.horizontalStiffness[kZ];
            ofZ += record.horizontalStiffness[kZ] * arm * arm;
        }
    }
    sums.kr = ofZ + ofX;
    sums.parts = {ofX, ofZ};
    return sums;
}

bool HasTorsionalStiffness(double kr) {
    return !(std::abs(kr) < kNearlyZero || kr < 0.0);
}

double ElasticRadius(double kr, double k) {
    return std::sqrt(kr / k);
}

PerDirection EccentricityAcross(const StoryInfo& story) {
    return {story.rigidityCenter[kZ] - story.gravityCenter[kZ],
            story.rigidityCenter[kX] - story.gravityCenter[kX]};
}

double EccentricityModulus(double distance, double kr, double k) {
    const double elasticRadius = ElasticRadius(kr, k);
    return elasticRadius == 0.0 ? 0.0 : std::abs(distance) / elasticRadius;
}

ToolVerdict JudgeEccentricityModulus(double modulus, double allowable) {
    return PassesWhen(allowable > modulus);
}

bool AijCodeRoute2::SetEccentricityModulus() {
    LogStart(logFile, "eccentricity modulus");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForModulus)) return false;
    for (std::size_t i = 0; i < stories.size(); ++i)
        SetEccentricityModulusOf(stories[i], i + 1);
    eccentricityModulusSet = true;
    LogEnd(logFile, "eccentricity modulus");
    return true;
}

void AijCodeRoute2::SetEccentricityModulusOf(StoryInfo& story, std::size_t storyNumber) {
    const TorsionalStiffness sums = SumTorsionalStiffness(story, earthquakeLoadCaseNumber);
    story.eccentricityModulus = {0.0, 0.0};
    if (!HasTorsionalStiffness(sums.kr)) {
        Warn(WarningKind::kNoTorsionalStiffness, storyNumber);
        return;
    }
    const PerDirection across = EccentricityAcross(story);
    // X warns unless its stiffness is large enough, Z(or Y) when it is too small: a NaN warns in X
    // only.
    if (HasStiffness(sums.kx))
        story.eccentricityModulus[kX] = EccentricityModulus(across[kX], sums.kr, sums.kx);
    else
        Warn(WarningKind::kNoKxForModulus, storyNumber);
    if (std::abs(sums.kz) < kNearlyZero)
        Warn(WarningKind::kNoKzForModulus, storyNumber);
    else
        story.eccentricityModulus[kZ] = EccentricityModulus(across[kZ], sums.kr, sums.kz);
}
