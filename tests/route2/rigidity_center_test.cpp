#include "route2/rigidity_center.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/run_log.h"
#include "tests/support/stiff_story.h"

using testing::IsNan;

namespace {

constexpr const char* kSubject = "center of rigidity";

std::string NoKz(const std::string& story) {
    return LoggedWarning("Total stiffness(Kz) is nearly equal to 0 as setting rigidity center of " +
                         story + "-th story. X coord. of rigidity center is set as 0.");
}

std::string NoKx(const std::string& story) {
    return LoggedWarning("Total stiffness(Kx) is nearly equal to 0 as setting rigidity center of " +
                         story + "-th story. Z(or Y) coord. of rigidity center is set as 0.");
}

}  // namespace

// X stiffness: 3 kN/mm at z = 0 and 1 kN/mm at z = 8000 mm, so the centre lies at
// (3 * 0 + 1 * 8000) / (3 + 1) = 2000 mm. Z stiffness: equal at x = 0 and x = 6000 mm.
TEST(RigidityCenter, LiesNearTheStifferColumn) {
    const auto sums = SumStiffness({Column(2, 0, 0, 3, 0), Column(2, 0, 8000, 1, 0),
                                    Column(3, 0, 0, 0, 1), Column(3, 6000, 0, 0, 1)},
                                   kEarthquakeXZ);
    EXPECT_EQ((PerDirection{3000.0, 2000.0}), RigidityCenter(sums));
}

// X stiffness is weighted with the Z position and the other way round.
TEST(RigidityCenter, WeighsEachStiffnessWithThePositionAcrossIt) {
    const auto sums =
        SumStiffness({Column(2, 100, 200, 3, 50), Column(3, 100, 200, 60, 5)}, kEarthquakeXZ);
    EXPECT_EQ(3.0, sums.kx);
    EXPECT_EQ(5.0, sums.kz);
    EXPECT_EQ(600.0, sums.kxTimesZ);
    EXPECT_EQ(500.0, sums.kzTimesX);
}

TEST(RigidityCenter, RecordsOfOtherLoadCasesTakeNoPart) {
    const auto sums = SumStiffness({Column(1, 9, 9, 9, 9), Column(101, 9, 9, 9, 9)}, kEarthquakeXZ);
    EXPECT_EQ(0.0, sums.kx);
    EXPECT_EQ(0.0, sums.kz);
    EXPECT_EQ(0.0, sums.kxTimesZ);
    EXPECT_EQ(0.0, sums.kzTimesX);
}

TEST(RigidityCenter, EqualEarthquakeCasesLeaveNoZStiffness) {
    const auto sums = SumStiffness({Column(2, 100, 200, 3, 5)}, {2, 2});
    EXPECT_EQ(3.0, sums.kx);
    EXPECT_EQ(0.0, sums.kz);
    EXPECT_EQ(0.0, sums.kzTimesX);
}

// Both coordinates are quotients: negative stiffness is taken as it comes.
TEST(RigidityCenter, TakesNegativeTotalsAsTheyCome) {
    EXPECT_EQ((PerDirection{-250.0, -150.0}), RigidityCenter({-4.0, -2.0, 600.0, 500.0}));
}

TEST(RigidityCenter, ATotalOfOneMillionthIsEnoughForX) {
    EXPECT_DOUBLE_EQ(5.0, RigidityCenter({1.0, 1e-06, 0.0, 5e-06})[kX]);
    EXPECT_DOUBLE_EQ(5.0, RigidityCenter({1.0, -1e-06, 0.0, -5e-06})[kX]);
    EXPECT_EQ(0.0, RigidityCenter({1.0, 0.9e-06, 0.0, 5e-06})[kX]);
}

TEST(RigidityCenter, VanishingStiffnessGivesZeroInXButNanInZ) {
    const PerDirection center = RigidityCenter({0.0, 0.0, 0.0, 0.0});
    EXPECT_EQ(0.0, center[kX]);
    EXPECT_THAT(center[kZ], IsNan());
}

// 1e-6 / 1e-9: the quotient is kept although the warning says 0.
TEST(RigidityCenter, ATinyKxGivesAVeryLargeZCoordinate) {
    EXPECT_DOUBLE_EQ(1000.0, RigidityCenter({1e-09, 1.0, 1e-06, 0.0})[kZ]);
}

TEST(RigidityCenter, AKzThatIsNotANumberGivesZeroInX) {
    EXPECT_EQ(0.0, RigidityCenter({1.0, std::nan(""), 0.0, 5.0})[kX]);
}

TEST(RigidityCenterStep, StoresTheCenterOfEveryStoryWithoutWarnings) {
    StiffStories stories({{Column(2, 0, 400, 1, 0), Column(3, 300, 0, 0, 1)},
                          {Column(2, 0, 800, 1, 0), Column(3, 700, 0, 0, 1)}});
    EXPECT_TRUE(stories.engine().SetRigidityCenter());
    EXPECT_EQ((PerDirection{300.0, 400.0}), stories.Story(0).rigidityCenter);
    EXPECT_EQ((PerDirection{700.0, 800.0}), stories.Story(1).rigidityCenter);
    EXPECT_EQ(StepLog(kSubject), stories.bench.Log());
}

// Kz = 0 in story 1, Kx = 0 in story 2.
TEST(RigidityCenterStep, WarnsPerStoryAndDirectionAndGoesOn) {
    StiffStories stories({{Column(2, 100, 400, 1, 0)}, {Column(3, 300, 100, 0, 1)}});
    EXPECT_TRUE(stories.engine().SetRigidityCenter());
    EXPECT_EQ(StepLog(kSubject, NoKz("1") + NoKx("2")), stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 400.0}), stories.Story(0).rigidityCenter);
    EXPECT_EQ(300.0, stories.Story(1).rigidityCenter[kX]);
    EXPECT_THAT(stories.Story(1).rigidityCenter[kZ], IsNan());
}

TEST(RigidityCenterStep, AStoryWithoutMembersHasBothWarningsKzFirst) {
    StiffStories stories(std::vector<std::vector<StoryMember>>(1));
    stories.engine().SetRigidityCenter();
    EXPECT_EQ(StepLog(kSubject, NoKz("1") + NoKx("1")), stories.bench.Log());
    EXPECT_EQ(0.0, stories.Story().rigidityCenter[kX]);
    EXPECT_THAT(stories.Story().rigidityCenter[kZ], IsNan());
}

TEST(RigidityCenterStep, EqualEarthquakeCasesWarnOfKzInEveryStory) {
    StiffStories stories({{Column(1, 100, 400, 1, 0)}, {Column(1, 100, 500, 1, 0)}});
    stories.engine().earthquakeLoadCaseNumber = {1, 1};
    stories.engine().SetRigidityCenter();
    EXPECT_EQ(StepLog(kSubject, NoKz("1") + NoKz("2")), stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 400.0}), stories.Story(0).rigidityCenter);
    EXPECT_EQ((PerDirection{0.0, 500.0}), stories.Story(1).rigidityCenter);
}

// A plain comparison with NaN is false: "not at least" warns for Kz, "less than" does not for Kx.
TEST(RigidityCenterStep, StiffnessThatIsNotANumberWarnsOfKzOnly) {
    const double nan = std::nan("");
    StiffStories stories({{Column(2, 100, 400, nan, 0), Column(3, 300, 0, 0, nan)}});
    stories.engine().SetRigidityCenter();
    EXPECT_EQ(StepLog(kSubject, NoKz("1")), stories.bench.Log());
    EXPECT_EQ(0.0, stories.Story().rigidityCenter[kX]);
    EXPECT_THAT(stories.Story().rigidityCenter[kZ], IsNan());
}

TEST(RigidityCenterStep, RefusesToRunWithoutStoryInfo) {
    StiffStories stories({{Column(2, 0, 400, 1, 0)}});
    stories.engine().storyInfoSet = false;
    EXPECT_FALSE(stories.engine().SetRigidityCenter());
    EXPECT_EQ(RefusedStepLog(kSubject,
                             "Story info. has not set yet. Stops setting center of rigidity..."),
              stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 0.0}), stories.Story().rigidityCenter);
}
