#include "asi/BeamParser.h"

namespace AsiInterface {

BeamEntity* BeamParser::getBeam_(const std::string& idText, uint64_t& id) {
  if (!parseId_(idText, id, "Expecting positive number for the BeamID")) return nullptr;
  BeamEntity* entity = provider_->getBeamEntity(id);
  if (entity == nullptr) setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find corresponding BeamID command");
  return entity;
}

}  // namespace AsiInterface
