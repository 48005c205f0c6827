// Exports for GIS tools read back by GDAL's ogrinfo, the quick-look picture,
// and scenario-host as installed by cmake --install.
#include <cairo.h>

#include <GeographicLib/Geocentric.hpp>
#include <cmath>
#include <regex>

#include "E2eSupport.h"

namespace {

using e2e::example;

constexpr double DEGREES = 180.0 / M_PI;

struct LonLat {
  double lon, lat;
};

class Exports : public e2e::HostRun {
 protected:
  // The standard output of a shell command.
  static std::string capture(const std::string& command) {
    std::string out;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return out;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
    ::pclose(pipe);
    return out;
  }

  std::string ogrinfo(const std::string& file, const std::string& options = "") {
    return capture("ogrinfo -ro -al " + options + " " + e2e::quote(path(file)) + " 2>&1");
  }

  static int featureCount(const std::string& listing) {
    std::smatch m;
    return std::regex_search(listing, m, std::regex("Feature Count: ([0-9]+)")) ? std::stoi(m[1]) : -1;
  }

  // Every geometry of an ogrinfo listing, in order, as its positions.
  static std::vector<std::vector<LonLat>> geometries(const std::string& listing) {
    std::vector<std::vector<LonLat>> out;
    std::istringstream in(listing);
    const std::regex geometry("^\\s*(POINT|LINESTRING)( Z)? \\((.*)\\)\\s*$");
    for (std::string line; std::getline(in, line);) {
      std::smatch m;
      if (!std::regex_match(line, m, geometry)) continue;
      std::vector<LonLat> positions;
      std::istringstream list(std::regex_replace(std::string(m[3]), std::regex(","), " , "));
      std::vector<double> numbers;
      for (std::string token; list >> token;) {
        if (token == ",") continue;
        numbers.push_back(std::stod(token));
      }
      const std::size_t per = m[2].matched ? 3 : 2;
      for (std::size_t i = 0; i + 1 < numbers.size(); i += per) positions.push_back({numbers[i], numbers[i + 1]});
      out.push_back(positions);
    }
    return out;
  }

  // The dump's platform points in degrees, the static ones left out of a
  // track when asked: LLA frames as they are, ECEF through GeographicLib,
  // which is independent of the exporter's converter.
  static std::vector<std::vector<LonLat>> dumpTracks(const nlohmann::json& dump, bool timedOnly) {
    std::vector<std::vector<LonLat>> tracks;
    for (const auto& object : dump["objects"]) {
      if (object["kind"] != "platform") continue;
      // A platform with no timed point is shown where its static one is.
      bool timed = false;
      for (const auto& r : object["data"]["points"]["records"]) timed = timed || r[0] != -1.0;
      std::vector<LonLat> track;
      for (const auto& r : object["data"]["points"]["records"]) {
        if (timedOnly && timed && r[0] == -1.0) continue;
        const int system = dump["frames"][r[10].get<int>()]["coordSystem"];
        double lat = 0, lon = 0, h = 0;
        if (system == 3) {
          lat = r[1].get<double>() * DEGREES;
          lon = r[2].get<double>() * DEGREES;
        } else {
          EXPECT_EQ(system, 4);
          GeographicLib::Geocentric::WGS84().Reverse(r[1], r[2], r[3], lat, lon, h);
        }
        track.push_back({lon, lat});
      }
      tracks.push_back(track);
    }
    return tracks;
  }

  static void expectSame(const std::vector<std::vector<LonLat>>& read, const std::vector<std::vector<LonLat>>& dump) {
    ASSERT_EQ(read.size(), dump.size());
    for (std::size_t t = 0; t < read.size(); ++t) {
      // A platform that stands still is one point however many it has.
      const std::size_t n = read[t].size() == 1 ? 1 : dump[t].size();
      ASSERT_EQ(read[t].size(), n) << "track " << t;
      for (std::size_t i = 0; i < n; ++i) {
        const LonLat& expected = read[t].size() == 1 ? dump[t].back() : dump[t][i];
        EXPECT_NEAR(read[t][i].lon, expected.lon, 1e-7) << "track " << t << " point " << i;
        EXPECT_NEAR(read[t][i].lat, expected.lat, 1e-7) << "track " << t << " point " << i;
      }
    }
  }

  void loadBoth() {
    for (const char* name : {"harbour", "aircraft_ecef"}) {
      const std::string n = name;
      const e2e::Outcome r = run({"--dump", n + ".json", "--export", n + ".geojson", "--export", n + ".csv", "--export",
                                  n + ".kml", "--export", n + ".czml", example(n + ".asi")});
      ASSERT_EQ(r.status, 0) << r.err;
    }
  }
};

TEST_F(Exports, GeoJsonKmlAndCsvReadBackWithTheDumpsPositions) {
  loadBoth();
  for (const char* name : {"harbour", "aircraft_ecef"}) {
    SCOPED_TRACE(name);
    const std::string n = name;
    const auto dump = json(n + ".json");
    const std::size_t platforms = dumpTracks(dump, true).size();

    const std::string geojson = ogrinfo(n + ".geojson");
    EXPECT_NE(geojson.find("using driver `GeoJSON' successful"), std::string::npos) << geojson;
    EXPECT_EQ(featureCount(geojson), static_cast<int>(platforms));
    expectSame(geometries(geojson), dumpTracks(dump, true));

    const std::string kml = ogrinfo(n + ".kml");
    EXPECT_EQ(featureCount(kml), static_cast<int>(platforms)) << kml.substr(0, 300);
    expectSame(geometries(kml), dumpTracks(dump, true));

    const std::string csv = ogrinfo(n + ".csv", "-oo X_POSSIBLE_NAMES=longitude -oo Y_POSSIBLE_NAMES=latitude");
    EXPECT_EQ(featureCount(csv), dump["statistics"]["points"].get<int>());
    std::vector<LonLat> rows;
    for (const auto& g : geometries(csv)) rows.push_back(g.at(0));
    std::vector<LonLat> all;
    for (const auto& track : dumpTracks(dump, false)) all.insert(all.end(), track.begin(), track.end());
    expectSame({rows}, {all});
  }
  // Per-vertex times and the platform's description travel with a GeoJSON track.
  const auto feature = json("harbour.geojson")["features"][0];
  EXPECT_EQ(feature["properties"]["name"], "Gosport Queen");
  EXPECT_EQ(feature["properties"]["icon"], "ferry");
  EXPECT_EQ(feature["properties"]["originalId"], 235001234);
  EXPECT_EQ(feature["properties"]["begin"], "2025-05-14T08:30:00Z");
  EXPECT_EQ(feature["properties"]["times"].size(), feature["geometry"]["coordinates"].size());
  EXPECT_EQ(json("harbour.geojson")["features"][4]["geometry"]["type"], "Point");
}

TEST_F(Exports, CzmlHasAClockAndOneTimedPacketPerPlatform) {
  loadBoth();
  const auto czml = json("aircraft_ecef.czml");
  ASSERT_TRUE(czml.is_array());
  ASSERT_EQ(czml.size(), 3u);
  EXPECT_EQ(czml[0]["id"], "document");
  EXPECT_EQ(czml[0]["version"], "1.0");
  EXPECT_EQ(czml[0]["clock"]["interval"], "2026-03-02T10:15:00Z/2026-03-02T10:20:00Z");
  const auto& jet = czml[1];
  EXPECT_EQ(jet["name"], "F-HBJT Falcon");
  EXPECT_EQ(jet["availability"], "2026-03-02T10:15:00Z/2026-03-02T10:20:00Z");
  EXPECT_EQ(jet["position"]["epoch"], "2026-03-02T10:15:00Z");
  const auto& samples = jet["position"]["cartographicDegrees"];
  ASSERT_EQ(samples.size(), 37u * 4);
  for (std::size_t i = 4; i < samples.size(); i += 4) EXPECT_GT(samples[i].get<double>(), samples[i - 4].get<double>());
  EXPECT_EQ(samples[samples.size() - 4], 300.0);
  // The tower stands still: a plain position and no availability.
  EXPECT_EQ(czml[2]["position"]["cartographicDegrees"].size(), 3u);
  EXPECT_FALSE(czml[2].contains("availability"));
}

TEST_F(Exports, EciConvertsWithItsReferenceTimeAndAFrameWithoutOriginIsLeftOut) {
  std::ofstream(path("frames.asi")) << "Version 24\nReferenceYear 2024\nCoordSystem ECI\nReferenceTimeECI 600\n"
                                       "PlatformID 1\nPlatformName 1 sat\n"
                                       "PlatformData 1 600 7000000 0 0\nPlatformData 1 4200 7000000 0 0\n"
                                       "PlatformID 2\nPlatformName 2 drifter\nPlatformCoordSystem 2 NED\n"
                                       "PlatformData 2 0 0 0 0\nPlatformData 2 10 100 0 0\n";
  const e2e::Outcome r = run({"--export", "frames.csv", "--export", "frames.geojson", path("frames.asi")});
  EXPECT_NE(r.err.find("platform \"drifter\" (id 2) is left out: its points are in the NED frame, which has no "
                       "reference origin"),
            std::string::npos)
      << r.err;
  const auto features = json("frames.geojson")["features"];
  ASSERT_EQ(features.size(), 1u);
  // A point fixed in space drifts west as the earth turns under it: an hour
  // after the reference time, by the earth's rate times 3600 s.
  const auto& line = features[0]["geometry"]["coordinates"];
  EXPECT_NEAR(line[0][0].get<double>(), 0.0, 1e-9);
  EXPECT_NEAR(line[1][0].get<double>(), -7.2921151467e-5 * 3600 * DEGREES, 1e-7);
  EXPECT_EQ(e2e::readText(work / "frames.csv").find("drifter"), std::string::npos);
}

TEST_F(Exports, APositionBeyondTheEarthsNumbersIsLeftOutAndTheFilesStayJson) {
  // Finite numbers that the host takes, whose position overflows on conversion.
  std::ofstream(path("overflow.asi")) << "Version 24\nReferenceYear 2024\nCoordSystem LLA\nRefLLA 0 0 0\n"
                                         "PlatformID 1\nPlatformName 1 runaway\n"
                                         "PlatformData 1 0 0.5 0.5 0\nPlatformData 1 10 1e308 1e308 1e308\n"
                                         "PlatformID 2\nPlatformName 2 buoy\nPlatformData 2 0 0.5 0.5 0\n";
  const e2e::Outcome r = run({"--export", "overflow.geojson", "--export", "overflow.czml", path("overflow.asi")});
  EXPECT_NE(r.err.find("platform \"runaway\" (id 1) is left out: point 2 is no position on the earth"), std::string::npos)
      << r.err;
  nlohmann::json features, czml;
  ASSERT_NO_THROW(features = json("overflow.geojson")["features"]);
  ASSERT_NO_THROW(czml = json("overflow.czml"));
  ASSERT_EQ(features.size(), 1u);
  EXPECT_EQ(features[0]["properties"]["name"], "buoy");
  EXPECT_EQ(czml.size(), 2u) << "the document and the buoy";
}

TEST_F(Exports, BadExportRequestsAreUsageErrors) {
  EXPECT_EQ(run({"--export", "out.shp", example("minimal.asi")}).status, 64);
  EXPECT_EQ(run({"--plot", "out.jpg", example("minimal.asi")}).status, 64);
  EXPECT_EQ(run({"--no-data", "--export", "out.csv", example("minimal.asi")}).status, 64);
  EXPECT_EQ(run({"--export", "/dev/full/out.csv", example("minimal.asi")}).status, 73);
}

TEST_F(Exports, ThePictureIsAMapWithEveryPlatformsColour) {
  const e2e::Outcome r = run({"--plot", "harbour.png", example("harbour.asi")});
  ASSERT_EQ(r.status, 0) << r.err;
  cairo_surface_t* picture = cairo_image_surface_create_from_png(path("harbour.png").c_str());
  ASSERT_EQ(cairo_surface_status(picture), CAIRO_STATUS_SUCCESS);
  EXPECT_EQ(cairo_image_surface_get_width(picture), 1200);
  EXPECT_EQ(cairo_image_surface_get_height(picture), 900);
  cairo_surface_flush(picture);
  const unsigned char* data = cairo_image_surface_get_data(picture);
  const int stride = cairo_image_surface_get_stride(picture);
  std::size_t inked = 0;
  std::set<std::uint32_t> saturated;  // the track colours, not the greys
  for (int y = 0; y < 900; ++y)
    for (int x = 0; x < 1200; ++x) {
      const std::uint32_t pixel = *reinterpret_cast<const std::uint32_t*>(data + y * stride + x * 4) & 0xFFFFFF;
      if (pixel == 0xFFFFFF) continue;
      ++inked;
      const int red = pixel >> 16, green = (pixel >> 8) & 0xFF, blue = pixel & 0xFF;
      if (std::max({red, green, blue}) - std::min({red, green, blue}) > 80) saturated.insert(pixel);
    }
  cairo_surface_destroy(picture);
  EXPECT_GT(inked, 20000u);
  EXPECT_LT(inked, 1200u * 900 / 2);
  EXPECT_GE(saturated.size(), 6u);
}

TEST_F(Exports, TheInstalledCommandFindsItsPluginAndDocuments) {
  const std::string prefix = path("prefix");
  ASSERT_EQ(std::system(("cmake --install " + e2e::quote(ORV_BINARY_DIR) + " --prefix " + e2e::quote(prefix) +
                         " > " + e2e::quote(path("install.log")) + " 2>&1")
                            .c_str()),
            0)
      << e2e::readText(work / "install.log");
  const std::string installed = prefix + "/bin/scenario-host";
  const std::string out = capture("env -u SCENARIO_HOST_PLUGIN " + e2e::quote(installed) + " --no-progress " +
                                  e2e::quote(example("harbour.asi")) + " 2>&1; echo status=$?");
  EXPECT_NE(out.find("result 0 (loaded)"), std::string::npos) << out;
  EXPECT_NE(out.find("status=0"), std::string::npos);

  const std::string version = capture("env -u SCENARIO_HOST_PLUGIN " + e2e::quote(installed) + " --version");
  EXPECT_NE(version.find(prefix + "/bin/../"), std::string::npos) << version;
  std::smatch url;
  ASSERT_TRUE(std::regex_search(version, url, std::regex("documentation file://\\S*(/share/doc/FileReaderPlugin/README.md)")))
      << version;
  for (const std::string& file : {std::string(url[1]), std::string("/share/doc/FileReaderPlugin/LICENSE"),
                                  std::string("/share/doc/FileReaderPlugin/docs/asi-language.md"),
                                  std::string("/share/man/man1/scenario-host.1")})
    EXPECT_TRUE(e2e::fs::is_regular_file(prefix + file)) << file;
  EXPECT_NE(e2e::readText(prefix + "/share/man/man1/scenario-host.1").find("\\-\\-export"), std::string::npos);
}

}  // namespace
