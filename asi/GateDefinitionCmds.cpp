#include "asi/GateDefinitionCmds.h"

namespace AsiInterface {

void GateId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (!parseId_(tokens[1], hostId_, "Expecting positive number for Host ID")) return;
  if (provider_->getBeamEntity(hostId_) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Missing host beam");
    return;
  }
  if (!parseId_(tokens[2], id_, "Expecting positive number for the GateID")) return;
  GateEntity* gate = provider_->createGateEntity(hostId_);
  if (provider_->addEntity(id_, gate) != 0) {
    delete gate;
    setMessage(PICommon::PI_NOTIFY_ERROR, "Gate ID already used");
  }
}

void GateDesc::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  GateEntity* gate = getGate_(tokens[1], id_);
  if (gate != nullptr) gate->setName(tokens[2]);
}

void GateType::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  GateEntity* gate = getGate_(tokens[1], id_);
  if (gate == nullptr) return;
  if (provider_->checkAndSetDoneOnce(id_, this, "")) return;
  const std::string& word = tokens[2];
  if (word == "COVERAGE") {
    gate->setType(PIData::PI_GATE_COVERAGE);
  } else if (word == "RANGE") {
    gate->setType(PIData::PI_GATE_RANGE);
  } else if (word == "BODY") {
    gate->setType(PIData::PI_GATE_BODY);
  } else if (word == "TARGET") {
    gate->setType(PIData::PI_GATE_TARGET);
  } else {
    gate->setType(PIData::PI_GATE_UNKNOWN);
  }
}

}  // namespace AsiInterface
