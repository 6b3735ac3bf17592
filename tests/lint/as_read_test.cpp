// "As read" is what a run reads: the engine's own readers over the same file leave the same.

#include "lint/as_read.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "lint/lint.h"
#include "tests/support/engine_bench.h"
#include "tests/support/load_case_lines.h"
#include "tests/support/random_input.h"
#include "tests/support/small_building.h"
#include "tests/support/two_story_building.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr std::uint64_t kFiles = 2000;

// The small building, in which every number is a column.
class AnyMemberHost : public FakeHost {
public:
    AnyMemberHost() { AddSmallBuilding(*this); }
    void GetMemberIncidence(std::int32_t, std::int32_t& start, std::int32_t& end) override {
        start = 1;
        end = 11;
    }
};

std::vector<std::int32_t> MembersOf(const StoryInfo& story, std::size_t loadCases) {
    std::vector<std::int32_t> members;
    for (std::size_t i = 0; i < story.members.size(); i += loadCases)
        members.push_back(story.members[i].memberNumber);
    return members;
}

// Equal, or both not a number.
void ExpectSame(double expected, double actual) {
    if (std::isnan(expected))
        EXPECT_TRUE(std::isnan(actual));
    else
        EXPECT_EQ(expected, actual);
}

void ExpectSame(const std::vector<double>& expected, const std::vector<double>& actual) {
    ASSERT_EQ(expected.size(), actual.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        ExpectSame(expected[i], actual[i]);
}

void ExpectLoadCases(const AijCodeRoute2& engine, const AsRead& asRead) {
    EXPECT_EQ(engine.deadLoadCaseNumber, asRead.dead.number);
    EXPECT_EQ(engine.earthquakeLoadCaseNumber[kX], asRead.earthquake[0].number);
    EXPECT_EQ(engine.earthquakeLoadCaseNumber[kZ], asRead.earthquake[1].number);
}

void ExpectReportedMembers(const AijCodeRoute2& engine, const AsRead& asRead) {
    for (const StoryInfo& story : engine.stories)
        for (const StoryMember& record : story.members)
            EXPECT_EQ(std::ranges::count(asRead.reportedMembers, record.memberNumber) > 0,
                      record.outputDeformAngle);
}

void ExpectStories(const AijCodeRoute2& engine, const AsRead& asRead) {
    ExpectSame(engine.floorLevels, *asRead.floorLevels);
    for (std::size_t i = 0; i < engine.stories.size(); ++i) {
        const StoryInfo& story = engine.stories[i];
        ExpectSame(story.allowDeformAngle, (*asRead.allowAngle)[i]);
        ExpectSame(story.allowStiffRatio, (*asRead.allowRatio)[i]);
        ExpectSame(story.allowEccentricityModulus, (*asRead.allowModulus)[i]);
        if (!asRead.storyMembers) continue;
        EXPECT_EQ(MembersOf(story, engine.loadCaseNumbers.size()),
                  asRead.storyMembers->at(static_cast<std::int32_t>(i + 1)));
    }
    EXPECT_EQ(engine.stories.size(), asRead.allowAngle->size());
}

AsRead ReadFile(const std::string& text) {
    return ReadWithoutModel(InputText(text)).value_or(AsRead{});
}

AsRead ReadAgainst(FakeHost& host, const std::string& text) {
    const TestFolder folder;
    const std::string path = folder.Write("input.csv", text);
    return LintAgainst(path, {host, "model", ""}, WantsSuggestion::kNo).asRead.value_or(AsRead{});
}

}  // namespace

TEST(AsRead, IsWhatTheReadersLeaveInTheEngineOverHostileFiles) {
    std::size_t withLevels = 0, withMembers = 0;
    for (std::uint64_t seed = 1; seed <= kFiles && !testing::Test::HasFailure(); ++seed) {
        const std::string file = RandomInput(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + file);
        AnyMemberHost host;
        EngineBench bench(host, file);
        const bool isRead = bench.engine.SetLoadCaseNumbersWithDataFile();
        const InputTextRead text = ReadInputText(bench.engine.dataFilePath);
        const auto asRead = ReadWithoutModel(text.text);
        ASSERT_EQ(isRead, asRead.has_value());
        if (!isRead) continue;
        bench.SetUpStories();
        ExpectLoadCases(bench.engine, *asRead);
        ExpectReportedMembers(bench.engine, *asRead);
        EXPECT_EQ(bench.engine.floorLevelsFromFile, asRead->floorLevelsFrom == Source::kInput);
        EXPECT_EQ(bench.engine.storyMembersFromFile, asRead->storyMembersFrom == Source::kInput);
        if (!asRead->floorLevels) continue;
        ++withLevels;
        if (asRead->storyMembers) ++withMembers;
        ExpectStories(bench.engine, *asRead);
    }
    EXPECT_GT(withLevels, kFiles / 10);
    EXPECT_GT(withMembers, kFiles / 30);
}

// Most of the numbers in the files are no members of the building: then the run ends early, and
// what stood by then is what it has read.
TEST(AsRead, IsWhatARunOnABuildingLeavesInTheEngineOverHostileFiles) {
    std::size_t ended = 0, completed = 0;
    for (std::uint64_t seed = 1; seed <= kFiles && !testing::Test::HasFailure(); ++seed) {
        const std::string file = RandomInput(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + file);
        FakeHost host;
        BuildTwoStories(host);
        EngineBench bench(host, file);
        const LintReport report =
            LintAgainst(bench.engine.dataFilePath, {host, "model", ""}, WantsSuggestion::kNo);
        ASSERT_EQ(bench.engine.SetLoadCaseNumbersWithDataFile(), report.asRead.has_value());
        if (!report.asRead) continue;
        try {
            bench.SetUpStories();
            ++completed;
        } catch (const HostCallError&) {
            ++ended;
        }
        ExpectLoadCases(bench.engine, *report.asRead);
        ExpectStories(bench.engine, *report.asRead);
        ExpectReportedMembers(bench.engine, *report.asRead);
        EXPECT_EQ(bench.engine.floorLevelsFromFile,
                  report.asRead->floorLevelsFrom == Source::kInput);
    }
    EXPECT_GT(ended, kFiles / 30);
    EXPECT_GT(completed, kFiles / 10);
}

TEST(AsRead, IsNothingWithoutFin) {
    EXPECT_FALSE(ReadWithoutModel(InputText(kLoadCaseLines)).has_value());
}

TEST(AsRead, LeavesLevelsAndMembersToAModelThatIsNotThere) {
    const AsRead asRead =
        ReadFile(std::string(kLoadCaseLines) + "AllowStoryDeformAngle,\n1,0.004,\nFIN\n");
    EXPECT_FALSE(asRead.floorLevels.has_value());
    EXPECT_EQ(Source::kModel, asRead.floorLevelsFrom);
    EXPECT_FALSE(asRead.storyMembers.has_value());
    EXPECT_FALSE(asRead.allowAngle.has_value());
    EXPECT_THAT(asRead.allowLines[0], ElementsAre(4u));
}

TEST(AsRead, HasLevelsSortedAndOnceAndMembersAsOftenAsTheyAreNamed) {
    const AsRead asRead = ReadFile(
        "FloorLevel,7000,0,3500,0,\nStoryMember,\n1,101,101,\nMemberDeformAngle,5,5,3,\nFIN\n");
    EXPECT_THAT(*asRead.floorLevels, ElementsAre(0.0, 3500.0, 7000.0));
    EXPECT_THAT(*asRead.storyMembers,
                ElementsAre(Pair(1, ElementsAre(101, 101)), Pair(2, IsEmpty())));
    EXPECT_THAT(asRead.reportedMembers, ElementsAre(5, 5, 3));
}

TEST(AsRead, NamesTheLineFromWhichEachValueComes) {
    const AsRead asRead = ReadFile(
        "#,\nEarthquakeLoadCaseNumber,2,3,\n\nFloorLevel,0,3500,\n"
        "MemberDeformAngle,5,\nStoryMember,\n1,101,\nFIN\n");
    EXPECT_EQ(0u, asRead.dead.line);
    EXPECT_EQ(3, asRead.earthquake[0].number);  // line 3 repeats the last value
    EXPECT_EQ(2u, asRead.earthquake[0].line);
    EXPECT_EQ(4u, asRead.floorLevelsLine);
    EXPECT_EQ(5u, asRead.reportedMembersLine);
    EXPECT_EQ(6u, asRead.storyMembersLine);
}

TEST(AsRead, TakesLevelsAndMembersFromTheModel) {
    FakeHost host;
    BuildTwoStories(host);
    const AsRead asRead = ReadAgainst(host, kTwoStoryInput);
    EXPECT_THAT(*asRead.floorLevels, ElementsAre(0.0, 3500.0, 7000.0));
    EXPECT_EQ(Source::kModel, asRead.floorLevelsFrom);
    EXPECT_THAT(*asRead.storyMembers, ElementsAre(Pair(1, ElementsAre(101, 102, 103, 104)),
                                                  Pair(2, ElementsAre(201, 202, 203, 204))));
    EXPECT_THAT(*asRead.allowAngle, ElementsAre(0.005, 0.005));
    EXPECT_EQ(8u, asRead.search->found);
    EXPECT_EQ(8u, asRead.search->columnsAndBraces);
}

// Member 999 ends the run: what is read behind it, allowable values and members to report, is not.
TEST(AsRead, IsWhatStoodWhereARunEndsEarly) {
    FakeHost host;
    BuildTwoStories(host);
    const AsRead asRead =
        ReadAgainst(host,
                    "StoryMember,\n1,101,999,102,\nAllowStoryStiffRatio,\n1,0.7,\n"
                    "MemberDeformAngle,101,\nFIN\n");
    EXPECT_THAT(*asRead.storyMembers, ElementsAre(Pair(1, ElementsAre(101)), Pair(2, IsEmpty())));
    EXPECT_THAT(*asRead.allowRatio, ElementsAre(0.6, 0.6));
    EXPECT_THAT(asRead.reportedMembers, IsEmpty());
}
