#include "core/TimeDateTime.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/TimeCalendar.h"
#include "core/TimePrint.h"

namespace orvCore {

namespace {

bool leap(long long year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }
double yearSeconds(long long year) { return (leap(year) ? 366 : 365) * 86400.0; }

}  // namespace

InvalidDateTimeDMY::~InvalidDateTimeDMY() = default;

DateTime::DateTime() { setSystemTimeStamp(); }

DateTime::DateTime(double secondsSince1970) {
  if (!std::isfinite(secondsSince1970))
    throw InvalidDateTimeDMY(TimeException::BAD_SECONDS, "orvCore::DateTime, The time is not a finite number.");
  year_ = 1970;
  seconds_ = secondsSince1970;
  normalize_();
}

DateTime::DateTime(const struct tm& fields)
    : DateTime(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
               static_cast<double>(fields.tm_sec)) {}

DateTime::DateTime(int year, int month, int day, int hour, int minute, double second, double ut1MinusUtc,
                   int leapSeconds)
    : ut1MinusUtc_(ut1MinusUtc), leapSeconds_(leapSeconds) {
  try {
    checkValidDMY(day, month, year);
  } catch (const TimeException& e) {
    throw InvalidDateTimeDMY(e.code(), e.message());
  }
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || !(second >= 0.0 && second < 61.0))
    throw InvalidDateTimeDMY(TimeException::BAD_FORMAT, "orvCore::DateTime, Invalid time of day");
  year_ = year;
  seconds_ = getYearDay(month - 1, day, year) * 86400.0 + hour * 3600.0 + minute * 60.0 + second;
}

DateTime::DateTime(int year, double secondsSinceYear) { setTimeStamp(year, secondsSinceYear); }

void DateTime::normalize_() {
  // keeps the seconds within their year; up to 1000 years either way, as
  // for calendar fields
  if (std::fabs(seconds_) > 3.1536e10)
    throw InvalidDateTimeDMY(TimeException::BAD_SECONDS, "orvCore::DateTime, The time is out of range.");
  while (seconds_ < 0) {
    --year_;
    seconds_ += yearSeconds(year_);
  }
  while (seconds_ >= yearSeconds(year_)) {
    seconds_ -= yearSeconds(year_);
    ++year_;
  }
  if (year_ < 0)
    throw InvalidDateTimeDMY(TimeException::BAD_YEAR, "orvCore::DateTime, The year is not valid.");
}

double DateTime::getReference1900() const {
  double total = seconds_;
  for (int y = 1900; y < year_; ++y)
    total += yearSeconds(y);
  for (int y = year_; y < 1900; ++y)
    total -= yearSeconds(y);
  return total;
}

std::string DateTime::getMonthName(bool abbreviated) const {
  const struct tm fields = convert2TM();
  return abbreviated ? ABBREV_MONTH_NAME[fields.tm_mon] : MONTH_NAME[fields.tm_mon];
}

std::string DateTime::getWeekdayName(bool abbreviated) const {
  const struct tm fields = convert2TM();
  // the tables start on Monday, tm_wday on Sunday
  const int index = (fields.tm_wday + 6) % 7;
  return abbreviated ? ABBREV_WEEKDAY_NAME[index] : WEEKDAY_NAME[index];
}

int DateTime::getDayOfYear() const { return static_cast<int>(seconds_ / 86400.0); }

struct tm DateTime::convert2TM() const {
  return getTimeStruct(seconds_, year_ - 1900);
}

std::string DateTime::formatString(const std::string& format) const {
  const struct tm fields = convert2TM();
  char buffer[256];
  const size_t length = strftime(buffer, sizeof(buffer), format.c_str(), &fields);
  return std::string(buffer, length);
}

std::string DateTime::asString(TimeFormat format, unsigned int precision, bool showYear) const {
  if (precision > 9)
    precision = 9;
  if (format == TIMEFORMAT_DTG)
    return UTILS::printTimeString(seconds_, year_, UTILS::UNITS_DTG, static_cast<int>(precision));
  char secondsFormat[32];
  char text[128];
  if (format == TIMEFORMAT_SECONDS) {
    snprintf(secondsFormat, sizeof(secondsFormat), "%%.%df", precision);
    snprintf(text, sizeof(text), secondsFormat, seconds_);
    return text;
  }
  const struct tm fields = convert2TM();
  const double secondsOfMinute = fields.tm_sec + (seconds_ - std::floor(seconds_));
  const int width = precision == 0 ? 2 : static_cast<int>(precision) + 3;
  snprintf(secondsFormat, sizeof(secondsFormat), "%%0%d.%df", width, precision);
  char secondsField[48];
  snprintf(secondsField, sizeof(secondsField), secondsFormat, secondsOfMinute);
  const long long wholeMinutes = static_cast<long long>(seconds_ / 60.0);
  switch (format) {
    case TIMEFORMAT_MINUTES:
      snprintf(text, sizeof(text), "%02lld:%s", wholeMinutes, secondsField);
      break;
    case TIMEFORMAT_HOURS:
      snprintf(text, sizeof(text), "%02lld:%02lld:%s", wholeMinutes / 60, wholeMinutes % 60, secondsField);
      break;
    case TIMEFORMAT_ORDINAL:
      snprintf(text, sizeof(text), "%03d %02d:%02d:%s", fields.tm_yday + 1, fields.tm_hour, fields.tm_min,
               secondsField);
      break;
    default: {
      const std::string weekday = getWeekdayName(true);
      const std::string month = ABBREV_MONTH_NAME[fields.tm_mon];
      if (showYear)
        snprintf(text, sizeof(text), "%s %s %02d %02d:%02d:%s %04d", weekday.c_str(), month.c_str(), fields.tm_mday,
                 fields.tm_hour, fields.tm_min, secondsField, year_);
      else
        snprintf(text, sizeof(text), "%s %s %02d %02d:%02d:%s", weekday.c_str(), month.c_str(), fields.tm_mday,
                 fields.tm_hour, fields.tm_min, secondsField);
      break;
    }
  }
  return text;
}

void DateTime::setTimeStamp(const TimeStamp& stamp) {
  setTimeStamp(stamp.referenceYear(), stamp.secondsSinceRefYear().asDouble());
}

void DateTime::setTimeStamp(int year, double secondsSinceYear) {
  if (!std::isfinite(secondsSinceYear))
    throw InvalidDateTimeDMY(TimeException::BAD_SECONDS, "orvCore::DateTime, The time is not a finite number.");
  if (year < 0)
    throw InvalidDateTimeDMY(TimeException::BAD_YEAR, "orvCore::DateTime, The year is not valid.");
  year_ = year;
  seconds_ = secondsSinceYear;
  normalize_();
}

void DateTime::setSystemTimeStamp() {
  double seconds = 0;
  int year = 1970;
  systemTimeToSecsBgnYr(seconds, year);
  if (year == 65535) {
    year = 1970;
    seconds = 0;
  }
  year_ = year;
  seconds_ = seconds;
}

bool DateTime::isEqual(const DateTime& other, double tolerance) const {
  if (year_ == other.year_)
    return std::fabs(seconds_ - other.seconds_) <= tolerance;
  return std::fabs(getReference1900() - other.getReference1900()) <= tolerance;
}

}  // namespace orvCore
