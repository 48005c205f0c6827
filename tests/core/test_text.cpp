#include "core/StringUtils.h"
#include "core/VariableType.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

using orvCore::buildString;

TEST(CaseCompare, EmptyTextsOrderFirst) {
  EXPECT_EQ(orvCore::caseCompare("", ""), 0);
  EXPECT_LT(orvCore::caseCompare("", "a"), 0);
  EXPECT_EQ(orvCore::caseCompare("a", ""), 1);
  EXPECT_EQ(orvCore::caseCompare("Version", "VERSION"), 0);
  EXPECT_LT(orvCore::caseCompare("abc", "ABD"), 0);
  EXPECT_GT(orvCore::caseCompare("b", "A"), 0);
}

TEST(CaseHelpers, LowerUpperAndFind) {
  EXPECT_EQ(orvCore::lowerCase("PlatformID 1 \xB0"), "platformid 1 \xB0");
  EXPECT_EQ(orvCore::upperCase("abc-Def"), "ABC-DEF");
  EXPECT_EQ(orvCore::stringCaseFind("Show ASI Import", "asi"), 5u);
  EXPECT_EQ(orvCore::stringCaseFind("abc", "x"), std::string::npos);
}

TEST(FileExtension, LowerCasedFromTheLastPoint) {
  EXPECT_EQ(orvCore::getExtension("Data.TAR.GZ"), ".gz");
  EXPECT_EQ(orvCore::getExtension("SCENE.ASI"), ".asi");
  EXPECT_EQ(orvCore::getExtension("noext"), "");
  EXPECT_EQ(orvCore::getExtension(""), "");
  EXPECT_EQ(orvCore::getExtension("trailing."), ".");
  EXPECT_TRUE(orvCore::hasExtension("scene.ASI", ".Asi"));
  EXPECT_FALSE(orvCore::hasExtension("scene.asi", "asi")) << "the point belongs to the extension";
  EXPECT_FALSE(orvCore::hasExtension("scene.asi", ".zip"));
}

TEST(BuildString, FixedNotationWithPrefixSuffixAndPadding) {
  EXPECT_EQ(buildString("x=", 1.5, 0, 3, " m"), "x=1.500 m");
  EXPECT_EQ(buildString("", 1.5, 8, 2), "    1.50");
  EXPECT_EQ(buildString("", 1.5, 8, 2, "", true), "00001.50");
  // The fill goes left of the sign: the stream's default adjustment.
  EXPECT_EQ(buildString("", -1.5, 7, 2, "", true), "00-1.50");
  EXPECT_EQ(buildString("", 2.0, 0, 0), "2");
}

TEST(BuildString, NonFiniteValues) {
  EXPECT_EQ(buildString("<", std::nan(""), 10, 3, ">"), "<NaN>");
  EXPECT_EQ(buildString("", std::numeric_limits<double>::infinity(), 10, 3), "inf");
  EXPECT_EQ(buildString("", -std::numeric_limits<double>::infinity(), 10, 3), "-inf");
}

TEST(BuildString, NotationSwitches) {
  EXPECT_EQ(buildString("", 1e16, 0, 2), "1.00e+16");
  EXPECT_EQ(buildString("", -1e16, 0, 2), "-1.00e+16");
  EXPECT_EQ(buildString("", 1e15, 0, 1), "1000000000000000.0") << "the bound itself is fixed";
  EXPECT_EQ(buildString("", 1.5e-16, 0, 2), "1.50e-16");
  EXPECT_EQ(buildString("", -1.5e-16, 0, 2), "-1.50e-16");
  EXPECT_EQ(buildString("", 0.001, 0, 3, "", false, 1e15, 0.01), "1.000e-03");
  EXPECT_EQ(buildString("", 0.01, 0, 3, "", false, 1e15, 0.01), "0.010");
  EXPECT_EQ(buildString("", 150.0, 0, 1, "", false, 100.0, 0.0), "1.5e+02");
}

TEST(BuildString, ZeroIsNeverScientific) {
  EXPECT_EQ(buildString("", 0.0, 0, 2, "", false, 1e15, 1.0), "0.00");
  EXPECT_EQ(buildString("", 0.0, 0, 2, "", false, 1e15, 1e300), "0.00");
}

TEST(BuildString, LimitsOnPrecisionAndUpperBound) {
  EXPECT_EQ(buildString("", 1.0 / 3.0, 0, 20), buildString("", 1.0 / 3.0, 0, 16));
  EXPECT_EQ(buildString("", 1.0 / 3.0, 0, 16), "0.3333333333333333");
  // An upper bound of 1e90 acts as 1e80.
  EXPECT_EQ(buildString("", 1e85, 0, 1, "", false, 1e90), "1.0e+85");
  EXPECT_EQ(buildString("", 1e85, 0, 1, "", false, 1e90), buildString("", 1e85, 0, 1, "", false, 1e80));
  EXPECT_EQ(UTILS::buildFormatStr("a", 2.25, 6, 1, "b", true), buildString("a", 2.25, 6, 1, "b", true));
}

TEST(SanitizeFilename, CleansTheBaseNameOnly) {
  EXPECT_EQ(orvCore::sanitizeFilename(""), "");
  EXPECT_EQ(orvCore::sanitizeFilename("a:b?c*d<e>f|g.asi"), "abcdefg.asi");
  EXPECT_EQ(orvCore::sanitizeFilename("C:\\dir\\my:file?.txt"), "C:/dir/myfile.txt");
  EXPECT_EQ(orvCore::sanitizeFilename("/tmp/x|y"), "/tmp/xy");
}

TEST(NativeSeparators, CollapseButKeepNetworkAndUrls) {
  EXPECT_EQ(orvCore::toNativeSeparators("a\\b\\\\c//d"), "a/b/c/d");
  EXPECT_EQ(orvCore::toNativeSeparators("\\\\server\\share"), "//server/share");
  EXPECT_EQ(orvCore::toNativeSeparators("///x"), "//x");
  EXPECT_EQ(orvCore::toNativeSeparators("http://host//a\\b"), "http://host//a\\b");
  EXPECT_EQ(orvCore::toNativeSeparators("/abs//path/"), "/abs/path/");
}

class EnvExpansionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setenv("ORV_CORETEXT_A", "alpha", 1);
    setenv("ORV_CORETEXT_CR", "value\r\r", 1);
    setenv("ORV_CORETEXT_SELF", "$(ORV_CORETEXT_SELF)", 1);
    unsetenv("ORV_CORETEXT_UNSET");
  }
  void TearDown() override {
    unsetenv("ORV_CORETEXT_A");
    unsetenv("ORV_CORETEXT_CR");
    unsetenv("ORV_CORETEXT_SELF");
  }
};

TEST_F(EnvExpansionTest, GetEnvVarCutsCarriageReturns) {
  EXPECT_EQ(orvCore::getEnvVar("ORV_CORETEXT_A"), "alpha");
  EXPECT_EQ(orvCore::getEnvVar("ORV_CORETEXT_CR"), "value");
  EXPECT_EQ(orvCore::getEnvVar("ORV_CORETEXT_UNSET"), "");
}

TEST_F(EnvExpansionTest, HasEnvNeedsAClosingParenthesis) {
  EXPECT_TRUE(orvCore::hasEnv("x$(A)y"));
  EXPECT_FALSE(orvCore::hasEnv("x$(A"));
  EXPECT_FALSE(orvCore::hasEnv("x)$(A"));
  EXPECT_FALSE(orvCore::hasEnv("$A"));
}

TEST_F(EnvExpansionTest, ExpandEnvReplacesEveryName) {
  EXPECT_EQ(orvCore::expandEnv("$(ORV_CORETEXT_A)/dir/$(ORV_CORETEXT_CR).map"), "alpha/dir/value.map");
  EXPECT_EQ(orvCore::expandEnv("a$(ORV_CORETEXT_UNSET)b"), "ab");
  EXPECT_EQ(orvCore::expandEnv("$(NOT A NAME)/$(ORV_CORETEXT_A)"), "$(NOT A NAME)/alpha");
  EXPECT_EQ(orvCore::expandEnv("no vars $(open"), "no vars $(open");
  EXPECT_EQ(orvCore::expandEnv("$(ORV_CORETEXT_SELF)"), "$(ORV_CORETEXT_SELF)") << "values are not re-expanded";
}

TEST(UtilsText, SpacesAndTrailingZeros) {
  EXPECT_EQ(UTILS::addSpaces("ab", 3), "ab   ");
  EXPECT_EQ(UTILS::addSpaces("ab", 0), "ab");
  EXPECT_EQ(UTILS::removeTrailingZeros("1.2500"), "1.25");
  EXPECT_EQ(UTILS::removeTrailingZeros("3.000"), "3");
  EXPECT_EQ(UTILS::removeTrailingZeros("3.000", true), "3.");
  EXPECT_EQ(UTILS::removeTrailingZeros("1000"), "1000") << "no point, no change";
  EXPECT_EQ(UTILS::removeTrailingZeros("-0.0"), "-0");
}

TEST(UtilsText, FormatDouble) {
  EXPECT_EQ(UTILS::formatDouble(1.5), "1.5");
  EXPECT_EQ(UTILS::formatDouble(2.0), "2");
  EXPECT_EQ(UTILS::formatDouble(1.0 / 3.0), "0.333333");
}

TEST(UtilsText, ExtensionsOfNames) {
  EXPECT_EQ(UTILS::removeExtension("dir/scene.v2.asi"), "dir/scene.v2");
  EXPECT_EQ(UTILS::removeExtension("dir.d/scene"), "dir.d/scene");
  EXPECT_EQ(UTILS::removeExtension("scene"), "scene");
  std::string out;
  UTILS::changeExtension(out, "a/b.tle", ".asi");
  EXPECT_EQ(out, "a/b.asi");
  UTILS::changeExtension(out, "a/b", "asi");
  EXPECT_EQ(out, "a/b.asi");
  EXPECT_EQ(UTILS::genFilename("/tmp", "x", ".asi"), "/tmp/x.asi");
  EXPECT_EQ(UTILS::genFilename("/tmp/", "x", "asi"), "/tmp/x.asi");
  EXPECT_EQ(UTILS::genFilename("", "x", ""), "x");
}

TEST(UtilsText, RandomStringsFollowTheSeed) {
  const std::string a = UTILS::generateRandomString(32, 7);
  EXPECT_EQ(a.size(), 32u);
  EXPECT_EQ(a.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890"),
            std::string::npos);
  EXPECT_EQ(UTILS::generateRandomString(32, 7), a);
  EXPECT_NE(UTILS::generateRandomString(32, 8), a);
  EXPECT_EQ(UTILS::generateRandomString(0, 7), "");
}

TEST(UtilsText, FileNameComparison) {
  EXPECT_TRUE(UTILS::compareFileNames("a\\b//c", "a/b/c/"));
  EXPECT_FALSE(UTILS::compareFileNames("a/b", "a/B"));
  const std::vector<std::string> list{"/x/one.asi", "/x/two.asi"};
  EXPECT_TRUE(UTILS::compareFileName2List(list, "\\x\\two.asi"));
  EXPECT_FALSE(UTILS::compareFileName2List(list, "/x/three.asi"));
  EXPECT_FALSE(UTILS::compareFileName2List({}, "/x/one.asi"));
}

TEST(VariableType, NamesBothWays) {
  const char* names[] = {"UNKNOWN", "UINT8",   "INT8",    "UINT16", "INT16", "UINT32", "INT32",
                         "UINT64",  "INT64",   "FLOAT32", "FLOAT64", "STRING", "BLOB"};
  for (int i = 0; i <= 12; ++i) {
    const auto type = static_cast<UTILS::VariableType_t>(i);
    EXPECT_EQ(UTILS::getVariableTypeString(type), names[i]);
    if (i > 0) {
      EXPECT_EQ(UTILS::getVariableType(names[i]), type);
    }
  }
  EXPECT_EQ(UTILS::getVariableTypeString(static_cast<UTILS::VariableType_t>(13)), "Unknown Variable Type");
  EXPECT_EQ(UTILS::getVariableTypeString(static_cast<UTILS::VariableType_t>(-1)), "Unknown Variable Type");
  EXPECT_EQ(UTILS::getVariableType(""), UTILS::VT_UNKNOWN);
  EXPECT_EQ(UTILS::getVariableType("float64"), UTILS::VT_UNKNOWN) << "names are case-sensitive";
  EXPECT_EQ(UTILS::getVariableType("DOUBLE"), UTILS::VT_UNKNOWN);
  EXPECT_EQ(UTILS::VT_FLOAT64, 10);
  EXPECT_EQ(UTILS::VT_BLOB, 12);
}
