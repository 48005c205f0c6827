// Fuzzes the beam and gate commands: the input is lines of ASI text, run in
// order through the platform, beam and gate families (clone, stage 1,
// transmit) over a provider whose scenario frame is complete, against the
// reference host, then the end-of-file checks. Nothing may fault; the host
// may not hold more points than there were data lines, nor a beam that is
// not on a platform or a gate that is not on a beam.
//
//   build-fuzz/fuzz/beamcmds_fuzz -dict=fuzz/beamcmds.dict CORPUS fuzz/beamcmds_seeds
//
// The first byte of an input is the control byte (see below); the seeds
// start with one.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "asi/ScenarioEntity.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/ScenarioProvider.h"
#include "core/StringUtils.h"
#include "host/ReferenceHost.h"
#include "hostapi/PIData.h"
#include "pipeline/AsiLine.h"
#include "pipeline/CommandParser.h"
#include "pipeline/MessageManager.h"

namespace {

class QuietMessages : public FileReaderPlugin::MessageManager {
 protected:
  void writeMessage_(PICommon::NotifySeverity, const std::string&, unsigned long) override {}
};

RefHost::ReferenceHost& host(bool plot) {
  static RefHost::ReferenceHost* instances[2] = {nullptr, nullptr};
  RefHost::ReferenceHost*& instance = instances[plot ? 1 : 0];
  if (instance == nullptr) {
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    config.application = plot ? RefHost::Application::Plot : RefHost::Application::Display;
    instance = new RefHost::ReferenceHost(config);
  }
  instance->install();
  return *instance;
}

// Lines that can add a point: platform, beam and gate data, and the target
// command that creates a target beam (whose point is dropped at once).
const std::set<std::string> DATA_KEYWORDS = {"platformdata", "beamdata",     "beamdatarae",    "gatedata",
                                             "bodygatedata", "targetgatedata", "gatedatarae", "beamtargetidcmd",
                                             "beamtargetcmd"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The first byte picks the version, whether angles are degrees, and the
  // host application.
  const std::uint8_t control = size > 0 ? data[0] : 0;
  const bool plot = (control & 0x40) != 0;
  RefHost::ReferenceHost& h = host(plot);
  PIData::deleteScenario();
  PIData::initializeScenario("fuzz", 0, PIData::PI_PROTOCOL_NONE, false);

  const int version = 2 + control % 23;
  auto provider = std::make_shared<AsiReader::ScenarioProvider>(
      version, plot ? PICommon::PI_HOST_KURVEX : PICommon::PI_HOST_ORVIDE);
  auto* scenario = new AsiInterface::ScenarioEntity();
  scenario->setUniqueId(0);
  provider->addEntity(0, scenario);
  PIData::PICoordReferenceFrame frame;
  provider->referenceFrame(frame);
  frame.latitude = 0.5;
  frame.longitude = -1.2;
  provider->setReferenceFrame(frame);
  provider->setCoordSystem(PIData::PI_COORD_LLA);
  provider->setIsDegrees((control & 0x80) != 0);

  std::map<std::string, std::unique_ptr<FileReaderPlugin::CommandParser>> table;
  {
    AsiReader::CommandList commands;
    AsiReader::addPlatformCommands(provider, version, commands);
    AsiReader::addBeamCommands(provider, version, commands);
    AsiReader::addGateCommands(provider, version, commands);
    for (auto* c : commands) table[orvCore::lowerCase(c->name())].reset(c);
  }

  QuietMessages messages;
  std::istringstream in(size > 0 ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : std::string());
  std::string line;
  std::vector<std::string> tokens;
  unsigned long number = 0;
  std::size_t dataLines = 0;
  while (std::getline(in, line)) {
    ++number;
    FileReaderPlugin::stripLineEnd(line);
    FileReaderPlugin::tokenizeAsiLine(line, tokens);
    if (tokens.empty()) continue;
    auto found = table.find(orvCore::lowerCase(tokens[0]));
    if (found == table.end()) continue;
    if (DATA_KEYWORDS.count(found->first) != 0) ++dataLines;
    std::unique_ptr<FileReaderPlugin::CommandParser> command(found->second->clone());
    command->setLineNumber(number);
    command->setMessageManager(&messages);
    command->executeStage1(tokens);
    command->transmit();
  }
  provider->didComplete(messages);
  provider->clear();

  std::size_t points = 0;
  for (const auto& object : h.scenario().objects()) {
    points += object->data(RefHost::SERIES_POINTS).count();
    const RefHost::HostObject* parent = h.scenario().find(object->parent);
    if (object->kind == RefHost::KIND_BEAM && (parent == nullptr || parent->kind != RefHost::KIND_PLATFORM))
      std::abort();
    if (object->kind == RefHost::KIND_GATE && (parent == nullptr || parent->kind != RefHost::KIND_BEAM)) std::abort();
  }
  if (points > dataLines) std::abort();
  return 0;
}
