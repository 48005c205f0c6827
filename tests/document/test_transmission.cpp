// A document sent to the reference host: format choice, the checks that
// come before anything is sent, settings, the kinds of objects, the time
// window and the id map across appended files.
#include "TransmitSupport.h"

#include <functional>
#include <sstream>

#include "core/TimeStamp.h"
#include "document/ConvenienceFuncsUD.h"

using namespace transmit;

namespace {

class Transmission : public HostFixture {
 protected:
  // A ".fake" format whose load runs `build`, and two ".csv" dialects told
  // apart by their first line.
  AsiScenarioFile& file() {
    if (!file_) {
      ImporterEntry fake;
      fake.extensions = {".fake"};
      fake.notice = "Reading FAKE file: ";
      fake.fatalText = "Fatal error when loading FAKE file\n";
      fake.load = [this](const std::string&, ScenarioUD& s, ScenarioUD::PercentCallback*) { return build(s); };
      ImporterEntry pet = fake;
      pet.extensions = {".csv"};
      pet.csvMarkers = {"PET CSV"};
      pet.load = [this](const std::string&, ScenarioUD& s, ScenarioUD::PercentCallback*) {
        loaded.push_back("pet");
        return build(s);
      };
      ImporterEntry score = pet;
      score.csvMarkers = {"COM,", "SRC,"};
      score.load = [this](const std::string&, ScenarioUD& s, ScenarioUD::PercentCallback*) {
        loaded.push_back("score");
        return build(s);
      };
      file_ = std::make_unique<AsiScenarioFile>(ImporterTable{fake, pet, score});
    }
    return *file_;
  }
  bool send(const std::string& path, bool append, const orvCore::TimeStamp* min = nullptr,
            const orvCore::TimeStamp* max = nullptr) {
    return file().transmitScenario(path, min, max, nullptr, append, issues);
  }
  // A scenario of 2021 with one moving platform.
  static int track(ScenarioUD& s) {
    s.setReferenceYear(2021);
    addPlatform(s, 1, "alpha", 100, {{10, 30.0}, {20, 30.1}, {30, 30.2}});
    return 0;
  }

  std::function<int(ScenarioUD&)> build = track;
  std::vector<std::string> loaded;
  std::vector<std::string> issues;
  std::unique_ptr<AsiScenarioFile> file_;
};

TEST_F(Transmission, FormatsAreChosenByExtensionAndFirstLine) {
  EXPECT_FALSE(send(write("a.csv", "\n  STD PET CSV,1\n"), false));
  EXPECT_FALSE(send(write("b.csv", "X,COM,3\n"), false));
  EXPECT_FALSE(send(write("c.csv", "SRC,4\n"), false));
  EXPECT_EQ(loaded, (std::vector<std::string>{"pet", "score", "score"}));
  EXPECT_TRUE(told("Reading FAKE file: " + (work / "c.csv").string(), PICommon::PI_NOTIFY_INFO));

  EXPECT_TRUE(send(write("d.csv", "TIME,LAT\n"), false));
  EXPECT_TRUE(send(write("e.gpx", "<gpx/>"), false));
  EXPECT_EQ(issues, (std::vector<std::string>{"Unknown CSV file format detected\n", "Unknown file format\n"}));
}

TEST_F(Transmission, LoadComplaintsAreWarningsAndAFatalLoadSendsNothing) {
  ASSERT_FALSE(send(write("first.fake", ""), false));
  build = [](ScenarioUD& s) {
    writeErrorStreamUD("line 3 is odd\n");
    track(s);
    return static_cast<int>(UD_BAD_VERSION);
  };
  EXPECT_TRUE(send(write("second.fake", ""), false));
  EXPECT_TRUE(told("Issues detected during ASI load:\nline 3 is odd\n", PICommon::PI_NOTIFY_WARN));
  EXPECT_EQ(issues, std::vector<std::string>{"Fatal error when loading FAKE file\n"});
  // The first file's scenario is still there, untouched.
  EXPECT_EQ(host->toJson()["scenario"]["fileName"], (work / "first.fake").string());
  EXPECT_EQ(objects("platform").size(), 1u);
}

TEST_F(Transmission, FirstFileSendsSettingsWithItsYearAndPlatformsInTheLlaFrame) {
  build = [](ScenarioUD& s) {
    track(s);
    s.setDesc("exercise");
    s.setClassification("SECRET", 0xFF0000FFu);  // AABBGGRR: opaque red
    s.setLatLonAlt(rad(30.0), rad(-1.0), 5.0);
    s.setWindSpeed(7.0);
    s.addCategoryData(1, -1, "Data Format", "GPX");
    return 0;
  };
  ASSERT_FALSE(send(write("a.fake", ""), false)) << ::testing::PrintToString(issues);
  const nlohmann::json dump = host->toJson();
  const nlohmann::json& scenario = dump["scenario"];
  EXPECT_EQ(scenario["referenceYear"], 2021);
  EXPECT_EQ(scenario["description"], "exercise");
  EXPECT_EQ(scenario["classificationColor"], 0xFF0000FFu);
  EXPECT_NEAR(scenario["originLLA"][0].get<double>(), rad(30.0), 1e-12);
  EXPECT_EQ(scenario["windSpeed"], 7.0);

  const nlohmann::json platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 1u);
  EXPECT_EQ(platforms[0]["header"]["name"], "alpha");
  EXPECT_EQ(platforms[0]["originalId"], 100);
  const nlohmann::json& points = platforms[0]["data"]["points"];
  ASSERT_EQ(points["count"], 3);
  const nlohmann::json& frame = dump["frames"][points["records"][1][10].get<size_t>()];
  EXPECT_EQ(frame["coordSystem"], 3);  // LLA
  EXPECT_NEAR(points["records"][1][1].get<double>(), rad(30.1), 1e-12);
  // Velocities derived from the track: heading north.
  EXPECT_GT(points["records"][1][8].get<double>(), 0.0);
  EXPECT_EQ(platforms[0]["data"]["categoryData"]["records"][0][2], "GPX");
}

TEST_F(Transmission, AppendWithAnotherYearIsRefusedWhole) {
  ASSERT_FALSE(send(write("a.fake", ""), false));
  build = [](ScenarioUD& s) {
    track(s);
    s.setReferenceYear(2001);
    addPlatform(s, 2, "beta", 200, {{5, 10.0}});
    return 0;
  };
  EXPECT_TRUE(send(write("b.fake", ""), true));
  ASSERT_EQ(issues.size(), 1u);
  EXPECT_EQ(issues[0],
            "The Reference Year (2001) of the new file does not match the current Reference Year (2021)\n"
            "Append operation aborted.");
  EXPECT_EQ(objects("platform").size(), 1u);
}

TEST_F(Transmission, TimeWindowCutsStatesAtItsEdgesAndKeepsStaticObjects) {
  build = [](ScenarioUD& s) {
    track(s);
    addPlatform(s, 2, "buoy", 0, {{-1.0, 31.0}});
    return 0;
  };
  const orvCore::TimeStamp min(2021, orvCore::Seconds(15.0)), max(2021, orvCore::Seconds(25.0));
  ASSERT_FALSE(send(write("a.fake", ""), false, &min, &max));
  const nlohmann::json platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 2u);
  const nlohmann::json& records = platforms[0]["data"]["points"]["records"];
  ASSERT_EQ(records.size(), 3u);
  EXPECT_EQ(records[0][0], 15.0);
  EXPECT_NEAR(records[0][1].get<double>(), rad(30.05), 1e-6);
  EXPECT_EQ(records[1][0], 20.0);
  EXPECT_EQ(records[2][0], 25.0);
  EXPECT_EQ(platforms[1]["data"]["points"]["records"][0][0], -1.0);

  const orvCore::TimeStamp late(2021, orvCore::Seconds(30.0));
  EXPECT_TRUE(send(write("b.fake", ""), true, &late, nullptr));
  EXPECT_EQ(issues.back(), "Input file times are outside requested min (30) and max (none) filter time ranges.\n"
                           "Load operation aborted.");

  EXPECT_FALSE(send(write("c.fake", ""), false, &max, &min));
  EXPECT_TRUE(told("Time range minTimeFilter is > maxTimeFilter\n", PICommon::PI_NOTIFY_ERROR));
}

TEST_F(Transmission, AppendedFilesFindTheObjectsOfEarlierOnes) {
  ASSERT_FALSE(send(write("a.fake", ""), false));
  // The second file names platform 1 again without points: what hangs on it
  // goes to the first file's platform. Platform 2 is new.
  build = [](ScenarioUD& s) {
    s.setReferenceYear(2021);
    addPlatform(s, 1, "alpha", 100, {});
    addPlatform(s, 2, "beta", 0, {{40, 31.0}});
    s.addLaser(1, 7, "pointer");
    s.laserManager().findLaser(7)->addMaxRangeDataPoint(40, 900.0);
    s.addGenericData(0, "ORVIDE_AnimatedLine_1", "EntityId=1,color=red,entityid=2", 40);
    return 0;
  };
  ASSERT_FALSE(send(write("b.fake", ""), true)) << ::testing::PrintToString(issues);
  nlohmann::json platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 2u);
  const std::string alpha = std::to_string(platforms[0]["id"].get<uint64_t>());
  const std::string beta = std::to_string(platforms[1]["id"].get<uint64_t>());
  const nlohmann::json lasers = objects("laser");
  ASSERT_EQ(lasers.size(), 1u);
  EXPECT_EQ(lasers[0]["parent"], platforms[0]["id"]);
  EXPECT_EQ(lasers[0]["data"]["laserMaxRange"]["records"][0][1], 900.0);
  const nlohmann::json dump = host->toJson();
  EXPECT_EQ(dump["scenarioData"]["genericData"]["records"][0][3],
            "entityid=" + alpha + ",color=red,entityid=" + beta);

  // A third file continues alpha (same id, original id and name); a platform
  // of the same id under another name is a platform of its own.
  build = [](ScenarioUD& s) {
    s.setReferenceYear(2021);
    addPlatform(s, 1, "alpha", 100, {{50, 30.4}});
    addPlatform(s, 2, "gamma", 0, {{50, 32.0}});
    return 0;
  };
  ASSERT_FALSE(send(write("c.fake", ""), true));
  platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 3u);
  EXPECT_EQ(platforms[0]["data"]["points"]["count"], 4);
  EXPECT_EQ(platforms[2]["header"]["name"], "gamma");
}

TEST_F(Transmission, LaserWithoutHostIsSkipped) {
  build = [](ScenarioUD& s) {
    track(s);
    addPlatform(s, 2, "parked", 0, {});
    s.addLaser(2, 8, "orphan");
    return 0;
  };
  ASSERT_FALSE(send(write("a.fake", ""), false));
  EXPECT_TRUE(told("Unable to find laser host.\n", PICommon::PI_NOTIFY_ERROR));
  EXPECT_TRUE(objects("laser").empty());
}

TEST_F(Transmission, DataTablesFindTheirOwnerAndRefuseADifferentLayout) {
  auto table = [](ScenarioUD& s, const std::string& name, const std::string& column, double time,
                  uint64_t owner = 1) {
    DataTable* t = s.AddDataTable(owner, name);
    int64_t id = 0;
    t->addColumn(column, UTILS::VT_FLOAT64, id);
    DataTableRowT row(time);
    row.addCell(id, new DataTableCellTyped<double>(time * 2));
    t->addRow(row);
  };
  build = [&table](ScenarioUD& s) {
    track(s);
    table(s, "speeds", "knots", 10);
    table(s, "depths", "metres", 10);
    return 0;
  };
  ASSERT_FALSE(send(write("a.fake", ""), false));
  // Platform 1 again (not sent, no points) owns two tables; a third names
  // its owner by the original id that the host knows.
  build = [&table](ScenarioUD& s) {
    s.setReferenceYear(2021);
    addPlatform(s, 1, "alpha", 100, {});
    table(s, "speeds", "km/h", 40);
    table(s, "depths", "metres", 40);
    table(s, "fuel", "litres", 40, 100);
    return 0;
  };
  ASSERT_FALSE(send(write("b.fake", ""), true));
  EXPECT_TRUE(told("Appending table \"speeds\" does not match existing table.\n", PICommon::PI_NOTIFY_ERROR));
  const nlohmann::json tables = host->toJson()["tables"];
  ASSERT_EQ(tables.size(), 3u);
  for (const auto& t : tables) {
    EXPECT_EQ(t["owner"], objects("platform")[0]["id"]);
    EXPECT_EQ(t["rows"]["count"], t["name"] == "depths" ? 2 : 1) << t["name"];
  }
}

TEST_F(Transmission, BeamDataAreClearedAfterCreationAndEveryPointIsSentAsData) {
  build = [](ScenarioUD& s) {
    track(s);
    addPlatform(s, 2, "", 0, {{10, 31.0}});
    auto* beam = new BeamUD(&s, s.findPlatform(1), std::make_unique<BeamHeaderUD>());
    beam->Header()->uniqueID = 5;
    beam->Header()->hbw = beam->Header()->vbw = rad(3.0);
    beam->SetBeamType(BEAM_ABSOLUTE);
    beam->AddToScenario(&s);
    beam->AddState(10, 1000.0, rad(10), rad(1));
    beam->AddState(20, 2000.0, rad(20), rad(2));
    return 0;
  };
  std::ostringstream trace;
  host->setTraceStream(&trace);
  ASSERT_FALSE(send(write("a.fake", ""), false)) << ::testing::PrintToString(issues);
  host->setTraceStream(nullptr);
  std::vector<std::string> beamCalls;
  std::istringstream lines(trace.str());
  size_t batches = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::string op = nlohmann::json::parse(line)["op"];
    batches += op == "addDataPoints";
    if (op == "createBeam" || op == "flushEntityData" || (op == "addDataPoint" && !beamCalls.empty()))
      beamCalls.push_back(op);
  }
  EXPECT_EQ(beamCalls, (std::vector<std::string>{"createBeam", "flushEntityData", "addDataPoint", "addDataPoint"}));
  // Platform states go one request each, as the command pipeline sends them.
  EXPECT_EQ(batches, 0u);
  const nlohmann::json beams = objects("beam");
  ASSERT_EQ(beams.size(), 1u);
  EXPECT_EQ(beams[0]["data"]["points"]["count"], 2);
  // An object without a name is sent as "Unknown".
  EXPECT_EQ(beams[0]["header"]["name"], "Unknown");
  EXPECT_EQ(objects("platform")[1]["header"]["name"], "Unknown");
}

TEST_F(Transmission, StatesWithoutAGivenVelocityGetOneFromTheirNeighbours) {
  // A track that gives a velocity on its middle point only, moving north
  // 0.1 degree (about 11 km) per 10 s.
  build = [](ScenarioUD& s) {
    s.setReferenceYear(2021);
    PlatformUD* p = addPlatform(s, 1, "alpha", 100, {{10, 30.0}, {30, 30.2}});
    const double lla[3] = {rad(30.1), rad(-1.0), 100.0};
    const double velocity[3] = {5.0, 6.0, 7.0};
    p->AddState(20, lla, nullptr, velocity, nullptr);
    return 0;
  };
  ASSERT_FALSE(send(write("partial.fake", ""), false));
  const nlohmann::json records = objects("platform")[0]["data"]["points"]["records"];
  ASSERT_EQ(records.size(), 3u);
  // Fields: time, x, y, z, yaw, pitch, roll, vx, vy, vz.
  EXPECT_DOUBLE_EQ(records[1][7].get<double>(), 5.0);
  EXPECT_DOUBLE_EQ(records[1][8].get<double>(), 6.0);
  EXPECT_DOUBLE_EQ(records[1][9].get<double>(), 7.0);
  for (const size_t i : {0u, 2u}) {
    EXPECT_NEAR(records[i][8].get<double>(), 1109.0, 5.0) << i;
    EXPECT_NEAR(records[i][7].get<double>(), 0.0, 1e-6) << i;
  }
}

TEST_F(Transmission, AsiTextGoesThroughTheDocumentLoader) {
  const std::string path = write("small.asi",
                                 "Version 24\nRefLLA 30 -120 0\nCoordSystem LLA\nReferenceYear 2020\nDegreeAngles 1\n"
                                 "PlatformID 3\nPlatformName 3 ship\nPlatformData 3 100 30 -120 0\n"
                                 "PlatformData 3 200 30.1 -120 0\nGenericData 3 speed 12 100\n");
  ASSERT_FALSE(send(path, false)) << host->notifications().back().text;
  EXPECT_TRUE(told("Reading ASI file: " + path, PICommon::PI_NOTIFY_INFO));
  EXPECT_EQ(host->notifications().front().text, "Reading ASI file: " + path);
  EXPECT_EQ(host->toJson()["scenario"]["referenceYear"], 2020);
  const nlohmann::json platforms = objects("platform");
  ASSERT_EQ(platforms.size(), 1u);
  EXPECT_EQ(platforms[0]["data"]["points"]["count"], 2);
  EXPECT_EQ(platforms[0]["data"]["genericData"]["records"][0][3], "12");
}

}  // namespace
