#pragma once
// Fixed-point seconds: whole seconds and nanoseconds. Doubles lose the
// nanoseconds of a time tag after a few decades of seconds; this type keeps
// them. After every operation the fraction lies in 0..999999999, so a
// negative value has a negative whole part and a positive fraction
// (-0.5 is -1 s + 500000000 ns). Whole seconds saturate at the 64-bit limits
// instead of overflowing.

#include <cstdint>
#include <ostream>

namespace orvCore {

class Seconds {
 public:
  static constexpr int32_t NANOS_PER_SECOND = 1000000000;

  constexpr Seconds() : seconds_(0), fraction_(0) {}
  // Rounded to the nearest nanosecond; values beyond the 64-bit range
  // saturate, and NaN is taken as zero.
  Seconds(double value);  // NOLINT: implicit on purpose, times are written as doubles
  // Any fraction is normalised into the whole part.
  constexpr Seconds(int64_t seconds, int32_t fraction) : seconds_(seconds), fraction_(fraction) { normalize_(); }

  int64_t getSeconds() const { return seconds_; }
  int32_t getFraction() const { return fraction_; }
  // seconds + 1e-9 x fraction
  double asDouble() const { return static_cast<double>(seconds_) + 1e-9 * static_cast<double>(fraction_); }

  // Rounded to `digits` decimals; 9 or more leave the value as it is.
  Seconds rounded(int digits) const;

  Seconds operator+(const Seconds& other) const;
  Seconds operator-(const Seconds& other) const;
  Seconds operator-() const;
  // Through doubles; a zero factor gives exactly zero.
  Seconds operator*(const Seconds& other) const;
  // Through doubles; division by zero gives zero rather than failing.
  Seconds operator/(const Seconds& other) const;
  Seconds& operator+=(const Seconds& other) { return *this = *this + other; }
  Seconds& operator-=(const Seconds& other) { return *this = *this - other; }

  // 0 less, 1 equal, 2 greater; values within one nanosecond are equal.
  int compare(const Seconds& other) const;

  bool operator==(const Seconds& o) const { return compare(o) == 1; }
  bool operator!=(const Seconds& o) const { return compare(o) != 1; }
  bool operator<(const Seconds& o) const { return compare(o) == 0; }
  bool operator>(const Seconds& o) const { return compare(o) == 2; }
  bool operator<=(const Seconds& o) const { return compare(o) != 2; }
  bool operator>=(const Seconds& o) const { return compare(o) != 0; }

 private:
  constexpr void normalize_() {
    if (fraction_ >= NANOS_PER_SECOND || fraction_ <= -NANOS_PER_SECOND) {
      seconds_ = addSaturated_(seconds_, fraction_ / NANOS_PER_SECOND);
      fraction_ %= NANOS_PER_SECOND;
    }
    if (fraction_ < 0) {
      if (seconds_ == INT64_MIN) {
        fraction_ = 0;  // saturated: nothing below to borrow from
      } else {
        --seconds_;
        fraction_ += NANOS_PER_SECOND;
      }
    }
  }
  static constexpr int64_t addSaturated_(int64_t a, int64_t b) {
    if (b > 0 && a > INT64_MAX - b)
      return INT64_MAX;
    if (b < 0 && a < INT64_MIN - b)
      return INT64_MIN;
    return a + b;
  }

  int64_t seconds_;
  int32_t fraction_;
};

inline constexpr Seconds ZERO_SECONDS{};

std::ostream& operator<<(std::ostream& os, const Seconds& value);

}  // namespace orvCore
