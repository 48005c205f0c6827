#pragma once
// "PlatformID <id>": declares a platform. The entity takes a copy of the
// scenario's frame as it stands at this line, so later scenario frame
// commands do not reach it.

#include <cstdint>
#include <string>
#include <vector>

#include "asi/PlatformParser.h"

namespace AsiInterface {

class PlatformId : public PlatformParser {
 public:
  explicit PlatformId(std::shared_ptr<ScenarioProvider> provider)
      : PlatformParser("PlatformID", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

  uint64_t id() const { return id_; }

 protected:
  uint64_t id_ = 0;
};

}  // namespace AsiInterface
