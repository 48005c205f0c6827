// ASI archives through the plug-in: member order, identifiers, one unpacking
// for two loads, canceling the unpacking, and nothing left in TMPDIR.
#include "E2eSupport.h"

namespace fs = std::filesystem;

namespace {

class Archives : public e2e::HostRun {
 protected:
  std::vector<std::string> dialogLabels(const nlohmann::json& dump) const {
    std::vector<std::string> labels;
    for (const auto& d : dump["host"]["progressDialogs"]) labels.push_back(d["label"]);
    return labels;
  }
};

const char kMember[] = "# Scenario Identifier: feed\nVersion 24\nCoordSystem LLA\n";

TEST_F(Archives, MembersAreReadInArchiveOrderAndTheFirstDecides) {
  const std::string archive = zip("feed.zip", {{"b.asi", kMember}, {"a.asi", kMember}});
  const e2e::Outcome r = run({"--dump", "dump.json", archive});
  EXPECT_EQ(r.status, 3);  // the first member has no platform: the load stops there
  const auto labels = dialogLabels(json("dump.json"));
  ASSERT_EQ(labels.size(), 2u);
  EXPECT_EQ(labels[0], "Unzipping file feed.zip.  Please wait...");
  EXPECT_EQ(labels[1], "Reading file b.asi.  Please wait...");
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(Archives, DifferentIdentifiersStopTheLoadBeforeAnyRead) {
  const std::string archive =
      zip("mixed.zip", {{"x.asi", "# Scenario Identifier: x\nVersion 24\n"}, {"y.asi", "Version 24\n"}});
  const e2e::Outcome r = run({"--dump", "dump.json", "--trace", "trace.jsonl", archive});
  EXPECT_EQ(r.status, 3);
  EXPECT_NE(r.err.find("ZIP contains multiple files with different Scenario IDs\n"), std::string::npos) << r.err;
  const auto labels = dialogLabels(json("dump.json"));
  ASSERT_EQ(labels.size(), 1u);
  EXPECT_EQ(labels[0], "Unzipping file mixed.zip.  Please wait...");
  EXPECT_EQ(countOps(jsonLines("trace.jsonl"), "initializeScenario"), 0);
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(Archives, SecondLoadOfTheSameArchiveNeedsNoUnpacking) {
  const std::string archive = zip("feed.zip", {{"a.asi", kMember}});
  const e2e::Outcome r = run({"--dump", "dump.json", archive, archive});
  EXPECT_EQ(r.status, 3);
  int unzipping = 0, reading = 0;
  for (const std::string& label : dialogLabels(json("dump.json"))) {
    unzipping += label.rfind("Unzipping", 0) == 0;
    reading += label.rfind("Reading", 0) == 0;
  }
  EXPECT_EQ(unzipping, 1);
  EXPECT_EQ(reading, 2);
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(Archives, CancelDuringUnpackingEndsTheLoadAsCanceled) {
  // A member large enough that unpacking outlasts the dialog's first poll.
  const fs::path script = work / "big.py";
  std::ofstream(script) << "import zipfile\n"
                        << "with zipfile.ZipFile(r'''" << path("big.zip")
                        << "''', 'w', zipfile.ZIP_DEFLATED, compresslevel=1) as z:\n"
                        << "    with z.open('big.asi', 'w') as f:\n"
                        << "        f.write(b'Version 24\\n')\n"
                        << "        block = b'PlatformData 1 0 0 0 0\\n' * 40000\n"
                        << "        for _ in range(200):\n"
                        << "            f.write(block)\n";
  ASSERT_EQ(std::system(("python3 " + e2e::quote(script.string())).c_str()), 0);
  const e2e::Outcome r = run({"--cancel-after", "1", "--dump", "dump.json", path("big.zip")});
  EXPECT_EQ(r.status, 1) << r.err;
  EXPECT_NE(r.err.find("File loading canceled by user.\n"), std::string::npos);
  EXPECT_EQ(dialogLabels(json("dump.json")).size(), 1u);
  EXPECT_TRUE(tmpIsEmpty());
}

}  // namespace
