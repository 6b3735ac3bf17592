// The three forms of the report.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "lint/display_width.h"
#include "lint/github_report.h"
#include "lint/json_report.h"
#include "lint/lint.h"
#include "lint/text_report.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/test_folder.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

LintReport ReportOn(const std::string& text) {
    const TestFolder folder;
    LintReport report = LintFile(folder.Write("tower.csv", text), WantsSuggestion::kNo);
    report.inputPath = "tower.csv";
    return report;
}

std::string TextOn(const std::string& text, Language language = Language::kEnglish) {
    return TextReport(ReportOn(text), language);
}

nlohmann::json JsonOn(const std::string& text) {
    return nlohmann::json::parse(JsonReport(ReportOn(text), Language::kEnglish));
}

}  // namespace

TEST(TextReport, ShowsTheLineAMarkBelowItAndWhatToWrite) {
    EXPECT_THAT(TextOn(std::string(kLoadCaseLines) + "FloorLevel,0,4500,8100,11700\nFIN\n"),
                StartsWith("tower.csv:3:24: error V01: FloorLevel has no comma at its end, so its "
                           "last level, 11700, is not read; the top story would be missing.\n"
                           "    FloorLevel,0,4500,8100,11700\n"
                           "                           ^~~~~\n"
                           "  write: FloorLevel,0,4500,8100,11700,\n"));
}

TEST(TextReport, EndsWithWhatARunReadsAndTheNumberOfFindings) {
    const std::string text =
        TextOn(std::string(kLoadCaseLines) + "FloorLevel,0,4500,8100,11700\nFIN\n");
    EXPECT_THAT(text,
                AllOf(HasSubstr("\nAs read\n"), HasSubstr("0, 4500, 8100"), HasSubstr("1/200"),
                      HasSubstr("line 3\n"), testing::EndsWith("1 error, 0 warnings, 0 notes\n")));
}

// Each of the characters before the mark takes two cells.
TEST(TextReport, PutsTheMarkBelowWideCharacters) {
    EXPECT_THAT(TextOn(std::string(kLoadCaseLines) + "MemberDeformAngle,部材,\nFIN\n"),
                HasSubstr("    MemberDeformAngle,部材,\n                      ^~~~\n"));
    EXPECT_THAT(TextOn(std::string(kLoadCaseLines) + "MemberDeformAngle,1,柱,C2,\nFIN\n"),
                HasSubstr("tower.csv:3:23: warning D02: `C2`"));
}

TEST(TextReport, ShowsTabsAsOneBlank) {
    EXPECT_THAT(TextOn(std::string(kLoadCaseLines) + "MemberDeformAngle,\t1,C2,\nFIN\n"),
                HasSubstr("    MemberDeformAngle, 1,C2,\n                         ^~\n"));
}

TEST(TextReport, LetsNoControlCharacterReachATerminal) {
    const std::string text =
        TextOn(std::string(kLoadCaseLines) + "MemberDeformAngle,\x1b[31mC2,\u202e,\x07,\nFIN\n");
    for (const char c : text)
        EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 0x20) << int(c);
    EXPECT_THAT(text, Not(HasSubstr("\u202e")));
}

TEST(TextReport, ShowsThePartOfALongLineThatIsMeant) {
    const std::string text = TextOn(std::string(kLoadCaseLines) + "MemberDeformAngle," +
                                    std::string(100, '1') + ",C2,\nFIN\n");
    EXPECT_THAT(text, HasSubstr("    ... C2,\n        ^~\n"));
}

TEST(TextReport, ShowsShiftJisText) {
    // "部材" in Shift_JIS; columns count bytes.
    EXPECT_THAT(
        TextOn(std::string(kLoadCaseLines) + "MemberDeformAngle,\x95\x94\x8d\xde,C2,\nFIN\n"),
        AllOf(HasSubstr("tower.csv:3:19: warning D02: `部材` is member 0"),
              HasSubstr("tower.csv:3:24: warning D02: `C2`")));
}

TEST(TextReport, IsJapaneseWhenAsked) {
    EXPECT_THAT(TextOn(kLoadCaseLines, Language::kJapanese),
                AllOf(HasSubstr("tower.csv:1:1: error F02: FIN で始まる行がない"),
                      HasSubstr("エラー 1, 警告 0, 注記 0\n")));
}

TEST(JsonReport, HasTheKeysThatOthersRelyOn) {
    const auto json = JsonOn(std::string(kLoadCaseLines) + "FloorLevel,0,4500,8100,11700\nFIN\n");
    EXPECT_EQ("tower.csv", json["file"]);
    const auto& finding = json["findings"][0];
    EXPECT_EQ("V01", finding["id"]);
    EXPECT_EQ("error", finding["kind"]);
    EXPECT_EQ(3, finding["line"]);
    EXPECT_EQ(24, finding["column"]);
    EXPECT_TRUE(finding["stories"].empty() && finding["members"].empty());
    EXPECT_EQ("FloorLevel,0,4500,8100,11700,", finding["write"]);
    const auto& asRead = json["asRead"];
    EXPECT_EQ(1, asRead["dead"]);
    EXPECT_EQ(2, asRead["x"]);
    EXPECT_EQ(3, asRead["second"]);
    EXPECT_EQ("[0,4500,8100]", asRead["floorLevels_mm"].dump());
    EXPECT_EQ("input", asRead["floorLevelsFrom"]);
    EXPECT_TRUE(asRead["storyMembers"].is_null());
    EXPECT_EQ("model", asRead["storyMembersFrom"]);
    EXPECT_EQ("[0.005,0.005]", asRead["allowAngle"].dump());
    EXPECT_EQ("[]", asRead["reportedMembers"].dump());
}

TEST(JsonReport, HasNullWhereThereIsNothing) {
    EXPECT_TRUE(JsonOn(kLoadCaseLines)["asRead"].is_null());
    EXPECT_TRUE(
        JsonOn(std::string(kLoadCaseLines) + "FIN\n")["asRead"]["floorLevels_mm"].is_null());
    const auto json = JsonOn(std::string(kLoadCaseLines) + "FloorLevel,0,inf,\nFIN\n");
    EXPECT_EQ("[0,null]", json["asRead"]["floorLevels_mm"].dump());
}

TEST(JsonReport, GivesNumbersThatReadBackTheSame) {
    const auto json = JsonOn(std::string(kLoadCaseLines) + "FloorLevel,0.1,3500.3,1e300,\nFIN\n");
    EXPECT_EQ(0.1, json["asRead"]["floorLevels_mm"][0].get<double>());
    EXPECT_EQ(3500.3, json["asRead"]["floorLevels_mm"][1].get<double>());
    EXPECT_EQ(1e300, json["asRead"]["floorLevels_mm"][2].get<double>());
}

TEST(JsonReport, OfAFileThatCannotBeReadHasNoLine) {
    const LintReport report = LintFile("no/such/file.csv", WantsSuggestion::kNo);
    const auto json = nlohmann::json::parse(JsonReport(report, Language::kEnglish));
    EXPECT_EQ("F01", json["findings"][0]["id"]);
    EXPECT_TRUE(json["findings"][0]["line"].is_null());
    EXPECT_TRUE(json["asRead"].is_null());
}

TEST(JsonReport, HoldsNoiseAsValidJson) {
    std::string noise;
    for (int byte = 0; byte < 256; ++byte)
        noise += static_cast<char>(byte);
    EXPECT_NO_THROW(JsonOn(kLoadCaseLines + ("MemberDeformAngle," + noise) + ",\nFIN\n"));
}

TEST(GithubReport, IsOneAnnotationPerFinding) {
    LintReport report = ReportOn(std::string(kLoadCaseLines) + "FloorLevel,0,3500,7000\nFIN\n");
    report.inputPath = "jobs/a,b:c.csv";
    EXPECT_EQ(
        "::error file=jobs/a%2Cb%3Ac.csv,line=3,col=19::V01: FloorLevel has no comma at its "
        "end, so its last level, 7000, is not read; the top story would be missing.%0A"
        "FloorLevel,0,3500,7000,\n",
        GithubReport(report, Language::kEnglish));
}

TEST(DisplayWidth, CountsTwoCellsForWideCharactersAndNoneForMarks) {
    EXPECT_EQ(3u, DisplayWidth("abc"));
    EXPECT_EQ(4u, DisplayWidth("部材"));
    EXPECT_EQ(1u, DisplayWidth("ｶ"));
    EXPECT_EQ(1u, DisplayWidth("e\u0301"));
    EXPECT_EQ("部", CutToWidth("部材", 3));
}
