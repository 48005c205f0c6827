#include "core/Tokenizer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

using Tokens = std::vector<std::string>;
using orvCore::extractWord;
using orvCore::extractWordWithQuotes;
using orvCore::getFirstCharPosAfterString;
using orvCore::getTerminateForStringPos;
using orvCore::removeQuotes;
using orvCore::stringTokenizer;

TEST(Constants, WhiteSpaceAndDegreeBytes) {
  EXPECT_EQ(std::string(orvCore::STR_WHITE_SPACE_CHARS), std::string(" \n\r\t"));
  EXPECT_EQ(std::string(orvCore::STR_DEGREE_SYMBOL_ASCII), std::string("\xB0"));
  EXPECT_EQ(std::string(orvCore::STR_DEGREE_SYMBOL_UNICODE), std::string("\xC2\xB0"));
  EXPECT_EQ(std::string(orvCore::STR_DEGREE_SYMBOL_UTF8), std::string("\xC2\xB0"));
}

TEST(StringTokenizer, SkippingEmptyMergesDelimiterRuns) {
  Tokens tokens;
  EXPECT_EQ(stringTokenizer(tokens, "a,,b", ",", true, true), 2u);
  EXPECT_EQ(tokens, (Tokens{"a", "b"}));
  stringTokenizer(tokens, "  PlatformID \t 1  \r\n");
  EXPECT_EQ(tokens, (Tokens{"PlatformID", "1"}));
  stringTokenizer(tokens, ",,,", ",", true, true);
  EXPECT_TRUE(tokens.empty());
  stringTokenizer(tokens, "", ",", true, true);
  EXPECT_TRUE(tokens.empty());
}

TEST(StringTokenizer, KeepingEmptyEndsATokenAtEveryDelimiter) {
  Tokens tokens;
  EXPECT_EQ(stringTokenizer(tokens, "a,,b", ",", true, false), 3u);
  EXPECT_EQ(tokens, (Tokens{"a", "", "b"}));
  stringTokenizer(tokens, "", ",", true, false);
  EXPECT_EQ(tokens, (Tokens{""}));
  stringTokenizer(tokens, "a,b,", ",", true, false);
  EXPECT_EQ(tokens, (Tokens{"a", "b", ""}));
  stringTokenizer(tokens, ",a;b", ",;", true, false);
  EXPECT_EQ(tokens, (Tokens{"", "a", "b"}));
}

TEST(StringTokenizer, AppendsUnlessClearFirst) {
  Tokens tokens{"x"};
  EXPECT_EQ(stringTokenizer(tokens, "a b", " ", false, true), 3u);
  EXPECT_EQ(tokens, (Tokens{"x", "a", "b"}));
  stringTokenizer(tokens, "c", " ", true, true);
  EXPECT_EQ(tokens, (Tokens{"c"}));
}

TEST(GetStrippedLine, CutsTrailingWhiteSpaceOnly) {
  std::istringstream in("  first \t\r\nsecond\n\n   \nlast");
  std::string line;
  ASSERT_TRUE(orvCore::getStrippedLine(in, line));
  EXPECT_EQ(line, "  first");
  ASSERT_TRUE(orvCore::getStrippedLine(in, line));
  EXPECT_EQ(line, "second");
  ASSERT_TRUE(orvCore::getStrippedLine(in, line));
  EXPECT_EQ(line, "");
  ASSERT_TRUE(orvCore::getStrippedLine(in, line));
  EXPECT_EQ(line, "");
  ASSERT_TRUE(orvCore::getStrippedLine(in, line)) << "a last line without newline still counts";
  EXPECT_EQ(line, "last");
  EXPECT_FALSE(orvCore::getStrippedLine(in, line));
  EXPECT_EQ(line, "");
}

TEST(GetTokens, SplitsOneLineAndChecksTheCount) {
  std::istringstream in("RefLLA 1.0  2.0 3.0 \r\n\nA,B\n");
  Tokens tokens{"old"};
  EXPECT_TRUE(orvCore::getTokens(in, tokens, 4));
  EXPECT_EQ(tokens, (Tokens{"RefLLA", "1.0", "2.0", "3.0"}));
  EXPECT_TRUE(orvCore::getTokens(in, tokens, 0)) << "an empty line with no minimum is fine";
  EXPECT_TRUE(tokens.empty());
  EXPECT_FALSE(orvCore::getTokens(in, tokens, 3, ","));
  EXPECT_EQ(tokens, (Tokens{"A", "B"})) << "tokens are kept when too few";
  EXPECT_FALSE(orvCore::getTokens(in, tokens, 0)) << "end of stream";
}

TEST(GetTokens, CountIncludesKeptTokensWhenAppending) {
  std::istringstream in("c\n");
  Tokens tokens{"a", "b"};
  EXPECT_TRUE(orvCore::getTokens(in, tokens, 3, " ", false));
  EXPECT_EQ(tokens, (Tokens{"a", "b", "c"}));
}

TEST(ExtractWord, StopsAtBlankOrTab) {
  size_t end = 0;
  EXPECT_EQ(extractWord("abc def", end, 0), "abc");
  EXPECT_EQ(end, 3u);
  EXPECT_EQ(extractWord("abc\tdef", end, 4), "def");
  EXPECT_EQ(end, std::string::npos);
  EXPECT_EQ(extractWord("a\"b c", end, 0), "a\"b") << "quotes mean nothing here";
  EXPECT_EQ(extractWord("abc", end, 3), "");
  EXPECT_THROW(extractWord("abc", end, 4), std::out_of_range);
}

TEST(ExtractWordWithQuotes, QuotedPartInsideAWordStaysInIt) {
  size_t end = 0;
  const std::string text = "ab\"c d\"e f";
  EXPECT_EQ(extractWordWithQuotes(text, end, 0), "ab\"c d\"");
  EXPECT_EQ(end, 7u);
  EXPECT_EQ(extractWordWithQuotes("ab\"c d", end, 0), "ab\"c d") << "no closing quote: to the end";
  EXPECT_EQ(end, std::string::npos);
  EXPECT_EQ(extractWordWithQuotes("ab\"", end, 0), "ab\"") << "a quote at the very end ends the word";
  EXPECT_EQ(end, 3u);
}

TEST(ExtractWordWithQuotes, LeadingQuoteRunsToTheClosingOne) {
  size_t end = 0;
  EXPECT_EQ(extractWordWithQuotes("x \"a b\" c", end, 2), "\"a b\"");
  EXPECT_EQ(end, 7u);
  EXPECT_EQ(extractWordWithQuotes("\"a b", end, 0), "\"a b");
  EXPECT_EQ(end, std::string::npos);
  EXPECT_EQ(extractWordWithQuotes("a \"", end, 2), "\"") << "a lone quote at the end";
  EXPECT_EQ(extractWordWithQuotes("\"\"", end, 0), "\"\"");
  EXPECT_EQ(end, 2u);
}

TEST(ExtractWordWithQuotes, PlainWordsAndRange) {
  size_t end = 0;
  EXPECT_EQ(extractWordWithQuotes("one two", end, 0), "one");
  EXPECT_EQ(end, 3u);
  EXPECT_EQ(extractWordWithQuotes("one\ttwo", end, 4), "two");
  EXPECT_EQ(end, std::string::npos);
  EXPECT_THROW(extractWordWithQuotes("one", end, 9), std::out_of_range);
}

TEST(TerminateForStringPos, ByFirstCharacter) {
  EXPECT_EQ(getTerminateForStringPos("'abc'", 0), "'");
  EXPECT_EQ(getTerminateForStringPos("\"abc\"", 0), "\"");
  EXPECT_EQ(getTerminateForStringPos("x \"\"\"abc\"\"\"", 2), "\"\"\"");
  EXPECT_EQ(getTerminateForStringPos("x\"\"\"", 1), "\"\"\"") << "three quotes at the very end";
  EXPECT_EQ(getTerminateForStringPos("\"\"\"\"", 0), "\"") << "a fourth quote makes it a single one";
  EXPECT_EQ(getTerminateForStringPos("\"\"", 0), "\"");
  EXPECT_EQ(getTerminateForStringPos("abc", 1), "");
  EXPECT_THROW(getTerminateForStringPos("abc", 3), std::out_of_range);
}

TEST(FirstCharPosAfterString, WhiteSpaceTerminator) {
  EXPECT_EQ(getFirstCharPosAfterString("abc def", 0, ""), 3u);
  EXPECT_EQ(getFirstCharPosAfterString("abc\tdef", 1, ""), 3u);
  EXPECT_EQ(getFirstCharPosAfterString("abc\r", 0, ""), 3u);
  EXPECT_EQ(getFirstCharPosAfterString("abc", 0, ""), std::string::npos);
}

TEST(FirstCharPosAfterString, QuotesAndEscapes) {
  EXPECT_EQ(getFirstCharPosAfterString("'ab' c", 1, "'"), 4u);
  EXPECT_EQ(getFirstCharPosAfterString("\"ab\" c", 1, "\""), 4u);
  // \" is escaped, \\" is not.
  EXPECT_EQ(getFirstCharPosAfterString("\"a\\\"b\" c", 1, "\""), 6u);
  EXPECT_EQ(getFirstCharPosAfterString("\"a\\\\\" c", 1, "\""), 5u);
  EXPECT_EQ(getFirstCharPosAfterString("\"a\\\\\\\"\" c", 1, "\""), 7u);
  EXPECT_EQ(getFirstCharPosAfterString("\"a\\\"", 1, "\""), std::string::npos);
  // Single quotes and triple quotes know no escape.
  EXPECT_EQ(getFirstCharPosAfterString("'a\\' c", 1, "'"), 4u);
  EXPECT_EQ(getFirstCharPosAfterString("\"\"\"a \"b\"\"\" c", 1, "\"\"\""), 10u);
  EXPECT_EQ(getFirstCharPosAfterString("'abc", 1, "'"), std::string::npos);
}

TEST(RemoveQuotes, StripsMatchingPairsRepeatedly) {
  EXPECT_EQ(removeQuotes("\"abc\""), "abc");
  EXPECT_EQ(removeQuotes("'abc'"), "abc");
  EXPECT_EQ(removeQuotes("\"\"abc\"\""), "abc");
  EXPECT_EQ(removeQuotes("\"\""), "");
  EXPECT_EQ(removeQuotes("\"\"\""), "\"");
  EXPECT_EQ(removeQuotes("''''"), "");
  EXPECT_EQ(removeQuotes("\"abc'"), "\"abc'") << "mismatched ends";
  EXPECT_EQ(removeQuotes("\"abc"), "\"abc");
  EXPECT_EQ(removeQuotes("abc\""), "abc\"") << "only a leading quote starts stripping";
  EXPECT_EQ(removeQuotes("\""), "\"");
  EXPECT_EQ(removeQuotes(""), "");
  EXPECT_EQ(removeQuotes("'\"a\"'"), "\"a\"") << "only the leading quote character is stripped";
}

TEST(RemoveQuotes, VectorOverloadsWorkInPlace) {
  Tokens tokens{"\"a b\"", "c", "\"\"", "''x''"};
  removeQuotes(tokens);
  EXPECT_EQ(tokens, (Tokens{"a b", "c", "", "x"}));
  Tokens layered{"\"\"a\"\"", "'b'", "\"c'", "d"};
  UTILS::removeOneLayerOfQuotes(layered);
  EXPECT_EQ(layered, (Tokens{"\"a\"", "b", "\"c'", "d"}));
}

TEST(RemoveOneLayerOfQuotes, ExactlyOnePair) {
  EXPECT_EQ(UTILS::removeOneLayerOfQuotes("\"\"x\"\""), "\"x\"");
  EXPECT_EQ(UTILS::removeOneLayerOfQuotes("''"), "");
  EXPECT_EQ(UTILS::removeOneLayerOfQuotes("'x\""), "'x\"");
  EXPECT_EQ(UTILS::removeOneLayerOfQuotes("\""), "\"");
  EXPECT_EQ(UTILS::removeOneLayerOfQuotes("xx"), "xx");
}

TEST(NameAndValue, SplitsAtTheFirstEquals) {
  std::string name = "keep";
  std::string value = "keep";
  EXPECT_EQ(orvCore::getNameAndValueFromToken("entityId=\"a=b\"", name, value), "");
  EXPECT_EQ(name, "entityId");
  EXPECT_EQ(value, "a=b");
  EXPECT_EQ(orvCore::getNameAndValueFromToken("x=", name, value), "");
  EXPECT_EQ(name, "x");
  EXPECT_EQ(value, "");
}

TEST(NameAndValue, WithoutEqualsReportsAndTouchesNothing) {
  std::string name = "n";
  std::string value = "v";
  EXPECT_EQ(orvCore::getNameAndValueFromToken("novalue", name, value),
            "(novalue) Incorrect Token Format (pattern format: name=value)");
  EXPECT_EQ(name, "n");
  EXPECT_EQ(value, "v");
}
