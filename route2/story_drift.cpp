// Relative story displacement: the difference of a member's end displacements, and per story the
// largest and the mean of its members. Story deformation angle = displacement / story height.

#include "route2/story_drift.h"

#include <algorithm>
#include <cmath>

#include "log/processing_log.h"
#include "route2/aij_code_route2.h"
#include "route2/tolerances.h"

namespace {

constexpr double kSmallestDisp = 0.01;  // mm

// Stands for minus infinity, and is reported as it is for a load case without a record.
constexpr double kNoDisplacement = -100000.0;  // mm

}  // namespace

double HeightRatio(double memberHeight, double storyHeight) {
    if (std::abs(memberHeight - storyHeight) < kSameLevel) return 1.0;
    return memberHeight / storyHeight;
}

double WithoutNumericalNoise(double relativeDisp) {
    return std::abs(relativeDisp) < kSmallestDisp ? 0.0 : relativeDisp;
}

PerDirection RelativeDisp(const SixDoubles& lower, const SixDoubles& upper, double heightRatio,
                          double millimetresPerHostLength, bool zIsVertical) {
    const std::size_t second = zIsVertical ? 1 : 2;
    const double dx = (upper[0] - lower[0]) * heightRatio;
    const double dz = (upper[second] - lower[second]) * heightRatio;
    return {WithoutNumericalNoise(millimetresPerHostLength * dx),
            WithoutNumericalNoise(millimetresPerHostLength * dz)};
}

double DeformAngle(double relativeDisp, double storyHeight) {
    return storyHeight > 0.0 ? relativeDisp / storyHeight : 0.0;
}

double DeformAngleOfAnyHeight(double relativeDisp, double storyHeight) {
    return relativeDisp / storyHeight;
}

double MemberDeformAngle(double relativeDisp, double storyHeight) {
    return storyHeight == 0.0 ? 0.0 : relativeDisp / storyHeight;
}

ToolVerdict JudgeDeformAngle(double angle, double allowable) {
    return PassesWhen(allowable > angle);
}

StoryDriftReduction::StoryDriftReduction(const std::vector<std::int32_t>& loadCaseNumbers)
    : positions_(loadCaseNumbers), byLoadCase_(loadCaseNumbers.size()) {
    // A load case number that stands twice has the same results at both places.
    for (const std::int32_t number : loadCaseNumbers)
        firstPositions_.push_back(*positions_.First(number));
}

void StoryDriftReduction::Reduce(StoryInfo& story) {
    constexpr Running kStart{{0.0, 0.0}, {kNoDisplacement, kNoDisplacement}};
    const auto add = [](Running& running, const PerDirection& disp) {
        for (const std::size_t axis : {kX, kZ}) {
            running.sum[axis] += disp[axis];
            if (disp[axis] > running.max[axis]) running.max[axis] = disp[axis];
        }
    };

    Running all = kStart;
    std::fill(byLoadCase_.begin(), byLoadCase_.end(), kStart);
    for (const StoryMember& record : story.members) {
        add(all, record.relativeDisp);
        if (const auto position = positions_.First(record.loadCaseNumber))
            add(byLoadCase_[*position], record.relativeDisp);
    }

    const std::size_t loadCases = byLoadCase_.size();
    const std::size_t records = story.members.size();
    story.maxRelativeDisp = {0.0, 0.0};
    story.meanRelativeDisp = {0.0, 0.0};
    for (const std::size_t axis : {kX, kZ}) {
        story.maxRelativeDispByLoadCase[axis].assign(loadCases, 0.0);
        story.meanRelativeDispByLoadCase[axis].assign(loadCases, 0.0);
        if (records == 0) continue;
        story.maxRelativeDisp[axis] = all.max[axis];
        story.meanRelativeDisp[axis] = all.sum[axis] / static_cast<double>(records);
        for (std::size_t i = 0; i < loadCases; ++i) {
            const Running& running = byLoadCase_[firstPositions_[i]];
            // As many as the story has members, in whole numbers.
            const std::size_t recordsPerLoadCase = records / loadCases;
            story.maxRelativeDispByLoadCase[axis][i] = running.max[axis];
            story.meanRelativeDispByLoadCase[axis][i] =
                running.sum[axis] / static_cast<double>(recordsPerLoadCase);
        }
    }
}

bool AijCodeRoute2::SetRelativeStoryDisp() {
    LogStart(logFile, "relative story displacement");
    if (!RequireStoryInfo(WarningKind::kNoStoriesForDrift)) return false;

    for (StoryInfo& story : stories) {
        const double storyHeight = StoryHeight(story);
        for (StoryMember& record : story.members) {
            SixDoubles lower{}, upper{};
            hostLink->GetNodeDisplacements(record.lowerNodeNumber, record.loadCaseNumber, lower);
            hostLink->GetNodeDisplacements(record.upperNodeNumber, record.loadCaseNumber, upper);
            const double ratio = HeightRatio(SetMemberHeight(record.memberNumber), storyHeight);
            record.relativeDisp =
                RelativeDisp(lower, upper, ratio, MillimetresPerHostLength(), zIsVertical);
        }
    }

    StoryDriftReduction reduction(loadCaseNumbers);
    for (StoryInfo& story : stories)
        reduction.Reduce(story);
    relativeDispSet = true;
    LogEnd(logFile, "relative story displacement");
    return true;
}
