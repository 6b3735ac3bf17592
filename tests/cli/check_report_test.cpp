// What check prints of the findings. One story of 3.5 m on four columns (small_building.h).

#include "cli/check_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/run_findings.h"
#include "tests/support/small_building.h"

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace {

class CheckReportText : public testing::Test {
protected:
    CheckReportText() { AddSmallBuilding(host); }

    std::string Text(const std::string& input = kSmallBuildingInput, bool useColor = false) {
        const Findings findings = FindingsOf(host, input);
        std::ostringstream out;
        PrintFindings(out, {findings, {}}, Detail::kUsual, useColor);
        return out.str();
    }

    FakeHost host;
};

constexpr const char* kEqualCases = "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,2,\nFIN\n";

}  // namespace

TEST_F(CheckReportText, SaysWhatTheStoriesAre) {
    EXPECT_THAT(Text(), HasSubstr("\nStories: 1; levels 0, 3500 mm (model); members per story 4 "
                                  "(model); cut and not counted 0; share of the story shear X "
                                  "100.0 %, Z 100.0 %\n"));
}

// Columns 1 to 3 are named; column 4 carries a quarter of 56 kN and is not counted.
TEST_F(CheckReportText, SaysWhatIsCutAndNotCounted) {
    const std::string text =
        Text("DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nStoryMember,\n1,1,2,3,\nFIN\n");
    EXPECT_THAT(text, HasSubstr("members per story 3 (input file); cut and not counted 1; share of "
                                "the story shear X 75.0 %, Z 75.0 %\n"));
    EXPECT_THAT(text, HasSubstr("\n  warning R06: "));
}

TEST_F(CheckReportText, ShowsANegativeAngleAsSuch) {
    for (const std::int32_t node : {11, 12, 13, 14})
        host.Displace(2, node, -0.007, 0, 0);
    EXPECT_THAT(Text(), ContainsRegex("    1 +1/500 \\(negative\\) +1/200 +PASS +1/500 "
                                      "\\(negative\\) +1 +1/200 +OK\n"));
}

// The results file prints PASS for the modulus 0 that was never calculated.
TEST_F(CheckReportText, ShowsNoPassWhereNothingWasCalculated) {
    const std::string text = Text(kEqualCases);
    const std::string moduli = text.substr(text.find("Eccentricity modulus"));
    EXPECT_THAT(moduli.substr(0, moduli.find("Earthquake rows")), Not(HasSubstr("PASS")));
    EXPECT_THAT(moduli, ContainsRegex("    1 .*n/a \\(both directions have the same case\\) +0.15 "
                                      "+n/a +undetermined\n"));
    // Case 2 moves nothing in Z: there is no ratio either.
    EXPECT_THAT(text, HasSubstr("\nEarthquake rows: 3 verdicts, 3 PASS, 0 FAIL, 3 n/a; by the "
                                "code: 3 OK, 0 NG, 3 undetermined\n"));
    EXPECT_THAT(text, HasSubstr("\nVerdict: undetermined by the code, FAIL by the tool\n"));
    EXPECT_THAT(text, HasSubstr("\n  error R01: "));
}

TEST_F(CheckReportText, OfARunThatEndedEarlyHasNoTables) {
    host.resultsAvailable = false;
    const std::string text = Text();
    EXPECT_THAT(text, Not(HasSubstr("Story deformation angle")));
    EXPECT_THAT(text, HasSubstr("\nVerdict: undetermined by the code, none by the tool (the run "
                                "ended early)\n"));
}

TEST_F(CheckReportText, ColoursVerdictsOnlyWhenAsked) {
    EXPECT_THAT(Text(), Not(HasSubstr("\x1b")));
    const std::string text = Text(kSmallBuildingInput, true);
    EXPECT_THAT(text, HasSubstr("\x1b[32mPASS\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("\x1b[32mOK\x1b[0m"));
}

TEST_F(CheckReportText, ShowsAWarningOfTheLogInPlainWordsWithItsOwnInBrackets) {
    // A second story without members: the level exists in the input file only.
    const std::string text = Text(
        "DeadLoadCaseNumber,1,\nEarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,3500,7000,\nFIN\n");
    EXPECT_THAT(text, HasSubstr("\n  error R03: "));
    EXPECT_THAT(text, ContainsRegex("\n    2 +n/a \\(no story members\\)"));
    EXPECT_THAT(text, ContainsRegex("R24: .*\\[.*\\]"));
}
