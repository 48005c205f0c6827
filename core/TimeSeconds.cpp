#include "core/TimeSeconds.h"

#include <cmath>
#include <iomanip>

namespace orvCore {

namespace {
constexpr double TWO_TO_63 = 9223372036854775808.0;
}

Seconds::Seconds(double value) : seconds_(0), fraction_(0) {
  if (std::isnan(value))
    return;
  if (value >= TWO_TO_63) {
    seconds_ = INT64_MAX;
    return;
  }
  if (value <= -TWO_TO_63) {
    seconds_ = INT64_MIN;
    return;
  }
  const double whole = std::trunc(value);
  const double remainder = value - whole;
  seconds_ = static_cast<int64_t>(whole);
  // the half nanosecond rounds to the nearest nanosecond
  const double half = value < 0 ? -5e-10 : 5e-10;
  fraction_ = static_cast<int32_t>(1e9 * (remainder + half));
  normalize_();
}

Seconds Seconds::rounded(int digits) const {
  if (digits >= 9)
    return *this;
  if (digits < 0)
    digits = 0;
  int64_t scale = 1;
  for (int i = 0; i < 8 - digits; ++i)
    scale *= 10;
  const int64_t fraction = ((fraction_ + 5 * scale) / (10 * scale)) * scale * 10;
  Seconds result;
  result.seconds_ = seconds_;
  // at most 1e9, so the fraction still fits and normalisation carries it
  result.fraction_ = static_cast<int32_t>(fraction);
  result.normalize_();
  return result;
}

Seconds Seconds::operator+(const Seconds& other) const {
  Seconds result;
  result.seconds_ = addSaturated_(seconds_, other.seconds_);
  result.fraction_ = fraction_ + other.fraction_;  // both below 1e9: no overflow
  result.normalize_();
  return result;
}

Seconds Seconds::operator-() const {
  Seconds result;
  result.seconds_ = seconds_ == INT64_MIN ? INT64_MAX : -seconds_;
  result.fraction_ = -fraction_;
  result.normalize_();
  return result;
}

Seconds Seconds::operator-(const Seconds& other) const {
  Seconds result;
  // a - b, written so that neither step overflows
  if (other.seconds_ == INT64_MIN)
    result.seconds_ = addSaturated_(addSaturated_(seconds_, INT64_MAX), 1);
  else
    result.seconds_ = addSaturated_(seconds_, -other.seconds_);
  result.fraction_ = fraction_ - other.fraction_;
  result.normalize_();
  return result;
}

Seconds Seconds::operator*(const Seconds& other) const {
  if ((seconds_ == 0 && fraction_ == 0) || (other.seconds_ == 0 && other.fraction_ == 0))
    return ZERO_SECONDS;
  return Seconds(asDouble() * other.asDouble());
}

Seconds Seconds::operator/(const Seconds& other) const {
  if (other.seconds_ == 0 && other.fraction_ == 0)
    return ZERO_SECONDS;
  return Seconds(asDouble() / other.asDouble());
}

int Seconds::compare(const Seconds& other) const {
  if (seconds_ == other.seconds_) {
    const int32_t diff = fraction_ - other.fraction_;
    if (diff >= -1 && diff <= 1)
      return 1;
    return diff < 0 ? 0 : 2;
  }
  // values one second apart may still be within a nanosecond of each other
  if (seconds_ > other.seconds_) {
    if (seconds_ - 1 == other.seconds_ && fraction_ + NANOS_PER_SECOND - other.fraction_ <= 1)
      return 1;
    return 2;
  }
  if (other.seconds_ - 1 == seconds_ && other.fraction_ + NANOS_PER_SECOND - fraction_ <= 1)
    return 1;
  return 0;
}

std::ostream& operator<<(std::ostream& os, const Seconds& value) {
  if (value.getSeconds() < 0 && value.getFraction() != 0) {
    // -1 s + 0.5 s is written -0.500000000
    const Seconds magnitude = -value;
    return os << "-" << magnitude.getSeconds() << "." << std::setw(9) << std::setfill('0')
              << magnitude.getFraction() << std::setfill(' ');
  }
  return os << value.getSeconds() << "." << std::setw(9) << std::setfill('0') << value.getFraction()
            << std::setfill(' ');
}

}  // namespace orvCore
