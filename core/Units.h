#pragma once
// Units of measure. A unit belongs to a family ("length", "angle", ...) and
// is tied to the family's base unit by an offset and a scalar: base =
// (value + offset) * scalar. Only units of one family convert into each other.

#include <map>
#include <string>
#include <vector>

namespace orvCore {

class Units {
 public:
  // The invalid unit: family "invalid", which converts to nothing.
  Units();
  // A unit that only scales to its base.
  Units(const std::string& name, const std::string& abbreviation, double toBaseScalar, const std::string& family);
  virtual ~Units();

  // The one way to make a unit with an offset (temperatures).
  static Units offsetThenScaleUnit(const std::string& name, const std::string& abbreviation, double toBaseOffset,
                                   double toBaseScalar, const std::string& family);

  bool isValid() const;
  const std::string& name() const { return name_; }
  const std::string& abbreviation() const { return abbreviation_; }
  const std::string& family() const { return family_; }
  double toBaseScalar() const { return toBaseScalar_; }
  double toBaseOffset() const { return toBaseOffset_; }

  // True if both are of one family and the target's scalar isn't zero.
  bool canConvert(const Units& other) const;
  // Writes the value in the target unit to `out` and answers 0; answers 1 and
  // leaves `out` alone when the units don't convert.
  int convertTo(const Units& target, double value, double& out) const;
  // The value in the target unit, or the value unchanged when the units don't convert.
  double convertTo(const Units& target, double value) const;

  // Units are equal when they convert alike: scalar, offset and family, not the names.
  bool operator==(const Units& other) const;
  bool operator!=(const Units& other) const { return !(*this == other); }

  // The standard units, family by family. They are built with the program's
  // other static objects; don't read them from another static initializer.
  static const Units UNITLESS;

  static const Units SECONDS;
  static const Units MILLISECONDS;
  static const Units MICROSECONDS;
  static const Units NANOSECONDS;
  static const Units MINUTES;
  static const Units HOURS;
  static const Units DAYS;

  static const Units RADIANS;
  static const Units DEGREES;
  static const Units MILLIRADIANS;
  static const Units BAM;
  static const Units MIL;

  static const Units METERS;
  static const Units KILOMETERS;
  static const Units YARDS;
  static const Units MILES;
  static const Units FEET;
  static const Units INCHES;
  static const Units NAUTICAL_MILES;
  static const Units CENTIMETERS;
  static const Units MILLIMETERS;
  static const Units KILOYARDS;
  static const Units FATHOMS;
  static const Units KILOFEET;
  static const Units DATA_MILES;

  static const Units METERS_PER_SECOND;
  static const Units KILOMETERS_PER_HOUR;
  static const Units KNOTS;
  static const Units MILES_PER_HOUR;
  static const Units FEET_PER_SECOND;
  static const Units KILOMETERS_PER_SECOND;
  static const Units DATA_MILES_PER_HOUR;
  static const Units YARDS_PER_SECOND;

  static const Units METERS_PER_SECOND_SQUARED;
  static const Units KILOMETERS_PER_SECOND_SQUARED;
  static const Units YARDS_PER_SECOND_SQUARED;
  static const Units MILES_PER_SECOND_SQUARED;
  static const Units FEET_PER_SECOND_SQUARED;
  static const Units INCHES_PER_SECOND_SQUARED;
  static const Units NAUTICAL_MILES_PER_SECOND_SQUARED;

  static const Units CELSIUS;
  static const Units FAHRENHEIT;
  static const Units KELVIN;
  static const Units RANKINE;
  static const Units REAUMUR;

  static const Units HERTZ;
  static const Units KILOHERTZ;
  static const Units MEGAHERTZ;
  static const Units REVOLUTIONS_PER_MINUTE;
  static const Units RADIANS_PER_SECOND;
  static const Units DEGREES_PER_SECOND;

  static const Units LITER;
  static const Units MILLILITER;
  static const Units FLUID_OUNCE;
  static const Units CUP;
  static const Units PINT;
  static const Units QUART;
  static const Units GALLON;
  static const Units TEASPOON;
  static const Units TABLESPOON;

  static const Units MILLIBAR;
  static const Units BAR;
  static const Units POUNDS_PER_SQUARE_INCH;
  static const Units ATMOSPHERE;
  static const Units TORR;
  static const Units PASCALS;
  static const Units KILOPASCAL;
  static const Units MEGAPASCAL;

  static const Units VOLT;
  static const Units MILLIVOLT;
  static const Units MICROVOLT;
  static const Units KILOVOLT;
  static const Units MEGAVOLT;
  static const Units GIGAVOLT;

 private:
  std::string name_;
  std::string abbreviation_;
  double toBaseOffset_;
  double toBaseScalar_;
  std::string family_;
};

// Units found by family, by name (any case) and by abbreviation (exact case).
// Not locked: fill a registry on one thread before sharing it.
class UnitsRegistry {
 public:
  UnitsRegistry();
  virtual ~UnitsRegistry();

  // Registers the standard units, except NANOSECONDS, KILOHERTZ and MEGAHERTZ.
  void registerDefaultUnits();
  // Adds a unit: answers 1 and changes nothing if its family already holds an
  // equal unit, else 0. A name or abbreviation already taken keeps its first unit.
  int registerUnits(const Units& units);

  // The units of a family in the order registered; empty for an unknown family.
  const std::vector<Units>& units(const std::string& family) const;
  // The family names in sorted order.
  std::vector<std::string> families() const;

  // By name, ignoring case: the invalid unit when unknown.
  const Units& unitsByName(const std::string& name) const;
  // By name: 0 and the unit in `out`, or 1 and the invalid unit.
  int unitsByName(const std::string& name, Units& out) const;
  // By abbreviation, case kept ("MV" megavolt, "mV" millivolt).
  const Units& unitsByAbbreviation(const std::string& abbreviation) const;
  int unitsByAbbreviation(const std::string& abbreviation, Units& out) const;

 private:
  Units invalid_;
  std::vector<Units> empty_;
  std::map<std::string, std::vector<Units> > unitsByFamily_;
  std::map<std::string, Units> unitsByName_;
  std::map<std::string, Units> unitsByAbbreviation_;
};

}  // namespace orvCore
