#include "host/cli/Options.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <iostream>

#include <CLI/CLI.hpp>

#include "host/OperationNames.h"
#include "host/cli/Exports.h"
#include "host/TerminalText.h"

namespace RefHost {

namespace {

std::string wholeNumberCheck(const std::string& text) {
  errno = 0;
  char* end = nullptr;
  const long value = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno != 0 || value < 0)
    return "expected a whole number from 0 up, not \"" + terminalSafe(text) + "\"";
  return "";
}

std::string speedCheck(const std::string& text) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0' || !std::isfinite(value) || value <= 0)
    return "expected a speed in metres per second above 0, not \"" + terminalSafe(text) + "\"";
  return "";
}

std::string exportCheck(const std::string& path) {
  return exportFormat(path) == ExportFormat::None
             ? "\"" + terminalSafe(path) + "\": the extension names no export format (.geojson, .csv, .kml, .czml)"
             : std::string();
}

std::string plotCheck(const std::string& path) {
  const bool png = path.size() > 4 && (path.compare(path.size() - 4, 4, ".png") == 0 ||
                                       path.compare(path.size() - 4, 4, ".PNG") == 0);
  return png ? std::string() : "\"" + terminalSafe(path) + "\": the picture is a PNG file (.png)";
}

std::string settingCheck(const std::string& text) {
  return text.find('=') == std::string::npos || text.front() == '=' ? std::string("expected KEY=VALUE")
                                                                     : std::string();
}

// "--refuse NAME" with a name that is no client operation: the names, a
// screenful in columns of the usual terminal width.
void tellOperationNames(const std::string& name) {
  std::cerr << "scenario-host: --refuse: \"" << terminalSafe(name)
            << "\" is no client operation; these are (docs/reference-host.md):\n";
  std::string line = " ";
  for (const std::string& n : clientOperationNames()) {
    if (line.size() + n.size() + 1 > 100) {
      std::cerr << line << "\n";
      line = " ";
    }
    line += " " + n;
  }
  std::cerr << line << "\n";
}

}  // namespace

int parseOptions(int argc, char** argv, Options& opt) {
  CLI::App app{
      "scenario-host: loads the file-reading plug-in (libFileReaderPlugin.so) into the reference host and\n"
      "drives it as a user would. Notifications go to stderr as they arrive, as \"FILE:LINE: SEVERITY: text\";\n"
      "message boxes as \"title: text\"; stdout ends with a summary. Exit status: 0 loaded, 1 canceled\n"
      "(also by Ctrl-C), 2 loaded with errors, 3 failed (-1), 4 stopped after too many errors (-2); with\n"
      "several files the first non-zero result counts; 5 with --strict when result 0 came with warnings\n"
      "or errors; 64 bad usage, 69 plug-in not loadable, 73 an output not writable.",
      "scenario-host"};
  app.add_option("FILE", opt.files, "Files to load: the first as given by --append, each further one appended");
  app.add_option("--plugin", opt.plugin,
                 "The plug-in library (default: beside the executable, in ../lib of its prefix, or\n"
                 "$SCENARIO_HOST_PLUGIN)");
  app.add_option("--via", opt.via,
                 "How the files reach the plug-in: delegate (the open delegate registered for the file's\n"
                 "pattern; default), open (the host's openLocation, always an import, outcome in a message\n"
                 "box), dialog (the menu command \"Show ASI Import\", or \"Show ASI Append\" with --append,\n"
                 "with the file dialog answering all FILEs joined by \";\"; no load result is reported)")
      ->check(CLI::IsMember({"delegate", "open", "dialog"}));
  app.add_flag("--append", opt.append, "Append the first file too instead of importing it");
  app.add_option("--app", opt.app, "The application the host plays: display, plot, display10 or plot10")
      ->check(CLI::IsMember({"display", "plot", "display10", "plot10"}));
  // Each of these takes exactly one value per use, so that the files behind
  // them stay files.
  app.add_option("--setting", opt.settings, "Settings-store entry KEY=VALUE before start-up (repeatable)")
      ->allow_extra_args(false)
      ->check(settingCheck);
  app.add_option("--cancel-after", opt.cancelAfter,
                 "Progress dialogs report a cancel from the N-th isCanceled query on (0: never)")
      ->check(wholeNumberCheck);
  app.add_option("--locate", opt.locate, "Folder in which the file-locator service finds files (default: no service)");
  app.add_flag("--no-signal-service", opt.noSignalService, "Offer no signal service");
  app.add_option("--refuse", opt.refusals,
                 "Refuse a client operation by name, e.g. createPlatform, addDataPoint, addCategoryData,\n"
                 "loadGOGFile (repeatable)")
      ->allow_extra_args(false);
  app.add_flag("--no-data", opt.noData, "Keep counts and time spans of the data, not the data itself");
  app.add_option("--messages", opt.messagesFile,
                 "Write every notification to F, one JSON object per line (\"-\": standard output)");
  app.add_option("--dump", opt.dumpFile,
                 "Write the host's scenario and interface state to F as JSON at the end (\"-\": standard output)");
  app.add_option("--trace", opt.traceFile, "Write every host request to F, one JSON object per line (\"-\": standard output)");
  app.add_flag("--no-progress", opt.noProgress, "Draw no progress bar (one is drawn only when stderr is a terminal)");
  app.add_flag("--strict", opt.strict, "Exit with status 5 when a load gave result 0 but reported warnings or errors");
  app.add_flag("--list", opt.list,
               "List every object: kind, name, id, parent, points, time span, latitude/longitude extent");
  app.add_flag("--check", opt.check,
               "Sanity notes: time going backwards or repeating, jumps faster than --max-speed, positions\n"
               "outside the earth, a platform whose only point is static");
  app.add_option("--max-speed", opt.maxSpeed, "The speed for --check, in metres per second (default 1715, Mach 5)")
      ->check(speedCheck);
  app.add_option("--export", opt.exports,
                 "Write what the host received for GIS tools, the format by the extension: .geojson (one\n"
                 "Feature per platform), .csv (one row per point), .kml (gx:Track per platform), .czml\n"
                 "(one packet per platform); positions as WGS-84 longitude, latitude, altitude (repeatable)")
      ->allow_extra_args(false)
      ->check(exportCheck);
  app.add_option("--plot", opt.plot,
                 "Draw a quick-look map of every platform's track into a PNG file")
      ->check(plotCheck);
  app.add_flag("--version", opt.version, "Print the versions of scenario-host and of the plug-in");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    const int code = app.exit(e);
    return code == 0 ? 0 : EXIT_USAGE;
  }
  if (opt.version) return -1;
  if (opt.files.empty()) {
    std::cerr << "scenario-host: no FILE given\nRun with --help for more information.\n";
    return EXIT_USAGE;
  }
  for (const std::string& name : opt.refusals)
    if (!isClientOperation(name)) {
      tellOperationNames(name);
      return EXIT_USAGE;
    }
  if (opt.append && opt.via == "open") {
    std::cerr << "scenario-host: --append cannot be combined with --via open: the host's open always imports\n";
    return EXIT_USAGE;
  }
  if (opt.noData && (!opt.exports.empty() || !opt.plot.empty())) {
    std::cerr << "scenario-host: --no-data keeps no positions to export or draw\n";
    return EXIT_USAGE;
  }
  const int toStdout = (opt.dumpFile == "-") + (opt.traceFile == "-") + (opt.messagesFile == "-");
  if (toStdout > 1) {
    std::cerr << "scenario-host: only one of --dump, --trace and --messages can write to standard output\n";
    return EXIT_USAGE;
  }
  return -1;
}

}  // namespace RefHost
