// The OTG loader through LoadOTGFile: tracks, contacts and their categories,
// generic data, ellipses, the mapping file, and what a bad file reports.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "core/FileUtils.h"
#include "core/TimeCalendar.h"
#include "document/ConvenienceFuncsUD.h"
#include "importers/OTGFile.h"

namespace {

constexpr double kDeg = 0.017453292519943295;
constexpr double kJan12At1530 = 11 * 86400.0 + 15.5 * 3600.0;

// Loads `text` as an OTG file into a fresh document, with the document's
// error stream captured.
class OtgLoad : public testing::Test {
 protected:
  void TearDown() override { setErrorStreamUD(nullptr); }

  int load(const std::string& text, ScenarioUD::PercentCallback* progress = nullptr) {
    path_ = testing::TempDir() + "otg_loader_" + testing::UnitTest::GetInstance()->current_test_info()->name() +
            ".otg";
    std::ofstream(path_, std::ios::binary) << text;
    setErrorStreamUD(&errors_);
    return LoadOTGFile(path_, &scenario_, progress);
  }

  PlatformUD* platform(const std::string& name) const { return scenario_.findPlatform(name); }

  std::vector<double> stateTimes(const std::string& name) const {
    std::vector<double> times;
    for (const auto& state : platform(name)->Motion()->states()) times.push_back(state.time);
    return times;
  }

  // Category value of a platform at a time, as text.
  std::string category(const std::string& name, const std::string& category, double time) const {
    int number = -1, value = -1;
    if (!scenario_.categoryManager().getCategoryName(category, number)) return "<no category>";
    if (!GetCategoryValueAtGivenTime(time, platform(name)->categoryData(), number, value)) return "<no value>";
    return scenario_.categoryManager().getCategoryValueString(number, value);
  }

  // Values of one generic-data tag of a platform, in time order.
  std::vector<std::string> generic(const std::string& name, const std::string& tag) const {
    std::vector<std::string> values;
    const GenericDataUD* data = scenario_.getGenericData(platform(name)->UniqueID());
    if (data == nullptr) return values;
    for (const auto& entry : data->items())
      for (const auto& item : entry.second)
        if (data->getTag(item.second.first) == tag) values.push_back(item.second.second);
    return values;
  }

  std::string log() const { return errors_.str(); }

  ScenarioUD scenario_;
  std::string path_;
  std::ostringstream errors_;
};

const char* const kTwoMessages =
    "MSGID/GOLD/CTF-65/OPS/0042/JAN\n"
    "CTC/T1/ALPHA/FRIGATE/FFG/4/NO/X/12345/L/A/F/N/SURFACE\n"
    "POS/121530Z2/JAN/3530N1/07530W5//045T/3NM/2NM/270.0T/12.0K/ALT350\n"
    "CTC/T2/BRAVO\n"
    "POS/121530Z2/JAN/3531N2/07531W6\n"
    "ENDAT\n"
    "MSGID/GOLD/CTF-65/OPS/0043/JAN\n"
    "CTC/T1/ALPHA/FRIGATE/FFG/4/NO/X/12345/L/A/H/N/SURFACE\n"
    "POS/121600Z0/JAN/3531N2/07531W6//045T/3NM/2NM/270.0T/12.0K/ALT350\n"
    "CTC/T9/UNK-9\n"
    "POS/121600Z0/JAN/9000N9/00000E0\n"
    "CTC/T8/POLE\n"
    "POS/121600Z0/JAN/9000N9/00000E0\n"
    "ENDAT\n";

}  // namespace

TEST_F(OtgLoad, OnePlatformPerTrackWithItsDataAndEllipses) {
  ASSERT_EQ(load(kTwoMessages), 0) << log();
  EXPECT_EQ(log(), "");
  EXPECT_EQ(scenario_.coordSystem(), orvCore::LLA);
  EXPECT_EQ(scenario_.referenceYear(), orvCore::currentYear());
  EXPECT_EQ(scenario_.desc(), path_);
  EXPECT_EQ(scenario_.classification(), "UNCLASSIFIED");

  // The placeholder at the pole with a hyphen in its name is gone; the
  // report at the pole of a plain name stays.
  ASSERT_EQ(scenario_.platforms().size(), 3u);
  EXPECT_EQ(platform("UNK-9"), nullptr);
  ASSERT_NE(platform("POLE"), nullptr);
  EXPECT_NEAR(platform("POLE")->Motion()->states().front().lat, 90 * kDeg, 1e-9);
  EXPECT_EQ(platform("ALPHA")->Header()->iconName, "O");

  // Two reports of one track in two messages: one platform, two states,
  // two "Command" items; categories follow the contact.
  EXPECT_EQ(stateTimes("ALPHA"), (std::vector<double>{kJan12At1530, kJan12At1530 + 1800}));
  EXPECT_EQ(generic("ALPHA", "Command"), (std::vector<std::string>{"GOLD", "GOLD"}));
  EXPECT_EQ(generic("ALPHA", "MSN"), (std::vector<std::string>{"0042", "0043"}));
  const MotionStateUD& first = platform("ALPHA")->Motion()->states().front();
  EXPECT_NEAR(first.lat, 35.5 * kDeg, 1e-12);
  EXPECT_NEAR(first.lon, -75.5 * kDeg, 1e-12);
  EXPECT_NEAR(first.alt, 350 * 100 * 0.30479999, 1e-6);
  EXPECT_NEAR(first.yaw, 270 * kDeg, 1e-12);
  EXPECT_NEAR(first.Speed(), 12 * 1852.0 / 3600.0, 1e-9);
  EXPECT_EQ(category("ALPHA", "Data Format", kJan12At1530), "OTG");
  EXPECT_EQ(category("ALPHA", "Force Code", kJan12At1530), "F");
  EXPECT_EQ(category("ALPHA", "Force Code", kJan12At1530 + 1800), "H");
  EXPECT_EQ(category("ALPHA", "Track Type", kJan12At1530), "SURFACE");
  EXPECT_EQ(category("ALPHA", "SCONUM", kJan12At1530), "12345");
  EXPECT_EQ(category("ALPHA", "Type", kJan12At1530), "FFG");
  // A contact without those fields; without a force code there is none to show.
  EXPECT_EQ(category("BRAVO", "Force Code", kJan12At1530), "<no value>");
  EXPECT_EQ(category("BRAVO", "Track Type", kJan12At1530), "Tactical");
  EXPECT_EQ(category("BRAVO", "SCONUM", kJan12At1530), "NOT SET");
  EXPECT_EQ(category("BRAVO", "Type", kJan12At1530), "NOT SET");

  // A track stays at its last position to the end of the scenario.
  EXPECT_EQ(stateTimes("BRAVO"), (std::vector<double>{kJan12At1530, kJan12At1530 + 1800}));

  // The ellipses of ALPHA: a custom rendering with a row per report.
  ASSERT_EQ(platform("ALPHA")->customRenderings().size(), 1u);
  const CustomRenderingUD* rendering = platform("ALPHA")->customRenderings()[0];
  EXPECT_EQ(rendering->Header()->renderer, "Custom Ellipse");
  EXPECT_EQ(rendering->Desc(), "Position Uncertainty");
  DataTable* table = nullptr;
  ASSERT_EQ(scenario_.dataTables().getTable(rendering->UniqueID(), "Custom Ellipse", table), 0);
  EXPECT_EQ(table->getColumnNames(), (std::vector<std::string>{"Latitude", "Longitude", "Altitude", "Heading",
                                                               "Pitch", "X Size", "Y Size"}));
  EXPECT_EQ(table->getColumnUnitTypes()[0], UTILS::UNITS_DEGREES);
  EXPECT_EQ(table->getColumnUnitTypes()[5], UTILS::UNITS_METERS);
  ASSERT_EQ(table->getNumRows(), 2u);
  DataTableRowT row;
  ASSERT_EQ(table->getRow(kJan12At1530, row), 0);
  const double expected[7] = {35.5, -75.5, 350 * 100 * 0.30479999, 45.0, 0.0, 5556.0, 3704.0};
  for (int i = 0; i < 7; ++i) {
    double value = -1;
    ASSERT_NE(row.cell(i), nullptr);
    row.cell(i)->getValue(value);
    EXPECT_NEAR(value, expected[i], 1e-6) << i;
  }
  EXPECT_TRUE(platform("BRAVO")->customRenderings().empty());
}

TEST_F(OtgLoad, BadInputIsToldWithItsLineAndTheRestLoads) {
  const int result = load(
      "junk header\n"
      "MSGID/GOLD/A/B/0001/JAN\n"
      "CTC/T1/ALPHA\n"
      "POS/121530Z2/JAN/3530N1/07530W5\n"
      "POS/121545Z8/JAN/35300000000000000000N1/07530W5\n"
      "POS/121600Z0/JAN/3531N2/07531W6/X/XXXT/3NM/2NM/abcT/12.0K\n"
      "POS/121600Z9/JAN/3531N2/07531W6\n"
      "AMPN/REMARK\n"
      "ENDAT\n"
      "MSGID/GOLD/A/B/0002/JAN\n"
      "CTC/T2/BRAVO\n"
      "POSITION/xx\n"
      "POS/121530Z2/JAN/3530N1/07530W5\n"
      "ENDAT\n"
      "MSGID/GOLD/A/B/0003/JAN\n"
      "CTC/T3/CHARLIE\n"
      "POS/121530Z2/JAN/3530N1/07530W5\n");
  EXPECT_EQ(result, OTG_LOADED_WITH_ERRORS);
  ASSERT_EQ(scenario_.platforms().size(), 1u);
  EXPECT_EQ(stateTimes("ALPHA"), (std::vector<double>{kJan12At1530, kJan12At1530 + 1800}));
  // The report without a readable course keeps its position, without speed.
  EXPECT_EQ(platform("ALPHA")->Motion()->states().back().Speed(), 0.0);
  const std::string text = log();
  for (const char* expected :
       {"Line 1 lies outside any message", "Line 5: POS report of track \"ALPHA\" skipped: latitude or longitude "
        "malformed", "Line 6: POS report of track \"ALPHA\" has a course that can't be read (\"abcT\")",
        "Line 6: POS report of track \"ALPHA\" has no uncertainty ellipse: bearing of the major axis",
        "Line 7: POS report of track \"ALPHA\" skipped: check digit of the date-time group wrong",
        "Unknown set \"AMPN\" at line 8", "Error in processing POS at line 12: POSITION/xx",
        "Message at line 15 has no ENDAT line", "File encountered errors while loading."})
    EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;
}

TEST_F(OtgLoad, EmptyOrMissingFilesAreFatal) {
  EXPECT_EQ(load("no message here\n"), UD_FATAL);
  EXPECT_NE(log().find("Empty data file encountered."), std::string::npos) << log();
  EXPECT_EQ(LoadOTGFile(testing::TempDir() + "no_such.otg", &scenario_), UD_FATAL);
  EXPECT_NE(log().find("Unable to open"), std::string::npos);
  // A file that can't be read has no message either.
  EXPECT_NE(log().find("Empty data file encountered.", log().find("Unable to open")), std::string::npos) << log();
}

TEST_F(OtgLoad, MessagesWithoutALoadableReportLoadEmpty) {
  EXPECT_EQ(load("MSGID/GOLD/A/B/0001/JAN\nCTC/T1/A\nPOS/1/JAN/3530N1/07530W5\nENDAT\n"), UD_NO_ERROR);
  EXPECT_TRUE(scenario_.platforms().empty());
  EXPECT_NE(log().find("No position report of the file could be loaded."), std::string::npos);
}

TEST_F(OtgLoad, ExpandedReportsCountInTheirOwnYear) {
  const int year = orvCore::currentYear();
  const std::string last = std::to_string(year - 1);
  ASSERT_EQ(load("MSGID/XCTC/A/B/0001/JAN\n"
                 "CTC/T1/ALPHA\n"
                 "XPOS/12153045.5Z/JAN" + last + "/3530N1/07530W5\n"
                 "POS/121530Z2/JAN/3530N1/07530W5\n"
                 "ENDAT\n"),
            0)
      << log();
  EXPECT_EQ(scenario_.referenceYear(), year - 1);
  EXPECT_EQ(stateTimes("ALPHA"), (std::vector<double>{kJan12At1530 + 45.5,
                                                      kJan12At1530 + orvCore::daysPerYear(year - 1) * 86400.0}));
}

TEST_F(OtgLoad, IconsComeFromTheMappingFile) {
  const std::string directory = testing::TempDir() + "otg_mapping";
  ASSERT_EQ(UTILS::makePath(directory), 0);
  std::ofstream(directory + "/wamModel.map") << "ALPHA frigate.png\n";
  setenv("ORVIDE_USER_DIR", directory.c_str(), 1);
  const int result = load(kTwoMessages);
  unsetenv("ORVIDE_USER_DIR");
  std::remove((directory + "/wamModel.map").c_str());
  ASSERT_EQ(result, 0);
  EXPECT_EQ(platform("ALPHA")->Header()->iconName, "frigate.png");
  EXPECT_EQ(platform("BRAVO")->Header()->iconName, "O");
}

TEST_F(OtgLoad, ProgressRisesAndCancels) {
  std::vector<int> seen;
  ScenarioUD::PercentCallbackAdapter watch([&seen](int percent) {
    seen.push_back(percent);
    return false;
  });
  ASSERT_EQ(load(kTwoMessages, &watch), 0);
  ASSERT_FALSE(seen.empty());
  for (size_t i = 0; i < seen.size(); ++i) {
    EXPECT_GE(seen[i], 0);
    EXPECT_LE(seen[i], 100);
    if (i > 0) {
      EXPECT_GE(seen[i], seen[i - 1]);
    }
  }
  ScenarioUD::PercentCallbackAdapter cancel([](int) { return true; });
  ScenarioUD other;
  EXPECT_EQ(LoadOTGFile(path_, &other, &cancel), UD_USER_CANCEL);
}
