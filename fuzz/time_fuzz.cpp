// libFuzzer target of the time text layer. Input: two bytes that choose a
// reference year (1890..2219, so that some are refused), then the text. Any
// exception other than orvCore::TimeException escapes and is a finding;
// broken invariants trap.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "core/TimeClass.h"

using namespace UTILS;
using orvCore::TimeException;

namespace {

void check(bool condition) {
  if (!condition)
    __builtin_trap();
}

// A printed time must read back to the value, within the printed precision.
void roundTrip(double value, int referenceYear) {
  if (!(value >= 0.0 && value < 1.5e9) || referenceYear < 1900 || referenceYear > 2200)
    return;
  const UnitType_t formats[] = {UNITS_SECONDS, UNITS_MINUTES, UNITS_HOURS, UNITS_ORDINAL, UNITS_MONTHDAY, UNITS_DTG};
  for (const UnitType_t format : formats) {
    const std::string text = printTimeString(value, referenceYear, format, 3);
    const double back = parseTimeString(text, referenceYear);
    check(std::fabs(back - value) <= 0.0005 + 1e-6);
  }
}

void stamps(const uint8_t* data, size_t size) {
  if (size < 10)
    return;
  int16_t yearOffset = 0;
  double seconds = 0;
  std::memcpy(&yearOffset, data, sizeof(yearOffset));
  std::memcpy(&seconds, data + 2, sizeof(seconds));
  const orvCore::TimeStamp stamp(1900 + yearOffset, orvCore::Seconds(seconds));
  const int year = stamp.referenceYear();
  check(year == orvCore::TimeStamp::INFINITE_YEAR || (year >= 1970 && year <= 2200));
  const orvCore::Seconds& within = stamp.secondsSinceRefYear();
  check(within >= orvCore::ZERO_SECONDS);
  check(within.getSeconds() < orvCore::daysPerYear(year) * 86400LL);
  check(within.getFraction() >= 0 && within.getFraction() < 1000000000);
  // differences walk the years and must come back to the same stamp
  const orvCore::Seconds span = stamp - orvCore::MIN_TIME_STAMP;
  if (year != orvCore::TimeStamp::INFINITE_YEAR)
    check(orvCore::MIN_TIME_STAMP + span == stamp);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  stamps(data, size);
  if (size < 2)
    return 0;
  const int referenceYear = 1890 + (data[0] | (data[1] << 8)) % 330;
  const std::string text(reinterpret_cast<const char*>(data + 2), size - 2);

  getTimeMatch(text);
  try {
    const double value = parseTimeString(text, referenceYear);
    roundTrip(value, referenceYear);
  } catch (const TimeException&) {
  }
  try {
    getHHMMSSFromString(text);
  } catch (const TimeException&) {
  }
  try {
    getYearFromTimeString(text);
  } catch (const TimeException&) {
  }
  try {
    getSecondsFromJdayString(text);
  } catch (const TimeException&) {
  }
  try {
    getMonthFromString(text);
  } catch (const TimeException&) {
  }
  try {
    getDayFromString(text);
  } catch (const TimeException&) {
  }
  const double score = getSecondsSinceYearFromScoreTimeString(text);
  getScoreTimeString(score, true, 3);
  getReferenceYearFromScoreDateString(text);
  return 0;
}
