#include "asi/host/ScenarioProvider.h"

#include "asi/host/HostEntities.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void ScenarioProvider::transmitScenarioReference() {
  // An appended file must not move the origin of the scenario the host holds.
  if (isAppending()) return;
  PIData::PICoordReferenceFrame frame;
  referenceFrame(frame);
  PIData::setOriginLLA(frame.latitude, frame.longitude, frame.altitude);
  PIData::setTangentPlaneOffsets(frame.tangentPlaneX, frame.tangentPlaneY, frame.tangentPlaneAngle);
}

AsiInterface::PlatformEntity* ScenarioProvider::createPlatformEntity(const PIData::PICoordReferenceFrame& frame) {
  return new PlatformEntity(frame);
}

AsiInterface::BeamEntity* ScenarioProvider::createBeamEntity(uint64_t hostId) { return new BeamEntity(hostId); }

AsiInterface::GateEntity* ScenarioProvider::createGateEntity(uint64_t hostId) { return new GateEntity(hostId); }

AsiInterface::LobEntity* ScenarioProvider::createLobEntity(uint64_t hostId) { return new LobEntity(hostId); }

AsiInterface::LaserEntity* ScenarioProvider::createLaserEntity(uint64_t hostId, const std::string& name) {
  return new LaserEntity(hostId, name);
}

AsiInterface::CustomRenderingEntity* ScenarioProvider::createCustomRenderingEntity(uint64_t hostId,
                                                                                   const std::string& name) {
  return new CustomRenderingEntity(hostId, name);
}

AsiInterface::Table* ScenarioProvider::createTable(const std::string& name, AsiInterface::Entity* host) {
  return new AsiInterface::Table(name, host);
}

AsiInterface::Projector* ScenarioProvider::createProjector(const std::string& name, uint64_t projectorId,
                                                           uint64_t hostId) {
  auto* projector = new AsiInterface::Projector(name, hostId);
  projector->setAsiId(projectorId);
  return projector;
}

}  // namespace AsiReader
