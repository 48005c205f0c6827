#include "importers/oth/OthFields.h"

#include <fox-1.6/fx.h>

#include <cmath>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include "core/TimeCalendar.h"
#include "core/TimeFormat.h"
#include "core/ValidNumber.h"

namespace OthLib {

namespace {

const char* const MONTHS[12] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The value of `count` digits of `text` from `pos`; false if any is no digit.
bool readDigits(const std::string& text, size_t pos, size_t count, int& value) {
  if (pos + count > text.size()) return false;
  value = 0;
  for (size_t i = pos; i < pos + count; ++i) {
    if (!isDigit(text[i])) return false;
    value = value * 10 + (text[i] - '0');
  }
  return true;
}

bool allDigits(const std::string& text) {
  if (text.empty()) return false;
  for (char c : text)
    if (!isDigit(c)) return false;
  return true;
}

std::string format(const char* pattern, ...) __attribute__((format(printf, 1, 2)));
std::string format(const char* pattern, ...) {
  va_list args;
  va_start(args, pattern);
  FX::FXString text;
  text.vformat(pattern, args);
  va_end(args);
  return std::string(text.text(), static_cast<size_t>(text.length()));
}

// One coordinate of a position: degree digits, minutes, optional seconds,
// a hemisphere letter and the check digit (already verified).
bool readCoordinate(const std::string& field, size_t degreeDigits, char positive, char negative, double limit,
                    double& degrees) {
  const size_t shortLength = degreeDigits + 4;  // digits, hemisphere, check digit
  if (field.size() != shortLength && field.size() != shortLength + 2) return false;
  const char hemisphere = field[field.size() - 2];
  if (hemisphere != positive && hemisphere != negative) return false;
  int whole = 0;
  int minutes = 0;
  int seconds = 0;
  if (!readDigits(field, 0, degreeDigits, whole) || !readDigits(field, degreeDigits, 2, minutes)) return false;
  if (field.size() > shortLength && !readDigits(field, degreeDigits + 2, 2, seconds)) return false;
  if (minutes > 59 || seconds > 59) return false;
  degrees = whole + minutes / 60.0 + seconds / 3600.0;
  if (degrees > limit) return false;
  if (hemisphere == negative) degrees = -degrees;
  return true;
}

bool readHeight(const std::string& field, double& metres) {
  metres = 0.0;
  if (field.empty()) return true;
  double value = 0.0;
  const size_t alt = field.find("ALT");
  if (alt != std::string::npos) {
    if (!orvCore::isValidNumber(field.substr(alt + 3), value, false)) return false;
    metres = value * 100.0 * FEET_TO_METRES;
    return true;
  }
  const size_t feet = field.find('F');
  if (feet == std::string::npos || !orvCore::isValidNumber(field.substr(0, feet), value, false)) return false;
  metres = value * -FEET_TO_METRES;
  return true;
}

// Degrees, minutes and seconds of an absolute angle, rounded to the last
// unit written so that 59.99 minutes never prints as 60.
void splitAngle(double degrees, bool withSeconds, int& whole, int& minutes, int& seconds) {
  const long units = std::lround(std::fabs(degrees) * (withSeconds ? 3600.0 : 60.0));
  if (withSeconds) {
    whole = static_cast<int>(units / 3600);
    minutes = static_cast<int>((units / 60) % 60);
    seconds = static_cast<int>(units % 60);
  } else {
    whole = static_cast<int>(units / 60);
    minutes = static_cast<int>(units % 60);
    seconds = 0;
  }
}

std::string formatCoordinate(double radians, bool withSeconds, const char* degreePattern, char positive,
                             char negative) {
  double degrees = radians * RAD_TO_DEG;
  if (!std::isfinite(degrees)) degrees = 0.0;
  int whole = 0, minutes = 0, seconds = 0;
  splitAngle(degrees, withSeconds, whole, minutes, seconds);
  std::string text = format(degreePattern, whole) + format("%02d", minutes);
  if (withSeconds) text += format("%02d", seconds);
  text += degrees < 0.0 ? negative : positive;
  return appendChecksum(text);
}

// A number followed by one of the given units; the factor of the unit found.
bool readNumberAndUnit(const std::string& text, const char* const* units, const double* factors, size_t count,
                       double& value) {
  for (size_t i = 0; i < count; ++i) {
    const size_t length = std::strlen(units[i]);
    if (text.size() <= length || text.compare(text.size() - length, length, units[i]) != 0) continue;
    double number = 0.0;
    if (!orvCore::isValidNumber(text.substr(0, text.size() - length), number, false) || number < 0.0) return false;
    value = number * factors[i];
    return true;
  }
  return false;
}

}  // namespace

int calcChecksum(const std::string& text) {
  int sum = 0;
  for (char c : text)
    if (isDigit(c)) sum += c - '0';
  return sum % 10;
}

bool verifyChecksummedField(const std::string& text) {
  if (text.empty() || !isDigit(text.back())) return false;
  return text.back() - '0' == calcChecksum(text.substr(0, text.size() - 1));
}

std::string appendChecksum(const std::string& text) {
  return text + static_cast<char>('0' + calcChecksum(text));
}

std::string getMonth(int zeroBasedMonth) {
  if (zeroBasedMonth < 1) return MONTHS[0];
  if (zeroBasedMonth > 10) return MONTHS[11];
  return MONTHS[zeroBasedMonth];
}

int getTime(const std::string& dateTimeGroup, const std::string& month, double& result) {
  int year = 0;
  return getTime(dateTimeGroup, month, result, year);
}

int getTime(const std::string& dateTimeGroup, const std::string& month, double& result, int& year) {
  if (dateTimeGroup.size() != 8 || month.size() != 3) return 1;
  if (!verifyChecksummedField(dateTimeGroup)) return 2;
  int day = 0, hour = 0, minute = 0;
  if (!readDigits(dateTimeGroup, 0, 2, day) || !readDigits(dateTimeGroup, 2, 2, hour) ||
      !readDigits(dateTimeGroup, 4, 2, minute) || dateTimeGroup[6] != 'Z' || hour > 23 || minute > 59)
    return 3;
  try {
    year = orvCore::currentYear();
    result = orvCore::getYearDay(UTILS::getMonthFromString(month), day, year) * 86400.0 + hour * 3600.0 +
             minute * 60.0;
  } catch (const orvCore::TimeException&) {
    return 3;
  }
  return 0;
}

int getExpandedTime(const std::string& dateTimeGroup, const std::string& month, double& result, int& year) {
  // DDHHMMSS, a point, at least one digit of the fraction, "Z".
  if (dateTimeGroup.size() < 11 || (month.size() != 3 && month.size() != 7)) return 1;
  int day = 0, hour = 0, minute = 0, second = 0;
  const std::string fraction = dateTimeGroup.substr(9, dateTimeGroup.size() - 10);
  if (!readDigits(dateTimeGroup, 0, 2, day) || !readDigits(dateTimeGroup, 2, 2, hour) ||
      !readDigits(dateTimeGroup, 4, 2, minute) || !readDigits(dateTimeGroup, 6, 2, second) ||
      dateTimeGroup[8] != '.' || !allDigits(fraction) || dateTimeGroup.back() != 'Z' || hour > 23 ||
      minute > 59 || second > 59)
    return 3;
  year = orvCore::currentYear();
  if (month.size() == 7 && (!readDigits(month, 3, 4, year) || year < 1900)) return 3;
  try {
    result = orvCore::getYearDay(UTILS::getMonthFromString(month.substr(0, 3)), day, year) * 86400.0 +
             hour * 3600.0 + minute * 60.0 + second + std::strtod(("0." + fraction).c_str(), nullptr);
  } catch (const orvCore::TimeException&) {
    return 3;
  }
  return 0;
}

void setDateTimeGroup(double time, int referenceYear, std::string& dateTimeGroup, std::string& month) {
  try {
    const struct tm fields = orvCore::getTimeStruct(time, referenceYear - 1900);
    dateTimeGroup = appendChecksum(format("%02d%02d%02dZ", fields.tm_mday, fields.tm_hour, fields.tm_min));
    month = getMonth(fields.tm_mon);
  } catch (const orvCore::TimeException&) {
    dateTimeGroup = "0100000Z";
    month = "JAN";
  }
}

void setExpandedDateTimeGroup(double time, int referenceYear, std::string& dateTimeGroup, std::string& month) {
  try {
    if (!(time >= 0.0) || time > 3.1536e10) throw orvCore::TimeException(orvCore::TimeException::BAD_SECONDS, "");
    const double tenths = std::round(time * 10.0);
    const double whole = std::floor(tenths / 10.0);
    const struct tm fields = orvCore::getTimeStruct(whole, referenceYear - 1900);
    dateTimeGroup = format("%02d%02d%02d%02d.%dZ", fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec,
                           static_cast<int>(tenths - whole * 10.0));
    month = getMonth(fields.tm_mon) + format("%04d", fields.tm_year + 1900);
  } catch (const orvCore::TimeException&) {
    dateTimeGroup = "01000000.0Z";
    month = "JAN";
  }
}

double secondsBetweenYears(int from, int to) {
  double days = 0.0;
  for (int y = from; y < to; ++y) days += orvCore::daysPerYear(y);
  for (int y = to; y < from; ++y) days -= orvCore::daysPerYear(y);
  return days * 86400.0;
}

int getPositionLLA(double* lla, const std::string& latitude, const std::string& longitude,
                   const std::string& height) {
  if (lla == nullptr) return 1;
  if (latitude.empty() || longitude.empty()) return 2;
  if (!verifyChecksummedField(latitude) || !verifyChecksummedField(longitude)) return 3;
  double lat = 0.0, lon = 0.0;
  if (!readCoordinate(latitude, 2, 'N', 'S', 90.0, lat) || !readCoordinate(longitude, 3, 'E', 'W', 180.0, lon))
    return 4;
  lla[0] = lat * DEG_TO_RAD;
  lla[1] = lon * DEG_TO_RAD;
  return readHeight(height, lla[2]) ? 0 : 5;
}

std::string formatLatitude(double radians, bool withSeconds) {
  return formatCoordinate(radians, withSeconds, "%02d", 'N', 'S');
}

std::string formatLongitude(double radians, bool withSeconds) {
  return formatCoordinate(radians, withSeconds, "%03d", 'E', 'W');
}

std::string formatHeight(double metres) {
  if (!std::isfinite(metres)) metres = 0.0;
  if (metres >= 0.0) return format("ALT%.0f", metres / (100.0 * FEET_TO_METRES));
  return format("%.0fFT", -metres / FEET_TO_METRES);
}

double getAxisM(const std::string& text, bool& checked) {
  static const char* const units[] = {"NM", "KM", "FT", "KY", "YD"};
  static const double factors[] = {NAUTICAL_MILE_METRES, 1000.0, 0.3048, 914.4, 0.9144};
  checked = text.size() >= 2 && text.size() <= 9 && isDigit(text.back());
  if (checked && !verifyChecksummedField(text)) return -2.0;
  const std::string body = checked ? text.substr(0, text.size() - 1) : text;
  double metres = 0.0;
  return readNumberAndUnit(body, units, factors, 5, metres) ? metres : -1.0;
}

double getMajorAxisBearing(const std::string& text) {
  if (text.size() < 4 || text.size() > 6) return -1.0;
  const size_t t = text.find('T');
  if (t == std::string::npos) return -2.0;
  double degrees = 0.0;
  if (!orvCore::isValidNumber(text.substr(0, t), degrees, false) || degrees < 0.0 || degrees > 360.0) return -3.0;
  return degrees;
}

int getCourse(const std::string& text, double& radians) {
  if (text.empty()) return 1;
  static const char* const units[] = {"T"};
  static const double factors[] = {DEG_TO_RAD};
  return readNumberAndUnit(text, units, factors, 1, radians) ? 0 : 2;
}

int getSpeed(const std::string& text, double& metresPerSecond) {
  if (text.empty()) return 1;
  // Longest unit first: "KTS" and "KPH" also end in letters that "K" would not take.
  static const char* const units[] = {"KTS", "KPH", "K"};
  static const double factors[] = {KNOT_METRES_PER_SECOND, 1.0 / 3.6, KNOT_METRES_PER_SECOND};
  return readNumberAndUnit(text, units, factors, 3, metresPerSecond) ? 0 : 2;
}

std::string formatCourse(double radians) {
  double degrees = std::fmod(radians * RAD_TO_DEG, 360.0);
  if (!std::isfinite(degrees)) degrees = 0.0;
  if (degrees < 0.0) degrees += 360.0;
  return format("%0.1fT", degrees);
}

std::string formatSpeed(double metresPerSecond, const char* unit) {
  const double knots = std::isfinite(metresPerSecond) ? std::fabs(metresPerSecond) / KNOT_METRES_PER_SECOND : 0.0;
  return format("%0.1f", knots) + unit;
}

std::string formatAxis(double metres) {
  return format("%0.1fNM", std::isfinite(metres) ? std::fabs(metres) / NAUTICAL_MILE_METRES : 0.0);
}

std::string formatBearing(double degrees) {
  double value = std::fmod(degrees, 360.0);
  if (!std::isfinite(value)) value = 0.0;
  if (value < 0.0) value += 360.0;
  return format("%03.0fT", value);
}

std::string getColorCode(const std::string& letter) {
  static const char* const colours[] = {"red", "yellow", "green", "blue", "cyan", "magenta", "black", "orange"};
  if (letter.size() == 1 && letter[0] >= 'B' && letter[0] <= 'I') return colours[letter[0] - 'B'];
  return "white";
}

std::string getLineType(const std::string& digit) {
  if (digit == "1") return "dash";
  if (digit == "2") return "dot";
  return "solid";
}

std::string getFillType(const std::string& digit) {
  if (digit == "1") return "solid";
  if (digit == "2") return "hatched";
  return "none";
}

std::string getFontType(const std::string& digit) {
  if (digit == "1") return "times.ttf";
  if (digit == "2") return "timesi.ttf";
  return "timesbd.ttf";
}

int tokenCount(const std::string& line) {
  FX::FXString text(line.c_str(), static_cast<FX::FXint>(line.size()));
  text.trim();
  if (text.empty()) return 0;
  return text.contains('/') + 1;
}

}  // namespace OthLib
