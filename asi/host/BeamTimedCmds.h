#pragma once
// Host-bound colour, on/off and target of a beam: they wait for the beam's
// creation and are sent to a merged beam as well.

#include "asi/BeamTimedCmds.h"

namespace AsiReader {

class BeamColorCmd : public AsiInterface::BeamColorCmd {
 public:
  using AsiInterface::BeamColorCmd::BeamColorCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new BeamColorCmd(*this); }
  void transmit() override;
};

class BeamOnOffCmd : public AsiInterface::BeamOnOffCmd {
 public:
  using AsiInterface::BeamOnOffCmd::BeamOnOffCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new BeamOnOffCmd(*this); }
  void transmit() override;
};

// Waits for the target platform as well as for the beam. A target beam that
// does not exist yet is created by this command, without points, once its
// platform exists.
class BeamTargetIdCmd : public AsiInterface::BeamTargetIdCmd {
 public:
  using AsiInterface::BeamTargetIdCmd::BeamTargetIdCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new BeamTargetIdCmd(*this); }
  void transmit() override;
};

}  // namespace AsiReader
