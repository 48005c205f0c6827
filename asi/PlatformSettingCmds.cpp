#include "asi/PlatformSettingCmds.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

void PlatformInterpolate::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getPlatform_(tokens[1], id_) == nullptr) return;
  unsigned long value = 0;
  if (!orvCore::isValidNumber(tokens[2], value, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting only 1 integer argument");
    return;
  }
  flag_ = value != 0;
}

void PlatformOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(5, tokens.size()) != 0) return;
  // The numbers come first; the platform is looked up only for a good point.
  if (!orvCore::isValidNumber(tokens[2], point_.x, true) || !orvCore::isValidNumber(tokens[3], point_.y, true) ||
      !orvCore::isValidNumber(tokens[4], point_.z, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid point");
    return;
  }
  point_.x *= scale_;
  point_.y *= scale_;
  point_.z *= scale_;
  getPlatform_(tokens[1], id_);
}

}  // namespace AsiInterface
