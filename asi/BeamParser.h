#pragma once
// Base of the beam commands: the provider and the look-up of the addressed beam.

#include "asi/BeamEntity.h"
#include "asi/ProviderParser.h"

namespace AsiInterface {

class BeamParser : public ProviderParser {
 public:
  using ProviderParser::ProviderParser;

 protected:
  // The beam named by `idText`, or null after reporting an error.
  BeamEntity* getBeam_(const std::string& idText, uint64_t& id);
};

}  // namespace AsiInterface
