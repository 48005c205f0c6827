#pragma once
// Host-bound gate declaration, name and type: they act in stage 1 and send
// nothing themselves; the creation of the gate carries what they set.

#include "asi/GateDefinitionCmds.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

using GateId = ScnStageOneOnly<AsiInterface::GateId>;
using GateDesc = ScnStageOneOnly<AsiInterface::GateDesc>;
using GateType = ScnStageOneOnly<AsiInterface::GateType>;

}  // namespace AsiReader
