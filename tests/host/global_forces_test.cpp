#include "host/global_forces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "compute/compute_run.h"
#include "host/qhm_file.h"
#include "host/recorded_host.h"
#include "tests/support/status_lines.h"
#include "tests/support/test_folder.h"

using testing::AllOf;
using testing::DoubleNear;
using testing::HasSubstr;
using testing::Pointwise;
using testing::StartsWith;

namespace {

constexpr bool kYVertical = false;
constexpr bool kZVertical = true;

// What the engine makes of a force along a member's axes.
Vec3 Sum(const SixDoubles& force, const MemberAxes& axes) {
    return {force[0] * axes.x.x + force[1] * axes.y.x + force[2] * axes.z.x,
            force[0] * axes.x.y + force[1] * axes.y.y + force[2] * axes.z.y,
            force[0] * axes.x.z + force[1] * axes.y.z + force[2] * axes.z.z};
}

MemberAxes AxesTo(const Vec3& end, double beta, bool zIsVertical) {
    return *FormMemberAxes({}, end, beta, zIsVertical);
}

constexpr SixDoubles kGlobal{10, -20, 300, 1, 2, -3};

}  // namespace

// A column with Y vertical: x (0, 1, 0), y (-1, 0, 0), z (0, 0, 1).
TEST(GlobalForces, AreProjectionsOnAxesAtRightAngles) {
    EXPECT_EQ((SixDoubles{-20, -10, 300, 2, -1, -3}),
              AlongMemberAxes(kGlobal, AxesTo({0, 3500, 0}, 0.0, kYVertical)));
}

// With Z vertical the axes of an inclined member are not at right angles, so the projections do
// not sum up to the force. Two members are on both sides of the level one at 45 degrees, where the
// axes lie in one plane; the second is 1e-5 off it.
TEST(GlobalForces, SumUpToTheForceThatWasGiven) {
    for (const Vec3& end : {Vec3{3000, 4000, 0}, Vec3{3000, 4000, 5000}, Vec3{-100, 2000, -3500},
                            Vec3{4000, 4000, 3000}, Vec3{5000, 5000.05, 0}, Vec3{0, 0, 3500}}) {
        for (const double beta : {0.0, 90.0, 22.5}) {
            const MemberAxes axes = AxesTo(end, beta, kZVertical);
            const auto along = AlongMemberAxes(kGlobal, axes);
            ASSERT_TRUE(along.has_value());
            const Vec3 force = Sum(*along, axes);
            EXPECT_NEAR(10, force.x, 1e-8) << end.x << " " << end.y << " " << beta;
            EXPECT_NEAR(-20, force.y, 1e-8);
            EXPECT_NEAR(300, force.z, 1e-8);
            const Vec3 moment = Sum({(*along)[3], (*along)[4], (*along)[5], 0, 0, 0}, axes);
            EXPECT_NEAR(1, moment.x, 1e-8);
            EXPECT_NEAR(2, moment.y, 1e-8);
            EXPECT_NEAR(-3, moment.z, 1e-8);
        }
    }
}

TEST(GlobalForces, CannotBeToldWhereTheAxesLieInOnePlane) {
    for (const Vec3& end : {Vec3{4000, 4000, 0}, Vec3{-4000, 4000, 0}, Vec3{4000, -4000, 0}})
        for (const double beta : {0.0, 30.0})
            EXPECT_EQ(std::nullopt, AlongMemberAxes(kGlobal, AxesTo(end, beta, kZVertical)));
}

// The volume is the squared cosine of twice the angle in plan; a level member that is 4e-7 rad off
// 45 degrees has (8e-7)^2, one that is 6e-7 off (1.2e-6)^2. The limit is (1e-6)^2.
TEST(GlobalForces, CannotBeToldWithinHalfAMillionthOfThatDirection) {
    const auto isTold = [](double off) {
        const double angle = std::atan(1.0) + off;
        const Vec3 end{5000 * std::cos(angle), 5000 * std::sin(angle), 0};
        return AlongMemberAxes(kGlobal, AxesTo(end, 0.0, kZVertical)).has_value();
    };
    EXPECT_FALSE(isTold(4e-7));
    EXPECT_TRUE(isTold(6e-7));
    EXPECT_FALSE(isTold(-4e-7));
    EXPECT_TRUE(isTold(-6e-7));
}

// --- In a recorded host --------------------------------------------------------------------------

namespace {

constexpr const char* kGlobalForces = R"({"format": "quarnel-host-model", "version": 2,
    "zUp": true, "primaryLoadCases": [1],
    "nodes": [{"number": 1, "xyz": [0, 0, 0]}, {"number": 2, "xyz": [0, 0, 3.5]},
              {"number": 3, "xyz": [4, 4, 3.5]}, {"number": 4, "xyz": [0, 0, 1e-8]}],
    "members": [{"number": 7, "start": 1, "end": 2, "beta": 90}, {"number": 8, "start": 2, "end": 3},
                {"number": 9, "start": 1, "end": 4}, {"number": 10, "start": 1, "end": 2},
                {"number": 11, "start": 1, "end": 55}],
    "endForces": {"1": {"10": [[1, 2, 3, 4, 5, 6], [0, 0, 0, 0, 0, 0]]}},
    "endForcesGlobal": {"1": {
        "7": [[10, -20, 300, 1, 2, -3], [-10, 20, -300, 0, 0, 0]],
        "8": [[10, -20, 300, 0, 0, 0], [-10, 20, -300, 0, 0, 0]],
        "9": [[10, -20, 300, 0, 0, 0], [-10, 20, -300, 0, 0, 0]],
        "11": [[10, -20, 300, 0, 0, 0], [-10, 20, -300, 0, 0, 0]]}}})";

class RecordedGlobalForces : public testing::Test {
protected:
    SixDoubles Forces(std::int32_t member, std::int32_t end) {
        SixDoubles forces{};
        host.GetMemberEndForces(member, end, 1, forces);
        return forces;
    }

    std::string Failure(std::int32_t member) {
        try {
            Forces(member, 0);
        } catch (const HostCallError& error) {
            return error.what();
        }
        return {};
    }

    TestFolder folder;
    RecordedModel model = ReadQhmFile(folder.Write("tower.qhm", kGlobalForces));
    RecordedHost host{model, "tower.qhm"};
};

}  // namespace

// A column with Z vertical has x (0, 0, 1), y (0, 1, 0), z (-1, 0, 0); turned by 90 degrees, y is
// (-1, 0, 0) and z is (0, -1, 0), but for 3.1415926535 in the place of pi, which is 9e-11 short.
TEST_F(RecordedGlobalForces, AreToldAlongTheMembersOwnAxes) {
    EXPECT_THAT(Forces(7, 0), Pointwise(DoubleNear(1e-8), {300.0, -10.0, 20.0, -3.0, -1.0, -2.0}));
    EXPECT_THAT(Forces(7, 1), Pointwise(DoubleNear(1e-8), {-300.0, 10.0, -20.0, 0.0, 0.0, 0.0}));
}

TEST_F(RecordedGlobalForces, LeaveThoseAlongOwnAxesAsTheyAre) {
    EXPECT_EQ((SixDoubles{1, 2, 3, 4, 5, 6}), Forces(10, 0));
}

TEST_F(RecordedGlobalForces, OfALevelMemberAtFortyFiveDegreesAreAFailedCallThatSaysSo) {
    EXPECT_THAT(Failure(8), AllOf(StartsWith("GetMemberEndForces: "), HasSubstr("member 8 "),
                                  HasSubstr("level member at 45 degrees")));
}

TEST_F(RecordedGlobalForces, OfAMemberBetweenNodesThatAreNotThereAreAFailedCall) {
    EXPECT_THAT(Failure(11), HasSubstr("node 55 is not in the model"));
}

// 1e-8 m are 1e-5 mm, long enough for a direction; 1e-8 inch are 2.5e-7 mm.
TEST_F(RecordedGlobalForces, NeedTheLengthOfTheMemberInMillimetres) {
    EXPECT_EQ("", Failure(9));
    model.baseUnitSystem = 1;
    RecordedHost inInches(model, "tower.qhm");
    SixDoubles forces{};
    EXPECT_THROW(inInches.GetMemberEndForces(9, 0, 1, forces), HostCallError);
}

// --- A whole run ---------------------------------------------------------------------------------

namespace {

RunOutcome RunOf(const RecordedModel& model, const TestFolder& folder, const std::string& name) {
    RecordedHost host(model, folder.Path(name + ".qhm"));
    StatusLines status;
    ReportPaths reports;
    return RunCompute(
        folder.Path("input.csv"), [&host] { return &host; }, status, reports);
}

// The same forces along the global axes.
void TurnForces(RecordedModel& model) {
    const auto point = [&model](std::int32_t node) {
        const auto& xyz = *model.nodes[*model.FindNode(node)].xyz;
        return Vec3{1000 * xyz[0], 1000 * xyz[1], 1000 * xyz[2]};
    };
    for (std::size_t i = 0; i < model.members.size(); ++i) {
        const RecordedMember& member = model.members[i];
        const MemberAxes axes = *FormMemberAxes(
            point(member.endNodes->start), point(member.endNodes->end), *member.beta, *model.zUp);
        for (std::size_t end = 0; end < 2; ++end)
            for (const std::int32_t loadCase : model.endForces[end].LoadCases())
                if (const SixDoubles* force = model.endForces[end].Find(i, loadCase)) {
                    const Vec3 sum = Sum(*force, axes);
                    model.endForcesGlobal[end].Store(i, loadCase,
                                                     {sum.x, sum.y, sum.z, 0.0, 0.0, 0.0});
                }
    }
    model.endForces = {};
}

}  // namespace

// Five stories with braces, Z vertical; every third member is turned about its own axis here.
TEST(GlobalForcesInARun, GiveTheResultsOfTheForcesAlongOwnAxes) {
    const std::string stem = QUARNEL_SOURCE_DIR "/examples/five_story_office_z_up";
    const TestFolder folder;
    folder.Write("input.csv", ReadText(stem + ".csv"));
    RecordedModel model = ReadQhmFile(stem + ".qhm");
    for (std::size_t i = 0; i < model.members.size(); i += 3)
        model.members[i].beta = 30.0;
    ASSERT_TRUE(RunOf(model, folder, "own").complete);
    TurnForces(model);
    WriteQhmFile(model, folder.Path("global.qhm"));
    const RecordedModel back = ReadQhmFile(folder.Path("global.qhm"));
    EXPECT_EQ(0u, back.endForces[0].size());
    ASSERT_TRUE(RunOf(back, folder, "global").complete);
    EXPECT_EQ(folder.Read("own.aijR2Result.csv"), folder.Read("global.aijR2Result.csv"));
}
