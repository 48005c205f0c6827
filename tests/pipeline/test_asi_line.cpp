// The rules of a line: how one physical line of ASI text becomes tokens.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pipeline/AsiLine.h"

using FileReaderPlugin::stripLineEnd;
using FileReaderPlugin::tokenizeAsiLine;
using Tokens = std::vector<std::string>;

namespace {

Tokens split(const std::string& line) {
  Tokens tokens;
  tokenizeAsiLine(line, tokens);
  return tokens;
}

}  // namespace

TEST(AsiLineWhiteSpace, TokensAreSeparatedByBlanksAndTabs) {
  EXPECT_EQ(split("PlatformData 1  10.0\t20.0"), (Tokens{"PlatformData", "1", "10.0", "20.0"}));
  EXPECT_EQ(split("   \t Version 3"), (Tokens{"Version", "3"}));
  EXPECT_EQ(split("a\rb"), (Tokens{"a", "b"}));
}

TEST(AsiLineWhiteSpace, BlankAndEmptyLinesGiveNoToken) {
  EXPECT_TRUE(split("").empty());
  EXPECT_TRUE(split("   ").empty());
  EXPECT_TRUE(split("\t \t").empty());
}

TEST(AsiLineWhiteSpace, StripCutsTrailingBlanksTabsAndLineEnds) {
  std::string line = "Version 3 \t\r\n\r";
  stripLineEnd(line);
  EXPECT_EQ(line, "Version 3");
  std::string blank = " \t\r";
  stripLineEnd(blank);
  EXPECT_EQ(blank, "");
  std::string inner = "a \t b";
  stripLineEnd(inner);
  EXPECT_EQ(inner, "a \t b");
}

TEST(AsiLineQuotes, DoubleAndSingleQuotesGroupAndComeOff) {
  EXPECT_EQ(split("PlatformName 1 \"USS Big Ship\""), (Tokens{"PlatformName", "1", "USS Big Ship"}));
  EXPECT_EQ(split("PlatformName 1 'a b'"), (Tokens{"PlatformName", "1", "a b"}));
  EXPECT_EQ(split("\"PlatformID\" 3"), (Tokens{"PlatformID", "3"}));
}

TEST(AsiLineQuotes, TextBehindAClosingQuoteStartsANewToken) {
  EXPECT_EQ(split("\"ab\"cd"), (Tokens{"ab", "cd"}));
  EXPECT_EQ(split("'x''y'"), (Tokens{"x", "y"}));
}

TEST(AsiLineQuotes, AQuoteInsideAnUnquotedTokenHasNoMeaning) {
  EXPECT_EQ(split("ab\"cd ef\""), (Tokens{"ab\"cd", "ef\""}));
  EXPECT_EQ(split("it's fine"), (Tokens{"it's", "fine"}));
}

TEST(AsiLineQuotes, AnUnclosedQuoteTakesTheRestOfTheLine) {
  EXPECT_EQ(split("Name 1 \"open ended # text"), (Tokens{"Name", "1", "\"open ended # text"}));
  EXPECT_EQ(split("Name 'x y"), (Tokens{"Name", "'x y"}));
  EXPECT_EQ(split("Name \""), (Tokens{"Name", "\""}));
}

TEST(AsiLineQuotes, EmptyQuotedTokensCountAsArguments) {
  EXPECT_EQ(split("PlatformName 1 \"\""), (Tokens{"PlatformName", "1", ""}));
  EXPECT_EQ(split("''"), (Tokens{""}));
  EXPECT_EQ(split("a '' b"), (Tokens{"a", "", "b"}));
}

TEST(AsiLineQuotes, EscapedDoubleQuotesDoNotEndAToken) {
  EXPECT_EQ(split("Desc \"say \\\"hi\\\" now\" x"), (Tokens{"Desc", "say \\\"hi\\\" now", "x"}));
  // An even number of backslashes escapes only themselves.
  EXPECT_EQ(split("Desc \"end\\\\\" x"), (Tokens{"Desc", "end\\\\", "x"}));
}

TEST(AsiLineQuotes, TripleQuotesHoldSingleDoubleQuotes) {
  EXPECT_EQ(split("Desc \"\"\"a \"quoted\" word\"\"\" x"), (Tokens{"Desc", "a \"quoted\" word", "x"}));
  // A fourth quote makes it two ordinary empty quoted tokens.
  EXPECT_EQ(split("\"\"\"\" x"), (Tokens{"", "", "x"}));
  // Three quotes with nothing behind them never close.
  EXPECT_EQ(split("Desc \"\"\""), (Tokens{"Desc", "\""}));
}

TEST(AsiLineComments, HashAndSlashesStartACommentAfterABlank) {
  EXPECT_EQ(split("RefLat 10 // note"), (Tokens{"RefLat", "10"}));
  EXPECT_EQ(split("RefLat 10 # note"), (Tokens{"RefLat", "10"}));
  EXPECT_TRUE(split("# a comment line").empty());
  EXPECT_TRUE(split("// a comment line").empty());
  EXPECT_TRUE(split("#").empty());
  EXPECT_TRUE(split("   // indented").empty());
}

TEST(AsiLineComments, ACommentIsCutInsideAnUnquotedToken) {
  EXPECT_EQ(split("RefLat 10//note"), (Tokens{"RefLat", "10"}));
  EXPECT_EQ(split("a//b c"), (Tokens{"a"}));
  EXPECT_EQ(split("PlatformName 1 a#b"), (Tokens{"PlatformName", "1", "a"}));
  EXPECT_EQ(split("x a#b//c"), (Tokens{"x", "a"}));
  EXPECT_EQ(split("x a//b#c"), (Tokens{"x", "a"}));
  // One slash is no comment.
  EXPECT_EQ(split("File a/b.gog"), (Tokens{"File", "a/b.gog"}));
  EXPECT_EQ(split("x a/"), (Tokens{"x", "a/"}));
}

TEST(AsiLineComments, QuotedTokensKeepCommentSigns) {
  EXPECT_EQ(split("PlatformName 1 'a#b'"), (Tokens{"PlatformName", "1", "a#b"}));
  EXPECT_EQ(split("File \"http://host/x\" # remote"), (Tokens{"File", "http://host/x"}));
  // After a quoted token, a comment in the next token still ends the line.
  EXPECT_EQ(split("'a#b' c#d e"), (Tokens{"a#b", "c"}));
}

TEST(AsiLineBytes, ControlAndHighBytesAreOrdinaryCharacters) {
  const std::string withNul("Key\0x 1", 7);
  const Tokens tokens = split(withNul);
  ASSERT_EQ(tokens.size(), 2u);
  EXPECT_EQ(tokens[0], std::string("Key\0x", 5));
  EXPECT_EQ(split("\xB0\xC2 \xFF"), (Tokens{"\xB0\xC2", "\xFF"}));
  // A null at either end of the line or of a token is a character too.
  EXPECT_EQ(split(std::string("\0 a\0 /\0 \0", 9)),
            (Tokens{std::string("\0", 1), std::string("a\0", 2), std::string("/\0", 2), std::string("\0", 1)}));
}

TEST(AsiLineReuse, AReusedVectorHoldsExactlyTheNewLine) {
  Tokens tokens;
  tokenizeAsiLine("PlatformData 1 2 3 4 5 6 7 8 9 10 11", tokens);
  ASSERT_EQ(tokens.size(), 12u);
  tokenizeAsiLine("RefLat 'a long quoted name that is not short'", tokens);
  EXPECT_EQ(tokens, (Tokens{"RefLat", "a long quoted name that is not short"}));
  tokenizeAsiLine("# nothing", tokens);
  EXPECT_TRUE(tokens.empty());
  tokenizeAsiLine("x", tokens);
  EXPECT_EQ(tokens, (Tokens{"x"}));
}
