#include "asi/PlatformHeaderCmds.h"

#include <algorithm>

#include "core/ValidNumber.h"

namespace AsiInterface {

std::string PlatformName::buildName(const std::vector<std::string>& tokens, size_t first) {
  std::string name;
  for (size_t i = first; i < tokens.size(); ++i) {
    name += tokens[i];
    name += ' ';
  }
  static const char* const BLANKS = " \n\r\t";
  const size_t begin = name.find_first_not_of(BLANKS);
  if (begin == std::string::npos) {
    name.clear();
  } else {
    name = name.substr(begin, name.find_last_not_of(BLANKS) - begin + 1);
  }
  name.erase(std::remove(name.begin(), name.end(), '"'), name.end());
  return name.empty() ? "None" : name;
}

void PlatformName::executeStage1(const std::vector<std::string>& tokens) {
  if (validateAtLeastTokens_(3, tokens.size()) != 0) return;
  PlatformEntity* platform = getPlatform_(tokens[1], id_);
  if (platform == nullptr) return;
  platform->setName(buildName(tokens, 2));
}

void PlatformIcon::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  PlatformEntity* platform = getPlatform_(tokens[1], id_);
  if (platform == nullptr) return;
  platform->setIconName(tokens[2]);
}

void PlatformUsesQuaternion::executeStage1(const std::vector<std::string>& tokens) {
  if (validateNumberOfTokens_(3, tokens.size()) != 0) return;
  PlatformEntity* platform = getPlatform_(tokens[1], id_);
  if (platform == nullptr) return;
  int type = 0;
  if (!orvCore::isValidNumber(tokens[2], type, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid number");
    return;
  }
  // Compared unsigned, so a negative order is out of range too.
  if (static_cast<unsigned int>(type) > 3) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Invalid type");
    return;
  }
  platform->setQuaternion(type);
}

}  // namespace AsiInterface
