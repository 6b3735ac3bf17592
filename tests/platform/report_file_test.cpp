#include "platform/report_file.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cstdio>
#include <filesystem>

#include "tests/support/open_files.h"
#include "tests/support/test_folder.h"

namespace {

class ReportFile : public testing::Test {
protected:
    const TestFolder folder;
    const std::string path = folder.Path("report.txt");
};

void ExpectRefused(const std::string& path, ReportOpening why) {
    const OpenedReport report = OpenReport(path);
    EXPECT_EQ(nullptr, report.stream);
    EXPECT_EQ(why, report.opening);
}

}  // namespace

TEST_F(ReportFile, IsCreated) {
    const OpenedReport report = OpenReport(path);
    ASSERT_EQ(ReportOpening::kOpen, report.opening);
    std::fputs("a line\n", report.stream);
    EXPECT_EQ(0, std::fclose(report.stream));
    EXPECT_EQ("a line\n", folder.Read("report.txt"));
}

TEST_F(ReportFile, ReplacesWhatStoodThere) {
    folder.Write("report.txt", "a much longer text of an earlier run\n");
    const OpenedReport report = OpenReport(path);
    std::fputs("short\n", report.stream);
    std::fclose(report.stream);
    EXPECT_EQ("short\n", folder.Read("report.txt"));
}

TEST_F(ReportFile, HasTheLineEndsOfThePlatform) {
    const OpenedReport report = OpenReport(path);
    std::fputs("a\nb\n", report.stream);
    std::fclose(report.stream);
#ifdef _WIN32
    EXPECT_EQ(6u, std::filesystem::file_size(path));
#else
    EXPECT_EQ(4u, std::filesystem::file_size(path));
#endif
}

TEST_F(ReportFile, IsHeldAgainstASecondWriterWhoChangesNothing) {
    const OpenedReport first = OpenReport(path);
    std::fputs("half", first.stream);
    std::fflush(first.stream);
    ExpectRefused(path, ReportOpening::kHeld);
    EXPECT_EQ("half", folder.Read("report.txt"));  // readers may look
    std::fclose(first.stream);
    const OpenedReport second = OpenReport(path);
    EXPECT_EQ(ReportOpening::kOpen, second.opening);
    std::fclose(second.stream);
}

TEST_F(ReportFile, LeavesNothingOpenWhenItIsRefused) {
    const OpenedReport first = OpenReport(path);
    const std::ptrdiff_t before = OpenFiles();
    ExpectRefused(path, ReportOpening::kHeld);
    ExpectRefused(folder.Path(""), ReportOpening::kNotAFile);
    EXPECT_EQ(before, OpenFiles());
    std::fclose(first.stream);
}

TEST_F(ReportFile, IsNotAFolderOrADevice) {
    ExpectRefused(folder.Path(""), ReportOpening::kNotAFile);
#ifdef _WIN32
    ExpectRefused("NUL", ReportOpening::kNotAFile);
    ExpectRefused("CON", ReportOpening::kNotAFile);
#else
    ExpectRefused("/dev/null", ReportOpening::kNotAFile);
#endif
}

TEST_F(ReportFile, CannotBeInAFolderThatDoesNotExist) {
    ExpectRefused(folder.Path("gone/report.txt"), ReportOpening::kRefused);
}

TEST_F(ReportFile, ReleasedStaysOpenAndIsOpenToOthers) {
    const OpenedReport left = OpenReport(path);
    std::fputs("rows\n", left.stream);
    ReleaseReport(left.stream);
    EXPECT_EQ("rows\n", folder.Read("report.txt"));
    const OpenedReport next = OpenReport(path);
    ASSERT_EQ(ReportOpening::kOpen, next.opening);
    std::fputs("other rows\n", next.stream);
    std::fclose(next.stream);
    EXPECT_EQ(0, std::fclose(left.stream));
    EXPECT_EQ("other rows\n", folder.Read("report.txt"));
}

#ifdef _WIN32

// What programs do that read a file and let nobody write it meanwhile.
TEST_F(ReportFile, ThatAReaderKeepsToItselfIsHeld) {
    folder.Write("report.txt", "shown");
    const HANDLE viewer = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ExpectRefused(path, ReportOpening::kHeld);
    EXPECT_EQ("shown", folder.Read("report.txt"));
    CloseHandle(viewer);
}

// What virus scanners and the viewers of texts do: they let others write.
TEST_F(ReportFile, ThatAReaderSharesIsWritten) {
    folder.Write("report.txt", "shown");
    const HANDLE viewer = CreateFileA(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    const OpenedReport report = OpenReport(path);
    EXPECT_EQ(ReportOpening::kOpen, report.opening);
    std::fclose(report.stream);
    CloseHandle(viewer);
}

TEST_F(ReportFile, ThatMayNotBeWrittenStays) {
    folder.Write("report.txt", "kept");
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    if (std::FILE* file = std::fopen(path.c_str(), "r+")) {
        std::fclose(file);
        GTEST_SKIP() << "this user may write to read-only files";
    }
    ExpectRefused(path, ReportOpening::kRefused);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ("kept", folder.Read("report.txt"));
}

#else

TEST_F(ReportFile, ReleasedGoesOnWhereItWas) {
    const OpenedReport left = OpenReport(path);
    std::fputs("a row\n", left.stream);
    ReleaseReport(left.stream);
    std::fputs("one more\n", left.stream);
    std::fclose(left.stream);
    EXPECT_EQ("a row\none more\n", folder.Read("report.txt"));
}

// Nobody reads the pipe: opened, it would be waited for without end.
TEST_F(ReportFile, IsNotAPipe) {
    ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
    ExpectRefused(path, ReportOpening::kNotAFile);
}

TEST_F(ReportFile, IsWhereALinkLeadsTo) {
    std::filesystem::create_symlink("target.txt", path);
    const OpenedReport report = OpenReport(path);
    ASSERT_EQ(ReportOpening::kOpen, report.opening);
    ExpectRefused(folder.Path("target.txt"), ReportOpening::kHeld);
    std::fclose(report.stream);
    EXPECT_TRUE(std::filesystem::is_symlink(path));
}

TEST_F(ReportFile, ThatIsReplacedWhileItIsHeldIsAnotherFile) {
    const OpenedReport first = OpenReport(path);
    std::filesystem::remove(path);
    const OpenedReport second = OpenReport(path);
    ASSERT_EQ(ReportOpening::kOpen, second.opening);
    std::fputs("second\n", second.stream);
    std::fputs("first\n", first.stream);
    std::fclose(second.stream);
    std::fclose(first.stream);
    EXPECT_EQ("second\n", folder.Read("report.txt"));
}

TEST_F(ReportFile, HasTheRightsOfAnOrdinaryNewFile) {
    const mode_t mask = umask(027);
    const OpenedReport report = OpenReport(path);
    umask(mask);
    std::fclose(report.stream);
    struct stat made;
    ASSERT_EQ(0, stat(path.c_str(), &made));
    EXPECT_EQ(0640u, made.st_mode & 0777u);
}

#endif
