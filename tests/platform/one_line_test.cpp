#include "platform/one_line.h"

#include <gtest/gtest.h>

TEST(OneLine, KeepsWhatCanBeShown) {
    for (const char* text : {"", "m.qhm: not written", "C:\\jobs\\\xE6\xA0\xA1\xE8\x88\x8E.qhm",
                             "\xF0\x9F\x8F\xA2 100% 'a' \"b\""})
        EXPECT_EQ(text, OneLine(text));
}

TEST(OneLine, WritesOutWhatEndsALineOrMovesTheCursor) {
    EXPECT_EQ("a\\nquarnel-cli: forged\\r", OneLine("a\nquarnel-cli: forged\r"));
    EXPECT_EQ("\\t\\x00\\x1b[2J\\x7f", OneLine(std::string_view("\t\0\x1b[2J\x7f", 7)));
}

// The controls of eight bits, the separators of lines and paragraphs, the overrides of direction.
TEST(OneLine, WritesOutControlsBeyondAscii) {
    EXPECT_EQ("\\x9b2J\\x85", OneLine("\xC2\x9B"
                                      "2J\xC2\x85"));
    EXPECT_EQ("\\u2028\\u2029\\u202e\\u2066",
              OneLine("\xE2\x80\xA8\xE2\x80\xA9\xE2\x80\xAE\xE2\x81\xA6"));
}

// A lone byte, a character cut short, one written too long, a surrogate, one beyond the last.
TEST(OneLine, WritesOutBytesThatAreNoText) {
    EXPECT_EQ("\\x9b", OneLine("\x9B"));
    EXPECT_EQ("\\xe6\\xa0", OneLine("\xE6\xA0"));
    EXPECT_EQ("\\xe6\\xa0x", OneLine("\xE6\xA0x"));
    EXPECT_EQ("\\xc0\\x8a", OneLine("\xC0\x8A"));
    EXPECT_EQ("\\xe0\\x80\\x8a", OneLine("\xE0\x80\x8A"));
    EXPECT_EQ("\\xed\\xa0\\x80", OneLine("\xED\xA0\x80"));
    EXPECT_EQ("\\xf4\\x90\\x80\\x80", OneLine("\xF4\x90\x80\x80"));
}

// Three bytes a character: two of them fit into eight. A line feed takes two bytes when written
// out.
TEST(OneLine, IsCutBetweenCharactersAndSaysSo) {
    EXPECT_EQ("", OneLine("", 0));
    EXPECT_EQ("tower.csv", OneLine("tower.csv", 9));
    EXPECT_EQ("towe...", OneLine("tower", 4));
    EXPECT_EQ("\xE6\x97\xA5\xE6\x9C\xAC...", OneLine("\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E", 8));
    EXPECT_EQ("a\\n...", OneLine("a\n\nb", 4));
}
