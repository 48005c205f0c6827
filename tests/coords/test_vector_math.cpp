// Vector, matrix and quaternion helpers: the rotation conventions, checked
// against each other and against hand-worked cases, and the special cases
// (gimbal lock, zero and null inputs).

#include <gtest/gtest.h>

#include <cmath>

#include "core/CoordinateConverter.h"
#include "core/VectorMath.h"

namespace {

using orvCore::Vec3;

void expectMatrixNear(const double a[3][3], const double b[3][3], double tol) {
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j) EXPECT_NEAR(a[i][j], b[i][j], tol) << i << "," << j;
}

// The body-frame components of v for the turn q, computed the quaternion
// way: conj(q) * (0, v) * q.
Vec3 rotateByQuaternion(const double q[4], const Vec3& v) {
  const double conj[4] = {q[0], -q[1], -q[2], -q[3]};
  const double pure[4] = {0.0, v[0], v[1], v[2]};
  double t[4], r[4];
  orvCore::dQMult(conj, pure, t);
  orvCore::dQMult(t, q, r);
  return Vec3(r[1], r[2], r[3]);
}

TEST(EulerAngles, DcmOfSingleTurnsMatchesHandWorkedAxes) {
  double m[3][3];
  // Yaw 90 degrees: the body's nose (x) points east, so north lies on the
  // body's -y axis and east on its +x axis.
  orvCore::d3EulertoDCM(Vec3(M_PI_2, 0.0, 0.0), m);
  Vec3 north;
  orvCore::d3Mv3Mult(m, Vec3(1, 0, 0), north);
  EXPECT_TRUE(orvCore::v3AreEqual(north, Vec3(0, -1, 0), 1e-15));
  // Pitch up 90 degrees: the nose points up, so down lies along body -x.
  orvCore::d3EulertoDCM(Vec3(0.0, M_PI_2, 0.0), m);
  Vec3 down;
  orvCore::d3Mv3Mult(m, Vec3(0, 0, 1), down);
  EXPECT_TRUE(orvCore::v3AreEqual(down, Vec3(-1, 0, 0), 1e-15));
  // Roll right 90 degrees: the right wing points down.
  orvCore::d3EulertoDCM(Vec3(0.0, 0.0, M_PI_2), m);
  orvCore::d3Mv3Mult(m, Vec3(0, 0, 1), down);
  EXPECT_TRUE(orvCore::v3AreEqual(down, Vec3(0, 1, 0), 1e-15));
}

TEST(EulerAngles, DcmAndQuaternionRoundTripsOverTheRange) {
  for (double yaw = 0.0; yaw < 2.0 * M_PI; yaw += 0.37) {
    for (double pitch = -1.5; pitch <= 1.5; pitch += 0.25) {
      for (double roll = -3.1; roll <= 3.1; roll += 0.41) {
        const Vec3 ea(yaw, pitch, roll);
        double m[3][3], q[4];
        Vec3 fromDcm, fromQ;
        orvCore::d3EulertoDCM(ea, m);
        orvCore::d3DCMtoEuler(m, fromDcm);
        EXPECT_TRUE(orvCore::v3AreEqual(fromDcm, ea, 1e-12)) << yaw << " " << pitch << " " << roll;
        orvCore::d3EulertoQ(ea, q);
        orvCore::d3QtoEuler(q, fromQ);
        EXPECT_TRUE(orvCore::v3AreEqual(fromQ, ea, 1e-12)) << yaw << " " << pitch << " " << roll;

        // The quaternion turns vectors exactly as the DCM does.
        const Vec3 v(0.3, -1.2, 2.5);
        Vec3 byDcm;
        orvCore::d3Mv3Mult(m, v, byDcm);
        EXPECT_TRUE(orvCore::v3AreEqual(rotateByQuaternion(q, v), byDcm, 1e-12));
      }
    }
  }
}

TEST(EulerAngles, NegativeYawComesBackInZeroToTwoPi) {
  double m[3][3];
  orvCore::d3EulertoDCM(Vec3(-0.5, 0.1, 0.2), m);
  Vec3 ea;
  orvCore::d3DCMtoEuler(m, ea);
  EXPECT_NEAR(ea.yaw(), 2.0 * M_PI - 0.5, 1e-12);
  double q[4];
  orvCore::d3EulertoQ(Vec3(-0.5, 0.1, 0.2), q);
  orvCore::d3QtoEuler(q, ea);
  EXPECT_NEAR(ea.yaw(), 2.0 * M_PI - 0.5, 1e-12);
}

TEST(EulerAngles, GimbalLockPutsTheWholeTurnIntoRoll) {
  // Nose straight down: yaw and roll turn about the same axis.
  for (const Vec3& ea : {Vec3(0.3, -M_PI_2, 0.5), Vec3(0.3, M_PI_2, 0.5), Vec3(2.0, M_PI_2, -1.0)}) {
    double m[3][3], q[4];
    orvCore::d3EulertoDCM(ea, m);
    orvCore::d3EulertoQ(ea, q);
    Vec3 fromDcm, fromQ;
    orvCore::d3DCMtoEuler(m, fromDcm);
    orvCore::d3QtoEuler(q, fromQ);
    const double expectRoll = ea.pitch() < 0 ? ea.roll() + ea.yaw() : ea.roll() - ea.yaw();
    for (const Vec3& got : {fromDcm, fromQ}) {
      EXPECT_EQ(got.yaw(), 0.0);
      EXPECT_NEAR(got.pitch(), ea.pitch(), 1e-7);
      EXPECT_NEAR(std::remainder(got.roll() - expectRoll, 2.0 * M_PI), 0.0, 1e-7);
      // Whatever the split, it is the same attitude.
      double back[3][3];
      orvCore::d3EulertoDCM(got, back);
      expectMatrixNear(back, m, 1e-7);
    }
  }
}

TEST(EulerAngles, NullInputsGiveZeros) {
  Vec3 ea(1, 2, 3);
  orvCore::d3DCMtoEuler(nullptr, ea);
  EXPECT_EQ(ea, Vec3(0, 0, 0));
  ea.set(1, 2, 3);
  orvCore::d3QtoEuler(nullptr, ea);
  EXPECT_EQ(ea, Vec3(0, 0, 0));
}

TEST(Quaternions, ProductComposesTurnsInOrder) {
  const Vec3 first(0.4, 0.2, -0.1), second(1.1, -0.3, 0.6);
  double q1[4], q2[4], q12[4];
  orvCore::d3EulertoQ(first, q1);
  orvCore::d3EulertoQ(second, q2);
  orvCore::dQMult(q1, q2, q12);
  double m1[3][3], m2[3][3], m21[3][3], fromQ[3][3];
  orvCore::d3EulertoDCM(first, m1);
  orvCore::d3EulertoDCM(second, m2);
  orvCore::d3MMmult(m2, m1, m21);
  Vec3 ea;
  orvCore::d3QtoEuler(q12, ea);
  orvCore::d3EulertoDCM(ea, fromQ);
  expectMatrixNear(fromQ, m21, 1e-12);
}

TEST(Quaternions, ProductIgnoresNullPointers) {
  const double q[4] = {1, 0, 0, 0};
  double out[4] = {9, 9, 9, 9};
  orvCore::dQMult(nullptr, q, out);
  orvCore::dQMult(q, nullptr, out);
  for (double v : out) EXPECT_EQ(v, 9.0);
  orvCore::dQMult(q, q, nullptr);  // must not crash
}

TEST(Quaternions, NormalisationScalesZeroesSmallPartsAndKeepsZero) {
  const double q[4] = {2.0, 0.0, 1e-12, -2.0};
  double out[4];
  orvCore::dQNorm(q, out, 1e-9);
  EXPECT_NEAR(out[0], std::sqrt(0.5), 1e-15);
  EXPECT_EQ(out[1], 0.0);
  EXPECT_EQ(out[2], 0.0);  // 3.5e-13 after scaling, under the tolerance
  EXPECT_NEAR(out[3], -std::sqrt(0.5), 1e-15);

  const double zero[4] = {0, 0, 0, 0};
  double z[4] = {5, 5, 5, 5};
  orvCore::dQNorm(zero, z, 1e-9);
  for (double v : z) EXPECT_EQ(v, 0.0);

  double n[4] = {5, 5, 5, 5};
  orvCore::dQNorm(nullptr, n, 1e-9);
  for (double v : n) EXPECT_EQ(v, 0.0);
  orvCore::dQNorm(q, nullptr, 1e-9);  // must not crash

  // In place.
  double inPlace[4] = {0.0, 3.0, 0.0, 4.0};
  orvCore::dQNorm(inPlace, inPlace, 1e-9);
  EXPECT_DOUBLE_EQ(inPlace[1], 0.6);
  EXPECT_DOUBLE_EQ(inPlace[3], 0.8);
}

TEST(Quaternions, NormalisingWorksForAnyMagnitudeADoubleHolds) {
  const double unit[4] = {0.5, -0.5, 0.5, 0.5};
  for (double scale : {1e200, 1e-170, 1e-300, 1.7e308}) {
    const double q[4] = {unit[0] * scale, unit[1] * scale, unit[2] * scale, unit[3] * scale};
    double out[4];
    orvCore::dQNorm(q, out, 1e-9);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(out[i], unit[i], 1e-15) << scale;
    Vec3 euler;
    orvCore::d3QtoEuler(out, euler);
    Vec3 expected;
    orvCore::d3QtoEuler(unit, expected);
    EXPECT_NEAR(euler.yaw(), expected.yaw(), 1e-12) << scale;
    EXPECT_NEAR(euler.pitch(), expected.pitch(), 1e-12) << scale;
    EXPECT_NEAR(euler.roll(), expected.roll(), 1e-12) << scale;
  }
}

TEST(Vectors, AnglesBetweenVectors) {
  EXPECT_NEAR(orvCore::v3Angle(Vec3(1, 0, 0), Vec3(0, 5, 0)), M_PI_2, 1e-15);
  EXPECT_NEAR(orvCore::v3Angle(Vec3(1, 1, 0), Vec3(2, 0, 0)), M_PI_4, 1e-15);
  EXPECT_EQ(orvCore::v3Angle(Vec3(0, 0, 0), Vec3(1, 2, 3)), 0.0);
  // Rounding can push the cosine just past +-1; that must not give NaN.
  const Vec3 v(0.1, 0.7, 0.3);
  EXPECT_EQ(orvCore::v3Angle(v, v * 3.0), 0.0);
  EXPECT_NEAR(orvCore::v3Angle(v, v * -3.0), M_PI, 1e-7);
  EXPECT_FALSE(std::isnan(orvCore::v3Angle(v, v * -3.0)));
}

TEST(Vectors, AxisRotationsFollowTheRightHandRule) {
  Vec3 out;
  orvCore::v3RotX(Vec3(0, 1, 0), M_PI_2, out);
  EXPECT_TRUE(orvCore::v3AreEqual(out, Vec3(0, 0, 1), 1e-15));
  orvCore::v3RotY(Vec3(0, 0, 1), M_PI_2, out);
  EXPECT_TRUE(orvCore::v3AreEqual(out, Vec3(1, 0, 0), 1e-15));
  Vec3 same(0, 2, 0);
  orvCore::v3RotX(same, M_PI, same);  // output aliasing the input
  EXPECT_TRUE(orvCore::v3AreEqual(same, Vec3(0, -2, 0), 1e-15));
}

TEST(Matrices, ProductsTransposesAndAliasing) {
  const double a[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  const double b[3][3] = {{0, 1, 0}, {-1, 0, 0}, {0, 0, 2}};
  const double ab[3][3] = {{-2, 1, 6}, {-5, 4, 12}, {-8, 7, 20}};
  const double abT[3][3] = {{2, -1, 6}, {5, -4, 12}, {8, -7, 20}};
  double c[3][3];
  orvCore::d3MMmult(a, b, c);
  expectMatrixNear(c, ab, 0.0);
  orvCore::d3MMTmult(a, b, c);
  expectMatrixNear(c, abT, 0.0);

  double inPlace[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 10}};
  orvCore::d3MMmult(inPlace, b, inPlace);
  expectMatrixNear(inPlace, ab, 0.0);

  Vec3 v;
  orvCore::d3Mv3Mult(a, Vec3(1, 0, -1), v);
  EXPECT_EQ(v, Vec3(-2, -2, -3));
  orvCore::d3MTv3Mult(a, Vec3(1, 0, -1), v);
  EXPECT_EQ(v, Vec3(-6, -6, -7));
}

TEST(LocalLevelFrames, RowsAreRightHandedAxesOfTheEllipsoid) {
  for (double lat : {-M_PI_2, -0.7, 0.0, 0.4, 1.4}) {
    for (double lon : {-M_PI, -1.0, 0.0, 2.5}) {
      // Up is the ellipsoid normal: the direction of a pure altitude change.
      Vec3 low, high;
      orvCore::CoordinateConverter::convertGeodeticPosToEcef(Vec3(lat, lon, 0.0), low);
      orvCore::CoordinateConverter::convertGeodeticPosToEcef(Vec3(lat, lon, 1000.0), high);
      const Vec3 up = (high - low) * 1e-3;
      for (auto frame : {orvCore::LOCAL_LEVEL_FRAME_NED, orvCore::LOCAL_LEVEL_FRAME_NWU,
                         orvCore::LOCAL_LEVEL_FRAME_ENU}) {
        double m[3][3];
        orvCore::CoordinateConverter::setLocalToEarthMatrix(lat, lon, frame, m);
        const Vec3 r0(m[0]), r1(m[1]), r2(m[2]);
        EXPECT_NEAR(r0.length(), 1.0, 1e-15);
        EXPECT_NEAR(r0.dot(r1), 0.0, 1e-15);
        EXPECT_TRUE(orvCore::v3AreEqual(r0.cross(r1), r2, 1e-15));
        const Vec3 expectedThird = frame == orvCore::LOCAL_LEVEL_FRAME_NED ? -up : up;
        EXPECT_TRUE(orvCore::v3AreEqual(r2, expectedThird, 1e-9)) << lat << " " << lon << " " << frame;
      }
    }
  }
  // East at longitude 0 is +Y, whatever the latitude.
  double enu[3][3];
  orvCore::CoordinateConverter::setLocalToEarthMatrix(0.8, 0.0, orvCore::LOCAL_LEVEL_FRAME_ENU, enu);
  EXPECT_TRUE(orvCore::v3AreEqual(Vec3(enu[0]), Vec3(0, 1, 0), 1e-15));
  // Any other frame value reads as ENU.
  double other[3][3];
  orvCore::CoordinateConverter::setLocalToEarthMatrix(0.8, 0.0, static_cast<orvCore::LocalLevelFrame>(7), other);
  expectMatrixNear(other, enu, 0.0);
}

}  // namespace
