#include "route2/story_shear.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "route2/end_forces.h"
#include "tests/support/engine_bench.h"
#include "tests/support/run_log.h"

using testing::ElementsAre;

namespace {

constexpr const char* kOneStory = "EarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,3500,\nFIN\n";

// Member 1, a column along Y from node 1 up to node 2: local axes x (0, 1, 0), y (-1, 0, 0),
// z (0, 0, 1). Load cases 1 (dead), 2 (earthquake X), 3 (earthquake Z).
void AddColumn(FakeHost& host) {
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Member(1, 1, 2);
    host.primaryLoadCases = {1, 2, 3};
}

// An engine after the story step, with the earthquake load cases read.
class Sheared {
public:
    explicit Sheared(FakeHost& host, const std::string& input = kOneStory) : bench(host, input) {
        bench.engine.SetLoadCaseNumbersWithDataFile();
        bench.SetUpStories();
        bench.NewLog();
    }

    const StoryMember& Record(std::size_t index) const {
        return bench.engine.stories.at(0).members.at(index);
    }

    /// The shear force of the first record after the step.
    PerDirection Shear() {
        bench.engine.SetStoryMemberShearForce();
        return Record(0).shearForce;
    }

    EngineBench bench;
};

/// Records with the given load cases, a shear of 12 and -8 kN and a displacement of 4 and 2 mm.
std::vector<StoryMember> Records(const std::vector<std::int32_t>& loadCases) {
    std::vector<StoryMember> records;
    for (const std::int32_t loadCase : loadCases) {
        StoryMember record;
        record.loadCaseNumber = loadCase;
        record.shearForce = {12.0, -8.0};
        record.relativeDisp = {4.0, 2.0};
        records.push_back(record);
    }
    return records;
}

// An engine over one story with the given records, after the stiffness step.
class Stiffened {
public:
    Stiffened(const std::vector<StoryMember>& records, std::array<std::int32_t, 2> earthquake)
        : bench(host) {
        bench.engine.earthquakeLoadCaseNumber = earthquake;
        bench.engine.stories.emplace_back().members = records;
        bench.engine.storyInfoSet = true;
        bench.engine.SetStoryMemberHorizontalStiffness();
    }

    PerDirection Stiffness(std::size_t record) const {
        return bench.engine.stories[0].members.at(record).horizontalStiffness;
    }

    FakeHost host;
    EngineBench bench;
};

void ExpectVector(const Vec3& expected, const Vec3& actual) {
    EXPECT_NEAR(expected.x, actual.x, 1e-12);
    EXPECT_NEAR(expected.y, actual.y, 1e-12);
    EXPECT_NEAR(expected.z, actual.z, 1e-12);
}

}  // namespace

TEST(StoryMemberBaseVector, EveryRecordHasTheAxesOfItsMember) {
    FakeHost host;
    AddColumn(host);
    const Sheared sheared(host);
    for (const std::size_t record : {0u, 1u, 2u}) {
        ExpectVector({0, 1, 0}, sheared.Record(record).axisX);
        ExpectVector({-1, 0, 0}, sheared.Record(record).axisY);
        ExpectVector({0, 0, 1}, sheared.Record(record).axisZ);
    }
}

// The host lists member 1 twice; the engine's second set of axes is changed to tell them apart.
TEST(StoryMemberBaseVector, OfAMemberListedTwiceTheLastOneCounts) {
    FakeHost host;
    AddColumn(host);
    host.Member(1, 1, 2);
    Sheared sheared(host);
    AijCodeRoute2& engine = sheared.bench.engine;
    engine.memberAxisX.at(1) = {0.25, 0.5, 0.75};
    engine.memberAxisY.at(1) = {1.25, 1.5, 1.75};
    engine.memberAxisZ.at(1) = {2.25, 2.5, 2.75};
    EXPECT_TRUE(engine.SetStoryMemberBaseVector());
    ExpectVector({0.25, 0.5, 0.75}, sheared.Record(0).axisX);
    ExpectVector({1.25, 1.5, 1.75}, sheared.Record(0).axisY);
    ExpectVector({2.25, 2.5, 2.75}, sheared.Record(0).axisZ);
}

// Member 8 is known to the host but not among the members it lists.
TEST(StoryMemberBaseVector, AMemberThatIsNotListedKeepsAxesOfZero) {
    FakeHost host;
    AddColumn(host);
    Sheared sheared(host);
    StoryMember& record = sheared.bench.engine.stories[0].members[0];
    record = StoryMember{};
    record.memberNumber = 8;
    EXPECT_TRUE(sheared.bench.engine.SetStoryMemberBaseVector());
    ExpectVector({0, 0, 0}, sheared.Record(0).axisX);
    ExpectVector({0, 0, 0}, sheared.Record(0).axisY);
    ExpectVector({0, 0, 0}, sheared.Record(0).axisZ);
}

TEST(StoryMemberBaseVector, LogsItsStartAndItsEnd) {
    FakeHost host;
    AddColumn(host);
    Sheared sheared(host);
    EXPECT_TRUE(sheared.bench.engine.SetStoryMemberBaseVector());
    EXPECT_EQ(StepLog("story member base vector"), sheared.bench.NewLog());
}

TEST(StoryMemberBaseVector, RefusesToRunWithoutStoryInfo) {
    FakeHost host;
    EngineBench bench(host);
    EXPECT_FALSE(bench.engine.SetStoryMemberBaseVector());
    EXPECT_EQ(RefusedStepLog("story member base vector",
                             "Story info. has not set yet. Stops setting member base vector..."),
              bench.Log());
}

// Member 1 has no length and stopped the setup before the column's axes were formed.
TEST(StoryMemberBaseVector, AMemberBehindOneThatStoppedTheSetupIsAnInvalidSubscript) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3.5, 0).Node(3, 0, 0, 0).Member(1, 1, 3).Member(2, 1, 2);
    host.primaryLoadCases = {1};
    EngineBench bench(host, kOneStory);
    EXPECT_THROW(bench.SetUpStories(), std::out_of_range);
    EXPECT_THAT(bench.Log(), testing::EndsWith("\nStarts setting story member base vector...\n"));
}

// Global x: F0 * 0 + F1 * -1 + F2 * 0. F1 = -10 is 10 along x, so the shear is -10. Global z is
// F2 = 4, so the shear is -4.
TEST(StoryShear, IsTheLowerEndForceReversed) {
    FakeHost host;
    AddColumn(host);
    host.Force(2, 1, 0, 99, -10, 0).Force(3, 1, 0, 99, 0, 4);
    EXPECT_EQ((PerDirection{-10.0, -4.0}), Sheared(host).Shear());
}

// X counts under load case 2 only, Z under load case 3 only.
TEST(StoryShear, TakesEachDirectionUnderItsOwnEarthquake) {
    FakeHost host;
    AddColumn(host);
    host.Force(2, 1, 0, 0, -10, 77).Force(3, 1, 0, 0, -88, 4).Force(1, 1, 0, 66, 66, 66);
    EXPECT_EQ((PerDirection{-10.0, -4.0}), Sheared(host).Shear());
}

TEST(StoryShear, IsTheSameInEveryRecordOfAMember) {
    FakeHost host;
    AddColumn(host);
    host.Force(2, 1, 0, 0, -10, 0).Force(3, 1, 0, 0, 0, 4);
    Sheared sheared(host);
    sheared.Shear();
    for (const std::size_t record : {0u, 1u, 2u})
        EXPECT_EQ((PerDirection{-10.0, -4.0}), sheared.Record(record).shearForce);
}

// A brace from (0, 0, 0) to (3, 4, 0): x axis (0.6, 0.8, 0), y axis (-0.8, 0.6, 0), z axis
// (0, 0, 1). Global x: 10 * 0.6 + 5 * -0.8 = 2; global z: the third force, 7.
TEST(StoryShear, TurnsAllThreeEndForcesIntoGlobalAxes) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 3, 4, 0).Member(1, 1, 2);
    host.primaryLoadCases = {2};
    host.Force(2, 1, 0, 10, 5, 7).Force(3, 1, 0, 10, 5, 7);
    const PerDirection shear =
        Sheared(host, "EarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,4000,\nFIN\n").Shear();
    EXPECT_NEAR(-2.0, shear[kX], 1e-12);
    EXPECT_NEAR(-7.0, shear[kZ], 1e-12);
}

// Force along global axes: x 1 * 2 + 2 * 3 + 3 * 5 = 23, y 1 * 7 + 2 * 11 + 3 * 13 = 68,
// z 1 * 17 + 2 * 19 + 3 * 23 = 124. Moments do not count.
TEST(GlobalForce, SumsTheThreeForcesAlongTheMembersAxes) {
    const MemberAxes axes{{2, 7, 17}, {3, 11, 19}, {5, 13, 23}};
    ExpectVector({23, 68, 124}, GlobalForce({1, 2, 3, 100, 100, 100}, axes));
}

// With Z vertical the column's axes are x (0, 0, 1), y (0, 1, 0), z (-1, 0, 0): global x is -F2,
// global y is F1.
TEST(StoryShear, SecondDirectionIsGlobalYWhenZIsVertical) {
    FakeHost host;
    host.zUp = true;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 0, 3.5).Member(1, 1, 2);
    host.primaryLoadCases = {2};
    host.Force(2, 1, 0, 0, 0, -6).Force(3, 1, 0, 99, 4, 0);
    EXPECT_EQ((PerDirection{-6.0, -4.0}), Sheared(host).Shear());
}

// 10 kip * 4.4482216152605 kN/kip.
TEST(StoryShear, EnglishForcesAreConvertedFromKip) {
    FakeHost host;
    host.baseUnitSystem = 1;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 100, 0).Member(1, 1, 2);
    host.primaryLoadCases = {2};
    host.Force(2, 1, 0, 0, -10, 0).Force(3, 1, 0, 0, 0, -2);
    const PerDirection shear =
        Sheared(host, "EarthquakeLoadCaseNumber,2,3,\nFloorLevel,0,2540,\nFIN\n").Shear();
    EXPECT_DOUBLE_EQ(-44.482216152605, shear[kX]);
    EXPECT_DOUBLE_EQ(8.896443230521, shear[kZ]);
}

// The column starts at its upper node: its lower end is end 1, and its axes are x (0, -1, 0),
// y (1, 0, 0), z (0, 0, 1).
TEST(StoryShear, AMemberThatStartsAtTheTopIsAskedForEndOne) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, 3.5, 0).Member(1, 2, 1);
    host.primaryLoadCases = {2};
    host.Force(2, 1, 1, 0, 10, 0).Force(3, 1, 1, 0, 0, 4);
    host.Force(2, 1, 0, 0, 777, 0).Force(3, 1, 0, 0, 0, 777);
    EXPECT_EQ((PerDirection{-10.0, -4.0}), Sheared(host).Shear());
}

TEST(StoryShear, AsksForOneIncidenceAndTwoEndForcesPerRecord) {
    FakeHost host;
    AddColumn(host);
    host.primaryLoadCases = {1, 2};
    host.Node(3, 6, 0, 0, true).Node(4, 6, 3.5, 0).Member(5, 4, 3);
    Sheared sheared(host);
    host.calls.clear();
    sheared.Shear();
    EXPECT_THAT(host.calls,
                ElementsAre("GetMemberIncidence(1)", "GetMemberEndForces(1, 0, 2)",
                            "GetMemberEndForces(1, 0, 3)", "GetMemberIncidence(1)",
                            "GetMemberEndForces(1, 0, 2)", "GetMemberEndForces(1, 0, 3)",
                            "GetMemberIncidence(5)", "GetMemberEndForces(5, 1, 2)",
                            "GetMemberEndForces(5, 1, 3)", "GetMemberIncidence(5)",
                            "GetMemberEndForces(5, 1, 2)", "GetMemberEndForces(5, 1, 3)"));
}

TEST(StoryShear, LogsItsStartAndItsEnd) {
    FakeHost host;
    AddColumn(host);
    Sheared sheared(host);
    sheared.Shear();
    EXPECT_EQ(StepLog("story member shear force"), sheared.bench.NewLog());
}

// The warning names the base vector: intended.
TEST(StoryShear, RefusesToRunWithoutStoryInfoInTheWordsOfTheBaseVectorStep) {
    FakeHost host;
    EngineBench bench(host);
    host.calls.clear();
    bench.engine.stories.emplace_back().members.emplace_back();
    bench.engine.SetStoryMemberShearForce();
    EXPECT_EQ(RefusedStepLog("story member shear force",
                             "Story info. has not set yet. Stops setting member base vector..."),
              bench.Log());
    EXPECT_TRUE(host.calls.empty());
}

// Named in the input file, known to the host, not among its members: no axes, no shear.
TEST(StoryShear, AMemberThatIsNotListedHasNoShearAndNoStiffness) {
    FakeHost host;
    AddColumn(host);
    host.Force(2, 1, 0, 10, 10, 10).Force(3, 1, 0, 10, 10, 10);
    Sheared sheared(host);
    StoryMember& record = sheared.bench.engine.stories[0].members[1];  // load case 2
    record.axisX = record.axisY = record.axisZ = {};
    record.relativeDisp = {4.0, 4.0};
    sheared.bench.engine.SetStoryMemberShearForce();
    sheared.bench.engine.SetStoryMemberHorizontalStiffness();
    EXPECT_EQ((PerDirection{0.0, 0.0}), record.shearForce);
    EXPECT_EQ((PerDirection{0.0, 0.0}), record.horizontalStiffness);
}

// 12 kN / 4 mm and -8 kN / 2 mm.
TEST(HorizontalStiffnessStep, DividesShearByDisplacementInTheDirectionOfTheLoadCase) {
    const Stiffened story(Records({2, 3}), {2, 3});
    EXPECT_EQ((PerDirection{3.0, 0.0}), story.Stiffness(0));
    EXPECT_EQ((PerDirection{0.0, -4.0}), story.Stiffness(1));
}

TEST(HorizontalStiffnessStep, LeavesTheOtherDirectionOfAnEarthquakeRecordAsItIs) {
    std::vector<StoryMember> records = Records({2, 3});
    records[0].horizontalStiffness = records[1].horizontalStiffness = {71.0, 72.0};
    const Stiffened story(records, {2, 3});
    EXPECT_EQ((PerDirection{3.0, 72.0}), story.Stiffness(0));
    EXPECT_EQ((PerDirection{71.0, -4.0}), story.Stiffness(1));
}

TEST(HorizontalStiffnessStep, ARecordOfNeitherEarthquakeHasNone) {
    std::vector<StoryMember> records = Records({1});
    records[0].horizontalStiffness = {71.0, 72.0};
    EXPECT_EQ((PerDirection{0.0, 0.0}), Stiffened(records, {2, 3}).Stiffness(0));
}

TEST(HorizontalStiffnessStep, EqualEarthquakeCasesLeaveNoZStiffness) {
    const Stiffened story(Records({2, 2}), {2, 2});
    EXPECT_EQ((PerDirection{3.0, 0.0}), story.Stiffness(0));
    EXPECT_EQ((PerDirection{3.0, 0.0}), story.Stiffness(1));
}

TEST(HorizontalStiffnessStep, LogsItsStartAndItsEnd) {
    EXPECT_EQ(StepLog("story member horizontal stiffness"),
              Stiffened(Records({2}), {2, 3}).bench.Log());
}

TEST(HorizontalStiffnessStep, RefusesToRunWithoutStoryInfo) {
    FakeHost host;
    EngineBench bench(host);
    bench.engine.stories.emplace_back().members = Records({1});
    EXPECT_FALSE(bench.engine.SetStoryMemberHorizontalStiffness());
    EXPECT_EQ(RefusedStepLog("story member horizontal stiffness",
                             "Story info. has not set yet. Stops setting story member horizontal "
                             "stiffness..."),
              bench.Log());
    EXPECT_EQ((PerDirection{0.0, 0.0}), bench.engine.stories[0].members[0].horizontalStiffness);
}

TEST(HorizontalStiffness, OfNoDisplacementIsZero) {
    EXPECT_EQ(0.0, HorizontalStiffness(12.0, 0.0));
    EXPECT_EQ(0.0, HorizontalStiffness(12.0, -0.0));
}

TEST(HorizontalStiffness, UsesADisplacementHoweverSmall) {
    EXPECT_DOUBLE_EQ(1200.0, HorizontalStiffness(12.0, 0.01));
    EXPECT_DOUBLE_EQ(-1200.0, HorizontalStiffness(12.0, -0.01));
    EXPECT_DOUBLE_EQ(1.2e301, HorizontalStiffness(12.0, 1e-300));
}

TEST(HorizontalStiffness, HasTheSignOfTheQuotient) {
    EXPECT_EQ(-3.0, HorizontalStiffness(-12.0, 4.0));
    EXPECT_EQ(3.0, HorizontalStiffness(-12.0, -4.0));
}
