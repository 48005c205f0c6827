#include "host/cli/IsoTime.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace RefHost {

namespace {

// Days since 1970-01-01 of a proleptic Gregorian date, and back (the
// era-based method, exact for every year). The calendar of the core saturates
// outside the years its stamps cover, which an honest display must not do.
long long daysFromCivil(long long year, unsigned month, unsigned day) {
  year -= month <= 2;
  const long long era = (year >= 0 ? year : year - 399) / 400;
  const unsigned yearOfEra = static_cast<unsigned>(year - era * 400);
  const unsigned dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  const unsigned dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + static_cast<long long>(dayOfEra) - 719468;
}

void civilFromDays(long long days, long long& year, unsigned& month, unsigned& day) {
  days += 719468;
  const long long era = (days >= 0 ? days : days - 146096) / 146097;
  const unsigned dayOfEra = static_cast<unsigned>(days - era * 146097);
  const unsigned yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const unsigned dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const unsigned shifted = (5 * dayOfYear + 2) / 153;
  day = dayOfYear - (153 * shifted + 2) / 5 + 1;
  month = shifted < 10 ? shifted + 3 : shifted - 9;
  year = static_cast<long long>(yearOfEra) + era * 400 + (month <= 2);
}

}  // namespace

std::string shortestNumber(double value) {
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, value);
  return std::string(text, result.ptr);
}

std::string isoTime(int referenceYear, double seconds) {
  // 1e13 s is some 300000 years: beyond that no year of four digits is left.
  if (!std::isfinite(seconds) || std::fabs(seconds) > 1e13) return "";
  const long long millis = std::llround(seconds * 1000.0) + daysFromCivil(referenceYear, 1, 1) * 86400000LL;
  long long days = millis / 86400000LL;
  long long ofDay = millis % 86400000LL;
  if (ofDay < 0) {
    ofDay += 86400000LL;
    --days;
  }
  long long year = 0;
  unsigned month = 0, day = 0;
  civilFromDays(days, year, month, day);
  if (year < 0 || year > 9999) return "";
  const long long secondOfDay = ofDay / 1000;
  char text[40];
  int n = std::snprintf(text, sizeof text, "%04lld-%02u-%02uT%02lld:%02lld:%02lld", year, month, day,
                        secondOfDay / 3600, secondOfDay / 60 % 60, secondOfDay % 60);
  if (ofDay % 1000 != 0) n += std::snprintf(text + n, sizeof text - n, ".%03lld", ofDay % 1000);
  return std::string(text, static_cast<std::size_t>(n)) + "Z";
}

std::string timeText(int referenceYear, double seconds) {
  if (seconds == -1.0) return "static";
  const std::string iso = isoTime(referenceYear, seconds);
  if (!iso.empty()) return iso;
  return shortestNumber(seconds) + " s of " + std::to_string(referenceYear);
}

std::string durationText(double seconds) {
  if (!std::isfinite(seconds) || std::fabs(seconds) > 1e13) return shortestNumber(seconds) + " s";
  const bool negative = seconds < 0;
  const long long millis = std::llround(std::fabs(seconds) * 1000.0);
  const long long whole = millis / 1000;
  char text[64];
  int n = 0;
  if (whole >= 86400)
    n = std::snprintf(text, sizeof text, "%s%lld d %02lld:%02lld:%02lld", negative ? "-" : "", whole / 86400,
                      whole / 3600 % 24, whole / 60 % 60, whole % 60);
  else
    n = std::snprintf(text, sizeof text, "%s%02lld:%02lld:%02lld", negative ? "-" : "", whole / 3600, whole / 60 % 60,
                      whole % 60);
  if (millis % 1000 != 0) {
    n += std::snprintf(text + n, sizeof text - n, ".%03lld", millis % 1000);
    while (text[n - 1] == '0') --n;
  }
  return std::string(text, static_cast<std::size_t>(n));
}

}  // namespace RefHost
