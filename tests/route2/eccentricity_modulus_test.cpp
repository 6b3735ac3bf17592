#include "route2/eccentricity_modulus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/run_log.h"
#include "tests/support/stiff_story.h"

using testing::IsNan;

namespace {

constexpr const char* kSubject = "eccentricity modulus";

std::string NoKr(const std::string& story) {
    return LoggedWarning(
        "Totional stiffness(KR) is less than or equal to 0 as setting eccentricity modulus of " +
        story + "-th story. Eccentricity modulus is set as 0.");
}

std::string NoKx(const std::string& story) {
    return LoggedWarning(
        "Total stiffness(Kx) is nearly equal to 0 as setting eccentricity modulus of " + story +
        "-th story. Eccentricity modulus in X direc. is set as 0.");
}

std::string NoKz(const std::string& story) {
    return LoggedWarning(
        "Total stiffness(Kz) is nearly equal to 0 as setting eccentricity modulus of " + story +
        "-th story. Eccentricity modulus in Z direc. is set as 0.");
}

// Two frames in X, 1 kN/mm each at z = 0 and z = 6000; two in Z, 2 kN/mm each at x = 0 and
// x = 8000 mm. The centre of rigidity is (4000, 3000).
// Tx = 2 * 1 * 3000^2 = 1.8e7, Tz = 2 * 2 * 4000^2 = 6.4e7, KR = 8.2e7 kN mm; Kx = 2, Kz = 4.
std::vector<StoryMember> FourFrames() {
    return {Column(2, 0, 0, 1, 0), Column(2, 0, 6000, 1, 0), Column(3, 0, 0, 0, 2),
            Column(3, 8000, 0, 0, 2)};
}

}  // namespace

TEST(TorsionalStiffness, SumsStiffnessTimesSquaredDistanceFromTheCenterOfRigidity) {
    StoryInfo story;
    story.members = FourFrames();
    story.rigidityCenter = {4000.0, 3000.0};
    const TorsionalStiffness sums = SumTorsionalStiffness(story, kEarthquakeXZ);
    EXPECT_EQ(2.0, sums.kx);
    EXPECT_EQ(4.0, sums.kz);
    EXPECT_EQ(8.2e7, sums.kr);
}

// Every frame counts with the distance across its own direction: 3 * (200 - 50)^2 = 67500 and
// 5 * (100 - 70)^2 = 4500.
TEST(TorsionalStiffness, MeasuresXStiffnessAlongZAndZStiffnessAlongX) {
    StoryInfo story;
    story.members = {Column(2, 100, 200, 3, 99), Column(3, 100, 200, 99, 5)};
    story.rigidityCenter = {70.0, 50.0};
    EXPECT_EQ(72000.0, SumTorsionalStiffness(story, kEarthquakeXZ).kr);
}

// One record of a case that is both earthquakes: 3 * 200^2 + 5 * 100^2 = 170000.
TEST(TorsionalStiffness, ARecordOfBothEarthquakesCountsInBothDirections) {
    StoryInfo story;
    story.members = {Column(2, 100, 200, 3, 5)};
    const TorsionalStiffness sums = SumTorsionalStiffness(story, {2, 2});
    EXPECT_EQ(3.0, sums.kx);
    EXPECT_EQ(5.0, sums.kz);
    EXPECT_EQ(170000.0, sums.kr);
}

TEST(TorsionalStiffness, RecordsOfOtherLoadCasesTakeNoPart) {
    StoryInfo story;
    story.members = {Column(1, 9, 9, 9, 9)};
    const TorsionalStiffness sums = SumTorsionalStiffness(story, kEarthquakeXZ);
    EXPECT_EQ(0.0, sums.kx);
    EXPECT_EQ(0.0, sums.kz);
    EXPECT_EQ(0.0, sums.kr);
}

// Radius sqrt(400 / 4) = 10 mm; 3 / 10.
TEST(EccentricityModulus, IsTheDistanceOverTheElasticRadius) {
    EXPECT_DOUBLE_EQ(0.3, EccentricityModulus(3.0, 400.0, 4.0));
    EXPECT_DOUBLE_EQ(0.3, EccentricityModulus(-3.0, 400.0, 4.0));
}

TEST(EccentricityModulus, OfNoElasticRadiusIsZero) {
    EXPECT_EQ(0.0, EccentricityModulus(3.0, 1.0, std::numeric_limits<double>::infinity()));
}

TEST(EccentricityModulus, OfANegativeQuotientIsNotANumber) {
    EXPECT_THAT(EccentricityModulus(3.0, 400.0, -4.0), IsNan());
}

// rex = sqrt(8.2e7 / 2) = 6403.124237 mm, |3000 - 3640.3124237| / rex = 0.1;
// rez = sqrt(8.2e7 / 4) = 4527.692569 mm, |4000 - 3094.4614862| / rez = 0.2.
TEST(EccentricityModulusStep, UsesTheZDistanceForXAndTheXDistanceForZ) {
    StiffStories stories({FourFrames()});
    stories.Story().rigidityCenter = {4000.0, 3000.0};
    stories.Story().gravityCenter = {3094.4614862, 3640.3124237};
    EXPECT_TRUE(stories.engine().SetEccentricityModulus());
    EXPECT_NEAR(0.1, stories.Story().eccentricityModulus[kX], 1e-9);
    EXPECT_NEAR(0.2, stories.Story().eccentricityModulus[kZ], 1e-9);
    EXPECT_EQ(StepLog(kSubject), stories.bench.Log());
}

TEST(EccentricityModulusStep, CoincidentCentersGiveZeroWithoutAWarning) {
    StiffStories stories({FourFrames()});
    stories.Story().rigidityCenter = stories.Story().gravityCenter = {4000.0, 3000.0};
    stories.Story().eccentricityModulus = {9.0, 9.0};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ((PerDirection{0.0, 0.0}), stories.Story().eccentricityModulus);
    EXPECT_EQ(StepLog(kSubject), stories.bench.Log());
}

// All on one line parallel to X, at z = 500 through the centre's x for Z: Tz = 0, and
// KR = Tx = 2 * 300^2 = 180000. rex = 300, rez = 300; |200 - 350| / 300 = 0.5 and
// |1000 - 1075| / 300 = 0.25.
TEST(EccentricityModulusStep, MembersOnOneLineHaveTheTorsionalStiffnessOfOneDirection) {
    StiffStories stories({{Column(2, 1000, 500, 2, 0), Column(3, 1000, 500, 0, 2)}});
    stories.Story().rigidityCenter = {1000.0, 200.0};
    stories.Story().gravityCenter = {1075.0, 350.0};
    stories.engine().SetEccentricityModulus();
    EXPECT_DOUBLE_EQ(0.5, stories.Story().eccentricityModulus[kX]);
    EXPECT_DOUBLE_EQ(0.25, stories.Story().eccentricityModulus[kZ]);
}

// KR = 5e-7 * 1^2 = 5e-7.
TEST(EccentricityModulusStep, ATorsionalStiffnessOfHalfAMillionthWarns) {
    StiffStories stories({{Column(2, 0, 1, 5e-7, 0)}});
    stories.Story().eccentricityModulus = {9.0, 9.0};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKr("1")), stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 0.0}), stories.Story().eccentricityModulus);
}

// KR = -5 * 1^2 = -5 in story 1; story 2 is computed.
TEST(EccentricityModulusStep, ANegativeTorsionalStiffnessWarnsAndTheNextStoryFollows) {
    StiffStories stories({{Column(2, 0, 1, -5, 0)}, FourFrames()});
    stories.Story(0).eccentricityModulus = {9.0, 9.0};
    stories.Story(1).rigidityCenter = {4000.0, 3000.0};
    stories.Story(1).gravityCenter = {4000.0, 3640.3124237};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKr("1")), stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 0.0}), stories.Story(0).eccentricityModulus);
    EXPECT_NEAR(0.1, stories.Story(1).eccentricityModulus[kX], 1e-9);
}

// KR = 1e-06 * 1^2 is not below 1e-06: no torsional warning, Kx = 1e-06 counts too and gives
// rex = 1 mm; |0 - 0.5| / 1. Kz = 0.
TEST(EccentricityModulusStep, OneMillionthIsEnoughForBothTotals) {
    StiffStories stories({{Column(2, 0, 1, 1e-06, 0)}});
    stories.Story().gravityCenter = {0.0, 0.5};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKz("1")), stories.bench.Log());
    EXPECT_DOUBLE_EQ(0.5, stories.Story().eccentricityModulus[kX]);
    EXPECT_EQ(0.0, stories.Story().eccentricityModulus[kZ]);
}

// Kz frames only: KR = 2 * 3000^2; the second story has it the other way round.
TEST(EccentricityModulusStep, WarnsOfTheDirectionWithoutStiffness) {
    StiffStories stories({{Column(3, 3000, 0, 0, 2)}, {Column(2, 0, 3000, 2, 0)}});
    stories.Story(0).gravityCenter = stories.Story(1).gravityCenter = {600.0, 900.0};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKx("1") + NoKz("2")), stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 0.2}), stories.Story(0).eccentricityModulus);
    EXPECT_EQ((PerDirection{0.3, 0.0}), stories.Story(1).eccentricityModulus);
}

TEST(EccentricityModulusStep, EqualEarthquakeCasesWarnOfKz) {
    StiffStories stories({{Column(1, 0, 3000, 2, 0)}});
    stories.engine().earthquakeLoadCaseNumber = {1, 1};
    stories.Story().gravityCenter = {600.0, 900.0};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKz("1")), stories.bench.Log());
    EXPECT_EQ((PerDirection{0.3, 0.0}), stories.Story().eccentricityModulus);
}

// The X records have no stiffness, so the centre's Z coordinate is NaN and 0 * NaN makes KR NaN:
// neither test on KR holds.
TEST(EccentricityModulusStep, XRecordsWithoutStiffnessMakeTheZModulusNotANumber) {
    StiffStories stories({{Column(2, 0, 500, 0, 0), Column(3, 3000, 0, 0, 2)}});
    stories.engine().SetRigidityCenter();
    stories.bench.NewLog();
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKx("1")), stories.bench.NewLog());
    EXPECT_EQ(0.0, stories.Story().eccentricityModulus[kX]);
    EXPECT_THAT(stories.Story().eccentricityModulus[kZ], IsNan());
}

// Without any X record Tx is 0. The Z frames stand 1000 mm off their centre: KR = 2 * 2 * 1000^2,
// rez = 1000; the weight is 100 mm off.
TEST(EccentricityModulusStep, NoXRecordAtAllLeavesTheZModulus) {
    StiffStories stories({{Column(3, 2000, 0, 0, 2), Column(3, 4000, 0, 0, 2)}});
    stories.Story().gravityCenter = {3100.0, 0.0};
    stories.engine().SetRigidityCenter();
    stories.bench.NewLog();
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKx("1")), stories.bench.NewLog());
    EXPECT_DOUBLE_EQ(0.1, stories.Story().eccentricityModulus[kZ]);
}

// Kx = -1 at 100 mm and Kz = 2 at 1000 mm: KR = 2e6 - 1e4 > 0, KR / Kx < 0.
TEST(EccentricityModulusStep, ANegativeTotalGivesAModulusThatIsNotANumberWithoutAWarning) {
    StiffStories stories({{Column(2, 0, 100, -1, 0), Column(3, 1000, 0, 0, 2)}});
    stories.Story().gravityCenter = {0.0, 50.0};
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject), stories.bench.Log());
    EXPECT_THAT(stories.Story().eccentricityModulus[kX], IsNan());
    EXPECT_EQ(0.0, stories.Story().eccentricityModulus[kZ]);
}

// Kz of NaN is not below 1e-06, Kx of NaN is not at least 1e-06.
TEST(EccentricityModulusStep, StiffnessThatIsNotANumberWarnsOfKxOnly) {
    const double nan = std::nan("");
    StiffStories stories({{Column(2, 0, 100, nan, 0), Column(3, 1000, 0, 0, nan)}});
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKx("1")), stories.bench.Log());
    EXPECT_EQ(0.0, stories.Story().eccentricityModulus[kX]);
    EXPECT_THAT(stories.Story().eccentricityModulus[kZ], IsNan());
}

TEST(EccentricityModulusStep, AStoryWithoutMembersHasNoTorsionalStiffness) {
    StiffStories stories(std::vector<std::vector<StoryMember>>(2));
    stories.engine().SetEccentricityModulus();
    EXPECT_EQ(StepLog(kSubject, NoKr("1") + NoKr("2")), stories.bench.Log());
}

TEST(EccentricityModulusStep, RefusesToRunWithoutStoryInfo) {
    StiffStories stories({FourFrames()});
    stories.engine().storyInfoSet = false;
    EXPECT_FALSE(stories.engine().SetEccentricityModulus());
    EXPECT_EQ(RefusedStepLog(kSubject,
                             "Story info. has not set yet. Stops setting eccentricity modulus..."),
              stories.bench.Log());
    EXPECT_EQ((PerDirection{0.0, 0.0}), stories.Story().eccentricityModulus);
}
