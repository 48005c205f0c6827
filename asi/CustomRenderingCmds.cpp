#include "asi/CustomRenderingCmds.h"

#include "asi/CustomRenderingEntity.h"

namespace AsiInterface {

void CustomRendering::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(5, tokens.size()) != 0) return;
  uint64_t hostId = 0;
  if (!parseId_(tokens[1], hostId, "Expecting positive number for Host ID")) return;
  // Host 0 is no host at all.
  if (hostId != 0 && provider_->getPlatformEntity(hostId) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR,
               "Invalid custom rendering host.  Custom rendering must have a platform host or no host.");
    return;
  }
  if (!parseId_(tokens[2], id_, "Expecting positive number for the Custom Rendering ID")) return;
  renderer_ = tokens[4];
  CustomRenderingEntity* object = provider_->createCustomRenderingEntity(hostId, tokens[3]);
  if (provider_->addEntity(id_, object) != 0) {
    delete object;
    setMessage(PICommon::PI_NOTIFY_ERROR, "Custom Rendering ID already used");
  }
}

void CustomRenderingColorCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (!parseId_(tokens[1], id_, "Expecting positive number for the CustomRenderingID")) return;
  if (provider_->getCustomRenderingEntity(id_) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find corresponding Custom Rendering entity");
    return;
  }
  if (parseTime_(tokens[2], true, time_) != 0) return;
  color_ = parseColor_(tokens[3]);
}

}  // namespace AsiInterface
