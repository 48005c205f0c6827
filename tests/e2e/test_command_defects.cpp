// What a user of scenario-host's command line runs into: options that take
// one value each, standard output as a destination, versions, write failures,
// bad option values, and text from a file that must not reach the terminal raw.
#include <regex>

#include "E2eSupport.h"

namespace {

using e2e::data;

class CommandDefects : public e2e::HostRun {};

TEST_F(CommandDefects, SettingAndRefuseTakeOneValueEachAndLeaveTheFiles) {
  const e2e::Outcome setting = run({"--setting", "Always Append By Name and Original ID=true", "--setting",
                                    "LastFileReaderDirectory=/data", data("e2e_ship.asi"), data("e2e_ship_more.asi")});
  EXPECT_EQ(setting.status, 0) << setting.err;
  EXPECT_NE(setting.out.find("e2e_ship.asi  result 0"), std::string::npos) << setting.out;
  EXPECT_NE(setting.out.find("e2e_ship_more.asi  result 0"), std::string::npos);

  const e2e::Outcome refuse =
      run({"--refuse", "raiseSignal", "--refuse", "debugPrint", data("e2e_ship.asi"), data("e2e_ship_more.asi")});
  EXPECT_EQ(refuse.status, 0) << refuse.err;
  EXPECT_NE(refuse.out.find("e2e_ship_more.asi  result 0"), std::string::npos) << refuse.out;
  EXPECT_NE(refuse.out.find("0 signals"), std::string::npos);
}

TEST_F(CommandDefects, DashWritesEachOutputToStandardOutputAndTheSummaryToStderr) {
  const e2e::Outcome dump = run({"--dump", "-", data("e2e_ship.asi")});
  EXPECT_EQ(dump.status, 0);
  const auto parsed = nlohmann::json::parse(dump.out, nullptr, false);
  ASSERT_FALSE(parsed.is_discarded()) << dump.out.substr(0, 400);
  EXPECT_EQ(parsed["statistics"]["points"], 3);
  EXPECT_NE(dump.err.find("---- scenario-host summary ----"), std::string::npos);

  for (const char* option : {"--trace", "--messages"}) {
    const e2e::Outcome r = run({option, "-", data("e2e_alpha.asi")});
    EXPECT_EQ(r.status, 3) << option;
    std::istringstream lines(r.out);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count)
      EXPECT_FALSE(nlohmann::json::parse(line, nullptr, false).is_discarded()) << option << ": " << line;
    EXPECT_GT(count, 0) << option;
  }
  EXPECT_FALSE(e2e::fs::exists(work / "-"));
  EXPECT_EQ(run({"--dump", "-", "--trace", "-", data("e2e_ship.asi")}).status, 64);
}

TEST_F(CommandDefects, VersionNamesTheToolAndThePlugin) {
  const e2e::Outcome r = run({"--version"});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_TRUE(std::regex_search(r.out, std::regex("^scenario-host [0-9]+\\.[0-9]+\\.[0-9]+\n"))) << r.out;
  EXPECT_NE(r.out.find("plug-in File_Reader_Plugin "), std::string::npos) << r.out;
  EXPECT_EQ(run({"--version", "--plugin", path("none.so")}).status, 69);
}

TEST_F(CommandDefects, AnOutputThatCannotBeWrittenEndsWith73) {
  for (const char* option : {"--dump", "--trace", "--messages"}) {
    const e2e::Outcome r = run({option, "/dev/full", data("e2e_alpha.asi")});
    EXPECT_EQ(r.status, 73) << option;
    EXPECT_NE(r.err.find("writing \"/dev/full\" failed"), std::string::npos) << option << r.err;
  }
  EXPECT_EQ(run({"--dump", path("no/such/folder/dump.json"), data("e2e_ship.asi")}).status, 73);
}

TEST_F(CommandDefects, BadOptionValuesAreRefusedInAFewWords) {
  const e2e::Outcome refuse = run({"--refuse", "createPlatfrom", data("e2e_ship.asi")});
  EXPECT_EQ(refuse.status, 64);
  EXPECT_NE(refuse.err.find("\"createPlatfrom\" is no client operation"), std::string::npos) << refuse.err;
  EXPECT_NE(refuse.err.find(" createPlatform "), std::string::npos);
  EXPECT_NE(refuse.err.find(" ~PIProgressDialog"), std::string::npos);

  for (const char* value : {"-1", "1e300", "x"}) {
    const e2e::Outcome r = run({"--cancel-after", value, data("e2e_ship.asi")});
    EXPECT_EQ(r.status, 64) << value;
    EXPECT_LT(r.err.size(), 200u) << r.err;
    EXPECT_FALSE(std::regex_search(r.err, std::regex("[0-9]{12}"))) << r.err;
  }
  EXPECT_EQ(run({"--max-speed", "0", data("e2e_ship.asi")}).status, 64);
  EXPECT_EQ(run({}).status, 64);
}

TEST_F(CommandDefects, FarTimesAreShownAsTheyAre) {
  const std::string file = write("far.asi",
                                 "Version 24\nReferenceYear 2024\nCoordSystem LLA\nRefLLA 0 0 0\nPlatformID 1\n"
                                 "PlatformName 1 far\nPlatformData 1 0 0.1 0.2 0\nPlatformData 1 1e300 0.1 0.2 0\n");
  const e2e::Outcome r = run({file});
  EXPECT_NE(r.out.find("time span: 2024-01-01T00:00:00Z .. 1e+300 s of 2024 (1e+300 s)\n"), std::string::npos)
      << r.out;
  EXPECT_FALSE(std::regex_search(r.out, std::regex("[0-9]{20}"))) << r.out;
}

TEST_F(CommandDefects, ControlCharactersFromAFileReachTheTerminalEscaped) {
  const std::string file = write("esc.asi",
                                 "Version 24\nReferenceYear 2024\n\x1b]0;retitled\x07Keyword\x1b[2J 1\n"
                                 "CoordSystem LLA\nRefLLA 0 0 0\nPlatformID 1\nPlatformName 1 \"sh\x9b" "ip\"\n"
                                 "PlatformData 1 0 0.1 0.2 0\n");
  const e2e::Outcome r = run({"--messages", "messages.jsonl", "--list", file});
  EXPECT_EQ(r.err.find('\x1b'), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find('\x07'), std::string::npos);
  EXPECT_EQ(r.out.find('\x9b'), std::string::npos) << r.out;
  EXPECT_NE(r.err.find("\\x1b]0;retitled\\x07Keyword\\x1b[2J"), std::string::npos) << r.err;
  EXPECT_NE(r.out.find("\"sh\\x9bip\""), std::string::npos) << r.out;
  // The JSON log keeps the text as received; JSON escapes it by itself.
  bool found = false;
  for (const auto& m : jsonLines("messages.jsonl"))
    found = found || m["text"].get<std::string>().find("\x1b]0;retitled\x07Keyword") != std::string::npos;
  EXPECT_TRUE(found);
}

}  // namespace
