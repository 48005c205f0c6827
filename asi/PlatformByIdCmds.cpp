#include "asi/PlatformByIdCmds.h"

#include <strings.h>

#include "core/ValidNumber.h"

namespace AsiInterface {

bool PlatformByIdCommand::parseIdAndArgument_(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return false;
  unsigned long id = 0;
  if (!orvCore::isValidNumber(tokens[1], id, true)) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid ID");
    return false;
  }
  id_ = id;
  return true;
}

void PlatformRCS::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndArgument_(tokens)) file_ = tokens[2];
}

void PlatformAttachedGOG::executeStage1(const std::vector<std::string>& tokens) {
  if (parseIdAndArgument_(tokens)) file_ = tokens[2];
}

void PlatformType::executeStage1(const std::vector<std::string>& tokens) {
  if (!parseIdAndArgument_(tokens)) return;
  point_.time = -1.0;
  point_.categoryName = "Platform Type";
  if (provider_->platformType(tokens[2], point_) != 0) {
    point_.categoryValue = "Unknown";
    setMessage(PICommon::PI_NOTIFY_INFO, "Invalid Platform type; changing to \"Unknown\"");
  }
}

void PlatformFHN::executeStage1(const std::vector<std::string>& tokens) {
  if (!parseIdAndArgument_(tokens)) return;
  point_.time = -1.0;
  point_.categoryName = "Affinity";
  const char* text = tokens[2].c_str();
  if (strcasecmp(text, "F") == 0) {
    point_.categoryValue = "Friendly";
  } else if (strcasecmp(text, "H") == 0) {
    point_.categoryValue = "Hostile";
  } else if (strcasecmp(text, "N") == 0) {
    point_.categoryValue = "Neutral";
  } else {
    point_.categoryValue = "Unknown";
    setMessage(PICommon::PI_NOTIFY_WARN, "Invalid designation");
  }
}

}  // namespace AsiInterface
