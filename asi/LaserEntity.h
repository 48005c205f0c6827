#pragma once
// A laser, hung on a platform (hostId is its ASI id), with a reference frame
// of its own.

#include "asi/EntityAdapter.h"
#include "hostapi/PIDataRecords.h"

namespace AsiInterface {

class LaserEntity : public EntityAdapter {
 public:
  LaserEntity(uint64_t hostId, const std::string& name) : EntityAdapter(name), hostId_(hostId) {}
  std::string typeName() const override { return "Laser"; }

  uint64_t hostId() const { return hostId_; }
  void referenceFrame(PIData::PICoordReferenceFrame& frame) const { frame = frame_; }
  void setReferenceFrame(const PIData::PICoordReferenceFrame& frame) { frame_ = frame; }
  bool bodyFlag() const { return bodyFlag_; }
  void setBodyFlag(bool flag) { bodyFlag_ = flag; }

 private:
  uint64_t hostId_;
  PIData::PICoordReferenceFrame frame_ = PIData::PI_DEFAULT_REFFRAME;
  bool bodyFlag_ = false;
};

}  // namespace AsiInterface
