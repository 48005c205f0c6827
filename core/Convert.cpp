#include "core/Convert.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iomanip>
#include <limits>

#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace UTILS {

namespace {

constexpr double kFloatLimit = 3.4028234663852886e38;

// Infinity spellings of the file formats and of older C libraries; 0 if the
// text is none of them.
int infinitySign(const std::string& text) {
  if (text == "-1.#INF" || text == "-INF" || text == "-inf") return -1;
  if (text == "1.#INF" || text == "INF" || text == "inf") return 1;
  return 0;
}

template <typename T>
std::string integerText(T value) {
  return std::to_string(value);
}

}  // namespace

double stringConvertToDouble(const std::string& text) {
  double value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  if (const int sign = infinitySign(text)) return sign * std::numeric_limits<double>::infinity();
  return std::strtod(text.c_str(), nullptr);
}

float stringConvertToFloat(const std::string& text) {
  float value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  if (const int sign = infinitySign(text)) return sign * std::numeric_limits<float>::infinity();
  const double wide = std::strtod(text.c_str(), nullptr);
  // Out of range either way gives +infinity: callers depend on that.
  if (wide > kFloatLimit || wide < -kFloatLimit) return std::numeric_limits<float>::infinity();
  return static_cast<float>(wide);
}

short stringConvertToShort(const std::string& text) {
  short value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  const long wide = std::strtol(text.c_str(), nullptr, 10);
  if (wide < -32768) return -32768;
  if (wide > 32767) return 32767;
  return static_cast<short>(wide);
}

unsigned short stringConvertToUShort(const std::string& text) {
  unsigned short value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  const long wide = std::strtol(text.c_str(), nullptr, 10);
  if (wide < 0 || wide > 65535) return 65535;
  return static_cast<unsigned short>(wide);
}

int stringConvertToInt(const std::string& text) {
  int value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

unsigned int stringConvertToUInt(const std::string& text) {
  unsigned int value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  const long long wide = std::strtoll(text.c_str(), nullptr, 10);
  if (wide < 0 || wide > 4294967295LL) return 4294967295U;
  return static_cast<unsigned int>(wide);
}

long long stringConvertToLongLong(const std::string& text) {
  long value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  return std::strtoll(text.c_str(), nullptr, 10);
}

unsigned long long stringConvertToULongLong(const std::string& text) {
  unsigned long value = 0;
  if (orvCore::isValidNumber(text, value, true)) return value;
  return std::strtoull(text.c_str(), nullptr, 10);
}

bool stringIsTrueToken(const std::string& text) {
  const std::string lower = orvCore::lowerCase(text);
  return lower == "1" || lower == "true" || lower == "on" || lower == "yes";
}

bool stringIsFalseToken(const std::string& text) { return !stringIsTrueToken(text); }

std::string stringConvertToString(bool value) { return value ? "on" : "off"; }

std::string stringConvertToString(double value, int precision, bool keepTrailing) {
  std::ostringstream os;
  os.setf(std::ios::fixed, std::ios::floatfield);
  os.precision(precision < 0 ? 0 : precision);
  os << value;
  return keepTrailing ? os.str() : removeTrailingZeros(os.str());
}

std::string stringConvertToString(signed char value) { return integerText(static_cast<int>(value)); }
std::string stringConvertToString(unsigned char value) { return integerText(static_cast<unsigned int>(value)); }
std::string stringConvertToString(short value) { return integerText(static_cast<int>(value)); }
std::string stringConvertToString(unsigned short value) { return integerText(static_cast<unsigned int>(value)); }
std::string stringConvertToString(int value) { return integerText(value); }
std::string stringConvertToString(unsigned int value) { return integerText(value); }
std::string stringConvertToString(long value) { return integerText(value); }
std::string stringConvertToString(unsigned long value) { return integerText(value); }
std::string stringConvertToString(long long value) { return integerText(value); }
std::string stringConvertToString(unsigned long long value) { return integerText(value); }

unsigned int stringConvertHexToUInt(const std::string& text) {
  unsigned int value = 0;
  if (orvCore::isValidHexNumber(text, value, false)) return value;
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  const unsigned long long wide = std::strtoull(begin, &end, 16);
  if (end == begin) return 0;
  // strtoull wraps a negative text around; both it and overflow saturate.
  const size_t first = text.find_first_not_of(" \t\n\r\f\v");
  const bool negative = first != std::string::npos && text[first] == '-' && wide != 0;
  if (errno != 0 || wide > 0xFFFFFFFFULL || negative) return 0xFFFFFFFFU;
  return static_cast<unsigned int>(wide);
}

std::string stringConvertHexToString(unsigned long long value, size_t width) {
  std::ostringstream os;
  os << "0x" << std::uppercase << std::hex;
  if (width > 0) os << std::setfill('0') << std::setw(static_cast<int>(width));
  os << value;
  return os.str();
}

}  // namespace UTILS
