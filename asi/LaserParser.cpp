#include "asi/LaserParser.h"

namespace AsiInterface {

LaserEntity* LaserParser::getLaser_(const std::string& idText, uint64_t& id) {
  if (!parseId_(idText, id, "Expecting positive number for the Laser ID")) return nullptr;
  LaserEntity* entity = provider_->getLaserEntity(id);
  if (entity == nullptr) setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find corresponding Laser command");
  return entity;
}

}  // namespace AsiInterface
