#include "asi/host/BeamDataCmds.h"

#include "asi/host/BeamCreation.h"
#include "asi/host/HostEntities.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

// A data point of an existing beam.
void addPoint(AsiInterface::BaseParser& command, const AsiInterface::BeamEntity& beam,
              const PIData::PIBeamPoint& point) {
  if (const auto* hostBeam = dynamic_cast<const BeamEntity*>(&beam))
    hostBeam->transmitAddDataPoint(command, beam.uniqueId(), point);
}

}  // namespace

void BeamData::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (beam == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) return;
  if (beam->doesExist()) {
    if (colorOnly_) {
      PIData::setColor(beam->uniqueId(), color_, point_.time);
      return;
    }
    // A refused point does not take the colour with it: the colour of the
    // line holds whatever became of the pointing.
    addPoint(*this, *beam, point_);
  } else if (createBeam(*this, *provider_, *beam, point_, 0) != 0) {
    return;
  }
  PIData::setColor(beam->uniqueId(), color_, point_.time);
}

void BeamDataRAE::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (beam == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  if (beam->doesExist()) {
    if (TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) addPoint(*this, *beam, point_);
    return;
  }
  if (beamHostUniqueId(*provider_, *beam) == 0) {
    provider_->addCommand(beam->hostId(), clone());
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) return;
  createBeam(*this, *provider_, *beam, point_, 0);
}

}  // namespace AsiReader
