#include "asi/PlatformDataCmd.h"

#include <cmath>
#include <cstdlib>

#include "core/Angle.h"
#include "core/ValidNumber.h"
#include "core/VectorMath.h"

namespace AsiInterface {

namespace {

const double HALF_PI = 1.5707963267948966;
const double PI = 3.141592653589793;
const double TWO_PI = 6.283185307179586;

// Columns, counted with the keyword as token 0.
const size_t LAT_COLUMN = 3;
const size_t ALT_COLUMN = 5;
const size_t YAW_COLUMN = 6;
const size_t EULER_SPEED_COLUMN = 9;
const size_t QUATERNION_SPEED_COLUMN = 10;
// Four quaternion columns need tokens 6 to 9.
const size_t QUATERNION_MIN_TOKENS = 10;

const char* const INVALID_POSITION = "Invalid platform position";

// Numbers of a data line may carry a plus sign.
bool number(const std::string& text, double& value) { return orvCore::isValidNumber(text, value, true); }

}  // namespace

void PlatformData::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(3, tokens.size()) != 0) return;
  // Plain seconds, the form of nearly every data line, need no calendar
  // parse; anything else (dates, clocks, bad times) takes the full path.
  double seconds = 0.0;
  if (number(tokens[2], seconds) && (seconds >= 0.0 || seconds == -1.0)) {
    point_.time = seconds + 0.0;
  } else if (parseTime_(tokens[2], true, point_.time) != 0) {
    return;
  }
  const PlatformEntity* platform = getPlatform_(tokens[1], id_);
  if (platform == nullptr) return;
  platform->referenceFrame(point_.frame);

  if (!parsePosition_(tokens)) return;
  size_t speedColumn = EULER_SPEED_COLUMN;
  if (!parseOrientation_(tokens, *platform, speedColumn)) return;
  parseVelocity_(tokens, speedColumn);
}

bool PlatformData::parsePosition_(const std::vector<std::string>& tokens) {
  if (!readHorizontal_(tokens)) {
    setMessage(PICommon::PI_NOTIFY_WARN, INVALID_POSITION);
    return false;
  }
  // Only positions given in degrees are range-checked, and before the
  // altitude is read: an out-of-range latitude is reported as such even when
  // the altitude is bad or missing too.
  if (point_.frame.coordSystem == PIData::PI_COORD_LLA && provider_->isDegrees()) {
    if (std::fabs(point_.x) > HALF_PI) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Latitude position out of range");
      return false;
    }
    // Two pi, not pi: longitudes up to a full turn either way pass.
    if (std::fabs(point_.y) > TWO_PI) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Longitude position out of range");
      return false;
    }
  }
  // A line too short for an altitude reads as a bad position.
  if (tokens.size() <= ALT_COLUMN || !number(tokens[ALT_COLUMN], point_.z)) {
    setMessage(PICommon::PI_NOTIFY_WARN, INVALID_POSITION);
    return false;
  }
  return true;
}

bool PlatformData::readHorizontal_(const std::vector<std::string>& tokens) {
  // A line too short for a latitude and a longitude reads as a bad position.
  if (tokens.size() <= LAT_COLUMN + 1) return false;
  const std::string& latText = tokens[LAT_COLUMN];
  const std::string& lonText = tokens[LAT_COLUMN + 1];
  if (point_.frame.coordSystem == PIData::PI_COORD_LLA) {
    if (provider_->isDegrees()) {
      return orvCore::getAngleFromDegreeString(latText, true, point_.x) == 0 &&
             orvCore::getAngleFromDegreeString(lonText, true, point_.y) == 0;
    }
    if (provider_->version() == 2) {
      // Version-2 files mixed radians and degrees: values that fit as
      // radians are radians, others are degrees.
      point_.x = std::strtod(latText.c_str(), nullptr);
      point_.y = std::strtod(lonText.c_str(), nullptr);
      if (std::fabs(point_.x) <= TWO_PI && std::fabs(point_.y) <= PI) return true;
      return orvCore::getAngleFromDegreeString(latText, true, point_.x) == 0 &&
             orvCore::getAngleFromDegreeString(lonText, true, point_.y) == 0;
    }
  }
  return number(latText, point_.x) && number(lonText, point_.y);
}

bool PlatformData::parseOrientation_(const std::vector<std::string>& tokens, const PlatformEntity& platform,
                                     size_t& speedColumn) {
  const size_t n = tokens.size();
  point_.yaw = 0.0;
  point_.pitch = 0.0;
  point_.roll = 0.0;
  if (n >= QUATERNION_MIN_TOKENS && platform.usingQuaternion()) {
    speedColumn = QUATERNION_SPEED_COLUMN;
    double abcd[4];
    for (size_t i = 0; i < 4; ++i) {
      if (!number(tokens[YAW_COLUMN + i], abcd[i])) {
        setMessage(PICommon::PI_NOTIFY_WARN, "Invalid platform angles");
        return false;
      }
    }
    // The mode names which column holds the first component.
    const size_t first = static_cast<size_t>(platform.quaternion()) & 3u;
    double q[4];
    for (size_t i = 0; i < 4; ++i) q[i] = abcd[(first + i) & 3u];
    double unit[4];
    orvCore::dQNorm(q, unit, 1e-9);
    orvCore::Vec3 euler;
    orvCore::d3QtoEuler(unit, euler);
    point_.yaw = euler.yaw();
    point_.pitch = euler.pitch();
    point_.roll = euler.roll();
    return true;
  }

  speedColumn = EULER_SPEED_COLUMN;
  const bool degrees = provider_->isDegrees();
  if (n > YAW_COLUMN && radianConvert_(degrees, ANGLEFIX_0_2PI, tokens[YAW_COLUMN], point_.yaw) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid platform yaw/psi");
    return false;
  }
  if (n > YAW_COLUMN + 1 &&
      radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[YAW_COLUMN + 1], point_.pitch) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid platform pitch/theta");
    return false;
  }
  if (n > YAW_COLUMN + 2 &&
      radianConvert_(degrees, ANGLEFIX_PLUS_MINUS_PI, tokens[YAW_COLUMN + 2], point_.roll) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid platform roll/phi");
    return false;
  }
  return true;
}

bool PlatformData::parseVelocity_(const std::vector<std::string>& tokens, size_t speedColumn) {
  const size_t n = tokens.size();
  if (n <= speedColumn) {
    // No speed column: the point carries no velocity.
    point_.vx = 0.0;
    point_.vy = 0.0;
    point_.vz = 0.0;
    return true;
  }
  if (n == speedColumn + 1) {
    double speed = 0.0;
    if (!number(tokens[speedColumn], speed)) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Invalid platform speed");
      return false;
    }
    return velocityFromSpeed_(speed);
  }
  if (n == speedColumn + 3) {
    if (!number(tokens[speedColumn], point_.vx) || !number(tokens[speedColumn + 1], point_.vy) ||
        !number(tokens[speedColumn + 2], point_.vz)) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Invalid platform velocity");
      return false;
    }
    return true;
  }
  setMessage(PICommon::PI_NOTIFY_WARN, "Platform velocity not set, verify # of columns match input");
  return false;
}

bool PlatformData::velocityFromSpeed_(double speed) {
  // Most tracks are level: a zero pitch needs no sine and cosine (its sine
  // is the zero itself, sign included).
  const double pitch = point_.pitch;
  const bool level = pitch == 0.0;
  const double horizontal = level ? speed : speed * std::cos(pitch);
  const double vertical = speed * (level ? pitch : std::sin(pitch));
  const double c = std::cos(point_.yaw);
  const double s = std::sin(point_.yaw);
  switch (point_.frame.coordSystem) {
    case PIData::PI_COORD_NED:
      point_.vx = horizontal * c;
      point_.vy = horizontal * s;
      point_.vz = -vertical;
      return true;
    case PIData::PI_COORD_NWU:
      point_.vx = horizontal * c;
      point_.vy = -horizontal * s;
      point_.vz = vertical;
      return true;
    // East-north-up axes: yaw is measured from north, the second axis.
    case PIData::PI_COORD_ENU:
    case PIData::PI_COORD_LLA:
    case PIData::PI_COORD_XEAST:
    case PIData::PI_COORD_GTP:
      point_.vx = horizontal * s;
      point_.vy = horizontal * c;
      point_.vz = vertical;
      return true;
    case PIData::PI_COORD_ECEF:
    case PIData::PI_COORD_ECI:
      point_.vx = horizontal * c;
      point_.vy = horizontal * s;
      point_.vz = vertical;
      return true;
    default:
      setMessage(PICommon::PI_NOTIFY_WARN, "Platform velocity generation, unsupported coordinate system:");
      return false;
  }
}

}  // namespace AsiInterface
