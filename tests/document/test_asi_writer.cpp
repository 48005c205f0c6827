// The ASI writer: what each family writes, the order of a file, and the
// lines it leaves out with a complaint on the document's error stream.
#include <gtest/gtest.h>

#include <sstream>

#include "document/ASIOutput.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

namespace {

class Writer : public ::testing::Test {
 protected:
  void SetUp() override { previous = setErrorStreamUD(&errors); }
  void TearDown() override { setErrorStreamUD(previous); }

  PlatformUD* platform(uint64_t id, const std::string& icon = "") {
    auto* p = new PlatformUD(&scenario, std::make_unique<PlatformHeaderUD>());
    p->SetUniqueID(id);
    p->SetDesc("ship " + std::to_string(id));
    p->SetIconName(icon);
    p->AddToScenario(&scenario);
    const double pos[3] = {0.5, -2.0, 10};
    p->AddState(100, pos, nullptr, nullptr);
    p->AddState(200, pos, nullptr, nullptr);
    return p;
  }

  ScenarioUD scenario;
  DataFormatUD format;
  std::ostringstream out;
  std::ostringstream errors;
  std::ostream* previous = nullptr;
};

TEST_F(Writer, ScenarioWithoutPlatformsStillHasItsHeader) {
  scenario.setLatLonAlt(0.5, -2.0, 0);
  scenario.setSaveBgn(0);
  scenario.setSaveEnd(10);
  scenario.setReferenceYear(2020);
  ASSERT_EQ(scenario.save(out, orvCore::LLA), 0);
  const std::string text = out.str();
  EXPECT_EQ(text.rfind("# ORVIDE ASCII Scenario Input (ASI) File Format\n\n# Scenario Initialization Keywords\n"
                       "Version\t24\nRefLLA\t",
                       0),
            0u);
  EXPECT_NE(text.find("CoordSystem\t\"LLA\"\nReferenceYear\t2020\n"), std::string::npos);
  EXPECT_NE(text.find("DegreeAngles\t0\n"), std::string::npos);
  EXPECT_EQ(text.find("Platform"), std::string::npos);
}

TEST_F(Writer, InvalidScenarioIsNotSaved) {
  EXPECT_EQ(scenario.save("/nonexistent/x.asi", orvCore::LLA), UD_INVALID_SCENARIO_SAVE);
  scenario.setLatLonAlt(0.5, -2.0, 0);
  platform(1);
  EXPECT_EQ(scenario.save("/nonexistent/dir/x.asi", orvCore::LLA), UD_SAVE_OPEN_FAILED);
}

TEST_F(Writer, PlatformLinesInOrder) {
  scenario.setLatLonAlt(0.5, -2.0, 0);
  PlatformUD* p = platform(7);
  p->SetOriginalID(900);
  scenario.addCategoryData(7, -1, "Platform Type", "Aircraft");
  ASSERT_EQ(scenario.save(out, orvCore::LLA), 0);
  const std::string text = out.str();
  const size_t id = text.find("# Platform Keywords\nPlatformID\t7\nPlatformName\t7 \"ship 7\"\nPlatformIcon\t7 \"None\"\n"
                              "OriginalID\t7 900\nPlatformInterpolate\t7 1\n"
                              "PlatformVerticalDatum\t7 \"WGS84\"\nPlatformMagneticVariance\t7 \"TRUE\"\n");
  ASSERT_NE(id, std::string::npos) << text;
  EXPECT_EQ(text.find("PlatformOffset"), std::string::npos);
  const size_t data = text.find("PlatformData\t7 \"100.00000000\" 0.5 -2 10\n");
  EXPECT_NE(data, std::string::npos) << text;
  const size_t category = text.find("CategoryData\t7 \"-1\" \"Platform Type\" \"Aircraft\"\n");
  EXPECT_GT(category, data);
}

TEST_F(Writer, VelocityIsWrittenOnlyOnTheStatesThatGaveOne) {
  scenario.setLatLonAlt(0.5, -2.0, 0);
  PlatformUD* p = platform(7);
  const double pos[3] = {0.5, -2.0, 10};
  const double velocity[3] = {1, 2, 3};
  p->AddState(300, pos, nullptr, velocity, nullptr);
  ASSERT_EQ(scenario.save(out, orvCore::LLA), 0);
  const std::string text = out.str();
  EXPECT_NE(text.find("PlatformData\t7 \"200.00000000\" 0.5 -2 10 0 0 0\n"), std::string::npos) << text;
  EXPECT_NE(text.find("PlatformData\t7 \"300.00000000\" 0.5 -2 10 0 0 0 1 2 3\n"), std::string::npos) << text;
}

TEST_F(Writer, DataLinesOfEachFamily) {
  format.degreeAngles = true;
  const double pos[3] = {0.5, -1.0, 3};
  const double ori[3] = {M_PI, 0, 0};
  // Numbers follow the stream's precision; a static time is -1.
  saveASIPlatformData(out, 1, -1, format, pos, ori, nullptr, 12.5);
  EXPECT_EQ(out.str(), "PlatformData\t1 \"-1\" 28.6479 -57.2958 3 180 0 0 12.5\n");
  out.str("");
  saveASIPlatformData(out, 1, 5, format, nullptr, ori, nullptr);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(errors.str(), "ERROR:  Unable to obtain Platform Data position.\n");

  out.str("");
  saveASIBeamColorCmd(out, 3, 10, 0x11223344, format);
  saveASIGenericData(out, 3, "Tag", "two\nlines\r", 4, -1, format);
  EXPECT_EQ(out.str(), "BeamColorCmd\t3 \"10.00000000\" 0x44332211\nGenericData\t3 \"Tag\" \"twolines\" \"4.00000000\" -1\n");
}

TEST_F(Writer, DataTablesWriteHeaderUnitsAndRows) {
  saveASIDataTableHeader(out, 1, 5, "T", {"a", "b"}, {UTILS::VT_FLOAT64}, {UTILS::UNITS_METERS});
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(errors.str(), "ERROR:  number of columns != number of storage types\n");
  saveASIDataTableHeader(out, 1, 5, "T", {"a", "b"}, {UTILS::VT_FLOAT64, UTILS::VT_STRING},
                         {UTILS::UNITS_METERS, UTILS::UNITS_UNKNOWN});
  DataTableRowT row(2);
  row.addCell(1, new DataTableCellTyped<std::string>("say \"hi\"\n"));
  saveASIDataTableRow(out, "DataTableRow", 5, row, {0, 1}, format);
  EXPECT_EQ(out.str(),
            "DataTable\t1 5 \"T\" \"a\" FLOAT64 \"b\" STRING\nDataTableUnits\t5 \"Meters\" \"Unknown\"\n"
            "DataTableRow\t5 \"2.00000000\" NULL \"say \\\"hi\\\"\\0xA\"\n");
  saveASIDataTableRow(out, "", 5, row, {0, 1}, format);
  EXPECT_NE(errors.str().find("ERROR:  ASI keyword not specified.\n"), std::string::npos);
}

TEST(WriterSupport, CoordinateSystemsAndClassifications) {
  EXPECT_EQ(getCoordSystem(orvCore::ECEF), "ECEF");
  EXPECT_EQ(getCoordSystem(orvCore::NED), "NED");
  EXPECT_EQ(getCoordSystem(42), "NED");
  EXPECT_EQ(checkCoordSystem("gtp"), orvCore::GTP);
  EXPECT_EQ(checkCoordSystem("XYZ"), -1);
  // The host's numbers are read too.
  EXPECT_EQ(checkCoordSystem("3"), orvCore::LLA);
  EXPECT_EQ(checkCoordSystem("9"), orvCore::ECI);
  EXPECT_EQ(checkCoordSystem("10"), -1);
  EXPECT_EQ(checkClassification("SECRET-WN"), "SECRET - WN");
  EXPECT_EQ(checkClassification("secret nf"), "SECRET - NF");
  EXPECT_EQ(checkClassification("TOP SECRET"), "TOP SECRET");
  EXPECT_EQ(checkClassification("NOPE"), "");
  std::string text;
  EXPECT_TRUE(getOutputTimeString(-5, UTILS::UNITS_SECONDS, 2020, text));
  EXPECT_EQ(text, "-1");
}

}  // namespace
