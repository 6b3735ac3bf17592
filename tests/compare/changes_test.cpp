#include "compare/changes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compare/change_text.h"

using testing::HasSubstr;
using testing::Not;

namespace {

// One story of 3.5 m, Y as the second direction, all in order.
RunRead GoodRun() {
    RunRead run;
    run.path = "a.json";
    run.modelPath = "tower.qhm";
    run.inputPath = "tower.csv";
    run.made = "today";
    run.verticalAxis = "Z";
    run.hostUnits = "m,kN";
    run.nodes = 8;
    run.members = 5;
    run.complete = true;
    run.loadCases = {1, 2, 3};
    run.secondDirection = "Y";
    run.code = CodeVerdict::kOk;
    run.tool = ToolVerdict::kPass;
    StoryRead story;
    story.number = 1;
    story.upperLevel = 3500;
    story.height = 3500;
    story.storyMembers = 4;
    story.weight = 400.0;
    story.gravityCenter = {3000.0, 2000.0};
    story.rigidityCenter = {3000.0, 2000.0};
    story.allowableAngle = 0.005;
    story.allowableRatio = 0.6;
    story.allowableModulus = 0.15;
    for (DirectionRead& direction : story.directions) {
        direction.worstMember = 1;
        direction.worstDrift = 7.0;
        direction.angle = 7.0 / 3500.0;
        direction.angleLimit = 0.005;
        direction.angleCode = CodeVerdict::kOk;
        direction.angleTool = ToolVerdict::kPass;
        direction.ratio = 1.0;
        direction.ratioCode = CodeVerdict::kOk;
        direction.ratioTool = ToolVerdict::kPass;
        direction.modulus = 0.1;
        direction.modulusCode = CodeVerdict::kOk;
        direction.modulusTool = ToolVerdict::kPass;
    }
    run.stories = {story};
    return run;
}

std::string OnlyChanges(const RunRead& a, const RunRead& b, double tolerance = 0.001) {
    const Comparison comparison = CompareRuns(a, b, tolerance);
    const std::string text = ChangeText(a, b, comparison, true);
    return text.substr(text.find("\n\n") == std::string::npos ? text.size() : text.find("\n\n"));
}

}  // namespace

TEST(Changes, BetweenTheSameRunsAreNone) {
    EXPECT_EQ("", OnlyChanges(GoodRun(), GoodRun()));
    EXPECT_FALSE(CompareRuns(GoodRun(), GoodRun(), 0.001).AnyVerdictChanged());
}

TEST(Changes, ShowWhatIsTheSameUnlessOnlyChangesAreWanted) {
    const RunRead run = GoodRun();
    const std::string text = ChangeText(run, run, CompareRuns(run, run, 0.001), false);
    EXPECT_THAT(text, HasSubstr("\nChecks\n"));
    EXPECT_THAT(text, HasSubstr("\n  story 1, Y: eccentricity 0.100 OK =\n"));
}

TEST(Changes, SayWhatARunThatEndedEarlyDidNotKnow) {
    RunRead b = GoodRun();
    b.verticalAxis.clear();
    b.secondDirection.clear();
    b.loadCases = {};
    const std::string text = OnlyChanges(GoodRun(), b);
    EXPECT_THAT(text, HasSubstr("  dead load case 1 -> not known\n"));
    EXPECT_THAT(text, HasSubstr("  earthquake load case, Y 3 -> not known\n"));
    EXPECT_THAT(text, HasSubstr("  vertical axis Z -> not known\n"));
}

// R moves from x = 5610 to 3000 mm: the eccentricity in Y is what it is about.
TEST(Changes, SayWhichCentreMoved) {
    RunRead a = GoodRun();
    a.code = CodeVerdict::kNg;
    a.tool = ToolVerdict::kFail;
    DirectionRead& direction = a.stories[0].directions[1];
    direction.modulus = 0.535;
    direction.modulusCode = CodeVerdict::kNg;
    direction.modulusTool = ToolVerdict::kFail;
    a.stories[0].rigidityCenter = {5610.0, 2000.0};
    RunRead b = GoodRun();
    b.stories[0].directions[1].modulus = 0.142;
    EXPECT_EQ(
        "\n\nChecks\n  verdict by the code NG -> OK\n  verdict by the tool FAIL -> PASS\n"
        "  story 1, Y: eccentricity 0.535 NG -> 0.142 OK (R moved 2610 mm in x)\n",
        OnlyChanges(a, b));
    EXPECT_TRUE(CompareRuns(a, b, 0.001).AnyVerdictChanged());
}

// 0.1 % of 1.001 is more than the 0.001 between them.
TEST(Changes, WithinTheToleranceAreNone) {
    RunRead b = GoodRun();
    b.stories[0].directions[0].ratio = 1.001;
    EXPECT_EQ("", OnlyChanges(GoodRun(), b, 0.001));
    EXPECT_THAT(OnlyChanges(GoodRun(), b, 0.0005),
                HasSubstr("  story 1, X: stiffness ratio 1.000 OK -> 1.001 OK\n"));
}

TEST(Changes, OfAVerdictCountHoweverSmallTheFigureMoved) {
    RunRead b = GoodRun();
    b.stories[0].directions[0].angleTool = ToolVerdict::kFail;
    EXPECT_THAT(OnlyChanges(GoodRun(), b),
                HasSubstr("  story 1, X: angle 1/500 OK -> 1/500 OK (tool FAIL)\n"));
    EXPECT_TRUE(CompareRuns(GoodRun(), b, 0.001).AnyVerdictChanged());
}

TEST(Changes, OfFiguresAloneAreNoChangeOfAVerdict) {
    RunRead b = GoodRun();
    b.stories[0].directions[0].ratio = 0.9;
    EXPECT_FALSE(CompareRuns(GoodRun(), b, 0.001).AnyVerdictChanged());
}

TEST(Changes, OfAFigureThatIsNoLongerFormedAreShown) {
    RunRead b = GoodRun();
    b.stories[0].directions[0].modulus.reset();
    b.stories[0].directions[0].modulusCode = CodeVerdict::kUndetermined;
    b.stories[0].directions[0].modulusTool.reset();
    EXPECT_THAT(OnlyChanges(GoodRun(), b),
                HasSubstr("eccentricity 0.100 OK -> n/a undetermined\n"));
}

TEST(Changes, OfFilesGoByTheirBytes) {
    RunRead a = GoodRun(), b = GoodRun();
    a.inputSha256 = "11";
    b.inputSha256 = "22";
    EXPECT_THAT(OnlyChanges(a, b), HasSubstr("  input file tower.csv -> tower.csv (other bytes)"));
    b.inputSha256 = "11";
    b.inputPath = "copy.csv";
    EXPECT_EQ("", OnlyChanges(a, b));
}

TEST(Changes, OfInputAndModelAreInTheirSections) {
    RunRead b = GoodRun();
    b.loadCases[1] = 4;
    b.stories[0].allowableAngle = 1.0 / 120.0;
    b.nodes = 9;
    const std::string text = OnlyChanges(GoodRun(), b);
    EXPECT_THAT(text, HasSubstr("\nInput\n  earthquake load case, X 2 -> 4\n"
                                "  story 1: allowable angle 1/200 -> 1/120\n"));
    EXPECT_THAT(text, HasSubstr("\nModel\n  nodes 8 -> 9\n"));
}

TEST(Changes, NameStoriesThatWereAddedOrRemoved) {
    RunRead b = GoodRun();
    StoryRead upper = b.stories[0];
    upper.number = 2;
    upper.lowerLevel = 3500;
    upper.upperLevel = 7000;
    b.stories.push_back(upper);
    EXPECT_THAT(OnlyChanges(GoodRun(), b), HasSubstr("  story 2 added new: 3500 to 7000 mm\n"));
    EXPECT_THAT(OnlyChanges(b, GoodRun()), HasSubstr("  story 2 removed gone: 3500 to 7000 mm\n"));
    EXPECT_TRUE(CompareRuns(GoodRun(), b, 0.001).AnyVerdictChanged());
}

TEST(Changes, NameRemarksThatCameOrWent) {
    RunRead a = GoodRun(), b = GoodRun();
    a.remarks = {{"R06", "warning", {1}, "Not counted: 4.", ""},
                 {"R27", "note", {}, "Plates.", ""}};
    b.remarks = {{"R27", "note", {}, "Plates.", ""}, {"R15", "warning", {1}, "Pushes.", ""}};
    EXPECT_EQ(
        "\n\nRemarks\n  remark R06 gone: warning: Not counted: 4.\n"
        "  remark R15 new: warning: Pushes.\n",
        OnlyChanges(a, b));
}

TEST(Changes, TextIsOneLineEachWhateverTheFilesHold) {
    RunRead b = GoodRun();
    b.inputPath = "a\nb.csv";
    EXPECT_THAT(OnlyChanges(GoodRun(), b), HasSubstr("tower.csv -> a\\nb.csv\n"));
}
