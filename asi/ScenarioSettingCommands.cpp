#include "asi/ScenarioSettingCommands.h"

#include "core/Angle.h"
#include "core/TimeStamp.h"
#include "core/ValidNumber.h"

namespace AsiInterface {

namespace {

const char* const INVALID_COORDINATES = "Invalid coordinates";
const double DEGREES_TO_RADIANS = 0.017453292519943295;
const int FIRST_REFERENCE_YEAR = 1970;
const double SECONDS_PER_DAY = 86400.0;

bool parseDegrees(const std::string& text, double& radians) {
  return orvCore::getAngleFromDegreeString(text, true, radians) == 0;
}

}  // namespace

void ReferenceYear::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  unsigned int year = 0;
  if (!orvCore::isValidNumber(tokens[1], year, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting positive number for year");
    return;
  }
  if (year < FIRST_REFERENCE_YEAR) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Year must be 1970 or larger");
    return;
  }
  // The calendar ends here; a larger number would not even fit the host's
  // int year.
  if (year > static_cast<unsigned int>(orvCore::TimeStamp::MAX_YEAR)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Year must be " + std::to_string(orvCore::TimeStamp::MAX_YEAR) + " or smaller");
    return;
  }
  provider_->setReferenceYear(static_cast<int>(year));
}

void CoordSystem::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  if (setCoordinateSystem_(tokens[1], frame) != 0) return;
  provider_->setCoordSystem(frame.coordSystem);
}

void RefLat::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  double latitude = 0.0;
  if (!parseDegrees(tokens[1], latitude)) return setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_COORDINATES);
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  frame.latitude = latitude;
  provider_->setReferenceFrame(frame);
}

void RefLon::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  double longitude = 0.0;
  if (!parseDegrees(tokens[1], longitude)) return setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_COORDINATES);
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  frame.longitude = longitude;
  provider_->setReferenceFrame(frame);
}

void RefAlt::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  double altitude = 0.0;
  if (!orvCore::isValidNumber(tokens[1], altitude, true))
    return setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_COORDINATES);
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  frame.altitude = altitude;
  provider_->setReferenceFrame(frame);
}

void ReferenceLla::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(4, tokens.size()) != 0) return;
  double latitude = 0.0;
  double longitude = 0.0;
  double altitude = 0.0;
  if (!parseDegrees(tokens[1], latitude) || !parseDegrees(tokens[2], longitude) ||
      !orvCore::isValidNumber(tokens[3], altitude, true)) {
    return setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid coordinate");
  }
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  frame.latitude = latitude;
  frame.longitude = longitude;
  frame.altitude = altitude;
  provider_->setReferenceFrame(frame);
}

void TangentPlaneOffset::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(4, tokens.size()) != 0) return;
  double x = 0.0;
  double y = 0.0;
  double angle = 0.0;
  if (!orvCore::isValidNumber(tokens[1], x, true) || !orvCore::isValidNumber(tokens[2], y, true) ||
      !parseDegrees(tokens[3], angle)) {
    return setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_COORDINATES);
  }
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  frame.tangentPlaneX = x;
  frame.tangentPlaneY = y;
  frame.tangentPlaneAngle = angle;
  provider_->setReferenceFrame(frame);
}

void ReferenceTimeEci::executeStage1(const std::vector<std::string>& tokens) {
  double seconds = 0.0;
  if (tokens.size() != 2 || !orvCore::isValidNumber(tokens[1], seconds, true)) {
    return setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting only 1 double argument");
  }
  if (seconds < 0.0 || seconds > SECONDS_PER_DAY) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid ECI reference time value, valid range is 0 to 86400");
    seconds = 0.0;
  }
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  frame.eciReferenceTime = seconds;
  provider_->setReferenceFrame(frame);
}

void MagneticVariance::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  if (setMagneticVariance_(tokens[1], frame) == 0) provider_->setReferenceFrame(frame);
}

void VerticalDatum::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  PIData::PICoordReferenceFrame frame;
  provider_->referenceFrame(frame);
  if (setVerticalDatum_(tokens[1], frame) == 0) provider_->setReferenceFrame(frame);
}

void DegreeAngles::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(2, tokens.size()) != 0) return;
  if (tokens[1] == "0") return provider_->setIsDegrees(false);
  if (tokens[1] == "1") return provider_->setIsDegrees(true);
  setMessage(PICommon::PI_NOTIFY_ERROR, "Unexpected value");
}

void Classification::executeStage1(const std::vector<std::string>& tokens) {
  if (tokens.size() != 2 && tokens.size() != 3) {
    return setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting 1 string argument and 1 optional color value");
  }
  text_ = tokens[1];
  color_ = tokens.size() == 3 ? parseColor_(tokens[2]) : 0xFFFFFFFF;
}

void ClassificationDeprecated::executeStage1(const std::vector<std::string>& tokens) {
  if (tokens.size() != 2) return setMessage(PICommon::PI_NOTIFY_WARN, "Expecting 1 positive number");
  unsigned int level = 0;
  if (!orvCore::isValidNumber(tokens[1], level, true)) return setMessage(PICommon::PI_NOTIFY_WARN, "Invalid value");
  // Banner text and colour (0xRRGGBBAA) by level; anything else is unclassified.
  switch (level) {
    case 2: text_ = "FOR OFFICIAL USE ONLY"; color_ = 0xFFFFFF80; break;
    case 3: text_ = "CONFIDENTIAL"; color_ = 0x00FFFF80; break;
    case 4: text_ = "SECRET"; color_ = 0xFF000080; break;
    case 5: text_ = "SECRET - WN"; color_ = 0xFF000080; break;
    case 6: text_ = "SECRET - NF"; color_ = 0xFF000080; break;
    case 7: text_ = "SECRET - NC"; color_ = 0xFF000080; break;
    case 8: text_ = "SECRET - OC"; color_ = 0xFF000080; break;
    case 9: text_ = "SECRET - PR"; color_ = 0xFF000080; break;
    case 10: text_ = "TOP SECRET"; color_ = 0xFF800080; break;
    default: text_ = "UNCLASSIFIED"; color_ = 0x00FF0080; break;
  }
}

void ScenarioInfo::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(2, tokens.size()) != 0) return;
  text_ = tokens[1];
}

void WindSpeed::executeStage1(const std::vector<std::string>& tokens) {
  if (tokens.size() < 2 || !orvCore::isValidNumber(tokens[1], value_, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid value");
  }
}

void WindAngle::executeStage1(const std::vector<std::string>& tokens) {
  double degrees = 0.0;
  if (tokens.size() < 2 || !orvCore::isValidNumber(tokens[1], degrees, true)) {
    return setMessage(PICommon::PI_NOTIFY_WARN, "Invalid value");
  }
  value_ = degrees * DEGREES_TO_RADIANS;
}

}  // namespace AsiInterface
