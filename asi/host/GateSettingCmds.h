#pragma once
// Host-bound gate settings, colour and on/off: all wait for the gate's
// creation; the settings leave alone a gate that merged with one the host
// held before this file, colour and on/off do not.

#include "asi/GateSettingCmds.h"

namespace AsiReader {

class GateInterpolate : public AsiInterface::GateInterpolate {
 public:
  using AsiInterface::GateInterpolate::GateInterpolate;
  FileReaderPlugin::CommandParser* clone() const override { return new GateInterpolate(*this); }
  void transmit() override;
};

class GateAzimOffset : public AsiInterface::GateAzimOffset {
 public:
  using AsiInterface::GateAzimOffset::GateAzimOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new GateAzimOffset(*this); }
  void transmit() override;
};

class GateElevOffset : public AsiInterface::GateElevOffset {
 public:
  using AsiInterface::GateElevOffset::GateElevOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new GateElevOffset(*this); }
  void transmit() override;
};

class GateRollOffset : public AsiInterface::GateRollOffset {
 public:
  using AsiInterface::GateRollOffset::GateRollOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new GateRollOffset(*this); }
  void transmit() override;
};

class GateColorCmd : public AsiInterface::GateColorCmd {
 public:
  using AsiInterface::GateColorCmd::GateColorCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new GateColorCmd(*this); }
  void transmit() override;
};

class GateOnOffCmd : public AsiInterface::GateOnOffCmd {
 public:
  using AsiInterface::GateOnOffCmd::GateOnOffCmd;
  FileReaderPlugin::CommandParser* clone() const override { return new GateOnOffCmd(*this); }
  void transmit() override;
};

}  // namespace AsiReader
