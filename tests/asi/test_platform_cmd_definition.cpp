// The platform commands that declare and fill a platform before its data:
// PlatformID with the scenario flush, name and icon, the frame commands, the
// quaternion mode, the settings that wait for creation, and the commands that
// may come before the ID line.

#include <cmath>
#include <fstream>

#include "asi/LliResolver.h"
#include "test_platform_cmd_support.h"

using namespace PlatformCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;

class PlatformIdTest : public PlatformFixture {};
class PlatformNameTest : public PlatformFixture {};
class PlatformFrameTest : public PlatformFixture {};
class PlatformSettingTest : public PlatformFixture {};
class PlatformByIdTest : public PlatformFixture {};

}  // namespace

// --- PlatformID --------------------------------------------------------------

TEST_F(PlatformIdTest, TakesTheScenarioFrameAsItStandsAtItsLineAndFlushesItOnce) {
  start();
  line("PlatformID 1");
  PIData::PICoordReferenceFrame moved;
  provider_->referenceFrame(moved);
  moved.latitude = 0.7;
  provider_->setReferenceFrame(moved);
  line("PlatformID 2");

  EXPECT_DOUBLE_EQ(0.5, frameOf(1).latitude);
  EXPECT_DOUBLE_EQ(0.7, frameOf(2).latitude);
  EXPECT_EQ(PIData::PI_COORD_LLA, frameOf(1).coordSystem);
  // The origin went to the host at the first ID line and was not sent again.
  ASSERT_TRUE(host_->scenario().settings().originLLA.has_value());
  EXPECT_DOUBLE_EQ(0.5, (*host_->scenario().settings().originLLA)[0]);
  EXPECT_DOUBLE_EQ(-1.2, (*host_->scenario().settings().originLLA)[1]);
  EXPECT_TRUE(provider_->hasScenarioFlushed());
  EXPECT_EQ(1u, platform(1)->originalId());
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(PlatformIdTest, RefusesABadCountABadNumberAndATakenId) {
  start();
  lines({"PlatformID", "PlatformID 1 2", "PlatformID one", "PlatformID -3", "PlatformID 4", "PlatformID 4"});
  EXPECT_THAT(texts(), ElementsAre("Line 1 PlatformID: Expecting 1 argument", "Line 2 PlatformID: Expecting 1 argument",
                                   "Line 3 PlatformID: Expecting 1 positive number for the Platform ID command",
                                   "Line 4 PlatformID: Expecting 1 positive number for the Platform ID command",
                                   "Line 6 PlatformID: Platform ID already used"));
  EXPECT_NE(nullptr, platform(4));
  EXPECT_EQ(nullptr, platform(1));
}

TEST_F(PlatformIdTest, AnIncompleteFrameIsAnErrorWithoutLinePrefixAtEveryIdLine) {
  start(24, false);
  lines({"PlatformID 1", "PlatformID 2"});
  EXPECT_THAT(texts(), ElementsAre("Must specify coordinate system via CoordSystem command",
                                   "Must specify coordinate system via CoordSystem command"));
  EXPECT_EQ(0u, messages_.messages[0].line);
  EXPECT_EQ(2, messages_.messages[0].severity);
  // The platform is declared all the same.
  EXPECT_NE(nullptr, platform(2));

  provider_->setCoordSystem(PIData::PI_COORD_LLA);
  line("PlatformID 3");
  EXPECT_EQ("Must specify reference origin via the RefLLA command", texts().back());
  EXPECT_FALSE(provider_->hasScenarioFlushed());
}

// --- name and icon -----------------------------------------------------------

TEST_F(PlatformNameTest, WordsAreJoinedTrimmedAndStrippedOfDoubleQuotes) {
  start();
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"PlatformName 1 USS   Enterprise", "USS Enterprise"},
      {"PlatformName 1 \"  two  blanks \"", "two  blanks"},
      {"PlatformName 1 'say \"hi\"'", "say hi"},
      {"PlatformName 1 a\"b", "ab"},
      {"PlatformName 1 \"\"", "None"},
      {"PlatformName 1 '\"'", "None"},
      {"PlatformName 1 'a#b'", "a#b"},
      {"PlatformName 1 a#b", "a"},
  };
  line("PlatformID 1");
  for (const auto& c : cases) {
    line(c.first);
    EXPECT_EQ(c.second, platform(1)->name()) << c.first;
  }
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(PlatformNameTest, TheLastNameAndIconBeforeCreationReachTheHeader) {
  start();
  lines({"PlatformID 1", "PlatformName 1 first", "PlatformIcon 1 ship.opt", "PlatformName 1 second",
         "PlatformData 1 10 0.1 0.2 0", "PlatformName 1 third", "PlatformIcon 1 other.opt"});
  const RefHost::HostObject* object = hostObject(1);
  ASSERT_NE(nullptr, object);
  EXPECT_EQ("second", object->header.name);
  EXPECT_EQ("ship.opt", object->header.icon);
  EXPECT_EQ(1u, object->originalId);
}

TEST_F(PlatformNameTest, ArgumentAndLookupErrors) {
  start();
  lines({"PlatformID 1", "PlatformName 1", "PlatformName x ship", "PlatformName 2 ship", "PlatformIcon 1",
         "PlatformIcon 1 a b", "PlatformIcon 3 a"});
  EXPECT_THAT(texts(), ElementsAre("Line 2 PlatformName: Expecting at least 2 arguments",
                                   "Line 3 PlatformName: Expecting positive number for the Platform ID",
                                   "Line 4 PlatformName: Could not find corresponding Platform ID",
                                   "Line 5 PlatformIcon: Expecting 2 arguments",
                                   "Line 6 PlatformIcon: Expecting 2 arguments",
                                   "Line 7 PlatformIcon: Could not find corresponding Platform ID"));
  EXPECT_EQ("", platform(1)->name());
}

TEST_F(PlatformNameTest, QuaternionModeTakesZeroToThree) {
  start();
  lines({"PlatformID 1", "PlatformUsesQuaternion 1 2"});
  EXPECT_EQ(2, platform(1)->quaternion());
  EXPECT_TRUE(platform(1)->usingQuaternion());
  lines({"PlatformUsesQuaternion 1 x", "PlatformUsesQuaternion 1 4", "PlatformUsesQuaternion 1 -1",
         "PlatformUsesQuaternion 1"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformUsesQuaternion: Invalid number",
                                   "Line 4 PlatformUsesQuaternion: Invalid type",
                                   "Line 5 PlatformUsesQuaternion: Invalid type",
                                   "Line 6 PlatformUsesQuaternion: Expecting 2 arguments"));
  EXPECT_EQ(2, platform(1)->quaternion());
  EXPECT_EQ(2, messages_.messages[0].severity);
}

// --- frame commands ------------------------------------------------------------

TEST_F(PlatformFrameTest, EachCommandChangesOnlyItsPlatformsFrame) {
  start();
  lines({"PlatformID 1", "PlatformID 2", "PlatformCoordSystem 1 ned", "PlatformRefLLA 1 10 \"20 30 W\" 30",
         "PlatformTangentPlaneOffset 1 100 -200 90", "PlatformReferenceTimeECI 1 3600.5",
         "PlatformMagneticVariance 1 -12", "PlatformVerticalDatum 1 12.5"});
  EXPECT_THAT(texts(), IsEmpty());
  const PIData::PICoordReferenceFrame f = frameOf(1);
  EXPECT_EQ(PIData::PI_COORD_NED, f.coordSystem);
  EXPECT_NEAR(10 * DEG, f.latitude, 1e-12);
  EXPECT_NEAR(-20.5 * DEG, f.longitude, 1e-12);
  EXPECT_DOUBLE_EQ(30.0, f.altitude);
  EXPECT_DOUBLE_EQ(100.0, f.tangentPlaneX);
  EXPECT_DOUBLE_EQ(-200.0, f.tangentPlaneY);
  EXPECT_NEAR(90 * DEG, f.tangentPlaneAngle, 1e-12);
  EXPECT_DOUBLE_EQ(3600.5, f.eciReferenceTime);
  EXPECT_EQ(PIData::PI_MAGVAR_USER, f.magneticVariance);
  EXPECT_NEAR(-12 * DEG, f.magneticVarianceOffset, 1e-12);
  EXPECT_EQ(PIData::PI_VDATUM_USER, f.verticalDatum);
  EXPECT_DOUBLE_EQ(12.5, f.verticalDatumOffset);

  // The other platform and the scenario keep theirs.
  EXPECT_EQ(PIData::PI_COORD_LLA, frameOf(2).coordSystem);
  EXPECT_DOUBLE_EQ(0.5, frameOf(2).latitude);
  PIData::PICoordReferenceFrame scenario;
  provider_->referenceFrame(scenario);
  EXPECT_DOUBLE_EQ(0.5, scenario.latitude);
}

TEST_F(PlatformFrameTest, BadArgumentsLeaveTheFrameAsItWas) {
  start();
  lines({"PlatformID 1", "PlatformReferenceTimeECI 1 100", "PlatformCoordSystem 1 10", "PlatformCoordSystem 1 polar",
         "PlatformRefLLA 1 10 20 high", "PlatformRefLLA 1 north 20 0", "PlatformTangentPlaneOffset 1 1 2 east",
         "PlatformTangentPlaneOffset 1 x 2 3", "PlatformReferenceTimeECI 1 noon", "PlatformMagneticVariance 1 up",
         "PlatformVerticalDatum 1 sea", "PlatformRefLLA 1 10 20", "PlatformCoordSystem 3 LLA"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformCoordSystem: Unrecognized argument for the CoordSystem",
                                   "Line 4 PlatformCoordSystem: Unrecognized argument for the CoordSystem",
                                   "Line 5 PlatformRefLLA: Invalid coordinates",
                                   "Line 6 PlatformRefLLA: Invalid coordinates",
                                   "Line 7 PlatformTangentPlaneOffset: Invalid coordinates",
                                   "Line 8 PlatformTangentPlaneOffset: Invalid coordinates",
                                   "Line 9 PlatformReferenceTimeECI: Expecting only 1 double argument",
                                   "Line 10 PlatformMagneticVariance: Unknown argument",
                                   "Line 11 PlatformVerticalDatum: Unknown argument",
                                   "Line 12 PlatformRefLLA: Expecting 4 arguments",
                                   "Line 13 PlatformCoordSystem: Could not find corresponding Platform ID"));
  std::vector<int> severities;
  for (const AsiTest::Message& m : messages_.messages) severities.push_back(m.severity);
  EXPECT_THAT(severities, ElementsAre(2, 2, 2, 2, 2, 2, 2, 2, 2, 3, 2));
  const PIData::PICoordReferenceFrame f = frameOf(1);
  EXPECT_EQ(PIData::PI_COORD_LLA, f.coordSystem);
  EXPECT_DOUBLE_EQ(0.5, f.latitude);
  EXPECT_DOUBLE_EQ(0.0, f.altitude);
  EXPECT_DOUBLE_EQ(0.0, f.tangentPlaneX);
  EXPECT_DOUBLE_EQ(100.0, f.eciReferenceTime);
  EXPECT_EQ(PIData::PI_MAGVAR_TRUE, f.magneticVariance);
  EXPECT_EQ(PIData::PI_VDATUM_WGS84, f.verticalDatum);
}

TEST_F(PlatformFrameTest, AnEciTimeOutsideTheDayWarnsAndStoresZero) {
  start();
  lines({"PlatformID 1", "PlatformReferenceTimeECI 1 86400", "PlatformReferenceTimeECI 1 90000"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformReferenceTimeECI: Invalid Platform ECI reference time value, "
                                   "valid range is 0 to 86400"));
  EXPECT_EQ(3, messages_.messages[0].severity);
  EXPECT_DOUBLE_EQ(0.0, frameOf(1).eciReferenceTime);
  line("PlatformReferenceTimeECI 1 -0.5");
  EXPECT_EQ(2u, texts().size());
}

// --- settings that wait for creation -------------------------------------------

TEST_F(PlatformSettingTest, InterpolationAndOffsetsWaitForCreation) {
  start();
  declare(1, "ship");
  lines({"PlatformInterpolate 1 5", "PlatformOffset 1 1 2 3", "PlatformOriOffset 1 90 0 -90",
         "PlatformInterpolateOri 1 0"});
  ASSERT_EQ(0u, hostPlatformCount());
  line("PlatformData 1 10 0.1 0.2 0");
  const RefHost::HostObject* object = hostObject(1);
  ASSERT_NE(nullptr, object);
  // Parked in file order: the last interpolation flag wins.
  EXPECT_EQ(false, object->settings.at("interpolate").get<bool>());
  EXPECT_EQ(nlohmann::json::array({1.0, 2.0, 3.0}), object->settings.at("offset"));
  const nlohmann::json& ori = object->settings.at("orientationOffset");
  EXPECT_NEAR(90 * DEG, ori[0].get<double>(), 1e-12);
  EXPECT_NEAR(-90 * DEG, ori[2].get<double>(), 1e-12);

  // Once the platform exists they go at once.
  line("PlatformInterpolate 1 1");
  EXPECT_EQ(true, hostObject(1)->settings.at("interpolate").get<bool>());
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(PlatformSettingTest, ArgumentErrorsNameTheirKeyword) {
  start();
  declare(1, "ship");
  lines({"PlatformInterpolateOri 1 x", "PlatformInterpolate 1 -1", "PlatformInterpolate 1", "PlatformOffset 1 a 2 3",
         "PlatformOffset 9 a 2 3", "PlatformOffset 9 1 2 3", "PlatformOriOffset 1 1 2", "PlatformInterpolate 9 1"});
  EXPECT_THAT(texts(), ElementsAre("Line 3 PlatformInterpolateOri: Expecting only 1 integer argument",
                                   "Line 4 PlatformInterpolate: Expecting only 1 integer argument",
                                   "Line 5 PlatformInterpolate: Expecting 2 arguments",
                                   "Line 6 PlatformOffset: Invalid point",
                                   // the numbers are read before the id is looked up
                                   "Line 7 PlatformOffset: Invalid point",
                                   "Line 8 PlatformOffset: Could not find corresponding Platform ID",
                                   "Line 9 PlatformOriOffset: Expecting 4 arguments",
                                   "Line 10 PlatformInterpolate: Could not find corresponding Platform ID"));
  line("PlatformData 1 10 0.1 0.2 0");
  EXPECT_FALSE(hostObject(1)->settings.contains("offset"));
  EXPECT_FALSE(hostObject(1)->settings.contains("interpolate"));
}

TEST_F(PlatformSettingTest, AMergedPlatformKeepsTheHostsSettings) {
  start();
  PIData::PIPlatformHeader header;
  header.name = "held";
  PIData::PIPlatformPoint first;
  const uint64_t heldId = PIData::createPlatform(header, first);
  AsiInterface::LliResolver resolver("feed");
  resolver.setPlatformId(1, header, heldId);
  provider_->setResolver(&resolver);

  declare(1, "held");
  lines({"PlatformInterpolate 1 1", "PlatformOffset 1 1 2 3", "PlatformData 1 10 0.1 0.2 0",
         "PlatformOriOffset 1 1 2 3"});
  EXPECT_EQ(heldId, platform(1)->uniqueId());
  EXPECT_TRUE(platform(1)->isMerging());
  EXPECT_EQ(1u, hostPlatformCount());
  const RefHost::HostObject* object = host_->scenario().find(heldId);
  EXPECT_FALSE(object->settings.contains("interpolate"));
  EXPECT_FALSE(object->settings.contains("offset"));
  EXPECT_FALSE(object->settings.contains("orientationOffset"));
  EXPECT_EQ(2u, object->data(RefHost::SERIES_POINTS).count());
  EXPECT_THAT(texts(), IsEmpty());
}

// --- commands that may precede the ID line ---------------------------------------

TEST_F(PlatformByIdTest, TypeAndAffinityBeforeTheIdWaitAndAreSentAfterCreation) {
  start();
  lines({"PlatformType 5 aircraft", "PlatformFHN 5 h", "PlatformID 5", "PlatformName 5 jet"});
  EXPECT_EQ(nullptr, hostObject(5));
  line("PlatformData 5 10 0.1 0.2 0");
  using Entry = std::tuple<double, std::string, std::string>;
  EXPECT_THAT(categories(5), ElementsAre(Entry{-1.0, "Platform Type", "Aircraft"}, Entry{-1.0, "Affinity", "Hostile"}));
  lines({"PlatformType 5 3", "PlatformFHN 5 F", "PlatformFHN 5 n"});
  EXPECT_THAT(categories(5), ElementsAre(Entry{-1.0, "Platform Type", "Aircraft"}, Entry{-1.0, "Affinity", "Hostile"},
                                         Entry{-1.0, "Platform Type", "Aircraft"}, Entry{-1.0, "Affinity", "Friendly"},
                                         Entry{-1.0, "Affinity", "Neutral"}));
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_EQ(0, provider_->didComplete(messages_));
}

TEST_F(PlatformByIdTest, AnUnknownTypeIsSentAsUnknownWithANoteAndABadDesignationIsNotSent) {
  start();
  declare(1, "ship");
  lines({"PlatformData 1 10 0.1 0.2 0", "PlatformType 1 14", "PlatformType 1 zeppelin", "PlatformFHN 1 Friendly"});
  EXPECT_THAT(texts(), ElementsAre("Line 4 PlatformType: Invalid Platform type; changing to \"Unknown\"",
                                   "Line 5 PlatformType: Invalid Platform type; changing to \"Unknown\"",
                                   "Line 6 PlatformFHN: Invalid designation"));
  EXPECT_EQ(5, messages_.messages[0].severity);
  EXPECT_EQ(3, messages_.messages[2].severity);
  using Entry = std::tuple<double, std::string, std::string>;
  EXPECT_THAT(categories(1), ElementsAre(Entry{-1.0, "Platform Type", "Unknown"},
                                         Entry{-1.0, "Platform Type", "Unknown"}));
}

TEST_F(PlatformByIdTest, ArgumentErrorsAndAnIdHeldByAnotherKindOfEntity) {
  start();
  ASSERT_EQ(0, provider_->addEntity(3, provider_->createBeamEntity(0)));
  lines({"PlatformType x ship", "PlatformFHN 1", "PlatformRCS 1 a b", "PlatformAttachedGOG -1 a.gog",
         "PlatformType 3 ship"});
  EXPECT_THAT(texts(), ElementsAre("Line 1 PlatformType: Invalid ID", "Line 2 PlatformFHN: Expecting 2 arguments",
                                   "Line 3 PlatformRCS: Expecting 2 arguments",
                                   "Line 4 PlatformAttachedGOG: Invalid ID",
                                   "Line 5 PlatformType: Internal Error: missing entity"));
  EXPECT_EQ(3, messages_.messages[0].severity);
  EXPECT_EQ(2, messages_.messages[4].severity);
}

TEST_F(PlatformByIdTest, CommandsForAnIdThatNeverComesAreReportedAtTheEnd) {
  start(22);
  declare(1, "ship");
  lines({"PlatformRCS 7 ship.rcs", "PlatformType 7 ship", "PlatformData 1 10 0.1 0.2 0"});
  EXPECT_EQ(1, provider_->didComplete(messages_));
  EXPECT_THAT(texts(), ElementsAre("Reference(s) to undefined entities were detected : ",
                                   "Unique ID 7 at line(s): 3 4 "));
}

TEST_F(PlatformByIdTest, TheLastRcsFileWinsWithAWarning) {
  start();
  lines({"PlatformRCS 1 first.rcs", "PlatformRCS 1 second.rcs"});
  declare(1, "ship");
  line("PlatformData 1 10 0.1 0.2 0");
  EXPECT_EQ("second.rcs", hostObject(1)->settings.at("rcsPatternFile").get<std::string>());
  // The second one ran, parked, at the creation on line 5.
  EXPECT_THAT(texts(), ElementsAre("Line 2 PlatformRCS: RCS pattern file specified more than once for platform; only "
                                   "the last file given will be used"));
  line("PlatformRCS 1 third.rcs");
  EXPECT_EQ("third.rcs", hostObject(1)->settings.at("rcsPatternFile").get<std::string>());
  EXPECT_EQ(2u, texts().size());
}

TEST_F(PlatformByIdTest, AttachedOverlaysLoadOnTheDisplayHostOnly) {
  start();
  const std::string gog = ::testing::TempDir() + "plat_attached.gog";
  std::ofstream(gog) << "start\nend\n";
  lines({"PlatformAttachedGOG 1 " + gog});
  declare(1, "ship");
  lines({"PlatformData 1 10 0.1 0.2 0", "PlatformAttachedGOG 1 /no/such/file.gog"});
  EXPECT_EQ(nlohmann::json::array({gog}), hostObject(1)->settings.at("gogFiles"));
  EXPECT_THAT(texts(), ElementsAre("Line 5 PlatformAttachedGOG: Failed to load; check console for error messages"));
}

TEST_F(PlatformByIdTest, ThePlotHostLoadsNoOverlay) {
  start(24, true, PICommon::PI_HOST_KURVEX);
  const std::string gog = ::testing::TempDir() + "plat_attached_plot.gog";
  std::ofstream(gog) << "start\nend\n";
  declare(1, "ship");
  lines({"PlatformData 1 10 0.1 0.2 0", "PlatformAttachedGOG 1 " + gog});
  EXPECT_FALSE(hostObject(1)->settings.contains("gogFiles"));
  EXPECT_THAT(texts(), IsEmpty());
}
