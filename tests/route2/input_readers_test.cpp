// The five readers of the Route 2 Input file, each on a file of a few lines.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/engine_bench.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Cases = std::array<std::int32_t, 2>;

// Three columns one above the other: nodes 1 to 4 at 0, 3.5, 7 and 10.5 m; member 11 from node 1
// to 2, 12 from 2 to 3, 13 from 3 to 4. Member 19 ends at a node that does not exist.
struct Tower : FakeHost {
    Tower() {
        primaryLoadCases = {1};
        Node(1, 1.0, 0.0, 2.0, true).Node(2, 1.0, 3.5, 2.0).Node(3, 1.0, 7.0, 2.0);
        Node(4, 1.0, 10.5, 2.0);
        Member(11, 1, 2).Member(12, 2, 3).Member(13, 3, 4).Member(19, 4, 99);
    }
};

// An engine that has nodes, members, one load case and three stories without members, over an
// input file of the given text.
struct ReaderBench {
    explicit ReaderBench(const std::string& input) : bench(host, input), engine(bench.engine) {
        bench.SetUpModel();
        StoryInfo story;
        story.allowDeformAngle = 0.005;
        story.allowStiffRatio = 0.6;
        story.allowEccentricityModulus = 0.15;
        engine.stories.assign(3, story);
        bench.NewLog();
        host.calls.clear();
    }

    std::vector<std::int32_t> MembersOf(std::size_t story) const {
        std::vector<std::int32_t> numbers;
        for (const StoryMember& record : engine.stories[story].members)
            numbers.push_back(record.memberNumber);
        return numbers;
    }

    std::vector<double> Allowables(double StoryInfo::*field) const {
        std::vector<double> values;
        for (const StoryInfo& story : engine.stories)
            values.push_back(story.*field);
        return values;
    }

    Tower host;
    EngineBench bench;
    AijCodeRoute2& engine;
};

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

// The load case numbers that a file leaves behind.
struct LoadCases {
    std::int32_t dead;
    Cases earthquake;
    bool operator==(const LoadCases&) const = default;
};

std::ostream& operator<<(std::ostream& out, const LoadCases& cases) {
    return out << "dead " << cases.dead << ", earthquake " << cases.earthquake[0] << " and "
               << cases.earthquake[1];
}

LoadCases LoadCasesOf(const std::string& input) {
    ReaderBench bench(input);
    EXPECT_TRUE(bench.engine.SetLoadCaseNumbersWithDataFile()) << input;
    EXPECT_EQ("", bench.bench.NewLog()) << input;
    return {bench.engine.deadLoadCaseNumber, bench.engine.earthquakeLoadCaseNumber};
}

std::vector<double> FloorLevelsOf(const std::string& input) {
    ReaderBench bench(input);
    EXPECT_TRUE(bench.engine.SetFloorInfoWithDataFile()) << input;
    EXPECT_EQ(!bench.engine.floorLevels.empty(), bench.engine.floorLevelsSet) << input;
    return bench.engine.floorLevels;
}

constexpr const char* kWholeExample =
    "DeadLoadCaseNumber,7,\n"
    "EarthquakeLoadCaseNumber,2,3,\n"
    "FloorLevel,0,3500,7000,10500,\n"
    "StoryMember,\n"
    "1,11,\n"
    "2,12,\n"
    "3,13,\n"
    "AllowStoryDeformAngle,\n"
    "1,0.004,\n"
    "3,0.008,\n"
    "AllowStoryStiffRatio,\n"
    "1,0.7,\n"
    "AllowStoryEccentricityModulus,\n"
    "3,0.12,\n"
    "MemberDeformAngle,11,13,\n"
    "FIN\n";

// The reading operations, each with the warning of a file whose FIN line comes too late.
struct Reader {
    const char* name;
    bool (AijCodeRoute2::*read)();
    const char* startLine;
    const char* lineLimitWarning;
    WarningKind lineLimit;
};

constexpr Reader kReaders[] = {
    {"load cases", &AijCodeRoute2::SetLoadCaseNumbersWithDataFile, "",
     "\n*** WARNING *** : Data file line number is too large.\n",
     WarningKind::kTooManyLinesForLoadCases},
    {"floors", &AijCodeRoute2::SetFloorInfoWithDataFile,
     "\nStarts setting floor info with data file...\n",
     "\n*** WARNING *** : Data file line number is too large as setting floor info with data "
     "file.\n",
     WarningKind::kTooManyLinesForFloors},
    {"story members", &AijCodeRoute2::SetStoryInfoWithDataFile,
     "\nStarts setting story info with data file...\n",
     "\n*** WARNING *** : nData file line number is too large as setting story member with data "
     "file.\n",
     WarningKind::kTooManyLinesForStoryMembers},
    {"output flags", &AijCodeRoute2::SetMemberDeformAngleOutputFlag,
     "\nStarts setting output flag of member story deformation angle...\n",
     "\n*** WARNING *** : Data file line number is too large as setting story members' output "
     "flag.\n",
     WarningKind::kTooManyLinesForReportedMembers},
    {"allowable values", &AijCodeRoute2::SetStoryAllowableValues,
     "\nStarts setting story allowable values...\n",
     "\n*** WARNING *** : Data file line number is too large as setting story allowable "
     "values.\n",
     WarningKind::kTooManyLinesForAllowableValues},
};

}  // namespace

// --- What all five readers share

TEST(InputReaders, EachTakeTheirOwnKeywordsFromOneFile) {
    ReaderBench bench(kWholeExample);
    bench.engine.storyInfoSet = true;
    for (const Reader& reader : kReaders)
        EXPECT_TRUE((bench.engine.*reader.read)()) << reader.name;
    const AijCodeRoute2& engine = bench.engine;
    EXPECT_EQ(7, engine.deadLoadCaseNumber);
    EXPECT_EQ((Cases{2, 3}), engine.earthquakeLoadCaseNumber);
    EXPECT_THAT(engine.floorLevels, ElementsAre(0.0, 3500.0, 7000.0, 10500.0));
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
    EXPECT_THAT(bench.MembersOf(2), ElementsAre(13));
    EXPECT_THAT(bench.Allowables(&StoryInfo::allowDeformAngle), ElementsAre(0.004, 0.005, 0.008));
    EXPECT_THAT(bench.Allowables(&StoryInfo::allowStiffRatio), ElementsAre(0.7, 0.6, 0.6));
    EXPECT_THAT(bench.Allowables(&StoryInfo::allowEccentricityModulus),
                ElementsAre(0.15, 0.15, 0.12));
    EXPECT_TRUE(engine.stories[0].members[0].outputDeformAngle);
    EXPECT_FALSE(engine.stories[1].members[0].outputDeformAngle);
    EXPECT_TRUE(engine.stories[2].members[0].outputDeformAngle);
}

TEST(InputReaders, FindTheirKeywordsInAnyOrder) {
    ReaderBench bench(
        "MemberDeformAngle,11,\nAllowStoryStiffRatio,\n2,0.5\nStoryMember,\n1,11,\n"
        "FloorLevel,0,3500,\nEarthquakeLoadCaseNumber,5,6,\nFIN\n");
    for (const Reader& reader : kReaders)
        EXPECT_TRUE((bench.engine.*reader.read)()) << reader.name;
    EXPECT_EQ((Cases{5, 6}), bench.engine.earthquakeLoadCaseNumber);
    EXPECT_THAT(bench.engine.floorLevels, ElementsAre(0.0, 3500.0));
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
    EXPECT_TRUE(bench.engine.stories[0].members[0].outputDeformAngle);
    EXPECT_EQ(0.5, bench.engine.stories[1].allowStiffRatio);
}

TEST(InputReaders, WarnOfAFileThatCannotBeOpenedAndLeaveTheModelAsItIs) {
    for (const Reader& reader : kReaders) {
        ReaderBench bench("FIN\n");
        bench.engine.storyInfoSet = true;
        bench.engine.dataFilePath = bench.bench.folder.Path("missing.csv");
        EXPECT_FALSE((bench.engine.*reader.read)()) << reader.name;
        EXPECT_EQ(reader.startLine + std::string("\n*** WARNING *** : Cannot open data file ") +
                      bench.engine.dataFilePath + ".\n",
                  bench.bench.NewLog());
        ASSERT_FALSE(bench.engine.warnings.empty());
        const Warning expected{WarningKind::kCannotOpenInput, 0, bench.engine.dataFilePath};
        EXPECT_EQ(expected, bench.engine.warnings.back()) << reader.name;
        EXPECT_FALSE(bench.engine.floorLevelsSet);
        EXPECT_THAT(bench.Allowables(&StoryInfo::allowStiffRatio), Each(0.6));
    }
}

TEST(InputReaders, WarnOfAFolderInPlaceOfTheFile) {
    for (const Reader& reader : kReaders) {
        ReaderBench bench("FIN\n");
        bench.engine.storyInfoSet = true;
        bench.engine.dataFilePath = bench.bench.folder.Path("folder");
        std::filesystem::create_directory(bench.engine.dataFilePath);
        EXPECT_FALSE((bench.engine.*reader.read)()) << reader.name;
        EXPECT_EQ(reader.startLine + std::string("\n*** WARNING *** : Cannot open data file ") +
                      bench.engine.dataFilePath + ".\n",
                  bench.bench.NewLog());
    }
}

TEST(InputReaders, Accept100001OrdinaryLinesBeforeFin) {
    for (const Reader& reader : kReaders) {
        ReaderBench bench(Repeated("ordinary\n", 100001) + "FIN\n");
        bench.engine.storyInfoSet = true;
        EXPECT_TRUE((bench.engine.*reader.read)()) << reader.name;
        EXPECT_THAT(bench.bench.NewLog(), Not(HasSubstr("WARNING"))) << reader.name;
    }
}

TEST(InputReaders, RefuseOneLineMoreEachWithItsOwnWarning) {
    for (const Reader& reader : kReaders) {
        ReaderBench bench(Repeated("ordinary\n", 100002) + "FIN\n");
        bench.engine.storyInfoSet = true;
        EXPECT_FALSE((bench.engine.*reader.read)()) << reader.name;
        EXPECT_EQ(std::string(reader.startLine) + reader.lineLimitWarning, bench.bench.NewLog());
        ASSERT_FALSE(bench.engine.warnings.empty());
        EXPECT_EQ(reader.lineLimit, bench.engine.warnings.back().kind) << reader.name;
    }
}

TEST(InputReaders, RefuseAFileWithoutAFinLine) {
    for (const std::string input : {"", "EarthquakeLoadCase", "FI\n", "AllowStoryStiffRatio,\n"}) {
        for (const Reader& reader : kReaders) {
            ReaderBench bench(input);
            bench.engine.storyInfoSet = true;
            EXPECT_FALSE((bench.engine.*reader.read)()) << reader.name << ": " << input;
            EXPECT_EQ(std::string(reader.startLine) + reader.lineLimitWarning,
                      bench.bench.NewLog());
        }
    }
}

TEST(InputReaders, TakeALineThatBeginsFinishAsTheEnd) {
    ReaderBench bench("DeadLoadCaseNumber,2,\nFINISH\nDeadLoadCaseNumber,3,\n");
    bench.engine.storyInfoSet = true;
    for (const Reader& reader : kReaders)
        EXPECT_TRUE((bench.engine.*reader.read)()) << reader.name;
    EXPECT_EQ(2, bench.engine.deadLoadCaseNumber);
}

TEST(InputReaders, NeverReadLinesBehindFin) {
    ReaderBench bench(std::string("FIN\n") + kWholeExample);
    for (const Reader& reader : kReaders)
        (bench.engine.*reader.read)();
    EXPECT_EQ(1, bench.engine.deadLoadCaseNumber);
    EXPECT_EQ((Cases{1, 1}), bench.engine.earthquakeLoadCaseNumber);
    EXPECT_FALSE(bench.engine.floorLevelsSet);
    EXPECT_FALSE(bench.engine.storyInfoSet);
}

TEST(InputReaders, NeedNoLineEndBehindFin) {
    ReaderBench bench("EarthquakeLoadCaseNumber,2,3,\nFIN");
    bench.engine.storyInfoSet = true;
    for (const Reader& reader : kReaders)
        EXPECT_TRUE((bench.engine.*reader.read)()) << reader.name;
}

TEST(InputReaders, ReadWindowsLineEndsAlike) {
    std::string input;
    for (const char character : std::string(kWholeExample))
        input += character == '\n' ? std::string("\r\n") : std::string(1, character);
    ReaderBench bench(input);
    for (const Reader& reader : kReaders)
        EXPECT_TRUE((bench.engine.*reader.read)()) << reader.name;
    EXPECT_EQ((Cases{2, 3}), bench.engine.earthquakeLoadCaseNumber);
    EXPECT_THAT(bench.engine.floorLevels, SizeIs(4));
    EXPECT_THAT(bench.MembersOf(2), ElementsAre(13));
    EXPECT_EQ(0.12, bench.engine.stories[2].allowEccentricityModulus);
}

TEST(InputReaders, EndOnBinaryNoise) {
    std::string noise("\0FIN\0,1,\0\n1\0,2\0,\0\n", 18);
    for (unsigned i = 0; i < 4096; ++i)
        noise.push_back(static_cast<char>((i * i * 7919u + i) >> 3));
    for (const std::string end : {"", "\nFIN\n"}) {
        ReaderBench bench("StoryMember,\nAllowStoryStiffRatio,\n" + noise + end);
        for (const Reader& reader : kReaders)
            (bench.engine.*reader.read)();
        EXPECT_EQ((Cases{1, 1}), bench.engine.earthquakeLoadCaseNumber);
        EXPECT_TRUE(bench.engine.storyInfoSet);
    }
}

// --- Load case numbers

TEST(LoadCaseReader, WritesNoStartAndNoEndLine) {
    ReaderBench bench("DeadLoadCaseNumber,2,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetLoadCaseNumbersWithDataFile());
    EXPECT_EQ("", bench.bench.NewLog());
    EXPECT_THAT(bench.host.calls, IsEmpty());
}

TEST(LoadCaseReader, KeepsTheDefaultsWithoutKeywords) {
    EXPECT_EQ((LoadCases{1, {1, 1}}), LoadCasesOf("FIN\n"));
    EXPECT_EQ((LoadCases{1, {1, 1}}), LoadCasesOf("FloorLevel,0,3500,\n1,2,\n\nFIN\n"));
}

TEST(LoadCaseReader, TakesTheLastOfSeveralLines) {
    EXPECT_EQ((LoadCases{4, {7, 8}}),
              LoadCasesOf("DeadLoadCaseNumber,2,\nEarthquakeLoadCaseNumber,5,6,\n"
                          "EarthquakeLoadCaseNumber,7,8,\nDeadLoadCaseNumber,4,\nFIN\n"));
}

TEST(LoadCaseReader, NeedsNoCommaBehindTheLastValue) {
    EXPECT_EQ((LoadCases{2, {3, 4}}),
              LoadCasesOf("DeadLoadCaseNumber,2\nEarthquakeLoadCaseNumber,3,4\nFIN\n"));
}

TEST(LoadCaseReader, SetsBothEarthquakeCasesFromOneValueWithoutAFinalComma) {
    EXPECT_EQ((LoadCases{1, {4, 4}}), LoadCasesOf("EarthquakeLoadCaseNumber,4\nFIN\n"));
}

TEST(LoadCaseReader, SetsTheSecondEarthquakeCaseTo0FromOneValueWithAFinalComma) {
    EXPECT_EQ((LoadCases{1, {4, 0}}), LoadCasesOf("EarthquakeLoadCaseNumber,4,\nFIN\n"));
}

TEST(LoadCaseReader, SetsBothEarthquakeCasesToTheSecondAtAnEmptyLineBehindThem) {
    EXPECT_EQ((LoadCases{1, {3, 3}}), LoadCasesOf("EarthquakeLoadCaseNumber,2,3,\n\nFIN\n"));
    EXPECT_EQ((LoadCases{1, {3, 3}}), LoadCasesOf("EarthquakeLoadCaseNumber,2,3,\n9\nFIN\n"));
    EXPECT_EQ((LoadCases{1, {3, 3}}), LoadCasesOf("EarthquakeLoadCaseNumber,2,3,\r\n\r\nFIN\r\n"));
}

TEST(LoadCaseReader, SetsBothEarthquakeCasesTo0AtAnEmptyLineBehindAnEmptySecondValue) {
    EXPECT_EQ((LoadCases{1, {0, 0}}), LoadCasesOf("EarthquakeLoadCaseNumber,4,\n\nFIN\n"));
}

TEST(LoadCaseReader, KeepsTheCasesAtAnEmptyLineBehindAnotherKeyword) {
    EXPECT_EQ((LoadCases{1, {2, 3}}),
              LoadCasesOf("EarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,\n\nFIN\n"));
}

TEST(LoadCaseReader, KeepsTheDeadLoadCaseAtAnEmptyLineBehindIt) {
    EXPECT_EQ((LoadCases{5, {1, 1}}), LoadCasesOf("DeadLoadCaseNumber,5,\n\n6\nFIN\n"));
}

TEST(LoadCaseReader, ReadsOnlyTheNumberAtTheStartOfAValue) {
    EXPECT_EQ((LoadCases{0, {12, -3}}),
              LoadCasesOf("DeadLoadCaseNumber,dead,\nEarthquakeLoadCaseNumber, 12x,-3,\nFIN\n"));
}

TEST(LoadCaseReader, StopsAtTheEndsOf32Bits) {
    EXPECT_EQ((LoadCases{INT32_MAX, {INT32_MIN, INT32_MAX}}),
              LoadCasesOf("DeadLoadCaseNumber,4294967298,\n"
                          "EarthquakeLoadCaseNumber,-9999999999,2147483648,\nFIN\n"));
}

TEST(LoadCaseReader, IgnoresAKeywordWithABlankOrInAnotherCase) {
    for (const char* line :
         {" DeadLoadCaseNumber,5,", "DeadLoadCaseNumber ,5,", "deadloadcasenumber,5,",
          "DeadLoadCaseNumbers,5,", "DeadLoadCase,5,", "\"DeadLoadCaseNumber\",5,",
          "DeadLoadCaseNumber;5;", "DeadLoadCaseNumber"})
        EXPECT_EQ((LoadCases{1, {1, 1}}), LoadCasesOf(line + std::string("\nFIN\n"))) << line;
}

TEST(LoadCaseReader, StillObeysTheLineThatIsOneTooMany) {
    // Line 100,002 is looked at before the limit ends the reading; line 100,003 is not.
    ReaderBench bench(Repeated("x\n", 100001) + "DeadLoadCaseNumber,8,\nDeadLoadCaseNumber,9,\n");
    EXPECT_FALSE(bench.engine.SetLoadCaseNumbersWithDataFile());
    EXPECT_EQ(8, bench.engine.deadLoadCaseNumber);
}

// --- Floor levels

TEST(FloorReader, WritesItsStartAndEndLine) {
    for (const char* input : {"FIN\n", "FloorLevel,0,3500,\nFIN\n"}) {
        ReaderBench bench(input);
        EXPECT_TRUE(bench.engine.SetFloorInfoWithDataFile());
        EXPECT_EQ(
            "\nStarts setting floor info with data file...\n"
            "Ends setting floor info with data file...\n",
            bench.bench.NewLog());
    }
}

TEST(FloorReader, KeepsTheOrderOfTheFile) {
    EXPECT_THAT(FloorLevelsOf("FloorLevel,7000,0,3500,0,\nFIN\n"),
                ElementsAre(7000.0, 0.0, 3500.0, 0.0));
}

TEST(FloorReader, DropsTheLevelBehindTheLastComma) {
    EXPECT_THAT(FloorLevelsOf("FloorLevel,0,3500,7000\nFIN\n"), ElementsAre(0.0, 3500.0));
    EXPECT_THAT(FloorLevelsOf("FloorLevel,0,3500,7000,\nFIN\n"), ElementsAre(0.0, 3500.0, 7000.0));
}

TEST(FloorReader, LeavesTheLevelsToTheHostWhenTheLineHasNone) {
    for (const char* input : {"FIN\n", "FloorLevel,\nFIN\n", "FloorLevel,3500\nFIN\n",
                              "FloorLevel\nFIN\n", "FloorLevels,0,3500,\nFIN\n"})
        EXPECT_THAT(FloorLevelsOf(input), IsEmpty()) << input;
}

TEST(FloorReader, ReadsTheFirstOfTwoLinesOnly) {
    EXPECT_THAT(FloorLevelsOf("FloorLevel,0,3500,\nFloorLevel,0,4000,8000,\nFIN\n"),
                ElementsAre(0.0, 3500.0));
    EXPECT_THAT(FloorLevelsOf("FloorLevel,\nFloorLevel,0,4000,\nFIN\n"), IsEmpty());
}

TEST(FloorReader, TakesMillimetresWhateverTheHostsUnits) {
    ReaderBench bench("FloorLevel,0,3500,\nFIN\n");
    bench.engine.inchUnits = true;
    bench.engine.SetFloorInfoWithDataFile();
    EXPECT_THAT(bench.engine.floorLevels, ElementsAre(0.0, 3500.0));
}

TEST(FloorReader, TakesWhatDoesNotConvertAs0) {
    EXPECT_THAT(FloorLevelsOf("FloorLevel,ground,, 3500mm,-1e2,\nFIN\n"),
                ElementsAre(0.0, 0.0, 3500.0, -100.0));
}

TEST(FloorReader, NeedsNoFinBehindItsLine) {
    EXPECT_THAT(FloorLevelsOf("FloorLevel,0,3500,"), ElementsAre(0.0, 3500.0));
}

TEST(FloorReader, LosesTheNumberThatTheCutAfter199CharactersMeets) {
    // "FloorLevel," and 37 times "1000," are 11 + 185 = 196 characters. The cut leaves "250" of
    // 2500 behind the last comma; "0,7000," is a line of its own.
    const std::string line = "FloorLevel," + Repeated("1000,", 37) + "2500,7000,";
    EXPECT_THAT(FloorLevelsOf(line + "\nFIN\n"), testing::AllOf(SizeIs(37), Each(1000.0)));
}

TEST(FloorReader, ReadsALineThatFillsThe199CharactersWithItsLastComma) {
    // 11 + 37 x 5 + 3 = 199.
    const std::string line = "FloorLevel," + Repeated("1000,", 37) + "25,";
    ASSERT_EQ(199u, line.size());
    EXPECT_THAT(FloorLevelsOf(line + "\nFIN\n"), SizeIs(38));
}

// --- Story members

TEST(StoryMemberReader, WritesItsStartAndEndLine) {
    for (const char* input :
         {"FIN\n", "StoryMember,\n1,11,\nFIN\n", "StoryMember,\n1,11,\nFloorLevel,0,\nFIN\n"}) {
        ReaderBench bench(input);
        EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile()) << input;
        EXPECT_EQ(
            "\nStarts setting story info with data file...\n"
            "Ends setting story info with data file...\n",
            bench.bench.NewLog());
    }
}

TEST(StoryMemberReader, AddsTheMembersOfEachStoryLine) {
    ReaderBench bench("StoryMember,\n1,11,12,\n3,13,\n1,13,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_TRUE(bench.engine.storyInfoSet);
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11, 12, 13));
    EXPECT_THAT(bench.MembersOf(1), IsEmpty());
    EXPECT_THAT(bench.MembersOf(2), ElementsAre(13));
}

TEST(StoryMemberReader, DropsTheMemberBehindTheLastComma) {
    ReaderBench bench("StoryMember,\n1,11,12\n2,13\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
    EXPECT_THAT(bench.MembersOf(1), IsEmpty());
}

TEST(StoryMemberReader, FillsARecordForEveryLoadCase) {
    ReaderBench bench("StoryMember,\n2,12,11,\nFIN\n");
    bench.engine.loadCaseNumbers = {5, 101};
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    const auto& records = bench.engine.stories[1].members;
    ASSERT_THAT(records, SizeIs(4));
    EXPECT_THAT(bench.MembersOf(1), ElementsAre(12, 12, 11, 11));
    EXPECT_EQ(5, records[0].loadCaseNumber);
    EXPECT_EQ(101, records[1].loadCaseNumber);
    EXPECT_EQ(5, records[2].loadCaseNumber);
    EXPECT_EQ(2, records[0].lowerNodeNumber);  // member 12 goes from node 2 up to node 3
    EXPECT_EQ(3, records[0].upperNodeNumber);
    EXPECT_EQ(1000.0, records[0].planX);
    EXPECT_EQ(2000.0, records[0].planZ);
}

TEST(StoryMemberReader, AsksTheHostTwiceForEveryRecord) {
    // The upper and the lower node, under each load case.
    ReaderBench bench("StoryMember,\n2,12,\nFIN\n");
    bench.engine.loadCaseNumbers = {5, 101};
    bench.engine.SetStoryInfoWithDataFile();
    EXPECT_THAT(bench.host.calls, ElementsAre("GetMemberIncidence(12)", "GetMemberIncidence(12)",
                                              "GetMemberIncidence(12)", "GetMemberIncidence(12)"));
}

TEST(StoryMemberReader, DoesNotTakeTheKeywordWithoutACommaAsTheKeyword) {
    ReaderBench bench("StoryMember\n1,11,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_FALSE(bench.engine.storyInfoSet);
    EXPECT_THAT(bench.MembersOf(0), IsEmpty());
}

TEST(StoryMemberReader, SetsStoryInfoWithoutAnyStoryLine) {
    ReaderBench bench("StoryMember,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_TRUE(bench.engine.storyInfoSet);
    EXPECT_THAT(bench.MembersOf(0), IsEmpty());
}

TEST(StoryMemberReader, IgnoresStoryLinesOutsideOfTheBlock) {
    // Even those of stories that do not exist.
    ReaderBench bench("1,11,\n99,11,\nAllowStoryStiffRatio,\n2,12,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_FALSE(bench.engine.storyInfoSet);
    EXPECT_THAT(bench.host.calls, IsEmpty());
}

TEST(StoryMemberReader, EndsAtTheFirstLineThatIsNoStoryLine) {
    for (const char* line :
         {"", " 2,12,", "0,12,", "02,12,", "FloorLevel,0,", "# remark", "-1,12,", ",", "x,"}) {
        ReaderBench bench(std::string("StoryMember,\n1,11,\n") + line +
                          "\n2,12,\nStoryMember,\n3,13,\nFIN\n");
        EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile()) << line;
        EXPECT_THAT(bench.MembersOf(0), ElementsAre(11)) << line;
        EXPECT_THAT(bench.MembersOf(1), IsEmpty()) << line;
        EXPECT_THAT(bench.MembersOf(2), IsEmpty()) << line;
        EXPECT_THAT(bench.bench.NewLog(), EndsWith("Ends setting story info with data file...\n"));
    }
}

TEST(StoryMemberReader, NeedsNoFinBehindTheEndOfItsBlock) {
    ReaderBench bench("StoryMember,\n1,11,\nend of the block\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
}

TEST(StoryMemberReader, KeepsTheBlockOpenAtARepeatedKeyword) {
    ReaderBench bench("StoryMember,\n1,11,\nStoryMember,\n2,12,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(1), ElementsAre(12));
}

TEST(StoryMemberReader, KeepsTheBlockOpenAtLinesWithoutACommaRightBehindTheKeyword) {
    ReaderBench bench("StoryMember,\n\n# columns\n99\n2,12,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(1), ElementsAre(12));
}

TEST(StoryMemberReader, AddsNothingForADigitLineWithoutAComma) {
    // "99" has the story number 1 of the line before it, and no members.
    ReaderBench bench("StoryMember,\n1,11,\n99\n2,12,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
    EXPECT_THAT(bench.MembersOf(1), ElementsAre(12));
}

TEST(StoryMemberReader, StopsAtAStoryThatDoesNotExistAndKeepsWhatItHas) {
    for (const char* line : {"4,12,", "4,", "99999999999,12,", "4294967297,12,"}) {
        ReaderBench bench(std::string("StoryMember,\n1,11,\n") + line + "\n2,12,\nFIN\n");
        EXPECT_FALSE(bench.engine.SetStoryInfoWithDataFile()) << line;
        EXPECT_EQ(
            "\nStarts setting story info with data file...\n"
            "\n*** WARNING *** : Story number for setting story members in data file is bigger "
            "than number of stories. Stops setting story members.\n",
            bench.bench.NewLog());
        EXPECT_TRUE(bench.engine.storyInfoSet);
        EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
        EXPECT_THAT(bench.MembersOf(1), IsEmpty());
    }
}

TEST(StoryMemberReader, ReadsTheNumberAtTheStartOfTheStoryField) {
    ReaderBench bench("StoryMember,\n2nd story,12,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(1), ElementsAre(12));
}

TEST(StoryMemberReader, ReadsTheRestOfALineOf250CharactersAsAStoryLine) {
    // "1," and 65 times "11," are 197 characters, with "99" 199; "2,12," stands behind the cut.
    std::string line = "1," + Repeated("11,", 65) + "99" + "2,12,";
    line += std::string(250 - line.size(), ' ');
    ReaderBench bench("StoryMember,\n" + line + "\n3,13,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    // "99" stands behind the last comma of the first piece and is not read.
    EXPECT_THAT(bench.MembersOf(0), testing::AllOf(SizeIs(65), Each(11)));
    EXPECT_THAT(bench.MembersOf(1), ElementsAre(12));
    EXPECT_THAT(bench.MembersOf(2), ElementsAre(13));
}

TEST(StoryMemberReader, EndsItsBlockWhenTheRestOfALongLineIsNoStoryLine) {
    // 199 characters, then ",12,": the rest begins with a comma.
    const std::string line = "1," + Repeated("11,", 65) + "11" + ",12,";
    ReaderBench bench("StoryMember,\n" + line + "\n3,13,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), SizeIs(65));
    EXPECT_THAT(bench.MembersOf(2), IsEmpty());
}

TEST(StoryMemberReader, EndsItsBlockBehindALineOfExactly199Characters) {
    // Its line feed is read as an empty line.
    const std::string line = "1," + Repeated("11,", 65) + "  ";
    ASSERT_EQ(199u, line.size());
    ReaderBench bench("StoryMember,\n" + line + "\n3,13,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), SizeIs(65));
    EXPECT_THAT(bench.MembersOf(2), IsEmpty());
}

TEST(StoryMemberReader, AddsTheLastLineAgainAndAgainWithoutFin) {
    // 100,002 lines are read: the keyword once, the story line 100,001 times.
    ReaderBench bench("StoryMember,\n1,11,\n");
    EXPECT_FALSE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), SizeIs(100001));
}

TEST(StoryMemberReader, EndsTheRunAtAMemberWhoseNodeIsMissing) {
    ReaderBench bench("StoryMember,\n1,11,19,\nFIN\n");
    EXPECT_THROW(bench.engine.SetStoryInfoWithDataFile(), std::out_of_range);
    EXPECT_EQ(
        "\nStarts setting story info with data file...\n"
        "\n*** WARNING *** : Node number is not set correctly as setting upper node number...\n",
        bench.bench.NewLog());
    EXPECT_THAT(bench.MembersOf(0), ElementsAre(11));
}

TEST(StoryMemberReader, EndsTheRunAtAMemberThatTheHostDoesNotKnow) {
    // What does not convert is member 0.
    for (const char* member : {"77", "column", ""}) {
        ReaderBench bench(std::string("StoryMember,\n1,") + member + ",\nFIN\n");
        EXPECT_THROW(bench.engine.SetStoryInfoWithDataFile(), HostCallError) << member;
    }
}

TEST(StoryMemberReader, AddsNothingWithoutLoadCases) {
    ReaderBench bench("StoryMember,\n1,11,77,\nFIN\n");
    bench.engine.loadCaseNumbers.clear();
    EXPECT_TRUE(bench.engine.SetStoryInfoWithDataFile());
    EXPECT_THAT(bench.MembersOf(0), IsEmpty());
    EXPECT_THAT(bench.host.calls, IsEmpty());
}

// --- Output flags

namespace {

// Records of members 11 and 12 in story 1 under load cases 1 and 2, and of member 11 in story 3.
struct FlagBench : ReaderBench {
    explicit FlagBench(const std::string& input) : ReaderBench(input) {
        for (const std::int32_t member : {11, 12})
            for (const std::int32_t loadCase : {1, 2})
                Add(0, member, loadCase);
        Add(2, 11, 1);
    }
    void Add(std::size_t story, std::int32_t member, std::int32_t loadCase) {
        StoryMember record;
        record.memberNumber = member;
        record.loadCaseNumber = loadCase;
        record.outputDeformAngle = true;
        engine.stories[story].members.push_back(record);
    }
    std::vector<bool> Flags() const {
        std::vector<bool> flags;
        for (const StoryInfo& story : engine.stories)
            for (const StoryMember& record : story.members)
                flags.push_back(record.outputDeformAngle);
        return flags;
    }
};

}  // namespace

TEST(OutputFlagReader, SetsTheFlagInEveryRecordOfTheMember) {
    FlagBench bench("MemberDeformAngle,11,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), ElementsAre(true, true, false, false, true));
    EXPECT_EQ(
        "\nStarts setting output flag of member story deformation angle...\n"
        "Ends setting output flag of member story deformation angle...\n",
        bench.bench.NewLog());
}

TEST(OutputFlagReader, ClearsEveryFlagWithoutAKeyword) {
    FlagBench bench("FIN\n");
    EXPECT_TRUE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), Each(false));
}

TEST(OutputFlagReader, ClearsEveryFlagWhenTheFileCannotBeOpened) {
    FlagBench bench("MemberDeformAngle,11,\nFIN\n");
    bench.engine.dataFilePath = bench.bench.folder.Path("missing.csv");
    EXPECT_FALSE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), Each(false));
}

#ifndef _WIN32

namespace {

// A log that calls `look` with every piece of text as it is written.
class WatchedLog {
public:
    explicit WatchedLog(std::function<void(const std::string&)> look) : look_(std::move(look)) {
        file_ = fopencookie(this, "w", {nullptr, Written, nullptr, nullptr});
        std::setvbuf(file_, nullptr, _IONBF, 0);
    }
    ~WatchedLog() { std::fclose(file_); }
    WatchedLog(const WatchedLog&) = delete;
    WatchedLog& operator=(const WatchedLog&) = delete;
    std::FILE* file() const { return file_; }

private:
    static ssize_t Written(void* self, const char* text, std::size_t size) {
        static_cast<WatchedLog*>(self)->look_({text, size});
        return static_cast<ssize_t>(size);
    }

    std::function<void(const std::string&)> look_;
    std::FILE* file_ = nullptr;
};

}  // namespace

TEST(OutputFlagReader, ClearsTheFlagsBeforeItOpensTheFile) {
    FlagBench bench("MemberDeformAngle,11,\nFIN\n");
    bench.engine.dataFilePath = bench.bench.folder.Path("missing.csv");
    std::vector<bool> whenOpeningFailed;
    const WatchedLog log([&](const std::string& text) {
        if (text.find("Cannot open data file") != std::string::npos)
            whenOpeningFailed = bench.Flags();
    });
    std::FILE* const ownLog = std::exchange(bench.engine.logFile, log.file());
    bench.engine.SetMemberDeformAngleOutputFlag();
    bench.engine.logFile = ownLog;
    EXPECT_THAT(whenOpeningFailed, ElementsAre(false, false, false, false, false));
}

#endif

TEST(OutputFlagReader, ClearsEveryFlagWhenFinIsMissing) {
    FlagBench bench("x\n");
    EXPECT_FALSE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), Each(false));
}

TEST(OutputFlagReader, DropsTheMemberBehindTheLastComma) {
    FlagBench bench("MemberDeformAngle,12,11\nFIN\n");
    EXPECT_TRUE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), ElementsAre(false, false, true, true, false));
}

TEST(OutputFlagReader, ReadsTheFirstOfTwoLinesOnly) {
    FlagBench bench("MemberDeformAngle,12,\nMemberDeformAngle,11,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), ElementsAre(false, false, true, true, false));
}

TEST(OutputFlagReader, IgnoresNumbersThatNoRecordHas) {
    FlagBench bench("MemberDeformAngle,99,x,-1,12,\nFIN\n");
    EXPECT_TRUE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), ElementsAre(false, false, true, true, false));
    EXPECT_THAT(bench.bench.NewLog(), Not(HasSubstr("WARNING")));
}

TEST(OutputFlagReader, NeedsNoFinBehindItsLine) {
    FlagBench bench("MemberDeformAngle,12,\n");
    EXPECT_TRUE(bench.engine.SetMemberDeformAngleOutputFlag());
    EXPECT_THAT(bench.Flags(), ElementsAre(false, false, true, true, false));
}

// --- Allowable values

namespace {

// The stories' allowable values of one kind after the reader has run over `input`.
std::vector<double> AllowablesOf(const std::string& input, double StoryInfo::*field) {
    ReaderBench bench(input);
    bench.engine.storyInfoSet = true;
    EXPECT_TRUE(bench.engine.SetStoryAllowableValues()) << input;
    return bench.Allowables(field);
}

std::vector<double> StiffRatiosOf(const std::string& lines) {
    return AllowablesOf("AllowStoryStiffRatio,\n" + lines + "FIN\n", &StoryInfo::allowStiffRatio);
}

}  // namespace

TEST(AllowableValueReader, WritesItsStartAndEndLine) {
    ReaderBench bench("FIN\n");
    bench.engine.storyInfoSet = true;
    EXPECT_TRUE(bench.engine.SetStoryAllowableValues());
    EXPECT_EQ(
        "\nStarts setting story allowable values...\n"
        "Ends setting story allowable values...\n",
        bench.bench.NewLog());
}

TEST(AllowableValueReader, RefusesToRunWithoutStoryInfo) {
    ReaderBench bench("AllowStoryStiffRatio,\n1,0.5,\nFIN\n");
    bench.engine.dataFilePath = bench.bench.folder.Path("missing.csv");  // not even opened
    EXPECT_FALSE(bench.engine.SetStoryAllowableValues());
    EXPECT_EQ(
        "\nStarts setting story allowable values...\n"
        "\n*** WARNING *** : Story info. has not set yet. Stops setting story allowable "
        "values...\n",
        bench.bench.NewLog());
    EXPECT_THAT(bench.Allowables(&StoryInfo::allowStiffRatio), Each(0.6));
}

TEST(AllowableValueReader, SetsEachKindUnderItsKeyword) {
    const std::string input =
        "AllowStoryDeformAngle,\n1,0.004,\nAllowStoryEccentricityModulus,\n3,0.3,\n"
        "AllowStoryStiffRatio,\n2,0.9,\nFIN\n";
    EXPECT_THAT(AllowablesOf(input, &StoryInfo::allowDeformAngle),
                ElementsAre(0.004, 0.005, 0.005));
    EXPECT_THAT(AllowablesOf(input, &StoryInfo::allowStiffRatio), ElementsAre(0.6, 0.9, 0.6));
    EXPECT_THAT(AllowablesOf(input, &StoryInfo::allowEccentricityModulus),
                ElementsAre(0.15, 0.15, 0.3));
}

TEST(AllowableValueReader, NeedsNoCommaBehindTheValue) {
    EXPECT_THAT(StiffRatiosOf("1,0.5\n2,0.7\r\n3,0.8,ignored\n"), ElementsAre(0.5, 0.7, 0.8));
}

TEST(AllowableValueReader, TakesTheLastLineOfAStory) {
    EXPECT_THAT(StiffRatiosOf("1,0.5\n1,0.55\nFloorLevel,0,\nAllowStoryStiffRatio,\n1,0.7\n"),
                ElementsAre(0.7, 0.6, 0.6));
}

TEST(AllowableValueReader, TakesWhatDoesNotConvertAs0) {
    EXPECT_THAT(StiffRatiosOf("1,\n2,high,\n3, 5e-1x,\n"), ElementsAre(0.0, 0.0, 0.5));
}

TEST(AllowableValueReader, IgnoresStoryLinesBehindALineThatIsNone) {
    for (const char* line : {"", "# remark", "0,0.5,", " 1,0.5,", "FloorLevel,0,", "StoryMember,",
                             "01,0.5,", ",", "-1,0.5,"})
        EXPECT_THAT(StiffRatiosOf(std::string("1,0.8\n") + line + "\n2,0.9\n99,0.9\n"),
                    ElementsAre(0.8, 0.6, 0.6))
            << line;
}

TEST(AllowableValueReader, IgnoresStoryLinesBeforeAnyKeyword) {
    EXPECT_THAT(AllowablesOf("1,0.5,\n99,0.5,\nAllowStoryStiffRatio\n1,0.5,\nFIN\n",
                             &StoryInfo::allowStiffRatio),
                Each(0.6));
}

TEST(AllowableValueReader, KeepsTheKindAtLinesWithoutACommaRightBehindTheKeyword) {
    EXPECT_THAT(StiffRatiosOf("\n# remark\n99\n2,0.9\n"), ElementsAre(0.6, 0.9, 0.6));
}

TEST(AllowableValueReader, RepeatsTheStoryLineBeforeADigitLineWithoutAComma) {
    // "3" sets story 1 to 0.8 once more, not story 3; "99" does not stop the reader.
    EXPECT_THAT(StiffRatiosOf("1,0.8\n3\n99\n2,0.9\n"), ElementsAre(0.8, 0.9, 0.6));
}

TEST(AllowableValueReader, ForgetsTheKindAtAnEmptyLineBehindAStoryLine) {
    // The empty line has the field "1", which is no keyword, and does not begin with a digit.
    EXPECT_THAT(StiffRatiosOf("1,0.8\n\n2,0.9\n"), ElementsAre(0.8, 0.6, 0.6));
}

TEST(AllowableValueReader, StopsAtAStoryThatDoesNotExistEachKindWithItsOwnWarning) {
    const struct {
        const char* keyword;
        double StoryInfo::*field;
        const char* warning;
    } kinds[] = {
        {"AllowStoryDeformAngle", &StoryInfo::allowDeformAngle,
         "\n*** WARNING *** : Story number for allowable story deformation angle in data file is "
         "bigger than number of stories. Stops setting allowable values.\n"},
        {"AllowStoryStiffRatio", &StoryInfo::allowStiffRatio,
         "\n*** WARNING *** : Story number for allowable story stiff ratio in data file is bigger "
         "than number of stories. Stops setting allowable values.\n"},
        {"AllowStoryEccentricityModulus", &StoryInfo::allowEccentricityModulus,
         "\n*** WARNING *** : Story number for allowable story eccentricity modulus in data file "
         "is bigger than number of stories. Stops setting allowable values.\n"},
    };
    for (const auto& [keyword, field, warning] : kinds) {
        ReaderBench bench(std::string(keyword) + ",\n1,0.25\n4,0.25\n2,0.25\nFIN\n");
        bench.engine.storyInfoSet = true;
        EXPECT_FALSE(bench.engine.SetStoryAllowableValues()) << keyword;
        EXPECT_EQ(std::string("\nStarts setting story allowable values...\n") + warning,
                  bench.bench.NewLog());
        EXPECT_EQ(0.25, bench.engine.stories[0].*field);
        EXPECT_NE(0.25, bench.engine.stories[1].*field);
    }
}

TEST(AllowableValueReader, TakesAStoryNumberBeyond32BitsAsTooLarge) {
    for (const char* number : {"2147483648", "4294967296", "4294967297", "99999999999999999999"}) {
        ReaderBench bench(std::string("AllowStoryStiffRatio,\n") + number + ",0.5,\nFIN\n");
        bench.engine.storyInfoSet = true;
        EXPECT_FALSE(bench.engine.SetStoryAllowableValues()) << number;
        EXPECT_THAT(bench.Allowables(&StoryInfo::allowStiffRatio), Each(0.6)) << number;
    }
}

TEST(AllowableValueReader, TakesEveryStoryNumberAsTooLargeWithoutStories) {
    ReaderBench bench("AllowStoryStiffRatio,\n1,0.5,\nFIN\n");
    bench.engine.storyInfoSet = true;
    bench.engine.stories.clear();
    EXPECT_FALSE(bench.engine.SetStoryAllowableValues());
    EXPECT_THAT(bench.bench.NewLog(), HasSubstr("is bigger than number of stories."));
}

TEST(AllowableValueReader, SetsTheLastLineAgainAndAgainWithoutFin) {
    ReaderBench bench("AllowStoryStiffRatio,\n2,0.5");
    bench.engine.storyInfoSet = true;
    EXPECT_FALSE(bench.engine.SetStoryAllowableValues());
    EXPECT_THAT(bench.Allowables(&StoryInfo::allowStiffRatio), ElementsAre(0.6, 0.5, 0.6));
}
