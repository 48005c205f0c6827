// Geodetic, ECEF and tangent-plane conversions checked against GeographicLib,
// an independent implementation, over a grid that takes in the poles, the
// date line and altitudes from -10 km to 40000 km.
//
// The reference ellipsoid is built from our semi-major axis and first
// eccentricity squared: the stated e2 differs from the exact WGS-84 value by
// 3.5e-15, which alone moves positions by about 2e-8 m, more than the
// tolerance. Separately, one test bounds the distance to GeographicLib's own
// WGS-84.
//
// Distances are compared to 1e-9 m, or to 5 units in the last place of the
// point's distance from the earth's centre where that is larger: one unit in
// the last place of an ECEF coordinate is already 0.93e-9 m at the surface
// and 7.5e-9 m at 40000 km, so two independent double computations cannot
// agree more closely than a few of them.

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LocalCartesian.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "core/Coordinate.h"
#include "core/CoordinateConverter.h"
#include "core/VectorMath.h"

namespace {

using orvCore::Coordinate;
using orvCore::CoordinateConverter;
using orvCore::Vec3;

constexpr double DEG = M_PI / 180.0;
constexpr double ANGLE_TOL = 1.0e-12;

const GeographicLib::Geocentric& referenceEarth() {
  static const GeographicLib::Geocentric earth(orvCore::WGS_A, 1.0 - std::sqrt(orvCore::WGS_ONE_MINUS_E2));
  return earth;
}

double distanceTolerance(double radius) {
  const double ulp = std::nextafter(radius, std::numeric_limits<double>::infinity()) - radius;
  return std::max(1.0e-9, 5.0 * ulp);
}

std::vector<double> gridLatitudes() {
  std::vector<double> lats;
  for (double lat = -90.0; lat <= 90.0; lat += 2.5) lats.push_back(lat);
  for (double lat : {-89.9999, -89.99, 0.0001, 89.99, 89.9999}) lats.push_back(lat);
  return lats;
}

std::vector<double> gridLongitudes() {
  std::vector<double> lons;
  for (double lon = -180.0; lon <= 180.0; lon += 15.0) lons.push_back(lon);
  for (double lon : {-179.9999, -0.0001, 179.9999}) lons.push_back(lon);
  return lons;
}

const std::vector<double>& gridAltitudes() {
  static const std::vector<double> alts = {-10000.0, -1.0, 0.0, 1.0, 1000.0, 1.0e5, 4.0e5, 2.0e7, 3.6e7, 4.0e7};
  return alts;
}

// Longitude difference folded into [-pi, pi].
double lonDiff(double a, double b) { return std::remainder(a - b, 2.0 * M_PI); }

TEST(GeodeticReference, GeodeticToEcefMatchesGeographicLib) {
  for (double lat : gridLatitudes()) {
    for (double lon : gridLongitudes()) {
      for (double alt : gridAltitudes()) {
        double x, y, z;
        referenceEarth().Forward(lat, lon, alt, x, y, z);
        Vec3 ecef;
        CoordinateConverter::convertGeodeticPosToEcef(Vec3(lat * DEG, lon * DEG, alt), ecef);
        const double tol = distanceTolerance(std::hypot(x, y, z));
        EXPECT_NEAR(ecef.x(), x, tol) << lat << " " << lon << " " << alt;
        EXPECT_NEAR(ecef.y(), y, tol) << lat << " " << lon << " " << alt;
        EXPECT_NEAR(ecef.z(), z, tol) << lat << " " << lon << " " << alt;
      }
    }
  }
}

TEST(GeodeticReference, EcefToGeodeticMatchesGeographicLib) {
  for (double lat : gridLatitudes()) {
    for (double lon : gridLongitudes()) {
      for (double alt : gridAltitudes()) {
        double x, y, z;
        referenceEarth().Forward(lat, lon, alt, x, y, z);
        double refLat, refLon, refAlt;
        referenceEarth().Reverse(x, y, z, refLat, refLon, refAlt);
        Vec3 lla;
        ASSERT_EQ(CoordinateConverter::convertEcefToGeodeticPos(Vec3(x, y, z), lla), 0);
        EXPECT_NEAR(lla.lat(), refLat * DEG, ANGLE_TOL) << lat << " " << lon << " " << alt;
        if (x == 0.0 && y == 0.0) {
          // Exactly on the axis the altitude is |z| minus the stated semi-minor
          // axis, which is 1.2e-8 m off the ellipsoid that e2 describes.
          EXPECT_DOUBLE_EQ(lla.alt(), std::fabs(z) - orvCore::WGS_B);
          continue;
        }
        if (std::fabs(refLat) < 90.0 - 1e-9) {
          EXPECT_NEAR(lonDiff(lla.lon(), refLon * DEG), 0.0, ANGLE_TOL);
        }
        EXPECT_NEAR(lla.alt(), refAlt, distanceTolerance(std::hypot(x, y, z))) << lat << " " << lon << " " << alt;
      }
    }
  }
}

TEST(GeodeticReference, CloseToGeographicLibsOwnWgs84) {
  const auto& wgs84 = GeographicLib::Geocentric::WGS84();
  for (double lat : gridLatitudes()) {
    for (double alt : {-10000.0, 0.0, 4.0e7}) {
      double x, y, z;
      wgs84.Forward(lat, 33.0, alt, x, y, z);
      Vec3 ecef;
      CoordinateConverter::convertGeodeticPosToEcef(Vec3(lat * DEG, 33.0 * DEG, alt), ecef);
      EXPECT_LT((ecef - Vec3(x, y, z)).length(), 1.0e-7) << lat << " " << alt;
    }
  }
}

TEST(GeodeticReference, DeepInsideTheEarthStillInvertsOrFailsCleanly) {
  // Points well inside the earth, including inside the evolute near the
  // centre: either an answer that goes back to the same point, or a failure.
  for (double r : {6.0e6, 1.0e6, 1.0e5, 3.0e4, 1.0e3}) {
    for (double lat : {-60.0, -10.0, 10.0, 45.0, 80.0}) {
      const Vec3 p(r * std::cos(lat * DEG), 0.3 * r * std::cos(lat * DEG), r * std::sin(lat * DEG));
      Vec3 lla;
      if (CoordinateConverter::convertEcefToGeodeticPos(p, lla) != 0) continue;
      Vec3 back;
      CoordinateConverter::convertGeodeticPosToEcef(lla, back);
      EXPECT_LT((back - p).length(), 1.0e-6) << r << " " << lat;
    }
  }
}

// --- XEAST against LocalCartesian ---------------------------------------------

struct Origin {
  double lat, lon, alt;
};

class XEastReference : public ::testing::TestWithParam<Origin> {};

// ENU <-> NED axis swap; its own inverse.
void enuNedSwap(const double in[3][3], double out[3][3]) {
  static const double p[3][3] = {{0, 1, 0}, {1, 0, 0}, {0, 0, -1}};
  double t[3][3];
  orvCore::d3MMmult(p, in, t);
  orvCore::d3MMmult(t, p, out);
}

TEST_P(XEastReference, PositionVelocityAndOrientationMatchLocalCartesian) {
  const Origin o = GetParam();
  CoordinateConverter conv;
  conv.setReferenceOriginDegrees(o.lat, o.lon, o.alt);
  const GeographicLib::LocalCartesian local(o.lat, o.lon, o.alt, referenceEarth());

  for (double dLat : {-3.0, -0.01, 0.0, 0.2, 5.0}) {
    for (double dLon : {-4.0, 0.0, 0.05, 2.0}) {
      for (double alt : {-500.0, 0.0, 12000.0, 3.6e7}) {
        double lat = o.lat + dLat;
        if (lat > 90.0) lat = 180.0 - lat;
        if (lat < -90.0) lat = -180.0 - lat;
        const double lon = std::remainder(o.lon + dLon, 360.0);
        double x, y, z;
        std::vector<double> m(9);
        local.Forward(lat, lon, alt, x, y, z, m);

        const Vec3 velEnu(12.0, -250.0, 3.5);
        const Vec3 ori(0.7, -0.2, 0.1);
        Coordinate in(orvCore::LLA, Vec3(lat * DEG, lon * DEG, alt), ori, velEnu);
        Coordinate out;
        ASSERT_EQ(conv.convert(in, out, orvCore::XEAST), 0);
        ASSERT_EQ(out.system(), orvCore::XEAST);

        const double tol = distanceTolerance(std::hypot(x, y, z) + 1.3e7);
        EXPECT_NEAR(out.position().x(), x, tol) << lat << " " << lon << " " << alt;
        EXPECT_NEAR(out.position().y(), y, tol) << lat << " " << lon << " " << alt;
        EXPECT_NEAR(out.position().z(), z, tol) << lat << " " << lon << " " << alt;

        // m takes the point's ENU into the plane's ENU.
        const double rot[3][3] = {{m[0], m[1], m[2]}, {m[3], m[4], m[5]}, {m[6], m[7], m[8]}};
        Vec3 expectVel;
        orvCore::d3Mv3Mult(rot, velEnu, expectVel);
        EXPECT_TRUE(orvCore::v3AreEqual(out.velocity(), expectVel, 1e-11)) << lat << " " << lon;

        // Body against the plane's NED = body against the point's NED, times
        // the turn from the plane's NED into the point's NED (m transposed).
        double rotNed[3][3], body[3][3], expectDcm[3][3], gotDcm[3][3];
        enuNedSwap(rot, rotNed);
        orvCore::d3EulertoDCM(ori, body);
        orvCore::d3MMTmult(body, rotNed, expectDcm);
        orvCore::d3EulertoDCM(out.orientation(), gotDcm);
        for (int i = 0; i < 3; ++i)
          for (int j = 0; j < 3; ++j) EXPECT_NEAR(gotDcm[i][j], expectDcm[i][j], 1e-12) << lat << " " << lon;

        // And back to the same geodetic point.
        Coordinate back;
        ASSERT_EQ(conv.convert(out, back, orvCore::LLA), 0);
        EXPECT_NEAR(back.position().lat(), lat * DEG, ANGLE_TOL);
        if (std::fabs(lat) < 90.0) {
          EXPECT_NEAR(lonDiff(back.position().lon(), lon * DEG), 0.0, ANGLE_TOL);
        }
        EXPECT_NEAR(back.position().alt(), alt, tol);
        EXPECT_TRUE(orvCore::v3AreEqual(back.velocity(), velEnu, 1e-9));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Origins, XEastReference,
                         ::testing::Values(Origin{0.0, 0.0, 0.0}, Origin{36.5, -121.9, 25.0},
                                           Origin{-33.9, 151.2, -10.0}, Origin{89.999999, 20.0, 100.0},
                                           Origin{-90.0, 0.0, 0.0}, Origin{10.0, 179.5, 3000.0},
                                           Origin{60.0, -179.9, 0.0}));

}  // namespace
