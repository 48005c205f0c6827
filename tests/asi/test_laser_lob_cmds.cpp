// Lasers and lines of bearing on platforms: declaration errors, creation at
// the first "LaserOri" or "LOBData" with what waited for it, the values the
// host receives, merging, host refusals, and the plot application, where
// both are dropped without a word.

#include <cmath>

#include "asi/LliResolver.h"
#include "test_drawable_cmd_support.h"

using namespace DrawableCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;

class LaserTest : public DrawableFixture {};
class LobTest : public DrawableFixture {};
class PlotHostTest : public PlotDrawableFixture {};

class RefusingHostTest : public RefusingDrawableFixture {};

}  // namespace

// --- lasers ----------------------------------------------------------------

TEST_F(LaserTest, DeclarationRefusesBadHostsIdsAndCounts) {
  startAll();
  platformWithData(1, "ship");
  lines({"Laser 1 10", "Laser x 10 l", "Laser 5 10 l", "Laser 1 y l", "Laser 1 10 des", "Laser 1 10 again",
         "Laser 10 11 onLaser", "LOBID 1 10"});
  EXPECT_THAT(
      texts(),
      ElementsAre("Line 4 Laser: Expecting 3 arguments", "Line 5 Laser: Expecting positive number for Host ID",
                  "Line 6 Laser: Missing host platform", "Line 7 Laser: Expecting positive number for the Laser ID",
                  "Line 9 Laser: Laser ID already used", "Line 10 Laser: Missing host platform",
                  "Line 11 LOBID: LOB ID already used"));
  EXPECT_EQ("des", provider_->getLaserEntity(10)->name());
}

TEST_F(LaserTest, OriCreatesTheLaserWithItsFrameAndSendsWhatWaitedInItsUnits) {
  startAll();
  provider_->setIsDegrees(true);
  platformWithData(1, "ship");
  lines({"Laser 1 10 designator", "LaserCoordSystem 10 NED", "LaserRefLLA 10 30 -80 5", "LaserAzElBody 10 no",
         "LaserWidth 10 5 2.9", "LaserMaxRange 10 6 1500", "LaserColor 10 5 red", "LaserOn 10 5 1",
         "LaserXYZOffset 10 5 1 2 -3"});
  EXPECT_EQ(nullptr, held(10));
  line("LaserOri 10 7 370 -10 190");
  EXPECT_THAT(texts(), IsEmpty());

  const RefHost::HostObject* laser = held(10);
  ASSERT_NE(nullptr, laser);
  EXPECT_EQ(held(1)->id, laser->parent);
  EXPECT_EQ("designator", laser->header.name);
  EXPECT_EQ(10u, laser->originalId);
  // Any text but "0" sets the body flag.
  EXPECT_TRUE(laser->header.body);
  const auto frame = nlohmann::json::parse(host_->scenario().frames().at(laser->header.frame));
  EXPECT_EQ(PIData::PI_COORD_NED, frame["coordSystem"]);
  EXPECT_NEAR(30 * DEG, frame["latitude"].get<double>(), 1e-12);
  EXPECT_EQ(5.0, frame["altitude"]);

  // Yaw wraps into [0, 360), roll into (-180, 180].
  const Records points = records(10, RefHost::SERIES_POINTS);
  ASSERT_EQ(1u, points.size());
  EXPECT_EQ(7.0, points[0][0]);
  EXPECT_NEAR(10 * DEG, points[0][1], 1e-12);
  EXPECT_NEAR(-10 * DEG, points[0][2], 1e-12);
  EXPECT_NEAR(-170 * DEG, points[0][3], 1e-12);
  // The width is truncated to whole pixels; the range arrives as the range.
  EXPECT_EQ((Records{{5, 2}}), records(10, RefHost::SERIES_LASER_WIDTH));
  EXPECT_EQ((Records{{6, 1500}}), records(10, RefHost::SERIES_LASER_MAX_RANGE));
  EXPECT_EQ((Records{{5, 1, 2, -3}}), records(10, RefHost::SERIES_LASER_OFFSET));
  EXPECT_EQ((Records{{5, double(0xFF000080u)}}), records(10, RefHost::SERIES_COLOR));
  EXPECT_EQ((Records{{5, 1}}), records(10, RefHost::SERIES_STATUS));

  // Radians when DegreeAngles is off.
  provider_->setIsDegrees(false);
  line("LaserOri 10 8 0.5 0.25 -0.25");
  EXPECT_EQ((std::vector<double>{8, 0.5, 0.25, -0.25}), records(10, RefHost::SERIES_POINTS).back());
}

TEST_F(LaserTest, WaitsForItsPlatformAndReportsWhatIsMissingAtTheEnd) {
  startAll();
  declare(1, "ship");
  lines({"Laser 1 10 des", "LaserOri 10 5 0 0 0"});
  EXPECT_EQ(nullptr, held(10));
  line("PlatformData 1 0 0.1 0.2 0");
  ASSERT_NE(nullptr, held(10));
  EXPECT_EQ(1u, records(10, RefHost::SERIES_POINTS).size());

  // No name; no LaserOri at all, however many other lines.
  lines({"Laser 1 11 \"\"", "LaserOri 11 5 0 0 0", "Laser 1 12 idle", "LaserWidth 12 5 3", "LaserWidth 12 6 4"});
  EXPECT_EQ(1, provider_->didComplete(messages_));
  EXPECT_THAT(texts(), ElementsAre("Line 7 LaserOri: Laser definition missing description.",
                                   "Incomplete definition for Laser 11", "Incomplete definition for Laser 12"));
}

TEST_F(LaserTest, BadValuesAreReportedAndSendNothing) {
  startAll();
  platformWithData(1, "ship");
  lines({"Laser 1 10 des", "LaserOri 10 1 0 0 0"});
  lines({"LaserOri 10 8 a 0 0", "LaserXYZOffset 10 8 1 x 3", "LaserMaxRange 10 8 far", "LaserWidth 10 8 wide",
         "LaserWidth 10 8 1e12", "LaserOn 10 8 yes", "LaserOri 99 8 0 0 0", "LaserOri 10 -2 0 0 0",
         "LaserCoordSystem 10 XYZ", "LaserRefLLA 10 91x 0 0", "LaserColor 10 8"});
  EXPECT_THAT(
      texts(),
      ElementsAre("Line 6 LaserOri: Invalid angles", "Line 7 LaserXYZOffset: Invalid coordinate",
                  "Line 8 LaserMaxRange: Invalid range", "Line 9 LaserWidth: Invalid width",
                  "Line 10 LaserWidth: Invalid width", "Line 11 LaserOn: Invalid flag",
                  "Line 12 LaserOri: Could not find corresponding Laser command", "Line 13 LaserOri: Invalid time",
                  "Line 14 LaserCoordSystem: Unrecognized argument for the CoordSystem",
                  "Line 15 LaserRefLLA: Invalid coordinates", "Line 16 LaserColor: Expecting 3 arguments"));
  EXPECT_EQ(3, messages_.messages[0].severity);
  EXPECT_EQ(2, messages_.messages[5].severity);
  const RefHost::HostObject* laser = held(10);
  ASSERT_NE(nullptr, laser);
  EXPECT_EQ(1u, laser->data(RefHost::SERIES_POINTS).count());
  for (RefHost::SeriesId s : {RefHost::SERIES_LASER_OFFSET, RefHost::SERIES_LASER_MAX_RANGE,
                              RefHost::SERIES_LASER_WIDTH, RefHost::SERIES_STATUS, RefHost::SERIES_COLOR})
    EXPECT_EQ(0u, laser->data(s).count()) << s;
}

TEST_F(LaserTest, AMergedLaserTakesTimedOrientationsOnly) {
  startAll();
  PIData::PIPlatformHeader platformHeader;
  platformHeader.name = "held";
  const uint64_t platformId = PIData::createPlatform(platformHeader, PIData::PIPlatformPoint());
  PIData::PILaserHeader laserHeader;
  laserHeader.name = "old";
  const uint64_t laserId = PIData::createLaser(platformId, laserHeader, 10);
  AsiInterface::LliResolver resolver("feed");
  resolver.setPlatformId(1, platformHeader, platformId);
  resolver.setLaserId(platformId, 10, laserHeader, 10, laserId);
  provider_->setResolver(&resolver);

  platformWithData(1, "ship");
  lines({"Laser 1 10 new", "LaserWidth 10 4 3", "LaserOri 10 -1 0 0 0", "LaserOri 10 -1 1 0 0", "LaserOri 10 5 0 0 0"});
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_EQ(laserId, provider_->getLaserEntity(10)->uniqueId());
  EXPECT_EQ(1u, hostCount(RefHost::KIND_LASER));
  EXPECT_EQ("old", held(10)->header.name);
  // The orientation of the merging line went out; a later static one did not.
  const Records points = records(10, RefHost::SERIES_POINTS);
  ASSERT_EQ(2u, points.size());
  EXPECT_EQ(-1.0, points[0][0]);
  EXPECT_EQ(5.0, points[1][0]);
  EXPECT_EQ(1u, records(10, RefHost::SERIES_LASER_WIDTH).size());
}

TEST_F(LaserTest, TimesOfAnotherYearAreMovedIntoTheHostsYear) {
  startAll();
  provider_->setScenarioReferenceYear(2000);
  provider_->setReferenceYear(2000);
  platformWithData(1, "ship");
  // The host holds 2000; the lines below are in 2001, then in 1999.
  provider_->setReferenceYear(2001);
  lines({"Laser 1 10 des", "LaserOri 10 5 0 0 0", "LOBID 1 20", "LOBDesc 20 d", "LOBType 20 absolute",
         "LOBData 20 5 0 0 1", "Projector 1 1 p", "ProjectorRasterFile 1 a.png", "ProjectorFOV 1 5 0.5",
         "LaserOri 10 -1 0 0 0"});
  const double year = 366 * 86400.0;
  EXPECT_EQ(5 + year, records(10, RefHost::SERIES_POINTS)[0][0]);
  EXPECT_EQ(-1.0, records(10, RefHost::SERIES_POINTS)[1][0]);
  EXPECT_EQ(5 + year, records(20, RefHost::SERIES_POINTS)[0][0]);
  EXPECT_EQ(5 + year, records(1, RefHost::SERIES_PROJECTOR_FOV, true)[0][0]);

  provider_->setReferenceYear(1999);
  lines({"LaserOri 10 5 0 0 0", "LOBData 20 5 0 0 1", "ProjectorFOV 1 5 0.5"});
  const std::string invalid = "Time invalid with respect to the current scenario time.";
  EXPECT_THAT(texts(), ElementsAre("Line 14 LaserOri: " + invalid, "Line 15 LOBData: " + invalid,
                                   "Line 16 ProjectorFOV: " + invalid));
}

// --- lines of bearing --------------------------------------------------------

TEST_F(LobTest, TheFirstDataLineCreatesTheGroupWithItsTypeAndStyles) {
  startAll();
  provider_->setIsDegrees(true);
  platformWithData(1, "ship");
  lines({"LOBID 1 20", "LOBDesc 20 \"DF fan\"", "LOBType 20 Relative", "LOBDrawStyle 20 4 red 0x80FF0000 0xF0F0 ff00 3",
         "LOBData 20 5 -90 190 2000"});
  EXPECT_THAT(texts(), IsEmpty());
  const RefHost::HostObject* lob = held(20);
  ASSERT_NE(nullptr, lob);
  EXPECT_EQ(held(1)->id, lob->parent);
  EXPECT_EQ("DF fan", lob->header.name);
  EXPECT_EQ(PIData::PI_LOB_RELATIVE, lob->header.lobType);
  EXPECT_EQ(20u, lob->originalId);
  // Colours in the host's order; stipples are hexadecimal with or without "0x".
  EXPECT_EQ((Records{{4, double(0xFF000080u), double(0x0000FF80u), double(0xF0F0), double(0xFF00), 3}}),
            records(20, RefHost::SERIES_LOB_DRAW_STYLE));
  const Records points = records(20, RefHost::SERIES_POINTS);
  ASSERT_EQ(1u, points.size());
  EXPECT_NEAR(270 * DEG, points[0][1], 1e-12);
  EXPECT_NEAR(-170 * DEG, points[0][2], 1e-12);
  EXPECT_EQ(2000.0, points[0][3]);
}

TEST_F(LobTest, ATypeIsRequiredInEveryVersionAndGivenOnce) {
  startAll(2);
  platformWithData(1, "ship");
  lines({"LOBID 1 20", "LOBDesc 20 a", "LOBData 20 5 0 0 100", "LOBType 20 sideways", "LOBType 20 relative",
         "LOBData 20 6 0 0 100", "LOBID 1 21", "LOBType 21 absolute", "LOBData 21 5 0 0 100"});
  EXPECT_THAT(texts(),
              ElementsAre("Line 6 LOBData: Must specify a LOB type via a LOBType command",
                          "Line 7 LOBType: Invalid LOB type", "Line 8 LOBType: Can only specified the command once",
                          "Line 12 LOBData: LOB definition missing description."));
  // The rejected word used up the one LOBType: the group is absolute.
  ASSERT_NE(nullptr, held(20));
  EXPECT_EQ(PIData::PI_LOB_ABSOLUTE, held(20)->header.lobType);
  EXPECT_EQ(nullptr, held(21));
}

TEST_F(LobTest, BadValuesAndUnknownIds) {
  startAll();
  platformWithData(1, "ship");
  lines({"LOBID 2 22", "LOBID 1 z", "LOBID 1 20", "LOBDesc 99 x", "LOBType 20 absolute", "LOBDesc 20 d",
         "LOBData 20 5 x 0 0", "LOBData 20 5 0 0 far", "LOBDrawStyle 20 5 red red 0 0 -3",
         "LOBDrawStyle 20 5 red red 0 0"});
  EXPECT_THAT(
      texts(),
      ElementsAre("Line 4 LOBID: Missing host platform", "Line 5 LOBID: Expecting positive number for the LOB ID",
                  "Line 7 LOBDesc: Could not find corresponding LOB ID command", "Line 10 LOBData: Invalid coordinates",
                  "Line 11 LOBData: Invalid coordinates", "Line 12 LOBDrawStyle: Invalid pixel width",
                  "Line 13 LOBDrawStyle: Expecting 7 arguments"));
  EXPECT_EQ(0u, hostCount(RefHost::KIND_LOB));
}

// --- refusals and the plot application ----------------------------------------

TEST_F(RefusingHostTest, EveryRefusalIsReported) {
  startAll();
  platformWithData(1, "ship");
  lines({"Laser 1 10 des", "LaserOri 10 5 0 0 0", "LOBID 1 20", "LOBDesc 20 d", "LOBType 20 absolute",
         "LOBData 20 5 0 0 1"});
  // Objects the host does not hold refuse their data.
  provider_->getLaserEntity(10)->setUniqueId(999);
  provider_->getLobEntity(20)->setUniqueId(999);
  lines({"LaserOri 10 5 0 0 0", "LaserXYZOffset 10 5 0 0 0", "LaserMaxRange 10 5 1", "LaserWidth 10 5 1",
         "LaserColor 10 5 red", "LaserOn 10 5 1", "LOBData 20 5 0 0 1", "LOBDrawStyle 20 5 red red 0 0 1"});
  EXPECT_THAT(
      texts(),
      ElementsAre("Line 5 LaserOri: Failed to create Laser; check console for error messages",
                  "Line 9 LOBData: Failed to create LOB; check console for error messages",
                  "Line 10 LaserOri: Failed to add Laser Orientation Data Point; check console for error messages",
                  "Line 11 LaserXYZOffset: Failed to add Laser Offset Data Point; check console for error messages",
                  "Line 12 LaserMaxRange: Failed to add Laser Max Range Data Point; check console for error messages",
                  "Line 13 LaserWidth: Failed to add Laser Width Data Point; check console for error messages",
                  "Line 14 LaserColor: Failed to set Laser color; check console for error messages",
                  "Line 15 LaserOn: Failed to set Laser status; check console for error messages",
                  "Line 16 LOBData: Failed to add LOB Group data; check console for error messages",
                  "Line 17 LOBDrawStyle: Failed to add LOB Group draw style; check console for error messages"));
  EXPECT_EQ(2, messages_.messages[0].severity);
  EXPECT_EQ(3, messages_.messages[2].severity);
}

TEST_F(PlotHostTest, DrawablesTakeTheirCommandsSendNothingAndAreNotIncomplete) {
  startAll(24, PICommon::PI_HOST_KURVEX);
  platformWithData(1, "ship");
  lines({"Laser 1 10 des", "LaserOri 10 5 0 0 0", "LaserWidth 10 5 2", "Laser 1 11 neverOriented", "LOBID 1 20",
         "LOBType 20 absolute", "LOBDesc 20 df", "LOBData 20 5 0 0 100", "LOBID 1 21", "Projector 1 1 lamp",
         "ProjectorRasterFile 1 a.png", "ProjectorFOV 1 5 0.5", "CustomRendering 0 30 cr r",
         "CustomRenderingColor 30 5 red"});
  EXPECT_THAT(texts(), IsEmpty());
  for (RefHost::ObjectKind kind :
       {RefHost::KIND_LASER, RefHost::KIND_LOB, RefHost::KIND_PROJECTOR, RefHost::KIND_CUSTOM_RENDERING})
    EXPECT_EQ(0u, hostCount(kind)) << kind;
  EXPECT_TRUE(provider_->getLaserEntity(11)->ignore());
  EXPECT_EQ(0, provider_->didComplete(messages_));
  EXPECT_THAT(texts(), IsEmpty());
}
