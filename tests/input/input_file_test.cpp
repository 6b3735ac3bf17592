#include "input/input_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>

#include "input/input_readers.h"
#include "input/number_text.h"
#include "tests/support/test_folder.h"

namespace {

using testing::ElementsAre;

// A file of the given bytes, opened for reading.
struct Input {
    explicit Input(const std::string& bytes) : file(folder.Write("input.csv", bytes)) {}

    void ReadLines(int count) {
        for (int i = 0; i < count; ++i)
            file.ReadLine();
    }

    TestFolder folder;
    InputFile file;
};

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

// The reading loop over a file of the given bytes, with how many lines it handed out.
struct Loop {
    explicit Loop(const std::string& bytes) : path(folder.Write("input.csv", bytes)) {}

    ReadingEnd Run(const std::function<std::optional<ReadingEnd>(InputFile&)>& processLine) {
        InputFile file(path);
        return ReadLines(file, [&](InputFile& line) {
            ++linesHandedOut;
            return processLine(line);
        });
    }
    ReadingEnd RunToTheEnd() {
        return Run([](InputFile&) { return std::nullopt; });
    }

    TestFolder folder;
    std::string path;
    int linesHandedOut = 0;
};

}  // namespace

// --- Fields

TEST(InputFileFields, RunFromCommaToCommaOrLineFeed) {
    Input input("StoryMember,11,12,13\n");
    input.file.ReadLine();
    EXPECT_EQ("StoryMember", input.file.FirstField());
    EXPECT_EQ("11", input.file.Value(1));
    EXPECT_EQ("12", input.file.Value(2));
    EXPECT_EQ("13", input.file.Value(3));
}

TEST(InputFileFields, OfAListEndBeforeTheTextAfterTheLastComma) {
    Input input("FloorLevel,0,3500,7000\nFloorLevel,0,3500,7000,\nFloorLevel,\nFloorLevel\n");
    input.file.ReadLine();
    EXPECT_EQ(3u, input.file.ListEnd());  // fields 1 and 2
    input.file.ReadLine();
    EXPECT_EQ(4u, input.file.ListEnd());  // fields 1 to 3
    input.file.ReadLine();
    EXPECT_EQ(1u, input.file.ListEnd());  // none
    input.file.ReadLine();
    EXPECT_EQ(0u, input.file.ListEnd());  // none
    EXPECT_FALSE(input.file.HasComma());
}

TEST(InputFileFields, KeepBlanksAndQuotesAsTheyAre) {
    Input input(" FloorLevel ,\" 1\", 2\n");
    input.file.ReadLine();
    EXPECT_EQ(" FloorLevel ", input.file.FirstField());
    EXPECT_EQ("\" 1\"", input.file.Value(1));
    EXPECT_EQ(" 2", input.file.Value(2));
}

TEST(InputFileFields, MayBeEmpty) {
    Input input(",,\n");
    input.file.ReadLine();
    EXPECT_TRUE(input.file.HasComma());
    EXPECT_EQ("", input.file.FirstField());
    EXPECT_EQ("", input.file.Value(1));
    EXPECT_EQ("", input.file.Value(2));
}

TEST(InputFileFields, StartEmptyWhenTheFirstLineHasNoComma) {
    Input input("StoryMember\n");
    input.file.ReadLine();
    EXPECT_EQ("", input.file.FirstField());
    EXPECT_EQ("", input.file.Value(1));
}

TEST(InputFileFields, OfALineWithoutACommaAreThoseOfTheLastLineWithOne) {
    Input input("DeadLoadCaseNumber,7,\n\n# a remark\n5\n");
    input.file.ReadLine();
    EXPECT_EQ("7", input.file.Value(1));
    for (int i = 0; i < 3; ++i) {
        input.file.ReadLine();
        EXPECT_EQ("DeadLoadCaseNumber", input.file.FirstField());
        EXPECT_EQ("7", input.file.Value(1));
    }
}

TEST(InputFileFields, KeepTheValueReadLastWhenTheLineHasTooFewCommas) {
    Input input("A,1,2,3,\nB,4\n");
    input.file.ReadLine();
    EXPECT_EQ("3", input.file.Value(3));
    input.file.ReadLine();
    EXPECT_EQ("B", input.file.FirstField());
    EXPECT_EQ("3", input.file.Value(2));
    EXPECT_EQ("4", input.file.Value(1));
    EXPECT_EQ("4", input.file.Value(2));
}

// --- Kinds of lines

TEST(InputFileLines, EndTheDataWhenTheyBeginWithFin) {
    for (const char* line : {"FIN", "FIN\n", "FIN\r\n", "FINISH\n", "FIN,1,\n", "FINal words\n"}) {
        Input input(line);
        input.file.ReadLine();
        EXPECT_TRUE(input.file.IsFin()) << line;
    }
}

TEST(InputFileLines, DoNotEndTheDataWhenFinIsWrittenOtherwise) {
    for (const char* line :
         {"", "\n", "FI\n", "FI", " FIN\n", "fin\n", "Fin\n", ",FIN\n", "\"FIN"}) {
        Input input(line);
        input.file.ReadLine();
        EXPECT_FALSE(input.file.IsFin()) << line;
    }
}

TEST(InputFileLines, AreStoryLinesWhenTheyBeginWithADigitFrom1To9) {
    for (const char* line : {"1,2,\n", "9,\n", "5\n", "3storeys,1,\n", "10,1,\n"}) {
        Input input(line);
        input.file.ReadLine();
        EXPECT_TRUE(input.file.StartsWithStoryNumber()) << line;
    }
    for (const char* line : {"", "\n", "0,1,\n", "01,1,\n", " 1,1,\n", "-1,1,\n", "+1,1,\n",
                             ",1,\n", "a1,\n", ":,1,\n", "/,1,\n"}) {
        Input input(line);
        input.file.ReadLine();
        EXPECT_FALSE(input.file.StartsWithStoryNumber()) << line;
    }
}

// --- The limit of 199 characters

TEST(InputFileLines, OfMoreThan199CharactersGoOnAsALineOfTheirOwn) {
    // "1," and 197 times "x" are 199 characters; "2,7,\n" is what is left.
    Input input("1," + std::string(197, 'x') + "2,7,\nFIN\n");
    input.file.ReadLine();
    EXPECT_EQ("1", input.file.FirstField());
    EXPECT_EQ(std::string(197, 'x'), input.file.Value(1));
    input.file.ReadLine();
    EXPECT_EQ("2", input.file.FirstField());
    EXPECT_EQ("7", input.file.Value(1));
    EXPECT_TRUE(input.file.StartsWithStoryNumber());
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileLines, OfExactly199CharactersAreFollowedByAnEmptyLine) {
    Input input("A," + std::string(197, 'x') + "\nFIN\n");
    input.file.ReadLine();
    EXPECT_TRUE(input.file.HasComma());
    input.file.ReadLine();
    EXPECT_FALSE(input.file.HasComma());
    EXPECT_FALSE(input.file.IsFin());
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileLines, Of198CharactersAndTheirLineFeedAreOneLine) {
    Input input("A," + std::string(196, 'x') + "\nFIN\n");
    input.ReadLines(2);
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileLines, AreCutInThreeWhenTheyAreLongEnough) {
    // 2 x 199 characters and then FIN, which so stands at the beginning of a line.
    Input input(std::string(398, 'x') + "FIN");
    input.ReadLines(2);
    EXPECT_FALSE(input.file.IsFin());
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileLines, CutInAFieldGiveTheFieldUpToTheCut) {
    // 195 + 1 + 3 = 199 characters end within the number 12345.
    Input input(std::string(195, 'k') + ",12345,\n");
    input.file.ReadLine();
    EXPECT_EQ("123", input.file.Value(1));
    input.file.ReadLine();
    EXPECT_EQ("45", input.file.FirstField());
    EXPECT_TRUE(input.file.StartsWithStoryNumber());
}

TEST(InputFileLines, CutRightBehindACommaHaveAnEmptyLastField) {
    Input input(std::string(198, 'k') + ",12\n");
    input.file.ReadLine();
    EXPECT_EQ("", input.file.Value(1));
    input.file.ReadLine();
    EXPECT_FALSE(input.file.HasComma());
    EXPECT_TRUE(input.file.StartsWithStoryNumber());
}

// --- Carriage returns

TEST(InputFileCarriageReturns, BeforeALineFeedAreNotPartOfAField) {
    Input input("DeadLoadCaseNumber,5\r\nFIN\r\n");
    input.file.ReadLine();
    EXPECT_EQ("5", input.file.Value(1));
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileCarriageReturns, BeforeALineFeedAreNotCounted) {
    // 198 characters, as with a line feed alone.
    Input input("A," + std::string(196, 'x') + "\r\nFIN\r\n");
    input.ReadLines(2);
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileCarriageReturns, AfterExactly199CharactersLeaveAnEmptyLine) {
    Input input("A," + std::string(197, 'x') + "\r\nFIN\r\n");
    input.ReadLines(2);
    EXPECT_FALSE(input.file.HasComma());
    EXPECT_FALSE(input.file.IsFin());
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileCarriageReturns, ElsewhereAreOrdinaryCharacters) {
    Input input("A\rB,1\r2,3\r\r\nFIN");
    input.file.ReadLine();
    EXPECT_EQ("A\rB", input.file.FirstField());
    EXPECT_EQ("1\r2", input.file.Value(1));
    EXPECT_EQ("3\r", input.file.Value(2));  // the second one stands before the line feed
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileCarriageReturns, ElsewhereCountAmongThe199Characters) {
    // 2 + 197 carriage returns are 199 characters.
    Input input("A," + std::string(197, '\r') + "FIN\n");
    input.ReadLines(2);
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileCarriageReturns, AtTheEndOfTheFileStay) {
    Input input("A,1\r");
    input.file.ReadLine();
    EXPECT_EQ("1\r", input.file.Value(1));
}

// --- The end of the file

TEST(InputFileEnd, RepeatsTheLastLine) {
    Input input("A,1,\nB,2,\n");
    input.ReadLines(2);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ("B", input.file.FirstField());
        EXPECT_EQ("2", input.file.Value(1));
        EXPECT_EQ(3u - 1u, input.file.ListEnd());
        input.file.ReadLine();
    }
}

TEST(InputFileEnd, MayCutTheLastLineShort) {
    Input input("A,1,\nB,23");
    input.ReadLines(2);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ("B", input.file.FirstField());
        EXPECT_EQ("23", input.file.Value(1));
        input.file.ReadLine();
    }
}

TEST(InputFileEnd, OfAnEmptyFileIsAnEmptyLine) {
    Input input("");
    ASSERT_TRUE(input.file.IsOpen());
    for (int i = 0; i < 2; ++i) {
        input.file.ReadLine();
        EXPECT_FALSE(input.file.IsFin());
        EXPECT_FALSE(input.file.HasComma());
        EXPECT_FALSE(input.file.StartsWithStoryNumber());
        EXPECT_EQ("", input.file.FirstField());
        EXPECT_EQ("", input.file.Value(1));
    }
}

#ifdef _WIN32

TEST(InputFileEnd, IsAtTheCharacterThatEndsTextsOnWindows) {
    Input input("A,1\nB,2\x1a,3\nFIN\n");
    input.file.ReadLine();
    EXPECT_EQ("1", input.file.Value(1));
    for (int i = 0; i < 3; ++i) {
        input.file.ReadLine();
        EXPECT_EQ("B", input.file.FirstField());
        EXPECT_EQ("2", input.file.Value(1));
        EXPECT_EQ(1u, input.file.ListEnd());
        EXPECT_FALSE(input.file.IsFin());
    }
}

#else

TEST(InputFileEnd, IsNotAtTheCharacterThatEndsTextsElsewhere) {
    Input input("A,1\x1a,2\nFIN\n");
    input.file.ReadLine();
    EXPECT_EQ("2", input.file.Value(2));
    input.file.ReadLine();
    EXPECT_TRUE(input.file.IsFin());
}

// Nobody writes into the pipe: opened, it would be waited for without end.
TEST(InputFileOpening, FailsForAPipeAtOnce) {
    const TestFolder folder;
    ASSERT_EQ(0, mkfifo(folder.Path("pipe.csv").c_str(), 0600));
    EXPECT_FALSE(InputFile(folder.Path("pipe.csv")).IsOpen());
}

#endif

TEST(InputFileOpening, FailsForADevice) {
#ifdef _WIN32
    EXPECT_FALSE(InputFile("NUL").IsOpen());
#else
    EXPECT_FALSE(InputFile("/dev/null").IsOpen());
#endif
}

TEST(InputFileOpening, FailsForAMissingFileAndForAFolder) {
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path("folder"));
    EXPECT_FALSE(InputFile(folder.Path("missing.csv")).IsOpen());
    EXPECT_FALSE(InputFile(folder.Path("folder")).IsOpen());
    EXPECT_FALSE(InputFile("").IsOpen());
}

TEST(InputFileNoise, OfEveryByteIsReadAsLines) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != 0x1A) bytes.push_back(static_cast<char>(byte));  // it has tests of its own
    Input input(bytes + std::string(3, '\0') + "\nFIN\n");
    int lines = 0;
    // 255 characters with one line feed among them, cut at 199, and 4 more: a handful of lines.
    for (input.file.ReadLine(); !input.file.IsFin() && lines < 100; input.file.ReadLine()) {
        ++lines;
        input.file.Value(1);
    }
    EXPECT_TRUE(input.file.IsFin());
}

TEST(InputFileLines, AreNumberedAsAnEditorCounts) {
    Input input(std::string(450, 'x') + "\nB,\n");
    input.file.ReadLine();
    EXPECT_EQ(1u, input.file.LineNumber());
    input.ReadLines(2);  // the second and third piece of line 1
    EXPECT_EQ(1u, input.file.LineNumber());
    input.file.ReadLine();
    EXPECT_EQ(2u, input.file.LineNumber());
    input.file.ReadLine();  // the end of the file
    EXPECT_EQ(2u, input.file.LineNumber());
}

// --- Numbers

TEST(ToInteger, ReadsTheNumberAtTheStart) {
    const struct {
        const char* text;
        std::int32_t number;
    } cases[] = {{"7", 7},
                 {"  7", 7},
                 {"\t7", 7},
                 {"-3", -3},
                 {"+4", 4},
                 {"007", 7},
                 {"12ab", 12},
                 {"3.9", 3},
                 {"1e3", 1},
                 {"5 6", 5},
                 {"", 0},
                 {"abc", 0},
                 {" ", 0},
                 {"- 3", 0},
                 {"--3", 0},
                 {"0x10", 0},
                 {"\"8\"", 0},
                 {"\r9", 9},
                 {"2147483647", 2147483647}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(number, ToInteger(text)) << "'" << text << "'";
}

TEST(ToInteger, StopsAtTheEndsOf32Bits) {
    constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(kHighest, ToInteger("2147483648"));
    EXPECT_EQ(kHighest, ToInteger("4294967297"));  // 2^32 + 1
    EXPECT_EQ(kHighest, ToInteger("99999999999999999999999"));
    EXPECT_EQ(kLowest, ToInteger("-2147483648"));
    EXPECT_EQ(kLowest, ToInteger("-2147483649"));
    EXPECT_EQ(kLowest, ToInteger("-99999999999999999999999"));
}

TEST(ToReal, ReadsTheNumberAtTheStart) {
    const struct {
        const char* text;
        double number;
    } cases[] = {{"3500", 3500.0},   {"  0.004", 0.004}, {"-2.5", -2.5},  {"+2.5", 2.5},
                 {".5", 0.5},        {"5.", 5.0},        {"1e3", 1000.0}, {"1.5E-2x", 0.015},
                 {"3500mm", 3500.0}, {"1,5", 1.0},       {"1e", 1.0},     {"1.2.3", 1.2},
                 {"", 0.0},          {"abc", 0.0},       {"-", 0.0},      {".", 0.0},
                 {"\r7", 7.0},       {"1d3", 1.0}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(number, ToReal(text)) << "'" << text << "'";
}

TEST(ToReal, ReadsWhatIsNoOrdinaryNumber) {
    EXPECT_TRUE(std::isnan(ToReal("nan")));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), ToReal("inf"));
    EXPECT_EQ(-std::numeric_limits<double>::infinity(), ToReal("-Infinity"));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), ToReal("1e999"));
    EXPECT_EQ(0.0, ToReal("1e-999"));
    EXPECT_EQ(16.0, ToReal("0x10"));
}

// --- The reading loop

TEST(ReadLines, HandsOutTheLinesBeforeFin) {
    Loop loop("A,1,\n\nB,2,\nFIN\nC,3,\n");
    std::vector<std::string> keywords;
    EXPECT_EQ(ReadingEnd::kAtFin, loop.Run([&](InputFile& line) {
        keywords.push_back(line.FirstField());
        return std::nullopt;
    }));
    EXPECT_THAT(keywords, ElementsAre("A", "A", "B"));
}

TEST(ReadLines, EndsWhereTheReaderHasAReasonToStop) {
    for (const ReadingEnd end : {ReadingEnd::kDone, ReadingEnd::kNoSuchStory}) {
        Loop loop("A,1,\nB,2,\n");  // no FIN line is needed then
        EXPECT_EQ(end, loop.Run([end](InputFile&) { return end; }));
        EXPECT_EQ(1, loop.linesHandedOut);
    }
}

TEST(ReadLines, AcceptsAFinLineBehind100001OtherLines) {
    Loop loop(Repeated("x\n", 100001) + "FIN\n");
    EXPECT_EQ(ReadingEnd::kAtFin, loop.RunToTheEnd());
    EXPECT_EQ(100001, loop.linesHandedOut);
}

TEST(ReadLines, RefusesAFinLineBehind100002OtherLines) {
    Loop loop(Repeated("x\n", 100002) + "FIN\n");
    EXPECT_EQ(ReadingEnd::kLineLimit, loop.RunToTheEnd());
    EXPECT_EQ(100002, loop.linesHandedOut);  // the last one is still looked at
}

TEST(ReadLines, ReachesTheLimitWithoutAFinLine) {
    for (const char* bytes : {"", "\n", "A,1,\n", "A,1,\nFI", "A,1,\n FIN\n"}) {
        Loop loop(bytes);
        EXPECT_EQ(ReadingEnd::kLineLimit, loop.RunToTheEnd()) << bytes;
        EXPECT_EQ(100002, loop.linesHandedOut) << bytes;
    }
}

TEST(ReadLines, ReachesTheLimitInOneEndlessLine) {
    // 100,002 pieces of 199 characters and a few more.
    Loop loop(std::string(std::size_t{100002} * 199 + 50, 'x') + "\nFIN\n");
    EXPECT_EQ(ReadingEnd::kLineLimit, loop.RunToTheEnd());
    EXPECT_EQ(100002, loop.linesHandedOut);
}

TEST(ReadLines, HandsOutNothingOfAFileThatCannotBeOpened) {
    Loop loop("FIN\n");
    loop.path = loop.folder.Path("missing.csv");
    EXPECT_EQ(ReadingEnd::kNotOpened, loop.RunToTheEnd());
    loop.path = loop.folder.Path("folder");
    std::filesystem::create_directory(loop.path);
    EXPECT_EQ(ReadingEnd::kNotOpened, loop.RunToTheEnd());
    EXPECT_EQ(0, loop.linesHandedOut);
}
