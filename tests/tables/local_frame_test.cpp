#include "tables/local_frame.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

void ExpectVector(double x, double y, double z, const Vec3& vector) {
    EXPECT_NEAR(x, vector.x, 1e-15);
    EXPECT_NEAR(y, vector.y, 1e-15);
    EXPECT_NEAR(z, vector.z, 1e-15);
}

}  // namespace

// x along the column, y along X, z to their right: (0,0,1) x (1,0,0) = (0,1,0).
TEST(StandardFrame, OfAColumnHasItsYAlongGlobalX) {
    const LocalFrame zUp = StandardFrame({0, 0, 4}, 0.0, true);
    ExpectVector(0, 0, 1, zUp.x);
    ExpectVector(1, 0, 0, zUp.y);
    ExpectVector(0, 1, 0, zUp.z);
    const LocalFrame downwards = StandardFrame({0, 0, -4}, 0.0, true);
    ExpectVector(1, 0, 0, downwards.y);
    ExpectVector(0, -1, 0, downwards.z);
    const LocalFrame yUp = StandardFrame({0, 3, 0}, 0.0, false);
    ExpectVector(1, 0, 0, yUp.y);
    ExpectVector(0, 0, -1, yUp.z);
}

TEST(StandardFrame, OfABeamHasItsYUpwards) {
    const LocalFrame zUp = StandardFrame({0, -5, 0}, 0.0, true);
    ExpectVector(0, -1, 0, zUp.x);
    ExpectVector(0, 0, 1, zUp.y);
    ExpectVector(-1, 0, 0, zUp.z);
}

// A brace 3 along, 4 up: y is at right angles in the same vertical plane and points upwards.
TEST(StandardFrame, OfABraceHasItsYUpwardsInItsVerticalPlane) {
    const LocalFrame frame = StandardFrame({3, 0, 4}, 0.0, true);
    ExpectVector(0.6, 0, 0.8, frame.x);
    ExpectVector(-0.8, 0, 0.6, frame.y);
    ExpectVector(0, -1, 0, frame.z);
}

TEST(StandardFrame, IsTurnedByBetaAboutX) {
    const LocalFrame frame = StandardFrame({0, 0, 4}, 90.0, true);
    ExpectVector(0, 1, 0, frame.y);  // where z was
    ExpectVector(-1, 0, 0, frame.z);
}

// 1e-6 of 4 m are 0.004 mm.
TEST(StandardFrame, TakesForAColumnWhatLeansByAMillionth) {
    ExpectVector(1, 0, 0, StandardFrame({0, 3.9e-6, 4}, 0.0, true).y);
    const LocalFrame leaning = StandardFrame({0, 4.1e-6, 4}, 0.0, true);
    EXPECT_NEAR(-1.0, leaning.y.y, 1e-11);
}

TEST(FrameOfAVector, PutsYOnTheVectorsSideInTheirCommonPlane) {
    const auto frame = FrameOf({0, 0, 4}, {0, 2, 7});
    ASSERT_TRUE(frame.has_value());
    ExpectVector(0, 1, 0, frame->y);
    ExpectVector(-1, 0, 0, frame->z);
}

TEST(FrameOfAVector, IsNoneWhereTheVectorSaysNothing) {
    EXPECT_FALSE(FrameOf({0, 0, 4}, {0, 0, 0}).has_value());
    EXPECT_FALSE(FrameOf({0, 0, 4}, {0, 0, -3}).has_value());
    EXPECT_FALSE(FrameOf({1, 1, 1}, {2, 2, 2}).has_value());
}
