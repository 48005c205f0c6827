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
};

class GateEntity : public AsiInterface::GateEntity {
 public:
  using AsiInterface::GateEntity::GateEntity;
  void setOriginalId(uint64_t id) override;
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
