#pragma once
// The projector commands, stage 1. "Projector" declares a projector on a
// platform or a beam; projectors are numbered apart from the other entities
// and live in the provider's projector table. The host creates a projector at
// the transmit of its ID line, without a data point; the raster file, field
// of view and on/off commands address it by its projector number.

#include <cstdint>
#include <string>
#include <vector>

#include "asi/ProviderParser.h"

namespace AsiInterface {

class ProjectorParser : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

 protected:
  // The projector named by `idText`; a bad number and an unknown projector
  // are both the error "Invalid Projector ID".
  Projector* getProjector_(const std::string& idText, uint64_t& id);
};

// "Projector <host platform or beam id> <projector id> <name>".
class ProjectorId : public ProjectorParser {
 public:
  explicit ProjectorId(std::shared_ptr<ScenarioProvider> provider)
      : ProjectorParser("Projector", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "ProjectorRasterFile <id> <file>": the image the projector throws.
class ProjectorRasterFile : public ProjectorParser {
 public:
  explicit ProjectorRasterFile(std::shared_ptr<ScenarioProvider> provider)
      : ProjectorParser("ProjectorRasterFile", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  std::string file_;
};

// "ProjectorInterpolateFOV <id> <flag>": any nonzero number is true.
class ProjectorInterpolateFov : public ProjectorParser {
 public:
  explicit ProjectorInterpolateFov(std::shared_ptr<ScenarioProvider> provider)
      : ProjectorParser("ProjectorInterpolateFOV", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  bool flag_ = false;
};

// A time-tagged projector command: "<keyword> <id> <time> <value>"; the
// count, the projector and the time are read in that order.
class ProjectorTimedCommand : public ProjectorParser {
 public:
  using ProjectorParser::ProjectorParser;

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void transmit() override {}

 protected:
  // False after reporting.
  bool parseIdAndTime_(const std::vector<std::string>& tokens);

  uint64_t id_ = 0;
  double time_ = 0.0;
};

// "ProjectorFOV <id> <time> <angle>": the field of view, an angle read as
// DegreeAngles says; a full circle stays a full circle.
class ProjectorFOV : public ProjectorTimedCommand {
 public:
  explicit ProjectorFOV(std::shared_ptr<ScenarioProvider> provider)
      : ProjectorTimedCommand("ProjectorFOV", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  double angle_ = 0.0;
};

// "ProjectorOn <id> <time> <flag>": any nonzero number switches it on.
class ProjectorOn : public ProjectorTimedCommand {
 public:
  explicit ProjectorOn(std::shared_ptr<ScenarioProvider> provider)
      : ProjectorTimedCommand("ProjectorOn", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  bool on_ = false;
};

}  // namespace AsiInterface
