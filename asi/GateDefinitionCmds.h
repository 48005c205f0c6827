#pragma once
// Gate commands that declare a gate and fill it before its first data line:
// the ID, the name and the type. They act in stage 1 on the entity.

#include <string>
#include <vector>

#include "asi/GateParser.h"

namespace AsiInterface {

// "GateID <host beam id> <gate id>".
class GateId : public GateParser {
 public:
  explicit GateId(std::shared_ptr<ScenarioProvider> provider) : GateParser("GateID", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t hostId_ = 0;
  uint64_t id_ = 0;
};

// "GateDesc <id> <name>".
class GateDesc : public GateParser {
 public:
  explicit GateDesc(std::shared_ptr<ScenarioProvider> provider) : GateParser("GateDesc", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

// "GateType <id> <COVERAGE|RANGE|BODY|TARGET>", once per gate, compared
// exactly: any other word is type 0, silently. GateData and TargetGateData
// set the type themselves, so it matters for gates fed by GateDataRAE.
class GateType : public GateParser {
 public:
  explicit GateType(std::shared_ptr<ScenarioProvider> provider) : GateParser("GateType", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
};

}  // namespace AsiInterface
