// Which members stand upright: the others lean, and their drift contains the turning of the floors.

#include "route2/upright.h"

#include <gtest/gtest.h>

// A column from the first to the second floor, 3.5 m and 7 m above the ground.
TEST(Upright, IsWhatLeansATwentiethOfItsOwnHeight) {
    EXPECT_TRUE(IsUpright({0, 3500, 0}, {0, 7000, 0}, false));
    EXPECT_TRUE(IsUpright({0, 3500, 0}, {175, 7000, 0}, false));
    EXPECT_FALSE(IsUpright({0, 3500, 0}, {176, 7000, 0}, false));
}

TEST(Upright, IsTheSameFromWhicheverEnd) {
    EXPECT_TRUE(IsUpright({175, 7000, 0}, {0, 3500, 0}, false));
    EXPECT_FALSE(IsUpright({176, 7000, 0}, {0, 3500, 0}, false));
}

// 105 mm to one side and 140 mm to the other are 175 mm.
TEST(Upright, LeansByTheDistanceInThePlan) {
    EXPECT_TRUE(IsUpright({0, 0, 0}, {105, 3500, -140}, false));
    EXPECT_FALSE(IsUpright({0, 0, 0}, {106, 3500, -140}, false));
}

TEST(Upright, StandsAlongZWhereZIsVertical) {
    EXPECT_TRUE(IsUpright({0, 0, 3500}, {0, 175, 7000}, true));
    EXPECT_FALSE(IsUpright({0, 0, 3500}, {0, 176, 7000}, true));
}

TEST(Upright, IsNoBeam) {
    EXPECT_FALSE(IsUpright({0, 3500, 0}, {6000, 3500, 0}, false));
}

// Both ends at one point, or both nodes missing: no plan distance is no lean, 0 <= 0.05 x 0.
TEST(Upright, IsAMemberWithoutLength) {
    EXPECT_TRUE(IsUpright({3000, 3500, 0}, {3000, 3500, 0}, false));
}
