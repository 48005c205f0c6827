#pragma once
// Shared by the platform command tests: the platform family's keyword table
// over a provider with a complete frame, a way to run lines of ASI text
// through it as the engine does, and readers of what the reference host holds.

#include <nlohmann/json.hpp>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "AsiTestSupport.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/HostEntities.h"
#include "core/StringUtils.h"
#include "pipeline/AsiLine.h"

namespace PlatformCmdTest {

// One platform point as the host stores it.
struct HostPoint {
  double time, x, y, z, yaw, pitch, roll, vx, vy, vz;
  nlohmann::json frame;
};

class PlatformFixture : public AsiTest::AsiFixture {
 protected:
  // A provider of `version` whose frame is LLA at (0.5, -1.2) rad, and the
  // platform commands on it. Without `completeFrame` no coordinate system is
  // given, so the scenario cannot flush.
  void start(int version = 24, bool completeFrame = true, PICommon::PIApplicationHost_t host = PICommon::PI_HOST_ORVIDE) {
    if (completeFrame && host == PICommon::PI_HOST_ORVIDE) {
      makeProvider(version);
    } else {
      provider_ = std::make_shared<AsiReader::ScenarioProvider>(version, host);
      auto* scenario = new AsiInterface::ScenarioEntity();
      scenario->setUniqueId(0);
      provider_->addEntity(0, scenario);
      if (completeFrame) {
        PIData::PICoordReferenceFrame frame;
        provider_->referenceFrame(frame);
        frame.latitude = 0.5;
        frame.longitude = -1.2;
        provider_->setReferenceFrame(frame);
        provider_->setCoordSystem(PIData::PI_COORD_LLA);
      }
    }
    AsiReader::CommandList commands;
    AsiReader::addPlatformCommands(provider_, version, commands);
    for (FileReaderPlugin::CommandParser* command : commands)
      table_[orvCore::lowerCase(command->name())].reset(command);
  }

  // Runs one line of ASI text, numbered from 1 up.
  void line(const std::string& text) {
    std::vector<std::string> tokens;
    FileReaderPlugin::tokenizeAsiLine(text, tokens);
    ASSERT_FALSE(tokens.empty()) << text;
    auto found = table_.find(orvCore::lowerCase(tokens[0]));
    ASSERT_NE(found, table_.end()) << "no command for " << tokens[0];
    run(*found->second, ++lineNumber_, tokens);
  }
  void lines(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) line(text);
  }

  // "PlatformID <id>" and "PlatformName <id> <name>".
  void declare(uint64_t id, const std::string& name) {
    line("PlatformID " + std::to_string(id));
    line("PlatformName " + std::to_string(id) + " " + name);
  }

  std::vector<std::string> texts() const { return messages_.texts(); }

  AsiInterface::PlatformEntity* platform(uint64_t asiId) const { return provider_->getPlatformEntity(asiId); }
  PIData::PICoordReferenceFrame frameOf(uint64_t asiId) const {
    PIData::PICoordReferenceFrame frame;
    platform(asiId)->referenceFrame(frame);
    return frame;
  }

  // The host's object of a platform of the file, or null before creation.
  const RefHost::HostObject* hostObject(uint64_t asiId) const {
    const AsiInterface::PlatformEntity* entity = platform(asiId);
    if (entity == nullptr || !entity->doesExist()) return nullptr;
    return host_->scenario().find(entity->uniqueId());
  }
  std::vector<HostPoint> points(uint64_t asiId) const {
    std::vector<HostPoint> out;
    const RefHost::HostObject* object = hostObject(asiId);
    if (object == nullptr) return out;
    const RefHost::Series& series = object->data(RefHost::SERIES_POINTS);
    for (size_t i = 0; i < series.count(); ++i) {
      const double* r = series.record(i);
      const std::string& frame = host_->scenario().frames().at(static_cast<uint32_t>(r[10]));
      out.push_back({r[0], r[1], r[2], r[3], r[4], r[5], r[6], r[7], r[8], r[9], nlohmann::json::parse(frame)});
    }
    return out;
  }
  // The last point; fails the test when there is none.
  HostPoint lastPoint(uint64_t asiId) const {
    std::vector<HostPoint> all = points(asiId);
    EXPECT_FALSE(all.empty());
    return all.empty() ? HostPoint{} : all.back();
  }
  // Category data of an object as (time, name, value).
  std::vector<std::tuple<double, std::string, std::string>> categories(uint64_t asiId) const {
    std::vector<std::tuple<double, std::string, std::string>> out;
    const RefHost::HostObject* object = hostObject(asiId);
    if (object == nullptr) return out;
    const RefHost::Series& series = object->data(RefHost::SERIES_CATEGORY);
    const RefHost::StringPool& strings = host_->scenario().strings();
    for (size_t i = 0; i < series.count(); ++i) {
      const double* r = series.record(i);
      out.emplace_back(r[0], strings.at(static_cast<uint32_t>(r[1])), strings.at(static_cast<uint32_t>(r[2])));
    }
    return out;
  }
  size_t hostPlatformCount() const { return host_->scenario().list(RefHost::KIND_PLATFORM, std::nullopt).size(); }

  std::map<std::string, std::unique_ptr<FileReaderPlugin::CommandParser>> table_;
  unsigned long lineNumber_ = 0;
};

}  // namespace PlatformCmdTest
