// The three ways a user hands files to the plug-in: the open delegate, the
// host's open, and the menu commands with their file dialog.
#include "E2eSupport.h"

namespace {

using e2e::data;

class DriveModes : public e2e::HostRun {};

TEST_F(DriveModes, HostOpenShowsAMessageBox) {
  const e2e::Outcome r = run({"--via", "open", "--dump", "dump.json", data("e2e_alpha.asi")});
  EXPECT_EQ(r.status, 3);
  EXPECT_NE(r.err.find("File Import Error: Fatal error encountered when loading file. Check console for messages.\n"),
            std::string::npos)
      << r.err;
  const auto boxes = json("dump.json")["host"]["messageBoxes"];
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0]["title"], "File Import Error");
}

TEST_F(DriveModes, DialogImportOfTwoFilesDeletesOnceAndReportsNoResult) {
  const e2e::Outcome r =
      run({"--via", "dialog", "--trace", "trace.jsonl", data("e2e_alpha.asi"), data("e2e_beta.asi")});
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("the dialog path reports no result"), std::string::npos) << r.out;
  const auto trace = jsonLines("trace.jsonl");
  EXPECT_EQ(countOps(trace, "showFileLoadDialog"), 1);
  EXPECT_EQ(countOps(trace, "deleteScenario"), 1);
  EXPECT_EQ(countOps(trace, "PIProgressDialog"), 2);
  // No box on this path: the console has the story.
  EXPECT_EQ(r.err.find("File Import Error"), std::string::npos);
  EXPECT_NE(r.err.find("Must define at least one non-static independent entity"), std::string::npos);
}

TEST_F(DriveModes, DialogAppendDeletesNothing) {
  const e2e::Outcome r =
      run({"--via", "dialog", "--append", "--trace", "trace.jsonl", data("e2e_alpha.asi"), data("e2e_beta.asi")});
  EXPECT_EQ(r.status, 0);
  const auto trace = jsonLines("trace.jsonl");
  EXPECT_EQ(countOps(trace, "deleteScenario"), 0);
  bool appendTitle = false;
  for (const auto& line : trace)
    if (line["op"] == "showFileLoadDialog") appendTitle = line["args"]["title"] == "Append Files";
  EXPECT_TRUE(appendTitle);
}

TEST_F(DriveModes, RefusedMenuActionIsAFailure) {
  const e2e::Outcome r = run({"--via", "dialog", "--refuse", "createAction", data("e2e_alpha.asi")});
  EXPECT_EQ(r.status, 3);
  EXPECT_NE(r.err.find("created no action \"Show ASI Import\""), std::string::npos);
}

TEST_F(DriveModes, FurtherFilesAreAppended) {
  const e2e::Outcome r = run({"--trace", "trace.jsonl", data("e2e_alpha.asi"), data("e2e_alpha_more.asi")});
  EXPECT_EQ(r.status, 3);
  // The second file is appended to the scenario the first one started.
  const auto trace = jsonLines("trace.jsonl");
  EXPECT_EQ(countOps(trace, "initializeScenario"), 1);
  EXPECT_EQ(countOps(trace, "setScenarioFileName"), 1);
  EXPECT_EQ(countOps(trace, "deleteScenario"), 0);
}

}  // namespace
