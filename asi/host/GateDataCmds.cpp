#include "asi/host/GateDataCmds.h"

#include "asi/host/GateCreation.h"
#include "asi/host/HostEntities.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

// The gate of a data line, or null after the guard or the error.
AsiInterface::GateEntity* dataGate(AsiInterface::BaseParser& command, const AsiInterface::ScenarioProvider& provider,
                                   uint64_t id) {
  if (TransmitSkeleton::guard(command)) return nullptr;
  AsiInterface::GateEntity* gate = provider.getGateEntity(id);
  if (gate == nullptr) command.setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
  return gate;
}

void addPoint(AsiInterface::BaseParser& command, const AsiInterface::GateEntity& gate,
              const PIData::PIGatePoint& point) {
  if (const auto* hostGate = dynamic_cast<const GateEntity*>(&gate))
    hostGate->transmitAddDataPoint(command, gate.uniqueId(), point);
}

// GateData and TargetGateData: a point and a colour.
void sendColoredPoint(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider, uint64_t id,
                      PIData::PIGatePoint& point, uint32_t color) {
  AsiInterface::GateEntity* gate = dataGate(command, provider, id);
  if (gate == nullptr || !TransmitSkeleton::normalizeTime(command, provider, point.time)) return;
  if (gate->doesExist()) {
    // As with beams, a refused point does not take the colour with it.
    addPoint(command, *gate, point);
  } else if (createGate(command, provider, *gate, point) != 0) {
    return;
  }
  PIData::setColor(gate->uniqueId(), color, point.time);
}

}  // namespace

void GateData::transmit() { sendColoredPoint(*this, *provider_, id_, point_, color_); }

void TargetGateData::transmit() { sendColoredPoint(*this, *provider_, id_, point_, color_); }

void GateDataRAE::transmit() {
  AsiInterface::GateEntity* gate = dataGate(*this, *provider_, id_);
  if (gate == nullptr) return;
  if (gate->doesExist()) {
    if (TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) addPoint(*this, *gate, point_);
    return;
  }
  if (gateHostUniqueId(*provider_, *gate) == 0) {
    provider_->addCommand(gate->hostId(), clone());
    return;
  }
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) return;
  createGate(*this, *provider_, *gate, point_);
}

}  // namespace AsiReader
