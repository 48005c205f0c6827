#pragma once
// Entity 0: the scenario itself. It exists from the start with unique id 0.

#include "asi/EntityAdapter.h"

namespace AsiInterface {

class ScenarioEntity : public EntityAdapter {
 public:
  ScenarioEntity() : EntityAdapter("Scenario") {}
  std::string typeName() const override { return "Scenario"; }
};

}  // namespace AsiInterface
