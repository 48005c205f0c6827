#pragma once
// The provider of a read against the host: builds the host-bound entity
// classes and sends the scenario's reference origin.

#include "asi/ScenarioProvider.h"

namespace AsiReader {

class ScenarioProvider : public AsiInterface::ScenarioProvider {
 public:
  // A read against the host needs at least one non-static independent entity.
  ScenarioProvider(int version, PICommon::PIApplicationHost_t host)
      : AsiInterface::ScenarioProvider(version, host, true) {}

  // Unless appending: the origin and the tangent-plane offsets of the frame.
  void transmitScenarioReference() override;
  AsiInterface::PlatformEntity* createPlatformEntity(const PIData::PICoordReferenceFrame& frame) override;
  AsiInterface::BeamEntity* createBeamEntity(uint64_t hostId) override;
  AsiInterface::GateEntity* createGateEntity(uint64_t hostId) override;
  AsiInterface::LobEntity* createLobEntity(uint64_t hostId) override;
  AsiInterface::LaserEntity* createLaserEntity(uint64_t hostId, const std::string& name) override;
  AsiInterface::CustomRenderingEntity* createCustomRenderingEntity(uint64_t hostId,
                                                                   const std::string& name) override;
  AsiInterface::Table* createTable(const std::string& name, AsiInterface::Entity* host) override;
  AsiInterface::Projector* createProjector(const std::string& name, uint64_t projectorId,
                                           uint64_t hostId) override;
};

}  // namespace AsiReader
