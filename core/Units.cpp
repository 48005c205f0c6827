#include "core/Units.h"

#include "core/StringUtils.h"

namespace orvCore {

namespace {
const char* const FAMILY_INVALID = "invalid";
}

Units::Units() : name_("Invalid"), abbreviation_("inv"), toBaseOffset_(0.0), toBaseScalar_(1.0), family_(FAMILY_INVALID) {}

Units::Units(const std::string& name, const std::string& abbreviation, double toBaseScalar, const std::string& family)
    : name_(name), abbreviation_(abbreviation), toBaseOffset_(0.0), toBaseScalar_(toBaseScalar), family_(family) {}

Units::~Units() = default;

Units Units::offsetThenScaleUnit(const std::string& name, const std::string& abbreviation, double toBaseOffset,
                                 double toBaseScalar, const std::string& family) {
  Units unit(name, abbreviation, toBaseScalar, family);
  unit.toBaseOffset_ = toBaseOffset;
  return unit;
}

bool Units::isValid() const { return family_ != FAMILY_INVALID; }

bool Units::canConvert(const Units& other) const {
  // Written as "not equal to zero" so that a NaN scalar still counts as convertible.
  return family_ == other.family_ && !(other.toBaseScalar_ == 0.0);
}

int Units::convertTo(const Units& target, double value, double& out) const {
  if (!canConvert(target)) return 1;
  out = ((value + toBaseOffset_) * toBaseScalar_) / target.toBaseScalar_ - target.toBaseOffset_;
  return 0;
}

double Units::convertTo(const Units& target, double value) const {
  double out = value;
  convertTo(target, value, out);
  return out;
}

bool Units::operator==(const Units& other) const {
  return toBaseScalar_ == other.toBaseScalar_ && toBaseOffset_ == other.toBaseOffset_ && family_ == other.family_;
}

// The definitions stay in one translation unit, in table order, so that within
// it each constant exists before anything below reads it.
#define ORV_UNIT(constant, name, abbreviation, scalar, family) \
  const Units Units::constant(name, abbreviation, scalar, family)

ORV_UNIT(UNITLESS, "", "", 1.0, "unitless");

ORV_UNIT(SECONDS, "seconds", "s", 1.0, "elapsed time");
ORV_UNIT(MILLISECONDS, "milliseconds", "ms", 0.001, "elapsed time");
ORV_UNIT(MICROSECONDS, "microseconds", "us", 1e-6, "elapsed time");
ORV_UNIT(NANOSECONDS, "nanoseconds", "ns", 1e-9, "elapsed time");
ORV_UNIT(MINUTES, "minutes", "min", 60.0, "elapsed time");
ORV_UNIT(HOURS, "hours", "hr", 3600.0, "elapsed time");
ORV_UNIT(DAYS, "days", "d", 86400.0, "elapsed time");

ORV_UNIT(RADIANS, "radians", "rad", 1.0, "angle");
ORV_UNIT(DEGREES, "degrees", "deg", 0.017453292519943295, "angle");
ORV_UNIT(MILLIRADIANS, "milliradians", "mrad", 0.001, "angle");
ORV_UNIT(BAM, "binary angle measurement", "bam", 0.6366197723675814, "angle");
ORV_UNIT(MIL, "angular mil", "mil", 0.0009817477042468104, "angle");

ORV_UNIT(METERS, "meters", "m", 1.0, "length");
ORV_UNIT(KILOMETERS, "kilometers", "km", 1000.0, "length");
ORV_UNIT(YARDS, "yards", "yd", 0.91439997, "length");
ORV_UNIT(MILES, "miles", "mi", 1609.344, "length");
ORV_UNIT(FEET, "feet", "ft", 0.30479999, "length");
ORV_UNIT(INCHES, "inches", "in", 0.025399999, "length");
ORV_UNIT(NAUTICAL_MILES, "nautical miles", "nm", 1852.0, "length");
ORV_UNIT(CENTIMETERS, "centimeters", "cm", 0.01, "length");
ORV_UNIT(MILLIMETERS, "millimeters", "mm", 0.001, "length");
ORV_UNIT(KILOYARDS, "kiloyards", "kyd", 914.39999861, "length");
ORV_UNIT(FATHOMS, "fathoms", "fm", 1.82879994, "length");
ORV_UNIT(KILOFEET, "kilofeet", "kf", 304.79999, "length");
ORV_UNIT(DATA_MILES, "data miles", "dm", 1828.800164446, "length");

ORV_UNIT(METERS_PER_SECOND, "meters per second", "m/sec", 1.0, "speed");
ORV_UNIT(KILOMETERS_PER_HOUR, "kilometers per hour", "km/hr", 0.27777778, "speed");
ORV_UNIT(KNOTS, "knots", "kts", 0.51444444, "speed");
ORV_UNIT(MILES_PER_HOUR, "miles per hour", "mph", 0.44703997, "speed");
ORV_UNIT(FEET_PER_SECOND, "feet per second", "ft/sec", 0.3047999, "speed");
ORV_UNIT(KILOMETERS_PER_SECOND, "kilometers per second", "km/sec", 1000.0, "speed");
ORV_UNIT(DATA_MILES_PER_HOUR, "data miles per hour", "dm/hr", 0.50797738, "speed");
ORV_UNIT(YARDS_PER_SECOND, "yards per second", "yd/sec", 0.91439997, "speed");

ORV_UNIT(METERS_PER_SECOND_SQUARED, "meters per second squared", "m/(s^2)", 1.0, "acceleration");
ORV_UNIT(KILOMETERS_PER_SECOND_SQUARED, "kilometers per second squared", "km/(s^2)", 1000.0, "acceleration");
ORV_UNIT(YARDS_PER_SECOND_SQUARED, "yards per second squared", "yd/(s^2)", 0.91439997, "acceleration");
ORV_UNIT(MILES_PER_SECOND_SQUARED, "miles per second squared", "sm/(s^2)", 1609.344, "acceleration");
ORV_UNIT(FEET_PER_SECOND_SQUARED, "feet per second squared", "ft/(s^2)", 0.30479999, "acceleration");
ORV_UNIT(INCHES_PER_SECOND_SQUARED, "inches per second squared", "in/(s^2)", 0.025399999, "acceleration");
ORV_UNIT(NAUTICAL_MILES_PER_SECOND_SQUARED, "knots per second", "nm/(s^2)", 1852.0, "acceleration");

// Temperatures go to Celsius; the offset is added before the scalar applies.
ORV_UNIT(CELSIUS, "celsius", "C", 1.0, "temperature");
const Units Units::FAHRENHEIT =
    Units::offsetThenScaleUnit("fahrenheit", "F", -32.0, 0.5555555555555556, "temperature");
const Units Units::KELVIN = Units::offsetThenScaleUnit("kelvin", "k", -273.15, 1.0, "temperature");
const Units Units::RANKINE =
    Units::offsetThenScaleUnit("rankine", "ra", -491.67, 0.5555555555555556, "temperature");
ORV_UNIT(REAUMUR, "reaumur", "re", 1.25, "temperature");

ORV_UNIT(HERTZ, "cycles per second", "Hz", 1.0, "frequency");
ORV_UNIT(KILOHERTZ, "1000 cycles per second", "kHz", 1000.0, "frequency");
ORV_UNIT(MEGAHERTZ, "1000000 cycles per second", "MHz", 1e6, "frequency");
ORV_UNIT(REVOLUTIONS_PER_MINUTE, "revolutions per minute", "rpm", 0.01666666666, "frequency");
ORV_UNIT(RADIANS_PER_SECOND, "radians per second", "rad/sec", 0.15915494309, "frequency");
ORV_UNIT(DEGREES_PER_SECOND, "degrees per second", "deg/sec", 0.00277777777, "frequency");

ORV_UNIT(LITER, "liters", "l", 1.0, "volume");
ORV_UNIT(MILLILITER, "milliliters", "ml", 0.001, "volume");
ORV_UNIT(FLUID_OUNCE, "fluid ounces", "fl oz", 0.0295703125, "volume");
ORV_UNIT(CUP, "cups", "cup", 0.2365625, "volume");
ORV_UNIT(PINT, "pints", "pt", 0.473125, "volume");
ORV_UNIT(QUART, "quarts", "qt", 0.94625, "volume");
ORV_UNIT(GALLON, "gallons", "gal", 3.785, "volume");
ORV_UNIT(TEASPOON, "teaspoons", "tsp", 0.00492838542, "volume");
ORV_UNIT(TABLESPOON, "tablespoons", "tbsp", 0.01478515625, "volume");

ORV_UNIT(MILLIBAR, "millibar", "mbar", 1.0, "pressure");
ORV_UNIT(BAR, "bars", "bar", 1000.0, "pressure");
ORV_UNIT(POUNDS_PER_SQUARE_INCH, "pounds per square inch", "psia", 68.94757, "pressure");
ORV_UNIT(ATMOSPHERE, "atmospheres", "atm", 1013.247139776643, "pressure");
ORV_UNIT(TORR, "torr", "torr", 1.33321992075874, "pressure");
ORV_UNIT(PASCALS, "pascals", "Pa", 0.01, "pressure");
ORV_UNIT(KILOPASCAL, "kilopascals", "kPa", 10.0, "pressure");
ORV_UNIT(MEGAPASCAL, "megapascals", "MPa", 10000.0, "pressure");

ORV_UNIT(VOLT, "volts", "V", 1.0, "potential");
ORV_UNIT(MILLIVOLT, "millivolts", "mV", 0.001, "potential");
ORV_UNIT(MICROVOLT, "microvolts", "uV", 1e-6, "potential");
ORV_UNIT(KILOVOLT, "kilovolts", "kV", 1000.0, "potential");
ORV_UNIT(MEGAVOLT, "megavolts", "MV", 1e6, "potential");
ORV_UNIT(GIGAVOLT, "gigavolts", "GV", 1e9, "potential");

#undef ORV_UNIT

UnitsRegistry::UnitsRegistry() = default;
UnitsRegistry::~UnitsRegistry() = default;

void UnitsRegistry::registerDefaultUnits() {
  // NANOSECONDS, KILOHERTZ and MEGAHERTZ stay out: they can be used but not looked up.
  static const Units* const DEFAULTS[] = {
      &Units::UNITLESS,
      &Units::SECONDS, &Units::MILLISECONDS, &Units::MICROSECONDS, &Units::MINUTES, &Units::HOURS, &Units::DAYS,
      &Units::RADIANS, &Units::DEGREES, &Units::MILLIRADIANS, &Units::BAM, &Units::MIL,
      &Units::METERS, &Units::KILOMETERS, &Units::YARDS, &Units::MILES, &Units::FEET, &Units::INCHES,
      &Units::NAUTICAL_MILES, &Units::CENTIMETERS, &Units::MILLIMETERS, &Units::KILOYARDS, &Units::FATHOMS,
      &Units::KILOFEET, &Units::DATA_MILES,
      &Units::METERS_PER_SECOND, &Units::KILOMETERS_PER_HOUR, &Units::KNOTS, &Units::MILES_PER_HOUR,
      &Units::FEET_PER_SECOND, &Units::KILOMETERS_PER_SECOND, &Units::DATA_MILES_PER_HOUR,
      &Units::YARDS_PER_SECOND,
      &Units::METERS_PER_SECOND_SQUARED, &Units::KILOMETERS_PER_SECOND_SQUARED, &Units::YARDS_PER_SECOND_SQUARED,
      &Units::MILES_PER_SECOND_SQUARED, &Units::FEET_PER_SECOND_SQUARED, &Units::INCHES_PER_SECOND_SQUARED,
      &Units::NAUTICAL_MILES_PER_SECOND_SQUARED,
      &Units::CELSIUS, &Units::FAHRENHEIT, &Units::KELVIN, &Units::RANKINE, &Units::REAUMUR,
      &Units::HERTZ, &Units::REVOLUTIONS_PER_MINUTE, &Units::RADIANS_PER_SECOND, &Units::DEGREES_PER_SECOND,
      &Units::LITER, &Units::MILLILITER, &Units::FLUID_OUNCE, &Units::CUP, &Units::PINT, &Units::QUART,
      &Units::GALLON, &Units::TEASPOON, &Units::TABLESPOON,
      &Units::MILLIBAR, &Units::BAR, &Units::POUNDS_PER_SQUARE_INCH, &Units::ATMOSPHERE, &Units::TORR,
      &Units::PASCALS, &Units::KILOPASCAL, &Units::MEGAPASCAL,
      &Units::VOLT, &Units::MILLIVOLT, &Units::MICROVOLT, &Units::KILOVOLT, &Units::MEGAVOLT, &Units::GIGAVOLT,
  };
  for (const Units* unit : DEFAULTS) registerUnits(*unit);
}

int UnitsRegistry::registerUnits(const Units& units) {
  std::vector<Units>& family = unitsByFamily_[units.family()];
  for (const Units& known : family) {
    if (known == units) return 1;
  }
  family.push_back(units);
  // emplace keeps an existing entry: the first unit to claim a name keeps it.
  unitsByName_.emplace(lowerCase(units.name()), units);
  unitsByAbbreviation_.emplace(units.abbreviation(), units);
  return 0;
}

const std::vector<Units>& UnitsRegistry::units(const std::string& family) const {
  auto it = unitsByFamily_.find(family);
  return it == unitsByFamily_.end() ? empty_ : it->second;
}

std::vector<std::string> UnitsRegistry::families() const {
  std::vector<std::string> names;
  names.reserve(unitsByFamily_.size());
  for (const auto& entry : unitsByFamily_) names.push_back(entry.first);
  return names;
}

const Units& UnitsRegistry::unitsByName(const std::string& name) const {
  auto it = unitsByName_.find(lowerCase(name));
  return it == unitsByName_.end() ? invalid_ : it->second;
}

int UnitsRegistry::unitsByName(const std::string& name, Units& out) const {
  auto it = unitsByName_.find(lowerCase(name));
  if (it == unitsByName_.end()) {
    out = invalid_;
    return 1;
  }
  out = it->second;
  return 0;
}

const Units& UnitsRegistry::unitsByAbbreviation(const std::string& abbreviation) const {
  auto it = unitsByAbbreviation_.find(abbreviation);
  return it == unitsByAbbreviation_.end() ? invalid_ : it->second;
}

int UnitsRegistry::unitsByAbbreviation(const std::string& abbreviation, Units& out) const {
  auto it = unitsByAbbreviation_.find(abbreviation);
  if (it == unitsByAbbreviation_.end()) {
    out = invalid_;
    return 1;
  }
  out = it->second;
  return 0;
}

}  // namespace orvCore
