// What the engine copies from the host before any floor or story: load cases, nodes, members.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/engine_bench.h"
#include "tests/support/what_ends_the_run.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

void ExpectPoint(double x, double y, double z, const Vec3& point) {
    EXPECT_DOUBLE_EQ(x, point.x);
    EXPECT_DOUBLE_EQ(y, point.y);
    EXPECT_DOUBLE_EQ(z, point.z);
}

double BaseLevelOf(FakeHost& host) {
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    return bench.engine.baseLevel;
}

}  // namespace

// --- Load cases

TEST(SetLoadInfo, ListsThePrimaryCasesBeforeTheCombinations) {
    FakeHost host;
    host.primaryLoadCases = {1, 2, 3};
    host.loadCombinations = {101, 102};
    EngineBench bench(host);
    bench.engine.SetLoadInfo();
    EXPECT_THAT(bench.engine.loadCaseNumbers, ElementsAre(1, 2, 3, 101, 102));
    EXPECT_EQ(3, bench.engine.numPrimaryLoadCases);
    EXPECT_EQ(2, bench.engine.numLoadCombinations);
    EXPECT_TRUE(bench.engine.loadInfoSet);
}

TEST(SetLoadInfo, KeepsTheHostsOrderAndRepeats) {
    FakeHost host;
    host.primaryLoadCases = {7, 2, 7};
    host.loadCombinations = {2, -1};
    EngineBench bench(host);
    bench.engine.SetLoadInfo();
    EXPECT_THAT(bench.engine.loadCaseNumbers, ElementsAre(7, 2, 7, 2, -1));
}

TEST(SetLoadInfo, AsksForBothCountsAndThenForBothLists) {
    FakeHost host;
    host.primaryLoadCases = {1};
    host.loadCombinations = {101};
    EngineBench bench(host);
    host.calls.clear();
    bench.engine.SetLoadInfo();
    EXPECT_THAT(host.calls,
                ElementsAre("GetPrimaryLoadCaseCount()", "GetLoadCombinationCount()",
                            "GetPrimaryLoadCaseNumbers()", "GetLoadCombinationNumbers()"));
}

TEST(SetLoadInfo, AsksForBothListsAlsoWhenThereAreNoCases) {
    FakeHost host;
    EngineBench bench(host);
    host.calls.clear();
    bench.engine.SetLoadInfo();
    EXPECT_THAT(host.calls, SizeIs(4));
    EXPECT_THAT(bench.engine.loadCaseNumbers, IsEmpty());
    EXPECT_TRUE(bench.engine.loadInfoSet);
    EXPECT_EQ("\nStarts setting load info...\nEnds setting load info...\n", bench.Log());
}

TEST(SetLoadInfo, PassesAFailedHostCallOn) {
    FakeHost host;
    EngineBench bench(host);
    host.FailFromNowOn();
    EXPECT_THROW(bench.engine.SetLoadInfo(), HostCallError);
    EXPECT_FALSE(bench.engine.loadInfoSet);
    EXPECT_EQ("\nStarts setting load info...\n", bench.Log());
}

// --- Nodes

TEST(SetNodeInfo, TurnsInchesIntoMillimetres) {
    FakeHost host;
    host.baseUnitSystem = 1;
    host.Node(5, 10, 20, 30);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_THAT(bench.engine.nodeNumbers, ElementsAre(5));
    ASSERT_THAT(bench.engine.nodeCoords, SizeIs(1));
    ExpectPoint(254, 508, 762, bench.engine.nodeCoords[0]);
}

TEST(SetNodeInfo, TurnsMetresIntoMillimetres) {
    FakeHost host;
    host.Node(5, 1, 2, 3);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    ASSERT_THAT(bench.engine.nodeCoords, SizeIs(1));
    ExpectPoint(1000, 2000, 3000, bench.engine.nodeCoords[0]);
}

TEST(SetNodeInfo, KeepsTheHostsOrder) {
    FakeHost host;
    host.Node(9, 1, 0, 0).Node(2, 2, 0, 0).Node(5, 3, 0, 0);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_THAT(bench.engine.nodeNumbers, ElementsAre(9, 2, 5));
    EXPECT_DOUBLE_EQ(1000, bench.engine.nodeCoords[0].x);
    EXPECT_DOUBLE_EQ(3000, bench.engine.nodeCoords[2].x);
    EXPECT_TRUE(bench.engine.nodeInfoSet);
    EXPECT_EQ("\nStarts setting node info...\nEnds setting node info...\n", bench.Log());
}

TEST(SetNodeInfo, AsksForTheCoordinatesOfEveryNodeTwice) {
    FakeHost host;
    host.Node(9, 1, 0, 0).Node(2, 2, 0, 0);
    EngineBench bench(host);
    host.calls.clear();
    bench.engine.SetNodeInfo();
    EXPECT_THAT(host.calls,
                ElementsAre("GetNodeCount()", "GetNodeList()", "GetNodeCoordinates(9)",
                            "GetNodeCoordinates(2)", "GetNodeCoordinates(9)", "GetSupportInfo(9)",
                            "GetNodeCoordinates(2)", "GetSupportInfo(2)"));
}

TEST(SetNodeInfo, HasABaseLevelOf0WithoutNodes) {
    FakeHost host;
    EngineBench bench(host);
    bench.engine.baseLevel = 5.0;
    host.calls.clear();
    bench.engine.SetNodeInfo();
    EXPECT_EQ(0.0, bench.engine.baseLevel);
    EXPECT_TRUE(bench.engine.nodeInfoSet);
    EXPECT_THAT(host.calls, ElementsAre("GetNodeCount()", "GetNodeList()"));
}

TEST(BaseLevel, IsTheLowestSupportedNode) {
    FakeHost host;
    host.Node(1, 0, 7, 0).Node(2, 0, 0.5, 0, true).Node(3, 0, -1.5, 0, true);
    host.Node(4, 0, 0.2, 0, true);
    EXPECT_DOUBLE_EQ(-1500, BaseLevelOf(host));
}

TEST(BaseLevel, IsNotBelowTheSupportsForALaterNodeWithoutSupport) {
    FakeHost host;
    host.Node(1, 0, 0, 0, true).Node(2, 0, -0.5, 0);
    EXPECT_EQ(0.0, BaseLevelOf(host));
}

TEST(BaseLevel, IsTheFirstNodeBelowEverySupportEvenWithoutASupport) {
    FakeHost host;
    host.Node(1, 0, -0.5, 0).Node(2, 0, 0, 0, true).Node(3, 0, 0, 5, true);
    EXPECT_DOUBLE_EQ(-500, BaseLevelOf(host));
}

TEST(BaseLevel, IsTheFirstNodeWithoutAnySupport) {
    FakeHost host;
    host.Node(1, 0, 3.5, 0).Node(2, 0, 0, 0).Node(3, 0, 7, 0);
    EXPECT_DOUBLE_EQ(3500, BaseLevelOf(host));
}

TEST(BaseLevel, FollowsTheVerticalAxis) {
    FakeHost host;
    host.zUp = true;
    host.Node(1, 0, -9, 4, true).Node(2, 0, 5, 2, true);
    EXPECT_DOUBLE_EQ(2000, BaseLevelOf(host));
    host.zUp = false;
    EXPECT_DOUBLE_EQ(-9000, BaseLevelOf(host));
}

// --- Members

TEST(SetMemberInfo, KeepsMembersAndAxesInTheHostsOrder) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3, 0).Node(3, 5, 3, 0);
    host.Member(20, 1, 2).Member(10, 2, 3);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_TRUE(bench.engine.SetMemberInfo());
    EXPECT_THAT(bench.engine.memberNumbers, ElementsAre(20, 10));
    ASSERT_THAT(bench.engine.memberAxisX, SizeIs(2));
    ExpectPoint(0, 1, 0, bench.engine.memberAxisX[0]);
    ExpectPoint(-1, 0, 0, bench.engine.memberAxisY[0]);
    ExpectPoint(0, 0, 1, bench.engine.memberAxisZ[0]);
    ExpectPoint(1, 0, 0, bench.engine.memberAxisX[1]);
    ExpectPoint(0, 1, 0, bench.engine.memberAxisY[1]);
    ExpectPoint(0, 0, 1, bench.engine.memberAxisZ[1]);
}

TEST(SetMemberInfo, TurnsTheAxesByBetaWithZVertical) {
    FakeHost host;
    host.zUp = true;
    host.Node(1, 0, 0, 0).Node(2, 5, 0, 0).Member(1, 1, 2, 90.0F);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_TRUE(bench.engine.SetMemberInfo());
    EXPECT_NEAR(-1.0, bench.engine.memberAxisY[0].z, 1e-9);
    EXPECT_NEAR(1.0, bench.engine.memberAxisZ[0].y, 1e-9);
}

TEST(SetMemberInfo, GivesMembersInOppositeDirectionsOppositeXAxes) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 3, 0, 4).Member(1, 1, 2).Member(2, 2, 1);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_TRUE(bench.engine.SetMemberInfo());
    ExpectPoint(0.6, 0, 0.8, bench.engine.memberAxisX[0]);
    ExpectPoint(-0.6, 0, -0.8, bench.engine.memberAxisX[1]);
}

TEST(SetMemberInfo, AsksForEveryIncidenceTwiceAndForTheAngleOnce) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3, 0).Member(7, 1, 2).Member(8, 2, 1);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    host.calls.clear();
    bench.engine.SetMemberInfo();
    EXPECT_THAT(host.calls, ElementsAre("GetMemberCount()", "GetMemberList()",
                                        "GetMemberIncidence(7)", "GetMemberIncidence(8)",
                                        "GetMemberIncidence(7)", "GetMemberRotationAngle(7)",
                                        "GetMemberIncidence(8)", "GetMemberRotationAngle(8)"));
}

TEST(SetMemberInfo, EndsWellWithoutMembers) {
    FakeHost host;
    EngineBench bench(host);
    host.calls.clear();
    EXPECT_TRUE(bench.engine.SetMemberInfo());
    EXPECT_THAT(host.calls, ElementsAre("GetMemberCount()", "GetMemberList()"));
    EXPECT_EQ("\nStarts setting member info...\nEnds setting member info...\n", bench.Log());
}

TEST(SetMemberInfo, StopsAtAMemberWhoseNodeIsMissing) {
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 0, 3, 0);
    host.Member(7, 1, 2).Member(8, 2, 99).Member(9, 2, 1);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    bench.NewLog();
    EXPECT_FALSE(bench.engine.SetMemberInfo());
    EXPECT_EQ(
        "\nStarts setting member info...\n"
        "\n*** WARNING *** : Node number is not set correctly. Stops setting member info...\n",
        bench.NewLog());
    EXPECT_THAT(bench.engine.memberNumbers, ElementsAre(7, 8, 9));
    EXPECT_THAT(bench.engine.memberAxisX, SizeIs(1));
    EXPECT_THAT(bench.engine.memberAxisY, SizeIs(1));
    EXPECT_THAT(bench.engine.memberAxisZ, SizeIs(1));
}

TEST(SetMemberInfo, StopsAtAMemberWhoseStartNodeIsMissing) {
    FakeHost host;
    host.Node(2, 0, 3, 0).Member(8, 99, 2);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_FALSE(bench.engine.SetMemberInfo());
    EXPECT_THAT(bench.engine.memberAxisX, IsEmpty());
}

TEST(SetMemberInfo, StopsAtAMemberWithoutLength) {
    FakeHost host;
    host.Node(1, 4, 5, 6).Node(2, 4, 5, 6).Node(3, 0, 0, 0);
    host.Member(7, 1, 3).Member(8, 1, 2).Member(9, 3, 1);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    bench.NewLog();
    EXPECT_FALSE(bench.engine.SetMemberInfo());
    EXPECT_EQ(
        "\nStarts setting member info...\n"
        "\n*** WARNING *** : Difference of x coordinates between start and end nodes is equal "
        "zero. Stops setting member info...\n",
        bench.NewLog());
    EXPECT_THAT(bench.engine.memberNumbers, ElementsAre(7, 8, 9));
    EXPECT_THAT(bench.engine.memberAxisX, SizeIs(1));
}

TEST(SetMemberInfo, AcceptsAColumnWhoseXCoordinatesAreEqual) {
    FakeHost host;
    host.Node(1, 4, 0, 6).Node(2, 4, 3, 6).Member(7, 1, 2);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    EXPECT_TRUE(bench.engine.SetMemberInfo());
    EXPECT_THAT(bench.Log(), Not(HasSubstr("WARNING")));
}

TEST(SetMemberInfo, UsesTheFirstOfNodesWithOneNumber) {
    // The host answers the same coordinates for both entries; the engine's copies differ.
    FakeHost host;
    host.Node(1, 0, 0, 0).Node(2, 5, 0, 0).Node(2, 5, 0, 0).Member(7, 1, 2);
    EngineBench bench(host);
    bench.engine.SetNodeInfo();
    bench.engine.nodeCoords[2] = {0, 3000, 0};
    EXPECT_TRUE(bench.engine.SetMemberInfo());
    ExpectPoint(1, 0, 0, bench.engine.memberAxisX[0]);
}

// --- Axes after an early stop

namespace {

// Columns 7, 8 and 9, of which 8 has no length: the axes end with those of member 7.
struct StoppedBuilding : FakeHost {
    StoppedBuilding() {
        primaryLoadCases = {1};
        Node(1, 0, 0, 0, true).Node(2, 0, 3, 0).Node(3, 0, 0, 0);
        Member(7, 1, 2).Member(8, 1, 3).Member(9, 1, 2);
    }
};

// The story step over that building with one story and the story members of `storyLine`.
std::string WhatEndsTheStoryStep(const std::string& storyLine) {
    StoppedBuilding host;
    EngineBench bench(host, "FloorLevel,0,3000,\nStoryMember,\n" + storyLine + "\nFIN\n");
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    return WhatEndsTheRun([&] { bench.engine.SetStoryInfo(); });
}

}  // namespace

TEST(StoppedMemberAxes, AreFoundForTheMembersBeforeTheStop) {
    EXPECT_EQ("nothing", WhatEndsTheStoryStep("1,7,"));
}

TEST(StoppedMemberAxes, EndTheRunForTheMemberThatStoppedTheStep) {
    EXPECT_EQ("invalid vector subscript", WhatEndsTheStoryStep("1,8,"));
}

TEST(StoppedMemberAxes, EndTheRunForALaterMember) {
    EXPECT_EQ("invalid vector subscript", WhatEndsTheStoryStep("1,7,9,"));
}

TEST(StoppedMemberAxes, LeaveTheLogWithoutTheEndLineOfTheBaseVectors) {
    StoppedBuilding host;
    EngineBench bench(host, "FloorLevel,0,3000,\nFIN\n");  // members 7 and 9 are found
    bench.SetUpModel();
    bench.engine.SetFloorInfo();
    EXPECT_EQ("invalid vector subscript", WhatEndsTheRun([&] { bench.engine.SetStoryInfo(); }));
    EXPECT_THAT(bench.Log(), testing::EndsWith("\nStarts setting story member base vector...\n"));
}
