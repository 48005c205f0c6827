// Loads that reach the host with data: exit status 0, the summary, the dump
// and the append signal.
#include "E2eSupport.h"

namespace {

using e2e::data;

class Loaded : public e2e::HostRun {
 protected:
  e2e::Outcome load(const std::vector<std::string>& args) { return run(args); }
};

TEST_F(Loaded, ExampleLoadsAndTheSummaryTellsWhatArrived) {
  const e2e::Outcome r = load({"--dump", "dump.json", std::string(ORV_TEST_DATA_DIR) + "/../../examples/minimal.asi"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(r.err.empty()) << r.err;
  EXPECT_NE(r.out.find("result 0 (loaded)"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("objects:   platform 1\n"), std::string::npos);
  EXPECT_NE(r.out.find("points:    3 "), std::string::npos);
  EXPECT_NE(r.out.find("time span: 2024-01-01T00:00:00Z .. 2024-01-01T00:10:00Z (00:10:00)\n"), std::string::npos);
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["host"]["signals"].size(), 0u);
  EXPECT_EQ(dump["host"]["messageBoxes"].size(), 0u);
}

TEST_F(Loaded, SuccessfulAppendRaisesTheSignalUnlessNoServiceIsOffered) {
  const e2e::Outcome r =
      load({"--dump", "dump.json", "--trace", "trace.jsonl", data("e2e_ship.asi"), data("e2e_ship_more.asi")});
  EXPECT_EQ(r.status, 0) << r.err;
  const auto dump = json("dump.json");
  const auto signals = dump["host"]["signals"];
  ASSERT_EQ(signals.size(), 1u);
  EXPECT_EQ(signals[0], "kesmet.orvide/PluginClient/SignalService/AppendData/1.0");
  EXPECT_EQ(countOps(jsonLines("trace.jsonl"), "unbind"), 1);
  EXPECT_NE(r.out.find("objects:   platform 2\n"), std::string::npos) << r.out;
  // Platform 1 merges by its ASI id, whatever its new name; platform 2 is new.
  EXPECT_EQ(dump["objects"][0]["data"]["points"]["count"], 5);

  const e2e::Outcome quiet =
      run({"--no-signal-service", "--dump", "quiet.json", data("e2e_ship.asi"), data("e2e_ship_more.asi")});
  EXPECT_EQ(quiet.status, 0);
  EXPECT_EQ(json("quiet.json")["host"]["signals"].size(), 0u);
}

TEST_F(Loaded, NoDataModeKeepsCountsAndSpans) {
  const e2e::Outcome r = load({"--no-data", data("e2e_ship.asi")});
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("points:    3 "), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("time span: 2024-01-01T00:00:00Z .. 2024-01-01T00:02:00Z (00:02:00)\n"), std::string::npos);
}

TEST_F(Loaded, RefusedCreationFailsTheLoad) {
  const e2e::Outcome r = run({"--refuse", "createPlatform", data("e2e_ship.asi")});
  const bool refusalSeen = r.err.find("Failed to create platform; check console for error messages") != std::string::npos;
  EXPECT_TRUE(refusalSeen) << r.err;
  EXPECT_EQ(r.status, 3);
  EXPECT_NE(r.out.find("objects:   none"), std::string::npos) << r.out;
}

}  // namespace
