#pragma once
// The data lines of a beam. "BeamData" carries a colour and, by its column
// count, the beam's type and pointing; "BeamDataRAE" carries range, azimuth
// and elevation alone. The first data line that can run creates the beam in
// the host.

#include <string>
#include <vector>

#include "asi/BeamParser.h"

namespace AsiInterface {

// "BeamData <id> <time> <colour> <columns...>", 5 to 8 tokens:
//   <id> <time> <colour> target              colour only, target beam
//   <id> <time> <colour> <length> body       body beam of that length
//   <id> <time> <colour> <az> <el> <length> [body]
// Other forms of 5 or 6 tokens carry the colour and an unset pointing.
class BeamData : public BeamParser {
 public:
  explicit BeamData(std::shared_ptr<ScenarioProvider> provider) : BeamParser("BeamData", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  const PIData::PIBeamPoint& point() const { return point_; }
  bool colorOnly() const { return colorOnly_; }

 protected:
  uint64_t id_ = 0;
  PIData::PIBeamPoint point_;
  uint32_t color_ = 0;  // 0xRRGGBBAA
  bool colorOnly_ = false;
};

// "BeamDataRAE <id> <time> <azimuth> <elevation> <range>". Unlike BeamData
// it waits for the host platform to be created.
class BeamDataRAE : public BeamParser {
 public:
  explicit BeamDataRAE(std::shared_ptr<ScenarioProvider> provider)
      : BeamParser("BeamDataRAE", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  const PIData::PIBeamPoint& point() const { return point_; }

 protected:
  uint64_t id_ = 0;
  PIData::PIBeamPoint point_;
};

}  // namespace AsiInterface
