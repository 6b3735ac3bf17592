#include "cli/run_reports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

class RunReports : public testing::Test {
protected:
    LogReport LogOf(const std::string& text) { return ReadLog(folder.Write("log.txt", text)); }
    ResultsReport ResultsOf(const std::string& text) {
        return ReadResults(folder.Write("results.csv", text));
    }

    TestFolder folder;
};

constexpr const char* kAngles =
    "\n -----  Story deformation angle  ----- \n"
    "\nDirection X\nDisp type : Average\nStory,Load,...\n"
    "1,2,0.000e+00,3.500e+03,3.500e+03,7.00000e+00,2.00000e-03,5.00000e-03,PASS\n"
    "1,All,0.000e+00,3.500e+03,3.500e+03,2.10000e+01,6.00000e-03,5.00000e-03,FAIL\n"
    "\nDirection X\nDisp type : Max\nStory,Load,...\n"
    "1,2,0.000e+00,3.500e+03,3.500e+03,8.00000e+00,9.00000e-03,5.00000e-03,FAIL\n"
    "\nDirection Z(or Y)\nDisp type : Average\nStory,Load,...\n"
    "1,3,0.000e+00,3.500e+03,3.500e+03,3.50000e+00,1.00000e-03,5.00000e-03,PASS\n";

}  // namespace

TEST_F(RunReports, TakesWarningsAndLoadCasesFromTheLog) {
    const LogReport log = LogOf(
        "ORVEK results are available.\n\n*** WARNING *** : The first.\n"
        "  Earthquake load( X direc. ) case number : 2\n"
        "  Earthquake load( Z or Y direc. ) case number : -3\n"
        "\n*** WARNING *** : The second.\n");
    EXPECT_THAT(log.warnings, ElementsAre("The first.", "The second."));
    EXPECT_THAT(log.earthquakeCaseX, Optional(2));
    EXPECT_THAT(log.earthquakeCaseZ, Optional(-3));
}

TEST_F(RunReports, ReadsLinesThatEndAsOnWindows) {
    const LogReport log = LogOf(
        "\r\n*** WARNING *** : The first.\r\n"
        "  Earthquake load( X direc. ) case number : 2\r\n");
    EXPECT_THAT(log.warnings, ElementsAre("The first."));
    EXPECT_THAT(log.earthquakeCaseX, Optional(2));
}

TEST_F(RunReports, AnEmptyOrMissingLogHasNothing) {
    EXPECT_THAT(LogOf("").warnings, IsEmpty());
    const LogReport none = ReadLog(folder.Path("gone.txt"));
    EXPECT_THAT(none.warnings, IsEmpty());
    EXPECT_EQ(std::nullopt, none.earthquakeCaseX);
}

#ifndef _WIN32

// A run that lost its report on a full disk left the device in its place, which reads without end.
TEST_F(RunReports, ADeviceInAReportsPlaceHasNothing) {
    EXPECT_THAT(ReadLog("/dev/zero").warnings, IsEmpty());
    EXPECT_EQ(0, ReadResults("/dev/zero").stories);
}

#endif

TEST_F(RunReports, TakesAnglesFromTheAverageBlocksOnly) {
    const ResultsReport results = ResultsOf(kAngles);
    const Verdict& verdict = results.angles.at("X").at(1).at("2");
    EXPECT_EQ(0.002, verdict.value);
    EXPECT_EQ(0.005, verdict.allowable);
    EXPECT_EQ("PASS", verdict.result);
    EXPECT_EQ("FAIL", results.angles.at("X").at(1).at("All").result);
    EXPECT_EQ(0.001, results.angles.at("Z(or Y)").at(1).at("3").value);
    EXPECT_THAT(results.ratios, IsEmpty());
}

TEST_F(RunReports, CountsTheVerdictsOfAllRows) {
    const ResultsReport results = ResultsOf(kAngles);
    EXPECT_EQ(2, results.passRows);
    EXPECT_EQ(2, results.failRows);
    EXPECT_EQ(1, results.stories);
}

TEST_F(RunReports, KeepsTheAnglesOfSpecifiedMembersOutOfTheStoriesAngles) {
    const ResultsReport results = ResultsOf(
        "\n -----  Story deformation angle of specified member ----- \n"
        "Story,Load,Member,...\n"
        "1,2,21,3.500e+03,X,1.00000e-03,5.00000e-03,PASS\n");
    EXPECT_THAT(results.angles, IsEmpty());
    EXPECT_EQ(1, results.passRows);
}

TEST_F(RunReports, TakesRatiosAndBothModuli) {
    const ResultsReport results = ResultsOf(
        "\n -----  Story stiffness ratio  ----- \n"
        "\nDirection Z(or Y)\nDisp type : Average\nStory,...\n"
        "2,3,0.000e+00,3.500e+03,3.500e+03,7.00000e+00,5.00000e-01,6.00000e-01,FAIL\n"
        "\n -----  Gravity center  ----- \nStory,...\n"
        "1,0.000e+00,3.500e+03,3.500e+03,3.00000e+03,2.00000e+03\n"
        "\n -----  Eccentricity modulus  ----- \nStory,...\n"
        "1,0.000e+00,3.500e+03,3.500e+03,1.00000e-01,nan,1.50000e-01,PASS,FAIL\n");
    EXPECT_EQ(0.5, results.ratios.at("Z(or Y)").at(2).at("3").value);
    EXPECT_EQ(0.1, results.moduli.at("X").at(1).at("").value);
    EXPECT_EQ("PASS", results.moduli.at("X").at(1).at("").result);
    EXPECT_TRUE(std::isnan(results.moduli.at("Z(or Y)").at(1).at("").value));
    EXPECT_EQ("FAIL", results.moduli.at("Z(or Y)").at(1).at("").result);
    EXPECT_EQ(2, results.stories);
    EXPECT_EQ(1, results.passRows);
    EXPECT_EQ(2, results.failRows);
}
