#include "core/Convert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {
const double kInf = std::numeric_limits<double>::infinity();
const float kInfF = std::numeric_limits<float>::infinity();
}  // namespace

TEST(ConvertToDouble, StrictThenBestEffort) {
  EXPECT_DOUBLE_EQ(UTILS::stringConvertToDouble("+2.5"), 2.5);
  EXPECT_DOUBLE_EQ(UTILS::stringConvertToDouble("12abc"), 12.0) << "the parsed front is kept";
  EXPECT_DOUBLE_EQ(UTILS::stringConvertToDouble(" 7"), 7.0);
  EXPECT_DOUBLE_EQ(UTILS::stringConvertToDouble("abc"), 0.0);
  EXPECT_DOUBLE_EQ(UTILS::stringConvertToDouble(""), 0.0);
}

TEST(ConvertToDouble, InfinitySpellings) {
  for (const char* text : {"1.#INF", "INF", "inf"}) EXPECT_EQ(UTILS::stringConvertToDouble(text), kInf) << text;
  for (const char* text : {"-1.#INF", "-INF", "-inf"}) EXPECT_EQ(UTILS::stringConvertToDouble(text), -kInf) << text;
  EXPECT_EQ(UTILS::stringConvertToDouble("1e400"), kInf) << "strtod's overflow stands";
}

TEST(ConvertToFloat, OutOfRangeIsPositiveInfinityBothWays) {
  EXPECT_FLOAT_EQ(UTILS::stringConvertToFloat("0.25"), 0.25f);
  EXPECT_EQ(UTILS::stringConvertToFloat("1e39"), kInfF);
  EXPECT_EQ(UTILS::stringConvertToFloat("-1e39"), kInfF);
  EXPECT_EQ(UTILS::stringConvertToFloat("-inf"), -kInfF);
  EXPECT_EQ(UTILS::stringConvertToFloat("1.#INF"), kInfF);
  EXPECT_FLOAT_EQ(UTILS::stringConvertToFloat("3x"), 3.0f);
}

TEST(ConvertToIntegers, ClampingRules) {
  EXPECT_EQ(UTILS::stringConvertToShort("40000"), 32767);
  EXPECT_EQ(UTILS::stringConvertToShort("-40000"), -32768);
  EXPECT_EQ(UTILS::stringConvertToShort("+12"), 12);
  EXPECT_EQ(UTILS::stringConvertToShort("12 units"), 12);
  EXPECT_EQ(UTILS::stringConvertToUShort("65535"), 65535);
  EXPECT_EQ(UTILS::stringConvertToUShort("65536"), 65535);
  EXPECT_EQ(UTILS::stringConvertToUShort("-1"), 65535) << "below range also saturates high";
  EXPECT_EQ(UTILS::stringConvertToUShort("x"), 0);
  EXPECT_EQ(UTILS::stringConvertToUInt("4294967295"), 4294967295u);
  EXPECT_EQ(UTILS::stringConvertToUInt("4294967296"), 4294967295u);
  EXPECT_EQ(UTILS::stringConvertToUInt("-5"), 4294967295u);
  EXPECT_EQ(UTILS::stringConvertToUInt("17.9"), 17u);
  EXPECT_EQ(UTILS::stringConvertToInt("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(UTILS::stringConvertToInt(" 42"), 42);
  EXPECT_EQ(UTILS::stringConvertToInt("nope"), 0);
  EXPECT_EQ(UTILS::stringConvertToLongLong("-9223372036854775808"), std::numeric_limits<long long>::min());
  EXPECT_EQ(UTILS::stringConvertToLongLong("123x"), 123);
  EXPECT_EQ(UTILS::stringConvertToULongLong("18446744073709551615"), std::numeric_limits<unsigned long long>::max());
  EXPECT_EQ(UTILS::stringConvertToULongLong("+7"), 7u);
}

TEST(BoolTokens, TrueWordsAndEverythingElse) {
  for (const char* text : {"1", "TRUE", "on", "Yes"}) {
    EXPECT_TRUE(UTILS::stringIsTrueToken(text)) << text;
    EXPECT_FALSE(UTILS::stringIsFalseToken(text)) << text;
  }
  for (const char* text : {"0", "false", "off", "maybe", ""}) {
    EXPECT_FALSE(UTILS::stringIsTrueToken(text)) << text;
    EXPECT_TRUE(UTILS::stringIsFalseToken(text)) << text;
  }
}

TEST(ConvertToString, BoolDoubleAndIntegers) {
  EXPECT_EQ(UTILS::stringConvertToString(true), "on");
  EXPECT_EQ(UTILS::stringConvertToString(false), "off");
  EXPECT_EQ(UTILS::stringConvertToString(1.25, 4), "1.25");
  EXPECT_EQ(UTILS::stringConvertToString(1.25, 4, true), "1.2500");
  EXPECT_EQ(UTILS::stringConvertToString(3.0, 2), "3");
  EXPECT_EQ(UTILS::stringConvertToString(1234567.0, 0), "1234567") << "no point, nothing cut";
  EXPECT_EQ(UTILS::stringConvertToString(1.0e20, 1), "100000000000000000000") << "fixed, never scientific";
  EXPECT_EQ(UTILS::stringConvertToString(static_cast<signed char>(-5)), "-5");
  EXPECT_EQ(UTILS::stringConvertToString(static_cast<unsigned char>(200)), "200");
  EXPECT_EQ(UTILS::stringConvertToString(static_cast<short>(-32768)), "-32768");
  EXPECT_EQ(UTILS::stringConvertToString(static_cast<unsigned short>(65535)), "65535");
  EXPECT_EQ(UTILS::stringConvertToString(-7), "-7");
  EXPECT_EQ(UTILS::stringConvertToString(4294967295u), "4294967295");
  EXPECT_EQ(UTILS::stringConvertToString(-9000000000L), "-9000000000");
  EXPECT_EQ(UTILS::stringConvertToString(18446744073709551615ULL), "18446744073709551615");
}

TEST(ConvertHex, ToUIntAndBack) {
  EXPECT_EQ(UTILS::stringConvertHexToUInt("0xFF00FF00"), 0xFF00FF00u);
  EXPECT_EQ(UTILS::stringConvertHexToUInt("ff"), 0xFFu);
  EXPECT_EQ(UTILS::stringConvertHexToUInt("0x1ffg"), 0x1FFu) << "best effort on trailing garbage";
  EXPECT_EQ(UTILS::stringConvertHexToUInt("0x100000000"), 0xFFFFFFFFu);
  EXPECT_EQ(UTILS::stringConvertHexToUInt("-1"), 0xFFFFFFFFu);
  EXPECT_EQ(UTILS::stringConvertHexToUInt("zz"), 0u);
  EXPECT_EQ(UTILS::stringConvertHexToString(255, 4), "0x00FF");
  EXPECT_EQ(UTILS::stringConvertHexToString(0xABCDEF), "0xABCDEF");
  EXPECT_EQ(UTILS::stringConvertHexToString(0x12345, 2), "0x12345") << "width is a minimum";
}

TEST(ConvertTemplates, RoundTripThroughStreams) {
  EXPECT_EQ(UTILS::convertValToString(42), "42");
  EXPECT_EQ(UTILS::convertValToString(std::string("abc")), "abc");
  int i = 0;
  EXPECT_TRUE(UTILS::convertStringToVal("17", i));
  EXPECT_EQ(i, 17);
  double d = 0;
  EXPECT_TRUE(UTILS::convertStringToVal(" 2.5", d));
  EXPECT_DOUBLE_EQ(d, 2.5);
  EXPECT_FALSE(UTILS::convertStringToVal("abc", i));
}
