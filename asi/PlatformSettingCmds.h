#pragma once
// Platform settings that the host keeps apart from the points: interpolation
// and the position and orientation offsets. They wait for the platform's
// creation and are not sent to a platform that the host held before this file.

#include <string>
#include <vector>

#include "asi/PlatformParser.h"

namespace AsiInterface {

// "PlatformInterpolate <id> <flag>", and under the keyword
// "PlatformInterpolateOri" the same command: any nonzero number is true.
class PlatformInterpolate : public PlatformParser {
 public:
  explicit PlatformInterpolate(std::shared_ptr<ScenarioProvider> provider)
      : PlatformParser("PlatformInterpolate", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  bool flag_ = false;
};

// "PlatformOffset <id> <x> <y> <z>", metres.
class PlatformOffset : public PlatformParser {
 public:
  explicit PlatformOffset(std::shared_ptr<ScenarioProvider> provider)
      : PlatformOffset("PlatformOffset", std::move(provider), 1.0) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  PlatformOffset(const std::string& name, std::shared_ptr<ScenarioProvider> provider, double scale)
      : PlatformParser(name, std::move(provider)), scale_(scale) {}

  uint64_t id_ = 0;
  PIData::PIPoint point_;

 private:
  double scale_;
};

// "PlatformOriOffset <id> <yaw> <pitch> <roll>", always degrees.
class PlatformOriOffset : public PlatformOffset {
 public:
  explicit PlatformOriOffset(std::shared_ptr<ScenarioProvider> provider)
      : PlatformOffset("PlatformOriOffset", std::move(provider), 0.017453292519943295) {}
};

}  // namespace AsiInterface
