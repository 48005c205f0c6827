#include "asi/host/BeamSettingCmds.h"

#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void setRollOffset(uint64_t uniqueId, double roll) {
  PIData::PIPoint offset = PIData::getObjectOrientationOffset(uniqueId);
  offset.z = roll;
  PIData::setObjectOrientationOffset(uniqueId, offset);
}

void RollOffset::transmit() {
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, beam)) return;
  setRollOffset(beam->uniqueId(), roll_);
}

void BodyOffset::transmit() {
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, beam)) return;
  PIData::setObjectOffset(beam->uniqueId(), point_);
}

void BeamInterpolate::transmit() {
  AsiInterface::BeamEntity* beam = provider_->getBeamEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, beam)) return;
  PIData::setBeamInterpolatePosition(beam->uniqueId(), flag_);
}

}  // namespace AsiReader
