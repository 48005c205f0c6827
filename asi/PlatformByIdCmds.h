#pragma once
// Platform commands that may stand before the platform's ID line: they read
// the id without looking the platform up, and at transmit wait under that id
// until a platform of that id is created (or are reported at the end of the
// file when none ever is).

#include <string>
#include <vector>

#include "asi/ProviderParser.h"

namespace AsiInterface {

class PlatformByIdCommand : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void transmit() override {}
  uint64_t id() const { return id_; }

 protected:
  // Exactly `<keyword> <id> <argument>`; the id must be a number. False after
  // reporting.
  bool parseIdAndArgument_(const std::vector<std::string>& tokens);

  uint64_t id_ = 0;
};

// "PlatformRCS <id> <file>": the radar cross-section pattern file.
class PlatformRCS : public PlatformByIdCommand {
 public:
  explicit PlatformRCS(std::shared_ptr<ScenarioProvider> provider)
      : PlatformByIdCommand("PlatformRCS", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  std::string file_;
};

// "PlatformAttachedGOG <id> <file>": an overlay that moves with the platform.
class PlatformAttachedGOG : public PlatformByIdCommand {
 public:
  explicit PlatformAttachedGOG(std::shared_ptr<ScenarioProvider> provider)
      : PlatformByIdCommand("PlatformAttachedGOG", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  std::string file_;
};

// "PlatformType <id> <word or index>": static category data "Platform Type".
// An unknown type is sent as "Unknown" with a note, not a warning.
class PlatformType : public PlatformByIdCommand {
 public:
  explicit PlatformType(std::shared_ptr<ScenarioProvider> provider)
      : PlatformByIdCommand("PlatformType", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  PIData::PICategoryDataPoint point_;
};

// "PlatformFHN <id> <F, H or N>": static category data "Affinity".
class PlatformFHN : public PlatformByIdCommand {
 public:
  explicit PlatformFHN(std::shared_ptr<ScenarioProvider> provider)
      : PlatformByIdCommand("PlatformFHN", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  PIData::PICategoryDataPoint point_;
};

}  // namespace AsiInterface
