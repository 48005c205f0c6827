#include "asi/host/PlatformDataCmd.h"

#include "asi/Resolver.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void PlatformData::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::PlatformEntity* platform = provider_->getPlatformEntity(id_);
  if (platform == nullptr) {
    setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) return;
  if (platform->doesExist()) {
    addPoint_(*platform);
  } else {
    create_(*platform);
  }
}

void PlatformData::addPoint_(const AsiInterface::PlatformEntity& platform) {
  if (PIData::addDataPoint(platform.uniqueId(), point_) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add Platform data; check console for error messages");
}

void PlatformData::create_(AsiInterface::PlatformEntity& platform) {
  if (platform.name().empty()) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Platform definition missing call sign.");
    return;
  }
  PIData::PIPlatformHeader header;
  header.name = platform.name();
  header.iconName = platform.iconName();
  header.originalId = platform.originalId();
  AsiInterface::Resolver* resolver = provider_->resolver();
  const uint64_t asiId = platform.asiId();

  const uint64_t heldId = resolver != nullptr ? resolver->getPlatformId(asiId, header) : 0;
  if (heldId != 0) {
    // The host already holds this platform: what waited runs against it, and
    // a static point is not sent to it again.
    platform.setUniqueId(heldId);
    platform.setMerging(true);
    provider_->transmitCommands(asiId);
    if (point_.time != -1.0) addPoint_(platform);
    return;
  }

  const uint64_t uniqueId = PIData::createPlatform(header, point_);
  if (uniqueId == 0) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create platform; check console for error messages");
    return;
  }
  platform.setUniqueId(uniqueId);
  provider_->transmitCommands(asiId);
  if (resolver != nullptr) resolver->setPlatformId(asiId, header, uniqueId);
  // Only a platform created with time-tagged data makes the file a scenario.
  if (point_.time != -1.0) provider_->setHaveNonStaticIndependent();
}

}  // namespace AsiReader
