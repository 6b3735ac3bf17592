// The figures that a run leaves can be read back; anything else is refused with its place.

#include "compare/figures_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "report/figures_json.h"
#include "tests/support/run_findings.h"
#include "tests/support/small_building.h"

using testing::HasSubstr;

namespace {

class FiguresFile : public testing::Test {
protected:
    FiguresFile() {
        FakeHost host;
        AddSmallBuilding(host);
        RunDescription run;
        run.modelPath = "tower.qhm";
        run.inputPath = "tower.csv";
        run.made = "today";
        text = FiguresJson(FindingsOf(host, kSmallBuildingInput), run);
    }

    RunRead Read() { return ReadFiguresFile(folder.Write("f.json", text)); }

    std::string Fault() {
        try {
            Read();
        } catch (const FiguresFileError& error) {
            return error.what();
        }
        return "";
    }

    void Replace(const std::string& from, const std::string& to) {
        const std::size_t at = text.find(from);
        ASSERT_NE(std::string::npos, at) << from;
        text.replace(at, from.size(), to);
    }

    TestFolder folder;
    std::string text;
};

}  // namespace

TEST_F(FiguresFile, GivesTheFiguresBack) {
    const RunRead run = Read();
    EXPECT_EQ("tower.qhm", run.modelPath);
    EXPECT_EQ("Z", run.secondDirection);
    EXPECT_EQ(CodeVerdict::kOk, run.code);
    ASSERT_EQ(1u, run.stories.size());
    const StoryRead& story = run.stories[0];
    EXPECT_EQ(3500.0, story.height);
    EXPECT_EQ(4u, story.members.size());
    EXPECT_NEAR(7.0 / 3500.0, story.directions[0].angle.value(), 1e-15);
    EXPECT_EQ(ToolVerdict::kPass, story.directions[1].angleTool);
    EXPECT_FALSE(run.remarks.empty());
}

TEST_F(FiguresFile, OfARunThatEndedBeforeItKnewCasesAndAxesIsRead) {
    text = FiguresJson({}, {});
    const RunRead run = Read();
    EXPECT_EQ("", run.verticalAxis);
    EXPECT_EQ("", run.secondDirection);
    for (const auto& number : run.loadCases)
        EXPECT_EQ(std::nullopt, number);
}

TEST_F(FiguresFile, ThatDoesNotExistIsNamed) {
    try {
        ReadFiguresFile(folder.Path("none.json"));
        FAIL();
    } catch (const FiguresFileError& error) {
        EXPECT_EQ(folder.Path("none.json") + ": this file cannot be opened", error.what());
    }
}

TEST_F(FiguresFile, OfAnotherFormatIsRefused) {
    Replace("quarnel-route2-result", "something");
    EXPECT_THAT(Fault(), HasSubstr("format: expected quarnel-route2-result"));
}

TEST_F(FiguresFile, OfALaterVersionIsRefused) {
    Replace("\"version\": 1", "\"version\": 2");
    EXPECT_THAT(Fault(), HasSubstr("version: expected version 1"));
}

TEST_F(FiguresFile, ThatLacksAKeyIsRefused) {
    Replace("\"stiffnessRatioCode\"", "\"ratioCode\"");
    EXPECT_THAT(Fault(), HasSubstr("with the key stiffnessRatioCode"));
}

TEST_F(FiguresFile, WithAnUnknownVerdictIsRefused) {
    Replace("\"code\": \"OK\"", "\"code\": \"GOOD\"");
    EXPECT_THAT(Fault(), HasSubstr("expected OK, NG or undetermined"));
}

TEST_F(FiguresFile, ThatIsCutOffIsRefusedAtAnyByte) {
    const std::string whole = text;
    for (std::size_t length = 0; length + 1 < whole.size(); length += 97) {
        text = whole.substr(0, length);
        EXPECT_NE("", Fault()) << length;
    }
}

TEST_F(FiguresFile, MayHoldKeysOfALaterProgram) {
    Replace("\"format\":", "\"later\": [{\"a\": null}], \"format\":");
    EXPECT_EQ("", Fault());
}

// The results file has PASS for the modulus 0 that stands where none was calculated.
TEST_F(FiguresFile, HasNoVerdictOfTheToolOnWhatWasNotFormed) {
    FakeHost host;
    AddSmallBuilding(host);
    text =
        FiguresJson(FindingsOf(host, "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,2,\nFIN\n"),
                    RunDescription());
    ASSERT_THAT(text, HasSubstr("\"eccentricityTool\": \"PASS\""));
    const DirectionRead direction = Read().stories.at(0).directions[0];
    EXPECT_EQ(std::nullopt, direction.modulus);
    EXPECT_EQ(std::nullopt, direction.modulusTool);
    EXPECT_EQ(ToolVerdict::kPass, direction.angleTool);
}

// Of leaning members alone there is a mean, and no worst upright one.
TEST_F(FiguresFile, KeepsTheVerdictOfTheToolOnAMeanWithoutUprightMembers) {
    text = std::regex_replace(text, std::regex("\"angle\": [0-9.e-]+"), "\"angle\": null");
    const DirectionRead direction = Read().stories.at(0).directions[0];
    EXPECT_EQ(std::nullopt, direction.angle);
    EXPECT_NEAR(7.0 / 3500.0, direction.meanAngle.value(), 1e-15);
    EXPECT_EQ(ToolVerdict::kPass, direction.angleTool);
}
