#include "asi/host/ScenarioSettingCommands.h"

#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

// Clean, and the file owns the scenario (it is not appended to another).
bool ownsScenario(AsiInterface::BaseParser& command, const AsiInterface::ScenarioProvider& provider) {
  return !TransmitSkeleton::guard(command) && !provider.isAppending();
}

void sendClassification(const AsiInterface::Classification& command) {
  PIData::setClassification(command.text());
  PIData::setClassificationColor(command.color());
}

}  // namespace

void ReferenceYear::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  if (!provider_->isAppending()) PIData::setReferenceYear(provider_->referenceYear());
  // An appended file's times are re-expressed in the year the host keeps.
  provider_->setScenarioReferenceYear(PIData::getReferenceYear());
}

void Classification::transmit() {
  if (ownsScenario(*this, *provider_)) sendClassification(*this);
}

void ClassificationDeprecated::transmit() {
  if (ownsScenario(*this, *provider_)) sendClassification(*this);
}

void ScenarioInfo::transmit() {
  if (ownsScenario(*this, *provider_)) PIData::setDescription(text_);
}

void WindSpeed::transmit() {
  if (ownsScenario(*this, *provider_)) PIData::setWindSpeed(value_);
}

void WindAngle::transmit() {
  if (ownsScenario(*this, *provider_)) PIData::setWindDirection(value_);
}

}  // namespace AsiReader
