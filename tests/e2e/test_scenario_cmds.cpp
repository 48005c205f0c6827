// Scenario commands through the loaded plug-in, beside the real platform
// commands: what a file sets in the host's scenario, the data it addresses to
// a platform before its first point, the moments at which side files load,
// and what an appended file may not change.
#include <cmath>

#include "E2eSupport.h"

namespace {

class ScenarioCommands : public e2e::HostRun {};

TEST_F(ScenarioCommands, AFileAndAnAppendedOneReachTheHost) {
  const std::string first = write("first.asi",
                                  "Version 24\nReferenceYear 2024\nCoordSystem LLA\nRefLLA 36.6 -121.9 0\n"
                                  "Classification \"SECRET\" red\nScenarioInfo \"first\"\nWindAngle 90\n"
                                  "ViewFile " + write("a.vew", "view") + "\nGOGFile " + write("a.gog", "gog") + "\n"
                                  "PlatformID 1\nPlatformName 1 Ship\nOriginalID 1 500\n"
                                  "CategoryData 1 -1 Affinity Friendly\nGenericData 1 ORVIDE_Callsign Bravo 10\n"
                                  "EventObjRefID 5 1\nEventData 5 Launch 100 160\n"
                                  "PlatformData 1 0 36.60 -121.90 0 0 0 0\nPlatformData 1 300 36.62 -121.90 0 0 0 0\n");
  const std::string second = write("second.asi",
                                   "Version 24\nReferenceYear 2024\nCoordSystem LLA\nRefLLA 36.6 -121.9 0\n"
                                   "ScenarioInfo \"second\"\nClassification OTHER\nGOGFile " +
                                       write("b.gog", "gog") + "\nPlatformID 2\nPlatformName 2 Boat\n"
                                   "PlatformData 2 0 36.60 -121.80 0 0 0 0\nPlatformData 2 60 36.60 -121.80 0 0 0 0\n");
  const e2e::Outcome r = run({"--dump", "dump.json", first, second});
  EXPECT_EQ(r.status, 0) << r.err;

  const auto dump = json("dump.json");
  const auto& scenario = dump["scenario"];
  EXPECT_EQ(scenario["referenceYear"], 2024);
  EXPECT_EQ(scenario["classification"], "SECRET");
  EXPECT_EQ(scenario["classificationColor"], 0xFF000080u);
  EXPECT_EQ(scenario["description"], "first");
  EXPECT_NEAR(scenario["windDirection"].get<double>(), M_PI / 2, 1e-12);
  EXPECT_NEAR(scenario["originLLA"][0].get<double>(), 36.6 * M_PI / 180, 1e-12);

  const auto& ship = dump["objects"][0];
  EXPECT_EQ(ship["header"]["name"], "Ship");
  EXPECT_EQ(ship["originalId"], 500);
  EXPECT_EQ(ship["data"]["categoryData"]["records"], nlohmann::json::parse(R"([[-1.0, "Affinity", "Friendly"]])"));
  const auto& generic = ship["data"]["genericData"]["records"];
  ASSERT_EQ(generic.size(), 2u);
  EXPECT_EQ(generic[0][2], "ORVIDE_Callsign");
  EXPECT_EQ(generic[0][3], "Bravo");
  EXPECT_EQ(generic[1][0], 100.0);
  EXPECT_EQ(generic[1][1], 60.0);
  EXPECT_EQ(generic[1][2], "EVENT");

  // Overlays load once the frame was sent, the view once all entities are in;
  // the appended file still brings its overlay.
  std::vector<std::string> loads;
  for (const auto& load : dump["host"]["displayLoads"])
    loads.push_back(load["op"].get<std::string>() + " " + e2e::fs::path(load["file"].get<std::string>()).filename().string());
  EXPECT_EQ(loads, (std::vector<std::string>{"loadGOGFile a.gog", "loadViewFile a.vew", "loadGOGFile b.gog"}));
}

}  // namespace
