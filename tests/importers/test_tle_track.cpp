// Satellite tracks: where the propagated points lie, when they start, and the
// eclipse state of a point.

#include <gtest/gtest.h>

#include <cmath>

#include "core/TimeDateTime.h"
#include "importers/TleTrack.h"
#include "importers/sgp4/AIAASgp4.h"

namespace {

const char* const kIss1 = "1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958";
const char* const kIss2 = "2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834";
constexpr double DEG = M_PI / 180.0;

TEST(TleTrack, TheStationFliesAtItsAltitudeAndSpeedOverItsInclination) {
  PropagatorAIAA iss("ISS", kIss1, kIss2);
  TLE2ASI::TleSettings settings;
  const TLE2ASI::TimeFrame frame = TLE2ASI::startTime(settings, iss);
  std::vector<TLE2ASI::TrackPoint> points;
  ASSERT_EQ(TLE2ASI::computeTrack(iss, TLE2ASI::pointCount(settings), settings.step, frame, points), 0);
  ASSERT_EQ(points.size(), 1440u);
  double maxLat = 0.0;
  for (const auto& p : points) {
    EXPECT_GT(p.lla[2], 330e3);
    EXPECT_LT(p.lla[2], 380e3);
    const double speed = std::hypot(p.velocity[0], p.velocity[1], p.velocity[2]);
    // Earth-fixed frame turned at the sidereal angle: about 7.66 km/s give or take the earth's turn.
    EXPECT_NEAR(speed, 7.66e3, 0.5e3);
    EXPECT_NEAR(p.orientation[1], 0.0, 0.02);  // flies level
    EXPECT_GE(p.orientation[0], 0.0);
    EXPECT_LT(p.orientation[0], 2.0 * M_PI);
    maxLat = std::max(maxLat, std::fabs(p.lla[0]));
  }
  EXPECT_NEAR(maxLat, 51.6451 * DEG, 0.3 * DEG);
  // Starting at the epoch: the first point is the epoch's time of 2005.
  EXPECT_EQ(frame.referenceYear, 2005);
  EXPECT_NEAR(points.front().time, iss.epochTime(), 1e-6);
  EXPECT_NEAR(points[1].time - points[0].time, 60.0, 1e-9);
}

TEST(TleTrack, AStartYearAndSecondsStartEveryTrackThere) {
  PropagatorAIAA iss("ISS", kIss1, kIss2);
  TLE2ASI::TleSettings settings;
  settings.startYear = 2005;
  settings.startSeconds = 210.0 * 86400.0;
  TLE2ASI::TimeFrame frame = TLE2ASI::startTime(settings, iss);
  std::vector<TLE2ASI::TrackPoint> points;
  ASSERT_EQ(TLE2ASI::computeTrack(iss, 3, 60.0, frame, points), 0);
  EXPECT_NEAR(points[0].time, 210.0 * 86400.0, 1e-6);
  EXPECT_NEAR(points[0].secondsFromEpoch, (210.0 - 206.31276620) * 86400.0, 1e-3);

  // A start year before the reference year, or no seconds, is not a start.
  settings.startYear = 2004;
  EXPECT_TRUE(TLE2ASI::startTime(settings, iss).fromEpoch);
  settings.startYear = 2005;
  settings.startSeconds = 0.0;
  EXPECT_TRUE(TLE2ASI::startTime(settings, iss).fromEpoch);

  settings.useCurrentTime = true;
  frame = TLE2ASI::startTime(settings, iss);
  EXPECT_FALSE(frame.fromEpoch);
  EXPECT_GE(frame.referenceYear, 2024);
}

TEST(TleTrack, ASpanShorterThanOneStepHasNoPoints) {
  TLE2ASI::TleSettings settings;
  settings.span = 0.01;  // 36 s
  EXPECT_EQ(TLE2ASI::pointCount(settings), 0);
  settings.step = 0.0;
  settings.span = 24.0;
  EXPECT_EQ(TLE2ASI::pointCount(settings), 0);
}

TEST(TleTrack, EclipseDependsOnTheSunAndTheHorizonDepression) {
  // 21 June 2005 at noon: the sun stands over about 23.4 N, 0.4 E.
  double jd, frac;
  AIAA::jday(2005, 6, 21, 12, 0, 0.0, jd, frac);
  const double ut = jd + frac;
  const double tt = ut + 65.0 / 86400.0;
  const double subSolar[3] = {23.4 * DEG, 0.4 * DEG, 400e3};
  const double antiSolarLow[3] = {-23.4 * DEG, 180.4 * DEG, 400e3};
  const double antiSolarHigh[3] = {-23.4 * DEG, 180.4 * DEG, 36000e3};
  const double terminatorLow[3] = {0.0, 90.4 * DEG, 400e3};
  const double justPastTerminator[3] = {0.0, 105.0 * DEG, 400e3};
  const double groundPastTerminator[3] = {0.0, 100.0 * DEG, 0.0};
  EXPECT_FALSE(TLE2ASI::getEarthEclipse(tt, ut, subSolar));
  EXPECT_TRUE(TLE2ASI::getEarthEclipse(tt, ut, antiSolarLow));
  EXPECT_TRUE(TLE2ASI::getEarthEclipse(tt, ut, antiSolarHigh));
  // 400 km up the horizon lies about 20 degrees down: the sun is still seen
  // 15 degrees past the terminator, where the ground is dark.
  EXPECT_FALSE(TLE2ASI::getEarthEclipse(tt, ut, terminatorLow));
  EXPECT_FALSE(TLE2ASI::getEarthEclipse(tt, ut, justPastTerminator));
  EXPECT_TRUE(TLE2ASI::getEarthEclipse(tt, ut, groundPastTerminator));
}

}  // namespace
