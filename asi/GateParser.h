#pragma once
// Base of the gate commands: the provider and the look-up of the addressed gate.

#include "asi/GateEntity.h"
#include "asi/ProviderParser.h"

namespace AsiInterface {

class GateParser : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

 protected:
  // The gate named by `idText`, or null after reporting an error.
  GateEntity* getGate_(const std::string& idText, uint64_t& id);
};

}  // namespace AsiInterface
