#include "platform/whole_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>

#include "tests/support/file_size_limit.h"
#endif

#include <algorithm>
#include <filesystem>
#include <vector>

#include "tests/support/open_files.h"
#include "tests/support/test_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class WholeFileTest : public testing::Test {
protected:
    std::vector<std::string> Names(const std::string& in = "") const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path(in)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string ErrorOfWriting(const std::string& at) const {
        try {
            WriteWholeFile(at, "new");
        } catch (const WholeFileError& error) {
            return error.what();
        }
        ADD_FAILURE() << at << " was written";
        return {};
    }

    const TestFolder folder;
    const std::string path = folder.Path("out.json");
};

}  // namespace

TEST_F(WholeFileTest, HoldsTheBytesAsTheyAre) {
    const std::string bytes("a\nb\r\n\0\x1a", 7);
    WriteWholeFile(path, bytes);
    EXPECT_EQ(7u, std::filesystem::file_size(path));
    EXPECT_EQ(std::string("a\nb\n\0\x1a", 6), folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

TEST_F(WholeFileTest, ReplacesAnOlderFileInTheEnd) {
    folder.Write("out.json", "older");
    WholeFile file(path);
    std::fputs("new", file.Stream());
    std::fflush(file.Stream());
    EXPECT_EQ("older", folder.Read("out.json"));
    file.Finish();
    EXPECT_EQ("new", folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

TEST_F(WholeFileTest, ThatIsGivenUpLeavesTheOlderOneAndNothingElse) {
    folder.Write("out.json", "older");
    const std::ptrdiff_t before = OpenFiles();
    {
        const WholeFile file(path);
        std::fputs("new", file.Stream());
    }
    EXPECT_EQ("older", folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
    EXPECT_EQ(before, OpenFiles());
}

TEST_F(WholeFileTest, IsWrittenUnderANameThatNobodyElseHas) {
    folder.Write("out.json.part", "of somebody else");
    const WholeFile one(path);
    const WholeFile two(path);
    EXPECT_THAT(Names(), SizeIs(3));
    EXPECT_EQ("of somebody else", folder.Read("out.json.part"));
}

TEST_F(WholeFileTest, WorksInTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(""));
    WriteWholeFile("out.json", "new");
    std::filesystem::current_path(before);
    EXPECT_EQ("new", folder.Read("out.json"));
}

TEST_F(WholeFileTest, NeverReplacesAFolder) {
    std::filesystem::create_directory(path);
    EXPECT_THAT(ErrorOfWriting(path), HasSubstr("not a regular file"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
    EXPECT_THAT(Names("out.json"), IsEmpty());
}

TEST_F(WholeFileTest, NeedsItsFolder) {
    EXPECT_THAT(ErrorOfWriting(folder.Path("gone/out.json")), HasSubstr("in its folder"));
}

TEST_F(WholeFileTest, CanBeAskedForBeforeItIsWritten) {
    folder.Write("out.json", "older");
    RequireWholeFileCanBeWritten(path);
    RequireWholeFileCanBeWritten(folder.Path("new.json"));
    EXPECT_THROW(RequireWholeFileCanBeWritten(folder.Path("gone/out.json")), WholeFileError);
    EXPECT_EQ("older", folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

#ifdef _WIN32

TEST_F(WholeFileTest, LeavesAFileThatAnotherProgramKeepsToItself) {
    folder.Write("out.json", "older");
    const HANDLE other = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
    EXPECT_THAT(ErrorOfWriting(path), HasSubstr("cannot be replaced"));
    CloseHandle(other);
    EXPECT_EQ("older", folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

TEST_F(WholeFileTest, LeavesAFileThatMayNotBeWritten) {
    folder.Write("out.json", "older");
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    ErrorOfWriting(path);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ("older", folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

TEST_F(WholeFileTest, NeverReplacesADevice) {
    EXPECT_THAT(ErrorOfWriting("NUL"), HasSubstr("not a regular file"));
}

#else

TEST_F(WholeFileTest, OnAFullDiskLeavesTheOlderOneAndNothingElse) {
    folder.Write("out.json", "older");
    std::string error;
    {
        const FileSizeLimit fullDisk(2);
        error = ErrorOfWriting(path);
    }
    EXPECT_THAT(error, HasSubstr("the disk is full"));
    EXPECT_EQ("older", folder.Read("out.json"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

TEST_F(WholeFileTest, IsWrittenWhereALinkLeadsTo) {
    std::filesystem::create_directory(folder.Path("sub"));
    folder.Write("sub/target.json", "older");
    std::filesystem::create_symlink("sub/target.json", path);
    WriteWholeFile(path, "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ("new", folder.Read("sub/target.json"));
}

TEST_F(WholeFileTest, HasTheRightsOfAnOrdinaryNewFile) {
    const mode_t mask = umask(027);
    WriteWholeFile(path, "new");
    umask(mask);
    struct stat made;
    ASSERT_EQ(0, stat(path.c_str(), &made));
    EXPECT_EQ(0640u, made.st_mode & 0777u);
}

TEST_F(WholeFileTest, KeepsTheRightsOfTheOlderOne) {
    folder.Write("out.json", "older");
    chmod(path.c_str(), 0604);
    WriteWholeFile(path, "new");
    struct stat made;
    ASSERT_EQ(0, stat(path.c_str(), &made));
    EXPECT_EQ(0604u, made.st_mode & 0777u);
}

TEST_F(WholeFileTest, LeavesTheOtherNamesOfTheOlderOne) {
    folder.Write("out.json", "older");
    std::filesystem::create_hard_link(path, folder.Path("kept.json"));
    WriteWholeFile(path, "new");
    EXPECT_EQ("older", folder.Read("kept.json"));
}

// Nobody reads the pipe: opened, it would be waited for without end.
TEST_F(WholeFileTest, NeverReplacesAPipeOrADevice) {
    ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
    EXPECT_THAT(ErrorOfWriting(path), HasSubstr("not a regular file"));
    EXPECT_THAT(ErrorOfWriting("/dev/null"), HasSubstr("not a regular file"));
    EXPECT_THAT(Names(), ElementsAre("out.json"));
}

#endif
