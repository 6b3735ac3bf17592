#include "platform/one_line.h"

#include <gtest/gtest.h>

TEST(OneLine, LeavesAShortTextAsItIs) {
    EXPECT_EQ("", OneLine("", 0));
    EXPECT_EQ("tower.csv", OneLine("tower.csv", 9));
}

TEST(OneLine, CutsALongTextAndSaysSo) {
    EXPECT_EQ("towe...", OneLine("tower", 4));
}

// Three bytes a character: six fit into eight.
TEST(OneLine, CutsBetweenCharacters) {
    EXPECT_EQ("\xE6\x97\xA5\xE6\x9C\xAC...", OneLine("\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E", 8));
}

TEST(OneLine, HasNoControlCharacters) {
    EXPECT_EQ("a b c d ", OneLine("a\nb\rc\x1b"
                                  "d\x7f",
                                  100));
}
