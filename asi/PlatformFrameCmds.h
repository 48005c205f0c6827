#pragma once
// The frame a platform's data lines are given in. Each command changes a copy
// of the platform's own frame (taken from the scenario at its ID line) and
// stores it back only when the arguments parse. The frame is read again at
// each data line, so a change between two data lines affects the next one.
// None of them calls the host: the frame travels with every point.

#include <string>
#include <vector>

#include "asi/PlatformParser.h"

namespace AsiInterface {

class PlatformFrameCommand : public PlatformParser {
 public:
  PlatformFrameCommand(const std::string& name, std::shared_ptr<ScenarioProvider> provider, size_t tokenCount)
      : PlatformParser(name, std::move(provider)), tokenCount_(tokenCount) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) final;
  void transmit() override {}

 protected:
  // Applies the arguments to `frame`; 0 to keep the result, else 1 after
  // reporting.
  virtual int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) = 0;

  uint64_t id_ = 0;

 private:
  size_t tokenCount_;
};

// "PlatformCoordSystem <id> <word or number>".
class PlatformCoordSystem : public PlatformFrameCommand {
 public:
  explicit PlatformCoordSystem(std::shared_ptr<ScenarioProvider> provider)
      : PlatformFrameCommand("PlatformCoordSystem", std::move(provider), 3) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "PlatformRefLLA <id> <lat> <lon> <alt>", latitude and longitude in degrees.
class PlatformReferenceLla : public PlatformFrameCommand {
 public:
  explicit PlatformReferenceLla(std::shared_ptr<ScenarioProvider> provider)
      : PlatformFrameCommand("PlatformRefLLA", std::move(provider), 5) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "PlatformTangentPlaneOffset <id> <x> <y> <angle in degrees>".
class PlatformTangentPlaneOffset : public PlatformFrameCommand {
 public:
  explicit PlatformTangentPlaneOffset(std::shared_ptr<ScenarioProvider> provider)
      : PlatformFrameCommand("PlatformTangentPlaneOffset", std::move(provider), 5) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "PlatformReferenceTimeECI <id> <seconds of the day>".
class PlatformReferenceTimeEci : public PlatformFrameCommand {
 public:
  explicit PlatformReferenceTimeEci(std::shared_ptr<ScenarioProvider> provider)
      : PlatformFrameCommand("PlatformReferenceTimeECI", std::move(provider), 3) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "PlatformMagneticVariance <id> <TRUE, WMM or degrees>".
class PlatformMagneticVariance : public PlatformFrameCommand {
 public:
  explicit PlatformMagneticVariance(std::shared_ptr<ScenarioProvider> provider)
      : PlatformFrameCommand("PlatformMagneticVariance", std::move(provider), 3) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

// "PlatformVerticalDatum <id> <WGS84, MSL or metres>".
class PlatformVerticalDatum : public PlatformFrameCommand {
 public:
  explicit PlatformVerticalDatum(std::shared_ptr<ScenarioProvider> provider)
      : PlatformFrameCommand("PlatformVerticalDatum", std::move(provider), 3) {}

 protected:
  int change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) override;
};

}  // namespace AsiInterface
