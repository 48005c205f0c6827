#include "asi/host/GateCreation.h"

#include <string>

#include "asi/BeamEntity.h"
#include "asi/Resolver.h"
#include "asi/host/HostEntities.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

// Files older than this need not name a gate's type.
const int LAST_VERSION_WITHOUT_GATE_TYPE = 17;

}  // namespace

uint64_t GateEntity::transmitCreateGate(AsiInterface::BaseParser& parser, uint64_t hostUniqueId,
                                        AsiInterface::Resolver* resolver, const PIData::PIGateHeader& header,
                                        const PIData::PIGatePoint& point, bool flag) {
  uint64_t id = resolver != nullptr ? resolver->getGateId(hostUniqueId, asiId(), header) : 0;
  if (id != 0) {
    setMerging(true);
  } else {
    id = PIData::createGate(hostUniqueId, header, &point, flag);
    if (id == 0) return 0;
    if (resolver != nullptr) resolver->setGateId(hostUniqueId, asiId(), header, id);
    // The point goes in as data below, like every later one.
    PIData::flushEntityData(id, PIData::PI_FLUSH_ALL);
  }
  transmitAddDataPoint(parser, id, point);
  return id;
}

int GateEntity::transmitAddDataPoint(AsiInterface::BaseParser& parser, uint64_t uniqueId,
                                     const PIData::PIGatePoint& point) const {
  const int result = PIData::addDataPoint(uniqueId, point);
  if (result != 0)
    parser.setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add Gate data; check console for error messages");
  return result;
}

uint64_t gateHostUniqueId(const AsiInterface::ScenarioProvider& provider, const AsiInterface::GateEntity& gate) {
  const AsiInterface::BeamEntity* beam = provider.getBeamEntity(gate.hostId());
  return beam != nullptr ? beam->uniqueId() : 0;
}

int createGate(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
               AsiInterface::GateEntity& entity, const PIData::PIGatePoint& point) {
  auto* gate = dynamic_cast<GateEntity*>(&entity);
  if (gate == nullptr) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
    return 1;
  }
  if (gate->name().empty()) gate->setName("Gate " + std::to_string(gate->asiId()));
  const uint64_t hostUniqueId = gateHostUniqueId(provider, *gate);
  if (hostUniqueId == 0) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, "Gate missing host beam.");
    return 1;
  }
  if (provider.version() > LAST_VERSION_WITHOUT_GATE_TYPE && !provider.doneOnce(gate->asiId(), "GateType"))
    command.setMessage(PICommon::PI_NOTIFY_WARN, "Should specify a gate type via a GateType command");

  PIData::PIGateHeader header;
  header.name = gate->name();
  header.gateType = gate->type();
  header.originalId = gate->originalId();
  const uint64_t id = gate->transmitCreateGate(command, hostUniqueId, provider.resolver(), header, point, true);
  if (id == 0) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to create gate; check console for error messages");
    return 1;
  }
  gate->setUniqueId(id);
  provider.transmitCommands(gate->asiId());
  return 0;
}

}  // namespace AsiReader
