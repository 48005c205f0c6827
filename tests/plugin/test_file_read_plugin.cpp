// FileReadPlugin in process against the reference host: registrations,
// the resolver kept or replaced across loads, the dialog's multi-file rule,
// the clock move, the append signal and how outcomes are reported.
#include "plugin/FileReadPlugin.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "PluginTestSupport.h"
#include "asi/LliResolver.h"
#include "asi/MetadataResolver.h"
#include "core/Notify.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"

namespace {

class FileReadPluginTest : public PluginHostTest {
 protected:
  void TearDown() override {
    plugin.reset();
    for (auto* functor : FileReadPlugin::callbackFunctors()) delete functor;
    FileReadPlugin::callbackFunctors().clear();
    PluginHostTest::TearDown();
  }

  FileReadPlugin& startPlugin(RefHost::HostConfig config = RefHost::HostConfig()) {
    start(config);
    plugin = std::make_unique<FileReadPlugin>();
    EXPECT_EQ(plugin->StartUp(), 0);
    return *plugin;
  }

  // The host's advanced open of `path`, as the host would call it.
  int open(const std::string& path, bool append) {
    auto* delegate = host->delegateFor(path);
    EXPECT_NE(delegate, nullptr) << path;
    if (!delegate) return -100;
    return delegate->processFileWithOptions(path, {{"Append", append ? "true" : "false"}});
  }

  const AsiInterface::LliResolver* lli() const {
    return dynamic_cast<const AsiInterface::LliResolver*>(plugin->resolver());
  }
  const AsiInterface::MetadataResolver* metadata() const {
    return dynamic_cast<const AsiInterface::MetadataResolver*>(plugin->resolver());
  }

  std::unique_ptr<FileReadPlugin> plugin;
};

TEST_F(FileReadPluginTest, StartUpRegistersCommandsKeysAndEveryPattern) {
  startPlugin();
  const auto& actions = host->actions();
  ASSERT_EQ(actions.size(), 2u);
  EXPECT_EQ(actions[0].name, "Show ASI Import");
  EXPECT_EQ(actions[1].name, "Show ASI Append");
  EXPECT_EQ(actions[0].group, "File Reader");
  EXPECT_EQ(actions[1].group, "File Reader");
  ASSERT_EQ(host->hotKeys().size(), 2u);
  EXPECT_EQ(host->hotKeys()[0].action, "Show ASI Import");
  EXPECT_EQ(host->hotKeys()[0].key, PICommon::parseAccelerator("Ctrl+Shift+I"));
  EXPECT_EQ(host->hotKeys()[1].key, PICommon::parseAccelerator("Ctrl+Shift+A"));
  EXPECT_NE(host->hotKeys()[0].key, 0u);

  // One plain handler (flag 3) and one delegate (flag 2) per pattern, in the map's order.
  const std::map<std::string, std::string> expected = {
      {"*.asi", "ASCII Scenario Input File"}, {"*.csv", "SCORE & PMRF Comma Separated Value"},
      {"*.gpx", "GPS Exchange Format"},       {"*.kp", "Kepler Propagation Format"},
      {"*.otg", "OTG Format"},                {"*.pet", "PET Format"},
      {"*.tle", "NORAD Two-Line Element"},    {"*.wam", "WAM Format"},
      {"*.zip", "ZIP Archive Of Supported Formats"}};
  const auto& handlers = host->fileHandlers();
  ASSERT_EQ(handlers.size(), 2 * expected.size());
  auto it = expected.begin();
  for (std::size_t i = 0; i < handlers.size(); i += 2, ++it) {
    EXPECT_EQ(handlers[i].pattern, it->first);
    EXPECT_EQ(handlers[i].description, it->second);
    EXPECT_EQ(handlers[i].flag, 3);
    EXPECT_EQ(handlers[i].delegate, nullptr);
    EXPECT_EQ(handlers[i + 1].pattern, it->first);
    EXPECT_EQ(handlers[i + 1].flag, 2);
    ASSERT_NE(handlers[i + 1].delegate, nullptr);
    EXPECT_EQ(handlers[i + 1].delegate->createEditor(nullptr), nullptr);
  }
  EXPECT_EQ(host->registry().at("Always Append By Name and Original ID"), "False");
}

TEST_F(FileReadPluginTest, ExistingMetadataSettingIsLeftAlone) {
  RefHost::HostConfig config;
  config.settings["Always Append By Name and Original ID"] = "yes";
  startPlugin(config);
  EXPECT_EQ(host->registry().at("Always Append By Name and Original ID"), "yes");
  EXPECT_EQ(requests("setValue"), 0);
}

TEST_F(FileReadPluginTest, AnswersToTheHost) {
  FileReadPlugin p;
  EXPECT_EQ(p.Name(), "File_Reader_Plugin");
  EXPECT_EQ(p.Description(), "ORVIDE/Kurvex Plug-in for reading the ASI format.");
  EXPECT_EQ(p.Callback(), 0);
  EXPECT_TRUE(p.LoadInORVIDE());
  EXPECT_TRUE(p.LoadInORVIDE10());
  EXPECT_TRUE(p.LoadInKurvex());
  EXPECT_TRUE(p.LoadInKurvex10());
  EXPECT_FALSE(p.LoadInAsiPad());
  EXPECT_FALSE(p.LoadInLogHost());
  EXPECT_FALSE(p.Version().empty());
}

TEST_F(FileReadPluginTest, ScenarioIdentifierKeepsOneLliResolverAcrossAppends) {
  startPlugin();
  open(data("e2e_alpha.asi"), false);
  ASSERT_NE(lli(), nullptr);
  EXPECT_EQ(lli()->getScenarioIdentifier(), " alpha");
  const AsiInterface::Resolver* first = plugin->resolver();
  // State that a second file of the feed must still see.
  PIData::PIPlatformHeader header;
  const_cast<AsiInterface::Resolver*>(first)->setPlatformId(7, header, 99);

  open(data("e2e_alpha_more.asi"), true);
  EXPECT_EQ(plugin->resolver(), first);
  EXPECT_EQ(const_cast<AsiInterface::Resolver*>(plugin->resolver())->getPlatformId(7, header), 99u);

  open(data("e2e_beta.asi"), true);
  ASSERT_NE(lli(), nullptr);
  EXPECT_EQ(lli()->getScenarioIdentifier(), " beta");
  EXPECT_EQ(const_cast<AsiInterface::Resolver*>(plugin->resolver())->getPlatformId(7, header), 0u);

  // An import starts afresh even with the same identifier.
  const AsiInterface::Resolver* beta = plugin->resolver();
  open(data("e2e_beta.asi"), false);
  ASSERT_NE(lli(), nullptr);
  EXPECT_NE(plugin->resolver(), beta);
}

TEST_F(FileReadPluginTest, WithoutIdentifierImportUsesEmptyLliAndAppendUsesMetadata) {
  startPlugin();
  open(data("e2e_no_id.asi"), false);
  ASSERT_NE(lli(), nullptr);
  EXPECT_EQ(lli()->getScenarioIdentifier(), "");

  open(data("e2e_no_id.asi"), true);
  ASSERT_NE(metadata(), nullptr);
  const AsiInterface::Resolver* first = plugin->resolver();
  // Without the setting, each append without an identifier gets a new one.
  open(data("e2e_no_id.asi"), true);
  ASSERT_NE(metadata(), nullptr);
  EXPECT_NE(plugin->resolver(), first);
}

TEST_F(FileReadPluginTest, MetadataSettingWinsOverIdentifiers) {
  RefHost::HostConfig config;
  config.settings["Always Append By Name and Original ID"] = "True";
  startPlugin(config);
  open(data("e2e_alpha.asi"), false);
  ASSERT_NE(metadata(), nullptr);
  const AsiInterface::Resolver* first = plugin->resolver();
  open(data("e2e_beta.asi"), true);
  EXPECT_EQ(plugin->resolver(), first);
  open(data("e2e_alpha.asi"), true);
  EXPECT_EQ(plugin->resolver(), first);
  open(data("e2e_alpha.asi"), false);
  ASSERT_NE(metadata(), nullptr);
  EXPECT_NE(plugin->resolver(), first);
}

TEST_F(FileReadPluginTest, LoadThatStopsBeforeReadingKeepsResolverAndRestoresHandler) {
  startPlugin();
  const auto before = orvNotify::notifyHandler(orvNotify::ERROR_LEVEL);
  EXPECT_EQ(open(data("e2e_reflat_first.asi"), false), -1);
  EXPECT_TRUE(notified("Unsupported format for the file"));
  EXPECT_EQ(plugin->resolver(), nullptr);
  EXPECT_EQ(orvNotify::notifyHandler(orvNotify::ERROR_LEVEL), before);

  EXPECT_EQ(open(data("e2e_alpha.asi"), false), -1);
  EXPECT_EQ(orvNotify::notifyHandler(orvNotify::ERROR_LEVEL), before);
}

TEST_F(FileReadPluginTest, AdvancedOpenTellsTheOutcome) {
  startPlugin();
  EXPECT_EQ(open(data("e2e_alpha.asi"), false), -1);
  EXPECT_TRUE(notified("Must define at least one non-static independent entity"));
  ASSERT_FALSE(host->notifications().empty());
  const auto& last = host->notifications().back();
  EXPECT_EQ(last.text, "Failed to load file due to errors.  Check console for messages.\n");
  EXPECT_EQ(last.severity, PICommon::PI_NOTIFY_ERROR);
  EXPECT_EQ(last.prefix, "");
}

// A host whose memory runs out throws from its requests; nothing of that may
// travel back into it: the load fails and says where.
TEST_F(FileReadPluginTest, AHostOutOfMemoryDuringTheReadGetsAFailedLoad) {
  RefHost::HostConfig config;
  config.outOfMemory = {"addDataPoint"};
  startPlugin(config);
  EXPECT_EQ(open(data("e2e_ship.asi"), false), -1);
  // The first point goes with the platform's creation, the second is added.
  EXPECT_TRUE(notified("Line 11 PlatformData: out of memory; the read stops\n"));
  EXPECT_EQ(host->notifications().back().text, "Failed to load file due to errors.  Check console for messages.\n");
}

TEST_F(FileReadPluginTest, AHostOutOfMemoryAroundTheReadGetsAFailedLoad) {
  RefHost::HostConfig config;
  config.outOfMemory = {"clockSetTime"};
  startPlugin(config);
  const std::string path = data("e2e_ship.asi");
  EXPECT_EQ(plugin->openLocation(path, 0, PIData::PI_PROTOCOL_NONE), -1);
  EXPECT_TRUE(notified("Loading \"" + path + "\" failed: out of memory\n"));
  ASSERT_EQ(host->messageBoxes().size(), 1u);
  EXPECT_EQ(host->messageBoxes()[0].first, "File Import Error");
}

TEST_F(FileReadPluginTest, CanceledReadIsAWarningAndABox) {
  RefHost::HostConfig config;
  config.cancelAfter = 1;
  startPlugin(config);
  EXPECT_EQ(open(data("e2e_alpha.asi"), false), 1);
  EXPECT_EQ(host->notifications().back().text, "File loading canceled by user.\n");
  EXPECT_EQ(host->notifications().back().severity, PICommon::PI_NOTIFY_WARN);

  EXPECT_EQ(plugin->openLocation(data("e2e_alpha.asi"), 0, PIData::PI_PROTOCOL_NONE), 1);
  ASSERT_EQ(host->messageBoxes().size(), 1u);
  EXPECT_EQ(host->messageBoxes()[0].first, "File Import Canceled");
  EXPECT_EQ(host->messageBoxes()[0].second, "File loading canceled by user.");
}

TEST_F(FileReadPluginTest, OpenLocationImportsAndShowsTheFailure) {
  startPlugin();
  EXPECT_EQ(plugin->openLocation(data("e2e_alpha.asi"), 7, PIData::PI_PROTOCOL_TCP), -1);
  ASSERT_EQ(host->messageBoxes().size(), 1u);
  EXPECT_EQ(host->messageBoxes()[0].first, "File Import Error");
  EXPECT_EQ(host->messageBoxes()[0].second, "Fatal error encountered when loading file. Check console for messages.");
  ASSERT_NE(lli(), nullptr);  // an import, whatever port and protocol say
}

TEST(FileReadPluginReports, TextsOfEveryResult) {
  std::string title, text;
  EXPECT_FALSE(FileReadPlugin::messageBoxFor(0, title, text));
  ASSERT_TRUE(FileReadPlugin::messageBoxFor(2, title, text));
  EXPECT_EQ(title, "File Loaded With Errors");
  EXPECT_EQ(text, "File was loaded but errors were detected.  Check console for messages.");
  ASSERT_TRUE(FileReadPlugin::messageBoxFor(-2, title, text));
  EXPECT_EQ(title, "File Import Error");
  EXPECT_EQ(text, "Stopped after encountering too many errors. Check console for messages.");
  ASSERT_TRUE(FileReadPlugin::messageBoxFor(5, title, text));
  EXPECT_EQ(title, "File Import Error");
  EXPECT_EQ(text, "Check console for messages.");

  PICommon::NotifySeverity severity;
  EXPECT_FALSE(FileReadPlugin::notificationFor(0, severity, text));
  ASSERT_TRUE(FileReadPlugin::notificationFor(2, severity, text));
  EXPECT_EQ(severity, PICommon::PI_NOTIFY_ERROR);
  EXPECT_EQ(text, "File was loaded but errors were detected.  Check console for messages.\n");
  ASSERT_TRUE(FileReadPlugin::notificationFor(-2, severity, text));
  EXPECT_EQ(text, "Stopped after encountering too many errors.  Check console for messages.\n");
}

TEST_F(FileReadPluginTest, DialogShowsItsTitleAndFilterAndSingleImportLeavesDeletingToTheReader) {
  RefHost::HostConfig config;
  config.fileDialogAnswers = {data("e2e_alpha.asi")};
  startPlugin(config);
  EXPECT_EQ(host->triggerAction("Show ASI Import"), 1);
  EXPECT_EQ(requests("deleteScenario"), 0);  // the host held no scenario
  const std::string text = trace.str();
  EXPECT_NE(text.find("\"title\":\"Import Files\""), std::string::npos);
  EXPECT_NE(text.find("\"registryKey\":\"LastFileReaderDirectory\""), std::string::npos);
  EXPECT_NE(text.find("\"registrySection\":\"SETTINGS\""), std::string::npos);
  EXPECT_NE(text.find("ZIP Archive of supported formats (*.zip)\\nAll Files (*)\""), std::string::npos);
  // "*.kp" is registered with the host but left out of the filter.
  const auto filter = text.find("\"filter\":\"");
  ASSERT_NE(filter, std::string::npos);
  const std::string filterText = text.substr(filter, text.find("\",\"", filter) - filter);
  EXPECT_EQ(filterText.find("*.kp"), std::string::npos);
  EXPECT_NE(filterText.find("*.discn"), std::string::npos);
  EXPECT_EQ(host->registry().count("LastFileReaderDirectory"), 1u);
}

TEST_F(FileReadPluginTest, CanceledDialogLoadsNothing) {
  startPlugin();  // no answers: the dialog is canceled
  trace.str("");
  EXPECT_EQ(host->triggerAction("Show ASI Append"), 1);
  EXPECT_NE(trace.str().find("\"title\":\"Append Files\""), std::string::npos);
  EXPECT_EQ(requests("PIProgressDialog"), 0);
  EXPECT_EQ(plugin->resolver(), nullptr);
}

TEST_F(FileReadPluginTest, ClockMovesToTheBeginningInTheDisplayAndToTheEndInThePlot) {
  startPlugin();
  open(data("e2e_alpha.asi"), false);
  EXPECT_EQ(requests("clockGetBegin"), 1);
  EXPECT_EQ(requests("clockGetEnd"), 0);
  EXPECT_EQ(requests("clockSetTime"), 1);
  plugin.reset();

  RefHost::HostConfig plot;
  plot.application = RefHost::Application::Plot;
  startPlugin(plot);
  open(data("e2e_alpha.asi"), false);
  EXPECT_EQ(requests("clockGetEnd"), 1);
  EXPECT_EQ(requests("clockGetBegin"), 0);
  EXPECT_EQ(host->scenario().clock().setTimeSecond, 0.0);
}

TEST_F(FileReadPluginTest, FailedAppendRaisesNoSignal) {
  startPlugin();
  EXPECT_EQ(open(data("e2e_alpha.asi"), true), -1);
  EXPECT_TRUE(host->signalsRaised().empty());
  EXPECT_EQ(requests("bind"), 0);
}

TEST_F(FileReadPluginTest, CloseReleasesFactoryAndResolver) {
  startPlugin();
  open(data("e2e_alpha.asi"), false);
  ASSERT_NE(plugin->resolver(), nullptr);
  EXPECT_EQ(plugin->Close(), 0);
  EXPECT_EQ(plugin->resolver(), nullptr);
  EXPECT_EQ(plugin->readerFactory(), nullptr);
}

}  // namespace
