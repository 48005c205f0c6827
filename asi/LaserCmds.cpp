#include "asi/LaserCmds.h"

#include <cmath>
#include <limits>

#include "core/ValidNumber.h"

namespace AsiInterface {

void LaserId::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(4, tokens.size()) != 0) return;
  uint64_t hostId = 0;
  if (!parseId_(tokens[1], hostId, "Expecting positive number for Host ID")) return;
  if (provider_->getPlatformEntity(hostId) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Missing host platform");
    return;
  }
  if (!parseId_(tokens[2], id_, "Expecting positive number for the Laser ID")) return;
  LaserEntity* laser = provider_->createLaserEntity(hostId, tokens[3]);
  if (provider_->addEntity(id_, laser) != 0) {
    delete laser;
    setMessage(PICommon::PI_NOTIFY_ERROR, "Laser ID already used");
  }
}

void LaserFrameCommand::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(tokenCount_, tokens.size()) != 0) return;
  LaserEntity* laser = getLaser_(tokens[1], id_);
  if (laser == nullptr) return;
  PIData::PICoordReferenceFrame frame;
  laser->referenceFrame(frame);
  if (change_(tokens, frame) == 0) laser->setReferenceFrame(frame);
}

int LaserCoordSystem::change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) {
  return setCoordinateSystem_(tokens[2], frame);
}

int LaserRefLla::change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) {
  return setReferenceLla_(tokens[2], tokens[3], tokens[4], frame);
}

void LaserAzElBody::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  LaserEntity* laser = getLaser_(tokens[1], id_);
  if (laser != nullptr) laser->setBodyFlag(tokens[2] != "0");
}

LaserEntity* LaserTimedCommand::parseIdAndTime_(const std::vector<std::string>& tokens, size_t tokenCount) {
  if (validateNumberOfTokens_(tokenCount, tokens.size()) != 0) return nullptr;
  if (parseTime_(tokens[2], true, time_) != 0) return nullptr;
  return getLaser_(tokens[1], id_);
}

void LaserColor::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 4) != nullptr) color_ = parseColor_(tokens[3]);
}

void LaserOnOffCmd::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 4) == nullptr) return;
  long flag = 0;
  if (!orvCore::isValidNumber(tokens[3], flag, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid flag");
    return;
  }
  on_ = flag != 0;
}

void LaserOri::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 6) == nullptr) return;
  const bool degrees = provider_->isDegrees();
  PIData::PIPoint& ori = point_.orientation;
  if (radianConvert_(degrees, ANGLEFIX_0_2PI, tokens[3], ori.x) != 0 ||
      radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[4], ori.y) != 0 ||
      radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[5], ori.z) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid angles");
  }
}

void LaserXYZOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 6) == nullptr) return;
  if (!orvCore::isValidNumber(tokens[3], offset_.x, true) || !orvCore::isValidNumber(tokens[4], offset_.y, true) ||
      !orvCore::isValidNumber(tokens[5], offset_.z, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid coordinate");
  }
}

void LaserMaxRange::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 4) == nullptr) return;
  if (!orvCore::isValidNumber(tokens[3], range_, true)) setMessage(PICommon::PI_NOTIFY_WARN, "Invalid range");
}

void LaserWidth::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndTime_(tokens, 4) == nullptr) return;
  double width = 0.0;
  // A width beyond what a whole pixel count can hold is as unusable as no
  // number at all.
  if (!orvCore::isValidNumber(tokens[3], width, true) || std::fabs(width) >= std::numeric_limits<int>::max()) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid width");
    return;
  }
  width_ = static_cast<int>(width);
}

}  // namespace AsiInterface
