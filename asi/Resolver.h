#pragma once
// Tells, at the moment an entity of an appended file is created, which object
// of the host's scenario it is, so that the reader merges instead of creating.
// A get answers the host's unique id, 0 when it knows none; a set records a
// creation. The plug-in owns the resolver; it outlives a read.

#include <cstdint>

#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

class Resolver {
 public:
  virtual ~Resolver() = default;

  // Runs once before a read.
  virtual void initialize() = 0;
  virtual uint64_t getPlatformId(uint64_t asiId, const PIData::PIPlatformHeader& header) = 0;
  virtual void setPlatformId(uint64_t asiId, const PIData::PIPlatformHeader& header, uint64_t uniqueId) = 0;
  virtual uint64_t getBeamId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIBeamHeader& header) = 0;
  virtual void setBeamId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIBeamHeader& header,
                         uint64_t uniqueId) = 0;
  virtual uint64_t getGateId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIGateHeader& header) = 0;
  virtual void setGateId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIGateHeader& header,
                         uint64_t uniqueId) = 0;
  virtual uint64_t getLobGroupId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILobHeader& header) = 0;
  virtual void setLobGroupId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILobHeader& header,
                             uint64_t uniqueId) = 0;
  virtual uint64_t getProjectorId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIProjectorHeader& header) = 0;
  virtual void setProjectorId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PIProjectorHeader& header,
                              uint64_t uniqueId) = 0;
  // The laser header carries no original id: it travels beside it.
  virtual uint64_t getLaserId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILaserHeader& header,
                              uint64_t originalId) = 0;
  virtual void setLaserId(uint64_t hostUniqueId, uint64_t asiId, const PIData::PILaserHeader& header,
                          uint64_t originalId, uint64_t uniqueId) = 0;
  virtual uint64_t getCustomRenderingId(uint64_t hostUniqueId, uint64_t asiId,
                                        const PIData::PICustomRenderingHeader& header) = 0;
  virtual void setCustomRenderingId(uint64_t hostUniqueId, uint64_t asiId,
                                    const PIData::PICustomRenderingHeader& header, uint64_t uniqueId) = 0;
};

}  // namespace AsiInterface
