#pragma once
// Platform commands that fill the entity before its first data point: the
// name and icon that the creation sends, and the quaternion mode that the
// data lines are read with. None of them calls the host.

#include <string>
#include <vector>

#include "asi/PlatformParser.h"

namespace AsiInterface {

// "PlatformName <id> <words...>". The last one before the platform is created
// wins; later ones change nothing in the host.
class PlatformName : public PlatformParser {
 public:
  explicit PlatformName(std::shared_ptr<ScenarioProvider> provider)
      : PlatformParser("PlatformName", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  // The words joined by blanks, trimmed, without double quotes; "None" when
  // nothing is left.
  static std::string buildName(const std::vector<std::string>& tokens, size_t first);

 protected:
  uint64_t id_ = 0;
};

// "PlatformIcon <id> <icon>".
class PlatformIcon : public PlatformParser {
 public:
  explicit PlatformIcon(std::shared_ptr<ScenarioProvider> provider)
      : PlatformParser("PlatformIcon", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "PlatformUsesQuaternion <id> <order 0..3>": data lines of the platform then
// carry four quaternion columns instead of Euler angles.
class PlatformUsesQuaternion : public PlatformParser {
 public:
  explicit PlatformUsesQuaternion(std::shared_ptr<ScenarioProvider> provider)
      : PlatformParser("PlatformUsesQuaternion", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

}  // namespace AsiInterface
