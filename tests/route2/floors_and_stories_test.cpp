// Floor levels and stories, from the input file and from the host's members.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "tests/support/engine_bench.h"
#include "tests/support/what_ends_the_run.h"

namespace {

using testing::DoubleEq;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Two stories of 3.5 m, Y vertical. Columns 1 and 2 below, 3 and 4 above, beams 5 at 3.5 m and 6
// at 7 m, base beam 7 at 0. Column 3 runs downwards.
struct TwoStories : FakeHost {
    TwoStories() {
        primaryLoadCases = {1};
        Node(1, 0, 0, 2, true).Node(2, 6, 0, 2, true);
        Node(3, 0, 3.5, 2).Node(4, 6, 3.5, 2).Node(5, 0, 7, 2).Node(6, 6, 7, 2);
        Member(1, 1, 3).Member(2, 2, 4).Member(3, 5, 3).Member(4, 4, 6);
        Member(5, 3, 4).Member(6, 5, 6).Member(7, 1, 2);
    }
};

std::vector<std::int32_t> Distinct(std::vector<std::int32_t> numbers) {
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::vector<std::int32_t> MembersOf(const AijCodeRoute2& engine, std::size_t story) {
    std::vector<std::int32_t> numbers;
    for (const StoryMember& record : engine.stories.at(story).members)
        numbers.push_back(record.memberNumber);
    return numbers;
}

// The members of a story, each named once for its records under all load cases.
std::vector<std::int32_t> DistinctMembersOf(const AijCodeRoute2& engine, std::size_t story) {
    return Distinct(MembersOf(engine, story));
}

std::vector<double> LevelsFromFile(const std::string& floorLine) {
    TwoStories host;
    EngineBench bench(host, floorLine + "\nFIN\n");
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    EXPECT_TRUE(bench.engine.floorLevelsSet);
    return bench.engine.floorLevels;
}

std::vector<double> LevelsOf(FakeHost& host) {
    EngineBench bench(host);
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    EXPECT_TRUE(bench.engine.floorLevelsSet);
    return bench.engine.floorLevels;
}

// A building whose column 1 leads from 0 to `top` metres, with floors at 0, 3500 and 7000 mm.
std::vector<std::int32_t> StoriesOfAColumnTo(double top) {
    FakeHost host;
    host.primaryLoadCases = {1};
    host.Node(1, 0, 0, 0, true).Node(2, 0, top, 0).Member(1, 1, 2);
    EngineBench bench(host, "FloorLevel,0,3500,7000,\nFIN\n");
    bench.SetUpStories();
    std::vector<std::int32_t> stories;
    for (std::size_t i = 0; i < bench.engine.stories.size(); ++i)
        if (!bench.engine.stories[i].members.empty())
            stories.push_back(static_cast<std::int32_t>(i) + 1);
    return stories;
}

}  // namespace

// --- Floor levels from the host

TEST(FloorLevels, AreTheBaseAndTheBeamsAboveIt) {
    TwoStories host;
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0, 3500.0, 7000.0));
}

TEST(FloorLevels, AreTheBaseAloneWithoutBeamsAboveIt) {
    FakeHost host;
    host.Node(1, 0, 1, 0, true).Node(2, 5, 1, 0).Node(3, 0, 0.9999, 0).Node(4, 5, 0.9999, 0);
    host.Node(5, 0, 4, 0).Member(1, 1, 2).Member(2, 3, 4).Member(3, 1, 5);
    // The base beam adds nothing, nor does the beam below it; the column is not horizontal.
    EXPECT_THAT(LevelsOf(host), ElementsAre(1000.0));
}

TEST(FloorLevels, AreTheBaseAloneWithoutAnyModel) {
    FakeHost host;
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0));
}

TEST(FloorLevels, OfBeamsInOneFloorAreOneLevel) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Node(3, 5, 3.5, 0).Node(4, 9, 3.5, 0);
    host.Member(1, 2, 3).Member(2, 3, 4).Member(3, 4, 2);
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0, 3500.0));
}

TEST(FloorLevels, ThatDifferByHoweverLittleAreTwo) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3, 0).Node(3, 5, 3, 0);
    host.Node(4, 0, 3.00005, 5).Node(5, 5, 3.00005, 5);
    host.Member(1, 2, 3).Member(2, 4, 5);
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0, 3000.0, DoubleEq(3000.05)));
}

TEST(FloorLevels, AreTakenAtTheStartOfABeamThatLeansByLessThanATenthOfAMillimetre) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.00005, 0).Node(3, 5, 3, 0);
    host.Member(1, 2, 3);
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0, DoubleEq(3000.05)));
}

TEST(FloorLevels, AreNotTakenFromAMemberThatLeansMore) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.00011, 0).Node(3, 5, 3, 0);
    host.Member(1, 2, 3).Member(2, 3, 2);
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0));
}

TEST(FloorLevels, FollowTheVerticalAxis) {
    FakeHost host;
    host.zUp = true;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 0, 4).Node(3, 0, 9, 4).Member(1, 2, 3);
    EXPECT_THAT(LevelsOf(host), ElementsAre(0.0, 4000.0));
}

TEST(FloorLevels, AskForTheIncidenceOfEveryMemberOnce) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpModel();
    host.calls.clear();
    bench.engine.SetFloorInfo();
    EXPECT_THAT(host.calls, ElementsAre("GetMemberIncidence(1)", "GetMemberIncidence(2)",
                                        "GetMemberIncidence(3)", "GetMemberIncidence(4)",
                                        "GetMemberIncidence(5)", "GetMemberIncidence(6)",
                                        "GetMemberIncidence(7)"));
}

TEST(FloorLevels, EndTheRunAtAMemberWhoseNodeIsMissing) {
    TwoStories host;
    host.Member(8, 1, 99);
    EngineBench bench(host);
    bench.SetUpModel();
    bench.NewLog();
    EXPECT_EQ("invalid vector subscript", WhatEndsTheRun([&] { bench.engine.SetFloorInfo(); }));
    EXPECT_EQ(
        "\nStarts setting floor info...\n"
        "\nStarts setting floor info with data file...\n"
        "Ends setting floor info with data file...\n"
        "\n*** WARNING *** : Node number is not set correctly as setting floor...\n",
        bench.NewLog());
}

TEST(FloorLevels, AreListedInTheLogFromTheLowest) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpModel();
    bench.NewLog();
    bench.engine.SetFloorInfo();
    EXPECT_EQ(
        "\nStarts setting floor info...\n"
        "\nStarts setting floor info with data file...\n"
        "Ends setting floor info with data file...\n"
        "Floor info. :\n"
        "  1-th floor level(mm) = 0.00\n"
        "  2-th floor level(mm) = 3500.00\n"
        "  3-th floor level(mm) = 7000.00\n"
        "Ends setting floor info...\n",
        bench.NewLog());
}

// --- Floor levels from the file

TEST(FloorLevelsFromFile, AreSorted) {
    EXPECT_THAT(LevelsFromFile("FloorLevel,7000,0,3500,"), ElementsAre(0.0, 3500.0, 7000.0));
}

TEST(FloorLevelsFromFile, AreTakenOnce) {
    EXPECT_THAT(LevelsFromFile("FloorLevel,0,3500,3500,7000,"), ElementsAre(0.0, 3500.0, 7000.0));
    EXPECT_THAT(LevelsFromFile("FloorLevel,3500,0,3500,0,"), ElementsAre(0.0, 3500.0));
}

TEST(FloorLevelsFromFile, StandInPlaceOfTheHostsLevelsAndOfTheBase) {
    EXPECT_THAT(LevelsFromFile("FloorLevel,100,4000,"), ElementsAre(100.0, 4000.0));
    EXPECT_THAT(LevelsFromFile("FloorLevel,4000,"), ElementsAre(4000.0));
}

TEST(FloorLevelsFromFile, MayLieBelowTheBase) {
    EXPECT_THAT(LevelsFromFile("FloorLevel,-3000,0,3500,"), ElementsAre(-3000.0, 0.0, 3500.0));
}

TEST(FloorLevelsFromFile, ThatDifferByHoweverLittleAreTwo) {
    EXPECT_THAT(LevelsFromFile("FloorLevel,0,3500,3500.0000001,"), SizeIs(3));
}

TEST(FloorLevelsFromFile, AreTheHostsWhenTheLineHasNone) {
    for (const char* line : {"FloorLevel,", "FloorLevel,4000", "FloorLevel", "# no levels"})
        EXPECT_THAT(LevelsFromFile(line), ElementsAre(0.0, 3500.0, 7000.0)) << line;
}

TEST(FloorLevelsFromFile, AreTheHostsWhenTheFileHasNoFin) {
    TwoStories host;
    EngineBench bench(host, "no levels and no end\n");
    bench.SetUpModel();
    bench.NewLog();
    bench.engine.SetFloorInfo();
    EXPECT_THAT(bench.engine.floorLevels, ElementsAre(0.0, 3500.0, 7000.0));
    EXPECT_THAT(bench.NewLog(), EndsWith("Ends setting floor info...\n"));
}

TEST(FloorLevelsFromFile, AreTheHostsWhenTheFileIsMissing) {
    TwoStories host;
    EngineBench bench(host);
    bench.engine.dataFilePath = bench.folder.Path("missing.csv");
    bench.SetUpStories();
    EXPECT_THAT(bench.engine.floorLevels, ElementsAre(0.0, 3500.0, 7000.0));
    EXPECT_THAT(DistinctMembersOf(bench.engine, 0), ElementsAre(1, 2));
}

TEST(FloorLevelsFromFile, AskTheHostNothing) {
    TwoStories host;
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpModel();
    host.calls.clear();
    bench.engine.SetFloorInfo();
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST(FloorLevelsFromFile, MayBeInfinite) {
    EXPECT_THAT(LevelsFromFile("FloorLevel,inf,0,-inf,1e999,"),
                ElementsAre(-kInfinity, 0.0, kInfinity));
}

TEST(FloorLevelsFromFile, ThatAreNoNumbersAreKept) {
    // Where they stand among the others is open; none of them equals another.
    const auto levels = LevelsFromFile("FloorLevel,nan,0,nan,3500,nan,");
    EXPECT_THAT(levels, SizeIs(5));
    EXPECT_EQ(3, std::count_if(levels.begin(), levels.end(), [](double x) { return x != x; }));
    EXPECT_EQ(1, std::count(levels.begin(), levels.end(), 3500.0));
}

TEST(FloorLevelsFromFile, ThatAreNoNumbersDoNotStopTheStories) {
    // 40 levels, so that sorting has some work, and as many stories less one.
    std::string line = "FloorLevel,";
    for (int i = 0; i < 20; ++i)
        line += "nan," + std::to_string(90 - i) + ",";
    TwoStories host;
    EngineBench bench(host, line + "\nFIN\n");
    bench.SetUpStories();
    EXPECT_THAT(bench.engine.floorLevels, SizeIs(40));
    EXPECT_THAT(bench.engine.stories, SizeIs(39));
    EXPECT_THAT(bench.Log(), HasSubstr("-th floor level(mm) = nan\n"));
    EXPECT_THAT(bench.Log(), EndsWith("\nEnds setting story info...\n"));
}

// --- Stories

TEST(Stories, LieBetweenNeighbouringLevels) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpStories();
    ASSERT_THAT(bench.engine.stories, SizeIs(2));
    EXPECT_EQ(0.0, bench.engine.stories[0].lowerLevel);
    EXPECT_EQ(3500.0, bench.engine.stories[0].upperLevel);
    EXPECT_EQ(3500.0, bench.engine.stories[1].lowerLevel);
    EXPECT_EQ(7000.0, bench.engine.stories[1].upperLevel);
}

TEST(Stories, AreNoneWithFewerThanTwoLevels) {
    for (const char* input : {"FloorLevel,3500,\nFIN\n", "FloorLevel,3500,3500,\nFIN\n"}) {
        TwoStories host;
        EngineBench bench(host, input);
        bench.SetUpStories();
        EXPECT_THAT(bench.engine.stories, IsEmpty());
        EXPECT_TRUE(bench.engine.storyInfoSet);
        EXPECT_THAT(bench.Log(), Not(HasSubstr("WARNING")));
    }
}

TEST(Stories, AreNoneWithoutAnyLevel) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpModel();
    bench.engine.SetStoryInfo();  // no floor step before it
    EXPECT_THAT(bench.engine.stories, IsEmpty());
    EXPECT_TRUE(bench.engine.storyInfoSet);
}

TEST(Stories, StartWithTheEnginesAllowableValues) {
    TwoStories host;
    EngineBench bench(host);
    bench.engine.allowStoryStiffRatio = 0.7;
    bench.SetUpStories();
    for (const StoryInfo& story : bench.engine.stories) {
        EXPECT_EQ(0.005, story.allowDeformAngle);
        EXPECT_EQ(0.7, story.allowStiffRatio);
        EXPECT_EQ(0.15, story.allowEccentricityModulus);
    }
}

TEST(Stories, StartWithEmptyResults) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpStories();
    const StoryInfo& story = bench.engine.stories[0];
    for (const std::size_t axis : {kX, kZ}) {
        EXPECT_THAT(story.maxRelativeDispByLoadCase[axis], IsEmpty());
        EXPECT_THAT(story.meanRelativeDispByLoadCase[axis], IsEmpty());
    }
    for (const PerDirection& result :
         {story.maxRelativeDisp, story.meanRelativeDisp, story.gravityCenter, story.rigidityCenter,
          story.eccentricityModulus})
        EXPECT_THAT(result, Each(0.0));
}

TEST(Stories, TakeAllowableValuesAndOutputFlagsFromTheFile) {
    TwoStories host;
    EngineBench bench(host, "AllowStoryDeformAngle,\n2,0.008\nMemberDeformAngle,4,\nFIN\n");
    bench.SetUpStories();
    EXPECT_EQ(0.005, bench.engine.stories[0].allowDeformAngle);
    EXPECT_EQ(0.008, bench.engine.stories[1].allowDeformAngle);
    ASSERT_THAT(MembersOf(bench.engine, 1), ElementsAre(3, 4));
    EXPECT_FALSE(bench.engine.stories[1].members[0].outputDeformAngle);
    EXPECT_TRUE(bench.engine.stories[1].members[1].outputDeformAngle);
}

TEST(Stories, CopyTheAxesOfTheirMembers) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpStories();
    // Member 3 runs down: x = (0, -1, 0), y = (1, 0, 0), z = (0, 0, 1).
    const StoryMember& record = bench.engine.stories[1].members[0];
    EXPECT_EQ(3, record.memberNumber);
    EXPECT_EQ(-1.0, record.axisX.y);
    EXPECT_EQ(1.0, record.axisY.x);
    EXPECT_EQ(1.0, record.axisZ.z);
}

TEST(Stories, WriteTheirSubStepsIntoTheLogBeforeTheirOwnEndLine) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    bench.NewLog();
    bench.engine.SetStoryInfo();
    EXPECT_EQ(
        "\nStarts setting story info...\n"
        "\nStarts setting story info with data file...\n"
        "Ends setting story info with data file...\n"
        "\nStarts setting output flag of member story deformation angle...\n"
        "Ends setting output flag of member story deformation angle...\n"
        "\nStarts setting story allowable values...\n"
        "Ends setting story allowable values...\n"
        "\nStarts setting story member base vector...\n"
        "Ends setting story member base vector...\n"
        "\nEnds setting story info...\n",
        bench.NewLog());
}

// --- Story members from the geometry

TEST(SetStoryMember, TakesTheMembersThatSpanExactlyOneStory) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(1, 2));
    EXPECT_THAT(MembersOf(bench.engine, 1), ElementsAre(3, 4));
}

TEST(SetStoryMember, TakesBracesAsWellAsColumns) {
    TwoStories host;
    host.Member(8, 1, 4).Member(9, 6, 3);
    EngineBench bench(host);
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(1, 2, 8));
    EXPECT_THAT(MembersOf(bench.engine, 1), ElementsAre(3, 4, 9));
}

TEST(SetStoryMember, NamesTheLowerNodeWhicheverEndItIs) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpStories();
    const StoryMember& up = bench.engine.stories[0].members[0];  // from node 1 to node 3
    EXPECT_EQ(1, up.lowerNodeNumber);
    EXPECT_EQ(3, up.upperNodeNumber);
    const StoryMember& down = bench.engine.stories[1].members[0];  // from node 5 to node 3
    EXPECT_EQ(3, down.lowerNodeNumber);
    EXPECT_EQ(5, down.upperNodeNumber);
}

TEST(SetStoryMember, PlacesARecordAtTheLowerNode) {
    // A brace from (1, 0, 2) up to (6, 3.5, 9).
    FakeHost host;
    host.primaryLoadCases = {1};
    host.Node(1, 6, 3.5, 9).Node(2, 1, 0, 2, true).Member(1, 1, 2);
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpStories();
    ASSERT_THAT(MembersOf(bench.engine, 0), ElementsAre(1));
    EXPECT_DOUBLE_EQ(1000, bench.engine.stories[0].members[0].planX);
    EXPECT_DOUBLE_EQ(2000, bench.engine.stories[0].members[0].planZ);
}

TEST(SetStoryMember, PlacesARecordAtTheYCoordinateWithZVertical) {
    FakeHost host;
    host.zUp = true;
    host.primaryLoadCases = {1};
    host.Node(1, 1, 2, 0, true).Node(2, 1, 2, 3.5).Member(1, 1, 2);
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpStories();
    ASSERT_THAT(MembersOf(bench.engine, 0), ElementsAre(1));
    EXPECT_DOUBLE_EQ(1000, bench.engine.stories[0].members[0].planX);
    EXPECT_DOUBLE_EQ(2000, bench.engine.stories[0].members[0].planZ);
}

TEST(SetStoryMember, LeavesOutAColumnThatSpansTwoStories) {
    EXPECT_THAT(StoriesOfAColumnTo(7.0), IsEmpty());
}

TEST(SetStoryMember, TakesAColumnThatMissesTheFloorByLessThanATenthOfAMillimetre) {
    EXPECT_THAT(StoriesOfAColumnTo(3.5), ElementsAre(1));
    EXPECT_THAT(StoriesOfAColumnTo(3.50005), ElementsAre(1));
    EXPECT_THAT(StoriesOfAColumnTo(3.49995), ElementsAre(1));
}

TEST(SetStoryMember, LeavesOutAColumnThatMissesTheFloorByATenthOfAMillimetre) {
    EXPECT_THAT(StoriesOfAColumnTo(3.5001), IsEmpty());
    EXPECT_THAT(StoriesOfAColumnTo(3.4998), IsEmpty());
}

TEST(SetStoryMember, LeavesOutAColumnWhoseFootMissesTheFloor) {
    FakeHost host;
    host.primaryLoadCases = {1};
    host.Node(1, 0, 0.0002, 0, true).Node(2, 0, 3.5, 0).Member(1, 1, 2);
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), IsEmpty());
}

// Levels 0, 3000 and 3000.05: the second story is 0.05 mm high and both its levels lie within
// 0.1 mm of either end of every beam.
TEST(SetStoryMember, TakesTheBeamsOfTwoLevelsCloserThanATenthOfAMillimetre) {
    FakeHost host;
    host.primaryLoadCases = {1};
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3, 0).Node(3, 5, 3, 0);
    host.Node(4, 0, 3.00005, 5).Node(5, 5, 3.00005, 5);
    host.Member(1, 1, 2).Member(2, 2, 3).Member(3, 4, 5);
    EngineBench bench(host);
    bench.SetUpStories();
    ASSERT_THAT(bench.engine.stories, SizeIs(2));
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(1));
    EXPECT_THAT(MembersOf(bench.engine, 1), ElementsAre(2, 3));
    // Both ends at one height: the start node is the lower one.
    EXPECT_EQ(2, bench.engine.stories[1].members[0].lowerNodeNumber);
    EXPECT_EQ(3, bench.engine.stories[1].members[0].upperNodeNumber);
}

TEST(SetStoryMember, FillsARecordForEveryLoadCaseMemberByMember) {
    TwoStories host;
    host.primaryLoadCases = {1, 2, 3};
    EngineBench bench(host);
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(1, 1, 1, 2, 2, 2));
    std::vector<std::int32_t> loadCases;
    for (const StoryMember& record : bench.engine.stories[0].members)
        loadCases.push_back(record.loadCaseNumber);
    EXPECT_THAT(loadCases, ElementsAre(1, 2, 3, 1, 2, 3));
}

TEST(SetStoryMember, FillsARecordForEveryCombinationToo) {
    TwoStories host;
    host.primaryLoadCases = {1, 2, 3};
    host.loadCombinations = {101, 102};
    EngineBench bench(host);
    bench.SetUpStories();
    ASSERT_THAT(MembersOf(bench.engine, 0), SizeIs(10));
    std::vector<std::int32_t> loadCases;
    for (std::size_t i = 0; i < 5; ++i)
        loadCases.push_back(bench.engine.stories[0].members[i].loadCaseNumber);
    EXPECT_THAT(loadCases, ElementsAre(1, 2, 3, 101, 102));
}

TEST(SetStoryMember, AsksForEveryIncidenceOncePerStory) {
    FakeHost host;
    host.primaryLoadCases = {1, 2};
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Member(8, 1, 2).Member(7, 2, 1);
    EngineBench bench(host, "FloorLevel,0,3500,7000,\nFIN\n");
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    host.calls.clear();
    bench.engine.SetStoryInfo();
    EXPECT_THAT(host.calls, ElementsAre("GetMemberIncidence(8)", "GetMemberIncidence(7)",
                                        "GetMemberIncidence(8)", "GetMemberIncidence(7)"));
}

TEST(SetStoryMember, AsksNothingWithoutStories) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpModel();
    host.calls.clear();
    EXPECT_TRUE(bench.engine.SetStoryMember());
    EXPECT_TRUE(bench.engine.storyInfoSet);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST(SetStoryMember, WritesNoStartAndNoEndLine) {
    TwoStories host;
    EngineBench bench(host);
    bench.SetUpModel();
    bench.engine.stories.resize(1);
    bench.NewLog();
    EXPECT_TRUE(bench.engine.SetStoryMember());
    EXPECT_EQ("", bench.NewLog());
}

TEST(SetStoryMember, StopsAtAMissingNodeAndLeavesTheStoriesUnset) {
    TwoStories host;
    host.Member(8, 1, 99);
    EngineBench bench(host, "FloorLevel,0,3500,\nAllowStoryStiffRatio,\n1,0.9\nFIN\n");
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    bench.NewLog();
    bench.engine.SetStoryInfo();
    EXPECT_FALSE(bench.engine.storyInfoSet);
    EXPECT_EQ(0.6, bench.engine.stories[0].allowStiffRatio);
    EXPECT_EQ(
        "\nStarts setting story info...\n"
        "\nStarts setting story info with data file...\n"
        "Ends setting story info with data file...\n"
        "\n*** WARNING *** : Node number is not set correctly. Stops setting story member...\n"
        "\nStarts setting output flag of member story deformation angle...\n"
        "Ends setting output flag of member story deformation angle...\n"
        "\nStarts setting story allowable values...\n"
        "\n*** WARNING *** : Story info. has not set yet. Stops setting story allowable "
        "values...\n"
        "\nStarts setting story member base vector...\n"
        "\n*** WARNING *** : Story info. has not set yet. Stops setting member base vector...\n"
        "\nEnds setting story info...\n",
        bench.NewLog());
}

// --- Story members from the file

TEST(StoryMembersFromFile, StandInPlaceOfTheGeometry) {
    TwoStories host;
    EngineBench bench(host, "StoryMember,\n1,2,\nFIN\n");
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(2));
    EXPECT_THAT(MembersOf(bench.engine, 1), IsEmpty());
}

TEST(StoryMembersFromFile, MayLieInAnotherStory) {
    TwoStories host;
    EngineBench bench(host, "StoryMember,\n2,1,\nFIN\n");
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), IsEmpty());
    EXPECT_THAT(MembersOf(bench.engine, 1), ElementsAre(1));
    EXPECT_EQ(1, bench.engine.stories[1].members[0].lowerNodeNumber);
}

TEST(StoryMembersFromFile, MayBeNoneAtAll) {
    TwoStories host;
    EngineBench bench(host, "FloorLevel,0,3500,7000,\nStoryMember,\nFIN\n");
    bench.SetUpModel();
    host.calls.clear();
    bench.engine.SetFloorInfo();
    bench.engine.SetStoryInfo();
    ASSERT_THAT(bench.engine.stories, SizeIs(2));
    EXPECT_THAT(MembersOf(bench.engine, 0), IsEmpty());
    EXPECT_THAT(MembersOf(bench.engine, 1), IsEmpty());
    EXPECT_TRUE(bench.engine.storyInfoSet);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST(StoryMembersFromFile, AreNotReplacedWhenTheirReaderStopsEarly) {
    TwoStories host;
    EngineBench bench(host, "StoryMember,\n1,2,\n3,4,\nFIN\n");
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(2));
    EXPECT_THAT(MembersOf(bench.engine, 1), IsEmpty());
}

TEST(StoryMembersFromFile, FillARecordForEveryLoadCaseMemberByMember) {
    TwoStories host;
    host.primaryLoadCases = {1, 2, 3};
    EngineBench bench(host, "StoryMember,\n1,1,2,\nFIN\n");
    bench.SetUpStories();
    EXPECT_THAT(MembersOf(bench.engine, 0), ElementsAre(1, 1, 1, 2, 2, 2));
    EXPECT_EQ(3, bench.engine.stories[0].members[2].loadCaseNumber);
    EXPECT_EQ(1, bench.engine.stories[0].members[3].loadCaseNumber);
}

TEST(StoryMembersFromFile, HaveTheirEndNodeAsBothNodesWhenTheyAreLevel) {
    TwoStories host;
    EngineBench bench(host, "StoryMember,\n1,5,\nFIN\n");  // beam 5 from node 3 to node 4
    bench.SetUpStories();
    const StoryMember& record = bench.engine.stories[0].members.at(0);
    EXPECT_EQ(4, record.lowerNodeNumber);
    EXPECT_EQ(4, record.upperNodeNumber);
    EXPECT_DOUBLE_EQ(6000, record.planX);
}

TEST(StoryMembersFromFile, HaveThePlanPositionOfTheirLowerNodeWithZVertical) {
    FakeHost host;
    host.zUp = true;
    host.primaryLoadCases = {1};
    host.Node(1, 8, 9, 3.5).Node(2, 1, 2, 0, true).Member(1, 1, 2);
    EngineBench bench(host, "FloorLevel,0,3500,\nStoryMember,\n1,1,\nFIN\n");
    bench.SetUpStories();
    const StoryMember& record = bench.engine.stories[0].members.at(0);
    EXPECT_EQ(2, record.lowerNodeNumber);
    EXPECT_DOUBLE_EQ(1000, record.planX);
    EXPECT_DOUBLE_EQ(2000, record.planZ);
}

// --- Single members

namespace {

// Member 1 rises from node 1 to node 2 by 3.5 m; 2 is the same member downwards; 3 is level; 4
// rises by less than a tenth of a millimetre; 5 and 6 have a missing node.
struct SixMembers : FakeHost {
    SixMembers() {
        Node(1, 0, 0, 0).Node(2, 0, 3.5, 0).Node(3, 5, 0, 0).Node(4, 5, 0.00005, 0);
        Member(1, 1, 2).Member(2, 2, 1).Member(3, 1, 3).Member(4, 1, 4);
        Member(5, 1, 99).Member(6, 99, 1);
    }
};

struct MemberBench {
    MemberBench() : bench(host), engine(bench.engine) {
        bench.SetUpModel();
        bench.NewLog();
    }
    SixMembers host;
    EngineBench bench;
    AijCodeRoute2& engine;
};

}  // namespace

TEST(SingleMember, HasItsLowerEndAtTheLowerNode) {
    MemberBench bench;
    EXPECT_EQ(1, bench.engine.SetLowerNodeNumber(1));
    EXPECT_EQ(1, bench.engine.SetLowerNodeNumber(2));
    EXPECT_EQ(1, bench.engine.SetLowerNodeNumber(4));  // strictly lower, however little
}

TEST(SingleMember, HasItsUpperEndAtTheUpperNode) {
    MemberBench bench;
    EXPECT_EQ(2, bench.engine.SetUpperNodeNumber(1));
    EXPECT_EQ(2, bench.engine.SetUpperNodeNumber(2));
    EXPECT_EQ(4, bench.engine.SetUpperNodeNumber(4));
}

TEST(SingleMember, HasBothEndsAtItsEndNodeWhenItIsLevel) {
    MemberBench bench;
    EXPECT_EQ(3, bench.engine.SetLowerNodeNumber(3));
    EXPECT_EQ(3, bench.engine.SetUpperNodeNumber(3));
}

TEST(SingleMember, HasAHeightWithoutASign) {
    MemberBench bench;
    EXPECT_EQ(3500.0, bench.engine.SetMemberHeight(1));
    EXPECT_EQ(3500.0, bench.engine.SetMemberHeight(2));
    EXPECT_EQ(0.0, bench.engine.SetMemberHeight(3));
}

TEST(SingleMember, HasAFloorLevelWhenItIsLevel) {
    MemberBench bench;
    double level = -1.0;
    EXPECT_TRUE(bench.engine.GetFloorLevelOfMember(3, level));
    EXPECT_EQ(0.0, level);
    level = -1.0;
    EXPECT_TRUE(bench.engine.GetFloorLevelOfMember(4, level));
    EXPECT_EQ(0.0, level);  // that of its start
    EXPECT_FALSE(bench.engine.GetFloorLevelOfMember(1, level));
}

// Every comparison with what is no number is false.
TEST(SingleMember, WithAnEndAtNoHeightHasItsEndNodeAsBothNodesAndNoFloorLevel) {
    MemberBench bench;
    bench.engine.nodeCoords[1].y = std::numeric_limits<double>::quiet_NaN();  // node 2
    EXPECT_EQ(2, bench.engine.SetLowerNodeNumber(1));
    EXPECT_EQ(2, bench.engine.SetUpperNodeNumber(1));
    double level = 0.0;
    EXPECT_FALSE(bench.engine.GetFloorLevelOfMember(1, level));
}

TEST(SingleMember, AsksForItsIncidenceOnce) {
    MemberBench bench;
    bench.host.calls.clear();
    bench.engine.SetMemberHeight(1);
    bench.engine.SetLowerNodeNumber(2);
    bench.engine.SetUpperNodeNumber(3);
    EXPECT_THAT(bench.host.calls, ElementsAre("GetMemberIncidence(1)", "GetMemberIncidence(2)",
                                              "GetMemberIncidence(3)"));
}

TEST(SingleMember, EndsTheRunWithTheWarningOfTheOperationThatMissesItsNode) {
    double level = 0.0;
    const struct {
        const char* warning;
        std::function<void(AijCodeRoute2&, std::int32_t)> operation;
    } operations[] = {
        {"\n*** WARNING *** : Node number is not set correctly as setting lower node number...\n",
         [](AijCodeRoute2& engine, std::int32_t member) { engine.SetLowerNodeNumber(member); }},
        {"\n*** WARNING *** : Node number is not set correctly as setting upper node number...\n",
         [](AijCodeRoute2& engine, std::int32_t member) { engine.SetUpperNodeNumber(member); }},
        {"\n*** WARNING *** : Node number is not set correctly as setting member height...\n",
         [](AijCodeRoute2& engine, std::int32_t member) { engine.SetMemberHeight(member); }},
        {"\n*** WARNING *** : Node number is not set correctly as setting floor...\n",
         [&](AijCodeRoute2& engine, std::int32_t member) {
             engine.GetFloorLevelOfMember(member, level);
         }},
    };
    for (const std::int32_t member : {5, 6}) {
        for (const auto& each : operations) {
            MemberBench bench;
            EXPECT_EQ("invalid vector subscript",
                      WhatEndsTheRun([&] { each.operation(bench.engine, member); }));
            EXPECT_EQ(each.warning, bench.bench.NewLog());
        }
    }
}
