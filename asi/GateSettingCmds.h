#pragma once
// Gate commands besides the data lines: interpolation and the three angle
// offsets, which are not sent to a gate that the host held before this file,
// and the time-tagged colour and on/off. All wait for the gate's creation.

#include <string>
#include <vector>

#include "asi/GateParser.h"

namespace AsiInterface {

// "GateInterpolate <id> <flag>", and the same command under the keyword
// "GateInterpolatePos": any nonzero number is true.
class GateInterpolate : public GateParser {
 public:
  explicit GateInterpolate(std::shared_ptr<ScenarioProvider> provider)
      : GateParser("GateInterpolate", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  bool flag_ = false;
};

// "GateAzimOffset", "GateElevOffset", "GateRollOffset" <id> <degrees>.
class GateAngleOffset : public GateParser {
 public:
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  using GateParser::GateParser;

  uint64_t id_ = 0;
  double angle_ = 0.0;  // radians
};

class GateAzimOffset : public GateAngleOffset {
 public:
  explicit GateAzimOffset(std::shared_ptr<ScenarioProvider> provider)
      : GateAngleOffset("GateAzimOffset", std::move(provider)) {}
};

class GateElevOffset : public GateAngleOffset {
 public:
  explicit GateElevOffset(std::shared_ptr<ScenarioProvider> provider)
      : GateAngleOffset("GateElevOffset", std::move(provider)) {}
};

class GateRollOffset : public GateAngleOffset {
 public:
  explicit GateRollOffset(std::shared_ptr<ScenarioProvider> provider)
      : GateAngleOffset("GateRollOffset", std::move(provider)) {}
};

// "GateColorCmd <id> <time> <colour>".
class GateColorCmd : public GateParser {
 public:
  explicit GateColorCmd(std::shared_ptr<ScenarioProvider> provider)
      : GateParser("GateColorCmd", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  uint32_t color_ = 0;  // 0xRRGGBBAA
};

// "GateOnOffCmd <id> <time> <flag>": any nonzero number switches it on.
class GateOnOffCmd : public GateParser {
 public:
  explicit GateOnOffCmd(std::shared_ptr<ScenarioProvider> provider)
      : GateParser("GateOnOffCmd", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  bool on_ = false;
};

}  // namespace AsiInterface
