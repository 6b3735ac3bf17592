#include "desktop/shell_open.h"

#include <gtest/gtest.h>

#include "desktop/resource_text.h"

TEST(ShellFailureText, NothingIsSaidAboveThirtyTwo) {
    for (const std::intptr_t result : {33, 42, 0x7FFFFFFF}) {
        EXPECT_EQ(0, ShellFailureText(result)) << result;
    }
}

TEST(ShellFailureText, EveryKnownFailureHasItsText) {
    const struct {
        std::intptr_t result;
        int textId;
    } cases[] = {
        {0, 42133},  {8, 42133},  {2, 42134},  {3, 42134},  {5, 42136},  {26, 42137},
        {27, 42138}, {31, 42138}, {28, 42135}, {29, 42135}, {30, 42135},
    };
    for (const auto& [result, textId] : cases) {
        EXPECT_EQ(textId, ShellFailureText(result)) << result;
    }
}

TEST(ShellFailureText, EveryOtherValueUpToThirtyTwoIsUnknown) {
    for (const std::intptr_t result : {1, 4, 6, 7, 9, 11, 25, 32}) {
        EXPECT_EQ(42139, ShellFailureText(result)) << result;
    }
}

TEST(ShellFailureText, OnlyTheLowThirtyTwoBitsCount) {
    EXPECT_EQ(42134, ShellFailureText(std::intptr_t{0x1'0000'0002}));
    EXPECT_EQ(0, ShellFailureText(std::intptr_t{0x1'0000'002A}));
}

TEST(ShellFailureText, NegativeAsThirtyTwoBitsIsUnknown) {
    EXPECT_EQ(42139, ShellFailureText(-1));
    EXPECT_EQ(42139, ShellFailureText(std::intptr_t{0x8000'0000}));
}
