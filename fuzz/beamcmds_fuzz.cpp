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

#include <cstdlib>
#include <set>

#include "CommandFuzzSupport.h"

namespace {

// Lines that can add a point: platform, beam and gate data, and the target
// command that creates a target beam (whose point is dropped at once).
const std::set<std::string> DATA_KEYWORDS = {"platformdata", "beamdata",     "beamdatarae",    "gatedata",
                                             "bodygatedata", "targetgatedata", "gatedatarae", "beamtargetidcmd",
                                             "beamtargetcmd"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The control byte picks the version, whether angles are degrees, and the
  // host application.
  const cmdfuzz::Start in = cmdfuzz::start(data, size, true);
  const auto& provider = in.provider;
  const int version = in.control.version;

  AsiReader::CommandList commands;
  AsiReader::addPlatformCommands(provider, version, commands);
  AsiReader::addBeamCommands(provider, version, commands);
  AsiReader::addGateCommands(provider, version, commands);
  const cmdfuzz::CommandTable table = cmdfuzz::commandTable(commands);

  cmdfuzz::QuietMessages messages;
  std::size_t dataLines = 0;
  cmdfuzz::runLines(data, size, table, messages, [&](const std::string& keyword, const std::vector<std::string>&) {
    if (DATA_KEYWORDS.count(keyword) != 0) ++dataLines;
  });
  provider->didComplete(messages);
  provider->clear();

  std::size_t points = 0;
  for (const auto& object : in.host.scenario().objects()) {
    points += object->data(RefHost::SERIES_POINTS).count();
    const RefHost::HostObject* parent = in.host.scenario().find(object->parent);
    if (object->kind == RefHost::KIND_BEAM && (parent == nullptr || parent->kind != RefHost::KIND_PLATFORM))
      std::abort();
    if (object->kind == RefHost::KIND_GATE && (parent == nullptr || parent->kind != RefHost::KIND_BEAM)) std::abort();
  }
  if (points > dataLines) std::abort();
  return 0;
}
