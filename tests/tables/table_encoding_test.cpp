#include "tables/table_encoding.h"

#include <gtest/gtest.h>

namespace {

// 柱 (column) in both encodings.
const std::string kUtf8 = "\xE6\x9F\xB1";
const std::string kShiftJis = "\x92\x8C";

// In pieces of one byte and in one piece, which must not differ.
EncodingScan::Found Found(const std::string& bytes) {
    EncodingScan whole, byByte;
    whole.Take(bytes);
    for (const char& byte : bytes)
        byByte.Take({&byte, 1});
    EXPECT_EQ(static_cast<int>(whole.Finish().fault), static_cast<int>(byByte.Finish().fault));
    EXPECT_EQ(whole.Finish().faultAt, byByte.Finish().faultAt);
    return whole.Finish();
}

}  // namespace

TEST(EncodingScan, TakesForUtf8WhatIsValidAsSuch) {
    for (const std::string& text :
         {std::string(), std::string("plain"), kUtf8, "a long text without marks " + kUtf8 + kUtf8,
          std::string("\xF0\xA0\xAE\xB7")}) {
        EXPECT_EQ(EncodingScan::Fault::kNone, Found(text).fault);
        EXPECT_EQ(TableEncoding::kUtf8, Found(text).encoding);
    }
}

TEST(EncodingScan, TakesForShiftJisWhatIsValidAsThatOnly) {
    for (const std::string& text :
         {kShiftJis, "columns: " + kShiftJis + "\xB1,", std::string("\x95\x5C\n")}) {
        EXPECT_EQ(EncodingScan::Fault::kNone, Found(text).fault) << text;
        EXPECT_EQ(TableEncoding::kShiftJis, Found(text).encoding) << text;
    }
}

TEST(EncodingScan, FindsWhereATextFitsNeither) {
    // A lead byte of Shift_JIS ends the UTF-8; the blank is no second byte of Shift_JIS.
    const EncodingScan::Found mixed = Found("ab\n" + kUtf8 + "\n" + "\x92 x");
    EXPECT_EQ(EncodingScan::Fault::kNoCharacter, mixed.fault);
    EXPECT_EQ(8U, mixed.faultAt);
    EXPECT_EQ(EncodingScan::Fault::kNoCharacter, Found("\xFF").fault);
    EXPECT_EQ(EncodingScan::Fault::kNoCharacter, Found("\xED\xA0\x80 ").fault);
    EXPECT_EQ(EncodingScan::Fault::kNoCharacter, Found("cut \xE6").fault);
}

// 柱 in UTF-8 is also 譟ｱ in Shift_JIS; a whole line of such is not by chance.
TEST(EncodingScan, FindsALineInUtf8AmongLinesInShiftJis) {
    for (const std::string& end : {std::string("\n"), std::string("\r"), std::string()}) {
        const EncodingScan::Found mixed = Found(kShiftJis + "\nab," + kUtf8 + ",1" + end);
        EXPECT_EQ(EncodingScan::Fault::kMixed, mixed.fault);
        EXPECT_EQ(6U, mixed.faultAt);
    }
    EXPECT_EQ(EncodingScan::Fault::kNone, Found(kShiftJis + "," + kUtf8 + "\n").fault);
}

TEST(EncodingScan, FindsZeroBytesAndUtf16) {
    EXPECT_EQ(EncodingScan::Fault::kZeroByte, Found(std::string("ab\0c", 4)).fault);
    EXPECT_EQ(2U, Found(std::string("ab\0c", 4)).faultAt);
    EXPECT_EQ(EncodingScan::Fault::kZeroByte, Found(std::string("a\0b\0", 4)).fault);
    EXPECT_EQ(EncodingScan::Fault::kUtf16, Found(std::string("\xFF\xFE\x61\0", 4)).fault);
    EXPECT_EQ(EncodingScan::Fault::kUtf16, Found(std::string("\xFE\xFF\0\x61", 4)).fault);
}

TEST(TextInATable, IsCountedAndTurnedCharacterByCharacter) {
    EXPECT_EQ(4U, CharacterCount("a" + kUtf8 + kUtf8 + "b", TableEncoding::kUtf8));
    EXPECT_EQ(4U, CharacterCount("a" + kShiftJis + "\xB1" + "b", TableEncoding::kShiftJis));
    EXPECT_EQ("a" + kUtf8, Utf8Of("a" + kShiftJis, TableEncoding::kShiftJis));
    EXPECT_EQ("a" + kUtf8, Utf8Of("a" + kUtf8, TableEncoding::kUtf8));
}
