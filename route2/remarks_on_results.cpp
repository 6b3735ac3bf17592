// Remarks on the checks' results: what was not calculated, centres outside the plan, floors that
// are not rigid, ratios that hang on a definition.

#include <algorithm>
#include <cmath>

#include "route2/floor_shape.h"
#include "route2/remark_cause.h"
#include "route2/remark_rules.h"

namespace {

constexpr double kBesidePlan = 1.0;        // mm
constexpr double kRigidFloorShare = 0.05;  // of the mean drift
constexpr double kNoMotion = 0.01;         // mm

// A check that has no verdict in a direction, for one reason in some stories.
struct Undetermined {
    std::size_t axis = kX;
    BothLanguages check;
    WhyUndetermined why{};
    std::vector<int> stories;
};

// By direction, check and reason, in the order in which they are met.
std::vector<Undetermined> AllUndetermined(const Findings& findings) {
    std::vector<Undetermined> all;
    const auto add = [&all](int story, std::size_t axis, const BothLanguages& check,
                            const std::optional<WhyUndetermined>& why) {
        if (!why) return;
        const auto known = std::ranges::find_if(all, [&](const Undetermined& one) {
            return one.axis == axis && one.check.en == check.en && one.why == *why;
        });
        if (known == all.end())
            all.push_back({axis, check, *why, {story}});
        else
            known->stories.push_back(story);
    };
    for (const StoryFindings& story : findings.stories)
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            add(story.number, axis, {"deformation angle", "層間変形角"},
                direction.worstUpright.why);
            add(story.number, axis, {"stiffness ratio", "剛性率"}, direction.stiffnessRatioWhy);
            add(story.number, axis, {"eccentricity modulus", "偏心率"}, direction.eccentricityWhy);
        }
    return all;
}

void OnUndetermined(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R19", RemarkKind::kError);
    for (const Undetermined& one : AllUndetermined(findings)) {
        for (const int story : one.stories)
            cause.AddStory(story);
        cause.Add(0, DirectionName(findings, one.stories, one.axis) + BothLanguages{" ", " "} +
                         one.check + BothLanguages{" (", "("} + ReasonOf(one.why) + ")");
    }
    cause.AppendTo(remarks);
}

void OnCentersOutside(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R18", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories) {
        const PlanRectangle plan = PlanOf(story.members);
        if (plan.isEmpty) continue;
        const struct {
            const std::array<Figure, 2>& center;
            BothLanguages name;
        } centers[] = {{story.gravityCenter, {"G", "重心"}}, {story.rigidityCenter, {"R", "剛心"}}};
        for (const auto& [center, name] : centers) {
            const double x = center[kX].value_or(plan.lowX);
            const double v = center[kZ].value_or(plan.lowV);
            if (plan.Holds(x, v, kBesidePlan)) continue;
            cause.Add(story.number, StoryName(story.number) + BothLanguages{" ", " "} + name +
                                        (" (" + Fixed(x, 0) + ", " + Fixed(v, 0) + ")"));
        }
    }
    cause.AppendTo(remarks);
}

void OnFloorsThatAreNotRigid(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R20", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories)
        for (const std::size_t axis : {kX, kZ}) {
            const double residual = story.directions[axis].floorResidual.value_or(0.0);
            const double mean = std::abs(story.directions[axis].meanDrift.value_or(0.0));
            if (mean == 0.0 || residual <= kNoMotion || residual <= kRigidFloorShare * mean)
                continue;
            cause.Add(story.number, BothLanguages{"floor above ", ""} +
                                        DirectionName(findings, story.number, axis) +
                                        BothLanguages{" (residual ", "の上床(残差 "} +
                                        PercentOf(residual / mean) + ")");
        }
    cause.AppendTo(remarks);
}

void OnStoriesThatDoNotMove(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R29", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories)
        for (const std::size_t axis : {kX, kZ})
            if (story.directions[axis].meanDrift == 0.0)
                cause.Add(story.number, DirectionName(findings, story.number, axis));
    cause.AppendTo(remarks);
}

bool CrossesTheLimit(const DirectionFindings& direction) {
    const CodeVerdict verdict = JudgeRatioByCode(direction.stiffnessRatio);
    if (verdict == CodeVerdict::kUndetermined) return false;
    const auto differs = [verdict](const Figure& reference) {
        return reference && JudgeRatioByCode(reference) != verdict;
    };
    return differs(direction.stiffnessRatioUpright) ||
           differs(direction.stiffnessRatioTranslational);
}

void OnRatiosByDefinition(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R30", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories)
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            if (!CrossesTheLimit(direction)) continue;
            const auto text = [](const Figure& ratio) {
                return ratio ? Fixed(*ratio, 3) : std::string("—");
            };
            cause.Add(story.number, DirectionName(findings, story.number, axis) +
                                        (" (" + text(direction.stiffnessRatio) + ", " +
                                         text(direction.stiffnessRatioUpright) + ", " +
                                         text(direction.stiffnessRatioTranslational) + ")"));
        }
    cause.AppendTo(remarks);
}

}  // namespace

void RemarkOnResults(const Findings& findings, std::vector<Remark>& remarks) {
    OnUndetermined(findings, remarks);
    OnCentersOutside(findings, remarks);
    OnFloorsThatAreNotRigid(findings, remarks);
    OnStoriesThatDoNotMove(findings, remarks);
    OnRatiosByDefinition(findings, remarks);
}
