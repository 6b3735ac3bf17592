#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/engine_bench.h"
#include "tests/support/run_log.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* kSubject = "gravity center";

std::string NearlyWeightless(const std::string& story) {
    return LoggedWarning("Total weight is nearly equal to 0 as setting gravity center of " + story +
                         "-th story. Gravity center is set as (0, 0).");
}

StoryInfo Story(double lowerLevel, double upperLevel) {
    StoryInfo story;
    story.lowerLevel = lowerLevel;
    story.upperLevel = upperLevel;
    return story;
}

// An engine over a host's members, with stories at the given levels (mm). The dead load case is
// 1. A column along Y has its local x axis upwards, so its first end force is its vertical force.
class Weighing {
public:
    Weighing(FakeHost& host, const std::vector<double>& levels) : bench(host) {
        bench.SetUpModel();
        for (std::size_t i = 0; i + 1 < levels.size(); ++i)
            bench.engine.stories.push_back(Story(levels[i], levels[i + 1]));
        bench.engine.storyInfoSet = true;
        bench.NewLog();
    }

    /// The centre of story `index`, from 0, after the step.
    PerDirection CenterOf(std::size_t index) {
        bench.engine.SetGravityCenter();
        return bench.engine.stories.at(index).gravityCenter;
    }

    EngineBench bench;
};

// Two columns of 3.5 m at (0, 0) and (6, 4) in plan, metres.
void AddTwoColumns(FakeHost& host) {
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Node(3, 6, 0, 4, true).Node(4, 6, 3.5, 4);
    host.Member(1, 1, 2).Member(2, 3, 4);
}

}  // namespace

// (30 * 0 + 10 * 6000) / 40 = 1500; (30 * 0 + 10 * 4000) / 40 = 1000.
TEST(GravityCenter, IsTheForceWeightedMeanOfTheLowerEnds) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 1, 0, 30, 0, 0).Force(1, 2, 0, 10, 0, 0);
    EXPECT_EQ((PerDirection{1500.0, 1000.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

// Downward forces: -30 and -10 give the same centre, (-60000) / (-40).
TEST(GravityCenter, KeepsTheSignOfTheForces) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 1, 0, -30, 0, 0).Force(1, 2, 0, -10, 0, 0);
    EXPECT_EQ((PerDirection{1500.0, 1000.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

// Uplift in one column: (30 * 0 - 10 * 6000) / 20 = -3000, outside of the building.
TEST(GravityCenter, CountsUpliftAgainstWeight) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 1, 0, 30, 0, 0).Force(1, 2, 0, -10, 0, 0);
    EXPECT_EQ((PerDirection{-3000.0, -2000.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

// Of the forces under other load cases nothing counts.
TEST(GravityCenter, WeighsUnderTheDeadLoadCase) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 1, 0, 100, 0, 0).Force(7, 1, 0, 10, 0, 0).Force(7, 2, 0, 30, 0, 0);
    Weighing weighing(host, {0, 3500});
    weighing.bench.engine.deadLoadCaseNumber = 7;
    EXPECT_EQ((PerDirection{4500.0, 3000.0}), weighing.CenterOf(0));
}

// The story from 0 to 3500 mm is cut at 350 mm. The second column starts there.
TEST(GravityCenter, AColumnThatStartsAtTheCuttingLevelIsNotCounted) {
    FakeHost host;
    host.Node(1, 1, 0, 0).Node(2, 1, 3.5, 0).Node(3, 6, 0.35, 0).Node(4, 6, 3.5, 0);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.Force(1, 1, 0, 10, 0, 0).Force(1, 2, 0, 10, 0, 0);
    EXPECT_EQ((PerDirection{1000.0, 0.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

TEST(GravityCenter, AColumnThatEndsAtTheCuttingLevelIsCounted) {
    FakeHost host;
    host.Node(1, 1, 0, 0).Node(2, 1, 3.5, 0).Node(3, 6, -1, 0).Node(4, 6, 0.35, 0);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.Force(1, 1, 0, 10, 0, 0).Force(1, 2, 0, 40, 0, 0);
    EXPECT_EQ((PerDirection{5000.0, 0.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

// The story from 3500 to 7500 mm is cut at 3500 + 400 = 3900 mm.
TEST(GravityCenter, CutsATenthOfTheHeightAboveTheLowerFloor) {
    FakeHost host;
    host.Node(1, 1, 3.5, 0).Node(2, 1, 3.899, 0).Node(3, 6, 3.5, 0).Node(4, 6, 3.901, 0);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.Force(1, 1, 0, 10, 0, 0).Force(1, 2, 0, 10, 0, 0);
    EXPECT_EQ((PerDirection{6000.0, 0.0}), Weighing(host, {3500, 7500}).CenterOf(0));
}

// Column 1 goes through both stories, column 2 stands in the first, column 3 in the second.
// Story 1: (10 * 1000 + 30 * 5000) / 40 = 4000. Story 2: (10 * 1000 + 10 * 5000) / 20 = 3000.
TEST(GravityCenter, AColumnThroughTwoStoriesIsWeighedInBothAtItsLowerEnd) {
    FakeHost host;
    host.Node(1, 1, 0, 0).Node(2, 1, 7, 0).Node(3, 5, 0, 0).Node(4, 5, 3.5, 0).Node(5, 5, 7, 0);
    host.Member(1, 1, 2).Member(2, 3, 4).Member(3, 4, 5);
    host.Force(1, 1, 0, 10, 0, 0).Force(1, 2, 0, 30, 0, 0).Force(1, 3, 0, 10, 0, 0);
    Weighing weighing(host, {0, 3500, 7000});
    EXPECT_EQ((PerDirection{4000.0, 0.0}), weighing.CenterOf(0));
    EXPECT_EQ((PerDirection{3000.0, 0.0}), weighing.CenterOf(1));
}

// A beam at 350 mm, where the story is cut, and one at the upper floor.
TEST(GravityCenter, BeamsAreNeverWeighed) {
    FakeHost host;
    host.Node(1, 0, 0.35, 0).Node(2, 5, 0.35, 0).Node(3, 0, 3.5, 0).Node(4, 5, 3.5, 0);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.Force(1, 1, 0, 99, 99, 99).Force(1, 2, 1, 99, 99, 99);
    Weighing weighing(host, {0, 3500});
    EXPECT_EQ((PerDirection{0.0, 0.0}), weighing.CenterOf(0));
    EXPECT_THAT(host.calls, testing::Not(testing::Contains(testing::HasSubstr("EndForces"))));
}

// A brace from (0, 0, 0) to (3, 4, 0): x axis (0.6, 0.8, 0), y axis (-0.8, 0.6, 0), z axis
// (0, 0, 1). 10 * 0.8 + 5 * 0.6 + 7 * 0 = 11 up, as much as the column at x = 6 m carries.
TEST(GravityCenter, TurnsAllThreeEndForcesIntoTheVerticalForce) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 3, 4, 0).Node(3, 6, 0, 0).Node(4, 6, 4, 0);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.Force(1, 1, 0, 10, 5, 7).Force(1, 2, 0, 11, 0, 0);
    const PerDirection center = Weighing(host, {0, 4000}).CenterOf(0);
    EXPECT_NEAR(3000.0, center[kX], 1e-9);
}

// The same brace turned by 90 degrees: y axis (0, 0, 1), z axis (0.8, -0.6, 0), so the vertical
// force is 10 * 0.8 + 5 * 0 - 7 * 0.6 = 3.8. The column carries 11.4: 6000 * 11.4 / 15.2 = 4500.
TEST(GravityCenter, FollowsTheRotationOfAMember) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 3, 4, 0).Node(3, 6, 0, 0).Node(4, 6, 4, 0);
    host.Member(1, 1, 2, 90.0F).Member(2, 3, 4);
    host.Force(1, 1, 0, 10, 5, 7).Force(1, 2, 0, 11.4, 0, 0);
    EXPECT_NEAR(4500.0, Weighing(host, {0, 4000}).CenterOf(0)[kX], 1e-5);
}

// With Z vertical the plan is x and y.
TEST(GravityCenter, WithZVerticalMeasuresAlongXAndY) {
    FakeHost host;
    host.zUp = true;
    host.Node(1, 0, 0, 0).Node(2, 0, 0, 3.5).Node(3, 6, 4, 0).Node(4, 6, 4, 3.5);
    host.Member(1, 1, 2).Member(2, 3, 4);
    host.Force(1, 1, 0, 30, 0, 0).Force(1, 2, 0, 10, 0, 0);
    EXPECT_EQ((PerDirection{1500.0, 1000.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

// Member 2 starts at the top: its lower end is end 1, where its x axis points down, so -10 there
// is 10 up.
TEST(GravityCenter, AMemberThatStartsAtTheTopIsAskedForItsEnd) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3.5, 0).Node(3, 6, 0, 0).Node(4, 6, 3.5, 0);
    host.Member(1, 1, 2).Member(2, 4, 3);
    host.Force(1, 1, 0, 10, 0, 0).Force(1, 2, 1, -10, 0, 0).Force(1, 2, 0, 777, 0, 0);
    EXPECT_EQ((PerDirection{3000.0, 0.0}), Weighing(host, {0, 3500}).CenterOf(0));
}

TEST(GravityCenter, LessThanAMillionthOfAKilonewtonIsNoWeight) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 2, 0, 0.0000009, 0, 0);
    Weighing weighing(host, {0, 3500});
    EXPECT_EQ((PerDirection{0.0, 0.0}), weighing.CenterOf(0));
    EXPECT_EQ(StepLog(kSubject, NearlyWeightless("1")), weighing.bench.NewLog());
}

TEST(GravityCenter, AMillionthOfAKilonewtonIsAWeightInBothSenses) {
    for (const double weight : {0.000001, -0.000001}) {
        FakeHost host;
        AddTwoColumns(host);
        host.Force(1, 2, 0, weight, 0, 0);
        Weighing weighing(host, {0, 3500});
        const PerDirection center = weighing.CenterOf(0);
        EXPECT_DOUBLE_EQ(6000.0, center[kX]);
        EXPECT_DOUBLE_EQ(4000.0, center[kZ]);
        EXPECT_EQ(StepLog(kSubject), weighing.bench.NewLog());
    }
}

TEST(GravityCenter, ForcesThatCancelOutAreNoWeight) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 1, 0, 5, 0, 0).Force(1, 2, 0, -5, 0, 0);
    Weighing weighing(host, {0, 3500});
    weighing.bench.engine.stories[0].gravityCenter = {9.0, 9.0};
    EXPECT_EQ((PerDirection{0.0, 0.0}), weighing.CenterOf(0));
}

// Stories 1 and 3 carry nothing; story 2 is computed in between.
TEST(GravityCenter, WarnsWithTheNumberOfTheStoryAndGoesOn) {
    FakeHost host;
    host.Node(1, 2, 3.5, 0).Node(2, 2, 7, 0).Member(1, 1, 2);
    host.Force(1, 1, 0, 10, 0, 0);
    Weighing weighing(host, {0, 3500, 7000, 10500});
    EXPECT_EQ((PerDirection{2000.0, 0.0}), weighing.CenterOf(1));
    EXPECT_EQ(StepLog(kSubject, NearlyWeightless("1") + NearlyWeightless("3")),
              weighing.bench.NewLog());
}

// 2.3e-7 kip * 4.4482216152605 = 1.023e-6 kN; the same number in kN is nearly nothing. The story
// is 100 in = 2540 mm high, the column at 10 in = 254 mm.
TEST(GravityCenter, EnglishForcesAreConvertedFromKip) {
    FakeHost host;
    host.baseUnitSystem = 1;
    host.Node(1, 10, 0, 0).Node(2, 10, 100, 0).Member(1, 1, 2);
    host.Force(1, 1, 0, 2.3e-7, 0, 0);
    Weighing weighing(host, {0, 2540});
    EXPECT_DOUBLE_EQ(254.0, weighing.CenterOf(0)[kX]);
    EXPECT_EQ(StepLog(kSubject), weighing.bench.NewLog());

    host.baseUnitSystem = 2;
    Weighing metric(host, {0, 100000});
    EXPECT_EQ(0.0, metric.CenterOf(0)[kX]);
    EXPECT_EQ(StepLog(kSubject, NearlyWeightless("1")), metric.bench.NewLog());
}

// Member 1 carries story 1 and starts below; member 2 is a beam; member 3 carries story 2 and
// starts above.
TEST(GravityCenter, AsksThreeIncidencesPerMemberAndStoryAndForcesOfCarryingMembersOnly) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3.5, 0).Node(3, 5, 3.5, 0).Node(4, 0, 7, 0);
    host.Member(1, 1, 2).Member(2, 2, 3).Member(3, 4, 2);
    Weighing weighing(host, {0, 3500, 7000});
    host.calls.clear();
    weighing.bench.engine.SetGravityCenter();
    EXPECT_THAT(
        host.calls,
        ElementsAre("GetMemberIncidence(1)", "GetMemberIncidence(1)", "GetMemberIncidence(1)",
                    "GetMemberEndForces(1, 0, 1)", "GetMemberIncidence(2)", "GetMemberIncidence(2)",
                    "GetMemberIncidence(2)", "GetMemberIncidence(3)", "GetMemberIncidence(3)",
                    "GetMemberIncidence(3)", "GetMemberIncidence(1)", "GetMemberIncidence(1)",
                    "GetMemberIncidence(1)", "GetMemberIncidence(2)", "GetMemberIncidence(2)",
                    "GetMemberIncidence(2)", "GetMemberIncidence(3)", "GetMemberIncidence(3)",
                    "GetMemberIncidence(3)", "GetMemberEndForces(3, 1, 1)"));
}

TEST(GravityCenter, RefusesToRunWithoutNodeInfoBeforeItLooksAtStories) {
    FakeHost host;
    EngineBench bench(host);
    bench.engine.SetGravityCenter();
    EXPECT_EQ(
        RefusedStepLog(kSubject, "Node info. has not set yet. Stops setting gravity center..."),
        bench.Log());
}

TEST(GravityCenter, RefusesToRunWithoutStoryInfo) {
    FakeHost host;
    AddTwoColumns(host);
    host.Force(1, 2, 0, 10, 0, 0);
    Weighing weighing(host, {0, 3500});
    weighing.bench.engine.storyInfoSet = false;
    EXPECT_EQ((PerDirection{0.0, 0.0}), weighing.CenterOf(0));
    EXPECT_EQ(
        RefusedStepLog(kSubject, "Story info. has not set yet. Stops setting gravity center..."),
        weighing.bench.NewLog());
}

// Member 2 ends at a node that the host does not list: the search for its lower node ends the run.
TEST(GravityCenter, AMemberWhoseNodeIsNotListedEndsTheRun) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3.5, 0).Member(1, 1, 2).Member(2, 1, 99);
    host.Force(1, 1, 0, 10, 0, 0);
    Weighing weighing(host, {0, 3500});
    EXPECT_THROW(weighing.bench.engine.SetGravityCenter(), std::out_of_range);
    EXPECT_EQ(RefusedStepLog(kSubject,
                             "Node number is not set correctly as setting lower node number..."),
              weighing.bench.NewLog());
}

// Member 1 has no length, so no member has axes; member 2 is a column and would need its own.
TEST(GravityCenter, ACarryingMemberBehindOneThatStoppedTheSetupIsAnInvalidSubscript) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3.5, 0).Node(3, 0, 0, 0).Member(1, 1, 3).Member(2, 1, 2);
    Weighing weighing(host, {0, 3500});
    try {
        weighing.bench.engine.SetGravityCenter();
        FAIL() << "nothing was thrown";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ("invalid vector subscript", error.what());
    }
}

TEST(GravityCenter, WithoutStoriesAsksNothing) {
    FakeHost host;
    AddTwoColumns(host);
    Weighing weighing(host, {0});
    host.calls.clear();
    weighing.bench.engine.SetGravityCenter();
    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_EQ(StepLog(kSubject), weighing.bench.NewLog());
}
