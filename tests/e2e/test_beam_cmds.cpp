// Beam and gate commands through the loaded plug-in: a platform carrying a
// radar beam with its antenna, a target beam and gates reach the host in the
// display application, in the order of creation that the trace shows; bad
// lines are reported by line; the plot application gets the same beams and
// gates without the antenna.
#include <cmath>

#include "E2eSupport.h"

namespace {

class BeamCommands : public e2e::HostRun {
 protected:
  // Objects of the dump by kind, in creation order.
  std::vector<nlohmann::json> objects(const nlohmann::json& dump, const std::string& kind) const {
    std::vector<nlohmann::json> out;
    for (const auto& o : dump["objects"])
      if (o["kind"] == kind) out.push_back(o);
    return out;
  }
};

const char* const RADARS =
    "Version 24\nCoordSystem LLA\nRefLLA 30 -80 0\nDegreeAngles 1\n"
    "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 0 30 -80 0\nPlatformData 1 10 30 -79.99 0\n"
    "PlatformID 2\nPlatformName 2 jet\nPlatformData 2 0 30.2 -80 500\n"
    "BeamID 1 5\nBeamDesc 5 search\nBeamType 5 absolute\nHorzBW 5 2\nVertBW 5 20\n"
    "AntennaAlgorithm 5 gauss\nAntennaGain 5 33\n"
    "BeamData 5 0 green 0 0 40000\nBeamData 5 1 green 90 0 40000\nBeamData 5 2 green 400 0 40000\n"
    "BeamData 5 3 green ninety 0 40000\n"
    "GateID 5 7\nGateType 7 RANGE\nGateData 7 0 yellow 0 0 2 20 10000 12000\n"
    "BeamID 1 6\nBeamType 6 target\nHorzBW 6 1\nVertBW 6 1\nBeamTargetIDCmd 6 5 2\n"
    "GateID 6 8\nGateType 8 TARGET\nTargetGateData 8 5 red 1 1 20000 23000 22000\n";

}  // namespace

TEST_F(BeamCommands, BeamsAndGatesReachTheDisplayWithTheirAntennaAndTarget) {
  const std::string file = write("radars.asi", RADARS);
  const e2e::Outcome r = run({"--dump", "dump.json", "--messages", "messages.jsonl", "--trace", "trace.jsonl", file});
  // The bad azimuth is an error-free warning: the load result stays 0.
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(messageTexts(3), std::vector<std::string>{"Line 22 BeamData: Invalid azimuth\n"});

  const auto dump = json("dump.json");
  const auto beams = objects(dump, "beam");
  const auto gates = objects(dump, "gate");
  ASSERT_EQ(beams.size(), 2u);
  ASSERT_EQ(gates.size(), 2u);
  const auto& search = beams[0];
  EXPECT_EQ(search["header"]["name"], "search");
  EXPECT_EQ(search["header"]["beamType"], 9);
  EXPECT_NEAR(search["header"]["verticalWidth"].get<double>(), 20 * M_PI / 180, 1e-12);
  EXPECT_EQ(search["settings"]["antenna"]["algorithm"], 2);
  EXPECT_EQ(search["settings"]["antenna"]["gain"], 33.0);
  const auto& points = search["data"]["points"]["records"];
  ASSERT_EQ(points.size(), 3u);
  EXPECT_NEAR(points[2][1].get<double>(), 40 * M_PI / 180, 1e-12);
  EXPECT_EQ(search["data"]["colors"]["count"], 3);

  const auto& tracker = beams[1];
  EXPECT_EQ(tracker["header"]["name"], "Beam 6");
  EXPECT_FALSE(tracker["data"].contains("points"));
  EXPECT_EQ(tracker["data"]["targets"]["records"][0][1], dump["objects"][1]["id"]);

  EXPECT_EQ(gates[0]["parent"], search["id"]);
  EXPECT_EQ(gates[0]["header"]["gateType"], 1);
  EXPECT_EQ(gates[0]["data"]["points"]["records"][0][7], 11000.0);
  EXPECT_EQ(gates[1]["parent"], tracker["id"]);
  EXPECT_EQ(gates[1]["header"]["gateType"], 3);

  // Creation: the beam with its first point, which is dropped and sent
  // again as data, then the antenna.
  std::vector<std::string> ops;
  for (const auto& line : jsonLines("trace.jsonl")) {
    const std::string op = line.value("op", "");
    if (op == "createBeam" || op == "flushEntityData" || op == "addDataPoint" || op == "setAntennaInfo")
      ops.push_back(op);
  }
  ASSERT_GE(ops.size(), 7u);
  // The ship's second point, then the search beam.
  EXPECT_EQ(std::vector<std::string>(ops.begin() + 1, ops.begin() + 5),
            (std::vector<std::string>{"createBeam", "flushEntityData", "addDataPoint", "setAntennaInfo"}));
}

TEST_F(BeamCommands, ThePlotApplicationTakesTheBeamsWithoutAntenna) {
  const std::string file = write("radars.asi", RADARS);
  const e2e::Outcome r = run({"--app", "plot", "--dump", "dump.json", "--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 0) << r.err;
  const auto dump = json("dump.json");
  const auto beams = objects(dump, "beam");
  ASSERT_EQ(beams.size(), 2u);
  EXPECT_FALSE(beams[0]["settings"].contains("antenna"));
  EXPECT_EQ(beams[0]["data"]["points"]["count"], 3);
  EXPECT_EQ(objects(dump, "gate").size(), 2u);
}
