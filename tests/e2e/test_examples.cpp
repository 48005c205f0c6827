// The scenarios under examples/ load through scenario-host as the README
// shows: result 0, no error or warning, and the platforms and points that
// each file describes. The live feed loads as two files, and its rule holds:
// the second file merges the first file's platforms by ASI id and must bring
// a moving platform of its own.
#include <cmath>
#include <map>
#include <sstream>

#include "E2eSupport.h"

namespace {

using e2e::example;

// Platform name -> number of points.
using Platforms = std::map<std::string, int>;

class Examples : public e2e::HostRun {
 protected:
  // Runs scenario-host on the files with a dump and a message log.
  e2e::Outcome load(const std::vector<std::string>& files) {
    std::vector<std::string> args = {"--dump", "dump.json", "--messages", "messages.jsonl"};
    args.insert(args.end(), files.begin(), files.end());
    return run(args);
  }

  Platforms platforms(const nlohmann::json& dump) const {
    Platforms found;
    for (const auto& object : dump["objects"]) {
      if (object["kind"] != "platform") continue;
      const auto& data = object["data"];
      found[object["header"]["name"]] = data.contains("points") ? data["points"]["count"].get<int>() : 0;
    }
    return found;
  }

  int total(const Platforms& expected) const {
    int sum = 0;
    for (const auto& p : expected) sum += p.second;
    return sum;
  }

  void expectLoaded(const std::vector<std::string>& files, const Platforms& expected) {
    const e2e::Outcome r = load(files);
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_EQ(messageTexts(3), std::vector<std::string>{});
    // Bad colours and the like are reported on stderr alone.
    EXPECT_EQ(r.err.find("ERROR"), std::string::npos) << r.err;
    const auto dump = json("dump.json");
    EXPECT_EQ(platforms(dump), expected);
    EXPECT_EQ(dump["statistics"]["points"], total(expected));
  }

  // The file without the lines that address the platform with ASI id `id`.
  std::string without(const std::string& source, const std::string& id, const std::string& name) {
    std::istringstream in(e2e::readText(source));
    std::ofstream out(path(name));
    for (std::string line; std::getline(in, line);) {
      std::istringstream words(line);
      std::string keyword, first;
      words >> keyword >> first;
      const bool addressed = keyword.rfind("Platform", 0) == 0 || keyword == "GenericData" || keyword == "CategoryData";
      if (!(addressed && first == id)) out << line << "\n";
    }
    return path(name);
  }

  std::string withIdentifier(const std::string& source, const std::string& identifier, const std::string& name) {
    std::string text = e2e::readText(source);
    const std::string key = "# Scenario Identifier:";
    const std::size_t at = text.find(key);
    EXPECT_NE(at, std::string::npos);
    if (at != std::string::npos) text.replace(at, text.find('\n', at) - at, key + " " + identifier);
    std::ofstream(path(name)) << text;
    return path(name);
  }

  std::string copy(const std::string& source) {
    const std::string target = path(e2e::fs::path(source).filename().string());
    std::ofstream(target) << e2e::readText(source);
    return target;
  }

  const Platforms feedPlatforms = {
      {"Patrol Vessel Kestrel", 21}, {"Morwenna PH 110", 21}, {"Coastguard Rescue 924", 8}};
};

TEST_F(Examples, SingleFilesLoadCleanWithTheirPlatformsAndPoints) {
  {
    SCOPED_TRACE("minimal.asi");
    expectLoaded({example("minimal.asi")}, {{"Ship", 3}});
  }
  {
    SCOPED_TRACE("harbour.asi");
    expectLoaded({example("harbour.asi")}, {{"Gosport Queen", 18},
                                            {"Solent Pilot 2", 8},
                                            {"Atlantic Meridian", 27},
                                            {"Tug Hamble", 9},
                                            {"Outer Spit Buoy", 1},
                                            {"Sea Breeze", 16}});
  }
  {
    SCOPED_TRACE("aircraft_ecef.asi");
    expectLoaded({example("aircraft_ecef.asi")}, {{"F-HBJT Falcon", 37}, {"Blagnac Tower", 1}});
  }
  {
    SCOPED_TRACE("socal_aswex.csv");
    expectLoaded({example("socal_aswex.csv")}, {{"Viper 11", 61}, {"Pelican 2", 61}, {"Seahawk 4", 61},
                                                {"Lake Champlain", 61}, {"Hostile Sub", 61}, {"Fishing Vessel", 61},
                                                {"DIFAR55", 31}, {"DC01", 2}, {"VL02", 2}});
  }
  {
    SCOPED_TRACE("pmrf_rimpac.csv");
    expectLoaded({example("pmrf_rimpac.csv")},
                 {{"Kauai Eagle", 46}, {"Chosin", 46}, {"Target Drone", 46}, {"Range Boat", 46}});
  }
  // The converters write their ASI text beside the input: copies keep the
  // source tree clean.
  {
    SCOPED_TRACE("satellites.tle");
    expectLoaded({copy(example("satellites.tle"))}, {{"MOLNIYA 1-36", 1440},
                                                     {"ITALSAT 2", 1440},
                                                     {"CBERS 2", 1440},
                                                     {"NAVSTAR 53 (USA 175)", 1440}});
  }
  {
    SCOPED_TRACE("ballistic.kp");
    expectLoaded({copy(example("ballistic.kp"))}, {{"Rocket", 103}});
  }
}

TEST_F(Examples, RadarLoadsCleanWithItsBeamsAndGates) {
  const e2e::Outcome r = load({example("radar.asi")});
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messageTexts(3), std::vector<std::string>{});
  const auto dump = json("dump.json");
  EXPECT_EQ(platforms(dump), (Platforms{{"Frigate Avalon", 13}, {"Seeker 21", 13}, {"Raider 1", 13}}));
  // Name -> points of the beams and gates, and their objects by name.
  std::map<std::string, int> beams, gates;
  std::map<std::string, nlohmann::json> byName;
  for (const auto& object : dump["objects"]) {
    const auto& data = object["data"];
    const int count = data.contains("points") ? data["points"]["count"].get<int>() : 0;
    if (object["kind"] == "beam") beams[object["header"]["name"]] = count;
    if (object["kind"] == "gate") gates[object["header"]["name"]] = count;
    byName[object["header"]["name"]] = object;
  }
  EXPECT_EQ(beams, (std::map<std::string, int>{
                       {"Avalon surveillance radar", 120}, {"Seeker search radar", 61}, {"Avalon fire control", 0}}));
  EXPECT_EQ(gates, (std::map<std::string, int>{{"Seeker range gate", 13}, {"Avalon track gate", 8}}));
  EXPECT_EQ(byName["Avalon surveillance radar"]["header"]["beamType"], 10);
  EXPECT_EQ(byName["Avalon surveillance radar"]["settings"]["antenna"]["frequency"], 3050.0);
  EXPECT_EQ(byName["Seeker range gate"]["parent"], byName["Seeker search radar"]["id"]);
  // The fire-control beam locks on to the jet at 40 s and lets go at 110 s.
  const auto& targets = byName["Avalon fire control"]["data"]["targets"]["records"];
  ASSERT_EQ(targets.size(), 2u);
  EXPECT_EQ(targets[0][1], byName["Raider 1"]["id"]);
  EXPECT_EQ(targets[1][1], 0);
  EXPECT_EQ(byName["Avalon fire control"]["data"]["status"]["count"], 2);
}

TEST_F(Examples, DesignatorLoadsCleanWithItsLaserLobFansAndAProjectorOnABeam) {
  const e2e::Outcome r = load({example("designator.asi")});
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messageTexts(3), std::vector<std::string>{});
  EXPECT_EQ(r.err.find("ERROR"), std::string::npos) << r.err;
  const auto dump = json("dump.json");
  EXPECT_EQ(platforms(dump),
            (Platforms{{"Kestrel 31", 19}, {"Convoy lead", 19}, {"DF Site North", 1}, {"DF Site West", 1}}));
  std::map<std::string, nlohmann::json> byName;
  for (const auto& object : dump["objects"]) byName[object["header"]["name"]] = object;

  const auto& laser = byName["Kestrel designator"];
  EXPECT_EQ(laser["kind"], "laser");
  EXPECT_EQ(laser["parent"], byName["Kestrel 31"]["id"]);
  EXPECT_EQ(laser["data"]["points"]["count"], 19);
  // Off at the start, lasing from 60 s to 150 s.
  const double start = 24746400;
  EXPECT_EQ(laser["data"]["status"]["records"],
            (nlohmann::json{{start, 0}, {start + 60, 1}, {start + 150, 0}}));
  EXPECT_EQ(laser["data"]["laserMaxRange"]["records"][0], (nlohmann::json{-1.0, 10000.0}));

  // One fan of bearings from each direction-finding site.
  for (const auto& [lob, site] : {std::pair<std::string, std::string>{"North bearings", "DF Site North"},
                                  {"West bearings", "DF Site West"}}) {
    EXPECT_EQ(byName[lob]["kind"], "lob") << lob;
    EXPECT_EQ(byName[lob]["parent"], byName[site]["id"]) << lob;
    EXPECT_EQ(byName[lob]["data"]["points"]["count"], 19) << lob;
  }

  // The video hangs on the turret's beam and zooms from 4 to 1.5 degrees.
  const auto& video = byName["Kestrel EO/IR video"];
  EXPECT_EQ(video["kind"], "projector");
  EXPECT_EQ(byName["Kestrel EO/IR turret"]["kind"], "beam");
  EXPECT_EQ(video["parent"], byName["Kestrel EO/IR turret"]["id"]);
  EXPECT_EQ(video["settings"]["rasterFile"], "kestrel_eoir.png");
  const auto& fov = video["data"]["projectorFov"]["records"];
  ASSERT_EQ(fov.size(), 3u);
  EXPECT_NEAR(fov[2][1].get<double>(), 1.5 * M_PI / 180, 1e-12);
}

TEST_F(Examples, GpxPetAndWamFilesLoadClean) {
  {
    SCOPED_TRACE("arthurs_seat.gpx");
    expectLoaded({example("arthurs_seat.gpx")}, {{"Arthur's Seat loop", 13},
                                                 {"Holyrood Park car park", 1},
                                                 {"Summit trig point, 55\xC2\xB0" "56'N", 1},
                                                 {"Dunsapie Loch viewpoint", 1}});
  }
  {
    SCOPED_TRACE("range_trial.pet");
    expectLoaded({example("range_trial.pet")}, {{"TARGET-1", 6}, {"DRONE-2", 6}});
  }
  {
    SCOPED_TRACE("coastal_watch.wam");  // with the mapping file beside it
    setenv("ORVIDE_USER_DIR", example("").c_str(), 1);
    expectLoaded({example("coastal_watch.wam")}, {{"CUTTER ALDER", 8}, {"MV NORTHERN STAR", 8}, {"PATROL_102", 6}});
    unsetenv("ORVIDE_USER_DIR");
  }
}

TEST_F(Examples, HarbourCarriesItsScenarioSettingsAndTimeStrings) {
  ASSERT_EQ(load({example("harbour.asi")}).status, 0);
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["scenario"]["referenceYear"], 2025);
  EXPECT_EQ(dump["scenario"]["classification"], "UNCLASSIFIED");
  // 08:30 UTC on day 134, in seconds of 2025, to the ship's berthing.
  EXPECT_EQ(dump["clock"]["begin"], 11521800.0);
  EXPECT_EQ(dump["clock"]["end"], 11523323.0);

  const auto& ship = dump["objects"][2];
  ASSERT_EQ(ship["header"]["name"], "Atlantic Meridian");
  EXPECT_EQ(ship["originalId"], 636091234);
  // The day-of-year event times: aboard at 08:36:35 for a minute, all fast at 08:55:23.
  const auto& generic = ship["data"]["genericData"]["records"];
  ASSERT_EQ(generic.size(), 4u);
  EXPECT_EQ(generic[2][0], 11522195.0);
  EXPECT_EQ(generic[2][1], 60.0);
  EXPECT_EQ(generic[2][3], "Pilot aboard");
  EXPECT_EQ(generic[3][0], 11523323.0);
  // The buoy's single point is static.
  EXPECT_EQ(dump["objects"][4]["data"]["points"]["records"][0][0], -1.0);
}

TEST_F(Examples, TheLiveFeedAppendsItsSecondFileByAsiId) {
  expectLoaded({example("live_feed_1.asi"), example("live_feed_2.asi")}, feedPlatforms);
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["host"]["signals"].size(), 1u);
  // The trawler's activity changes in the second file.
  const auto& trawler = dump["objects"][1]["data"]["categoryData"]["records"];
  ASSERT_FALSE(trawler.empty());
  EXPECT_EQ(trawler.back()[2], "Hauling");
}

TEST_F(Examples, ASecondFeedFileWithoutAPlatformOfItsOwnFails) {
  const std::string second = without(example("live_feed_2.asi"), "3", "feed_2_no_helicopter.asi");
  const e2e::Outcome r = load({example("live_feed_1.asi"), second});
  EXPECT_EQ(r.status, 3) << r.out << r.err;
  const std::vector<std::string> texts = messageTexts(3);
  ASSERT_FALSE(texts.empty());
  EXPECT_EQ(texts[0], "Must define at least one non-static independent entity\n");
  // The points of the merged platforms went in all the same.
  EXPECT_EQ(platforms(json("dump.json")), (Platforms{{"Patrol Vessel Kestrel", 21}, {"Morwenna PH 110", 21}}));
}

TEST_F(Examples, AnotherIdentifierMakesTheSecondFileAFeedOfItsOwn) {
  const std::string second = withIdentifier(example("live_feed_2.asi"), "another-feed", "other_feed.asi");
  ASSERT_EQ(load({example("live_feed_1.asi"), second}).status, 0);
  // Nothing merges: the second file's platforms 1 and 2 are new.
  EXPECT_EQ(json("dump.json")["objects"].size(), 5u);
}

}  // namespace
