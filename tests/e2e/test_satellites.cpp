// Element sets and Kepler files through scenario-host: the satellites' tracks
// with their categories, generic data and eclipse colouring, a ballistic
// trajectory down to the ground, decay, faulty files and a folder where the
// converted text can't be written.
#include <sys/stat.h>

#include <cmath>
#include <map>
#include <set>

#include "E2eSupport.h"

namespace {

using e2e::example;

const char* const kIss =
    "ISS (ZARYA)\n"
    "1 25544U 98067A   05207.31276620  .00009213  00000-0  73642-4 0  9958\n"
    "2 25544  51.6451  60.5367 0003083 157.4370 169.9096 15.71943135381834\n";
// Sub-orbital: lost within an hour of its epoch.
const char* const kDecaying =
    "MINOTAUR R/B\n"
    "1 28872U 05037B   05333.02012661  .25992681  00000-0  24476-3 0  1534\n"
    "2 28872  96.4736 157.9986 0303955 244.0492 110.6523 16.46015938 10708\n";
constexpr double DEG = M_PI / 180.0;

class Satellites : public e2e::HostRun {
 protected:
  e2e::Outcome load(const std::string& file) {
    return run({"--dump", "dump.json", "--messages", "messages.jsonl", file});
  }


  std::string copyExample(const std::string& name) { return write(name, e2e::readText(example(name))); }


  // Records of a series as maps of field name to value.
  std::vector<std::map<std::string, nlohmann::json>> records(const nlohmann::json& data,
                                                             const std::string& series) const {
    std::vector<std::map<std::string, nlohmann::json>> out;
    if (!data.contains(series)) return out;
    const auto& fields = data[series]["fields"];
    for (const auto& r : data[series]["records"]) {
      std::map<std::string, nlohmann::json> record;
      for (size_t i = 0; i < fields.size(); ++i) record[fields[i]] = r[i];
      out.push_back(record);
    }
    return out;
  }

  std::map<std::string, std::string> categories(const nlohmann::json& o) const {
    std::map<std::string, std::string> found;
    for (const auto& r : records(o["data"], "categoryData")) found[r.at("name")] = r.at("value");
    return found;
  }

  // Generic data of an object: tag -> values in time order.
  std::map<std::string, std::vector<std::string>> generic(const nlohmann::json& o) const {
    std::map<std::string, std::vector<std::string>> found;
    for (const auto& r : records(o["data"], "genericData")) found[r.at("tag")].push_back(r.at("value"));
    return found;
  }

  // A failed conversion: exit status 3, the issue under the conversion's
  // heading, the fatal text, and nothing in the host.
  void expectFailed(const e2e::Outcome& r, const std::string& kind, const std::string& issue) const {
    EXPECT_EQ(r.status, 3) << r.out << r.err;
    const std::string warnings = messages(3);
    EXPECT_NE(warnings.find("Issues detected during conversion of " + kind + " to ASI:\n" + issue), std::string::npos)
        << warnings;
    EXPECT_NE(warnings.find("Fatal error when loading " + kind + " file\n"), std::string::npos) << warnings;
    EXPECT_TRUE(json("dump.json")["objects"].empty());
  }

  std::set<std::string> folderEntries(const std::string& folder) const {
    std::set<std::string> names;
    for (const auto& entry : e2e::fs::directory_iterator(work / folder)) names.insert(entry.path().filename());
    return names;
  }
};

TEST_F(Satellites, StationFliesOverTheDayFromItsEpochWithItsSetAsData) {
  const e2e::Outcome r = load(write("iss.tle", kIss));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messages(3), "");
  EXPECT_TRUE(e2e::fs::exists(work / "iss.tle.asi"));
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["scenario"]["referenceYear"], 2005);
  ASSERT_EQ(dump["objects"].size(), 1u);
  const auto& iss = dump["objects"][0];
  EXPECT_EQ(iss["header"]["name"], "ISS (ZARYA)");
  EXPECT_EQ(iss["header"]["icon"], "gps_satellite");

  // One point a minute over 24 hours from the epoch, day 207.31276620.
  const auto points = records(iss["data"], "points");
  ASSERT_EQ(points.size(), 1440u);
  const double epoch = 206.31276620 * 86400.0;
  EXPECT_NEAR(points.front().at("time").get<double>(), epoch, 1e-3);
  EXPECT_NEAR(points.back().at("time").get<double>(), epoch + 1439 * 60.0, 1e-3);
  double highest = 0.0;
  for (const auto& p : points) {
    highest = std::max(highest, std::fabs(p.at("x").get<double>()));
    EXPECT_GT(p.at("z").get<double>(), 330e3);
    EXPECT_LT(p.at("z").get<double>(), 380e3);
  }
  // The ground track reaches the orbit's inclination, 51.6 degrees.
  EXPECT_NEAR(highest / DEG, 51.6, 0.3);

  EXPECT_EQ(categories(iss),
            (std::map<std::string, std::string>{{"Platform Type", "Satellite"}, {"Data Format", "TLE"}}));
  auto data = generic(iss);
  EXPECT_EQ(data["Satellite Number"], std::vector<std::string>{"25544"});
  EXPECT_EQ(data["Launch Year"], std::vector<std::string>{"1998"});
  EXPECT_EQ(data["Epoch Time"], std::vector<std::string>{"207 2005 07:30:23.000"});
  EXPECT_EQ(data["Estimated Error (km)"], std::vector<std::string>{"0"});

  // The track colour is set at the first point and then at each change
  // between sunlight and shadow: about two changes an orbit, 15.7 orbits.
  const auto& colours = data["ORVIDE_TrackColor"];
  ASSERT_GE(colours.size(), 25u);
  EXPECT_LE(colours.size(), 35u);
  for (size_t i = 1; i < colours.size(); ++i) EXPECT_NE(colours[i], colours[i - 1]) << i;
  for (const std::string& c : colours) EXPECT_TRUE(c == "0xFF8F008F" || c == "0xFF00FFFF") << c;
}

TEST_F(Satellites, DecayEndsOneTrackWithItsCodeAndTheOthersLoad) {
  const e2e::Outcome r = load(write("mixed.tle", std::string(kIss) + kDecaying));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  const std::string warnings = messages(3);
  EXPECT_NE(warnings.find("Issues detected during conversion of TLE to ASI:\n"
                          "Code [6] occurred with MINOTAUR R/B in AIAA::sgp4\n"),
            std::string::npos)
      << warnings;
  EXPECT_NE(r.err.find("Satellite has decayed"), std::string::npos) << r.err;
  const auto dump = json("dump.json");
  ASSERT_EQ(dump["objects"].size(), 2u);
  EXPECT_EQ(records(dump["objects"][0]["data"], "points").size(), 1440u);
  const size_t lost = records(dump["objects"][1]["data"], "points").size();
  EXPECT_GE(lost, 51u);
  EXPECT_LE(lost, 55u);
}

TEST_F(Satellites, SameSatelliteInTwoFilesOfAnArchiveIsOnePlatformWithoutDoubledPoints) {
  // The rocket body is the first set of one file and the second of the other.
  const std::string archive = zip("sets.zip", {{"a.tle", kDecaying}, {"b.tle", std::string(kIss) + kDecaying}});
  const e2e::Outcome r = load(archive);
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  const auto dump = json("dump.json");
  std::map<std::string, size_t> points;
  for (const auto& o : dump["objects"]) points[o["header"]["name"]] += records(o["data"], "points").size();
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(dump["objects"].size(), 2u);
  EXPECT_EQ(points["ISS (ZARYA)"], 1440u);
  EXPECT_GE(points["MINOTAUR R/B"], 51u);
  EXPECT_LE(points["MINOTAUR R/B"], 55u);
}

TEST_F(Satellites, CancelStopsTheConversionBeforeTheNextSet) {
  const e2e::Outcome r =
      run({"--dump", "dump.json", "--cancel-after", "1", write("two.tle", std::string(kIss) + kDecaying)});
  EXPECT_EQ(r.status, 1) << r.out << r.err;
  EXPECT_TRUE(json("dump.json")["objects"].empty());
  // Canceled before the first set: the converted text holds no platform.
  EXPECT_EQ(e2e::readText(work / "two.tle.asi").find("PlatformID"), std::string::npos);
}

TEST_F(Satellites, FaultyElementSetFailsWithItsMessageAndTheHelp) {
  std::string shortLine = kIss;
  shortLine.erase(shortLine.find("9958"), 1);  // the first element line has 68 characters
  const e2e::Outcome r = load(write("short.tle", shortLine));
  expectFailed(r, "TLE", "Error processing TLE file, incorrect size (must == 69 chars) in first TLE line\n");
  EXPECT_NE(r.out.find("Example Format:  (NOTE: More than one satellite is allowed in the file)"), std::string::npos);
}

TEST_F(Satellites, UnwritableFolderFailsTheLoadAndTouchesNothing) {
  e2e::fs::create_directories(work / "locked");
  const std::string tle = write("locked/iss.tle", kIss);
  const std::string kp = write("locked/shot.kp", e2e::readText(example("ballistic.kp")));
  // Root writes into any folder: a folder in the way of the outputs stops it too.
  if (::geteuid() == 0) {
    e2e::fs::create_directories(work / "locked/iss.tle.asi");
    e2e::fs::create_directories(work / "locked/shot.kp.asi");
  }
  ::chmod((work / "locked").c_str(), 0555);
  const std::set<std::string> before = folderEntries("locked");

  expectFailed(load(tle), "TLE", "Cannot write the ASI file <" + tle + ".asi>: ");
  expectFailed(load(kp), "Kepler", "Cannot write the ASI file <" + kp + ".asi>: ");

  EXPECT_EQ(folderEntries("locked"), before);
  ::chmod((work / "locked").c_str(), 0755);
}

TEST_F(Satellites, BallisticShotFliesFromItsLaunchPointToTheGround) {
  const e2e::Outcome r = load(copyExample("ballistic.kp"));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messages(3), "");
  const auto dump = json("dump.json");
  EXPECT_NEAR(dump["scenario"]["originLLA"][0].get<double>(), 22.0 * DEG, 1e-9);
  EXPECT_NEAR(dump["scenario"]["originLLA"][1].get<double>(), -159.8 * DEG, 1e-9);
  ASSERT_EQ(dump["objects"].size(), 1u);
  const auto& rocket = dump["objects"][0];
  EXPECT_EQ(rocket["header"]["name"], "Rocket");
  EXPECT_EQ(rocket["header"]["icon"], "ss-1c_scud");
  EXPECT_EQ(categories(rocket), (std::map<std::string, std::string>{{"Platform Type", "Missile"}}));

  const auto points = records(rocket["data"], "points");
  ASSERT_GT(points.size(), 10u);
  EXPECT_NEAR(points.front().at("x").get<double>(), 22.0 * DEG, 1e-6);
  EXPECT_NEAR(points.front().at("y").get<double>(), -159.8 * DEG, 1e-6);
  double top = 0.0;
  for (size_t i = 0; i < points.size(); ++i) {
    EXPECT_DOUBLE_EQ(points[i].at("time").get<double>(), 5.0 * i);
    EXPECT_GE(points[i].at("z").get<double>(), 0.0);
    top = std::max(top, points[i].at("z").get<double>());
  }
  // 2200 m/s straight up: some 250 km high under constant gravity, more as
  // it weakens with height; eight minutes or so of flight, well before the
  // file's end at 900 s.
  EXPECT_GT(top, 240e3);
  EXPECT_LT(top, 300e3);
  EXPECT_GT(points.back().at("time").get<double>(), 450.0);
  EXPECT_LT(points.back().at("time").get<double>(), 600.0);
  EXPECT_LT(points.back().at("z").get<double>(), 15e3);
  EXPECT_LT(points.back().at("vz").get<double>(), 0.0);
  // The file's state goes out as position and velocity: the launch
  // velocity east, north, up, and no orientation of its own.
  EXPECT_NEAR(points.front().at("vx").get<double>(), 1200.0, 0.01);
  EXPECT_NEAR(points.front().at("vy").get<double>(), 1500.0, 0.01);
  EXPECT_NEAR(points.front().at("vz").get<double>(), 2200.0, 0.01);
  for (const auto& p : points) {
    EXPECT_EQ(p.at("yaw").get<double>(), 0.0);
    EXPECT_EQ(p.at("pitch").get<double>(), 0.0);
  }
}

}  // namespace
