// OTH Gold files through scenario-host: the example loads clean with its
// tracks, ellipses, categories and generic data, and a file without
// messages fails with the format's fatal text. (What a faulty file tells is
// the loader's unit test.)
#include <map>

#include "E2eSupport.h"

namespace {

class OtgFiles : public e2e::HostRun {
 protected:
  e2e::Outcome load(const std::string& file) {
    return run({"--dump", "dump.json", "--messages", "messages.jsonl", file});
  }


};

}  // namespace

TEST_F(OtgFiles, TheExampleLoadsItsTracksWithEllipses) {
  const e2e::Outcome r = load(std::string(ORV_TEST_DATA_DIR) + "/../../examples/northern_screen.otg");
  ASSERT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(messages(3), "");
  const auto d = json("dump.json");
  EXPECT_EQ(d["scenario"]["classification"], "UNCLASSIFIED");

  std::map<std::string, int> points;
  std::map<uint64_t, std::string> names;
  int ellipses = 0;
  for (const auto& object : d["objects"]) {
    if (object["kind"] == "platform") {
      points[object["header"]["name"]] = object["data"]["points"]["count"];
      names[object["id"]] = object["header"]["name"];
    } else {
      EXPECT_EQ(object["kind"], "customRendering");
      EXPECT_EQ(object["header"]["renderer"], "Custom Ellipse");
      EXPECT_TRUE(names.count(object["parent"])) << object;
      ++ellipses;
    }
  }
  // The submarine's last report is held to the end, as is the aircraft's;
  // the placeholder at the pole is left out.
  EXPECT_EQ(points, (std::map<std::string, int>{{"NORDKAPP", 4}, {"SUB ALFA", 4}, {"TROMSO TRADER", 4},
                                                {"ORION 3", 5}}));
  EXPECT_EQ(ellipses, 4);
  ASSERT_EQ(d["tables"].size(), 4u);
  for (const auto& table : d["tables"]) {
    EXPECT_EQ(table["name"], "Custom Ellipse");
    EXPECT_EQ(table["columns"].size(), 7u);
  }

  const auto& submarine = d["objects"][1];
  ASSERT_EQ(submarine["header"]["name"], "SUB ALFA");
  EXPECT_EQ(submarine["data"]["categoryData"]["count"], 5);
  // Three messages carried the submarine: one "Command" and one "MSN" each.
  EXPECT_EQ(submarine["data"]["genericData"]["count"], 6);
  // 150 feet down.
  EXPECT_NEAR(submarine["data"]["points"]["records"][0][3].get<double>(), -45.72, 0.001);
}

TEST_F(OtgFiles, AFileWithoutMessagesFails) {
  const e2e::Outcome r = load(write("empty.otg", "no messages here\n"));
  EXPECT_NE(r.status, 0);
  const std::string told = messages(3);
  EXPECT_NE(told.find("Empty data file encountered."), std::string::npos) << told;
  EXPECT_NE(told.find("Fatal error when loading OTG file"), std::string::npos) << told;
}

TEST_F(OtgFiles, OnlyPlaceholderReportsLoadAnEmptyScenario) {
  const e2e::Outcome r = load(write("placeholders.otg",
                                    "MSGID/GOLD/CTF-324/MOC-BODO/0001/MAR\n"
                                    "CTC/T0199/UNK-01\n"
                                    "POS/140915Z0/MAR/9000N9/00000E0\n"
                                    "ENDAT\n"));
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  const std::string told = messages(3);
  EXPECT_EQ(told.find("Fatal error"), std::string::npos) << told;
  EXPECT_NE(told.find("No position report of the file could be loaded."), std::string::npos) << told;
  EXPECT_TRUE(json("dump.json")["objects"].empty());
}
