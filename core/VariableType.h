#pragma once
// Type tags of generic values and data-table columns, and their names.

#include <string>

namespace UTILS {

enum VariableType_t : int {
  VT_UNKNOWN = 0,
  VT_UINT8 = 1,
  VT_INT8 = 2,
  VT_UINT16 = 3,
  VT_INT16 = 4,
  VT_UINT32 = 5,
  VT_INT32 = 6,
  VT_UINT64 = 7,
  VT_INT64 = 8,
  VT_FLOAT32 = 9,
  VT_FLOAT64 = 10,
  VT_STRING = 11,
  VT_BLOB = 12
};

// "UINT8", "FLOAT64", ...; "Unknown Variable Type" for a value outside the list.
std::string getVariableTypeString(VariableType_t type);
// The tag of an exact, case-sensitive name; VT_UNKNOWN for anything else.
VariableType_t getVariableType(const std::string& name);

}  // namespace UTILS
