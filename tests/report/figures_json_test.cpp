#include "report/figures_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

using testing::ElementsAre;
using testing::StartsWith;

namespace {

using Json = nlohmann::ordered_json;

const RunDescription kRun{
    "1.1", "2026-11-21T20:24:05+09:00", "tower.qhm", std::string("ab"), "tower.csv", std::nullopt,
    true};

// One story of which nothing was formed, with one member.
Findings OneStory() {
    Findings findings;
    StoryFindings& story = findings.stories.emplace_back();
    story.number = 1;
    story.height = 3500.0;
    story.members.emplace_back().number = 7;
    return findings;
}

Json Parsed(const Findings& findings) {
    return Json::parse(FiguresJson(findings, kRun));
}

std::vector<std::string> KeysOf(const Json& object) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items())
        keys.push_back(key);
    return keys;
}

TEST(FiguresJson, HasItsKeysInOrder) {
    EXPECT_THAT(KeysOf(Parsed({})),
                ElementsAre("format", "version", "tool", "made", "model", "input", "source", "run",
                            "loadCases", "verdict", "stories", "remarks"));
    const Json story = Parsed(OneStory())["stories"][0];
    EXPECT_THAT(KeysOf(story),
                ElementsAre("number", "lowerLevel_mm", "upperLevel_mm", "height_mm", "storyMembers",
                            "leaning", "cutNotCounted", "weightAbove_kN", "gravityCenter_mm",
                            "rigidityCenter_mm", "torsionalStiffness_kNmm", "allowable", "x",
                            "second", "members"));
    EXPECT_THAT(
        KeysOf(story["x"]),
        ElementsAre("storyShear_kN", "shearOfStoryMembers_kN", "acrossShear_kN", "meanDrift_mm",
                    "meanAngle", "worstUpright", "toolMax", "toolMeanVerdict", "rs", "rsMean",
                    "stiffnessRatio", "stiffnessRatioUpright", "stiffnessRatioTranslational",
                    "stiffnessRatioCode", "stiffnessRatioTool", "stiffness_kNpmm",
                    "eccentricity_mm", "elasticRadius_mm", "eccentricityModulus",
                    "eccentricityCode", "eccentricityTool"));
    EXPECT_THAT(KeysOf(story["members"][0]),
                ElementsAre("number", "upright", "x_mm", "v_mm", "axialForce_kN", "shear_kN",
                            "drift_mm", "stiffness_kNpmm"));
}

TEST(FiguresJson, HasNullForWhatWasNotFormedOrIsNotFinite) {
    Findings findings = OneStory();
    findings.stories[0].upperLevel = std::numeric_limits<double>::quiet_NaN();
    const Json story = Parsed(findings)["stories"][0];
    EXPECT_TRUE(story["upperLevel_mm"].is_null());
    EXPECT_EQ(Json::parse("[null,null]"), story["gravityCenter_mm"]);
    EXPECT_TRUE(story["x"]["meanDrift_mm"].is_null());
    EXPECT_EQ(Json::parse(R"({"member":null,"drift_mm":null,"leaning":null,"verdict":null})"),
              story["x"]["toolMax"]);
    EXPECT_EQ("undetermined", story["x"]["worstUpright"]["code"]);
}

TEST(FiguresJson, WritesNumbersThatReadBackToTheSameDouble) {
    for (const double value : {0.1, 1.0 / 3.0, 5e-324, 1.7976931348623157e308, -0.0, 3500.0}) {
        Findings findings = OneStory();
        findings.stories[0].directions[kX].rs = value;
        const double read = Parsed(findings)["stories"][0]["x"]["rs"].get<double>();
        EXPECT_EQ(value, read);
    }
}

TEST(FiguresJson, SaysWhereTheRunCameFromAndHowItEnded) {
    Findings findings;
    findings.end.failure = "the host holds no analysis results";
    const Json json = Parsed(findings);
    EXPECT_EQ("tower.qhm", json["model"]["path"]);
    EXPECT_EQ("ab", json["model"]["sha256"]);
    EXPECT_TRUE(json["input"]["sha256"].is_null());
    EXPECT_EQ("recording", json["source"]);
    EXPECT_EQ(false, json["run"]["complete"]);
    EXPECT_EQ("the host holds no analysis results", json["run"]["failure"]);
    EXPECT_EQ("2026-11-21T20:24:05+09:00", json["made"]);
    EXPECT_TRUE(json["verdict"]["tool"].is_null());
}

TEST(FiguresJson, NamesTheAxes) {
    Findings findings;
    findings.axisKnown = true;
    EXPECT_EQ("Z", Parsed(findings)["loadCases"]["secondDirection"]);
    EXPECT_EQ("Y", Parsed(findings)["model"]["verticalAxis"]);
    EXPECT_EQ("m,kN", Parsed(findings)["model"]["hostUnits"]);
    findings.zIsVertical = findings.inchUnits = true;
    EXPECT_EQ("Y", Parsed(findings)["loadCases"]["secondDirection"]);
    EXPECT_EQ("inch,kip", Parsed(findings)["model"]["hostUnits"]);
}

TEST(FiguresJson, LeavesOpenWhatARunDidNotComeToAskOrRead) {
    const Json json = Parsed({});
    EXPECT_TRUE(json["model"]["verticalAxis"].is_null());
    for (const char* key : {"dead", "x", "second", "secondDirection"})
        EXPECT_TRUE(json["loadCases"].contains(key) && json["loadCases"][key].is_null()) << key;
}

// 1 is what a run takes for each case that has no line.
TEST(FiguresJson, NamesTheCasesThatARunTookWhereTheInputFileNamesNone) {
    Findings findings;
    findings.loadCases.inputRead = true;
    EXPECT_EQ(1, Parsed(findings)["loadCases"]["dead"]);
    EXPECT_EQ(1, Parsed(findings)["loadCases"]["second"]);
}

TEST(FiguresJson, ReplacesBytesThatAreNotUtf8) {
    RunDescription run = kRun;
    run.inputPath = "a\xFFz.csv";
    EXPECT_EQ("a\uFFFDz.csv", Json::parse(FiguresJson({}, run))["input"]["path"]);
}

}  // namespace
