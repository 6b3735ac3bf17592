// What a run remarks on, rule by rule: a building that shows it, and the same building just not.
//
// The small building (tests/support/small_building.h): four columns at (0, 0), (6, 0), (0, 4), (6,
// 4) m, 3.5 m high, 100 kN each under the dead load; every column moves 7 mm in X with 14 kN,
// and 3.5 mm in Z with 14 kN.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "route2/remark_cause.h"
#include "route2/remark_texts.h"
#include "route2/remarks.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/run_findings.h"
#include "tests/support/small_building.h"
#include "tests/support/two_story_building.h"
#include "tests/support/watched_host.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const std::string kFloors = "FloorLevel,0,3500,\n";

std::vector<std::string> Ids(const Findings& findings) {
    std::vector<std::string> ids;
    for (const Remark& remark : findings.remarks)
        ids.push_back(remark.id);
    return ids;
}

const Remark& Find(const Findings& findings, const std::string& id) {
    const auto found = std::ranges::find(findings.remarks, id, &Remark::id);
    if (found == findings.remarks.end()) throw std::runtime_error("no remark " + id);
    return *found;
}

class Remarks : public testing::Test {
protected:
    Remarks() { AddSmallBuilding(host); }
    Findings Run(const std::string& input) { return FindingsOf(host, input); }
    Findings RunAsItIs() { return Run(kLoadCaseLines + kFloors + "FIN\n"); }
    FakeHost host;
};

// One beam makes no floor by rule R05; the rest of the building is sound: only notes remain.
TEST_F(Remarks, OfASoundBuildingAreNotesAndThatOneBeamIsFewForAFloor) {
    EXPECT_THAT(Ids(RunAsItIs()), ElementsAre("R05", "R22", "R27"));
    host.Member(10, 12, 14).Member(11, 14, 13);
    EXPECT_THAT(Ids(RunAsItIs()), ElementsAre("R22", "R27"));
}

TEST_F(Remarks, NameEqualEarthquakeCases) {
    const Findings findings = Run("EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    EXPECT_EQ(RemarkKind::kError, Find(findings, "R01").kind);
    EXPECT_THAT(Find(findings, "R01").en, HasSubstr("Both earthquake cases are 2."));
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R01")));
}

// The engine begins with 1 for every case; the run ends before it reads 1, 2 and 3.
TEST_F(Remarks, SayNothingOfCasesThatWereNotRead) {
    RunAsItIs();
    const auto axis = std::ranges::find(host.calls, "IsZUp()");
    host.failAtCall = static_cast<std::size_t>(axis - host.calls.begin()) + 1;
    host.calls.clear();
    const Findings findings = RunAsItIs();
    EXPECT_FALSE(findings.loadCases.inputRead);
    EXPECT_FALSE(findings.axisKnown);
    EXPECT_EQ('2', findings.SecondDirection());
    EXPECT_THAT(Ids(findings), Not(Contains("R01")));
}

TEST_F(Remarks, NameCasesThatTheModelDoesNotHave) {
    const Findings findings = Run("DeadLoadCaseNumber,8,\nEarthquakeLoadCaseNumber,2,9,\nFIN\n");
    EXPECT_THAT(Find(findings, "R02").en,
                HasSubstr("dead load case 8, earthquake case Z 9 not in the model (there are 1, 2, "
                          "3, 101)."));
}

TEST_F(Remarks, SayNothingAboutCasesThatTheRunDidNotAskFor) {
    EXPECT_THAT(Ids(Run(kLoadCaseLines)),
                Not(Contains("R02")));  // no FIN: the run ends at its start
}

TEST_F(Remarks, NameStoriesWithoutMembers) {
    const Findings findings = Run(kLoadCaseLines + "FloorLevel,0,3500,7000,\nFIN\n");
    EXPECT_THAT(Find(findings, "R03").stories, ElementsAre(2));
}

// 99 mm is two beams of one floor, 100 mm may be a landing, 2100 mm is a story.
TEST_F(Remarks, TellFlatStoriesFromLowOnes) {
    EXPECT_THAT(Ids(Run(kLoadCaseLines + "FloorLevel,0,99,\nFIN\n")), Contains("R04"));
    const Findings low = Run(kLoadCaseLines + "FloorLevel,0,100,\nFIN\n");
    EXPECT_THAT(Ids(low), Not(Contains("R04")));
    EXPECT_THAT(Find(low, "R05").en, HasSubstr("story 1 is 100 mm high"));
    host.Member(10, 12, 14).Member(11, 14, 13);
    EXPECT_THAT(Ids(Run(kLoadCaseLines + "FloorLevel,1400,3500,\nFIN\n")), Not(Contains("R05")));
}

// A beam at 1.75 m splits nothing but makes a floor of one member: the suggested line leaves it
// out.
TEST_F(Remarks, SuggestLevelsWithoutTheLanding) {
    host.Member(10, 12, 14).Member(11, 14, 13);
    host.Node(21, 0, 1.75, 0).Node(22, 6, 1.75, 0).Member(20, 21, 22);
    const Findings findings = Run(kLoadCaseLines + "FIN\n");
    EXPECT_THAT(Find(findings, "R05").doEn, HasSubstr("FloorLevel,0,3500,"));
}

// Columns 1 and 3 of four carry half of the shear: a warning from half on, an error below.
TEST_F(Remarks, MeasureTheShareOfTheStoryShear) {
    const Findings half = Run(kLoadCaseLines + kFloors + "StoryMember,\n1,1,3,\nFIN\n");
    EXPECT_EQ(RemarkKind::kWarning, Find(half, "R06").kind);
    EXPECT_THAT(Find(half, "R06").en, HasSubstr("28.0 kN / 56.0 kN = 50.0%"));
    EXPECT_THAT(Find(half, "R06").members, ElementsAre(2, 4));
    const Findings less = Run(kLoadCaseLines + kFloors + "StoryMember,\n1,1,\nFIN\n");
    EXPECT_EQ(RemarkKind::kError, Find(less, "R06").kind);
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R06")));
}

// A column of 7 m in a story of 3.5 m: ratio 2, angle times 4.
TEST_F(Remarks, NameMembersOfAnotherHeight) {
    host.Node(30, 12, 0, 0, true).Node(31, 12, 7, 0).Member(30, 30, 31);
    host.Displace(2, 31, 0.007, 0, 0).Force(2, 30, 0, 0, 14, 0);
    const Findings findings = Run(kLoadCaseLines + kFloors + "StoryMember,\n1,1,2,3,4,30,\nFIN\n");
    EXPECT_THAT(Find(findings, "R07").en,
                HasSubstr("member 30 is 7000 mm high (angle times 4.000)"));
}

// Column 4 pushes back: -14 kN over 7 mm.
TEST_F(Remarks, NameMembersOfNegativeStiffness) {
    host.Force(2, 4, 0, 0, -14, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R08").en, HasSubstr("story 1 X member 4 (-2.00 kN/mm)"));
}

// Column 4 moves 0.05 mm with 14 kN: 280 kN/mm of 286.
TEST_F(Remarks, NameMembersThatHardlyMoveAndAreMostOfTheStiffness) {
    host.Displace(2, 14, 0.00005, 0, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R09").en, HasSubstr("story 1 X member 4 (0.050 mm, 97.9%)"));
}

// Column 4 moves 0.05 mm with 0.01 kN: 0.2 kN/mm of 6.2.
TEST_F(Remarks, DoNotNameMembersThatHardlyMoveAndAreLittleOfTheStiffness) {
    host.Displace(2, 14, 0.00005, 0, 0).Force(2, 4, 0, 0, 0.01, 0);
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R09")));
}

// A brace from the foot of column 1 to a node that moves twice as far: largest, and 20 % on the
// mean.
TEST_F(Remarks, NameALeaningMemberThatMovesMost) {
    host.Node(15, 3, 3.5, 4).Displace(2, 15, 0.014, 0, 0).Member(5, 1, 15);
    const Findings findings = RunAsItIs();
    EXPECT_THAT(Find(findings, "R10").en,
                HasSubstr("story 1 X: leaning member 5, upright 1, mean 20.0%"));
    EXPECT_THAT(Find(findings, "R10").stories, ElementsAre(1));
}

// The same brace twice, as members 5 and 6.
TEST_F(Remarks, NameTheFirstOfLeaningMembersThatMoveAlike) {
    host.Node(15, 3, 3.5, 4).Displace(2, 15, 0.014, 0, 0).Member(5, 1, 15).Member(6, 1, 15);
    EXPECT_THAT(Find(RunAsItIs(), "R10").en, HasSubstr("leaning member 5, upright 1"));
}

// Only the brace is a story member: it is the worst of all, but no upright one.
TEST_F(Remarks, NameNoUprightMemberWhereAllOfThemLean) {
    host.Node(15, 3, 3.5, 4).Displace(2, 15, 0.014, 0, 0).Member(5, 1, 15);
    const Findings findings = Run(kLoadCaseLines + kFloors + "StoryMember,\n1,5,\nFIN\n");
    EXPECT_EQ(5, findings.stories.at(0).directions[kX].worstUpright.member);
    EXPECT_THAT(Find(findings, "R10").en, HasSubstr("leaning member 5, upright —, mean 0.0%"));
}

TEST_F(Remarks, NameObliqueMembersWithZVerticalOnly) {
    FakeHost standing;
    standing.zUp = true;
    standing.primaryLoadCases = {1, 2, 3};
    standing.Node(1, 0, 0, 0, true)
        .Node(2, 3, 3, 3.5)
        .Node(3, 0, 3, 3.5)
        .Member(1, 1, 2)
        .Member(2, 1, 3);
    EXPECT_THAT(Find(FindingsOf(standing, kLoadCaseLines + kFloors + "FIN\n"), "R11").members,
                ElementsAre(1));
    host.Node(15, 3, 3.5, 2).Member(5, 1, 15);
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R11")));
}

// In the order of the members: 1 mm to both sides, a kilometre above the ground; one thousandth of
// a millimetre in X and 3 m in Y, and the other way round.
TEST(RemarksOnMembers, CallObliqueWhatLeansMoreThanAMillionthOfItsLengthToBothSides) {
    FakeHost host;
    host.zUp = true;
    host.primaryLoadCases = {1, 2, 3};
    host.Node(1, 0, 0, 1000, true).Node(2, 0.001, 0.001, 1003.5).Member(1, 1, 2);
    host.Node(3, 1e-6, 3, 1003.5).Member(2, 1, 3).Node(4, 3, 1e-6, 1003.5).Member(3, 1, 4);
    const Findings findings =
        FindingsOf(host, kLoadCaseLines + "FloorLevel,1000000,1003500,\nFIN\n");
    EXPECT_THAT(Find(findings, "R11").members, ElementsAre(1));
}

TEST_F(Remarks, NameACombinationAsEarthquakeCase) {
    EXPECT_THAT(Find(Run("EarthquakeLoadCaseNumber,2,101,\nFIN\n"), "R12").en,
                HasSubstr("Earthquake case 101 (a combination) contains vertical load."));
}

// Case 2 presses each column down with 5 or 5.1 kN: 5 % of the weight, and just more.
TEST_F(Remarks, NameVerticalLoadInAnEarthquakeCase) {
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(2, column, 0, 5, 14, 0);
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R12")));
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(2, column, 0, 5.1, 14, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R12").en, HasSubstr("case 2 (5.1% of the weight)"));
}

// 1 kN across 14 kN is 7 %; with the numbers exchanged everything acts across.
TEST_F(Remarks, NameACaseThatActsAcross) {
    host.Force(2, 1, 0, 0, 14, -4);
    const Findings some = RunAsItIs();
    EXPECT_EQ(RemarkKind::kWarning, Find(some, "R13").kind);
    EXPECT_THAT(Find(some, "R13").en, HasSubstr("story 1 X: case 2 acts across, 7.1% of along"));
    FakeHost plain;
    AddSmallBuilding(plain);
    const Findings exchanged =
        FindingsOf(plain, "EarthquakeLoadCaseNumber,3,2,\n" + kFloors + "FIN\n");
    EXPECT_EQ(RemarkKind::kError, Find(exchanged, "R13").kind);
    // Nothing at all acts along: a percentage of it would be any number.
    EXPECT_THAT(Find(exchanged, "R13").en,
                HasSubstr("case 3 acts across, more than 999% of along"));
    EXPECT_THAT(Find(exchanged, "R13").ja, HasSubstr("ケース 3 の直交方向成分 999%超"));
    EXPECT_THAT(Ids(FindingsOf(plain, kLoadCaseLines + kFloors + "FIN\n")), Not(Contains("R13")));
}

TEST_F(Remarks, NameNegativeWeightAndShearInTheDeadLoad) {
    host.Force(1, 1, 0, 100, 8, 0);  // 8 kN of 400 kN: 2 %
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R14")));
    host.Force(1, 1, 0, 100, 9, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R14").en, HasSubstr("story 1 X ΣQ = 9.0 kN"));
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(1, column, 0, -100, 0, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R14").en, HasSubstr("story 1 ΣN = -400.0 kN"));
}

TEST_F(Remarks, NameACaseInTheNegativeSense) {
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Displace(2, column + 10, -0.007, 0, 0).Force(2, column, 0, 0, -14, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R15").en, HasSubstr("story 1 X ΣQ = -56.0 kN"));
}

// 56 kN of 400 kN is C = 0.14; a twentieth of the load is below 0.05.
TEST_F(Remarks, NameACoefficientThatNoEarthquakeHas) {
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R16")));
    for (std::int32_t column = 1; column <= 4; ++column)
        host.Force(2, column, 0, 0, 4.9, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R16").en, HasSubstr("story 1 X C = 0.049"));
}

// 5 kN of 100 kN in each column are C = 0.05, 100 kN are C = 1.
TEST_F(Remarks, TakeATwentiethAndTheWholeWeightForCoefficients) {
    for (const double force : {5.0, 100.0}) {
        for (std::int32_t column = 1; column <= 4; ++column)
            host.Force(2, column, 0, 0, force, 0);
        EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R16"))) << force;
    }
}

// Each story carries the same 206 kN in X.
TEST(RemarksOfTwoStories, NameAShearThatDoesNotGrowDownwards) {
    FakeHost host;
    BuildTwoStories(host);
    EXPECT_THAT(Find(FindingsOf(host, kTwoStoryInput), "R16").en,
                HasSubstr("story 1 X: the story shear does not grow downwards"));
    for (std::int32_t column = 101; column <= 104; ++column)
        host.Force(2, column, 0, 0, 60, 0).Force(3, column, 0, 0, 0, -60);
    EXPECT_THAT(Ids(FindingsOf(host, kTwoStoryInput)), Not(Contains("R16")));
}

TEST_F(Remarks, NoteMembersThatLiftUp) {
    host.Force(1, 2, 0, -1, 0, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R17").members, ElementsAre(2));
}

// All weight on columns 1 and 2 but uplift on 3: G = (4 * -50) / 150 m in Z, outside 0 to 4 m.
TEST_F(Remarks, NameCentresOutsideThePlan) {
    host.Force(1, 3, 0, -50, 0, 0).Force(1, 4, 0, 0, 0, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R18").en, HasSubstr("story 1 G (4000, -1333)"));
}

TEST_F(Remarks, SayWhatWasNotCalculatedAndWhy) {
    const Findings findings = Run("EarthquakeLoadCaseNumber,2,2,\n" + kFloors + "FIN\n");
    EXPECT_THAT(Find(findings, "R19").en,
                HasSubstr("story 1 X eccentricity modulus (both directions have the same case)"));
    EXPECT_EQ(RemarkKind::kError, Find(findings, "R19").kind);
}

TEST(RemarksOnTwoStories, SayOnceWhatWasNotCalculatedInBoth) {
    FakeHost twoStories;
    BuildTwoStories(twoStories);
    const Findings findings = FindingsOf(twoStories, "EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    EXPECT_THAT(Find(findings, "R19").stories, ElementsAre(1, 2));
    EXPECT_EQ(
        "Not calculated: stories 1 to 2 X eccentricity modulus (both directions have the same "
        "case), stories 1 to 2 Z stiffness ratio (the mean drift is 0), stories 1 to 2 Z "
        "eccentricity modulus (both directions have the same case). The 0 (PASS) of the results "
        "file is a fallback.",
        Find(findings, "R19").en);
}

// Node 14 goes 10 mm in X and the others 7: beside their mean -0.75 three times, and 2.25 mm, at
// -2, -2, 2 and 2 m in Z. That turns the floor by 6 / (4 (9 + 4)) mm/m, which leaves node 14 2.25 -
// 2 x 6/52 = 2.019 mm, 26.1 % of 7.75.
TEST_F(Remarks, NameAFloorThatDoesNotMoveAsOnePiece) {
    host.Displace(2, 14, 0.010, 0, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R20").en, HasSubstr("floor above story 1 X (residual 26.1%)"));
}

// A floor that turns by 0.001 moves its nodes by 0.001 times their distance: rigid all the same.
TEST_F(Remarks, DoNotNameAFloorThatTurns) {
    const double plan[4][2] = {{0, 0}, {6, 0}, {0, 4}, {6, 4}};
    for (std::int32_t i = 0; i < 4; ++i)
        host.Displace(2, i + 11, 0.007 + 0.001 * plan[i][1], 0, -0.001 * plan[i][0]);
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R20")));
}

TEST_F(Remarks, TellAReliefFromAnotherAllowableValue) {
    const Findings relief =
        Run(kLoadCaseLines + kFloors + "AllowStoryDeformAngle,\n1,0.008333,\nFIN\n");
    EXPECT_EQ(RemarkKind::kNote, Find(relief, "R21").kind);
    const Findings other = Run(kLoadCaseLines + kFloors + "AllowStoryStiffRatio,\n1,0.5,\nFIN\n");
    EXPECT_EQ(RemarkKind::kWarning, Find(other, "R21").kind);
    EXPECT_THAT(Find(other, "R21").en, HasSubstr("0.5 (story 1)"));
}

TEST_F(Remarks, NoteWhatWasDerivedFromTheModel) {
    EXPECT_THAT(Find(Run(kLoadCaseLines + "FIN\n"), "R22").en,
                HasSubstr("floor levels, story members derived"));
    EXPECT_THAT(Ids(Run(kLoadCaseLines + kFloors + "StoryMember,\n1,1,2,3,4,\nFIN\n")),
                Not(Contains("R22")));
}

TEST_F(Remarks, CountSupportsAtOtherLevels) {
    host.Node(40, 9, 0.101, 0, true).Node(41, 9, -0.5, 0, true);
    EXPECT_THAT(Find(RunAsItIs(), "R23").en, HasSubstr("2 supports at other levels"));
}

// 100 mm above the lowest level, as on a footing, and 0.1 mm below it.
TEST_F(Remarks, TakeSupportsNearTheLowestLevelForItsOwn) {
    host.Node(40, 9, 0.1, 0, true).Node(41, 9, -0.0001, 0, true);
    EXPECT_THAT(Ids(RunAsItIs()), Not(Contains("R23")));
}

TEST_F(Remarks, RepeatTheWarningsOfTheLogInPlainWords) {
    const Findings findings = Run("EarthquakeLoadCaseNumber,2,2,\n" + kFloors + "FIN\n");
    EXPECT_THAT(Find(findings, "R24").en,
                HasSubstr("Story 1: no stiffness in the second direction"));
    EXPECT_THAT(Find(findings, "R24").en,
                HasSubstr("[Total stiffness(Kz) is nearly equal to 0 as setting rigidity center of "
                          "1-th story."));
}

TEST_F(Remarks, NameTheHeightAndTheSlendernessThatCloseRoute2) {
    const std::string columns = "StoryMember,\n1,1,2,3,4,\nFIN\n";
    EXPECT_THAT(Ids(Run(kLoadCaseLines + "FloorLevel,0,16000,\n" + columns)),
                Not(Contains("R28")));  // 16 m over 4 m
    EXPECT_THAT(Ids(Run(kLoadCaseLines + "FloorLevel,4000,35000,\nFIN\n")),
                Not(Contains("R28")));  // 31 m without members, so without a width
    const Findings tall = Run(kLoadCaseLines + "FloorLevel,0,31001,\n" + columns);
    EXPECT_THAT(Find(tall, "R28").en, HasSubstr("height of the model 31.00 m > 31 m"));
    EXPECT_THAT(Find(tall, "R28").en, HasSubstr("height over width 7.75 > 4"));
}

// Columns alone: 17 m over 4 m. Member 12 leans out to 8 m, so that X is the smaller width: 6 m.
TEST_F(Remarks, MeasureTheSlendernessBetweenBothEndsOfTheMembers) {
    const std::string tall = kLoadCaseLines + "FloorLevel,0,17000,\nStoryMember,\n";
    host.Node(21, 0, 3.5, 8).Member(12, 3, 21);
    EXPECT_THAT(Find(Run(tall + "1,1,2,3,4,\nFIN\n"), "R28").en,
                HasSubstr("height over width 4.25 > 4"));
    EXPECT_THAT(Ids(Run(tall + "1,1,2,3,4,12,\nFIN\n")), Not(Contains("R28")));
}

// The run ends while it asks for the levels of the beams: there is no floor yet.
TEST_F(Remarks, SayNothingAboutFloorsThatAreNotYetDerived) {
    host.Member(20, 11, 99);
    const Findings findings = Run(kLoadCaseLines + "FIN\n");
    EXPECT_THAT(findings.stories, IsEmpty());
    EXPECT_THAT(findings.floorLevels, IsEmpty());
    EXPECT_THAT(Ids(findings), Not(Contains("R05")));
}

// Member 77 is not in the model and ends the run while the input's story members are taken.
TEST_F(Remarks, DoNotCallMembersOfTheInputDerivedWhenTheyEndTheRun) {
    const Findings findings = Run(kLoadCaseLines + "StoryMember,\n1,1,2,77,\nFIN\n");
    EXPECT_FALSE(findings.end.complete);
    EXPECT_TRUE(findings.storyMembersFromInput);
    EXPECT_THAT(Find(findings, "R22").en, Not(HasSubstr("story members")));
}

TEST_F(Remarks, NameAStoryThatDoesNotMove) {
    for (std::int32_t node = 11; node <= 14; ++node)
        host.Displace(2, node, 0, 0, 0);
    EXPECT_THAT(Find(RunAsItIs(), "R29").en, HasSubstr("No mean drift: story 1 X."));
}

TEST_F(Remarks, StandInTheOrderOfTheirWeight) {
    const Findings findings = Run("EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    EXPECT_TRUE(std::ranges::is_sorted(findings.remarks, {}, &Remark::kind));
}

TEST_F(Remarks, HaveTextsInBothLanguagesWithoutABraceLeft) {
    const Findings findings = Run("EarthquakeLoadCaseNumber,2,2,\nFIN\n");
    for (const Remark& remark : findings.remarks)
        for (const std::string& text : {remark.en, remark.ja, remark.doEn, remark.doJa}) {
            EXPECT_FALSE(text.empty()) << remark.id;
            EXPECT_EQ(std::string::npos, text.find_first_of("{}")) << remark.id << ": " << text;
        }
}

// Findings of one story and nothing else, for what no building shows by itself.
Findings WithStories(std::size_t count) {
    Findings findings;
    findings.end.complete = findings.end.resultsWritten = true;
    for (std::size_t i = 0; i < count; ++i) {
        StoryFindings& story = findings.stories.emplace_back();
        story.number = static_cast<int>(i + 1);
        story.height = 3500.0;
    }
    return findings;
}

TEST(RemarksOnFindings, NameARatioThatAReferencePutsOnTheOtherSideOfTheLimit) {
    Findings findings = WithStories(1);
    DirectionFindings& x = findings.stories[0].directions[kX];
    x.stiffnessRatio = 0.61;
    x.stiffnessRatioUpright = 0.6;
    x.stiffnessRatioTranslational = 0.65;
    EXPECT_FALSE(std::ranges::count(FormRemarks(findings), "R30", &Remark::id));
    x.stiffnessRatioUpright = 0.59;
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R30").en, HasSubstr("story 1 X (0.610, 0.590, 0.650)"));
}

// A story of two members in X: the drift and the stiffness of the first, whose stiffness and the
// second's are 1000 kN/mm together in amount.
Findings WithStiffness(double drift, double meanDrift, double stiffness) {
    Findings findings = WithStories(1);
    StoryFindings& story = findings.stories[0];
    story.directions[kX].meanDrift = meanDrift;
    story.members.resize(2);
    story.members[0].drift[kX] = drift;
    story.members[0].stiffness[kX] = stiffness;
    story.members[1].drift[kX] = meanDrift;
    story.members[1].stiffness[kX] = 1000.0 - std::abs(stiffness);
    for (MemberFindings& member : story.members)
        member.height = story.height;
    return findings;
}

// R08 is for less than -0.1 % of the stiffness; R09 for less than 0.1 mm or 5 % of the mean, with
// more than 5 % of the stiffness.
TEST(RemarksOnFindings, SayNothingOfStiffnessesAtTheirLimits) {
    for (Findings findings : {WithStiffness(7.0, 7.0, -1.0), WithStiffness(0.1, 2.0, 900.0),
                              WithStiffness(1.0, 20.0, 900.0), WithStiffness(0.05, 20.0, 50.0)}) {
        findings.remarks = FormRemarks(findings);
        EXPECT_THAT(Ids(findings), Not(Contains("R08")));
        EXPECT_THAT(Ids(findings), Not(Contains("R09")));
    }
}

// Of 100 kN: 5 kN upwards under an earthquake, 5 kN across, 2 kN sideways under the dead load.
TEST(RemarksOnFindings, SayNothingOfLoadsAtTheirLimits) {
    Findings findings = WithStories(1);
    findings.stories[0].weightAbove = 100.0;
    DirectionFindings& x = findings.stories[0].directions[kX];
    x.verticalForce = 5.0;
    x.shearOfStoryMembers = 100.0;
    x.acrossShear = 5.0;
    x.deadShear = 2.0;
    findings.remarks = FormRemarks(findings);
    for (const char* id : {"R12", "R13", "R14"})
        EXPECT_THAT(Ids(findings), Not(Contains(id)));
}

// Cases that are exchanged act more across than along; as much is still a warning.
TEST(RemarksOnFindings, WarnOfACaseThatActsAcrossAsMuchAsAlong) {
    Findings findings = WithStories(1);
    DirectionFindings& x = findings.stories[0].directions[kX];
    x.shearOfStoryMembers = x.acrossShear = 100.0;
    findings.remarks = FormRemarks(findings);
    EXPECT_EQ(RemarkKind::kWarning, Find(findings, "R13").kind);
}

TEST(RemarksOnFindings, MeasureNoShareOfTheStoryShearWithoutTheMembersShears) {
    Findings findings = WithStories(1);
    findings.stories[0].members.resize(1);
    findings.stories[0].directions[kX].storyShear = 100.0;
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Ids(findings), Not(Contains("R06")));
}

TEST(RemarksOnFindings, KnowNoMeanOfUprightMembersWhereAllLean) {
    Findings findings = WithStories(1);
    MemberFindings& brace = findings.stories[0].members.emplace_back();
    brace.number = 5;
    brace.drift[kX] = 7.0;
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R10").en,
                HasSubstr("story 1 X: leaning member 5, upright —, mean 0.0%"));
}

// The columns go 7 mm to one side and 7 mm to the other, the brace less.
TEST(RemarksOnFindings, KnowNoShareOfAMeanThatIsNought) {
    Findings findings = WithStories(1);
    findings.stories[0].members.resize(3);
    for (const std::size_t i : {0U, 1U}) {
        findings.stories[0].members[i].upright = true;
        findings.stories[0].members[i].drift[kX] = i == 0 ? 7.0 : -7.0;
    }
    findings.stories[0].members[2].drift[kX] = 1.0;
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Ids(findings), Not(Contains("R10")));
}

// A twentieth of the mean; and a hundredth of a millimetre, however little the story moves.
TEST(RemarksOnFindings, CallFloorsRigidWhoseResidualIsAtTheLimit) {
    Findings findings = WithStories(1);
    DirectionFindings& x = findings.stories[0].directions[kX];
    for (const auto& [mean, residual] : {std::pair{20.0, 1.0}, std::pair{0.1, 0.01}}) {
        x.meanDrift = mean;
        x.floorResidual = residual;
        findings.remarks = FormRemarks(findings);
        EXPECT_THAT(Ids(findings), Not(Contains("R20"))) << residual;
    }
}

// Half a millimetre of 20: less than a twentieth, though more than 0.1 mm.
TEST(RemarksOnFindings, NameAMemberThatHardlyMovesBesideTheMean) {
    Findings findings = WithStiffness(0.5, 20.0, 900.0);
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R09").en, HasSubstr("(0.500 mm, 90.0%)"));
}

// Two members, which stand in opposite corners of a plan.
std::vector<MemberFindings> MembersAround(double width, double depth) {
    MemberFindings corner;
    corner.x = width;
    corner.v = depth;
    return {MemberFindings{}, corner};
}

// A top story of 2 m by 2 m above one of 6 m by 6 m covers a ninth.
TEST(RemarksOnFindings, NoteAPenthouseAndABasement) {
    Findings findings = WithStories(2);
    findings.stories[0].members = MembersAround(6000.0, 6000.0);
    findings.stories[1].members = MembersAround(2000.0, 2000.0);
    findings.floorLevels = {-3000.0, 500.0, 4000.0};
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R32").stories, ElementsAre(2));
    findings.groundLevel = 0.0;
    findings.stories[1].members = MembersAround(6000.0, 6000.0);
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R32").stories, ElementsAre(1));
    findings.stories.clear();
    EXPECT_THAT(FormRemarks(findings), Not(Contains(testing::Field(&Remark::id, "R32"))));
}

// 4 m by 2 m above 8 m by 8 m; and a lowest level that is the ground's.
TEST(RemarksOnFindings, CallAnEighthOfThePlanNoPenthouseAndTheGroundNoBasement) {
    Findings findings = WithStories(2);
    findings.stories[0].members = MembersAround(8000.0, 8000.0);
    findings.stories[1].members = MembersAround(4000.0, 2000.0);
    findings.floorLevels = {0.0, 3500.0, 7000.0};
    findings.groundLevel = 0.0;
    EXPECT_THAT(FormRemarks(findings), Not(Contains(testing::Field(&Remark::id, "R32"))));
}

// The lower story's shear needs an answer that was not given: nothing says that it does not grow.
TEST(RemarksOnFindings, CompareNoStoryShearThatIsMissing) {
    Findings findings = WithStories(2);
    findings.stories[1].directions[kX].storyShear = 100.0;
    EXPECT_THAT(FormRemarks(findings), Not(Contains(testing::Field(&Remark::id, "R16"))));
    findings.stories[0].directions[kX].storyShear = 100.0;
    EXPECT_THAT(FormRemarks(findings), Contains(testing::Field(&Remark::id, "R16")));
}

TEST(RemarksOnFindings, NameWhatARecordingDoesNotAnswer) {
    Findings findings = WithStories(1);
    findings.end.missingAnswer = "the displacements of node 7 under load case 3";
    findings.end.recordedFor = "tower.csv";
    findings.remarks = FormRemarks(findings);
    EXPECT_EQ(RemarkKind::kError, Find(findings, "R25").kind);
    EXPECT_THAT(Find(findings, "R25").en,
                HasSubstr("no answer to the displacements of node 7 under load case 3. It was made "
                          "for tower.csv."));
    findings.end.missingAnswer.clear();
    findings.end.unlistedZeros = 12;
    findings.remarks = FormRemarks(findings);
    EXPECT_EQ(RemarkKind::kWarning, Find(findings, "R25").kind);
    EXPECT_THAT(Find(findings, "R25").en, HasSubstr("12 answers"));
}

TEST(RemarksOnFindings, NameReportsThatAreNotWhole) {
    Findings findings = WithStories(1);
    findings.end.incompleteReports = {"tower.aijR2Result.csv"};
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R26").en, HasSubstr("Incomplete: tower.aijR2Result.csv."));
    findings.end.incompleteReports.clear();
    findings.end.resultsWritten = false;
    findings.remarks = FormRemarks(findings);
    EXPECT_THAT(Find(findings, "R26").en, HasSubstr("Incomplete: the results file."));
}

// Column 10, in the middle, is cut and not counted, so that something is asked when the results
// file is closed.
class ResultsFileThatIsChanged : public testing::Test {
protected:
    ResultsFileThatIsChanged() {
        AddSmallBuilding(host_);
        host_.Node(21, 3, 0, 2, true).Node(31, 3, 3.5, 2).Member(10, 21, 31);
    }

    // Puts `changed` in place of the first `text` of the closed results file.
    Findings Run(const std::string& text, const std::string& changed) {
        host_.modelPath = folder_.Path("tower.ext");
        bool isChanged = false;
        WatchedHost watched(host_, [&](std::size_t) {
            if (!folder_.Has(kResults)) return;
            std::string bytes = folder_.Read(kResults);
            const std::size_t place = bytes.find(text);
            if (isChanged || place == std::string::npos) return;
            folder_.Write(kResults, bytes.replace(place, text.size(), changed));
            isChanged = true;
        });
        StatusLines status;
        ReportPaths reports;
        return RunCompute(folder_.Write("input.csv", kLoadCaseLines + kFloors +
                                                         "StoryMember,\n1,1,2,3,4,\nFIN\n"),
                          [&] { return &watched; }, status, reports,
                          {.wantsFindings = WantsFindings::kYes})
            .findings.value();
    }

private:
    static constexpr const char* kResults = "tower.aijR2Result.csv";

    TestFolder folder_;
    FakeHost host_;
};

// Every column moves 7 mm in 3.5 m under the load along X: 1/500.
TEST_F(ResultsFileThatIsChanged, IsAnErrorAndTheVerdictIsOpen) {
    const Findings findings = Run("1,2,0.000e+00,3.500e+03,3.500e+03,7.00000e+00,2.00000e-03,",
                                  "1,2,0.000e+00,3.500e+03,3.500e+03,7.00000e+00,1.00000e-03,");
    const Remark& remark = Find(findings, "R26");
    EXPECT_EQ(RemarkKind::kError, remark.kind);
    EXPECT_THAT(remark.stories, ElementsAre(1));
    EXPECT_EQ(
        "The results file differs from the figures: Story deformation angle, Direction X, Average, "
        "story 1, load 2.",
        remark.en);
    EXPECT_EQ(CodeVerdict::kUndetermined, findings.verdict.code);
    EXPECT_EQ(CodeVerdict::kOk, Run("nothing of that kind", "").verdict.code);
}

TEST_F(ResultsFileThatIsChanged, IsNoErrorWhereNoRowOfTheFiguresChanged) {
    EXPECT_THAT(Ids(Run("nothing of that kind", "")), Not(Contains("R26")));
    // A load case that no figure is taken from.
    EXPECT_THAT(Ids(Run("1,1,0.000e+00", "1,1,9.999e+00")), Not(Contains("R26")));
}

TEST_F(ResultsFileThatIsChanged, MissesARowThatIsGone) {
    EXPECT_THAT(Find(Run(" -----  Gravity center", " -----  Gravity centre"), "R26").en,
                HasSubstr("Gravity center, story 1."));
}

TEST(RemarkList, NamesTwelveAndCountsTheRest) {
    std::vector<BothLanguages> items(14, {"a", "b"});
    EXPECT_EQ("a, a, a, a, a, a, a, a, a, a, a, a and 2 more", Listed(items).en);
    EXPECT_EQ("b、b、b、b、b、b、b、b、b、b、b、b ほか 2 件", Listed(items).ja);
    items.resize(12);
    EXPECT_EQ("a, a, a, a, a, a, a, a, a, a, a, a", Listed(items).en);
}

TEST(RemarkPlaces, JoinStoriesThatFollowEachOther) {
    EXPECT_EQ("story 3", StoriesName({3}).en);
    EXPECT_EQ("3階", StoriesName({3}).ja);
    EXPECT_EQ("stories 1, 3 to 5, 8", StoriesName({1, 3, 4, 5, 8}).en);
    EXPECT_EQ("1、3〜5、8階", StoriesName({1, 3, 4, 5, 8}).ja);
}

TEST(RemarkNumbers, RoundHalvesAwayFromZeroAndKnowNoMinusZero) {
    EXPECT_EQ("2.5", Fixed(2.45, 1));
    EXPECT_EQ("-2.5", Fixed(-2.45, 1));
    EXPECT_EQ("0.0", Fixed(-0.04, 1));
    EXPECT_EQ("3500", Shortest(3500.0));
}

TEST(RemarkNumbers, SayOfGreatPercentagesOnlyThatTheyAreGreat) {
    EXPECT_EQ("98.5%", PercentOf(0.985).en);
    EXPECT_EQ("-12.0%", PercentOf(-0.12).ja);
    EXPECT_EQ("999.0%", PercentOf(9.99).en);
    EXPECT_EQ("-999.0%", PercentOf(-9.99).en);
    EXPECT_EQ("more than 999%", PercentOf(1000.0).en);
    EXPECT_EQ("999%超", PercentOf(1000.0).ja);
    EXPECT_EQ("less than -999%", PercentOf(-1e9).en);
    EXPECT_EQ("-999%未満", PercentOf(-1e9).ja);
}

}  // namespace
