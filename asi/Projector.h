#pragma once
// A projector, hung on a platform or a beam. Projectors are numbered apart
// from the other entities and live in a table of their own in the provider.

#include "asi/EntityAdapter.h"

namespace AsiInterface {

class Projector : public EntityAdapter {
 public:
  Projector(const std::string& name, uint64_t hostAsiId) : EntityAdapter(name), hostAsiId_(hostAsiId) {}
  std::string typeName() const override { return "Projector"; }

  // Records the value and, once the host holds the projector, rewrites the
  // original id of its header there too.
  void setOriginalId(uint64_t id) override;

  uint64_t hostAsiId() const { return hostAsiId_; }
  bool hasRasterFile() const { return hasRasterFile_; }
  void setHasRasterFile() { hasRasterFile_ = true; }

 private:
  uint64_t hostAsiId_;
  bool hasRasterFile_ = false;
};

}  // namespace AsiInterface
