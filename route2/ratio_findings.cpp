// Story stiffness ratios: those of the results, and two references that show how much the ratio
// depends on what is taken for a story's drift.

#include <cmath>

#include "route2/direction_findings.h"
#include "route2/rigidity_center.h"
#include "route2/stiffness_ratio.h"
#include "route2/story_drift.h"

namespace {

void FormRatio(const StoryUnderFindings& under, std::size_t axis, DirectionFindings& direction) {
    const std::size_t k = *under.casePosition[axis];
    const double height = StoryHeight(under.story);
    const double drift = under.story.meanRelativeDispByLoadCase[axis][k];
    const double rsMean = under.engine.rsBarOfMeanDispByLoadCase[axis][k];
    const double ratio = StiffnessRatio(axis, DeformAngle(drift, height), rsMean);
    if (under.rowsStand) {
        direction.stiffnessRatioTool = JudgeStiffnessRatio(ratio, under.story.allowStiffRatio);
        direction.results.stiffnessRatio = ratio;
    }
    direction.stiffnessRatioWhy = WhyUndetermined::kNotFinite;
    if (drift == 0.0) direction.stiffnessRatioWhy = WhyUndetermined::kNoDrift;
    // Without a drift, a height or a mean the 0 of the results is a fallback.
    if (drift == 0.0 || !(height > 0.0)) return;
    direction.rs = Finite(StiffnessIndex(drift, height));
    if (rsMean != 0.0 && std::isfinite(height)) direction.stiffnessRatio = Finite(ratio);
    direction.stiffnessRatioCode = JudgeRatioByCode(direction.stiffnessRatio);
    if (direction.stiffnessRatioCode != CodeVerdict::kUndetermined)
        direction.stiffnessRatioWhy.reset();
    if (direction.stiffnessRatio && *direction.stiffnessRatio > 0.0)
        direction.ratioUtilisation = Finite(kCodeStiffnessRatio / *direction.stiffnessRatio);
}

Figure MeanUprightDriftFound(const StoryFindings& story, std::size_t axis) {
    return story.directions[axis].meanUprightDrift;
}

// The drift of a story that moves without turning: its members' shear over their stiffness, mm.
Figure TranslationalDrift(const StoryFindings& story, std::size_t axis) {
    const DirectionFindings& direction = story.directions[axis];
    if (!direction.shearOfStoryMembers || !direction.stiffness ||
        !HasStiffness(*direction.stiffness))
        return std::nullopt;
    return Finite(*direction.shearOfStoryMembers / *direction.stiffness);
}

// The stiffness ratio from another drift; a story without one counts 0 in the mean.
void FormReference(std::vector<StoryFindings>& stories, std::size_t axis,
                   Figure (*driftOf)(const StoryFindings&, std::size_t),
                   Figure DirectionFindings::*ratio) {
    double sum = 0.0;
    for (const StoryFindings& story : stories)
        if (const Figure drift = driftOf(story, axis)) sum += StiffnessIndex(*drift, story.height);
    const double mean = 1.0 / static_cast<double>(stories.size()) * sum;
    for (StoryFindings& story : stories) {
        const Figure drift = driftOf(story, axis);
        if (!drift || *drift == 0.0 || mean == 0.0 || !(story.height > 0.0)) continue;
        story.directions[axis].*ratio =
            Finite(StiffnessRatio(axis, DeformAngle(*drift, story.height), mean));
    }
}

}  // namespace

void FormStiffnessRatios(const StoryUnderFindings& under, StoryFindings& found) {
    const bool isFormed = under.engine.relativeDispSet && under.engine.rsBarSet;
    for (const std::size_t axis : {kX, kZ}) {
        DirectionFindings& direction = found.directions[axis];
        direction.stiffnessRatioWhy = WhyNoDrift(under, found, axis, isFormed);
        if (!isFormed || !under.casePosition[axis]) continue;
        direction.rsMean =
            Finite(under.engine.rsBarOfMeanDispByLoadCase[axis][*under.casePosition[axis]]);
        if (!direction.stiffnessRatioWhy) FormRatio(under, axis, direction);
    }
}

void FormReferenceRatios(std::vector<StoryFindings>& stories) {
    for (const std::size_t axis : {kX, kZ}) {
        FormReference(stories, axis, MeanUprightDriftFound,
                      &DirectionFindings::stiffnessRatioUpright);
        FormReference(stories, axis, TranslationalDrift,
                      &DirectionFindings::stiffnessRatioTranslational);
    }
}
