// PlatformData: positions in each frame, Euler angles and quaternions, speed
// and velocity columns, and the creation or merge of the platform at its first
// good line.

#include <cmath>

#include "asi/LliResolver.h"
#include "core/VectorMath.h"
#include "test_platform_cmd_support.h"

using namespace PlatformCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;
const double PI = 3.141592653589793;

class PositionTest : public PlatformFixture {};
class OrientationTest : public PlatformFixture {};
class VelocityTest : public PlatformFixture {};
class CreationTest : public PlatformFixture {};

// A host that refuses some operations.
class RefusingHostTest : public PlatformFixture {
 protected:
  RefHost::HostConfig hostConfig() const override {
    RefHost::HostConfig config = PlatformFixture::hostConfig();
    config.refusals = {"createPlatform", "addDataPoint"};
    return config;
  }
};

}  // namespace

// --- position --------------------------------------------------------------

TEST_F(PositionTest, LlaIsRadiansUnlessDegreeAnglesIsSet) {
  start();
  declare(1, "ship");
  line("PlatformData 1 10 0.5 -1.0 100");
  HostPoint p = lastPoint(1);
  EXPECT_DOUBLE_EQ(10.0, p.time);
  EXPECT_DOUBLE_EQ(0.5, p.x);
  EXPECT_DOUBLE_EQ(-1.0, p.y);
  EXPECT_DOUBLE_EQ(100.0, p.z);
  // Radians are not range-checked; numbers may carry a sign, an exponent,
  // or underflow to zero.
  line("PlatformData 1 11 +3.0 7.0 -1e-400");
  EXPECT_DOUBLE_EQ(3.0, lastPoint(1).x);
  EXPECT_EQ(0.0, lastPoint(1).z);
  line("PlatformData 1 12 .5e1 0x10 0");
  EXPECT_THAT(texts(), ElementsAre("Line 5 PlatformData: Invalid platform position"));
  messages_.messages.clear();

  provider_->setIsDegrees(true);
  lines({"PlatformData 1 13 30 -60 5", "PlatformData 1 14 \"12 30 S\" 1e1 5"});
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(4u, all.size());
  EXPECT_NEAR(30 * DEG, all[2].x, 1e-12);
  EXPECT_NEAR(-60 * DEG, all[2].y, 1e-12);
  EXPECT_NEAR(-12.5 * DEG, all[3].x, 1e-12);
  EXPECT_NEAR(10 * DEG, all[3].y, 1e-12);
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(PositionTest, DegreePositionsAreRangeChecked) {
  start();
  provider_->setIsDegrees(true);
  declare(1, "ship");
  lines({"PlatformData 1 1 91 0 0", "PlatformData 1 2 -90.5 0 0", "PlatformData 1 3 0 361 0",
         "PlatformData 1 4 0 -361 0", "PlatformData 1 5 90 359 0", "PlatformData 1 6 -90 -359 0"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformData: Latitude position out of range",
                                   "Line 4 PlatformData: Latitude position out of range",
                                   "Line 5 PlatformData: Longitude position out of range",
                                   "Line 6 PlatformData: Longitude position out of range"));
  EXPECT_EQ(3, messages_.messages[0].severity);
  ASSERT_EQ(2u, points(1).size());
  EXPECT_DOUBLE_EQ(5.0, points(1)[0].time);

  // The range is checked before the altitude is read.
  messages_.messages.clear();
  lines({"PlatformData 1 7 91 0", "PlatformData 1 8 0 -400 deep", "PlatformData 1 9 45 0"});
  EXPECT_THAT(texts(), ElementsAre("Line 9 PlatformData: Latitude position out of range",
                                   "Line 10 PlatformData: Longitude position out of range",
                                   "Line 11 PlatformData: Invalid platform position"));
}

TEST_F(PositionTest, VersionTwoTakesSmallValuesAsRadiansAndOthersAsDegrees) {
  start(2);
  declare(1, "ship");
  lines({"PlatformData 1 1 2.5 -3.0 0", "PlatformData 1 2 30 1.0 0", "PlatformData 1 3 1.0 4.0 0",
         "PlatformData 1 4 100 east 0"});
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(3u, all.size());
  EXPECT_DOUBLE_EQ(2.5, all[0].x);
  EXPECT_DOUBLE_EQ(-3.0, all[0].y);
  // Either value out of the radian range sends both through the degree reader.
  EXPECT_NEAR(30 * DEG, all[1].x, 1e-12);
  EXPECT_NEAR(1.0 * DEG, all[1].y, 1e-12);
  EXPECT_NEAR(1.0 * DEG, all[2].x, 1e-12);
  EXPECT_NEAR(4.0 * DEG, all[2].y, 1e-12);
  EXPECT_THAT(texts(), ElementsAre("Line 6 PlatformData: Invalid platform position"));
}

TEST_F(PositionTest, OtherFramesArePlainNumbersAndTheFrameTravelsWithEachPoint) {
  start();
  provider_->setIsDegrees(true);
  declare(1, "ship");
  lines({"PlatformCoordSystem 1 ECEF", "PlatformData 1 1 6378137 -1e3 12.5", "PlatformCoordSystem 1 XEAST",
         "PlatformRefLLA 1 10 20 0", "PlatformData 1 2 400 500 -3"});
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(2u, all.size());
  EXPECT_DOUBLE_EQ(6378137.0, all[0].x);
  EXPECT_DOUBLE_EQ(-1000.0, all[0].y);
  EXPECT_DOUBLE_EQ(12.5, all[0].z);
  EXPECT_EQ(PIData::PI_COORD_ECEF, all[0].frame.at("coordSystem").get<int>());
  EXPECT_DOUBLE_EQ(0.5, all[0].frame.at("latitude").get<double>());
  // A frame change between two data lines affects the next one.
  EXPECT_DOUBLE_EQ(400.0, all[1].x);
  EXPECT_EQ(PIData::PI_COORD_XEAST, all[1].frame.at("coordSystem").get<int>());
  EXPECT_NEAR(10 * DEG, all[1].frame.at("latitude").get<double>(), 1e-12);
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(PositionTest, BadOrMissingColumnsAndBadLinesSendNothing) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 1 x 0 0", "PlatformData 1 2 0 0 z", "PlatformData 1 3 0.1 0.2", "PlatformData 1 4",
         "PlatformData 1", "PlatformData 9 5 0 0 0", "PlatformData one 5 0 0 0", "PlatformData 1 -2 0 0 0",
         "PlatformData 1 noon 0 0 0"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformData: Invalid platform position",
                                   "Line 4 PlatformData: Invalid platform position",
                                   "Line 5 PlatformData: Invalid platform position",
                                   "Line 6 PlatformData: Invalid platform position",
                                   "Line 7 PlatformData: Expecting at least 2 arguments",
                                   "Line 8 PlatformData: Could not find corresponding Platform ID",
                                   "Line 9 PlatformData: Expecting positive number for the Platform ID",
                                   "Line 10 PlatformData: Invalid time",
                                   "Line 11 PlatformData: Time format not recognized."));
  EXPECT_EQ(0u, hostPlatformCount());
  // An undeclared id is not parked for later.
  declare(9, "late");
  line("PlatformData 9 6 0 0 0");
  EXPECT_EQ(1u, points(9).size());
}

TEST_F(PositionTest, TimesInOtherFormsAndTheStaticMarker) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 -1 0 0 0", "PlatformData 1 01:00:30 0 0 0", "PlatformData 1 \"002 2005 00:00:01\" 0 0 0"});
  provider_->setReferenceYear(2005);
  provider_->setScenarioReferenceYear(2004);
  line("PlatformData 1 10 0 0 0");
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(4u, all.size());
  EXPECT_DOUBLE_EQ(-1.0, all[0].time);
  EXPECT_DOUBLE_EQ(3630.0, all[1].time);
  // Ordinal 2 of 2005 counted from the start of 1970.
  EXPECT_GT(all[2].time, 35.0 * 365 * 86400);
  // The file's year 2005 re-expressed in the host's 2004, a leap year.
  EXPECT_DOUBLE_EQ(10.0 + 366 * 86400.0, all[3].time);
  EXPECT_THAT(texts(), IsEmpty());
}

// --- orientation -------------------------------------------------------------

TEST_F(OrientationTest, EulerAnglesAreWrappedAndMissingOnesAreZero) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 1 0 0 0", "PlatformData 1 2 0 0 0 -1.0", "PlatformData 1 3 0 0 0 7.0 4.0 -0.5"});
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(3u, all.size());
  EXPECT_EQ(0.0, all[0].yaw);
  EXPECT_EQ(0.0, all[0].pitch);
  EXPECT_EQ(0.0, all[0].roll);
  EXPECT_NEAR(2 * PI - 1.0, all[1].yaw, 1e-12);
  EXPECT_EQ(0.0, all[1].pitch);
  EXPECT_NEAR(7.0 - 2 * PI, all[2].yaw, 1e-12);
  EXPECT_NEAR(4.0 - 2 * PI, all[2].pitch, 1e-12);
  EXPECT_DOUBLE_EQ(-0.5, all[2].roll);

  provider_->setIsDegrees(true);
  line("PlatformData 1 4 0 0 0 360 190 -90");
  const HostPoint p = lastPoint(1);
  EXPECT_EQ(0.0, p.yaw);
  EXPECT_NEAR(-170 * DEG, p.pitch, 1e-12);
  EXPECT_NEAR(-90 * DEG, p.roll, 1e-12);
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(OrientationTest, EachBadAngleHasItsOwnWarning) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 1 0 0 0 y", "PlatformData 1 2 0 0 0 0 p", "PlatformData 1 3 0 0 0 0 0 r"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformData: Invalid platform yaw/psi",
                                   "Line 4 PlatformData: Invalid platform pitch/theta",
                                   "Line 5 PlatformData: Invalid platform roll/phi"));
  EXPECT_EQ(0u, hostPlatformCount());
}

TEST_F(OrientationTest, QuaternionColumnsFollowTheOrderOfTheMode) {
  start();
  const orvCore::Vec3 euler(0.3, 0.2, 0.1);
  double q[4];
  orvCore::d3EulertoQ(euler, q);
  for (int mode = 0; mode < 4; ++mode) {
    SCOPED_TRACE(mode);
    const uint64_t id = 10 + mode;
    declare(id, "q" + std::to_string(mode));
    line("PlatformUsesQuaternion " + std::to_string(id) + " " + std::to_string(mode));
    // Column j holds component (j - mode) mod 4; scaled by 2 to show the
    // normalisation.
    std::string columns;
    for (int j = 0; j < 4; ++j) columns += " " + std::to_string(2.0 * q[(j - mode + 4) % 4]);
    line("PlatformData " + std::to_string(id) + " 1 0 0 0" + columns);
    const HostPoint p = lastPoint(id);
    EXPECT_NEAR(0.3, p.yaw, 1e-5);
    EXPECT_NEAR(0.2, p.pitch, 1e-5);
    EXPECT_NEAR(0.1, p.roll, 1e-5);
  }
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(OrientationTest, QuaternionModeNeedsFourColumnsElseEulerIsRead) {
  start();
  declare(1, "ship");
  lines({"PlatformUsesQuaternion 1 0", "PlatformData 1 1 0 0 0 0.5 0.25 0.125", "PlatformData 1 2 0 0 0 1 0 0 x"});
  EXPECT_DOUBLE_EQ(0.5, lastPoint(1).yaw);
  EXPECT_DOUBLE_EQ(0.125, lastPoint(1).roll);
  EXPECT_THAT(texts(), ElementsAre("Line 5 PlatformData: Invalid platform angles"));
}

// --- velocity ----------------------------------------------------------------

TEST_F(VelocityTest, TheColumnCountTellsSpeedFromVelocity) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 1 0 0 0 0 0 0", "PlatformData 1 2 0 0 0 0 0 0 10", "PlatformData 1 3 0 0 0 0 0 0 10 11",
         "PlatformData 1 4 0 0 0 0 0 0 1 2 3", "PlatformData 1 5 0 0 0 0 0 0 1 2 3 4"});
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(3u, all.size());
  // Nine tokens: no velocity.
  EXPECT_EQ(0.0, all[0].vx);
  EXPECT_EQ(0.0, all[0].vy);
  EXPECT_EQ(0.0, all[0].vz);
  // Ten: a speed along yaw 0 in the LLA (east-north-up) axes.
  EXPECT_NEAR(0.0, all[1].vx, 1e-12);
  EXPECT_DOUBLE_EQ(10.0, all[1].vy);
  // Twelve: the velocity itself.
  EXPECT_DOUBLE_EQ(1.0, all[2].vx);
  EXPECT_DOUBLE_EQ(2.0, all[2].vy);
  EXPECT_DOUBLE_EQ(3.0, all[2].vz);
  EXPECT_THAT(texts(),
              ElementsAre("Line 5 PlatformData: Platform velocity not set, verify # of columns match input",
                          "Line 7 PlatformData: Platform velocity not set, verify # of columns match input"));
}

TEST_F(VelocityTest, WithQuaternionsTheSpeedColumnMovesOneOn) {
  start();
  declare(1, "ship");
  lines({"PlatformUsesQuaternion 1 0", "PlatformData 1 1 0 0 0 1 0 0 0", "PlatformData 1 2 0 0 0 1 0 0 0 7",
         "PlatformData 1 3 0 0 0 1 0 0 0 7 8", "PlatformData 1 4 0 0 0 1 0 0 0 4 5 6"});
  std::vector<HostPoint> all = points(1);
  ASSERT_EQ(3u, all.size());
  EXPECT_EQ(0.0, all[0].vy);
  EXPECT_NEAR(7.0, std::hypot(all[1].vx, all[1].vy), 1e-12);
  EXPECT_DOUBLE_EQ(6.0, all[2].vz);
  EXPECT_THAT(texts(),
              ElementsAre("Line 6 PlatformData: Platform velocity not set, verify # of columns match input"));
}

TEST_F(VelocityTest, SpeedBecomesVelocityInTheAxesOfEachFrame) {
  start();
  provider_->setIsDegrees(true);
  const double v = 100.0;
  const double psi = 30 * DEG;
  const double theta = 10 * DEG;
  const double c = v * std::cos(psi) * std::cos(theta);
  const double s = v * std::sin(psi) * std::cos(theta);
  const double up = v * std::sin(theta);
  struct Case {
    const char* system;
    double x, y, z;
  };
  const Case cases[] = {{"NED", c, s, -up},  {"NWU", c, -s, up},  {"ENU", s, c, up},   {"LLA", s, c, up},
                        {"XEAST", s, c, up}, {"GTP", s, c, up},   {"ECEF", c, s, up},  {"ECI", c, s, up}};
  uint64_t id = 1;
  for (const Case& k : cases) {
    SCOPED_TRACE(k.system);
    declare(id, k.system);
    line("PlatformCoordSystem " + std::to_string(id) + " " + k.system);
    line("PlatformData " + std::to_string(id) + " 1 0 0 0 30 10 0 100");
    const HostPoint p = lastPoint(id);
    EXPECT_NEAR(k.x, p.vx, 1e-9);
    EXPECT_NEAR(k.y, p.vy, 1e-9);
    EXPECT_NEAR(k.z, p.vz, 1e-9);
    ++id;
  }
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(VelocityTest, BadSpeedVelocityOrFrameDropsThePoint) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 1 0 0 0 0 0 0 fast", "PlatformData 1 2 0 0 0 0 0 0 1 2 z", "PlatformCoordSystem 1 6",
         "PlatformData 1 3 0 0 0 0 0 0 5", "PlatformData 1 4 0 0 0 0 0 0 1 2 3"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformData: Invalid platform speed",
                                   "Line 4 PlatformData: Invalid platform velocity",
                                   "Line 6 PlatformData: Platform velocity generation, unsupported coordinate system:"));
  // A frame with no speed rule still takes a given velocity.
  ASSERT_EQ(1u, points(1).size());
  EXPECT_DOUBLE_EQ(4.0, points(1)[0].time);
}

// --- creation and merge --------------------------------------------------------

TEST_F(CreationTest, TheFirstGoodLineCreatesThePlatformAndReleasesWhatWaited) {
  start();
  lines({"PlatformType 1 ship", "PlatformID 1", "PlatformName 1 \"USS Test\"", "PlatformIcon 1 ship.opt",
         "PlatformInterpolate 1 1", "PlatformData 1 5 x 0 0"});
  EXPECT_EQ(0u, hostPlatformCount());
  EXPECT_FALSE(platform(1)->doesExist());
  lines({"PlatformData 1 10 0.1 0.2 3", "PlatformData 1 20 0.1 0.2 4"});
  const RefHost::HostObject* object = hostObject(1);
  ASSERT_NE(nullptr, object);
  EXPECT_EQ("USS Test", object->header.name);
  EXPECT_EQ("ship.opt", object->header.icon);
  EXPECT_TRUE(object->settings.at("interpolate").get<bool>());
  ASSERT_EQ(1u, object->data(RefHost::SERIES_CATEGORY).count());
  ASSERT_EQ(2u, points(1).size());
  EXPECT_DOUBLE_EQ(10.0, points(1)[0].time);
  EXPECT_DOUBLE_EQ(4.0, points(1)[1].z);
  EXPECT_FALSE(platform(1)->isMerging());
  EXPECT_TRUE(provider_->hasNonStaticIndependent());
  EXPECT_THAT(texts(), ElementsAre("Line 6 PlatformData: Invalid platform position"));
  EXPECT_EQ(0, provider_->didComplete(messages_));
}

TEST_F(CreationTest, APlatformWithoutANameIsNotCreated) {
  start();
  lines({"PlatformID 1", "PlatformData 1 10 0 0 0"});
  EXPECT_THAT(texts(), ElementsAre("Line 2 PlatformData: Platform definition missing call sign."));
  EXPECT_EQ(2, messages_.messages[0].severity);
  EXPECT_EQ(0u, hostPlatformCount());
}

TEST_F(CreationTest, AStaticFirstPointDoesNotCountAsNonStatic) {
  start();
  declare(1, "site");
  lines({"PlatformData 1 -1 0.1 0.2 0", "PlatformData 1 10 0.1 0.2 0"});
  EXPECT_TRUE(platform(1)->doesExist());
  EXPECT_EQ(2u, points(1).size());
  EXPECT_FALSE(provider_->hasNonStaticIndependent());
  EXPECT_EQ(-1, provider_->didComplete(messages_));
  EXPECT_THAT(texts(), ElementsAre("Must define at least one non-static independent entity"));
}

TEST_F(CreationTest, AMergedPlatformTakesTimedPointsOnlyAndDoesNotCount) {
  start();
  PIData::PIPlatformHeader header;
  header.name = "held";
  const uint64_t heldId = PIData::createPlatform(header, PIData::PIPlatformPoint());
  AsiInterface::LliResolver resolver("feed");
  resolver.setPlatformId(2, header, heldId);
  provider_->setResolver(&resolver);

  declare(2, "renamed");
  lines({"PlatformFHN 2 n", "PlatformData 2 -1 0.1 0.2 0"});
  EXPECT_EQ(heldId, platform(2)->uniqueId());
  EXPECT_TRUE(platform(2)->isMerging());
  // The static point is dropped; the parked affinity went out.
  EXPECT_EQ(1u, points(2).size());
  EXPECT_EQ(1u, hostObject(2)->data(RefHost::SERIES_CATEGORY).count());
  line("PlatformData 2 10 0.1 0.2 0");
  EXPECT_EQ(2u, points(2).size());
  EXPECT_EQ(1u, hostPlatformCount());
  EXPECT_EQ("held", hostObject(2)->header.name);
  EXPECT_FALSE(provider_->hasNonStaticIndependent());
}

TEST_F(RefusingHostTest, HostRefusalsAreReported) {
  start();
  declare(1, "ship");
  line("PlatformData 1 10 0 0 0");
  EXPECT_THAT(texts(),
              ElementsAre("Line 3 PlatformData: Failed to create platform; check console for error messages"));
  EXPECT_FALSE(platform(1)->doesExist());

  // A platform that exists, to which the host refuses points.
  platform(1)->setUniqueId(42);
  line("PlatformData 1 11 0 0 0");
  EXPECT_EQ("Line 4 PlatformData: Failed to add Platform data; check console for error messages", texts().back());
  EXPECT_EQ(3, messages_.messages.back().severity);
}
