#pragma once
// The host-bound data by id: generic data, events, category data and original
// ids. Data for an entity that the host does not hold yet waits on that
// entity's queue; generic data that speaks of a second entity also waits for
// that one, so that its id can be given in the host's numbering.

#include "asi/ScenarioDataCommands.h"
#include "asi/host/ScnStageOneOnly.h"

namespace AsiReader {

// The id maps are built in stage 1; the ignored commands do nothing at all.
using EventObjID = ScnStageOneOnly<AsiInterface::EventObjID>;
using GenericObjID = ScnStageOneOnly<AsiInterface::GenericObjID>;
using EventObjRefID = ScnStageOneOnly<AsiInterface::EventObjRefID>;
using GenericObjRefID = ScnStageOneOnly<AsiInterface::GenericObjRefID>;

class OriginalId : public AsiInterface::OriginalId {
 public:
  using AsiInterface::OriginalId::OriginalId;
  FileReaderPlugin::CommandParser* clone() const override { return new OriginalId(*this); }
  void transmit() override;
};

class CategoryData : public AsiInterface::CategoryData {
 public:
  using AsiInterface::CategoryData::CategoryData;
  FileReaderPlugin::CommandParser* clone() const override { return new CategoryData(*this); }
  void transmit() override;
};

class GenericData : public AsiInterface::GenericData {
 public:
  using AsiInterface::GenericData::GenericData;
  FileReaderPlugin::CommandParser* clone() const override { return new GenericData(*this); }
  void transmit() override;

  // For an "ORVIDE_AnimatedLine..." tag: every "entityid" entry of the
  // comma-separated value gets `uniqueId`. Other tags come back unchanged.
  static std::string prepareInputGDDataString_(const std::string& tag, const std::string& value, uint64_t uniqueId);
};

class GenericDataDeprecated : public AsiInterface::GenericDataDeprecated {
 public:
  using AsiInterface::GenericDataDeprecated::GenericDataDeprecated;
  FileReaderPlugin::CommandParser* clone() const override { return new GenericDataDeprecated(*this); }
  void transmit() override;
};

class EventData : public AsiInterface::EventData {
 public:
  using AsiInterface::EventData::EventData;
  FileReaderPlugin::CommandParser* clone() const override { return new EventData(*this); }
  void transmit() override;
};

}  // namespace AsiReader
