// Figures that follow from those of a check: shares, differences of floors, utilisations, moments.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "route2/shape_factors.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/near_figure.h"
#include "tests/support/run_findings.h"
#include "tests/support/small_building.h"
#include "tests/support/two_story_building.h"

using testing::ElementsAre;
using testing::Optional;

namespace {

// Four columns at (0, 0), (6, 0), (0, 4), (6, 4) m, 3.5 m high; every column moves 7 mm in X and
// 3.5 mm in Z and carries 14 kN in each, 100 kN of weight.
class SmallBuildingFigures : public testing::Test {
protected:
    SmallBuildingFigures() { AddSmallBuilding(host); }
    StoryFindings Story(const std::string& input = kSmallBuildingInput) {
        findings = FindingsOf(host, input);
        return findings.stories.at(0);
    }
    FakeHost host;
    Findings findings;
};

TEST_F(SmallBuildingFigures, SayWhichShareOfTheStoryShearTheStoryMembersCarry) {
    EXPECT_THAT(Story().directions[kX].share, Near(1.0));
    const StoryFindings half = Story(kLoadCaseLines + "StoryMember,\n1,1,3,\nFIN\n");
    EXPECT_THAT(half.directions[kX].share, Near(0.5));
}

// Under case 2 columns 1 and 2 also push 7 kN across: 14 of 56 kN.
TEST_F(SmallBuildingFigures, SayWhatTheCaseDoesAcrossItsDirection) {
    host.Force(2, 1, 0, 0, 14, 7).Force(2, 2, 0, 0, 14, 7);
    EXPECT_THAT(Story().directions[kX].acrossShare, Near(0.25));
}

// The floor moves 7 mm in X and turns by 0.001 about its middle (3, 2) m: what is 2 m from there in
// Z moves 2 mm more or less in X, what is 3 m from there in X moves 3 mm in Z.
TEST_F(SmallBuildingFigures, FindNothingBesideTheMotionOfARigidFloor) {
    host.Displace(2, 11, 0.009, 0, -0.003).Displace(2, 12, 0.009, 0, 0.003);
    host.Displace(2, 13, 0.005, 0, -0.003).Displace(2, 14, 0.005, 0, 0.003);
    EXPECT_THAT(Story().directions[kX].floorResidual, Optional(testing::Lt(1e-9)));
}

// 7, 7, 7 and 15 mm in X: beside their mean -2, -2, -2 and 6 mm at -2, -2, 2 and 2 m in Z. They
// turn the floor by -16 / (4 (9 + 4)) = -4/13 mm/m, which leaves the last node 6 - 2 x 4/13 = 70/13
// mm.
TEST_F(SmallBuildingFigures, FindWhatANodeKeepsBesideTheMotionOfTheFloor) {
    host.Displace(2, 14, 0.015, 0, 0);
    EXPECT_THAT(Story().directions[kX].floorResidual, Near(70.0 / 13.0));
}

// 7 and 11 mm at one place in plan, which cannot turn: 2 mm beside their mean.
TEST_F(SmallBuildingFigures, FindNoTurnOfNodesAboveEachOther) {
    host.Node(5, 0, 0, 0, true).Node(15, 0, 3.5, 0).Member(5, 5, 15);
    host.Displace(2, 15, 0.011, 0, 0).Force(2, 5, 0, 0, 14, 0).Force(1, 5, 0, 100, 0, 0);
    EXPECT_THAT(Story(kLoadCaseLines + "StoryMember,\n1,1,5,\nFIN\n").directions[kX].floorResidual,
                Near(2.0));
}

TEST_F(SmallBuildingFigures, HaveAShearCoefficientOfTheWholeStoryShear) {
    const StoryFindings story = Story(kLoadCaseLines + "StoryMember,\n1,1,3,\nFIN\n");
    EXPECT_THAT(story.directions[kX].shearCoefficient, Near(56.0 / 400.0));
}

// 14, 7, 7 and 7 mm: the largest over the mean is 14 / 8.75. 14 / 3500 is 1/250, 0.8 of 1/200.
TEST_F(SmallBuildingFigures, CompareTheLargestDriftWithTheMeanAndWithItsLimit) {
    host.Displace(2, 11, 0.014, 0, 0);
    const DirectionFindings x = Story().directions[kX];
    EXPECT_THAT(x.meanUprightDrift, Near(8.75));
    EXPECT_THAT(x.maxOverMean, Near(1.6));
    EXPECT_THAT(x.worstUpright.utilisation, Near(0.8));
    EXPECT_THAT(x.toolMax.angle, Near(1.0 / 250));
}

// Member 5 leans, and moves without end: no mean, but the worst upright member is known.
TEST_F(SmallBuildingFigures, CompareNothingWithAMeanThatIsNoNumber) {
    host.Node(5, 3, 0, 0, true).Node(15, 5, 3.5, 0).Member(5, 5, 15);
    host.Displace(2, 15, std::numeric_limits<double>::infinity(), 0, 0);
    const DirectionFindings x = Story().directions[kX];
    EXPECT_EQ(std::nullopt, x.meanUprightDrift);
    EXPECT_EQ(std::nullopt, x.maxOverMean);
    EXPECT_THAT(x.worstUpright.angle, Near(1.0 / 500));
}

TEST_F(SmallBuildingFigures, CompareRatioAndModulusWithTheirLimits) {
    const DirectionFindings x = Story().directions[kX];
    EXPECT_THAT(x.ratioUtilisation, Near(0.6));
    EXPECT_THAT(x.modulusUtilisation, Near(0.0));
}

TEST_F(SmallBuildingFigures, SayWhyThereIsNoModulusWithoutWeight) {
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(1, column, 0, 0, 0, 0);
    EXPECT_EQ(WhyUndetermined::kNoWeight, Story().directions[kX].eccentricityWhy);
}

TEST_F(SmallBuildingFigures, SayWhyThereIsNoModulusWhereTheModelHasOneOfTheCases) {
    const StoryFindings story = Story("EarthquakeLoadCaseNumber,2,77,\nFIN\n");
    for (const std::size_t axis : {kX, kZ})
        EXPECT_EQ(WhyUndetermined::kCaseNotInModel, story.directions[axis].eccentricityWhy);
}

// Nothing pushes in Z: neither direction has a modulus, for the centre of rigidity needs both.
TEST_F(SmallBuildingFigures, SayWhyThereIsNoModulusWithoutStiffnessInOneDirection) {
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(3, column, 0, 0, 0, 0);
    const StoryFindings story = Story();
    for (const std::size_t axis : {kX, kZ})
        EXPECT_EQ(WhyUndetermined::kNoStiffness, story.directions[axis].eccentricityWhy);
}

// r_e = sqrt(176e6 / 8) in X; the centres coincide, so they may part by 0.15 of it.
TEST_F(SmallBuildingFigures, SayHowFarTheCentresMayPart) {
    EXPECT_THAT(Story().directions[kX].toLimit, Near(0.15 * std::sqrt(22e6)));
}

// Column 4 stands at x = 6000, v = 4000, 3000 and 2000 mm from the centre; K_X = 2, K_2 = 4.
TEST_F(SmallBuildingFigures, HoldTheTermsOfTheCentresAndOfTheTorsionalStiffness) {
    const StoryFindings story = Story();
    const MemberFindings& column = story.members.at(3);
    EXPECT_THAT(column.weightMoment, ElementsAre(Near(6e5), Near(4e5)));
    EXPECT_THAT(column.stiffnessMoment, ElementsAre(Near(8000.0), Near(24000.0)));
    EXPECT_THAT(column.torsionalPart, ElementsAre(Near(8e6), Near(36e6)));
    EXPECT_THAT(story.directions[kX].stiffnessMoment, Near(16000.0));
    EXPECT_THAT(story.directions[kZ].stiffnessMoment, Near(48000.0));
    EXPECT_THAT(story.directions[kX].torsionalPart, Near(32e6));
    EXPECT_THAT(story.directions[kZ].torsionalPart, Near(144e6));
    EXPECT_THAT(story.weightMoment, ElementsAre(Near(1.2e6), Near(0.8e6)));
}

TEST_F(SmallBuildingFigures, HoldWhatTheRowsOfTheResultsShow) {
    const StoryFindings story = Story("EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    EXPECT_THAT(story.directions[kX].results.meanAngle, Near(1.0 / 500));
    EXPECT_THAT(story.directions[kZ].results.eccentricityModulus, Near(0.0));  // the fallback
    EXPECT_THAT(story.rigidityCenterOfResults, Optional(ElementsAre(0.0, 2000.0)));
}

// No column ends at the level of 1 m, and the last member's upper node is not there: the run warns
// that there are no story members, and comes to its end without a centre of gravity. The four
// columns are cut all the same.
TEST_F(SmallBuildingFigures, HaveNoAxialForcesWithoutACentreOfGravity) {
    host.Member(50, 1, 999);
    const StoryFindings story = Story(kLoadCaseLines + "FloorLevel,0,1000,\nFIN\n");
    EXPECT_TRUE(findings.end.complete) << findings.end.failure;
    EXPECT_EQ(std::nullopt, story.weightAbove);
    ASSERT_EQ(4u, story.cutNotCounted.size());
    for (const MemberFindings& column : story.cutNotCounted)
        EXPECT_EQ(std::nullopt, column.axialForce) << column.number;
}

TEST_F(SmallBuildingFigures, GiveTheAngleOfAMemberThatIsNotCountedOverItsOwnHeight) {
    const StoryFindings story = Story(kLoadCaseLines + "StoryMember,\n1,1,3,\nFIN\n");
    EXPECT_THAT(story.cutNotCounted.at(0).angle, ElementsAre(Near(1.0 / 500), Near(1.0 / 1000)));
}

// 3.5 m high on 6 m by 4 m.
TEST_F(SmallBuildingFigures, HoldTheExtentOfTheBuilding) {
    Story();
    EXPECT_THAT(findings.extent.height, Near(3500.0));
    EXPECT_THAT(findings.extent.width, ElementsAre(Near(6000.0), Near(4000.0)));
    EXPECT_THAT(findings.extent.slenderness, Near(0.875));
}

// From the lowest floor to the highest, not from the ground: 3500 - 1000 mm.
TEST_F(SmallBuildingFigures, MeasureTheHeightOfTheBuildingFromItsLowestFloor) {
    Story(kLoadCaseLines + "FloorLevel,1000,3500,\nFIN\n");
    EXPECT_THAT(findings.extent.height, Near(2500.0));
}

// Columns carry 200 kN in story 1 and 100 kN in story 2; both stories have shears of 50 to 53 kN.
TEST(TwoStoryFigures, SayWhatEachFloorAddsToWeightAndShear) {
    FakeHost host;
    BuildTwoStories(host);
    const Findings findings = FindingsOf(host, kTwoStoryInput);
    EXPECT_THAT(findings.stories.at(0).floorWeight, Near(400.0));
    EXPECT_THAT(findings.stories.at(1).floorWeight, Near(400.0));
    EXPECT_THAT(findings.stories.at(0).directions[kX].floorForce, Near(0.0));
    EXPECT_THAT(findings.stories.at(1).directions[kX].floorForce, Near(206.0));
}

// Column 202 stands from 3.5 to 7 m and moves 7 mm: 7 / 3500.
TEST(TwoStoryFigures, MeasureTheHeightOfAMemberThatIsNotCountedFromItsLowerEnd) {
    FakeHost host;
    BuildTwoStories(host);
    const Findings findings =
        FindingsOf(host, kLoadCaseLines + "StoryMember,\n1,101,102,\n2,201,203,\nFIN\n");
    const MemberFindings& column = findings.stories.at(1).cutNotCounted.at(0);
    EXPECT_EQ(202, column.number);
    EXPECT_DOUBLE_EQ(3500.0, column.height);
    EXPECT_THAT(column.angle[kX], Near(1.0 / 500));
}

// Story 1 moves 7 mm, story 2 back by 4 mm: rs = 500 and -875, their mean is -187.5.
TEST(TwoStoryFigures, HaveNoUtilisationOfANegativeRatio) {
    FakeHost host;
    BuildTwoStories(host);
    for (std::int32_t node = 21; node <= 24; ++node)
        host.Displace(2, node, 0.003, 0, 0);
    const Findings findings = FindingsOf(host, kTwoStoryInput);
    EXPECT_THAT(findings.stories.at(0).directions[kX].stiffnessRatio, Near(500 / -187.5));
    EXPECT_EQ(std::nullopt, findings.stories.at(0).directions[kX].ratioUtilisation);
    EXPECT_THAT(findings.stories.at(1).directions[kX].ratioUtilisation, Near(0.6 / (875 / 187.5)));
}

// The first floor moves 7 mm in X, the second one stays where it is: r_s = 3500 / 7 = 500 and -500,
// whose mean is 0. The 0 of the results is no ratio.
TEST(TwoStoryFigures, HaveNoRatioWhereTheMeanIsNought) {
    FakeHost host;
    BuildTwoStories(host);
    for (const std::int32_t node : {21, 22, 23, 24})
        host.Displace(2, node, 0.0, 0.0, 0.0);
    const Findings findings = FindingsOf(host, kTwoStoryInput);
    for (const StoryFindings& story : findings.stories) {
        const DirectionFindings& x = story.directions[kX];
        EXPECT_THAT(x.rsMean, Near(0.0));
        EXPECT_THAT(x.rs, Near(story.number == 1 ? 500.0 : -500.0));
        EXPECT_EQ(std::nullopt, x.stiffnessRatio);
        EXPECT_EQ(CodeVerdict::kUndetermined, x.stiffnessRatioCode);
    }
}

// Whoever shows the status may end the run, here before the step of the stiffness ratio.
TEST(TwoStoryFigures, HaveDriftsAndNoRatiosWhereTheRunEndsBetweenThem) {
    class Ending : public StatusLines {
        void Append(StatusText line) override {
            if (line == StatusText::kStiffnessRatio) throw std::runtime_error("ended");
            StatusLines::Append(line);
        }
    } status;
    FakeHost host;
    BuildTwoStories(host);
    const TestFolder folder;
    host.modelPath = folder.Path("tower.ext");
    ReportPaths reports;
    const Findings findings =
        RunCompute(folder.Write("input.csv", kTwoStoryInput), [&host] { return &host; }, status,
                   reports, {.wantsFindings = WantsFindings::kYes})
            .findings.value();
    EXPECT_FALSE(findings.end.complete);
    const DirectionFindings& x = findings.stories.at(0).directions[kX];
    EXPECT_THAT(x.meanDrift, Near(7.0));
    EXPECT_EQ(std::nullopt, x.rsMean);
    EXPECT_EQ(std::nullopt, x.stiffnessRatio);
    EXPECT_EQ(CodeVerdict::kUndetermined, x.stiffnessRatioCode);
}

TEST(ShapeFactors, GrowBelowTheStiffnessRatioAndAboveTheModulus) {
    EXPECT_DOUBLE_EQ(1.0, StiffnessShapeFactor(0.6));
    EXPECT_DOUBLE_EQ(1.5, StiffnessShapeFactor(0.3));
    EXPECT_DOUBLE_EQ(1.0, EccentricityShapeFactor(0.15));
    EXPECT_DOUBLE_EQ(1.25, EccentricityShapeFactor(0.225));
    EXPECT_DOUBLE_EQ(1.5, EccentricityShapeFactor(0.3));
    EXPECT_DOUBLE_EQ(1.5, EccentricityShapeFactor(2.0));
}

TEST(ShapeFactors, AreFormedWhereALimitIsExceededOnly) {
    DirectionFindings direction;
    direction.stiffnessRatio = 0.3;
    direction.eccentricityModulus = 0.225;
    direction.stiffnessRatioCode = CodeVerdict::kOk;
    direction.eccentricityCode = CodeVerdict::kOk;
    EXPECT_EQ(std::nullopt, FormShapeFactors(direction));
    direction.eccentricityCode = CodeVerdict::kNg;
    EXPECT_THAT(FormShapeFactors(direction)->product, Near(1.5 * 1.25));
}

TEST(ShapeFactors, HaveNoProductWhereOneOfThemIsMissing) {
    DirectionFindings direction;
    direction.eccentricityModulus = 0.225;
    direction.eccentricityCode = CodeVerdict::kNg;
    const std::optional<ShapeFactors> factors = FormShapeFactors(direction);
    EXPECT_EQ(std::nullopt, factors->stiffness);
    EXPECT_THAT(factors->eccentricity, Near(1.25));
    EXPECT_EQ(std::nullopt, factors->product);
}

}  // namespace
