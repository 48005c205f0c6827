#pragma once
// Shared by the beam and gate command tests: the platform, beam and gate
// families in one keyword table, a platform to hang beams on, and readers of
// the beams and gates that the reference host holds.

#include <array>
#include <set>
#include <string>
#include <vector>

#include "test_platform_cmd_support.h"

namespace BeamCmdTest {

using BeamPoint = std::array<double, 4>;  // time, azimuth, elevation, range
using GatePoint = std::array<double, 8>;  // time, az, el, width, height, min, max, centroid
using TimedValue = std::array<double, 2>;  // time, value

class BeamFixture : public PlatformCmdTest::PlatformFixture {
 protected:
  void start(int version = 24, PICommon::PIApplicationHost_t host = PICommon::PI_HOST_ORVIDE) {
    PlatformFixture::start(version, true, host);
    AsiReader::CommandList commands;
    AsiReader::addBeamCommands(provider_, version, commands);
    AsiReader::addGateCommands(provider_, version, commands);
    for (FileReaderPlugin::CommandParser* command : commands)
      table_[orvCore::lowerCase(command->name())].reset(command);
  }

  // Replaces the reference host, before start(): one that refuses the
  // operations named, playing `application`.
  void restartHost(const std::set<std::string>& refusals,
                   RefHost::Application application = RefHost::Application::Display) {
    host_->uninstall();
    RefHost::HostConfig config = hostConfig();
    config.refusals = refusals;
    config.application = application;
    host_ = std::make_unique<RefHost::ReferenceHost>(config);
    host_->install();
    PIData::initializeScenario("test", 0, PIData::PI_PROTOCOL_NONE, false);
  }

  // Platform `id` named "ship<id>", created by its first point.
  void platformWithData(uint64_t id = 1) {
    declare(id, "ship" + std::to_string(id));
    line("PlatformData " + std::to_string(id) + " 0 0.1 0.2 0");
  }
  // Beam `id` on platform `host` with both widths and a type.
  void beam(uint64_t id, uint64_t host = 1, const std::string& type = "absolute") {
    const std::string b = std::to_string(id);
    lines({"BeamID " + std::to_string(host) + " " + b, "HorzBW " + b + " 10", "VertBW " + b + " 5",
           "BeamType " + b + " " + type});
  }
  // The same, created in the host by a first data line.
  void liveBeam(uint64_t id, uint64_t host = 1) {
    beam(id, host);
    line("BeamData " + std::to_string(id) + " 0 red 0 0 1000");
  }
  // Gate `id` on beam `host`, typed.
  void gate(uint64_t id, uint64_t host, const std::string& type = "RANGE") {
    const std::string g = std::to_string(id);
    lines({"GateID " + std::to_string(host) + " " + g, "GateType " + g + " " + type});
  }

  // The host's object of any entity of the file, or null before creation.
  const RefHost::HostObject* object(uint64_t asiId) const {
    const AsiInterface::Entity* entity = provider_->getEntity(asiId);
    if (entity == nullptr || !entity->doesExist()) return nullptr;
    return host_->scenario().find(entity->uniqueId());
  }

  template <size_t N>
  std::vector<std::array<double, N>> records(uint64_t asiId, RefHost::SeriesId id) const {
    std::vector<std::array<double, N>> out;
    const RefHost::HostObject* o = object(asiId);
    if (o == nullptr) return out;
    const RefHost::Series& series = o->data(id);
    for (size_t i = 0; i < series.count(); ++i) {
      std::array<double, N> r;
      for (size_t j = 0; j < N; ++j) r[j] = series.record(i)[j];
      out.push_back(r);
    }
    return out;
  }
  std::vector<BeamPoint> beamPoints(uint64_t asiId) const { return records<4>(asiId, RefHost::SERIES_POINTS); }
  std::vector<GatePoint> gatePoints(uint64_t asiId) const { return records<8>(asiId, RefHost::SERIES_POINTS); }
  std::vector<TimedValue> colors(uint64_t asiId) const { return records<2>(asiId, RefHost::SERIES_COLOR); }
  std::vector<TimedValue> statuses(uint64_t asiId) const { return records<2>(asiId, RefHost::SERIES_STATUS); }
  std::vector<TimedValue> targets(uint64_t asiId) const { return records<2>(asiId, RefHost::SERIES_TARGET); }

  size_t hostCount(RefHost::ObjectKind kind) const { return host_->scenario().list(kind, std::nullopt).size(); }
  uint64_t uniqueId(uint64_t asiId) const { return provider_->getEntity(asiId)->uniqueId(); }
};

}  // namespace BeamCmdTest
