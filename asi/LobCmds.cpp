#include "asi/LobCmds.h"

#include "core/Convert.h"
#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

void LobId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  uint64_t hostId = 0;
  if (!parseId_(tokens[1], hostId, "Expecting positive number for Host ID")) return;
  if (provider_->getPlatformEntity(hostId) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Missing host platform");
    return;
  }
  if (!parseId_(tokens[2], id_, "Expecting positive number for the LOB ID")) return;
  LobEntity* lob = provider_->createLobEntity(hostId);
  if (provider_->addEntity(id_, lob) != 0) {
    delete lob;
    setMessage(PICommon::PI_NOTIFY_ERROR, "LOB ID already used");
  }
}

void LobDesc::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  LobEntity* lob = getLob_(tokens[1], id_);
  if (lob != nullptr) lob->setName(tokens[2]);
}

// The once-only check comes first, as for the beam type: a rejected word
// still uses up the LOB's one LOBType line.
void LobType::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  LobEntity* lob = getLob_(tokens[1], id_);
  if (lob == nullptr) return;
  if (provider_->checkAndSetDoneOnce(id_, this, "")) return;
  const std::string word = orvCore::upperCase(tokens[2]);
  if (word == "ABSOLUTE") {
    lob->setType(PIData::PI_LOB_ABSOLUTE);
  } else if (word == "RELATIVE") {
    lob->setType(PIData::PI_LOB_RELATIVE);
  } else {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid LOB type");
  }
}

LobEntity* LobTimedCommand::parseIdAndTime_(const std::vector<std::string>& tokens, size_t tokenCount) {
  if (validateNumberOfTokens_(tokenCount, tokens.size()) != 0) return nullptr;
  if (parseTime_(tokens[2], true, time_) != 0) return nullptr;
  return getLob_(tokens[1], id_);
}

void LobData::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 6) == nullptr) return;
  const bool degrees = provider_->isDegrees();
  if (radianConvert_(degrees, ANGLEFIX_0_2PI, tokens[3], point_.azimuth) != 0 ||
      radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[4], point_.elevation) != 0 ||
      !orvCore::isValidNumber(tokens[5], point_.range, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid coordinates");
  }
}

void LOBDrawStyle::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 8) == nullptr) return;
  style_.color1 = parseColor_(tokens[3]);
  style_.color2 = parseColor_(tokens[4]);
  style_.stipple1 = UTILS::stringConvertHexToUInt(tokens[5]);
  style_.stipple2 = UTILS::stringConvertHexToUInt(tokens[6]);
  if (!orvCore::isValidNumber(tokens[7], style_.width, true))
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid pixel width");
}

}  // namespace AsiInterface
