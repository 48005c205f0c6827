// The gate commands: GateID on a beam, name and type, the columns of the
// three data lines with the width and centroid rules, creation once the beam
// exists, and the settings that wait for it.

#include <cmath>

#include "test_beam_cmd_support.h"

using namespace BeamCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;
const double GREEN = 0x00FF0080;

class GateDefinitionTest : public BeamFixture {};
class GateDataTest : public BeamFixture {};
class GateSettingTest : public BeamFixture {};

}  // namespace

// --- declaration, name and type ------------------------------------------------

TEST_F(GateDefinitionTest, AGateHangsOnABeamOnly) {
  start();
  platformWithData();
  beam(5);
  lines({"GateID 5", "GateID x 7", "GateID 1 7", "GateID 9 7", "GateID 5 y", "GateID 5 7", "GateID 5 7",
         "GateID 7 8", "GateID 5 5"});
  EXPECT_THAT(texts(), ElementsAre("Line 8 GateID: Expecting 2 arguments",
                                   "Line 9 GateID: Expecting positive number for Host ID",
                                   "Line 10 GateID: Missing host beam", "Line 11 GateID: Missing host beam",
                                   "Line 12 GateID: Expecting positive number for the GateID",
                                   "Line 14 GateID: Gate ID already used",
                                   // A gate on a gate.
                                   "Line 15 GateID: Missing host beam", "Line 16 GateID: Gate ID already used"));
  ASSERT_NE(nullptr, provider_->getGateEntity(7));
  EXPECT_EQ(5u, provider_->getGateEntity(7)->hostId());
}

TEST_F(GateDefinitionTest, GateTypeWordsAreExactAndTakenOnce) {
  start();
  platformWithData();
  beam(5);
  lines({"GateID 5 7", "GateID 5 8", "GateID 5 9", "GateType 7 COVERAGE", "GateType 7 BODY", "GateType 8 range",
         "GateType 9 TARGET", "GateDesc 9 \"Track gate\""});
  EXPECT_THAT(texts(), ElementsAre("Line 12 GateType: Can only specified the command once"));
  EXPECT_EQ(PIData::PI_GATE_COVERAGE, provider_->getGateEntity(7)->type());
  EXPECT_EQ(PIData::PI_GATE_UNKNOWN, provider_->getGateEntity(8)->type());
  EXPECT_EQ(PIData::PI_GATE_TARGET, provider_->getGateEntity(9)->type());
  EXPECT_EQ("Track gate", provider_->getGateEntity(9)->name());
}

// --- data lines ----------------------------------------------------------------

TEST_F(GateDataTest, WidthsAndCentroidsFollowTheGateRules) {
  start();
  provider_->setIsDegrees(true);
  platformWithData();
  liveBeam(5);
  gate(7, 5);
  lines({"GateData 7 1 green 10 -5 0 360 100 200", "GateData 7 2 green 370 5 20 -3 100 200 50",
         "BodyGateData 7 3 green 0 0 1 1 100 200 120"});
  EXPECT_THAT(texts(), IsEmpty());
  const std::vector<GatePoint> points = gatePoints(7);
  ASSERT_EQ(3u, points.size());
  // A width of 0 is -1; a full circle stays 2 pi; no centroid is the middle.
  EXPECT_NEAR(10 * DEG, points[0][1], 1e-12);
  EXPECT_NEAR(-5 * DEG, points[0][2], 1e-12);
  EXPECT_EQ(-1.0, points[0][3]);
  EXPECT_NEAR(2 * M_PI, points[0][4], 1e-12);
  EXPECT_EQ(150.0, points[0][7]);
  // A centroid outside the gate is the middle too.
  EXPECT_NEAR(10 * DEG, points[1][1], 1e-12);
  EXPECT_NEAR(20 * DEG, points[1][3], 1e-12);
  EXPECT_EQ(-1.0, points[1][4]);
  EXPECT_EQ(150.0, points[1][7]);
  EXPECT_EQ(120.0, points[2][7]);
  EXPECT_EQ(100.0, points[2][5]);
  EXPECT_EQ(200.0, points[2][6]);
  EXPECT_THAT(colors(7), ElementsAre(TimedValue{1, GREEN}, TimedValue{2, GREEN}, TimedValue{3, GREEN}));
  EXPECT_EQ("Gate 7", object(7)->header.name);
}

TEST_F(GateDataTest, DataLinesSetTheGateType) {
  start();
  platformWithData();
  liveBeam(5);
  gate(7, 5, "COVERAGE");
  gate(8, 5, "COVERAGE");
  lines({"GateData 7 1 green 0 0 0.1 0.1 100 200", "TargetGateData 8 1 green 0.1 0.1 100 200 300"});
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_EQ(PIData::PI_GATE_RANGE, object(7)->header.gateType);
  EXPECT_EQ(PIData::PI_GATE_TARGET, object(8)->header.gateType);
  // A target gate has no direction; its centroid beyond the gate is the middle.
  EXPECT_THAT(gatePoints(8), ElementsAre(GatePoint{1, 0, 0, 0.1, 0.1, 100, 200, 150}));
}

TEST_F(GateDataTest, BadColumnsAndCountsAreReported) {
  start();
  platformWithData();
  beam(5);
  gate(7, 5);
  lines({"GateData 7 1 green 0 0 1 1 100", "GateData 7 1 green 0 0 1 1 100 200 150 9",
         "GateData 7 1 green a 0 1 1 100 200", "GateData 7 1 green 0 e 1 1 100 200",
         "GateData 7 1 green 0 0 w 1 100 200", "GateData 7 1 green 0 0 1 h 100 200",
         "GateData 7 1 green 0 0 1 1 min 200", "GateData 7 1 green 0 0 1 1 100 max",
         "GateData 7 1 green 0 0 1 1 100 200 c", "TargetGateData 7 1 green 1 1 100",
         "TargetGateData 7 1 green 1 1 100 200 150 9", "GateData 9 1 green 0 0 1 1 100 200"});
  EXPECT_THAT(texts(), ElementsAre("Line 10 GateData: Expecting at least 9 arguments",
                                   "Line 11 GateData: Expecting less than 10 arguments",
                                   "Line 12 GateData: Invalid azimuth", "Line 13 GateData: Invalid elevation",
                                   "Line 14 GateData: Invalid width", "Line 15 GateData: Invalid height",
                                   "Line 16 GateData: Invalid minimum range", "Line 17 GateData: Invalid maximum range",
                                   "Line 18 GateData: Invalid centroid",
                                   "Line 19 TargetGateData: Expecting at least 7 arguments",
                                   "Line 20 TargetGateData: Expecting less than 8 arguments",
                                   "Line 21 GateData: Could not find corresponding Gate ID command"));
  EXPECT_EQ(0u, hostCount(RefHost::KIND_GATE));
}

TEST_F(GateDataTest, GateDataRaeWaitsForTheBeamAndReadsNoColour) {
  start();
  platformWithData();
  beam(5);
  gate(7, 5);
  lines({"GateDataRAE 7 1 0.1 0.2 0.3 0.4 100 200", "GateColorCmd 7 1 green", "GateDataRAE 7 2 0.1 0.2 0 0 100 200 90"});
  EXPECT_EQ(nullptr, object(7));
  line("BeamData 5 1 red 0 0 1000");
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_THAT(gatePoints(7), ElementsAre(GatePoint{1, 0.1, 0.2, 0.3, 0.4, 100, 200, 150},
                                         GatePoint{2, 0.1, 0.2, -1, -1, 100, 200, 150}));
  EXPECT_THAT(colors(7), ElementsAre(TimedValue{1, GREEN}));
  EXPECT_EQ(PIData::PI_GATE_RANGE, object(7)->header.gateType);
}

TEST_F(GateDataTest, GateDataRaeCountsAreErrorsAndBadNumbersWarnings) {
  start();
  platformWithData();
  beam(5);
  gate(7, 5);
  lines({"GateDataRAE 7 1 0 0 1 1 100", "GateDataRAE 7 1 0 0 1 1 100 200 150 9", "GateDataRAE 7 1 a 0 1 1 100 200",
         "GateDataRAE 7 1 0 0 w 1 100 200", "GateDataRAE 7 1 0 0 1 1 100 200 c"});
  EXPECT_THAT(texts(), ElementsAre("Line 10 GateDataRAE: Expecting 8 to 9 arguments",
                                   "Line 11 GateDataRAE: Expecting 8 to 9 arguments",
                                   "Line 12 GateDataRAE: Invalid coordinate", "Line 13 GateDataRAE: Invalid width",
                                   "Line 14 GateDataRAE: Invalid coordinate"));
  EXPECT_EQ(PICommon::PI_NOTIFY_ERROR, messages_.messages[0].severity);
  EXPECT_EQ(PICommon::PI_NOTIFY_WARN, messages_.messages[2].severity);
}

TEST_F(GateDataTest, GateDataNeedsItsBeamAndAsksForATypeInNewerFiles) {
  start();
  platformWithData();
  beam(5);
  line("GateID 5 7");
  lines({"GateData 7 1 green 0 0 1 1 100 200", "BeamData 5 1 red 0 0 1000", "GateData 7 2 green 0 0 1 1 100 200"});
  EXPECT_THAT(texts(), ElementsAre("Line 9 GateData: Gate missing host beam.",
                                   "Line 11 GateData: Should specify a gate type via a GateType command"));
  EXPECT_EQ(1u, gatePoints(7).size());
  EXPECT_EQ(uniqueId(5), object(7)->parent);
}

// --- settings ------------------------------------------------------------------

TEST_F(GateSettingTest, OffsetsInterpolationAndStatusWaitForCreation) {
  start();
  platformWithData();
  beam(5);
  gate(7, 5);
  lines({"GateAzimOffset 7 10", "GateElevOffset 7 -5", "GateRollOffset 7 2", "GateInterpolatePos 7 1",
         "GateOnOffCmd 7 0 0", "BeamData 5 1 red 0 0 1000", "GateData 7 1 green 0 0 1 1 100 200"});
  EXPECT_THAT(texts(), IsEmpty());
  const nlohmann::json& settings = object(7)->settings;
  EXPECT_NEAR(10 * DEG, settings["azimuthOffset"].get<double>(), 1e-15);
  EXPECT_NEAR(-5 * DEG, settings["elevationOffset"].get<double>(), 1e-15);
  EXPECT_NEAR(2 * DEG, settings["orientationOffset"][2].get<double>(), 1e-15);
  EXPECT_EQ(true, settings["interpolate"]);
  EXPECT_THAT(statuses(7), ElementsAre(TimedValue{0, 0}));
}

TEST_F(GateSettingTest, BadSettingsAreReported) {
  start();
  platformWithData();
  beam(5);
  gate(7, 5);
  lines({"GateAzimOffset 7 east", "GateInterpolate 7 yes", "GateOnOffCmd 7 0 maybe", "GateColorCmd 7 0",
         "GateRollOffset 7"});
  EXPECT_THAT(texts(), ElementsAre("Line 10 GateAzimOffset: Invalid angle",
                                   "Line 11 GateInterpolate: Expecting only 1 argument",
                                   "Line 12 GateOnOffCmd: Invalid flag", "Line 13 GateColorCmd: Expecting 3 arguments",
                                   "Line 14 GateRollOffset: Expecting 2 arguments"));
}
