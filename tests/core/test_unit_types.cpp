// The numeric UTILS unit codes: classes, names, abbreviations, conversions and
// the reading of unit texts.

#include "core/UnitTypes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace UTILS;

namespace {

const double PI = 3.14159265358979323846;

UnitType_t code(int value) { return static_cast<UnitType_t>(value); }

const UnitClass_t ALL_CLASSES[] = {UNITCLASS_DATA,        UNITCLASS_ANGLE,       UNITCLASS_DISTANCE,
                                   UNITCLASS_SPEED,       UNITCLASS_ACCELERATION, UNITCLASS_TIME,
                                   UNITCLASS_TEMPERATURE, UNITCLASS_REVOLUTION,  UNITCLASS_VOLUME,
                                   UNITCLASS_PRESSURE,    UNITCLASS_POTENTIAL};

std::vector<UnitType_t> allNamedCodes() {
  std::vector<UnitType_t> codes;
  for (UnitClass_t unitClass : ALL_CLASSES) {
    for (UnitType_t type : enumerateUnitsForClass(unitClass)) codes.push_back(type);
  }
  return codes;
}

TEST(UnitClasses, FollowTheCodeRanges) {
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(UNITS_UNKNOWN));
  EXPECT_EQ(UNITCLASS_TIME, unitsGetClass(code(1)));
  EXPECT_EQ(UNITCLASS_TIME, unitsGetClass(code(6)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(7)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(9)));
  EXPECT_EQ(UNITCLASS_ANGLE, unitsGetClass(code(10)));
  EXPECT_EQ(UNITCLASS_ANGLE, unitsGetClass(code(17)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(18)));
  EXPECT_EQ(UNITCLASS_DISTANCE, unitsGetClass(code(32)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(33)));
  EXPECT_EQ(UNITCLASS_SPEED, unitsGetClass(code(45)));  // the gap still counts as speed
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(49)));
  EXPECT_EQ(UNITCLASS_ACCELERATION, unitsGetClass(code(56)));
  EXPECT_EQ(UNITCLASS_TEMPERATURE, unitsGetClass(code(64)));
  EXPECT_EQ(UNITCLASS_REVOLUTION, unitsGetClass(code(73)));
  EXPECT_EQ(UNITCLASS_VOLUME, unitsGetClass(code(88)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(90)));
  EXPECT_EQ(UNITCLASS_PRESSURE, unitsGetClass(code(107)));
  EXPECT_EQ(UNITCLASS_POTENTIAL, unitsGetClass(code(115)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(116)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(-1)));
  EXPECT_EQ(UNITCLASS_DATA, unitsGetClass(code(100000)));
}

TEST(UnitClasses, Names) {
  const char* expected[] = {"Data",        "Angle",      "Distance", "Speed",    "Acceleration",      "Time",
                            "Temperature", "Revolution", "Volume",   "Pressure", "Electric Potential"};
  for (int i = 0; i <= 10; ++i) EXPECT_STREQ(expected[i], unitsGetClassString(static_cast<UnitClass_t>(i)));
  EXPECT_STREQ("Data", unitsGetClassString(static_cast<UnitClass_t>(11)));
  EXPECT_STREQ("Data", unitsGetClassString(static_cast<UnitClass_t>(-3)));
}

TEST(UnitClasses, EnumerateListsNamedCodesInOrder) {
  const std::vector<UnitType_t> speed = {code(40), code(41), code(42), code(43),
                                         code(44), code(46), code(47), code(48)};
  EXPECT_EQ(speed, enumerateUnitsForClass(UNITCLASS_SPEED));
  const std::vector<UnitType_t> time = {code(1), code(2), code(3), code(4), code(5), code(6)};
  EXPECT_EQ(time, enumerateUnitsForClass(UNITCLASS_TIME));
  EXPECT_EQ(std::vector<UnitType_t>{UNITS_UNKNOWN}, enumerateUnitsForClass(UNITCLASS_DATA));
  EXPECT_EQ(6u, enumerateUnitsForClass(UNITCLASS_POTENTIAL).size());
  EXPECT_TRUE(enumerateUnitsForClass(static_cast<UnitClass_t>(99)).empty());
  EXPECT_EQ(75u, allNamedCodes().size());
}

TEST(UnitNames, MissingNamesAreNullOrEmpty) {
  EXPECT_STREQ("Unknown", unitsGetTypeString(UNITS_UNKNOWN));
  EXPECT_EQ(nullptr, unitsGetTypeString(code(45)));
  EXPECT_EQ(nullptr, unitsGetTypeString(code(-7)));
  EXPECT_STREQ("", unitsGetTypeStringNoNull(code(45)));
  EXPECT_STREQ("Meters", unitsGetTypeStringNoNull(code(20)));
  // Time codes have an empty abbreviation, not a missing one.
  EXPECT_STREQ("", unitsGetTypeAbbrevString(code(1)));
  EXPECT_STREQ("BAM/sec", unitsGetTypeAbbrevString(code(73)));
  EXPECT_EQ(nullptr, unitsGetTypeAbbrevString(code(45)));
  EXPECT_STREQ("", unitsGetTypeAbbrevStringNoNull(code(45)));
  for (UnitType_t type : allNamedCodes()) {
    EXPECT_STRNE("", unitsGetTypeString(type));
    if (unitsGetClass(type) != UNITCLASS_TIME && type != UNITS_UNKNOWN) {
      EXPECT_STRNE("", unitsGetTypeAbbrevString(type));
    }
  }
}

TEST(UnitNames, RoundTripByNumber) {
  for (UnitType_t type : allNamedCodes()) EXPECT_EQ(type, unitsGetTypeFromString(std::to_string(type)));
}

TEST(UnitNames, RoundTripByName) {
  for (UnitType_t type : allNamedCodes()) {
    // "BAMs per Second" reads as BAM: the "BAM" rule comes before any rate rule.
    const UnitType_t expected = type == UNITS_BAM_PER_SECOND ? UNITS_BAM : type;
    EXPECT_EQ(expected, unitsGetTypeFromString(unitsGetTypeString(type))) << unitsGetTypeString(type);
    EXPECT_EQ(expected, unitsGetTypeFromString(std::string(unitsGetTypeString(type))));
  }
}

TEST(UnitTypeFromString, LooseTextsResolveByRuleOrder) {
  struct Case {
    const char* text;
    int expected;
  };
  const Case cases[] = {
      {"hh:mm:ss", 3},   {"mm:ss", 2},        {"feet/sec", 44},   {"miles per second", 43}, {"knots", 42},
      {"nm", 26},        {"radar miles", 30}, {"", 0},            {"105", 105},             {"m", 20},
      {"M", 20},         {"s", 1},            {"secs", 1},        {"mins", 2},              {"hrs", 3},
      {"julian", 4},     {"ordinal", 4},          {"mon", 5},         {"dtg", 6},               {"deg", 11},
      {"DMS", 13},       {"deg min", 12},     {"deg/sec", 72},    {"deg sec", 13},          {"mrad", 17},
      {"rad/sec", 71},   {"rad", 10},         {"kts", 42},        {"kts/sec", 56},          {"km/hr", 41},
      {"kmph", 41},      {"mph", 43},         {"km/s", 46},       {"km/s^2", 51},           {"km", 21},
      {"mi", 23},        {"sm", 23},          {"mi/hr", 43},      {"dm", 30},               {"dm/hr", 47},
      {"data miles", 30}, {"yd", 22},         {"yd/s", 48},       {"yd/s^2", 52},           {"ft", 24},
      {"ft/s^2", 54},    {"in", 25},          {"in/s^2", 55},     {"mm", 28},               {"cm", 27},
      {"kyd", 29},       {"fm", 31},          {"kf", 32},         {"m/s", 40},              {"m/s^2", 50},
      {"C", 60},         {"F", 61},           {"K", 62},          {"kelvin", 62},           {"RA", 63},
      {"re", 64},        {"celsius", 60},     {"rpm", 70},        {"l", 80},                {"ml", 81},
      {"fl oz", 83},     {"oz", 0},           {"cup", 84},        {"pt", 85},               {"qt", 86},
      {"gal", 82},       {"tsp", 87},         {"tbsp", 88},       {"mbar", 100},            {"bar", 101},
      {"psia", 102},     {"atm", 103},        {"torr", 104},      {"Pa", 105},              {"kPa", 106},
      {"MPa", 107},      {"V", 0},            {"kV", 113},        {"mV", 111},              {"uV", 112},
      {"MV", 111},       {"GV", 115},         {"volts", 110},     {"megavolts", 114},       {"mil", 16},
      {"utm", 14},       {"bam", 15},         {"time", 1},        {"qqq", 0},               {"unknown", 0},
      {"-12", -12},      {"99999999999999999999", 0},
  };
  for (const Case& c : cases) EXPECT_EQ(c.expected, unitsGetTypeFromString(c.text)) << "text: " << c.text;
  EXPECT_EQ(UNITS_UNKNOWN, unitsGetTypeFromString(static_cast<const char*>(nullptr)));
}

TEST(UnitConvert, WithinAClassThroughTheBase) {
  EXPECT_DOUBLE_EQ(1000.0, unitsConvertValue(code(21), code(20), 1.0));
  EXPECT_DOUBLE_EQ(1.0, unitsConvertValue(code(20), code(21), 1000.0));
  EXPECT_NEAR(PI, unitsConvertValue(code(11), code(10), 180.0), 1e-15);
  EXPECT_NEAR(180.0, unitsConvertValue(code(10), code(11), PI), 1e-12);
  EXPECT_DOUBLE_EQ(1852.0 * 1.0936133342174104, unitsConvertValue(code(26), code(22), 1.0));
  EXPECT_DOUBLE_EQ(1852.0, unitsConvertValue(code(56), code(50), 1.0));
  EXPECT_DOUBLE_EQ(1000.0, unitsConvertValue(code(51), code(50), 1.0));
  EXPECT_DOUBLE_EQ(9.5492965855, unitsConvertValue(code(71), code(70), 1.0));
  EXPECT_DOUBLE_EQ(6.0, unitsConvertValue(code(70), code(72), 1.0));
  EXPECT_DOUBLE_EQ(3.785, unitsConvertValue(code(82), code(80), 1.0));
  EXPECT_DOUBLE_EQ(1013.247139776643, unitsConvertValue(code(103), code(100), 1.0));
  EXPECT_DOUBLE_EQ(1e-3, unitsConvertValue(code(110), code(113), 1.0));
  EXPECT_DOUBLE_EQ(6.283185307179586, unitsConvertValue(code(15), code(10), 1.0));
}

TEST(UnitConvert, TheTwoFactorsAreNotInverses) {
  // One metre goes out in yards and comes back through the other factor.
  const double yards = unitsConvertValue(code(20), code(22), 1.0);
  EXPECT_DOUBLE_EQ(1.0936133342174104, yards);
  EXPECT_NEAR(1.0, unitsConvertValue(code(22), code(20), yards), 1e-12);
  // Feet to meters and back drifts by the mismatch of the two factors.
  const double feet = unitsConvertValue(code(20), code(24), unitsConvertValue(code(24), code(20), 1.0));
  EXPECT_DOUBLE_EQ(0.30479999 * 3.28084, feet);
  EXPECT_NE(1.0, feet);
}

TEST(UnitConvert, UnchangedAcrossClassesAndForTimeAndData) {
  EXPECT_DOUBLE_EQ(5.0, unitsConvertValue(code(20), code(11), 5.0));
  EXPECT_DOUBLE_EQ(120.0, unitsConvertValue(code(1), code(2), 120.0));
  EXPECT_DOUBLE_EQ(7.0, unitsConvertValue(UNITS_UNKNOWN, code(200), 7.0));
  EXPECT_DOUBLE_EQ(7.0, unitsConvertValue(code(24), code(24), 7.0));
  // The degree forms are one value written three ways.
  EXPECT_DOUBLE_EQ(5.5, unitsConvertValue(code(11), code(12), 5.5));
  EXPECT_DOUBLE_EQ(5.5, unitsConvertValue(code(13), code(11), 5.5));
  EXPECT_NE(5.5, unitsConvertValue(code(13), code(10), 5.5));
  // The unnamed speed code converts as the base.
  EXPECT_DOUBLE_EQ(3.6, unitsConvertValue(code(45), code(41), 1.0));
}

TEST(UnitConvert, TemperaturesGoThroughCelsius) {
  EXPECT_NEAR(100.0, unitsConvertValue(code(61), code(60), 212.0), 1e-6);
  EXPECT_DOUBLE_EQ(273.15, unitsConvertValue(code(60), code(62), 0.0));
  EXPECT_NEAR(212.0, unitsConvertValue(code(62), code(61), 373.15), 1e-6);
  EXPECT_NEAR(0.0, unitsConvertValue(code(63), code(60), 491.67), 1e-6);
  EXPECT_NEAR(491.67, unitsConvertValue(code(60), code(63), 0.0), 1e-9);
  EXPECT_DOUBLE_EQ(100.0, unitsConvertValue(code(64), code(60), 80.0));
  EXPECT_DOUBLE_EQ(80.0, unitsConvertValue(code(60), code(64), 100.0));
  EXPECT_NEAR(373.15, unitsConvertValue(code(64), code(62), 80.0), 1e-9);
}

TEST(UnitConvert, ConversionFactor) {
  EXPECT_DOUBLE_EQ(1000.0, unitsGetConversionFactor(code(21), code(20)));
  EXPECT_DOUBLE_EQ(1.0, unitsGetConversionFactor(code(21), code(11)));
  EXPECT_DOUBLE_EQ(1.0, unitsGetConversionFactor(code(3), code(1)));
  // Temperatures have offsets, so the "factor" is the conversion of 1.
  EXPECT_NEAR((1.0 - 32.0) * 0.555555556, unitsGetConversionFactor(code(61), code(60)), 1e-12);
  EXPECT_NEAR(PI / 180.0, unitsGetConversionFactor(code(11), code(10)), 1e-18);
}

}  // namespace
