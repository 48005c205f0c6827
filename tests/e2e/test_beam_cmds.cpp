// Beam and gate commands through the loaded plug-in in the plot application:
// the same beams and gates as in the display, without the antenna.
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
