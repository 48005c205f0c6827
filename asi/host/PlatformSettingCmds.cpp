#include "asi/host/PlatformSettingCmds.h"

#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void PlatformInterpolate::transmit() {
  AsiInterface::PlatformEntity* platform = provider_->getPlatformEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, platform)) return;
  PIData::setPlatformInterpolate(platform->uniqueId(), flag_);
}

void PlatformOffset::transmit() {
  AsiInterface::PlatformEntity* platform = provider_->getPlatformEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, platform)) return;
  PIData::setObjectOffset(platform->uniqueId(), point_);
}

void PlatformOriOffset::transmit() {
  AsiInterface::PlatformEntity* platform = provider_->getPlatformEntity(id_);
  if (!TransmitSkeleton::deferring(*this, *provider_, platform)) return;
  PIData::setObjectOrientationOffset(platform->uniqueId(), point_);
}

}  // namespace AsiReader
