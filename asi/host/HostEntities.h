#pragma once
// The host-bound entities: once the host holds an entity, a later original id
// must reach the host's header as well. The scenario and projectors need no
// subclass (a projector does this itself).

#include "asi/BeamEntity.h"
#include "asi/CustomRenderingEntity.h"
#include "asi/GateEntity.h"
#include "asi/LaserEntity.h"
#include "asi/LobEntity.h"
#include "asi/PlatformEntity.h"

namespace AsiInterface {
class BaseParser;
class Resolver;
}  // namespace AsiInterface

namespace AsiReader {

class PlatformEntity : public AsiInterface::PlatformEntity {
 public:
  using AsiInterface::PlatformEntity::PlatformEntity;
  // Rewrites the host's header only when the value differs from the host's.
  void setOriginalId(uint64_t id) override;
};

class BeamEntity : public AsiInterface::BeamEntity {
 public:
  using AsiInterface::BeamEntity::BeamEntity;
  // The beam keeps its header: no fetch is needed.
  void setOriginalId(uint64_t id) override;

  // The antenna, unless the host is the plot application or none was
  // defined; 1 when the beam does not exist, else the host's answer.
  virtual int transmitSetAntennaInfo() const;
  // Merges with the beam the resolver knows, or creates it (dropping the
  // point the creation stored) and records it; then sends `point` unless this
  // is a target beam. The beam's unique id, 0 when the host refused.
  virtual uint64_t transmitCreateBeam(AsiInterface::BaseParser& parser, uint64_t hostUniqueId,
                                      AsiInterface::Resolver* resolver, const PIData::PIBeamHeader& header,
                                      const PIData::PIBeamPoint& point, bool flag);
  // One point; a refusal is reported through `parser`.
  virtual int transmitAddDataPoint(AsiInterface::BaseParser& parser, uint64_t uniqueId,
                                   const PIData::PIBeamPoint& point) const;
  // The AREPS files, unless merging or none; 1 when the beam does not exist.
  virtual int transmitArepsPattern() const;
  virtual int transmitSetTarget(uint64_t uniqueId, uint64_t targetId, double time) const;
};

class GateEntity : public AsiInterface::GateEntity {
 public:
  using AsiInterface::GateEntity::GateEntity;
  void setOriginalId(uint64_t id) override;

  // As BeamEntity::transmitCreateBeam: merge or create, then the point.
  virtual uint64_t transmitCreateGate(AsiInterface::BaseParser& parser, uint64_t hostUniqueId,
                                      AsiInterface::Resolver* resolver, const PIData::PIGateHeader& header,
                                      const PIData::PIGatePoint& point, bool flag);
  virtual int transmitAddDataPoint(AsiInterface::BaseParser& parser, uint64_t uniqueId,
                                   const PIData::PIGatePoint& point) const;
};

class LobEntity : public AsiInterface::LobEntity {
 public:
  using AsiInterface::LobEntity::LobEntity;
  void setOriginalId(uint64_t id) override;
};

class LaserEntity : public AsiInterface::LaserEntity {
 public:
  using AsiInterface::LaserEntity::LaserEntity;
  // The laser header has no original-id field: the host learns the value
  // only at creation, so here it is recorded alone.
  void setOriginalId(uint64_t id) override;
};

class CustomRenderingEntity : public AsiInterface::CustomRenderingEntity {
 public:
  using AsiInterface::CustomRenderingEntity::CustomRenderingEntity;
  void setOriginalId(uint64_t id) override;
};

}  // namespace AsiReader
