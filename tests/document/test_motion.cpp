// Motions and interpolation: insertion by time, GetState before, at, between
// and after states for each motion kind, the short way round for angles, and
// the checks of AddState.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <vector>

#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"

namespace {

constexpr double kDeg = M_PI / 180.0;

MotionStateUD platformState(double t, double latDeg, double lonDeg, double alt, double yawDeg = 0) {
  const double pos[3] = {latDeg * kDeg, lonDeg * kDeg, alt};
  const double ori[3] = {yawDeg * kDeg, 0, 0};
  return MotionStateUD(t, pos, ori);
}

TEST(PlatformMotion, GetStateAroundTheStates) {
  LinearPlatMotionUD motion;
  MotionStateUD out;
  EXPECT_FALSE(motion.GetState(0, out));
  EXPECT_EQ(motion.StartTime(), UD_NO_TIME);
  EXPECT_EQ(motion.EndTime(), -987654321.0);

  motion.AddState(platformState(20, 10, 20, 2000));
  motion.AddState(platformState(10, 10, 10, 1000));
  EXPECT_EQ(motion.StartTime(), 10);
  EXPECT_FALSE(motion.GetState(5, out));

  ASSERT_TRUE(motion.GetState(15, out));
  EXPECT_EQ(out.time, 15);
  EXPECT_DOUBLE_EQ(out.alt, 1500);  // straight, not from the ECEF chord
  EXPECT_NEAR(out.lon / kDeg, 15, 0.05);

  ASSERT_TRUE(motion.GetState(20, out));
  EXPECT_EQ(out.time, 20);
  EXPECT_EQ(out.alt, 2000);
  // After the last state the platform stays there, at the state's time.
  ASSERT_TRUE(motion.GetState(99, out));
  EXPECT_EQ(out.time, 20);

  ASSERT_TRUE(motion.GetState(15, out, false));
  EXPECT_EQ(out.alt, 1000);
}

TEST(PlatformMotion, SameTimeReplacesAndEndPointExtends) {
  LinearPlatMotionUD motion;
  motion.AddState(platformState(1, 0, 0, 1));
  motion.AddState(platformState(1, 0, 0, 2));
  EXPECT_EQ(motion.Size(), 1u);
  EXPECT_EQ(motion.states().at(1).alt, 2);
  motion.AddEndPoint(50);
  EXPECT_EQ(motion.Size(), 2u);
  EXPECT_EQ(motion.states().at(50).alt, 2);
  motion.AddEndPoint(10);
  EXPECT_EQ(motion.Size(), 2u);
}

std::vector<double> timesOf(const LinearPlatMotionUD& motion) {
  std::vector<double> times;
  for (const MotionStateUD& state : motion.states()) times.push_back(state.time);
  return times;
}

// Files mostly arrive in time order, but not always: a state out of order,
// near the end or far back, lands in its place, and the last one given at a
// time is the one kept.
TEST(PlatformMotion, StatesInAnyOrderEndSortedWithTheLastAtEachTime) {
  LinearPlatMotionUD motion;
  for (int t = 0; t < 300; t += 2) motion.AddState(platformState(t, 0, 0, t));
  motion.AddState(platformState(297, 0, 0, 1));  // just behind the end
  motion.AddState(platformState(296, 0, 0, 7));  // replaces at once
  motion.AddState(platformState(1, 0, 0, 1));    // far back
  motion.AddState(platformState(100, 0, 0, 8));  // far back, replaces 100
  motion.AddState(platformState(100, 0, 0, 9));  // and again: the later stays
  motion.AddState(platformState(-0.5, 0, 0, 2)); // before the first
  EXPECT_EQ(motion.Size(), 153u);
  const std::vector<double> times = timesOf(motion);
  EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
  EXPECT_EQ(std::adjacent_find(times.begin(), times.end()), times.end());
  EXPECT_EQ(motion.StartTime(), -0.5);
  EXPECT_EQ(motion.EndTime(), 298);
  EXPECT_EQ(motion.states().at(100).alt, 9);
  EXPECT_EQ(motion.states().at(296).alt, 7);
  EXPECT_EQ(motion.states().at(297).alt, 1);
  MotionStateUD out;
  ASSERT_TRUE(motion.GetState(1.5, out));
  EXPECT_DOUBLE_EQ(out.alt, 1.5);  // between 1 (alt 1) and 2 (alt 2)
  ASSERT_TRUE(motion.GetPointBefore(1, out));
  EXPECT_EQ(out.time, 0);
  ASSERT_TRUE(motion.GetPointAfter(99, out));
  EXPECT_EQ(out.alt, 9);

  // Reverse order throughout, with a repeat, reads back the same way.
  LinearPlatMotionUD reversed;
  for (int t = 999; t >= 0; --t) reversed.AddState(platformState(t, 0, 0, t));
  reversed.AddState(platformState(500, 0, 0, -1));
  EXPECT_EQ(reversed.Size(), 1000u);
  EXPECT_EQ(reversed.states().at(500).alt, -1);
  EXPECT_EQ(reversed.states().at(501).alt, 501);
  EXPECT_EQ(reversed.EndPoint()->time, 999);

  EXPECT_TRUE(reversed.DeleteItem(500));
  EXPECT_FALSE(reversed.DeleteItem(500));
  EXPECT_EQ(reversed.states().find(500), nullptr);
  EXPECT_EQ(reversed.Size(), 999u);
}

// A long track spans many storage chunks: states added out of order, repeated
// and deleted anywhere in it read back as a map of time to last state would.
TEST(PlatformMotion, LongTrackInAnyOrderMatchesAMapOfTimes) {
  LinearPlatMotionUD motion;
  std::map<double, double> expected;  // time -> altitude of the last state given
  unsigned seed = 12345;
  auto next = [&seed](unsigned range) {
    seed = seed * 1103515245u + 12345u;
    return (seed >> 8) % range;
  };
  auto add = [&](double t, double alt) {
    motion.AddState(platformState(t, 0, 0, alt));
    expected[t] = alt;
  };
  for (int t = 0; t < 6000; ++t) {
    add(t, t);
    if (t % 7 == 0) add(next(t + 1), -t);          // anywhere behind, often a repeat
    if (t % 11 == 0) add(t - next(64) - 0.5, 2 * t);  // just behind the end
    if (t % 500 == 0 && motion.Size() > 0) {
      const double gone = next(t + 1);
      EXPECT_EQ(motion.DeleteItem(gone), expected.erase(gone) == 1);
    }
  }
  ASSERT_EQ(motion.Size(), expected.size());
  auto want = expected.begin();
  for (const MotionStateUD& state : motion.states()) {
    ASSERT_EQ(state.time, want->first);
    ASSERT_EQ(state.alt, want->second) << "at " << state.time;
    ++want;
  }
  MotionStateUD out;
  const double at = 4321.25;
  const auto after = expected.upper_bound(at);
  const auto before = std::prev(after);
  ASSERT_TRUE(motion.GetState(at, out));
  const double fraction = (at - before->first) / (after->first - before->first);
  EXPECT_DOUBLE_EQ(out.alt, before->second + fraction * (after->second - before->second));
}

TEST(PlatformMotion, ShiftedTimesKeepTheStates) {
  LinearPlatMotionUD motion;
  for (int t = 0; t < 5; ++t) motion.AddState(platformState(t, 0, 0, t));
  motion.shiftTimes(86400);
  EXPECT_EQ(timesOf(motion), (std::vector<double>{86400, 86401, 86402, 86403, 86404}));
  EXPECT_EQ(motion.states().at(86403).alt, 3);
}

TEST(PlatformMotion, YawTakesTheShortWayRound) {
  MotionStateUD out;
  InterpolateMotionStateUD(platformState(0, 0, 0, 0, 350), platformState(10, 0, 0, 0, 10), 5, out);
  EXPECT_NEAR(std::fmod(out.yaw, 2 * M_PI), 0.0, 1e-9);
  InterpolateMotionStateUD(platformState(0, 0, 0, 0, 10), platformState(10, 0, 0, 0, 350), 7.5, out);
  EXPECT_NEAR(out.yaw / kDeg, 355, 1e-9);
}

TEST(PlatformMotion, VelocitiesAndFlightPathFromPositions) {
  LinearPlatMotionUD motion;
  motion.AddState(platformState(0, 0, 0, 0));
  motion.AddState(platformState(100, 0.01, 0, 100));  // north and up
  motion.CalculateVelocities();
  const MotionStateUD& second = motion.states().at(100);
  EXPECT_NEAR(second.velNorth, 11.06, 0.05);
  EXPECT_NEAR(second.velUp, 1.0, 0.01);
  EXPECT_NEAR(second.velEast, 0.0, 1e-6);
  motion.CalculateFlightPathAnglePitch();
  EXPECT_NEAR(motion.states().at(100).pitch, std::atan2(1.0, 11.06), 0.01);

  // A level track stays level over a long step: the velocity follows the
  // surface (a degree of the equator at 5 km in 100 s), not the chord under it.
  LinearPlatMotionUD level;
  level.AddState(platformState(0, 0, 0, 5000));
  level.AddState(platformState(100, 0, 1, 5000));
  level.CalculateVelocities();
  level.CalculateFlightPathAnglePitch();
  for (const MotionStateUD& s : level.states()) {
    EXPECT_NEAR(s.velEast, (6378137.0 + 5000) * kDeg / 100, 1e-6);
    EXPECT_NEAR(s.velNorth, 0.0, 1e-9);
    EXPECT_EQ(s.velUp, 0.0);
    EXPECT_EQ(s.pitch, 0.0);
  }
  // A dense track keeps its speed: a metre a second north along the equator
  // (the meridian's radius of curvature there is a(1 - e^2)).
  LinearPlatMotionUD dense;
  for (int t = 0; t < 3; ++t) dense.AddState(platformState(t, t * 1e-5, 0, 0));
  dense.CalculateVelocities();
  EXPECT_NEAR(dense.states().at(2).velNorth, 6335439.327 * 1e-5 * kDeg, 1e-5);
}

TEST(PlatformMotion, CullKeepsEndsAndDropsStraightMiddles) {
  LinearPlatMotionUD motion;
  for (int t = 0; t <= 10; ++t) motion.AddState(platformState(t, 0, t * 1e-5, 0));
  motion.AddState(platformState(11, 5, 5, 0));
  motion.cull(1.0);
  EXPECT_LT(motion.Size(), 12u);
  EXPECT_EQ(motion.StartTime(), 0);
  EXPECT_EQ(motion.EndTime(), 11);
  EXPECT_NE(motion.states().find(11), nullptr);
}

TEST(BeamMotion, AfterTheLastStateReportsTheAskedTime) {
  LinearBeamMotionUD motion;
  motion.AddState(BeamStateUD(0, 100, 350 * kDeg, 0));
  motion.AddState(BeamStateUD(10, 200, 10 * kDeg, 10 * kDeg));
  BeamStateUD out;
  ASSERT_TRUE(motion.GetState(5, out));
  EXPECT_DOUBLE_EQ(out.range, 150);
  EXPECT_NEAR(std::fmod(out.azimuth, 2 * M_PI), 0, 1e-9);
  EXPECT_NEAR(out.elevation, 5 * kDeg, 1e-12);
  ASSERT_TRUE(motion.GetState(30, out));
  EXPECT_EQ(out.time, 30);
  EXPECT_EQ(out.range, 200);
}

TEST(BeamMotion, ZeroCrossing) {
  EXPECT_NEAR(checkZeroCrossing(0.5, 0.2, 0.1), 0.15, 1e-12);
  // Across the seam the value lies half way the short way round, above 2 pi.
  EXPECT_NEAR(checkZeroCrossing(0.5, 6.2, 0.1), 0.1 + 2 * M_PI - 0.5 * (2 * M_PI - 6.1), 1e-12);
  EXPECT_NEAR(checkZeroCrossing(0.5, 0.1, 6.2), 6.2 + 0.5 * (0.1 + 2 * M_PI - 6.2), 1e-12);
}

TEST(BeamMotion, BodyBeamTurnsWithItsHost) {
  BodyBeamMotionUD motion;
  motion.AddState(BeamStateUD(0, 100, 10 * kDeg, 0));
  BeamStateUD out;
  ASSERT_TRUE(motion.GetState(0, out, nullptr));
  EXPECT_NEAR(out.azimuth, 10 * kDeg, 1e-12);
  MotionStateUD host = platformState(0, 0, 0, 0, 90);
  ASSERT_TRUE(motion.GetState(0, out, &host));
  EXPECT_NEAR(out.azimuth / kDeg, 100, 1e-9);
}

TEST(BeamMotion, TargetBeamPointsAtTheTarget) {
  BeamStateUD out;
  const MotionStateUD host = platformState(0, 0, 0, 0);
  const MotionStateUD target = platformState(0, 0, 0.01, 0);  // due east
  ASSERT_TRUE(TargetBeamMotionUD::GetState(3, host, &target, out));
  EXPECT_NEAR(out.azimuth / kDeg, 90, 1e-6);
  EXPECT_NEAR(out.range, 1113.2, 1.0);
  EXPECT_FALSE(TargetBeamMotionUD::GetState(3, host, nullptr, out));
}

TEST(GateMotion, InterpolatesEveryValue) {
  LinearGateMotionUD motion;
  motion.AddState(GateStateUD(0, 0, 0, 1, 1, 100, 200, 150));
  motion.AddState(GateStateUD(10, 20 * kDeg, 0, 3, 1, 300, 400, 350));
  GateStateUD out;
  ASSERT_TRUE(motion.GetState(5, out));
  EXPECT_DOUBLE_EQ(out.width, 2);
  EXPECT_DOUBLE_EQ(out.minRange, 200);
  EXPECT_DOUBLE_EQ(out.centroid, 250);
  EXPECT_NEAR(out.azimuth, 10 * kDeg, 1e-12);
}

TEST(LobMotion, ManyBearingsPerTime) {
  LOBMotionUD motion;
  motion.addState(LOBStateUD(1, 100, 0.1, 0));
  motion.addState(LOBStateUD(1, 200, 0.2, 0));
  motion.addState(LOBStateUD(2, 300, 0.3, 0));
  EXPECT_EQ(motion.Size(), 3u);
  EXPECT_TRUE(motion.deleteState(1, 200, 0.2, 0));
  EXPECT_FALSE(motion.deleteState(1, 200, 0.2, 0));
  EXPECT_EQ(motion.Size(), 2u);
}

class PlatformStates : public ::testing::Test {
 protected:
  PlatformStates() : platform(new PlatformUD(&scenario, std::make_unique<PlatformHeaderUD>())) {
    platform->SetUniqueID(1);
    EXPECT_EQ(platform->AddToScenario(&scenario), 0);
  }
  ScenarioUD scenario;
  PlatformUD* platform;
  const double pos[3] = {0.1, 0.2, 10};
};

TEST_F(PlatformStates, AddStateChecksInOrder) {
  const double inf = std::numeric_limits<double>::infinity();
  const double huge[3] = {0.1, 0.2, 3.5e38};
  const double nanPos[3] = {NAN, 0, 0};
  const double badAngle[3] = {2 * M_PI + 0.0002, 0, 0};
  const double okAngle[3] = {2 * M_PI + 0.00005, 0, 0};
  const double badVelocity[3] = {0, inf, 0};
  EXPECT_EQ(platform->AddState(0, huge, nullptr, nullptr), UD_BAD_PLAT_POSITION);
  EXPECT_EQ(platform->AddState(0, nanPos, nullptr, nullptr), UD_BAD_PLAT_POSITION);
  EXPECT_EQ(platform->AddState(0, pos, badAngle, badVelocity), UD_BAD_PLAT_ANGLE);
  EXPECT_EQ(platform->AddState(0, pos, okAngle, badVelocity), UD_BAD_PLAT_VELOCITY);
  EXPECT_EQ(platform->AddState(0, pos, nullptr, nullptr, huge), UD_BAD_PLAT_ACCELERATION);
  EXPECT_EQ(platform->AddState(NAN, pos, nullptr, nullptr), UD_BAD_TIME_VALUE);
  EXPECT_EQ(platform->AddState(0, pos, okAngle, nullptr), UD_NO_ERROR);
  EXPECT_EQ(platform->AddState(-1, pos, nullptr, nullptr), UD_BAD_TIME_VALUE);
  EXPECT_FALSE(platform->isStatic());
}

TEST_F(PlatformStates, MinusOneFirstMakesTheplatformStatic) {
  ASSERT_EQ(platform->AddState(-1, pos, nullptr, nullptr), UD_NO_ERROR);
  EXPECT_TRUE(platform->isStatic());
  EXPECT_TRUE(platform->Active());
  EXPECT_EQ(platform->AddState(-5, pos, nullptr, nullptr), UD_NO_ERROR);
}

TEST_F(PlatformStates, SpeedFormBuildsVelocityAlongYaw) {
  const double ori[3] = {M_PI / 2, 0, 0};
  ASSERT_EQ(platform->AddState(5, pos, ori, 10.0), UD_NO_ERROR);
  const MotionStateUD& s = platform->Motion()->states().at(5);
  EXPECT_NEAR(s.velEast, 10, 1e-12);
  EXPECT_NEAR(s.velNorth, 0, 1e-12);
  EXPECT_NEAR(s.Speed(), 10, 1e-12);
  EXPECT_TRUE(platform->Motion()->hasVelocity());
  // Yaw -90 degrees heads west; a pitch of 30 degrees climbs.
  const double climbingWest[3] = {-M_PI / 2, M_PI / 6, 0};
  ASSERT_EQ(platform->AddState(7, pos, climbingWest, 10.0), UD_NO_ERROR);
  const MotionStateUD& west = platform->Motion()->states().at(7);
  EXPECT_NEAR(west.velEast, -10 * std::cos(M_PI / 6), 1e-12);
  EXPECT_NEAR(west.velNorth, 0, 1e-12);
  EXPECT_NEAR(west.velUp, 5, 1e-12);
  EXPECT_EQ(platform->AddState(-3, pos, ori, 10.0), UD_BAD_TIME_VALUE);
  // A bad speed is a bad velocity, checked after position and orientation.
  const double nanPos[3] = {NAN, 0, 0};
  const double badAngle[3] = {7, 0, 0};
  EXPECT_EQ(platform->AddState(6, nanPos, ori, NAN), UD_BAD_PLAT_POSITION);
  EXPECT_EQ(platform->AddState(6, pos, badAngle, 4e38), UD_BAD_PLAT_ANGLE);
  EXPECT_EQ(platform->AddState(6, pos, ori, 4e38), UD_BAD_PLAT_VELOCITY);
  EXPECT_EQ(platform->Motion()->Size(), 2u);
}

TEST_F(PlatformStates, GivenVelocitiesStandAndTheMarkTravelsWithCopiesOfTheState) {
  const double velocity[3] = {1, 2, 3};
  const double acceleration[3] = {4, 5, 6};
  const double north[3] = {0.1001, 0.2, 10};
  ASSERT_EQ(platform->AddState(0, pos, nullptr, velocity, acceleration), UD_NO_ERROR);
  ASSERT_EQ(platform->AddState(10, north, nullptr, nullptr), UD_NO_ERROR);
  LinearPlatMotionUD& motion = *platform->Motion();
  MotionStateUD copy = motion.states().at(0);
  MotionStateUD assigned;
  assigned = copy;
  copy.SetAcceleration(nullptr);  // dropping the acceleration keeps the mark
  for (const MotionStateUD* s : {&copy, &assigned}) EXPECT_TRUE(s->velocityGiven());
  ASSERT_NE(assigned.Acceleration(), nullptr);
  EXPECT_EQ(assigned.Acceleration()[2], 6.0);
  EXPECT_FALSE(motion.states().at(10).velocityGiven());

  motion.CalculateVelocities();
  EXPECT_EQ(motion.states().at(0).velNorth, 2.0);
  EXPECT_NEAR(motion.states().at(10).velNorth, 63.8, 0.5);  // 0.0001 rad north in 10 s
}

TEST(AngleChecks, Limits) {
  EXPECT_FALSE(udIsBadAngle(2 * M_PI + 0.00005));
  EXPECT_TRUE(udIsBadAngle(2 * M_PI + 0.0002));
  EXPECT_FALSE(udIsBadElevAngle(-M_PI / 2 - 0.00005));
  EXPECT_TRUE(udIsBadElevAngle(M_PI / 2 + 0.0002));
  EXPECT_TRUE(udIsFltMax(-3.5e38));
  EXPECT_FALSE(udIsFltMax(3.4e38));
  double yaw = -M_PI / 2, pitch = 3 * M_PI / 2, roll = 0;
  udFixOrientationAngles(yaw, pitch, roll);
  EXPECT_NEAR(yaw, 3 * M_PI / 2, 1e-12);
  EXPECT_NEAR(pitch, -M_PI / 2, 1e-12);
}

}  // namespace
