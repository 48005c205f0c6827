#include "core/ValidNumber.h"

#include <cctype>
#include <charconv>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
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

unsigned digitOf(char c) { return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0'; }

// The whole text as a decimal integer of type Integer, checked and converted
// in one pass: one sign at most ("-" only for signed types, "+" when
// allowed), then digits only; false on overflow. `out` is already 0.
template <typename Integer>
bool readInteger(const std::string& text, Integer& out, bool allowPlus) {
  const char* p = text.data();
  const char* const end = p + text.size();
  bool negative = false;
  if (p != end && *p == '-') {
    if (!std::is_signed<Integer>::value) return false;
    negative = true;
    ++p;
  } else if (p != end && *p == '+') {
    if (!allowPlus) return false;
    ++p;
  }
  if (p == end) return false;
  using Magnitude = typename std::make_unsigned<Integer>::type;
  const Magnitude largest = static_cast<Magnitude>(std::numeric_limits<Integer>::max());
  // The most negative value is one further from zero than the largest.
  const Magnitude limit = negative ? static_cast<Magnitude>(largest + 1u) : largest;
  Magnitude magnitude = 0;
  for (; p != end; ++p) {
    const unsigned digit = digitOf(*p);
    if (digit > 9) return false;
    if (magnitude > (limit - digit) / 10u) return false;
    magnitude = static_cast<Magnitude>(magnitude * 10u + digit);
  }
  out = negative ? static_cast<Integer>(Magnitude(0) - magnitude) : static_cast<Integer>(magnitude);
  return true;
}

// Powers of ten that a double holds exactly.
const double EXACT_POWERS_OF_TEN[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                      1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
const int LARGEST_EXACT_POWER = 22;
// Integers up to 2^53 are exact in a double.
const std::uint64_t LARGEST_EXACT_MANTISSA = std::uint64_t(1) << 53;

}  // namespace

// One pass over a plain decimal; see the header. At most 19 digits worth at
// most 2^53, scaled by an exactly held power of ten: a single multiplication
// or division of two exact doubles is correctly rounded, so the result is the
// one strtod gives.
const char* readExactDecimal(const char* p, const char* end, bool allowPlus, double& out) {
  bool negative = false;
  if (p != end && *p == '-') {
    negative = true;
    ++p;
  } else if (p != end && *p == '+') {
    if (!allowPlus) return nullptr;
    ++p;
  }
  std::uint64_t mantissa = 0;
  int digits = 0;
  for (unsigned d; p != end && (d = digitOf(*p)) <= 9; ++p, ++digits) {
    if (digits == 19) return nullptr;  // 19 digits cannot overflow 64 bits
    mantissa = mantissa * 10 + d;
  }
  int fraction = 0;
  if (p != end && *p == '.') {
    ++p;
    for (unsigned d; p != end && (d = digitOf(*p)) <= 9; ++p, ++fraction, ++digits) {
      if (digits == 19) return nullptr;
      mantissa = mantissa * 10 + d;
    }
  }
  if (digits == 0 || mantissa > LARGEST_EXACT_MANTISSA) return nullptr;
  int exponent = 0;
  if (p != end && (*p == 'e' || *p == 'E')) {
    ++p;
    bool negativeExponent = false;
    if (p != end && (*p == '-' || *p == '+')) negativeExponent = *p++ == '-';
    const char* const first = p;
    for (unsigned d; p != end && (d = digitOf(*p)) <= 9; ++p)
      if (exponent < 100000) exponent = exponent * 10 + static_cast<int>(d);
    if (p == first) return nullptr;
    if (negativeExponent) exponent = -exponent;
  }
  const int power = exponent - fraction;
  if (power < -LARGEST_EXACT_POWER || power > LARGEST_EXACT_POWER) return nullptr;
  double value = static_cast<double>(mantissa);
  if (power < 0)
    value /= EXACT_POWERS_OF_TEN[-power];
  else
    value *= EXACT_POWERS_OF_TEN[power];
  out = negative ? -value : value;
  return p;
}

namespace {

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
  return readInteger(text, out, allowPlusSign);
}

bool isValidNumber(const std::string& text, long& out, bool allowPlusSign) {
  out = 0;
  return readInteger(text, out, allowPlusSign);
}

bool isValidNumber(const std::string& text, unsigned int& out, bool allowPlusSign) {
  out = 0;
  return readInteger(text, out, allowPlusSign);
}

bool isValidNumber(const std::string& text, int& out, bool allowPlusSign) {
  out = 0;
  return readInteger(text, out, allowPlusSign);
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
  // Nearly every number of a data file is a short plain decimal.
  const char* const textEnd = text.data() + text.size();
  double exact = 0.0;
  if (readExactDecimal(text.data(), textEnd, allowPlusSign, exact) == textEnd) {
    out = exact;
    return true;
  }
  // Next, a plain decimal that from_chars takes whole and finite reads
  // exactly as strtod would (both round correctly), and from_chars takes no
  // blanks, plus sign or hexadecimal. Everything else goes the full way below.
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
