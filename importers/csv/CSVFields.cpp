#include "importers/csv/CSVFields.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "core/TimeCalendar.h"

namespace CSVFields {

namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kPi = 3.141592653589793;

// Brings an angle into [0, 2 pi), or into [-pi, pi] with `plusMinus`.
double wrap(double angle, bool plusMinus) {
  const bool inside = plusMinus ? (angle >= -kPi && angle <= kPi) : (angle >= 0.0 && angle < kTwoPi);
  if (inside) return angle;
  if (angle < 0.0 || angle >= kTwoPi) angle = std::fmod(angle, kTwoPi);
  if (std::fabs(angle) < 1e-10) angle = 0.0;
  if (angle < 0.0) angle += kTwoPi;
  if (plusMinus && angle > kPi) angle -= kTwoPi;
  return angle;
}

}  // namespace

// from_chars reads the plain decimals of almost every field quickly and
// exactly as strtod would; anything else (blanks, "+", a trailing text, hex,
// out of range) goes to the C functions, whose lenient reading holds.
double toDouble(const std::string& text) {
  double value = 0.0;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, value);
  if (parsed.ec == std::errc() && parsed.ptr == end) return value;
  return std::strtod(text.c_str(), nullptr);
}

int toInt(const std::string& text) {
  long value = 0;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, value);
  if (parsed.ec == std::errc() && parsed.ptr == end) return static_cast<int>(value);
  return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

int truncateToInt(double value) {
  // Compared in doubles: every int is exact there, and NaN fails both tests.
  if (!(value > -2147483649.0 && value < 2147483648.0)) return 0;
  return static_cast<int>(value);
}

double wrapPlusMinusPi(double degrees) { return wrap(degrees * DEG_TO_RAD, true); }

double wrapZeroTwoPi(double degrees) { return wrap(degrees * DEG_TO_RAD, false); }

double recordTime(const std::vector<std::string>& tokens, size_t first) {
  const int year = toInt(tokens[first]);
  // The files count months from 1, the calendar from 0.
  const int month = toInt(tokens[first + 1]) - 1;
  const int day = toInt(tokens[first + 2]);
  return orvCore::getYearDay(month, day, year) * 86400.0 + toDouble(tokens[first + 3]) * 3600.0 +
         toDouble(tokens[first + 4]) * 60.0 + toDouble(tokens[first + 5]);
}

}  // namespace CSVFields
