// What the provider adds to a read: parking a clone per command that waits
// for its entity and releasing the queue at creation, re-expressing a time in
// the host's reference year, and the metadata resolver's matching, which
// scans the host's platforms once per created platform.

#include <benchmark/benchmark.h>

#include <memory>

#include "asi/BaseParser.h"
#include "asi/MetadataResolver.h"
#include "asi/ScenarioEntity.h"
#include "asi/host/ScenarioProvider.h"
#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"

namespace {

// A command whose transmit does no host work: the cost measured is the provider's.
class Idle : public AsiInterface::BaseParser {
 public:
  Idle() : BaseParser("Idle") {}
  FileReaderPlugin::CommandParser* clone() const override { return new Idle(*this); }
  void executeStage1(const std::vector<std::string>&) override {}
  void transmit() override { benchmark::DoNotOptimize(this); }
};

// range(0) commands parked under one id, then released in file order.
void BM_ParkAndRelease(benchmark::State& state) {
  AsiReader::ScenarioProvider provider(24, PICommon::PI_HOST_ORVIDE);
  const Idle prototype;
  for (auto _ : state) {
    for (int64_t i = 0; i < state.range(0); ++i) provider.addCommand(1, prototype.clone());
    benchmark::DoNotOptimize(provider.transmitCommands(1));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ParkAndRelease)->Arg(1000)->Arg(100000);

void BM_NormalizeTimeAcrossYears(benchmark::State& state) {
  AsiReader::ScenarioProvider provider(24, PICommon::PI_HOST_ORVIDE);
  provider.setReferenceYear(2005);
  provider.setScenarioReferenceYear(2003);
  double t = 0.0;
  for (auto _ : state) {
    t += 0.5;
    benchmark::DoNotOptimize(provider.normalizeTime(t));
  }
}
BENCHMARK(BM_NormalizeTimeAcrossYears);

// A host holding range(0) platforms; one look-up of a platform that is not
// there (the worst case, a full scan) per iteration.
void BM_MetadataPlatformMiss(benchmark::State& state) {
  RefHost::HostConfig config;
  config.progressBar = false;
  config.echoConsole = false;
  RefHost::ReferenceHost host(config);
  host.install();
  PIData::initializeScenario("bench", 0, PIData::PI_PROTOCOL_NONE, false);
  PIData::PIPlatformPoint point;
  for (int64_t i = 0; i < state.range(0); ++i) {
    PIData::PIPlatformHeader header;
    header.name = "platform " + std::to_string(i);
    header.originalId = static_cast<uint64_t>(i);
    PIData::createPlatform(header, point);
  }
  AsiInterface::MetadataResolver resolver;
  resolver.initialize();
  PIData::PIPlatformHeader wanted;
  wanted.name = "absent";
  for (auto _ : state) benchmark::DoNotOptimize(resolver.getPlatformId(1, wanted));
  host.uninstall();
}
BENCHMARK(BM_MetadataPlatformMiss)->Arg(100)->Arg(10000);

void BM_MetadataInitialize(benchmark::State& state) {
  RefHost::HostConfig config;
  config.progressBar = false;
  config.echoConsole = false;
  RefHost::ReferenceHost host(config);
  host.install();
  PIData::initializeScenario("bench", 0, PIData::PI_PROTOCOL_NONE, false);
  PIData::PIPlatformPoint point;
  for (int64_t i = 0; i < state.range(0); ++i) {
    PIData::PIPlatformHeader header;
    header.name = "platform " + std::to_string(i);
    PIData::createPlatform(header, point);
  }
  AsiInterface::MetadataResolver resolver;
  for (auto _ : state) resolver.initialize();
  state.SetItemsProcessed(state.iterations() * state.range(0));
  host.uninstall();
}
BENCHMARK(BM_MetadataInitialize)->Arg(1000);

}  // namespace

BENCHMARK_MAIN();
