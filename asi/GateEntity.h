#pragma once
// A gate, hung on a beam (hostId is the beam's ASI id).

#include "asi/EntityAdapter.h"
#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

class GateEntity : public EntityAdapter {
 public:
  explicit GateEntity(uint64_t hostId) : hostId_(hostId) {}
  std::string typeName() const override { return "Gate"; }

  uint64_t hostId() const { return hostId_; }
  int32_t type() const { return type_; }
  void setType(int32_t type) { type_ = type; }

 private:
  uint64_t hostId_;
  int32_t type_ = PIData::PI_GATE_UNKNOWN;  // a PIData::PIGateType_t value
};

}  // namespace AsiInterface
