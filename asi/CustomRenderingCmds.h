#pragma once
// The custom rendering commands, stage 1. A custom rendering object is drawn
// by a renderer plug-in of the host; it hangs on a platform or on nothing
// (host id 0). The host creates it at the transmit of its ID line, without a
// data point.

#include <cstdint>
#include <string>
#include <vector>

#include "asi/ProviderParser.h"

namespace AsiInterface {

// "CustomRendering <host platform id or 0> <id> <name> <renderer>".
class CustomRendering : public ProviderParser {
 public:
  explicit CustomRendering(std::shared_ptr<ScenarioProvider> provider)
      : ProviderParser("CustomRendering", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  std::string renderer_;
};

// "CustomRenderingColor <id> <time> <colour>".
class CustomRenderingColorCmd : public ProviderParser {
 public:
  explicit CustomRenderingColorCmd(std::shared_ptr<ScenarioProvider> provider)
      : ProviderParser("CustomRenderingColor", std::move(provider)) {}

  FileReaderPlugin::CommandParser* clone() const override { return nullptr; }
  void executeStage1(const std::vector<std::string>& tokens) override;
  void transmit() override {}

 protected:
  uint64_t id_ = 0;
  double time_ = 0.0;
  uint32_t color_ = 0;
};

}  // namespace AsiInterface
