#include "asi/host/DrawableSupport.h"

#include "hostapi/PIKurvex.h"

namespace AsiReader {

void ignoreInPlotApplication(AsiInterface::BaseParser& command, AsiInterface::Entity* object,
                             const char* missingText) {
  // A line that drew a warning (a wrong argument count) declared nothing
  // either: there is no object to mark and nothing more to report.
  if (command.hasError() || command.hasWarning()) return;
  if (!PIKurvex::runningInKurvex()) return;
  if (object == nullptr) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, missingText);
    return;
  }
  object->setIgnore(true);
}

AsiInterface::Entity* readyHost(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                                uint64_t hostAsiId, const char* missingText) {
  AsiInterface::Entity* host = provider.getEntity(hostAsiId);
  if (host == nullptr) {
    command.setMessage(PICommon::PI_NOTIFY_ERROR, missingText);
    return nullptr;
  }
  if (!host->doesExist()) {
    provider.addCommand(hostAsiId, command.clone());
    return nullptr;
  }
  return host;
}

}  // namespace AsiReader
