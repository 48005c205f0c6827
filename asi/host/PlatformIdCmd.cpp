#include "asi/host/PlatformIdCmd.h"

namespace AsiReader {

void PlatformId::transmit() {
  std::string message;
  if (provider_->flushScenarioCommands(message) != 0) setMessage(PICommon::PI_NOTIFY_ERROR, message, 0);
}

}  // namespace AsiReader
