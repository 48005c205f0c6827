#include "host/StringPool.h"

namespace RefHost {

std::uint32_t StringPool::intern(std::string_view text) {
  auto it = index_.find(text);
  if (it != index_.end()) return it->second;
  strings_.emplace_back(text);
  auto index = static_cast<std::uint32_t>(strings_.size() - 1);
  index_.emplace(std::string_view(strings_.back()), index);
  return index;
}

void StringPool::clear() {
  index_.clear();
  strings_.clear();
}

}  // namespace RefHost
