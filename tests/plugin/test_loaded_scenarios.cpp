// Whole loads that reach the host with data: result 0 and the clock, archives
// and the dialog's multi-file import.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "PluginTestSupport.h"
#include "hostapi/PIData.h"
#include "hostapi/PIServices.h"
#include "plugin/FileReadPlugin.h"

namespace {

class LoadedScenarioTest : public PluginHostTest {
 protected:
  void TearDown() override {
    plugin.reset();
    for (auto* functor : FileReadPlugin::callbackFunctors()) delete functor;
    FileReadPlugin::callbackFunctors().clear();
    PluginHostTest::TearDown();
  }
  void startPlugin(RefHost::HostConfig config = RefHost::HostConfig()) {
    start(config);
    plugin = std::make_unique<FileReadPlugin>();
    plugin->StartUp();
  }
  int open(const std::string& path, bool append) {
    return host->delegateFor(path)->processFileWithOptions(path, {{"Append", append ? "true" : "false"}});
  }
  std::size_t platforms() const { return host->scenario().list(RefHost::KIND_PLATFORM, std::nullopt).size(); }
  std::size_t points(std::size_t index) const {
    const auto ids = host->scenario().list(RefHost::KIND_PLATFORM, std::nullopt);
    return host->scenario().find(ids.at(index))->data(RefHost::SERIES_POINTS).count();
  }

  std::unique_ptr<FileReadPlugin> plugin;
};

TEST_F(LoadedScenarioTest, ExampleLoadsWithoutErrors) {
  startPlugin();
  EXPECT_EQ(open(std::string(ORV_TEST_DATA_DIR) + "/../../examples/minimal.asi", false), 0);
  EXPECT_EQ(platforms(), 1u);
  EXPECT_EQ(points(0), 3u);
  EXPECT_EQ(requests("clockAutoConfigureBeginEnd"), 1);
  EXPECT_EQ(requests("clockSetTime"), 1);
}

TEST_F(LoadedScenarioTest, HostOpenOfAGoodFileShowsNoBox) {
  startPlugin();
  EXPECT_EQ(plugin->openLocation(data("e2e_ship.asi"), 0, PIData::PI_PROTOCOL_NONE), 0);
  EXPECT_TRUE(host->messageBoxes().empty());
}

TEST_F(LoadedScenarioTest, DialogImportOfTwoFilesBuildsOneNewScenario) {
  RefHost::HostConfig config;
  config.fileDialogAnswers = {data("e2e_ship.asi") + ";" + data("e2e_tanker.asi")};
  startPlugin(config);
  PIData::initializeScenario("old.asi", 0, PIData::PI_PROTOCOL_NONE, false);
  EXPECT_EQ(host->triggerAction("Show ASI Import"), 1);
  EXPECT_EQ(requests("deleteScenario"), 1);
  EXPECT_EQ(platforms(), 2u);
  // Both files were appends, and both succeeded.
  EXPECT_EQ(host->signalsRaised().size(), 2u);
}

TEST_F(LoadedScenarioTest, ArchiveMembersAreAllRead) {
  startPlugin();
  const std::string dir = ::testing::TempDir() + "loaded-zip";
  const std::string archive = dir + "/feed.zip";
  const std::string command = "mkdir -p '" + dir + "' && rm -f '" + archive + "' && cd '" + ORV_TEST_DATA_DIR +
                              "' && zip -q -X '" + archive + "' e2e_ship.asi e2e_ship_more.asi";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(open(archive, false), 0);
  // The second member of the feed is appended to the first.
  EXPECT_EQ(platforms(), 2u);
  EXPECT_EQ(points(0), 5u);

  // A one-member archive names the scenario after itself.
  const std::string single = dir + "/one.zip";
  ASSERT_EQ(std::system(("cd '" + std::string(ORV_TEST_DATA_DIR) + "' && zip -q -X '" + single + "' e2e_tanker.asi").c_str()), 0);
  EXPECT_EQ(open(single, false), 0);
  EXPECT_EQ(host->scenario().settings().fileName, single);
  std::system(("rm -rf '" + dir + "'").c_str());
}

}  // namespace
