// Remarks on what the input file and the model's levels make of the building: load cases, floors,
// supports, allowable values, limits of the procedure.

#include <algorithm>
#include <cmath>
#include <limits>

#include "route2/code_verdict.h"
#include "route2/floor_shape.h"
#include "route2/remark_cause.h"
#include "route2/remark_rules.h"
#include "route2/tolerances.h"

namespace {

constexpr double kFlatStory = 100.0;          // mm; lower ones are two beams of one floor
constexpr double kLowStory = 2100.0;          // mm; lower ones may be a landing
constexpr double kSupportAboveBase = 100.0;   // mm
constexpr double kGreatestHeight = 31000.0;   // mm, of a building on Route 2
constexpr double kGreatestSlenderness = 4.0;  // height over width
constexpr double kPenthouseShare = 1.0 / 8.0;

bool IsInModel(const LoadCaseFindings& cases, std::int32_t number) {
    return std::ranges::find(cases.primary, number) != cases.primary.end() ||
           std::ranges::find(cases.combinations, number) != cases.combinations.end();
}

void OnEqualCases(const Findings& findings, std::vector<Remark>& remarks) {
    const EarthquakeCases& cases = findings.loadCases.earthquake;
    if (!findings.loadCases.inputRead || cases[kX] != cases[kZ]) return;
    RemarkCause cause("R01", RemarkKind::kError);
    cause.Add(0, {std::to_string(cases[kX]), std::to_string(cases[kX])});
    cause.Set("n", std::to_string(cases[kX]));
    cause.Set("second", std::string(1, findings.SecondDirection()));
    cause.AppendTo(remarks);
}

void OnMissingCases(const Findings& findings, std::vector<Remark>& remarks) {
    const LoadCaseFindings& cases = findings.loadCases;
    if (!cases.modelAsked) return;
    const std::string second(1, findings.SecondDirection());
    const struct {
        std::int32_t number = 0;
        BothLanguages role;
    } roles[] = {{cases.dead, {"dead load case ", "長期荷重ケース "}},
                 {cases.earthquake[kX], {"earthquake case X ", "X方向地震荷重ケース "}},
                 {cases.earthquake[kZ],
                  {"earthquake case " + second + " ", second + "方向地震荷重ケース "}}};
    std::vector<BothLanguages> known;
    for (const auto* numbers : {&cases.primary, &cases.combinations})
        for (const std::int32_t number : *numbers)
            known.push_back({std::to_string(number), std::to_string(number)});
    RemarkCause cause("R02", RemarkKind::kError);
    cause.Set("list", Listed(known));
    for (const auto& role : roles)
        if (!IsInModel(cases, role.number)) cause.Add(0, role.role + std::to_string(role.number));
    cause.AppendTo(remarks);
}

void OnStoriesWithoutMembers(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R03", RemarkKind::kError);
    for (const StoryFindings& story : findings.stories)
        if (story.members.empty()) cause.Add(story.number, StoryName(story.number));
    cause.AppendTo(remarks);
}

BothLanguages HeightOf(const StoryFindings& story) {
    const std::string height = Fixed(story.height, 0) + " mm";
    return StoryName(story.number) + BothLanguages{" is " + height + " high", "の階高 " + height};
}

void OnFlatStories(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R04", RemarkKind::kError);
    for (const StoryFindings& story : findings.stories)
        if (story.height < kFlatStory) cause.Add(story.number, HeightOf(story));
    cause.AppendTo(remarks);
}

// A FloorLevel line of the levels that look like floors.
BothLanguages SuggestedLevels(const Findings& findings, const FloorShapes& shapes) {
    std::string line = "FloorLevel,";
    for (std::size_t i = 0; i < findings.floorLevels.size(); ++i)
        if (i == 0 || !shapes.LooksLikeALanding(i)) line += Shortest(findings.floorLevels[i]) + ",";
    return {"Suggested line: " + line, "(例) " + line};
}

void OnLandings(const Findings& findings, std::vector<Remark>& remarks) {
    const FloorShapes shapes(findings);
    RemarkCause cause("R05", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories)
        if (story.height >= kFlatStory && story.height < kLowStory)
            cause.Add(story.number, HeightOf(story));
    for (std::size_t i = 1; i < findings.floorLevels.size(); ++i) {
        if (!shapes.LooksLikeALanding(i)) continue;
        cause.Add(
            static_cast<int>(i),
            FillIn("level {level} mm has {n} level members", "レベル {level} mm の水平部材 {n} 本",
                   {{"level", Fixed(findings.floorLevels[i], 0)},
                    {"n", std::to_string(shapes.HorizontalMembers(i))}}));
    }
    cause.Set("suggestion", SuggestedLevels(findings, shapes));
    cause.AppendTo(remarks);
}

void OnAllowableValues(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause relief("R21", RemarkKind::kNote);
    RemarkCause other("R21W", RemarkKind::kWarning);
    for (const StoryFindings& story : findings.stories) {
        const auto place = [&story](double value) {
            return BothLanguages{Shortest(value) + " (", Shortest(value) + "("} +
                   StoryName(story.number) + ")";
        };
        const double angle = story.allowableAngle;
        if (angle > kCodeDeformAngle && CodeAllowableAngle(angle) == angle)
            relief.Add(story.number, place(angle));
        else if (angle != kCodeDeformAngle)
            other.Add(story.number, place(angle));
        if (story.allowableRatio != kCodeStiffnessRatio)
            other.Add(story.number, place(story.allowableRatio));
        if (story.allowableModulus != kCodeEccentricityModulus)
            other.Add(story.number, place(story.allowableModulus));
    }
    relief.AppendTo(remarks);
    other.AppendTo(remarks);
}

void OnDerivedFloors(const Findings& findings, std::vector<Remark>& remarks) {
    if (findings.stories.empty()) return;
    RemarkCause cause("R22", RemarkKind::kNote);
    if (!findings.floorLevelsFromInput) cause.Add(0, {"floor levels", "床レベル"});
    if (!findings.storyMembersFromInput) cause.Add(0, {"story members", "対象部材"});
    cause.AppendTo(remarks);
}

void OnSupports(const Findings& findings, std::vector<Remark>& remarks) {
    if (findings.floorLevels.empty()) return;
    const double base = findings.floorLevels.front();
    int others = 0;
    for (const ModelNode& node : findings.nodes) {
        const double height = Vertical(node.point, findings.zIsVertical);
        if (node.supported && (height > base + kSupportAboveBase || height < base - kSameLevel))
            ++others;
    }
    if (others == 0) return;
    RemarkCause cause("R23", RemarkKind::kWarning);
    cause.Add(0, {std::to_string(others), std::to_string(others)});
    cause.Set("n", std::to_string(others));
    cause.AppendTo(remarks);
}

void OnHeight(const Findings& findings, std::vector<Remark>& remarks) {
    if (findings.floorLevels.size() < 2) return;
    RemarkCause cause("R28", RemarkKind::kWarning);
    const double height = findings.floorLevels.back() - findings.floorLevels.front();
    if (height > kGreatestHeight) {
        const std::string text = Fixed(height / 1000.0, 2) + " m > 31 m";
        cause.Add(0, {"height of the model " + text, "モデルの高さ " + text});
    }
    const Figure& slenderness = findings.extent.slenderness;
    if (slenderness && *slenderness > kGreatestSlenderness) {
        const std::string text = Fixed(*slenderness, 2) + " > 4";
        cause.Add(0, {"height over width " + text, "塔状比 " + text});
    }
    cause.AppendTo(remarks);
}

void OnPenthouse(const Findings& findings, std::vector<Remark>& remarks) {
    RemarkCause cause("R32", RemarkKind::kNote);
    const std::size_t count = findings.stories.size();
    if (count >= 2) {
        const double top = PlanOf(findings.stories[count - 1].members).Area();
        const double below = PlanOf(findings.stories[count - 2].members).Area();
        if (below > 0.0 && top < kPenthouseShare * below)
            cause.Add(static_cast<int>(count), StoryName(static_cast<int>(count)));
    }
    if (findings.groundLevel && count > 0 && findings.floorLevels.front() < *findings.groundLevel)
        cause.Add(1, StoryName(1));
    cause.AppendTo(remarks);
}

}  // namespace

void RemarkOnCasesAndFloors(const Findings& findings, std::vector<Remark>& remarks) {
    OnEqualCases(findings, remarks);
    OnMissingCases(findings, remarks);
    OnStoriesWithoutMembers(findings, remarks);
    OnFlatStories(findings, remarks);
    OnLandings(findings, remarks);
    OnAllowableValues(findings, remarks);
    OnDerivedFloors(findings, remarks);
    OnSupports(findings, remarks);
    OnHeight(findings, remarks);
    OnPenthouse(findings, remarks);
}
