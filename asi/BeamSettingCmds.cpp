#include "asi/BeamSettingCmds.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

void RollOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  double degrees = 0.0;
  if (!orvCore::isValidNumber(tokens[2], degrees, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid angle");
    return;
  }
  roll_ = degrees * 0.017453292519943295;
}

void BodyOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(5, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  if (!orvCore::isValidNumber(tokens[2], point_.x, true) || !orvCore::isValidNumber(tokens[3], point_.y, true) ||
      !orvCore::isValidNumber(tokens[4], point_.z, true))
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid point");
}

void BeamInterpolate::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  unsigned long value = 0;
  if (!orvCore::isValidNumber(tokens[2], value, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting positive number");
    return;
  }
  flag_ = value != 0;
}

}  // namespace AsiInterface
