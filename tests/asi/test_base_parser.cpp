// The shared parts of every command: the message path and its latches, the
// argument-count wordings, time and angle conversion, the frame arguments,
// colours, the family look-ups and the transmit skeleton.

#include <cmath>

#include "AsiTestSupport.h"
#include "asi/BeamParser.h"
#include "asi/Color.h"
#include "asi/GateParser.h"
#include "asi/LaserParser.h"
#include "asi/LobParser.h"

using namespace AsiTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const double TWO_PI = 2.0 * M_PI;

// Opens up the protected helpers of the command base for the tests.
class Probe : public AsiInterface::PlatformParser {
 public:
  explicit Probe(std::shared_ptr<AsiInterface::ScenarioProvider> provider, const std::string& name = "Probe")
      : PlatformParser(name, std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return new Probe(*this); }
  void executeStage1(const std::vector<std::string>&) override {}
  void transmit() override {}

  using BaseParser::parseColor_;
  using BaseParser::radianConvert_;
  using BaseParser::setCoordinateSystem_;
  using BaseParser::setMagneticVariance_;
  using BaseParser::setVerticalDatum_;
  using BaseParser::validateAtLeastTokens_;
  using BaseParser::validateNumberOfTokens_;
  using BaseParser::validateRangeTokens_;
  using PlatformParser::getPlatform_;
  using ProviderParser::parseTime_;
};

#define FAMILY_PROBE(ProbeName, Base, method)                                                          \
  class ProbeName : public AsiInterface::Base {                                                        \
   public:                                                                                             \
    using Base::Base;                                                                                  \
    FileReaderPlugin::CommandParser* clone() const override { return new ProbeName(*this); }           \
    void executeStage1(const std::vector<std::string>&) override {}                                    \
    void transmit() override {}                                                                        \
    using Base::method;                                                                                \
  };
FAMILY_PROBE(BeamProbe, BeamParser, getBeam_)
FAMILY_PROBE(GateProbe, GateParser, getGate_)
FAMILY_PROBE(LobProbe, LobParser, getLob_)
FAMILY_PROBE(LaserProbe, LaserParser, getLaser_)
#undef FAMILY_PROBE

class BaseParserTest : public AsiFixture {
 protected:
  void SetUp() override {
    AsiFixture::SetUp();
    probe_ = std::make_unique<Probe>(makeProvider());
    probe_->setLineNumber(7);
    probe_->setMessageManager(&messages_);
  }
  std::unique_ptr<Probe> probe_;
};

}  // namespace

// --- messages and latches ----------------------------------------------------

TEST_F(BaseParserTest, MessagesCarryLineAndKeywordAndSetTheLatchOfTheirSeverity) {
  probe_->setName("BeamID");
  probe_->setMessage(PICommon::PI_NOTIFY_INFO, "note");
  EXPECT_FALSE(probe_->hasError());
  EXPECT_FALSE(probe_->hasWarning());
  probe_->setMessage(PICommon::PI_NOTIFY_WARN, "careful");
  EXPECT_TRUE(probe_->hasWarning());
  EXPECT_FALSE(probe_->hasError());
  probe_->setMessage(PICommon::PI_NOTIFY_ERROR, "Beam ID already used");
  EXPECT_TRUE(probe_->hasError());
  probe_->setMessage(PICommon::PI_NOTIFY_ERROR, "no prefix", 0);

  ASSERT_EQ(4u, messages_.messages.size());
  EXPECT_EQ("Line 7 BeamID: note", messages_.messages[0].text);
  EXPECT_EQ(5, messages_.messages[0].severity);
  EXPECT_EQ("Line 7 BeamID: Beam ID already used", messages_.messages[2].text);
  EXPECT_EQ(7u, messages_.messages[2].line);
  EXPECT_EQ("no prefix", messages_.messages[3].text);
  EXPECT_EQ(0u, messages_.messages[3].line);
}

TEST_F(BaseParserTest, AFatalMessageCountsAsAnErrorAndLatchesWithoutAManager) {
  Probe silent(provider_);
  silent.setMessage(PICommon::PI_NOTIFY_FATAL, "gone");
  EXPECT_TRUE(silent.hasError());
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(BaseParserTest, CloneKeepsLatchesLineAndManager) {
  probe_->setMessage(PICommon::PI_NOTIFY_WARN, "w");
  std::unique_ptr<FileReaderPlugin::CommandParser> copy(probe_->clone());
  EXPECT_TRUE(copy->hasWarning());
  EXPECT_EQ(7u, copy->lineNumber());
  copy->setMessage(PICommon::PI_NOTIFY_INFO, "from the copy");
  EXPECT_EQ("Line 7 Probe: from the copy", messages_.texts().back());
}

TEST_F(BaseParserTest, ArgumentCountWordings) {
  EXPECT_EQ(0, probe_->validateNumberOfTokens_(3, 3));
  EXPECT_EQ(1, probe_->validateNumberOfTokens_(2, 3));
  EXPECT_EQ(1, probe_->validateNumberOfTokens_(3, 2));
  EXPECT_EQ(1, probe_->validateNumberOfTokens_(1, 2));
  EXPECT_EQ(0, probe_->validateAtLeastTokens_(3, 5));
  EXPECT_EQ(1, probe_->validateAtLeastTokens_(3, 2));
  EXPECT_EQ(1, probe_->validateAtLeastTokens_(2, 1));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 7 Probe: Expecting 1 argument", "Line 7 Probe: Expecting 2 arguments",
                          "Line 7 Probe: Expecting 0 argument", "Line 7 Probe: Expecting at least 2 arguments",
                          "Line 7 Probe: Expecting at least 1 argument"));
  EXPECT_TRUE(probe_->hasWarning());
  EXPECT_FALSE(probe_->hasError());
}

TEST_F(BaseParserTest, RangeCountWarnsWhenShortAndFailsWhenLong) {
  EXPECT_EQ(0, probe_->validateRangeTokens_(5, 6, 5));
  EXPECT_EQ(0, probe_->validateRangeTokens_(5, 6, 6));
  EXPECT_EQ(1, probe_->validateRangeTokens_(5, 6, 4));
  EXPECT_FALSE(probe_->hasError());
  EXPECT_EQ(1, probe_->validateRangeTokens_(5, 6, 7));
  EXPECT_TRUE(probe_->hasError());
  ASSERT_EQ(2u, messages_.messages.size());
  EXPECT_EQ("Line 7 Probe: Expecting at least 4 arguments", messages_.messages[0].text);
  EXPECT_EQ(3, messages_.messages[0].severity);
  EXPECT_EQ("Line 7 Probe: Expecting less than 5 arguments", messages_.messages[1].text);
  EXPECT_EQ(2, messages_.messages[1].severity);
}

// --- times -------------------------------------------------------------------

TEST_F(BaseParserTest, TheStaticMarkerPassesOnlyWhereAllowed) {
  double t = 0.0;
  EXPECT_EQ(0, probe_->parseTime_("-1", true, t));
  EXPECT_DOUBLE_EQ(-1.0, t);
  EXPECT_EQ(0, probe_->parseTime_("12.5", true, t));
  EXPECT_DOUBLE_EQ(12.5, t);
  EXPECT_THAT(messages_.texts(), IsEmpty());

  EXPECT_EQ(1, probe_->parseTime_("-2", true, t));
  EXPECT_DOUBLE_EQ(-2.0, t);  // the bad value is kept
  EXPECT_EQ(1, probe_->parseTime_("-1", false, t));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 Probe: Invalid time", "Line 7 Probe: Invalid time"));
  EXPECT_TRUE(probe_->hasError());
}

TEST_F(BaseParserTest, ACalendarFailureBecomesAnErrorMessage) {
  double t = 5.0;
  EXPECT_EQ(1, probe_->parseTime_("not a time", true, t));
  ASSERT_EQ(1u, messages_.messages.size());
  EXPECT_EQ(2, messages_.messages[0].severity);
  EXPECT_EQ(0u, messages_.messages[0].text.find("Line 7 Probe: "));
  EXPECT_GT(messages_.messages[0].text.size(), std::string("Line 7 Probe: ").size());
}

TEST_F(BaseParserTest, TimesReferToTheYearInForceAtTheLine) {
  double t = 0.0;
  provider_->setReferenceYear(2005);
  EXPECT_EQ(0, probe_->parseTime_("001 2005 00:01:00.0", true, t));
  EXPECT_DOUBLE_EQ(60.0, t);
  provider_->setReferenceYear(2004);
  EXPECT_EQ(0, probe_->parseTime_("001 2005 00:01:00.0", true, t));
  EXPECT_DOUBLE_EQ(366.0 * 86400.0 + 60.0, t);
}

// --- angles ------------------------------------------------------------------

TEST_F(BaseParserTest, AFullCircleWrapsToZeroUnlessInclusive) {
  double a = -1.0;
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI, "360", a));
  EXPECT_DOUBLE_EQ(0.0, a);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI_INCLUSIVE, "360", a));
  EXPECT_DOUBLE_EQ(TWO_PI, a);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI_INCLUSIVE, "180", a));
  EXPECT_DOUBLE_EQ(M_PI, a);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI, "-90", a));
  EXPECT_NEAR(1.5 * M_PI, a, 1e-12);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI, "450", a));
  EXPECT_NEAR(0.5 * M_PI, a, 1e-12);
}

TEST_F(BaseParserTest, PlusMinusPiFoldsTheUpperHalfCircle) {
  double a = 0.0;
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_PLUS_MINUS_PI, "270", a));
  EXPECT_NEAR(-0.5 * M_PI, a, 1e-12);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_PLUS_MINUS_PI, "-180", a));
  EXPECT_DOUBLE_EQ(-M_PI, a);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_PLUS_MINUS_PI, "-270", a));
  EXPECT_NEAR(0.5 * M_PI, a, 1e-12);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_PLUS_MINUS_PI, "720", a));
  EXPECT_DOUBLE_EQ(0.0, a);
  EXPECT_EQ(0, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_PLUS_MINUS_PI, "630", a));
  EXPECT_NEAR(-0.5 * M_PI, a, 1e-12);
}

TEST_F(BaseParserTest, RadiansAreTakenAsGivenAndBadNumbersAreLeftToTheCaller) {
  double a = 0.0;
  EXPECT_EQ(0, probe_->radianConvert_(false, AsiInterface::ANGLEFIX_PLUS_MINUS_PI, "1.5", a));
  EXPECT_DOUBLE_EQ(1.5, a);
  EXPECT_EQ(0, probe_->radianConvert_(false, 0, "17", a));  // no wrapping
  EXPECT_DOUBLE_EQ(17.0, a);
  EXPECT_EQ(1, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI, "north", a));
  EXPECT_EQ(1, probe_->radianConvert_(true, AsiInterface::ANGLEFIX_0_2PI, "0x10", a));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_FALSE(probe_->hasError() || probe_->hasWarning());
}

// --- frame arguments ---------------------------------------------------------

TEST_F(BaseParserTest, CoordinateSystemsByWordOrSmallNumber) {
  PIData::PICoordReferenceFrame frame;
  const std::pair<const char*, int> cases[] = {{"lla", 3}, {"ECEF", 4}, {"XEast", 5}, {"gtp", 8},
                                               {"NED", 0}, {"nwu", 1},  {"enu", 2},   {"Eci", 9},
                                               {"3", 3},   {"7", 7}};
  for (const auto& c : cases) {
    EXPECT_EQ(0, probe_->setCoordinateSystem_(c.first, frame)) << c.first;
    EXPECT_EQ(c.second, frame.coordSystem) << c.first;
  }
  EXPECT_NE(0, probe_->setCoordinateSystem_("10", frame));
  EXPECT_NE(0, probe_->setCoordinateSystem_("latlon", frame));
  EXPECT_EQ(7, frame.coordSystem);
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 Probe: Unrecognized argument for the CoordSystem",
                                             "Line 7 Probe: Unrecognized argument for the CoordSystem"));
  EXPECT_TRUE(probe_->hasError());
}

TEST_F(BaseParserTest, VerticalDatumByWordOrUserOffset) {
  PIData::PICoordReferenceFrame frame;
  EXPECT_EQ(0, probe_->setVerticalDatum_("msl", frame));
  EXPECT_EQ(2, frame.verticalDatum);
  EXPECT_EQ(0, probe_->setVerticalDatum_("Wgs84", frame));
  EXPECT_EQ(1, frame.verticalDatum);
  EXPECT_EQ(0, probe_->setVerticalDatum_("-12.5", frame));
  EXPECT_EQ(13, frame.verticalDatum);
  EXPECT_DOUBLE_EQ(-12.5, frame.verticalDatumOffset);
  EXPECT_NE(0, probe_->setVerticalDatum_("geoid", frame));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 Probe: Unknown argument"));
}

TEST_F(BaseParserTest, MagneticVarianceByWordOrUserDegrees) {
  PIData::PICoordReferenceFrame frame;
  EXPECT_EQ(0, probe_->setMagneticVariance_("wmm", frame));
  EXPECT_EQ(2, frame.magneticVariance);
  EXPECT_EQ(0, probe_->setMagneticVariance_("True", frame));
  EXPECT_EQ(1, frame.magneticVariance);
  EXPECT_EQ(0, probe_->setMagneticVariance_("10.5", frame));
  EXPECT_EQ(3, frame.magneticVariance);
  EXPECT_NEAR(10.5 * M_PI / 180.0, frame.magneticVarianceOffset, 1e-12);
  EXPECT_NE(0, probe_->setMagneticVariance_("grid", frame));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 Probe: Unknown argument"));
}

// --- colours -----------------------------------------------------------------

TEST(ColorTest, NamesNumbersAndHexInAsiByteOrder) {
  EXPECT_EQ(0x800000FFu, UTILS::colorGetColorInt("red", true));
  EXPECT_EQ(0xFF0000FFu, UTILS::colorGetColorInt("RED", false));
  EXPECT_EQ(0x808500FFu, UTILS::colorGetColorInt("magenta", true));
  EXPECT_EQ(0x80808080u, UTILS::colorGetColorInt("gray", true));
  EXPECT_EQ(0x80000000u, UTILS::colorGetColorInt("black", true));
  EXPECT_EQ(0x12345678u, UTILS::colorGetColorInt("0x12345678", true));
  EXPECT_EQ(0xABCDEF01u, UTILS::colorGetColorInt("0XABCDEF01", false));
  EXPECT_EQ(255u, UTILS::colorGetColorInt("255", true));
  EXPECT_EQ(0x01020304u, UTILS::colorReverseBytes(0x04030201u));
}

TEST(ColorTest, BadColoursGoToTheErrorStreamAndGiveOrange) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(0x800080FFu, UTILS::colorGetColorInt("notacolor", true));
  EXPECT_EQ(0xFF0080FFu, UTILS::colorGetColorInt("-1", false));  // "-" is never a number here
  EXPECT_EQ(0x800080FFu, UTILS::colorGetColorInt("", true));
  EXPECT_EQ(0x800080FFu, UTILS::colorGetColorInt(static_cast<const char*>(nullptr), true));
  EXPECT_EQ("ERROR:  Input color value <notacolor> not valid, using default\n"
            "ERROR:  Input color value not valid, using default\n"
            "ERROR:  Input color value not valid, using default\n"
            "ERROR:  Input color value not valid, using default\n",
            testing::internal::GetCapturedStderr());
}

TEST_F(BaseParserTest, AColourArgumentIsStoredForTheHostAndDrawsNoWarning) {
  testing::internal::CaptureStderr();
  // Orange in the host's order: red 0xFF, green 0x80, blue 0, alpha 0x80.
  EXPECT_EQ(0xFF800080u, Probe::parseColor_("notacolor"));
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(0x0000FF80u, Probe::parseColor_("blue"));
  EXPECT_FALSE(probe_->hasWarning());
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

// --- family look-ups ---------------------------------------------------------

TEST_F(BaseParserTest, LookupsReportABadNumberOrAMissingEntityOfTheirClass) {
  declarePlatform(1, "ship");
  ASSERT_EQ(0, provider_->addEntity(2, provider_->createBeamEntity(1)));
  ASSERT_EQ(0, provider_->addEntity(3, provider_->createGateEntity(2)));
  ASSERT_EQ(0, provider_->addEntity(4, provider_->createLobEntity(1)));
  ASSERT_EQ(0, provider_->addEntity(5, provider_->createLaserEntity(1, "laser")));

  BeamProbe beam("B", provider_);
  GateProbe gate("G", provider_);
  LobProbe lob("L", provider_);
  LaserProbe laser("Z", provider_);
  for (FileReaderPlugin::CommandParser* c : std::vector<FileReaderPlugin::CommandParser*>{&beam, &gate, &lob, &laser}) {
    c->setMessageManager(&messages_);
  }
  uint64_t id = 0;
  EXPECT_NE(nullptr, probe_->getPlatform_("1", id));
  EXPECT_NE(nullptr, beam.getBeam_("2", id));
  EXPECT_NE(nullptr, gate.getGate_("3", id));
  EXPECT_NE(nullptr, lob.getLob_("4", id));
  EXPECT_NE(nullptr, laser.getLaser_("5", id));
  EXPECT_EQ(5u, id);
  EXPECT_THAT(messages_.texts(), IsEmpty());

  EXPECT_EQ(nullptr, probe_->getPlatform_("-1", id));
  EXPECT_EQ(nullptr, probe_->getPlatform_("2", id));  // a beam is no platform
  EXPECT_EQ(nullptr, beam.getBeam_("x", id));
  EXPECT_EQ(nullptr, beam.getBeam_("1", id));
  EXPECT_EQ(nullptr, gate.getGate_("", id));
  EXPECT_EQ(nullptr, gate.getGate_("9", id));
  EXPECT_EQ(nullptr, lob.getLob_("1.5", id));
  EXPECT_EQ(nullptr, lob.getLob_("5", id));
  EXPECT_EQ(nullptr, laser.getLaser_("a", id));
  EXPECT_EQ(nullptr, laser.getLaser_("4", id));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 7 Probe: Expecting positive number for the Platform ID",
                          "Line 7 Probe: Could not find corresponding Platform ID",
                          "Line 0 B: Expecting positive number for the BeamID",
                          "Line 0 B: Could not find corresponding BeamID command",
                          "Line 0 G: Expecting positive number for the Gate ID",
                          "Line 0 G: Could not find corresponding Gate ID command",
                          "Line 0 L: Expecting positive number for the LOB ID",
                          "Line 0 L: Could not find corresponding LOB ID command",
                          "Line 0 Z: Expecting positive number for the Laser ID",
                          "Line 0 Z: Could not find corresponding Laser command"));
  EXPECT_TRUE(laser.hasError());
}

// --- transmit skeleton -------------------------------------------------------

TEST_F(BaseParserTest, TheSkeletonReportsAMissingEntity) {
  double t = 1.0;
  EXPECT_FALSE(AsiReader::TransmitSkeleton::timed(*probe_, *provider_, nullptr, t));
  // The error latched: the guard now stops the command before any look-up.
  EXPECT_FALSE(AsiReader::TransmitSkeleton::deferring(*probe_, *provider_, nullptr));
  Probe projectorCommand(provider_, "ProjectorOn");
  projectorCommand.setMessageManager(&messages_);
  EXPECT_FALSE(AsiReader::TransmitSkeleton::deferring(projectorCommand, *provider_, nullptr,
                                                      AsiReader::TransmitSkeleton::MISSING_PROJECTOR));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 Probe: Internal Error: missing entity",
                                             "Line 0 ProjectorOn: Internal Error: missing projector"));
}

TEST_F(BaseParserTest, TheSkeletonSendsNothingForIgnoredOrLatchedCommands) {
  declarePlatform(1, "ship");
  AsiInterface::Entity* platform = provider_->getEntity(1);
  platform->setUniqueId(PIData::createPlatform({}, {}));
  double t = 1.0;
  EXPECT_TRUE(AsiReader::TransmitSkeleton::timed(*probe_, *provider_, platform, t));
  EXPECT_TRUE(AsiReader::TransmitSkeleton::deferring(*probe_, *provider_, platform));

  platform->setMerging(true);
  EXPECT_TRUE(AsiReader::TransmitSkeleton::timed(*probe_, *provider_, platform, t));
  EXPECT_FALSE(AsiReader::TransmitSkeleton::deferring(*probe_, *provider_, platform));

  platform->setIgnore(true);
  EXPECT_FALSE(AsiReader::TransmitSkeleton::timed(*probe_, *provider_, platform, t));
  platform->setIgnore(false);

  probe_->setMessage(PICommon::PI_NOTIFY_WARN, "stage 1 complaint");
  EXPECT_FALSE(AsiReader::TransmitSkeleton::timed(*probe_, *provider_, platform, t));
  EXPECT_EQ(1u, messages_.messages.size());
}
