#pragma once
// A command that shares the read's ScenarioProvider: the base of the scenario
// commands and of the entity family bases.

#include <memory>

#include "asi/BaseParser.h"
#include "asi/ScenarioProvider.h"

namespace AsiInterface {

class ProviderParser : public BaseParser {
 public:
  ProviderParser(const std::string& name, std::shared_ptr<ScenarioProvider> provider)
      : BaseParser(name), provider_(std::move(provider)) {}

  const std::shared_ptr<ScenarioProvider>& provider() const { return provider_; }

 protected:
  // Reads an entity id; reports `notNumberText` as an error on failure.
  bool parseId_(const std::string& idText, uint64_t& id, const char* notNumberText);
  // Parses against the provider's reference year, as in force at this line.
  int parseTime_(const std::string& text, bool allowStatic, double& result) {
    return parseTimeString_(text, provider_->referenceYear(), 0, allowStatic, result);
  }

  std::shared_ptr<ScenarioProvider> provider_;
};

}  // namespace AsiInterface
