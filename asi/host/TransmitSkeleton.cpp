#include "asi/host/TransmitSkeleton.h"

namespace AsiReader {

const char* const TransmitSkeleton::MISSING_ENTITY = "Internal Error: missing entity";
const char* const TransmitSkeleton::MISSING_PROJECTOR = "Internal Error: missing projector";
const char* const TransmitSkeleton::INVALID_TIME = "Time invalid with respect to the current scenario time.";

bool TransmitSkeleton::ready_(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                              AsiInterface::Entity* entity, const char* missingText) {
  if (guard(command)) return false;
  if (entity == nullptr) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, missingText);
    return false;
  }
  if (entity->ignore()) return false;
  if (!entity->doesExist()) {
    // Runs again, in file order, when the entity is created.
    provider.addCommand(entity->asiId(), command.clone());
    return false;
  }
  return true;
}

bool TransmitSkeleton::normalizeTime(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                                     double& time) {
  time = provider.normalizeTime(time);
  if (time < -1.0) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, INVALID_TIME);
    return false;
  }
  return true;
}

bool TransmitSkeleton::timed(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                             AsiInterface::Entity* entity, double& time, const char* missingText) {
  return ready_(command, provider, entity, missingText) && normalizeTime(command, provider, time);
}

bool TransmitSkeleton::deferring(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                                 AsiInterface::Entity* entity, const char* missingText) {
  return ready_(command, provider, entity, missingText) && !entity->isMerging();
}

}  // namespace AsiReader
