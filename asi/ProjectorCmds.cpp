#include "asi/ProjectorCmds.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

namespace {

const char* const INVALID_PROJECTOR_ID = "Invalid Projector ID";
const char* const INVALID_STATE = "Invalid state";

// A flag as a number, nonzero for true; false when the text is no number.
bool parseState(const std::string& text, bool& state) {
  long value = 0;
  if (!orvCore::isValidNumber(text, value, true)) return false;
  state = value != 0;
  return true;
}

}  // namespace

Projector* ProjectorParser::getProjector_(const std::string& idText, uint64_t& id) {
  if (!parseId_(idText, id, INVALID_PROJECTOR_ID)) return nullptr;
  Projector* projector = provider_->getProjector(id);
  if (projector == nullptr) setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_PROJECTOR_ID);
  return projector;
}

void ProjectorId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  uint64_t hostId = 0;
  if (!parseId_(tokens[1], hostId, "Invalid Host ID")) return;
  if (provider_->getPlatformEntity(hostId) == nullptr && provider_->getBeamEntity(hostId) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid Host ID");
    return;
  }
  if (!parseId_(tokens[2], id_, INVALID_PROJECTOR_ID)) return;
  Projector* projector = provider_->createProjector(tokens[3], id_, hostId);
  if (provider_->addProjector(id_, projector) != 0) {
    delete projector;
    setMessage(PICommon::PI_NOTIFY_ERROR, "Projector ID already used");
  }
}

void ProjectorRasterFile::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getProjector_(tokens[1], id_) != nullptr) file_ = tokens[2];
}

void ProjectorInterpolateFov::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (getProjector_(tokens[1], id_) == nullptr) return;
  if (!parseState(tokens[2], flag_)) setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_STATE);
}

bool ProjectorTimedCommand::parseIdAndTime_(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return false;
  if (getProjector_(tokens[1], id_) == nullptr) return false;
  return parseTime_(tokens[2], true, time_) == 0;
}

void ProjectorFOV::executeStage1(const std::vector<std::string>& tokens) {
  if (!parseIdAndTime_(tokens)) return;
  // A field of view is a width: wrapped like one, so that 360 degrees stays
  // a full circle rather than becoming nothing.
  if (radianConvert_(provider_->isDegrees(), ANGLEFIX_0_2PI_INCLUSIVE, tokens[3], angle_) != 0)
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid angle");
}

void ProjectorOn::executeStage1(const std::vector<std::string>& tokens) {
  if (!parseIdAndTime_(tokens)) return;
  if (!parseState(tokens[3], on_)) setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_STATE);
}

}  // namespace AsiInterface
