#pragma once
// The older date-and-time class: a UTC moment kept as a year and seconds
// since its start, with the difference UT1 - UTC and the leap seconds
// (TAI - UTC) that turn it into universal time or terrestrial dynamical time.
// Invalid calendar dates throw InvalidDateTimeDMY.

#include <ctime>
#include <string>

#include "core/TimeException.h"
#include "core/TimeFormat.h"
#include "core/TimeStamp.h"

namespace orvCore {

// A date that doesn't exist; the code is that of the field at fault.
class InvalidDateTimeDMY : public TimeException {
 public:
  InvalidDateTimeDMY(int code, const std::string& message) : TimeException(code, message) {}
  ~InvalidDateTimeDMY() override;
};

class DateTime {
 public:
  // The current system time.
  DateTime();
  // Seconds since 1 January 1970 00:00 UTC.
  explicit DateTime(double secondsSince1970);
  // Calendar fields (tm_year, tm_mon, tm_mday, tm_hour, tm_min, tm_sec).
  explicit DateTime(const struct tm& fields);
  // A calendar date (month from 1) and clock.
  DateTime(int year, int month, int day, int hour = 0, int minute = 0, double second = 0.0, double ut1MinusUtc = 0.0,
           int leapSeconds = 0);
  // A year and seconds since its start (may run past the year).
  DateTime(int year, double secondsSinceYear);

  int getYear() const { return year_; }
  // Seconds since the start of getYear().
  double getTime() const { return seconds_; }
  TimeStamp getTimeStamp() const { return TimeStamp(year_, Seconds(seconds_)); }
  // Seconds since 1 January 1900 00:00 UTC.
  double getReference1900() const;

  std::string getMonthName(bool abbreviated = false) const;
  std::string getWeekdayName(bool abbreviated = false) const;
  // From 0 on 1 January.
  int getDayOfYear() const;
  struct tm convert2TM() const;
  // strftime on the calendar fields.
  std::string formatString(const std::string& format) const;
  // Text forms: seconds, minutes ("MM:SS.s"), hours ("HH:MM:SS.s"), ordinal
  // ("JJJ HH:MM:SS.s"), month-day ("WKD MNT MD HH:MM:SS.s", with " yyyy" when
  // showYear) and date-time group.
  std::string asString(TimeFormat format, unsigned int precision = 3, bool showYear = true) const;

  void setTimeStamp(const TimeStamp& stamp);
  void setTimeStamp(int year, double secondsSinceYear);
  void setSystemTimeStamp();

  // Seconds since the start of the year in terrestrial dynamical time
  // (TAI + 32.184 s) and in universal time UT1.
  double getTDT() const { return seconds_ + leapSeconds_ + 32.184; }
  double getUT() const { return seconds_ + ut1MinusUtc_; }

  // Same moment within `tolerance` seconds.
  bool isEqual(const DateTime& other, double tolerance = 1e-9) const;

 private:
  void normalize_();

  int year_ = 1970;
  double seconds_ = 0.0;
  double ut1MinusUtc_ = 0.0;
  int leapSeconds_ = 0;
};

}  // namespace orvCore
