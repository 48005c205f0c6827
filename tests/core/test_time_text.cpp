// Time text: the shapes the parser recognises, parsing with and without a
// year, printing in every format and reading the text back, SCORE stamps,
// and the coded failures of malformed text.

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "core/TimeClass.h"

using namespace UTILS;
using orvCore::TimeException;

namespace {

// 15 March 2018 12:30:05.25 as seconds since the start of 2018
const double MARCH_15 = 73 * 86400.0 + 12 * 3600.0 + 30 * 60.0 + 5.25;
const double YEAR_2017 = 365 * 86400.0;

template <typename F>
void expectTimeException(F&& call, int code, const std::string& message) {
  try {
    call();
    ADD_FAILURE() << "no exception, expected: " << message;
  } catch (const TimeException& e) {
    EXPECT_EQ(code, e.code()) << message;
    EXPECT_EQ(message, e.what());
  }
}

// "YYYYmmdd-HHMMSS" at `at` in `text`.
bool holdsClockStamp(const std::string& text, size_t at) {
  if (text.size() < at + 15)
    return false;
  for (size_t i = 0; i < 15; ++i) {
    const char c = text[at + i];
    if (i == 8 ? c != '-' : (c < '0' || c > '9'))
      return false;
  }
  return true;
}

void expectParseFailure(const std::string& text, int code, const std::string& message, int referenceYear = 2018) {
  SCOPED_TRACE(text);
  expectTimeException([&] { parseTimeString(text, referenceYear); }, code, message);
}

}  // namespace

TEST(TimeMatch, EveryShape) {
  const struct {
    const char* text;
    TimeFormatMatch_t shape;
  } cases[] = {
      {"5.5", TIMEFORMAT_SS},
      {"-5.5", TIMEFORMAT_NEGATIVE_SS},
      {"5:30", TIMEFORMAT_MM_SS},
      {"12:05:30.5", TIMEFORMAT_HH_MM_SS},
      {"001 2018 00:00:00.0", TIMEFORMAT_JJJ_YYYY_HH_MM_SS},
      {"Mar 15 2018 12:30:05.25", TIMEFORMAT_MNT_MD_YYYY_HH_MM_SS},
      {"15 Mar 2018 12:30:05.25", TIMEFORMAT_MD_MNT_YYYY_HH_MM_SS},
      {"074 12:30:05.25 2018", TIMEFORMAT_JJJ_HH_MM_SS_YYYY},
      {"Mar 15 12:30:05.25 2018", TIMEFORMAT_MNT_MD_HH_MM_SS_YYYY},
      {"074 12:30:05.25", TIMEFORMAT_JJJ_HH_MM_SS},
      {"Thu Mar 15 12:30:05.25 2018", TIMEFORMAT_WKD_MNT_MD_HH_MM_SS_YYYY},
      {"thu MAR 15 12:30:05.25", TIMEFORMAT_WKD_MNT_MD_HH_MM_SS},
      {"151230:05.25 Z MAR18", TIMEFORMAT_DATE_TIME_GROUP},
      {"12:30z 15MAR2018", TIMEFORMAT_HH_MMZ_MDMNTYYYY},
      {"1230z 15MAR2018", TIMEFORMAT_HHMMZ_MDMNTYYYY},
      {"15-Mar", TIMEFORMAT_MD_MNT},
      {"074 01:30:05 PM 2018", TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY},
      {"074 01:30:05 am", TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY},
      {"2018-03-15 12:30:05.25", TIMEFORMAT_ISO_DATE},
      {"\"5:30\"", TIMEFORMAT_MM_SS},
      {"", TIMEFORMAT_NO_MATCH},
      {"noon", TIMEFORMAT_NO_MATCH},
      {"367 12:30:05", TIMEFORMAT_NO_MATCH},
      {"Mar 32 2018 12:30:05", TIMEFORMAT_NO_MATCH},
      {"1 2 3 4 5 6 7 8", TIMEFORMAT_NO_MATCH},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.shape, getTimeMatch(c.text)) << c.text;
  }
  EXPECT_EQ("NO MATCH", getTimeMatchString(TIMEFORMAT_NO_MATCH));
  EXPECT_EQ("JJJ HH:MM:SS [AM|PM] yyyy", getTimeMatchString(TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY));
  EXPECT_EQ("YYYY-MON-DAY HH:MM:SS.sss", getTimeMatchString(TIMEFORMAT_ISO_DATE));
  EXPECT_EQ("NO MATCH", getTimeMatchString(static_cast<TimeFormatMatch_t>(19)));
}

TEST(TimeParse, EveryShapeInItsOwnYear) {
  const struct {
    const char* text;
    double seconds;
  } cases[] = {
      {"5.5", 5.5},
      {"-5.5", -5.5},
      {"5:30", 330.0},
      {"12:05:30.5", 43530.5},
      {"074 2018 12:30:05.25", MARCH_15},
      {"Mar 15 2018 12:30:05.25", MARCH_15},
      {"15 Mar 2018 12:30:05.25", MARCH_15},
      {"074 12:30:05.25 2018", MARCH_15},
      {"Mar 15 12:30:05.25 2018", MARCH_15},
      {"074 12:30:05.25", MARCH_15},
      {"Thu Mar 15 12:30:05.25 2018", MARCH_15},
      {"Thu Mar 15 12:30:05.25", MARCH_15},
      {"151230:05.25 Z MAR18", MARCH_15},
      {"12:30z 15MAR2018", MARCH_15 - 5.25},
      {"1230z 15MAR2018", MARCH_15 - 5.25},
      {"15-Mar", 73 * 86400.0},
      {"2018-03-15 12:30:05.25", MARCH_15},
      {"  \"Mar 15 2018 12:30:05.25\"  ", MARCH_15},
  };
  for (const auto& c : cases) {
    EXPECT_DOUBLE_EQ(c.seconds, parseTimeString(c.text, 2018)) << c.text;
  }
  EXPECT_DOUBLE_EQ(MARCH_15 + 10.0, parseTimeString("074 12:30:05.25", 2018, 10.0));
}

TEST(TimeParse, YearOfTheTextAfterTheReferenceYear) {
  EXPECT_DOUBLE_EQ(YEAR_2017 + MARCH_15, parseTimeString("Mar 15 2018 12:30:05.25", 2017));
  EXPECT_DOUBLE_EQ(YEAR_2017 + MARCH_15, parseTimeString("2018-03-15 12:30:05.25", 2017));
  EXPECT_DOUBLE_EQ(YEAR_2017 + MARCH_15, parseTimeString("151230:05.25 Z MAR18", 2017));
  // shapes without a year stay in the reference year
  EXPECT_DOUBLE_EQ(MARCH_15, parseTimeString("074 12:30:05.25", 2017));
  EXPECT_DOUBLE_EQ(330.0, parseTimeString("5:30", 2017));
  // across the end of a year and across a leap year
  EXPECT_DOUBLE_EQ(364 * 86400.0 + 86399.5, parseTimeString("Dec 31 2018 23:59:59.5", 2018));
  EXPECT_DOUBLE_EQ(365 * 86400.0, parseTimeString("001 2019 00:00:00", 2018));
  EXPECT_DOUBLE_EQ(366 * 86400.0 + 0.5, parseTimeString("Jan 1 2017 00:00:00.5", 2016));
  EXPECT_DOUBLE_EQ(365 * 86400.0, parseTimeString("366 2016 00:00:00", 2016));
  EXPECT_DOUBLE_EQ((365 * 3 + 366) * 86400.0, parseTimeString("2020-01-01 00:00:00", 2016));
}

TEST(TimeParse, ReferenceYearAfterTheTextsYearIsRefused) {
  const std::string message = "Reference year is greater than year in time string.";
  for (const char* text : {"001 2017 00:00:00", "Mar 15 2017 12:30:05", "15 Mar 2017 12:30:05", "074 12:30:05 2017",
                           "Mar 15 12:30:05 2017", "Wed Mar 15 12:30:05 2017", "151230:05 Z MAR17",
                           "1230z 15MAR2017", "2017-03-15 12:30:05", "074 01:30:05 PM 2017"}) {
    expectParseFailure(text, 10, message);
  }
  expectParseFailure("5.5", 10, "The reference year is < 1900.", 1899);
}

TEST(TimeParse, AmAndPm) {
  const double morning = 73 * 86400.0 + 1 * 3600.0 + 30 * 60.0 + 5;
  EXPECT_DOUBLE_EQ(morning, parseTimeString("074 01:30:05 AM 2018", 2018));
  EXPECT_DOUBLE_EQ(morning + 12 * 3600.0, parseTimeString("074 01:30:05 PM 2018", 2018));
  EXPECT_DOUBLE_EQ(morning + 12 * 3600.0, parseTimeString("074 01:30:05 pm", 2018));
  EXPECT_DOUBLE_EQ(YEAR_2017 + morning + 12 * 3600.0, parseTimeString("074 01:30:05 PM 2018", 2017));
}

TEST(TimeParse, MalformedTextThrowsItsCode) {
  expectParseFailure("", 1, "Illegal empty string or empty quote detected.");
  expectParseFailure(" \"\" ", 1, "Illegal empty string or empty quote detected.");
  expectParseFailure("noon", 1, "Time format not recognized.");
  expectParseFailure("1512:05 Z MAR18", 1,
                     "Not enough characters to decode Month-Day, Hours, Minutes, and Seconds.");
  expectParseFailure("151230:05 Z MARCH", 1, "Invalid character string: expecting MMMYY (month name, year).");
  expectParseFailure("151230:05 Z XYZ18", 1, "Invalid character string: expecting MMMYY (month name, year).");
  expectParseFailure("2018-03 12:30:05", 1, "Bad format for date string, expected YYYY-MM-DD.");
  expectParseFailure("2018-0x3-15 12:30:05", 1, "Bad format for date string, expected YYYY-MM-DD.");
  expectParseFailure("2018-13-15 12:30:05", 4, "orvCore::checkValidDMY, Invalid Month: 13 is < 1 or > 12");
  expectParseFailure("Feb 29 2018 12:30:05", 7, "orvCore::checkValidDMY, Invalid Date");
  expectParseFailure("15-Foo", 4, "Unrecognized month string.");
  expectParseFailure("366 2018 00:00:00", 13, "The ordinal day is not a day of the year.");
  expectParseFailure("12:05:61", 1, "The calculated seconds value exceeds 60.");
  expectParseFailure("-5:30", 1, "The calculated minutes value is less than zero.");
  expectParseFailure("5:-3", 1, "The calculated seconds value is less than zero.");
  expectParseFailure("-1:05:30", 1, "The calculated hours value is less than zero.");
  expectParseFailure("1230x 15MAR2018", 1, "Time format not recognized.");
  expectParseFailure("1230z 15MRZ2018", 1,
                     "Invalid character string: expecting MDMNTYYYY (month day, month name, year).");
  expectTimeException([] { getHHMMSSFromString("1:2:3:4"); }, 1,
                      "The calculated time string is not in a recognized format.");
  expectTimeException([] { getHHMMSSFromString("1:x"); }, 1,
                      "The calculated time string is not in a recognized format.");
}

TEST(TimePrint, EveryFormat) {
  EXPECT_EQ("6352205.250", printTimeString(MARCH_15, 2018, UNITS_SECONDS, 3));
  EXPECT_EQ("105870:05.250", printTimeString(MARCH_15, 2018, UNITS_MINUTES, 3));
  EXPECT_EQ("1764:30:05.250", printTimeString(MARCH_15, 2018, UNITS_HOURS, 3));
  EXPECT_EQ("074 2018 12:30:05.250", printTimeString(MARCH_15, 2018, UNITS_ORDINAL, 3));
  EXPECT_EQ("074 12:30:05.250", printTimeString(MARCH_15, 2018, UNITS_ORDINAL, 3, true, false));
  EXPECT_EQ("Mar 15 2018 12:30:05.250", printTimeString(MARCH_15, 2018, UNITS_MONTHDAY, 3));
  EXPECT_EQ("151230:05.250 Z MAR18", printTimeString(MARCH_15, 2018, UNITS_DTG, 3));
  EXPECT_EQ("05:05.5", printTimeString(305.5, 2018, UNITS_MINUTES, 1));
  EXPECT_EQ("5:05.5", printTimeString(305.5, 2018, UNITS_MINUTES, 1, false));
  EXPECT_EQ("00:00:05", printTimeString(5.4, 2018, UNITS_HOURS, 0));
  EXPECT_EQ("-00:01.500", printTimeString(-1.5, 2018, UNITS_MINUTES, 3));
  // rounding first: never "60" seconds
  EXPECT_EQ("01:00.000", printTimeString(59.9996, 2018, UNITS_MINUTES, 3));
  EXPECT_EQ("001 2018 00:00:00.00", printTimeString(YEAR_2017 - 0.001, 2017, UNITS_ORDINAL, 2));
  // seconds past the end of the reference year carry into the next year
  EXPECT_EQ("Jan 01 2019 00:00:10.0", printTimeString(YEAR_2017 + 10.0, 2018, UNITS_MONTHDAY, 1));
  EXPECT_EQ("0x04A 0x07E2 0x0C:0x1E:0x05", printTimeString(MARCH_15, 2018, UNITS_ORDINAL, 3, true, true, 16));
}

TEST(TimePrint, FailuresAreCoded) {
  expectTimeException([] { printTimeString(5.0, 2018, UNITS_METERS, 3); }, 1, "Unknown format flag for time string.");
  expectTimeException([] { printTimeString(-5.0, 2018, UNITS_ORDINAL, 3); }, 11,
                      "orvCore::getTimeStruct, The seconds since epoch time is < 0.");
  EXPECT_THROW(printTimeString(std::nan(""), 2018, UNITS_SECONDS, 3), TimeException);
  EXPECT_THROW(printTimeString(1e300, 2018, UNITS_HOURS, 3), TimeException);
  EXPECT_EQ("", getTimeString(2018, -5.0, UNITS_DTG, 3));
  EXPECT_EQ("Mar 15 2018 12:30:05.250", getTimeString(2018, MARCH_15, UNITS_MONTHDAY, 3));
}

TEST(TimePrint, PrintedTextReadsBack) {
  const UnitType_t formats[] = {UNITS_SECONDS, UNITS_MINUTES, UNITS_HOURS, UNITS_ORDINAL, UNITS_MONTHDAY, UNITS_DTG};
  const double values[] = {0.0, 0.125, 59.9995, 86399.999, MARCH_15, 59 * 86400.0 + 0.5, 364 * 86400.0 + 86399.75,
                           YEAR_2017 + 3600.0};
  for (const int year : {2016, 2018, 2099}) {
    for (const double value : values) {
      for (const UnitType_t format : formats) {
        for (const int precision : {0, 3, 8}) {
          const std::string text = printTimeString(value, year, format, precision);
          SCOPED_TRACE(text);
          const double tolerance = 0.5 * std::pow(10.0, -precision) + 1e-9;
          EXPECT_NEAR(value, parseTimeString(text, year), tolerance);
        }
      }
    }
  }
}

TEST(TimeScore, StampsWithAndWithoutTheDay) {
  EXPECT_EQ("073 1230:05.250", getScoreTimeString(MARCH_15, true, 3));
  EXPECT_EQ("176430:05.250", getScoreTimeString(MARCH_15, false, 3));
  EXPECT_EQ("000 0000:05", getScoreTimeString(5.4, true, 0));
  EXPECT_DOUBLE_EQ(MARCH_15, getSecondsSinceYearFromScoreTimeString("073 1230:05.250"));
  EXPECT_DOUBLE_EQ(MARCH_15, getSecondsSinceYearFromScoreTimeString(getScoreTimeString(MARCH_15, false, 3)));
  EXPECT_DOUBLE_EQ(12 * 3600.0 + 30 * 60.0 + 5.25, getSecondsSinceYearFromScoreTimeString("1230;05.25"));
  EXPECT_DOUBLE_EQ(5.25, getSecondsSinceYearFromScoreTimeString("5.25"));
  EXPECT_DOUBLE_EQ(0.0, getSecondsSinceYearFromScoreTimeString(""));
  EXPECT_EQ(2018, getReferenceYearFromScoreDateString("03/15/2018"));
  EXPECT_EQ(2018, getReferenceYearFromScoreDateString("2018-03-15"));
  EXPECT_EQ(2018, getReferenceYearFromScoreDateString("03/15/18"));
  EXPECT_EQ(1999, getReferenceYearFromScoreDateString("15.03.99"));
  EXPECT_EQ(orvCore::currentYear(), getReferenceYearFromScoreDateString("no date"));
}

TEST(TimeYear, YearOfEveryShapeThatHasOne) {
  EXPECT_EQ(2018, getYearFromTimeString("001 2018 00:00:00.0"));
  EXPECT_EQ(2018, getYearFromTimeString("Mar 15 2018 12:30:05.25"));
  EXPECT_EQ(2018, getYearFromTimeString("15 Mar 2018 12:30:05.25"));
  EXPECT_EQ(2018, getYearFromTimeString("074 12:30:05.25 2018"));
  EXPECT_EQ(2018, getYearFromTimeString("Mar 15 12:30:05.25 2018"));
  EXPECT_EQ(2018, getYearFromTimeString("Thu Mar 15 12:30:05.25 2018"));
  EXPECT_EQ(2018, getYearFromTimeString("\"151230:05.25 Z MAR18\""));
  EXPECT_EQ(2018, getYearFromTimeString("12:30z 15MAR2018"));
  EXPECT_EQ(2018, getYearFromTimeString("1230z 15MAR2018"));
  EXPECT_EQ(2018, getYearFromTimeString("074 01:30:05 PM 2018"));
  EXPECT_EQ(2018, getYearFromTimeString("2018-03-15 12:30:05.25"));
  expectTimeException([] { getYearFromTimeString("5:30"); }, 1,
                      "Time string is not in one of the supported formats that contains a year value.");
  expectTimeException([] { getYearFromTimeString("074 12:30:05"); }, 7, "Time string is missing optional year value.");
  expectTimeException([] { getYearFromTimeString("Thu Mar 15 12:30:05"); }, 7,
                      "Time string is missing optional year value.");
  expectTimeException([] { getYearFromTimeString("x-03-15 12:30:05"); }, 1, "Bad time string, expected YYYY-MM-DD");
  expectTimeException([] { getYearFromTimeString("noon"); }, 1, "Time format not recognized.");
  expectTimeException([] { getYearFromTimeString("''"); }, 1, "Illegal empty string or empty quote detected.");
}

TEST(TimeJday, OrdinalDayStrings) {
  EXPECT_EQ("001 00:00:00.000", getJdayStringFromSeconds(0.0));
  EXPECT_EQ("074 12:30:05.250", getJdayStringFromSeconds(MARCH_15));
  EXPECT_EQ("", getJdayStringFromSeconds(-1.0));
  EXPECT_DOUBLE_EQ(MARCH_15, getSecondsFromJdayString("074 12:30:05.25"));
  EXPECT_DOUBLE_EQ(MARCH_15, getSecondsFromJdayString(getJdayStringFromSeconds(MARCH_15, 2)));
  expectTimeException([] { getSecondsFromJdayString("074"); }, 1, "Time format not recognized.");
  expectTimeException([] { getSecondsFromJdayString("400 12:00:00"); }, 13, "The ordinal day is not a day of the year.");
}

TEST(TimeFormatNames, KeywordsAndCodes) {
  const struct {
    UnitType_t code;
    const char* keyword;
    orvCore::TimeFormat format;
  } cases[] = {{UNITS_SECONDS, "secs", orvCore::TIMEFORMAT_SECONDS}, {UNITS_MINUTES, "mins", orvCore::TIMEFORMAT_MINUTES},
               {UNITS_HOURS, "hrs", orvCore::TIMEFORMAT_HOURS},      {UNITS_ORDINAL, "jul", orvCore::TIMEFORMAT_ORDINAL},
               {UNITS_MONTHDAY, "mon", orvCore::TIMEFORMAT_MONTHDAY}, {UNITS_DTG, "dtg", orvCore::TIMEFORMAT_DTG}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.keyword, getTimeFormatString(c.code));
    EXPECT_EQ(c.code, getTimeFormatValue(c.keyword));
    EXPECT_EQ(c.format, convertUtilsTimeFormat(c.code));
    EXPECT_EQ(c.code, convertUtilsTimeFormat(c.format));
  }
  EXPECT_EQ(UNITS_ORDINAL, getTimeFormatValue("ORD"));
  EXPECT_EQ(UNITS_HOURS, getTimeFormatValue("Hrs"));
  EXPECT_EQ(UNITS_SECONDS, getTimeFormatValue(""));

  testing::internal::CaptureStderr();
  EXPECT_EQ("unknown", getTimeFormatString(UNITS_METERS));
  EXPECT_EQ("WARNING:  Unrecognized Time Format\n", testing::internal::GetCapturedStderr());
  testing::internal::CaptureStderr();
  EXPECT_EQ(UNITS_SECONDS, getTimeFormatValue("fortnights"));
  EXPECT_EQ("WARNING:  Unrecognized Time Format String\n", testing::internal::GetCapturedStderr());
}

TEST(TimeFormatNames, MonthsAndWeekdays) {
  EXPECT_EQ(2, getMonthFromString("mar"));
  EXPECT_EQ(2, getMonthFromString("MARCH"));
  EXPECT_EQ(11, getMonthFromString("December"));
  EXPECT_EQ("Sep", getStringFromMonth(8));
  EXPECT_EQ("September", getStringFromMonth(8, false));
  expectTimeException([] { getMonthFromString(""); }, 4, "Empty string detected for the month string.");
  expectTimeException([] { getMonthFromString("Marc"); }, 4, "Unrecognized month string.");
  expectTimeException([] { getStringFromMonth(12); }, 4, "The given month number is not valid.");
  EXPECT_EQ(0, getDayFromString("sun"));
  EXPECT_EQ(4, getDayFromString("Thr"));
  EXPECT_EQ("Thr", getStringFromDay(4));
  expectTimeException([] { getDayFromString("Thu"); }, 1, "Unrecognized weekday string.");
  expectTimeException([] { getDayFromString(""); }, 1, "Empty string detected for the weekday string.");
  expectTimeException([] { getStringFromDay(7); }, 1, "The given weekday number is not valid.");
  EXPECT_STREQ("Monday", orvCore::WEEKDAY_NAME[0]);
  EXPECT_STREQ("Sun", orvCore::ABBREV_WEEKDAY_NAME[6]);
}

TEST(TimeTexts, FileNamesProgressAndStructs) {
  const std::string now = getSystemTimeString();
  EXPECT_EQ(15u, now.size());
  EXPECT_TRUE(holdsClockStamp(now, 0)) << now;
  const std::string named = appendTimeToString("dir.v2/run.asi");
  EXPECT_EQ(std::string("dir.v2/run_").size() + 15 + 4, named.size());
  EXPECT_EQ(0u, named.find("dir.v2/run_"));
  EXPECT_TRUE(holdsClockStamp(named, 11)) << named;
  EXPECT_EQ(".asi", named.substr(named.size() - 4));
  const std::string bare = appendTimeToString("dir.v2/run");
  EXPECT_EQ(0u, bare.find("dir.v2/run_"));
  EXPECT_TRUE(holdsClockStamp(bare, 11)) << bare;
  EXPECT_EQ(26u, bare.size());
  EXPECT_EQ("run_20180315-123005.asi", getFilenameFromTime(2018, MARCH_15, "run_", ".asi"));

  EXPECT_EQ("Calculating", getTimeRemainingText(0.0, 0.0));
  EXPECT_EQ("Moments", getTimeRemainingText(100.0, 0.9999));
  EXPECT_EQ("10 Seconds", getTimeRemainingText(10.0, 0.5));
  EXPECT_EQ("00:10:00", getTimeRemainingText(600.0, 0.5));
  EXPECT_EQ("105 Days", getTimeRemainingText(1e6, 0.1));

  std::ostringstream out;
  printTimeStruct(orvCore::getTimeStruct(orvCore::TimeStamp(2018, orvCore::Seconds(MARCH_15))), out);
  EXPECT_EQ(
      "tm_sec = 5\ntm_min = 30\ntm_hour = 12\ntm_mday = 15\ntm_mon = 2\ntm_year = 118\ntm_wday = 4\n"
      "tm_yday = 73\ntm_isdst = 0\n",
      out.str());
}
