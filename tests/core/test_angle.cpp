// Wrapping, comparison and the numeric helpers of the angle code.

#include "core/Angle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace orvCore;

namespace {

const double PI = 3.14159265358979323846;
const double TWO_PI = 2.0 * PI;
const double HALF_PI = PI / 2.0;

TEST(AngFix, ZeroTwoPiIncludesZeroAndExcludesTwoPi) {
  EXPECT_DOUBLE_EQ(0.0, angFix(0.0, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(0.0, angFix(TWO_PI, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(0.0, angFix(2.0 * TWO_PI, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(0.0, angFix(-TWO_PI, AE_ZERO_TWOPI));
  const double justBelow = TWO_PI - 1e-9;
  EXPECT_DOUBLE_EQ(justBelow, angFix(justBelow, AE_ZERO_TWOPI));
  EXPECT_NEAR(3.0 * HALF_PI, angFix(-HALF_PI, AE_ZERO_TWOPI), 1e-12);
  EXPECT_NEAR(HALF_PI, angFix(5.0 * HALF_PI, AE_ZERO_TWOPI), 1e-12);
  EXPECT_DOUBLE_EQ(PI, angFix(PI, AE_ZERO_TWOPI));
}

TEST(AngFix, TinyNegativeRemainderSnapsToZeroNotTwoPi) {
  // Without the snap this would come out as 2 pi, outside the range.
  EXPECT_DOUBLE_EQ(0.0, angFix(-1e-12, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(0.0, angFix(TWO_PI + 1e-12, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(0.0, angFix(-TWO_PI - 1e-12, AE_PLUSMINUS_PI));
  // A remainder above the snap stays.
  EXPECT_NEAR(TWO_PI - 1e-9, angFix(-1e-9, AE_ZERO_TWOPI), 1e-15);
}

TEST(AngFix, PlusMinusPiKeepsBothEnds) {
  EXPECT_DOUBLE_EQ(PI, angFix(PI, AE_PLUSMINUS_PI));
  EXPECT_DOUBLE_EQ(-PI, angFix(-PI, AE_PLUSMINUS_PI));
  EXPECT_NEAR(-HALF_PI, angFix(3.0 * HALF_PI, AE_PLUSMINUS_PI), 1e-12);
  EXPECT_NEAR(HALF_PI, angFix(-3.0 * HALF_PI, AE_PLUSMINUS_PI), 1e-12);
  EXPECT_DOUBLE_EQ(0.0, angFix(TWO_PI, AE_PLUSMINUS_PI));
  EXPECT_NEAR(-PI + 0.1, angFix(PI + 0.1, AE_PLUSMINUS_PI), 1e-12);
  EXPECT_DOUBLE_EQ(1.0, angFix(1.0, AE_PLUSMINUS_PI));
}

TEST(AngFix, PlusMinusHalfPiClampsInsteadOfFolding) {
  EXPECT_NEAR(-HALF_PI, angFix(3.0 * HALF_PI, AE_PLUSMINUS_HALFPI), 1e-12);
  EXPECT_DOUBLE_EQ(HALF_PI, angFix(3.0 * PI / 4.0, AE_PLUSMINUS_HALFPI));
  EXPECT_DOUBLE_EQ(-HALF_PI, angFix(-3.0 * PI / 4.0, AE_PLUSMINUS_HALFPI));
  EXPECT_DOUBLE_EQ(PI / 4.0, angFix(PI / 4.0, AE_PLUSMINUS_HALFPI));
  EXPECT_DOUBLE_EQ(HALF_PI, angFix(HALF_PI, AE_PLUSMINUS_HALFPI));
}

TEST(AngFix, NoneAndUnknownExtentsLeaveTheAngle) {
  EXPECT_DOUBLE_EQ(10.0, angFix(10.0, AE_NONE));
  EXPECT_DOUBLE_EQ(-10.0, angFix(-10.0, static_cast<AngleExtents>(9)));
  EXPECT_DOUBLE_EQ(720.0, angFixDegrees(720.0, AE_NONE));
}

TEST(AngFix, NonFiniteInputDoesNotCrash) {
  EXPECT_TRUE(std::isnan(angFix(std::numeric_limits<double>::quiet_NaN(), AE_ZERO_TWOPI)));
  EXPECT_FALSE(std::isfinite(angFix(std::numeric_limits<double>::infinity(), AE_PLUSMINUS_PI)));
}

TEST(AngFixDegrees, WrapsAtThreeSixtyOneEightyAndNinety) {
  EXPECT_DOUBLE_EQ(0.0, angFixDegrees(360.0, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(359.5, angFixDegrees(359.5, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(270.0, angFixDegrees(-90.0, AE_ZERO_TWOPI));
  EXPECT_DOUBLE_EQ(180.0, angFixDegrees(180.0, AE_PLUSMINUS_PI));
  EXPECT_DOUBLE_EQ(-180.0, angFixDegrees(-180.0, AE_PLUSMINUS_PI));
  EXPECT_DOUBLE_EQ(180.0, angFixDegrees(540.0, AE_PLUSMINUS_PI));
  EXPECT_DOUBLE_EQ(-90.0, angFixDegrees(270.0, AE_PLUSMINUS_PI));
  EXPECT_DOUBLE_EQ(90.0, angFixDegrees(135.0, AE_PLUSMINUS_HALFPI));
  EXPECT_DOUBLE_EQ(-90.0, angFixDegrees(270.0, AE_PLUSMINUS_HALFPI));
}

TEST(AngFixDegrees, HasNoSnapToZero) {
  // The radian form snaps this to 0; the degree form keeps the remainder.
  EXPECT_GT(angFixDegrees(-1e-12, AE_ZERO_TWOPI), 359.0);
  EXPECT_DOUBLE_EQ(0.0, angFix(-1e-12, AE_ZERO_TWOPI));
}

TEST(InverseTrig, ClampsOutsideTheDomain) {
  EXPECT_DOUBLE_EQ(0.0, inverseCosine(1.0));
  EXPECT_DOUBLE_EQ(0.0, inverseCosine(1.0000001));
  EXPECT_DOUBLE_EQ(PI, inverseCosine(-1.0));
  EXPECT_DOUBLE_EQ(PI, inverseCosine(-2.0));
  EXPECT_DOUBLE_EQ(std::acos(0.5), inverseCosine(0.5));
  EXPECT_DOUBLE_EQ(HALF_PI, inverseSine(1.5));
  EXPECT_DOUBLE_EQ(-HALF_PI, inverseSine(-1.0));
  EXPECT_DOUBLE_EQ(std::asin(-0.25), inverseSine(-0.25));
}

TEST(AreAnglesEqual, MatchesAcrossTheWrap) {
  EXPECT_TRUE(areAnglesEqual(0.0, TWO_PI, 1e-6));
  EXPECT_TRUE(areAnglesEqual(1.0, 1.0 + TWO_PI, 1e-6));
  EXPECT_TRUE(areAnglesEqual(-HALF_PI, 3.0 * HALF_PI, 1e-6));
  EXPECT_TRUE(areAnglesEqual(PI, -PI, 1e-6));
  EXPECT_TRUE(areAnglesEqual(PI - 1e-8, -PI + 1e-8, 1e-6));
  EXPECT_TRUE(areAnglesEqual(-PI + 1e-8, PI - 1e-8, 1e-6));
  EXPECT_FALSE(areAnglesEqual(0.1, 0.2, 1e-6));
  EXPECT_FALSE(areAnglesEqual(PI, 0.0, 1e-6));
  EXPECT_FALSE(areAnglesEqual(PI - 1e-8, 0.5, 1e-6));
}

TEST(AreAnglesEqual, ToleranceIsStrict) {
  EXPECT_FALSE(areAnglesEqual(0.0, 0.5, 0.5));
  EXPECT_TRUE(areAnglesEqual(0.0, 0.499, 0.5));
}

TEST(AreAnglesEqual, ComparesVectorsComponentByComponent) {
  EXPECT_TRUE(v3AreAnglesEqual(Vec3(0.0, PI, 1.0), Vec3(TWO_PI, -PI, 1.0 - TWO_PI), 1e-6));
  EXPECT_FALSE(v3AreAnglesEqual(Vec3(0.0, 0.0, 0.0), Vec3(0.0, 0.0, 0.1), 1e-6));
  EXPECT_FALSE(v3AreAnglesEqual(Vec3(0.2, 0.0, 0.0), Vec3(0.0, 0.0, 0.0), 1e-6));
}

TEST(RotateEulerAngle, IdentityOnEitherSideLeavesTheOther) {
  const Vec3 ori(0.7, 0.2, -0.3);
  EXPECT_TRUE(v3AreAnglesEqual(ori, rotateEulerAngle(ori, Vec3()), 1e-9));
  EXPECT_TRUE(v3AreAnglesEqual(ori, rotateEulerAngle(Vec3(), ori), 1e-9));
}

TEST(RotateEulerAngle, RotationsAboutOneAxisAdd) {
  EXPECT_TRUE(v3AreAnglesEqual(Vec3(0.7, 0.0, 0.0), rotateEulerAngle(Vec3(0.3, 0.0, 0.0), Vec3(0.4, 0.0, 0.0)), 1e-9));
  EXPECT_TRUE(v3AreAnglesEqual(Vec3(7.0, 0.0, 0.0), rotateEulerAngle(Vec3(5.0, 0.0, 0.0), Vec3(2.0, 0.0, 0.0)), 1e-9));
  EXPECT_TRUE(v3AreAnglesEqual(Vec3(0.0, 0.5, 0.0), rotateEulerAngle(Vec3(0.0, 0.2, 0.0), Vec3(0.0, 0.3, 0.0)), 1e-9));
  EXPECT_TRUE(
      v3AreAnglesEqual(Vec3(0.0, 0.0, -0.5), rotateEulerAngle(Vec3(0.0, 0.0, -0.2), Vec3(0.0, 0.0, -0.3)), 1e-9));
}

TEST(ToScientific, SplitsMantissaAndExponent) {
  int exponent = 99;
  EXPECT_DOUBLE_EQ(1.234, toScientific(1234.0, &exponent));
  EXPECT_EQ(3, exponent);
  EXPECT_NEAR(-5.6, toScientific(-0.00056, &exponent), 1e-12);
  EXPECT_EQ(-4, exponent);
  EXPECT_DOUBLE_EQ(1.0, toScientific(1000.0, &exponent));
  EXPECT_EQ(3, exponent);
  EXPECT_DOUBLE_EQ(7.0, toScientific(7.0, &exponent));
  EXPECT_EQ(0, exponent);
}

TEST(ToScientific, ZeroAndExtremes) {
  int exponent = 99;
  EXPECT_DOUBLE_EQ(0.0, toScientific(0.0, &exponent));
  EXPECT_EQ(0, exponent);
  EXPECT_DOUBLE_EQ(2.5, toScientific(250.0, nullptr));

  double mantissa = toScientific(1e308, &exponent);
  EXPECT_NEAR(1.0, mantissa, 1e-12);
  EXPECT_EQ(308, exponent);
  mantissa = toScientific(3e-320, &exponent);  // subnormal
  EXPECT_NEAR(3.0, mantissa, 1e-2);
  EXPECT_EQ(-320, exponent);

  mantissa = toScientific(std::numeric_limits<double>::infinity(), &exponent);
  EXPECT_EQ(0, exponent);
  EXPECT_TRUE(std::isinf(mantissa));
}

}  // namespace
