#pragma once
// Interns strings so that records can refer to them by a 32-bit index:
// repeated tags and values of generic and category data cost one copy.

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace RefHost {

class StringPool {
 public:
  StringPool() = default;
  StringPool(const StringPool&) = delete;
  StringPool& operator=(const StringPool&) = delete;

  std::uint32_t intern(std::string_view text);
  const std::string& at(std::uint32_t index) const { return strings_.at(index); }
  std::size_t size() const { return strings_.size(); }
  void clear();

 private:
  // A deque keeps element addresses stable, so the map can key on views.
  std::deque<std::string> strings_;
  std::unordered_map<std::string_view, std::uint32_t> index_;
};

}  // namespace RefHost
