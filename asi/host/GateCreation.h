#pragma once
// Creating a gate in the host, as the gate's first data line that can run
// does it: the merge or creation with the point, then the commands parked for
// the gate.

#include <cstdint>

#include "asi/BaseParser.h"
#include "asi/GateEntity.h"
#include "asi/ScenarioProvider.h"

namespace AsiReader {

// 0 when the gate exists in the host afterwards; 1 after reporting through
// `command`.
int createGate(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
               AsiInterface::GateEntity& gate, const PIData::PIGatePoint& point);

// The unique id of the beam that carries `gate`, 0 while the host does not
// hold it.
uint64_t gateHostUniqueId(const AsiInterface::ScenarioProvider& provider, const AsiInterface::GateEntity& gate);

}  // namespace AsiReader
