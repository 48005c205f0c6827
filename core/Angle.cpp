#include "core/Angle.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>
#include <vector>

#include "core/Tokenizer.h"
#include "core/Units.h"
#include "core/ValidNumber.h"
#include "core/VectorMath.h"

namespace orvCore {

namespace {

const double PI = 3.14159265358979323846;
const double TWO_PI = 2.0 * PI;
const double HALF_PI = 0.5 * PI;
const double DEG_TO_RAD = 0.017453292519943295;
// A remainder this small after wrapping is rounding noise around a full turn.
const double ZERO_REMAINDER = 1.0e-10;
// Closeness at which a rounded minute or second counts as a full 60.
const double CARRY_TOLERANCE = 1.0e-6;
// A double has no more than this many meaningful decimals; more only slows printing.
const int MAX_PRECISION = 16;

// The remainder of angle over `period`, moved into [0, period). `snapToZero`
// turns a remainder under ZERO_REMAINDER into 0 (the radian forms do this).
double reduceToPeriod(double angle, double period, bool snapToZero) {
  double r = std::fmod(angle, period);
  if (snapToZero && std::fabs(r) < ZERO_REMAINDER) return 0.0;
  if (r < 0.0) r += period;
  return r;
}

double wrap(double angle, AngleExtents extents, double fullTurn, double halfTurn, double quarterTurn,
            bool snapToZero) {
  switch (extents) {
    case AE_ZERO_TWOPI:
      if (angle < 0.0 || angle >= fullTurn) return reduceToPeriod(angle, fullTurn, snapToZero);
      return angle;
    case AE_PLUSMINUS_PI:
    case AE_PLUSMINUS_HALFPI: {
      double r = angle;
      if (std::fabs(angle) > halfTurn) {
        r = reduceToPeriod(angle, fullTurn, snapToZero);
        if (r > halfTurn) r -= fullTurn;
      }
      // Clamped, not folded: a latitude past the pole stays at the pole.
      if (extents == AE_PLUSMINUS_HALFPI) r = std::max(-quarterTurn, std::min(quarterTurn, r));
      return r;
    }
    case AE_NONE:
    default:
      return angle;
  }
}

std::string fixedText(double value, int precision, int width = 0) {
  std::ostringstream os;
  os.imbue(std::locale::classic());
  os << std::fixed << std::setprecision(precision);
  if (width > 0) os << std::setfill('0') << std::setw(width);
  os << value;
  return os.str();
}

// Rounds minutes or seconds (`part`, in [0, 60)) for printing at `precision`.
// Answers true when the part rounds up to a full 60 and must carry into the
// next larger unit; `part` is then 0. Otherwise the part is nudged up by
// half a printed digit only when its first hidden digit is 5 or more, and the
// stream's own rounding does the rest.
bool roundPart(double& part, double increment, int precision) {
  double rounded = part + increment;
  if (rounded >= 60.0 || std::fabs(rounded - 60.0) < CARRY_TOLERANCE) {
    part = 0.0;
    return true;
  }
  double digit = std::fmod(std::pow(10.0, precision + 1) * part, 10.0);
  if (digit > 5.0 || std::fabs(digit - 5.0) < CARRY_TOLERANCE) part = rounded;
  return false;
}

// The minute and second fields: zero filled so that columns line up.
int partWidth(int precision) { return precision == 0 ? 2 : precision + 3; }

}  // namespace

double inverseCosine(double x) {
  if (x <= -1.0) return PI;
  if (x >= 1.0) return 0.0;
  return std::acos(x);
}

double inverseSine(double x) {
  if (x <= -1.0) return -HALF_PI;
  if (x >= 1.0) return HALF_PI;
  return std::asin(x);
}

bool areAnglesEqual(double a, double b, double tolerance) {
  if (std::fabs(a - b) < tolerance) return true;
  double wa = angFix(a, AE_PLUSMINUS_PI);
  double wb = angFix(b, AE_PLUSMINUS_PI);
  if (std::fabs(wa - wb) < tolerance) return true;
  // pi and -pi are one direction, whichever sign each side came out with.
  if (std::fabs(std::fabs(wa) - PI) < tolerance) return std::fabs(std::fabs(wb) - PI) < tolerance;
  return false;
}

bool v3AreAnglesEqual(const Vec3& a, const Vec3& b, double tolerance) {
  return areAnglesEqual(a[0], b[0], tolerance) && areAnglesEqual(a[1], b[1], tolerance) &&
         areAnglesEqual(a[2], b[2], tolerance);
}

Vec3 rotateEulerAngle(const Vec3& first, const Vec3& second) {
  double q1[4];
  double q2[4];
  double product[4];
  d3EulertoQ(first, q1);
  d3EulertoQ(second, q2);
  dQMult(q1, q2, product);
  Vec3 result;
  d3QtoEuler(product, result);
  return result;
}

double angFix(double angle, AngleExtents extents) {
  return wrap(angle, extents, TWO_PI, PI, HALF_PI, true);
}

double angFixDegrees(double angle, AngleExtents extents) {
  return wrap(angle, extents, 360.0, 180.0, 90.0, false);
}

std::string getDegreeSymbol(DegreeSymbolFormat format) {
  switch (format) {
    case DS_ASCII:
      return STR_DEGREE_SYMBOL_ASCII;
    case DS_UNICODE:
      return STR_DEGREE_SYMBOL_UNICODE;
    case DS_UTF8:
      return STR_DEGREE_SYMBOL_UTF8;
    case DS_NONE:
    default:
      return std::string();
  }
}

std::string getAngleString(double radians, GeodeticFormat format, bool allNumerics, int precision,
                           DegreeSymbolFormat degreeSymbol, char positiveDir, char negativeDir) {
  precision = std::max(0, std::min(MAX_PRECISION, precision));
  double value = Units::RADIANS.convertTo(Units::DEGREES, radians);

  std::string suffix = " ";
  bool negative = false;
  if (value < 0.0) {
    if (negativeDir == '\0')
      suffix.clear();
    else
      suffix += negativeDir;
    value = -value;
    negative = true;
  } else {
    if (positiveDir == '\0')
      suffix.clear();
    else
      suffix += positiveDir;
  }

  std::string degreeSign;
  std::string minuteSign;
  std::string secondSign;
  if (allNumerics) {
    suffix.clear();
  } else {
    degreeSign = getDegreeSymbol(degreeSymbol);
    minuteSign = "'";
    secondSign = "\"";
  }
  // Without a direction letter to carry it, the sign has to show as a minus.
  const bool showMinus = negative && (allNumerics || negativeDir == '\0');
  const double increment = 5.0 / std::pow(10.0, precision + 1);

  std::string number;
  switch (format) {
    case GF_DEGREES: {
      double rounded = value + increment;
      if (rounded > 360.0 || std::fabs(rounded - 360.0) < CARRY_TOLERANCE) value = 0.0;
      if (showMinus && value != 0.0) value = -value;
      number = fixedText(value, precision) + degreeSign;
      break;
    }
    case GF_DEGREES_MINUTES: {
      double degrees = std::floor(value);
      double minutes = 60.0 * (value - degrees);
      if (std::fabs(minutes) <= 1.0e-8) minutes = 0.0;
      if (roundPart(minutes, increment, precision)) degrees += 1.0;
      if (degrees == 360.0) degrees = 0.0;
      const bool minus = showMinus && (degrees != 0.0 || minutes != 0.0);
      number = (minus ? "-" : "") + fixedText(degrees, 0) + degreeSign + " " +
               fixedText(minutes, precision, partWidth(precision)) + minuteSign;
      break;
    }
    case GF_DEGREES_MINUTES_SECONDS: {
      double degrees = std::floor(value);
      double allMinutes = 60.0 * (value - degrees);
      double minutes = std::floor(allMinutes);
      double seconds = 60.0 * (allMinutes - minutes);
      if (std::fabs(seconds) < 1.0e-8) seconds = 0.0;
      if (roundPart(seconds, increment, precision)) minutes += 1.0;
      if (minutes >= 60.0) {
        minutes = 0.0;
        degrees += 1.0;
      }
      if (degrees == 360.0) degrees = 0.0;
      const bool minus = showMinus && (degrees != 0.0 || minutes != 0.0 || seconds != 0.0);
      number = (minus ? "-" : "") + fixedText(degrees, 0) + degreeSign + " " + fixedText(minutes, 0, 2) +
               minuteSign + " " + fixedText(seconds, precision, partWidth(precision)) + secondSign;
      break;
    }
    case GF_RADIANS:
    case GF_BAM:
    case GF_MIL:
    case GF_MILLIRADIANS: {
      const Units& unit = format == GF_RADIANS ? Units::RADIANS
                          : format == GF_BAM   ? Units::BAM
                          : format == GF_MIL   ? Units::MIL
                                               : Units::MILLIRADIANS;
      if (showMinus) value = -value;
      number = fixedText(Units::DEGREES.convertTo(unit, value), precision);
      break;
    }
    default:
      break;
  }
  return number + suffix;
}

std::string printLatitude(double radians, GeodeticFormat format, bool allNumerics, int precision,
                          DegreeSymbolFormat degreeSymbol) {
  double lat = angFix(radians, AE_PLUSMINUS_PI);
  // Past a pole the latitude comes back down on the far side.
  if (lat > HALF_PI)
    lat = PI - lat;
  else if (lat < -HALF_PI)
    lat = -PI - lat;
  return getAngleString(lat, format, allNumerics, precision, degreeSymbol, 'N', 'S');
}

std::string printLongitude(double radians, GeodeticFormat format, bool allNumerics, int precision,
                           DegreeSymbolFormat degreeSymbol) {
  return getAngleString(angFix(radians, AE_PLUSMINUS_PI), format, allNumerics, precision, degreeSymbol, 'E',
                        'W');
}

int getAngleFromDegreeString(const std::string& text, bool rads, double& out) {
  double value = 0.0;
  if (isValidNumber(text, value, true)) {
    out = rads ? value * DEG_TO_RAD : value;
    return 0;
  }

  // A direction letter or a minus anywhere makes the whole angle negative.
  const double sign = text.find_first_of("SsWw-") == std::string::npos ? 1.0 : -1.0;

  static const std::string DELIMITERS =
      std::string(" \t\n,:") + STR_DEGREE_SYMBOL_UTF8 + "'\"" + "NnEeSsWw";
  std::vector<std::string> tokens;
  stringTokenizer(tokens, text, DELIMITERS, true, true);
  if (tokens.empty()) return 1;

  // Degrees, minutes, seconds; anything after the seconds is ignored.
  double parts[3] = {0.0, 0.0, 0.0};
  const size_t count = std::min<size_t>(tokens.size(), 3);
  for (size_t i = 0; i < count; ++i) {
    if (!isValidNumber(tokens[i], parts[i], true)) return 1;
  }
  double degrees = sign * (std::fabs(parts[0]) + std::fabs(parts[1]) / 60.0 + std::fabs(parts[2]) / 3600.0);
  if (rads) degrees *= DEG_TO_RAD;
  // Parts near the largest double can add up past it.
  if (!std::isfinite(degrees)) return 1;
  out = degrees;
  return 0;
}

double toScientific(double value, int* exponent) {
  if (value == 0.0 || !std::isfinite(value)) {
    if (exponent) *exponent = 0;
    return value == 0.0 ? 0.0 : value;
  }
  const long double magnitude = std::fabs(static_cast<long double>(value));
  int power = static_cast<int>(std::floor(std::log10(magnitude)));
  // long double keeps 10^power representable down to the smallest subnormal.
  long double mantissa = magnitude / std::pow(10.0L, power);
  // log10 can land one off next to a power of ten.
  if (mantissa >= 10.0L) {
    mantissa /= 10.0L;
    ++power;
  } else if (mantissa < 1.0L) {
    mantissa *= 10.0L;
    --power;
  }
  if (exponent) *exponent = power;
  return value < 0.0 ? -static_cast<double>(mantissa) : static_cast<double>(mantissa);
}

}  // namespace orvCore
