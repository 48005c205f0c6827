#pragma once
// A moment as a reference year plus seconds since the start of that year
// (UTC). Stamps never throw: construction normalises the seconds into the
// year and saturates to MIN_TIME_STAMP or MAX_TIME_STAMP outside 1970..2200.
// The year 16384 marks the infinite stamp.

#include <ostream>

#include "core/TimeSeconds.h"

namespace orvCore {

class TimeStamp {
 public:
  static constexpr int INFINITE_YEAR = 16384;
  static constexpr int MIN_YEAR = 1970;
  static constexpr int MAX_YEAR = 2200;

  // The current year, seconds 0.
  TimeStamp();
  TimeStamp(int referenceYear, const Seconds& secondsSinceRefYear);

  void setTime(int referenceYear, const Seconds& secondsSinceRefYear);

  int referenceYear() const { return referenceYear_; }
  const Seconds& secondsSinceRefYear() const { return secondsSinceRefYear_; }
  // This moment as seconds since the start of `year` (negative before it).
  Seconds secondsSinceRefYear(int year) const;

  // Zero if either stamp is infinite.
  Seconds operator-(const TimeStamp& other) const;
  TimeStamp operator+(const Seconds& offset) const;
  TimeStamp operator-(const Seconds& offset) const;
  TimeStamp& operator+=(const Seconds& offset) { return *this = *this + offset; }
  TimeStamp& operator-=(const Seconds& offset) { return *this = *this - offset; }

  // Days, hours and minutes of the seconds since the reference year, and the
  // seconds left over.
  void getTimeComponents(unsigned int& days, unsigned int& hours, unsigned int& minutes, Seconds& seconds) const;

  bool operator==(const TimeStamp& o) const { return compare_(o) == 1; }
  bool operator!=(const TimeStamp& o) const { return compare_(o) != 1; }
  bool operator<(const TimeStamp& o) const { return compare_(o) == 0; }
  bool operator>(const TimeStamp& o) const { return compare_(o) == 2; }
  bool operator<=(const TimeStamp& o) const { return compare_(o) != 2; }
  bool operator>=(const TimeStamp& o) const { return compare_(o) != 0; }

  // Builds a stamp as given, without normalisation: for the constants only.
  static constexpr TimeStamp raw(int referenceYear, const Seconds& seconds) { return TimeStamp(referenceYear, seconds, 0); }

 private:
  constexpr TimeStamp(int referenceYear, const Seconds& seconds, int /*raw*/)
      : referenceYear_(referenceYear), secondsSinceRefYear_(seconds) {}
  void fix_();
  // 0 less, 1 equal, 2 greater: year first, then seconds.
  int compare_(const TimeStamp& other) const;

  int referenceYear_;
  Seconds secondsSinceRefYear_;
};

inline constexpr TimeStamp INFINITE_TIME_STAMP = TimeStamp::raw(TimeStamp::INFINITE_YEAR, Seconds(0, 0));
inline constexpr TimeStamp MIN_TIME_STAMP = TimeStamp::raw(TimeStamp::MIN_YEAR, Seconds(0, 0));
// The last nanosecond of 2200 (a common year).
inline constexpr TimeStamp MAX_TIME_STAMP =
    TimeStamp::raw(TimeStamp::MAX_YEAR, Seconds(365LL * 86400 - 1, Seconds::NANOS_PER_SECOND - 1));

// Where `exact` lies between `low` and `high`: 0 at or before low, 1 at or
// after high, else the fraction of the way.
double getFactor(const TimeStamp& low, const TimeStamp& exact, const TimeStamp& high);

std::ostream& operator<<(std::ostream& os, const TimeStamp& stamp);

}  // namespace orvCore
