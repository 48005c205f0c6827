#include "asi/GateParser.h"

namespace AsiInterface {

GateEntity* GateParser::getGate_(const std::string& idText, uint64_t& id) {
  if (!parseId_(idText, id, "Expecting positive number for the Gate ID")) return nullptr;
  GateEntity* entity = provider_->getGateEntity(id);
  if (entity == nullptr) setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find corresponding Gate ID command");
  return entity;
}

}  // namespace AsiInterface
