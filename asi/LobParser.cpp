#include "asi/LobParser.h"

namespace AsiInterface {

LobEntity* LobParser::getLob_(const std::string& idText, uint64_t& id) {
  if (!parseId_(idText, id, "Expecting positive number for the LOB ID")) return nullptr;
  LobEntity* entity = provider_->getLobEntity(id);
  if (entity == nullptr) setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find corresponding LOB ID command");
  return entity;
}

}  // namespace AsiInterface
