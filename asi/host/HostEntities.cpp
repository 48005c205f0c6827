#include "asi/host/HostEntities.h"

#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

// Fetches the host's header, replaces its original id and sends it back.
template <typename Header>
void rewriteOriginalId(uint64_t uniqueId, uint64_t originalId) {
  if (uniqueId == 0) return;
  Header header;
  if (!PIData::getHeader(uniqueId, header)) return;
  header.originalId = originalId;
  PIData::updateHeader(uniqueId, header);
}

}  // namespace

void PlatformEntity::setOriginalId(uint64_t id) {
  AsiInterface::PlatformEntity::setOriginalId(id);
  if (uniqueId() == 0) return;
  PIData::PIPlatformHeader header;
  if (!PIData::getHeader(uniqueId(), header) || header.originalId == id) return;
  header.originalId = id;
  PIData::updateHeader(uniqueId(), header);
}

void BeamEntity::setOriginalId(uint64_t id) {
  AsiInterface::BeamEntity::setOriginalId(id);
  PIData::PIBeamHeader beamHeader;
  header(beamHeader);
  beamHeader.originalId = id;
  setHeader(beamHeader);
  if (uniqueId() != 0) PIData::updateHeader(uniqueId(), beamHeader);
}

void GateEntity::setOriginalId(uint64_t id) {
  AsiInterface::GateEntity::setOriginalId(id);
  rewriteOriginalId<PIData::PIGateHeader>(uniqueId(), id);
}

void LobEntity::setOriginalId(uint64_t id) {
  AsiInterface::LobEntity::setOriginalId(id);
  rewriteOriginalId<PIData::PILobHeader>(uniqueId(), id);
}

void LaserEntity::setOriginalId(uint64_t id) { AsiInterface::LaserEntity::setOriginalId(id); }

void CustomRenderingEntity::setOriginalId(uint64_t id) {
  AsiInterface::CustomRenderingEntity::setOriginalId(id);
  rewriteOriginalId<PIData::PICustomRenderingHeader>(uniqueId(), id);
}

}  // namespace AsiReader
