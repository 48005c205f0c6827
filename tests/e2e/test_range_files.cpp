// SCORE and PMRF range files through scenario-host: tracks with their
// legends, the range settings, events as generic data and sonobuoys as
// platforms, a bad line reported with its number, and files refused.
#include <map>
#include <sstream>

#include "E2eSupport.h"

namespace {

using e2e::example;

class RangeFiles : public e2e::HostRun {
 protected:
  e2e::Outcome load(const std::string& file) {
    return run({"--dump", "dump.json", "--messages", "messages.jsonl", "--trace", "trace.jsonl", file});
  }



  const nlohmann::json* object(const nlohmann::json& dump, const std::string& name) const {
    for (const auto& o : dump["objects"])
      if (o["header"]["name"] == name) return &o;
    return nullptr;
  }

  // name -> value of an object's category records.
  std::map<std::string, std::string> categories(const nlohmann::json& o) const {
    std::map<std::string, std::string> found;
    if (!o["data"].contains("categoryData")) return found;
    const auto& series = o["data"]["categoryData"];
    const auto& fields = series["fields"];
    size_t name = 0, value = 0;
    for (size_t i = 0; i < fields.size(); ++i) {
      if (fields[i] == "name") name = i;
      if (fields[i] == "value") value = i;
    }
    for (const auto& r : series["records"]) found[r[name]] = r[value];
    return found;
  }

  // Values of a generic-data series whose tag starts with `prefix`.
  std::vector<std::string> generic(const nlohmann::json& data, const std::string& prefix) const {
    std::vector<std::string> values;
    if (!data.contains("genericData")) return values;
    const auto& series = data["genericData"];
    const auto& fields = series["fields"];
    size_t tag = 0, value = 0;
    for (size_t i = 0; i < fields.size(); ++i) {
      if (fields[i] == "tag") tag = i;
      if (fields[i] == "value") value = i;
    }
    for (const auto& r : series["records"])
      if (r[tag].get<std::string>().rfind(prefix, 0) == 0) values.push_back(r[value]);
    return values;
  }

  int points(const nlohmann::json& o) const {
    return o["data"].contains("points") ? o["data"]["points"]["count"].get<int>() : 0;
  }
};

TEST_F(RangeFiles, ScoreExerciseLoadsTracksSettingsEventsAndBuoys) {
  const e2e::Outcome r = load(example("socal_aswex.csv"));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messages(3), "");
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["scenario"]["referenceYear"], 2021);
  EXPECT_EQ(dump["scenario"]["description"], "SCORE  ASWEX 21-3 Run 2");
  EXPECT_EQ(dump["scenario"]["classification"], "UNCLASSIFIED");
  ASSERT_TRUE(dump["scenario"]["originLLA"].is_array());
  EXPECT_NEAR(dump["scenario"]["originLLA"][0].get<double>(), 33.026669 * 0.017453292519943295, 1e-9);

  const nlohmann::json* viper = object(dump, "Viper 11");
  ASSERT_NE(viper, nullptr);
  EXPECT_EQ((*viper)["header"]["icon"], "F18V_F.png");
  EXPECT_EQ(points(*viper), 61);
  EXPECT_EQ(categories(*viper), (std::map<std::string, std::string>{{"Platform Type", "Aircraft"},
                                                                     {"Affinity", "Friendly"},
                                                                     {"Source", "LTS"},
                                                                     {"Data Format", "SCORE CSV"}}));
  EXPECT_EQ(generic((*viper)["data"], "LEG"), std::vector<std::string>{"LTS 101 Viper 11 F18 CSV 1 0 0"});
  const nlohmann::json* sub = object(dump, "Hostile Sub");
  ASSERT_NE(sub, nullptr);
  EXPECT_EQ((*sub)["header"]["icon"], "SubV_H.png");

  // The buoy heard without a legend, and the two dropped by the P-3; the
  // buoy laid from the ship is no SON deployment and stays an event.
  ASSERT_NE(object(dump, "DIFAR55"), nullptr);
  EXPECT_EQ((*object(dump, "DIFAR55"))["header"]["icon"], "SonoV.png");
  ASSERT_NE(object(dump, "DC01"), nullptr);
  EXPECT_EQ((*object(dump, "DC01"))["header"]["icon"], "an-ssq-62");
  EXPECT_EQ(points(*object(dump, "VL02")), 2);
  EXPECT_EQ(dump["objects"].size(), 9u);

  const std::vector<std::string> events = generic(dump["scenarioData"], "PluginData_SCOREEvent_");
  EXPECT_EQ(events.size(), 8u);
  EXPECT_EQ(generic(dump["scenarioData"], "PluginData_SCOREEventRawXML_").size(), 1u);
  bool note = false;
  for (const std::string& e : events) note = note || e.rfind("EVT=NOT`ID=N001`CSO=Seahawk 4`", 0) == 0;
  EXPECT_TRUE(note);

  std::vector<std::string> overlays;
  for (const auto& line : jsonLines("trace.jsonl"))
    if (line.value("op", "") == "loadGOGFile") overlays.push_back(line["args"]["file"]);
  EXPECT_EQ(overlays, (std::vector<std::string>{"!SOCAL_Overlays.gog", "States.gog"}));
}

TEST_F(RangeFiles, PmrfExerciseLoadsAtTheRangeOrigin) {
  const e2e::Outcome r = load(example("pmrf_rimpac.csv"));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messages(3), "");
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["scenario"]["classification"], "FOR OFFICIAL USE ONLY");
  EXPECT_NEAR(dump["scenario"]["originLLA"][1].get<double>(), -159.91949881 * 0.017453292519943295, 1e-9);
  ASSERT_EQ(dump["objects"].size(), 4u);
  const nlohmann::json* drone = object(dump, "Target Drone");
  ASSERT_NE(drone, nullptr);
  EXPECT_EQ((*drone)["header"]["icon"], "MissileV_N.png");
  EXPECT_EQ(points(*drone), 46);
  EXPECT_EQ(categories(*drone)["Data Format"], "PMRF CSV");
  EXPECT_EQ(generic(dump["scenarioData"], "PluginData_SCOREEvent_").size(), 3u);
}

TEST_F(RangeFiles, BadLineIsReportedWithItsNumberAndTheRestLoads) {
  const std::string file = write("bad.csv",
                                 "COM,x\nPKL,0,0,0,0,0,0,Source,TID\nLEG,2021,2,30,0,0,0,LTS,1,Ship,Ship,x,1,0,0\n"
                                 "POS,2021,1,15,10,0,0,LTS,1,33,-118,0,0,0,0,0,0,0,0,0,0,0,0\n"
                                 "POS,2021,2,30,10,0,1,LTS,1,33,-118,0,0,0,0,0,0,0,0,0,0,0,0\n"
                                 "POS,2021,1,15,10,0,2,LTS,1,33,-118,0,0,0,0,0,0,0,0,0,0,0,0\n");
  const e2e::Outcome r = load(file);
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  const std::string warnings = messages(3);
  EXPECT_NE(warnings.find("Line 5 POS: orvCore::getYearDay, The given month day is not valid."), std::string::npos)
      << warnings;
  // A legend's bad date costs only its text: the track keeps its name and icon.
  EXPECT_NE(warnings.find("Line 3 LEG: orvCore::getYearDay, The given month day is not valid."), std::string::npos);
  const auto dump = json("dump.json");
  ASSERT_NE(object(dump, "Ship"), nullptr);
  EXPECT_EQ((*object(dump, "Ship"))["header"]["icon"], "ShipV_F.png");
  EXPECT_EQ(points(*object(dump, "Ship")), 2);
  EXPECT_EQ(dump["objects"].size(), 1u);
}

TEST_F(RangeFiles, RepeatedLegendKeepsBothTextsAndUpdatesCategories) {
  const std::string legend = "LEG,2021,1,15,10,0,0,LTS,1,Ship,Ship,x,1,0,0\n";
  const e2e::Outcome r = load(write("twice.csv", "COM,x\nPKL,0,0,0,0,0,0,Source,TID\n" + legend +
                                                    "LEG,2021,1,15,10,0,0,LTS,1,Other,Sub,x,2,0,0\n" + legend +
                                                    "POS,2021,1,15,10,0,0,LTS,1,33,-118,0,0,0,0,0,0,0,0,0,0,0,0\n"));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_NE(r.out.find("Already seen this LEG, src= LTS, tid= 1, updating ...\n"), std::string::npos) << r.out;
  const auto dump = json("dump.json");
  ASSERT_EQ(dump["objects"].size(), 1u);
  const nlohmann::json& ship = dump["objects"][0];
  // Name and icon stay those of the first legend; the categories follow the last.
  EXPECT_EQ(ship["header"]["name"], "Ship");
  EXPECT_EQ(ship["header"]["icon"], "ShipV_F.png");
  EXPECT_EQ(categories(ship)["Affinity"], "Friendly");
  EXPECT_EQ(generic(ship["data"], "LEG"),
            (std::vector<std::string>{"LTS 1 Ship Ship x 1 0 0", "LTS 1 Other Sub x 2 0 0", "LTS 1 Ship Ship x 1 0 0"}));
}

TEST_F(RangeFiles, LegendWithoutPositionsKeepsItsTextOnTheScenario) {
  const e2e::Outcome r = load(write("idle.csv", "COM,x\nPKL,0,0,0,0,0,0,Source,TID\n"
                                                "LEG,2021,1,15,10,0,0,LTS,2,Idle,Ship,x,1,0,0\n"
                                                "LEG,2021,1,15,10,0,0,LTS,1,Ship,Ship,x,1,0,0\n"
                                                "POS,2021,1,15,10,0,0,LTS,1,33,-118,0,0,0,0,0,0,0,0,0,0,0,0\n"));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messages(3), "");
  const auto dump = json("dump.json");
  ASSERT_EQ(dump["objects"].size(), 1u);
  EXPECT_EQ(generic(dump["scenarioData"], "LEG"), std::vector<std::string>{"LTS 2 Idle Ship x 1 0 0"});
  EXPECT_EQ(generic(dump["objects"][0]["data"], "LEG"), std::vector<std::string>{"LTS 1 Ship Ship x 1 0 0"});
}

TEST_F(RangeFiles, ScoreFileWithoutOriginSendsTheUnsetOrigin) {
  const e2e::Outcome r = load(write("noorg.csv", "COM,x\nPKL,0,0,0,0,0,0,Source,TID\n"
                                                 "POS,2021,1,15,10,0,0,LTS,1,33,-118,0,0,0,0,0,0,0,0,0,0,0,0\n"));
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["scenario"]["originLLA"], nlohmann::json::array({0.0, 0.0, 0.0}));
  EXPECT_EQ(dump["objects"].size(), 1u);
}

TEST_F(RangeFiles, FilesThatAreNotRangeFilesAreRefused) {
  const e2e::Outcome other = load(write("other.csv", "name,lat,lon\nship,1,2\n"));
  EXPECT_EQ(other.status, 3);
  EXPECT_NE(messages(3).find("Unknown CSV file format detected\n"), std::string::npos) << messages(5);

  // A range file's first line, but no packet header or origin to tell the range.
  const e2e::Outcome unknown = load(write("unknown.csv", "COM,x\nLEG,1,2,3\n"));
  EXPECT_EQ(unknown.status, 3);
  EXPECT_NE(messages(3).find("Fatal error when loading CSV file\n"), std::string::npos) << messages(5);
}

}  // namespace
