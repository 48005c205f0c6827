// scenario-host: loads libFileReaderPlugin.so into the reference host and
// drives it as a user of the display or plot application would. Usage and
// output formats: docs/scenario-host.md.

#include <sys/stat.h>
#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "host/ReferenceHost.h"
#include "host/TerminalText.h"
#include "host/cli/Exports.h"
#include "host/cli/Interrupt.h"
#include "host/cli/LineSink.h"
#include "host/cli/MessageLog.h"
#include "host/cli/Options.h"
#include "host/cli/OutputFile.h"
#include "host/cli/PluginLibrary.h"
#include "host/cli/QuickLookPlot.h"
#include "host/cli/Reports.h"
#include "host/cli/Summary.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIDataRecords.h"

#ifndef SCENARIO_HOST_VERSION
#define SCENARIO_HOST_VERSION "unknown"
#endif

namespace {

using namespace RefHost;

class Driver {
 public:
  Driver(ReferenceHost& host, PluginLibrary& plugin, MessageLog& messages)
      : host_(host), plugin_(plugin), messages_(messages) {}

  // New message boxes and console lines since the last call, to stderr.
  void echoHostOutput() {
    const auto& boxes = host_.messageBoxes();
    for (; boxesShown_ < boxes.size(); ++boxesShown_)
      messages_.echoMessageBox(boxes[boxesShown_].first, boxes[boxesShown_].second);
    const auto& lines = host_.consoleLines();
    for (; linesShown_ < lines.size(); ++linesShown_) messages_.echoConsoleLine(lines[linesShown_]);
  }

  // Loads every file the way `via` says, stopping at an interrupt.
  std::vector<LoadOutcome> loadAll(const Options& opt) {
    std::vector<LoadOutcome> outcomes;
    if (opt.via == "dialog") {
      // One selection: the messages of several files can't be told apart.
      messages_.setCurrentFile(opt.files.size() == 1 ? opt.files[0] : std::string());
      outcomes = runMenuCommand(opt.files, opt.append);
    } else {
      for (std::size_t i = 0; i < opt.files.size(); ++i) {
        const std::string& path = opt.files[i];
        if (InterruptHandler::interrupted()) {
          LoadOutcome skipped{path, false, 0, true, {}};
          outcomes.push_back(skipped);
          continue;
        }
        messages_.setCurrentFile(path);
        host_.setProgressWorkBytes(workBytes(path));
        outcomes.push_back(opt.via == "open" ? openLocation(path) : openWithDelegate(path, opt.append || i > 0));
      }
    }
    messages_.setCurrentFile("");
    for (LoadOutcome& outcome : outcomes) {
      if (!outcome.skipped && outcome.pointsAfter.empty()) outcome.pointsAfter = pointCounts();
    }
    return outcomes;
  }

 private:
  // The file's size for the progress bar's rate; 0 for archives, whose
  // dialogs measure their members.
  static double workBytes(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return 0.0;
    const bool archive = path.size() >= 4 && (path.compare(path.size() - 4, 4, ".zip") == 0 ||
                                              path.compare(path.size() - 4, 4, ".ZIP") == 0);
    return archive ? 0.0 : static_cast<double>(info.st_size);
  }

  std::map<std::uint64_t, std::size_t> pointCounts() const {
    std::map<std::uint64_t, std::size_t> counts;
    for (const auto& object : host_.scenario().objects()) counts[object->id] = object->data(SERIES_POINTS).count();
    return counts;
  }

  LoadOutcome finished(const std::string& path, int result) {
    echoHostOutput();
    LoadOutcome outcome{path, true, result, false, pointCounts()};
    return outcome;
  }

  // The host's advanced open of one file, by the delegate of its pattern.
  LoadOutcome openWithDelegate(const std::string& path, bool append) {
    PICommon::FileImportExportDelegateV2* delegate = host_.delegateFor(path);
    if (!delegate) {
      // As an "All Files (*)" open would: the file goes to the plug-in anyway.
      for (const FileHandler& handler : host_.fileHandlers())
        if (handler.delegate) {
          delegate = handler.delegate;
          break;
        }
    }
    if (!delegate) {
      std::cerr << "scenario-host: the plug-in registered no open delegate\n";
      return finished(path, -1);
    }
    const PICommon::FileOptions options{{PICommon::FileImportExportDelegate::APPEND, append ? "true" : "false"}};
    return finished(path, delegate->processFileWithOptions(path, options));
  }

  // The host's own open: always an import, outcome in a message box.
  LoadOutcome openLocation(const std::string& path) {
    const int result = static_cast<int>(
        plugin_.dispatch(FileReaderPlugin::OPI_OPEN_LOCATION, path.c_str(), 0, static_cast<int>(PIData::PI_PROTOCOL_NONE)));
    return finished(path, result);
  }

  // The menu command; its dialog answers every file at once.
  std::vector<LoadOutcome> runMenuCommand(const std::vector<std::string>& files, bool append) {
    const std::string action = append ? "Show ASI Append" : "Show ASI Import";
    const long answer = host_.triggerAction(action);
    echoHostOutput();
    std::vector<LoadOutcome> outcomes;
    if (answer < 0) std::cerr << "scenario-host: the plug-in created no action \"" << action << "\"\n";
    for (const std::string& f : files) {
      LoadOutcome outcome{f, answer < 0, answer < 0 ? -1 : 0, false, {}};
      outcomes.push_back(outcome);
    }
    return outcomes;
  }

  ReferenceHost& host_;
  PluginLibrary& plugin_;
  MessageLog& messages_;
  std::size_t boxesShown_ = 0;
  std::size_t linesShown_ = 0;
};

// The exports and the picture; false when one of them could not be written.
bool writeExports(const Options& opt, const ReferenceHost& host) {
  if (opt.exports.empty() && opt.plot.empty()) return true;
  const ExportScene scene = exportScene(host.scenario());
  for (const std::string& line : scene.leftOut) std::cerr << "scenario-host: exports: " << line << "\n";
  bool written = true;
  for (const std::string& path : opt.exports) {
    OutputFile file(path);
    if (!file.open()) {
      written = false;
      continue;
    }
    switch (exportFormat(path)) {
      case ExportFormat::GeoJson: writeGeoJson(file.stream(), scene); break;
      case ExportFormat::Csv: writeCsv(file.stream(), scene); break;
      case ExportFormat::Kml: writeKml(file.stream(), scene); break;
      case ExportFormat::Czml: writeCzml(file.stream(), scene); break;
      case ExportFormat::None: break;
    }
    written = file.finish() && written;
  }
  if (!opt.plot.empty()) {
    std::string error;
    if (!writeQuickLookPlot(opt.plot, scene, error)) {
      std::cerr << "scenario-host: cannot write \"" << terminalSafe(opt.plot) << "\": " << error << "\n";
      written = false;
    }
  }
  return written;
}

HostConfig hostConfig(const Options& opt) {
  HostConfig config;
  config.application = opt.app.rfind("plot", 0) == 0 ? Application::Plot : Application::Display;
  config.version10 = opt.app.size() > 2 && opt.app.compare(opt.app.size() - 2, 2, "10") == 0;
  for (const std::string& s : opt.settings) {
    const std::string::size_type eq = s.find('=');
    config.settings[s.substr(0, eq)] = s.substr(eq + 1);
  }
  config.cancelAfter = opt.cancelAfter;
  config.cancelRequest = &InterruptHandler::flag();
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
  return config;
}

std::string pluginPath(const Options& opt) {
  return opt.plugin.empty() ? PluginLibrary::findDefault() : opt.plugin;
}

// --version: the command's version and what the plug-in says of itself.
int printVersion(const Options& opt) {
  std::cout << "scenario-host " << SCENARIO_HOST_VERSION << "\n";
  PluginLibrary plugin;
  const std::string path = pluginPath(opt);
  if (!plugin.open(path)) {
    std::cerr << "scenario-host: cannot load the plug-in \"" << terminalSafe(path) << "\": " << plugin.error() << "\n";
    return EXIT_NO_PLUGIN;
  }
  HostConfig quiet;
  quiet.progressBar = false;
  quiet.echoConsole = false;
  {
    ReferenceHost host(quiet);
    plugin.initializeFunctionMap(&host, &host);
    const auto text = [&](int message) {
      const char* answer = reinterpret_cast<const char*>(plugin.dispatch(message));
      return terminalSafe(answer ? answer : "");
    };
    std::cout << "plug-in " << text(FileReaderPlugin::OPI_NAME) << " " << text(FileReaderPlugin::OPI_VERSION)
              << " (host API " << plugin.versionInfoEx(0) << "." << plugin.versionInfoEx(1) << "."
              << plugin.versionInfoEx(2) << ", " << terminalSafe(path) << ")\n";
    std::cout << "documentation " << text(FileReaderPlugin::OPI_URL) << "\n";
    plugin.cleanUp();
  }
  plugin.close();
  std::cout.flush();
  return std::cout ? 0 : EXIT_CANNOT_WRITE;
}

}  // namespace

int main(int argc, char** argv) {
  Options opt;
  const int parsed = parseOptions(argc, argv, opt);
  if (parsed >= 0) return parsed;
  if (opt.version) return printVersion(opt);

  OutputFile messagesOut(opt.messagesFile), traceOut(opt.traceFile), dumpOut(opt.dumpFile);
  if (!messagesOut.open() || !traceOut.open() || !dumpOut.open()) return EXIT_CANNOT_WRITE;
  // Reports go to stdout unless one of the JSON outputs took it.
  const bool stdoutTaken =
      messagesOut.toStandardOutput() || traceOut.toStandardOutput() || dumpOut.toStandardOutput();
  std::ostream& report = stdoutTaken ? std::cerr : std::cout;

  PluginLibrary plugin;
  const std::string path = pluginPath(opt);
  if (!plugin.open(path)) {
    std::cerr << "scenario-host: cannot load the plug-in \"" << terminalSafe(path) << "\": " << plugin.error() << "\n";
    return EXIT_NO_PLUGIN;
  }

  InterruptHandler interrupt;
  const HostConfig config = hostConfig(opt);
  MessageLog messages(messagesOut.requested() ? &messagesOut.stream() : nullptr,
                      config.progressBar && ::isatty(STDERR_FILENO));
  std::vector<LoadOutcome> outcomes;
  RunVerdict verdict;
  {
    ReferenceHost host(config);
    LineSinkStream messageLines([&messages](const std::string& line) { messages.onLogLine(line); });
    host.setNotificationLogStream(&messageLines);
    if (traceOut.requested()) host.setTraceStream(&traceOut.stream());

    plugin.initializeFunctionMap(&host, &host);
    char* startArgs[] = {argv[0], nullptr};
    plugin.dispatch(FileReaderPlugin::OPI_START_UP, 1, startArgs);

    Driver driver(host, plugin, messages);
    driver.echoHostOutput();
    outcomes = driver.loadAll(opt);

    plugin.dispatch(FileReaderPlugin::OPI_CLOSE);
    plugin.cleanUp();
    driver.echoHostOutput();
    host.setTraceStream(nullptr);
    host.setNotificationLogStream(nullptr);

    if (dumpOut.requested()) host.writeDump(dumpOut.stream());
    bool written = messagesOut.finish();
    written = traceOut.finish() && written;
    written = dumpOut.finish() && written;
    written = writeExports(opt, host) && written;

    verdict.exitStatus = exitStatus(outcomes);
    if (!written) {
      verdict.exitStatus = EXIT_CANNOT_WRITE;
      verdict.why = "an output could not be written";
    } else if (opt.strict && verdict.exitStatus == 0 && (messages.errors() + messages.warnings()) > 0) {
      verdict.exitStatus = EXIT_STRICT;
      verdict.why = "--strict: warnings or errors were reported";
    }

    std::cout.flush();
    if (opt.list) writeObjectList(report, host);
    if (opt.check) {
      CheckLimits limits;
      limits.maxSpeed = opt.maxSpeed;
      writeSanityNotes(report, host, outcomes, limits);
    }
    writeSummary(report, host, outcomes, messages, verdict);
  }
  plugin.close();
  report.flush();
  if (!std::cout) {
    std::cerr << "scenario-host: writing standard output failed\n";
    return EXIT_CANNOT_WRITE;
  }
  return verdict.exitStatus;
}
