#pragma once
// Matches on what an entity looks like: a platform by name and original id,
// the others also by their parent's host id and a class field. It reads the
// host's scenario at initialize(); of several equal candidates the lowest
// unique id wins. Creations of the current read are added as they happen, so
// two equal definitions in one file become one entity.

#include <cstdint>
#include <map>
#include <string>

#include "asi/Resolver.h"

namespace AsiInterface {

class MetadataResolver : public Resolver {
 public:
  // What a child's match compares; `hostId` is the parent's unique id.
  struct BeamInfo {
    uint64_t hostId = 0;
    std::string name;
    uint64_t originalId = 0;
    int32_t beamType = 0;
  };
  struct GateInfo {
    uint64_t hostId = 0;
    std::string name;
    uint64_t originalId = 0;
    int32_t gateType = 0;
  };
  struct LobGroupInfo {
    uint64_t hostId = 0;
    std::string name;
    uint64_t originalId = 0;
    int32_t type = 0;
  };
  struct LaserInfo {
    uint64_t hostId = 0;
    std::string name;
    uint64_t originalId = 0;
    bool bodyFlag = false;
  };
  struct ProjectorInfo {
    uint64_t hostId = 0;
    std::string name;
    uint64_t originalId = 0;
  };
  struct CustomRenderingInfo {
    uint64_t hostId = 0;
    std::string name;
    uint64_t originalId = 0;
    std::string renderer;
  };

  void initialize() override;
  uint64_t getPlatformId(uint64_t asiId, const PIData::PIPlatformHeader& header) override;
  void setPlatformId(uint64_t asiId, const PIData::PIPlatformHeader& header, uint64_t uniqueId) override;
  uint64_t getBeamId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIBeamHeader& header) override;
  void setBeamId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIBeamHeader& header,
                 uint64_t uniqueId) override;
  uint64_t getGateId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIGateHeader& header) override;
  void setGateId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIGateHeader& header,
                 uint64_t uniqueId) override;
  uint64_t getLobGroupId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILobHeader& header) override;
  void setLobGroupId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILobHeader& header,
                     uint64_t uniqueId) override;
  uint64_t getProjectorId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIProjectorHeader& header) override;
  void setProjectorId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIProjectorHeader& header,
                      uint64_t uniqueId) override;
  uint64_t getLaserId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILaserHeader& header,
                      uint64_t originalId) override;
  void setLaserId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILaserHeader& header, uint64_t originalId,
                  uint64_t uniqueId) override;
  uint64_t getCustomRenderingId(uint64_t hostUniqueId, uint64_t asiId,
                                const PIData::PICustomRenderingHeader& header) override;
  void setCustomRenderingId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PICustomRenderingHeader& header,
                            uint64_t uniqueId) override;

 private:
  void getAllEntities_();
  void getProjectors_(uint64_t parent);
  void getCustomRenderings_(uint64_t parent);

  std::map<uint64_t, PIData::PIPlatformHeader> platforms_;
  std::map<uint64_t, BeamInfo> beams_;
  std::map<uint64_t, GateInfo> gates_;
  std::map<uint64_t, LobGroupInfo> lobGroups_;
  std::map<uint64_t, ProjectorInfo> projectors_;
  std::map<uint64_t, LaserInfo> lasers_;
  std::map<uint64_t, CustomRenderingInfo> customRenderings_;
};

}  // namespace AsiInterface
