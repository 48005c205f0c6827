// What the engine makes of awkward files: line ends, missing final line
// feed, unknown keywords, NUL bytes, binary garbage, very long lines.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "SpineTestSupport.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/ReadLimits.h"

using FileReaderPlugin::FileReaderEngine;
using spinetest::CapturingMessages;
using spinetest::RecordingProgress;
using spinetest::TempFile;
using spinetest::TestParser;

namespace {

struct Read {
  TestParser parser;
  CapturingMessages messages;
  RecordingProgress progress;
  int result = 99;

  explicit Read(const std::string& content) {
    TempFile file(content);
    result = FileReaderEngine(parser).execute(file.path(), messages, progress);
  }

  static std::string repeat(const std::string& line, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += line;
    return text;
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (const auto& m : messages.written) all.push_back(m.text);
    return all;
  }
};

}  // namespace

TEST(InputLines, TheLastLineWithoutALineFeedIsExecuted) {
  Read read("Version 3\nCmd a\nCmd b");
  EXPECT_EQ(read.result, 0);
  EXPECT_EQ(read.parser.journal.executed, (std::vector<std::string>{"2:Cmd a", "3:Cmd b"}));
}

TEST(InputLines, CarriageReturnsOfCrLfFilesAreCut) {
  Read read("Version 3\r\nCmd a \r\n\r\nCmd 'b'\r\n");
  EXPECT_EQ(read.result, 0);
  EXPECT_EQ(read.parser.journal.executed, (std::vector<std::string>{"2:Cmd a", "4:Cmd b"}));
}

TEST(InputLines, CarriageReturnOnlyFilesAreOneLongLine) {
  // Without line feeds the whole file is one line, whose first command is
  // a Version command with too many arguments.
  Read read("Version 3\rCmd a\rCmd b\r");
  EXPECT_EQ(read.result, -1);
  ASSERT_EQ(read.messages.written.size(), 1u);
  EXPECT_EQ(read.messages.written[0].text,
            "The Version command with a positive number > 1 argument must be the first command in an ASI file");
}

TEST(InputLines, BlankAndCommentLinesCountButUseNoItem) {
  Read read("Version 3\n\n   \n# c\n// c\nCmd x // tail\n");
  EXPECT_EQ(read.parser.journal.executed, (std::vector<std::string>{"6:Cmd x"}));
}

TEST(UnknownKeywords, AKeywordThreeTimesIsReportedOnceWithItsCount) {
  Read read("Version 3\nfoo 1\nCmd\nfoo\nfoo 2 3\n");
  EXPECT_EQ(read.result, 0);
  EXPECT_EQ(read.texts(), (std::vector<std::string>{"The following 1 commands are unsupported:",
                                                    "Command \"foo\" appeared 3 times"}));
  for (const auto& m : read.messages.written) {
    EXPECT_EQ(m.severity, 5);
    EXPECT_EQ(m.line, 0u);
  }
  EXPECT_EQ(read.messages.numberOfErrors(), 0u);
}

TEST(UnknownKeywords, KeepTheirFirstSpellingAndComeInOrder) {
  Read read("Version 3\nZeta\nDTEDMap 1\ndtedmap\nVersion 4\nDataKeyLock\n''\n");
  EXPECT_EQ(read.result, 0);
  EXPECT_EQ(read.texts(), (std::vector<std::string>{"The following 5 commands are unsupported:",
                                                    "Command \"\" appeared 1 times",
                                                    "Command \"DataKeyLock\" appeared 1 times",
                                                    "Command \"DTEDMap\" appeared 2 times",
                                                    "Command \"Version\" appeared 1 times",
                                                    "Command \"Zeta\" appeared 1 times"}));
  // A second Version line changes nothing.
  EXPECT_EQ(read.parser.populatedWith, std::vector<int>{3});
}

TEST(UnknownKeywords, KnownKeywordsWithoutACommandAreSilent) {
  Read read("Version 3\nBeamDataBody 1 2 3\nPLATFORMID 3\n\"PlatformID\" 4\nplatformid\n");
  EXPECT_EQ(read.result, 0);
  EXPECT_TRUE(read.messages.written.empty());
}

TEST(BadInput, NulBytesAreOrdinaryCharacters) {
  Read read(std::string("Version 3\nCmd a\0b\n\0\nCmd c\n", 25));
  EXPECT_EQ(read.result, 0);
  ASSERT_EQ(read.parser.journal.executed.size(), 2u);
  EXPECT_EQ(read.parser.journal.executed[0], std::string("2:Cmd a\0b", 9));
  EXPECT_EQ(read.texts()[1], std::string("Command \"\0\" appeared 1 times", 28));
}

TEST(BadInput, ANulInTheVersionLineFails) {
  Read read(std::string("Vers\0ion 3\nCmd\n", 15));
  EXPECT_EQ(read.result, -1);
}

TEST(BadInput, BinaryGarbageFailsCleanly) {
  std::mt19937 random(1234);
  for (int round = 0; round < 20; ++round) {
    std::string bytes(4096, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    Read read(bytes);
    EXPECT_EQ(read.result, -1) << round;
    EXPECT_EQ(read.messages.numberOfErrors(), 1u);
  }
}

TEST(BadInput, GarbageBehindTheVersionLineIsReportedAsUnsupported) {
  std::mt19937 random(99);
  std::string bytes(200000, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  Read read("Version 5\n" + bytes);
  EXPECT_EQ(read.result, 0);
  EXPECT_GT(read.messages.numberOfInfos(), 100u);
  EXPECT_LE(read.messages.written.size(), 501u);
}

// Whatever a line holds, no line costs more than the longest line allowed.
TEST(LongLines, ALineBeyondTheMaximumIsAnErrorAndTheReadGoesOn) {
  const std::string huge(10 * 1024 * 1024, 'x');
  Read read("Version 3\nCmd a\nCmd " + huge + "\nCmd b\n");
  EXPECT_EQ(read.result, 2);
  EXPECT_EQ(read.parser.journal.executed, (std::vector<std::string>{"2:Cmd a", "4:Cmd b"}));
  EXPECT_EQ(read.texts(),
            (std::vector<std::string>{"Line 3 Cmd: the line is longer than 1048576 characters and is skipped"}));
  EXPECT_EQ(read.messages.written[0].severity, 2);
  EXPECT_EQ(read.messages.written[0].line, 3u);
}

TEST(LongLines, TheMaximumItselfIsAllowedAndEveryByteBeforeTheLineFeedCounts) {
  const std::size_t max = FileReaderPlugin::MAX_LINE_LENGTH;
  const std::string exact = "Cmd " + std::string(max - 4, 'y');
  Read read("Version 3\n" + exact + "\n" + exact + "z\nCmd " + std::string(max, ' ') + "\n" + exact);
  EXPECT_EQ(read.result, 2);
  ASSERT_EQ(read.parser.journal.executed.size(), 2u);
  EXPECT_EQ(read.parser.journal.executed[0].size(), 2 + max);  // "2:" and the line
  EXPECT_EQ(read.texts(),
            (std::vector<std::string>{"Line 3 Cmd: the line is longer than 1048576 characters and is skipped",
                                      "Line 4 Cmd: the line is longer than 1048576 characters and is skipped"}));
  EXPECT_EQ(read.parser.journal.executed[1].substr(0, 6), "5:Cmd ");
}

TEST(LongLines, AnOverlongLineBeforeTheVersionIsSkippedWithItsError) {
  Read read("# " + std::string(2 * 1024 * 1024, 'c') + "\nVersion 3\nCmd\n");
  EXPECT_EQ(read.result, 2);
  EXPECT_EQ(read.parser.populatedWith, std::vector<int>{3});
  EXPECT_EQ(read.texts(),
            (std::vector<std::string>{"Line 1: the line is longer than 1048576 characters and is skipped"}));
}

TEST(LongLines, ManyHugeLinesOfTinyTokensStillRead) {
  // Each line holds half a million tokens; together they would hold far more
  // than the queue may, so the read thread waits for the calling thread.
  std::string line = "Cmd";
  while (line.size() + 2 <= FileReaderPlugin::MAX_LINE_LENGTH) line += " a";
  Read read("Version 3\n" + Read::repeat(line + "\n", 12) + "Cmd end\n");
  EXPECT_EQ(read.result, 0);
  ASSERT_EQ(read.parser.journal.executed.size(), 13u);
  EXPECT_EQ(read.parser.journal.executed.back(), "14:Cmd end");
}

TEST(UnknownKeywords, EveryKeywordThatTheMessagesCanShowIsReported) {
  std::string content = "Version 3\n";
  for (int i = 0; i < 150; ++i) content += "kw" + std::to_string(1000 + i) + "\nkw" + std::to_string(1000 + i) + "\n";
  Read read(content);
  EXPECT_EQ(read.result, 0);
  const std::vector<std::string> texts = read.texts();
  ASSERT_EQ(texts.size(), 151u);
  EXPECT_EQ(texts[0], "The following 150 commands are unsupported:");
  EXPECT_EQ(texts[1], "Command \"kw1000\" appeared 2 times");
  EXPECT_EQ(texts[150], "Command \"kw1149\" appeared 2 times");
}

TEST(UnknownKeywords, TheReportKeepsItsMaximumAndCountsTheRest) {
  std::string content = "Version 3\n";
  const std::size_t distinct = FileReaderPlugin::MAX_UNSUPPORTED_KEYWORDS + 3;
  for (std::size_t i = 0; i < distinct; ++i) content += "kw" + std::to_string(100000 + i) + "\n";
  content += "kw" + std::to_string(100000 + distinct - 1) + "\n";
  Read read(content);
  EXPECT_EQ(read.result, 0);
  ASSERT_FALSE(read.texts().empty());
  EXPECT_EQ(read.texts()[0],
            "The following " + std::to_string(FileReaderPlugin::MAX_UNSUPPORTED_KEYWORDS) + " commands are unsupported:");
  // The header, one line per kept keyword and the line of the rest (4 lines).
  EXPECT_EQ(read.messages.numberOfInfos(), FileReaderPlugin::MAX_UNSUPPORTED_KEYWORDS + 2);
}

TEST(UnknownKeywords, AVeryLongKeywordIsReportedByItsStart) {
  Read read("Version 3\n" + std::string(5000, 'K') + "\n" + std::string(4000, 'k') + "\n");
  EXPECT_EQ(read.texts(), (std::vector<std::string>{"The following 1 commands are unsupported:",
                                                    "Command \"" + std::string(64, 'K') + "...\" appeared 2 times"}));
}

TEST(BadInput, ALongQuotedArgumentWithinTheMaximumReachesTheCommand) {
  const std::string huge(1000 * 1000, 'y');
  Read read("Version 3\nCmd '" + huge + "' # tail\n");
  EXPECT_EQ(read.result, 0);
  ASSERT_EQ(read.parser.journal.executed.size(), 1u);
  EXPECT_EQ(read.parser.journal.executed[0].size(), huge.size() + 6);
}
