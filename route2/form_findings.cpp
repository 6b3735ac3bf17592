#include "route2/form_findings.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "route2/building_extent.h"
#include "route2/direction_findings.h"
#include "route2/member_findings.h"
#include "route2/remarks.h"
#include "route2/shape_factors.h"

Figure Finite(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

int CountLeaning(const StoryFindings& story) {
    return static_cast<int>(std::ranges::count(story.members, false, &MemberFindings::upright));
}

namespace {

void FormModel(const AijCodeRoute2& engine, Findings& findings) {
    findings.axisKnown = engine.axisAsked;
    findings.zIsVertical = engine.zIsVertical;
    findings.inchUnits = engine.inchUnits;
    for (std::size_t i = 0; i < engine.nodeSupported.size(); ++i)
        findings.nodes.push_back(
            {engine.nodeNumbers[i], engine.nodeCoords[i], engine.nodeSupported[i]});
    for (std::size_t i = 0; i < engine.memberEndNodes.size(); ++i) {
        const auto& [startNode, endNode] = engine.memberEndNodes[i];
        const MemberEnds ends = FindMemberEnds(startNode, endNode, engine.Nodes());
        findings.members.push_back({engine.memberNumbers[i], ends.start, ends.end});
    }
}

LoadCaseFindings FormLoadCases(const AijCodeRoute2& engine) {
    LoadCaseFindings cases;
    cases.inputRead = engine.loadCaseNumbersRead;
    cases.dead = engine.deadLoadCaseNumber;
    cases.earthquake = engine.earthquakeLoadCaseNumber;
    cases.modelAsked = engine.loadInfoSet;
    const auto& numbers = engine.loadCaseNumbers;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool isPrimary = std::cmp_less(i, engine.numPrimaryLoadCases);
        (isPrimary ? cases.primary : cases.combinations).push_back(numbers[i]);
    }
    return cases;
}

StoryFindings FormStory(const StoryUnderFindings& under, int number) {
    const StoryInfo& story = under.story;
    StoryFindings found;
    found.number = number;
    found.lowerLevel = story.lowerLevel;
    found.upperLevel = story.upperLevel;
    found.height = StoryHeight(story);
    found.allowableAngle = story.allowDeformAngle;
    found.allowableRatio = story.allowStiffRatio;
    found.allowableModulus = story.allowEccentricityModulus;
    found.members = FormStoryMembers(under);
    found.cutNotCounted = FormCutNotCounted(under);
    FormShears(under, found);
    FormLoads(under, found);
    FormFloorMotion(under, found);
    FormDrifts(under, found);
    FormStiffnessRatios(under, found);
    FormEccentricity(under, found);
    for (DirectionFindings& direction : found.directions)
        direction.shapeFactors = FormShapeFactors(direction);
    return found;
}

std::vector<StoryFindings> FormStories(const AijCodeRoute2& engine, bool isComplete,
                                       ExtraQuestions& questions) {
    const std::vector<PlacedMember> placed = PlaceMembers(engine);
    const NumberIndex memberPositions(engine.memberNumbers);
    const NumberIndex cases(engine.loadCaseNumbers);
    std::vector<StoryFindings> stories;
    for (const StoryInfo& story : engine.stories) {
        const std::vector<PlacedMember> cut = CutMembers(story, placed, engine.zIsVertical);
        std::vector<std::int32_t> cutNumbers;
        cutNumbers.reserve(cut.size());
        for (const PlacedMember& member : cut)
            cutNumbers.push_back(member.number);
        const NumberIndex cutPositions(cutNumbers);
        const StoryUnderFindings under{engine,
                                       story,
                                       cut,
                                       cutPositions,
                                       memberPositions,
                                       questions,
                                       isComplete,
                                       {cases.First(engine.earthquakeLoadCaseNumber[kX]),
                                        cases.First(engine.earthquakeLoadCaseNumber[kZ])}};
        stories.push_back(FormStory(under, static_cast<int>(stories.size() + 1)));
    }
    FormReferenceRatios(stories);
    FormFloorDifferences(stories);
    return stories;
}

CodeVerdict OverallByCode(const Findings& findings) {
    CodeVerdict worst = CodeVerdict::kOk;
    for (const StoryFindings& story : findings.stories)
        for (const DirectionFindings& direction : story.directions)
            for (const CodeVerdict verdict :
                 {direction.worstUpright.code, direction.stiffnessRatioCode,
                  direction.eccentricityCode})
                worst = WorseOf(worst, verdict);
    const bool isOpen =
        findings.stories.empty() || !findings.end.complete || HasError(findings.remarks);
    return isOpen ? WorseOf(worst, CodeVerdict::kUndetermined) : worst;
}

std::optional<ToolVerdict> OverallByTool(const Findings& findings) {
    if (!findings.end.complete) return std::nullopt;
    for (const StoryFindings& story : findings.stories)
        for (const DirectionFindings& direction : story.directions)
            for (const auto& verdict : {direction.toolMeanVerdict, direction.toolMax.verdict,
                                        direction.stiffnessRatioTool, direction.eccentricityTool})
                if (verdict == ToolVerdict::kFail) return verdict;
    return ToolVerdict::kPass;
}

}  // namespace

Findings FormFindings(const AijCodeRoute2& engine, const FindingsSources& sources) {
    Findings findings;
    findings.end = sources.end;
    findings.groundLevel = sources.groundLevel;
    FormModel(engine, findings);
    findings.loadCases = FormLoadCases(engine);
    findings.floorLevelsFromInput = engine.floorLevelsFromFile;
    findings.storyMembersFromInput = engine.storyMembersFromFile;
    // A run that ends while it derives them leaves some, in no order.
    if (engine.floorLevelsSet) findings.floorLevels = engine.floorLevels;
    findings.warnings = engine.warnings;
    const bool isComplete = sources.end.complete;
    ExtraQuestions questions(*engine.hostLink, isComplete);
    findings.stories = FormStories(engine, isComplete, questions);
    findings.failedExtraQuestions = questions.Failures();
    findings.firstFailedQuestion = questions.FirstFailure();
    findings.extent = FormBuildingExtent(findings);
    if (sources.unlistedAnswers) findings.end.unlistedZeros = sources.unlistedAnswers();
    if (sources.missingRows) findings.end.missingRows = sources.missingRows(findings);
    findings.remarks = FormRemarks(findings);
    findings.remarks.insert(findings.remarks.end(), sources.inputRemarks.begin(),
                            sources.inputRemarks.end());
    SortRemarks(findings.remarks);
    findings.verdict = {OverallByCode(findings), OverallByTool(findings)};
    return findings;
}
