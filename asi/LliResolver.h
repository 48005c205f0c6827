#pragma once
// Matches by ASI id alone, for the successive files of one scenario that name
// themselves with "# Scenario Identifier:". The maps outlive a read, so the
// second file of a feed finds what the first created, whatever the names.

#include <map>
#include <string>

#include "asi/Resolver.h"

namespace AsiInterface {

class LliResolver : public Resolver {
 public:
  explicit LliResolver(const std::string& scenarioIdentifier) : scenarioIdentifier_(scenarioIdentifier) {}

  const std::string& getScenarioIdentifier() const { return scenarioIdentifier_; }

  void initialize() override {}
  uint64_t getPlatformId(uint64_t asiId, const PIData::PIPlatformHeader&) override { return getId_(asiId, ids_); }
  void setPlatformId(uint64_t asiId, const PIData::PIPlatformHeader&, uint64_t uniqueId) override {
    setId_(asiId, uniqueId, ids_);
  }
  uint64_t getBeamId(uint64_t, uint64_t asiId, const PIData::PIBeamHeader&) override { return getId_(asiId, ids_); }
  void setBeamId(uint64_t, uint64_t asiId, const PIData::PIBeamHeader&, uint64_t uniqueId) override {
    setId_(asiId, uniqueId, ids_);
  }
  uint64_t getGateId(uint64_t, uint64_t asiId, const PIData::PIGateHeader&) override { return getId_(asiId, ids_); }
  void setGateId(uint64_t, uint64_t asiId, const PIData::PIGateHeader&, uint64_t uniqueId) override {
    setId_(asiId, uniqueId, ids_);
  }
  uint64_t getLobGroupId(uint64_t, uint64_t asiId, const PIData::PILobHeader&) override {
    return getId_(asiId, ids_);
  }
  void setLobGroupId(uint64_t, uint64_t asiId, const PIData::PILobHeader&, uint64_t uniqueId) override {
    setId_(asiId, uniqueId, ids_);
  }
  // Projectors are numbered apart from the other entities.
  uint64_t getProjectorId(uint64_t, uint64_t asiId, const PIData::PIProjectorHeader&) override {
    return getId_(asiId, projectorIds_);
  }
  void setProjectorId(uint64_t, uint64_t asiId, const PIData::PIProjectorHeader&, uint64_t uniqueId) override {
    setId_(asiId, uniqueId, projectorIds_);
  }
  uint64_t getLaserId(uint64_t, uint64_t asiId, const PIData::PILaserHeader&, uint64_t) override {
    return getId_(asiId, ids_);
  }
  void setLaserId(uint64_t, uint64_t asiId, const PIData::PILaserHeader&, uint64_t, uint64_t uniqueId) override {
    setId_(asiId, uniqueId, ids_);
  }
  uint64_t getCustomRenderingId(uint64_t, uint64_t asiId, const PIData::PICustomRenderingHeader&) override {
    return getId_(asiId, ids_);
  }
  void setCustomRenderingId(uint64_t, uint64_t asiId, const PIData::PICustomRenderingHeader&,
                            uint64_t uniqueId) override {
    setId_(asiId, uniqueId, ids_);
  }

 private:
  using IdMap = std::map<uint64_t, uint64_t>;

  static uint64_t getId_(uint64_t asiId, const IdMap& map);
  static void setId_(uint64_t asiId, uint64_t uniqueId, IdMap& map) { map[asiId] = uniqueId; }

  std::string scenarioIdentifier_;
  IdMap ids_;           // every class but projectors: ASI ids are unique across them
  IdMap projectorIds_;
};

}  // namespace AsiInterface
