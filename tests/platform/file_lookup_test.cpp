#include "platform/file_lookup.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_folder.h"

TEST(FileExists, FindsAFile) {
    const TestFolder folder;
    EXPECT_TRUE(FileExists(folder.Write("input.csv", "FIN\n")));
}

TEST(FileExists, FindsAnEmptyFile) {
    const TestFolder folder;
    EXPECT_TRUE(FileExists(folder.Write("input.csv", "")));
}

TEST(FileExists, FindsAFolder) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path("inputs"));
    EXPECT_TRUE(FileExists(folder.Path("inputs")));
}

TEST(FileExists, DoesNotFindWhatIsNotThere) {
    const TestFolder folder;
    EXPECT_FALSE(FileExists(folder.Path("input.csv")));
    EXPECT_FALSE(FileExists(folder.Path("no-folder/input.csv")));
}

TEST(FileExists, DoesNotLookInsideAFile) {
    const TestFolder folder;
    folder.Write("input.csv", "FIN\n");
    EXPECT_FALSE(FileExists(folder.Path("input.csv/input.csv")));
}

TEST(FileExists, FindsNothingAtAnEmptyPath) {
    EXPECT_FALSE(FileExists(""));
}

TEST(FileExists, FindsNamesWithBlanks) {
    const TestFolder folder;
    EXPECT_TRUE(FileExists(folder.Write("the input file.csv", "FIN\n")));
}

// Windows' own search takes the two for patterns.
TEST(FileExists, TakesNoPatterns) {
    const TestFolder folder;
    folder.Write("input.csv", "FIN\n");
    EXPECT_FALSE(FileExists(folder.Path("*.csv")));
    EXPECT_FALSE(FileExists(folder.Path("inpu?.csv")));
}
