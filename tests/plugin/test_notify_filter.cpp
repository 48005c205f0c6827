// The error handler that a load installs: whole lines pass to the handler it
// replaced, the lines of time exceptions are dropped, pieces wait for their end.
#include "plugin/NotifyFilterHandler.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class Recorder : public orvNotify::NotifyHandler {
 public:
  void notify(const std::string& text) override {
    texts.push_back(text);
    severities.push_back(severity());
  }
  std::vector<std::string> texts;
  std::vector<orvNotify::NotifySeverity> severities;
};

TEST(NotifyFilterHandler, TimeExceptionLineInTwoPiecesIsDroppedOnceWhole) {
  auto recorder = std::make_shared<Recorder>();
  FileReaderPlugin::NotifyFilterHandler filter(recorder);

  filter.notify("ERROR:  class orvCore::Time");
  EXPECT_TRUE(recorder->texts.empty());
  filter.notify("Exception : bad month 13\nERROR:  next");
  // The dropped line is gone; what follows its newline waits for its own end.
  EXPECT_TRUE(recorder->texts.empty());
  EXPECT_EQ(filter.pending(), "ERROR:  next");
  filter.notify(" line\n");
  ASSERT_EQ(recorder->texts.size(), 1u);
  EXPECT_EQ(recorder->texts[0], "ERROR:  next line\n");
  EXPECT_TRUE(filter.pending().empty());
}

TEST(NotifyFilterHandler, OtherLinesPassOneByOneAtErrorSeverity) {
  auto recorder = std::make_shared<Recorder>();
  recorder->setSeverity(orvNotify::INFO);
  FileReaderPlugin::NotifyFilterHandler filter(recorder);

  filter.notify("ERROR:  first\nERROR:  class orvCore::TimeException : x\nERROR:  class orvCore::Other : y\n");
  ASSERT_EQ(recorder->texts.size(), 2u);
  EXPECT_EQ(recorder->texts[0], "ERROR:  first\n");
  EXPECT_EQ(recorder->texts[1], "ERROR:  class orvCore::Other : y\n");
  EXPECT_EQ(recorder->severities[0], orvNotify::ERROR_LEVEL);
  // The prefix must stand at the start of the line to be dropped.
  filter.notify(" ERROR:  class orvCore::TimeException : z\n");
  EXPECT_EQ(recorder->texts.size(), 3u);
}

TEST(NotifyFilterHandler, WorksThroughOrvNotifyWhileInstalled) {
  auto recorder = std::make_shared<Recorder>();
  orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, std::make_shared<FileReaderPlugin::NotifyFilterHandler>(recorder));
  orvNotify::notify(orvNotify::ERROR_LEVEL) << "class orvCore::TimeException : " << "day 32\n";
  orvNotify::notify(orvNotify::ERROR_LEVEL) << "Unknown coordinate system\n";
  orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, nullptr);
  ASSERT_EQ(recorder->texts.size(), 1u);
  EXPECT_EQ(recorder->texts[0], "ERROR:  Unknown coordinate system\n");
}

}  // namespace
