#pragma once
// Beam settings that the host keeps apart from the header: the roll and body
// offsets and the interpolation flag. They wait for the beam's creation and
// are not sent to a beam that the host held before this file.

#include <string>
#include <vector>

#include "asi/BeamParser.h"

namespace AsiInterface {

// "RollOffset <id> <degrees>".
class RollOffset : public BeamParser {
 public:
  explicit RollOffset(std::shared_ptr<ScenarioProvider> provider) : BeamParser("RollOffset", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double roll_ = 0.0;  // radians
};

// "BodyOffset <id> <x> <y> <z>", metres from the host platform.
class BodyOffset : public BeamParser {
 public:
  explicit BodyOffset(std::shared_ptr<ScenarioProvider> provider) : BeamParser("BodyOffset", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  PIData::PIPoint point_;
};

// "BeamInterpolate <id> <flag>", and the same command under the keyword
// "BeamInterpolatePos": any nonzero number is true.
class BeamInterpolate : public BeamParser {
 public:
  explicit BeamInterpolate(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamInterpolate", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  bool flag_ = false;
};

}  // namespace AsiInterface
