#include "core/UnitTypes.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include "core/StringUtils.h"

namespace UTILS {

namespace {

// One named code. toBase and fromBase take a value to and from its class's
// base unit; they are kept as two separate factors, not as a factor and its
// inverse, because stored data was made with exactly these numbers.
struct UnitEntry {
  UnitType_t type;
  const char* name;
  const char* abbreviation;
  double toBase;
  double fromBase;
};

// Sorted by code. Time codes have no factors: time values aren't scaled.
const UnitEntry UNIT_TABLE[] = {
    {UNITS_UNKNOWN, "Unknown", nullptr, 1.0, 1.0},

    {UNITS_SECONDS, "Seconds", "", 1.0, 1.0},
    {UNITS_MINUTES, "Minutes", "", 1.0, 1.0},
    {UNITS_HOURS, "Hours", "", 1.0, 1.0},
    {UNITS_ORDINAL, "Ordinal", "", 1.0, 1.0},
    {UNITS_MONTHDAY, "MonthDay", "", 1.0, 1.0},
    {UNITS_DTG, "DateTimeGroup", "", 1.0, 1.0},

    {UNITS_RADIANS, "Radians", "rad", 1.0, 1.0},
    {UNITS_DEGREES, "Degrees", "deg", 0.017453292519943295, 57.29577951308232},
    {UNITS_DEGREES_MINUTES, "Degrees Minutes", "dmd", 0.017453292519943295, 57.29577951308232},
    {UNITS_DEGREES_MINUTES_SECONDS, "Degrees Minutes Seconds", "dms", 0.017453292519943295, 57.29577951308232},
    {UNITS_UTM, "UTM", "utm", 1.570670673e-07, 6366707.01949371},
    {UNITS_BAM, "Binary Angle Measurement", "bam", 6.283185307179586, 0.15915494309189535},
    {UNITS_MIL, "Angular Mil", "mil", 0.0009817477042468104, 1018.5916357881301},
    {UNITS_MILLIRADIANS, "Milliradians", "mrad", 0.001, 1000.0},

    {UNITS_METERS, "Meters", "m", 1.0, 1.0},
    {UNITS_KILOMETERS, "Kilometers", "km", 1000.0, 0.001},
    {UNITS_YARDS, "Yards", "yd", 0.91439997, 1.0936133342174104},
    {UNITS_MILES, "Miles", "mi", 1609.344, 0.000621371192237334},
    {UNITS_FEET, "Feet", "ft", 0.30479999, 3.28084},
    {UNITS_INCHES, "Inches", "in", 0.025399999, 39.37008},
    {UNITS_NAUTICAL_MILES, "Nautical Miles", "nm", 1852.0, 0.0005399568},
    {UNITS_CENTIMETERS, "Centimeters", "cm", 0.01, 100.0},
    {UNITS_MILLIMETERS, "Millimeters", "mm", 0.001, 1000.0},
    {UNITS_KILOYARDS, "Kiloyards", "kyd", 914.39999861, 0.0010936133},
    {UNITS_DATA_MILES, "Data Miles", "dm", 1828.800164446, 0.0005468066},
    {UNITS_FATHOMS, "Fathoms", "fm", 1.82879994, 0.54680667},
    {UNITS_KILOFEET, "Kilofeet", "kf", 304.79999, 0.00328084},

    {UNITS_METERS_PER_SECOND, "Meters per Second", "m/sec", 1.0, 1.0},
    {UNITS_KILOMETERS_PER_HOUR, "Kilometers per Hour", "km/hr", 0.27777778, 3.6},
    {UNITS_KNOTS, "Knots", "kts", 0.51444444, 1.9438445},
    {UNITS_MILES_PER_HOUR, "Miles per Hour", "mph", 0.44703997, 2.2369364},
    {UNITS_FEET_PER_SECOND, "Feet per Second", "ft/sec", 0.3047999, 3.28084097},
    {UNITS_KILOMETERS_PER_SECOND, "Kilometers per Second", "km/sec", 1000.0, 0.001},
    {UNITS_DATA_MILES_PER_HOUR, "Data Miles per Hour", "dm/hr", 0.50797738, 1.9685916},
    {UNITS_YARDS_PER_SECOND, "Yards per Second", "yd/sec", 0.91439997, 1.0936133},

    // Accelerations scale as the distances of codes 21 to 26.
    {UNITS_METERS_PER_SECOND_SQUARED, "Meters per Second Squared", "m/(s^2)", 1.0, 1.0},
    {UNITS_KILOMETERS_PER_SECOND_SQUARED, "Kilometers per Second Squared", "km/(s^2)", 1000.0, 0.001},
    {UNITS_YARDS_PER_SECOND_SQUARED, "Yards per Second Squared", "yd/(s^2)", 0.91439997, 1.0936133342174104},
    {UNITS_MILES_PER_SECOND_SQUARED, "Miles per Second Squared", "sm/(s^2)", 1609.344, 0.000621371192237334},
    {UNITS_FEET_PER_SECOND_SQUARED, "Feet per Second Squared", "ft/(s^2)", 0.30479999, 3.28084},
    {UNITS_INCHES_PER_SECOND_SQUARED, "Inches per Second Squared", "in/(s^2)", 0.025399999, 39.37008},
    {UNITS_KNOTS_PER_SECOND, "Knots per Second", "nm/(s^2)", 1852.0, 0.0005399568},

    // Temperatures have offsets and are converted apart; the factors are unused.
    {UNITS_CELSIUS, "Celsius", "C", 1.0, 1.0},
    {UNITS_FAHRENHEIT, "Fahrenheit", "F", 1.0, 1.0},
    {UNITS_KELVIN, "Kelvin", "k", 1.0, 1.0},
    {UNITS_RANKINE, "Rankine", "ra", 1.0, 1.0},
    {UNITS_REAUMUR, "Reaumur", "re", 1.0, 1.0},

    {UNITS_REVOLUTIONS_PER_MINUTE, "Revolutions Per Minute", "rpm", 1.0, 1.0},
    {UNITS_RADIANS_PER_SECOND, "Radians Per Second", "rad/sec", 9.5492965855, 0.1047197551},
    {UNITS_DEGREES_PER_SECOND, "Degrees Per Second", "deg/sec", 0.16666666667, 6.0},
    {UNITS_BAM_PER_SECOND, "BAMs per Second", "BAM/sec", 60.0000000012, 0.016666666666666666},

    {UNITS_LITERS, "Liters", "l", 1.0, 1.0},
    {UNITS_MILLILITERS, "Milliliters", "ml", 0.001, 1000.0},
    {UNITS_GALLONS, "Gallons", "gal", 3.785, 0.2642007826},
    {UNITS_FLUID_OUNCES, "Fluid Ounces", "fl oz", 0.0295703125, 33.8177014531},
    {UNITS_CUPS, "Cups", "cup", 0.2365625, 4.22721268164},
    {UNITS_PINTS, "Pints", "pt", 0.473125, 2.113606340819},
    {UNITS_QUARTS, "Quarts", "qt", 0.94625, 1.05680317041},
    {UNITS_TEASPOONS, "Teaspoons", "tsp", 0.00492838542, 202.906208719},
    {UNITS_TABLESPOONS, "Tablespoons", "tbsp", 0.01478515625, 67.6354029062},

    {UNITS_MILLIBAR, "Millibar", "mbar", 1.0, 1.0},
    {UNITS_BARS, "Bars", "bar", 1000.0, 0.001},
    {UNITS_POUNDS_PER_SQUARE_INCH, "Pounds Per Square Inch", "psia", 68.94757, 0.0145037743897},
    {UNITS_ATMOSPHERES, "Atmospheres", "atm", 1013.247139776643, 0.000986926052631579},
    {UNITS_TORR, "Torr", "torr", 1.33321992075874, 0.7500638},
    {UNITS_PASCALS, "Pascals", "Pa", 0.01, 100.0},
    {UNITS_KILOPASCALS, "Kilopascals", "kPa", 10.0, 0.1},
    {UNITS_MEGAPASCALS, "Megapascals", "MPa", 10000.0, 0.0001},

    {UNITS_VOLTS, "Volts", "V", 1.0, 1.0},
    {UNITS_MILLIVOLTS, "Millivolts", "mV", 0.001, 1000.0},
    {UNITS_MICROVOLTS, "Microvolts", "uV", 1e-6, 1e6},
    {UNITS_KILOVOLTS, "Kilovolts", "kV", 1000.0, 0.001},
    {UNITS_MEGAVOLTS, "Megavolts", "MV", 1e6, 1e-6},
    {UNITS_GIGAVOLTS, "Gigavolts", "GV", 1e9, 1e-9},
};

const UnitEntry* findEntry(UnitType_t type) {
  for (const UnitEntry& entry : UNIT_TABLE) {
    if (entry.type == type) return &entry;
  }
  return nullptr;
}

// The code range of each class, lowest to highest code inclusive.
struct ClassRange {
  UnitClass_t unitClass;
  int first;
  int last;
  const char* name;
};

const ClassRange CLASS_RANGES[] = {
    {UNITCLASS_TIME, 1, 6, "Time"},
    {UNITCLASS_ANGLE, 10, 17, "Angle"},
    {UNITCLASS_DISTANCE, 20, 32, "Distance"},
    {UNITCLASS_SPEED, 40, 48, "Speed"},
    {UNITCLASS_ACCELERATION, 50, 56, "Acceleration"},
    {UNITCLASS_TEMPERATURE, 60, 64, "Temperature"},
    {UNITCLASS_REVOLUTION, 70, 73, "Revolution"},
    {UNITCLASS_VOLUME, 80, 88, "Volume"},
    {UNITCLASS_PRESSURE, 100, 107, "Pressure"},
    {UNITCLASS_POTENTIAL, 110, 115, "Electric Potential"},
};

bool isDegreeForm(UnitType_t type) {
  return type == UNITS_DEGREES || type == UNITS_DEGREES_MINUTES || type == UNITS_DEGREES_MINUTES_SECONDS;
}

double toCelsius(UnitType_t from, double value) {
  switch (from) {
    case UNITS_FAHRENHEIT:
      return (value - 32.0) * 0.555555556;
    case UNITS_KELVIN:
      return value - 273.15;
    case UNITS_RANKINE:
      return (value - 459.67 - 32.0) * 0.555555556;
    case UNITS_REAUMUR:
      return value * 1.25;
    default:
      return value;
  }
}

double fromCelsius(UnitType_t to, double value) {
  switch (to) {
    case UNITS_FAHRENHEIT:
      return value * 1.8 + 32.0;
    case UNITS_KELVIN:
      return value + 273.15;
    case UNITS_RANKINE:
      return value * 1.8 + 32.0 + 459.67;
    case UNITS_REAUMUR:
      return value * 0.8;
    default:
      return value;
  }
}

}  // namespace

UnitClass_t unitsGetClass(UnitType_t type) {
  for (const ClassRange& range : CLASS_RANGES) {
    if (type >= range.first && type <= range.last) return range.unitClass;
  }
  return UNITCLASS_DATA;
}

const char* unitsGetClassString(UnitClass_t unitClass) {
  for (const ClassRange& range : CLASS_RANGES) {
    if (range.unitClass == unitClass) return range.name;
  }
  return "Data";
}

const char* unitsGetTypeString(UnitType_t type) {
  const UnitEntry* entry = findEntry(type);
  return entry ? entry->name : nullptr;
}

const char* unitsGetTypeStringNoNull(UnitType_t type) {
  const char* name = unitsGetTypeString(type);
  return name ? name : "";
}

const char* unitsGetTypeAbbrevString(UnitType_t type) {
  const UnitEntry* entry = findEntry(type);
  return entry ? entry->abbreviation : nullptr;
}

const char* unitsGetTypeAbbrevStringNoNull(UnitType_t type) {
  const char* abbreviation = unitsGetTypeAbbrevString(type);
  return abbreviation ? abbreviation : "";
}

double unitsConvertValue(UnitType_t from, UnitType_t to, double value) {
  const UnitClass_t unitClass = unitsGetClass(from);
  if (unitClass != unitsGetClass(to) || from == to) return value;
  if (unitClass == UNITCLASS_TIME || unitClass == UNITCLASS_DATA) return value;
  if (unitClass == UNITCLASS_TEMPERATURE) return fromCelsius(to, toCelsius(from, value));
  // The degree forms differ only in how they are written, not in value.
  if (isDegreeForm(from) && isDegreeForm(to)) return value;

  // A code inside a class range but without an entry (45) counts as the base.
  const UnitEntry* source = findEntry(from);
  const UnitEntry* target = findEntry(to);
  const double toBase = source ? source->toBase : 1.0;
  const double fromBase = target ? target->fromBase : 1.0;
  return value * toBase * fromBase;
}

double unitsGetConversionFactor(UnitType_t from, UnitType_t to) {
  if (unitsGetClass(from) != unitsGetClass(to)) return 1.0;
  return unitsConvertValue(from, to, 1.0);
}

UnitType_t unitsGetTypeFromString(const std::string& text) {
  const std::string u = orvCore::upperCase(text);
  auto is = [&u](const char* word) { return u == word; };
  auto has = [&u](const char* part) { return u.find(part) != std::string::npos; };
  auto perOrSlash = [&has]() { return has("PER") || has("/"); };
  auto squared = [&has]() { return has("SQ") || has("^"); };

  // The order of the rules is what tells apart texts that contain one another
  // ("MI", "MM", "M", "SEC", "IN"); it must not be rearranged.
  if (is("UNKNOWN")) return UNITS_UNKNOWN;
  if (is("MIL")) return UNITS_MIL;
  if (is("DMD")) return UNITS_DEGREES_MINUTES;
  if (is("M")) return UNITS_METERS;
  if (is("S")) return UNITS_SECONDS;
  if (is("C")) return UNITS_CELSIUS;
  if (is("F")) return UNITS_FAHRENHEIT;
  if (is("K") || is("KELVIN")) return UNITS_KELVIN;
  if (is("RA") || is("RANKINE")) return UNITS_RANKINE;
  if (is("RE")) return UNITS_REAUMUR;

  if (has("REVOLUTIONS")) return UNITS_REVOLUTIONS_PER_MINUTE;
  if (has("ATM")) return UNITS_ATMOSPHERES;
  if (has("MILLILIT")) return UNITS_MILLILITERS;
  if (has("FLUID OU")) return UNITS_FLUID_OUNCES;
  if (has("PINT")) return UNITS_PINTS;
  if (is("L")) return UNITS_LITERS;

  if (has("MON") || has("MD") || has("DAY")) return UNITS_MONTHDAY;
  if (has("DTG") || has("GROUP")) return UNITS_DTG;
  if (has("JULI") || has("ORDINAL")) return UNITS_ORDINAL;

  if (has("RADAR")) return UNITS_DATA_MILES;
  if (has("RAD")) {
    if (has("MRAD") || has("MILLIRAD")) return UNITS_MILLIRADIANS;
    return has("SEC") ? UNITS_RADIANS_PER_SECOND : UNITS_RADIANS;
  }

  if (has("DMS")) return UNITS_DEGREES_MINUTES_SECONDS;
  if (has("DMD")) return UNITS_DEGREES_MINUTES;
  if (has("UTM")) return UNITS_UTM;
  if (has("BAM") || has("BINARY")) return UNITS_BAM;
  if (has("ANGULAR")) return UNITS_MIL;

  if (has("DEG")) {
    if (has("SEC")) return perOrSlash() ? UNITS_DEGREES_PER_SECOND : UNITS_DEGREES_MINUTES_SECONDS;
    return has("MIN") ? UNITS_DEGREES_MINUTES : UNITS_DEGREES;
  }

  if (has("MBAR") || has("MILLIBAR")) return UNITS_MILLIBAR;
  if (has("BAR")) return UNITS_BARS;
  if (has("TORR")) return UNITS_TORR;
  if (has("PSI") || has("POUNDS PER SQUARE INCH")) return UNITS_POUNDS_PER_SQUARE_INCH;
  if (has("KPA") || has("KILOPASC")) return UNITS_KILOPASCALS;
  if (has("MPA") || has("MEGAPASC")) return UNITS_MEGAPASCALS;
  if (has("PASCAL")) return UNITS_PASCALS;

  if (has("HH") || has("HOURS") || has("HRS")) return UNITS_HOURS;
  if (has("MM") && has("S")) return UNITS_MINUTES;
  if (has("MINUTES") || has("MINS")) return UNITS_MINUTES;
  if (has("SS") || has("SECONDS") || has("SECS")) return UNITS_SECONDS;

  if (has("KILOY") || has("KY")) return UNITS_KILOYARDS;

  if (has("KT") || has("KN")) return perOrSlash() ? UNITS_KNOTS_PER_SECOND : UNITS_KNOTS;

  if (has("NAU") || has("NM")) {
    if (squared()) return UNITS_KNOTS_PER_SECOND;
    return perOrSlash() ? UNITS_KNOTS : UNITS_NAUTICAL_MILES;
  }
  if (has("YARD") || has("YD")) {
    if (squared()) return UNITS_YARDS_PER_SECOND_SQUARED;
    return perOrSlash() ? UNITS_YARDS_PER_SECOND : UNITS_YARDS;
  }
  if (has("DATAM") || has("DM")) return perOrSlash() ? UNITS_DATA_MILES_PER_HOUR : UNITS_DATA_MILES;

  if (has("VOLT")) {
    if (has("MILLI")) return UNITS_MILLIVOLTS;
    if (has("MICRO")) return UNITS_MICROVOLTS;
    if (has("KILO")) return UNITS_KILOVOLTS;
    if (has("MEGA")) return UNITS_MEGAVOLTS;
    if (has("GIGA")) return UNITS_GIGAVOLTS;
    return UNITS_VOLTS;
  }

  if (has("FATH") || has("FM")) return UNITS_FATHOMS;
  if (has("KILOF") || has("KF")) return UNITS_KILOFEET;

  if (has("FEE") || has("FT")) {
    if (squared()) return UNITS_FEET_PER_SECOND_SQUARED;
    return perOrSlash() ? UNITS_FEET_PER_SECOND : UNITS_FEET;
  }
  if (has("IN")) return (squared() || perOrSlash()) ? UNITS_INCHES_PER_SECOND_SQUARED : UNITS_INCHES;

  if (has("MILL") || has("MM")) return UNITS_MILLIMETERS;
  if (has("CENTIM") || has("CM")) return UNITS_CENTIMETERS;
  if (has("PA")) return UNITS_PASCALS;
  if (has("MPH")) return has("KMPH") ? UNITS_KILOMETERS_PER_HOUR : UNITS_MILES_PER_HOUR;

  if (has("MI") || has("SM")) {
    if (has("DMI") || has("DATA")) return (perOrSlash() || has("H")) ? UNITS_DATA_MILES_PER_HOUR : UNITS_DATA_MILES;
    if (squared()) return UNITS_MILES_PER_SECOND_SQUARED;
    if (has("SEC") || perOrSlash() || has("H")) return UNITS_MILES_PER_HOUR;
    return UNITS_MILES;
  }
  if (has("KILO") || has("KM")) {
    if (squared()) return UNITS_KILOMETERS_PER_SECOND_SQUARED;
    if (perOrSlash()) return has("H") ? UNITS_KILOMETERS_PER_HOUR : UNITS_KILOMETERS_PER_SECOND;
    return UNITS_KILOMETERS;
  }

  if (has("TIME")) return UNITS_SECONDS;
  if (has("RPM") || has("REV")) return UNITS_REVOLUTIONS_PER_MINUTE;
  if (has("CE")) return UNITS_CELSIUS;
  if (has("FA")) return UNITS_FAHRENHEIT;
  if (has("KEL")) return UNITS_KELVIN;
  if (has("RANK")) return UNITS_RANKINE;
  if (has("REA")) return UNITS_REAUMUR;

  if (has("ML") || has("MILLILITER")) return UNITS_MILLILITERS;
  if (has("MIL")) return UNITS_MIL;
  if (has("LIT")) return UNITS_LITERS;

  if (has("Z") || has("OUN")) return has("FL") ? UNITS_FLUID_OUNCES : UNITS_UNKNOWN;

  if (has("CUP")) return UNITS_CUPS;
  if (has("PT") || has("PINT")) return UNITS_PINTS;
  if (has("QT") || has("QUART")) return UNITS_QUARTS;
  if (has("GAL")) return UNITS_GALLONS;
  if (has("TSP") || has("TEA")) return UNITS_TEASPOONS;
  if (has("TB") || has("TABLE")) return UNITS_TABLESPOONS;

  if (has("KV")) return UNITS_KILOVOLTS;
  if (has("GV")) return UNITS_GIGAVOLTS;
  if (has("UV")) return UNITS_MICROVOLTS;
  if (has("MV")) return UNITS_MILLIVOLTS;

  if (has("M")) {
    if (squared()) return UNITS_METERS_PER_SECOND_SQUARED;
    return perOrSlash() ? UNITS_METERS_PER_SECOND : UNITS_METERS;
  }

  // Whatever is left may be the code itself; a word reads as 0. A number
  // beyond the range of a code is no code either.
  errno = 0;
  const long code = std::strtol(u.c_str(), nullptr, 10);
  if (errno != 0 || code < INT_MIN || code > INT_MAX) return UNITS_UNKNOWN;
  return static_cast<UnitType_t>(code);
}

UnitType_t unitsGetTypeFromString(const char* text) {
  if (!text) return UNITS_UNKNOWN;
  return unitsGetTypeFromString(std::string(text));
}

std::vector<UnitType_t> enumerateUnitsForClass(UnitClass_t unitClass) {
  std::vector<UnitType_t> types;
  for (const UnitEntry& entry : UNIT_TABLE) {
    if (unitsGetClass(entry.type) == unitClass) types.push_back(entry.type);
  }
  return types;
}

}  // namespace UTILS
