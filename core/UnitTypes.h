#pragma once
// The older numeric unit codes. Data-table columns store a unit as one of these
// numbers, and files name it by the text of unitsGetTypeString, so neither the
// numbers nor the names may change.

#include <string>
#include <vector>

namespace UTILS {

// A fixed underlying type, so that any number read from a file is a valid value.
enum UnitType_t : int {
  UNITS_UNKNOWN = 0,

  // time: formats of a time value rather than scalable units
  UNITS_SECONDS = 1,
  UNITS_MINUTES = 2,
  UNITS_HOURS = 3,
  UNITS_ORDINAL = 4,
  UNITS_MONTHDAY = 5,
  UNITS_DTG = 6,

  UNITS_RADIANS = 10,
  UNITS_DEGREES = 11,
  UNITS_DEGREES_MINUTES = 12,
  UNITS_DEGREES_MINUTES_SECONDS = 13,
  UNITS_UTM = 14,
  UNITS_BAM = 15,
  UNITS_MIL = 16,
  UNITS_MILLIRADIANS = 17,

  UNITS_METERS = 20,
  UNITS_KILOMETERS = 21,
  UNITS_YARDS = 22,
  UNITS_MILES = 23,
  UNITS_FEET = 24,
  UNITS_INCHES = 25,
  UNITS_NAUTICAL_MILES = 26,
  UNITS_CENTIMETERS = 27,
  UNITS_MILLIMETERS = 28,
  UNITS_KILOYARDS = 29,
  UNITS_DATA_MILES = 30,
  UNITS_FATHOMS = 31,
  UNITS_KILOFEET = 32,

  UNITS_METERS_PER_SECOND = 40,
  UNITS_KILOMETERS_PER_HOUR = 41,
  UNITS_KNOTS = 42,
  UNITS_MILES_PER_HOUR = 43,
  UNITS_FEET_PER_SECOND = 44,
  // 45 is unused but still counts as a speed
  UNITS_KILOMETERS_PER_SECOND = 46,
  UNITS_DATA_MILES_PER_HOUR = 47,
  UNITS_YARDS_PER_SECOND = 48,

  UNITS_METERS_PER_SECOND_SQUARED = 50,
  UNITS_KILOMETERS_PER_SECOND_SQUARED = 51,
  UNITS_YARDS_PER_SECOND_SQUARED = 52,
  UNITS_MILES_PER_SECOND_SQUARED = 53,
  UNITS_FEET_PER_SECOND_SQUARED = 54,
  UNITS_INCHES_PER_SECOND_SQUARED = 55,
  UNITS_KNOTS_PER_SECOND = 56,

  UNITS_CELSIUS = 60,
  UNITS_FAHRENHEIT = 61,
  UNITS_KELVIN = 62,
  UNITS_RANKINE = 63,
  UNITS_REAUMUR = 64,

  UNITS_REVOLUTIONS_PER_MINUTE = 70,
  UNITS_RADIANS_PER_SECOND = 71,
  UNITS_DEGREES_PER_SECOND = 72,
  UNITS_BAM_PER_SECOND = 73,

  UNITS_LITERS = 80,
  UNITS_MILLILITERS = 81,
  UNITS_GALLONS = 82,
  UNITS_FLUID_OUNCES = 83,
  UNITS_CUPS = 84,
  UNITS_PINTS = 85,
  UNITS_QUARTS = 86,
  UNITS_TEASPOONS = 87,
  UNITS_TABLESPOONS = 88,

  UNITS_MILLIBAR = 100,
  UNITS_BARS = 101,
  UNITS_POUNDS_PER_SQUARE_INCH = 102,
  UNITS_ATMOSPHERES = 103,
  UNITS_TORR = 104,
  UNITS_PASCALS = 105,
  UNITS_KILOPASCALS = 106,
  UNITS_MEGAPASCALS = 107,

  UNITS_VOLTS = 110,
  UNITS_MILLIVOLTS = 111,
  UNITS_MICROVOLTS = 112,
  UNITS_KILOVOLTS = 113,
  UNITS_MEGAVOLTS = 114,
  UNITS_GIGAVOLTS = 115
};

enum UnitClass_t : int {
  UNITCLASS_DATA = 0,
  UNITCLASS_ANGLE = 1,
  UNITCLASS_DISTANCE = 2,
  UNITCLASS_SPEED = 3,
  UNITCLASS_ACCELERATION = 4,
  UNITCLASS_TIME = 5,
  UNITCLASS_TEMPERATURE = 6,
  UNITCLASS_REVOLUTION = 7,
  UNITCLASS_VOLUME = 8,
  UNITCLASS_PRESSURE = 9,
  UNITCLASS_POTENTIAL = 10
};

// The class of a code, by the numeric range the code falls in; codes outside
// every range (and 0) are UNITCLASS_DATA.
UnitClass_t unitsGetClass(UnitType_t type);

// "Angle", "Distance", ...; any class not listed is "Data".
const char* unitsGetClassString(UnitClass_t unitClass);

// The name of a code ("Meters", "Knots", ...), or null for a code without one.
const char* unitsGetTypeString(UnitType_t type);
// As unitsGetTypeString, but an empty string where that answers null.
const char* unitsGetTypeStringNoNull(UnitType_t type);

// The abbreviation of a code ("m", "kts", ...): empty for the time codes, null
// for a code without one.
const char* unitsGetTypeAbbrevString(UnitType_t type);
// As unitsGetTypeAbbrevString, but an empty string where that answers null.
const char* unitsGetTypeAbbrevStringNoNull(UnitType_t type);

// Converts within one class; a value of another class, of the time or data
// class, or between equal codes comes back unchanged.
double unitsConvertValue(UnitType_t from, UnitType_t to, double value);
// unitsConvertValue of 1 when the classes match, else 1.
double unitsGetConversionFactor(UnitType_t from, UnitType_t to);

// Reads a unit from the loose texts that files carry ("feet/sec", "nm",
// "hh:mm:ss", "105"); null, empty and unrecognised texts give UNITS_UNKNOWN.
UnitType_t unitsGetTypeFromString(const char* text);
UnitType_t unitsGetTypeFromString(const std::string& text);

// Every named code of a class, in increasing order.
std::vector<UnitType_t> enumerateUnitsForClass(UnitClass_t unitClass);

}  // namespace UTILS
