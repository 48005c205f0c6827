// Reads arbitrary bytes as an angle and as a unit name. What reads as an
// angle is wrapped, printed in every form and, in the degree forms, read back:
// nothing may crash, a failed read must leave its output alone, a wrapped
// angle must land in its range, and printed text must read back close to the
// value. A broken invariant aborts, so libFuzzer keeps the input.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/Angle.h"
#include "core/UnitTypes.h"

namespace {

const double PI = 3.14159265358979323846;
const double DEG = PI / 180.0;

void check(bool condition) {
  if (!condition) std::abort();
}

void wrapping(double radians) {
  const double zeroTwoPi = orvCore::angFix(radians, orvCore::AE_ZERO_TWOPI);
  check(zeroTwoPi >= 0.0 && zeroTwoPi < 2.0 * PI);
  const double plusMinusPi = orvCore::angFix(radians, orvCore::AE_PLUSMINUS_PI);
  check(plusMinusPi >= -PI && plusMinusPi <= PI);
  const double halfPi = orvCore::angFix(radians, orvCore::AE_PLUSMINUS_HALFPI);
  check(halfPi >= -PI / 2.0 && halfPi <= PI / 2.0);
  check(orvCore::areAnglesEqual(radians, plusMinusPi, 1e-6 + std::fabs(radians) * 1e-15));
}

// Prints in every form; the degree forms must read back within what the
// precision keeps (angles near a full turn may print as 0, so they are left out).
void printing(double radians, int precision, orvCore::DegreeSymbolFormat symbol) {
  const double degrees = radians / DEG;
  const double tolerances[] = {1.0, 1.0 / 60.0, 1.0 / 3600.0};
  for (int format = 0; format <= 7; ++format) {
    for (bool allNumerics : {false, true}) {
      const std::string text = orvCore::getAngleString(radians, static_cast<orvCore::GeodeticFormat>(format),
                                                       allNumerics, precision, symbol, 'E', 'W');
      if (format > 2 || std::fabs(degrees) > 359.0) continue;
      double back = 0.0;
      check(orvCore::getAngleFromDegreeString(text, false, back) == 0);
      // One unit of the last printed digit, plus the printer's carry rule: a
      // minute or second part within 1e-6 of 60 carries to the next whole
      // one, so at precisions finer than 1e-6 the text may be that far off.
      const double tolerance = tolerances[format] * (std::pow(10.0, -precision) + 1e-6) + 1e-9;
      check(std::fabs(back - degrees) <= tolerance);
    }
  }
  orvCore::printLatitude(radians, orvCore::GF_DEGREES_MINUTES_SECONDS, false, precision, symbol);
  orvCore::printLongitude(radians, orvCore::GF_DEGREES_MINUTES, true, precision, symbol);
}

void units(const std::string& text) {
  const UTILS::UnitType_t type = UTILS::unitsGetTypeFromString(text);
  UTILS::unitsGetClassString(UTILS::unitsGetClass(type));
  UTILS::unitsGetTypeStringNoNull(type);
  UTILS::unitsGetTypeAbbrevStringNoNull(type);
  UTILS::unitsConvertValue(type, UTILS::UNITS_METERS, 1.0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const int precision = static_cast<int>(size % 9);
  const auto symbol = static_cast<orvCore::DegreeSymbolFormat>(size % 4);

  for (bool rads : {false, true}) {
    const double sentinel = -12345.0;
    double out = sentinel;
    if (orvCore::getAngleFromDegreeString(text, rads, out) != 0) {
      check(out == sentinel);
      continue;
    }
    check(std::isfinite(out));
    if (!rads) continue;
    int exponent = 0;
    orvCore::toScientific(out, &exponent);
    wrapping(out);
    printing(out, precision, symbol);
  }
  units(text);
  return 0;
}
