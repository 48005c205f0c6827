#pragma once
// The data lines of a gate. The first that can run creates the gate in the
// host, once its beam exists. A gate spans a range interval (minimum to
// maximum) with a centroid inside it; a centroid outside the interval, or
// none, becomes the middle.

#include <string>
#include <vector>

#include "asi/GateParser.h"

namespace AsiInterface {

// Shared reading of the gate columns.
class GateDataBase : public GateParser {
 public:
  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void transmit() override {}

  const PIData::PIGatePoint& point() const { return point_; }

 protected:
  // The warnings of the columns after azimuth and elevation.
  struct ColumnTexts {
    const char* minimum;
    const char* maximum;
    const char* centroid;
  };

  using GateParser::GateParser;

  // Azimuth and elevation from tokens[first] and tokens[first + 1]; false
  // after the warning of the column that failed.
  bool parseDirection_(const std::vector<std::string>& tokens, size_t first, const char* azimuthText,
                       const char* elevationText);
  // Width, height, minimum, maximum and the optional centroid, from
  // tokens[first] on; false after reporting.
  bool parseExtent_(const std::vector<std::string>& tokens, size_t first, const ColumnTexts& texts);

  uint64_t id_ = 0;
  PIData::PIGatePoint point_;

 private:
  // Zero or less is -1; else an angle up to and including a full circle.
  bool parseSpan_(const std::string& text, double& value, const char* invalidText);
};

// "GateData <id> <time> <colour> <az> <el> <width> <height> <min> <max>
// [centroid]", and the same under "BodyGateData". Every such line makes the
// gate a range gate.
class GateData : public GateDataBase {
 public:
  explicit GateData(std::shared_ptr<ScenarioProvider> provider) : GateDataBase("GateData", std::move(provider)) {}

  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  GateData(const std::string& name, std::shared_ptr<ScenarioProvider> provider)
      : GateDataBase(name, std::move(provider)) {}

  uint32_t color_ = 0;  // 0xRRGGBBAA
};

// "TargetGateData <id> <time> <colour> <width> <height> <min> <max>
// [centroid]": a target gate, without direction.
class TargetGateData : public GateData {
 public:
  explicit TargetGateData(std::shared_ptr<ScenarioProvider> provider)
      : GateData("TargetGateData", std::move(provider)) {}

  void executeStage1(const std::vector<std::string>& tokens) override;
};

// "GateDataRAE <id> <time> <az> <el> <width> <height> <min> <max>
// [centroid]": no colour, and the type stays as GateType set it. Waits for
// the host beam to be created.
class GateDataRAE : public GateDataBase {
 public:
  explicit GateDataRAE(std::shared_ptr<ScenarioProvider> provider)
      : GateDataBase("GateDataRAE", std::move(provider)) {}

  void executeStage1(const std::vector<std::string>& tokens) override;
};

}  // namespace AsiInterface
