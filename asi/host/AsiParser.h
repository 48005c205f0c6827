#pragma once
// The keyword table of one ASI read against the host: it builds the read's
// ScenarioProvider with entity 0 (the scenario itself), enters one command
// prototype per class over the stand-by NullParsers, and prepares the host's
// scenario before the first line runs.

#include <memory>
#include <string>
#include <vector>

#include "hostapi/PICommon.h"
#include "pipeline/AsiParserAdapter.h"

namespace AsiInterface {
class Resolver;
class ScenarioProvider;
}  // namespace AsiInterface

namespace AsiReader {

class AsiParser : public FileReaderPlugin::AsiParserAdapter {
 public:
  explicit AsiParser(PICommon::PIApplicationHost_t host);
  ~AsiParser() override;

  void populateCommands(int version) override;
  FileReaderPlugin::CommandParser* getCommand(const std::vector<std::string>& tokens) override;
  int didComplete(FileReaderPlugin::MessageManager& messages) override;
  void initializeScenario(const std::string& path) override;

  void setAppend(bool append) { append_ = append; }
  // Not owned; it outlives the read.
  void setResolver(AsiInterface::Resolver* resolver) { resolver_ = resolver; }
  // True once a platform with time-tagged data (or a hostless custom
  // rendering object) reached the host.
  bool hasNonStaticPlatforms() const;

  // The provider of the read, empty before populateCommands.
  const std::shared_ptr<AsiInterface::ScenarioProvider>& provider() const { return provider_; }
  // The host's scenario file name before an append renamed it.
  const std::string& previousScenarioFileName() const { return scenarioFileName_; }

 private:
  // The resolver that the commands see: the caller's, or one of the parser's
  // own when the caller gave none, so that a command never meets a null one.
  AsiInterface::Resolver* effectiveResolver_();

  std::shared_ptr<AsiInterface::ScenarioProvider> provider_;
  PICommon::PIApplicationHost_t host_;
  bool append_ = false;
  AsiInterface::Resolver* resolver_ = nullptr;
  std::string scenarioFileName_;
  std::unique_ptr<AsiInterface::Resolver> ownResolver_;
};

}  // namespace AsiReader
