#pragma once
// Conversions that never fail: each tries the strict parse first and falls
// back to the best value the C library can make of the text.

#include <sstream>
#include <string>

namespace UTILS {

// "INF", "inf", "1.#INF" and their negatives give infinities; else whatever
// strtod parsed, 0 if nothing.
double stringConvertToDouble(const std::string& text);
// As stringConvertToDouble; a value beyond the float range in either
// direction gives +infinity.
float stringConvertToFloat(const std::string& text);
// Clamped to -32768..32767.
short stringConvertToShort(const std::string& text);
// Anything outside 0..65535 gives 65535.
unsigned short stringConvertToUShort(const std::string& text);
int stringConvertToInt(const std::string& text);
// Anything outside 0..4294967295 gives 4294967295.
unsigned int stringConvertToUInt(const std::string& text);
long long stringConvertToLongLong(const std::string& text);
unsigned long long stringConvertToULongLong(const std::string& text);

// "1", "true", "on", "yes" in any case.
bool stringIsTrueToken(const std::string& text);
// Not a true token: any unknown word counts as false.
bool stringIsFalseToken(const std::string& text);

// "on" or "off".
std::string stringConvertToString(bool value);
// Fixed notation with `precision` decimals; trailing zeros (and a bare point)
// are removed unless keepTrailing.
std::string stringConvertToString(double value, int precision = 6, bool keepTrailing = false);
std::string stringConvertToString(signed char value);
std::string stringConvertToString(unsigned char value);
std::string stringConvertToString(short value);
std::string stringConvertToString(unsigned short value);
std::string stringConvertToString(int value);
std::string stringConvertToString(unsigned int value);
std::string stringConvertToString(long value);
std::string stringConvertToString(unsigned long value);
std::string stringConvertToString(long long value);
std::string stringConvertToString(unsigned long long value);

// Hexadecimal text, with or without "0x"; values beyond 32 bits or negative
// give 0xFFFFFFFF, text without hex digits 0.
unsigned int stringConvertHexToUInt(const std::string& text);
// "0x" and upper-case hex digits, zero-padded to at least `width` digits.
std::string stringConvertHexToString(unsigned long long value, size_t width = 0);

// Any streamable value as the stream writes it.
template <typename T>
std::string convertValToString(const T& value) {
  std::ostringstream os;
  os << value;
  return os.str();
}

// Reads a value as the stream reads it; false (value as the stream left it)
// if nothing could be read.
template <typename T>
bool convertStringToVal(const std::string& text, T& value) {
  std::istringstream is(text);
  is >> value;
  return !is.fail();
}

}  // namespace UTILS
