#include "tables/source_axes.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(SignedAxis, IsASignAndACapitalLetter) {
    EXPECT_EQ(2U, SignedAxisOf("-Z")->axis);
    EXPECT_EQ(-1.0, SignedAxisOf("-Z")->sign);
    EXPECT_EQ(1.0, SignedAxisOf("+X")->sign);
    for (const char* text : {"X", "+x", "+W", "", "+X ", "Z-", "++X"})
        EXPECT_FALSE(SignedAxisOf(text).has_value()) << text;
}

// All 48 ways to put three signed axes on the three of a model: half of them are mirrors.
TEST(SourceAxes, AreRightHandedInHalfOfAllWays) {
    int rightHanded = 0;
    const char* const all[] = {"+X", "-X", "+Y", "-Y", "+Z", "-Z"};
    for (const char* x : all)
        for (const char* y : all)
            for (const char* z : all)
                if (SourceAxes::Of({*SignedAxisOf(x), *SignedAxisOf(y), *SignedAxisOf(z)}))
                    ++rightHanded;
    EXPECT_EQ(24, rightHanded);
}

// Y upwards in the tables, Z upwards in the model: X stays, Y becomes Z, Z becomes -Y.
TEST(SourceAxes, TurnVectorsIntoTheModel) {
    const auto axes =
        SourceAxes::Of({*SignedAxisOf("+X"), *SignedAxisOf("+Z"), *SignedAxisOf("-Y")});
    ASSERT_TRUE(axes.has_value());
    const Vec3 turned = axes->InModel({1.0, 2.0, 3.0});
    EXPECT_EQ(1.0, turned.x);
    EXPECT_EQ(-3.0, turned.y);
    EXPECT_EQ(2.0, turned.z);
    EXPECT_FALSE(std::signbit(axes->InModel({0.0, 0.0, 0.0}).y));
}
