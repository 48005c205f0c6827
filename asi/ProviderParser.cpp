#include "asi/ProviderParser.h"

#include "core/ValidNumber.h"

namespace AsiInterface {

bool ProviderParser::parseId_(const std::string& idText, uint64_t& id, const char* notNumberText) {
  unsigned long value = 0;
  if (!orvCore::isValidNumber(idText, value, true)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, notNumberText);
    return false;
  }
  id = value;
  return true;
}

}  // namespace AsiInterface
