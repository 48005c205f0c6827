#include "core/TimeStamp.h"

#include <cmath>

#include "core/TimeCalendar.h"

namespace orvCore {

namespace {

constexpr int64_t SECONDS_PER_COMMON_YEAR = 31536000;

// Length of a year in seconds; years here are always positive.
int64_t yearLength(int year) { return static_cast<int64_t>(daysPerYear(year)) * 86400; }

// Seconds from the start of `from` to the start of `to`.
Seconds yearsBetween(int from, int to) {
  int64_t total = 0;
  if (to > from) {
    for (int y = from; y < to; ++y)
      total += yearLength(y);
  } else {
    for (int y = to; y < from; ++y)
      total -= yearLength(y);
  }
  return Seconds(total, 0);
}

}  // namespace

TimeStamp::TimeStamp() : referenceYear_(currentYear()), secondsSinceRefYear_() { fix_(); }

TimeStamp::TimeStamp(int referenceYear, const Seconds& secondsSinceRefYear)
    : referenceYear_(referenceYear), secondsSinceRefYear_(secondsSinceRefYear) {
  fix_();
}

void TimeStamp::setTime(int referenceYear, const Seconds& secondsSinceRefYear) {
  referenceYear_ = referenceYear;
  secondsSinceRefYear_ = secondsSinceRefYear;
  fix_();
}

void TimeStamp::fix_() {
  if (referenceYear_ == INFINITE_YEAR) {
    secondsSinceRefYear_ = ZERO_SECONDS;
    return;
  }
  if (referenceYear_ < MIN_YEAR) {
    *this = MIN_TIME_STAMP;
    return;
  }
  if (referenceYear_ > MAX_YEAR) {
    *this = MAX_TIME_STAMP;
    return;
  }
  const Seconds lengthOfYear(yearLength(referenceYear_), 0);
  if (secondsSinceRefYear_ >= ZERO_SECONDS && secondsSinceRefYear_ < lengthOfYear)
    return;

  // a first guess in common years, then the leap days crossed on the way
  const double yearsGuess = std::trunc(secondsSinceRefYear_.asDouble() / static_cast<double>(SECONDS_PER_COMMON_YEAR));
  if (std::fabs(yearsGuess) > 231.0) {
    *this = yearsGuess < 0 ? MIN_TIME_STAMP : MAX_TIME_STAMP;
    return;
  }
  const int years = static_cast<int>(yearsGuess);
  const int oldYear = referenceYear_;
  int year = oldYear + years;
  Seconds seconds = secondsSinceRefYear_ - Seconds(static_cast<int64_t>(years) * SECONDS_PER_COMMON_YEAR, 0);
  seconds -= Seconds(static_cast<int64_t>(leapDays(year - 1900) - leapDays(oldYear - 1900)) * 86400, 0);

  // the guess is off by at most one year either way
  for (int step = 0; step < 2 && year >= 1900; ++step) {
    if (seconds < ZERO_SECONDS) {
      --year;
      seconds += Seconds(yearLength(year), 0);
    } else if (seconds >= Seconds(yearLength(year), 0)) {
      seconds -= Seconds(yearLength(year), 0);
      ++year;
    } else {
      break;
    }
  }
  if (year < MIN_YEAR || (year == MIN_YEAR && seconds < ZERO_SECONDS)) {
    *this = MIN_TIME_STAMP;
    return;
  }
  if (year > MAX_YEAR || seconds >= Seconds(yearLength(year), 0)) {
    *this = MAX_TIME_STAMP;
    return;
  }
  referenceYear_ = year;
  secondsSinceRefYear_ = seconds;
}

Seconds TimeStamp::operator-(const TimeStamp& other) const {
  if (referenceYear_ == INFINITE_YEAR || other.referenceYear_ == INFINITE_YEAR)
    return ZERO_SECONDS;
  if (referenceYear_ == other.referenceYear_)
    return secondsSinceRefYear_ - other.secondsSinceRefYear_;
  return yearsBetween(other.referenceYear_, referenceYear_) + secondsSinceRefYear_ - other.secondsSinceRefYear_;
}

Seconds TimeStamp::secondsSinceRefYear(int year) const {
  if (year == referenceYear_)
    return secondsSinceRefYear_;
  return *this - TimeStamp(year, ZERO_SECONDS);
}

TimeStamp TimeStamp::operator+(const Seconds& offset) const {
  return TimeStamp(referenceYear_, secondsSinceRefYear_ + offset);
}

TimeStamp TimeStamp::operator-(const Seconds& offset) const {
  return TimeStamp(referenceYear_, secondsSinceRefYear_ - offset);
}

void TimeStamp::getTimeComponents(unsigned int& days, unsigned int& hours, unsigned int& minutes,
                                  Seconds& seconds) const {
  // within a year after fix_, so the whole seconds fit easily
  const int64_t whole = secondsSinceRefYear_.getSeconds();
  days = static_cast<unsigned int>(whole / 86400);
  hours = static_cast<unsigned int>((whole % 86400) / 3600);
  minutes = static_cast<unsigned int>((whole % 3600) / 60);
  seconds = Seconds(whole % 60, secondsSinceRefYear_.getFraction());
}

int TimeStamp::compare_(const TimeStamp& other) const {
  if (referenceYear_ != other.referenceYear_)
    return referenceYear_ < other.referenceYear_ ? 0 : 2;
  return secondsSinceRefYear_.compare(other.secondsSinceRefYear_);
}

double getFactor(const TimeStamp& low, const TimeStamp& exact, const TimeStamp& high) {
  if (exact <= low)
    return 0.0;
  if (exact >= high)
    return 1.0;
  return (exact - low).asDouble() / (high - low).asDouble();
}

std::ostream& operator<<(std::ostream& os, const TimeStamp& stamp) {
  return os << stamp.referenceYear() << " " << stamp.secondsSinceRefYear();
}

}  // namespace orvCore
