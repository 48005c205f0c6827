#pragma once
// The state that all commands of one ASI file share: the entities by ASI id,
// the reference frame and years, the done-once book, and the commands parked
// for entities that the host does not hold yet. One provider lives for one
// read; only the engine's main thread touches it.

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "asi/Entity.h"
#include "asi/Projector.h"
#include "asi/Table.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIDataRecords.h"

namespace FileReaderPlugin {
class CommandParser;
class MessageManager;
}  // namespace FileReaderPlugin

namespace AsiInterface {

class PlatformEntity;
class BeamEntity;
class GateEntity;
class LobEntity;
class LaserEntity;
class CustomRenderingEntity;
class Resolver;

class ScenarioProvider {
 public:
  // A time that the transmit skeleton refuses as outside the host's scenario.
  static constexpr double INVALID_TIME = -1.7976931348623157e308;
  // Commands that may wait at once for entities not created yet. One more is
  // a fatal error at its line: the store's memory stays bounded.
  static constexpr std::size_t MAX_PARKED_COMMANDS = 100000;

  ScenarioProvider(int version, PICommon::PIApplicationHost_t host, bool requireIndependent = false);
  virtual ~ScenarioProvider();
  ScenarioProvider(const ScenarioProvider&) = delete;
  ScenarioProvider& operator=(const ScenarioProvider&) = delete;

  // Host-bound slots, filled by AsiReader::ScenarioProvider.
  virtual void transmitScenarioReference() = 0;
  virtual PlatformEntity* createPlatformEntity(const PIData::PICoordReferenceFrame& frame) = 0;
  virtual BeamEntity* createBeamEntity(uint64_t hostId) = 0;
  virtual GateEntity* createGateEntity(uint64_t hostId) = 0;
  virtual LobEntity* createLobEntity(uint64_t hostId) = 0;
  virtual LaserEntity* createLaserEntity(uint64_t hostId, const std::string& name) = 0;
  virtual CustomRenderingEntity* createCustomRenderingEntity(uint64_t hostId, const std::string& name) = 0;
  virtual Table* createTable(const std::string& name, Entity* host) = 0;
  // The projector comes back with its ASI id set; it is not stored yet.
  virtual Projector* createProjector(const std::string& name, uint64_t projectorId, uint64_t hostId) = 0;
  // End-of-file checks: 0 complete, 1 with reported problems, -1 failed.
  virtual int didComplete(FileReaderPlugin::MessageManager& messages);

  // Entities, owned once added.
  Entity* getEntity(uint64_t id) const;
  PlatformEntity* getPlatformEntity(uint64_t id) const;
  BeamEntity* getBeamEntity(uint64_t id) const;
  GateEntity* getGateEntity(uint64_t id) const;
  LobEntity* getLobEntity(uint64_t id) const;
  LaserEntity* getLaserEntity(uint64_t id) const;
  CustomRenderingEntity* getCustomRenderingEntity(uint64_t id) const;
  // 1 if the id is taken (the caller keeps and discards `entity`); else
  // stores it, sets its ASI id and its original id to `id`, and answers 0.
  int addEntity(uint64_t id, Entity* entity);
  // Ascending ASI id; the first platform whose name equals `name` exactly.
  int getPlatformAsiId(const std::string& name, uint64_t& id) const;

  int addTable(uint64_t id, Table* table);
  Table* getTable(uint64_t id) const;
  int addProjector(uint64_t id, Projector* projector);
  Projector* getProjector(uint64_t id) const;

  int addEvent(uint64_t eventId, uint64_t hostId);
  int getEvent(uint64_t eventId, uint64_t& hostId) const;
  int addGenericDeprecated(uint64_t id, uint64_t hostId);
  int getGenericDeprecated(uint64_t id, uint64_t& hostId) const;

  // A platform type by index or word into the point's value; 1 if unknown.
  int platformType(const std::string& text, PIData::PICategoryDataPoint& point) const;

  bool doneOnce(uint64_t id, const std::string& key) const;
  void setDoneOnce(uint64_t id, const std::string& key);
  // True, after warning through `parser`, if `parser`'s keyword plus `suffix`
  // was already done for `id`; else records it and answers false.
  bool checkAndSetDoneOnce(uint64_t id, FileReaderPlugin::CommandParser* parser, const std::string& suffix);

  // Parks `parser` (owned from now on) until entity `id` is created. With
  // MAX_PARKED_COMMANDS already waiting, `parser` reports a fatal error
  // instead and is deleted.
  void addCommand(uint64_t id, FileReaderPlugin::CommandParser* parser);
  std::size_t parkedCommands() const { return parked_; }
  // Runs what is parked for `id` in file order; 1 if a command ended in error.
  int transmitCommands(uint64_t id);
  // Sends the reference frame once it is complete; 1 with `message` if not.
  int flushScenarioCommands(std::string& message);
  // A time of the file's reference year re-expressed in the host's.
  double normalizeTime(double time) const;

  void setCoordSystem(int32_t coordSystem);
  void referenceFrame(PIData::PICoordReferenceFrame& frame) const { frame = frame_; }
  void setReferenceFrame(const PIData::PICoordReferenceFrame& frame) { frame_ = frame; }
  // The host is the full display application.
  bool runningInORVIDE9or10() const;

  Resolver* resolver() const { return resolver_; }
  void setResolver(Resolver* resolver) { resolver_ = resolver; }
  int version() const { return version_; }
  bool isAppending() const { return isAppending_; }
  void setAppending(bool appending) { isAppending_ = appending; }
  bool isDegrees() const { return isDegrees_; }
  void setIsDegrees(bool degrees) { isDegrees_ = degrees; }
  int referenceYear() const { return referenceYear_; }
  void setReferenceYear(int year) { referenceYear_ = year; }
  int scenarioReferenceYear() const { return scenarioReferenceYear_; }
  void setScenarioReferenceYear(int year) { scenarioReferenceYear_ = year; }
  bool hasScenarioFlushed() const { return hasScenarioFlushed_; }
  bool hasLoadedAllEntities() const { return hasLoadedAllEntities_; }
  void setHaveNonStaticIndependent() { hasNonStaticIndependent_ = true; }
  bool hasNonStaticIndependent() const { return hasNonStaticIndependent_; }
  PICommon::PIApplicationHost_t host() const { return host_; }

  // Frees everything parked and every entity, table and projector. Parked
  // commands keep the provider alive through their shared pointer, so the
  // owner of a read must call clear() when the read ends (the destructor
  // alone never runs while commands are parked).
  void clear();

 private:
  using CommandQueue = std::deque<std::unique_ptr<FileReaderPlugin::CommandParser>>;

  void reportUnresolved_(FileReaderPlugin::MessageManager& messages, int& firstPassLines,
                         int& secondPassLines) const;

  std::map<uint64_t, CommandQueue> deferred_;
  std::size_t parked_ = 0;  // commands in deferred_
  std::map<uint64_t, std::unique_ptr<Entity>> entities_;
  // The platforms among the entities, found without a walk of the map and a
  // checked downcast: every data line asks for its platform twice.
  std::unordered_map<uint64_t, PlatformEntity*> platforms_;
  std::map<uint64_t, std::unique_ptr<Table>> tables_;
  std::map<uint64_t, std::unique_ptr<Projector>> projectors_;
  std::map<uint64_t, uint64_t> events_;
  std::map<uint64_t, uint64_t> genericDeprecated_;
  std::vector<std::pair<std::string, std::string>> platformTypes_;
  std::set<std::pair<uint64_t, std::string>> doneOnce_;
  PIData::PICoordReferenceFrame frame_;
  int version_;
  bool hasScenarioFlushed_ = false;
  bool hasNonStaticIndependent_ = false;
  bool hasLoadedAllEntities_ = false;
  bool coordSystemGiven_ = false;
  int referenceYear_ = 1970;
  int scenarioReferenceYear_ = 1970;
  bool isDegrees_ = false;
  PICommon::PIApplicationHost_t host_;
  bool requireIndependent_;
  bool isAppending_ = false;
  Resolver* resolver_ = nullptr;
};

}  // namespace AsiInterface
