#pragma once
// Base of the laser commands: the provider and the look-up of the addressed laser.

#include "asi/LaserEntity.h"
#include "asi/ProviderParser.h"

namespace AsiInterface {

class LaserParser : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

 protected:
  // The laser named by `idText`, or null after reporting an error.
  LaserEntity* getLaser_(const std::string& idText, uint64_t& id);
};

}  // namespace AsiInterface
