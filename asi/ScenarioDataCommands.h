#pragma once
// Stage 1 of the data that a file addresses to any entity by number: generic
// data (current and pre-version-7 forms), events, category data, original ids,
// and the id maps of the old event and generic-object commands.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "asi/ScnCommandBase.h"
#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

// Whether a generic-data tag is one of the retired animated-line forms for a
// file of `version`: "AnimatedLine..." from version 7 on, and from version 8
// on also "ORVIDE_AnimatedLine..." whose value names an "entity=".
bool checkDeprecatedTagData(const std::string& tag, const std::string& value, int version);

// Expire times and event durations are kept only strictly inside (0, 99999998).
double limitExpireTime(double expire);

// Read in either stage and ignored.
class EventObjID : public ScnCommand {
 public:
  explicit EventObjID(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("EventObjID", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>&) override {}
};

class GenericObjID : public ScnCommand {
 public:
  explicit GenericObjID(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("GenericObjID", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>&) override {}
};

// Maps an old object id to the ASI id of the entity that hosts it.
class ScnObjectRefCommand : public ScnCommand {
 public:
  using ScnCommand::ScnCommand;
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  // 1 when the object id is already mapped.
  virtual int addMapping_(uint64_t objectId, uint64_t hostId) = 0;
};

class EventObjRefID : public ScnObjectRefCommand {
 public:
  explicit EventObjRefID(std::shared_ptr<ScenarioProvider> provider)
      : ScnObjectRefCommand("EventObjRefID", std::move(provider)) {}

 protected:
  int addMapping_(uint64_t objectId, uint64_t hostId) override { return provider_->addEvent(objectId, hostId); }
};

class GenericObjRefID : public ScnObjectRefCommand {
 public:
  explicit GenericObjRefID(std::shared_ptr<ScenarioProvider> provider)
      : ScnObjectRefCommand("GenericObjRefID", std::move(provider)) {}

 protected:
  int addMapping_(uint64_t objectId, uint64_t hostId) override {
    return provider_->addGenericDeprecated(objectId, hostId);
  }
};

// "OriginalID": the id under which the entity's data is matched on append.
class OriginalId : public ScnCommand {
 public:
  explicit OriginalId(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("OriginalID", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  uint64_t id_ = 0;
  uint64_t originalId_ = 0;
};

class CategoryData : public ScnCommand {
 public:
  explicit CategoryData(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("CategoryData", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  uint64_t id_ = 0;
  PIData::PICategoryDataPoint point_;
};

// Version 7 on: "GenericData <id> <tag> <value> <time> [expire]". A value
// holding "entityid=<n>" speaks of entity n, whose host id replaces n when
// the data is sent.
class GenericData : public ScnCommand {
 public:
  explicit GenericData(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("GenericData", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

  uint64_t embeddedId() const { return embeddedId_; }

 protected:
  // Reads the digits after "entityid=" into embeddedId_; false after warning.
  bool getEmbeddedId_(const std::string& value);

  uint64_t id_ = 0;
  uint64_t embeddedId_ = 0;
  PIData::PIGenericDataPoint point_;
};

// Up to version 6: "GenericData <object id> <tag> <value> <time> [expire]",
// the object id mapped by GenericObjRefID.
class GenericDataDeprecated : public ScnCommand {
 public:
  explicit GenericDataDeprecated(std::shared_ptr<ScenarioProvider> provider)
      : ScnCommand("GenericData", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  uint64_t hostId_ = 0;
  PIData::PIGenericDataPoint point_;
};

// "EventData <event id> <value> <time> [end]", the event id mapped by
// EventObjRefID; generic data with the tag "EVENT".
class EventData : public ScnCommand {
 public:
  explicit EventData(std::shared_ptr<ScenarioProvider> provider) : ScnCommand("EventData", std::move(provider)) {}
  void executeStage1(const std::vector<std::string>& tokens) override;

 protected:
  uint64_t hostId_ = 0;
  PIData::PIGenericDataPoint point_;
};

}  // namespace AsiInterface
