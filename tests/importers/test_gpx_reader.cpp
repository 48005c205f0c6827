// The GPX reader: tracks and waypoints of files written by gpsbabel and by
// hand (GPX 1.0 and 1.1, prefixes, extensions, CDATA, BOM, CRLF, the stray
// degree byte), times across a new year, and the faults a user must be told.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "ImporterTestSupport.h"
#include "importers/GPXParser.h"

using importertest::categories;
using importertest::ConsoleCapture;
using importertest::staticCategory;
using importertest::writeFile;

namespace {

constexpr double kDeg = M_PI / 180.0;
const std::string kData = std::string(ORV_TEST_DATA_DIR) + "/gpx/";

std::vector<const PlatformUD*> platformsOf(const ScenarioUD& scenario) {
  std::vector<const PlatformUD*> out;
  for (const auto& entry : scenario.platforms()) out.push_back(entry.second.get());
  return out;
}

std::vector<double> timesOf(const PlatformUD& platform) {
  std::vector<double> out;
  for (const auto& state : platform.Motion()->states()) out.push_back(state.time);
  return out;
}

std::string gpx(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<gpx version=\"1.1\" creator=\"test\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n" +
         body + "</gpx>\n";
}

}  // namespace

TEST(GpxTracks, GpsbabelTrackAcrossNewYearInBothVersions) {
  for (const char* file : {"walk_gpx11.gpx", "walk_gpx10.gpx"}) {
    SCOPED_TRACE(file);
    ScenarioUD scenario;
    ConsoleCapture errors;
    ASSERT_EQ(ParseGPXFile(kData + file, &scenario, false), 0) << errors.faults();
    // GPX 1.1 keeps the file's header in "metadata"; GPX 1.0's loose header
    // elements are not read, and are told.
    EXPECT_EQ(errors.faults(), std::string(file) == "walk_gpx11.gpx"
                                   ? ""
                                   : "Unsupported GPX element type on line 3 type: time\n"
                                     "Unsupported GPX element type on line 4 type: bounds\n");
    const auto platforms = platformsOf(scenario);
    ASSERT_EQ(platforms.size(), 1u);
    const PlatformUD& track = *platforms[0];
    EXPECT_EQ(track.Header()->callSign, "GPS TRK");
    EXPECT_EQ(staticCategory(scenario, track, "Platform Type"), "GPX trk");
    EXPECT_EQ(staticCategory(scenario, track, "Data Format"), "GPX");
    // The year of the earliest point is the reference; 2024 goes on from 2023.
    EXPECT_EQ(scenario.referenceYear(), 2023);
    const double newYear = 365 * 86400.0;
    EXPECT_EQ(timesOf(track), (std::vector<double>{newYear - 90, newYear - 30, newYear + 30, newYear + 90}));
    const MotionStateUD& first = track.Motion()->states().front();
    EXPECT_NEAR(first.lat, 47.6001 * kDeg, 1e-12);
    EXPECT_NEAR(first.lon, -122.3301 * kDeg, 1e-12);
    EXPECT_DOUBLE_EQ(first.alt, 12.5);
    // The scenario is placed at the first point, on the ground.
    EXPECT_NEAR(scenario.converter().referenceLat(), 47.6001 * kDeg, 1e-12);
    EXPECT_DOUBLE_EQ(scenario.converter().referenceAlt(), 0.0);
    EXPECT_EQ(scenario.coordSystem(), orvCore::LLA);
    EXPECT_EQ(scenario.classification(), "UNCLASSIFIED");
    EXPECT_EQ(scenario.desc(), kData + file);
  }
}

TEST(GpxTracks, NamesCourseSpeedAndPointsWithoutTime) {
  ScenarioUD scenario;
  const std::string path = writeFile(
      "gpx_named.gpx",
      gpx("<trk><name> Morning run </name><trkseg>\n"
          "<trkpt lat=\"10\" lon=\"20\"><time>2024-03-01T10:00:00Z</time><course>-270</course><speed>2</speed></trkpt>\n"
          "<trkpt lat=\"10.001\" lon=\"20\"><ele>5</ele></trkpt>\n"
          "<trkpt lat=\"10.002\" lon=\"20\"><time>2024-03-01T10:00:10.750Z</time></trkpt>\n"
          "</trkseg><trkseg><trkpt lat=\"10.003\" lon=\"20\"><time>2024-03-01T12:00:20+02:00</time></trkpt></trkseg>"
          "</trk>\n"
          "<trk><name>no times</name><trkseg><trkpt lat=\"1\" lon=\"1\"/></trkseg></trk>\n"));
  ASSERT_EQ(ParseGPXFile(path, &scenario, false), 0);
  const auto platforms = platformsOf(scenario);
  ASSERT_EQ(platforms.size(), 1u);  // the track without times makes none
  const PlatformUD& run = *platforms[0];
  EXPECT_EQ(run.Header()->callSign, "Morning run");
  const double day = (31 + 29) * 86400.0 + 10 * 3600.0;
  // The fraction is dropped; +02:00 is two hours ahead of UTC.
  EXPECT_EQ(timesOf(run), (std::vector<double>{day, day + 10, day + 20}));
  const MotionStateUD& first = run.Motion()->states().front();
  EXPECT_NEAR(first.yaw, M_PI / 2, 1e-12);
  EXPECT_NEAR(first.velEast, 2.0, 1e-9);
  EXPECT_NEAR(first.velNorth, 0.0, 1e-9);
}

TEST(GpxTracks, AnEarlierLaterTrackKeepsItsPoints) {
  ScenarioUD scenario;
  const std::string path = writeFile(
      "gpx_years.gpx",
      gpx("<trk><trkseg><trkpt lat=\"1\" lon=\"1\"><time>2024-01-01T00:00:10Z</time></trkpt></trkseg></trk>\n"
          "<trk><trkseg><trkpt lat=\"1\" lon=\"1\"><time>2023-12-31T23:59:50Z</time></trkpt></trkseg></trk>\n"));
  ASSERT_EQ(ParseGPXFile(path, &scenario, false), 0);
  EXPECT_EQ(scenario.referenceYear(), 2023);
  const auto platforms = platformsOf(scenario);
  ASSERT_EQ(platforms.size(), 2u);
  EXPECT_EQ(timesOf(*platforms[0]), std::vector<double>{365 * 86400.0 + 10});
  EXPECT_EQ(timesOf(*platforms[1]), std::vector<double>{365 * 86400.0 - 10});
}

TEST(GpxWaypoints, GpsbabelWaypointsWithSymbolIcons) {
  ScenarioUD scenario;
  ASSERT_EQ(ParseGPXFile(kData + "marks_gpx11.gpx", &scenario, false), 0);
  const auto platforms = platformsOf(scenario);
  ASSERT_EQ(platforms.size(), 3u);
  EXPECT_EQ(platforms[0]->Header()->callSign, "Space Needle");
  EXPECT_EQ(platforms[0]->Header()->iconName, "red-flag.png");
  EXPECT_EQ(platforms[1]->Header()->iconName, "blue-pin.png");
  EXPECT_EQ(platforms[2]->Header()->callSign, "FIELD");
  EXPECT_EQ(platforms[2]->Header()->iconName, "wpt");  // "Campground" has no icon of its own
  EXPECT_EQ(staticCategory(scenario, *platforms[0], "Platform Type"), "GPX wpt");
  EXPECT_EQ(timesOf(*platforms[0]), std::vector<double>{0.0});
  EXPECT_DOUBLE_EQ(platforms[0]->Motion()->states().front().alt, 184.0);
  // Without any timed point the file's own time names the year.
  EXPECT_GT(scenario.referenceYear(), 2000);
}

TEST(GpxWaypoints, LabelsFromDescriptionOrCommentAndRequiredPosition) {
  ScenarioUD scenario;
  const std::string path = writeFile("gpx_labels.gpx",
                                     gpx("<wpt lat=\"1\" lon=\"2\"><cmt>comment</cmt><name>n</name></wpt>\n"
                                         "<wpt lat=\"1\" lon=\"2\"><name>only name</name></wpt>\n"
                                         "<wpt lat=\"1\" lon=\"2\"/>\n"
                                         "<wpt lat=\"1\"><desc>no longitude</desc></wpt>\n"));
  ASSERT_EQ(ParseGPXFile(path, &scenario, false), 0);
  const auto platforms = platformsOf(scenario);
  ASSERT_EQ(platforms.size(), 3u);
  EXPECT_EQ(platforms[0]->Header()->callSign, "comment");
  EXPECT_EQ(platforms[1]->Header()->callSign, "GPS WPT");  // "name" is not a label
  EXPECT_EQ(platforms[2]->Header()->callSign, "GPS WPT");
}

TEST(GpxWaypoints, NumbersReadAsStrtodReadsThem) {
  // Short decimals, and the texts that a quick reading of short decimals
  // must hand on: exponents, more digits than a double holds, signs, blanks,
  // trailing text, no digits at all.
  const std::vector<std::string> texts = {
      "1600.5",  "-104.9999900", "0.1",  "0.3",       " \t+12.25",          "-0",   ".5",   "7.",  "4.35e2",
      "2.5E-1",  "9007199254740993", "123456789.123456789", "0.12345678901234567890123456789", "12abc",
      "abc",     "-.",   "3.14159265358979323846"};
  std::string body;
  for (const std::string& text : texts) body += "<wpt lat=\"1\" lon=\"2\"><ele>" + text + "</ele></wpt>\n";
  ScenarioUD scenario;
  ASSERT_EQ(ParseGPXFile(writeFile("gpx_numbers.gpx", gpx(body)), &scenario, false), 0);
  const auto platforms = platformsOf(scenario);
  ASSERT_EQ(platforms.size(), texts.size());
  for (size_t i = 0; i < texts.size(); ++i) {
    SCOPED_TRACE(texts[i]);
    const double altitude = platforms[i]->Motion()->states().front().alt;
    const double expected = std::strtod(texts[i].c_str(), nullptr);
    EXPECT_EQ(altitude, expected);
    EXPECT_EQ(std::signbit(altitude), std::signbit(expected));
  }
}

TEST(GpxInTheWild, PrefixesExtensionsCdataBomCrlfAndDegreeByte) {
  ScenarioUD scenario;
  ConsoleCapture errors;
  const std::string path = writeFile(
      "gpx_wild.gpx",
      "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
      "<g:gpx version=\"1.1\" xmlns:g=\"http://www.topografix.com/GPX/1/1\" "
      "xmlns:x=\"http://www.garmin.com/xmlschemas/TrackPointExtension/v1\">\r\n"
      "<g:wpt lat=\"1\" lon=\"2\"><g:desc>Summit 45\xB0 north</g:desc><g:sym>Block, Green</g:sym></g:wpt>\r\n"
      "<g:trk><g:name><![CDATA[Ridge <walk>]]></g:name><g:trkseg>\r\n"
      "<g:trkpt lat=\"1\" lon=\"2\"><g:time>2024-06-01T00:00:00Z</g:time>"
      "<g:extensions><x:TrackPointExtension><x:hr>120</x:hr></x:TrackPointExtension></g:extensions></g:trkpt>\r\n"
      "</g:trkseg><g:extensions><x:color>red</x:color></g:extensions></g:trk>\r\n"
      "</g:gpx>\r\n");
  ASSERT_EQ(ParseGPXFile(path, &scenario, false), 0) << errors.faults();
  EXPECT_EQ(errors.faults(), "");
  const auto platforms = platformsOf(scenario);
  ASSERT_EQ(platforms.size(), 2u);
  EXPECT_EQ(platforms[0]->Header()->callSign, "Summit 45\xC2\xB0 north");
  EXPECT_EQ(platforms[0]->Header()->iconName, "green-block.png");
  EXPECT_EQ(platforms[1]->Header()->callSign, "Ridge <walk>");
}

TEST(GpxInTheWild, AnEncodingExpatLacksReadsAsLatin1) {
  ScenarioUD scenario;
  const std::string path = writeFile("gpx_cp1252.gpx",
                                     "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n"
                                     "<gpx><wpt lat=\"1\" lon=\"2\"><desc>Caf\xE9</desc></wpt></gpx>\n");
  ASSERT_EQ(ParseGPXFile(path, &scenario, false), 0);
  ASSERT_EQ(scenario.platforms().size(), 1u);
  EXPECT_EQ(scenario.platforms().begin()->second->Header()->callSign, "Caf\xC3\xA9");
}

TEST(GpxFaults, WrongRootSyntaxErrorsUnsupportedElementsAndMissingFile) {
  {
    ScenarioUD scenario;
    ConsoleCapture errors;
    EXPECT_NE(ParseGPXFile(writeFile("gpx_root.gpx", "<kml><trk/></kml>"), &scenario, false), 0);
    EXPECT_EQ(errors.faults(), "Expecting \"gpx\", but found \"kml\".\n");
  }
  {
    ScenarioUD scenario;
    ConsoleCapture errors;
    EXPECT_NE(ParseGPXFile(writeFile("gpx_syntax.gpx", gpx("<wpt lat=\"1\" lon=\"2\">\n</trk>\n")), &scenario, false),
              0);
    EXPECT_EQ(errors.faults(), "XML Parser Error: mismatched tag at line 4\n");
  }
  {
    ScenarioUD scenario;
    ConsoleCapture errors;
    const std::string path = writeFile(
        "gpx_rte.gpx", gpx("<rte><name>r</name></rte>\n<extensions/>\n<wpt lat=\"1\" lon=\"2\"/>\n"));
    EXPECT_EQ(ParseGPXFile(path, &scenario, false), 0);
    EXPECT_EQ(errors.faults(),
              "Unsupported GPX element type on line 3 type: rte\n"
              "Unsupported GPX element type on line 4 type: extensions\n");
    EXPECT_EQ(scenario.platforms().size(), 1u);  // the walk goes on
  }
  {
    ScenarioUD scenario;
    ConsoleCapture errors;
    EXPECT_NE(ParseGPXFile(testing::TempDir() + "no_such.gpx", &scenario, false), 0);
    EXPECT_NE(errors.faults().find("ERROR: Cannot open input file"), std::string::npos);
  }
  {
    ScenarioUD scenario;
    ConsoleCapture errors;
    const std::string path = writeFile(
        "gpx_badtime.gpx",
        gpx("<trk><trkseg><trkpt lat=\"1\" lon=\"1\">\n<time>2024-02-30T00:00:00Z</time></trkpt></trkseg></trk>\n"));
    EXPECT_EQ(ParseGPXFile(path, &scenario, false), 0);
    EXPECT_EQ(errors.faults(), "Unreadable GPX time \"2024-02-30T00:00:00Z\" on line 4: point skipped\n");
    EXPECT_TRUE(scenario.platforms().empty());
  }
}

// Hostile files end with expat's own error text; none of them may take the
// process down or hold memory beyond the parser's budget.
TEST(GpxHostile, EntityBombDeepNestingAndHugeAttributeAreRefused) {
  {
    std::string bomb = "<?xml version=\"1.0\"?>\n<!DOCTYPE gpx [\n<!ENTITY a0 \"lollollollollollollollollollol\">\n";
    for (int i = 1; i <= 10; ++i) {
      bomb += "<!ENTITY a" + std::to_string(i) + " \"";
      for (int k = 0; k < 10; ++k) bomb += "&a" + std::to_string(i - 1) + ";";
      bomb += "\">\n";
    }
    bomb += "]>\n<gpx><wpt lat=\"1\" lon=\"2\"><desc>&a10;</desc></wpt></gpx>\n";
    ScenarioUD scenario;
    ConsoleCapture errors;
    EXPECT_NE(ParseGPXFile(writeFile("gpx_bomb.gpx", bomb), &scenario, false), 0);
    EXPECT_NE(errors.faults().find("XML Parser Error: limit on input amplification factor"), std::string::npos)
        << errors.faults();
  }
  {
    const int depth = 2000000;
    std::string deep = "<gpx>";
    deep.reserve(depth * 7 + 16);
    for (int i = 0; i < depth; ++i) deep += "<a>";
    ScenarioUD scenario;
    ConsoleCapture errors;
    EXPECT_NE(ParseGPXFile(writeFile("gpx_deep.gpx", deep), &scenario, false), 0);
    EXPECT_NE(errors.faults().find("XML Parser Error: out of memory"), std::string::npos) << errors.faults();
  }
  {
    const std::string path = testing::TempDir() + "gpx_attribute.gpx";
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("<gpx><wpt lat=\"1\" lon=\"", file);
    const std::string chunk(1 << 20, '9');
    for (int i = 0; i < 96; ++i) std::fwrite(chunk.data(), 1, chunk.size(), file);
    std::fputs("\"/></gpx>", file);
    std::fclose(file);
    ScenarioUD scenario;
    ConsoleCapture errors;
    EXPECT_NE(ParseGPXFile(path, &scenario, false), 0);
    EXPECT_NE(errors.faults().find("XML Parser Error: out of memory"), std::string::npos) << errors.faults();
    std::remove(path.c_str());
  }
}
