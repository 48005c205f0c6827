// The WAM reader: the TRACK, POINT and ACTION lines and their faults, the
// point filters of the mapping file with their drop counts, names, icons,
// and category data that is written only when a value changes.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "ImporterTestSupport.h"
#include "core/FileUtils.h"
#include "importers/ImporterSupport.h"
#include "importers/WAMFile.h"
#include "importers/wam/WAMLibrary.h"

using importertest::categories;
using importertest::ConsoleCapture;
using importertest::staticCategory;
using importertest::writeFile;
using WAMLib::WAMLibrary;

namespace {

// A POINT line: date, time, position and the fields from course on.
std::string point(const std::string& time, double lat, double lon, const std::string& rest) {
  std::ostringstream line;
  line << "POINT\\20240315\\" << time << "\\0\\" << std::fabs(lat) << (lat < 0 ? "\\S\\" : "\\N\\")
       << std::fabs(lon) << (lon < 0 ? "\\W\\" : "\\E\\") << "100\\" << rest;
  return line.str();
}

// Loads a WAM text with a mapping file found through ORVIDE_USER_DIR.
struct Loaded {
  ScenarioUD scenario;
  int result = -1;
  std::string out, errors;

  Loaded(const std::string& text, const std::string& mapping) {
    const std::string dir = testing::TempDir() + "wam_reader_map";
    UTILS::makePath(dir);
    writeFile("wam_reader_map/wamModel.map", mapping);
    setenv("ORVIDE_USER_DIR", dir.c_str(), 1);
    unsetenv("ORVIDE_DIR");
    unsetenv("ORVIDE_HOME");
    ConsoleCapture console;
    result = ParseWAMFile(writeFile("reader.wam", text), &scenario);
    out = console.info();
    errors = console.faults();
  }
  const PlatformUD* platform(const std::string& name) const { return scenario.findPlatform(name); }
};

}  // namespace

TEST(WamLines, RecordsAndTheFaultsOfEach) {
  std::istringstream in(
      "TRACK\\TRU\\U1\\7\n"
      "TRACK\\RAD\\U2\n"
      "POINT\\20240315\\120000\\0\\1\\N\\2\\E\n"
      "POINT\\2024031\\120000\\0\\1\\N\\2\\E\\0\n"
      "POINT\\20240315\\1200\\0\\1\\N\\2\\E\\0\n"
      "POINT\\20240315\\\\0\\1\\N\\2\\E\\0\n"
      "POINT\\20241315\\120000\\0\\1\\N\\2\\E\\0\n"
      "POINT\\20240315\\120000\\nan\\1\\N\\2\\E\\0\n"
      "ACTION\\U1\\7" + std::string(145, '\\') + "\n"
      "ACTION\\U1\\7" + std::string(146, '\\') + "\n"
      "BOGUS\\1\n");
  std::ostringstream errors;
  WAMLibrary library;
  EXPECT_EQ(library.parseStream(in, errors), 9);
  EXPECT_EQ(library.recordCount(), 2u);
  ASSERT_EQ(library.platforms().count("U1_7"), 1u);
  const WAMLib::WAMPlatform& track = library.platforms().at("U1_7");
  EXPECT_EQ(track.track.truth, "Y");  // a TRU source without a truth flag
  EXPECT_EQ(track.actions.size(), 1u);
  const std::string log = errors.str();
  for (const char* expected : {
           "\nError parsing TRACK, expected at least 3 tokens, received 2\nUnable to parse TRACK:\nTRACK\\RAD\\U2\n",
           "\nError parsing POINT, expected at least 8 tokens, received 7\nUnable to parse POINT:\n",
           "The yyyymmdd field must contain 8 characters: 2024031\n",
           "The hhmmss field must contain 6 characters: 1200\n",
           "Unable to process time due to empty fields\n",
           "The yyyymmdd field is not a date: 20241315\n",
           "The milliseconds field is not a number: nan\n",
           "\nError parsing ACTION, expected 148 tokens, received 147\nUnable to parse ACTION:\n",
           "Unrecognized keyword: BOGUS\n"})
    EXPECT_NE(log.find(expected), std::string::npos) << expected << "\n---\n" << log;
}

TEST(WamFilters, EachCauseIsCountedAndFilteredTracksVanish) {
  const Loaded wam(
      "TRACK\\RAD\\U1\\1\\Hawk\n"
      + point("120000", 10, 20, "450\\300\\U1\\1\\5") + "\n"  // a course past 360
      + point("115959", 10.1, 20, "90\\300\\U1\\1\\5") + "\n"     // earlier: Time
      + point("120010", 10.2, 20, "90\\900\\U1\\1\\5") + "\n"     // too fast: Speed
      + point("120020", 10, 20, "90\\300\\U1\\1\\5") + "\n"       // same place: Position
      + point("120030", 0, 0, "90\\300\\U1\\1\\5") + "\n"         // 0, 0: Position
      + point("120040", 10.3, 20, "90\\300\\U1\\1\\2") + "\n"     // low quality: Local TQ
      + point("120050", 10.4, 20, "90\\300\\U1\\1\\5") + "\n"
      + point("120000", 0, 0, "0\\0\\U2\\5\\5\\5\\GALAXY") + "\n"  // exempt from the position test
      + point("120000", 0, 0, "0\\0\\U3\\6") + "\n"
      + "POINT\\20240315\\120100\\0\\nan\\N\\1\\E\\0\\0\\0\\U2\\5\\5\\5\\GALAXY\n",
      "Maximum_Speed_Filter 500\nReject_Local_Track_Quality 2\nIgnore_Duplicate_Position true\n"
      "Hawk hawk.png\nClassification SECRET\n");
  ASSERT_EQ(wam.result, 0) << wam.errors;
  EXPECT_NE(wam.out.find("Loading WAM mapping file: \""), std::string::npos);
  EXPECT_NE(wam.out.find("Hawk Points Processed: 7\n  Dropped by Time: 1 Speed: 1 Position: 2 Local TQ: 1\n"),
            std::string::npos)
      << wam.out;
  // A position that is no number is dropped even from a GALAXY source.
  EXPECT_NE(wam.out.find("U2_5 Points Processed: 2\n  Dropped by Position: 1\n"), std::string::npos) << wam.out;
  EXPECT_NE(wam.out.find("U3_6 dropped due to no valid points!\n"), std::string::npos) << wam.out;
  EXPECT_EQ(wam.errors, "");
  const PlatformUD* hawk = wam.platform("Hawk");
  ASSERT_NE(hawk, nullptr);
  EXPECT_EQ(hawk->Header()->iconName, "hawk.png");
  EXPECT_EQ(hawk->Motion()->states().size(), 2u);
  const MotionStateUD& first = hawk->Motion()->states().front();
  EXPECT_NEAR(first.yaw, M_PI / 2, 1e-12);
  EXPECT_NEAR(first.velEast, 300 * 0.51444444, 1e-6);
  ASSERT_NE(wam.platform("U2_5"), nullptr);  // a track of points only is named by unit and track
  EXPECT_EQ(wam.platform("U2_5")->Header()->iconName, "x");
  EXPECT_EQ(wam.platform("U3_6"), nullptr);
  EXPECT_EQ(wam.scenario.classification(), "SECRET");
  EXPECT_EQ(wam.scenario.referenceYear(), 2024);
}

TEST(WamFilters, CalculatedSpeedComesFromTheLastKeptPoint) {
  // One degree of latitude in ten seconds is far beyond 1000 knots, whatever
  // the reported speed says.
  const Loaded wam(point("120000", 10, 20, "0\\1\\U\\1") + "\n" + point("120010", 11, 20, "0\\1\\U\\1") + "\n" +
                       point("120020", 10.0001, 20, "0\\1\\U\\1") + "\n",
                   "Maximum_Speed_Filter 1000\nUse_Calculated_Speed_Filter true\n");
  ASSERT_EQ(wam.result, 0);
  EXPECT_NE(wam.out.find("U_1 Points Processed: 3\n  Dropped by Speed: 1\n"), std::string::npos) << wam.out;
}

TEST(WamCategories, StaticTrackDataAndPointDataOnlyWhenChanged) {
  const std::string rest = "0\\0\\U\\9\\5\\3\\RAD\\TT\\";
  const Loaded wam("TRACK\\RAD\\U\\9\\\\DDG\\Destroyer\\USA\\\\EX1\n" +
                       point("120000", 1, 1, rest + "A\\CS\\F\\\\\\B\\O\\1234\\") + "\n" +
                       point("120010", 1.1, 1, rest + "A\\CS\\F\\\\\\B\\O\\1234\\7777") + "\n" +
                       point("120020", 1.2, 1, rest + "S") + "\n" + point("120030", 1.3, 1, rest + "") + "\n" +
                       point("120040", 1.4, 1, rest + "Q") + "\n" + point("120050", 1.5, 1, "0\\0\\U\\9\\4") + "\n",
                   "");
  ASSERT_EQ(wam.result, 0) << wam.errors;
  const PlatformUD* track = wam.platform("U_9");  // the empty name falls back to unit and track
  ASSERT_NE(track, nullptr);
  EXPECT_EQ(staticCategory(wam.scenario, *track, "Data Format"), "WAM");
  EXPECT_EQ(staticCategory(wam.scenario, *track, "Unit Type"), "DDG");
  EXPECT_EQ(staticCategory(wam.scenario, *track, "Platform Type"), "Destroyer");
  EXPECT_EQ(staticCategory(wam.scenario, *track, "Mission"), "Not Found");
  EXPECT_EQ(staticCategory(wam.scenario, *track, "Truth Data"), "N");
  const auto all = categories(wam.scenario, *track);
  const double t0 = (31 + 29 + 14) * 86400.0 + 12 * 3600.0;
  using Series = std::map<double, std::string>;
  EXPECT_EQ(all.at("Domain"),
            (Series{{t0, "Air"}, {t0 + 20, "Surface"}, {t0 + 30, "Not Found"}, {t0 + 40, "Unknown"}}));
  EXPECT_EQ(all.at("Local Track Quality"), (Series{{t0, "5"}, {t0 + 50, "4"}}));
  EXPECT_EQ(all.at("Mode 2"), (Series{{t0, "1234"}}));
  EXPECT_EQ(all.at("Mode 3"), (Series{{t0, "Not Found"}, {t0 + 10, "7777"}}));
}

TEST(WamFile, EmptyAndMissingFilesFail) {
  const Loaded empty("\n\n", "");
  EXPECT_NE(empty.result, 0);
  EXPECT_EQ(empty.errors, "Empty WAM data file encountered.\n");
  ScenarioUD scenario;
  ConsoleCapture errors;
  EXPECT_NE(ParseWAMFile(testing::TempDir() + "no_such.wam", &scenario), 0);
  EXPECT_NE(errors.faults().find("Unable to open WAM file"), std::string::npos);
}
