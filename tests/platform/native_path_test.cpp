#include "platform/native_path.h"

#include <gtest/gtest.h>

#include "tests/support/test_folder.h"

TEST(NativePath, KeepsPlainCharacters) {
    EXPECT_EQ(std::filesystem::path("jobs") / "tower.qhm", NativePath("jobs/tower.qhm"));
}

TEST(IsSameFile, SeesThroughDifferentSpellings) {
    const TestFolder folder;
    folder.Write("tower.qhm", "");
    EXPECT_TRUE(IsSameFile(folder.Path("tower.qhm"), folder.Path("./tower.qhm")));
}

TEST(IsSameFile, TellsTwoFilesApart) {
    const TestFolder folder;
    folder.Write("tower.qhm", "");
    folder.Write("tower.csv", "");
    EXPECT_FALSE(IsSameFile(folder.Path("tower.qhm"), folder.Path("tower.csv")));
}

TEST(IsSameFile, IsFalseForFilesThatDoNotExist) {
    EXPECT_FALSE(IsSameFile("no.qhm", "no.qhm"));
}
