#pragma once
// Shared by the laser, LOB, projector and custom rendering tests: the
// platform fixture with those families in its keyword table, and readers of
// what the reference host holds for an entity or a projector of the file.

#include <string>
#include <vector>

#include "test_platform_cmd_support.h"

namespace DrawableCmdTest {

using Records = std::vector<std::vector<double>>;

class DrawableFixture : public PlatformCmdTest::PlatformFixture {
 protected:
  // The platform and beam commands and the four families over a provider
  // of `version` with a complete frame.
  void startAll(int version = 24, PICommon::PIApplicationHost_t host = PICommon::PI_HOST_ORVIDE) {
    start(version, true, host);
    AsiReader::CommandList commands;
    AsiReader::addBeamCommands(provider_, version, commands);
    AsiReader::addLaserCommands(provider_, version, commands);
    AsiReader::addLobCommands(provider_, version, commands);
    AsiReader::addProjectorCommands(provider_, version, commands);
    AsiReader::addCustomRenderingCommands(provider_, version, commands);
    for (FileReaderPlugin::CommandParser* command : commands)
      table_[orvCore::lowerCase(command->name())].reset(command);
  }

  // A platform created in the host: "PlatformID", "PlatformName" and one
  // time-tagged point.
  void platformWithData(uint64_t id, const std::string& name) {
    declare(id, name);
    line("PlatformData " + std::to_string(id) + " 0 0.1 0.2 0");
  }

  // The host's object of an entity (or, with `projector`, a projector) of
  // the file; null while the host does not hold it.
  const RefHost::HostObject* held(uint64_t asiId, bool projector = false) const {
    const AsiInterface::Entity* entity = projector
                                             ? static_cast<const AsiInterface::Entity*>(provider_->getProjector(asiId))
                                             : provider_->getEntity(asiId);
    if (entity == nullptr || !entity->doesExist()) return nullptr;
    return host_->scenario().find(entity->uniqueId());
  }

  // The records of one series of a held object; empty when not held.
  Records records(uint64_t asiId, RefHost::SeriesId series, bool projector = false) const {
    Records out;
    const RefHost::HostObject* object = held(asiId, projector);
    if (object == nullptr) return out;
    const RefHost::Series& data = object->data(series);
    const unsigned width = RefHost::seriesStride(series, object->kind);
    for (size_t i = 0; i < data.count(); ++i) out.emplace_back(data.record(i), data.record(i) + width);
    return out;
  }

  size_t hostCount(RefHost::ObjectKind kind) const { return host_->scenario().list(kind, std::nullopt).size(); }
};

// The same with the plot application as the host.
class PlotDrawableFixture : public DrawableFixture {
 protected:
  RefHost::HostConfig hostConfig() const override {
    RefHost::HostConfig config = DrawableFixture::hostConfig();
    config.application = RefHost::Application::Plot;
    return config;
  }
};

// The same with a host that refuses to create the hung objects.
class RefusingDrawableFixture : public DrawableFixture {
 protected:
  RefHost::HostConfig hostConfig() const override {
    RefHost::HostConfig config = DrawableFixture::hostConfig();
    config.refusals = {"createLaser", "createLob", "createProjector", "createCustomRendering"};
    return config;
  }
};

}  // namespace DrawableCmdTest
