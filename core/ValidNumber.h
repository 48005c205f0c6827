#pragma once
// Strict number validation. Each test answers true only when the whole text
// is a number of the asked width and nothing else: no white space, no
// trailing characters, no hexadecimal floats, no "inf" or "nan". On success
// the value is written to `out`; on failure `out` is set to 0 (the one
// exception is noted at isValidHexNumber).

#include <string>

namespace orvCore {

// Grammar test for a real number, no conversion. At least one digit must
// appear anywhere (whole part, fraction or exponent), so "e5" and "1e" pass
// while ".", "e" and "" do not.
bool stringIsRealNumber(const std::string& text, bool allowWhitespace = false, bool allowPlus = true);

// Grammar test for an integer, no conversion: optional "-" (unless
// unsignedOnly) or "+" (if allowPlus), then at least one digit.
bool stringIsIntegerNumber(const std::string& text, bool unsignedOnly = false, bool allowWhitespace = false,
                           bool allowPlus = true);

// "1", or "true", "on", "yes" in any case.
bool stringIsTrueToken(const std::string& text);

bool isValidNumber(const std::string& text, unsigned long& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, unsigned int& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, unsigned short& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, unsigned char& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, long& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, int& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, short& out, bool allowPlusSign = true);
bool isValidNumber(const std::string& text, signed char& out, bool allowPlusSign = true);
// Finite decimal values only: hexadecimal floats, "inf" and "nan" are refused.
bool isValidNumber(const std::string& text, double& out, bool allowPlusSign = true);
// Reads a plain decimal ([sign] digits [. digits] [e [sign] digits]) at the
// start of [first, last) in one pass, when its value takes one correctly
// rounded operation to form (at most 19 digits worth at most 2^53, scaled by
// at most 10^22): the value strtod gives, bit for bit. Returns the end of what
// it read, or nullptr for anything else (longer or finer numbers, "inf",
// hexadecimal, no digits), which the caller reads the general way.
const char* readExactDecimal(const char* first, const char* last, bool allowPlus, double& out);
// As double, refusing magnitudes above the largest float.
bool isValidNumber(const std::string& text, float& out, bool allowPlusSign = true);

// Hexadecimal digits, with a "0x"/"0X" prefix that is mandatory when
// requirePrefix is set. No sign, no white space; the value must fit 32 bits
// and the positive range of the target type. The unsigned int overload leaves
// `out` untouched when the required prefix is missing.
bool isValidHexNumber(const std::string& text, unsigned int& out, bool requirePrefix = true);
bool isValidHexNumber(const std::string& text, unsigned short& out, bool requirePrefix = true);
bool isValidHexNumber(const std::string& text, unsigned char& out, bool requirePrefix = true);
bool isValidHexNumber(const std::string& text, int& out, bool requirePrefix = true);
bool isValidHexNumber(const std::string& text, short& out, bool requirePrefix = true);
bool isValidHexNumber(const std::string& text, signed char& out, bool requirePrefix = true);

}  // namespace orvCore
