#include "asi/ScenarioProvider.h"

#include "asi/BeamEntity.h"
#include "asi/CustomRenderingEntity.h"
#include "asi/GateEntity.h"
#include "asi/LaserEntity.h"
#include "asi/LobEntity.h"
#include "asi/PlatformEntity.h"
#include "core/StringUtils.h"
#include "core/TimeStamp.h"
#include "core/ValidNumber.h"
#include "pipeline/CommandParser.h"
#include "pipeline/MessageManager.h"

namespace AsiInterface {

namespace {

// Versions above this drop commands for never-defined ids silently.
const int LAST_VERSION_REPORTING_UNDEFINED = 22;

template <typename T>
T* typedEntity(Entity* entity) {
  return dynamic_cast<T*>(entity);
}

}  // namespace

ScenarioProvider::ScenarioProvider(int version, PICommon::PIApplicationHost_t host, bool requireIndependent)
    : frame_(PIData::PI_DEFAULT_REFFRAME), version_(version), host_(host), requireIndependent_(requireIndependent) {
  // The scenario frame starts as ECEF with no origin: CoordSystem and the
  // reference commands must complete it before the first platform.
  frame_.coordSystem = PIData::PI_COORD_ECEF;
  frame_.latitude = PIData::PI_UNSET_DOUBLE;
  frame_.longitude = PIData::PI_UNSET_DOUBLE;
  frame_.altitude = 0.0;
  frame_.verticalDatum = PIData::PI_VDATUM_WGS84;
  frame_.magneticVariance = PIData::PI_MAGVAR_TRUE;

  platformTypes_ = {
      {"unknown", "Unknown"},       {"ship", "Surface Ship"},         {"submarine", "Submarine"},
      {"aircraft", "Aircraft"},     {"satellite", "Satellite"},       {"helicopter", "Helicopter"},
      {"missile", "Missile"},       {"decoy", "Decoy"},               {"buoy", "Buoy"},
      {"reference", "Reference Site"}, {"vehicle", "Land Vehicle"},   {"landsite", "Land Site"},
      {"torpedo", "Torpedo"},       {"contact", "Contact"},
  };
}

ScenarioProvider::~ScenarioProvider() { clear(); }

void ScenarioProvider::clear() {
  // Tables point at entities: free them first.
  tables_.clear();
  projectors_.clear();
  platforms_.clear();
  entities_.clear();
  // Parked commands hold a reference to this provider: freeing the last of
  // them may free the provider itself, so they go last, from a local.
  std::map<uint64_t, CommandQueue> parked;
  parked.swap(deferred_);
  parked_ = 0;
}

// --- entities --------------------------------------------------------------

Entity* ScenarioProvider::getEntity(uint64_t id) const {
  auto it = entities_.find(id);
  return it == entities_.end() ? nullptr : it->second.get();
}

PlatformEntity* ScenarioProvider::getPlatformEntity(uint64_t id) const {
  auto it = platforms_.find(id);
  return it == platforms_.end() ? nullptr : it->second;
}
BeamEntity* ScenarioProvider::getBeamEntity(uint64_t id) const { return typedEntity<BeamEntity>(getEntity(id)); }
GateEntity* ScenarioProvider::getGateEntity(uint64_t id) const { return typedEntity<GateEntity>(getEntity(id)); }
LobEntity* ScenarioProvider::getLobEntity(uint64_t id) const { return typedEntity<LobEntity>(getEntity(id)); }
LaserEntity* ScenarioProvider::getLaserEntity(uint64_t id) const { return typedEntity<LaserEntity>(getEntity(id)); }
CustomRenderingEntity* ScenarioProvider::getCustomRenderingEntity(uint64_t id) const {
  return typedEntity<CustomRenderingEntity>(getEntity(id));
}

int ScenarioProvider::addEntity(uint64_t id, Entity* entity) {
  if (entity == nullptr || entities_.count(id) != 0) return 1;
  entities_[id].reset(entity);
  if (auto* platform = typedEntity<PlatformEntity>(entity)) platforms_[id] = platform;
  entity->setAsiId(id);
  // An entity's original id is its ASI id until OriginalID says otherwise.
  entity->setOriginalId(id);
  return 0;
}

int ScenarioProvider::getPlatformAsiId(const std::string& name, uint64_t& id) const {
  for (const auto& entry : entities_) {
    const auto* platform = dynamic_cast<const PlatformEntity*>(entry.second.get());
    if (platform != nullptr && platform->name() == name) {
      id = entry.first;
      return 0;
    }
  }
  return 1;
}

// --- tables, projectors, events ----------------------------------------------

int ScenarioProvider::addTable(uint64_t id, Table* table) {
  if (table == nullptr || tables_.count(id) != 0) return 1;
  tables_[id].reset(table);
  return 0;
}

Table* ScenarioProvider::getTable(uint64_t id) const {
  auto it = tables_.find(id);
  return it == tables_.end() ? nullptr : it->second.get();
}

int ScenarioProvider::addProjector(uint64_t id, Projector* projector) {
  if (projector == nullptr || projectors_.count(id) != 0) return 1;
  projectors_[id].reset(projector);
  return 0;
}

Projector* ScenarioProvider::getProjector(uint64_t id) const {
  auto it = projectors_.find(id);
  return it == projectors_.end() ? nullptr : it->second.get();
}

int ScenarioProvider::addEvent(uint64_t eventId, uint64_t hostId) {
  return events_.emplace(eventId, hostId).second ? 0 : 1;
}

int ScenarioProvider::getEvent(uint64_t eventId, uint64_t& hostId) const {
  auto it = events_.find(eventId);
  if (it == events_.end()) return 1;
  hostId = it->second;
  return 0;
}

int ScenarioProvider::addGenericDeprecated(uint64_t id, uint64_t hostId) {
  return genericDeprecated_.emplace(id, hostId).second ? 0 : 1;
}

int ScenarioProvider::getGenericDeprecated(uint64_t id, uint64_t& hostId) const {
  auto it = genericDeprecated_.find(id);
  if (it == genericDeprecated_.end()) return 1;
  hostId = it->second;
  return 0;
}

int ScenarioProvider::platformType(const std::string& text, PIData::PICategoryDataPoint& point) const {
  unsigned long index = 0;
  if (orvCore::isValidNumber(text, index, true)) {
    if (index >= platformTypes_.size()) return 1;
    point.categoryValue = platformTypes_[index].second;
    return 0;
  }
  for (const auto& type : platformTypes_) {
    if (orvCore::caseCompare(text, type.first) == 0) {
      point.categoryValue = type.second;
      return 0;
    }
  }
  return 1;
}

// --- done-once book ----------------------------------------------------------

bool ScenarioProvider::doneOnce(uint64_t id, const std::string& key) const {
  return doneOnce_.count(std::make_pair(id, key)) != 0;
}

void ScenarioProvider::setDoneOnce(uint64_t id, const std::string& key) { doneOnce_.emplace(id, key); }

bool ScenarioProvider::checkAndSetDoneOnce(uint64_t id, FileReaderPlugin::CommandParser* parser,
                                           const std::string& suffix) {
  const std::string key = parser->name() + suffix;
  if (doneOnce(id, key)) {
    parser->setMessage(PICommon::PI_NOTIFY_WARN, suffix.empty() ? "Can only specified the command once"
                                                                : "Can only specified the command once per file type");
    return true;
  }
  setDoneOnce(id, key);
  return false;
}

// --- parked commands ---------------------------------------------------------

void ScenarioProvider::addCommand(uint64_t id, FileReaderPlugin::CommandParser* parser) {
  if (parser == nullptr) return;  // an AsiInterface clone: nothing to run later
  std::unique_ptr<FileReaderPlugin::CommandParser> command(parser);
  if (parked_ >= MAX_PARKED_COMMANDS) {
    command->setMessage(PICommon::PI_NOTIFY_FATAL,
                        "More than " + std::to_string(MAX_PARKED_COMMANDS) +
                            " commands wait for entities that do not exist yet; the read stops");
    return;
  }
  deferred_[id].push_back(std::move(command));
  ++parked_;
}

int ScenarioProvider::transmitCommands(uint64_t id) {
  auto it = deferred_.find(id);
  if (it == deferred_.end()) return 0;
  // Taken out first, so that a command run now may park anew under this id.
  CommandQueue queue = std::move(it->second);
  deferred_.erase(it);
  parked_ -= queue.size();
  for (auto& command : queue) {
    command->transmit();
    // A warning does not stop the queue; an error drops this and the rest.
    if (command->hasError()) return 1;
    command.reset();
  }
  return 0;
}

int ScenarioProvider::flushScenarioCommands(std::string& message) {
  if (!coordSystemGiven_) {
    message = "Must specify coordinate system via CoordSystem command";
    return 1;
  }
  if (frame_.latitude == PIData::PI_UNSET_DOUBLE || frame_.longitude == PIData::PI_UNSET_DOUBLE) {
    message = version_ < 15 ? "Must specify reference origin via the RefLat and RefLon commands"
                            : "Must specify reference origin via the RefLLA command";
    return 1;
  }
  if (hasScenarioFlushed_) return 0;
  transmitScenarioReference();
  hasScenarioFlushed_ = true;
  transmitCommands(0);
  return 0;
}

double ScenarioProvider::normalizeTime(double time) const {
  if (referenceYear_ == scenarioReferenceYear_ || time == -1.0) return time;
  const orvCore::TimeStamp stamp(referenceYear_, orvCore::Seconds(time));
  const double result = stamp.secondsSinceRefYear(scenarioReferenceYear_).asDouble();
  return result < 0.0 ? INVALID_TIME : result;
}

void ScenarioProvider::setCoordSystem(int32_t coordSystem) {
  frame_.coordSystem = coordSystem;
  coordSystemGiven_ = true;
}

// The display application's kinds (1 and its "10" generation 0x11) differ
// in bit 4 only.
bool ScenarioProvider::runningInORVIDE9or10() const {
  return (static_cast<int32_t>(host_) & ~0x10) == PICommon::PI_HOST_ORVIDE;
}

// --- end of file -------------------------------------------------------------

int ScenarioProvider::didComplete(FileReaderPlugin::MessageManager& messages) {
  const auto error = [&messages](const std::string& text) { messages.addMessage(PICommon::PI_NOTIFY_ERROR, text, 0); };

  if (requireIndependent_ && !hasNonStaticIndependent_) {
    error("Must define at least one non-static independent entity");
    return -1;
  }
  hasLoadedAllEntities_ = true;

  // Scenario commands re-parked until every entity was loaded run now.
  if (hasScenarioFlushed_) {
    transmitCommands(0);
  } else {
    std::string message;
    if (flushScenarioCommands(message) != 0) {
      if (!message.empty()) error(message);
      return -1;
    }
  }

  bool incomplete = false;
  for (const auto& entry : entities_) {
    const Entity& entity = *entry.second;
    if (!entity.doesExist() && !entity.ignore()) {
      error("Incomplete definition for " + entity.typeName() + " " + std::to_string(entity.asiId()));
      incomplete = true;
    }
  }
  if (incomplete) return 1;
  if (deferred_.empty()) return 0;

  int firstPassLines = 0;
  int secondPassLines = 0;
  reportUnresolved_(messages, firstPassLines, secondPassLines);
  if (secondPassLines > 0) return -1;
  return firstPassLines > 0 ? 1 : 0;
}

void ScenarioProvider::reportUnresolved_(FileReaderPlugin::MessageManager& messages, int& firstPassLines,
                                         int& secondPassLines) const {
  const auto error = [&messages](const std::string& text) { messages.addMessage(PICommon::PI_NOTIFY_ERROR, text, 0); };

  // Commands waiting for an id that no ID command defined. Newer versions
  // drop them silently; projector ids are not entities and are left out.
  for (const auto& entry : deferred_) {
    const uint64_t id = entry.first;
    if (entities_.count(id) != 0) continue;
    if (version_ > LAST_VERSION_REPORTING_UNDEFINED || projectors_.count(id) != 0) continue;
    if (firstPassLines == 0) error("Reference(s) to undefined entities were detected : ");
    std::string text = "Unique ID " + std::to_string(id) + " at line(s): ";
    for (const auto& command : entry.second) text += std::to_string(command->lineNumber()) + " ";
    error(text);
    ++firstPassLines;
  }
  // Commands left behind for entities that did come to exist.
  for (const auto& entry : deferred_) {
    auto entity = entities_.find(entry.first);
    if (entity == entities_.end()) continue;
    if (secondPassLines == 0) error("An internal error prevented all commands to execute for the following entities: ");
    error(entity->second->name() + " " + std::to_string(entity->second->asiId()));
    ++secondPassLines;
  }
}

}  // namespace AsiInterface
