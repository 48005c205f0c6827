#pragma once
// Base of the LOB commands: the provider and the look-up of the addressed LOB.

#include "asi/LobEntity.h"
#include "asi/ProviderParser.h"

namespace AsiInterface {

class LobParser : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

 protected:
  // The LOB named by `idText`, or null after reporting an error.
  LobEntity* getLob_(const std::string& idText, uint64_t& id);
};

}  // namespace AsiInterface
