// The host's interface services through the client wrappers: settings
// store, dialogs, messages, identity, actions, file handlers, named
// services, display services and the context override.

#include <cstdio>
#include <fstream>
#include <string>

#include "HostFixture.h"
#include "hostapi/PIBase.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIGUI.h"
#include "hostapi/PIKurvex.h"
#include "hostapi/PIORVIDE.h"
#include "hostapi/PIServices.h"

using namespace PICommon;
namespace Interfaces = PluginClient::Interfaces;

namespace {

// A file that exists for the length of a test.
struct TempFile {
  explicit TempFile(const std::string& name) : path(std::string(ORV_BINARY_DIR) + "/" + name) {
    std::ofstream(path) << "content\n";
  }
  ~TempFile() { std::remove(path.c_str()); }
  std::string path;
};

class Counter : public PICallbackFunctor {
 public:
  long call(void*, void*) override { return ++calls; }
  long calls = 0;
};

class RecordingDelegate : public FileImportExportDelegateV2 {
 public:
  int processFileWithOptions(const std::string& path, const FileOptions& options) override {
    lastPath = path;
    lastOptions = options;
    return 2;
  }
  std::string lastPath;
  FileOptions lastOptions;
};

}  // namespace

TEST_F(HostTest, SettingsStoreStartsFromTheConfiguration) {
  RefHost::HostConfig config;
  config.settings["Always Append By Name and Original ID"] = "True";
  start(config);
  EXPECT_EQ(PIGUI::PIRegistry::getValue("Always Append By Name and Original ID"), "True");
  EXPECT_EQ(PIGUI::PIRegistry::getValue("LastFileReaderDirectory"), "");
  EXPECT_EQ(PIGUI::PIRegistry::setValue("LastFileReaderDirectory", "/tmp"), 0);
  EXPECT_EQ(PIGUI::PIRegistry::getValue("LastFileReaderDirectory"), "/tmp");
  EXPECT_NE(PIGUI::PIRegistry::setValue("", "x"), 0);
}

TEST_F(HostTest, FileDialogAnswersInTurnAndRemembersTheFolder) {
  RefHost::HostConfig config;
  config.fileDialogAnswers = {"/data/a.asi;/data/b.asi", "/other/c.asi"};
  start(config);
  auto show = [] {
    return showFileLoadDialog("Import Files", "", "LastFileReaderDirectory", "ORVIDE ASCII (*.asi)", true, nullptr,
                              "SETTINGS");
  };
  EXPECT_EQ(show(), "/data/a.asi;/data/b.asi");
  EXPECT_EQ(PIGUI::PIRegistry::getValue("LastFileReaderDirectory"), "/data");
  EXPECT_EQ(show(), "/other/c.asi");
  EXPECT_EQ(show(), "") << "answers used up: canceled";
  EXPECT_EQ(PIGUI::PIRegistry::getValue("LastFileReaderDirectory"), "/other");
}

TEST_F(HostTest, ProgressDialogCancelsFromTheConfiguredQuery) {
  RefHost::HostConfig config;
  config.cancelAfter = 3;
  start(config);
  PIGUI::PIProgressDialog dialog(nullptr, "Reading File", "Reading file a.asi.  Please wait...", true, 1000);
  ASSERT_NE(dialog.hostHandle(), 0u);
  dialog.show();
  dialog.setValue(500);
  dialog.setLabelText("Loading scenario data in a.asi...");
  dialog.runWhileEvents();
  EXPECT_FALSE(dialog.isCanceled());
  EXPECT_FALSE(dialog.isCanceled());
  EXPECT_TRUE(dialog.isCanceled());
  EXPECT_TRUE(dialog.isCanceled());
  const RefHost::ProgressDialogState& state = host->progressDialogs().at(0);
  EXPECT_EQ(state.title, "Reading File");
  EXPECT_EQ(state.label, "Loading scenario data in a.asi...");
  EXPECT_EQ(state.value, 500);
  EXPECT_EQ(state.maximum, 1000);
  EXPECT_TRUE(state.visible);
}

TEST_F(HostTest, ProgressDialogNeverCancelsByDefaultAndEndsWithItsObject) {
  {
    PIGUI::PIProgressDialog dialog(nullptr, "Unzipping File", "label", true, 100);
    for (int i = 0; i < 50; ++i) EXPECT_FALSE(dialog.isCanceled());
  }
  EXPECT_TRUE(host->progressDialogs().at(0).destroyed);
}

TEST_F(HostTest, MessagesReachTheirLists) {
  notify("Line 3 Version: bad\n", PI_NOTIFY_ERROR, "");
  notify("done", PI_NOTIFY_INFO, "Reader: ");
  debugPrint("console line");
  debugMsgBox("File Import Canceled", "File loading canceled by user.", nullptr);
  beginWaitCursor();
  beginWaitCursor();
  endWaitCursor();
  ASSERT_EQ(host->notifications().size(), 2u);
  EXPECT_EQ(host->notifications()[0].severity, PI_NOTIFY_ERROR);
  EXPECT_EQ(host->notifications()[0].text, "Line 3 Version: bad\n");
  EXPECT_EQ(host->notifications()[1].prefix, "Reader: ");
  EXPECT_EQ(host->consoleLines(), std::vector<std::string>({"console line"}));
  ASSERT_EQ(host->messageBoxes().size(), 1u);
  EXPECT_EQ(host->messageBoxes()[0].first, "File Import Canceled");
  EXPECT_EQ(host->waitCursorDepth(), 1);
}

TEST(HostEcho, AnEchoedMessageBoxIsNoConsoleLine) {
  RefHost::HostConfig config;
  config.progressBar = false;  // echoConsole stays on
  RefHost::ReferenceHost echoing(config);
  echoing.install();
  PICommon::debugMsgBox("File Import Canceled", "File loading canceled by user.", nullptr);
  PICommon::debugPrint("a console line");
  echoing.uninstall();
  EXPECT_EQ(echoing.messageBoxes().size(), 1u);
  EXPECT_EQ(echoing.consoleLines(), std::vector<std::string>({"a console line"}));
  EXPECT_EQ(echoing.toJson()["host"]["console"].size(), 1u);
}

TEST_F(HostTest, ApplicationIdentity) {
  EXPECT_EQ(getApplicationId(), PI_HOST_ORVIDE);
  EXPECT_EQ(getApplicationName(), "ORVIDE");
  EXPECT_TRUE(PIORVIDE::runningInORVIDE());
  EXPECT_FALSE(PIKurvex::runningInKurvex());

  RefHost::HostConfig config;
  config.application = RefHost::Application::Plot;
  start(config);
  EXPECT_EQ(getApplicationName(), "Kurvex");
  EXPECT_TRUE(PIKurvex::runningInKurvex());
  EXPECT_FALSE(PIKurvex::runningInKurvex10());

  config.version10 = true;
  start(config);
  EXPECT_TRUE(PIKurvex::runningInKurvex10());
  EXPECT_FALSE(PIKurvex::runningInKurvex());
}

TEST_F(HostTest, ActionsHotKeysAndTheirCallbacks) {
  Counter import;
  const uint64_t action = createAction("Show ASI Import", "File Reader", &import);
  EXPECT_NE(action, 0u);
  EXPECT_EQ(createAction("Show ASI Import", "File Reader", &import), 0u) << "one action per name";
  const uint32_t key = parseAccelerator("Ctrl+Shift+I");
  EXPECT_NE(key, 0u);
  EXPECT_NE(parseAccelerator("Ctrl+Shift+A"), key);
  EXPECT_EQ(parseAccelerator("Ctrl+Shift+I"), parseAccelerator("shift+ctrl+i"));
  EXPECT_NE(parseAccelerator("F5"), 0u);
  EXPECT_EQ(parseAccelerator("Ctrl+Banana"), 0u);
  EXPECT_EQ(parseAccelerator(""), 0u);
  EXPECT_EQ(initializeHotKey("Show ASI Import", key), 0);
  EXPECT_NE(initializeHotKey("No Such Action", key), 0);
  EXPECT_NE(initializeHotKey("Show ASI Import", 0), 0);

  EXPECT_EQ(host->triggerAction("Show ASI Import"), 1);
  EXPECT_EQ(import.calls, 1);
  EXPECT_EQ(host->triggerAction("Show ASI Append"), -1);
  ASSERT_EQ(host->hotKeys().size(), 1u);
  EXPECT_EQ(host->actions().at(0).group, "File Reader");
}

TEST_F(HostTest, FileHandlersAndOpenDelegates) {
  RecordingDelegate asi, csv;
  EXPECT_EQ(registerFileHandler("*.asi", "ORVIDE ASCII", 3), 0);
  EXPECT_EQ(registerFileOpenAdvancedGui("*.asi", "ORVIDE ASCII", &asi, 2), 0);
  EXPECT_EQ(registerFileOpenAdvancedGui("*.csv", "SCORE & PMRF", &csv, 2), 0);
  EXPECT_NE(registerFileHandler("", "nothing", 3), 0);
  EXPECT_EQ(host->delegateFor("/data/RUN.ASI"), &asi);
  EXPECT_EQ(host->delegateFor("/data/run.csv"), &csv);
  EXPECT_EQ(host->delegateFor("/data/run.gpx"), nullptr);
  FileOptions options{{FileImportExportDelegate::APPEND, "true"}};
  EXPECT_EQ(host->delegateFor("x.csv")->processFileWithOptions("x.csv", options), 2);
  EXPECT_EQ(csv.lastOptions.at("Append"), "true");
  EXPECT_EQ(host->fileHandlers().size(), 3u);
}

TEST_F(HostTest, SignalServiceRaisesAndUnbinds) {
  Interfaces::SignalClient client;
  EXPECT_EQ(client.bind(Interfaces::SIGNAL_SERVICE_NAME), 0);
  ASSERT_NE(client.getInterface(), nullptr);
  EXPECT_EQ(client.getInterface()->raiseSignal(Interfaces::APPEND_DATA_SIGNAL), 0);
  EXPECT_EQ(client.unbind(Interfaces::SIGNAL_SERVICE_NAME), 0);
  EXPECT_EQ(client.getInterface(), nullptr);
  EXPECT_EQ(host->signalsRaised(), std::vector<std::string>({Interfaces::APPEND_DATA_SIGNAL}));

  RefHost::HostConfig config;
  config.signalService = false;
  start(config);
  Interfaces::SignalClient absent;
  absent.bind(Interfaces::SIGNAL_SERVICE_NAME);
  EXPECT_EQ(absent.getInterface(), nullptr);
  Interfaces::SignalClient unknown;
  unknown.bind("kesmet.orvide/Nothing/1.0");
  EXPECT_EQ(unknown.getInterface(), nullptr);
}

TEST_F(HostTest, FileLocatorLooksInItsFolder) {
  TempFile range("refhost_range.xml");
  Interfaces::FileLocatorService none;
  none.bind(Interfaces::FILE_LOCATOR_SERVICE_NAME);
  EXPECT_EQ(none.getInterface(), nullptr) << "no folder configured: no service";

  RefHost::HostConfig config;
  config.locateDir = ORV_BINARY_DIR;
  start(config);
  Interfaces::FileLocatorService locator;
  locator.bind(Interfaces::FILE_LOCATOR_SERVICE_NAME);
  ASSERT_NE(locator.getInterface(), nullptr);
  EXPECT_EQ(locator.getInterface()->findFile("refhost_range.xml", 11), range.path);
  EXPECT_EQ(locator.getInterface()->findFile("some/dir/refhost_range.xml", 11), range.path);
  EXPECT_EQ(locator.getInterface()->findFile("missing.xml", 11), "");
  EXPECT_EQ(locator.getInterface()->findFile("..", 11), "");
  locator.unbind(Interfaces::FILE_LOCATOR_SERVICE_NAME);
  EXPECT_EQ(host->locatorQueries().size(), 4u);
}

TEST_F(HostTest, DisplayServicesLoadExistingFilesOnly) {
  TempFile gog("refhost_overlay.gog");
  const uint64_t platform = scenarioWithPlatform();
  EXPECT_EQ(PIORVIDE::loadGOGFile(gog.path, 0, true), 0);
  EXPECT_EQ(PIORVIDE::loadGOGFile(gog.path, platform, true), 0);
  EXPECT_NE(PIORVIDE::loadGOGFile(gog.path, 999, true), 0);
  EXPECT_NE(PIORVIDE::loadGOGFile("/no/such/file.gog", 0, true), 0);
  EXPECT_EQ(PIORVIDE::loadViewFile(gog.path), 0);
  EXPECT_NE(PIORVIDE::loadMediaFile("/no/such.tmd"), 0);
  EXPECT_EQ(PIORVIDE::loadTerrainConfiguration(gog.path), 0);
  std::vector<uint64_t> rules;
  EXPECT_EQ(PIORVIDE::loadPrefRuleFile(gog.path, rules), 0);
  EXPECT_EQ(rules.size(), 1u);
  EXPECT_EQ(PIORVIDE::removeAllPrefRules(), 0);
  EXPECT_EQ(PIORVIDE::loadRangeConfiguration("<range/>", false, "range.xml"), 0);
  EXPECT_EQ(PIORVIDE::rfpropSetInputFiles(platform, {"a.txt", "b.txt"}), 0);

  const uint64_t beam = beamOn(platform);
  EXPECT_EQ(PIORVIDE::setAntennaInfo(beam, PIORVIDE::PI_ANTENNA_ALGORITHM, PIORVIDE::PI_ALGORITHM_GAUSS,
                                     PIORVIDE::PI_POLARITY_VERTICAL, "", 20.0, 2000.0, 7000.0),
            0);
  EXPECT_NE(PIORVIDE::setAntennaInfo(platform, PIORVIDE::PI_ANTENNA_ALGORITHM, PIORVIDE::PI_ALGORITHM_GAUSS,
                                     PIORVIDE::PI_POLARITY_VERTICAL, "", 20.0, 2000.0, 7000.0),
            0);
  const auto& settings = host->scenario().find(beam)->settings;
  EXPECT_EQ(settings["antenna"]["algorithm"], PIORVIDE::PI_ALGORITHM_GAUSS);
  EXPECT_EQ(settings["antenna"]["frequency"], 7000.0);
  EXPECT_EQ(host->scenario().find(platform)->settings["gogFiles"].size(), 1u);
  EXPECT_EQ(host->displayLoads().size(), 7u);

  RefHost::HostConfig plot;
  plot.application = RefHost::Application::Plot;
  start(plot);
  EXPECT_NE(PIORVIDE::loadGOGFile(gog.path, 0, true), 0) << "the plot application has no overlays";
}

TEST_F(HostTest, ContextOverrideAndServerGarbage) {
  int context = 0;
  EXPECT_EQ(PIBase::getOverriddenThisPointer(), nullptr);
  PIBase::pushOverrideThisPointer(&context);
  EXPECT_EQ(PIBase::getOverriddenThisPointer(), &context);
  PIBase::popOverrideThisPointer();
  EXPECT_EQ(PIBase::getOverriddenThisPointer(), nullptr);

  PIGUI::PIProgressDialog dialog(nullptr, "t", "l", false, 10);
  EXPECT_EQ(PIGUI::AddObjectToServerGarbage(&dialog), 0);
  EXPECT_EQ(PIGUI::RemoveObjectFromServerGarbage(&dialog), 0);
  EXPECT_NE(PIGUI::RemoveObjectFromServerGarbage(&dialog), 0);
}
