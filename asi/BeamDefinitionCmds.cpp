#include "asi/BeamDefinitionCmds.h"

#include <cmath>

#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

namespace {

const double DEGREES_TO_RADIANS = 0.017453292519943295;

struct BeamTypeWord {
  const char* word;
  int32_t type;
};

const BeamTypeWord BEAM_TYPES[] = {
    {"ABSOLUTE", PIData::PI_BEAM_ABSOLUTE},
    {"BODY", PIData::PI_BEAM_BODY},
    {"TARGET", PIData::PI_BEAM_TARGET},
    {"UNKNOWN", PIData::PI_BEAM_UNKNOWN},
};

}  // namespace

void BeamId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  if (!parseId_(tokens[1], hostId_, "Expecting positive number for Host ID")) return;
  // A beam hangs on a platform only: not on the scenario, not on a beam.
  if (provider_->getPlatformEntity(hostId_) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Missing host platform");
    return;
  }
  if (!parseId_(tokens[2], id_, "Expecting positive number for the BeamID")) return;
  BeamEntity* beam = provider_->createBeamEntity(hostId_);
  if (provider_->addEntity(id_, beam) != 0) {
    delete beam;
    setMessage(PICommon::PI_NOTIFY_ERROR, "Beam ID already used");
  }
}

void BeamDesc::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam != nullptr) beam->setName(tokens[2]);
}

void BeamWidth::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  double degrees = 0.0;
  if (!orvCore::isValidNumber(tokens[2], degrees, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, texts_.invalid);
    return;
  }
  // A beam without width cannot be drawn: the usable width is stored, and
  // the warning tells the user so.
  if (std::fabs(degrees) < 1e-6) {
    setMessage(PICommon::PI_NOTIFY_WARN, texts_.replaced);
    degrees = texts_.replacementDegrees;
  }
  PIData::PIBeamHeader header;
  beam->header(header);
  (horizontal_ ? header.horizontalWidth : header.verticalWidth) = degrees * DEGREES_TO_RADIANS;
  beam->setHeader(header);
}

void BeamHeaderOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  double degrees = 0.0;
  if (!orvCore::isValidNumber(tokens[2], degrees, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, invalidText_);
    return;
  }
  PIData::PIBeamHeader header;
  beam->header(header);
  (azimuth_ ? header.azimuthOffset : header.elevationOffset) = degrees * DEGREES_TO_RADIANS;
  beam->setHeader(header);
}

void BeamMissileOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(2, tokens.size()) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  PIData::PIBeamHeader header;
  beam->header(header);
  header.missileOffset = true;
  beam->setHeader(header);
}

void BeamType::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  if (provider_->checkAndSetDoneOnce(id_, this, "")) return;
  const std::string word = orvCore::upperCase(tokens[2]);
  for (const BeamTypeWord& type : BEAM_TYPES) {
    if (word == type.word) {
      PIData::PIBeamHeader header;
      beam->header(header);
      header.beamType = type.type;
      beam->setHeader(header);
      return;
    }
  }
  setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid beam type");
}

void AREPSPattern::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(3, tokens.size()) != 0) return;
  BeamEntity* beam = getBeam_(tokens[1], id_);
  if (beam == nullptr) return;
  for (size_t i = 2; i < tokens.size(); ++i) beam->addArepsFilename(tokens[i]);
}

}  // namespace AsiInterface
