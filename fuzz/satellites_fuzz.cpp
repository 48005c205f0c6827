// Arbitrary text as a TLE file (first byte even) or a Kepler file (odd):
// every set that parses is propagated for a few points and written as ASI
// text, every Kepler run of a modest size is propagated whole. Nothing may
// crash or hang.
// Run with -close_fd_mask=3: the readers tell their findings on stdout/stderr.

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "importers/KeplerFile.h"
#include "importers/ParseTLE.h"
#include "importers/Propagator.h"
#include "importers/TLE2ASI.h"
#include "importers/TleTrack.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::istringstream in(text);
  if ((data[0] & 1) == 0) {
    ParseTLE::TleMap sets;
    if (ParseTLE::parseTLEStream(in, sets) != 0) return 0;
    TLE2ASI::TleSettings settings;
    settings.step = 600.0;
    std::ostringstream asi;
    uint64_t id = 0;
    for (const auto& entry : sets) {
      if (id == 4) break;
      PropagatorAIAA satellite(entry.second.name, entry.second.line1, entry.second.line2);
      const TLE2ASI::TimeFrame frame = TLE2ASI::startTime(settings, satellite);
      std::ostringstream gog;
      ++id;
      TLE2ASI::writeSatProp2ASI(satellite, 8, frame, asi, id == 1, settings, id, &gog);
    }
  } else {
    KEPLER2ASI::KeplerInput input;
    if (KEPLER2ASI::readKeplerFile(in, input) != 0) return 0;
    if ((input.tend - input.tzero) / input.dt > 2000.0) return 0;
    std::vector<KEPLER2ASI::KeplerPoint> points;
    KEPLER2ASI::computeTrajectory(input, 0.0, points);
  }
  return 0;
}
