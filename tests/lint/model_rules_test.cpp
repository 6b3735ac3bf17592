// Every rule against a model: a building that gives the finding, and one that just does not.
//
// The building is that of two_story_building.h: levels 0, 3500 and 7000 mm, columns 101 to 104 and
// 201 to 204, beams 111 to 114 and 211 to 214, Y vertical. A column's X shear under case 2 is
// 50 + i kN, its Z shear under case 3 is 40 + i kN (i from 0), its dead load 200 and 100 kN.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "input/lint_finding_text.h"
#include "lint/lint.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/test_folder.h"
#include "tests/support/two_story_building.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kMembers = "StoryMember,\n1,101,102,103,104,\n2,201,202,203,204,\n";

const LintFinding& FindFinding(const std::vector<LintFinding>& findings, std::string_view id) {
    return *std::ranges::find_if(findings, [id](const LintFinding& f) { return f.rule->id == id; });
}

class ModelRules : public testing::Test {
protected:
    ModelRules() { BuildTwoStories(host); }

    LintReport Lint(const std::string& lines) {
        return LintAgainst(folder.Write("input.csv", kLoadCaseLines + lines + "FIN\n"),
                           {host, "tower.qhm", ""}, WantsSuggestion::kNo);
    }

    // "error M01 2:26: ...", one for each finding.
    std::vector<std::string> Told(const std::string& lines = "") {
        const LintReport report = Lint(lines);
        std::vector<std::string> told;
        for (const LintFinding& finding : report.findings) {
            std::string place;
            if (finding.place.line != 0)
                place = std::to_string(finding.place.line) + ':' +
                        std::to_string(finding.place.offset + 1) + ": ";
            told.push_back(std::string(NameOf(finding.rule->kind)) + ' ' +
                           std::string(finding.rule->id) + ' ' + place +
                           MessageOf(finding, report.check.text, Language::kEnglish));
        }
        return told;
    }

    std::vector<std::string> ToldOfInput(const std::string& input) {
        const LintReport report = LintAgainst(folder.Write("input.csv", input),
                                              {host, "tower.qhm", ""}, WantsSuggestion::kNo);
        std::vector<std::string> told;
        for (const LintFinding& finding : report.findings)
            told.push_back(std::string(NameOf(finding.rule->kind)) + ' ' +
                           std::string(finding.rule->id));
        return told;
    }

    TestFolder folder;
    FakeHost host;
};

}  // namespace

TEST_F(ModelRules, HaveNothingToSayOfASoundBuilding) {
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_THAT(Told("FloorLevel,0,3500,7000,\n" + kMembers), IsEmpty());
}

TEST_F(ModelRules, WriteNothingBesideTheModel) {
    host.modelPath = folder.Path("tower.ext");
    Told();
    EXPECT_FALSE(folder.Has("tower.aijR2Log.txt"));
    EXPECT_FALSE(folder.Has("tower.aijR2Result.csv"));
}

// Results are asked for only when all of the geometry has been.
TEST_F(ModelRules, AskForTheGeometryFirst) {
    Told();
    bool hasAskedForResults = false;
    for (const std::string& call : host.calls) {
        const bool isResult =
            call.starts_with("GetNodeDisplacements") || call.starts_with("GetMemberEndForces");
        hasAskedForResults = hasAskedForResults || isResult;
        const bool isGeometry =
            call.starts_with("GetNodeCoordinates") || call.starts_with("GetMemberRotationAngle");
        EXPECT_FALSE(isGeometry && hasAskedForResults) << call;
    }
    EXPECT_TRUE(hasAskedForResults);
}

TEST_F(ModelRules, AskForNoResultsWhereThereAreNone) {
    host.resultsAvailable = false;
    EXPECT_THAT(Told(), ElementsAre(StartsWith("error M03 ")));
    EXPECT_THAT(host.calls, Not(Contains(StartsWith("GetMemberEndForces"))));
}

TEST_F(ModelRules, M01NamesTheCaseThatIsNotThereAtItsValue) {
    EXPECT_THAT(Told("EarthquakeLoadCaseNumber,2,7,\n"),
                Contains("error M01 3:28: load case 7 is not in the model; it has 1, 2, 3, 101"));
}

TEST_F(ModelRules, M02SaysThatAnEarthquakeCaseIsACombination) {
    EXPECT_THAT(Told("EarthquakeLoadCaseNumber,2,101,\n"),
                Contains(StartsWith("warning M02 3:28: case 101 is a combination")));
    // The dead load may be one.
    EXPECT_THAT(Told("DeadLoadCaseNumber,101,\n"), Not(Contains(HasSubstr("M02"))));
}

TEST_F(ModelRules, M04NamesTheNodesNextToALevelWithoutOne) {
    EXPECT_THAT(Told("FloorLevel,0,3500,7000.2,\n"),
                Contains("error M04 3:19: no node lies at 7000.2 mm; the nearest: 7000"));
    EXPECT_THAT(Told("FloorLevel,0,3400,7000,\n"),
                Contains("error M04 3:14: no node lies at 3400 mm; the nearest: 0, 3500"));
    EXPECT_THAT(Told("FloorLevel,0,3500,7000.09,\n"), Not(Contains(HasSubstr("M04"))));
}

TEST_F(ModelRules, M05NamesBeamsThatAreOnNoLevel) {
    EXPECT_THAT(Told("FloorLevel,0,7000,\n"),
                Contains(StartsWith("warning M05 beams at 3500 mm are on no level")));
    EXPECT_THAT(Told("FloorLevel,3500,7000,\n"),
                Contains("warning M05 the base, 0 mm, is on no level of FloorLevel"));
    // The level that a forgotten comma drops was meant.
    EXPECT_THAT(Told("FloorLevel,0,3500,7000\n"), Not(Contains(HasSubstr("M05"))));
}

TEST_F(ModelRules, M05LeavesTwoBeamsAlone) {
    host.Node(91, 0, 5.0, 0).Node(92, 6, 5.0, 0).Node(93, 6, 5.0, 5);
    host.Member(901, 91, 92).Member(902, 92, 93);
    EXPECT_THAT(Told("FloorLevel,0,3500,7000,\n"), Not(Contains(HasSubstr("M05"))));
    host.Member(903, 93, 91);
    EXPECT_THAT(Told("FloorLevel,0,3500,7000,\n"), Contains(HasSubstr("M05 beams at 5000")));
}

// Four beams at 3500 and four, around the whole plan, 99 mm above: one floor, two levels.
TEST_F(ModelRules, M06NamesTwoLevelsOfOneFloor) {
    host.Node(91, 0, 3.599, 0).Node(92, 6, 3.599, 0).Node(93, 6, 3.599, 5).Node(94, 0, 3.599, 5);
    host.Member(901, 91, 92).Member(902, 92, 93).Member(903, 93, 94).Member(904, 94, 91);
    const LintReport report = Lint("");
    ASSERT_TRUE(HasFinding(report.findings, "M06"));
    EXPECT_THAT(Told(),
                Contains("error M06 derived levels 3500, 3599: beams of one floor differ by "
                         "99 mm"));
    EXPECT_EQ("FloorLevel,0,3500,7000,", FindFinding(report.findings, "M06").write);
}

// One beam of a stair at 1700 mm.
TEST_F(ModelRules, M07NamesALandingAndTheLevelsWithoutIt) {
    host.Node(91, 0, 1.7, 0).Node(92, 6, 1.7, 0).Member(901, 91, 92);
    EXPECT_THAT(Told(), Contains("warning M07 1700 mm looks like a landing"));
}

// Three beams, but on a tenth of the plan less a little: 1.7 m by 1.7 m of 30 m2.
TEST_F(ModelRules, M07NamesAFloorOfLessThanATenthOfThePlan) {
    host.Node(91, 0, 10.5, 0).Node(92, 1.7, 10.5, 0).Node(93, 1.7, 10.5, 1.7);
    host.Member(901, 91, 92).Member(902, 92, 93).Member(903, 93, 91);
    EXPECT_THAT(Told(), Contains(StartsWith("warning M07 10500 mm")));
}

TEST_F(ModelRules, M07LeavesASmallFloorAlone) {
    host.Node(91, 0, 10.5, 0).Node(92, 1.8, 10.5, 0).Node(93, 1.8, 10.5, 1.7);
    host.Member(901, 91, 92).Member(902, 92, 93).Member(903, 93, 91);
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("M07"))));
}

TEST(FirstNode, WithoutASupportMakesTheBaseAndIsNamed) {
    FakeHost host;
    host.Node(77, 0, -1.2, 0);
    BuildTwoStories(host);
    const TestFolder folder;
    const LintReport report = LintAgainst(folder.Write("input.csv", kLoadCaseLines + "FIN\n"),
                                          {host, "tower.qhm", ""}, WantsSuggestion::kNo);
    ASSERT_TRUE(HasFinding(report.findings, "M08"));
    EXPECT_THAT(
        MessageOf(FindFinding(report.findings, "M08"), report.check.text, Language::kEnglish),
        HasSubstr("the base is -1200 mm because node 77"));
}

TEST_F(ModelRules, M08NamesALowestLevelThatIsNotTheLowestSupport) {
    host.Node(91, 0, -1.5, 0);
    EXPECT_THAT(
        Told("FloorLevel,-1500,0,3500,7000,\n"),
        Contains("warning M08 the lowest level, -1500 mm, is not the lowest support, 0 mm"));
    EXPECT_THAT(Told("FloorLevel,0,3500,7000,\n"), Not(Contains(HasSubstr("M08"))));
}

// The third level has nodes and beams, and no column reaches it.
TEST_F(ModelRules, M09NamesAStoryWithoutMembers) {
    host.Node(91, 0, 10.5, 0).Node(92, 6, 10.5, 0).Node(93, 6, 10.5, 5);
    host.Member(901, 91, 92).Member(902, 92, 93).Member(903, 93, 91);
    EXPECT_THAT(Told(), Contains("error M09 story 3 (7000 to 10500 mm) has no members"));
}

// A column from 0 to 7000 is cut in both stories and runs between the floors of neither.
TEST_F(ModelRules, M10AndM11NameAColumnThroughTwoStoriesAndItsShare) {
    host.Member(900, 1, 21).Force(2, 900, 0, 0, 50.0, 0).Force(1, 900, 0, 10, 0, 0);
    EXPECT_THAT(Told(),
                testing::IsSupersetOf(
                    {"warning M10 1 of 5 members that story 1 cuts are not counted: 900 "
                     "(two stories high: 900)",
                     // 50 of 50 + 50 + 51 + 52 + 53 = 256 kN
                     "warning M11 the members of story 1 that are not counted carry 19.53 % "
                     "of its shear in X"}));
}

TEST_F(ModelRules, M10IsAnErrorWhenMoreThanHalfOfTheCutMembersAreNotCounted) {
    EXPECT_THAT(Told("FloorLevel,0,7000,\nStoryMember,\n1,201,\n"),
                Contains(StartsWith("error M10 4 of 4 members that story 1 cuts")));
}

TEST_F(ModelRules, M12NamesMembersThatAreNotThere) {
    EXPECT_THAT(Told("StoryMember,\n1,101,102,103,104,999,\n2,201,202,203,204,\n"),
                ElementsAre(StartsWith("error M12 4:19: member 999 is not in the model; the run")));
    EXPECT_THAT(Told("MemberDeformAngle,101,999,\n"),
                ElementsAre("warning M12 3:23: member 999 is not in the model; it is passed over"));
}

// Readers that never find FIN take the last line a hundred thousand times.
TEST_F(ModelRules, LookOnceAtTheLastLineOfAFileWithoutFin) {
    const LintReport report =
        LintAgainst(folder.Write("input.csv", kLoadCaseLines + "StoryMember,\n1,999,"),
                    {host, "tower.qhm", ""}, WantsSuggestion::kNo);
    EXPECT_TRUE(HasFinding(report.findings, "F02"));
    ASSERT_TRUE(HasFinding(report.findings, "M12"));
    EXPECT_EQ(0u, FindFinding(report.findings, "M12").furtherCount);
}

TEST_F(ModelRules, M13NamesAMemberOfAnotherStoryOfTheSameHeight) {
    EXPECT_THAT(Told("StoryMember,\n1,101,102,103,104,201,\n2,202,203,204,\n"),
                Contains("error M13 4:19: member 201 lies between 3500 and 7000 mm, story 1 "
                         "between 0 and 3500"));
}

// A column twice as high as the story: angle 4 times, stiffness a quarter.
TEST_F(ModelRules, M14NamesAMemberOfAnotherHeightAndItsFactors) {
    host.Member(900, 1, 21).Force(2, 900, 0, 0, 50.0, 0);
    EXPECT_THAT(Told("StoryMember,\n1,101,102,103,104,900,\n2,201,202,203,204,\n"),
                Contains(HasSubstr("is multiplied by 2: angle 4 times, stiffness 1/4")));
}

TEST_F(ModelRules, S09IsANoteOfAMemberThatSpansItsStoriesAndAnErrorOfAnother) {
    host.Member(900, 1, 21).Force(2, 900, 0, 0, 50.0, 0);
    EXPECT_THAT(Told("StoryMember,\n1,101,102,103,104,900,\n2,201,202,203,204,900,\n"),
                Contains(StartsWith("note S09 5:19: member 900")));
    const auto told = Told("StoryMember,\n1,101,102,103,104,\n2,201,202,203,204,101,\n");
    EXPECT_THAT(told, Contains(StartsWith("error S09 5:19: member 101 stands in several stories "
                                          "and does not span them")));
    EXPECT_THAT(told, Not(Contains(HasSubstr("M13"))));
}

TEST_F(ModelRules, M15NamesABeamInABlock) {
    EXPECT_THAT(Told("StoryMember,\n1,101,102,103,104,111,\n2,201,202,203,204,\n"),
                Contains(StartsWith("error M15 4:19: member 111 is horizontal")));
}

TEST_F(ModelRules, M16NamesColumnsThatTheBlockForgets) {
    EXPECT_THAT(Told("StoryMember,\n1,101,102,104,\n2,201,202,203,204,\n"),
                Contains("warning M16 4:1: 1 upright members of story 1 are not named: 103"));
    EXPECT_THAT(Told(kMembers), Not(Contains(HasSubstr("M16"))));
}

TEST_F(ModelRules, M17NamesAMemberToReportThatIsInNoStory) {
    EXPECT_THAT(Told("MemberDeformAngle,101,111,\n"),
                ElementsAre("warning M17 3:23: member 111 is in no story: no rows"));
}

TEST_F(ModelRules, M18NamesTheMemberAtWhichTheAxesEnd) {
    host.Member(900, 1, 999);
    EXPECT_THAT(Told(), Contains(StartsWith("error M18 member 900 has an end node")));
}

TEST_F(ModelRules, M18NamesAMemberWithoutLength) {
    host.Node(91, 0, 0, 0).Member(900, 1, 91);
    EXPECT_THAT(Told(), Contains(StartsWith("error M18 member 900 has no length")));
}

TEST_F(ModelRules, M19NamesNumbersThatStandTwice) {
    host.Node(1, 0, 0, 0, true).Member(101, 1, 11);
    EXPECT_THAT(Told(), testing::IsSupersetOf(
                            {"warning M19 node numbers that stand twice, the first counts: 1",
                             "warning M19 member numbers that stand twice, the first counts, for "
                             "axes the last: 101"}));
}

// With Y vertical the axes of every member are at right angles.
TEST_F(ModelRules, M20IsSilentWithYVertical) {
    host.Member(900, 1, 13);
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("M20"))));
}

namespace {

// The same building with Z vertical: x stays, the second plan axis is y.
void BuildZUp(FakeHost& host, double braceX, double braceY) {
    host.zUp = true;
    host.primaryLoadCases = {1, 2, 3};
    const double x[] = {0, 6, 6, 0};
    const double y[] = {0, 0, 5, 5};
    for (std::int32_t i = 0; i < 4; ++i)
        host.Node(i + 1, x[i], y[i], 0, true).Node(i + 11, x[i], y[i], 3.5);
    for (std::int32_t i = 0; i < 4; ++i)
        host.Member(101 + i, i + 1, i + 11).Member(111 + i, i + 11, (i + 1) % 4 + 11);
    host.Node(91, braceX, braceY, 3.5).Member(901, 1, 91);
}

std::vector<std::string> IdsOf(FakeHost& host) {
    const TestFolder folder;
    host.resultsAvailable = false;
    std::vector<std::string> ids;
    for (const LintFinding& finding :
         LintAgainst(folder.Write("input.csv", kLoadCaseLines + "FIN\n"), {host, "", ""},
                     WantsSuggestion::kNo)
             .findings)
        ids.emplace_back(finding.rule->id);
    return ids;
}

}  // namespace

TEST(ObliqueAxes, AreNamedOfABraceAcrossBothPlanAxesWithZVertical) {
    FakeHost host;
    BuildZUp(host, 3, 2.5);
    EXPECT_THAT(IdsOf(host), Contains("M20"));
}

TEST(ObliqueAxes, AreNotNamedOfABraceAlongAPlanAxis) {
    FakeHost host;
    BuildZUp(host, 3, 0);
    EXPECT_THAT(IdsOf(host), Not(Contains("M20")));
}

// 3500 mm high: up to 175 mm in plan a member stands upright.
TEST_F(ModelRules, M21NamesLeaningStoryMembers) {
    host.Node(91, 0.18, 3.5, 0).Member(900, 1, 91);
    EXPECT_THAT(Told(), Contains(StartsWith("note M21 leaning members, their drift contains the "
                                            "turning of floors: 900")));
}

TEST_F(ModelRules, M21LeavesUprightMembersAlone) {
    host.Node(91, 0.17, 3.5, 0).Member(900, 1, 91);
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("M21"))));
}

// The numbers exchanged: case 3 has no X shear, case 2 no Z shear.
TEST_F(ModelRules, M22AndM24TellOfExchangedCases) {
    EXPECT_THAT(ToldOfInput("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,3,2,\nFIN\n"),
                Contains("error M24"));
    // 60 kN across in story 1, 206 kN along: 29 %.
    host.Force(2, 101, 0, 0, 50, -60);
    EXPECT_THAT(Told(),
                Contains("warning M22 2:26: case 2 acts in Z too: 29.13 % of its shear in X "
                         "(story 1)"));
    host.Force(2, 102, 0, 0, 51, -200);
    EXPECT_THAT(Told(),
                Contains(StartsWith("error M22 2:26: case 2 moves the building more in Z")));
}

// 10 kN across of 206 kN are 4.9 %.
TEST_F(ModelRules, M22LeavesALittleShearAcrossAlone) {
    host.Force(2, 101, 0, 0, 50, -10);
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("M22"))));
}

TEST_F(ModelRules, M23NamesTheCaseThatPushesToThePositiveSide) {
    host.primaryLoadCases = {1, 2, 3, 4};
    for (std::int32_t story = 1; story <= 2; ++story)
        for (std::int32_t i = 0; i < 4; ++i)
            host.Force(4, 100 * story + i + 1, 0, 0, -50.0 - i, 0);
    EXPECT_THAT(Told("EarthquakeLoadCaseNumber,4,3,\n"),
                Contains(testing::AllOf(StartsWith("warning M23 3:26: case 4 pushes to the "),
                                        HasSubstr("case 2 is the same to the positive side"))));
}

TEST_F(ModelRules, M24TellsOfADeadLoadCaseWithoutWeight) {
    EXPECT_THAT(Told("DeadLoadCaseNumber,2,\n"),
                Contains("error M24 3:20: dead load case 2 gives no vertical force"));
    for (std::int32_t i = 0; i < 4; ++i)
        host.Force(1, 101 + i, 0, -200, 0, 0);
    EXPECT_THAT(Told(), Contains("error M24 1:20: dead load case 1 gives a negative weight"));
}

// A host that knows no forces under case 3: the run would end there.
class DeafHost : public FakeHost {
public:
    std::int16_t GetMemberEndForces(std::int32_t member, std::int32_t end, std::int32_t loadCase,
                                    SixDoubles& forces) override {
        if (loadCase == 3) throw HostCallError(-1, "end forces of case 3");
        return FakeHost::GetMemberEndForces(member, end, loadCase, forces);
    }
};

TEST(MissingAnswers, AreCountedAndTheFirstIsNamed) {
    DeafHost host;
    BuildTwoStories(host);
    const TestFolder folder;
    const LintReport report = LintAgainst(folder.Write("input.csv", kLoadCaseLines + "FIN\n"),
                                          {host, "tower.qhm", "other.csv"}, WantsSuggestion::kNo);
    ASSERT_EQ(1u, report.findings.size());
    EXPECT_EQ("M25", report.findings[0].rule->id);
    // One for each of eight columns.
    EXPECT_EQ(
        "8 answers are missing in tower.qhm, which was recorded for other.csv: the run would "
        "end at end forces of case 3",
        MessageOf(report.findings[0], report.check.text, Language::kEnglish));
}

TEST_F(ModelRules, M26NamesAMemberOfNegativeStiffness) {
    host.Force(2, 101, 0, 0, -1.0, 0);
    EXPECT_THAT(Told(), Contains(StartsWith("warning M26 member 101 of story 1 has a negative")));
}

// Upper end of column 204 moves 0.05 mm beside its lower one, and carries 53 kN: 1060 kN/mm, where
// the others have 50/7 to 52/7 kN/mm.
TEST_F(ModelRules, M26NamesAMemberThatHardlyMoves) {
    host.Displace(2, 24, 0.00705, 0, 0);
    EXPECT_THAT(Told(), Contains(testing::AllOf(StartsWith("warning M26 member 204 of story 2"),
                                                HasSubstr("hardly moves in X (0.05 mm)"))));
}

// A column that ends 5 mm below the floor.
TEST_F(ModelRules, M27NamesAMemberThatEndsBesideAFloor) {
    host.Node(91, 0, 3.495, 0).Member(900, 1, 91);
    EXPECT_THAT(Told(), Contains("note M27 member 900 ends 5 mm beside the floor, so it is in no "
                                 "story"));
}

TEST_F(ModelRules, M27LeavesAMemberAloneThatEndsFarFromAFloor) {
    host.Node(91, 0, 3.489, 0).Member(900, 1, 91);
    EXPECT_THAT(Told(), Not(Contains(HasSubstr("M27"))));
}

TEST(ModelWithoutFloors, IsToldToHaveNoStories) {
    FakeHost host;
    host.primaryLoadCases = {1, 2, 3};
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Member(1, 1, 2);
    const TestFolder folder;
    const LintReport report = LintAgainst(folder.Write("input.csv", kLoadCaseLines + "FIN\n"),
                                          {host, "", ""}, WantsSuggestion::kNo);
    EXPECT_TRUE(HasFinding(report.findings, "V08"));
}
