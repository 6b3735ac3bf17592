#include "report/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace {

constexpr NumberFormat kWhole{Rounding::kNearest, 0};
constexpr NumberFormat kThree{Rounding::kNearest, 3};
constexpr NumberFormat kDownThree{Rounding::kDown, 3};
constexpr NumberFormat kUpThree{Rounding::kUp, 3};

TEST(NumberText, RoundsToTheNearestAndHalvesAwayFromZero) {
    EXPECT_EQ("1", NumberText(0.5, kWhole));
    EXPECT_EQ("3", NumberText(2.5, kWhole));
    EXPECT_EQ("−3", NumberText(-2.5, kWhole));
    EXPECT_EQ("0", NumberText(0.49999999999999994, kWhole));
    EXPECT_EQ("0.063", NumberText(0.0625, kThree));
    EXPECT_EQ("1.005", NumberText(1.0049, kThree));
    EXPECT_EQ("1,970.3", NumberText(1970.25, kForceFormat));
}

std::string Printed(double number, int decimals) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, number);
    return text.data();
}

// printf has the exact digits, of numbers that do not lie in the middle of two texts.
TEST(NumberText, HasTheDigitsOfTheExactNumber) {
    constexpr double kLargestExactWhole = 0x1p53;
    std::mt19937_64 engine(20261121);
    for (int i = 0; i < 200000; ++i) {
        const int decimals = static_cast<int>(engine() % 7);
        const double unit = std::pow(10.0, -decimals);
        double number = std::pow(10.0, static_cast<double>(engine() % 22) - 8.0) *
                        static_cast<double>(engine() >> 11) * 0x1.0p-53;
        // Every other one as near to the middle of two texts as a double comes.
        if (i % 2 == 0)
            number =
                std::nextafter((std::floor(number / unit) + 0.5) * unit, i % 4 == 0 ? 0.0 : 1e30);
        const std::string exact = Printed(number, 60);
        const bool isMiddle =
            exact.substr(exact.find('.') + 1).substr(static_cast<std::size_t>(decimals)) ==
            "5" + std::string(59 - static_cast<std::size_t>(decimals), '0');
        if (isMiddle || number >= kLargestExactWhole * unit) continue;
        ASSERT_EQ(Printed(number, decimals),
                  NumberText(number, {Rounding::kNearest, decimals}, kTerminalNumbers))
            << exact;
    }
}

TEST(NumberText, HasThousandsAndNoNegativeZero) {
    EXPECT_EQ("999", NumberText(999.0, kWhole));
    EXPECT_EQ("1,000", NumberText(999.5, kWhole));
    EXPECT_EQ("−1,234,567.500", NumberText(-1234567.5, kThree));
    EXPECT_EQ("0.000", NumberText(-0.0004, kThree));
    EXPECT_EQ("0.000", NumberText(-0.0, kUpThree));
}

TEST(NumberText, IsADashWhereThereIsNoFigure) {
    EXPECT_EQ("—", NumberText(std::nullopt, kWhole));
    EXPECT_EQ("—", NumberText(std::numeric_limits<double>::infinity(), kWhole));
    EXPECT_EQ("n/a", NumberText(std::nullopt, kWhole, kTerminalNumbers));
}

TEST(NumberText, IsPlainInATerminal) {
    EXPECT_EQ("-1234.500", NumberText(-1234.5, kThree, kTerminalNumbers));
    EXPECT_EQ("-1/90", AngleText(-1.0, 90.0, kTerminalNumbers));
}

// 0.15 is 0.1499999999999999944 as a double; 0.1 + 0.05 is 0.15000000000000002.
TEST(NumberText, RoundsOnTheSafeSideButNotOverItsOwnTolerance) {
    EXPECT_EQ("0.150", NumberText(0.1 + 0.05, kUpThree));
    EXPECT_EQ("0.151", NumberText(0.1501, kUpThree));
    EXPECT_EQ("0.600", NumberText(0.6, kDownThree));
    EXPECT_EQ("0.599", NumberText(0.5999999, kDownThree));
    EXPECT_EQ("0.600", NumberText(0.6 * (1 - 0.9e-9), kDownThree));
}

// Down is towards less, up towards more, whatever the sign.
TEST(NumberText, ChangesTheRolesOfUpAndDownBelowZero) {
    EXPECT_EQ("−0.124", NumberText(-0.1231, kDownThree));
    EXPECT_EQ("−0.123", NumberText(-0.1239, kUpThree));
}

TEST(LevelText, IsWholeWhereTheLevelIs) {
    EXPECT_EQ("3,500", LevelText(3500.0));
    EXPECT_EQ("3,500", LevelText(3500.004));
    EXPECT_EQ("3,500.01", LevelText(3500.006));
    EXPECT_EQ("−1,200.25", LevelText(-1200.25));
    EXPECT_EQ("0", LevelText(-0.003));
}

TEST(PercentText, HasOneDecimal) {
    EXPECT_EQ("100.0", PercentText(1.0));
    EXPECT_EQ("49.9", PercentText(0.499));
    EXPECT_EQ("—", PercentText(std::nullopt));
}

TEST(AngleText, IsOneOverAWholeNumberRoundedDown) {
    EXPECT_EQ("1/500", AngleText(7.0, 3500.0));
    EXPECT_EQ("1/499", AngleText(7.001, 3500.0));
    EXPECT_EQ("1/1", AngleText(3500.0, 3500.0));
    EXPECT_EQ("−1/90", AngleText(-1.0, 90.0));
}

TEST(AngleText, NamesWhatIsTooSmallOrTooLargeForAFraction) {
    EXPECT_EQ("1/9999", AngleText(1.0, 9999.9));
    EXPECT_EQ("<1/9999", AngleText(1.0, 10000.0));
    EXPECT_EQ(">1", AngleText(3501.0, 3500.0));
    EXPECT_EQ("0", AngleText(0.0, 3500.0));
    EXPECT_EQ("—", AngleText(std::nullopt, 3500.0));
    EXPECT_EQ("—", AngleText(1.0, 0.0));
}

// 1/0.0075 is 133.33, 0.25 % beside 133; 1/0.008333 is 120.005.
TEST(AllowableAngleText, HasADecimalWhereItIsNoWholeFraction) {
    EXPECT_EQ("1/200", AllowableAngleText(0.005));
    EXPECT_EQ("1/133.3", AllowableAngleText(0.0075));
    EXPECT_EQ("1/120", AllowableAngleText(0.008333));
    EXPECT_EQ("0", AllowableAngleText(0.0));
}

WorstUprightMember Worst(double drift, double height, double allowable) {
    WorstUprightMember worst;
    worst.drift = drift;
    worst.angle = std::abs(drift) / height;
    worst.allowable = allowable;
    worst.code = JudgeAngleByCode(worst.angle, allowable);
    return worst;
}

TEST(AngleBesideLimitText, IsPlainWhereTheOrderIsSeen) {
    const AngleBesideLimit text = AngleBesideLimitText(Worst(-8.27, 3500, 0.0075), 3500);
    EXPECT_EQ("1/423", text.angle);
    EXPECT_EQ("1/133.3", text.allowable);
}

// 1/199.99 is beyond 1/200 and prints so; 1/200 exactly is not.
TEST(AngleBesideLimitText, KeepsToTheVerdictBesideAWholeLimit) {
    EXPECT_EQ("1/199", AngleBesideLimitText(Worst(1.0, 199.99, 0.005), 199.99).angle);
    EXPECT_EQ("1/200", AngleBesideLimitText(Worst(1.0, 200.0, 0.005), 200.0).angle);
}

// The limit 0.008333 is 1/120.0048; 1/120.0019 is beyond it, though both are nearly 1/120.
TEST(AngleBesideLimitText, TakesAsManyDecimalsAsTheVerdictNeeds) {
    const AngleBesideLimit ng = AngleBesideLimitText(Worst(1.0, 120.0019, 0.008333), 120.0019);
    EXPECT_EQ("1/120.001", ng.angle);
    EXPECT_EQ("1/120.005", ng.allowable);
    // 1/119.9985 is within 0.008334 = 1/119.9904.
    const AngleBesideLimit ok = AngleBesideLimitText(Worst(1.0, 119.9985, 0.008334), 119.9985);
    EXPECT_EQ("1/119.99", ok.angle);
    EXPECT_EQ("1/119.99", ok.allowable);
}

// --- Print and verdict ---------------------------------------------------------------------------

double Denominator(const std::string& fraction) {
    if (fraction == "0" || fraction == "<1/9999") return 1e9;
    if (fraction == ">1") return 0.5;
    EXPECT_TRUE(fraction.starts_with("1/")) << fraction;
    return std::stod(fraction.substr(2));
}

// Values from far off to the last binary digit beside a limit.
class BesideLimits : public testing::Test {
protected:
    double ValueNear(double limit) {
        const double spread = std::pow(10.0, -16.0 * Share());
        double value = limit * (1.0 + spread * (2.0 * Share() - 1.0));
        if (Share() < 0.2) value = limit * (1.0 + (Share() < 0.5 ? 1e-9 : -1e-9));
        for (int steps = static_cast<int>(4.0 * Share()); steps > 0; --steps)
            value = std::nextafter(value, Share() < 0.5 ? 0.0 : 1e9);
        return value;
    }
    double Share() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }

    static constexpr int kValues = 200000;

private:
    std::mt19937_64 engine_{20261121};
};

TEST_F(BesideLimits, StiffnessRatiosPrintWhatTheirVerdictSays) {
    for (int i = 0; i < kValues; ++i) {
        const double ratio = ValueNear(0.6);
        const CodeVerdict verdict = JudgeRatioByCode(ratio);
        const std::string text = JudgedText(ratio, kStiffnessRatioFormat, 0.6, verdict);
        ASSERT_EQ(verdict == CodeVerdict::kOk, std::stod(text) >= 0.6) << text << " " << ratio;
    }
}

TEST_F(BesideLimits, ModuliAndUtilisationsPrintWhatTheirVerdictSays) {
    for (int i = 0; i < kValues; ++i) {
        const double modulus = ValueNear(0.15);
        const CodeVerdict verdict = JudgeModulusByCode(modulus);
        const std::string text = JudgedText(modulus, kModulusFormat, 0.15, verdict);
        ASSERT_EQ(verdict == CodeVerdict::kOk, std::stod(text) <= 0.15) << text << " " << modulus;
        const std::string use = JudgedText(modulus / 0.15, kUtilisationFormat, 1.0, verdict);
        ASSERT_EQ(verdict == CodeVerdict::kOk, std::stod(use) <= 1.0) << use << " " << modulus;
    }
}

TEST_F(BesideLimits, AnglesPrintWhatTheirVerdictSays) {
    for (int i = 0; i < kValues; ++i) {
        // 1/200, 1/120, what people write for them, and anything between.
        const double limits[] = {0.005,
                                 1.0 / 120,
                                 0.00833,
                                 0.008333,
                                 0.008334,
                                 0.0075,
                                 0.005 + Share() * (1.0 / 120 - 0.005)};
        const double limit = CodeAllowableAngle(limits[static_cast<std::size_t>(7.0 * Share())]);
        const double height = 2000.0 + 4000.0 * Share();
        const WorstUprightMember worst = Worst(ValueNear(limit) * height, height, limit);
        const AngleBesideLimit text = AngleBesideLimitText(worst, height);
        ASSERT_EQ(worst.code == CodeVerdict::kOk,
                  Denominator(text.angle) >= Denominator(text.allowable))
            << text.angle << " beside " << text.allowable << ": " << *worst.angle;
    }
}

// Rounding never makes a figure look better than it is.
TEST_F(BesideLimits, AnglesAreNeverPrintedSmallerThanTheyAre) {
    for (int i = 0; i < kValues; ++i) {
        const double height = 2000.0 + 4000.0 * Share();
        const double drift = height / (1.0 + 9998.0 * Share());
        const double printed = 1.0 / Denominator(AngleText(drift, height));
        ASSERT_GE(printed * (1.0 + 2e-9), drift / height);
    }
}

TEST(ResultsNumberText, IsWrittenAsInTheResults) {
    EXPECT_EQ("1.17351e-03", ResultsNumberText(0.00117351));
    EXPECT_EQ("0.00000e+00", ResultsNumberText(0.0));
    EXPECT_EQ("nan", ResultsNumberText(-std::numeric_limits<double>::quiet_NaN()));
}

TEST(InputValueText, IsTheShortestThatReadsBack) {
    EXPECT_EQ("0.008333", InputValueText(0.008333));
    EXPECT_EQ("−12200", InputValueText(-12200.0));
}

TEST(TorsionText, HasOneExponentForAllStories) {
    std::vector<StoryFindings> stories(2);
    stories[0].torsionalStiffness = 7.912017e9;  // kN mm: 7,912,017 kN m
    stories[1].torsionalStiffness = 5e5;
    EXPECT_EQ(6, TorsionExponent(stories));
    EXPECT_EQ("7.912", TorsionText(stories[0].torsionalStiffness, 6));
    EXPECT_EQ("0.001", TorsionText(stories[1].torsionalStiffness, 6));
    stories[0].torsionalStiffness = 1e9;  // exactly 1 x 10^6 kN m
    EXPECT_EQ(6, TorsionExponent(stories));
    EXPECT_EQ(0, TorsionExponent({}));
}

}  // namespace
