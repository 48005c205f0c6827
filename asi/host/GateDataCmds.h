#pragma once
// Host-bound gate data lines: the first that can run creates the gate (or
// merges it with one the host already holds) and releases what waited for it;
// every later line is one point.

#include "asi/GateDataCmds.h"

namespace AsiReader {

// Also "BodyGateData". Like TargetGateData it does not wait for the host
// beam: before the beam exists the line is an error.
class GateData : public AsiInterface::GateData {
 public:
  using AsiInterface::GateData::GateData;
  FileReaderPlugin::CommandParser* clone() const override { return new GateData(*this); }
  void transmit() override;
};

class TargetGateData : public AsiInterface::TargetGateData {
 public:
  using AsiInterface::TargetGateData::TargetGateData;
  FileReaderPlugin::CommandParser* clone() const override { return new TargetGateData(*this); }
  void transmit() override;
};

// Waits under the host beam's id until the beam exists.
class GateDataRAE : public AsiInterface::GateDataRAE {
 public:
  using AsiInterface::GateDataRAE::GateDataRAE;
  FileReaderPlugin::CommandParser* clone() const override { return new GateDataRAE(*this); }
  void transmit() override;
};

}  // namespace AsiReader
