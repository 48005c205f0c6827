// Verdicts a user can act on: located console messages, the enriched message
// log, the summary's counts and times, --strict, --list and --check.
#include "E2eSupport.h"

namespace {

using e2e::data;
using e2e::example;

class Verdicts : public e2e::HostRun {
 protected:
  static std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) out.push_back(line);
    return out;
  }
  const std::string head = "Version 24\nReferenceYear 2024\nCoordSystem LLA\nDegreeAngles 1\nRefLLA 50 -1 0\n";
};

TEST_F(Verdicts, MessagesAreLocatedOnTheConsoleAndInTheLog) {
  const std::string file = write("faults.asi", head +
                                                   "PlatformID 1\nPlatformName 1 ship\n"
                                                   "PlatformData 1 0 50.1 -1.1 0\n"
                                                   "PlatformData 1 soon 50.1 -1.1 0\n"
                                                   "Unheard 1\n");
  const e2e::Outcome r = run({"--messages", "messages.jsonl", file});
  EXPECT_EQ(r.status, 2) << r.err;
  EXPECT_NE(r.err.find(file + ":9: error: PlatformData: "), std::string::npos) << r.err;
  EXPECT_NE(r.err.find(file + ": info: Command \"Unheard\" appeared 1 times\n"), std::string::npos) << r.err;

  bool located = false, unlocated = false;
  for (const auto& m : jsonLines("messages.jsonl")) {
    EXPECT_EQ(m["file"], file);
    const std::string text = m["text"];
    if (text.rfind("Line 9 PlatformData: ", 0) == 0) {
      located = true;
      EXPECT_EQ(m["line"], 9);
      EXPECT_EQ(m["keyword"], "PlatformData");
      EXPECT_EQ(m["severity"], 2);
      EXPECT_EQ(m["severityName"], "error");
    }
    if (text == "Command \"Unheard\" appeared 1 times\n") {
      unlocated = true;
      EXPECT_TRUE(m["line"].is_null());
      EXPECT_TRUE(m["keyword"].is_null());
      EXPECT_EQ(m["severityName"], "info");
    }
  }
  EXPECT_TRUE(located);
  EXPECT_TRUE(unlocated);
}

TEST_F(Verdicts, TheSummaryCountsMessagesAndShowsTheScenarioInUtc) {
  const e2e::Outcome r = run({example("harbour.asi")});
  EXPECT_EQ(r.status, 0);
  EXPECT_NE(r.out.find("           classification \"UNCLASSIFIED\"\n"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("           description \"Portsmouth Harbour morning traffic\"\n"), std::string::npos);
  // 08:30 UTC on 14 May 2025 to the ship's berthing at 08:55:23.
  EXPECT_NE(r.out.find("time span: 2025-05-14T08:30:00Z .. 2025-05-14T08:55:23Z (00:25:23)\n"), std::string::npos);
  EXPECT_NE(r.out.find("messages:  0 errors, 0 warnings, 0 notes;"), std::string::npos);

  const e2e::Outcome faults = run({write("unknown.asi", head + "PlatformID 1\nPlatformName 1 x\nPlatformData 1 0 50.1 -1.1 0\n"
                                                               "Unheard 1\nPlatformIcon 1\n")});
  EXPECT_NE(faults.out.find("messages:  0 errors, 1 warning, 2 notes;"), std::string::npos) << faults.out << faults.err;
}

TEST_F(Verdicts, StrictFailsALoadThatWarned) {
  const std::string warned = write("warned.asi", "Version 25\nReferenceYear 2024\nCoordSystem LLA\nRefLLA 0 0 0\n"
                                                 "PlatformID 1\nPlatformName 1 x\nPlatformData 1 0 0.1 0.2 0\n");
  EXPECT_EQ(run({warned}).status, 0);
  const e2e::Outcome strict = run({"--strict", warned});
  EXPECT_EQ(strict.status, 5);
  EXPECT_NE(strict.out.find("exit:      5 (--strict: warnings or errors were reported)"), std::string::npos)
      << strict.out;
  EXPECT_EQ(run({"--strict", example("minimal.asi")}).status, 0);
  // A load that failed keeps its own status.
  EXPECT_EQ(run({"--strict", data("e2e_alpha.asi")}).status, 3);
}

TEST_F(Verdicts, ListGivesOneLinePerObjectWithItsSpanAndExtent) {
  const e2e::Outcome r = run({"--list", example("harbour.asi")});
  EXPECT_EQ(r.status, 0);
  std::vector<std::string> listed;
  for (const std::string& line : lines(r.out))
    if (line.rfind("platform ", 0) == 0) listed.push_back(line);
  ASSERT_EQ(listed.size(), 6u) << r.out;
  EXPECT_EQ(listed[0],
            "platform \"Gosport Queen\" id 1 parent 0 points 18 time 2025-05-14T08:30:00Z/2025-05-14T08:40:45Z "
            "lat 50.795300..50.796600 lon -1.116600..-1.109200");
  EXPECT_NE(listed[4].find("\"Outer Spit Buoy\" id 7 parent 0 points 1 time static lat 50.788000..50.788000"),
            std::string::npos)
      << listed[4];

  // Positions in ECEF are listed in latitude and longitude as well.
  const e2e::Outcome ecef = run({"--list", example("aircraft_ecef.asi")});
  EXPECT_NE(ecef.out.find("platform \"Blagnac Tower\""), std::string::npos) << ecef.out;
  EXPECT_NE(ecef.out.find(" lat 43.6"), std::string::npos) << ecef.out;

  const e2e::Outcome noData = run({"--list", "--no-data", example("minimal.asi")});
  EXPECT_NE(noData.out.find("points 3 time 2024-01-01T00:00:00Z/2024-01-01T00:10:00Z extent unknown (no data kept)"),
            std::string::npos)
      << noData.out;
}

TEST_F(Verdicts, CheckTellsTimeFaultsSpeedsAndImpossiblePositions) {
  const std::string file = write("odd.asi", head +
                                                "PlatformID 1\nPlatformName 1 Backwards\n"
                                                "PlatformData 1 10 50.0 -1.0 0\nPlatformData 1 5 50.0 -1.0 0\n"
                                                "PlatformData 1 20 50.0 -1.0 0\nPlatformData 1 20 50.0 -1.0 0\n"
                                                "PlatformID 2\nPlatformName 2 Rocket\n"
                                                "PlatformData 2 0 50.0 -1.0 0\nPlatformData 2 10 50.5 -1.0 0\n"
                                                "PlatformID 3\nPlatformName 3 Mole\n"
                                                "PlatformData 3 0 50.0 -1.0 -20000\nPlatformData 3 1 50.0 -1.0 -20000\n"
                                                "PlatformID 4\nPlatformName 4 Beacon\nPlatformData 4 -1 50.0 -1.0 0\n"
                                                "PlatformID 5\nPlatformName 5 Steady\n"
                                                "PlatformData 5 0 50.0 -1.0 0\nPlatformData 5 60 50.0 -0.99 0\n");
  const e2e::Outcome r = run({"--check", file});
  const std::vector<std::string> out = lines(r.out);
  const auto has = [&](const std::string& text) {
    for (const std::string& line : out)
      if (line == text) return true;
    return false;
  };
  EXPECT_TRUE(has(file + ": object Backwards: time goes backwards at point 2 (2024-01-01T00:00:05Z after "
                         "2024-01-01T00:00:10Z)"))
      << r.out;
  EXPECT_TRUE(has(file + ": object Backwards: time repeats at point 4 (2024-01-01T00:00:20Z)")) << r.out;
  // Half a degree of latitude in ten seconds: some 5560 m/s.
  bool rocket = false;
  for (const std::string& line : out) rocket = rocket || line.rfind(file + ": object Rocket: faster than 1715 m/s: 55", 0) == 0;
  EXPECT_TRUE(rocket) << r.out;
  EXPECT_TRUE(has(file + ": object Mole: position outside the earth at point 1 (latitude 50.000000 deg, longitude "
                         "-1.000000 deg, altitude -20000.0 m), and 1 more"))
      << r.out;
  EXPECT_TRUE(has(file + ": object Beacon: its only point is static (time -1)")) << r.out;
  for (const std::string& line : out) EXPECT_EQ(line.find("object Steady"), std::string::npos) << line;

  // A stated speed above the rocket's lets it pass.
  const e2e::Outcome faster = run({"--check", "--max-speed", "6000", file});
  EXPECT_EQ(faster.out.find("object Rocket"), std::string::npos) << faster.out;
}

TEST_F(Verdicts, CheckNamesTheFileThatBroughtAPoint) {
  const std::string first = write("first.asi", "# Scenario Identifier: feed\n" + head +
                                                   "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 100 50 -1 0\n");
  const std::string second = write("second.asi", "# Scenario Identifier: feed\n" + head +
                                                     "PlatformID 1\nPlatformName 1 ship\nPlatformData 1 50 50 -1 0\n"
                                                     "PlatformID 2\nPlatformName 2 boat\nPlatformData 2 0 50 -1 0\n"
                                                     "PlatformData 2 10 50 -1 0\n");
  const e2e::Outcome r = run({"--check", first, second});
  EXPECT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find(second + ": object ship: time goes backwards at point 2"), std::string::npos) << r.out;
}

}  // namespace
