#include "route2/story_drift.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/engine_bench.h"
#include "tests/support/run_log.h"

using testing::ElementsAre;
using testing::IsNan;

namespace {

// One column, member 1 from node 1 at the origin up to node 2, named for the only story, 0 to
// 3500 mm; load case 2.
class OneColumn {
public:
    explicit OneColumn(double heightInMetres = 3.5) {
        host.Node(1, 0, 0, 0, true).Node(2, 0, heightInMetres, 0).Member(1, 1, 2);
        host.primaryLoadCases = {2};
    }

    /// Runs the step over the story and gives its only record.
    const StoryMember& Run() {
        bench.emplace(host, "FloorLevel,0,3500,\nStoryMember,\n1,1,\nFIN\n");
        bench->SetUpStories();
        bench->engine.SetRelativeStoryDisp();
        return bench->engine.stories.at(0).members.at(0);
    }

    FakeHost host;
    std::optional<EngineBench> bench;
};

StoryMember Record(std::int32_t loadCase, double relX, double relZ) {
    StoryMember record;
    record.loadCaseNumber = loadCase;
    record.relativeDisp = {relX, relZ};
    return record;
}

StoryInfo Reduced(const std::vector<std::int32_t>& loadCases,
                  const std::vector<StoryMember>& records) {
    StoryInfo story;
    story.members = records;
    StoryDriftReduction(loadCases).Reduce(story);
    return story;
}

constexpr const char* kSubject = "relative story displacement";

}  // namespace

// 0.007 m at the upper node less 0.002 m at the lower node: 5 mm.
TEST(StoryDrift, IsUpperNodeLessLowerNodeInMillimetres) {
    OneColumn column;
    column.host.Displace(2, 1, 0.002, 0, 0.001).Displace(2, 2, 0.007, 0, -0.002);
    const PerDirection disp = column.Run().relativeDisp;
    EXPECT_DOUBLE_EQ(5.0, disp[kX]);
    EXPECT_DOUBLE_EQ(-3.0, disp[kZ]);
}

// 3500.09 mm against 3500 mm: the ratio is 1 and 7 mm stay exactly 7 mm.
TEST(StoryDrift, AMemberLessThanATenthOfAMillimetreOffItsStoryKeepsItsDifference) {
    OneColumn column(3.50009);
    column.host.Displace(2, 2, 0.007, 0, 0);
    EXPECT_EQ(7.0, column.Run().relativeDisp[kX]);
}

// 3500.2 / 3500 * 7 mm = 7.0004 mm.
TEST(StoryDrift, AMemberFurtherOffItsStoryIsScaledByItsHeight) {
    OneColumn column(3.5002);
    column.host.Displace(2, 2, 0.007, 0, 0);
    EXPECT_DOUBLE_EQ(7.0004, column.Run().relativeDisp[kX]);
}

TEST(StoryDrift, AMemberTwiceAsHighAsItsStoryCountsDouble) {
    OneColumn column(7.0);
    column.host.Displace(2, 2, 0.007, 0, -0.001);
    EXPECT_EQ((PerDirection{14.0, -2.0}), column.Run().relativeDisp);
}

TEST(StoryDrift, AMemberHalfAsHighAsItsStoryCountsHalf) {
    OneColumn column(1.75);
    column.host.Displace(2, 2, 0.007, 0, 0);
    EXPECT_EQ(3.5, column.Run().relativeDisp[kX]);
}

// Nothing tests the story height: 3500 / 0.
TEST(HeightRatio, DividesEvenByAStoryOfNoHeight) {
    EXPECT_EQ(std::numeric_limits<double>::infinity(), HeightRatio(3500.0, 0.0));
    EXPECT_EQ(1.0, HeightRatio(0.05, 0.0));
}

TEST(HeightRatio, IsExactlyOneOnlyBelowATenthOfAMillimetre) {
    EXPECT_EQ(1.0, HeightRatio(0.09375, 0.0));  // 3/32 mm apart
    EXPECT_NE(1.0, HeightRatio(3500.125, 3500.0));
    EXPECT_NE(1.0, HeightRatio(3499.875, 3500.0));
}

TEST(StoryDrift, NineThousandthsOfAMillimetreAreStoredAsZero) {
    OneColumn column;
    column.host.Displace(2, 2, 0.000009, 0, -0.000009);
    const PerDirection disp = column.Run().relativeDisp;
    EXPECT_EQ(0.0, disp[kX]);
    EXPECT_EQ(0.0, disp[kZ]);
}

// 1e-5 * 1000 is the double next to 0.01 that 0.01 itself is.
TEST(StoryDrift, AHundredthOfAMillimetreIsKeptWithItsSign) {
    OneColumn column;
    column.host.Displace(2, 2, -0.00001, 0, 0.00001);
    EXPECT_EQ((PerDirection{-0.01, 0.01}), column.Run().relativeDisp);
}

TEST(StoryDrift, ADisplacementThatIsNotANumberIsKept) {
    EXPECT_THAT(WithoutNumericalNoise(std::nan("")), IsNan());
}

// 1 inch = 25.4 mm. The column is 100 in = 2540 mm, not the story's 3500 mm, so it counts
// 2540 / 3500: 25.4 * 2540 / 3500 = 18.4331... mm.
TEST(StoryDrift, EnglishUnitsAreInches) {
    OneColumn column(100.0);
    column.host.baseUnitSystem = 1;
    column.host.Displace(2, 2, 1.0, 0, -2.0);
    const PerDirection disp = column.Run().relativeDisp;
    EXPECT_DOUBLE_EQ(25.4 * 2540.0 / 3500.0, disp[kX]);
    EXPECT_DOUBLE_EQ(-2.0 * 25.4 * 2540.0 / 3500.0, disp[kZ]);
}

TEST(StoryDrift, SecondDirectionIsGlobalZWhenYIsVertical) {
    OneColumn column;
    column.host.Displace(2, 2, 0.001, 0.002, 0.003);
    EXPECT_EQ((PerDirection{1.0, 3.0}), column.Run().relativeDisp);
}

TEST(StoryDrift, SecondDirectionIsGlobalYWhenZIsVertical) {
    FakeHost host;
    host.zUp = true;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 0, 3.5).Member(1, 1, 2);
    host.primaryLoadCases = {2};
    host.Displace(2, 2, 0.001, 0.002, 0.003);
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpStories();
    bench.engine.SetRelativeStoryDisp();
    EXPECT_EQ((PerDirection{1.0, 2.0}), bench.engine.stories.at(0).members.at(0).relativeDisp);
}

// Member 1 starts at its upper node 2: still upper less lower.
TEST(StoryDrift, DoesNotDependOnWhichEndAMemberStarts) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Member(1, 2, 1);
    host.primaryLoadCases = {2};
    host.Displace(2, 2, 0.004, 0, 0);
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpStories();
    bench.engine.SetRelativeStoryDisp();
    EXPECT_EQ(4.0, bench.engine.stories.at(0).members.at(0).relativeDisp[kX]);
}

TEST(StoryDriftReduction, LargestOfNegativeDisplacementsIsTheLeastNegative) {
    const StoryInfo story = Reduced({2}, {Record(2, -7, -1), Record(2, -3, -2)});
    EXPECT_EQ((PerDirection{-3.0, -1.0}), story.maxRelativeDisp);
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kX], ElementsAre(-3.0));
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kZ], ElementsAre(-1.0));
}

// X: case 2 has 4 and 8, case 3 has 1 and 3; over all 16 / 4 = 4. Z: -2, 0, 5, 1; over all 1.
TEST(StoryDriftReduction, FormsMeansOverAllRecordsAndPerLoadCase) {
    const StoryInfo story =
        Reduced({2, 3}, {Record(2, 4, -2), Record(3, 1, 5), Record(2, 8, 0), Record(3, 3, 1)});
    EXPECT_EQ((PerDirection{4.0, 1.0}), story.meanRelativeDisp);
    EXPECT_EQ((PerDirection{8.0, 5.0}), story.maxRelativeDisp);
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX], ElementsAre(6.0, 2.0));
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kZ], ElementsAre(-1.0, 3.0));
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kX], ElementsAre(8.0, 3.0));
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kZ], ElementsAre(0.0, 5.0));
}

TEST(StoryDriftReduction, ALoadCaseWithoutARecordKeepsTheStartValueAndAMeanOfZero) {
    const StoryInfo story = Reduced({2, 7}, {Record(2, 4, 1), Record(2, 8, 3)});
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kX], ElementsAre(8.0, -100000.0));
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kZ], ElementsAre(3.0, -100000.0));
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX], ElementsAre(12.0, 0.0));
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kZ], ElementsAre(4.0, 0.0));
}

// 4 and 8 over all; case 2 has 4 alone, and 2 / 1 records per load case: 4 / 2.
TEST(StoryDriftReduction, ARecordOfAnUnknownLoadCaseCountsOverAllOnly) {
    const StoryInfo story = Reduced({2}, {Record(2, 4, 0), Record(9, 8, 0)});
    EXPECT_EQ(8.0, story.maxRelativeDisp[kX]);
    EXPECT_EQ(6.0, story.meanRelativeDisp[kX]);
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kX], ElementsAre(4.0));
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX], ElementsAre(2.0));
}

// Three records and two load cases: 3 / 2 = 1 in whole numbers, so case 2 with its records 4 and
// 8 has the mean 12, not 6.
TEST(StoryDriftReduction, MeanOfALoadCaseDividesByTheWholeNumberQuotient) {
    const StoryInfo story = Reduced({2, 3}, {Record(2, 4, 0), Record(2, 8, 0), Record(3, 5, 0)});
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX], ElementsAre(12.0, 5.0));
}

// One record and two load cases: 1 / 2 = 0 in whole numbers; 7 / 0 and 0 / 0.
TEST(StoryDriftReduction, FewerRecordsThanLoadCasesDivideByZero) {
    const StoryInfo story = Reduced({2, 3}, {Record(2, 7, 0)});
    EXPECT_EQ(std::numeric_limits<double>::infinity(), story.meanRelativeDispByLoadCase[kX][0]);
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX][1], IsNan());
    EXPECT_EQ(7.0, story.meanRelativeDisp[kX]);
}

// Two records, two entries: each entry sees both records, and divides by 2 / 2 = 1.
TEST(StoryDriftReduction, ALoadCaseNumberThatStandsTwiceCountsAtBothPlaces) {
    const StoryInfo story = Reduced({2, 2}, {Record(2, 4, 1), Record(2, 8, 3)});
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kX], ElementsAre(8.0, 8.0));
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX], ElementsAre(12.0, 12.0));
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kZ], ElementsAre(4.0, 4.0));
}

TEST(StoryDriftReduction, AStoryWithoutRecordsHasZerosForEveryLoadCase) {
    StoryInfo story;
    story.maxRelativeDisp = {9.0, 9.0};
    story.meanRelativeDisp = {9.0, 9.0};
    StoryDriftReduction({2, 3, 101}).Reduce(story);
    EXPECT_EQ((PerDirection{}), story.maxRelativeDisp);
    EXPECT_EQ((PerDirection{}), story.meanRelativeDisp);
    for (const std::size_t axis : {kX, kZ}) {
        EXPECT_THAT(story.maxRelativeDispByLoadCase[axis], ElementsAre(0.0, 0.0, 0.0));
        EXPECT_THAT(story.meanRelativeDispByLoadCase[axis], ElementsAre(0.0, 0.0, 0.0));
    }
}

TEST(StoryDriftReduction, OneStoryLeavesNothingBehindForTheNext) {
    StoryDriftReduction reduction({2});
    StoryInfo high, low;
    high.members = {Record(2, 50, 50)};
    low.members = {Record(2, -1, -2)};
    reduction.Reduce(high);
    reduction.Reduce(low);
    EXPECT_EQ((PerDirection{-1.0, -2.0}), low.maxRelativeDisp);
    EXPECT_THAT(low.meanRelativeDispByLoadCase[kX], ElementsAre(-1.0));
}

// Two records (load cases 2 and 3): lower node, upper node, then the incidence for the height.
TEST(StoryDrift, AsksForLowerAndUpperNodeOfEveryRecordThenForTheMembersHeight) {
    OneColumn column;
    column.host.loadCombinations = {3};
    column.Run();
    column.host.calls.clear();
    column.bench->engine.SetRelativeStoryDisp();
    EXPECT_THAT(column.host.calls,
                ElementsAre("GetNodeDisplacements(1, 2)", "GetNodeDisplacements(2, 2)",
                            "GetMemberIncidence(1)", "GetNodeDisplacements(1, 3)",
                            "GetNodeDisplacements(2, 3)", "GetMemberIncidence(1)"));
}

TEST(StoryDrift, ASecondRunOfTheStepGivesTheSameResults) {
    OneColumn column;
    column.host.Displace(2, 2, 0.007, 0, 0.003);
    column.Run();
    column.bench->engine.SetRelativeStoryDisp();
    const StoryInfo& story = column.bench->engine.stories.at(0);
    EXPECT_EQ((PerDirection{7.0, 3.0}), story.maxRelativeDisp);
    EXPECT_THAT(story.meanRelativeDispByLoadCase[kX], ElementsAre(7.0));
    EXPECT_THAT(story.maxRelativeDispByLoadCase[kZ], ElementsAre(3.0));
}

TEST(StoryDrift, LogsItsStartAndItsEnd) {
    OneColumn column;
    column.Run();
    column.bench->NewLog();
    EXPECT_TRUE(column.bench->engine.SetRelativeStoryDisp());
    EXPECT_EQ(StepLog(kSubject), column.bench->NewLog());
}

TEST(StoryDrift, RefusesToRunWithoutStoryInfo) {
    OneColumn column;
    EngineBench bench(column.host);
    bench.engine.stories.emplace_back();
    column.host.calls.clear();
    EXPECT_FALSE(bench.engine.SetRelativeStoryDisp());
    EXPECT_EQ(RefusedStepLog(kSubject,
                             "Story info. has not set yet. Stops setting relative story "
                             "displacement..."),
              bench.Log());
    EXPECT_THAT(bench.engine.stories[0].maxRelativeDispByLoadCase[kX], ElementsAre());
    EXPECT_TRUE(column.host.calls.empty());
}

TEST(StoryDrift, AFailedHostCallLeavesTheStepWithoutAnEndLine) {
    OneColumn column;
    column.Run();
    column.bench->NewLog();
    column.host.FailFromNowOn();
    EXPECT_THROW(column.bench->engine.SetRelativeStoryDisp(), HostCallError);
    EXPECT_EQ("\nStarts setting relative story displacement...\n", column.bench->NewLog());
}

TEST(StoryDrift, RecordsOfTwoMembersKeepTheirOwnDisplacements) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Node(3, 6, 0, 0, true).Node(4, 6, 3.5, 0);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.primaryLoadCases = {2};
    host.Displace(2, 2, 0.004, 0, 0).Displace(2, 4, 0.008, 0, 0);
    EngineBench bench(host, "FloorLevel,0,3500,\nFIN\n");
    bench.SetUpStories();
    bench.engine.SetRelativeStoryDisp();
    const StoryInfo& story = bench.engine.stories.at(0);
    EXPECT_EQ(4.0, story.members.at(0).relativeDisp[kX]);
    EXPECT_EQ(8.0, story.members.at(1).relativeDisp[kX]);
    EXPECT_EQ(6.0, story.meanRelativeDisp[kX]);
}

TEST(DeformAngle, IsZeroForAStoryThatHasNoPositiveHeight) {
    EXPECT_EQ(0.002, DeformAngle(7.0, 3500.0));
    EXPECT_EQ(0.0, DeformAngle(7.0, 0.0));
    EXPECT_EQ(0.0, DeformAngle(7.0, -3500.0));
}
