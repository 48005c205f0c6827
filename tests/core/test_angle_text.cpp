// Angles to text and back: every text form, the rounding carries, the
// direction suffixes, and the degree-string reader.

#include "core/Angle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace orvCore;

namespace {

const double PI = 3.14159265358979323846;
const double DEG = PI / 180.0;
const std::string UTF8_DEG = "\xC2\xB0";

std::string degText(double degrees, GeodeticFormat format, int precision, bool allNumerics = true,
                    DegreeSymbolFormat symbol = DS_NONE, char pos = 'N', char neg = 'S') {
  return getAngleString(degrees * DEG, format, allNumerics, precision, symbol, pos, neg);
}

TEST(DegreeSymbol, EachFormatGivesItsBytes) {
  EXPECT_EQ("", getDegreeSymbol(DS_NONE));
  EXPECT_EQ("\xB0", getDegreeSymbol(DS_ASCII));
  EXPECT_EQ(UTF8_DEG, getDegreeSymbol(DS_UNICODE));
  EXPECT_EQ(UTF8_DEG, getDegreeSymbol(DS_UTF8));
  EXPECT_EQ("", getDegreeSymbol(static_cast<DegreeSymbolFormat>(17)));
}

TEST(AngleString, DegreesWithSymbolsAndSuffix) {
  EXPECT_EQ("12.50 N", degText(12.5, GF_DEGREES, 2, false));
  EXPECT_EQ("12.50" + UTF8_DEG + " N", degText(12.5, GF_DEGREES, 2, false, DS_UTF8));
  EXPECT_EQ("12.50\xB0 N", degText(12.5, GF_DEGREES, 2, false, DS_ASCII));
  EXPECT_EQ("12.5", degText(12.5, GF_DEGREES, 1, true, DS_UTF8));
  EXPECT_EQ("0.000 N", degText(0.0, GF_DEGREES, 3, false));
}

TEST(AngleString, NegativeAnglesUseDirectionOrMinus) {
  // A direction letter carries the sign...
  EXPECT_EQ("12.50 S", degText(-12.5, GF_DEGREES, 2, false));
  // ...all-numeric text shows a minus and no suffix...
  EXPECT_EQ("-12.50", degText(-12.5, GF_DEGREES, 2, true));
  // ...and without a negative direction the minus shows even with symbols.
  EXPECT_EQ("-12.50", degText(-12.5, GF_DEGREES, 2, false, DS_NONE, 'N', '\0'));
  EXPECT_EQ("12.50", degText(12.5, GF_DEGREES, 2, false, DS_NONE, '\0', 'S'));
  EXPECT_EQ("12" + UTF8_DEG + " 30.00' W", degText(-12.5, GF_DEGREES_MINUTES, 2, false, DS_UTF8, 'E', 'W'));
  EXPECT_EQ("-12 30.00", degText(-12.5, GF_DEGREES_MINUTES, 2, true));
  // Under one degree the sign sits on a zero degree field, and must not be lost.
  EXPECT_EQ("-0 30.00", degText(-0.5, GF_DEGREES_MINUTES, 2, true));
  EXPECT_EQ("-0 00 36.0", degText(-0.01, GF_DEGREES_MINUTES_SECONDS, 1, true));
}

TEST(AngleString, DegreesCarryToZeroAtFullCircle) {
  EXPECT_EQ("0.00", degText(359.9999999, GF_DEGREES, 2));
  EXPECT_EQ("359.99", degText(359.99, GF_DEGREES, 2));
  EXPECT_EQ("0", degText(359.6, GF_DEGREES, 0));
  EXPECT_EQ("359", degText(359.4, GF_DEGREES, 0));
}

TEST(AngleString, DegreesMinutesLayoutAndCarry) {
  EXPECT_EQ("12" + UTF8_DEG + " 30.00' N", degText(12.5, GF_DEGREES_MINUTES, 2, false, DS_UTF8));
  EXPECT_EQ("12 05.50", degText(12.0 + 5.5 / 60.0, GF_DEGREES_MINUTES, 2));
  EXPECT_EQ("12 30", degText(12.5, GF_DEGREES_MINUTES, 0));
  EXPECT_EQ("12 05", degText(12.0 + 5.4 / 60.0, GF_DEGREES_MINUTES, 0));
  EXPECT_EQ("12 00.000", degText(12.0, GF_DEGREES_MINUTES, 3));
  EXPECT_EQ("60 00.00", degText(59.99999, GF_DEGREES_MINUTES, 2));
  EXPECT_EQ("0 00.00", degText(359.9999999, GF_DEGREES_MINUTES, 2));
}

TEST(AngleString, DegreesMinutesRoundsHalfUp) {
  EXPECT_EQ("12 30.01", degText(12.0 + 30.0057 / 60.0, GF_DEGREES_MINUTES, 2));
  EXPECT_EQ("12 30.01", degText(12.0 + 30.0147 / 60.0, GF_DEGREES_MINUTES, 2));
  EXPECT_EQ("12 30.02", degText(12.0 + 30.0157 / 60.0, GF_DEGREES_MINUTES, 2));
  EXPECT_EQ("12 31", degText(12.0 + 30.6 / 60.0, GF_DEGREES_MINUTES, 0));
  // An exact half rounds up, where the stream alone would round to even.
  EXPECT_EQ("12 23", degText(12.375, GF_DEGREES_MINUTES, 0));
  EXPECT_EQ("12 00 23", degText(12.00625, GF_DEGREES_MINUTES_SECONDS, 0));
}

TEST(AngleString, DegreesMinutesSecondsLayoutAndCarry) {
  const double angle = 12.0 + 30.0 / 60.0 + 30.0 / 3600.0;
  EXPECT_EQ("12" + UTF8_DEG + " 30' 30.0\" N", degText(angle, GF_DEGREES_MINUTES_SECONDS, 1, false, DS_UTF8));
  EXPECT_EQ("12 05 07.25", degText(12.0 + 5.0 / 60.0 + 7.25 / 3600.0, GF_DEGREES_MINUTES_SECONDS, 2));
  EXPECT_EQ("12 30 30", degText(angle, GF_DEGREES_MINUTES_SECONDS, 0));
  // Seconds carry into minutes, minutes into degrees, 360 into 0.
  EXPECT_EQ("10 31 00", degText(10.0 + 30.0 / 60.0 + 59.7 / 3600.0, GF_DEGREES_MINUTES_SECONDS, 0));
  EXPECT_EQ("11 00 00", degText(10.999999, GF_DEGREES_MINUTES_SECONDS, 0));
  EXPECT_EQ("0 00 00.0", degText(359.99999999, GF_DEGREES_MINUTES_SECONDS, 1));
}

TEST(AngleString, OtherUnitsConvertFromDegrees) {
  EXPECT_EQ("1.0000", getAngleString(1.0, GF_RADIANS, true, 4, DS_NONE, 'N', 'S'));
  EXPECT_EQ("-1.0000", getAngleString(-1.0, GF_RADIANS, true, 4, DS_NONE, 'N', 'S'));
  EXPECT_EQ("1.0000 W", getAngleString(-1.0, GF_RADIANS, false, 4, DS_UTF8, 'E', 'W'));
  EXPECT_EQ("1000.000", getAngleString(1.0, GF_MILLIRADIANS, true, 3, DS_NONE, 'N', 'S'));
  EXPECT_EQ("3200.0", getAngleString(PI, GF_MIL, true, 1, DS_NONE, 'N', 'S'));
  // BAM goes through the unit table's scalar, whatever its odd value.
  EXPECT_EQ("1.5708", getAngleString(1.0, GF_BAM, true, 4, DS_NONE, 'N', 'S'));
}

TEST(AngleString, UnknownFormatGivesOnlyTheSuffix) {
  EXPECT_EQ(" N", getAngleString(0.3, static_cast<GeodeticFormat>(42), false, 2, DS_UTF8, 'N', 'S'));
  EXPECT_EQ("", getAngleString(0.3, static_cast<GeodeticFormat>(42), true, 2, DS_UTF8, 'N', 'S'));
}

TEST(AngleString, SillyPrecisionAndNonFiniteValuesDoNotCrash) {
  EXPECT_EQ("12", degText(12.25, GF_DEGREES, -5));
  EXPECT_FALSE(degText(12.25, GF_DEGREES_MINUTES_SECONDS, 1000).empty());
  EXPECT_FALSE(getAngleString(NAN, GF_DEGREES_MINUTES_SECONDS, false, 2, DS_UTF8, 'N', 'S').empty());
  EXPECT_FALSE(getAngleString(INFINITY, GF_DEGREES_MINUTES, false, 2, DS_UTF8, 'N', 'S').empty());
  EXPECT_FALSE(getAngleString(1e300, GF_DEGREES_MINUTES_SECONDS, false, 2, DS_UTF8, 'N', 'S').empty());
}

TEST(PrintLatLon, LatitudeFoldsPastThePole) {
  EXPECT_EQ("45.0 N", printLatitude(3.0 * PI / 4.0, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("45.0 S", printLatitude(-3.0 * PI / 4.0, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("90.0 N", printLatitude(PI / 2.0, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("10.0 N", printLatitude(2.0 * PI + 10.0 * DEG, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("-30 00", printLatitude(-30.0 * DEG, GF_DEGREES_MINUTES, true, 0, DS_UTF8));
}

TEST(PrintLatLon, LongitudeWrapsWithoutFolding) {
  EXPECT_EQ("90.0 W", printLongitude(3.0 * PI / 2.0, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("135.0 E", printLongitude(3.0 * PI / 4.0, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("180.0 W", printLongitude(-PI, GF_DEGREES, false, 1, DS_NONE));
  EXPECT_EQ("0.0 E", printLongitude(2.0 * PI, GF_DEGREES, false, 1, DS_NONE));
}

TEST(AngleFromDegreeString, PlainNumbers) {
  double out = 0.0;
  EXPECT_EQ(0, getAngleFromDegreeString("-5", false, out));
  EXPECT_DOUBLE_EQ(-5.0, out);
  EXPECT_EQ(0, getAngleFromDegreeString("+5", false, out));
  EXPECT_DOUBLE_EQ(5.0, out);
  // The "e" here is an exponent, not East.
  EXPECT_EQ(0, getAngleFromDegreeString("1e2", false, out));
  EXPECT_DOUBLE_EQ(100.0, out);
  EXPECT_EQ(0, getAngleFromDegreeString("180", true, out));
  EXPECT_DOUBLE_EQ(PI, out);
}

TEST(AngleFromDegreeString, DegreesMinutesSecondsWithDirections) {
  double out = 0.0;
  EXPECT_EQ(0, getAngleFromDegreeString("12 30 S", false, out));
  EXPECT_DOUBLE_EQ(-12.5, out);
  EXPECT_EQ(0, getAngleFromDegreeString("12:30:30 w", false, out));
  EXPECT_NEAR(-12.508333333333333, out, 1e-12);
  EXPECT_EQ(0, getAngleFromDegreeString("12 30 N", true, out));
  EXPECT_NEAR(12.5 * DEG, out, 1e-15);
  EXPECT_EQ(0, getAngleFromDegreeString("45" + UTF8_DEG + "30'15\"E", false, out));
  EXPECT_NEAR(45.0 + 30.0 / 60.0 + 15.0 / 3600.0, out, 1e-12);
  EXPECT_EQ(0, getAngleFromDegreeString("45\xB0" "30'N", false, out));
  EXPECT_DOUBLE_EQ(45.5, out);
  EXPECT_EQ(0, getAngleFromDegreeString("12,30", false, out));
  EXPECT_DOUBLE_EQ(12.5, out);
  EXPECT_EQ(0, getAngleFromDegreeString("\t12\n", false, out));
  EXPECT_DOUBLE_EQ(12.0, out);
}

TEST(AngleFromDegreeString, SignComesFromAnywhereAndPartsCountByMagnitude) {
  double out = 0.0;
  EXPECT_EQ(0, getAngleFromDegreeString("-12 -30", false, out));
  EXPECT_DOUBLE_EQ(-12.5, out);
  EXPECT_EQ(0, getAngleFromDegreeString("-12 30", false, out));
  EXPECT_DOUBLE_EQ(-12.5, out);
  EXPECT_EQ(0, getAngleFromDegreeString("W 12 30", false, out));
  EXPECT_DOUBLE_EQ(-12.5, out);
  // A fourth part is ignored.
  EXPECT_EQ(0, getAngleFromDegreeString("12 30 30 99", false, out));
  EXPECT_NEAR(12.508333333333333, out, 1e-12);
}

TEST(AngleFromDegreeString, FailuresLeaveTheOutputAlone) {
  const char* bad[] = {"NSEW", "", "   ", "12 x", "45d30m", "12-30", "inf", "nan", "0x10 20", "1.2.3"};
  for (const char* text : bad) {
    double out = 42.0;
    EXPECT_EQ(1, getAngleFromDegreeString(text, true, out)) << "text: " << text;
    EXPECT_DOUBLE_EQ(42.0, out) << "text: " << text;
  }
}

TEST(AngleFromDegreeString, PartsTooLargeToAddUpFail) {
  const std::string huge = "17976931348623157" + std::string(292, '0');  // the largest double, no exponent
  double out = 42.0;
  EXPECT_EQ(0, getAngleFromDegreeString(huge, false, out));
  EXPECT_TRUE(std::isfinite(out));
  out = 42.0;
  EXPECT_EQ(1, getAngleFromDegreeString(huge + " " + huge, false, out));
  EXPECT_DOUBLE_EQ(42.0, out);
}

// What getAngleString writes, getAngleFromDegreeString reads back.
TEST(AngleTextRoundTrip, EveryDegreeFormWithAndWithoutSymbols) {
  const double angles[] = {0.0, 0.25, 12.5, 45.123456, 89.999, 90.0, 179.5, -0.25, -12.5, -45.123456, -179.99};
  const GeodeticFormat formats[] = {GF_DEGREES, GF_DEGREES_MINUTES, GF_DEGREES_MINUTES_SECONDS};
  const DegreeSymbolFormat symbols[] = {DS_NONE, DS_ASCII, DS_UTF8};
  // Half a unit of the last printed digit, in degrees, per format at precision 4.
  const double tolerance[] = {0.5e-4, 0.5e-4 / 60.0, 0.5e-4 / 3600.0};
  for (double angle : angles) {
    for (int f = 0; f < 3; ++f) {
      for (DegreeSymbolFormat symbol : symbols) {
        for (bool allNumerics : {false, true}) {
          const std::string text = getAngleString(angle * DEG, formats[f], allNumerics, 4, symbol, 'E', 'W');
          double back = 1000.0;
          ASSERT_EQ(0, getAngleFromDegreeString(text, false, back)) << text;
          EXPECT_NEAR(angle, back, tolerance[f] * 1.01) << text;
        }
      }
    }
  }
}

TEST(AngleTextRoundTrip, LatitudesAndLongitudes) {
  for (double lat : {-89.5, -33.8688, 0.0, 51.4778, 89.5}) {
    double back = 1000.0;
    const std::string text = printLatitude(lat * DEG, GF_DEGREES_MINUTES_SECONDS, false, 3, DS_UTF8);
    ASSERT_EQ(0, getAngleFromDegreeString(text, true, back)) << text;
    EXPECT_NEAR(lat * DEG, back, 3e-9) << text;
  }
  for (double lon : {-179.9, -74.006, 0.0, 151.2093, 180.0}) {
    double back = 1000.0;
    const std::string text = printLongitude(lon * DEG, GF_DEGREES_MINUTES, false, 4, DS_ASCII);
    ASSERT_EQ(0, getAngleFromDegreeString(text, true, back)) << text;
    EXPECT_NEAR(lon * DEG, back, 2e-8) << text;
  }
}

}  // namespace
