// A whole ASI file loaded into a no-data reference host, through the command
// pipeline (AsiReader) or through the document path (AsiScenarioFile with the
// document loader, then transmission). Prints lines, seconds, lines/s and the
// process's peak RSS; run each path in its own process so that the peaks do
// not mix. The document loader wants the reference point and coordinate
// system right behind "Version": pass a file written that way (see
// bench/document_load_bench.sh).
//
// Usage: document_load_bench pipeline|document FILE
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "asi/LliResolver.h"
#include "asi/host/AsiReader.h"
#include "document/AsiScenarioFile.h"
#include "host/ReferenceHost.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s pipeline|document FILE\n", argv[0]);
    return 64;
  }
  const std::string mode = argv[1];
  const std::string path = argv[2];
  size_t lines = 0;
  {
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) ++lines;
  }
  RefHost::HostConfig config;
  config.progressBar = false;
  config.echoConsole = false;
  config.noData = true;
  RefHost::ReferenceHost host(config);
  host.install();
  const auto start = std::chrono::steady_clock::now();
  bool ok = false;
  if (mode == "pipeline") {
    AsiInterface::LliResolver resolver("");
    AsiReader::AsiReader reader;
    reader.setAppend(false, &resolver);
    ok = reader.read(path) == 0;
  } else {
    AsiScenarioFile file;
    std::vector<std::string> issues;
    ok = !file.transmitScenario(path, nullptr, nullptr, nullptr, false, issues);
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const nlohmann::json statistics = host.toJson()["statistics"];
  host.uninstall();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%s: %s, %zu lines, %zu points, %.2f s, %.0f lines/s, peak RSS %ld MiB\n", mode.c_str(),
              ok ? "loaded" : "FAILED", lines, statistics["points"].get<size_t>(), seconds, lines / seconds,
              usage.ru_maxrss / 1024);
  return ok ? 0 : 1;
}
