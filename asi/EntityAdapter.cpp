#include "asi/EntityAdapter.h"

namespace AsiInterface {

void EntityAdapter::setUniqueId(uint64_t id) {
  uniqueId_ = id;
  // The one place where an entity comes to exist; id 0 is the scenario's.
  doesExist_ = true;
}

int EntityAdapter::addTable(const std::string& name) { return tables_.insert(name).second ? 0 : 1; }

}  // namespace AsiInterface
