#include "asi/host/CommandFamilies.h"

namespace AsiReader {

void addScenarioCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& /*provider*/, int /*version*/,
                         CommandList& /*commands*/) {}

}  // namespace AsiReader
