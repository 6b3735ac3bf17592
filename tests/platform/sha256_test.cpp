#include "platform/sha256.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_folder.h"

// The three messages that the standard of the algorithm gives as its examples: FIPS 180-4 and
// NIST's sheets of example values.
constexpr const char* kOfAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
constexpr const char* kOfTwoBlocks =
    "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1";
constexpr const char* kOfAMillionA =
    "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";
constexpr const char* kOfNothing =
    "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";

TEST(Sha256, FormsTheDigestOfAllPieces) {
    Sha256 sha256;
    sha256.Add(std::string("abcdbcdecdefdefgefghfg"));
    sha256.Add({});
    sha256.Add(std::string("highijhijkijkljklmklmnlmnomnopnopq"));
    EXPECT_EQ(kOfTwoBlocks, sha256.Digest());
}

TEST(Sha256, OfNoBytesAtAll) {
    EXPECT_EQ(kOfNothing, Sha256().Digest());
}

TEST(Sha256, OfAFileIsThatOfItsBytes) {
    const TestFolder folder;
    EXPECT_EQ(kOfAbc, Sha256OfFile(folder.Write("abc.csv", "abc")));
    EXPECT_EQ(kOfAMillionA, Sha256OfFile(folder.Write("long.csv", std::string(1000000, 'a'))));
    EXPECT_EQ(kOfNothing, Sha256OfFile(folder.Write("empty.csv", "")));
}

// A line end of two bytes is two bytes.
TEST(Sha256, OfAFileCountsEveryByteAsItStands) {
    const TestFolder folder;
    Sha256 sha256;
    sha256.Add(std::string("FIN\r\n\x1a"));
    EXPECT_EQ(sha256.Digest(), Sha256OfFile(folder.Write("line.csv", "FIN\r\n\x1a")));
}

TEST(Sha256, OfAFileThatCannotBeReadIsNone) {
    const TestFolder folder;
    EXPECT_EQ(std::nullopt, Sha256OfFile(folder.Path("gone.csv")));
    std::filesystem::create_directory(folder.Path("folder"));
    EXPECT_EQ(std::nullopt, Sha256OfFile(folder.Path("folder")));
}
