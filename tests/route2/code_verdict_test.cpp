#include "route2/code_verdict.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

// A value counts as its limit within a billionth of it: the limit times 1 +- 1e-9 is OK, times
// 1 +- 2e-9 is not.
TEST(CodeVerdict, OfAnAngleIsOkUpToItsLimit) {
    const double limit = 1.0 / 200.0;
    EXPECT_EQ(CodeVerdict::kOk, JudgeAngleByCode(limit, limit));
    EXPECT_EQ(CodeVerdict::kOk, JudgeAngleByCode(limit * (1.0 + 1e-9), limit));
    EXPECT_EQ(CodeVerdict::kNg, JudgeAngleByCode(limit * (1.0 + 2e-9), limit));
    EXPECT_EQ(CodeVerdict::kOk, JudgeAngleByCode(0.0, limit));
}

TEST(CodeVerdict, OfAStiffnessRatioIsOkFromItsLimit) {
    EXPECT_EQ(CodeVerdict::kOk, JudgeRatioByCode(0.6));
    EXPECT_EQ(CodeVerdict::kOk, JudgeRatioByCode(0.6 * (1.0 - 1e-9)));
    EXPECT_EQ(CodeVerdict::kNg, JudgeRatioByCode(0.6 * (1.0 - 2e-9)));
    EXPECT_EQ(CodeVerdict::kNg, JudgeRatioByCode(-1.0));
}

TEST(CodeVerdict, OfAnEccentricityModulusIsOkUpToItsLimit) {
    EXPECT_EQ(CodeVerdict::kOk, JudgeModulusByCode(0.15));
    EXPECT_EQ(CodeVerdict::kOk, JudgeModulusByCode(0.15 * (1.0 + 1e-9)));
    EXPECT_EQ(CodeVerdict::kNg, JudgeModulusByCode(0.15 * (1.0 + 2e-9)));
}

TEST(CodeVerdict, OfWhatWasNotFormedIsUndetermined) {
    for (const std::optional<double> value :
         {std::optional<double>(), std::optional(kNaN), std::optional(kInfinity)}) {
        EXPECT_EQ(CodeVerdict::kUndetermined, JudgeAngleByCode(value, 1.0 / 200.0));
        EXPECT_EQ(CodeVerdict::kUndetermined, JudgeRatioByCode(value));
        EXPECT_EQ(CodeVerdict::kUndetermined, JudgeModulusByCode(value));
    }
}

TEST(CodeVerdict, AllowsNoMoreThanTheInputFileAndTheReliefOfTheCode) {
    EXPECT_EQ(1.0 / 200.0, CodeAllowableAngle(1.0 / 200.0));
    EXPECT_EQ(1.0 / 150.0, CodeAllowableAngle(1.0 / 150.0));  // a relief
    EXPECT_EQ(0.008334, CodeAllowableAngle(0.008334));  // 1/120 = 0.0083333..., as it is written
    EXPECT_EQ(1.0 / 120.0 * 1.0001, CodeAllowableAngle(1.0 / 120.0 * 1.0001));  // not a bit more
    EXPECT_EQ(1.0 / 120.0, CodeAllowableAngle(0.00835));  // 1/119.8: more than a rounding
    EXPECT_EQ(1.0 / 120.0, CodeAllowableAngle(1.0 / 100.0));
    EXPECT_EQ(1.0 / 200.0, CodeAllowableAngle(1.0 / 300.0));  // the code asks for no less
    EXPECT_EQ(1.0 / 200.0, CodeAllowableAngle(kNaN));
}

TEST(CodeVerdict, OfTwoIsTheWorse) {
    const CodeVerdict ok = CodeVerdict::kOk, ng = CodeVerdict::kNg,
                      open = CodeVerdict::kUndetermined;
    EXPECT_EQ(ok, WorseOf(ok, ok));
    EXPECT_EQ(ng, WorseOf(ok, ng));
    EXPECT_EQ(ng, WorseOf(ng, open));
    EXPECT_EQ(ng, WorseOf(open, ng));
    EXPECT_EQ(open, WorseOf(ok, open));
    EXPECT_EQ(open, WorseOf(open, ok));
}
