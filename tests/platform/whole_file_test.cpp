#include "platform/whole_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_folder.h"

using testing::HasSubstr;

namespace {

/// Why a file cannot be written at `path`; empty when it can.
std::string WriteError(const std::string& path) {
    try {
        WholeFile file(path);
        std::fputs("new", file.stream());
        file.Finish();
    } catch (const WholeFileError& error) {
        return error.what();
    }
    return {};
}

}  // namespace

TEST(WholeFile, ReplacesTheFileOnlyWhenItIsFinished) {
    const TestFolder folder;
    const std::string path = folder.Write("out.txt", "old");
    {
        WholeFile file(path);
        std::fputs("new", file.stream());
        std::fflush(file.stream());
        EXPECT_EQ("old", folder.Read("out.txt"));
        file.Finish();
    }
    EXPECT_EQ("new", folder.Read("out.txt"));
    EXPECT_FALSE(folder.Has("out.txt.part"));
}

TEST(WholeFile, LeavesNothingWhenItIsNotFinished) {
    const TestFolder folder;
    const std::string path = folder.Write("out.txt", "old");
    { const WholeFile file(path); }
    EXPECT_EQ("old", folder.Read("out.txt"));
    EXPECT_FALSE(folder.Has("out.txt.part"));
}

TEST(WholeFile, SaysWhichFileCannotBeCreated) {
    const TestFolder folder;
    const std::string path = folder.Path("gone/out.txt");
    EXPECT_EQ("cannot create " + path + ".part", WriteError(path));
}

TEST(WholeFile, CannotTakeThePlaceOfAFolder) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path("out.txt"));
    folder.Write("out.txt/inside", "kept");
    EXPECT_THAT(WriteError(folder.Path("out.txt")), HasSubstr("cannot put it in place"));
    EXPECT_FALSE(folder.Has("out.txt.part"));
}

#ifndef _WIN32

// A device that is always full stands in for a full disk.
TEST(WholeFile, AFullDiskIsFoundOutBeforeTheOldFileGoes) {
    const TestFolder folder;
    const std::string path = folder.Write("out.txt", "old");
    std::filesystem::create_symlink("/dev/full", folder.Path("out.txt.part"));
    EXPECT_THAT(WriteError(path), HasSubstr("the disk is full"));
    EXPECT_EQ("old", folder.Read("out.txt"));
}

#endif
