// The beam commands that declare a beam and fill it before its data: BeamID,
// the header commands and the checks at creation, the antenna and AREPS
// files, and the settings that wait for creation.

#include <cmath>
#include <sstream>

#include "hostapi/PIORVIDE.h"
#include "test_beam_cmd_support.h"

using namespace BeamCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;

class BeamIdTest : public BeamFixture {};
class BeamHeaderTest : public BeamFixture {};
class BeamAntennaTest : public BeamFixture {};
class BeamSettingTest : public BeamFixture {};

}  // namespace

// --- BeamID ------------------------------------------------------------------

TEST_F(BeamIdTest, RefusesBadArgumentsAndHostsThatAreNoPlatform) {
  start();
  declare(1, "ship");
  beam(5);
  lines({"BeamID 1", "BeamID x 6", "BeamID 9 6", "BeamID 5 6", "BeamID 0 6", "BeamID 1 y", "BeamID 1 5",
         "BeamID 1 1"});
  EXPECT_THAT(texts(), ElementsAre("Line 7 BeamID: Expecting 2 arguments",
                                   "Line 8 BeamID: Expecting positive number for Host ID",
                                   "Line 9 BeamID: Missing host platform",
                                   // A beam on a beam, a beam on the scenario.
                                   "Line 10 BeamID: Missing host platform", "Line 11 BeamID: Missing host platform",
                                   "Line 12 BeamID: Expecting positive number for the BeamID",
                                   "Line 13 BeamID: Beam ID already used", "Line 14 BeamID: Beam ID already used"));
  EXPECT_EQ(nullptr, provider_->getBeamEntity(6));
  EXPECT_NE(nullptr, platform(1));
  EXPECT_EQ(1u, provider_->getBeamEntity(5)->hostId());
  EXPECT_EQ(5u, provider_->getBeamEntity(5)->originalId());
}

// --- header --------------------------------------------------------------------

TEST_F(BeamHeaderTest, TheHeaderCommandsReachTheHostAtCreation) {
  start();
  platformWithData();
  lines({"BeamID 1 5", "BeamDesc 5 \"Search Radar\"", "HorzBW 5 3", "VertBW 5 20", "AzimOffset 5 90",
         "ElevOffset 5 -10", "BeamMissileOffset 5", "BeamType 5 body", "BeamData 5 10 red 0 0 1000 body"});
  EXPECT_THAT(texts(), IsEmpty());
  const RefHost::HostObject* o = object(5);
  ASSERT_NE(nullptr, o);
  EXPECT_EQ(RefHost::KIND_BEAM, o->kind);
  EXPECT_EQ(uniqueId(1), o->parent);
  EXPECT_EQ(5u, o->originalId);
  EXPECT_EQ("Search Radar", o->header.name);
  EXPECT_NEAR(3 * DEG, o->header.horizontalWidth, 1e-15);
  EXPECT_NEAR(20 * DEG, o->header.verticalWidth, 1e-15);
  EXPECT_NEAR(90 * DEG, o->header.azimuthOffset, 1e-15);
  EXPECT_NEAR(-10 * DEG, o->header.elevationOffset, 1e-15);
  EXPECT_TRUE(o->header.missileOffset);
  EXPECT_EQ(PIData::PI_BEAM_BODY, o->header.beamType);
  EXPECT_EQ(true, o->settings["createFlag"]);
  // The point of the creation was dropped and sent again as data: one point.
  EXPECT_THAT(beamPoints(5), ElementsAre(BeamPoint{10.0, 0.0, 0.0, 1000.0}));
}

TEST_F(BeamHeaderTest, AZeroWidthIsReplacedWithAWarningAndBadNumbersAreErrors) {
  start();
  platformWithData();
  line("BeamID 1 5");
  lines({"VertBW 5 0", "HorzBW 5 1e-7", "VertBW 5 abc", "HorzBW 5", "AzimOffset 5 east", "ElevOffset 5 up",
         "VertBW 6 1", "BeamMissileOffset 5 1", "BeamDesc 5"});
  EXPECT_THAT(texts(), ElementsAre("Line 5 VertBW: Invalid vertical beam width, setting to 1",
                                   "Line 6 HorzBW: Invalid horizontal beam width, setting to 360",
                                   "Line 7 VertBW: Invalid vertical beam width", "Line 8 HorzBW: Expecting 2 arguments",
                                   "Line 9 AzimOffset: Invalid azimuth offset",
                                   "Line 10 ElevOffset: Invalid elevation offset",
                                   "Line 11 VertBW: Could not find corresponding BeamID command",
                                   "Line 12 BeamMissileOffset: Expecting 1 argument",
                                   "Line 13 BeamDesc: Expecting 2 arguments"));
  EXPECT_EQ(PICommon::PI_NOTIFY_WARN, messages_.messages[0].severity);
  EXPECT_EQ(PICommon::PI_NOTIFY_ERROR, messages_.messages[2].severity);
  PIData::PIBeamHeader header;
  provider_->getBeamEntity(5)->header(header);
  EXPECT_NEAR(1 * DEG, header.verticalWidth, 1e-15);
  EXPECT_NEAR(2 * M_PI, header.horizontalWidth, 1e-15);
  EXPECT_EQ(PIData::PI_UNSET_DOUBLE, header.azimuthOffset);
  EXPECT_FALSE(header.missileOffset);
}

TEST_F(BeamHeaderTest, BeamTypeIsTakenOnceFromItsWordIgnoringCase) {
  start();
  platformWithData();
  lines({"BeamID 1 5", "BeamID 1 6", "BeamType 5 Target", "BeamType 5 body", "BeamType 6 sideways",
         "BeamType 6 body"});
  EXPECT_THAT(texts(), ElementsAre("Line 7 BeamType: Can only specified the command once",
                                   "Line 8 BeamType: Invalid beam type",
                                   "Line 9 BeamType: Can only specified the command once"));
  PIData::PIBeamHeader header;
  provider_->getBeamEntity(5)->header(header);
  EXPECT_EQ(PIData::PI_BEAM_TARGET, header.beamType);
  provider_->getBeamEntity(6)->header(header);
  EXPECT_EQ(PIData::PI_BEAM_UNKNOWN, header.beamType);
}

TEST_F(BeamHeaderTest, CreationNeedsBothWidthsAndAsksForATypeInNewerFiles) {
  start();
  platformWithData();
  lines({"BeamID 1 5", "BeamData 5 1 red 0 0 100", "HorzBW 5 10", "BeamData 5 2 red 0 0 100", "VertBW 5 10",
         "BeamData 5 3 red 0 0 100", "BeamData 5 4 red 0 0 100"});
  // The type is asked for at each attempt, before the widths are checked.
  EXPECT_THAT(texts(), ElementsAre("Line 5 BeamData: Should specify a beam type via a BeamType command",
                                   "Line 5 BeamData: Must specify a horizontal beam width via a HorzBW command",
                                   "Line 7 BeamData: Should specify a beam type via a BeamType command",
                                   "Line 7 BeamData: Must specify a vertical beam width via a VertBW command",
                                   "Line 9 BeamData: Should specify a beam type via a BeamType command"));
  // Created at line 9 all the same, named by its id; line 10 adds a point.
  ASSERT_NE(nullptr, object(5));
  EXPECT_EQ("Beam 5", object(5)->header.name);
  EXPECT_EQ(2u, beamPoints(5).size());
  EXPECT_EQ(2u, colors(5).size());
}

TEST_F(BeamHeaderTest, OlderFilesNeedNoBeamType) {
  start(17);
  platformWithData();
  lines({"BeamID 1 5", "HorzBW 5 10", "VertBW 5 10", "BeamData 5 1 red 0 0 100"});
  EXPECT_THAT(texts(), IsEmpty());
  ASSERT_NE(nullptr, object(5));
  // The data line made it an absolute beam.
  EXPECT_EQ(PIData::PI_BEAM_ABSOLUTE, object(5)->header.beamType);
}

// --- antenna -------------------------------------------------------------------

TEST_F(BeamAntennaTest, TheAntennaGoesOutOnceAtCreation) {
  start();
  platformWithData();
  beam(5);
  std::ostringstream trace;
  host_->setTraceStream(&trace);
  lines({"AntennaGain 5 30", "AntennaPattern 5 anttable pattern.tbl", "AntennaAlgorithm 5 gauss",
         "AntennaPattern 5 NSMA other.nsm", "AntennaPolarity 5 vertical", "AntennaFrequency 5 9400",
         "AntennaPeakPower 5 25000", "AREPSPattern 5 a.env b.env", "BeamData 5 1 red 0 0 100", "AntennaGain 5 1",
         "AREPSPattern 5 c.env"});
  host_->setTraceStream(nullptr);
  // Creation: the beam with its first point, which is dropped and sent again
  // as data, then the antenna.
  std::vector<std::string> ops;
  std::istringstream lines(trace.str());
  for (std::string text; std::getline(lines, text);) {
    const std::string op = nlohmann::json::parse(text).value("op", "");
    if (op == "createBeam" || op == "flushEntityData" || op == "addDataPoint" || op == "setAntennaInfo")
      ops.push_back(op);
  }
  EXPECT_THAT(ops, ElementsAre("createBeam", "flushEntityData", "addDataPoint", "setAntennaInfo"));
  EXPECT_THAT(texts(),
              ElementsAre("Line 10 AntennaAlgorithm: Antenna Pattern previously defined; ignoring second definition",
                          "Line 11 AntennaPattern: Antenna Pattern previously defined; ignoring second definition"));
  ASSERT_NE(nullptr, object(5));
  const nlohmann::json& antenna = object(5)->settings["antenna"];
  // The gain came first and defaulted the algorithm to SINXX; the pattern
  // after it was still taken.
  EXPECT_EQ(PIORVIDE::PI_ANTENNA_TABLE, antenna["kind"]);
  EXPECT_EQ(PIORVIDE::PI_ALGORITHM_SINXX, antenna["algorithm"]);
  EXPECT_EQ(PIORVIDE::PI_POLARITY_VERTICAL, antenna["polarity"]);
  EXPECT_EQ("pattern.tbl", antenna["file"]);
  EXPECT_EQ(30.0, antenna["gain"]);
  EXPECT_EQ(25000.0, antenna["peakPower"]);
  EXPECT_EQ(9400.0, antenna["frequency"]);
  EXPECT_EQ(nlohmann::json({"a.env", "b.env"}), object(5)->settings["rfpropInputFiles"]);
  // Lines after the creation change the entity only.
  EXPECT_EQ(1.0, provider_->getBeamEntity(5)->gain());
  EXPECT_EQ(3u, provider_->getBeamEntity(5)->arepsFilenames().size());
}

TEST_F(BeamAntennaTest, PatternKindsAlgorithmsAndPolaritiesByName) {
  start();
  platformWithData();
  for (uint64_t id = 5; id <= 9; ++id) beam(id);
  lines({"AntennaPattern 5 monopulse a", "AntennaPattern 6 cruiseanttable b", "AntennaPattern 7 Cruise c",
         "AntennaAlgorithm 8 omni", "AntennaPolarity 8 rightcirc", "AntennaPolarity 9 sideways"});
  EXPECT_THAT(texts(), IsEmpty());
  const auto kind = [this](uint64_t id) { return provider_->getBeamEntity(id)->patternKind(); };
  EXPECT_EQ(PIORVIDE::PI_ANTENNA_MONOPULSE, kind(5));
  EXPECT_EQ(PIORVIDE::PI_ANTENNA_CRUISE, kind(6));
  EXPECT_EQ(PIORVIDE::PI_ANTENNA_CRUISE, kind(7));
  EXPECT_EQ(PIORVIDE::PI_ANTENNA_ALGORITHM, kind(8));
  EXPECT_EQ(PIORVIDE::PI_ALGORITHM_OMNI, provider_->getBeamEntity(8)->algorithm());
  EXPECT_EQ(PIORVIDE::PI_POLARITY_RIGHTCIRC, provider_->getBeamEntity(8)->polarity());
  // An unknown polarity is 0, silently; setting it defaults the algorithm.
  EXPECT_EQ(PIORVIDE::PI_POLARITY_UNKNOWN, provider_->getBeamEntity(9)->polarity());
  EXPECT_EQ(PIORVIDE::PI_ALGORITHM_SINXX, provider_->getBeamEntity(9)->algorithm());
}

TEST_F(BeamAntennaTest, BadWordsAndNumbersChangeNothing) {
  start();
  platformWithData();
  beam(5);
  lines({"AntennaPattern 5 horn c", "AntennaAlgorithm 5 cosine", "AntennaGain 5 high", "AntennaPattern 5 a",
         "AntennaFrequency 6 1"});
  EXPECT_THAT(texts(), ElementsAre("Line 8 AntennaPattern: Unknown antenna pattern",
                                   "Line 9 AntennaAlgorithm: Unknown antenna algorithm",
                                   "Line 10 AntennaGain: Expecting 1 floating point argument",
                                   "Line 11 AntennaPattern: Expecting 3 arguments",
                                   "Line 12 AntennaFrequency: Could not find corresponding BeamID command"));
  const AsiInterface::BeamEntity* entity = provider_->getBeamEntity(5);
  EXPECT_EQ(0, entity->patternKind());
  EXPECT_FALSE(entity->antennaDefined());
  EXPECT_EQ(20.0, entity->gain());
  // Without a pattern no antenna is sent.
  line("BeamData 5 1 red 0 0 100");
  EXPECT_FALSE(object(5)->settings.contains("antenna"));
}

TEST_F(BeamAntennaTest, ThePlotApplicationGetsNoAntenna) {
  restartHost({}, RefHost::Application::Plot);
  start(24, PICommon::PI_HOST_KURVEX);
  platformWithData();
  beam(5);
  lines({"AntennaPattern 5 table t.tbl", "BeamData 5 1 red 0 0 100"});
  EXPECT_THAT(texts(), IsEmpty());
  ASSERT_NE(nullptr, object(5));
  EXPECT_FALSE(object(5)->settings.contains("antenna"));
  EXPECT_EQ(1u, beamPoints(5).size());
}

TEST_F(BeamAntennaTest, ARefusedAntennaOrArepsListEndsTheCreatingLine) {
  restartHost({"setAntennaInfo", "rfpropSetInputFiles"});
  start();
  platformWithData();
  beam(5);
  beam(6);
  lines({"AntennaAlgorithm 5 gauss", "BeamData 5 1 red 0 0 100", "AREPSPattern 6 a.env", "BeamData 6 1 red 0 0 100"});
  EXPECT_THAT(texts(), ElementsAre("Line 13 BeamData: Invalid antenna definition; check console for error messages",
                                   "Line 15 BeamData: Invalid AREPS Patterns; check console for error messages"));
  // The beams exist with their points; the colours of the lines are lost.
  EXPECT_EQ(1u, beamPoints(5).size());
  EXPECT_EQ(1u, beamPoints(6).size());
  EXPECT_THAT(colors(5), IsEmpty());
}

// --- settings that wait for creation -------------------------------------------

TEST_F(BeamSettingTest, OffsetsAndInterpolationWaitForCreation) {
  start();
  platformWithData();
  beam(5);
  lines({"RollOffset 5 30", "BodyOffset 5 1 2 3", "BeamInterpolatePos 5 1"});
  EXPECT_EQ(nullptr, object(5));
  line("BeamData 5 1 red 0 0 100");
  const nlohmann::json& settings = object(5)->settings;
  EXPECT_NEAR(30 * DEG, settings["orientationOffset"][2].get<double>(), 1e-15);
  EXPECT_EQ(nlohmann::json({1.0, 2.0, 3.0}), settings["offset"]);
  EXPECT_EQ(true, settings["interpolate"]);

  // A roll keeps the yaw and pitch the host holds.
  PIData::PIPoint held;
  held.x = 0.1;
  held.y = 0.2;
  held.z = 0.3;
  PIData::setObjectOrientationOffset(uniqueId(5), held);
  lines({"RollOffset 5 -10", "BeamInterpolate 5 0"});
  const nlohmann::json& now = object(5)->settings;
  EXPECT_EQ(0.1, now["orientationOffset"][0]);
  EXPECT_EQ(0.2, now["orientationOffset"][1]);
  EXPECT_NEAR(-10 * DEG, now["orientationOffset"][2].get<double>(), 1e-15);
  EXPECT_EQ(false, now["interpolate"]);
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(BeamSettingTest, BadSettingsSendNothing) {
  start();
  platformWithData();
  beam(5);
  lines({"BeamData 5 1 red 0 0 100", "RollOffset 5 x", "BodyOffset 5 1 2", "BodyOffset 5 1 y 3",
         "BeamInterpolate 5 yes", "BeamInterpolate 5 -1"});
  EXPECT_THAT(texts(), ElementsAre("Line 9 RollOffset: Invalid angle", "Line 10 BodyOffset: Expecting 4 arguments",
                                   "Line 11 BodyOffset: Invalid point",
                                   "Line 12 BeamInterpolate: Expecting positive number",
                                   "Line 13 BeamInterpolate: Expecting positive number"));
  EXPECT_FALSE(object(5)->settings.contains("orientationOffset"));
  EXPECT_FALSE(object(5)->settings.contains("offset"));
  EXPECT_FALSE(object(5)->settings.contains("interpolate"));
}
