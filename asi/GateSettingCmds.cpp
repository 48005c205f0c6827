#include "asi/GateSettingCmds.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

void GateInterpolate::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getGate_(tokens[1], id_) == nullptr) return;
  unsigned long value = 0;
  if (!orvCore::isValidNumber(tokens[2], value, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting only 1 argument");
    return;
  }
  flag_ = value != 0;
}

void GateAngleOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getGate_(tokens[1], id_) == nullptr) return;
  double degrees = 0.0;
  if (!orvCore::isValidNumber(tokens[2], degrees, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid angle");
    return;
  }
  angle_ = degrees * 0.017453292519943295;
}

void GateColorCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (getGate_(tokens[1], id_) == nullptr) return;
  color_ = parseColor_(tokens[3]);
}

void GateOnOffCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (getGate_(tokens[1], id_) == nullptr) return;
  double flag = 0.0;
  if (!orvCore::isValidNumber(tokens[3], flag, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid flag");
    return;
  }
  on_ = flag != 0.0;
}

}  // namespace AsiInterface
