// orvCore::Units conversions and the UnitsRegistry look-ups.

#include "core/Units.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using orvCore::Units;
using orvCore::UnitsRegistry;

namespace {

const double PI = 3.14159265358979323846;

TEST(Units, DefaultIsTheInvalidUnit) {
  const Units invalid;
  EXPECT_FALSE(invalid.isValid());
  EXPECT_EQ("Invalid", invalid.name());
  EXPECT_EQ("inv", invalid.abbreviation());
  EXPECT_EQ("invalid", invalid.family());
  EXPECT_DOUBLE_EQ(0.0, invalid.toBaseOffset());
  EXPECT_DOUBLE_EQ(1.0, invalid.toBaseScalar());
  EXPECT_FALSE(invalid.canConvert(Units::METERS));
  EXPECT_FALSE(Units::METERS.canConvert(invalid));
  EXPECT_TRUE(Units::UNITLESS.isValid());
}

TEST(Units, ConvertsWithinAFamily) {
  EXPECT_DOUBLE_EQ(1000.0, Units::KILOMETERS.convertTo(Units::METERS, 1.0));
  EXPECT_DOUBLE_EQ(1.0, Units::METERS.convertTo(Units::NAUTICAL_MILES, 1852.0));
  EXPECT_NEAR(PI, Units::DEGREES.convertTo(Units::RADIANS, 180.0), 1e-15);
  EXPECT_NEAR(180.0, Units::RADIANS.convertTo(Units::DEGREES, PI), 1e-12);
  EXPECT_DOUBLE_EQ(90.0, Units::HOURS.convertTo(Units::MINUTES, 1.5));
  EXPECT_DOUBLE_EQ(2.0, Units::BAR.convertTo(Units::MILLIBAR, 0.002));
  double out = 0.0;
  EXPECT_EQ(0, Units::GIGAVOLT.convertTo(Units::MEGAVOLT, 2.0, out));
  EXPECT_DOUBLE_EQ(2000.0, out);
}

TEST(Units, TemperaturesApplyOffsetThenScale) {
  EXPECT_NEAR(100.0, Units::FAHRENHEIT.convertTo(Units::CELSIUS, 212.0), 1e-12);
  EXPECT_NEAR(0.0, Units::FAHRENHEIT.convertTo(Units::CELSIUS, 32.0), 1e-12);
  EXPECT_NEAR(212.0, Units::CELSIUS.convertTo(Units::FAHRENHEIT, 100.0), 1e-12);
  EXPECT_NEAR(273.15, Units::CELSIUS.convertTo(Units::KELVIN, 0.0), 1e-12);
  EXPECT_NEAR(-273.15, Units::KELVIN.convertTo(Units::CELSIUS, 0.0), 1e-12);
  EXPECT_NEAR(0.0, Units::RANKINE.convertTo(Units::CELSIUS, 491.67), 1e-12);
  EXPECT_NEAR(100.0, Units::REAUMUR.convertTo(Units::CELSIUS, 80.0), 1e-12);
  EXPECT_NEAR(373.15, Units::FAHRENHEIT.convertTo(Units::KELVIN, 212.0), 1e-12);
}

TEST(Units, WrongFamilyIsRefusedAndTheValueKept) {
  double out = 7.0;
  EXPECT_FALSE(Units::METERS.canConvert(Units::SECONDS));
  EXPECT_EQ(1, Units::METERS.convertTo(Units::SECONDS, 3.0, out));
  EXPECT_DOUBLE_EQ(7.0, out);
  EXPECT_DOUBLE_EQ(3.0, Units::METERS.convertTo(Units::SECONDS, 3.0));
  // Same scalar, other family: still refused.
  EXPECT_FALSE(Units::YARDS.canConvert(Units::YARDS_PER_SECOND));
  EXPECT_EQ(1, Units::CELSIUS.convertTo(Units::VOLT, 1.0, out));
  EXPECT_EQ(1, Units().convertTo(Units::METERS, 1.0, out));
}

TEST(Units, ZeroTargetScalarIsRefusedButNaNIsNot) {
  const Units zero("zero", "z", 0.0, "length");
  const Units notANumber("nan", "nan", std::numeric_limits<double>::quiet_NaN(), "length");
  EXPECT_FALSE(Units::METERS.canConvert(zero));
  double out = 7.0;
  EXPECT_EQ(1, Units::METERS.convertTo(zero, 1.0, out));
  EXPECT_DOUBLE_EQ(7.0, out);
  EXPECT_TRUE(Units::METERS.canConvert(notANumber));
  EXPECT_TRUE(zero.canConvert(Units::METERS));
  EXPECT_DOUBLE_EQ(0.0, zero.convertTo(Units::METERS, 5.0));
}

TEST(Units, EqualityIgnoresNames) {
  EXPECT_EQ(Units::METERS, Units("metres", "mtr", 1.0, "length"));
  EXPECT_NE(Units::METERS, Units("meters", "m", 1.0, "speed"));
  EXPECT_NE(Units::CELSIUS, Units::KELVIN);  // offsets differ
  EXPECT_EQ(Units::KELVIN, Units::offsetThenScaleUnit("K", "K", -273.15, 1.0, "temperature"));
  EXPECT_NE(Units::YARDS, Units::YARDS_PER_SECOND);
  EXPECT_EQ(Units(), Units());
}

TEST(Units, OffsetFactorAddsBeforeScaling) {
  const Units unit = Units::offsetThenScaleUnit("gauge", "g", 10.0, 2.0, "pressure");
  EXPECT_EQ("gauge", unit.name());
  EXPECT_DOUBLE_EQ(30.0, unit.convertTo(Units::MILLIBAR, 5.0));
  EXPECT_DOUBLE_EQ(5.0, Units::MILLIBAR.convertTo(unit, 30.0));
}

class DefaultRegistry : public ::testing::Test {
 protected:
  void SetUp() override { registry.registerDefaultUnits(); }
  UnitsRegistry registry;
};

TEST(UnitsRegistryEmpty, AnswersNothingFound) {
  const UnitsRegistry registry;
  EXPECT_TRUE(registry.families().empty());
  EXPECT_TRUE(registry.units("length").empty());
  EXPECT_FALSE(registry.unitsByName("meters").isValid());
  Units out = Units::METERS;
  EXPECT_EQ(1, registry.unitsByName("meters", out));
  EXPECT_FALSE(out.isValid());
  out = Units::METERS;
  EXPECT_EQ(1, registry.unitsByAbbreviation("m", out));
  EXPECT_FALSE(out.isValid());
}

TEST_F(DefaultRegistry, HoldsEveryFamilyInMapOrder) {
  const std::vector<std::string> expected = {"acceleration", "angle",       "elapsed time", "frequency",
                                             "length",       "potential",   "pressure",     "speed",
                                             "temperature",  "unitless",    "volume"};
  EXPECT_EQ(expected, registry.families());
  EXPECT_EQ(6u, registry.units("elapsed time").size());  // without nanoseconds
  EXPECT_EQ(13u, registry.units("length").size());
  EXPECT_TRUE(registry.units("no such family").empty());
}

TEST_F(DefaultRegistry, KeepsTableOrderWithinAFamily) {
  const std::vector<Units> temperature = {Units::CELSIUS, Units::FAHRENHEIT, Units::KELVIN, Units::RANKINE,
                                          Units::REAUMUR};
  EXPECT_EQ(temperature, registry.units("temperature"));
  const std::vector<Units>& frequency = registry.units("frequency");
  ASSERT_EQ(4u, frequency.size());
  EXPECT_EQ("cycles per second", frequency[0].name());
  EXPECT_EQ("revolutions per minute", frequency[1].name());
  EXPECT_EQ("radians per second", frequency[2].name());
  EXPECT_EQ("degrees per second", frequency[3].name());
}

TEST_F(DefaultRegistry, FindsByNameInAnyCase) {
  EXPECT_EQ("meters", registry.unitsByName("METERS").name());
  EXPECT_EQ(Units::METERS, registry.unitsByName("Meters"));
  EXPECT_EQ("knots per second", registry.unitsByName("Knots Per Second").name());
  Units out;
  EXPECT_EQ(0, registry.unitsByName("fluid ounces", out));
  EXPECT_EQ(Units::FLUID_OUNCE, out);
  EXPECT_EQ("fl oz", out.abbreviation());
}

TEST_F(DefaultRegistry, FindsByAbbreviationWithCaseKept) {
  EXPECT_FALSE(registry.unitsByAbbreviation("M").isValid());
  EXPECT_EQ("meters", registry.unitsByAbbreviation("m").name());
  EXPECT_EQ("megavolts", registry.unitsByAbbreviation("MV").name());
  EXPECT_EQ("millivolts", registry.unitsByAbbreviation("mV").name());
  EXPECT_EQ("kelvin", registry.unitsByAbbreviation("k").name());
  EXPECT_EQ("megapascals", registry.unitsByAbbreviation("MPa").name());
  Units out;
  EXPECT_EQ(0, registry.unitsByAbbreviation("psia", out));
  EXPECT_EQ(Units::POUNDS_PER_SQUARE_INCH, out);
}

TEST_F(DefaultRegistry, LeftOutUnitsStayUsableButUnlisted) {
  EXPECT_FALSE(registry.unitsByName("nanoseconds").isValid());
  EXPECT_FALSE(registry.unitsByAbbreviation("ns").isValid());
  EXPECT_FALSE(registry.unitsByAbbreviation("kHz").isValid());
  EXPECT_FALSE(registry.unitsByName("1000000 cycles per second").isValid());
  EXPECT_DOUBLE_EQ(1e6, Units::MEGAHERTZ.convertTo(Units::HERTZ, 1.0));
  EXPECT_DOUBLE_EQ(1e9, Units::SECONDS.convertTo(Units::NANOSECONDS, 1.0));
}

TEST_F(DefaultRegistry, RefusesAUnitEqualToARegisteredOne) {
  const size_t before = registry.units("length").size();
  EXPECT_EQ(1, registry.registerUnits(Units("metres", "mtr", 1.0, "length")));
  EXPECT_EQ(before, registry.units("length").size());
  EXPECT_FALSE(registry.unitsByName("metres").isValid());
  EXPECT_FALSE(registry.unitsByAbbreviation("mtr").isValid());
}

TEST_F(DefaultRegistry, FirstUnitKeepsATakenNameOrAbbreviation) {
  const Units imposter("Meters", "mtr", 2.0, "length");
  EXPECT_EQ(0, registry.registerUnits(imposter));
  EXPECT_EQ(imposter, registry.units("length").back());
  EXPECT_EQ(Units::METERS, registry.unitsByName("meters"));
  EXPECT_EQ(imposter, registry.unitsByAbbreviation("mtr"));

  const Units sameAbbreviation("double meters", "m", 2.5, "length");
  EXPECT_EQ(0, registry.registerUnits(sameAbbreviation));
  EXPECT_EQ(Units::METERS, registry.unitsByAbbreviation("m"));
  EXPECT_EQ(sameAbbreviation, registry.unitsByName("DOUBLE METERS"));
}

TEST_F(DefaultRegistry, NewFamilyIsCreatedOnFirstUnit) {
  const Units byte("bytes", "B", 1.0, "information");
  EXPECT_EQ(0, registry.registerUnits(byte));
  EXPECT_EQ(0, registry.registerUnits(Units("kibibytes", "KiB", 1024.0, "information")));
  EXPECT_EQ(2u, registry.units("information").size());
  EXPECT_EQ(12u, registry.families().size());
  EXPECT_DOUBLE_EQ(2048.0, registry.unitsByAbbreviation("KiB").convertTo(registry.unitsByName("bytes"), 2.0));
}

TEST_F(DefaultRegistry, RegisteringTheDefaultsTwiceAddsNothing) {
  const size_t lengths = registry.units("length").size();
  registry.registerDefaultUnits();
  EXPECT_EQ(lengths, registry.units("length").size());
  EXPECT_EQ(11u, registry.families().size());
}

}  // namespace
