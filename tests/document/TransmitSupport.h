#pragma once
// A reference host installed in-process for AsiScenarioFile, with a private
// folder for the files it reads and helpers to build documents in code.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "document/AsiScenarioFile.h"
#include "host/ReferenceHost.h"

namespace transmit {

namespace fs = std::filesystem;

inline double rad(double degrees) { return degrees * M_PI / 180.0; }

// A platform with time-tagged states along a meridian (degrees north per state).
inline PlatformUD* addPlatform(ScenarioUD& s, uint64_t id, const std::string& name, uint64_t originalId,
                               const std::vector<std::pair<double, double>>& timeAndLat) {
  auto* p = new PlatformUD(&s, std::make_unique<PlatformHeaderUD>());
  p->SetUniqueID(id);
  p->SetOriginalID(originalId);
  p->SetDesc(name);
  if (p->AddToScenario(&s) != 0) {
    delete p;
    return nullptr;
  }
  for (const auto& state : timeAndLat) {
    const double lla[3] = {rad(state.second), rad(-1.0), 100.0};
    p->AddState(state.first, lla, nullptr, nullptr);
  }
  return p;
}

class HostFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    work = fs::temp_directory_path() / ("transmit-" + std::to_string(::getpid()) + "-" +
                                        ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(work);
    fs::create_directories(work);
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    host = std::make_unique<RefHost::ReferenceHost>(config);
    host->install();
  }
  void TearDown() override {
    host->uninstall();
    fs::remove_all(work);
  }

  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(work / name) << text;
    return (work / name).string();
  }

  nlohmann::json objects(const std::string& kind) const {
    nlohmann::json out = nlohmann::json::array();
    const nlohmann::json dump = host->toJson();
    for (const auto& o : dump["objects"])
      if (o["kind"] == kind) out.push_back(o);
    return out;
  }

  bool told(const std::string& text, int severity) const {
    for (const auto& n : host->notifications())
      if (n.severity == severity && n.text.find(text) != std::string::npos) return true;
    return false;
  }

  fs::path work;
  std::unique_ptr<RefHost::ReferenceHost> host;
};

}  // namespace transmit
