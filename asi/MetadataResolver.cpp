#include "asi/MetadataResolver.h"

#include <tuple>
#include <vector>

#include "hostapi/PIData.h"

namespace AsiInterface {

namespace {

bool operator==(const MetadataResolver::BeamInfo& a, const MetadataResolver::BeamInfo& b) {
  return std::tie(a.hostId, a.name, a.originalId, a.beamType) == std::tie(b.hostId, b.name, b.originalId, b.beamType);
}
bool operator==(const MetadataResolver::GateInfo& a, const MetadataResolver::GateInfo& b) {
  return std::tie(a.hostId, a.name, a.originalId, a.gateType) == std::tie(b.hostId, b.name, b.originalId, b.gateType);
}
bool operator==(const MetadataResolver::LobGroupInfo& a, const MetadataResolver::LobGroupInfo& b) {
  return std::tie(a.hostId, a.name, a.originalId, a.type) == std::tie(b.hostId, b.name, b.originalId, b.type);
}
bool operator==(const MetadataResolver::LaserInfo& a, const MetadataResolver::LaserInfo& b) {
  return std::tie(a.hostId, a.name, a.originalId, a.bodyFlag) == std::tie(b.hostId, b.name, b.originalId, b.bodyFlag);
}
bool operator==(const MetadataResolver::ProjectorInfo& a, const MetadataResolver::ProjectorInfo& b) {
  return std::tie(a.hostId, a.name, a.originalId) == std::tie(b.hostId, b.name, b.originalId);
}
bool operator==(const MetadataResolver::CustomRenderingInfo& a, const MetadataResolver::CustomRenderingInfo& b) {
  return std::tie(a.hostId, a.name, a.originalId, a.renderer) == std::tie(b.hostId, b.name, b.originalId, b.renderer);
}

// The maps are ordered by unique id, so the first match is the lowest id.
template <typename Info>
uint64_t firstMatch(const std::map<uint64_t, Info>& map, const Info& wanted) {
  for (const auto& entry : map) {
    if (entry.second == wanted) return entry.first;
  }
  return 0;
}

MetadataResolver::BeamInfo beamInfo(uint64_t hostId, const PIData::PIBeamHeader& header) {
  return {hostId, header.name, header.originalId, header.beamType};
}
MetadataResolver::GateInfo gateInfo(uint64_t hostId, const PIData::PIGateHeader& header) {
  return {hostId, header.name, header.originalId, header.gateType};
}
MetadataResolver::LobGroupInfo lobInfo(uint64_t hostId, const PIData::PILobHeader& header) {
  return {hostId, header.name, header.originalId, header.type};
}
MetadataResolver::LaserInfo laserInfo(uint64_t hostId, const PIData::PILaserHeader& header, uint64_t originalId) {
  return {hostId, header.name, originalId, header.bodyFlag};
}
MetadataResolver::ProjectorInfo projectorInfo(uint64_t hostId, const PIData::PIProjectorHeader& header) {
  return {hostId, header.name, header.originalId};
}
MetadataResolver::CustomRenderingInfo customRenderingInfo(uint64_t hostId,
                                                          const PIData::PICustomRenderingHeader& header) {
  return {hostId, header.name, header.originalId, header.rendererName};
}

}  // namespace

void MetadataResolver::initialize() { getAllEntities_(); }

void MetadataResolver::getAllEntities_() {
  platforms_.clear();
  beams_.clear();
  gates_.clear();
  lobGroups_.clear();
  projectors_.clear();
  lasers_.clear();
  customRenderings_.clear();

  std::vector<uint64_t> platformIds;
  PIData::getPlatformList(platformIds);
  for (uint64_t platformId : platformIds) {
    PIData::PIPlatformHeader header;
    header.iconName = "UnknownV.png";
    header.name = "Unknown";
    PIData::getHeader(platformId, header);
    platforms_[platformId] = header;
  }

  for (uint64_t platformId : platformIds) {
    std::vector<uint64_t> beamIds;
    PIData::getBeamList(platformId, beamIds);
    for (uint64_t beamId : beamIds) {
      PIData::PIBeamHeader header;
      header.name = "UNKNOWN";
      PIData::getHeader(beamId, header);
      beams_[beamId] = beamInfo(platformId, header);

      std::vector<uint64_t> gateIds;
      PIData::getGateList(beamId, gateIds);
      for (uint64_t gateId : gateIds) {
        PIData::PIGateHeader gateHeader;
        gateHeader.name = "UNKNOWN";
        PIData::getHeader(gateId, gateHeader);
        gates_[gateId] = gateInfo(beamId, gateHeader);
      }
      getProjectors_(beamId);
    }

    std::vector<uint64_t> laserIds;
    PIData::getLaserList(platformId, laserIds);
    for (uint64_t laserId : laserIds) {
      PIData::PILaserHeader header;
      header.name = "UNKNOWN";
      PIData::getHeader(laserId, header);
      // The laser's original id is not part of its header.
      lasers_[laserId] = laserInfo(platformId, header, PIData::getOriginalId(laserId));
    }

    std::vector<uint64_t> lobIds;
    PIData::getLobList(platformId, lobIds);
    for (uint64_t lobId : lobIds) {
      PIData::PILobHeader header;
      header.name = "UNKNOWN";
      PIData::getHeader(lobId, header);
      lobGroups_[lobId] = lobInfo(platformId, header);
    }

    getProjectors_(platformId);
    getCustomRenderings_(platformId);
  }
  // Custom rendering objects without a host sit under parent 0.
  getCustomRenderings_(0);
}

void MetadataResolver::getProjectors_(uint64_t parent) {
  std::vector<uint64_t> ids;
  PIData::getProjectorList(parent, ids);
  for (uint64_t id : ids) {
    PIData::PIProjectorHeader header;
    header.name = "Unknown";
    PIData::getHeader(id, header);
    projectors_[id] = projectorInfo(parent, header);
  }
}

void MetadataResolver::getCustomRenderings_(uint64_t parent) {
  std::vector<uint64_t> ids;
  PIData::getCustomRenderingList(parent, ids);
  for (uint64_t id : ids) {
    PIData::PICustomRenderingHeader header;
    header.name = "Unknown";
    PIData::getHeader(id, header);
    customRenderings_[id] = customRenderingInfo(parent, header);
  }
}

uint64_t MetadataResolver::getPlatformId(uint64_t, const PIData::PIPlatformHeader& header) {
  for (const auto& entry : platforms_) {
    if (entry.second.name == header.name && entry.second.originalId == header.originalId) return entry.first;
  }
  return 0;
}

void MetadataResolver::setPlatformId(uint64_t, const PIData::PIPlatformHeader& header, uint64_t uniqueId) {
  platforms_[uniqueId] = header;
}

uint64_t MetadataResolver::getBeamId(uint64_t hostUniqueId, uint64_t, const PIData::PIBeamHeader& header) {
  return firstMatch(beams_, beamInfo(hostUniqueId, header));
}

void MetadataResolver::setBeamId(uint64_t hostUniqueId, uint64_t, const PIData::PIBeamHeader& header,
                                 uint64_t uniqueId) {
  beams_[uniqueId] = beamInfo(hostUniqueId, header);
}

uint64_t MetadataResolver::getGateId(uint64_t hostUniqueId, uint64_t, const PIData::PIGateHeader& header) {
  return firstMatch(gates_, gateInfo(hostUniqueId, header));
}

void MetadataResolver::setGateId(uint64_t hostUniqueId, uint64_t, const PIData::PIGateHeader& header,
                                 uint64_t uniqueId) {
  gates_[uniqueId] = gateInfo(hostUniqueId, header);
}

uint64_t MetadataResolver::getLobGroupId(uint64_t hostUniqueId, uint64_t, const PIData::PILobHeader& header) {
  return firstMatch(lobGroups_, lobInfo(hostUniqueId, header));
}

void MetadataResolver::setLobGroupId(uint64_t hostUniqueId, uint64_t, const PIData::PILobHeader& header,
                                     uint64_t uniqueId) {
  lobGroups_[uniqueId] = lobInfo(hostUniqueId, header);
}

uint64_t MetadataResolver::getProjectorId(uint64_t hostUniqueId, uint64_t, const PIData::PIProjectorHeader& header) {
  return firstMatch(projectors_, projectorInfo(hostUniqueId, header));
}

void MetadataResolver::setProjectorId(uint64_t hostUniqueId, uint64_t, const PIData::PIProjectorHeader& header,
                                      uint64_t uniqueId) {
  projectors_[uniqueId] = projectorInfo(hostUniqueId, header);
}

uint64_t MetadataResolver::getLaserId(uint64_t hostUniqueId, uint64_t, const PIData::PILaserHeader& header,
                                      uint64_t originalId) {
  return firstMatch(lasers_, laserInfo(hostUniqueId, header, originalId));
}

void MetadataResolver::setLaserId(uint64_t hostUniqueId, uint64_t, const PIData::PILaserHeader& header,
                                  uint64_t originalId, uint64_t uniqueId) {
  lasers_[uniqueId] = laserInfo(hostUniqueId, header, originalId);
}

uint64_t MetadataResolver::getCustomRenderingId(uint64_t hostUniqueId, uint64_t,
                                                const PIData::PICustomRenderingHeader& header) {
  return firstMatch(customRenderings_, customRenderingInfo(hostUniqueId, header));
}

void MetadataResolver::setCustomRenderingId(uint64_t hostUniqueId, uint64_t,
                                            const PIData::PICustomRenderingHeader& header, uint64_t uniqueId) {
  customRenderings_[uniqueId] = customRenderingInfo(hostUniqueId, header);
}

}  // namespace AsiInterface
