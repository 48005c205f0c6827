#pragma once
// Shared by the scenario-command tests: whole ASI files run through the read
// engine and the real keyword table against the reference host in-process.
// Two stand-in keywords create the platforms the data needs, so that these
// tests do not depend on the platform family: "TestID <id> <name>" declares a
// platform and flushes the scenario as an ID command does, and "TestData <id>
// <time>" (from AsiTestSupport.h) creates it in the host.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "AsiTestSupport.h"
#include "asi/PlatformEntity.h"
#include "asi/host/AsiParser.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/FileReaderProgress.h"

namespace ScnTest {

class TestId : public AsiInterface::ProviderParser {
 public:
  explicit TestId(std::shared_ptr<AsiInterface::ScenarioProvider> provider)
      : ProviderParser("TestID", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return new TestId(*this); }

  void executeStage1(const std::vector<std::string>& tokens) override {
    if (validateNumberOfTokens_(3, tokens.size()) != 0 || !parseId_(tokens[1], id_, "bad id")) return;
    PIData::PICoordReferenceFrame frame;
    provider_->referenceFrame(frame);
    AsiInterface::PlatformEntity* platform = provider_->createPlatformEntity(frame);
    platform->setName(tokens[2]);
    if (provider_->addEntity(id_, platform) != 0) {
      delete platform;
      setMessage(PICommon::PI_NOTIFY_ERROR, "taken");
    }
  }
  void transmit() override {
    std::string message;
    if (provider_->flushScenarioCommands(message) != 0) setMessage(PICommon::PI_NOTIFY_ERROR, message, 0);
  }

 private:
  uint64_t id_ = 0;
};

// The real table plus the stand-ins.
class TestParser : public AsiReader::AsiParser {
 public:
  explicit TestParser(PICommon::PIApplicationHost_t host) : AsiParser(host) {}
  void populateCommands(int version) override {
    AsiParser::populateCommands(version);
    replaceCommand_(new TestId(provider()));
    replaceCommand_(new AsiTest::TestData(provider()));
  }
  FileReaderPlugin::CommandParser* command(const std::string& keyword) const { return findCommand_(keyword); }
};

// One decoded generic-data or category record of the reference host.
struct GenericRecord {
  double time;
  double expiration;
  std::string tag;
  std::string value;
};
struct CategoryRecord {
  double time;
  std::string name;
  std::string value;
};

class ScnFixture : public AsiTest::AsiFixture {
 protected:
  void SetUp() override {
    AsiFixture::SetUp();
    dir_ = std::filesystem::temp_directory_path() /
           ("scn_cmd_" + std::to_string(getpid()) + "_" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override {
    // Commands still parked at the end hold the provider: free them.
    if (parser_ && parser_->provider()) parser_->provider()->clear();
    parser_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
    AsiFixture::TearDown();
  }

  RefHost::HostConfig hostConfig() const override {
    RefHost::HostConfig config = AsiFixture::hostConfig();
    config.application = plot_ ? RefHost::Application::Plot : RefHost::Application::Display;
    config.locateDir = locateDir_;
    return config;
  }

  // Writes `name` into the test's folder; answers its path.
  std::string writeFile(const std::string& name, const std::string& text) {
    const std::string path = (dir_ / name).string();
    std::ofstream(path) << text;
    return path;
  }

  // The standard opening: a complete frame, platform 1 "ship" with data at 0.
  static std::string header(int version = 24) {
    return "Version " + std::to_string(version) + "\nCoordSystem LLA\nRefLLA 10 20 30\n";
  }
  static std::string ship() { return "TestID 1 ship\nTestData 1 0\n"; }

  // Runs `text` as a whole file with a fresh message manager; answers the
  // load result.
  int runFile(const std::string& text, bool append = false, AsiInterface::Resolver* resolver = nullptr) {
    if (parser_ && parser_->provider()) parser_->provider()->clear();
    messages_ = AsiTest::CapturingMessageManager();
    parser_ = std::make_unique<TestParser>(PICommon::getApplicationId());
    parser_->setAppend(append);
    parser_->setResolver(resolver);
    FileReaderPlugin::FileReaderEngine engine(*parser_);
    FileReaderPlugin::NullFileReaderProgress progress;
    return engine.execute(writeFile("run.asi", text), messages_, progress);
  }

  AsiInterface::ScenarioProvider& provider() { return *parser_->provider(); }
  // The severity of each message so far: 2 error, 3 warning.
  std::vector<int> severities() const {
    std::vector<int> out;
    for (const auto& m : messages_.messages) out.push_back(m.severity);
    return out;
  }
  uint64_t hostId(uint64_t asiId) { return provider().getEntity(asiId)->uniqueId(); }

  std::vector<GenericRecord> generic(uint64_t id) const {
    std::vector<GenericRecord> out;
    const RefHost::HostScenario& s = host_->scenario();
    const RefHost::HostObject* owner = id == 0 ? &s.scenarioObject() : s.find(id);
    if (owner == nullptr) return out;
    const RefHost::Series& series = owner->data(RefHost::SERIES_GENERIC);
    for (size_t i = 0; i < series.count(); ++i) {
      const double* r = series.record(i);
      out.push_back({r[0], r[1], s.strings().at(static_cast<uint32_t>(r[2])), s.strings().at(static_cast<uint32_t>(r[3]))});
    }
    return out;
  }

  std::vector<CategoryRecord> categories(uint64_t id) const {
    std::vector<CategoryRecord> out;
    const RefHost::HostScenario& s = host_->scenario();
    const RefHost::HostObject* owner = id == 0 ? &s.scenarioObject() : s.find(id);
    if (owner == nullptr) return out;
    const RefHost::Series& series = owner->data(RefHost::SERIES_CATEGORY);
    for (size_t i = 0; i < series.count(); ++i) {
      const double* r = series.record(i);
      out.push_back({r[0], s.strings().at(static_cast<uint32_t>(r[1])), s.strings().at(static_cast<uint32_t>(r[2]))});
    }
    return out;
  }

  // "op file" of each display load, in order.
  std::vector<std::string> loads() const {
    std::vector<std::string> out;
    for (const auto& load : host_->displayLoads()) {
      std::string text = load.at("op").get<std::string>();
      if (load.contains("file")) text += " " + std::filesystem::path(load.at("file").get<std::string>()).filename().string();
      out.push_back(text);
    }
    return out;
  }

  bool plot_ = false;
  std::string locateDir_;
  std::filesystem::path dir_;
  std::unique_ptr<TestParser> parser_;
};

}  // namespace ScnTest
