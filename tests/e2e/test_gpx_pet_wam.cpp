// GPX, PET and WAM files loaded through scenario-host: what the host holds
// afterwards, the faults the user is told, and files inside a ZIP.

#include <cmath>
#include <cstdlib>

#include "E2eSupport.h"

namespace {

class SideFiles : public e2e::HostRun {
 protected:
  e2e::Outcome load(const std::vector<std::string>& files) {
    std::vector<std::string> args = {"--dump", "dump.json", "--messages", "messages.jsonl"};
    args.insert(args.end(), files.begin(), files.end());
    return run(args);
  }
  // Platform name -> object, from the dump.
  std::map<std::string, nlohmann::json> platforms() const {
    std::map<std::string, nlohmann::json> out;
    const nlohmann::json dump = json("dump.json");
    for (const auto& object : dump["objects"]) out[object["header"]["name"]] = object;
    return out;
  }
  static std::vector<double> times(const nlohmann::json& object) {
    std::vector<double> out;
    for (const auto& record : object["data"]["points"]["records"]) out.push_back(record[0]);
    return out;
  }
  static std::string category(const nlohmann::json& object, const std::string& name) {
    for (const auto& record : object["data"]["categoryData"]["records"])
      if (record[1] == name) return record[2];
    return "";
  }
};

const char kPet[] =
    "STD PET CSV,trial\n"
    "oName,DVALTIME,Geometry,lat,LONG,Altitude,Status\n"
    "T1,100,WGSLLA,10,20,0,TRACKING\n"
    "T1,110,WGSLLA,10.01,20,0,EVADING\n";

}  // namespace

TEST_F(SideFiles, GpxTrackAndWaypointsReachTheHost) {
  const e2e::Outcome r = load({e2e::data("gpx/walk_gpx10.gpx"), e2e::data("gpx/marks_gpx11.gpx")});
  // The second file has another reference year: its append is refused whole.
  EXPECT_EQ(r.status, 3) << r.out << r.err;
  EXPECT_NE(messages(3).find("does not match the current Reference Year (2023)"), std::string::npos);
  const auto found = platforms();
  ASSERT_EQ(found.size(), 1u);
  const auto& track = found.at("GPS TRK");
  EXPECT_EQ(track["header"]["icon"], "trk");
  const double newYear = 365 * 86400.0;
  EXPECT_EQ(times(track), (std::vector<double>{newYear - 90, newYear - 30, newYear + 30, newYear + 90}));
  EXPECT_EQ(category(track, "Data Format"), "GPX");
  EXPECT_EQ(json("dump.json")["scenario"]["referenceYear"], 2023);

  EXPECT_EQ(load({e2e::data("gpx/marks_gpx11.gpx")}).status, 0);
  EXPECT_EQ(platforms().at("Space Needle")["header"]["icon"], "red-flag.png");
}

TEST_F(SideFiles, BadGpxFailsWithExpatsTextOnTheConsoleAndLeavesTheHostAlone) {
  const std::string good = e2e::data("gpx/walk_gpx11.gpx");
  const std::string broken = write("broken.gpx", "<gpx>\n<wpt lat=\"1\" lon=\"2\">\n</gpx>\n");
  const e2e::Outcome r = load({good, broken});
  EXPECT_NE(r.status, 0);
  // The reader's own fault goes to standard error; the host hears the verdict only.
  EXPECT_NE(r.err.find("XML Parser Error: mismatched tag at line 3"), std::string::npos) << r.err;
  EXPECT_EQ(messages(3).rfind("Fatal error when loading GPX file\n", 0), 0u) << messages(3);
  EXPECT_EQ(platforms().size(), 1u);  // the first file's track stays
}

TEST_F(SideFiles, GpxPointsCarryYawFromCourseElseZeroAndWaypointsTheirLabels) {
  const e2e::Outcome r = load({write("points.gpx",
                                     "<gpx version=\"1.0\"><name>header</name>\n"
                                     "<wpt lat=\"1\" lon=\"2\"><name>N1</name></wpt>\n"
                                     "<trk><trkseg>\n"
                                     "<trkpt lat=\"10\" lon=\"20\"><time>2024-03-01T10:00:00Z</time><speed>3</speed></trkpt>\n"
                                     "<trkpt lat=\"10.01\" lon=\"20\"><time>2024-03-01T10:01:00Z</time>"
                                     "<course>90</course><speed>2</speed></trkpt>\n"
                                     "</trkseg></trk></gpx>\n")});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(messages(3), "");
  EXPECT_NE(r.err.find("Unsupported GPX element type on line 1 type: name"), std::string::npos) << r.err;
  EXPECT_NE(r.out.find("GPX File: "), std::string::npos) << r.out;
  const auto found = platforms();
  EXPECT_EQ(found.count("GPS WPT"), 1u);  // a waypoint's "name" is not its label
  const auto& records = found.at("GPS TRK")["data"]["points"]["records"];
  ASSERT_EQ(records.size(), 2u);
  // time, x, y, z, yaw, pitch, roll, vx (east), vy (north), vz
  const std::vector<double> still = records[0], turned = records[1];
  EXPECT_EQ(std::vector<double>(still.begin() + 4, still.begin() + 7), (std::vector<double>{0, 0, 0}));
  EXPECT_NEAR(still[7], 0.0, 1e-9);
  EXPECT_NEAR(still[8], 3.0, 1e-9);  // the speed given, along course 0
  EXPECT_NEAR(turned[4], M_PI / 2, 1e-12);
  EXPECT_NEAR(turned[7], 2.0, 1e-9);
}

TEST_F(SideFiles, PetByExtensionOrFirstLineWithItsTable) {
  for (const char* name : {"trial.pet", "trial.csv"}) {
    SCOPED_TRACE(name);
    const e2e::Outcome r = load({write(name, kPet)});
    ASSERT_EQ(r.status, 0) << r.out << r.err << messages(3);
    const auto found = platforms();
    ASSERT_EQ(found.count("T1"), 1u);
    EXPECT_EQ(times(found.at("T1")), (std::vector<double>{100, 110}));
    EXPECT_EQ(category(found.at("T1"), "Data Format"), "PET");
    const auto tables = json("dump.json")["tables"];
    ASSERT_EQ(tables.size(), 1u);
    EXPECT_EQ(tables[0]["name"], "Extra");
    EXPECT_EQ(tables[0]["rows"]["records"][1]["cells"]["1"], "EVADING");
  }
  const e2e::Outcome wrong = load({write("old.csv", std::string("PET CSV\n") + (kPet + 18))});
  EXPECT_EQ(wrong.status, 3);
  EXPECT_NE(wrong.out.find("Error: File format not correct.  Expecting first line to contain \"STD PET CSV\""),
            std::string::npos)
      << wrong.out;
  EXPECT_EQ(messages(3).rfind("Fatal error when loading PET file\n", 0), 0u) << messages(3);
}

TEST_F(SideFiles, WamWithTheMappingFileOfTheEnvironment) {
  e2e::fs::create_directories(work / "config");
  write("config/wamModel.map", "Reject_Local_Track_Quality 2\nHAWK hawk.png\nClassification \"EXERCISE\"\n");
  setenv("ORVIDE_USER_DIR", path("config").c_str(), 1);
  const std::string log = write("watch.wam",
                                "TRACK\\RAD\\U1\\1\\HAWK\n"
                                "POINT\\20240611\\090000\\0\\37\\N\\122\\W\\0\\90\\10\\U1\\1\\5\\5\\RAD\\T\\A\n"
                                "POINT\\20240611\\090010\\0\\37.01\\N\\122\\W\\0\\90\\10\\U1\\1\\1\n"
                                "POINT\\20240611\\090020\\0\\37.02\\N\\122\\W\\0\\90\\10\\U1\\1\\5\\5\\RAD\\T\\S\n"
                                "POINT\\20240611\\090000\\0\\38\\N\\122\\W\\0\\90\\10\\U2\\2\\1\n");
  const e2e::Outcome r = load({log});
  unsetenv("ORVIDE_USER_DIR");
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  // Progress and summaries are the reader's own, on standard output.
  EXPECT_EQ(messages(3), "");
  for (const char* line : {"Parsing WAM File : ", "Loading WAM mapping file: \"", "HAWK Points Processed: 3\n",
                           "  Dropped by Local TQ: 1\n", "U2_2 dropped due to no valid points!\n"})
    EXPECT_NE(r.out.find(line), std::string::npos) << line << "\n---\n" << r.out;
  const auto found = platforms();
  ASSERT_EQ(found.size(), 1u);
  const auto& hawk = found.at("HAWK");
  EXPECT_EQ(hawk["header"]["icon"], "hawk.png");
  EXPECT_EQ(times(hawk).size(), 2u);
  EXPECT_EQ(category(hawk, "Truth Data"), "N");
  EXPECT_EQ(json("dump.json")["scenario"]["classification"], "EXERCISE");
}

TEST_F(SideFiles, GpxFilesOfAZipLoadInNameOrder) {
  auto track = [](const std::string& name, const std::string& time) {
    return "<gpx><trk><name>" + name + "</name><trkseg><trkpt lat=\"1\" lon=\"1\"><time>2024-03-01T" + time +
           "Z</time></trkpt></trkseg></trk></gpx>";
  };
  const std::string archive = zip("walks.zip", {{"b.gpx", track("second", "10:00:00")}, {"a.gpx", track("first", "09:00:00")}});
  const e2e::Outcome r = load({archive});
  EXPECT_EQ(r.status, 0) << r.out << r.err << messages(3);
  const nlohmann::json dump = json("dump.json");
  ASSERT_EQ(dump["objects"].size(), 2u);
  // The first member read is "a.gpx"; "b.gpx" is appended to it.
  EXPECT_EQ(dump["objects"][0]["header"]["name"], "first");
  EXPECT_EQ(dump["objects"][1]["header"]["name"], "second");
}
