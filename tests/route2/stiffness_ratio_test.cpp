#include "route2/stiffness_ratio.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "tests/support/engine_bench.h"
#include "tests/support/run_log.h"

using testing::ElementsAre;
using testing::IsNan;

namespace {

/// A story of `height` mm whose displacements are all `disp` mm, under `loadCases` load cases.
StoryInfo Story(double height, double disp, std::size_t loadCases = 1) {
    StoryInfo story;
    story.lowerLevel = 1000.0;
    story.upperLevel = 1000.0 + height;
    story.maxRelativeDisp = story.meanRelativeDisp = {disp, disp};
    for (const std::size_t axis : {kX, kZ}) {
        story.maxRelativeDispByLoadCase[axis].assign(loadCases, disp);
        story.meanRelativeDispByLoadCase[axis].assign(loadCases, disp);
    }
    return story;
}

// An engine that holds the given stories, under one load case.
class Stories {
public:
    explicit Stories(std::vector<StoryInfo> stories) : bench(host) {
        engine().storyInfoSet = true;
        engine().stories = std::move(stories);
        SetLoadCases({2}, {});
    }
    AijCodeRoute2& engine() { return bench.engine; }

    void SetLoadCases(const std::vector<std::int32_t>& primary,
                      const std::vector<std::int32_t>& combinations) {
        engine().numPrimaryLoadCases = static_cast<std::int32_t>(primary.size());
        engine().numLoadCombinations = static_cast<std::int32_t>(combinations.size());
        engine().loadCaseNumbers = primary;
        engine().loadCaseNumbers.insert(engine().loadCaseNumbers.end(), combinations.begin(),
                                        combinations.end());
    }

    FakeHost host;
    EngineBench bench;
};

}  // namespace

TEST(StiffnessIndex, IsHeightOverDisplacement) {
    EXPECT_DOUBLE_EQ(500.0, StiffnessIndex(7.0, 3500.0));
    EXPECT_DOUBLE_EQ(500.0, StiffnessIndexOfAnyHeight(7.0, 3500.0));
}

TEST(StiffnessIndex, OfANegativeDisplacementIsNegative) {
    EXPECT_DOUBLE_EQ(-500.0, StiffnessIndex(-7.0, 3500.0));
}

TEST(StiffnessIndex, OfNoDisplacementIsZero) {
    EXPECT_EQ(0.0, StiffnessIndex(0.0, 3500.0));
    EXPECT_EQ(0.0, StiffnessIndexOfAnyHeight(0.0, 3500.0));
}

TEST(StiffnessIndex, OfAStoryOfNoOrNegativeHeightIsZero) {
    EXPECT_EQ(0.0, StiffnessIndex(7.0, 0.0));
    EXPECT_EQ(0.0, StiffnessIndex(0.0, 0.0));
    EXPECT_EQ(0.0, StiffnessIndex(7.0, -3500.0));
}

// 7 / 0 is infinite and its reciprocal 0; 0 / 0 is not a number.
TEST(StiffnessIndexOfAnyHeight, DoesNotLookAtTheHeight) {
    EXPECT_EQ(0.0, StiffnessIndexOfAnyHeight(7.0, 0.0));
    EXPECT_THAT(StiffnessIndexOfAnyHeight(0.0, 0.0), IsNan());
    EXPECT_DOUBLE_EQ(-500.0, StiffnessIndexOfAnyHeight(7.0, -3500.0));
}

// 3500 / 7 = 500 and 3500 / 3.5 = 1000.
TEST(RsBar, IsTheMeanOfTheStoriesIndices) {
    Stories stories({Story(3500, 7), Story(3500, 3.5)});
    EXPECT_TRUE(stories.engine().SetRsBar());
    for (const std::size_t axis : {kX, kZ}) {
        EXPECT_DOUBLE_EQ(750.0, stories.engine().rsBarOfMaxDisp[axis]);
        EXPECT_DOUBLE_EQ(750.0, stories.engine().rsBarOfMeanDisp[axis]);
        EXPECT_THAT(stories.engine().rsBarOfMaxDispByLoadCase[axis],
                    ElementsAre(testing::DoubleEq(750.0)));
        EXPECT_THAT(stories.engine().rsBarOfMeanDispByLoadCase[axis],
                    ElementsAre(testing::DoubleEq(750.0)));
    }
}

// 1000 mm over 1, 2, 4, 5, 8, 10, 20, 25 mm: every family and direction has its own source.
TEST(RsBar, KeepsMaximumAndMeanAndBothDirectionsApart) {
    StoryInfo story = Story(1000, 1);
    story.maxRelativeDisp = {1.0, 2.0};
    story.meanRelativeDisp = {4.0, 5.0};
    story.maxRelativeDispByLoadCase = {{{8.0}, {10.0}}};
    story.meanRelativeDispByLoadCase = {{{20.0}, {25.0}}};
    Stories stories({story});
    stories.engine().SetRsBar();
    const AijCodeRoute2& engine = stories.engine();
    EXPECT_EQ((PerDirection{1000.0, 500.0}), engine.rsBarOfMaxDisp);
    EXPECT_EQ((PerDirection{250.0, 200.0}), engine.rsBarOfMeanDisp);
    EXPECT_THAT(engine.rsBarOfMaxDispByLoadCase,
                ElementsAre(ElementsAre(125.0), ElementsAre(100.0)));
    EXPECT_THAT(engine.rsBarOfMeanDispByLoadCase,
                ElementsAre(ElementsAre(50.0), ElementsAre(40.0)));
}

// One story of 500, one of 0: the mean over two stories is 250.
TEST(RsBar, AStoryWithoutDisplacementCountsInTheDivisorOnly) {
    Stories stories({Story(3500, 7), Story(3500, 0)});
    stories.engine().SetRsBar();
    for (const std::size_t axis : {kX, kZ}) {
        EXPECT_DOUBLE_EQ(250.0, stories.engine().rsBarOfMaxDisp[axis]);
        EXPECT_DOUBLE_EQ(250.0, stories.engine().rsBarOfMeanDisp[axis]);
        EXPECT_DOUBLE_EQ(250.0, stories.engine().rsBarOfMaxDispByLoadCase[axis].at(0));
        EXPECT_DOUBLE_EQ(250.0, stories.engine().rsBarOfMeanDispByLoadCase[axis].at(0));
    }
}

TEST(RsBar, AStoryOfNoHeightAndNoDisplacementMakesOnlyTheZMeansOverAllLoadsNotANumber) {
    Stories stories({Story(3500, 7), Story(0, 0)});
    stories.engine().SetRsBar();
    const AijCodeRoute2& engine = stories.engine();
    EXPECT_DOUBLE_EQ(250.0, engine.rsBarOfMaxDisp[kX]);
    EXPECT_DOUBLE_EQ(250.0, engine.rsBarOfMeanDisp[kX]);
    EXPECT_THAT(engine.rsBarOfMaxDisp[kZ], IsNan());
    EXPECT_THAT(engine.rsBarOfMeanDisp[kZ], IsNan());
    for (const std::size_t axis : {kX, kZ}) {
        EXPECT_DOUBLE_EQ(250.0, engine.rsBarOfMaxDispByLoadCase[axis].at(0));
        EXPECT_DOUBLE_EQ(250.0, engine.rsBarOfMeanDispByLoadCase[axis].at(0));
    }
}

TEST(RsBar, AStoryOfNoHeightThatMovesContributesZeroEverywhere) {
    Stories stories({Story(3500, 7), Story(0, 4)});
    stories.engine().SetRsBar();
    EXPECT_EQ((PerDirection{250.0, 250.0}), stories.engine().rsBarOfMaxDisp);
    EXPECT_EQ((PerDirection{250.0, 250.0}), stories.engine().rsBarOfMeanDisp);
    EXPECT_DOUBLE_EQ(250.0, stories.engine().rsBarOfMaxDispByLoadCase[kZ].at(0));
}

// 7 / -3500: its reciprocal -500 counts in Z over all loads, nowhere else.
TEST(RsBar, AStoryOfNegativeHeightCountsOnlyInTheZMeansOverAllLoads) {
    Stories stories({Story(-3500, 7)});
    stories.engine().SetRsBar();
    const AijCodeRoute2& engine = stories.engine();
    EXPECT_EQ(0.0, engine.rsBarOfMaxDisp[kX]);
    EXPECT_DOUBLE_EQ(-500.0, engine.rsBarOfMaxDisp[kZ]);
    EXPECT_DOUBLE_EQ(-500.0, engine.rsBarOfMeanDisp[kZ]);
    EXPECT_THAT(engine.rsBarOfMaxDispByLoadCase[kZ], ElementsAre(0.0));
    EXPECT_THAT(engine.rsBarOfMeanDispByLoadCase[kZ], ElementsAre(0.0));
}

TEST(RsBar, WithoutStoriesKeepsTheMeansOverAllLoadsAndAppendsZeros) {
    Stories stories({});
    AijCodeRoute2& engine = stories.engine();
    stories.SetLoadCases({2, 3}, {101});
    engine.rsBarOfMaxDisp = {11.0, 12.0};
    engine.rsBarOfMeanDisp = {13.0, 14.0};
    EXPECT_TRUE(engine.SetRsBar());
    EXPECT_EQ((PerDirection{11.0, 12.0}), engine.rsBarOfMaxDisp);
    EXPECT_EQ((PerDirection{13.0, 14.0}), engine.rsBarOfMeanDisp);
    const auto zeros = ElementsAre(0.0, 0.0, 0.0);
    EXPECT_THAT(engine.rsBarOfMaxDispByLoadCase, ElementsAre(zeros, zeros));
    EXPECT_THAT(engine.rsBarOfMeanDispByLoadCase, ElementsAre(zeros, zeros));
}

// 3000 / -100000 = -0.03.
TEST(RsBar, ALoadCaseWithoutRecordsContributesItsNegativeStartValue) {
    StoryInfo story = Story(3000, 6);
    story.maxRelativeDispByLoadCase = {{{-100000.0}, {-100000.0}}};
    Stories stories({story});
    stories.engine().SetRsBar();
    EXPECT_NEAR(-0.03, stories.engine().rsBarOfMaxDispByLoadCase[kX].at(0), 1e-15);
    EXPECT_NEAR(-0.03, stories.engine().rsBarOfMaxDispByLoadCase[kZ].at(0), 1e-15);
}

TEST(RsBar, FormsOneMeanPerPrimaryLoadCaseAndCombination) {
    StoryInfo story = Story(1000, 1);
    story.maxRelativeDispByLoadCase = {{{1.0, 2.0}, {4.0, 5.0}}};
    story.meanRelativeDispByLoadCase = {{{8.0, 10.0}, {20.0, 25.0}}};
    Stories stories({story});
    stories.SetLoadCases({2}, {101});
    stories.engine().SetRsBar();
    EXPECT_THAT(stories.engine().rsBarOfMaxDispByLoadCase,
                ElementsAre(ElementsAre(1000.0, 500.0), ElementsAre(250.0, 200.0)));
    EXPECT_THAT(stories.engine().rsBarOfMeanDispByLoadCase,
                ElementsAre(ElementsAre(125.0, 100.0), ElementsAre(50.0, 40.0)));
}

TEST(RsBar, ASecondRunOfTheStepAppendsASecondSetPerLoadCase) {
    Stories stories({Story(1000, 10)});
    stories.engine().SetRsBar();
    stories.engine().SetRsBar();
    EXPECT_THAT(stories.engine().rsBarOfMaxDispByLoadCase[kX], ElementsAre(100.0, 100.0));
    EXPECT_THAT(stories.engine().rsBarOfMeanDispByLoadCase[kZ], ElementsAre(100.0, 100.0));
    EXPECT_EQ((PerDirection{100.0, 100.0}), stories.engine().rsBarOfMaxDisp);
}

TEST(RsBar, AStoryWithTooFewLoadCasesIsAnInvalidSubscript) {
    Stories stories({Story(1000, 10)});
    stories.SetLoadCases({2}, {101});
    try {
        stories.engine().SetRsBar();
        FAIL() << "nothing was thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("invalid vector subscript", error.what());
    }
    EXPECT_EQ("\nStarts setting Rs bar...\n", stories.bench.Log());
}

TEST(RsBar, LogsItsStartAndItsEndAndAsksTheHostNothing) {
    Stories stories({Story(3500, 7)});
    stories.host.calls.clear();
    EXPECT_TRUE(stories.engine().SetRsBar());
    EXPECT_EQ(StepLog("Rs bar"), stories.bench.Log());
    EXPECT_TRUE(stories.host.calls.empty());
}

TEST(RsBar, RefusesToRunWithoutStoryInfo) {
    Stories stories({Story(3500, 7)});
    stories.engine().storyInfoSet = false;
    EXPECT_FALSE(stories.engine().SetRsBar());
    EXPECT_EQ(RefusedStepLog("Rs bar", "Story info. has not set yet. Stops setting Rs bar..."),
              stories.bench.Log());
    EXPECT_EQ((PerDirection{}), stories.engine().rsBarOfMaxDisp);
    EXPECT_TRUE(stories.engine().rsBarOfMaxDispByLoadCase[kX].empty());
}

TEST(StiffnessRatio, OfTheTwoDirectionsDividesInTheirOwnOrder) {
    // 1e-200 * 1e-200 underflows to 0 in X; (1 / 1e-200) / 1e-200 overflows in Z.
    EXPECT_EQ(0.0, StiffnessRatioX(1e-200, 1e-200));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), StiffnessRatioZ(1e-200, 1e-200));
    EXPECT_DOUBLE_EQ(2.0, StiffnessRatioX(0.002, 250.0));
    EXPECT_DOUBLE_EQ(2.0, StiffnessRatioZ(0.002, 250.0));
    EXPECT_EQ(0.0, StiffnessRatioZ(0.0, 250.0));
    EXPECT_EQ(0.0, StiffnessRatioZ(0.002, 0.0));
}
