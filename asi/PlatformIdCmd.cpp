#include "asi/PlatformIdCmd.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

void PlatformId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(2, tokens.size()) != 0) return;
  unsigned long id = 0;
  if (!orvCore::isValidNumber(tokens[1], id, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting 1 positive number for the Platform ID command");
    return;
  }
  id_ = id;
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  PlatformEntity* platform = provider_->createPlatformEntity(frame);
  if (provider_->addEntity(id_, platform) != 0) {
    delete platform;
    setMessage(PICommon::PI_NOTIFY_ERROR, "Platform ID already used");
  }
}

}  // namespace AsiInterface
