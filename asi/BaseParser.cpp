#include "asi/BaseParser.h"

#include <cmath>
#include <cstdlib>

#include "asi/Color.h"
#include "core/Angle.h"
#include "core/StringUtils.h"
#include "core/TimeException.h"
#include "core/TimeParse.h"
#include "core/ValidNumber.h"
#include "pipeline/MessageManager.h"

namespace AsiInterface {

namespace {

const double TWO_PI = 2.0 * M_PI;
const double DEGREES_TO_RADIANS = 0.017453292519943295;

// Wraps into [0, 2 pi); a remainder within 1e-10 of a full turn is 0.
double wrapZeroTwoPi(double x) {
  if (x >= 0.0 && x < TWO_PI) return x;
  const double r = std::fmod(x, TWO_PI);
  if (std::fabs(r) < 1e-10) return 0.0;
  return r < 0.0 ? r + TWO_PI : r;
}

double wrapPlusMinusPi(double x) {
  if (std::fabs(x) <= M_PI) return x;
  if (x >= 0.0 && x < TWO_PI) return x - TWO_PI;
  double r = std::fmod(x, TWO_PI);
  if (std::fabs(r) < 1e-10) return 0.0;
  if (r < 0.0) r += TWO_PI;
  return r > M_PI ? r - TWO_PI : r;
}

struct CoordSystemWord {
  const char* word;
  int32_t value;
};

const CoordSystemWord COORD_SYSTEMS[] = {
    {"LLA", PIData::PI_COORD_LLA}, {"ECEF", PIData::PI_COORD_ECEF}, {"XEAST", PIData::PI_COORD_XEAST},
    {"GTP", PIData::PI_COORD_GTP}, {"NED", PIData::PI_COORD_NED},   {"NWU", PIData::PI_COORD_NWU},
    {"ENU", PIData::PI_COORD_ENU}, {"ECI", PIData::PI_COORD_ECI},
};

}  // namespace

void BaseParser::setMessage(PICommon::NotifySeverity severity, const std::string& text) {
  setMessage(severity, "Line " + std::to_string(lineNumber_) + " " + name() + ": " + text, lineNumber_);
}

void BaseParser::setMessage(PICommon::NotifySeverity severity, const std::string& text, unsigned long line) {
  if (severity == PICommon::PI_NOTIFY_FATAL || severity == PICommon::PI_NOTIFY_ERROR) {
    hasError_ = true;
  } else if (severity == PICommon::PI_NOTIFY_WARN) {
    hasWarning_ = true;
  }
  if (messageManager_ != nullptr) messageManager_->addMessage(severity, text, line);
}

// "1 argument", "2 arguments", and, as the language has always said it, "0 argument".
std::string BaseParser::countText_(size_t arguments) const {
  return std::to_string(arguments) + (arguments > 1 ? " arguments" : " argument");
}

int BaseParser::validateNumberOfTokens_(size_t expected, size_t count) {
  if (expected == count) return 0;
  setMessage(PICommon::PI_NOTIFY_WARN, "Expecting " + countText_(expected > 0 ? expected - 1 : 0));
  return 1;
}

int BaseParser::validateAtLeastTokens_(size_t minimum, size_t count) {
  if (count >= minimum) return 0;
  setMessage(PICommon::PI_NOTIFY_WARN, "Expecting at least " + countText_(minimum > 0 ? minimum - 1 : 0));
  return 1;
}

// Too few is a warning and too many an error, and "less than" names the
// largest legal count: both as the language has always reported them.
int BaseParser::validateRangeTokens_(size_t minimum, size_t maximum, size_t count) {
  if (count < minimum) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Expecting at least " + countText_(minimum > 0 ? minimum - 1 : 0));
    return 1;
  }
  if (count > maximum) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Expecting less than " + countText_(maximum > 0 ? maximum - 1 : 0));
    return 1;
  }
  return 0;
}

int BaseParser::parseTimeString_(const std::string& text, int referenceYear, unsigned long /*lineNumber*/,
                                 bool allowStatic, double& result) {
  double value = 0.0;
  try {
    value = UTILS::parseTimeString(text, referenceYear, 0.0);
  } catch (const orvCore::TimeException& e) {
    setMessage(PICommon::PI_NOTIFY_ERROR, e.what());
    return 1;
  }
  result = value;
  if (value >= 0.0) return 0;
  if (allowStatic && value == -1.0) return 0;  // the static marker
  setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid time");
  return 1;
}

int BaseParser::radianConvert_(bool isDegrees, int angleFix, const std::string& text, double& result) const {
  double x = 0.0;
  if (!orvCore::isValidNumber(text, x, true)) return 1;
  if (isDegrees) x *= DEGREES_TO_RADIANS;
  switch (angleFix) {
    case ANGLEFIX_0_2PI:
      result = wrapZeroTwoPi(x);
      break;
    case ANGLEFIX_0_2PI_INCLUSIVE:
      // A full circle stays a full circle.
      result = orvCore::areAnglesEqual(x, TWO_PI, 1e-6) ? TWO_PI : wrapZeroTwoPi(x);
      break;
    case ANGLEFIX_PLUS_MINUS_PI:
      result = wrapPlusMinusPi(x);
      break;
    default:
      result = x;
      break;
  }
  return 0;
}

int BaseParser::setCoordinateSystem_(const std::string& text, PIData::PICoordReferenceFrame& frame) {
  const std::string word = orvCore::upperCase(text);
  for (const CoordSystemWord& system : COORD_SYSTEMS) {
    if (word == system.word) {
      frame.coordSystem = system.value;
      return 0;
    }
  }
  unsigned int number = 0;
  if (orvCore::isValidNumber(text, number, true) && number < 10) {
    frame.coordSystem = static_cast<int32_t>(number);
    return 0;
  }
  setMessage(PICommon::PI_NOTIFY_ERROR, "Unrecognized argument for the CoordSystem");
  return 1;
}

int BaseParser::setVerticalDatum_(const std::string& text, PIData::PICoordReferenceFrame& frame) {
  const std::string word = orvCore::upperCase(text);
  if (word == "WGS84") {
    frame.verticalDatum = PIData::PI_VDATUM_WGS84;
  } else if (word == "MSL") {
    frame.verticalDatum = PIData::PI_VDATUM_MSL;
  } else if (orvCore::stringIsRealNumber(word, true, true)) {
    frame.verticalDatum = PIData::PI_VDATUM_USER;
    frame.verticalDatumOffset = std::strtod(word.c_str(), nullptr);
  } else {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Unknown argument");
    return 1;
  }
  return 0;
}

int BaseParser::setMagneticVariance_(const std::string& text, PIData::PICoordReferenceFrame& frame) {
  const std::string word = orvCore::upperCase(text);
  double offset = 0.0;
  if (word == "TRUE") {
    frame.magneticVariance = PIData::PI_MAGVAR_TRUE;
  } else if (word == "WMM") {
    frame.magneticVariance = PIData::PI_MAGVAR_WMM;
  } else if (orvCore::getAngleFromDegreeString(text, true, offset) == 0) {
    frame.magneticVariance = PIData::PI_MAGVAR_USER;
    frame.magneticVarianceOffset = offset;
  } else {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Unknown argument");
    return 1;
  }
  return 0;
}

int BaseParser::setReferenceLla_(const std::string& lat, const std::string& lon, const std::string& alt,
                                 PIData::PICoordReferenceFrame& frame) {
  double latitude = 0.0;
  double longitude = 0.0;
  double altitude = 0.0;
  if (orvCore::getAngleFromDegreeString(lat, true, latitude) != 0 ||
      orvCore::getAngleFromDegreeString(lon, true, longitude) != 0 || !orvCore::isValidNumber(alt, altitude, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid coordinates");
    return 1;
  }
  frame.latitude = latitude;
  frame.longitude = longitude;
  frame.altitude = altitude;
  return 0;
}

uint32_t BaseParser::parseColor_(const std::string& text) {
  return UTILS::colorReverseBytes(UTILS::colorGetColorInt(text, true));
}

}  // namespace AsiInterface
