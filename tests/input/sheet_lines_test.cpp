#include "input/sheet_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

SheetLines Read(const std::string& text) {
    const TestFolder folder;
    return ReadSheetLines(folder.Write("input.csv", text));
}

TEST(SheetLines, NameProjectAndDesigner) {
    const SheetLines lines = Read("SheetProject,霞ヶ丘計画 新築工事,\nSheetDesigner,○○,\nFIN\n");
    EXPECT_EQ("霞ヶ丘計画 新築工事", lines.project);
    EXPECT_EQ("○○", lines.designer);
}

TEST(SheetLines, OfAShiftJisFileAreGivenInUtf8) {
    // 計画 in Shift_JIS
    EXPECT_EQ("計画", Read("SheetProject,\x8C\x76\x89\xE6,\nFIN\n").project);
}

TEST(SheetLines, NameStoriesFloorsAndCases) {
    const SheetLines lines = Read(
        "SheetStoryName,1,1F,\nSheetStoryName,2,2F,3,3F,\nSheetFloorName,1,1FL,\n"
        "SheetCaseName,2,K+X,\nFIN\n");
    EXPECT_THAT(lines.storyNames, ElementsAre(Pair(1, "1F"), Pair(2, "2F"), Pair(3, "3F")));
    EXPECT_THAT(lines.floorNames, ElementsAre(Pair(1, "1FL")));
    EXPECT_THAT(lines.caseNames, ElementsAre(Pair(2, "K+X")));
}

TEST(SheetLines, GiveTheGridAndTheGround) {
    const SheetLines lines =
        Read("SheetGridX,X1,0,X2,6000.5,X3,oops,\nSheetGridZ,Y1,-1500,\nSheetGround,-300,\nFIN\n");
    ASSERT_EQ(2u, lines.gridX.size());
    EXPECT_EQ("X2", lines.gridX[1].name);
    EXPECT_EQ(6000.5, lines.gridX[1].at);
    EXPECT_EQ(-1500.0, lines.gridSecond.at(0).at);
    EXPECT_EQ(-300.0, lines.groundLevel);
}

TEST(SheetLines, AddUpNotesAndKeepTheCommasWithinThem) {
    const SheetLines lines =
        Read("SheetNote,drawing S-12, revision 3,,,\r\nSheetNote,,\nSheetNote,b\nFIN");
    EXPECT_THAT(lines.notes, ElementsAre("drawing S-12, revision 3", "b"));
}

TEST(SheetLines, EndAtFin) {
    EXPECT_EQ("", Read("FIN\nSheetProject,late,\n").project);
}

TEST(SheetLines, EndAfter199Bytes) {
    const SheetLines lines = Read("SheetProject," + std::string(10000, 'a') + "\nFIN\n");
    EXPECT_EQ(199 - std::string("SheetProject,").size(), lines.project.size());
}

TEST(SheetLines, OfAMissingFileAreEmpty) {
    const TestFolder folder;
    EXPECT_THAT(ReadSheetLines(folder.Path("none.csv")).notes, IsEmpty());
}

}  // namespace
