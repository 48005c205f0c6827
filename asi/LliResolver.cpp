#include "asi/LliResolver.h"

namespace AsiInterface {

uint64_t LliResolver::getId_(uint64_t asiId, const IdMap& map) {
  auto it = map.find(asiId);
  return it == map.end() ? 0 : it->second;
}

}  // namespace AsiInterface
