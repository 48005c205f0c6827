#pragma once
// The line-of-bearing commands, stage 1. "LOBID" declares a LOB group on a
// platform; "LOBDesc" and "LOBType" fill it; the first "LOBData" creates it in
// the host, and draw styles wait for that.

#include <cstdint>
#include <string>
#include <vector>

#include "asi/LobParser.h"

namespace AsiInterface {

// "LOBID <host platform id> <LOB id>".
class LobId : public LobParser {
 public:
  explicit LobId(std::shared_ptr<ScenarioProvider> provider) : LobParser("LOBID", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  uint64_t id() const { return id_; }

 protected:
  uint64_t id_ = 0;
};

// "LOBDesc <id> <name>".
class LobDesc : public LobParser {
 public:
  explicit LobDesc(std::shared_ptr<ScenarioProvider> provider) : LobParser("LOBDesc", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "LOBType <id> absolute|relative", once per LOB.
class LobType : public LobParser {
 public:
  explicit LobType(std::shared_ptr<ScenarioProvider> provider) : LobParser("LOBType", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// A time-tagged LOB command: the count, the time and the LOB are read in
// that order.
class LobTimedCommand : public LobParser {
 public:
  using LobParser::LobParser;

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void transmit() override {}

 protected:
  // The LOB, or null after reporting.
  LobEntity* parseIdAndTime_(const std::vector<std::string>& tokens, size_t tokenCount);

  uint64_t id_ = 0;
  double time_ = 0.0;
};

// "LOBData <id> <time> <azimuth> <elevation> <range>", angles as DegreeAngles
// says, range in metres.
class LobData : public LobTimedCommand {
 public:
  explicit LobData(std::shared_ptr<ScenarioProvider> provider) : LobTimedCommand("LOBData", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  PIData::PILobPoint point_;
};

// "LOBDrawStyle <id> <time> <colour> <colour> <stipple> <stipple> <width>":
// stipples are hexadecimal bit patterns, the width whole pixels.
class LOBDrawStyle : public LobTimedCommand {
 public:
  explicit LOBDrawStyle(std::shared_ptr<ScenarioProvider> provider)
      : LobTimedCommand("LOBDrawStyle", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  PIData::PILobDrawStyle style_;
};

}  // namespace AsiInterface
