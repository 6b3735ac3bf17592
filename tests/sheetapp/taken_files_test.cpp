// What the program makes of files that are dropped on it.

#include "sheetapp/taken_files.h"

#include <gtest/gtest.h>

TEST(TakenFiles, AreAnInputFileAndARecordingInAnyOrder) {
    for (const std::vector<std::string>& paths :
         {std::vector<std::string>{"a.csv", "b.qhm"}, std::vector<std::string>{"b.qhm", "a.csv"}}) {
        const TakenFiles taken = TakeFiles(paths);
        EXPECT_EQ("a.csv", taken.request.input);
        EXPECT_EQ("b.qhm", taken.request.recording);
        EXPECT_FALSE(taken.hasTwoOfAKind);
    }
}

TEST(TakenFiles, MayHaveTheirEndsInCapitals) {
    EXPECT_EQ("TOWER.CSV", TakeFiles({"TOWER.CSV"}).request.input);
}

TEST(TakenFiles, WithTwoInputFilesLeaveOpenWhichIsMeant) {
    EXPECT_TRUE(TakeFiles({"a.csv", "b.csv"}).hasTwoOfAKind);
}

TEST(TakenFiles, NameAFileOfAnotherKind) {
    EXPECT_EQ("folder", TakeFiles({"a.csv", "folder", "notes.txt"}).stranger);
    EXPECT_EQ("csv", TakeFiles({"csv"}).stranger);
}
