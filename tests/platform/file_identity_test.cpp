#include "platform/file_identity.h"

#include <gtest/gtest.h>

#include <filesystem>

#ifdef _WIN32
#include "platform/narrow_text.h"
#endif
#include "tests/support/test_folder.h"

namespace {

class FileIdentityTest : public testing::Test {
protected:
    // Tells what the two paths, both in the folder, lead to.
    bool AreSame(const std::string& a, const std::string& b) const {
        const auto first = IdentityOf(folder.Path("") + a);
        EXPECT_TRUE(first) << a;
        const auto second = IdentityOf(folder.Path("") + b);
        EXPECT_TRUE(second) << b;
        return first == second;
    }

    const TestFolder folder;
};

using IdentityOfAFile = FileIdentityTest;
using IdentityOfANewFile = FileIdentityTest;

}  // namespace

TEST_F(IdentityOfAFile, SeesThroughOtherSpellings) {
    std::filesystem::create_directory(folder.Path("sub"));
    folder.Write("tower.qhm", "");
    EXPECT_TRUE(AreSame("tower.qhm", "./tower.qhm"));
    EXPECT_TRUE(AreSame("tower.qhm", "sub/../tower.qhm"));
}

TEST_F(IdentityOfAFile, TellsTwoFilesApart) {
    folder.Write("tower.qhm", "");
    folder.Write("tower.csv", "");
    EXPECT_FALSE(AreSame("tower.qhm", "tower.csv"));
}

TEST_F(IdentityOfAFile, SeesThroughHardLinks) {
    folder.Write("tower.qhm", "");
    std::filesystem::create_hard_link(folder.Path("tower.qhm"), folder.Path("other.txt"));
    EXPECT_TRUE(AreSame("tower.qhm", "other.txt"));
}

TEST_F(IdentityOfAFile, IsNoneWhereNoFileCanBe) {
    EXPECT_FALSE(IdentityOf(""));
    EXPECT_FALSE(IdentityOf(folder.Path("gone/tower.qhm")));
    EXPECT_FALSE(IdentityOf(folder.Path("gone/")));
}

TEST_F(IdentityOfANewFile, IsItsFolderAndItsName) {
    std::filesystem::create_directory(folder.Path("sub"));
    EXPECT_TRUE(AreSame("new.json", "./new.json"));
    EXPECT_TRUE(AreSame("new.json", "sub/../new.json"));
    EXPECT_FALSE(AreSame("new.json", "new.csv"));
    EXPECT_FALSE(AreSame("new.json", "sub/new.json"));
}

TEST_F(IdentityOfANewFile, InTheCurrentFolderNeedsNoFolderInItsPath) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(""));
    EXPECT_EQ(IdentityOf(folder.Path("new.json")), IdentityOf("new.json"));
    EXPECT_TRUE(IdentityOf("new.json"));
    std::filesystem::current_path(before);
}

TEST_F(IdentityOfANewFile, ChangesWhenTheFileIsMade) {
    const auto before = IdentityOf(folder.Path("new.json"));
    folder.Write("new.json", "");
    EXPECT_NE(before, IdentityOf(folder.Path("new.json")));
}

#ifdef _WIN32

TEST_F(IdentityOfAFile, HasNoCase) {
    folder.Write("tower.qhm", "");
    EXPECT_TRUE(AreSame("tower.qhm", "TOWER.QHM"));
}

TEST_F(IdentityOfAFile, IsTheSameForItsStreams) {
    folder.Write("tower.qhm", "");
    EXPECT_TRUE(AreSame("tower.qhm", "tower.qhm:notes"));
    EXPECT_TRUE(AreSame("tower.qhm", "tower.qhm::$DATA"));
}

TEST_F(IdentityOfAFile, SeesThroughDotsAndBlanksBehindTheName) {
    folder.Write("tower.qhm", "");
    EXPECT_TRUE(AreSame("tower.qhm", "tower.qhm."));
    EXPECT_TRUE(AreSame("tower.qhm", "tower.qhm . "));
}

TEST_F(IdentityOfANewFile, HasNoCaseAndNoDotsAndBlanksBehindTheName) {
    EXPECT_TRUE(AreSame("new.json", "NEW.Json"));
    EXPECT_TRUE(AreSame("new.json", "new.json."));
    EXPECT_TRUE(AreSame("new.json", "new.json:stream"));
    EXPECT_TRUE(AreSame(NarrowText(L"\u00E9.json"), NarrowText(L"\u00C9.json")));
}

TEST_F(IdentityOfAFile, IsNoneForDevices) {
    EXPECT_FALSE(IdentityOf("NUL"));
    EXPECT_FALSE(IdentityOf("\\\\.\\pipe\\quarnel-no-such-pipe"));
}

#else

TEST_F(IdentityOfAFile, SeesThroughLinks) {
    folder.Write("tower.qhm", "");
    std::filesystem::create_symlink("tower.qhm", folder.Path("link"));
    std::filesystem::create_symlink(folder.Path("link"), folder.Path("link of a link"));
    EXPECT_TRUE(AreSame("tower.qhm", "link of a link"));
}

TEST_F(IdentityOfANewFile, IsWhereALinkLeadsTo) {
    std::filesystem::create_directory(folder.Path("sub"));
    std::filesystem::create_symlink("sub/new.json", folder.Path("link"));
    std::filesystem::create_symlink("../link", folder.Path("sub/back"));
    EXPECT_TRUE(AreSame("sub/new.json", "link"));
    EXPECT_TRUE(AreSame("sub/new.json", "sub/back"));
}

TEST_F(IdentityOfANewFile, SeesThroughLinksToItsFolder) {
    std::filesystem::create_directory(folder.Path("sub"));
    std::filesystem::create_symlink("sub", folder.Path("other"));
    EXPECT_TRUE(AreSame("sub/new.json", "other/new.json"));
}

TEST_F(IdentityOfANewFile, HasCase) {
    EXPECT_FALSE(AreSame("new.json", "NEW.json"));
}

TEST_F(IdentityOfANewFile, IsFoundInACircleOfLinks) {
    std::filesystem::create_symlink("b", folder.Path("a"));
    std::filesystem::create_symlink("a", folder.Path("b"));
    IdentityOf(folder.Path("a"));  // comes back
}

TEST_F(FileIdentityTest, OfALinkIsThatOfThePathWithoutLinks) {
    std::filesystem::create_symlink("sub/../new.json", folder.Path("link"));
    EXPECT_EQ(folder.Path("sub/../new.json"), WithoutLinks(folder.Path("link")));
    EXPECT_EQ(folder.Path("plain"), WithoutLinks(folder.Path("plain")));
}

#endif
