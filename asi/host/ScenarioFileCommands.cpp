#include "asi/host/ScenarioFileCommands.h"

#include <fstream>
#include <vector>

#include "asi/LliResolver.h"
#include "asi/host/TransmitSkeleton.h"
#include "core/StringUtils.h"
#include "hostapi/PIORVIDE.h"
#include "hostapi/PIServices.h"

namespace AsiReader {

namespace {

const uint64_t SCENARIO_ID = 0;

// Clean, owning the host's scenario, and on the display application.
bool displayOwner(AsiInterface::BaseParser& command, const AsiInterface::ScenarioProvider& provider) {
  return !TransmitSkeleton::guard(command) && !provider.isAppending() && provider.runningInORVIDE9or10();
}

void loadTerrain(AsiInterface::BaseParser& command, const AsiInterface::ScenarioProvider& provider,
                 const std::string& file) {
  if (!displayOwner(command, provider)) return;
  if (PIORVIDE::loadTerrainConfiguration(file) != 0) {
    command.setMessage(PICommon::PI_NOTIFY_WARN,
                       "Problems loading Terrain Configuration; check console for error messages");
  }
}

// View and media files refer to entities: until all of them are loaded the
// command waits on the scenario's queue, which runs again at the end.
bool waitForAllEntities(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider) {
  if (provider.hasLoadedAllEntities()) return false;
  provider.addCommand(SCENARIO_ID, command.clone());
  return true;
}

}  // namespace

void ITConfigFile::transmit() { loadTerrain(*this, *provider_, fileName_); }

void ImageFileDeprecated::transmit() { loadTerrain(*this, *provider_, fileName_); }

void RuleFile::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  // A feed of files under one scenario identifier keeps the rules of its first file.
  if (provider_->isAppending() && dynamic_cast<AsiInterface::LliResolver*>(provider_->resolver()) != nullptr) return;
  if (!provider_->runningInORVIDE9or10()) return;
  if (!provider_->isAppending()) PIORVIDE::removeAllPrefRules();
  std::vector<uint64_t> ruleIds;
  if (PIORVIDE::loadPrefRuleFile(fileName_, ruleIds) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Problems loading Preference Rule file; check console for error messages");
  }
}

void ViewFile::transmit() {
  if (!displayOwner(*this, *provider_) || waitForAllEntities(*this, *provider_)) return;
  // The host reports its own trouble with the file; the read has nothing to add.
  PIORVIDE::loadViewFile(fileName_);
}

void MediaFile::transmit() {
  if (!displayOwner(*this, *provider_) || waitForAllEntities(*this, *provider_)) return;
  PIORVIDE::loadMediaFile(fileName_);
}

void ImageFile::transmit() {
  if (!displayOwner(*this, *provider_)) return;
  for (const std::string& file : fileNames_) PIORVIDE::loadMediaFile(file);
}

void GOGFile::transmit() {
  if (TransmitSkeleton::guard(*this) || !provider_->runningInORVIDE9or10()) return;
  // Overlays are placed in the scenario's frame: wait for it to be sent.
  if (!provider_->hasScenarioFlushed()) return provider_->addCommand(SCENARIO_ID, clone());
  for (const std::string& file : fileNames_) {
    if (PIORVIDE::loadGOGFile(file, 0, true) != 0) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Problems loading GOG file; check console for error messages");
    }
  }
}

void File::transmit() {
  if (TransmitSkeleton::guard(*this) || provider_->isAppending()) return;
  if (orvCore::getExtension(fileName_) != ".xml") return setMessage(PICommon::PI_NOTIFY_WARN, "Unsupported file format");
  if (!provider_->runningInORVIDE9or10()) return;
  if (!provider_->hasLoadedAllEntities()) return provider_->addCommand(SCENARIO_ID, clone());

  const std::string serviceName = PluginClient::Interfaces::FILE_LOCATOR_SERVICE_NAME;
  PluginClient::Interfaces::FileLocatorService locator;
  locator.bind(serviceName);
  if (locator.getInterface() == nullptr) {
    setMessage(PICommon::PI_NOTIFY_WARN, "No service to find file: " + fileName_);
  } else {
    const std::string path = locator.getInterface()->findFile(fileName_, RANGE_CONFIGURATION_KIND);
    if (path.empty()) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Failed to find file: " + fileName_);
    } else {
      transmitRtConfig_(path);
    }
  }
  locator.unbind(serviceName);
}

void File::transmitRtConfig_(const std::string& path) {
  std::ifstream in(path);
  if (!in) return setMessage(PICommon::PI_NOTIFY_WARN, "Failed to open file: " + path);
  std::string text;
  std::string line;
  while (std::getline(in, line)) {
    text += line;
    text += '\n';
  }
  if (PIORVIDE::loadRangeConfiguration(text, false, path) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to load file: " + path);
  }
}

void SoundFile::transmit() { setMessage(PICommon::PI_NOTIFY_WARN, "SoundFile keyword is no longer supported."); }

void DEDMap::transmit() { setMessage(PICommon::PI_NOTIFY_WARN, "DEDFile is no longer supported."); }

void WVSMap::transmit() { setMessage(PICommon::PI_NOTIFY_WARN, "WVSFile is no longer supported."); }

}  // namespace AsiReader
