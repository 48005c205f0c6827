#include "asi/host/AsiParser.h"

#include "asi/LliResolver.h"
#include "asi/ScenarioEntity.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/CommandFamilies.h"
#include "asi/host/ScenarioProvider.h"
#include "hostapi/PIData.h"
#include "pipeline/MessageManager.h"

namespace AsiReader {

AsiParser::AsiParser(PICommon::PIApplicationHost_t host) : host_(host) {}

// Parked commands hold the provider and the provider holds them, so the
// cycle is broken here; the table (in the base) goes after it.
AsiParser::~AsiParser() {
  if (provider_) provider_->clear();
}

AsiInterface::Resolver* AsiParser::effectiveResolver_() {
  if (resolver_) return resolver_;
  if (!ownResolver_) ownResolver_ = std::make_unique<AsiInterface::LliResolver>("");
  return ownResolver_.get();
}

void AsiParser::populateCommands(int version) {
  provider_ = std::make_shared<AsiReader::ScenarioProvider>(version, host_);
  provider_->setResolver(effectiveResolver_());

  // Entity 0 is the scenario; it exists in the host from the start.
  auto* scenario = new AsiInterface::ScenarioEntity;
  scenario->setUniqueId(0);
  if (provider_->addEntity(0, scenario) != 0) delete scenario;

  initializeNullCommands_(version);

  // One prototype per class, each with the shared provider, over the
  // stand-by commands. A keyword whose class is not part of this build keeps
  // its NullParser: it is read and ignored. The scenario family puts the
  // three version-dependent keywords last.
  CommandList commands;
  addPlatformCommands(provider_, version, commands);
  addBeamCommands(provider_, version, commands);
  addGateCommands(provider_, version, commands);
  addLaserCommands(provider_, version, commands);
  addLobCommands(provider_, version, commands);
  addProjectorCommands(provider_, version, commands);
  addCustomRenderingCommands(provider_, version, commands);
  addScenarioCommands(provider_, version, commands);
  addTableCommands(provider_, version, commands);
  for (FileReaderPlugin::CommandParser* command : commands) replaceCommand_(command);
}

FileReaderPlugin::CommandParser* AsiParser::getCommand(const std::vector<std::string>& tokens) {
  if (tokens.empty()) return nullptr;
  return findCommand_(tokens[0]);
}

int AsiParser::didComplete(FileReaderPlugin::MessageManager& messages) {
  if (!provider_) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "The file is either empty or the file lacks a Version command.", 0);
    return -1;
  }
  return provider_->didComplete(messages);
}

void AsiParser::initializeScenario(const std::string& path) {
  const bool hostHasScenario = PIData::isScenarioInitialized();
  if (provider_) provider_->setAppending(append_ && hostHasScenario);
  if (!append_ && hostHasScenario) PIData::deleteScenario();

  if (PIData::isScenarioInitialized()) {
    scenarioFileName_ = PIData::getScenarioFileName();
    PIData::setScenarioFileName(path);
  } else {
    PIData::initializeScenario(path, 0, PIData::PI_PROTOCOL_NONE, false);
  }
  effectiveResolver_()->initialize();
}

bool AsiParser::hasNonStaticPlatforms() const { return provider_ && provider_->hasNonStaticIndependent(); }

}  // namespace AsiReader
