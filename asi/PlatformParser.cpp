#include "asi/PlatformParser.h"

namespace AsiInterface {

PlatformEntity* PlatformParser::getPlatform_(const std::string& idText, uint64_t& id) {
  if (!parseId_(idText, id, "Expecting positive number for the Platform ID")) return nullptr;
  PlatformEntity* entity = provider_->getPlatformEntity(id);
  if (entity == nullptr) setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find corresponding Platform ID");
  return entity;
}

}  // namespace AsiInterface
