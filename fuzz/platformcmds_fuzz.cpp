// Fuzzes the platform commands and what hangs on platforms: beams and gates,
// lasers, LOBs, projectors (also on beams) and custom rendering objects. The
// input is lines of ASI text, run in order through those families (clone,
// stage 1, transmit) over a provider whose scenario frame is complete,
// against the reference host. Nothing may fault, and the host may not hold
// more platform, laser or LOB points than there were lines of their data
// keyword.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
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

RefHost::ReferenceHost& host() {
  static RefHost::ReferenceHost* instance = [] {
    RefHost::HostConfig config;
    config.progressBar = false;
    config.echoConsole = false;
    auto* h = new RefHost::ReferenceHost(config);
    h->install();
    return h;
  }();
  return *instance;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RefHost::ReferenceHost& h = host();
  PIData::deleteScenario();
  PIData::initializeScenario("fuzz", 0, PIData::PI_PROTOCOL_NONE, false);

  // The first byte picks the version and whether angles are degrees.
  const int version = size > 0 ? 2 + data[0] % 23 : 24;
  auto provider = std::make_shared<AsiReader::ScenarioProvider>(version, PICommon::PI_HOST_ORVIDE);
  auto* scenario = new AsiInterface::ScenarioEntity();
  scenario->setUniqueId(0);
  provider->addEntity(0, scenario);
  PIData::PICoordReferenceFrame frame;
  provider->referenceFrame(frame);
  frame.latitude = 0.5;
  frame.longitude = -1.2;
  provider->setReferenceFrame(frame);
  provider->setCoordSystem(PIData::PI_COORD_LLA);
  provider->setIsDegrees(size > 0 && (data[0] & 0x80) != 0);

  std::map<std::string, std::unique_ptr<FileReaderPlugin::CommandParser>> table;
  {
    AsiReader::CommandList commands;
    AsiReader::addPlatformCommands(provider, version, commands);
    // Beams and gates (fuzzed on their own too) for the projectors that hang on beams.
    AsiReader::addBeamCommands(provider, version, commands);
    AsiReader::addGateCommands(provider, version, commands);
    AsiReader::addLaserCommands(provider, version, commands);
    AsiReader::addLobCommands(provider, version, commands);
    AsiReader::addProjectorCommands(provider, version, commands);
    AsiReader::addCustomRenderingCommands(provider, version, commands);
    for (auto* c : commands) table[orvCore::lowerCase(c->name())].reset(c);
  }

  QuietMessages messages;
  std::istringstream in(size > 0 ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : std::string());
  std::string line;
  std::vector<std::string> tokens;
  unsigned long number = 0;
  // Lines of each keyword that adds a point, by the kind it adds it to.
  std::map<std::uint32_t, std::size_t> dataLines;
  const std::map<std::string, std::uint32_t> pointKeywords = {
      {"platformdata", RefHost::KIND_PLATFORM}, {"laserori", RefHost::KIND_LASER}, {"lobdata", RefHost::KIND_LOB}};
  while (std::getline(in, line)) {
    ++number;
    FileReaderPlugin::stripLineEnd(line);
    FileReaderPlugin::tokenizeAsiLine(line, tokens);
    if (tokens.empty()) continue;
    auto found = table.find(orvCore::lowerCase(tokens[0]));
    if (found == table.end()) continue;
    auto adds = pointKeywords.find(found->first);
    if (adds != pointKeywords.end()) ++dataLines[adds->second];
    std::unique_ptr<FileReaderPlugin::CommandParser> command(found->second->clone());
    command->setLineNumber(number);
    command->setMessageManager(&messages);
    command->executeStage1(tokens);
    command->transmit();
  }
  provider->didComplete(messages);
  provider->clear();

  std::map<std::uint32_t, std::size_t> points;
  for (const auto& object : h.scenario().objects()) points[object->kind] += object->data(RefHost::SERIES_POINTS).count();
  for (const auto& keyword : pointKeywords)
    if (points[keyword.second] > dataLines[keyword.second]) std::abort();
  return 0;
}
