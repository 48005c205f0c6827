#pragma once
// A reference host installed as the client's function map for one test.

#include <gtest/gtest.h>

#include <memory>

#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"

class HostTest : public ::testing::Test {
 protected:
  void SetUp() override { start(RefHost::HostConfig()); }
  void TearDown() override { host.reset(); }

  // Replaces the host by one with `config` (quiet: no console, no bar).
  void start(RefHost::HostConfig config) {
    host.reset();
    config.echoConsole = false;
    config.progressBar = false;
    host = std::make_unique<RefHost::ReferenceHost>(config);
    host->install();
  }

  static PIData::PIPlatformPoint platformPoint(double time, double x = 0.0) {
    PIData::PIPlatformPoint p;
    p.time = time;
    p.x = x;
    p.y = 2.0;
    p.z = 3.0;
    return p;
  }

  // Starts a scenario and makes a platform.
  uint64_t scenarioWithPlatform(const std::string& name = "ship", uint64_t originalId = 0) {
    PIData::initializeScenario("test.asi", 0, PIData::PI_PROTOCOL_NONE, false);
    PIData::PIPlatformHeader header;
    header.name = name;
    header.iconName = "ship.png";
    header.originalId = originalId;
    return PIData::createPlatform(header, platformPoint(0.0));
  }

  uint64_t beamOn(uint64_t platform, const std::string& name = "radar") {
    PIData::PIBeamHeader header;
    header.name = name;
    return PIData::createBeam(platform, header, nullptr, true);
  }

  std::unique_ptr<RefHost::ReferenceHost> host;
};
