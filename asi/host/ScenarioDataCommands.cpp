#include "asi/host/ScenarioDataCommands.h"

#include "asi/host/TransmitSkeleton.h"
#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "hostapi/PIData.h"

namespace AsiReader {

namespace {

// Versions above this number projectors apart from the other entities and
// let data be addressed to them.
const int LAST_VERSION_WITHOUT_PROJECTOR_DATA = 22;
const char* const MISSING_HOST_ENTITY = "Missing host entity";
const char* const GENERIC_DATA_FAILED = "Failed to create generic data; check console for error messages";

// The entity of an id, or for newer files the projector of that id.
AsiInterface::Entity* entityOrProjector(const AsiInterface::ScenarioProvider& provider, uint64_t id) {
  AsiInterface::Entity* entity = provider.getEntity(id);
  if (entity == nullptr && provider.version() > LAST_VERSION_WITHOUT_PROJECTOR_DATA) entity = provider.getProjector(id);
  return entity;
}

// The closing steps of every generic-data command: time, then the host.
void sendGenericData(AsiInterface::BaseParser& command, AsiInterface::ScenarioProvider& provider,
                     const AsiInterface::Entity& entity, PIData::PIGenericDataPoint& point) {
  if (!TransmitSkeleton::normalizeTime(command, provider, point.time)) return;
  if (PIData::createGenericData(entity.uniqueId(), point) == 0) {
    command.setMessage(PICommon::PI_NOTIFY_WARN, GENERIC_DATA_FAILED);
  }
}

}  // namespace

void OriginalId::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::Entity* entity = entityOrProjector(*provider_, id_);
  if (entity == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, MISSING_HOST_ENTITY);
  if (provider_->isAppending() && entity->doesExist()) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Setting OriginalID after first data point may result in a invalid merge.");
  }
  entity->setOriginalId(originalId_);
}

void CategoryData::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::Entity* entity = entityOrProjector(*provider_, id_);
  if (entity == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, MISSING_HOST_ENTITY);
  if (entity->ignore()) return;
  if (!entity->doesExist()) return provider_->addCommand(id_, clone());
  // A static value is not sent again to an entity that the host already has.
  if (entity->isMerging() && point_.time == -1.0) return;
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, point_.time)) return;
  if (PIData::addCategoryData(entity->uniqueId(), point_) != 0) {
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add category data; check console for error messages");
  }
}

void GenericData::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::Entity* entity = entityOrProjector(*provider_, id_);
  // An id not declared yet may still be declared further down.
  if (entity == nullptr) return provider_->addCommand(id_, clone());
  if (entity->ignore()) return;
  // The data waits for the entity that it speaks of.
  const AsiInterface::Entity* embedded = provider_->getEntity(embeddedId_);
  if (embedded == nullptr || !embedded->doesExist()) return provider_->addCommand(embeddedId_, clone());
  if (!entity->doesExist()) return provider_->addCommand(id_, clone());
  if (embeddedId_ != 0) point_.value = prepareInputGDDataString_(point_.tag, point_.value, embedded->uniqueId());
  sendGenericData(*this, *provider_, *entity, point_);
}

std::string GenericData::prepareInputGDDataString_(const std::string& tag, const std::string& value,
                                                   uint64_t uniqueId) {
  const std::string animatedLine = "ORVIDE_AnimatedLine";
  if (tag.size() < animatedLine.size() || orvCore::caseCompare(tag.substr(0, animatedLine.size()), animatedLine) != 0) {
    return value;
  }
  std::string result;
  size_t begin = 0;
  while (true) {
    const size_t comma = value.find(',', begin);
    std::string token = value.substr(begin, comma == std::string::npos ? std::string::npos : comma - begin);
    std::string name;
    std::string entry;
    if (orvCore::getNameAndValueFromToken(token, name, entry).empty() && orvCore::caseCompare(name, "entityid") == 0) {
      token = "entityid=" + std::to_string(uniqueId);
    }
    result += token;
    if (comma == std::string::npos) break;
    result += ',';
    begin = comma + 1;
  }
  return result;
}

void GenericDataDeprecated::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::Entity* entity = provider_->getEntity(hostId_);
  if (entity == nullptr || entity->ignore()) return;
  if (!entity->doesExist()) return provider_->addCommand(hostId_, clone());
  sendGenericData(*this, *provider_, *entity, point_);
}

void EventData::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::Entity* entity = provider_->getEntity(hostId_);
  if (entity == nullptr) return setMessage(PICommon::PI_NOTIFY_WARN, "Event data created before entity");
  if (entity->ignore()) return;
  if (!entity->doesExist()) return provider_->addCommand(hostId_, clone());
  sendGenericData(*this, *provider_, *entity, point_);
}

}  // namespace AsiReader
