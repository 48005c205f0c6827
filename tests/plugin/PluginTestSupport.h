#pragma once
// A quiet reference host installed for one test, with its request trace kept
// so that tests can count what the plug-in asked of the host.

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "host/ReferenceHost.h"

class PluginHostTest : public ::testing::Test {
 protected:
  void TearDown() override {
    if (host) host->uninstall();
    host.reset();
  }

  RefHost::ReferenceHost& start(RefHost::HostConfig config = RefHost::HostConfig()) {
    if (host) host->uninstall();
    config.echoConsole = false;
    config.progressBar = false;
    host = std::make_unique<RefHost::ReferenceHost>(config);
    trace.str("");
    host->setTraceStream(&trace);
    host->install();
    return *host;
  }

  // How many requests named `op` the host has served so far.
  int requests(const std::string& op) const {
    const std::string needle = "\"op\":\"" + op + "\"";
    int count = 0;
    const std::string text = trace.str();
    for (auto at = text.find(needle); at != std::string::npos; at = text.find(needle, at + 1)) ++count;
    return count;
  }

  bool notified(const std::string& text) const {
    for (const auto& n : host->notifications())
      if (n.text.find(text) != std::string::npos) return true;
    return false;
  }

  static std::string data(const std::string& name) { return std::string(ORV_TEST_DATA_DIR) + "/" + name; }

  std::unique_ptr<RefHost::ReferenceHost> host;
  std::ostringstream trace;
};
