// Remarks on what the load cases are seen to do: the wrong case, the wrong sense, cases exchanged.

#include <algorithm>
#include <cmath>

#include "route2/remark_cause.h"
#include "route2/remark_rules.h"
#include "route2/tolerances.h"

namespace {

constexpr double kVerticalShare = 0.05;     // of the weight, in an earthquake case
constexpr double kAcrossShare = 0.05;       // of the shear along the direction
constexpr double kDeadShearShare = 0.02;    // of the weight
constexpr double kLeastCoefficient = 0.05;  // story shear over weight, lowest story
constexpr double kGreatestCoefficient = 1.0;

std::string CaseOf(const Findings& findings, std::size_t axis) {
    return std::to_string(findings.loadCases.earthquake[axis]);
}

bool IsCombination(const Findings& findings, std::size_t axis) {
    const LoadCaseFindings& cases = findings.loadCases;
    const std::int32_t number = cases.earthquake[axis];
    return std::ranges::find(cases.combinations, number) != cases.combinations.end() &&
           std::ranges::find(cases.primary, number) == cases.primary.end();
}

void OnVerticalLoad(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R12", RemarkKind::kWarning);
    for (const std::size_t axis : {kX, kZ}) {
        if (axis == kZ && CaseOf(findings, kX) == CaseOf(findings, kZ)) continue;
        double worst = 0.0;
        for (const StoryFindings& story : findings.stories) {
            const double weight = std::abs(story.weightAbove.value_or(0.0));
            const double vertical = std::abs(story.directions[axis].verticalForce.value_or(0.0));
            if (weight >= kNearlyZero) worst = std::max(worst, vertical / weight);
        }
        const std::vector<RemarkValue> values = {{"n", CaseOf(findings, axis)},
                                                 {"p", PercentOf(worst)}};
        if (IsCombination(findings, axis))
            cause.Add(0, FillIn("{n} (a combination)", "{n}(組合せ)", values));
        else if (worst > kVerticalShare)
            cause.Add(0, FillIn("{n} ({p} of the weight)", "{n}(重量の {p})", values));
    }
    cause.AppendTo(remarks);
}

// The story where the case acts most across its direction.
struct AcrossLoad {
    int story = 0;
    double share = 0.0;
};

AcrossLoad WorstAcross(const Findings& findings, std::size_t axis) {
    AcrossLoad worst;
    for (const StoryFindings& story : findings.stories) {
        const double across = std::abs(story.directions[axis].acrossShear.value_or(0.0));
        const double along = std::abs(story.directions[axis].shearOfStoryMembers.value_or(0.0));
        if (across < kNearlyZero || !(across > kAcrossShare * along)) continue;
        const double share = across / std::max(along, kNearlyZero);
        if (share > worst.share) worst = {story.number, share};
    }
    return worst;
}

void OnAcrossLoad(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R13", RemarkKind::kWarning);
    for (const std::size_t axis : {kX, kZ}) {
        const AcrossLoad worst = WorstAcross(findings, axis);
        if (worst.story == 0) continue;
        cause.Add(worst.story, FillIn("{where}: case {n} acts across, {p} of along",
                                      "{where}: ケース {n} の直交方向成分 {p}",
                                      {{"where", DirectionName(findings, worst.story, axis)},
                                       {"n", CaseOf(findings, axis)},
                                       {"p", PercentOf(worst.share)}}));
        if (worst.share > 1.0) cause.MakeError();
    }
    cause.Set("second", std::string(1, findings.SecondDirection()));
    cause.AppendTo(remarks);
}

void OnDeadLoad(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R14", RemarkKind::kWarning);
    cause.Set("n", std::to_string(findings.loadCases.dead));
    for (const StoryFindings& story : findings.stories) {
        if (!story.weightAbove) continue;
        const double weight = *story.weightAbove;
        if (weight <= 0.0) {
            cause.Add(story.number,
                      StoryName(story.number) + (" ΣN = " + Fixed(weight, 1) + " kN"));
            continue;
        }
        for (const std::size_t axis : {kX, kZ}) {
            const double shear = story.directions[axis].deadShear.value_or(0.0);
            if (std::abs(shear) > kDeadShearShare * weight)
                cause.Add(story.number, DirectionName(findings, story.number, axis) +
                                            (" ΣQ = " + Fixed(shear, 1) + " kN"));
        }
    }
    cause.AppendTo(remarks);
}

void OnNegativeSense(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R15", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories)
        for (const std::size_t axis : {kX, kZ}) {
            const DirectionFindings& direction = story.directions[axis];
            const Figure shear =
                direction.storyShear ? direction.storyShear : direction.shearOfStoryMembers;
            if (shear.value_or(0.0) < -kNearlyZero)
                cause.Add(story.number, DirectionName(findings, story.number, axis) +
                                            (" ΣQ = " + Fixed(*shear, 1) + " kN"));
        }
    cause.AppendTo(remarks);
}

void OnGrowthOfShear(const Findings& findings, std::size_t axis, RemarkCause& cause) {
    for (std::size_t i = 0; i + 1 < findings.stories.size(); ++i) {
        const Figure& lower = findings.stories[i].directions[axis].storyShear;
        const Figure& upper = findings.stories[i + 1].directions[axis].storyShear;
        if (!lower || !upper) continue;
        if (std::abs(*lower) > std::abs(*upper) * (1.0 + kRelativeTolerance)) continue;
        const int story = findings.stories[i].number;
        cause.Add(story, DirectionName(findings, story, axis) +
                             BothLanguages{": the story shear does not grow downwards",
                                           ": 層せん断力が上階より大きくなっていない"});
    }
}

void OnCoefficient(const Findings& findings, std::size_t axis, RemarkCause& cause) {
    const StoryFindings& lowest = findings.stories.front();
    const Figure& shear = lowest.directions[axis].storyShear;
    if (!shear || !(lowest.weightAbove.value_or(0.0) >= kNearlyZero)) return;
    const double coefficient = std::abs(*shear) / *lowest.weightAbove;
    if (coefficient >= kLeastCoefficient && coefficient <= kGreatestCoefficient) return;
    const std::string text = "C = " + Fixed(coefficient, 3);
    cause.Add(lowest.number, DirectionName(findings, lowest.number, axis) + (" " + text));
}

void OnStoryShears(const Findings& findings, std::vector<Remark>& remarks) {
    if (findings.stories.empty()) return;
    RemarkCause cause("R16", RemarkKind::kWarning);
    for (const std::size_t axis : {kX, kZ}) {
        OnGrowthOfShear(findings, axis, cause);
        OnCoefficient(findings, axis, cause);
    }
    cause.AppendTo(remarks);
}

}  // namespace

void RemarkOnLoads(const Findings& findings, std::vector<Remark>& remarks) {
    OnVerticalLoad(findings, remarks);
    OnAcrossLoad(findings, remarks);
    OnDeadLoad(findings, remarks);
    OnNegativeSense(findings, remarks);
    OnStoryShears(findings, remarks);
}
