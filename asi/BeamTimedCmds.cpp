#include "asi/BeamTimedCmds.h"

#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

void BeamColorCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  color_ = parseColor_(tokens[3]);
}

void BeamOnOffCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  double flag = 0.0;
  if (!orvCore::isValidNumber(tokens[3], flag, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid flag for BeamOnOffCmd command");
    return;
  }
  on_ = flag != 0.0;
}

void BeamTargetIdCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  unsigned long target = 0;
  if (!orvCore::isValidNumber(tokens[3], target, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid Target ID");
    return;
  }
  targetId_ = target;
}

void BeamTargetCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (getBeam_(tokens[1], id_) == nullptr) return;
  if (orvCore::caseCompare(tokens[3], "NULL") == 0) {
    targetId_ = 0;
  } else if (provider_->getPlatformAsiId(tokens[3], targetId_) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid target");
  }
}

}  // namespace AsiInterface
