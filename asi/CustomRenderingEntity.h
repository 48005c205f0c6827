#pragma once
// A custom rendering object; hostId is the ASI id of its platform, 0 for an
// object without a host.

#include "asi/EntityAdapter.h"

namespace AsiInterface {

class CustomRenderingEntity : public EntityAdapter {
 public:
  CustomRenderingEntity(uint64_t hostId, const std::string& name) : EntityAdapter(name), hostId_(hostId) {}
  std::string typeName() const override { return "CustomRendering"; }

  uint64_t hostId() const { return hostId_; }

 private:
  uint64_t hostId_;
};

}  // namespace AsiInterface
