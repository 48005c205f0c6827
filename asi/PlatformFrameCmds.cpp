#include "asi/PlatformFrameCmds.h"

#include "core/Angle.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

namespace {

const char* const INVALID_COORDINATES = "Invalid coordinates";

}  // namespace

void PlatformFrameCommand::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(tokenCount_, tokens.size()) != 0) return;
  PlatformEntity* platform = getPlatform_(tokens[1], id_);
  if (platform == nullptr) return;
  PIData::PICoordReferenceFrame frame;
  platform->referenceFrame(frame);
  if (change_(tokens, frame) == 0) platform->setReferenceFrame(frame);
}

int PlatformCoordSystem::change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) {
  return setCoordinateSystem_(tokens[2], frame);
}

int PlatformReferenceLla::change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) {
  return setReferenceLla_(tokens[2], tokens[3], tokens[4], frame);
}

int PlatformTangentPlaneOffset::change_(const std::vector<std::string>& tokens,
                                        PIData::PICoordReferenceFrame& frame) {
  double x = 0.0;
  double y = 0.0;
  double angle = 0.0;
  if (!orvCore::isValidNumber(tokens[2], x, true) || !orvCore::isValidNumber(tokens[3], y, true) ||
      orvCore::getAngleFromDegreeString(tokens[4], true, angle) != 0) {
    setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_COORDINATES);
    return 1;
  }
  frame.tangentPlaneX = x;
  frame.tangentPlaneY = y;
  frame.tangentPlaneAngle = angle;
  return 0;
}

int PlatformReferenceTimeEci::change_(const std::vector<std::string>& tokens,
                                      PIData::PICoordReferenceFrame& frame) {
  double seconds = 0.0;
  if (!orvCore::isValidNumber(tokens[2], seconds, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting only 1 double argument");
    return 1;
  }
  if (seconds < 0.0 || seconds > 86400.0) {
    // The frame still changes: an out-of-range time becomes the start of the day.
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid Platform ECI reference time value, valid range is 0 to 86400");
    seconds = 0.0;
  }
  frame.eciReferenceTime = seconds;
  return 0;
}

int PlatformMagneticVariance::change_(const std::vector<std::string>& tokens,
                                      PIData::PICoordReferenceFrame& frame) {
  return setMagneticVariance_(tokens[2], frame);
}

int PlatformVerticalDatum::change_(const std::vector<std::string>& tokens, PIData::PICoordReferenceFrame& frame) {
  return setVerticalDatum_(tokens[2], frame);
}

}  // namespace AsiInterface
