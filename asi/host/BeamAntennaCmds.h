#pragma once
// Host-bound antenna commands: at transmit they store their value in the beam
// entity, which sends the antenna once, when the beam is created. A beam that
// is not declared, or that merged with one the host held, takes nothing.

#include "asi/BeamAntennaCmds.h"

namespace AsiReader {

class AntennaPattern : public AsiInterface::AntennaPattern {
 public:
  using AsiInterface::AntennaPattern::AntennaPattern;
  FileReaderPlugin::CommandParser* clone() const override { return new AntennaPattern(*this); }
  // A second pattern or algorithm of a beam is refused with a warning.
  void transmit() override;
};

class AntennaAlgorithm : public AsiInterface::AntennaAlgorithm {
 public:
  using AsiInterface::AntennaAlgorithm::AntennaAlgorithm;
  FileReaderPlugin::CommandParser* clone() const override { return new AntennaAlgorithm(*this); }
  void transmit() override;
};

class AntennaPolarity : public AsiInterface::AntennaPolarity {
 public:
  using AsiInterface::AntennaPolarity::AntennaPolarity;
  FileReaderPlugin::CommandParser* clone() const override { return new AntennaPolarity(*this); }
  void transmit() override;
};

// Frequency, gain and peak power.
template <typename Stage1>
class AntennaValueCmd : public Stage1 {
 public:
  using Stage1::Stage1;
  FileReaderPlugin::CommandParser* clone() const override { return new AntennaValueCmd(*this); }
  void transmit() override;
};

using AntennaFrequency = AntennaValueCmd<AsiInterface::AntennaFrequency>;
using AntennaGain = AntennaValueCmd<AsiInterface::AntennaGain>;
using AntennaPeakPower = AntennaValueCmd<AsiInterface::AntennaPeakPower>;

// The beam that an antenna command may change: null after a stage-1 problem,
// for an unknown id, and for a beam that merged.
AsiInterface::BeamEntity* antennaBeam(AsiInterface::BaseParser& command, const AsiInterface::ScenarioProvider& provider,
                                      uint64_t id);

template <typename Stage1>
void AntennaValueCmd<Stage1>::transmit() {
  AsiInterface::BeamEntity* beam = antennaBeam(*this, *this->provider_, this->id_);
  if (beam != nullptr) this->apply_(*beam);
}

}  // namespace AsiReader
