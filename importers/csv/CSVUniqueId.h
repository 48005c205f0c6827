#pragma once
// The key of a track in a SCORE or PMRF file: its source, its track id (TID
// or VID) and a second number (the squawk of a SCORE position).

#include <ostream>
#include <string>

struct UniqueID {
  UniqueID() = default;
  UniqueID(std::string source, int id, int second) : source(std::move(source)), id(id), second(second) {}

  std::string source;
  int id = 0;
  int second = 0;

  bool operator==(const UniqueID& other) const {
    return source == other.source && id == other.id && second == other.second;
  }
  bool operator!=(const UniqueID& other) const { return !(*this == other); }
  // By source (byte-wise, the shorter first on a common prefix), then id, then second.
  bool operator<(const UniqueID& other) const {
    const int bySource = source.compare(other.source);
    if (bySource != 0) return bySource < 0;
    if (id != other.id) return id < other.id;
    return second < other.second;
  }
};

inline std::ostream& operator<<(std::ostream& os, const UniqueID& key) {
  return os << "Source: " << key.source << "  TID: " << key.id << "  Squawk: " << key.second;
}
