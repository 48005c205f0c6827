// The document's ASI loader: order rules, a file written by the writer read
// back whole, and the fatal and non-fatal reports.
#include <gtest/gtest.h>

#include <sstream>

#include "TransmitSupport.h"
#include "document/ASIOutput.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

namespace {

class Loader : public ::testing::Test {
 protected:
  void SetUp() override { previous = setErrorStreamUD(&errors); }
  void TearDown() override { setErrorStreamUD(previous); }
  int load(ScenarioUD& scenario, const std::string& text) {
    std::istringstream in(text);
    return scenario.load(in);
  }
  std::ostringstream errors;
  std::ostream* previous = nullptr;
};

TEST_F(Loader, VersionMustComeFirst) {
  ScenarioUD scenario;
  EXPECT_EQ(load(scenario, "PlatformID 1\n"), UD_FATAL);
  EXPECT_NE(errors.str().find("Encountered token PlatformID before required Keyword Version.  Line#: 1"),
            std::string::npos);
}

// PlatformData, in any case, obeys the header order like every keyword, and
// reaches only platforms declared before it.
TEST_F(Loader, PlatformDataInAnyCaseAfterTheHeaderOnly) {
  ScenarioUD early;
  EXPECT_EQ(load(early, "Version 3\nRefLLA 30 -120 0\nPLATFORMDATA 1 0 30 -120 0\n"), UD_FATAL);
  EXPECT_NE(errors.str().find("Encountered token PLATFORMDATA before required Keyword CoordSystem.  Line#: 3"),
            std::string::npos)
      << errors.str();

  ScenarioUD scenario;
  ASSERT_EQ(load(scenario, "Version 3\nRefLLA 30 -120 0\nCoordSystem LLA\nPlatformID 1\n"
                           "PLATFORMDATA 1 0 30 -120 5\nplatformData 1 10 30 -120 7\nPlatformDatum 1 20 30 -120 9\n"
                           "PlatformData 2 0 31 -121 3\nPlatformID 2\nPlatformData 2 5 31 -121 4\n"),
            0);
  EXPECT_NE(errors.str().find("see line #7"), std::string::npos) << errors.str();
  // Data for a platform not yet declared is refused; once it is, data is taken.
  EXPECT_NE(errors.str().find("see line #8"), std::string::npos) << errors.str();
  const PlatformUD* platform = scenario.findPlatform(1);
  ASSERT_NE(platform, nullptr);
  ASSERT_EQ(platform->Motion()->Size(), 2u);
  EXPECT_EQ(platform->Motion()->states().at(10).alt, 7);
  ASSERT_NE(scenario.findPlatform(2), nullptr);
  ASSERT_EQ(scenario.findPlatform(2)->Motion()->Size(), 1u);
  EXPECT_EQ(scenario.findPlatform(2)->Motion()->states().at(5).alt, 4);
}

TEST_F(Loader, UnknownHostIsNotFatalAndQuotedHashStays) {
  ScenarioUD scenario;
  EXPECT_EQ(load(scenario, "version 3\nRefLLA 30 -120 0\nCoordSystem LLA\nBeamID 9 2\n"
                           "PlatformID 1\nPlatformName 1 \"A#B\" # comment\n"),
            0);
  EXPECT_NE(errors.str().find("Error (non-fatal) in file, see line #4"), std::string::npos);
  ASSERT_NE(scenario.findPlatform(1), nullptr);
  EXPECT_EQ(scenario.findPlatform(1)->Desc(), "A#B");
}

TEST_F(Loader, OldGenericDataAndEventsReachTheirEntityThroughTheirRefIds) {
  ScenarioUD scenario;
  ASSERT_EQ(load(scenario, "Version 6\nRefLLA 30 -120 0\nCoordSystem LLA\nPlatformID 1\n"
                           "GenericObjRefID 4 1\nGenericData 4 speed 12 10 0\nGenericData 5 speed 13 10\n"
                           "EventObjRefID 8 1\nEventData 8 \"Pilot aboard\" 20 50\n"),
            0);
  EXPECT_NE(errors.str().find("see line #7"), std::string::npos) << errors.str();  // 5 is not mapped
  const GenericDataUD* data = scenario.getGenericData(1);
  ASSERT_NE(data, nullptr);
  ASSERT_EQ(data->items().size(), 2u);
  const GenericDataObject::Item& speed = data->items().at(10).front();
  EXPECT_EQ(data->getTag(speed.second.first), "speed");
  EXPECT_EQ(speed.first, -1.0);  // an expiry of 0 is none up to version 6
  const GenericDataObject::Item& event = data->items().at(20).front();
  EXPECT_EQ(data->getTag(event.second.first), "EVENT");
  EXPECT_EQ(event.second.second, "Pilot aboard");
  EXPECT_EQ(event.first, 30.0);
}

TEST_F(Loader, CoordinateSystemNumbersFlagsAndBeamCommands) {
  ScenarioUD scenario;
  ASSERT_EQ(load(scenario, "Version 24\nRefLLA 30 -120 0\nCoordSystem 4\nPlatformID 1\n"
                           "PlatformCoordSystem 1 3\nBeamID 1 2\nVertBW 2 0\nHorzBW 2 0\n"
                           "BeamOnOffCmd 2 10 on\nBeamOnOffCmd 2 20 5\nBeamTargetCmd 2 30 1\n"
                           "BeamID 1 3\nBeamData 3 40 red 1 0.5 300 body\nBeamData 3 50 green 400 body\n"),
            0);
  // A flag is a number, any but 0 meaning on.
  EXPECT_NE(errors.str().find("see line #9"), std::string::npos);
  ASSERT_EQ(scenario.findBeam(2)->onOffCommands().size(), 1u);
  EXPECT_TRUE(scenario.findBeam(2)->onOffCommands().at(20));
  EXPECT_EQ(scenario.findBeam(2)->targetCommands().size(), 1u);
  // BeamData: colour, type and, where the line has them, the beam's angles and length.
  const BeamUD& body = *scenario.findBeam(3);
  EXPECT_EQ(body.Header()->beamType, BEAM_BODY);
  EXPECT_EQ(body.colorCommands().size(), 2u);
  const auto& states = dynamic_cast<const LinearBeamMotionUD&>(*body.motion()).states();
  ASSERT_EQ(states.size(), 2u);
  EXPECT_EQ(states.at(40).range, 300.0);
  EXPECT_EQ(states.at(50).range, 400.0);
  EXPECT_EQ(scenario.coordSystem(), orvCore::ECEF);
  EXPECT_EQ(scenario.findPlatform(1)->Header()->coordSystem, orvCore::LLA);
  // Reported, and stored as one degree high and all around wide.
  EXPECT_NE(errors.str().find("see line #7"), std::string::npos);
  EXPECT_NEAR(scenario.findBeam(2)->Header()->vbw, M_PI / 180.0, 1e-12);
  EXPECT_NEAR(scenario.findBeam(2)->Header()->hbw, 2 * M_PI, 1e-12);
}

TEST_F(Loader, DeprecatedAnimatedLinesAreRefused) {
  ScenarioUD scenario;
  ASSERT_EQ(load(scenario, "Version 8\nRefLLA 30 -120 0\nCoordSystem LLA\nPlatformID 1\n"
                           "GenericData 1 AnimatedLine_1 \"entityid=1\" 10\n"
                           "GenericData 1 ORVIDE_AnimatedLine_1 \"entity=1\" 10\n"
                           "GenericData 1 ORVIDE_AnimatedLine_1 \"entityid=1\" 20\n"),
            0);
  EXPECT_NE(errors.str().find("see line #5"), std::string::npos);
  EXPECT_NE(errors.str().find("see line #6"), std::string::npos);
  ASSERT_NE(scenario.getGenericData(1), nullptr);
  EXPECT_EQ(scenario.getGenericData(1)->items().size(), 1u);
}

TEST_F(Loader, ABadReferencePartIsReportedAndKeepsTheReferenceSet) {
  ScenarioUD scenario;
  EXPECT_EQ(load(scenario, "Version 24\nRefLat 30\nRefLon -120\nRefAlt 10\nCoordSystem LLA\n"
                           "RefAlt 1e39\nPlatformID 1\n"),
            0);
  EXPECT_NE(errors.str().find("see line #6"), std::string::npos) << errors.str();
  EXPECT_NE(scenario.findPlatform(1), nullptr) << errors.str();
  EXPECT_DOUBLE_EQ(scenario.converter().referenceAlt(), 10.0);
}

TEST_F(Loader, GeodeticPositionsOutOfRangeOrOfVersionTwoFiles) {
  // In degrees: latitudes beyond 90 and longitudes beyond 360 are refused.
  ScenarioUD degrees;
  EXPECT_EQ(load(degrees, "Version 24\nRefLLA 30 -120 0\nCoordSystem LLA\nDegreeAngles 1\nPlatformID 1\n"
                          "PlatformData 1 10 91 -120 0\nPlatformData 1 20 30 361 0\nPlatformData 1 30 30 359 0\n"),
            0);
  EXPECT_NE(errors.str().find("see line #6"), std::string::npos) << errors.str();
  EXPECT_NE(errors.str().find("see line #7"), std::string::npos) << errors.str();
  EXPECT_EQ(degrees.findPlatform(1)->Motion()->Size(), 1u);
  // Version 2 without degrees: radians where they fit, degrees otherwise.
  ScenarioUD two;
  ASSERT_EQ(load(two, "Version 2\nRefLLA 30 -120 0\nCoordSystem LLA\nPlatformID 1\n"
                      "PlatformData 1 10 0.5 -2 0\nPlatformData 1 20 30 -120 0\n"),
            0)
      << errors.str();
  const auto& states = two.findPlatform(1)->Motion()->states();
  ASSERT_EQ(states.size(), 2u);
  EXPECT_DOUBLE_EQ(states.at(10).lat, 0.5);
  EXPECT_NEAR(states.at(20).lat, 30 * M_PI / 180, 1e-12);
  EXPECT_NEAR(states.at(20).lon, -120 * M_PI / 180, 1e-12);
}

TEST_F(Loader, ScenarioKeywordsAreTakenAsTheCommandPipelineTakesThem) {
  ScenarioUD late;
  EXPECT_EQ(load(late, "Version 24\nRefLLA 30 -120 0\nCoordSystem ECI\nReferenceYear 2150\nReferenceYear 2201\n"
                       "ReferenceTimeECI 100\nReferenceTimeECI 90000\nSoundFile a.wav 10\nSoundFile b.wav 10 20\n"
                       "SoundFile c.wav -1 20\nImageFile x.png\n"),
            0);
  EXPECT_EQ(late.referenceYear(), 2150);
  EXPECT_EQ(late.eciReferenceTime(), 0.0);
  ASSERT_EQ(late.soundFiles().size(), 1u);
  EXPECT_EQ(late.soundFiles()[0].first, "b.wav");
  EXPECT_EQ(late.getExternalFile(EFT_IMAGE_FILE), std::vector<std::string>{"x.png"});
  std::ostringstream written;
  saveASIScenarioRequired(written, late, orvCore::LLA);
  EXPECT_NE(written.str().find("ReferenceYear\t2150\n"), std::string::npos) << written.str();

  // Up to version 13 the keyword names the IT configuration file.
  ScenarioUD old;
  EXPECT_EQ(load(old, "Version 13\nRefLLA 30 -120 0\nCoordSystem LLA\nImageFile it.cfg\n"), 0);
  EXPECT_EQ(old.getExternalFile(EFT_IT_CONFIG_FILE), std::vector<std::string>{"it.cfg"});
  EXPECT_TRUE(old.getExternalFile(EFT_IMAGE_FILE).empty());
}

TEST_F(Loader, WrittenScenarioReadsBack) {
  ScenarioUD original;
  original.setLatLonAlt(0.5, -2.0, 0);
  original.setReferenceYear(2021);
  auto* p = new PlatformUD(&original, std::make_unique<PlatformHeaderUD>());
  p->SetUniqueID(4);
  p->SetDesc("ship");
  p->AddToScenario(&original);
  const double a[3] = {0.5, -2.0, 10}, b[3] = {0.51, -2.0, 20};
  p->AddState(10, a, nullptr, nullptr);
  p->AddState(20, b, nullptr, nullptr);
  original.addCategoryData(4, -1, "Platform Type", "Aircraft");
  p->Header()->SetVerticalDatum(UTILS::VD_MSL);
  auto crHeader = std::make_unique<CustomRenderingHeaderUD>();
  crHeader->uniqueID = 5;
  crHeader->desc = "range rings";
  crHeader->SetRenderer("rings");
  auto* rings = new CustomRenderingUD(&original, p, std::move(crHeader));
  ASSERT_EQ(rings->AddToScenario(&original), 0);
  DataTable* table = original.AddDataTable(4, "T");
  int64_t column = 0;
  table->addColumn("v", UTILS::VT_FLOAT64, column);
  DataTableRowT row(15);
  row.addCell(column, new DataTableCellTyped<double>(2.5));
  table->addRow(row);
  std::ostringstream text;
  ASSERT_EQ(original.save(text, orvCore::LLA), 0);

  ScenarioUD copy;
  ASSERT_EQ(load(copy, text.str()), 0) << errors.str() << text.str();
  EXPECT_EQ(copy.referenceYear(), 2021);
  const PlatformUD* back = copy.findPlatform(4);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->Desc(), "ship");
  ASSERT_EQ(back->Motion()->Size(), 2u);
  EXPECT_NEAR(back->Motion()->states().at(20).lat, 0.51, 1e-12);
  EXPECT_EQ(back->categoryData().size(), 1u);
  EXPECT_EQ(back->Header()->verticalDatum, UTILS::VD_MSL);
  const CustomRenderingUD* ringsBack = copy.findCustomRendering(5);
  ASSERT_NE(ringsBack, nullptr);
  EXPECT_EQ(ringsBack->Desc(), "range rings");
  EXPECT_EQ(ringsBack->Header()->renderer, "rings");
  ASSERT_EQ(copy.dataTables().getNumberOfDataTables(), 1u);
  EXPECT_EQ(copy.dataTables().tables().begin()->second->getNumRows(), 1u);
}

}  // namespace

namespace {

// ASI text through the document loader into a reference host, as the TLE
// and Kepler conversions send it.
class LoaderToHost : public transmit::HostFixture {
 protected:
  nlohmann::json load(const std::string& body) {
    std::ostringstream text;
    text << "Version 24\nRefLLA 30 -120 0\nCoordSystem LLA\nReferenceYear 2020\n" << body;
    AsiScenarioFile file;
    std::vector<std::string> issues;
    EXPECT_FALSE(file.transmitScenario(write("s.asi", text.str()), nullptr, nullptr, nullptr, false, issues))
        << ::testing::PrintToString(issues);
    return host->toJson();
  }
  std::string warnings() const {
    std::string out;
    for (const auto& n : host->notifications())
      if (n.severity == PICommon::PI_NOTIFY_WARN) out += n.text;
    return out;
  }
};

std::string category(const nlohmann::json& object, const std::string& name) {
  for (const auto& record : object["data"]["categoryData"]["records"])
    if (record[1] == name) return record[2];
  return "";
}

TEST_F(LoaderToHost, WordsColoursAndNamesMeanWhatTheLanguageSays) {
  const nlohmann::json dump = load(
      "Classification \"SECRET\" green\n"
      "PlatformID 1\nPlatformName 1 \"  HMS\"  Example \nPlatformType 1 ship\nPlatformData 1 0 0.5 -2 0\n"
      "PlatformID 2\nPlatformName 2 \"\"\nPlatformType 2 7\nPlatformData 2 0 0.5 -2 0\n"
      "PlatformID 3\nPlatformName 3 c\nPlatformType 3 frigate\nPlatformData 3 0 0.5 -2 0\n");
  EXPECT_EQ(dump["scenario"]["classificationColor"], 0x00FF0080u);
  const nlohmann::json platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 3u);
  EXPECT_EQ(platforms[0]["header"]["name"], "HMS Example");
  EXPECT_EQ(platforms[1]["header"]["name"], "None");
  EXPECT_EQ(category(platforms[0], "Platform Type"), "Surface Ship");
  EXPECT_EQ(category(platforms[1], "Platform Type"), "Decoy");
  EXPECT_EQ(category(platforms[2], "Platform Type"), "Unknown");
}

TEST_F(LoaderToHost, LobStipplesAreHexadecimalAndTheWriterWritesThemSo) {
  load("PlatformID 1\nPlatformName 1 p\nPlatformData 1 0 0.5 -2 0\nLOBID 1 20\nLOBData 20 5 0 0 1\n"
       "LOBDrawStyle 20 5 red red 0xF0F0 ff00 3\n");
  const nlohmann::json lobs = objects("lob");
  ASSERT_EQ(lobs.size(), 1u);
  const nlohmann::json style = lobs[0]["data"]["lobDrawStyles"]["records"][0];
  EXPECT_EQ(style[3], 0xF0F0u);
  EXPECT_EQ(style[4], 0xFF00u);
  EXPECT_EQ(style[5], 3u);
  std::ostringstream written;
  saveASILOBDrawStyle(written, 20, 5, 0xFF0000FFu, 3, 0xFF0000FFu, 0xF0F0, 0xFF00, DataFormatUD());
  EXPECT_NE(written.str().find(" 0xF0F0 0xFF00 3\n"), std::string::npos) << written.str();
}

TEST_F(LoaderToHost, ClassificationWithoutColourIsWhite) {
  EXPECT_EQ(load("Classification UNCLASSIFIED\n")["scenario"]["classificationColor"], 0xFFFFFFFFu);
}

TEST_F(LoaderToHost, QuaternionAttitudeAndEcefVelocityAreTurnedIntoTheGeodeticState) {
  // Due north at 100 m/s over (0, 0): ECEF velocity +z. The attitude is a
  // quaternion, scalar last (order 3).
  const nlohmann::json dump = load(
      "PlatformID 1\nPlatformName 1 jet\nPlatformCoordSystem 1 ECEF\nPlatformUsesQuaternion 1 3\n"
      "PlatformData 1 10 6378137 0 0 0 0 0 1 0 0 100\n"
      "PlatformData 1 20 6378137 0 1000 0 0 0 2 0 0 100\n");
  EXPECT_EQ(warnings(), "");
  const nlohmann::json platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 1u);
  const nlohmann::json& records = platforms[0]["data"]["points"]["records"];
  ASSERT_EQ(records.size(), 2u);
  EXPECT_NEAR(records[0][1].get<double>(), 0.0, 1e-9);   // latitude
  EXPECT_NEAR(records[0][3].get<double>(), 0.0, 1e-3);   // altitude
  EXPECT_NEAR(records[0][8].get<double>(), 100.0, 1e-6);  // north
  EXPECT_NEAR(records[0][7].get<double>(), 0.0, 1e-6);    // east
}

TEST_F(LoaderToHost, HostsThatDoNotExistAreNamed) {
  load("PlatformID 1\nPlatformName 1 a\nPlatformData 1 0 0.5 -2 0\n"
       "LOBID 9 5\nLaser 0 6 beam\nCustomRendering 8 7 d r\nProjector 9 4 p\n"
       "PlatformData 1 x 0.5 -2 0\n");
  const std::string text = warnings();
  for (const char* expected :
       {"ID given does not correspond with a previously specified platform.  Line#: 8\n",
        "Platform host ID must be > 0.  Line#: 9\n",
        "ID given does not correspond with a previously specified platform.  Line#: 10\n",
        "ID given does not correspond with a previously specified platform.  Line#: 11\n",
        "Error (non-fatal) in file, see line # 12  (53): Illegally formed time string\n"})
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;
}

}  // namespace
