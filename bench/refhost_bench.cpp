// Platform points through the client wrappers into the reference host:
// time per point, heap bytes per point kept, and the dump's speed.

#include <benchmark/benchmark.h>

#include <sstream>

#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"

namespace {

RefHost::HostConfig quiet(bool noData) {
  RefHost::HostConfig config;
  config.noData = noData;
  config.echoConsole = false;
  config.progressBar = false;
  return config;
}

uint64_t startScenario() {
  PIData::initializeScenario("bench.asi", 0, PIData::PI_PROTOCOL_NONE, false);
  PIData::PIPlatformHeader header;
  header.name = "ship";
  return PIData::createPlatform(header, PIData::PIPlatformPoint());
}

// state.range(0): 0 keeps the points, 1 is the no-data mode.
void BM_AddPlatformPoint(benchmark::State& state) {
  RefHost::ReferenceHost host(quiet(state.range(0) != 0));
  host.install();
  const uint64_t id = startScenario();
  PIData::PIPlatformPoint point;
  for (auto _ : state) {
    point.time += 1.0;
    point.x += 0.5;
    benchmark::DoNotOptimize(PIData::addDataPoint(id, point));
  }
  const double points = static_cast<double>(host.scenario().find(id)->data(RefHost::SERIES_POINTS).count());
  state.counters["bytes_per_point"] = static_cast<double>(host.scenario().dataBytes()) / points;
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_AddPlatformPoint)->Arg(0)->Arg(1);

// The same with the request trace written (to memory).
void BM_AddPlatformPointTraced(benchmark::State& state) {
  RefHost::ReferenceHost host(quiet(false));
  host.install();
  std::stringstream trace;
  host.setTraceStream(&trace);
  const uint64_t id = startScenario();
  PIData::PIPlatformPoint point;
  for (auto _ : state) {
    point.time += 1.0;
    benchmark::DoNotOptimize(PIData::addDataPoint(id, point));
    if (trace.tellp() > (64 << 20)) trace.str("");
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_AddPlatformPointTraced);

// Writing the dump of a scenario of state.range(0) points.
void BM_WriteDump(benchmark::State& state) {
  RefHost::ReferenceHost host(quiet(false));
  host.install();
  const uint64_t id = startScenario();
  PIData::PIPlatformPoint point;
  for (int64_t i = 0; i < state.range(0); ++i) {
    point.time += 1.0;
    PIData::addDataPoint(id, point);
  }
  for (auto _ : state) {
    std::ostringstream out;
    host.writeDump(out);
    benchmark::DoNotOptimize(out.tellp());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_WriteDump)->Arg(100000);

}  // namespace

BENCHMARK_MAIN();
