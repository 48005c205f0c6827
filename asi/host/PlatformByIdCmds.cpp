#include "asi/host/PlatformByIdCmds.h"

#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"
#include "hostapi/PIORVIDE.h"

namespace AsiReader {

namespace {

// The platform of `id` once the host holds it. Before that a clone of
// `command` waits under `id`, declared or not; an id held by another kind of
// entity is an error. Null when the command is done for now.
AsiInterface::PlatformEntity* readyPlatform(AsiInterface::BaseParser& command,
                                            AsiInterface::ScenarioProvider& provider, uint64_t id) {
  AsiInterface::PlatformEntity* platform = provider.getPlatformEntity(id);
  if (platform == nullptr) {
    if (provider.getEntity(id) != nullptr) {
      command.setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    } else {
      provider.addCommand(id, command.clone());
    }
    return nullptr;
  }
  if (platform->ignore()) return nullptr;
  if (!platform->doesExist()) {
    provider.addCommand(id, command.clone());
    return nullptr;
  }
  return platform;
}

// Static category data of a platform.
void sendCategory(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider, uint64_t id,
                  PIData::PICategoryDataPoint& point) {
  if (TransmitSkeleton::guard(command)) return;
  AsiInterface::PlatformEntity* platform = readyPlatform(command, provider, id);
  if (platform == nullptr) return;
  if (!TransmitSkeleton::normalizeTime(command, provider, point.time)) return;
  if (PIData::addCategoryData(platform->uniqueId(), point) != 0)
    command.setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add category data; check console for error messages");
}

}  // namespace

void PlatformRCS::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::PlatformEntity* platform = readyPlatform(*this, *provider_, id_);
  if (platform == nullptr) return;
  if (!PIData::getPlatformRCSPatternFileName(platform->uniqueId()).empty())
    setMessage(PICommon::PI_NOTIFY_WARN,
               "RCS pattern file specified more than once for platform; only the last file given will be used");
  PIData::setPlatformRCSPatternFileName(platform->uniqueId(), file_);
}

void PlatformAttachedGOG::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  if (!provider_->runningInORVIDE9or10()) return;
  AsiInterface::PlatformEntity* platform = readyPlatform(*this, *provider_, id_);
  if (platform == nullptr) return;
  if (PIORVIDE::loadGOGFile(file_, platform->uniqueId(), true) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to load; check console for error messages");
}

void PlatformType::transmit() { sendCategory(*this, *provider_, id_, point_); }

void PlatformFHN::transmit() { sendCategory(*this, *provider_, id_, point_); }

}  // namespace AsiReader
