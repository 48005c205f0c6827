#pragma once
// A line-of-bearing group, hung on a platform (hostId is its ASI id).

#include "asi/EntityAdapter.h"
#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

class LobEntity : public EntityAdapter {
 public:
  explicit LobEntity(uint64_t hostId) : hostId_(hostId) {}
  std::string typeName() const override { return "LOB"; }

  uint64_t hostId() const { return hostId_; }
  int32_t type() const { return type_; }
  void setType(int32_t type) { type_ = type; }

 private:
  uint64_t hostId_;
  int32_t type_ = PIData::PI_LOB_ABSOLUTE;  // a PIData::PILobType_t value
};

}  // namespace AsiInterface
