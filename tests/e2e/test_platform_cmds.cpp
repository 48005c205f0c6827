// Platform commands through the loaded plug-in: platforms in degrees with a
// speed and in ECEF with quaternions reach the host with their points, bad
// lines are reported by line and dropped, and the same file appended merges
// every platform and so fails for want of an entity of its own.
#include <cmath>

#include "E2eSupport.h"

namespace {

class PlatformCommands : public e2e::HostRun {};

const char* const TWO_PLATFORMS =
    "Version 24\nCoordSystem LLA\nRefLLA 30 -80 0\nDegreeAngles 1\n"
    "PlatformType 1 aircraft\n"
    "PlatformID 1\nPlatformName 1 \"Blue Jet\"\n"
    "PlatformData 1 0 30 -80 1000 90 0 0 200\n"
    "PlatformData 1 10 30 -79.99 1000 90 0 0 200\n"
    "PlatformData 1 20 91 -79.98 1000 90 0 0 200\n"
    "PlatformID 2\nPlatformName 2 sat\nPlatformCoordSystem 2 ECEF\nPlatformUsesQuaternion 2 0\n"
    "PlatformData 2 0 7000000 0 0 1 0 0 0 0 7500 0\n"
    "PlatformData 2 10 7000000 75000 0 1 0 0 0 0 7500 0 1\n";

}  // namespace

TEST_F(PlatformCommands, PlatformsReachTheHostAndAnAppendThatOnlyMergesFails) {
  const std::string file = write("two.asi", TWO_PLATFORMS);
  const e2e::Outcome r = run({"--dump", "dump.json", "--messages", "messages.jsonl", file, file});
  // The import loads; the append merges both platforms and so fails.
  EXPECT_EQ(r.status, 3) << r.err;

  const std::vector<std::string> texts = messageTexts();
  ASSERT_GE(texts.size(), 5u);
  EXPECT_EQ(texts[0], "Line 10 PlatformData: Latitude position out of range\n");
  EXPECT_EQ(texts[1], "Line 16 PlatformData: Platform velocity not set, verify # of columns match input\n");
  EXPECT_EQ(texts[4], "Must define at least one non-static independent entity\n");

  const auto dump = json("dump.json");
  ASSERT_EQ(dump["objects"].size(), 2u);
  const auto& jet = dump["objects"][0];
  EXPECT_EQ(jet["header"]["name"], "Blue Jet");
  EXPECT_EQ(jet["data"]["categoryData"]["records"][0][2], "Aircraft");
  // Two points from each read; the bad third line is dropped both times.
  const auto& points = jet["data"]["points"]["records"];
  ASSERT_EQ(points.size(), 4u);
  const double deg = M_PI / 180;
  EXPECT_NEAR(points[1][2].get<double>(), -79.99 * deg, 1e-12);
  EXPECT_NEAR(points[1][4].get<double>(), 90 * deg, 1e-12);
  // 200 m/s due east in east-north-up axes.
  EXPECT_NEAR(points[1][7].get<double>(), 200.0, 1e-9);
  EXPECT_NEAR(points[1][8].get<double>(), 0.0, 1e-9);

  const auto& sat = dump["objects"][1]["data"]["points"]["records"];
  ASSERT_EQ(sat.size(), 2u);
  EXPECT_EQ(sat[0][1], 7000000.0);
  EXPECT_EQ(sat[0][8], 7500.0);
  EXPECT_EQ(dump["frames"][sat[0][10].get<int>()]["coordSystem"], 4);
}
