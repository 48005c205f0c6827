#include "asi/host/GateSettingCmds.h"

#include "asi/host/BeamSettingCmds.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void GateInterpolate::transmit() {
  AsiInterface::GateEntity* gate = provider_->getGateEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, gate)) return;
  PIData::setGateInterpolatePosition(gate->uniqueId(), flag_);
}

void GateAzimOffset::transmit() {
  AsiInterface::GateEntity* gate = provider_->getGateEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, gate)) return;
  PIData::setAzimuthOffset(gate->uniqueId(), angle_);
}

void GateElevOffset::transmit() {
  AsiInterface::GateEntity* gate = provider_->getGateEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, gate)) return;
  PIData::setElevationOffset(gate->uniqueId(), angle_);
}

void GateRollOffset::transmit() {
  AsiInterface::GateEntity* gate = provider_->getGateEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, gate)) return;
  setRollOffset(gate->uniqueId(), angle_);
}

void GateColorCmd::transmit() {
  AsiInterface::GateEntity* gate = provider_->getGateEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, gate, time_)) return;
  PIData::setColor(gate->uniqueId(), color_, time_);
}

void GateOnOffCmd::transmit() {
  AsiInterface::GateEntity* gate = provider_->getGateEntity(id_);
  if (!TransmitSkeleton::timed(*this, *provider_, gate, time_)) return;
  PIData::setStatus(gate->uniqueId(), on_ ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF, time_);
}

}  // namespace AsiReader
