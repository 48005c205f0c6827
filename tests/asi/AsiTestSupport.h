#pragma once
// Shared by the asi tests: a message manager that keeps what it is given, a
// fixture that installs the reference host in-process, and small command
// classes that stand for the command families (a creating data command, a
// timed command, a deferring command).

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "asi/PlatformParser.h"
#include "asi/Resolver.h"
#include "asi/ScenarioEntity.h"
#include "asi/host/AsiParser.h"
#include "asi/host/ScenarioProvider.h"
#include "asi/host/TransmitSkeleton.h"
#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"
#include "pipeline/FileReaderEngine.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/MessageManager.h"

namespace AsiTest {

struct Message {
  int severity;
  std::string text;
  unsigned long line;
};

class CapturingMessageManager : public FileReaderPlugin::MessageManager {
 public:
  std::vector<Message> messages;

  std::vector<std::string> texts() const {
    std::vector<std::string> out;
    for (const auto& m : messages) out.push_back(m.text);
    return out;
  }

 protected:
  void writeMessage_(PICommon::NotifySeverity severity, const std::string& text, unsigned long line) override {
    messages.push_back({static_cast<int>(severity), text, line});
  }
};

// Every command of these tests appends "<keyword> <line>" here when its host
// step runs, so that the order of execution can be checked.
inline std::vector<std::string>& executionLog() {
  static std::vector<std::string> log;
  return log;
}

// Stands for PlatformData: "TestData <id> <time>". The first one that runs
// creates the platform in the host, releases what waited, then adds its point.
class TestData : public AsiInterface::PlatformParser {
 public:
  explicit TestData(std::shared_ptr<AsiInterface::ScenarioProvider> provider)
      : PlatformParser("TestData", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return new TestData(*this); }

  void executeStage1(const std::vector<std::string>& tokens) override {
    if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
    if (parseTime_(tokens[2], true, time_) != 0) return;
    getPlatform_(tokens[1], id_);
  }

  void transmit() override {
    if (AsiReader::TransmitSkeleton::guard(*this)) return;
    auto* platform = provider_->getPlatformEntity(id_);
    if (platform == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, "Internal Error: missing entity");
    if (!AsiReader::TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
    PIData::PIPlatformPoint point;
    point.time = time_;
    if (!platform->doesExist()) {
      PIData::PIPlatformHeader header;
      header.name = platform->name();
      header.originalId = platform->originalId();
      uint64_t uniqueId = provider_->resolver() ? provider_->resolver()->getPlatformId(id_, header) : 0;
      if (uniqueId != 0) {
        platform->setUniqueId(uniqueId);
        platform->setMerging(true);
        provider_->transmitCommands(id_);
      } else {
        uniqueId = PIData::createPlatform(header, point);
        if (uniqueId == 0) return setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create platform");
        platform->setUniqueId(uniqueId);
        executionLog().push_back("create " + std::to_string(lineNumber()));
        provider_->transmitCommands(id_);
        if (provider_->resolver()) provider_->resolver()->setPlatformId(id_, header, uniqueId);
        if (time_ != -1.0) provider_->setHaveNonStaticIndependent();
        return;
      }
    }
    PIData::addDataPoint(platform->uniqueId(), point);
    executionLog().push_back("data " + std::to_string(lineNumber()));
  }

 private:
  uint64_t id_ = 0;
  double time_ = 0.0;
};

// Stands for a time-tagged command such as a colour: "TestColor <id> <time>
// [fail|warn]". With "fail" its host step ends in an error, with "warn" it
// warns and still sends.
class TestColor : public AsiInterface::PlatformParser {
 public:
  explicit TestColor(std::shared_ptr<AsiInterface::ScenarioProvider> provider)
      : PlatformParser("TestColor", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return new TestColor(*this); }

  void executeStage1(const std::vector<std::string>& tokens) override {
    if (validateRangeTokens_(3, 4, tokens.size()) != 0) return;
    if (parseTime_(tokens[2], true, time_) != 0) return;
    mode_ = tokens.size() == 4 ? tokens[3] : "";
    // Parsed by hand: the command may stand before the ID line of its platform.
    parseId_(tokens[1], id_, "Expecting positive number for the Platform ID");
  }

  void transmit() override {
    auto* platform = provider_->getEntity(id_);
    if (!AsiReader::TransmitSkeleton::timed(*this, *provider_, platform, time_)) return;
    if (mode_ == "fail") return setMessage(PICommon::PI_NOTIFY_ERROR, "deferred failure");
    if (mode_ == "warn") setMessage(PICommon::PI_NOTIFY_WARN, "deferred warning");
    PIData::setColor(platform->uniqueId(), 0x112233FF, time_);
    executionLog().push_back("color " + std::to_string(lineNumber()));
  }

 private:
  uint64_t id_ = 0;
  double time_ = 0.0;
  std::string mode_;
};

// Parks under any id, also one never defined: "TestPark <id>".
class TestPark : public AsiInterface::ProviderParser {
 public:
  explicit TestPark(std::shared_ptr<AsiInterface::ScenarioProvider> provider)
      : ProviderParser("TestPark", std::move(provider)) {}
  FileReaderPlugin::CommandParser* clone() const override { return new TestPark(*this); }
  void executeStage1(const std::vector<std::string>& tokens) override {
    if (validateNumberOfTokens_(2, tokens.size()) == 0) parseId_(tokens[1], id_, "Invalid ID");
  }
  void transmit() override {
    if (AsiReader::TransmitSkeleton::guard(*this)) return;
    Entity* entity = provider_->getEntity(id_);
    if (entity == nullptr || !entity->doesExist()) return provider_->addCommand(id_, clone());
    executionLog().push_back("park " + std::to_string(lineNumber()));
  }

 private:
  using Entity = AsiInterface::Entity;
  uint64_t id_ = 0;
};

// The reference host installed in-process, a provider on it, and a way to
// run lines as the engine does: clone, line number, message manager, stage
// 1, transmit.
class AsiFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    host_ = std::make_unique<RefHost::ReferenceHost>(hostConfig());
    host_->install();
    PIData::initializeScenario("test", 0, PIData::PI_PROTOCOL_NONE, false);
    executionLog().clear();
  }
  void TearDown() override {
    // Parked commands hold the provider: the end of a read breaks the cycle.
    if (provider_) provider_->clear();
    provider_.reset();
    host_->uninstall();
  }

  virtual RefHost::HostConfig hostConfig() const {
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    return config;
  }

  // A provider whose frame is complete, so that the scenario can flush.
  std::shared_ptr<AsiReader::ScenarioProvider> makeProvider(int version = 24) {
    provider_ = std::make_shared<AsiReader::ScenarioProvider>(version, PICommon::PI_HOST_ORVIDE);
    auto* scenario = new AsiInterface::ScenarioEntity();
    scenario->setUniqueId(0);
    provider_->addEntity(0, scenario);
    PIData::PICoordReferenceFrame frame;
    provider_->referenceFrame(frame);
    frame.latitude = 0.5;
    frame.longitude = -1.2;
    provider_->setReferenceFrame(frame);
    provider_->setCoordSystem(PIData::PI_COORD_LLA);
    return provider_;
  }

  // Declares a platform as its ID command would.
  void declarePlatform(uint64_t id, const std::string& name) {
    auto* platform = provider_->createPlatformEntity(PIData::PI_DEFAULT_REFFRAME);
    platform->setName(name);
    ASSERT_EQ(0, provider_->addEntity(id, platform));
  }

  // Runs one line through a clone of `prototype`.
  void run(const FileReaderPlugin::CommandParser& prototype, unsigned long line, const std::vector<std::string>& tokens) {
    std::unique_ptr<FileReaderPlugin::CommandParser> command(prototype.clone());
    command->setLineNumber(line);
    command->setMessageManager(&messages_);
    command->executeStage1(tokens);
    command->transmit();
  }

  std::unique_ptr<RefHost::ReferenceHost> host_;
  std::shared_ptr<AsiReader::ScenarioProvider> provider_;
  CapturingMessageManager messages_;
};

// Whole files through the read engine, each by a parser of its own that lives
// to the end of the test.
class AsiFileFixture : public AsiFixture {
 protected:
  void TearDown() override {
    // Commands parked in a provider keep it alive: each read is cleared.
    for (auto& parser : parsers_)
      if (parser->provider()) parser->provider()->clear();
    parsers_.clear();
    AsiFixture::TearDown();
  }

  int read(const std::string& name, const std::string& text, AsiInterface::Resolver& resolver, bool append = false) {
    const std::string path = ::testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << text;
    parsers_.push_back(std::make_unique<AsiReader::AsiParser>(PICommon::PI_HOST_ORVIDE));
    AsiReader::AsiParser& parser = *parsers_.back();
    parser.setAppend(append);
    parser.setResolver(&resolver);
    FileReaderPlugin::NullFileReaderProgress progress;
    // A manager per read, so that each result counts its own errors.
    CapturingMessageManager messages;
    const int result = FileReaderPlugin::FileReaderEngine(parser).execute(path, messages, progress);
    messages_.messages.insert(messages_.messages.end(), messages.messages.begin(), messages.messages.end());
    return result;
  }

  std::vector<std::unique_ptr<AsiReader::AsiParser>> parsers_;
};

}  // namespace AsiTest
