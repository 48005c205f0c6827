#pragma once
// Host-bound beam data lines: the first that can run creates the beam (or
// merges it with one the host already holds) and releases what waited for it;
// every later line is one point.

#include "asi/BeamDataCmds.h"

namespace AsiReader {

// Does not wait for the host platform: before it exists the line is an error.
class BeamData : public AsiInterface::BeamData {
 public:
  using AsiInterface::BeamData::BeamData;
  FileReaderPlugin::CommandParser* clone() const override { return new BeamData(*this); }
  void transmit() override;
};

// Waits under the host platform's id until the platform exists.
class BeamDataRAE : public AsiInterface::BeamDataRAE {
 public:
  using AsiInterface::BeamDataRAE::BeamDataRAE;
  FileReaderPlugin::CommandParser* clone() const override { return new BeamDataRAE(*this); }
  void transmit() override;
};

}  // namespace AsiReader
