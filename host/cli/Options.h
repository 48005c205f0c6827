#pragma once
// scenario-host's command line.

#include <string>
#include <vector>

namespace RefHost {

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
  bool version = false;
  bool strict = false;
  bool list = false;
  bool check = false;
  double maxSpeed = 1715.0;
  std::vector<std::string> exports;
  std::string plot;
};

constexpr int EXIT_STRICT = 5;
constexpr int EXIT_USAGE = 64;
constexpr int EXIT_NO_PLUGIN = 69;
constexpr int EXIT_CANNOT_WRITE = 73;

// Reads the command line into `options`. Answers -1 to go on, or the exit
// status to end with at once (0 after --help, 64 after a usage error, which
// has been told on stderr).
int parseOptions(int argc, char** argv, Options& options);

}  // namespace RefHost
