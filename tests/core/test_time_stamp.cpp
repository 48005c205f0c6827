// Fixed-point seconds, time stamps and their saturation, clock steps, and
// the older DateTime.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/TimeClass.h"

using namespace orvCore;

TEST(TimeSeconds, FractionIsNormalisedAndRounded) {
  const Seconds half(-0.5);
  EXPECT_EQ(-1, half.getSeconds());
  EXPECT_EQ(500000000, half.getFraction());
  EXPECT_DOUBLE_EQ(-0.5, half.asDouble());

  const Seconds fromParts(2, -1);  // borrows a second
  EXPECT_EQ(1, fromParts.getSeconds());
  EXPECT_EQ(999999999, fromParts.getFraction());
  const Seconds carried(1, 1500000000);
  EXPECT_EQ(2, carried.getSeconds());
  EXPECT_EQ(500000000, carried.getFraction());

  // rounding to the nearest nanosecond
  EXPECT_EQ(1, Seconds(0.0000000014).getFraction());
  EXPECT_EQ(2, Seconds(0.0000000016).getFraction());
  EXPECT_EQ(123456789, Seconds(10.123456789).getFraction());
  EXPECT_EQ(Seconds(0, 0), Seconds(std::numeric_limits<double>::quiet_NaN()));
}

TEST(TimeSeconds, SaturatesAtTheLimitsOf64Bits) {
  const Seconds huge(1e30);
  EXPECT_EQ(std::numeric_limits<int64_t>::max(), huge.getSeconds());
  EXPECT_EQ(0, huge.getFraction());
  EXPECT_GT(huge, Seconds(9.2e18));
  EXPECT_GT(huge, Seconds(1e18));
  const Seconds tiny(-1e30);
  EXPECT_EQ(std::numeric_limits<int64_t>::min(), tiny.getSeconds());
  EXPECT_LT(tiny, Seconds(-9.2e18));
  // sums saturate instead of wrapping
  EXPECT_EQ(std::numeric_limits<int64_t>::max(), (huge + Seconds(5.0)).getSeconds());
  EXPECT_EQ(std::numeric_limits<int64_t>::min(), (tiny - Seconds(5.0)).getSeconds());
}

TEST(TimeSeconds, Arithmetic) {
  EXPECT_EQ(Seconds(1, 100000000), Seconds(0.6) + Seconds(0.5));
  EXPECT_EQ(Seconds(-1, 900000000), Seconds(0.5) - Seconds(0.6));
  EXPECT_EQ(Seconds(7.5), Seconds(2.5) * Seconds(3.0));
  EXPECT_EQ(Seconds(2.5), Seconds(7.5) / Seconds(3.0));
  EXPECT_EQ(ZERO_SECONDS, Seconds(5.0) / ZERO_SECONDS);
  EXPECT_EQ(ZERO_SECONDS, Seconds(1e30) * ZERO_SECONDS);
  EXPECT_EQ(Seconds(-2.25), -Seconds(2.25));
}

TEST(TimeSeconds, CompareToleratesOneNanosecond) {
  EXPECT_EQ(1, Seconds(5, 100).compare(Seconds(5, 101)));
  EXPECT_EQ(0, Seconds(5, 100).compare(Seconds(5, 102)));
  EXPECT_EQ(2, Seconds(5, 102).compare(Seconds(5, 100)));
  // across a whole second
  EXPECT_EQ(1, Seconds(6, 0).compare(Seconds(5, 999999999)));
  EXPECT_EQ(1, Seconds(5, 999999999).compare(Seconds(6, 0)));
  EXPECT_EQ(2, Seconds(6, 0).compare(Seconds(5, 999999998)));
  EXPECT_EQ(0, Seconds(-1, 0).compare(Seconds(0, 0)));
}

TEST(TimeSeconds, RoundedToDigits) {
  EXPECT_EQ(Seconds(1, 235000000), Seconds(1, 234567891).rounded(3));
  EXPECT_EQ(Seconds(2, 0), Seconds(1, 999600000).rounded(3));
  EXPECT_EQ(Seconds(2, 0), Seconds(1, 500000000).rounded(0));
  EXPECT_EQ(Seconds(1, 234567891), Seconds(1, 234567891).rounded(9));
  EXPECT_EQ(Seconds(1, 234567890), Seconds(1, 234567891).rounded(8));
}

TEST(TimeStamp, SaturationAndTheInfiniteStamp) {
  EXPECT_EQ(MIN_TIME_STAMP, TimeStamp(1969, Seconds(100.0)));
  EXPECT_EQ(MAX_TIME_STAMP, TimeStamp(2201, ZERO_SECONDS));
  const TimeStamp infinite(16384, Seconds(5.0));
  EXPECT_EQ(16384, infinite.referenceYear());
  EXPECT_EQ(ZERO_SECONDS, infinite.secondsSinceRefYear());
  EXPECT_EQ(ZERO_SECONDS, infinite - MIN_TIME_STAMP);
  EXPECT_EQ(ZERO_SECONDS, MAX_TIME_STAMP - infinite);
  // more than 231 years away, or past the ends of the range
  EXPECT_EQ(MAX_TIME_STAMP, TimeStamp(1970, Seconds(232 * 3.1536e7)));
  EXPECT_EQ(MIN_TIME_STAMP, TimeStamp(2200, Seconds(-232 * 3.1536e7)));
  EXPECT_EQ(MAX_TIME_STAMP, TimeStamp(2200, Seconds(366 * 86400.0)));
  EXPECT_EQ(MIN_TIME_STAMP, TimeStamp(1970, Seconds(-1.0)));
  EXPECT_EQ(MAX_TIME_STAMP, TimeStamp(2000, Seconds(1e30)));
  EXPECT_EQ(MIN_TIME_STAMP, TimeStamp(2000, Seconds(-1e30)));
  EXPECT_EQ(2200, MAX_TIME_STAMP.referenceYear());
  EXPECT_EQ(Seconds(365 * 86400 - 1, 999999999), MAX_TIME_STAMP.secondsSinceRefYear());
}

TEST(TimeStamp, NormalisesAcrossYearBoundaries) {
  const TimeStamp next(2000, Seconds(366 * 86400.0));
  EXPECT_EQ(2001, next.referenceYear());
  EXPECT_EQ(ZERO_SECONDS, next.secondsSinceRefYear());
  const TimeStamp previous(2001, Seconds(-1.0));
  EXPECT_EQ(2000, previous.referenceYear());
  EXPECT_EQ(Seconds(31622399.0), previous.secondsSinceRefYear());
  TimeStamp moved(2019, Seconds(100.0));
  moved -= Seconds(200.0);
  EXPECT_EQ(2018, moved.referenceYear());
  EXPECT_EQ(Seconds(365 * 86400.0 - 100.0), moved.secondsSinceRefYear());
  moved += Seconds(200.0);
  EXPECT_EQ(TimeStamp(2019, Seconds(100.0)), moved);
  // many years at once, fraction kept
  const TimeStamp far(1970, Seconds(30 * 365 * 86400.0 + 7 * 86400.0 + 0.25));  // 1970..1999 hold 7 leap days
  EXPECT_EQ(2000, far.referenceYear());
  EXPECT_EQ(Seconds(0.25), far.secondsSinceRefYear());
}

TEST(TimeStamp, DifferencesComparisonsAndComponents) {
  const TimeStamp a(2018, Seconds(10.5));
  const TimeStamp b(2020, Seconds(3.0));
  EXPECT_EQ(Seconds((365 + 365) * 86400.0 - 7.5), b - a);
  EXPECT_EQ(Seconds(-((365 + 365) * 86400.0 - 7.5)), a - b);
  EXPECT_EQ(Seconds(10.5 - 365 * 86400.0), a.secondsSinceRefYear(2019));
  EXPECT_EQ(Seconds(10.5), a.secondsSinceRefYear(2018));
  EXPECT_LT(a, b);
  EXPECT_GT(b, a);
  EXPECT_LE(a, a);
  EXPECT_NE(a, b);
  unsigned int days = 0, hours = 0, minutes = 0;
  Seconds rest;
  TimeStamp(2018, Seconds(2 * 86400.0 + 3 * 3600.0 + 4 * 60.0 + 5.5)).getTimeComponents(days, hours, minutes, rest);
  EXPECT_EQ(2u, days);
  EXPECT_EQ(3u, hours);
  EXPECT_EQ(4u, minutes);
  EXPECT_EQ(Seconds(5.5), rest);
  double remainder = 0;
  getTimeComponents(90061.5, days, hours, minutes, remainder);
  EXPECT_EQ(1u, days);
  EXPECT_EQ(1u, hours);
  EXPECT_EQ(1u, minutes);
  EXPECT_DOUBLE_EQ(1.5, remainder);
}

TEST(TimeStamp, FactorBetweenTwoStamps) {
  const TimeStamp low(2018, Seconds(100.0));
  const TimeStamp high(2018, Seconds(200.0));
  EXPECT_DOUBLE_EQ(0.0, getFactor(low, TimeStamp(2018, Seconds(50.0)), high));
  EXPECT_DOUBLE_EQ(0.0, getFactor(low, low, high));
  EXPECT_DOUBLE_EQ(1.0, getFactor(low, TimeStamp(2019, ZERO_SECONDS), high));
  EXPECT_DOUBLE_EQ(0.25, getFactor(low, TimeStamp(2018, Seconds(125.0)), high));
  // across a year boundary
  EXPECT_DOUBLE_EQ(0.5, getFactor(TimeStamp(2018, Seconds(365 * 86400.0 - 10)), TimeStamp(2019, ZERO_SECONDS),
                                  TimeStamp(2019, Seconds(10.0))));
}

TEST(TimeSteps, ClockStepsUpAndDownTheSequence) {
  const double sequence[] = {0.001, 0.005, 0.01, 0.05, 0.1, 0.25, 0.5, 1, 2, 3, 4};
  const size_t n = sizeof(sequence) / sizeof(sequence[0]);
  for (size_t i = 0; i + 1 < n; ++i) {
    EXPECT_NEAR(sequence[i + 1], getNextTimeStep(true, sequence[i]), 1e-12) << sequence[i];
    EXPECT_NEAR(sequence[i], getNextTimeStep(false, sequence[i + 1]), 1e-12) << sequence[i + 1];
  }
  EXPECT_NEAR(0.25, getNextTimeStep(true, -0.1), 1e-12);  // the sign isn't kept
  EXPECT_EQ(0.0, getNextTimeStep(true, 0.0));
  EXPECT_EQ(0.0, getNextTimeStep(false, 0.0));
  EXPECT_EQ(6.0, getNextTimeStep(true, 5.5));
}

TEST(TimeDateTime, CalendarDatesAndNames) {
  const DateTime date(2018, 3, 15, 12, 30, 5.25);
  EXPECT_EQ(2018, date.getYear());
  EXPECT_DOUBLE_EQ(73 * 86400.0 + 12 * 3600.0 + 30 * 60.0 + 5.25, date.getTime());
  EXPECT_EQ(73, date.getDayOfYear());
  EXPECT_EQ("March", date.getMonthName());
  EXPECT_EQ("Mar", date.getMonthName(true));
  EXPECT_EQ("Thursday", date.getWeekdayName());
  EXPECT_EQ("20180315-123005", date.formatString("%Y%m%d-%H%M%S"));
  EXPECT_EQ("Thu Mar 15 12:30:05.250 2018", date.asString(TIMEFORMAT_MONTHDAY, 3, true));
  EXPECT_EQ("Thu Mar 15 12:30:05", date.asString(TIMEFORMAT_MONTHDAY, 0, false));
  EXPECT_EQ("074 12:30:05.25", date.asString(TIMEFORMAT_ORDINAL, 2));
  EXPECT_EQ("1764:30:05.2", date.asString(TIMEFORMAT_HOURS, 1));
  EXPECT_EQ("6352205.250", date.asString(TIMEFORMAT_SECONDS, 3));
  // 1 January 1970 is 25567 days after 1 January 1900
  EXPECT_DOUBLE_EQ(25567 * 86400.0, DateTime(1970, 1, 1, 0, 0, 0.0, 0.0, 0).getReference1900());
  EXPECT_TRUE(DateTime(0.0).isEqual(DateTime(1970, 1, 1)));
  EXPECT_TRUE(DateTime(2019, -1.0).isEqual(DateTime(2018, 12, 31, 23, 59, 59.0)));
  const DateTime corrected(2018, 1, 1, 0, 0, 0.0, 0.5, 37);
  EXPECT_DOUBLE_EQ(69.184, corrected.getTDT());
  EXPECT_DOUBLE_EQ(0.5, corrected.getUT());
}

TEST(TimeDateTime, InvalidDatesThrow) {
  try {
    DateTime(2019, 2, 29);
    ADD_FAILURE() << "29 February 2019 accepted";
  } catch (const InvalidDateTimeDMY& e) {
    EXPECT_EQ(7, e.code());
    EXPECT_STREQ("orvCore::checkValidDMY, Invalid Date", e.what());
  }
  EXPECT_THROW(DateTime(2019, 13, 1), InvalidDateTimeDMY);
  EXPECT_THROW(DateTime(2019, 1, 1, 24, 0, 0.0), TimeException);
  EXPECT_THROW(DateTime(std::nan("")), TimeException);
}
