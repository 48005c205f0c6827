// The two-half progress dialog of a side-format load, as the host sees it.
#include "document/ProgressPrinter.h"

#include <gtest/gtest.h>

#include "host/ReferenceHost.h"

namespace {

class Progress : public ::testing::Test {
 protected:
  void SetUp() override { host.install(); }
  void TearDown() override { host.uninstall(); }
  const RefHost::ProgressDialogState& dialog() const { return host.progressDialogs().back(); }
  RefHost::ReferenceHost host{quiet()};
  static RefHost::HostConfig quiet() {
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    return config;
  }
};

TEST_F(Progress, ReadingFillsTheFirstHalfAndSendingTheSecond) {
  ASIPlugin::ProgressPrinter printer("/data/run 7/track.gpx");
  ASSERT_EQ(host.progressDialogs().size(), 1u);
  EXPECT_EQ(dialog().title, "Reading File");
  EXPECT_EQ(dialog().label, "Reading file track.gpx.  Please wait...");
  EXPECT_EQ(dialog().maximum, 1000);
  EXPECT_TRUE(dialog().cancelButton);

  printer.updateProgress(40);
  EXPECT_EQ(printer.value(), 200);
  printer.updateProgress(-1);  // only asks
  EXPECT_EQ(printer.value(), 200);
  printer.updateProgress(250);
  EXPECT_EQ(printer.value(), 500);
  EXPECT_EQ(dialog().label, "Loading scenario data in track.gpx...");

  printer.setTransmitCount(4);
  printer.incrementTransmits();
  EXPECT_EQ(printer.value(), 625);
  for (int i = 0; i < 3; ++i) printer.incrementTransmits();
  EXPECT_EQ(printer.value(), 1000);
  EXPECT_EQ(dialog().value, 1000);  // the end always reaches the dialog
}

TEST_F(Progress, NothingToSendStaysAtHalf) {
  ASIPlugin::ProgressPrinter printer("a.csv");
  printer.setTransmitCount(0);
  printer.incrementTransmits();
  printer.incrementTransmits();
  EXPECT_EQ(printer.value(), 500);
}

TEST_F(Progress, ManyQuickUpdatesBarelyTouchTheDialog) {
  ASIPlugin::ProgressPrinter printer("big.csv");
  const uint64_t before = host.requestCount();
  printer.setTransmitCount(100000);
  for (int i = 0; i < 99999; ++i) printer.incrementTransmits();
  // Each step asks for a cancel (two requests: the door's context query and
  // the question); dialog changes come at most every 0.1 seconds on top.
  const uint64_t requests = host.requestCount() - before;
  EXPECT_LT(requests, 2 * 99999u + 2000u);
  EXPECT_LT(dialog().value, 1000);
}

}  // namespace
