#pragma once
// Creating a beam in the host, as the beam's first data line that can run
// does it (BeamData, BeamDataRAE, or a target command of a target beam): the
// header checks, the merge or creation, the target, the commands parked for
// the beam, then the antenna and the AREPS files.

#include <cstdint>

#include "asi/BaseParser.h"
#include "asi/BeamEntity.h"
#include "asi/ScenarioProvider.h"

namespace AsiReader {

// 0 when the beam exists in the host afterwards; 1 after reporting through
// `command`. `targetUniqueId`, when not 0, becomes the beam's target at the
// point's time.
int createBeam(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
               AsiInterface::BeamEntity& beam, const PIData::PIBeamPoint& point, uint64_t targetUniqueId);

// The unique id of the platform that carries `beam`, 0 while the host does
// not hold it.
uint64_t beamHostUniqueId(const AsiInterface::ScenarioProvider& provider, const AsiInterface::BeamEntity& beam);

}  // namespace AsiReader
