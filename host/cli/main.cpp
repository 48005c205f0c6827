// scenario-host: loads libFileReaderPlugin.so into the reference host and
// drives it as a user of the display or plot application would. Usage and
// output formats: docs/scenario-host.md.

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "host/ReferenceHost.h"
#include "host/cli/LineSink.h"
#include "host/cli/PluginLibrary.h"
#include "host/cli/Summary.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIDataRecords.h"

namespace {

constexpr int EXIT_USAGE = 64;
constexpr int EXIT_NO_PLUGIN = 69;
constexpr int EXIT_CANNOT_WRITE = 73;

struct Options {
  std::vector<std::string> files;
  std::string plugin;
  std::string via = "delegate";
  bool append = false;
  std::string app = "display";
  std::vector<std::string> settings;
  long cancelAfter = 0;
  std::string locate;
  bool noSignalService = false;
  std::vector<std::string> refusals;
  bool noData = false;
  std::string messagesFile, dumpFile, traceFile;
  bool noProgress = false;
};

// Echoes the host's notifications to stderr as they arrive, and copies the
// log lines to the --messages file when there is one.
class MessageEcho {
 public:
  MessageEcho(std::ostream* file, bool clearBar) : file_(file), clearBar_(clearBar) {}
  void operator()(const std::string& line) const {
    if (file_) *file_ << line << '\n' << std::flush;
    const nlohmann::json entry = nlohmann::json::parse(line, nullptr, false);
    if (entry.is_discarded()) return;
    const std::string text = entry.value("prefix", std::string()) + entry.value("text", std::string());
    // A progress bar on the terminal's last line gives way; it is drawn again
    // at its next update.
    if (clearBar_) std::cerr << "\r\033[K";
    std::cerr << text;
    if (text.empty() || text.back() != '\n') std::cerr << '\n';
    std::cerr << std::flush;
  }

 private:
  std::ostream* file_;
  bool clearBar_;
};

class Driver {
 public:
  Driver(RefHost::ReferenceHost& host, RefHost::PluginLibrary& plugin) : host_(host), plugin_(plugin) {}

  // New message boxes and console lines since the last call, to stderr.
  void echoHostOutput() {
    const auto& boxes = host_.messageBoxes();
    for (; boxesShown_ < boxes.size(); ++boxesShown_)
      std::cerr << boxes[boxesShown_].first << ": " << boxes[boxesShown_].second << '\n';
    const auto& lines = host_.consoleLines();
    for (; linesShown_ < lines.size(); ++linesShown_) {
      std::cerr << lines[linesShown_];
      if (lines[linesShown_].empty() || lines[linesShown_].back() != '\n') std::cerr << '\n';
    }
    std::cerr << std::flush;
  }

  // The host's advanced open of one file, by the delegate of its pattern.
  RefHost::LoadOutcome openWithDelegate(const std::string& path, bool append) {
    PICommon::FileImportExportDelegateV2* delegate = host_.delegateFor(path);
    if (!delegate) {
      // As an "All Files (*)" open would: the file goes to the plug-in anyway.
      for (const RefHost::FileHandler& handler : host_.fileHandlers())
        if (handler.delegate) {
          delegate = handler.delegate;
          break;
        }
    }
    if (!delegate) {
      std::cerr << "scenario-host: the plug-in registered no open delegate\n";
      return {path, true, -1};
    }
    const PICommon::FileOptions options{{PICommon::FileImportExportDelegate::APPEND, append ? "true" : "false"}};
    const int result = delegate->processFileWithOptions(path, options);
    echoHostOutput();
    return {path, true, result};
  }

  // The host's own open: always an import, outcome in a message box.
  RefHost::LoadOutcome openLocation(const std::string& path) {
    const int result = static_cast<int>(
        plugin_.dispatch(FileReaderPlugin::OPI_OPEN_LOCATION, path.c_str(), 0, static_cast<int>(PIData::PI_PROTOCOL_NONE)));
    echoHostOutput();
    return {path, true, result};
  }

  // The menu command; its dialog answers every file at once.
  std::vector<RefHost::LoadOutcome> runMenuCommand(const std::vector<std::string>& files, bool append) {
    const std::string action = append ? "Show ASI Append" : "Show ASI Import";
    const long answer = host_.triggerAction(action);
    echoHostOutput();
    std::vector<RefHost::LoadOutcome> outcomes;
    if (answer < 0) {
      std::cerr << "scenario-host: the plug-in created no action \"" << action << "\"\n";
      for (const std::string& f : files) outcomes.push_back({f, true, -1});
      return outcomes;
    }
    for (const std::string& f : files) outcomes.push_back({f, false, 0});
    return outcomes;
  }

 private:
  RefHost::ReferenceHost& host_;
  RefHost::PluginLibrary& plugin_;
  std::size_t boxesShown_ = 0;
  std::size_t linesShown_ = 0;
};

bool openOutput(const std::string& path, std::ofstream& out) {
  if (path.empty()) return true;
  out.open(path, std::ios::out | std::ios::trunc);
  if (!out) std::cerr << "scenario-host: cannot write \"" << path << "\"\n";
  return static_cast<bool>(out);
}

}  // namespace

int main(int argc, char** argv) {
  Options opt;
  CLI::App app{
      "scenario-host: loads the file-reading plug-in (libFileReaderPlugin.so) into the reference host and\n"
      "drives it as a user would. Notifications go to stderr as they arrive, message boxes as\n"
      "\"title: text\"; stdout ends with a summary. Exit status: 0 loaded, 1 canceled, 2 loaded with\n"
      "errors, 3 failed (-1), 4 stopped after too many errors (-2); with several files the first\n"
      "non-zero result counts; 64 bad usage, 69 plug-in not loadable, 73 an output file not writable.",
      "scenario-host"};
  app.add_option("FILE", opt.files, "Files to load: the first as given by --append, each further one appended")
      ->required();
  app.add_option("--plugin", opt.plugin, "The plug-in library (default: libFileReaderPlugin.so beside the executable)");
  app.add_option("--via", opt.via,
                 "How the files reach the plug-in: delegate (the open delegate registered for the file's\n"
                 "pattern; default), open (the host's openLocation, always an import, outcome in a message\n"
                 "box), dialog (the menu command \"Show ASI Import\", or \"Show ASI Append\" with --append,\n"
                 "with the file dialog answering all FILEs joined by \";\"; no load result is reported)")
      ->check(CLI::IsMember({"delegate", "open", "dialog"}));
  app.add_flag("--append", opt.append, "Append the first file too instead of importing it");
  app.add_option("--app", opt.app, "The application the host plays: display, plot, display10 or plot10")
      ->check(CLI::IsMember({"display", "plot", "display10", "plot10"}));
  app.add_option("--setting", opt.settings, "Settings-store entry KEY=VALUE before start-up (repeatable)")
      ->check([](const std::string& text) {
        return text.find('=') == std::string::npos || text.front() == '=' ? std::string("expected KEY=VALUE")
                                                                           : std::string();
      });
  app.add_option("--cancel-after", opt.cancelAfter,
                 "Progress dialogs report a cancel from the N-th isCanceled query on (0: never)")
      ->check(CLI::NonNegativeNumber);
  app.add_option("--locate", opt.locate, "Folder in which the file-locator service finds files (default: no service)");
  app.add_flag("--no-signal-service", opt.noSignalService, "Offer no signal service");
  app.add_option("--refuse", opt.refusals,
                 "Refuse a client operation by name, e.g. createPlatform, addDataPoint, addCategoryData,\n"
                 "loadGOGFile (repeatable)");
  app.add_flag("--no-data", opt.noData, "Keep counts and time spans of the data, not the data itself");
  app.add_option("--messages", opt.messagesFile, "Write every notification to F, one JSON object per line");
  app.add_option("--dump", opt.dumpFile, "Write the host's scenario and interface state to F as JSON at the end");
  app.add_option("--trace", opt.traceFile, "Write every host request to F, one JSON object per line");
  app.add_flag("--no-progress", opt.noProgress, "Draw no progress bar on a terminal");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    const int code = app.exit(e);
    return code == 0 ? 0 : EXIT_USAGE;
  }
  if (opt.append && opt.via == "open") {
    std::cerr << "scenario-host: --append cannot be combined with --via open: the host's open always imports\n";
    return EXIT_USAGE;
  }

  RefHost::HostConfig config;
  config.application = opt.app.rfind("plot", 0) == 0 ? RefHost::Application::Plot : RefHost::Application::Display;
  config.version10 = opt.app.size() > 2 && opt.app.compare(opt.app.size() - 2, 2, "10") == 0;
  for (const std::string& s : opt.settings) {
    const std::string::size_type eq = s.find('=');
    config.settings[s.substr(0, eq)] = s.substr(eq + 1);
  }
  config.cancelAfter = opt.cancelAfter;
  config.locateDir = opt.locate;
  config.signalService = !opt.noSignalService;
  config.refusals.insert(opt.refusals.begin(), opt.refusals.end());
  config.noData = opt.noData;
  config.progressBar = !opt.noProgress;
  // Notifications are echoed here, as they arrive, in the command's own form.
  config.echoConsole = false;
  if (opt.via == "dialog") {
    std::string joined;
    for (const std::string& f : opt.files) joined += (joined.empty() ? "" : ";") + f;
    config.fileDialogAnswers.push_back(joined);
  }

  std::ofstream messagesOut, traceOut, dumpOut;
  if (!openOutput(opt.messagesFile, messagesOut) || !openOutput(opt.traceFile, traceOut) ||
      !openOutput(opt.dumpFile, dumpOut))
    return EXIT_CANNOT_WRITE;

  RefHost::PluginLibrary plugin;
  const std::string pluginPath = opt.plugin.empty() ? RefHost::PluginLibrary::besideExecutable() : opt.plugin;
  if (!plugin.open(pluginPath)) {
    std::cerr << "scenario-host: cannot load the plug-in \"" << pluginPath << "\": " << plugin.error() << "\n";
    return EXIT_NO_PLUGIN;
  }

  std::vector<RefHost::LoadOutcome> outcomes;
  {
    RefHost::ReferenceHost host(config);
    RefHost::LineSinkStream messages(
        MessageEcho(opt.messagesFile.empty() ? nullptr : &messagesOut, config.progressBar && ::isatty(2)));
    host.setNotificationLogStream(&messages);
    if (!opt.traceFile.empty()) host.setTraceStream(&traceOut);

    plugin.initializeFunctionMap(&host, &host);
    char* startArgs[] = {argv[0], nullptr};
    plugin.dispatch(FileReaderPlugin::OPI_START_UP, 1, startArgs);

    Driver driver(host, plugin);
    driver.echoHostOutput();
    if (opt.via == "dialog") {
      outcomes = driver.runMenuCommand(opt.files, opt.append);
    } else {
      for (std::size_t i = 0; i < opt.files.size(); ++i) {
        if (opt.via == "open")
          outcomes.push_back(driver.openLocation(opt.files[i]));
        else
          outcomes.push_back(driver.openWithDelegate(opt.files[i], opt.append || i > 0));
      }
    }

    plugin.dispatch(FileReaderPlugin::OPI_CLOSE);
    plugin.cleanUp();
    driver.echoHostOutput();

    if (!opt.dumpFile.empty()) {
      host.writeDump(dumpOut);
      dumpOut.flush();
    }
    host.setTraceStream(nullptr);
    host.setNotificationLogStream(nullptr);
    std::cout.flush();
    RefHost::writeSummary(std::cout, host, outcomes);
  }
  plugin.close();
  return RefHost::exitStatus(outcomes);
}
