#pragma once
// Result codes of the data-table store: 0 is success. The numbers of codes
// that callers test for (4, 5, 6, 7, 9, 10, 29) are fixed; the rest are ours.

#include <cstdint>

namespace DataTableCodes {

enum : int32_t {
  OK = 0,
  TABLE_EXISTS = 1,           // the owner already has a table of that name
  NO_SUCH_TABLE = 2,
  EMPTY_TABLE_NAME = 3,
  COLUMN_EXISTS = 4,
  EMPTY_COLUMN_NAME = 5,
  INVALID_COLUMN_ID = 6,
  INVALID_COLUMN_INDEX = 7,
  UNSUPPORTED_TYPE = 8,       // BLOB or unknown column type, or a storage mode above 2
  COLUMN_WITHOUT_SUBTABLE = 9,
  NO_STATE = 10,
  BAD_TIME_RANGE = 11,
  NULL_ROW = 29
};

}  // namespace DataTableCodes
