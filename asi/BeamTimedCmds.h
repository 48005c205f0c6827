#pragma once
// Time-tagged beam commands besides the data lines: colour, on/off and the
// beam's target. Each waits for the beam's creation.

#include <string>
#include <vector>

#include "asi/BeamParser.h"

namespace AsiInterface {

// "BeamColorCmd <id> <time> <colour>".
class BeamColorCmd : public BeamParser {
 public:
  explicit BeamColorCmd(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamColorCmd", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  uint32_t color_ = 0;  // 0xRRGGBBAA
};

// "BeamOnOffCmd <id> <time> <flag>": any nonzero number switches it on.
class BeamOnOffCmd : public BeamParser {
 public:
  explicit BeamOnOffCmd(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamOnOffCmd", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  bool on_ = false;
};

// "BeamTargetIDCmd <id> <time> <target platform id>", and the same command
// under the keyword "BeamTargetCmd". A target of 0 clears the target.
class BeamTargetIdCmd : public BeamParser {
 public:
  explicit BeamTargetIdCmd(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamTargetIDCmd", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  uint64_t targetId_ = 0;
};

// "BeamTargetCmd <id> <time> <target>" with the target named by its
// platform's name ("NULL" clears it). The reader serves the keyword with
// BeamTargetIdCmd instead, which takes a number; this form stands for
// callers that name targets.
class BeamTargetCmd : public BeamParser {
 public:
  explicit BeamTargetCmd(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamTargetCmd", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  uint64_t targetId() const { return targetId_; }

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  uint64_t targetId_ = 0;
};

}  // namespace AsiInterface
