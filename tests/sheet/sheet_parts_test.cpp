// Parts of the page by themselves: lengths of drawings, members by number.

#include <gtest/gtest.h>

#include <limits>

#include "sheet/length_text.h"
#include "sheet/model_members.h"

TEST(LengthText, HasAtMostTwoDecimalsAndNoneThatAreZero) {
    EXPECT_EQ("12", LengthText(12.0));
    EXPECT_EQ("12.5", LengthText(12.5));
    EXPECT_EQ("12.05", LengthText(12.05));
    EXPECT_EQ("0.2", LengthText(0.2));
    EXPECT_EQ("100", LengthText(99.999));
}

// 0.125 and 0.375 are exact in binary: 12.5 and 37.5 hundredths.
TEST(LengthText, RoundsHalvesAwayFromZero) {
    EXPECT_EQ("0.13", LengthText(0.125));
    EXPECT_EQ("-0.13", LengthText(-0.125));
    EXPECT_EQ("-0.38", LengthText(-0.375));
}

TEST(LengthText, HasNoNegativeZeroAndNothingThatIsNoLength) {
    EXPECT_EQ("0", LengthText(-0.004));
    EXPECT_EQ("0", LengthText(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ("0", LengthText(std::numeric_limits<double>::infinity()));
}

TEST(ModelMembers, AreFoundByNumberInAnyOrderOfTheModel) {
    Findings findings;
    for (const std::int32_t number : {30, 10, 20}) {
        findings.members.emplace_back();
        findings.members.back().number = number;
    }
    const ModelMembers members(findings);
    EXPECT_EQ(&findings.members[0], members.Find(30));
    EXPECT_EQ(&findings.members[1], members.Find(10));
    EXPECT_EQ(&findings.members[2], members.Find(20));
    EXPECT_EQ(nullptr, members.Find(15));
    EXPECT_EQ(nullptr, members.Find(31));
}

TEST(ModelMembers, AreTheFirstOnesWhereANumberStandsTwice) {
    Findings findings;
    for (const std::int32_t number : {20, 10, 20, 10}) {
        findings.members.emplace_back();
        findings.members.back().number = number;
    }
    const ModelMembers members(findings);
    EXPECT_EQ(&findings.members[0], members.Find(20));
    EXPECT_EQ(&findings.members[1], members.Find(10));
}
