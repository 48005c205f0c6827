// Scenario settings: reference year, reference frame, angle unit,
// classification, description and wind, read as whole files.

#include <cmath>

#include "asi/ScenarioSettingCommands.h"
#include "test_scenario_cmd_support.h"

using namespace ScnTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double DEG = 0.017453292519943295;

class ReferenceYearTest : public ScnFixture {};
class FrameTest : public ScnFixture {};
class ClassificationTest : public ScnFixture {};
class ScenarioValuesTest : public ScnFixture {};

PIData::PICoordReferenceFrame frameOf(AsiInterface::ScenarioProvider& provider) {
  PIData::PICoordReferenceFrame frame;
  provider.referenceFrame(frame);
  return frame;
}

}  // namespace

// --- reference year ----------------------------------------------------------

TEST_F(ReferenceYearTest, SetsTheHostsYearAndTheYearOfLaterTimes) {
  ASSERT_EQ(0, runFile(header() + "ReferenceYear 2005\n" + ship()));
  EXPECT_EQ(2005, host_->scenario().settings().referenceYear);
  EXPECT_EQ(2005, provider().referenceYear());
  EXPECT_EQ(2005, provider().scenarioReferenceYear());
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReferenceYearTest, YearsBefore1970AndNonNumbersAreRefused) {
  EXPECT_EQ(2, runFile(header() + "ReferenceYear 1969\nReferenceYear -5\nReferenceYear abc\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 4 ReferenceYear: Year must be 1970 or larger",
                                             "Line 5 ReferenceYear: Expecting positive number for year",
                                             "Line 6 ReferenceYear: Expecting positive number for year"));
  EXPECT_THAT(severities(), ElementsAre(2, 2, 2));
  EXPECT_EQ(1970, provider().referenceYear());
  EXPECT_EQ(1970, host_->scenario().settings().referenceYear);
}

TEST_F(ReferenceYearTest, YearsBeyondTheCalendarAreRefusedNotWrapped) {
  EXPECT_EQ(2, runFile(header() + "ReferenceYear 4294967295\nReferenceYear 2147483648\nReferenceYear 2201\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 4 ReferenceYear: Year must be 2200 or smaller",
                                             "Line 5 ReferenceYear: Year must be 2200 or smaller",
                                             "Line 6 ReferenceYear: Year must be 2200 or smaller"));
  EXPECT_EQ(1970, host_->scenario().settings().referenceYear);
  EXPECT_EQ(0, runFile(header() + "ReferenceYear 2200\n" + ship()));
  EXPECT_EQ(2200, host_->scenario().settings().referenceYear);
}

TEST_F(ReferenceYearTest, AnAppendedFileKeepsTheHostsYearAndMovesItsTimesIntoIt) {
  PIData::setReferenceYear(2004);
  ASSERT_EQ(0, runFile(header() + "ReferenceYear 2005\nTestID 1 ship\nTestData 1 100\n", true));
  EXPECT_EQ(2004, host_->scenario().settings().referenceYear);
  EXPECT_EQ(2004, provider().scenarioReferenceYear());
  // 2004 is a leap year: the file's 100 s of 2005 lie 366 days into the host's year.
  const RefHost::HostObject* platform = host_->scenario().find(hostId(1));
  ASSERT_NE(nullptr, platform);
  EXPECT_DOUBLE_EQ(366.0 * 86400.0 + 100.0, platform->data(RefHost::SERIES_POINTS).minTime());
}

// --- reference frame -----------------------------------------------------------

TEST_F(FrameTest, FrameCommandsFillTheFrameThatTheFlushSends) {
  ASSERT_EQ(0, runFile("Version 14\nCoordSystem NED\nRefLat 12.5\nRefLon -45\nRefAlt 100\n"
                       "TangentPlaneOffset 10 -20 90\nReferenceTimeECI 3600\nMagneticVariance WMM\n"
                       "VerticalDatum 12.5\n" + ship()));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  const auto frame = frameOf(provider());
  EXPECT_EQ(PIData::PI_COORD_NED, frame.coordSystem);
  EXPECT_DOUBLE_EQ(12.5 * DEG, frame.latitude);
  EXPECT_DOUBLE_EQ(-45 * DEG, frame.longitude);
  EXPECT_DOUBLE_EQ(100.0, frame.altitude);
  EXPECT_DOUBLE_EQ(3600.0, frame.eciReferenceTime);
  EXPECT_EQ(PIData::PI_MAGVAR_WMM, frame.magneticVariance);
  EXPECT_EQ(PIData::PI_VDATUM_USER, frame.verticalDatum);
  EXPECT_DOUBLE_EQ(12.5, frame.verticalDatumOffset);

  const auto& settings = host_->scenario().settings();
  ASSERT_TRUE(settings.originLLA.has_value());
  EXPECT_DOUBLE_EQ(12.5 * DEG, (*settings.originLLA)[0]);
  EXPECT_DOUBLE_EQ(100.0, (*settings.originLLA)[2]);
  ASSERT_TRUE(settings.tangentPlaneOffsets.has_value());
  EXPECT_DOUBLE_EQ(-20.0, (*settings.tangentPlaneOffsets)[1]);
  EXPECT_DOUBLE_EQ(90 * DEG, (*settings.tangentPlaneOffsets)[2]);
}

TEST_F(FrameTest, RefLlaChangesNothingUnlessAllThreeParse) {
  EXPECT_EQ(2, runFile(header() + "RefLLA 1 2 high\nRefLLA north 2 3\n" + ship()));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 RefLLA: Invalid coordinate", "Line 5 RefLLA: Invalid coordinate"));
  const auto frame = frameOf(provider());
  EXPECT_DOUBLE_EQ(10 * DEG, frame.latitude);
  EXPECT_DOUBLE_EQ(20 * DEG, frame.longitude);
  EXPECT_DOUBLE_EQ(30.0, frame.altitude);
}

TEST_F(FrameTest, SingleValueCommandsReportInvalidCoordinates) {
  EXPECT_EQ(2, runFile(header() + "RefLat x\nRefLon 1..2\nRefAlt 5m\nTangentPlaneOffset 1 2 y\n" + ship()));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 RefLat: Invalid coordinates", "Line 5 RefLon: Invalid coordinates",
                          "Line 6 RefAlt: Invalid coordinates", "Line 7 TangentPlaneOffset: Invalid coordinates"));
  const auto frame = frameOf(provider());
  EXPECT_DOUBLE_EQ(10 * DEG, frame.latitude);
  EXPECT_DOUBLE_EQ(0.0, frame.tangentPlaneX);
}

TEST_F(FrameTest, EciReferenceTimeOutsideTheDayWarnsAndHoldsZero) {
  EXPECT_EQ(0, runFile(header() + "ReferenceTimeECI 500\nReferenceTimeECI 90000\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 ReferenceTimeECI: Invalid ECI reference time value, "
                                             "valid range is 0 to 86400"));
  EXPECT_THAT(severities(), ElementsAre(3));
  EXPECT_DOUBLE_EQ(0.0, frameOf(provider()).eciReferenceTime);

  EXPECT_EQ(2, runFile(header() + "ReferenceTimeECI 500\nReferenceTimeECI 1 2\nReferenceTimeECI noon\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 ReferenceTimeECI: Expecting only 1 double argument",
                                             "Line 6 ReferenceTimeECI: Expecting only 1 double argument"));
  EXPECT_DOUBLE_EQ(500.0, frameOf(provider()).eciReferenceTime);
}

TEST_F(FrameTest, BadFrameWordsAreErrorsAndLeaveTheFrame) {
  EXPECT_EQ(2, runFile(header() + "CoordSystem 10\nMagneticVariance east\nVerticalDatum sea\n" + ship()));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 CoordSystem: Unrecognized argument for the CoordSystem",
                          "Line 5 MagneticVariance: Unknown argument", "Line 6 VerticalDatum: Unknown argument"));
  const auto frame = frameOf(provider());
  EXPECT_EQ(PIData::PI_COORD_LLA, frame.coordSystem);
  EXPECT_EQ(PIData::PI_MAGVAR_TRUE, frame.magneticVariance);
  EXPECT_EQ(PIData::PI_VDATUM_WGS84, frame.verticalDatum);
}

TEST_F(FrameTest, DegreeAnglesTakesExactlyZeroOrOne) {
  EXPECT_EQ(2, runFile(header() + "DegreeAngles 1\nDegreeAngles 2\nDegreeAngles true\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 5 DegreeAngles: Unexpected value",
                                             "Line 6 DegreeAngles: Unexpected value"));
  EXPECT_TRUE(provider().isDegrees());
  runFile(header() + "DegreeAngles 1\nDegreeAngles 0\n" + ship());
  EXPECT_FALSE(provider().isDegrees());
}

// --- classification --------------------------------------------------------------

TEST_F(ClassificationTest, TextWithColourOrWhite) {
  ASSERT_EQ(0, runFile(header() + "Classification \"SECRET\" red\n" + ship()));
  EXPECT_EQ("SECRET", host_->scenario().settings().classification);
  // red is 0x800000FF in the file's AABBGGRR order; the host gets RRGGBBAA.
  EXPECT_EQ(0xFF000080u, host_->scenario().settings().classificationColor.value());

  ASSERT_EQ(0, runFile(header() + "Classification UNCLASSIFIED\n" + ship()));
  EXPECT_EQ("UNCLASSIFIED", host_->scenario().settings().classification);
  EXPECT_EQ(0xFFFFFFFFu, host_->scenario().settings().classificationColor.value());
}

TEST_F(ClassificationTest, WrongTokenCountIsAnErrorAndSendsNothing) {
  EXPECT_EQ(2, runFile(header() + "Classification\nClassification a red extra\n" + ship()));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 4 Classification: Expecting 1 string argument and 1 optional color value",
                          "Line 5 Classification: Expecting 1 string argument and 1 optional color value"));
  EXPECT_THAT(severities(), ElementsAre(2, 2));
  EXPECT_EQ("", host_->scenario().settings().classification);
}

TEST_F(ClassificationTest, OldFilesReadTheTextFormAgainstTheHost) {
  ASSERT_EQ(0, runFile(header(4) + "Classification 4\n" + ship()));
  EXPECT_EQ("4", host_->scenario().settings().classification);
  EXPECT_EQ(0xFFFFFFFFu, host_->scenario().settings().classificationColor.value());
}

TEST_F(ClassificationTest, TheStageOneNumericFormMapsLevelsToBanners) {
  auto provider = makeProvider(4);
  struct Case {
    std::string level;
    std::string text;
    uint32_t color;
  };
  const std::vector<Case> cases = {{"2", "FOR OFFICIAL USE ONLY", 0xFFFFFF80}, {"3", "CONFIDENTIAL", 0x00FFFF80},
                                   {"4", "SECRET", 0xFF000080},           {"7", "SECRET - NC", 0xFF000080},
                                   {"9", "SECRET - PR", 0xFF000080},      {"10", "TOP SECRET", 0xFF800080},
                                   {"1", "UNCLASSIFIED", 0x00FF0080},     {"11", "UNCLASSIFIED", 0x00FF0080}};
  for (const Case& c : cases) {
    AsiInterface::ClassificationDeprecated command(provider);
    command.executeStage1({"Classification", c.level});
    EXPECT_EQ(c.text, command.text()) << c.level;
    EXPECT_EQ(c.color, command.color()) << c.level;
    EXPECT_FALSE(command.hasWarning());
  }
  AsiInterface::ClassificationDeprecated tooMany(provider);
  tooMany.setMessageManager(&messages_);
  tooMany.executeStage1({"Classification", "SECRET", "red"});
  AsiInterface::ClassificationDeprecated word(provider);
  word.setMessageManager(&messages_);
  word.executeStage1({"Classification", "SECRET"});
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 0 Classification: Expecting 1 positive number",
                                             "Line 0 Classification: Invalid value"));
  EXPECT_TRUE(word.hasWarning());
}

// --- description, wind, and the appending rule --------------------------------------

TEST_F(ScenarioValuesTest, DescriptionAndWindReachTheHost) {
  ASSERT_EQ(0, runFile(header() + "DegreeAngles 0\nScenarioInfo \"Exercise 7\"\nWindSpeed 12.5\nWindAngle 90\n" +
                       ship()));
  const auto& settings = host_->scenario().settings();
  EXPECT_EQ("Exercise 7", settings.description);
  EXPECT_DOUBLE_EQ(12.5, settings.windSpeed.value());
  // Degrees whatever DegreeAngles says.
  EXPECT_DOUBLE_EQ(90 * DEG, settings.windDirection.value());
}

TEST_F(ScenarioValuesTest, BadValuesWarnAndSendNothing) {
  EXPECT_EQ(0, runFile(header() + "WindSpeed fast\nWindAngle north\nScenarioInfo two words\n" + ship()));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 4 WindSpeed: Invalid value", "Line 5 WindAngle: Invalid value",
                                             "Line 6 ScenarioInfo: Expecting 1 argument"));
  const auto& settings = host_->scenario().settings();
  EXPECT_FALSE(settings.windSpeed.has_value());
  EXPECT_FALSE(settings.windDirection.has_value());
  EXPECT_EQ("", settings.description);
}

TEST_F(ScenarioValuesTest, AnAppendedFileChangesNoneOfTheScenarioValues) {
  PIData::setDescription("host's");
  ASSERT_EQ(0, runFile(header() + "ScenarioInfo mine\nClassification SECRET red\nWindSpeed 3\nWindAngle 10\n" +
                           ship(),
                       true));
  const auto& settings = host_->scenario().settings();
  EXPECT_EQ("host's", settings.description);
  EXPECT_EQ("", settings.classification);
  EXPECT_FALSE(settings.classificationColor.has_value());
  EXPECT_FALSE(settings.windSpeed.has_value());
  EXPECT_FALSE(settings.windDirection.has_value());
  EXPECT_FALSE(settings.originLLA.has_value());
}
