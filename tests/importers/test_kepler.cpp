// Kepler files: the keywords and their refusals, and the ballistic
// trajectory the modes keep.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "importers/Kepler.h"
#include "importers/KeplerFile.h"

namespace {

using ::testing::HasSubstr;
using KEPLER2ASI::KeplerInput;
using KEPLER2ASI::KeplerPoint;

struct Read {
  int result;
  KeplerInput input;
  std::string told;
};

Read read(const std::string& text) {
  Read r;
  std::istringstream in(text);
  ::testing::internal::CaptureStderr();
  r.result = KEPLER2ASI::readKeplerFile(in, r.input);
  r.told = ::testing::internal::GetCapturedStderr();
  return r;
}

// A launch from the equator at 0 E: straight up at 2000 ft/s and east at
// 6000 ft/s, a flight of a few minutes that comes down again.
const std::string kBallistic =
    "# a ballistic shot\n"
    "ind 1\n"
    "tzero 0   // start\n"
    "tend 2000\n"
    "dt 10\n"
    "hgd 100000\n"
    "statevec 0 20925646.3 0 0 2000 6000 0\n";

std::vector<KeplerPoint> trajectory(const std::string& text) {
  const Read r = read(text);
  EXPECT_EQ(r.result, 0) << r.told;
  std::vector<KeplerPoint> points;
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(KEPLER2ASI::computeTrajectory(r.input, 0.0, points), 0);
  ::testing::internal::GetCapturedStderr();
  return points;
}

TEST(KeplerFile, KeywordsWithTheirUnitsAndDefaults) {
  const Read r = read("IND 2\nTZERO 5\ntend 100\ndt 1\nhgd 1000\notfile \"my out.asi\"\n"
                      "statevec 1 2 3 4 5 6 7\n");
  ASSERT_EQ(r.result, 0) << r.told;
  EXPECT_EQ(r.input.mode, 2);
  EXPECT_EQ(r.input.tzero, 5.0);
  EXPECT_DOUBLE_EQ(r.input.eventHeight, 304.79999);  // feet kept in metres
  EXPECT_EQ(r.input.outputFile, "my out.asi");
  EXPECT_EQ(r.input.latRef, 22.5);
  EXPECT_EQ(r.input.lonRef, -160.0);
  EXPECT_EQ(r.input.stateTime, 1.0);
  EXPECT_EQ(r.input.state[5], 7.0);
}

TEST(KeplerFile, TheLongStateKeywordIsNotTakenForTheShortOne) {
  const Read r = read("ind 1\ntend 10\ndt 1\nstateveclla 0 0 0 0 0 0 0\n");
  ASSERT_EQ(r.result, 0) << r.told;
  // On the equator at 0 E and height 0: the equatorial radius in feet on X.
  EXPECT_NEAR(r.input.state[0], 6378137.0 * 3.28084, 1.0);
  EXPECT_NEAR(r.input.state[1], 0.0, 1e-6);
}

TEST(KeplerFile, RefusalsNameTheirLine) {
  struct Case {
    std::string text, message;
  } cases[] = {
      {"ind 5\n", "Invalid propagation mode detected.  Line#: 1"},
      {"tend 10\ndt 1\nstatevec 0 1 1 1 0 0 0\n", "Invalid propagation mode detected.  Line#: 3"},
      {"ind 1\ntend 0\n", "Invalid end time detected, value <= 0.  Line#: 2"},
      {"ind 1\ntzero 20\ntend 20\ndt 1\nstatevec 0 1 1 1 0 0 0\n",
       "Invalid tzero time detected, value < 0 or >= tend.  Line#: 2"},
      {"ind 1\ntzero -1\ntend 20\ndt 1\nstatevec 0 1 1 1 0 0 0\n",
       "Invalid tzero time detected, value < 0 or >= tend.  Line#: 2"},
      {"ind 1\notfile \"\"\n", "Illegal empty string or empty quote detected.  Line#: 2"},
      {"ind x\n", "Line#: 1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const Read r = read(c.text);
    EXPECT_NE(r.result, 0);
    EXPECT_THAT(r.told, HasSubstr(c.message));
  }
}

TEST(KeplerTrajectory, ABallisticShotEndsAtTheLastPointAboveGround) {
  const std::vector<KeplerPoint> points = trajectory(kBallistic);
  ASSERT_GT(points.size(), 10u);
  EXPECT_LT(points.size(), 200u);  // down well before tend
  double top = 0.0;
  for (const KeplerPoint& p : points) {
    EXPECT_GE(p.alt, 0.0);
    top = std::max(top, p.alt);
  }
  // Vertical 2000 ft/s: a little more than v^2 / 2g = 62000 ft, 19 km.
  EXPECT_GT(top, 18e3);
  EXPECT_LT(top, 25e3);
  EXPECT_NEAR(points.front().alt, 0.0, 1.0);
  EXPECT_NEAR(points.front().velUp, 2000 * 0.3048, 1.0);
  // Heading east from the equator.
  EXPECT_NEAR(points[1].yaw, M_PI / 2, 0.05);
  EXPECT_NEAR(points[1].lat, 0.0, 1e-3);
  EXPECT_GT(points.back().lon, points.front().lon);
  EXPECT_NEAR(points[1].time - points[0].time, 10.0, 1e-9);
}

TEST(KeplerTrajectory, ModesChooseWhereTheWrittenTrackStarts) {
  std::string above = kBallistic;
  above.replace(above.find("ind 1"), 5, "ind 3");
  // Mode 3 keeps nothing below the event height (100000 ft, higher than the
  // shot reaches) until the first kept point.
  EXPECT_TRUE(trajectory(above).empty());
  std::string low = above;
  low.replace(low.find("hgd 100000"), 10, "hgd 30000");
  const std::vector<KeplerPoint> mode3 = trajectory(low);
  ASSERT_FALSE(mode3.empty());
  EXPECT_GE(mode3.front().alt, 30000 * 0.3048 - 1e-6);
}

TEST(KeplerTrajectory, ARunOfTooManyPointsIsRefusedByName) {
  std::string endless = kBallistic;
  endless.replace(endless.find("tend 2000"), 9, "tend 1e12");
  const Read r = read(endless);
  ASSERT_EQ(r.result, 0) << r.told;
  std::vector<KeplerPoint> points;
  ::testing::internal::CaptureStderr();
  EXPECT_NE(KEPLER2ASI::computeTrajectory(r.input, 0.0, points), 0);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("Too many points"));
  EXPECT_TRUE(points.empty());
}

TEST(KeplerTrajectory, ACircularOrbitKeepsItsHeightAndPeriod) {
  // 400 km up over the equator, the circular speed along Y (inertial), so
  // the Earth-fixed vector subtracts the earth's turn.
  const double r = (6378137.0 + 400e3) / 0.3048;
  const double v = std::sqrt(KEPLER2ASI::Kepler::MU / r);
  KEPLER2ASI::Kepler k;
  const double state[6] = {r, 0, 0, 0, v - 7.2921151467e-5 * r, 0};
  k.SetStateVec(0.0, state, 0.0);
  const double period = 2 * M_PI * std::sqrt(r * r * r / KEPLER2ASI::Kepler::MU);
  for (double t : {0.25 * period, 0.5 * period, period, 3.5 * period}) {
    ASSERT_TRUE(k.TwoBody(t, 0));
    k.ConvertToLLA(t);
    EXPECT_NEAR(k.altitude, 400e3, 1.0) << t;
  }
  ASSERT_TRUE(k.TwoBody(period, 0));
  EXPECT_NEAR(k.currentEci[0], r, 1e-3 * r);
  EXPECT_NEAR(k.currentEci[1], 0.0, 1e-6 * r);
}

TEST(KeplerTrajectory, HyperbolicAndParabolicOrbitsPropagateWithoutEvents) {
  const double r = 20925646.3;
  const double escape = std::sqrt(2.0 * KEPLER2ASI::Kepler::MU / r);
  for (double speed : {escape * 1.5, escape}) {
    KEPLER2ASI::Kepler k;
    // Inertial speed `speed`: the Earth-fixed vector leaves out the earth's turn.
    const double state[6] = {r, 0, 0, 0, speed - 7.2921151467e-5 * r, 0};
    ::testing::internal::CaptureStderr();
    k.SetStateVec(0.0, state, 0.0);
    EXPECT_TRUE(k.TwoBody(600.0, 1));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("Algorithm Not Set Up to Determine Altitude Events"));
    // The distance after 600 s lies between the speed's straight run and
    // the start.
    const double d = std::sqrt(k.currentEci[0] * k.currentEci[0] + k.currentEci[1] * k.currentEci[1]);
    EXPECT_GT(d, r + 0.5 * speed * 600.0 * 0.1);
    EXPECT_LT(d, r + speed * 600.0);
    // Energy is conserved along the conic.
    const double v2 = k.currentEci[3] * k.currentEci[3] + k.currentEci[4] * k.currentEci[4];
    EXPECT_NEAR(0.5 * v2 - KEPLER2ASI::Kepler::MU / d, 0.5 * speed * speed - KEPLER2ASI::Kepler::MU / r,
                1e-6 * speed * speed);
  }
}

TEST(KeplerTrajectory, EventTimesOfAnEllipse) {
  // The ballistic shot: the apogee time is where the altitude peaks, and
  // the event height is crossed where the propagated altitude says so.
  const Read r = read(kBallistic);
  KEPLER2ASI::Kepler k;
  k.setEventHeight(30000.0);
  k.SetStateVec(0.0, r.input.state, 0.0);
  ASSERT_TRUE(k.TwoBody(0.0, 1));
  double radius;
  const double apogee = k.TrajectoryTime(&radius, 1);
  auto heightAt = [&](double t) {
    k.TwoBody(t, 0);
    return std::sqrt(k.currentEci[0] * k.currentEci[0] + k.currentEci[1] * k.currentEci[1] +
                     k.currentEci[2] * k.currentEci[2]);
  };
  EXPECT_NEAR(heightAt(apogee), radius, 1.0);
  EXPECT_GT(heightAt(apogee), heightAt(apogee - 5.0));
  EXPECT_GT(heightAt(apogee), heightAt(apogee + 5.0));
  const double crossing = k.TrajectoryTime(&radius, 4);
  EXPECT_GT(crossing, 0.0);
  EXPECT_NEAR(heightAt(crossing), radius, 1.0);
}

TEST(KeplerTrajectory, CubicRoots) {
  double roots[3];
  ASSERT_EQ(KEPLER2ASI::Kepler::Cubic(-6.0, 11.0, -6.0, roots), 3);  // (x-1)(x-2)(x-3)
  std::sort(roots, roots + 3);
  EXPECT_NEAR(roots[0], 1.0, 1e-9);
  EXPECT_NEAR(roots[2], 3.0, 1e-9);
  ASSERT_EQ(KEPLER2ASI::Kepler::Cubic(0.0, 3.0, -4.0, roots), 1);  // x^3 + 3x - 4 = 0 at x = 1
  EXPECT_NEAR(roots[0], 1.0, 1e-12);
}

}  // namespace
