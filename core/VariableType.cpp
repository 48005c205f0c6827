#include "core/VariableType.h"

namespace UTILS {

namespace {

// Indexed by the tag's value.
const char* const kNames[] = {"UNKNOWN", "UINT8", "INT8",   "UINT16",  "INT16",   "UINT32", "INT32",
                              "UINT64",  "INT64", "FLOAT32", "FLOAT64", "STRING", "BLOB"};
constexpr int kCount = static_cast<int>(sizeof(kNames) / sizeof(kNames[0]));

}  // namespace

std::string getVariableTypeString(VariableType_t type) {
  const int index = static_cast<int>(type);
  if (index < 0 || index >= kCount) return "Unknown Variable Type";
  return kNames[index];
}

VariableType_t getVariableType(const std::string& name) {
  for (int i = 1; i < kCount; ++i)
    if (name == kNames[i]) return static_cast<VariableType_t>(i);
  return VT_UNKNOWN;
}

}  // namespace UTILS
