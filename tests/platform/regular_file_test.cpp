#include "platform/regular_file.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#endif

#include <filesystem>

#include "tests/support/test_folder.h"

namespace {

#ifdef _WIN32
constexpr const char* kDevice = "NUL";
#else
constexpr const char* kDevice = "/dev/null";
#endif

std::string Characters(const std::string& bytes) {
    const TestFolder folder;
    const StdioFile file = OpenRegularFile(folder.Write("text", bytes), ReadMode::kText);
    std::string text;
    for (int read = ReadTextCharacter(file.get()); read != EOF;
         read = ReadTextCharacter(file.get()))
        text.push_back(static_cast<char>(read));
    return text;
}

}  // namespace

TEST(FileKindOf, TellsFilesFoldersDevicesAndNothingApart) {
    const TestFolder folder;
    EXPECT_EQ(FileKind::kRegular, FileKindOf(folder.Write("input.csv", "")));
    EXPECT_EQ(FileKind::kFolder, FileKindOf(folder.Path("")));
    EXPECT_EQ(FileKind::kOther, FileKindOf(kDevice));
    EXPECT_EQ(FileKind::kNothing, FileKindOf(folder.Path("gone.csv")));
    EXPECT_EQ(FileKind::kNothing, FileKindOf(""));
}

TEST(OpenRegularFile, GivesTheBytesOfAFile) {
    const TestFolder folder;
    const StdioFile file = OpenRegularFile(folder.Write("bytes", "\x1a\r\nx"), ReadMode::kBytes);
    ASSERT_NE(nullptr, file);
    for (const int byte : {0x1a, 0x0d, 0x0a, 0x78, EOF})
        EXPECT_EQ(byte, std::fgetc(file.get()));
}

TEST(OpenRegularFile, GivesNothingForFoldersDevicesAndWhatIsNotThere) {
    const TestFolder folder;
    for (const std::string& path :
         {folder.Path(""), folder.Path("gone"), std::string(kDevice), std::string()}) {
        EXPECT_EQ(nullptr, OpenRegularFile(path, ReadMode::kBytes)) << path;
        EXPECT_EQ(nullptr, OpenRegularFile(path, ReadMode::kText)) << path;
    }
}

TEST(ReadTextCharacter, DropsACarriageReturnJustBeforeALineFeed) {
    EXPECT_EQ("a\nb\r\n\rc\r", Characters("a\r\nb\r\r\n\rc\r"));
}

#ifndef _WIN32

// Nobody writes into the pipe: opened, it would be waited for without end.
TEST(OpenRegularFile, GivesNothingForAPipeAtOnce) {
    const TestFolder folder;
    ASSERT_EQ(0, mkfifo(folder.Path("pipe").c_str(), 0600));
    EXPECT_EQ(FileKind::kOther, FileKindOf(folder.Path("pipe")));
    EXPECT_EQ(nullptr, OpenRegularFile(folder.Path("pipe"), ReadMode::kText));
}

TEST(OpenRegularFile, FollowsLinks) {
    const TestFolder folder;
    folder.Write("file", "x");
    std::filesystem::create_symlink("file", folder.Path("link"));
    EXPECT_NE(nullptr, OpenRegularFile(folder.Path("link"), ReadMode::kText));
    std::filesystem::create_symlink(kDevice, folder.Path("device"));
    EXPECT_EQ(nullptr, OpenRegularFile(folder.Path("device"), ReadMode::kText));
}

#endif
