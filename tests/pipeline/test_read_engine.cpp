// The read engine: its result codes, the version line, errors and the stop
// at the 101st, progress and cancel.

#include <gtest/gtest.h>

#include <string>

#include "SpineTestSupport.h"
#include "pipeline/FileReaderEngine.h"

using FileReaderPlugin::FileReaderEngine;
using FileReaderPlugin::NullFileReaderProgress;
using spinetest::CapturingMessages;
using spinetest::RecordingProgress;
using spinetest::TempFile;
using spinetest::TestParser;

namespace {

struct EngineRun {
  TestParser parser;
  CapturingMessages messages;
  RecordingProgress progress;
  int result = 99;

  explicit EngineRun(const std::string& content, int cancelAtCall = -1) {
    TempFile file(content);
    progress.cancelAtCall = cancelAtCall;
    FileReaderEngine engine(parser);
    result = engine.execute(file.path(), messages, progress);
  }
};

std::string repeat(const std::string& line, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += line;
  return text;
}

}  // namespace

TEST(EngineResult, CleanReadIsZeroAndRunsCommandsInFileOrder) {
  EngineRun run("# header\nVersion 3\n\nCmd a\n// note\nCmd b 'x y'\n  CMD c\n");
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.parser.journal.executed,
            (std::vector<std::string>{"4:Cmd a", "6:Cmd b x y", "7:CMD c"}));
  EXPECT_EQ(run.parser.journal.transmits, 3);
  EXPECT_EQ(run.parser.populatedWith, std::vector<int>{3});
  EXPECT_EQ(run.parser.completions, 1);
  EXPECT_TRUE(run.messages.written.empty());
}

TEST(EngineResult, ErrorsAtOrBelowOneHundredGiveTwo) {
  EngineRun run("Version 3\nErr 60\nCmd\nErr 40\nCmd last\n");
  EXPECT_EQ(run.result, 2);
  EXPECT_EQ(run.messages.numberOfErrors(), 100u);
  EXPECT_EQ(run.parser.journal.executed.size(), 4u);
  EXPECT_EQ(run.parser.completions, 1);
  EXPECT_EQ(run.messages.written[0].text, "Line 2 Err: bad");
  EXPECT_EQ(run.messages.written[0].line, 2u);
}

TEST(EngineResult, WarningsAloneStillGiveZero) {
  EngineRun run(repeat("Warn\n", 99).insert(0, "Version 3\n"));
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.messages.numberOfWarnings(), 99u);
}

TEST(EngineResult, NinetyNineWarningsAndOneErrorGiveTwo) {
  EngineRun run("Version 3\n" + repeat("Warn\n", 99) + "Err\nCmd\n");
  EXPECT_EQ(run.result, 2);
  EXPECT_EQ(run.parser.journal.executed.size(), 101u);
}

TEST(EngineResult, TheHundredAndFirstErrorStopsTheRead) {
  EngineRun run("Version 3\n" + repeat("Err\n", 101) + repeat("Cmd\n", 50));
  EXPECT_EQ(run.result, -2);
  EXPECT_EQ(run.parser.journal.executed.size(), 101u);
  EXPECT_EQ(run.parser.completions, 0);
  EXPECT_EQ(run.messages.written.size(), 101u);
}

TEST(EngineResult, AFatalMessageStopsTheReadWithMinusOne) {
  EngineRun run("Version 3\nCmd\nFatal\nCmd\nCmd\n");
  EXPECT_EQ(run.result, -1);
  EXPECT_EQ(run.parser.journal.executed, (std::vector<std::string>{"2:Cmd", "3:Fatal"}));
  EXPECT_EQ(run.parser.completions, 0);
}

TEST(EngineResult, FatalOutranksTooManyErrors) {
  EngineRun run("Version 3\nErr 100\nFatal\n");
  EXPECT_EQ(run.messages.numberOfErrors(), 101u);
  EXPECT_EQ(run.result, -1);
}

TEST(EngineResult, AFailedCompletionIsMinusOne) {
  TempFile file("Version 3\nCmd\n");
  TestParser parser;
  parser.completeResult = -1;
  CapturingMessages messages;
  NullFileReaderProgress progress;
  EXPECT_EQ(FileReaderEngine(parser).execute(file.path(), messages, progress), -1);
  EXPECT_EQ(parser.completions, 1);
}

TEST(EngineResult, AFileThatCannotBeOpenedIsMinusOne) {
  TestParser parser;
  CapturingMessages messages;
  NullFileReaderProgress progress;
  const std::string path = "/nonexistent/spine/a.asi";
  EXPECT_EQ(FileReaderEngine(parser).execute(path, messages, progress), -1);
  ASSERT_EQ(messages.written.size(), 1u);
  EXPECT_EQ(messages.written[0].text, "Could not open " + path);
  EXPECT_EQ(messages.written[0].severity, 2);
  EXPECT_TRUE(parser.populatedWith.empty());
}

// What the standard library throws inside a read never leaves the engine:
// it ends the read as a fatal error that names where it happened.
TEST(EngineFailures, ACommandThatRunsOutOfMemoryFailsTheReadAtItsLine) {
  EngineRun run("Version 3\nCmd a\nThrow alloc\nCmd b\n");
  EXPECT_EQ(run.result, -1);
  EXPECT_EQ(run.parser.journal.executed, (std::vector<std::string>{"2:Cmd a", "3:Throw alloc"}));
  EXPECT_EQ(run.parser.completions, 0);
  ASSERT_EQ(run.messages.written.size(), 1u);
  EXPECT_EQ(run.messages.written[0].text, "Line 3 Throw: out of memory; the read stops");
  EXPECT_EQ(run.messages.written[0].severity, 1);
  EXPECT_EQ(run.messages.written[0].line, 3u);
}

TEST(EngineFailures, ALengthErrorIsFatalToo) {
  EngineRun run("Version 3\n" + repeat("Cmd\n", 15000) + "Throw length\n" + repeat("Cmd\n", 15000));
  EXPECT_EQ(run.result, -1);
  EXPECT_EQ(run.parser.journal.executed.size(), 15001u);
  EXPECT_TRUE(run.messages.wrote("Line 15002 Throw: a value is too long to hold; the read stops"));
}

TEST(EngineFailures, AReadThreadThatBreaksDownIsAFatalErrorNotTheEnd) {
  EngineRun run("Version 3\nCmd a\n# c\nBoom\nCmd b\n");
  EXPECT_EQ(run.result, -1);
  EXPECT_EQ(run.parser.journal.executed, std::vector<std::string>{"2:Cmd a"});
  EXPECT_EQ(run.parser.completions, 0);
  ASSERT_EQ(run.messages.written.size(), 1u);
  EXPECT_EQ(run.messages.written[0].text, "Read failed at line 4: out of memory; the rest of the file is not loaded");
  EXPECT_EQ(run.messages.written[0].severity, 1);
}

TEST(EngineFailures, AFileCutShortWhileItIsReadIsNotLoadedAsComplete) {
  // The read thread cannot be more than the pool's 10000 lines ahead when the
  // first command cuts the file to 80000 bytes, far behind that.
  const std::string content = "Version 3\nTruncate 80000\n" + repeat("Cmd\n", 40000);
  TempFile file(content);
  spinetest::truncateTarget() = file.path();
  TestParser parser;
  CapturingMessages messages;
  NullFileReaderProgress progress;
  EXPECT_EQ(FileReaderEngine(parser).execute(file.path(), messages, progress), -1);
  EXPECT_EQ(parser.completions, 0);
  ASSERT_FALSE(messages.written.empty());
  const std::string& text = messages.written.back().text;
  EXPECT_EQ(text.rfind("Read failed at line ", 0), 0u) << text;
  EXPECT_NE(text.find(": the file became shorter while it was read; the rest of the file is not loaded"),
            std::string::npos)
      << text;
}

TEST(EngineVersion, OnlyAVersionLineReadsCleanly) {
  EngineRun run("Version 24");
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.parser.populatedWith, std::vector<int>{24});
  EXPECT_EQ(run.parser.initializedWith.size(), 1u);
  EXPECT_EQ(run.parser.completions, 1);
  // The end item alone reports progress, still at 0.
  EXPECT_EQ(run.progress.values, std::vector<int>{0});
}

TEST(EngineVersion, AFirstCommandOtherThanVersionFails) {
  EngineRun run("\n# c\nRefLat 10\nVersion 3\n");
  EXPECT_EQ(run.result, -1);
  ASSERT_EQ(run.messages.written.size(), 1u);
  EXPECT_EQ(run.messages.written[0].text,
            "The Version command with a positive number > 1 argument must be the first command in an ASI file");
  EXPECT_EQ(run.messages.written[0].line, 3u);
  EXPECT_TRUE(run.parser.populatedWith.empty());
  EXPECT_EQ(EngineRun("Version\n").result, -1);
  EXPECT_EQ(EngineRun("Version 3 4\n").result, -1);
}

TEST(EngineVersion, TheNumberMustBeUnsigned) {
  for (const char* line : {"Version x\n", "Version -3\n", "Version 3.0\n", "Version +3\n"}) {
    EngineRun run(line);
    EXPECT_EQ(run.result, -1) << line;
    ASSERT_EQ(run.messages.written.size(), 1u) << line;
    EXPECT_EQ(run.messages.written[0].text, "Expecting a positive number > 1 argument for the Version command");
  }
}

TEST(EngineVersion, ZeroAndOneAreRefused) {
  for (const char* line : {"Version 0\n", "version 1\n"}) {
    EngineRun run(line);
    EXPECT_EQ(run.result, -1);
    ASSERT_EQ(run.messages.written.size(), 1u);
    EXPECT_EQ(run.messages.written[0].text, "Expecting a number between 2 and 24 for the Version command");
  }
}

TEST(EngineVersion, AboveTwentyFourWarnsAndKeepsTheFilesNumber) {
  EngineRun run("VERSION 25\nCmd\n");
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.parser.populatedWith, std::vector<int>{25});
  ASSERT_EQ(run.messages.written.size(), 1u);
  EXPECT_EQ(run.messages.written[0].severity, 3);
  EXPECT_EQ(run.messages.written[0].text,
            "Version number of 25 higher than supported version of 24. Will read as version 24");
  EXPECT_EQ(EngineRun("Version 2\n").parser.populatedWith, std::vector<int>{2});
}

TEST(EngineVersion, NoVersionBeforeTheEndFails) {
  for (const std::string& content : {std::string(""), std::string("# only a comment\n\n\n")}) {
    EngineRun run(content);
    EXPECT_EQ(run.result, -1);
    ASSERT_EQ(run.messages.written.size(), 1u);
    EXPECT_EQ(run.messages.written[0].text, "Did not find required Version command");
  }
  EXPECT_EQ(EngineRun("# a\n\n\n").messages.written[0].line, 3u);
}

TEST(EngineProgress, ReportsAtMostOncePerWholePercentAndAtTheEnd) {
  EngineRun run("Version 3\n" + repeat("Cmd 1 2 3 4 5 6 7 8\n", 5000));
  EXPECT_EQ(run.result, 0);
  const std::vector<int>& values = run.progress.values;
  ASSERT_GE(values.size(), 90u);
  EXPECT_LE(values.size(), 101u);
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(values[i] % 10, 0);
    if (i > 0 && i + 1 < values.size()) {
      EXPECT_GT(values[i], values[i - 1]);
    }
  }
  EXPECT_EQ(values[values.size() - 2], 1000);
  EXPECT_EQ(run.progress.events, static_cast<int>(values.size()));
}

TEST(EngineProgress, EachLineCountsWithALineFeedEvenTheLastWithout) {
  // 10 + 6 bytes of 21 are 76%; the last line counts 5 + 1 bytes, 104%. The
  // end item is a fresh one, which still says 0.
  EngineRun run("Version 3\nCmd a\nCmd b");
  EXPECT_EQ(run.result, 0);
  EXPECT_EQ(run.progress.values, (std::vector<int>{760, 1040, 0}));
}

TEST(EngineCancel, CancelOnTheLastItemGivesOneWithoutCompletion) {
  // Only the end item reports progress in a file this small.
  EngineRun run("Version 3\nCmd\nfoo\n", 1);
  EXPECT_EQ(run.result, 1);
  EXPECT_EQ(run.parser.journal.executed.size(), 1u);
  EXPECT_EQ(run.parser.completions, 0);
  EXPECT_TRUE(run.messages.wrote("File loading canceled by user"));
  EXPECT_EQ(run.messages.written.back().severity, 5);
  // The unsupported report comes also after a cancel, before the cancel notice.
  EXPECT_TRUE(run.messages.wrote("Command \"foo\" appeared 1 times"));
}

TEST(EngineCancel, CancelMidwayDropsTheRest) {
  EngineRun run("Version 3\n" + repeat("Cmd\n", 20000), 3);
  EXPECT_EQ(run.result, 1);
  EXPECT_LT(run.parser.journal.executed.size(), 20000u);
  EXPECT_EQ(run.progress.canceledCalls, 3);
  EXPECT_EQ(run.parser.completions, 0);
}

TEST(EnginePool, TheReadThreadStaysWithinTheItemPool) {
  spinetest::ScriptedCommand::peak() = spinetest::ScriptedCommand::live().load();
  const long before = spinetest::ScriptedCommand::live();
  {
    // The first command keeps the calling thread busy while the file waits.
    EngineRun run("Version 3\nSlow 300\n" + repeat("Cmd\n", 25000));
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.parser.journal.executed.size(), 25001u);
  }
  // The table's seven prototypes plus one clone per item at most.
  const long clones = spinetest::ScriptedCommand::peak() - before - 7;
  EXPECT_LE(clones, static_cast<long>(FileReaderEngine::POOL_SIZE));
  EXPECT_GT(clones, 1000);
  // Every clone is freed by the end of the read.
  EXPECT_EQ(spinetest::ScriptedCommand::live(), before);
}
