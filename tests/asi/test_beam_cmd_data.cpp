// The time-tagged beam commands: BeamData and its columns, BeamDataRAE that
// waits for its platform, colour and on/off parked until creation, and the
// beam's target.

#include <cmath>

#include "asi/BeamTimedCmds.h"
#include "test_beam_cmd_support.h"

using namespace BeamCmdTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;
const double UNSET = PIData::PI_UNSET_DOUBLE;
// Named colours in the host's 0xRRGGBBAA order.
const double RED = 0xFF000080;
const double BLUE = 0x0000FF80;
const double YELLOW = 0xFFFF0080;

class BeamDataTest : public BeamFixture {};
class BeamDataRaeTest : public BeamFixture {};
class BeamTimedTest : public BeamFixture {};
class BeamTargetTest : public BeamFixture {};

}  // namespace

// --- BeamData ------------------------------------------------------------------

TEST_F(BeamDataTest, TheColumnCountTellsThePointing) {
  start();
  provider_->setIsDegrees(true);
  platformWithData();
  beam(5);
  lines({"BeamData 5 1 red 90 -10 1000", "BeamData 5 2 blue 370 190 2000 body", "BeamData 5 3 red 100 body",
         "BeamData 5 4 red 100 200"});
  EXPECT_THAT(texts(), IsEmpty());
  const std::vector<BeamPoint> points = beamPoints(5);
  ASSERT_EQ(4u, points.size());
  EXPECT_NEAR(90 * DEG, points[0][1], 1e-12);
  EXPECT_NEAR(-10 * DEG, points[0][2], 1e-12);
  EXPECT_EQ(1000.0, points[0][3]);
  // Azimuth wraps into [0, 2 pi), elevation into [-pi, pi].
  EXPECT_NEAR(10 * DEG, points[1][1], 1e-12);
  EXPECT_NEAR(-170 * DEG, points[1][2], 1e-12);
  // A body beam given by its length alone points along the body.
  EXPECT_EQ((BeamPoint{3.0, 0.0, 0.0, 100.0}), points[2]);
  // Six columns without "body" carry the colour and no pointing.
  EXPECT_EQ((BeamPoint{4.0, UNSET, UNSET, UNSET}), points[3]);
  EXPECT_THAT(colors(5), ElementsAre(TimedValue{1, RED}, TimedValue{2, BLUE}, TimedValue{3, RED}, TimedValue{4, RED}));
  EXPECT_EQ(PIData::PI_BEAM_ABSOLUTE, object(5)->header.beamType);
}

TEST_F(BeamDataTest, EachLineWritesItsTypeToTheHeader) {
  start();
  platformWithData();
  beam(5);
  const auto typeAfter = [this](const std::string& text) {
    line(text);
    PIData::PIBeamHeader header;
    provider_->getBeamEntity(5)->header(header);
    return header.beamType;
  };
  EXPECT_EQ(PIData::PI_BEAM_BODY, typeAfter("BeamData 5 1 red 0 0 9 body"));
  EXPECT_EQ(PIData::PI_BEAM_ABSOLUTE, typeAfter("BeamData 5 2 red 0 0 9"));
  EXPECT_EQ(PIData::PI_BEAM_BODY, typeAfter("BeamData 5 3 red 9 body"));
  EXPECT_EQ(PIData::PI_BEAM_TARGET, typeAfter("BeamData 5 4 red Target"));
  // "body" is read as written.
  EXPECT_EQ(PIData::PI_BEAM_ABSOLUTE, typeAfter("BeamData 5 5 red 9 BODY"));
}

TEST_F(BeamDataTest, BadLinesAreReportedAndSendNothing) {
  start();
  platformWithData();
  beam(5);
  lines({"BeamData 5 1 red", "BeamData 5 1 red 1 2 3 body extra", "BeamData 5 1 red x 0 100",
         "BeamData 5 1 red 0 x 100", "BeamData 5 1 red 0 0 far", "BeamData 5 1 red far body",
         "BeamData 5 -5 red 0 0 1", "BeamData 8 1 red 0 0 1", "BeamData x 1 red 0 0 1"});
  EXPECT_THAT(texts(), ElementsAre("Line 8 BeamData: Expecting at least 4 arguments",
                                   "Line 9 BeamData: Expecting less than 7 arguments",
                                   "Line 10 BeamData: Invalid azimuth", "Line 11 BeamData: Invalid elevation",
                                   "Line 12 BeamData: Invalid length", "Line 13 BeamData: Invalid length",
                                   "Line 14 BeamData: Invalid time",
                                   "Line 15 BeamData: Could not find corresponding BeamID command",
                                   "Line 16 BeamData: Expecting positive number for the BeamID"));
  EXPECT_EQ(PICommon::PI_NOTIFY_WARN, messages_.messages[0].severity);
  EXPECT_EQ(PICommon::PI_NOTIFY_ERROR, messages_.messages[1].severity);
  EXPECT_EQ(PICommon::PI_NOTIFY_WARN, messages_.messages[2].severity);  // a bad azimuth does not fail the file
  EXPECT_EQ(0u, hostCount(RefHost::KIND_BEAM));
}

TEST_F(BeamDataTest, ABeamDataLineDoesNotWaitForItsPlatform) {
  start();
  declare(1, "ship");
  beam(5);
  lines({"BeamData 5 1 red 0 0 100", "PlatformData 1 0 0.1 0.2 0"});
  EXPECT_THAT(texts(), ElementsAre("Line 7 BeamData: Missing host platform."));
  EXPECT_EQ(nullptr, object(5));
  line("BeamData 5 2 red 0 0 100");
  EXPECT_THAT(beamPoints(5), ElementsAre(BeamPoint{2, 0, 0, 100}));
}

TEST_F(BeamDataTest, TimesFollowTheHostsReferenceYear) {
  start();
  platformWithData();
  beam(5);
  provider_->setReferenceYear(2005);
  provider_->setScenarioReferenceYear(2004);
  line("BeamData 5 10 red 0 0 100");
  provider_->setReferenceYear(2003);
  line("BeamData 5 10 red 0 0 200");
  EXPECT_THAT(texts(), ElementsAre("Line 9 BeamData: Time invalid with respect to the current scenario time."));
  // 2004 is a leap year.
  EXPECT_THAT(beamPoints(5), ElementsAre(BeamPoint{10 + 366 * 86400.0, 0, 0, 100}));
}

TEST_F(BeamDataTest, ARefusedPointIsReportedAndItsColourStillSent) {
  restartHost({"addDataPoint"});
  start();
  platformWithData();
  beam(5);
  lines({"BeamData 5 1 red 0 0 100", "BeamData 5 2 blue 0 0 100"});
  EXPECT_THAT(texts(), ElementsAre("Line 8 BeamData: Failed to add Beam data; check console for error messages",
                                   "Line 9 BeamData: Failed to add Beam data; check console for error messages"));
  ASSERT_NE(nullptr, object(5));
  EXPECT_THAT(beamPoints(5), IsEmpty());
  EXPECT_THAT(colors(5), ElementsAre(TimedValue{1, RED}, TimedValue{2, BLUE}));
}

TEST_F(BeamDataTest, ARefusedCreationIsAnErrorAndTheNextLineTriesAgain) {
  restartHost({"createBeam"});
  start();
  platformWithData();
  beam(5);
  line("BeamColorCmd 5 0 red");
  line("BeamData 5 1 red 0 0 100");
  EXPECT_THAT(texts(), ElementsAre("Line 9 BeamData: Failed to create beam; check console for error messages"));
  EXPECT_FALSE(provider_->getBeamEntity(5)->doesExist());
}

// --- BeamDataRAE ---------------------------------------------------------------

TEST_F(BeamDataRaeTest, WaitsForThePlatformAndRunsInFileOrder) {
  start();
  declare(1, "ship");
  beam(5);
  lines({"BeamDataRAE 5 1 0.5 -0.1 500", "BeamColorCmd 5 1 yellow", "BeamDataRAE 5 2 7 4 600"});
  EXPECT_EQ(nullptr, object(5));
  line("PlatformData 1 0 0.1 0.2 0");
  EXPECT_THAT(texts(), IsEmpty());
  const std::vector<BeamPoint> points = beamPoints(5);
  ASSERT_EQ(2u, points.size());
  EXPECT_EQ((BeamPoint{1, 0.5, -0.1, 500}), points[0]);
  EXPECT_NEAR(7 - 2 * M_PI, points[1][1], 1e-12);
  EXPECT_NEAR(4 - 2 * M_PI, points[1][2], 1e-12);
  EXPECT_THAT(colors(5), ElementsAre(TimedValue{1, YELLOW}));
  // Without a BeamData line the beam keeps the type it was given.
  EXPECT_EQ(PIData::PI_BEAM_ABSOLUTE, object(5)->header.beamType);
}

TEST_F(BeamDataRaeTest, BadCoordinatesNegativeRangesAndTargetBeams) {
  start();
  platformWithData();
  beam(5);
  beam(6, 1, "target");
  lines({"BeamDataRAE 5 1 0.5 0.1", "BeamDataRAE 5 1 x 0 1", "BeamDataRAE 5 1 0 0 -1", "BeamDataRAE 6 1 0 0 1",
         "BeamDataRAE 5 1 0 0 0"});
  EXPECT_THAT(texts(), ElementsAre("Line 12 BeamDataRAE: Expecting 5 arguments",
                                   "Line 13 BeamDataRAE: Invalid BeamRAE coordinate",
                                   "Line 14 BeamDataRAE: Beam range must be >= 0",
                                   "Line 15 BeamDataRAE: Target Beam cannot have BeamDataRAE commands"));
  EXPECT_THAT(beamPoints(5), ElementsAre(BeamPoint{1, 0, 0, 0}));
  EXPECT_EQ(nullptr, object(6));
}

// --- colour and on/off -----------------------------------------------------------

TEST_F(BeamTimedTest, ColourAndStatusWaitForTheBeamInFileOrder) {
  start();
  platformWithData();
  beam(5);
  lines({"BeamOnOffCmd 5 0 1", "BeamColorCmd 5 0 blue", "BeamOnOffCmd 5 3 0", "BeamData 5 1 red 0 0 100",
         "BeamOnOffCmd 5 4 2.5"});
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_THAT(statuses(5), ElementsAre(TimedValue{0, 1}, TimedValue{3, 0}, TimedValue{4, 1}));
  // The parked colour ran before the data line's own.
  EXPECT_THAT(colors(5), ElementsAre(TimedValue{0, BLUE}, TimedValue{1, RED}));
}

TEST_F(BeamTimedTest, BadFlagsAndCountsAreReported) {
  start();
  platformWithData();
  beam(5);
  lines({"BeamOnOffCmd 5 0 maybe", "BeamOnOffCmd 5 0", "BeamColorCmd 5 0", "BeamColorCmd 5 x red",
         "BeamColorCmd 9 0 red"});
  EXPECT_THAT(texts(), ElementsAre("Line 8 BeamOnOffCmd: Invalid flag for BeamOnOffCmd command",
                                   "Line 9 BeamOnOffCmd: Expecting 3 arguments",
                                   "Line 10 BeamColorCmd: Expecting 3 arguments",
                                   "Line 11 BeamColorCmd: Time format not recognized.",
                                   "Line 12 BeamColorCmd: Could not find corresponding BeamID command"));
  line("BeamData 5 1 red 0 0 100");
  EXPECT_THAT(statuses(5), IsEmpty());
  EXPECT_EQ(1u, colors(5).size());
}

// --- targets -------------------------------------------------------------------

TEST_F(BeamTargetTest, ATargetWaitsForItsPlatformAndZeroClearsIt) {
  start();
  platformWithData(1);
  declare(2, "jet");
  beam(5);
  lines({"BeamData 5 0 red 0 0 100", "BeamTargetIDCmd 5 1 2", "BeamTargetCmd 5 2 0"});
  EXPECT_THAT(targets(5), ElementsAre(TimedValue{2, 0}));
  line("PlatformData 2 0 0.3 0.4 0");
  EXPECT_THAT(targets(5), ElementsAre(TimedValue{2, 0}, TimedValue{1, static_cast<double>(uniqueId(2))}));
  EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(BeamTargetTest, OnlyAPlatformCanBeATarget) {
  start();
  platformWithData(1);
  beam(5);
  beam(6);
  lines({"BeamData 5 0 red 0 0 100", "BeamData 6 0 red 0 0 100", "BeamTargetIDCmd 5 1 6", "BeamTargetIDCmd 5 1 abc",
         "BeamTargetIDCmd 5 1"});
  EXPECT_THAT(texts(), ElementsAre("Line 14 BeamTargetIDCmd: Target ID must point to a platform",
                                   "Line 15 BeamTargetIDCmd: Invalid Target ID",
                                   "Line 16 BeamTargetIDCmd: Expecting 3 arguments"));
  EXPECT_THAT(targets(5), IsEmpty());
}

TEST_F(BeamTargetTest, ATargetBeamIsCreatedByItsTargetWithoutPoints) {
  start();
  declare(1, "ship");
  declare(2, "jet");
  beam(5, 1, "target");
  // Waits for the target, then for the beam's own platform.
  line("BeamTargetIDCmd 5 10 2");
  line("PlatformData 2 0 0.3 0.4 0");
  EXPECT_EQ(nullptr, object(5));
  line("PlatformData 1 0 0.1 0.2 0");
  EXPECT_THAT(texts(), IsEmpty());
  ASSERT_NE(nullptr, object(5));
  EXPECT_EQ(PIData::PI_BEAM_TARGET, object(5)->header.beamType);
  EXPECT_THAT(beamPoints(5), IsEmpty());
  EXPECT_THAT(targets(5), ElementsAre(TimedValue{10, static_cast<double>(uniqueId(2))}));
  // Colour-only data lines of a target beam add colours and no points.
  line("BeamData 5 11 red target");
  EXPECT_THAT(beamPoints(5), IsEmpty());
  EXPECT_THAT(colors(5), ElementsAre(TimedValue{11, RED}));
}

TEST_F(BeamTargetTest, AnyOtherBeamWaitsForItsFirstDataLine) {
  start();
  platformWithData(1);
  platformWithData(2);
  beam(5);
  line("BeamTargetIDCmd 5 10 2");
  EXPECT_EQ(nullptr, object(5));
  line("BeamData 5 12 red 0 0 100");
  EXPECT_THAT(targets(5), ElementsAre(TimedValue{10, static_cast<double>(uniqueId(2))}));
  EXPECT_EQ(1u, beamPoints(5).size());
}

TEST_F(BeamTargetTest, TheNamingFormFindsTargetsByPlatformName) {
  start();
  declare(1, "ship");
  declare(2, "Blue Jet");
  beam(5);
  const auto targetOf = [this](const std::string& target) {
    AsiInterface::BeamTargetCmd command(provider_);
    command.setMessageManager(&messages_);
    command.executeStage1({"BeamTargetCmd", "5", "1", target});
    return command.targetId();
  };
  EXPECT_EQ(2u, targetOf("Blue Jet"));
  EXPECT_EQ(0u, targetOf("null"));
  targetOf("Red Jet");
  EXPECT_THAT(texts(), ElementsAre("Line 0 BeamTargetCmd: Invalid target"));
}
