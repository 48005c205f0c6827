#pragma once
// The harness the command fuzzers share: a reference host per application, a
// fresh scenario with a provider whose frame is complete, and the run of the
// input's lines through a table of commands (clone, stage 1, transmit).
//
// The first byte of an input is its control byte: version 2 + byte % 23,
// angles in degrees when bit 0x80 is set; fuzzers that test both host
// applications take bit 0x40 for the plot application.

#include <cstddef>
#include <cstdint>
#include <functional>
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

namespace cmdfuzz {

class QuietMessages : public FileReaderPlugin::MessageManager {
 protected:
  void writeMessage_(PICommon::NotifySeverity, const std::string&, unsigned long) override {}
};

// One host per application, made once and installed for each input.
inline RefHost::ReferenceHost& host(bool plot) {
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

struct Control {
  int version;
  bool degrees;
  bool plot;
};

inline Control control(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t byte = size > 0 ? data[0] : 0;
  return {size > 0 ? 2 + byte % 23 : 24, (byte & 0x80) != 0, (byte & 0x40) != 0};
}

// A new host scenario and a provider over it, its frame set.
inline std::shared_ptr<AsiReader::ScenarioProvider> freshProvider(const Control& c) {
  PIData::deleteScenario();
  PIData::initializeScenario("fuzz", 0, PIData::PI_PROTOCOL_NONE, false);
  auto provider = std::make_shared<AsiReader::ScenarioProvider>(
      c.version, c.plot ? PICommon::PI_HOST_KURVEX : PICommon::PI_HOST_ORVIDE);
  auto* scenario = new AsiInterface::ScenarioEntity();
  scenario->setUniqueId(0);
  provider->addEntity(0, scenario);
  PIData::PICoordReferenceFrame frame;
  provider->referenceFrame(frame);
  frame.latitude = 0.5;
  frame.longitude = -1.2;
  provider->setReferenceFrame(frame);
  provider->setCoordSystem(PIData::PI_COORD_LLA);
  provider->setIsDegrees(c.degrees);
  return provider;
}

// One input's start: its control byte read (the plot bit only where the
// fuzzer tests both applications), the host of its application installed,
// and a fresh provider.
struct Start {
  Control control;
  RefHost::ReferenceHost& host;
  std::shared_ptr<AsiReader::ScenarioProvider> provider;
};

inline Start start(const std::uint8_t* data, std::size_t size, bool readPlotBit) {
  Control c = control(data, size);
  c.plot = c.plot && readPlotBit;
  RefHost::ReferenceHost& h = host(c.plot);
  return {c, h, freshProvider(c)};
}

using CommandTable = std::map<std::string, std::unique_ptr<FileReaderPlugin::CommandParser>>;

// Takes the commands over, by lower-case keyword.
inline CommandTable commandTable(const AsiReader::CommandList& commands) {
  CommandTable table;
  for (auto* c : commands) table[orvCore::lowerCase(c->name())].reset(c);
  return table;
}

// Runs the lines after the control byte through the table; seen(keyword,
// tokens) hears each line whose keyword the table knows, before it runs.
inline void runLines(const std::uint8_t* data, std::size_t size, const CommandTable& table,
                     FileReaderPlugin::MessageManager& messages,
                     const std::function<void(const std::string&, const std::vector<std::string>&)>& seen) {
  std::istringstream in(size > 0 ? std::string(reinterpret_cast<const char*>(data) + 1, size - 1) : std::string());
  std::string line;
  std::vector<std::string> tokens;
  unsigned long number = 0;
  while (std::getline(in, line)) {
    ++number;
    FileReaderPlugin::stripLineEnd(line);
    FileReaderPlugin::tokenizeAsiLine(line, tokens);
    if (tokens.empty()) continue;
    auto found = table.find(orvCore::lowerCase(tokens[0]));
    if (found == table.end()) continue;
    seen(found->first, tokens);
    std::unique_ptr<FileReaderPlugin::CommandParser> command(found->second->clone());
    command->setLineNumber(number);
    command->setMessageManager(&messages);
    command->executeStage1(tokens);
    command->transmit();
  }
}

}  // namespace cmdfuzz
