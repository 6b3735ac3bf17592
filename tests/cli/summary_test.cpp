#include "cli/summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace {

// Story 1 passes in X under case 2 and fails in Z under case 3; story 2 has no row in X.
ResultsReport TwoStories() {
    ResultsReport results;
    results.stories = 2;
    results.angles["X"][1]["2"] = {0.002, 0.005, "PASS"};
    results.angles["X"][1]["All"] = {0.777, 0.005, "FAIL"};
    results.angles["Z(or Y)"][1]["3"] = {0.0061, 0.005, "FAIL"};
    results.angles["Z(or Y)"][2]["3"] = {0.0012, 0.005, "PASS"};
    results.moduli["X"][1][""] = {0.1, 0.15, "PASS"};
    results.moduli["Z(or Y)"][1][""] = {0.2, 0.15, "FAIL"};
    results.passRows = 11;
    results.failRows = 7;
    return results;
}

LogReport EarthquakeCases() {
    LogReport log;
    log.earthquakeCaseX = 2;
    log.earthquakeCaseZ = 3;
    return log;
}

std::string Verdicts(bool useColor) {
    std::ostringstream out;
    PrintVerdicts(out, EarthquakeCases(), TwoStories(), useColor);
    return out.str();
}

}  // namespace

TEST(Summary, HasATablePerCheck) {
    const std::string text = Verdicts(false);
    for (const char* title :
         {"\nStory deformation angle (", "\nStory stiffness ratio (", "\nEccentricity modulus ("})
        EXPECT_THAT(text, HasSubstr(title));
}

TEST(Summary, HasARowPerStoryWithValueAllowableAndVerdictOfBothDirections) {
    const std::string text = Verdicts(false);
    EXPECT_THAT(text, ContainsRegex("\n1 +0.002 +0.005 +PASS +0.0061 +0.005 +FAIL"));
    EXPECT_THAT(text, ContainsRegex("\n2 +no such row in the results +0.0012 +0.005 +PASS"));
    EXPECT_THAT(text, ContainsRegex("\n1 +0.1 +0.15 +PASS +0.2 +0.15 +FAIL"));
}

TEST(Summary, ShowsTheLoadCaseOfEachDirectionNotAllLoads) {
    const std::string text = Verdicts(false);
    EXPECT_THAT(text, ContainsRegex("X, load case 2 +Z.or Y., load case 3"));
    EXPECT_THAT(text, Not(HasSubstr("0.777")));
}

TEST(Summary, CountsAllVerdictsOfTheFile) {
    EXPECT_THAT(Verdicts(false), HasSubstr(": 11 PASS, 7 FAIL\n"));
}

TEST(Summary, ColoursPassAndFailOnlyWhenAsked) {
    EXPECT_THAT(Verdicts(false), Not(HasSubstr("\x1b")));
    EXPECT_THAT(Verdicts(true), HasSubstr("\x1b[32mPASS"));
    EXPECT_THAT(Verdicts(true), HasSubstr("\x1b[31mFAIL"));
}

TEST(Summary, WithoutStoriesHasTablesWithoutRows) {
    std::ostringstream out;
    PrintVerdicts(out, LogReport(), ResultsReport(), false);
    EXPECT_THAT(out.str(), HasSubstr("0 PASS, 0 FAIL"));
    EXPECT_THAT(out.str(), Not(HasSubstr("no such row")));
}

TEST(Summary, ListsTheWarningsOfTheLog) {
    LogReport log;
    log.warnings = {"The first.", "The second."};
    std::ostringstream out;
    PrintWarnings(out, log);
    EXPECT_EQ("\nWarnings in the log:\n  The first.\n  The second.\n", out.str());
}

TEST(Summary, WithoutWarningsSaysNothing) {
    std::ostringstream out;
    PrintWarnings(out, LogReport());
    EXPECT_EQ("", out.str());
}
