// Fuzzes the platform commands and what hangs on platforms: beams and gates,
// lasers, LOBs, projectors (also on beams) and custom rendering objects. The
// input is lines of ASI text, run in order through those families (clone,
// stage 1, transmit) over a provider whose scenario frame is complete,
// against the reference host. Nothing may fault, and the host may not hold
// more platform, laser or LOB points than there were lines of their data
// keyword.

#include <cstdlib>

#include "CommandFuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The display application only: the plot bit is not read.
  const cmdfuzz::Start in = cmdfuzz::start(data, size, false);
  const auto& provider = in.provider;
  const int version = in.control.version;

  AsiReader::CommandList commands;
  AsiReader::addPlatformCommands(provider, version, commands);
  // Beams and gates (fuzzed on their own too) for the projectors that hang on beams.
  AsiReader::addBeamCommands(provider, version, commands);
  AsiReader::addGateCommands(provider, version, commands);
  AsiReader::addLaserCommands(provider, version, commands);
  AsiReader::addLobCommands(provider, version, commands);
  AsiReader::addProjectorCommands(provider, version, commands);
  AsiReader::addCustomRenderingCommands(provider, version, commands);
  const cmdfuzz::CommandTable table = cmdfuzz::commandTable(commands);

  cmdfuzz::QuietMessages messages;
  // Lines of each keyword that adds a point, by the kind it adds it to.
  std::map<std::uint32_t, std::size_t> dataLines;
  const std::map<std::string, std::uint32_t> pointKeywords = {
      {"platformdata", RefHost::KIND_PLATFORM}, {"laserori", RefHost::KIND_LASER}, {"lobdata", RefHost::KIND_LOB}};
  cmdfuzz::runLines(data, size, table, messages, [&](const std::string& keyword, const std::vector<std::string>&) {
    auto adds = pointKeywords.find(keyword);
    if (adds != pointKeywords.end()) ++dataLines[adds->second];
  });
  provider->didComplete(messages);
  provider->clear();

  std::map<std::uint32_t, std::size_t> points;
  for (const auto& object : in.host.scenario().objects())
    points[object->kind] += object->data(RefHost::SERIES_POINTS).count();
  for (const auto& keyword : pointKeywords)
    if (points[keyword.second] > dataLines[keyword.second]) std::abort();
  return 0;
}
