// The field grammar of OTH Gold sets: what a reader makes of each written
// form, the codes of bad fields, and that the writers produce what the
// readers take back.

#include <gtest/gtest.h>

#include <cmath>

#include "core/TimeCalendar.h"
#include "importers/oth/OthFields.h"

using namespace OthLib;

namespace {
constexpr double kDeg = 0.017453292519943295;
}

TEST(OthCheckDigits, SumOfDigitsModuloTen) {
  EXPECT_EQ(calcChecksum("3530N"), 1);     // 3+5+3+0
  EXPECT_EQ(calcChecksum("121530Z"), 2);   // 1+2+1+5+3+0
  EXPECT_EQ(calcChecksum("NM"), 0);
  EXPECT_TRUE(verifyChecksummedField("3530N1"));
  EXPECT_FALSE(verifyChecksummedField("3530N2"));
  EXPECT_FALSE(verifyChecksummedField("3530N"));
  EXPECT_FALSE(verifyChecksummedField(""));
  // A digit sum ending in 7 needs check digit 7, not 0.
  EXPECT_FALSE(verifyChecksummedField("1600N0"));
  EXPECT_TRUE(verifyChecksummedField("1600N7"));
}

TEST(OthPosition, ReadsDegreesMinutesSecondsAndHemispheres) {
  double lla[3] = {};
  ASSERT_EQ(getPositionLLA(lla, "3530N1", "07530W5", ""), 0);
  EXPECT_NEAR(lla[0], 35.5 * kDeg, 1e-12);
  EXPECT_NEAR(lla[1], -75.5 * kDeg, 1e-12);
  EXPECT_EQ(lla[2], 0.0);

  ASSERT_EQ(getPositionLLA(lla, "353015S7", "1753045E5", "ALT350"), 0);
  EXPECT_NEAR(lla[0], -(35.0 + 30.0 / 60.0 + 15.0 / 3600.0) * kDeg, 1e-12);
  EXPECT_NEAR(lla[1], (175.0 + 30.0 / 60.0 + 45.0 / 3600.0) * kDeg, 1e-12);
  EXPECT_NEAR(lla[2], 350 * 100.0 * 0.30479999, 1e-9);

  ASSERT_EQ(getPositionLLA(lla, "3530N1", "07530W5", "200FT"), 0);
  EXPECT_NEAR(lla[2], -200 * 0.30479999, 1e-9);
}

TEST(OthPosition, BadFieldsGiveTheirCodes) {
  double lla[3] = {};
  EXPECT_EQ(getPositionLLA(nullptr, "3530N1", "07530W5", ""), 1);
  EXPECT_EQ(getPositionLLA(lla, "", "07530W5", ""), 2);
  EXPECT_EQ(getPositionLLA(lla, "3530N1", "", ""), 2);
  EXPECT_EQ(getPositionLLA(lla, "1600N0", "07530W5", ""), 3);
  EXPECT_EQ(getPositionLLA(lla, "3530N1", "07530W6", ""), 3);
  EXPECT_EQ(getPositionLLA(lla, "3530X1", "07530W5", ""), 4);   // no hemisphere
  EXPECT_EQ(getPositionLLA(lla, "9530N7", "07530W5", ""), 4);   // beyond the pole
  EXPECT_EQ(getPositionLLA(lla, "3560N4", "07530W5", ""), 4);   // 60 minutes
  EXPECT_EQ(getPositionLLA(lla, "35300000N1", "07530W5", ""), 4);  // too long
  EXPECT_EQ(getPositionLLA(lla, "3530N1", "07530E5", "ALTxyz"), 5);
  EXPECT_NEAR(lla[1], 75.5 * kDeg, 1e-12);  // the rest is read all the same
}

TEST(OthPosition, WrittenFormsReadBack) {
  // 59.9999 minutes round up into the next degree rather than print "60".
  EXPECT_EQ(formatLatitude((10.0 + 59.9999 / 60.0) * kDeg), "1100N2");
  const double lat = -(12.0 + 34.0 / 60.0 + 56.0 / 3600.0) * kDeg;
  const double lon = (123.0 + 4.0 / 60.0 + 5.0 / 3600.0) * kDeg;
  double lla[3] = {};
  ASSERT_EQ(getPositionLLA(lla, formatLatitude(lat, true), formatLongitude(lon, true), formatHeight(-30.48)), 0);
  EXPECT_NEAR(lla[0], lat, 1e-9);
  EXPECT_NEAR(lla[1], lon, 1e-9);
  EXPECT_NEAR(lla[2], -30.48, 0.01);
}

TEST(OthTime, DateTimeGroupsOfTheCurrentYear) {
  double seconds = 0;
  int year = 0;
  ASSERT_EQ(getTime("121530Z2", "JAN", seconds, year), 0);
  EXPECT_EQ(year, orvCore::currentYear());
  EXPECT_DOUBLE_EQ(seconds, 11 * 86400.0 + 15 * 3600.0 + 30 * 60.0);
  EXPECT_EQ(getTime("121530Z2", "jan", seconds), 0);

  EXPECT_EQ(getTime("121530Z", "JAN", seconds), 1);
  EXPECT_EQ(getTime("121530Z2", "JANUARY", seconds), 1);
  EXPECT_EQ(getTime("121530Z3", "JAN", seconds), 2);
  EXPECT_EQ(getTime("122530Z3", "JAN", seconds), 3);   // hour 25
  EXPECT_EQ(getTime("321530Z4", "JAN", seconds), 3);   // 32 January
  EXPECT_EQ(getTime("121530Z2", "XYZ", seconds), 3);   // no month
  EXPECT_EQ(getTime("121530A2", "JAN", seconds), 3);
}

TEST(OthTime, WritingSplitsTheTimeOfTheReferenceYear) {
  std::string group, month;
  setDateTimeGroup(11 * 86400.0 + 15 * 3600.0 + 30 * 60.0 + 59.0, 2024, group, month);
  EXPECT_EQ(group, "121530Z2");
  EXPECT_EQ(month, "JAN");
  setDateTimeGroup(59 * 86400.0, 2024, group, month);  // a leap year
  EXPECT_EQ(group, "290000Z1");
  EXPECT_EQ(month, "FEB");
  setDateTimeGroup(-1.0, 2024, group, month);
  EXPECT_EQ(group, "0100000Z");
  EXPECT_EQ(month, "JAN");
  setDateTimeGroup(NAN, 2024, group, month);
  EXPECT_EQ(group, "0100000Z");

  EXPECT_EQ(getMonth(-3), "JAN");
  EXPECT_EQ(getMonth(4), "MAY");
  EXPECT_EQ(getMonth(11), "DEC");
  EXPECT_EQ(getMonth(40), "DEC");
}

TEST(OthTime, ExpandedGroupsCarryTheirYear) {
  double seconds = 0;
  int year = 0;
  ASSERT_EQ(getExpandedTime("12153045.5Z", "JAN2023", seconds, year), 0);
  EXPECT_EQ(year, 2023);
  EXPECT_DOUBLE_EQ(seconds, 11 * 86400.0 + 15 * 3600.0 + 30 * 60.0 + 45.5);
  ASSERT_EQ(getExpandedTime("01000000.25Z", "MAR", seconds, year), 0);
  EXPECT_EQ(year, orvCore::currentYear());
  EXPECT_EQ(getExpandedTime("121530Z2", "JAN", seconds, year), 1);
  EXPECT_EQ(getExpandedTime("12153045.5Z", "JAN23", seconds, year), 1);
  EXPECT_EQ(getExpandedTime("12153075.5Z", "JAN2023", seconds, year), 3);
  EXPECT_EQ(getExpandedTime("30153045.5Z", "FEB2023", seconds, year), 3);

  std::string group, month;
  setExpandedDateTimeGroup(31 * 86400.0 + 3661.96, 2023, group, month);  // rounds to the tenth
  EXPECT_EQ(group, "01010102.0Z");
  EXPECT_EQ(month, "FEB2023");
  ASSERT_EQ(getExpandedTime(group, month, seconds, year), 0);
  EXPECT_DOUBLE_EQ(seconds, 31 * 86400.0 + 3662.0);
  EXPECT_DOUBLE_EQ(secondsBetweenYears(2023, 2025), (365 + 366) * 86400.0);
  EXPECT_DOUBLE_EQ(secondsBetweenYears(2025, 2024), -366 * 86400.0);
}

TEST(OthEllipseFields, AxesInEveryUnitWithOptionalCheckDigit) {
  bool checked = true;
  EXPECT_DOUBLE_EQ(getAxisM("10NM", checked), 18520.0);
  EXPECT_FALSE(checked);
  EXPECT_DOUBLE_EQ(getAxisM("10NM1", checked), 18520.0);
  EXPECT_TRUE(checked);
  EXPECT_DOUBLE_EQ(getAxisM("10NM2", checked), -2.0);
  EXPECT_DOUBLE_EQ(getAxisM("2.5KM", checked), 2500.0);
  EXPECT_DOUBLE_EQ(getAxisM("100FT", checked), 30.48);
  EXPECT_DOUBLE_EQ(getAxisM("5KY", checked), 4572.0);
  EXPECT_DOUBLE_EQ(getAxisM("100YD", checked), 91.44);
  EXPECT_DOUBLE_EQ(getAxisM("10XX", checked), -1.0);
  EXPECT_DOUBLE_EQ(getAxisM("NM", checked), -1.0);
  EXPECT_DOUBLE_EQ(getAxisM("-1NM", checked), -1.0);

  EXPECT_DOUBLE_EQ(getMajorAxisBearing("045T"), 45.0);
  EXPECT_DOUBLE_EQ(getMajorAxisBearing("045.5T"), 45.5);
  EXPECT_DOUBLE_EQ(getMajorAxisBearing("45T"), -1.0);
  EXPECT_DOUBLE_EQ(getMajorAxisBearing("0450000T"), -1.0);
  EXPECT_DOUBLE_EQ(getMajorAxisBearing("0450"), -2.0);
  EXPECT_DOUBLE_EQ(getMajorAxisBearing("ABCT"), -3.0);
  EXPECT_DOUBLE_EQ(getMajorAxisBearing("400T"), -3.0);
}

TEST(OthMotionFields, CourseAndSpeedInEveryUnit) {
  double value = 0;
  ASSERT_EQ(getCourse("270.0T", value), 0);
  EXPECT_NEAR(value, 270 * kDeg, 1e-12);
  EXPECT_EQ(getCourse("", value), 1);
  EXPECT_EQ(getCourse("270.0", value), 2);
  EXPECT_EQ(getCourse("abcT", value), 2);
  ASSERT_EQ(getSpeed("12.0K", value), 0);
  EXPECT_NEAR(value, 12 * 1852.0 / 3600.0, 1e-12);
  ASSERT_EQ(getSpeed("12KTS", value), 0);
  EXPECT_NEAR(value, 12 * 1852.0 / 3600.0, 1e-12);
  ASSERT_EQ(getSpeed("36KPH", value), 0);
  EXPECT_NEAR(value, 10.0, 1e-12);
  EXPECT_EQ(getSpeed("12MPH", value), 2);
  EXPECT_EQ(getSpeed("", value), 1);

  EXPECT_EQ(formatCourse(-90 * kDeg), "270.0T");
  EXPECT_EQ(formatBearing(-15.0), "345T");
}
