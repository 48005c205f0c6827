// Lasers, lines of bearing, projectors and custom rendering objects through
// the loaded plug-in: in the display application they reach the host under
// their platform (or none) with their data in the host's units; in the plot
// application they are dropped without a message.
#include <cmath>

#include "E2eSupport.h"

namespace {

class DrawableCommands : public e2e::HostRun {
 protected:
  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(path(name)) << text;
    return path(name);
  }

  std::vector<std::string> messageTexts() const {
    std::vector<std::string> texts;
    for (const auto& m : jsonLines("messages.jsonl")) texts.push_back(m["text"]);
    return texts;
  }
};

const char* const DRAWABLES =
    "Version 24\nCoordSystem LLA\nRefLLA 50 -1 0\nDegreeAngles 1\n"
    "PlatformID 1\nPlatformName 1 ship\n"
    "PlatformData 1 0 50 -1 0\nPlatformData 1 60 50.01 -1 0\n"
    "Laser 1 10 designator\nLaserMaxRange 10 5 3000\nLaserOri 10 5 90 -5 0\n"
    "LOBID 1 20\nLOBDesc 20 \"DF bearing\"\nLOBType 20 relative\nLOBData 20 10 45 0 20000\n"
    "Projector 1 1 lamp\nProjectorRasterFile 1 lamp.png\nProjectorFOV 1 10 40\n"
    "CustomRendering 0 30 overlay weather\nCustomRendering 1 31 trail line\n";

}  // namespace

TEST_F(DrawableCommands, TheDisplayApplicationHoldsThemUnderTheirHosts) {
  const std::string file = write("drawables.asi", DRAWABLES);
  const e2e::Outcome r = run({"--dump", "dump.json", "--trace", "trace.jsonl", "--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messageTexts(), std::vector<std::string>{});

  const auto dump = json("dump.json");
  const auto& objects = dump["objects"];
  ASSERT_EQ(objects.size(), 6u);
  const auto platformId = objects[0]["id"];
  const std::vector<std::string> kinds = {"platform", "laser", "lob", "projector", "customRendering",
                                          "customRendering"};
  for (size_t i = 0; i < kinds.size(); ++i) EXPECT_EQ(objects[i]["kind"], kinds[i]) << i;
  for (size_t i : {1, 2, 3, 5}) EXPECT_EQ(objects[i]["parent"], platformId) << i;
  EXPECT_EQ(objects[4]["parent"], 0);
  EXPECT_EQ(objects[4]["header"]["renderer"], "weather");

  const double deg = M_PI / 180;
  // The range reaches the host as the range, the time as the time.
  EXPECT_EQ(objects[1]["data"]["laserMaxRange"]["records"][0], nlohmann::json::array({5.0, 3000.0}));
  for (const auto& line : jsonLines("trace.jsonl")) {
    if (line.value("op", "") != "addLaserMaxRangeDataPoint") continue;
    EXPECT_EQ(line["args"]["time"], 5.0);
    EXPECT_EQ(line["args"]["value"], 3000.0);
  }
  EXPECT_NEAR(objects[1]["data"]["points"]["records"][0][1].get<double>(), 90 * deg, 1e-12);
  EXPECT_EQ(objects[2]["header"]["name"], "DF bearing");
  EXPECT_EQ(objects[2]["header"]["type"], 2);
  EXPECT_NEAR(objects[2]["data"]["points"]["records"][0][1].get<double>(), 45 * deg, 1e-12);
  EXPECT_EQ(objects[3]["settings"]["rasterFile"], "lamp.png");
  // The field of view in radians, though the file gives degrees.
  EXPECT_NEAR(objects[3]["data"]["projectorFov"]["records"][0][1].get<double>(), 40 * deg, 1e-12);
}

TEST_F(DrawableCommands, ThePlotApplicationDropsThemSilently) {
  const std::string file = write("drawables.asi", DRAWABLES);
  const e2e::Outcome r = run({"--app", "plot", "--dump", "dump.json", "--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messageTexts(), std::vector<std::string>{});
  const auto dump = json("dump.json");
  ASSERT_EQ(dump["objects"].size(), 1u);
  EXPECT_EQ(dump["objects"][0]["kind"], "platform");
}

// Data addressed to a projector that the host does not hold yet waits under
// the projector's number and reaches it once the projector is created.
TEST_F(DrawableCommands, DataWaitingForAProjectorReachesItAtItsCreation) {
  const std::string file = write("waiting.asi",
                                 "Version 24\nCoordSystem LLA\nRefLLA 50 -1 0\n"
                                 "PlatformID 1\nPlatformName 1 ship\n"
                                 "Projector 1 7 lamp\nCategoryData 7 -1 mode search\n"
                                 "PlatformData 1 0 50 -1 0\n");
  const e2e::Outcome r = run({"--dump", "dump.json", "--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messageTexts(), std::vector<std::string>{});
  const auto dump = json("dump.json");
  const auto& objects = dump["objects"];
  ASSERT_EQ(objects.size(), 2u);
  EXPECT_EQ(objects[1]["kind"], "projector");
  ASSERT_TRUE(objects[1]["data"].contains("categoryData"));
  EXPECT_EQ(objects[1]["data"]["categoryData"]["records"],
            nlohmann::json::parse(R"([[-1.0, "mode", "search"]])"));
}
