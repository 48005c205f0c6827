#pragma once
// The base of the scenario commands' stage-1 classes: a ProviderParser whose
// clone and transmit stay empty until the host-bound layer fills them.

#include <memory>
#include <string>

#include "asi/ProviderParser.h"

namespace AsiInterface {

class ScnCommand : public ProviderParser {
 public:
  ScnCommand(const std::string& name, std::shared_ptr<ScenarioProvider> provider)
      : ProviderParser(name, std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void transmit() override {}
};

}  // namespace AsiInterface
