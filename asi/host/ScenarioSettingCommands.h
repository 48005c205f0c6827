#pragma once
// The host-bound scenario settings. Year, classification, description and
// wind belong to the scenario that the host holds: an appended file does not
// overrule them. The frame commands send nothing themselves; the frame
// reaches the host at the scenario's flush.

#include "asi/ScenarioSettingCommands.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

using Version = ScnStageOneOnly<AsiInterface::Version>;
using CoordSystem = ScnStageOneOnly<AsiInterface::CoordSystem>;
using RefLat = ScnStageOneOnly<AsiInterface::RefLat>;
using RefLon = ScnStageOneOnly<AsiInterface::RefLon>;
using RefAlt = ScnStageOneOnly<AsiInterface::RefAlt>;
using ReferenceLla = ScnStageOneOnly<AsiInterface::ReferenceLla>;
using TangentPlaneOffset = ScnStageOneOnly<AsiInterface::TangentPlaneOffset>;
using ReferenceTimeEci = ScnStageOneOnly<AsiInterface::ReferenceTimeEci>;
using MagneticVariance = ScnStageOneOnly<AsiInterface::MagneticVariance>;
using VerticalDatum = ScnStageOneOnly<AsiInterface::VerticalDatum>;
using DegreeAngles = ScnStageOneOnly<AsiInterface::DegreeAngles>;

class ReferenceYear : public AsiInterface::ReferenceYear {
 public:
  using AsiInterface::ReferenceYear::ReferenceYear;
  FileReaderPlugin::CommandParser* clone() const override { return new ReferenceYear(*this); }
  // Sets the host's year unless appending; then takes the host's year as the
  // one that times are expressed in.
  void transmit() override;
};

class Classification : public AsiInterface::Classification {
 public:
  using AsiInterface::Classification::Classification;
  FileReaderPlugin::CommandParser* clone() const override { return new Classification(*this); }
  void transmit() override;
};

// Keyword "Classification" in files of version 4 and before. Against the host
// it reads the text form, as Classification does: "Classification 4" sets the
// text "4". The numeric table of the stage-1 class is not used here.
class ClassificationDeprecated : public AsiInterface::ClassificationDeprecated {
 public:
  using AsiInterface::ClassificationDeprecated::ClassificationDeprecated;
  FileReaderPlugin::CommandParser* clone() const override { return new ClassificationDeprecated(*this); }
  void executeStage1(const std::vector<std::string>& tokens) override {
    AsiInterface::Classification::executeStage1(tokens);
  }
  void transmit() override;
};

class ScenarioInfo : public AsiInterface::ScenarioInfo {
 public:
  using AsiInterface::ScenarioInfo::ScenarioInfo;
  FileReaderPlugin::CommandParser* clone() const override { return new ScenarioInfo(*this); }
  void transmit() override;
};

class WindSpeed : public AsiInterface::WindSpeed {
 public:
  using AsiInterface::WindSpeed::WindSpeed;
  FileReaderPlugin::CommandParser* clone() const override { return new WindSpeed(*this); }
  void transmit() override;
};

class WindAngle : public AsiInterface::WindAngle {
 public:
  using AsiInterface::WindAngle::WindAngle;
  FileReaderPlugin::CommandParser* clone() const override { return new WindAngle(*this); }
  void transmit() override;
};

}  // namespace AsiReader
