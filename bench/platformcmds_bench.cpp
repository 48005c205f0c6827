// PlatformData throughput. Stage 1 alone counts the heap allocations it makes
// per line (the goal is none); one line adds the host call on the reference
// host in counting mode; a whole file runs the read engine over the keyword
// table, which is what a user waits for. Compare the file figure with
//   awk '{s+=$3+$4+$5+$6+$7+$8+$9+$10} END {print s}' <file>
// on the file that BM_ReadFile leaves in the temporary folder.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "asi/ScenarioEntity.h"
#include "asi/host/AsiParser.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/ScenarioProvider.h"
#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/MessageManager.h"

namespace {
std::atomic<long> allocations{0};
}  // namespace

// Counting replacements of the global allocation functions. GCC takes the
// free() of a pointer from a replaced operator new for a mismatch; it is not.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(size ? size : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
#pragma GCC diagnostic pop

namespace {

class QuietMessages : public FileReaderPlugin::MessageManager {
 protected:
  void writeMessage_(PICommon::NotifySeverity, const std::string&, unsigned long) override {}
};

RefHost::HostConfig countingHost() {
  RefHost::HostConfig config;
  config.noData = true;
  config.progressBar = false;
  config.echoConsole = false;
  return config;
}

// The platform family over a provider with an LLA frame and platform 1 declared.
struct Table {
  std::shared_ptr<AsiReader::ScenarioProvider> provider =
      std::make_shared<AsiReader::ScenarioProvider>(24, PICommon::PI_HOST_ORVIDE);
  std::vector<std::unique_ptr<FileReaderPlugin::CommandParser>> commands;
  FileReaderPlugin::CommandParser* data = nullptr;

  Table() {
    auto* scenario = new AsiInterface::ScenarioEntity();
    scenario->setUniqueId(0);
    provider->addEntity(0, scenario);
    PIData::PICoordReferenceFrame frame;
    provider->referenceFrame(frame);
    frame.latitude = 0.5;
    frame.longitude = -1.2;
    provider->setReferenceFrame(frame);
    provider->setCoordSystem(PIData::PI_COORD_LLA);
    AsiReader::CommandList list;
    AsiReader::addPlatformCommands(provider, 24, list);
    for (auto* c : list) {
      commands.emplace_back(c);
      if (c->name() == "PlatformData") data = c;
    }
    run({"PlatformID", "1"});
    run({"PlatformName", "1", "ship"});
  }
  ~Table() { provider->clear(); }

  void run(const std::vector<std::string>& tokens) {
    for (auto& c : commands) {
      if (c->name() != tokens[0]) continue;
      std::unique_ptr<FileReaderPlugin::CommandParser> line(c->clone());
      line->executeStage1(tokens);
      line->transmit();
    }
  }
};

std::vector<std::string> dataTokens(long i) {
  return {"PlatformData", "1", std::to_string(i * 0.5), "0.52", "-1.21", "1500.5", "1.2", "0.01", "-0.02", "240.5"};
}

void BM_Stage1(benchmark::State& state) {
  RefHost::ReferenceHost host(countingHost());
  host.install();
  PIData::initializeScenario("bench", 0, PIData::PI_PROTOCOL_NONE, false);
  Table table;
  const std::vector<std::string> tokens = dataTokens(7);
  std::unique_ptr<FileReaderPlugin::CommandParser> line(table.data->clone());
  long before = 0;
  long lines = 0;
  long made = 0;
  for (auto _ : state) {
    before = allocations.load(std::memory_order_relaxed);
    line->executeStage1(tokens);
    made += allocations.load(std::memory_order_relaxed) - before;
    ++lines;
  }
  if (line->hasError() || line->hasWarning()) state.SkipWithError("the line drew a message");
  state.counters["allocs/line"] = static_cast<double>(made) / static_cast<double>(lines);
  state.SetItemsProcessed(state.iterations());
  host.uninstall();
}
BENCHMARK(BM_Stage1);

// What the engine's main thread does per line: clone, stage 1, transmit.
void BM_LineToHost(benchmark::State& state) {
  RefHost::ReferenceHost host(countingHost());
  host.install();
  PIData::initializeScenario("bench", 0, PIData::PI_PROTOCOL_NONE, false);
  {
    Table table;
    std::vector<std::string> tokens = dataTokens(0);
    long i = 0;
    for (auto _ : state) {
      tokens[2] = std::to_string(++i);
      std::unique_ptr<FileReaderPlugin::CommandParser> line(table.data->clone());
      line->executeStage1(tokens);
      line->transmit();
    }
    state.counters["hostPoints"] = static_cast<double>(
        host.scenario().find(table.provider->getEntity(1)->uniqueId())->data(RefHost::SERIES_POINTS).count());
  }
  state.SetItemsProcessed(state.iterations());
  host.uninstall();
}
BENCHMARK(BM_LineToHost);

// range(0) data lines over ten platforms, read whole through the engine.
void BM_ReadFile(benchmark::State& state) {
  const long count = state.range(0);
  const std::string path = "/tmp/bench_platformcmds_" + std::to_string(count) + ".asi";
  {
    std::ofstream out(path, std::ios::binary);
    out << "Version 24\nCoordSystem LLA\nRefLLA 30 -80 0\n";
    for (int p = 1; p <= 10; ++p) out << "PlatformID " << p << "\nPlatformName " << p << " ship" << p << "\n";
    char buffer[160];
    for (long i = 0; i < count; ++i) {
      std::snprintf(buffer, sizeof buffer, "PlatformData %ld %.1f %.6f %.6f %.1f %.4f %.4f %.4f %.2f\n", i % 10 + 1,
                    static_cast<double>(i / 10), 0.52 + i * 1e-8, -1.21 - i * 1e-8, 1000.0 + i % 100, 1.2, 0.01,
                    -0.02, 240.5);
      out << buffer;
    }
  }
  RefHost::ReferenceHost host(countingHost());
  host.install();
  for (auto _ : state) {
    AsiReader::AsiParser parser(PICommon::PI_HOST_ORVIDE);
    QuietMessages messages;
    FileReaderPlugin::NullFileReaderProgress progress;
    const int result = FileReaderPlugin::FileReaderEngine(parser).execute(path, messages, progress);
    if (result != 0) state.SkipWithError("the read failed");
    parser.provider()->clear();
  }
  state.SetItemsProcessed(state.iterations() * count);
  host.uninstall();
}
BENCHMARK(BM_ReadFile)->Arg(200000)->Arg(2000000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
