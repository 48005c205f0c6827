// Drawables through the loaded plug-in: data for a projector that waits for
// the projector's creation.

#include "E2eSupport.h"

namespace {

class DrawableCommands : public e2e::HostRun {};

}  // namespace

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
