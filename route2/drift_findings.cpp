// Story deformation angles: the mean and the largest drift as the results have them, and the
// upright member that moves most, which the code's verdict rests on.

#include <algorithm>
#include <cmath>
#include <limits>

#include "route2/direction_findings.h"
#include "route2/member_findings.h"
#include "route2/story_drift.h"

namespace {

bool HasUprightMember(const StoryFindings& found) {
    return std::ranges::any_of(found.members, &MemberFindings::upright);
}

// A drift that is no number counts as the largest: nothing may pass in its shadow.
double Amount(const Figure& drift) {
    return drift ? std::abs(*drift) : std::numeric_limits<double>::infinity();
}

const MemberFindings* FindWorst(const StoryFindings& found, std::size_t axis) {
    const bool uprightOnly = HasUprightMember(found);
    const MemberFindings* worst = nullptr;
    for (const MemberFindings& member : found.members) {
        if (uprightOnly && !member.upright) continue;
        if (worst == nullptr || Amount(member.drift[axis]) > Amount(worst->drift[axis]))
            worst = &member;
    }
    return worst;
}

void FormWorstUpright(const StoryFindings& found, std::size_t axis, WorstUprightMember& worst) {
    const MemberFindings* const member = FindWorst(found, axis);
    worst.member = member->number;
    worst.drift = member->drift[axis];
    if (worst.drift && found.height > 0.0 && std::isfinite(found.height))
        worst.angle = Finite(std::abs(DeformAngle(*worst.drift, found.height)));
    worst.code = JudgeAngleByCode(worst.angle, worst.allowable);
    if (worst.code == CodeVerdict::kUndetermined) worst.why = WhyUndetermined::kNotFinite;
    if (worst.angle) worst.utilisation = Finite(*worst.angle / worst.allowable);
}

// Of the upright members, of all members where none is upright, mm.
Figure MeanUprightDrift(const StoryFindings& story, std::size_t axis) {
    const bool uprightOnly = HasUprightMember(story);
    double sum = 0.0;
    int count = 0;
    for (const MemberFindings& member : story.members) {
        if (!member.drift[axis]) return std::nullopt;
        if (uprightOnly && !member.upright) continue;
        sum += *member.drift[axis];
        ++count;
    }
    if (count == 0) return std::nullopt;
    return Finite(sum / count);
}

void FormMeanUpright(const StoryFindings& found, std::size_t axis, DirectionFindings& direction) {
    direction.meanUprightDrift = MeanUprightDrift(found, axis);
    // Where the mean is formed every member has a drift, the worst one too.
    if (direction.meanUprightDrift)
        direction.maxOverMean = Finite(*direction.worstUpright.drift / *direction.meanUprightDrift);
}

void FormToolMax(const StoryUnderFindings& under, std::size_t axis, StoryFindings& found) {
    const double largest = under.story.maxRelativeDispByLoadCase[axis][*under.casePosition[axis]];
    const double height = StoryHeight(under.story);
    const double angle = DeformAngle(largest, height);
    ToolMax& max = found.directions[axis].toolMax;
    max.drift = Finite(largest);
    if (height > 0.0) max.angle = Finite(angle);
    for (const MemberFindings& member : found.members) {
        if (member.drift[axis] != largest) continue;
        max.member = member.number;
        max.leaning = !member.upright;
        break;
    }
    if (!under.rowsStand) return;
    if (axis != kX) max.verdict = JudgeDeformAngle(angle, under.story.allowDeformAngle);
    found.directions[axis].results.maxDrift = largest;
    found.directions[axis].results.maxAngle = angle;
}

void FormMean(const StoryUnderFindings& under, std::size_t axis, DirectionFindings& direction) {
    const double mean = under.story.meanRelativeDispByLoadCase[axis][*under.casePosition[axis]];
    const double height = StoryHeight(under.story);
    direction.meanDrift = Finite(mean);
    if (height > 0.0) direction.meanAngle = Finite(DeformAngle(mean, height));
    if (!under.rowsStand) return;
    const double angle = DeformAngle(mean, height);
    direction.toolMeanVerdict = JudgeDeformAngle(angle, under.story.allowDeformAngle);
    direction.results.meanDrift = mean;
    direction.results.meanAngle = angle;
}

}  // namespace

std::optional<WhyUndetermined> WhyNoDrift(const StoryUnderFindings& under,
                                          const StoryFindings& found, std::size_t axis,
                                          bool isFormed) {
    if (!isFormed) return WhyUndetermined::kRunEndedEarly;
    if (!under.casePosition[axis]) return WhyUndetermined::kCaseNotInModel;
    if (found.members.empty()) return WhyUndetermined::kNoStoryMembers;
    return std::nullopt;
}

void FormDrifts(const StoryUnderFindings& under, StoryFindings& found) {
    for (const std::size_t axis : {kX, kZ}) {
        DirectionFindings& direction = found.directions[axis];
        direction.worstUpright.allowable = CodeAllowableAngle(under.story.allowDeformAngle);
        direction.worstUpright.why = WhyNoDrift(under, found, axis, under.engine.relativeDispSet);
        if (direction.worstUpright.why) continue;
        FormMean(under, axis, direction);
        FormWorstUpright(found, axis, direction.worstUpright);
        FormMeanUpright(found, axis, direction);
        FormToolMax(under, axis, found);
    }
}
