// Tables whose bytes are no table: each is refused in one line that says where, and what to save it
// as.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/tables/one_story_tables.h"

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

namespace {

const std::string kSaveIt = "; UTF-8 or Shift_JIS is expected: save the table as one of them";

// Of the sound tables with `text` in place of a line.
std::vector<std::string> FaultsWith(const std::string& table, std::size_t line,
                                    const std::string& text) {
    OneStoryTables tables;
    tables.SetLine(table, line, text);
    return tables.Import().faults;
}

}  // namespace

TEST(UnreadableTable, InUtf16IsNamed) {
    EXPECT_THAT(FaultsWith("nodes", 1, std::string("\xFF\xFEn\0o\0", 6)),
                ElementsAre("nodes.csv:1:1: the table is in UTF-16" + kSaveIt));
}

TEST(UnreadableTable, WithAZeroByteIsToldWhere) {
    EXPECT_THAT(FaultsWith("nodes", 2, std::string("1,0\0,0,0", 8)),
                ElementsAre("nodes.csv:2:4: a zero byte, which no text has" + kSaveIt));
}

// Below the heading two rows end otherwise; the zero is the fourth byte of the third one.
TEST(UnreadableTable, CountsLinesThatEndAsOnOldMacsAndOnWindows) {
    EXPECT_THAT(FaultsWith("nodes", 2, std::string("1,0,0,0\r2,6,0,0\r\n3,0\0,5,0", 25)),
                ElementsAre("nodes.csv:4:4: a zero byte, which no text has" + kSaveIt));
}

TEST(UnreadableTable, InNeitherEncodingIsToldWhere) {
    EXPECT_THAT(
        FaultsWith("cases", 2, "1,D\xFF,primary"),
        ElementsAre("cases.csv:2:4: a character that fits neither UTF-8 nor Shift_JIS" + kSaveIt));
}

// "長期荷" in UTF-8, whose nine bytes are four characters of Shift_JIS as well; then "地震" in
// Shift_JIS.
TEST(UnreadableTable, InBothEncodingsIsToldWhereTheUtf8Stands) {
    OneStoryTables tables;
    tables.SetLine("cases", 2, "1,\xE9\x95\xB7\xE6\x9C\x9F\xE8\x8D\xB7,primary");
    tables.SetLine("cases", 3, "2,\x92\x6E\x90\x6B,primary");
    EXPECT_THAT(
        tables.Import().faults,
        ElementsAre("cases.csv:2:3: this line is in UTF-8, another one in Shift_JIS; one of "
                    "them is expected throughout the table"));
}

TEST(UnreadableTable, ThatIsAFolderIsNamed) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path("nodes.csv"));
    EXPECT_THAT(ImportTables(folder.Path("."), std::nullopt).faults,
                Contains("nodes.csv: this is a folder; a table is expected"));
}

#ifndef _WIN32
TEST(UnreadableTable, ThatIsADeviceIsNotWaitedFor) {
    const TestFolder folder;
    std::filesystem::create_symlink("/dev/zero", folder.Path("nodes.csv"));
    EXPECT_THAT(
        ImportTables(folder.Path("."), std::nullopt).faults,
        Contains("nodes.csv: this is no file with contents of its own; a table is expected"));
}
#endif

TEST(UnreadableTable, MayHaveNamesOf200BytesAndNoLongerOnes) {
    OneStoryTables tables;
    const std::string longest(200, 'n');
    tables.Rows("nodes").push_back(longest + ",0,0,8");
    EXPECT_THAT(tables.Import().faults, testing::IsEmpty());
    tables.Rows("nodes").push_back(longest + "n,0,0,12");
    EXPECT_THAT(tables.Import().faults, ElementsAre(StartsWith("nodes.csv:11:1: ")));
}
