// scenario-host's usage, exit statuses and the three output files.
#include "E2eSupport.h"

namespace {

using e2e::data;

class CommandLine : public e2e::HostRun {};

TEST_F(CommandLine, BadUsageIs64AndHelpDocumentsEveryOption) {
  EXPECT_EQ(run({}).status, 64);
  EXPECT_EQ(run({"--via", "mail", data("e2e_alpha.asi")}).status, 64);
  EXPECT_EQ(run({"--app", "spreadsheet", data("e2e_alpha.asi")}).status, 64);
  EXPECT_EQ(run({"--setting", "no-equals-sign", data("e2e_alpha.asi")}).status, 64);
  EXPECT_EQ(run({"--cancel-after", "-3", data("e2e_alpha.asi")}).status, 64);
  EXPECT_EQ(run({"--append", "--via", "open", data("e2e_alpha.asi")}).status, 64);

  const e2e::Outcome help = run({"--help"});
  EXPECT_EQ(help.status, 0);
  for (const char* option : {"--plugin", "--via", "--append", "--app", "--setting", "--cancel-after", "--locate",
                             "--no-signal-service", "--refuse", "--no-data", "--messages", "--dump", "--trace"})
    EXPECT_NE(help.out.find(option), std::string::npos) << option;
}

TEST_F(CommandLine, MissingPluginIsReported) {
  const e2e::Outcome r = run({"--plugin", path("nowhere.so"), data("e2e_alpha.asi")});
  EXPECT_EQ(r.status, 69);
  EXPECT_NE(r.err.find("cannot load the plug-in"), std::string::npos);
}

TEST_F(CommandLine, ExplicitPluginPathLoads) {
  const e2e::Outcome r = run({"--plugin", FILE_READER_PLUGIN, data("e2e_alpha.asi")});
  EXPECT_EQ(r.status, 3);
}

TEST_F(CommandLine, PluginExportsOnlyItsEntryPoints) {
  FILE* pipe = ::popen((std::string("nm -D --defined-only ") + e2e::quote(FILE_READER_PLUGIN)).c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string listing;
  char buffer[4096];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof(buffer), pipe)) > 0;) listing.append(buffer, n);
  ASSERT_EQ(::pclose(pipe), 0);
  std::istringstream lines(listing);
  std::vector<std::string> symbols;
  for (std::string line; std::getline(lines, line);) {
    const std::string symbol = line.substr(line.rfind(' ') + 1);
    if (!symbol.empty()) symbols.push_back(symbol);
  }
  EXPECT_EQ(symbols.size(), 9u) << listing;
  for (const std::string& symbol : symbols) EXPECT_EQ(symbol.rfind("OPI_", 0), 0u) << symbol;
}

TEST_F(CommandLine, FailedLoadWritesMessagesDumpTraceAndSummary) {
  const e2e::Outcome r = run({"--messages", "messages.jsonl", "--dump", "dump.json", "--trace", "trace.jsonl",
                          data("e2e_alpha.asi")});
  EXPECT_EQ(r.status, 3);  // load result -1
  // Notifications reach stderr as they arrive, in order.
  const auto entity = r.err.find("Must define at least one non-static independent entity\n");
  const auto outcome = r.err.find("Failed to load file due to errors.  Check console for messages.\n");
  ASSERT_NE(entity, std::string::npos) << r.err;
  ASSERT_NE(outcome, std::string::npos);
  EXPECT_LT(entity, outcome);
  EXPECT_NE(r.out.find("result -1 (failed)"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("objects:   none"), std::string::npos);
  EXPECT_NE(r.out.find("time span: none"), std::string::npos);

  const auto messages = jsonLines("messages.jsonl");
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0]["severity"], 2);
  EXPECT_EQ(messages[1]["text"], "Failed to load file due to errors.  Check console for messages.\n");

  const auto dump = json("dump.json");
  const auto& host = dump["host"];
  EXPECT_EQ(host["registry"]["Always Append By Name and Original ID"], "False");
  ASSERT_EQ(host["actions"].size(), 2u);
  EXPECT_EQ(host["actions"][0]["name"], "Show ASI Import");
  EXPECT_EQ(host["hotKeys"].size(), 2u);
  EXPECT_EQ(host["fileHandlers"].size(), 9u);
  EXPECT_EQ(host["openDelegates"].size(), 9u);
  ASSERT_EQ(host["progressDialogs"].size(), 1u);
  EXPECT_EQ(host["progressDialogs"][0]["label"], "Reading file e2e_alpha.asi.  Please wait...");
  EXPECT_EQ(host["signals"].size(), 0u);

  const auto trace = jsonLines("trace.jsonl");
  ASSERT_FALSE(trace.empty());
  for (const auto& line : trace) {
    EXPECT_TRUE(line.contains("op"));
    EXPECT_TRUE(line.contains("args"));
  }
  EXPECT_EQ(countOps(trace, "initializeScenario"), 1);
  EXPECT_EQ(countOps(trace, "registerFileOpenAdvancedGui"), 9);
  bool sawInitialize = false;
  for (const auto& line : trace)
    if (line["op"] == "initializeScenario") {
      sawInitialize = true;
      EXPECT_EQ(line["args"]["name"], data("e2e_alpha.asi"));
      EXPECT_EQ(line["args"]["port"], 0);
      EXPECT_EQ(line["args"]["flag"], false);
    }
  EXPECT_TRUE(sawInitialize);
  EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(CommandLine, FirstNonZeroResultDecidesTheExitStatus) {
  // Canceled (1) then missing (-1), and the other way round.
  const std::string missing = path("missing.asi");
  EXPECT_EQ(run({"--cancel-after", "1", data("e2e_alpha.asi"), missing}).status, 1);
  EXPECT_EQ(run({"--cancel-after", "1", missing, data("e2e_alpha.asi")}).status, 3);
}

TEST_F(CommandLine, SettingsRefusalsAndApplicationReachTheHost) {
  const e2e::Outcome r = run({"--app", "plot", "--setting", "Always Append By Name and Original ID=True", "--setting",
                          "LastFileReaderDirectory=/data", "--refuse", "initializeScenario", "--dump", "dump.json",
                          "--trace", "trace.jsonl", data("e2e_alpha.asi")});
  EXPECT_EQ(r.status, 3);
  const auto dump = json("dump.json");
  EXPECT_EQ(dump["host"]["application"], "plot");
  EXPECT_EQ(dump["host"]["registry"]["Always Append By Name and Original ID"], "True");
  EXPECT_EQ(dump["host"]["registry"]["LastFileReaderDirectory"], "/data");
  const auto trace = jsonLines("trace.jsonl");
  bool refused = false;
  for (const auto& line : trace) refused = refused || (line["op"] == "initializeScenario" && line.value("refused", false));
  EXPECT_TRUE(refused);
}

}  // namespace
