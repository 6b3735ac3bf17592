// Story stiffness ratio Rs = rs / rs-bar. A run stores the denominator, the mean over the stories
// of their stiffness indices; the ratio is formed from it wherever it is asked for.

#include "route2/stiffness_ratio.h"

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tested_access.h"

double StiffnessIndexOfAnyHeight(double relativeDisp, double storyHeight) {
    const double angle = relativeDisp / storyHeight;
    return angle == 0.0 ? 0.0 : 1.0 / angle;
}

double StiffnessIndex(double relativeDisp, double storyHeight) {
    if (!(storyHeight > 0.0)) return 0.0;
    return StiffnessIndexOfAnyHeight(relativeDisp, storyHeight);
}

double StiffnessRatioX(double angle, double rsBar) {
    const double product = angle * rsBar;
    return product == 0.0 ? 0.0 : 1.0 / product;
}

double StiffnessRatioZ(double angle, double rsBar) {
    if (angle == 0.0 || rsBar == 0.0) return 0.0;
    return (1.0 / angle) / rsBar;
}

double StiffnessRatio(std::size_t axis, double angle, double rsBar) {
    return axis == kX ? StiffnessRatioX(angle, rsBar) : StiffnessRatioZ(angle, rsBar);
}

ToolVerdict JudgeStiffnessRatio(double ratio, double allowable) {
    return PassesWhen(ratio > allowable);
}

bool AijCodeRoute2::SetRsBar() {
    LogStart(logFile, "Rs bar");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForRsBar)) return false;
    SetRsBarOfAllLoadCases();
    SetRsBarByLoadCase();
    rsBarSet = true;
    LogEnd(logFile, "Rs bar");
    return true;
}

void AijCodeRoute2::SetRsBarOfAllLoadCases() {
    if (stories.empty()) return;
    PerDirection sumOfMax{}, sumOfMean{};
    for (const StoryInfo& story : stories) {
        const double height = StoryHeight(story);
        // Intended: a story without height counts 0 in X, but is divided by in Z(or Y).
        sumOfMax[kX] += StiffnessIndex(story.maxRelativeDisp[kX], height);
        sumOfMean[kX] += StiffnessIndex(story.meanRelativeDisp[kX], height);
        sumOfMax[kZ] += StiffnessIndexOfAnyHeight(story.maxRelativeDisp[kZ], height);
        sumOfMean[kZ] += StiffnessIndexOfAnyHeight(story.meanRelativeDisp[kZ], height);
    }
    // Stories that count 0 still count in the divisor.
    const auto count = static_cast<double>(stories.size());
    rsBarOfMaxDisp = {sumOfMax[kX] / count, sumOfMax[kZ] / count};
    rsBarOfMeanDisp = {sumOfMean[kX] / count, sumOfMean[kZ] / count};
}

void AijCodeRoute2::SetRsBarByLoadCase() {
    const double factor = stories.empty() ? 0.0 : 1.0 / static_cast<double>(stories.size());
    for (std::size_t i = 0; i < loadCaseNumbers.size(); ++i) {
        for (const std::size_t axis : {kX, kZ}) {
            double sumOfMax = 0.0, sumOfMean = 0.0;
            for (const StoryInfo& story : stories) {
                const double height = StoryHeight(story);
                sumOfMax += StiffnessIndex(At(story.maxRelativeDispByLoadCase[axis], i), height);
                sumOfMean += StiffnessIndex(At(story.meanRelativeDispByLoadCase[axis], i), height);
            }
            rsBarOfMaxDispByLoadCase[axis].push_back(factor * sumOfMax);
            rsBarOfMeanDispByLoadCase[axis].push_back(factor * sumOfMean);
        }
    }
}
