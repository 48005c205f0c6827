// The mapping file wamModel.map: where it is found, its keys and icons, and
// what a faulty line tells.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/FileUtils.h"
#include "importers/wam/WAMMapping.h"

using WAMLib::WAMMapping;

TEST(WamMapping, KeysIconsCommentsAndFaults) {
  std::istringstream in(
      "# filters\n"
      "Maximum_Speed_Filter 900   // knots\n"
      "use_calculated_speed_filter true\n"
      "Reject_Local_Track_Quality 2\n"
      "Ignore_Duplicate_Position no\n"
      "Classification \"SECRET - NF\"\n"
      "Classification_Color 0xFF0000FF\n"
      "NORDKAPP frigate.png\n"
      "\"SEA KING\" helo#1.png\n"
      "\n"
      "LONELY\n"
      "Maximum_Speed_Filter fast\n"
      "\"\" empty.png\n");
  std::ostringstream errors;
  WAMMapping mapping;
  ASSERT_TRUE(mapping.read(in, errors));
  EXPECT_DOUBLE_EQ(mapping.maximumSpeedFilter(), 900.0);
  EXPECT_TRUE(mapping.useCalculatedSpeedFilter());
  EXPECT_DOUBLE_EQ(mapping.rejectLocalTrackQuality(), 2.0);
  EXPECT_FALSE(mapping.ignoreDuplicatePosition());
  EXPECT_EQ(mapping.classification(), "SECRET - NF");
  EXPECT_EQ(mapping.classificationColor(), 0xFF0000FFu);
  EXPECT_EQ(mapping.icon("nordkapp", "O"), "frigate.png");
  EXPECT_EQ(mapping.icon("SEA KING", "O"), "helo");  // the comment cuts the icon name
  EXPECT_EQ(mapping.icon("UNKNOWN", "O"), "O");
  EXPECT_EQ(mapping.iconCount(), 2u);
  const std::string log = errors.str();
  EXPECT_NE(log.find("line 11: expected a key or a name and one value: LONELY"), std::string::npos) << log;
  EXPECT_NE(log.find("line 12: not a number"), std::string::npos);
  EXPECT_NE(log.find("Illegal empty string or empty quote detected.  Line#: 13"), std::string::npos);
}

TEST(WamMapping, FoundThroughTheEnvironmentInOrder) {
  const std::string base = testing::TempDir() + "wam_mapping_env";
  const std::string user = base + "/user";
  const std::string home = base + "/home";
  std::filesystem::remove_all(base);  // a file left by an earlier run would be found first
  ASSERT_EQ(UTILS::makePath(user), 0);
  ASSERT_EQ(UTILS::makePath(home + "/config/ORVIDE"), 0);
  std::ofstream(home + "/config/ORVIDE/wamModel.map") << "TRACK home.png\n";
  setenv("ORVIDE_USER_DIR", user.c_str(), 1);  // no file there
  unsetenv("ORVIDE_DIR");
  setenv("ORVIDE_HOME", home.c_str(), 1);
  EXPECT_EQ(WAMMapping::findMappingFile(), home + "/config/ORVIDE/wamModel.map");

  std::ofstream(user + "/wamModel.map") << "TRACK user.png\n";
  std::ostringstream out, errors;
  WAMMapping mapping;
  ASSERT_TRUE(mapping.load(out, errors));
  EXPECT_EQ(out.str(), "Loading WAM mapping file: \"" + user + "/wamModel.map\"\n");
  EXPECT_EQ(mapping.icon("TRACK", ""), "user.png");

  unsetenv("ORVIDE_USER_DIR");
  unsetenv("ORVIDE_HOME");
  EXPECT_EQ(WAMMapping::findMappingFile(), "");
  EXPECT_FALSE(WAMMapping().load(out, errors));
}
