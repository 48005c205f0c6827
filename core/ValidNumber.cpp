#include "core/ValidNumber.h"

#include <cctype>
#include <charconv>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <strings.h>
#include <system_error>

namespace orvCore {

namespace {

bool isSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Skips a run of digits; answers whether there was at least one.
bool skipDigits(const std::string& text, size_t& pos) {
  const size_t start = pos;
  while (pos < text.size() && isDigit(text[pos])) ++pos;
  return pos > start;
}

void skipSpace(const std::string& text, size_t& pos) {
  while (pos < text.size() && isSpace(text[pos])) ++pos;
}

// Shared front check of the strtol family: no leading white space, no sign
// that the caller refuses.
bool leadOk(const std::string& text, bool allowMinus, bool allowPlus) {
  if (text.empty()) return false;
  const char c = text[0];
  if (isSpace(c)) return false;
  if (c == '-' && !allowMinus) return false;
  if (c == '+' && !allowPlus) return false;
  return true;
}

// True when the conversion consumed the whole text (embedded NULs included).
bool consumedAll(const std::string& text, const char* end) {
  return end == text.c_str() + text.size();
}

template <typename Narrow, typename Wide>
bool narrowUnsigned(const std::string& text, Narrow& out, bool flag, Wide limit,
                    bool (*wide)(const std::string&, unsigned int&, bool)) {
  unsigned int value = 0;
  if (!wide(text, value, flag) || value > limit) {
    out = 0;
    return false;
  }
  out = static_cast<Narrow>(value);
  return true;
}

template <typename Narrow>
bool narrowSigned(const std::string& text, Narrow& out, bool allowPlus, int low, int high) {
  int value = 0;
  if (!isValidNumber(text, value, allowPlus) || value < low || value > high) {
    out = 0;
    return false;
  }
  out = static_cast<Narrow>(value);
  return true;
}

// A text that stringIsIntegerNumber has passed (digits with one leading sign
// at most) as a whole integer; false on overflow, leaving `out` alone.
template <typename Integer>
bool wholeInteger(const std::string& text, Integer& out) {
  const char* first = text.data();
  const char* last = first + text.size();
  if (first != last && *first == '+') ++first;
  Integer value = 0;
  const std::from_chars_result read = std::from_chars(first, last, value);
  if (read.ec != std::errc() || read.ptr != last) return false;
  out = value;
  return true;
}

bool hexUnsigned(const std::string& text, unsigned int& out, bool requirePrefix) {
  return isValidHexNumber(text, out, requirePrefix);
}

bool decUnsigned(const std::string& text, unsigned int& out, bool allowPlus) {
  return isValidNumber(text, out, allowPlus);
}

}  // namespace

bool stringIsRealNumber(const std::string& text, bool allowWhitespace, bool allowPlus) {
  if (text.empty()) return false;
  size_t pos = 0;
  if (allowWhitespace) skipSpace(text, pos);
  if (pos < text.size() && (text[pos] == '-' || (allowPlus && text[pos] == '+'))) ++pos;
  bool digit = skipDigits(text, pos);
  if (pos < text.size() && text[pos] == '.') {
    ++pos;
    digit = skipDigits(text, pos) || digit;
  }
  if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
    ++pos;
    if (pos < text.size() && (text[pos] == '-' || text[pos] == '+')) ++pos;
    digit = skipDigits(text, pos) || digit;
  }
  if (allowWhitespace) skipSpace(text, pos);
  return digit && pos == text.size();
}

bool stringIsIntegerNumber(const std::string& text, bool unsignedOnly, bool allowWhitespace, bool allowPlus) {
  size_t pos = 0;
  if (allowWhitespace) skipSpace(text, pos);
  if (pos < text.size()) {
    if (!unsignedOnly && text[pos] == '-')
      ++pos;
    else if (allowPlus && text[pos] == '+')
      ++pos;
  }
  if (!skipDigits(text, pos)) return false;
  if (allowWhitespace) skipSpace(text, pos);
  return pos == text.size();
}

bool stringIsTrueToken(const std::string& text) {
  return text == "1" || strcasecmp(text.c_str(), "true") == 0 || strcasecmp(text.c_str(), "on") == 0 ||
         strcasecmp(text.c_str(), "yes") == 0;
}

bool isValidNumber(const std::string& text, unsigned long& out, bool allowPlusSign) {
  out = 0;
  if (!stringIsIntegerNumber(text, true, false, allowPlusSign)) return false;
  // Digits only by now (a plus sign aside): from_chars reads them as strtoull
  // would, overflow included, in one pass without errno.
  return wholeInteger(text, out);
}

bool isValidNumber(const std::string& text, long& out, bool allowPlusSign) {
  out = 0;
  if (!stringIsIntegerNumber(text, false, false, allowPlusSign)) return false;
  return wholeInteger(text, out);
}

bool isValidNumber(const std::string& text, unsigned int& out, bool allowPlusSign) {
  out = 0;
  if (!leadOk(text, false, allowPlusSign)) return false;
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  const unsigned long value = std::strtoul(begin, &end, 10);
  if (errno != 0 || end == begin || !consumedAll(text, end) || value > 4294967295UL) return false;
  out = static_cast<unsigned int>(value);
  return true;
}

bool isValidNumber(const std::string& text, int& out, bool allowPlusSign) {
  out = 0;
  if (!leadOk(text, true, allowPlusSign)) return false;
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  const long value = std::strtol(begin, &end, 10);
  if (errno != 0 || end == begin || !consumedAll(text, end) || value < -2147483648L || value > 2147483647L)
    return false;
  out = static_cast<int>(value);
  return true;
}

bool isValidNumber(const std::string& text, unsigned short& out, bool allowPlusSign) {
  return narrowUnsigned(text, out, allowPlusSign, 65535U, &decUnsigned);
}

bool isValidNumber(const std::string& text, unsigned char& out, bool allowPlusSign) {
  return narrowUnsigned(text, out, allowPlusSign, 255U, &decUnsigned);
}

bool isValidNumber(const std::string& text, short& out, bool allowPlusSign) {
  return narrowSigned(text, out, allowPlusSign, -32768, 32767);
}

bool isValidNumber(const std::string& text, signed char& out, bool allowPlusSign) {
  return narrowSigned(text, out, allowPlusSign, -128, 127);
}

bool isValidNumber(const std::string& text, double& out, bool allowPlusSign) {
  out = 0;
  // Fast path for the common case: a plain decimal that from_chars takes
  // whole and finite reads exactly as strtod would (both round correctly),
  // and from_chars takes no blanks, plus sign or hexadecimal. Everything
  // else goes the full way below.
  const char* first = text.data();
  const char* last = first + text.size();
  double read = 0.0;
  const std::from_chars_result fast = std::from_chars(first, last, read);
  if (fast.ec == std::errc() && fast.ptr == last && std::isfinite(read)) {
    out = read;
    return true;
  }
  if (!leadOk(text, true, allowPlusSign)) return false;
  // strtod would accept hexadecimal floats; the file formats never mean them.
  if (text.find_first_of("xX") != std::string::npos) return false;
  const char* begin = text.c_str();
  char* end = nullptr;
  const double value = std::strtod(begin, &end);
  if (end == begin || !consumedAll(text, end) || !std::isfinite(value)) return false;
  out = value;
  return true;
}

bool isValidNumber(const std::string& text, float& out, bool allowPlusSign) {
  out = 0;
  double value = 0;
  if (!isValidNumber(text, value, allowPlusSign) || std::fabs(value) > 3.4028234663852886e38) return false;
  out = static_cast<float>(value);
  return true;
}

bool isValidHexNumber(const std::string& text, unsigned int& out, bool requirePrefix) {
  if (requirePrefix && (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X'))) return false;
  out = 0;
  if (!leadOk(text, false, false)) return false;
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  const unsigned long value = std::strtoul(begin, &end, 16);
  if (errno != 0 || end == begin || !consumedAll(text, end) || value > 0xFFFFFFFFUL) return false;
  out = static_cast<unsigned int>(value);
  return true;
}

bool isValidHexNumber(const std::string& text, unsigned short& out, bool requirePrefix) {
  return narrowUnsigned(text, out, requirePrefix, 65535U, &hexUnsigned);
}

bool isValidHexNumber(const std::string& text, unsigned char& out, bool requirePrefix) {
  return narrowUnsigned(text, out, requirePrefix, 255U, &hexUnsigned);
}

bool isValidHexNumber(const std::string& text, int& out, bool requirePrefix) {
  return narrowUnsigned(text, out, requirePrefix, 2147483647U, &hexUnsigned);
}

bool isValidHexNumber(const std::string& text, short& out, bool requirePrefix) {
  return narrowUnsigned(text, out, requirePrefix, 32767U, &hexUnsigned);
}

bool isValidHexNumber(const std::string& text, signed char& out, bool requirePrefix) {
  return narrowUnsigned(text, out, requirePrefix, 127U, &hexUnsigned);
}

}  // namespace orvCore
