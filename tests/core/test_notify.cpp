#include "core/Notify.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

class CaptureHandler : public orvNotify::NotifyHandler {
 public:
  void notify(const std::string& text) override { received.push_back(text); }
  std::vector<std::string> received;
};

class NotifyTest : public ::testing::Test {
 protected:
  void SetUp() override {
    previous_ = orvNotify::notifyHandler(orvNotify::ERROR_LEVEL);
    capture_ = std::make_shared<CaptureHandler>();
    orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, capture_);
  }
  void TearDown() override {
    orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, previous_);
    orvNotify::setNotifyLevel(orvNotify::INFO);
  }
  std::shared_ptr<orvNotify::NotifyHandler> previous_;
  std::shared_ptr<CaptureHandler> capture_;
};

TEST_F(NotifyTest, ErrorMessagesCarryTheErrorPrefix) {
  orvNotify::notify(orvNotify::ERROR_LEVEL, "bad origin\n");
  ASSERT_EQ(capture_->received.size(), 1u);
  EXPECT_EQ(capture_->received[0], "ERROR:  bad origin\n");
}

TEST_F(NotifyTest, StreamedPiecesArriveAsOneMessage) {
  orvNotify::notify(orvNotify::ERROR_LEVEL) << "value " << 42 << " out of range" << std::endl;
  ASSERT_EQ(capture_->received.size(), 1u);
  EXPECT_EQ(capture_->received[0], "ERROR:  value 42 out of range\n");
}

TEST_F(NotifyTest, HandlersArePerSeverityAndRestorable) {
  orvNotify::notify(orvNotify::WARN, "to the default warning handler\n");
  EXPECT_TRUE(capture_->received.empty());
  EXPECT_EQ(orvNotify::notifyHandler(orvNotify::ERROR_LEVEL), capture_);
  EXPECT_EQ(capture_->severity(), orvNotify::ERROR_LEVEL);

  orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, nullptr);
  auto restored = orvNotify::notifyHandler(orvNotify::ERROR_LEVEL);
  ASSERT_NE(restored, nullptr);
  EXPECT_NE(restored, capture_);
  EXPECT_EQ(restored->notifyPrefix(), "ERROR:  ");
}

TEST_F(NotifyTest, LevelFiltersLessSevereMessages) {
  orvNotify::setNotifyLevel(orvNotify::FATAL);
  EXPECT_FALSE(orvNotify::isNotifyEnabled(orvNotify::ERROR_LEVEL));
  orvNotify::notify(orvNotify::ERROR_LEVEL, "hidden\n");
  EXPECT_TRUE(capture_->received.empty());
  orvNotify::setNotifyLevel(orvNotify::INFO);
  EXPECT_TRUE(orvNotify::isNotifyEnabled(orvNotify::ERROR_LEVEL));
  EXPECT_TRUE(orvNotify::isNotifyEnabled(orvNotify::INFO));
  EXPECT_FALSE(orvNotify::isNotifyEnabled(orvNotify::DEBUG_INFO));
}

}  // namespace
