// Counting, the cap of 500 written messages and its notice.

#include <gtest/gtest.h>

#include "SpineTestSupport.h"

using spinetest::CapturingMessages;

namespace {
const char NOTICE[] = "Maximum messages logged; any remaining messages are ignored.";

PICommon::NotifySeverity sev(int value) { return static_cast<PICommon::NotifySeverity>(value); }
}  // namespace

TEST(MessageCounting, EachSeverityHasItsCounter) {
  CapturingMessages m;
  EXPECT_EQ(m.numberOfMessages(), 0u);
  m.addMessage(PICommon::PI_NOTIFY_ERROR, "e", 3);
  m.addMessage(PICommon::PI_NOTIFY_WARN, "w", 4);
  m.addMessage(PICommon::PI_NOTIFY_WARN, "w2", 4);
  m.addMessage(PICommon::PI_NOTIFY_INFO, "i", 0);
  EXPECT_EQ(m.numberOfErrors(), 1u);
  EXPECT_EQ(m.numberOfWarnings(), 2u);
  EXPECT_EQ(m.numberOfInfos(), 1u);
  EXPECT_EQ(m.numberOfMessages(), 4u);
  EXPECT_FALSE(m.hasFatalError());
  ASSERT_EQ(m.written.size(), 4u);
  EXPECT_EQ(m.written[0].severity, 2);
  EXPECT_EQ(m.written[0].text, "e");
  EXPECT_EQ(m.written[0].line, 3u);
}

TEST(MessageCounting, FatalCountsAsAnErrorAndLatches) {
  CapturingMessages m;
  m.addMessage(PICommon::PI_NOTIFY_FATAL, "f", 1);
  EXPECT_TRUE(m.hasFatalError());
  EXPECT_EQ(m.numberOfErrors(), 1u);
  m.addMessage(PICommon::PI_NOTIFY_INFO, "i", 0);
  EXPECT_TRUE(m.hasFatalError());
}

TEST(MessageCounting, OtherSeveritiesAreWrittenButNotCounted) {
  CapturingMessages m;
  m.addMessage(PICommon::PI_NOTIFY_NOTICE, "n", 0);
  m.addMessage(sev(0), "always", 0);
  m.addMessage(sev(6), "debug", 0);
  m.addMessage(sev(42), "odd", 0);
  EXPECT_EQ(m.numberOfMessages(), 0u);
  EXPECT_EQ(m.written.size(), 4u);
}

TEST(MessageCap, TheFiveHundredthIsWrittenThenTheNotice) {
  CapturingMessages m;
  for (int i = 0; i < 499; ++i) m.addMessage(PICommon::PI_NOTIFY_WARN, "w", 1);
  EXPECT_FALSE(m.wrote(NOTICE));
  m.addMessage(PICommon::PI_NOTIFY_INFO, "five hundred", 1);
  ASSERT_EQ(m.written.size(), 501u);
  EXPECT_EQ(m.written[499].text, "five hundred");
  EXPECT_EQ(m.written[500].text, NOTICE);
  EXPECT_EQ(m.written[500].severity, 2);
  EXPECT_EQ(m.written[500].line, 0u);
  // The notice itself is not counted.
  EXPECT_EQ(m.numberOfMessages(), 500u);
}

TEST(MessageCap, MessagesPastTheCapAreCountedNotWritten) {
  CapturingMessages m;
  for (int i = 0; i < 500; ++i) m.addMessage(PICommon::PI_NOTIFY_WARN, "w", 1);
  const std::size_t written = m.written.size();
  m.addMessage(PICommon::PI_NOTIFY_ERROR, "501st", 7);
  m.addMessage(PICommon::PI_NOTIFY_INFO, "502nd", 7);
  EXPECT_EQ(m.written.size(), written);
  EXPECT_EQ(m.numberOfErrors(), 1u);
  EXPECT_EQ(m.numberOfMessages(), 502u);
}

TEST(MessageCap, FatalMessagesAreAlwaysWritten) {
  CapturingMessages m;
  for (int i = 0; i < 600; ++i) m.addMessage(PICommon::PI_NOTIFY_ERROR, "e", 1);
  m.addMessage(PICommon::PI_NOTIFY_FATAL, "late fatal", 9);
  EXPECT_EQ(m.written.back().text, "late fatal");
  EXPECT_EQ(m.written.back().severity, 1);
  EXPECT_TRUE(m.hasFatalError());
  EXPECT_EQ(m.numberOfErrors(), 601u);
}

TEST(MessageCap, UncountedSeverityAtTheCapRepeatsTheNotice) {
  CapturingMessages m;
  for (int i = 0; i < 500; ++i) m.addMessage(PICommon::PI_NOTIFY_INFO, "i", 0);
  // Severity 4 passes the cap test (not written at 500) and repeats the notice.
  m.addMessage(PICommon::PI_NOTIFY_NOTICE, "notice", 0);
  ASSERT_EQ(m.written.size(), 502u);
  EXPECT_EQ(m.written[500].text, NOTICE);
  EXPECT_EQ(m.written[501].text, NOTICE);
  // One more counted message moves past 500: no further notice.
  m.addMessage(PICommon::PI_NOTIFY_INFO, "i", 0);
  EXPECT_EQ(m.written.size(), 502u);
}

TEST(MessageCap, AFatalMessageThatReachesTheCapBringsTheNotice) {
  CapturingMessages m;
  for (int i = 0; i < 499; ++i) m.addMessage(PICommon::PI_NOTIFY_INFO, "i", 0);
  m.addMessage(PICommon::PI_NOTIFY_FATAL, "f", 0);
  ASSERT_EQ(m.written.size(), 501u);
  EXPECT_EQ(m.written[500].text, NOTICE);
}

// A message may quote a file's text, which can be of any length.
TEST(MessageLength, TextsBeyondTwoThousandCharactersAreCutWithTheCountLeftOut) {
  CapturingMessages m;
  m.addMessage(PICommon::PI_NOTIFY_ERROR, std::string(2000, 'a'), 1);
  m.addMessage(PICommon::PI_NOTIFY_WARN, std::string(2000, 'b') + "tail", 2);
  m.addMessage(PICommon::PI_NOTIFY_FATAL, std::string(1000000, 'c'), 3);
  ASSERT_EQ(m.written.size(), 3u);
  EXPECT_EQ(m.written[0].text, std::string(2000, 'a'));
  EXPECT_EQ(m.written[1].text, std::string(2000, 'b') + "... (4 more characters)");
  EXPECT_EQ(m.written[2].text, std::string(2000, 'c') + "... (998000 more characters)");
  EXPECT_EQ(m.written[2].line, 3u);
  EXPECT_EQ(m.numberOfErrors(), 2u);
}
