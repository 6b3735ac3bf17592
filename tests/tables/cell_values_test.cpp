#include "tables/cell_values.h"

#include <gtest/gtest.h>

TEST(CellNumber, IsADecimalNumberWithAPoint) {
    const struct {
        const char* text;
        double value;
    } numbers[] = {{"0", 0.0},          {"-12.5", -12.5},
                   {"+3", 3.0},         {".5", 0.5},
                   {"5.", 5.0},         {"1e-3", 0.001},
                   {"2.5E+03", 2500.0}, {"-0", -0.0},
                   {"1e-400", 0.0},     {"1.7976931348623157e308", 1.7976931348623157e308},
                   {"0.1", 0.1},        {"00012", 12.0}};
    for (const auto& number : numbers) {
        const CellNumber read = NumberOf(number.text);
        EXPECT_EQ(NumberFault::kNone, read.fault) << number.text;
        EXPECT_EQ(number.value, read.value) << number.text;
    }
}

TEST(CellNumber, IsNoOtherText) {
    const struct {
        const char* text;
        NumberFault fault;
    } texts[] = {{"", NumberFault::kEmpty},
                 {"1,5", NumberFault::kDecimalComma},
                 {"-1.234,5", NumberFault::kDecimalComma},
                 {"1,234.5", NumberFault::kDecimalComma},
                 {",", NumberFault::kNoNumber},
                 {"inf", NumberFault::kNotFinite},
                 {"-Infinity", NumberFault::kNotFinite},
                 {"1e999", NumberFault::kNotFinite},
                 {"-1e999", NumberFault::kNotFinite},
                 {"nan", NumberFault::kNoNumber},
                 {"NaN(1)", NumberFault::kNoNumber},
                 {"12 kN", NumberFault::kNoNumber},
                 {"1.2.3", NumberFault::kNoNumber},
                 {"--1", NumberFault::kNoNumber},
                 {"+-1", NumberFault::kNoNumber},
                 {"0x10", NumberFault::kNoNumber},
                 {"1e", NumberFault::kNoNumber},
                 {"-", NumberFault::kNoNumber},
                 {"e5", NumberFault::kNoNumber},
                 {"１２", NumberFault::kNoNumber}};
    for (const auto& text : texts)
        EXPECT_EQ(text.fault, NumberOf(text.text).fault) << text.text;
}

TEST(WholeNumber, HasDigitsAndAMinusSignOnlyAnd32Bits) {
    EXPECT_EQ(2147483647, WholeNumberOf("2147483647"));
    EXPECT_EQ(-5, WholeNumberOf("-5"));
    EXPECT_EQ(7, WholeNumberOf("007"));
    for (const char* text : {"2147483648", "1.0", "", "+1", "1 ", "A1", "-"})
        EXPECT_EQ(std::nullopt, WholeNumberOf(text)) << text;
}
