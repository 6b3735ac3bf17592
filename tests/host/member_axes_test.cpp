#include "host/member_axes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr bool kYIsVertical = false;
constexpr bool kZIsVertical = true;

void ExpectNear(const Vec3& expected, const Vec3& actual, const char* axis) {
    constexpr double kTolerance = 1e-9;
    EXPECT_NEAR(expected.x, actual.x, kTolerance) << axis << " x";
    EXPECT_NEAR(expected.y, actual.y, kTolerance) << axis << " y";
    EXPECT_NEAR(expected.z, actual.z, kTolerance) << axis << " z";
}

// Expects the axes of a member that leads from the origin to `end`.
void ExpectAxes(const Vec3& end, double beta, bool zIsVertical, const MemberAxes& expected) {
    const auto axes = FormMemberAxes({}, end, beta, zIsVertical);
    ASSERT_TRUE(axes.has_value());
    ExpectNear(expected.x, axes->x, "axis x:");
    ExpectNear(expected.y, axes->y, "axis y:");
    ExpectNear(expected.z, axes->z, "axis z:");
}

double Dot(const Vec3& a, const Vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

}  // namespace

TEST(MemberAxes, AreTheReferenceAxesOfBeamsAndColumns) {
    const struct {
        bool zIsVertical;
        Vec3 direction, axisY, axisZ;
    } table[] = {
        {kYIsVertical, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
        {kYIsVertical, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
        {kZIsVertical, {1, 0, 0}, {0, -1, 0}, {0, 0, -1}},
        {kZIsVertical, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
        {kZIsVertical, {0, 0, 1}, {0, 1, 0}, {-1, 0, 0}},
    };
    for (const auto& [zIsVertical, direction, axisY, axisZ] : table) {
        SCOPED_TRACE(testing::Message() << (zIsVertical ? "Z" : "Y") << " vertical, " << direction.x
                                        << direction.y << direction.z);
        const Vec3 end{3000 * direction.x, 3000 * direction.y, 3000 * direction.z};
        ExpectAxes(end, 0.0, zIsVertical, {direction, axisY, axisZ});
    }
}

// w = (-cz, 0, cx) = (-1, 0, 0); p = w x c = (0*1 - 0*0, 0*0 - (-1)*1, 0) = (0, 1, 0).
TEST(MemberAxes, OfABeamAlongZWithYVertical) {
    ExpectAxes({0, 0, 5000}, 0.0, kYIsVertical, {{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}});
}

// c = (0.6, 0, 0.8): w = (-0.8, 0, 0.6), p = w x c = (0, 0.6*0.6 + 0.8*0.8, 0) = (0, 1, 0).
TEST(MemberAxes, OfAPlanDiagonalAreUprightWithYVertical) {
    ExpectAxes({3000, 0, 4000}, 0.0, kYIsVertical, {{0.6, 0, 0.8}, {0, 1, 0}, {-0.8, 0, 0.6}});
}

// c = (0.6, 0.8, 0): w = (0, 0, 0.6) / 0.6 = (0, 0, 1), p = w x c = (-0.8, 0.6, 0).
TEST(MemberAxes, OfABraceAreAtRightAnglesWithYVertical) {
    ExpectAxes({3000, 4000, 0}, 0.0, kYIsVertical, {{0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1}});
}

// c = (0, -1, 0): w = (0, 0, 1), p = w x c = (0*0 - 1*(-1), 0, 0) = (1, 0, 0).
TEST(MemberAxes, OfAColumnThatRunsDownTurnWithIt) {
    ExpectAxes({0, -3000, 0}, 0.0, kYIsVertical, {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}});
    // c = (0, 0, -1): u = (0, 1, 0), q = c x u = (0*0 - (-1)*1, 0, 0) = (1, 0, 0).
    ExpectAxes({0, 0, -3000}, 0.0, kZIsVertical, {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}});
}

// c = (0.6, 0, 0.8): u = (0, -0.6, 0) / 0.6 = (0, -1, 0);
// q = c x u = (0*0 - 0.8*(-1), 0.8*0 - 0.6*0, 0.6*(-1) - 0) = (0.8, 0, -0.6).
TEST(MemberAxes, OfABraceAboveTheXAxisWithZVertical) {
    ExpectAxes({3000, 0, 4000}, 0.0, kZIsVertical, {{0.6, 0, 0.8}, {0, -1, 0}, {0.8, 0, -0.6}});
}

// c = (0.6, 0.8, 0): u = (-0.8, -0.6, 0), and q = c x u = (0, 0, -0.36 + 0.64) = (0, 0, 0.28).
// u is not at right angles to c: u . c = -0.48 - 0.48 = -0.96.
TEST(MemberAxes, OfAPlanDiagonalAreNotAtRightAnglesWithZVertical) {
    ExpectAxes({3000, 4000, 0}, 0.0, kZIsVertical, {{0.6, 0.8, 0}, {-0.8, -0.6, 0}, {0, 0, 0.28}});
    const auto axes = FormMemberAxes({}, {3000, 4000, 0}, 0.0, kZIsVertical);
    EXPECT_NEAR(-0.96, Dot(axes->x, axes->y), 1e-12);
}

// p = (0, -1, 0) and q = (0, 0, -1): a quarter turn makes y = q and z = -p.
TEST(MemberAxes, TurnAQuarterWithBeta90AndZVertical) {
    ExpectAxes({5000, 0, 0}, 90.0, kZIsVertical, {{1, 0, 0}, {0, 0, -1}, {0, 1, 0}});
}

// p = (0, 1, 0), q = (0, 0, 1), cos 30 = 0.8660254038, sin 30 = 0.5:
// y = cos p + sin q, z = cos q - sin p.
TEST(MemberAxes, TurnByBetaAboutTheMember) {
    const double cos30 = std::sqrt(3.0) / 2.0;
    ExpectAxes({5000, 0, 0}, 30.0, kYIsVertical, {{1, 0, 0}, {0, cos30, 0.5}, {0, -0.5, cos30}});
    ExpectAxes({5000, 0, 0}, -30.0, kYIsVertical, {{1, 0, 0}, {0, cos30, -0.5}, {0, 0.5, cos30}});
}

// The angle is 90 * 3.1415926535 / 180 = 1.57079632675, which is 4.4897e-11 short of a quarter
// turn, so cos is 4.4897e-11 and not 6e-17.
TEST(MemberAxes, TurnWithPiTo10Decimals) {
    const auto axes = FormMemberAxes({}, {5000, 0, 0}, 90.0, kYIsVertical);
    EXPECT_NEAR(4.4897e-11, axes->y.y, 1e-14);
}

TEST(MemberAxes, OfAMemberInTheOppositeDirectionHaveTheOppositeX) {
    const Vec3 a{1000, 2000, 3000}, b{4000, 2000, 7000};
    const auto there = FormMemberAxes(a, b, 0.0, kYIsVertical);
    const auto back = FormMemberAxes(b, a, 0.0, kYIsVertical);
    ExpectNear({0.6, 0, 0.8}, there->x, "there");
    ExpectNear({-0.6, 0, -0.8}, back->x, "back");
}

// A lean of 5e-7 counts as upright: w = (-cz, 0, 1) as it is; at 2e-6 w = (-cz, 0, cx) / s.
TEST(MemberAxes, TakeALeanBelowOneMillionthAsUprightWithYVertical) {
    const auto upright = FormMemberAxes({}, {0, 1000, 5e-4}, 0.0, kYIsVertical);
    EXPECT_NEAR(-5e-7, upright->z.x, 1e-12);
    EXPECT_EQ(1.0, upright->z.z);
    const auto leaning = FormMemberAxes({}, {0, 1000, 2e-3}, 0.0, kYIsVertical);
    ExpectNear({-1, 0, 0}, leaning->z, "leaning");
}

TEST(MemberAxes, TakeALeanBelowOneMillionthAsUprightWithZVertical) {
    const auto upright = FormMemberAxes({}, {0, 5e-4, 1000}, 0.0, kZIsVertical);
    EXPECT_NEAR(-5e-7, upright->y.x, 1e-12);
    EXPECT_EQ(1.0, upright->y.y);
    const auto leaning = FormMemberAxes({}, {0, 2e-3, 1000}, 0.0, kZIsVertical);
    ExpectNear({-1, 0, 0}, leaning->y, "leaning");
}

TEST(MemberAxes, DoNotExistForAMemberShorterThanOneMillionthOfAMillimetre) {
    EXPECT_FALSE(FormMemberAxes({1, 2, 3}, {1, 2, 3}, 0.0, kYIsVertical).has_value());
    EXPECT_FALSE(FormMemberAxes({}, {9e-7, 0, 0}, 0.0, kYIsVertical).has_value());
    EXPECT_FALSE(FormMemberAxes({}, {0, 0, 9e-7}, 0.0, kZIsVertical).has_value());
    EXPECT_TRUE(FormMemberAxes({}, {1e-6, 0, 0}, 0.0, kYIsVertical).has_value());
    // Every component is below the limit, the length of 1.04e-6 is not.
    EXPECT_TRUE(FormMemberAxes({}, {6e-7, 6e-7, 6e-7}, 0.0, kYIsVertical).has_value());
}

// The length is no number either, and so not below the limit.
TEST(MemberAxes, ExistForAMemberWhoseEndIsNowhere) {
    const auto axes = FormMemberAxes({}, {std::nan(""), 0, 0}, 0.0, kYIsVertical);
    ASSERT_TRUE(axes.has_value());
    EXPECT_TRUE(std::isnan(axes->x.x));
}
