#include "asi/host/BeamTimedCmds.h"

#include "asi/host/BeamCreation.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void BeamColorCmd::transmit() {
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, beam, time_)) return;
  PIData::setColor(beam->uniqueId(), color_, time_);
}

void BeamOnOffCmd::transmit() {
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, beam, time_)) return;
  PIData::setStatus(beam->uniqueId(), on_ ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF, time_);
}

void BeamTargetIdCmd::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (beam == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  // Id 0 is the scenario, which exists from the start with unique id 0: as a
  // target it clears the beam's target.
  const AsiInterface::Entity* target = provider_->getEntity(targetId_);
  if (target == nullptr || !target->doesExist()) {
    provider_->addCommand(targetId_, clone());
    return;
  }
  if (targetId_ != 0 && provider_->getPlatformEntity(targetId_) == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Target ID must point to a platform");
    return;
  }
  if (beam->doesExist()) {
    if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
    PIData::setTarget(beam->uniqueId(), target->uniqueId(), time_);
    return;
  }
  if (beamHostUniqueId(*provider_, *beam) == 0) {
    provider_->addCommand(beam->hostId(), clone());
    return;
  }
  PIData::PIBeamHeader header;
  beam->header(header);
  if (header.beamType != PIData::PI_BEAM_TARGET) {
    // Only a target beam can be created without a data line.
    provider_->addCommand(beam->asiId(), clone());
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;
  PIData::PIBeamPoint point;
  point.time = time_;
  point.azimuth = PIData::PI_UNSET_DOUBLE;
  point.elevation = PIData::PI_UNSET_DOUBLE;
  point.range = PIData::PI_UNSET_DOUBLE;
  createBeam(*this, *provider_, *beam, point, target->uniqueId());
}

}  // namespace AsiReader
