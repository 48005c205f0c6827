#include "core/TimeCalendar.h"

#include <sys/time.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <string>

namespace orvCore {

namespace {

// Plain Gregorian rule on a full year, for the internal year walks.
bool gregorianLeap(long long year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }
long long gregorianYearSeconds(long long year) { return (gregorianLeap(year) ? 366 : 365) * 86400LL; }

// The UTC calendar fields of the system clock, and its microseconds.
bool systemTime(struct tm& fields, long& microseconds) {
  struct timeval now;
  if (gettimeofday(&now, nullptr) != 0)
    return false;
  const time_t seconds = now.tv_sec;
  if (gmtime_r(&seconds, &fields) == nullptr)
    return false;
  microseconds = static_cast<long>(now.tv_usec);
  return true;
}

double secondsOfDay(const struct tm& fields) {
  return fields.tm_hour * 3600.0 + fields.tm_min * 60.0 + fields.tm_sec;
}

}  // namespace

int currentYear() {
  struct tm fields;
  long micro = 0;
  if (!systemTime(fields, micro))
    return 2147483647;
  return fields.tm_year + 1900;
}

TimeStamp getSystemTime() {
  double seconds = 0;
  int year = 0;
  systemTimeToSecsBgnYr(seconds, year);
  if (year == 65535)
    return MIN_TIME_STAMP;
  return TimeStamp(year, Seconds(seconds));
}

double systemTimeToSecsBgnYr() {
  struct tm fields;
  long micro = 0;
  if (!systemTime(fields, micro))
    return INVALID_SYSTEM_SECONDS;
  return fields.tm_yday * SECONDS_PER_DAY + secondsOfDay(fields) + micro * 1e-6;
}

void systemTimeToSecsBgnYr(double& secondsSinceYear, int& year) {
  struct tm fields;
  long micro = 0;
  if (!systemTime(fields, micro)) {
    secondsSinceYear = -1;
    year = 65535;
    return;
  }
  secondsSinceYear = fields.tm_yday * SECONDS_PER_DAY + secondsOfDay(fields) + micro * 1e-6;
  year = fields.tm_year + 1900;
}

double systemTimeToSecsBgnDay() {
  struct tm fields;
  long micro = 0;
  if (!systemTime(fields, micro))
    return INVALID_SYSTEM_SECONDS;
  return secondsOfDay(fields) + micro * 1e-6;
}

void timeSinceJan1970ToSecsBgnYr(double secondsSince1970, double& secondsSinceYear, double& secondsSinceDay,
                                 int& year) {
  secondsSinceYear = 0;
  secondsSinceDay = 0;
  year = 1970;
  // far enough to keep the year an int and the cast defined
  if (!std::isfinite(secondsSince1970) || std::fabs(secondsSince1970) > 3.0e16)
    return;
  const double whole = std::floor(secondsSince1970);
  const time_t seconds = static_cast<time_t>(whole);
  struct tm fields;
  if (gmtime_r(&seconds, &fields) == nullptr)
    return;
  const double fraction = secondsSince1970 - whole;
  secondsSinceDay = secondsOfDay(fields) + fraction;
  secondsSinceYear = fields.tm_yday * SECONDS_PER_DAY + secondsSinceDay;
  year = fields.tm_year + 1900;
}

int leapDays(int yearsSince1900) {
  if (yearsSince1900 < 0)
    return 0;
  const long long y = static_cast<long long>(yearsSince1900) - 1;
  return static_cast<int>(y / 4 - y / 100 + (y + 300) / 400);
}

int getLeapDay(int yearsSince1900) {
  if (yearsSince1900 <= 3)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::getLeapDay, The given year is not valid.");
  int day = static_cast<int>(((static_cast<long long>(yearsSince1900) / 4) * 5) % 7);
  if (yearsSince1900 >= 204)
    day -= 1;
  return day;
}

bool isLeapYear(int year) {
  if (year < 0)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::isLeapYear, The given year is not valid.");
  long long full = year;
  if (full <= 1900)
    full += 1900;
  return gregorianLeap(full);
}

bool isValidDMY(int day, int month, int year) {
  if (month < 1 || month > 12 || year < 1900 || day < 1)
    return false;
  return day <= DAYS_IN_MONTHS[isLeapYear(year) ? 1 : 0][month];
}

void checkValidDMY(int day, int month, int year) {
  if (day < 1 || day > 31)
    throw TimeException(TimeException::BAD_MONTH_DAY,
                        "orvCore::checkValidDMY, Invalid Day: " + std::to_string(day) + " is < 1 or > 31");
  if (month < 1 || month > 12)
    throw TimeException(TimeException::BAD_MONTH,
                        "orvCore::checkValidDMY, Invalid Month: " + std::to_string(month) + " is < 1 or > 12");
  if (year < 1900)
    throw TimeException(TimeException::BAD_YEAR,
                        "orvCore::checkValidDMY, Invalid Year: " + std::to_string(year) + " is < 1900");
  if (!isValidDMY(day, month, year))
    throw TimeException(TimeException::BAD_YEAR, "orvCore::checkValidDMY, Invalid Date");
}

int daysPerYear(int year) { return isLeapYear(year) ? 366 : 365; }

int daysPerMonth(int year, int month) {
  if (year < 0)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::daysPerMonth, The given year is not valid.");
  if (month < 0 || month > 11)
    throw TimeException(TimeException::BAD_MONTH, "orvCore::daysPerMonth, The given month is not valid.");
  return DAYS_IN_MONTHS[isLeapYear(year) ? 1 : 0][month + 1];
}

int getWeekDay(int yearsSince1900, int yearDay) {
  if (yearsSince1900 < 0)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::getWeekDay, The given year is not valid.");
  if (yearDay < 0 || yearDay >= daysPerYear(yearsSince1900))
    throw TimeException(TimeException::BAD_YEAR_DAY, "orvCore::getWeekDay, The given year day is not valid.");
  // 1 January 1900 was a Monday; a common year moves the weekday on by one,
  // a leap year by two.
  const long long y = yearsSince1900;
  return static_cast<int>((1 + y + leapDays(yearsSince1900) + yearDay) % 7);
}

int getYearDay(int month, int monthDay, int year) {
  if (year < 0)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::getYearDay, The given year is not valid.");
  if (month < 0 || month > 11)
    throw TimeException(TimeException::BAD_MONTH, "orvCore::getYearDay, The given month is not valid.");
  const int row = isLeapYear(year) ? 1 : 0;
  if (monthDay < 1 || monthDay > DAYS_IN_MONTHS[row][month + 1])
    throw TimeException(TimeException::BAD_MONTH_DAY, "orvCore::getYearDay, The given month day is not valid.");
  int day = monthDay - 1;
  for (int m = 1; m <= month; ++m)
    day += DAYS_IN_MONTHS[row][m];
  return day;
}

void getMonthAndDayOfMonth(int& month, int& monthDay, int year, int yearDay) {
  if (year < 0)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::getMonthAndDayOfMonth, The given year is not valid.");
  const int row = isLeapYear(year) ? 1 : 0;
  if (yearDay < 0 || yearDay >= (row ? 366 : 365))
    throw TimeException(TimeException::BAD_YEAR_DAY,
                        "orvCore::getMonthAndDayOfMonth, The given year day is not valid.");
  int m = 1;
  int day = yearDay;
  while (day >= DAYS_IN_MONTHS[row][m]) {
    day -= DAYS_IN_MONTHS[row][m];
    ++m;
  }
  month = m - 1;
  monthDay = day + 1;
}

struct tm getTimeStruct(const TimeStamp& stamp) {
  struct tm fields;
  std::memset(&fields, 0, sizeof(fields));
  const int year = stamp.referenceYear();
  const int64_t whole = stamp.secondsSinceRefYear().getSeconds();
  fields.tm_year = year - 1900;
  fields.tm_yday = static_cast<int>(whole / 86400);
  fields.tm_hour = static_cast<int>((whole % 86400) / 3600);
  fields.tm_min = static_cast<int>((whole % 3600) / 60);
  fields.tm_sec = static_cast<int>(whole % 60);
  getMonthAndDayOfMonth(fields.tm_mon, fields.tm_mday, year, fields.tm_yday);
  fields.tm_wday = getWeekDay(year - 1900, fields.tm_yday);
  fields.tm_isdst = 0;
  return fields;
}

struct tm getTimeStruct(double seconds, int yearsSince1900) {
  if (!(seconds >= 0))  // NaN included
    throw TimeException(TimeException::BAD_SECONDS, "orvCore::getTimeStruct, The seconds since epoch time is < 0.");
  if (seconds > 3.1536e10)
    throw TimeException(TimeException::BAD_SECONDS,
                        "orvCore::getTimeStruct, The seconds since epoch time is > 1000 years.");
  if (yearsSince1900 < -1900 || yearsSince1900 > INT_MAX - 1901 - 1000)
    throw TimeException(TimeException::BAD_YEAR, "orvCore::getTimeStruct, The given year is not valid.");

  if (yearsSince1900 >= 70 && yearsSince1900 <= 300) {
    const TimeStamp stamp(yearsSince1900 + 1900, Seconds(seconds));
    if (stamp > MIN_TIME_STAMP && stamp < MAX_TIME_STAMP)
      return getTimeStruct(stamp);
  }

  long long year = yearsSince1900 + 1900LL;
  double left = seconds;
  while (left >= static_cast<double>(gregorianYearSeconds(year))) {
    left -= static_cast<double>(gregorianYearSeconds(year));
    ++year;
  }
  struct tm fields;
  std::memset(&fields, 0, sizeof(fields));
  fields.tm_year = static_cast<int>(year - 1900);
  fields.tm_yday = static_cast<int>(std::floor(left / 86400.0));
  left -= fields.tm_yday * 86400.0;
  fields.tm_hour = static_cast<int>(std::floor(left / 3600.0));
  left -= fields.tm_hour * 3600.0;
  fields.tm_min = static_cast<int>(std::floor(left / 60.0));
  left -= fields.tm_min * 60.0;
  fields.tm_sec = static_cast<int>(std::floor(left));
  const int row = gregorianLeap(year) ? 1 : 0;
  int m = 1;
  int day = fields.tm_yday;
  while (m < 12 && day >= DAYS_IN_MONTHS[row][m]) {
    day -= DAYS_IN_MONTHS[row][m];
    ++m;
  }
  fields.tm_mon = m - 1;
  fields.tm_mday = day + 1;
  // days since 1 January 1900 (a Monday), counted back for earlier years
  long long days = fields.tm_yday;
  for (long long y = 1900; y < year; ++y)
    days += gregorianLeap(y) ? 366 : 365;
  for (long long y = year; y < 1900; ++y)
    days -= gregorianLeap(y) ? 366 : 365;
  fields.tm_wday = static_cast<int>(((1 + days) % 7 + 7) % 7);
  fields.tm_isdst = 0;
  return fields;
}

double getTimeStructDifferenceInSeconds(const struct tm& later, const struct tm& earlier) {
  double days = 0;
  const long long from = earlier.tm_year + 1900LL;
  const long long to = later.tm_year + 1900LL;
  for (long long y = from; y < to; ++y)
    days += gregorianLeap(y) ? 366 : 365;
  for (long long y = to; y < from; ++y)
    days -= gregorianLeap(y) ? 366 : 365;
  days += later.tm_yday - earlier.tm_yday;
  return days * 86400.0 + (later.tm_hour - earlier.tm_hour) * 3600.0 + (later.tm_min - earlier.tm_min) * 60.0 +
         (later.tm_sec - earlier.tm_sec);
}

void normalizeTime(int& referenceYear, double& seconds) {
  if (!std::isfinite(seconds))
    throw TimeException(TimeException::BAD_SECONDS,
                        "orvCore::normalizeTime, The seconds since epoch time is not a finite number.");
  if (referenceYear >= TimeStamp::MIN_YEAR && referenceYear <= TimeStamp::MAX_YEAR) {
    const TimeStamp stamp(referenceYear, Seconds(seconds));
    referenceYear = stamp.referenceYear();
    seconds = stamp.secondsSinceRefYear().asDouble();
    return;
  }
  if (seconds < -3.1536e9)
    throw TimeException(TimeException::BAD_SECONDS,
                        "orvCore::normalizeTime, The seconds since epoch time is < -100 years.");
  int year = referenceYear;
  double value = seconds;
  while (value < 0) {
    if (year <= 0)
      throw TimeException(TimeException::BAD_YEAR, "orvCore::normalizeTime, The given year is not valid.");
    --year;
    value += static_cast<double>(gregorianYearSeconds(year));
  }
  if (value >= static_cast<double>(gregorianYearSeconds(year))) {
    if (year < 0)
      throw TimeException(TimeException::BAD_YEAR, "orvCore::normalizeTime, The given year is not valid.");
    const struct tm fields = getTimeStruct(value, year - 1900);
    struct tm newStart;
    struct tm oldStart;
    std::memset(&newStart, 0, sizeof(newStart));
    std::memset(&oldStart, 0, sizeof(oldStart));
    newStart.tm_year = fields.tm_year;
    oldStart.tm_year = year - 1900;
    // keeps the fraction of a second that the calendar fields drop
    value -= getTimeStructDifferenceInSeconds(newStart, oldStart);
    year = fields.tm_year + 1900;
  }
  referenceYear = year;
  seconds = value;
}

void getTimeComponents(double seconds, unsigned int& days, unsigned int& hours, unsigned int& minutes,
                       double& remainder) {
  days = hours = minutes = 0;
  remainder = 0;
  if (!std::isfinite(seconds) || seconds < 0 || seconds > 3.0e14)
    return;
  const double d = std::floor(seconds / 86400.0);
  double left = seconds - d * 86400.0;
  const double h = std::floor(left / 3600.0);
  left -= h * 3600.0;
  const double m = std::floor(left / 60.0);
  left -= m * 60.0;
  days = static_cast<unsigned int>(d);
  hours = static_cast<unsigned int>(h);
  minutes = static_cast<unsigned int>(m);
  remainder = left;
}

double getNextTimeStep(bool faster, double step) {
  step = std::fabs(step);
  if (!(step > 0))  // 0 and NaN
    return 0;
  constexpr double EPS = 1e-9;
  if (faster) {
    if (step >= 1.0 - EPS)
      return std::floor(step + 1.0 + EPS);
    if (step >= 0.1 - EPS) {
      if (step < 0.25 - EPS)
        return 0.25;
      if (step < 0.5 - EPS)
        return 0.5;
      return 1.0;
    }
    double scale = 1.0;
    while (step * scale < 1.0 - EPS)
      scale *= 10.0;
    return (step * scale < 5.0 - EPS ? 5.0 : 10.0) / scale;
  }
  if (step > 2.0 + EPS)
    return std::floor(step - 1.0 + EPS);
  if (step > 1.0 + EPS)
    return 1.0;
  if (step > 0.5 + EPS)
    return 0.5;
  if (step > 0.25 + EPS)
    return 0.25;
  if (step > 0.1 + EPS)
    return 0.1;
  double scale = 1.0;
  while (step * scale < 1.0 - EPS)
    scale *= 10.0;
  const double v = step * scale;
  if (v > 5.0 + EPS)
    return 5.0 / scale;
  if (v > 1.0 + EPS)
    return 1.0 / scale;
  return 0.5 / scale;
}

}  // namespace orvCore
