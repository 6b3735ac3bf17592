// The two verdicts beside each other, and the notes on why they differ.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/load_case_lines.h"
#include "tests/support/sheet_of_run.h"
#include "tests/support/small_building.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class VerdictsOnASheet : public testing::Test {
protected:
    VerdictsOnASheet() { AddSmallBuilding(host); }

    // All columns move so far in the second direction, m.
    void Move(double drift) {
        for (std::int32_t node = 11; node <= 14; ++node)
            host.Displace(3, node, 0, 0, drift);
    }
    std::string Html(const std::string& more = "") {
        return SheetOfRun(host, kLoadCaseLines + more + "FIN\n");
    }

    FakeHost host;
};

// 0.01 m in 2 m is 1/200, and neither number is rounded on its way.
TEST_F(VerdictsOnASheet, DifferWhereTheAngleEqualsItsLimit) {
    Move(0.0175);
    const std::string html = Html();
    EXPECT_EQ("1/200", CellText(html, "worstUpright.angle", 1, "second"));
    EXPECT_EQ("OK", CellText(html, "worstUpright.code", 1, "second"));
    EXPECT_EQ("FAIL", CellText(html, "toolMeanVerdict", 1, "second"));
    EXPECT_THAT(Section(html, "S3"), HasSubstr("data-note=\"D1\""));
}

// 17.6 mm in 3500 mm is 1/198.86: printed as the greater angle 1/198, and NG.
TEST_F(VerdictsOnASheet, RoundTheAngleUpwardsAboveItsLimit) {
    Move(0.0176);
    const std::string html = Html();
    EXPECT_EQ("1/198", CellText(html, "worstUpright.angle", 1, "second"));
    EXPECT_EQ("NG", CellText(html, "worstUpright.code", 1, "second"));
}

// -21 mm in 3500 mm: the tool passes what is negative, the code looks at 1/166.
TEST_F(VerdictsOnASheet, DifferWhereTheLoadPushesToTheNegativeSide) {
    Move(-0.021);
    const std::string html = Html();
    EXPECT_EQ("1/166", CellText(html, "worstUpright.angle", 1, "second"));
    EXPECT_EQ("NG", CellText(html, "worstUpright.code", 1, "second"));
    EXPECT_EQ("PASS", CellText(html, "toolMeanVerdict", 1, "second"));
    EXPECT_EQ("−1/166", CellText(html, "meanAngle", 1, "second"));
    EXPECT_THAT(Section(html, "S3"), HasSubstr("data-note=\"D2\""));
}

TEST_F(VerdictsOnASheet, SayOnceThatTheLargestDriftInXIsNotJudged) {
    const std::string angles = Section(Html(), "S3");
    const std::string mark = "data-note=\"D3\"";
    const std::size_t first = angles.find(mark);
    ASSERT_NE(std::string::npos, first);
    EXPECT_EQ("—", CellText(angles, "toolMax.verdict", 1, "x"));
    EXPECT_EQ(std::string::npos,
              angles.substr(0, angles.find("class=\"notes\"")).find(mark, first + 1));
}

// 1/100 of the input file is more than the relief of 1/120: 1/110 passes in the tool only.
TEST_F(VerdictsOnASheet, DifferWhereTheInputAllowsMoreThanTheCode) {
    Move(3.5 / 110);
    const std::string html = Html("AllowStoryDeformAngle,\n1,0.01,\n");
    EXPECT_EQ("1/120", CellText(html, "worstUpright.allowable", 1, "second"));
    EXPECT_EQ("NG", CellText(html, "worstUpright.code", 1, "second"));
    EXPECT_EQ("PASS", CellText(html, "toolMeanVerdict", 1, "second"));
    EXPECT_THAT(Section(html, "S3"), HasSubstr("data-note=\"D5\""));
}

// Column 3 moves 21 mm (1/166), the other three 7: their mean of 10.5 mm is 1/333.
TEST_F(VerdictsOnASheet, DifferWhereTheMeanPassesAndTheWorstDoesNot) {
    Move(0.007);
    host.Displace(3, 13, 0, 0, 0.021);
    const std::string html = Html();
    EXPECT_EQ("1/333", CellText(html, "meanAngle", 1, "second"));
    EXPECT_EQ("1/166", CellText(html, "worstUpright.angle", 1, "second"));
    EXPECT_EQ("3", CellText(html, "worstUpright.member", 1, "second"));
    EXPECT_THAT(Section(html, "S3"), HasSubstr("data-note=\"D4\""));
}

TEST_F(VerdictsOnASheet, HaveNoNoteWhereTheySayTheSame) {
    EXPECT_THAT(Section(Html(), "S5"), Not(HasSubstr("data-note")));
}

// 1/150.5 is no 1 over a whole number: both numbers get the decimals that keep their order.
TEST_F(VerdictsOnASheet, PrintAnAngleBesideAnOddLimitOnItsSide) {
    Move(3.5 / 150.45);
    const std::string html = Html("AllowStoryDeformAngle,\n1,0.006644518272425249,\n");
    EXPECT_EQ("NG", CellText(html, "worstUpright.code", 1, "second"));
    const std::string angle = CellText(html, "worstUpright.angle", 1, "second");
    const std::string limit = CellText(html, "worstUpright.allowable", 1, "second");
    EXPECT_LT(std::stod(angle.substr(2)), std::stod(limit.substr(2))) << angle << " " << limit;
}

}  // namespace
