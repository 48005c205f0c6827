#include "core/TimePrint.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>

#include "core/Convert.h"
#include "core/StringUtils.h"
#include "core/TimeCalendar.h"

namespace UTILS {

using orvCore::TimeException;

namespace {

// A value in whole units of 10^-precision, so that the fields split exactly
// and a rounded 59.9995 can never print as "60.000".
struct Ticks {
  bool negative = false;
  uint64_t magnitude = 0;
  uint64_t scale = 1;  // ticks per second
  int precision = 0;
};

Ticks toTicks(double value, int precision) {
  Ticks ticks;
  ticks.precision = precision < 0 ? 0 : (precision > 9 ? 9 : precision);
  for (int i = 0; i < ticks.precision; ++i)
    ticks.scale *= 10;
  if (!std::isfinite(value))
    throw TimeException(TimeException::BAD_SECONDS, "The time value is not a finite number.");
  const double scaled = std::floor(value * static_cast<double>(ticks.scale) + 0.5);
  if (std::fabs(scaled) >= 9.0e18)
    throw TimeException(TimeException::BAD_SECONDS, "The time value is too large for a time string.");
  const int64_t signedTicks = static_cast<int64_t>(scaled);
  ticks.negative = signedTicks < 0;
  ticks.magnitude = static_cast<uint64_t>(ticks.negative ? -signedTicks : signedTicks);
  return ticks;
}

class FieldWriter {
 public:
  explicit FieldWriter(int base) : hex_(base == 16) {}

  std::string number(uint64_t value, int width) const {
    if (hex_)
      return stringConvertHexToString(value, static_cast<size_t>(width));
    std::string text = std::to_string(value);
    if (static_cast<int>(text.size()) < width)
      text.insert(0, static_cast<size_t>(width) - text.size(), '0');
    return text;
  }

  // Seconds of a clock: `ticks` below one minute (or any count of seconds
  // when width is 0), whole part padded to `width`.
  std::string seconds(uint64_t ticks, const Ticks& form, int width) const {
    std::string text = number(ticks / form.scale, width);
    if (!hex_ && form.precision > 0) {
      std::string fraction = std::to_string(ticks % form.scale);
      fraction.insert(0, static_cast<size_t>(form.precision) - fraction.size(), '0');
      text += "." + fraction;
    }
    return text;
  }

 private:
  bool hex_;
};

// Calendar fields of a non-negative tick count since the start of the year.
struct tm calendarFields(const Ticks& ticks, int referenceYear) {
  if (referenceYear < 0)
    throw TimeException(TimeException::BAD_REFERENCE_YEAR, "The reference year is not valid.");
  if (ticks.negative && ticks.magnitude != 0)
    throw TimeException(TimeException::BAD_SECONDS, "orvCore::getTimeStruct, The seconds since epoch time is < 0.");
  return orvCore::getTimeStruct(static_cast<double>(ticks.magnitude / ticks.scale), referenceYear - 1900);
}

std::string clockText(const struct tm& fields, const Ticks& ticks, const FieldWriter& writer) {
  const uint64_t secondTicks = static_cast<uint64_t>(fields.tm_sec) * ticks.scale + ticks.magnitude % ticks.scale;
  return writer.number(static_cast<uint64_t>(fields.tm_hour), 2) + ":" +
         writer.number(static_cast<uint64_t>(fields.tm_min), 2) + ":" + writer.seconds(secondTicks, ticks, 2);
}

std::string utcStamp(const char* format) {
  const time_t now = time(nullptr);
  struct tm fields;
  if (gmtime_r(&now, &fields) == nullptr)
    return std::string();
  char buffer[64];
  const size_t length = strftime(buffer, sizeof(buffer), format, &fields);
  return std::string(buffer, length);
}

}  // namespace

std::string printTimeString(double value, int referenceYear, UnitType_t format, int precision, bool zeroPad,
                            bool showYear, int base) {
  const Ticks ticks = toTicks(value, precision);
  const FieldWriter writer(base);
  const std::string sign = ticks.negative ? "-" : "";
  const uint64_t perMinute = 60 * ticks.scale;
  const uint64_t perHour = 3600 * ticks.scale;
  switch (format) {
    case UNITS_SECONDS:
      return sign + writer.seconds(ticks.magnitude, ticks, 0);
    case UNITS_MINUTES:
      return sign + writer.number(ticks.magnitude / perMinute, zeroPad ? 2 : 0) + ":" +
             writer.seconds(ticks.magnitude % perMinute, ticks, 2);
    case UNITS_HOURS:
      return sign + writer.number(ticks.magnitude / perHour, zeroPad ? 2 : 0) + ":" +
             writer.number((ticks.magnitude % perHour) / perMinute, 2) + ":" +
             writer.seconds(ticks.magnitude % perMinute, ticks, 2);
    case UNITS_ORDINAL: {
      const struct tm fields = calendarFields(ticks, referenceYear);
      std::string text = writer.number(static_cast<uint64_t>(fields.tm_yday + 1), 3) + " ";
      if (showYear)
        text += writer.number(static_cast<uint64_t>(fields.tm_year + 1900), 4) + " ";
      return text + clockText(fields, ticks, writer);
    }
    case UNITS_MONTHDAY: {
      const struct tm fields = calendarFields(ticks, referenceYear);
      std::string text =
          getStringFromMonth(fields.tm_mon) + " " + writer.number(static_cast<uint64_t>(fields.tm_mday), 2) + " ";
      if (showYear)
        text += writer.number(static_cast<uint64_t>(fields.tm_year + 1900), 4) + " ";
      return text + clockText(fields, ticks, writer);
    }
    case UNITS_DTG: {
      const struct tm fields = calendarFields(ticks, referenceYear);
      const uint64_t secondTicks = static_cast<uint64_t>(fields.tm_sec) * ticks.scale + ticks.magnitude % ticks.scale;
      return writer.number(static_cast<uint64_t>(fields.tm_mday), 2) +
             writer.number(static_cast<uint64_t>(fields.tm_hour), 2) +
             writer.number(static_cast<uint64_t>(fields.tm_min), 2) + ":" + writer.seconds(secondTicks, ticks, 2) +
             " Z " + orvCore::upperCase(getStringFromMonth(fields.tm_mon)) +
             writer.number(static_cast<uint64_t>((fields.tm_year + 1900) % 100), 2);
    }
    default:
      throw TimeException(TimeException::BAD_FORMAT, "Unknown format flag for time string.");
  }
}

std::string getTimeString(int referenceYear, double seconds, UnitType_t format, int precision, bool zeroPad,
                          bool showYear) {
  try {
    return printTimeString(seconds, referenceYear, format, precision, zeroPad, showYear);
  } catch (const TimeException&) {
    return std::string();
  }
}

namespace {

// The ticks of `seconds`, false where the value cannot be printed.
bool ticksOf(double seconds, int precision, Ticks& ticks) {
  try {
    ticks = toTicks(seconds, precision);
    return true;
  } catch (const TimeException&) {
    return false;
  }
}

}  // namespace

std::string getScoreTimeString(double seconds, bool showDay, int precision) {
  Ticks ticks;
  if (!ticksOf(seconds, precision, ticks)) return std::string();
  const FieldWriter writer(10);
  const uint64_t perMinute = 60 * ticks.scale;
  const uint64_t perHour = 3600 * ticks.scale;
  const uint64_t perDay = 86400 * ticks.scale;
  std::string text = ticks.negative ? "-" : "";
  uint64_t left = ticks.magnitude;
  if (showDay) {
    text += writer.number(left / perDay, 3) + " ";
    left %= perDay;
  }
  text += writer.number(left / perHour, 2) + writer.number((left % perHour) / perMinute, 2) + ":" +
          writer.seconds(left % perMinute, ticks, 2);
  return text;
}

std::string getJdayStringFromSeconds(double seconds, int precision) {
  if (!(seconds >= 0))
    return std::string();
  Ticks ticks;
  if (!ticksOf(seconds, precision, ticks)) return std::string();
  const FieldWriter writer(10);
  const uint64_t perMinute = 60 * ticks.scale;
  const uint64_t perHour = 3600 * ticks.scale;
  const uint64_t perDay = 86400 * ticks.scale;
  const uint64_t left = ticks.magnitude % perDay;
  return writer.number(ticks.magnitude / perDay + 1, 3) + " " + writer.number(left / perHour, 2) + ":" +
         writer.number((left % perHour) / perMinute, 2) + ":" + writer.seconds(left % perMinute, ticks, 2);
}

std::string getSystemTimeString() { return utcStamp("%Y%m%d-%H%M%S"); }

std::string appendTimeToString(const std::string& name) {
  const std::string stamp = utcStamp("_%Y%m%d-%H%M%S");
  const size_t slash = name.find_last_of("/\\");
  const size_t dot = name.rfind('.');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
    return name + stamp;
  return name.substr(0, dot) + stamp + name.substr(dot);
}

std::string getFilenameFromTime(int referenceYear, double seconds, const std::string& prefix,
                                const std::string& extension) {
  if (referenceYear < 0)
    throw TimeException(TimeException::BAD_REFERENCE_YEAR, "The reference year is not valid.");
  struct tm fields = orvCore::getTimeStruct(seconds, referenceYear - 1900);
  char buffer[64];
  const size_t length = strftime(buffer, sizeof(buffer), "%Y%m%d-%H%M%S", &fields);
  return prefix + std::string(buffer, length) + extension;
}

std::string getTimeRemainingText(double elapsed, double fraction) {
  if (!(fraction > 0.0) || !(elapsed > 0.0) || !std::isfinite(elapsed))
    return "Calculating";
  if (fraction >= 0.999)
    return "Moments";
  const double remaining = elapsed * (1.0 - fraction) / fraction;
  if (remaining < 1.0)
    return "Moments";
  char buffer[64];
  if (remaining < 60.0) {
    snprintf(buffer, sizeof(buffer), "%d Seconds", static_cast<int>(std::ceil(remaining)));
  } else if (remaining < 86400.0) {
    // whole minutes, rounded up
    const int minutes = static_cast<int>(std::ceil(remaining / 60.0));
    snprintf(buffer, sizeof(buffer), "%02d:%02d:00", minutes / 60, minutes % 60);
  } else {
    const double days = std::ceil(remaining / 86400.0);
    snprintf(buffer, sizeof(buffer), "%.0f Days", days > 1e9 ? 1e9 : days);
  }
  return buffer;
}

void printTimeStruct(const struct tm& fields, std::ostream& out) {
  out << "tm_sec = " << fields.tm_sec << "\n"
      << "tm_min = " << fields.tm_min << "\n"
      << "tm_hour = " << fields.tm_hour << "\n"
      << "tm_mday = " << fields.tm_mday << "\n"
      << "tm_mon = " << fields.tm_mon << "\n"
      << "tm_year = " << fields.tm_year << "\n"
      << "tm_wday = " << fields.tm_wday << "\n"
      << "tm_yday = " << fields.tm_yday << "\n"
      << "tm_isdst = " << fields.tm_isdst << "\n";
}

}  // namespace UTILS
