#include "core/ValidNumber.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

using orvCore::isValidHexNumber;
using orvCore::isValidNumber;
using orvCore::stringIsIntegerNumber;
using orvCore::stringIsRealNumber;

namespace {

// Accepts `text` into T and answers the value; fails the test if refused.
template <typename T>
T accepted(const std::string& text, bool allowPlus = true) {
  T out{};
  EXPECT_TRUE(isValidNumber(text, out, allowPlus)) << "refused: \"" << text << "\"";
  return out;
}

// Refuses `text` into T, and the output must be reset to 0.
template <typename T>
void refused(const std::string& text, bool allowPlus = true) {
  T out = static_cast<T>(7);
  EXPECT_FALSE(isValidNumber(text, out, allowPlus)) << "accepted: \"" << text << "\"";
  EXPECT_EQ(out, static_cast<T>(0)) << "output not reset for \"" << text << "\"";
}

// Every integer type at both ends of its range and one step beyond.
template <typename T>
void checkIntegerLimits(const std::string& min, const std::string& minMinus1, const std::string& max,
                        const std::string& maxPlus1) {
  EXPECT_EQ(accepted<T>(max), std::numeric_limits<T>::max());
  refused<T>(maxPlus1);
  if (std::numeric_limits<T>::is_signed) {
    EXPECT_EQ(accepted<T>(min), std::numeric_limits<T>::min());
    refused<T>(minMinus1);
  } else {
    EXPECT_EQ(accepted<T>("0"), T(0));
    refused<T>("-1");
  }
}

}  // namespace

TEST(RealGrammar, AcceptsDigitsAnywhere) {
  for (const char* text : {"1", "-1", "1.5", ".5", "5.", "1e5", "1E-5", "-2.5e+10", "e5", "1e", "0.0"})
    EXPECT_TRUE(stringIsRealNumber(text, false, false)) << text;
}

TEST(RealGrammar, RefusesTextsWithoutDigitsOrWithGarbage) {
  for (const char* text : {"", ".", "e", "-", "+", "-.", "1.2.3", "1e5e5", "abc", "1x", "--1", "1 2"})
    EXPECT_FALSE(stringIsRealNumber(text, true, true)) << text;
}

TEST(RealGrammar, PlusAndWhitespaceAreOptIn) {
  EXPECT_FALSE(stringIsRealNumber("+1", false, false));
  EXPECT_TRUE(stringIsRealNumber("+1", false, true));
  EXPECT_FALSE(stringIsRealNumber(" 1", false, true));
  EXPECT_FALSE(stringIsRealNumber("1 ", false, true));
  EXPECT_TRUE(stringIsRealNumber(" \t1.5\n ", true, false));
  EXPECT_FALSE(stringIsRealNumber("   ", true, true));
  // The sign of an exponent is always allowed.
  EXPECT_TRUE(stringIsRealNumber("1e+3", false, false));
}

TEST(IntegerGrammar, SignsAndWhitespace) {
  EXPECT_TRUE(stringIsIntegerNumber("123", true, false, false));
  EXPECT_TRUE(stringIsIntegerNumber("-123", false, false, false));
  EXPECT_FALSE(stringIsIntegerNumber("-123", true, false, true));
  EXPECT_FALSE(stringIsIntegerNumber("+123", false, false, false));
  EXPECT_TRUE(stringIsIntegerNumber("+123", true, false, true));
  EXPECT_FALSE(stringIsIntegerNumber(" 1", false, false, true));
  EXPECT_TRUE(stringIsIntegerNumber(" 1 ", false, true, true));
  for (const char* text : {"", "-", "+", "1.0", "1e3", "12a", "1 2"})
    EXPECT_FALSE(stringIsIntegerNumber(text, false, true, true)) << text;
}

TEST(TrueToken, AcceptsTheFourWordsInAnyCase) {
  for (const char* text : {"1", "true", "TRUE", "On", "yEs"}) EXPECT_TRUE(orvCore::stringIsTrueToken(text)) << text;
  for (const char* text : {"", "0", "false", "off", "no", " true", "yes ", "2", "y"})
    EXPECT_FALSE(orvCore::stringIsTrueToken(text)) << text;
}

TEST(IntegerWidths, EdgesOfEveryType) {
  checkIntegerLimits<unsigned long>("", "", "18446744073709551615", "18446744073709551616");
  checkIntegerLimits<long>("-9223372036854775808", "-9223372036854775809", "9223372036854775807",
                           "9223372036854775808");
  checkIntegerLimits<unsigned int>("", "", "4294967295", "4294967296");
  checkIntegerLimits<int>("-2147483648", "-2147483649", "2147483647", "2147483648");
  checkIntegerLimits<unsigned short>("", "", "65535", "65536");
  checkIntegerLimits<short>("-32768", "-32769", "32767", "32768");
  checkIntegerLimits<unsigned char>("", "", "255", "256");
  checkIntegerLimits<signed char>("-128", "-129", "127", "128");
}

TEST(IntegerWidths, LeadingZerosAndNegativeZero) {
  // Only the value counts against the range, not the number of digits.
  EXPECT_EQ(accepted<unsigned long>("000000000000000000000000042"), 42ul);
  EXPECT_EQ(accepted<int>("-00000000000000000000002147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(accepted<long>("-0"), 0l);
  EXPECT_EQ(accepted<short>("-0"), 0);
}

TEST(IntegerWidths, HugeTextsAreRefusedNotWrapped) {
  refused<unsigned int>("99999999999999999999999");
  refused<int>("-99999999999999999999999");
  refused<unsigned long>("99999999999999999999999");
  refused<long>("-99999999999999999999999");
}

TEST(NumberPlusSign, AcceptedOnlyWhenAllowed) {
  auto check = [](auto zero) {
    using T = decltype(zero);
    EXPECT_EQ(accepted<T>("+5", true), T(5));
    refused<T>("+5", false);
    EXPECT_EQ(accepted<T>("5", false), T(5)) << "refusing the sign changes nothing else";
  };
  check(0ul);
  check(0l);
  check(0u);
  check(0);
  check(static_cast<unsigned short>(0));
  check(static_cast<short>(0));
  check(static_cast<unsigned char>(0));
  check(static_cast<signed char>(0));
  check(0.0);
  check(0.0f);
}

TEST(NumberWhitespace, NeverToleratedOnEitherSide) {
  for (const char* text : {" 5", "5 ", "\t5", "5\n", " 5 "}) {
    refused<unsigned long>(text);
    refused<long>(text);
    refused<unsigned int>(text);
    refused<int>(text);
    refused<unsigned short>(text);
    refused<short>(text);
    refused<unsigned char>(text);
    refused<signed char>(text);
    refused<double>(text);
    refused<float>(text);
  }
}

TEST(NumberGarbage, EmptySignsOnlyAndTrailingCharacters) {
  for (const char* text : {"", "-", "+", "abc", "5x", "1.5", "1e3", "--5", "+-5", "0x10"}) {
    refused<unsigned long>(text);
    refused<long>(text);
    refused<unsigned int>(text);
    refused<int>(text);
    refused<short>(text);
    refused<unsigned char>(text);
  }
  refused<int>(std::string("5\0", 2));
  refused<double>(std::string("5\0", 2));
}

TEST(UnsignedNumbers, RefuseAnyMinus) {
  refused<unsigned int>("-1");
  refused<unsigned int>("-0");
  refused<unsigned long>("-1");
  refused<unsigned long>("-0");
  refused<unsigned short>("-0");
  refused<unsigned char>("-0");
}

TEST(ValidDouble, DecimalFiniteValuesOnly) {
  EXPECT_DOUBLE_EQ(accepted<double>("1.5"), 1.5);
  EXPECT_DOUBLE_EQ(accepted<double>("-2.5e-3"), -2.5e-3);
  EXPECT_DOUBLE_EQ(accepted<double>(".5"), 0.5);
  EXPECT_DOUBLE_EQ(accepted<double>("5."), 5.0);
  EXPECT_DOUBLE_EQ(accepted<double>("1.7976931348623157e308"), std::numeric_limits<double>::max());
  for (const char* text : {"0x10", "0X1p3", "1e400", "-1e400", "inf", "-inf", "INF", "nan", "NaN", "infinity",
                           "1e", "e5", ".", "1.5.", "1,5"})
    refused<double>(text);
}

// The value read must be the very double that strtod gives, bit for bit.
void expectSameAsStrtod(const std::string& text) {
  double value = 0.0;
  ASSERT_TRUE(isValidNumber(text, value, true)) << text;
  const double expected = std::strtod(text.c_str(), nullptr);
  std::uint64_t got = 0, want = 0;
  std::memcpy(&got, &value, sizeof got);
  std::memcpy(&want, &expected, sizeof want);
  EXPECT_EQ(got, want) << text << " read as " << value << ", strtod gives " << expected;
}

TEST(ValidDouble, RoundsExactlyAsStrtod) {
  // Around the limits of exact arithmetic: 2^53, 19 digits, 10^22.
  for (const char* text :
       {"0.1", "0.3", "35.526352", "-122.002036", "252.06", "-7.42", "+9.9", "-0.0", "0", "00.000", ".1", "1.",
        "9007199254740992", "9007199254740993", "9007199254740995", "1234567890123456789", "12345678901234567890",
        "0.0000000000000000000000000001", "1e22", "1e23", "1e-22", "1e-23", "4.35e-20", "123456789e-30",
        "8.98846567431158e307", "2.2250738585072014e-308", "4.9e-324", "0000000000000000000000000012.5",
        "1.7976931348623157e308", "3.0e+5", "5E-1", "0.1e1", "1e0000000000000000000001"})
    expectSameAsStrtod(text);
}

TEST(ValidDouble, RandomDecimalsReadAsStrtod) {
  std::mt19937_64 random(20261123);
  for (int i = 0; i < 20000; ++i) {
    std::string text = random() % 2 ? "-" : "";
    const int digits = 1 + static_cast<int>(random() % 20);
    const int point = static_cast<int>(random() % (digits + 1));
    for (int d = 0; d < digits; ++d) {
      if (d == point) text += '.';
      text += static_cast<char>('0' + random() % 10);
    }
    if (random() % 4 == 0) text += "e" + std::to_string(static_cast<int>(random() % 61) - 30);
    expectSameAsStrtod(text);
  }
}

TEST(ValidFloat, RefusesBeyondTheLargestFloat) {
  EXPECT_FLOAT_EQ(accepted<float>("3.4028234663852886e38"), std::numeric_limits<float>::max());
  EXPECT_FLOAT_EQ(accepted<float>("-3.4028234663852886e38"), -std::numeric_limits<float>::max());
  refused<float>("3.4028236e38");
  refused<float>("-3.4028236e38");
  refused<float>("1e39");
  refused<float>("0x1");
  EXPECT_FLOAT_EQ(accepted<float>("0.1"), 0.1f);
}

TEST(HexNumber, PrefixRules) {
  unsigned int value = 0;
  EXPECT_TRUE(isValidHexNumber("ff", value, false));
  EXPECT_EQ(value, 255u);
  EXPECT_TRUE(isValidHexNumber("0xff", value, false));
  EXPECT_EQ(value, 255u);
  EXPECT_TRUE(isValidHexNumber("0XFF", value, true));
  EXPECT_EQ(value, 255u);
  EXPECT_FALSE(isValidHexNumber("0x", value, false));
  EXPECT_EQ(value, 0u);
  value = 42;
  EXPECT_FALSE(isValidHexNumber("0x", value, true));
  EXPECT_EQ(value, 42u) << "a missing prefix leaves the output untouched";
  EXPECT_FALSE(isValidHexNumber("ff", value, true));
  EXPECT_EQ(value, 42u);
  EXPECT_FALSE(isValidHexNumber("0xfg", value, true));
  EXPECT_EQ(value, 0u) << "other failures reset the output";
}

TEST(HexNumber, SignsWhitespaceAndRange) {
  unsigned int value = 1;
  for (const char* text : {"", "+ff", "-ff", " ff", "ff ", "\tff", "0x+1", "0x-1", "100000000", "0x100000000", "g"}) {
    value = 1;
    EXPECT_FALSE(isValidHexNumber(text, value, false)) << text;
    EXPECT_EQ(value, 0u) << text;
  }
  EXPECT_TRUE(isValidHexNumber("FFFFFFFF", value, false));
  EXPECT_EQ(value, 0xFFFFFFFFu);
}

TEST(HexNumber, NarrowTypesStopAtTheirPositiveLimit) {
  unsigned short us = 0;
  EXPECT_TRUE(isValidHexNumber("0xFFFF", us, true));
  EXPECT_EQ(us, 0xFFFF);
  EXPECT_FALSE(isValidHexNumber("0x10000", us, true));
  unsigned char uc = 0;
  EXPECT_TRUE(isValidHexNumber("FF", uc, false));
  EXPECT_EQ(uc, 0xFF);
  EXPECT_FALSE(isValidHexNumber("100", uc, false));
  int i = 0;
  EXPECT_TRUE(isValidHexNumber("0x7FFFFFFF", i, true));
  EXPECT_EQ(i, 2147483647);
  EXPECT_FALSE(isValidHexNumber("0x80000000", i, true));
  EXPECT_EQ(i, 0);
  short s = 0;
  EXPECT_TRUE(isValidHexNumber("7fff", s, false));
  EXPECT_EQ(s, 32767);
  EXPECT_FALSE(isValidHexNumber("8000", s, false));
  signed char sc = 0;
  EXPECT_TRUE(isValidHexNumber("0x7f", sc, true));
  EXPECT_EQ(sc, 127);
  EXPECT_FALSE(isValidHexNumber("0x80", sc, true));
  EXPECT_EQ(sc, 0);
}
