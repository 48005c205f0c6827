#pragma once
// Base of the platform commands: the provider and the look-up of the addressed platform.

#include "asi/PlatformEntity.h"
#include "asi/ProviderParser.h"

namespace AsiInterface {

class PlatformParser : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

 protected:
  // The platform named by `idText`, or null after reporting an error.
  PlatformEntity* getPlatform_(const std::string& idText, uint64_t& id);
};

}  // namespace AsiInterface
