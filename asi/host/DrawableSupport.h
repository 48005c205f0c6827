#pragma once
// Steps shared by the host-bound laser, LOB, projector and custom rendering
// commands: objects that hang on a host entity and are not wanted in the
// plot application.

#include "asi/BaseParser.h"
#include "asi/Entity.h"
#include "asi/ScenarioProvider.h"

namespace AsiReader {

// After a clean stage 1 of an ID line: in the plot application the new object
// is marked ignore(), so that it takes its commands and sends nothing. A
// missing object there is the error `missingText`.
void ignoreInPlotApplication(AsiInterface::BaseParser& command, AsiInterface::Entity* object,
                             const char* missingText);

// The host entity of a hung object, once the host holds it. Null when the
// command is done for now: after the error `missingText` when there is no
// such entity, or with a clone of `command` parked under the host's ASI id,
// to run again when the host entity is created.
AsiInterface::Entity* readyHost(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                                uint64_t hostAsiId, const char* missingText);

}  // namespace AsiReader
