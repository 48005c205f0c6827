#include "asi/host/BeamAntennaCmds.h"

#include "asi/host/TransmitSkeleton.h"

namespace AsiReader {

namespace {

const char* const ANTENNA_DEFINED = "Antenna Pattern previously defined; ignoring second definition";

}  // namespace

AsiInterface::BeamEntity* antennaBeam(AsiInterface::BaseParser& command, const AsiInterface::ScenarioProvider& provider,
                                      uint64_t id) {
  if (TransmitSkeleton::guard(command)) return nullptr;
  AsiInterface::BeamEntity* beam = provider.getBeamEntity(id);
  return beam == nullptr || beam->isMerging() ? nullptr : beam;
}

void AntennaPattern::transmit() {
  AsiInterface::BeamEntity* beam = antennaBeam(*this, *provider_, id_);
  if (beam != nullptr && beam->setPattern(kind_, file_) != 0) setMessage(PICommon::PI_NOTIFY_WARN, ANTENNA_DEFINED);
}

void AntennaAlgorithm::transmit() {
  AsiInterface::BeamEntity* beam = antennaBeam(*this, *provider_, id_);
  if (beam != nullptr && beam->setAlgorithm(algorithm_) != 0) setMessage(PICommon::PI_NOTIFY_WARN, ANTENNA_DEFINED);
}

void AntennaPolarity::transmit() {
  AsiInterface::BeamEntity* beam = antennaBeam(*this, *provider_, id_);
  if (beam != nullptr) beam->setPolarity(polarity_);
}

}  // namespace AsiReader
