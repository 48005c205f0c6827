#pragma once
// Host-bound beam settings: they wait for the beam's creation and leave alone
// a beam that merged with one the host held before this file.

#include "asi/BeamSettingCmds.h"

namespace AsiReader {

class RollOffset : public AsiInterface::RollOffset {
 public:
  using AsiInterface::RollOffset::RollOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new RollOffset(*this); }
  void transmit() override;
};

class BodyOffset : public AsiInterface::BodyOffset {
 public:
  using AsiInterface::BodyOffset::BodyOffset;
  FileReaderPlugin::CommandParser* clone() const override { return new BodyOffset(*this); }
  void transmit() override;
};

class BeamInterpolate : public AsiInterface::BeamInterpolate {
 public:
  using AsiInterface::BeamInterpolate::BeamInterpolate;
  FileReaderPlugin::CommandParser* clone() const override { return new BeamInterpolate(*this); }
  void transmit() override;
};

// Replaces the roll of an object's orientation offset in the host, keeping
// its yaw and pitch.
void setRollOffset(uint64_t uniqueId, double roll);

}  // namespace AsiReader
