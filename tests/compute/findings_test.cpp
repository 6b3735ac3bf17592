// What a whole run hands on as figures and verdicts, on buildings small enough to follow by hand.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "tests/support/load_case_lines.h"
#include "tests/support/near_figure.h"
#include "tests/support/run_findings.h"
#include "tests/support/small_building.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

// The small building as tests/support has it: four columns at (0, 0), (6, 0), (0, 4), (6, 4) m, 3.5
// m high; every column moves 7 mm in X and 3.5 mm in Z and carries 14 kN in each, 100 kN of weight.
class SmallBuilding : public testing::Test {
protected:
    SmallBuilding() { AddSmallBuilding(host); }
    StoryFindings Story(const std::string& input = kSmallBuildingInput) {
        findings = FindingsOf(host, input);
        return findings.stories.at(0);
    }
    FakeHost host;
    Findings findings;
};

TEST_F(SmallBuilding, HasOneStoryOfFourUprightMembers) {
    const StoryFindings story = Story();
    EXPECT_EQ(3500.0, story.height);
    ASSERT_THAT(story.members, SizeIs(4));
    EXPECT_EQ(0, CountLeaning(story));
    EXPECT_THAT(story.cutNotCounted, IsEmpty());
    EXPECT_EQ(6000.0, story.members[3].x);
    EXPECT_EQ(4000.0, story.members[3].v);
    EXPECT_THAT(story.members[3].axialForce, Near(100.0));
}

// K = 14 kN / 7 mm = 2 kN/mm in X and 14 / 3.5 = 4 in Z, four of each.
TEST_F(SmallBuilding, HasShearsAndStiffnessOfItsMembers) {
    const StoryFindings story = Story();
    EXPECT_THAT(story.directions[kX].storyShear, Near(56.0));
    EXPECT_THAT(story.directions[kX].shearOfStoryMembers, Near(56.0));
    EXPECT_THAT(story.directions[kX].acrossShear, Near(0.0));
    EXPECT_THAT(story.directions[kX].stiffness, Near(8.0));
    EXPECT_THAT(story.directions[kZ].stiffness, Near(16.0));
    EXPECT_THAT(story.members[0].stiffness[kZ], Near(4.0));
}

// K_R = 8 * 2000^2 + 16 * 3000^2 = 176e6 kN mm about the middle, where G and R both lie.
TEST_F(SmallBuilding, HasItsCentresInTheMiddleAndNoEccentricity) {
    const StoryFindings story = Story();
    EXPECT_THAT(story.gravityCenter, ElementsAre(Near(3000.0), Near(2000.0)));
    EXPECT_THAT(story.rigidityCenter, ElementsAre(Near(3000.0), Near(2000.0)));
    EXPECT_THAT(story.weightAbove, Near(400.0));
    EXPECT_THAT(story.torsionalStiffness, Near(176e6));
    EXPECT_THAT(story.directions[kX].elasticRadius, Near(std::sqrt(176e6 / 8)));
    EXPECT_THAT(story.directions[kZ].elasticRadius, Near(std::sqrt(176e6 / 16)));
    EXPECT_THAT(story.directions[kX].eccentricityModulus, Near(0.0));
    EXPECT_EQ(CodeVerdict::kOk, story.directions[kX].eccentricityCode);
    EXPECT_EQ(ToolVerdict::kPass, story.directions[kX].eccentricityTool);
}

TEST_F(SmallBuilding, HasAnglesOfOneFiveHundredthAndOneThousandth) {
    const StoryFindings story = Story();
    const DirectionFindings& x = story.directions[kX];
    EXPECT_THAT(x.meanDrift, Near(7.0));
    EXPECT_THAT(x.meanAngle, Near(1.0 / 500));
    EXPECT_EQ(1, x.worstUpright.member);
    EXPECT_THAT(x.worstUpright.angle, Near(1.0 / 500));
    EXPECT_EQ(CodeVerdict::kOk, x.worstUpright.code);
    EXPECT_EQ(ToolVerdict::kPass, x.toolMeanVerdict);
    EXPECT_EQ(std::nullopt, x.toolMax.verdict);
    EXPECT_EQ(ToolVerdict::kPass, story.directions[kZ].toolMax.verdict);
    EXPECT_THAT(story.directions[kZ].meanAngle, Near(1.0 / 1000));
}

// The only story is its own mean: rs = 500, ratio 1, by every definition.
TEST_F(SmallBuilding, HasAStiffnessRatioOfOne) {
    const DirectionFindings x = Story().directions[kX];
    EXPECT_THAT(x.rs, Near(500.0));
    EXPECT_THAT(x.rsMean, Near(500.0));
    EXPECT_THAT(x.stiffnessRatio, Near(1.0));
    EXPECT_THAT(x.stiffnessRatioUpright, Near(1.0));
    EXPECT_THAT(x.stiffnessRatioTranslational, Near(1.0));
    EXPECT_EQ(CodeVerdict::kOk, x.stiffnessRatioCode);
    EXPECT_EQ(ToolVerdict::kPass, x.stiffnessRatioTool);
}

// Column 1 moves -21 mm, the others 7: the mean is 0, the amount of column 1 is 1/166.67.
TEST_F(SmallBuilding, IsJudgedByItsWorstUprightMemberWhateverItsSign) {
    host.Displace(2, 11, -0.021, 0, 0);
    const StoryFindings story = Story();
    const DirectionFindings& x = story.directions[kX];
    EXPECT_EQ(1, x.worstUpright.member);
    EXPECT_THAT(x.worstUpright.drift, Near(-21.0));
    EXPECT_THAT(x.worstUpright.angle, Near(21.0 / 3500));
    EXPECT_EQ(CodeVerdict::kNg, x.worstUpright.code);
    EXPECT_EQ(2, x.toolMax.member);
    EXPECT_EQ(CodeVerdict::kNg, findings.verdict.code);
}

TEST_F(SmallBuilding, HasNoRatioWithoutAMeanDrift) {
    host.Displace(2, 11, -0.021, 0, 0);
    const DirectionFindings x = Story().directions[kX];
    EXPECT_THAT(x.meanDrift, Near(0.0));
    EXPECT_EQ(std::nullopt, x.rs);
    EXPECT_EQ(std::nullopt, x.stiffnessRatio);
    EXPECT_EQ(CodeVerdict::kUndetermined, x.stiffnessRatioCode);
    EXPECT_EQ(ToolVerdict::kFail, x.stiffnessRatioTool);
}

// A brace from (0, 0) up to (6, 4) leans; it moves with node 14, 70 mm, and does not count.
TEST_F(SmallBuilding, IsNotJudgedByALeaningMemberWhereThereAreUprightOnes) {
    host.Member(5, 1, 14).Displace(2, 14, 0.070, 0, 0);
    const StoryFindings story = Story();
    const DirectionFindings& x = story.directions[kX];
    EXPECT_EQ(1, CountLeaning(story));
    EXPECT_EQ(4, x.worstUpright.member);  // column 4 ends at node 14, too
    EXPECT_EQ(5, story.members[4].number);
    EXPECT_FALSE(story.members[4].upright);
}

TEST_F(SmallBuilding, IsJudgedByAllMembersWhereNoneIsUpright) {
    host.Member(5, 1, 14);
    const StoryFindings story =
        Story(kLoadCaseLines + "FloorLevel,0,3500,\nStoryMember,\n1,5,\nFIN\n");
    EXPECT_EQ(5, story.directions[kX].worstUpright.member);
}

// Only columns 1 and 3 are named: the plane also meets 2 and 4, which carry half of the shear.
TEST_F(SmallBuilding, CountsTheShearOfCutMembersThatAreNoStoryMembers) {
    const StoryFindings story = Story(kLoadCaseLines + "StoryMember,\n1,1,3,\nFIN\n");
    ASSERT_THAT(story.cutNotCounted, SizeIs(2));
    EXPECT_EQ(2, story.cutNotCounted[0].number);
    EXPECT_EQ(4, story.cutNotCounted[1].number);
    EXPECT_THAT(story.cutNotCounted[0].drift[kX], Near(7.0));
    EXPECT_THAT(story.directions[kX].storyShear, Near(56.0));
    EXPECT_THAT(story.directions[kX].shearOfStoryMembers, Near(28.0));
}

TEST_F(SmallBuilding, CountsAMemberNamedTwiceTwice) {
    const StoryFindings story = Story(kLoadCaseLines + "StoryMember,\n1,1,1,2,3,4,\nFIN\n");
    EXPECT_THAT(story.members, SizeIs(5));
    EXPECT_THAT(story.directions[kX].shearOfStoryMembers, Near(70.0));
    EXPECT_THAT(story.directions[kX].storyShear, Near(56.0));
}

TEST_F(SmallBuilding, WithEqualEarthquakeCasesHasDriftsAndRatiosButNoModulus) {
    const StoryFindings story = Story("EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    EXPECT_EQ(CodeVerdict::kOk, story.directions[kX].worstUpright.code);
    EXPECT_EQ(std::nullopt, story.directions[kZ].stiffness);
    EXPECT_EQ(std::nullopt, story.members[0].stiffness[kZ]);
    EXPECT_THAT(story.directions[kX].stiffness, Near(8.0));
    EXPECT_EQ(std::nullopt, story.torsionalStiffness);
    for (const DirectionFindings& direction : story.directions) {
        EXPECT_EQ(std::nullopt, direction.eccentricityModulus);
        EXPECT_EQ(CodeVerdict::kUndetermined, direction.eccentricityCode);
        EXPECT_EQ(ToolVerdict::kPass, direction.eccentricityTool);  // the fallback 0 of the results
    }
    EXPECT_NE(CodeVerdict::kOk, findings.verdict.code);
}

TEST_F(SmallBuilding, HasNothingInADirectionWhoseCaseTheModelDoesNotHave) {
    const StoryFindings story = Story("EarthquakeLoadCaseNumber,2,9,\nFIN\n");
    const DirectionFindings& second = story.directions[kZ];
    EXPECT_EQ(std::nullopt, second.meanDrift);
    EXPECT_EQ(CodeVerdict::kUndetermined, second.worstUpright.code);
    EXPECT_EQ(std::nullopt, second.toolMax.drift);
    EXPECT_EQ(std::nullopt, second.toolMeanVerdict);
    EXPECT_EQ(std::nullopt, second.stiffness);
    EXPECT_EQ(CodeVerdict::kUndetermined, story.directions[kX].eccentricityCode);
    EXPECT_EQ(CodeVerdict::kOk, story.directions[kX].worstUpright.code);
}

TEST_F(SmallBuilding, WithoutStoryMembersKeepsItsLimitAndIsUndetermined) {
    const StoryFindings story = Story(kLoadCaseLines + "StoryMember,\nFIN\n");
    const DirectionFindings& x = story.directions[kX];
    EXPECT_THAT(story.members, IsEmpty());
    EXPECT_EQ(0.005, x.worstUpright.allowable);
    EXPECT_EQ(CodeVerdict::kUndetermined, x.worstUpright.code);
    EXPECT_EQ(CodeVerdict::kUndetermined, x.stiffnessRatioCode);
    EXPECT_EQ(CodeVerdict::kUndetermined, x.eccentricityCode);
    EXPECT_THAT(x.shearOfStoryMembers, Near(0.0));
    EXPECT_THAT(x.storyShear, Near(56.0));
    EXPECT_EQ(std::nullopt, x.toolMeanVerdict);
    EXPECT_EQ(ToolVerdict::kPass, x.eccentricityTool);
}

TEST_F(SmallBuilding, WithoutWeightHasNoCentreOfGravityAndNoModulus) {
    const StoryFindings story =
        Story("DeadLoadCaseNumber,101,\nEarthquakeLoadCaseNumber,2,3,\nFIN\n");
    EXPECT_THAT(story.weightAbove, Near(0.0));
    EXPECT_THAT(story.gravityCenter, ElementsAre(std::nullopt, std::nullopt));
    EXPECT_THAT(story.rigidityCenter, ElementsAre(Near(3000.0), Near(2000.0)));
    EXPECT_EQ(std::nullopt, story.directions[kX].eccentricity);
    EXPECT_EQ(CodeVerdict::kUndetermined, story.directions[kX].eccentricityCode);
}

// Every shear against its displacement: K_X = 4 x -2, K_Z = 4 x -4 kN/mm, K_R = -8 x 2000^2
// - 16 x 3000^2 kN mm. The quotient K_R / K is positive all the same.
TEST_F(SmallBuilding, OfNegativeTorsionalStiffnessHasNoElasticRadius) {
    for (std::int32_t i = 1; i <= 4; ++i)
        host.Force(2, i, 0, 0, -14, 0).Force(3, i, 0, 0, 0, 14);
    const StoryFindings story = FindingsOf(host, kSmallBuildingInput).stories.at(0);
    EXPECT_THAT(story.torsionalStiffness, Near(-1.76e8));
    for (const DirectionFindings& direction : story.directions) {
        EXPECT_EQ(std::nullopt, direction.elasticRadius);
        EXPECT_EQ(std::nullopt, direction.toLimit);
        EXPECT_EQ(CodeVerdict::kUndetermined, direction.eccentricityCode);
    }
}

TEST_F(SmallBuilding, WithoutStiffnessInXKeepsNoCoordinateAcrossIt) {
    for (std::int32_t member = 1; member <= 4; ++member)
        host.Force(2, member, 0, 0, 0, 0);
    const StoryFindings story = Story();
    EXPECT_THAT(story.rigidityCenter, ElementsAre(Near(3000.0), std::nullopt));
    EXPECT_EQ(std::nullopt, story.torsionalStiffness);
    EXPECT_EQ(CodeVerdict::kUndetermined, story.directions[kZ].eccentricityCode);
}

TEST_F(SmallBuilding, TakesARelievedAngleFromTheInputAndNoMoreThanTheCodeAllows) {
    host.Displace(2, 11, 0.028, 0, 0);  // column 1: 28 / 3500 = 1/125
    const std::string relief = kLoadCaseLines + "AllowStoryDeformAngle,\n1,0.008333,\nFIN\n";
    const DirectionFindings relieved = Story(relief).directions[kX];
    EXPECT_EQ(0.008333, relieved.worstUpright.allowable);
    EXPECT_EQ(CodeVerdict::kOk, relieved.worstUpright.code);
    const DirectionFindings generous =
        Story(kLoadCaseLines + "AllowStoryDeformAngle,\n1,0.1,\nFIN\n").directions[kX];
    EXPECT_EQ(1.0 / 120, generous.worstUpright.allowable);
}

// The last question of the run is followed by those about columns 2 and 4: forces and
// displacements under both earthquake cases.
TEST_F(SmallBuilding, AsksBeyondTheRunOnlyWhatTheFiguresNeed) {
    const std::string input = kLoadCaseLines + "StoryMember,\n1,1,3,\nFIN\n";
    FindingsOf(host, input);
    const std::vector<std::string> all = host.calls;
    std::set<std::string> asked;
    FakeHost plain;
    AddSmallBuilding(plain);
    const TestFolder folder;
    plain.modelPath = folder.Path("tower.ext");
    StatusLines status;
    ReportPaths reports;
    RunCompute(
        folder.Write("input.csv", input), [&plain] { return &plain; }, status, reports);
    ASSERT_LT(plain.calls.size(), all.size());
    EXPECT_TRUE(std::equal(plain.calls.begin(), plain.calls.end(), all.begin()));
    asked.insert(plain.calls.begin(), plain.calls.end());
    std::set<std::string> extra;
    for (const std::string& call : all)
        if (!asked.contains(call)) extra.insert(call);
    EXPECT_THAT(extra, ElementsAre("GetMemberEndForces(2, 0, 2)", "GetMemberEndForces(2, 0, 3)",
                                   "GetMemberEndForces(4, 0, 2)", "GetMemberEndForces(4, 0, 3)",
                                   "GetNodeDisplacements(12, 2)", "GetNodeDisplacements(12, 3)",
                                   "GetNodeDisplacements(14, 2)", "GetNodeDisplacements(14, 3)",
                                   "GetNodeDisplacements(2, 2)", "GetNodeDisplacements(2, 3)",
                                   "GetNodeDisplacements(4, 2)", "GetNodeDisplacements(4, 3)"));
}

TEST_F(SmallBuilding, WhoseHostFailsAfterTheResultsHasNoStoryShearButAllElse) {
    const std::string input = kLoadCaseLines + "StoryMember,\n1,1,3,\nFIN\n";
    FindingsOf(host, input);
    FakeHost failing;
    AddSmallBuilding(failing);
    const auto firstExtra = std::ranges::find(host.calls, "GetMemberEndForces(2, 0, 2)");
    failing.failAtCall = static_cast<std::size_t>(firstExtra - host.calls.begin()) + 1;
    findings = FindingsOf(failing, input);
    EXPECT_TRUE(findings.end.complete);
    EXPECT_EQ(std::nullopt, findings.stories[0].directions[kX].storyShear);
    EXPECT_THAT(findings.stories[0].directions[kX].shearOfStoryMembers, Near(28.0));
    EXPECT_EQ(std::nullopt, findings.stories[0].directions[kX].share);
    EXPECT_EQ(std::nullopt, findings.stories[0].directions[kX].shearCoefficient);
    EXPECT_GT(findings.failedExtraQuestions, 1);
    EXPECT_EQ("GetMemberEndForces(2, 0, 2) failed on demand", findings.firstFailedQuestion);
}

TEST_F(SmallBuilding, WhoseRunEndsEarlyKeepsTheStoriesAsFarAsTheyWereSet) {
    FindingsOf(host, kSmallBuildingInput);
    FakeHost failing;
    AddSmallBuilding(failing);
    const auto drift = std::ranges::find(host.calls, "GetNodeDisplacements(1, 1)");
    failing.failAtCall = static_cast<std::size_t>(drift - host.calls.begin()) + 1;
    findings = FindingsOf(failing, kSmallBuildingInput);
    EXPECT_FALSE(findings.end.complete);
    ASSERT_THAT(findings.stories, SizeIs(1));
    EXPECT_THAT(findings.stories[0].members, SizeIs(4));
    EXPECT_EQ(std::nullopt, findings.stories[0].directions[kX].meanDrift);
    EXPECT_EQ(std::nullopt, findings.stories[0].directions[kX].eccentricityTool);
    EXPECT_EQ(std::nullopt, findings.verdict.tool);
    EXPECT_EQ(CodeVerdict::kUndetermined, findings.verdict.code);
    EXPECT_EQ(*failing.failAtCall, failing.calls.size());  // nothing was asked after the failure
}

TEST(Findings, OfABuildingWithoutStoriesAreUndetermined) {
    FakeHost host;
    host.primaryLoadCases = {1};
    const Findings findings = FindingsOf(host, kLoadCaseLines + "FIN\n");
    EXPECT_TRUE(findings.end.complete);
    EXPECT_THAT(findings.stories, IsEmpty());
    EXPECT_EQ(CodeVerdict::kUndetermined, findings.verdict.code);
}

TEST(Findings, HoldTheWarningsOfTheLog) {
    FakeHost host;
    AddSmallBuilding(host);
    const Findings findings = FindingsOf(host, "EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    EXPECT_THAT(findings.warnings, ElementsAre(Warning{WarningKind::kNoKzForRigidityCenter, 1, {}},
                                               Warning{WarningKind::kNoKzForModulus, 1, {}}));
}

TEST(Findings, HoldTheModelForDrawings) {
    FakeHost host;
    AddSmallBuilding(host);
    const Findings findings = FindingsOf(host, kSmallBuildingInput);
    ASSERT_THAT(findings.nodes, SizeIs(8));
    EXPECT_TRUE(findings.nodes[0].supported);
    EXPECT_FALSE(findings.nodes[4].supported);
    EXPECT_EQ(3500.0, findings.nodes[4].point.y);
    ASSERT_THAT(findings.members, SizeIs(5));
    EXPECT_EQ(0u, findings.members[0].start);
    EXPECT_EQ(4u, findings.members[0].end);
    EXPECT_EQ('Z', findings.SecondDirection());
}

}  // namespace
