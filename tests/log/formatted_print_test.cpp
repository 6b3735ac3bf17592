#include "log/formatted_print.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "tests/support/test_folder.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// What a print leaves in a report, its line ends read as "\n".
template <typename... Values>
std::string Printed(PrintFormat<std::type_identity_t<Values>...> format, Values... values) {
    const TestFolder folder;
    std::FILE* file = std::fopen(folder.Path("report.txt").c_str(), "w");
    Print(file, format, values...);
    std::fclose(file);
    return folder.Read("report.txt");
}

}  // namespace

TEST(FormattedPrint, WritesNumbersAndTexts) {
    EXPECT_EQ("  2-th floor level(mm) = 3500.00\n",
              Printed("  %d-th floor level(mm) = %.2f\n", 2, 3500.0));
    EXPECT_EQ("X,Average,-7\n",
              Printed("%s,%s,%d\n", "X", std::string("Average").c_str(), std::int32_t{-7}));
}

TEST(FormattedPrint, WritesATextWithoutValuesAsItIs) {
    EXPECT_EQ("100% of 5 %d\n", Printed("100% of 5 %d\n"));
    EXPECT_EQ("", Printed(""));
}

TEST(FormattedPrint, WritesExponentsWithTwoDigits) {
    EXPECT_EQ("3.500e+03", Printed("%.3e", 3500.0));
    EXPECT_EQ("-1.25000e-05", Printed("%.5e", -1.25e-5));
    EXPECT_EQ("0.000e+00", Printed("%.3e", 0.0));
    EXPECT_EQ("1.000e+100", Printed("%.3e", 1e100));
}

TEST(FormattedPrint, KeepsTheSignOfANegativeZero) {
    EXPECT_EQ("-0.00000e+00", Printed("%.5e", -0.0));
}

// 0.5 and 2.5 lie exactly between two digits and go to the even one; 0.125 likewise.
TEST(FormattedPrint, RoundsHalvesToEven) {
    EXPECT_EQ("0 2 4 0.12", Printed("%.0f %.0f %.0f %.2f", 0.5, 2.5, 3.5, 0.125));
}

TEST(FormattedPrint, WritesInfinity) {
    EXPECT_EQ("inf -inf inf", Printed("%.5e %.3e %.2f", kInfinity, -kInfinity, kInfinity));
}

TEST(FormattedPrint, WritesWhatIsNoNumberWithoutASign) {
    EXPECT_EQ("nan nan", Printed("%.5e %.2f", kNan, kNan));
    EXPECT_EQ("nan nan", Printed("%.5e %.2f", -kNan, std::copysign(kNan, -1.0)));
    EXPECT_EQ("nan", Printed("%.5e", kInfinity - kInfinity));
}

TEST(FormattedPrint, WritesATextThatNamesNanAsItIs) {
    EXPECT_EQ("-nan 5", Printed("%s %d", "-nan", 5));
}

TEST(Printable, LeavesNumbersAlone) {
    EXPECT_EQ(-1.5, Printable(-1.5));
    EXPECT_EQ(-kInfinity, Printable(-kInfinity));
    EXPECT_EQ(-3, Printable(-3));
    EXPECT_FALSE(std::signbit(Printable(std::copysign(kNan, -1.0))));
}
