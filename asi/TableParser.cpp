#include "asi/TableParser.h"

#include <cmath>
#include <limits>

#include "core/StringUtils.h"
#include "core/ValidNumber.h"
#include "datatable/DataTableUtils.h"

namespace AsiInterface {

namespace {

template <typename Parsed, typename Stored>
DataTableCell* integerCell(const std::string& text) {
  Parsed value{};
  if (!orvCore::isValidNumber(text, value, true)) return nullptr;
  return new DataTableCellTyped<Stored>(static_cast<Stored>(value));
}

// A float column checks its own width: a value beyond the float range is a
// bad cell, not an infinity.
template <typename T>
bool parseFloating(const std::string& text, T& value) {
  if (orvCore::isValidNumber(text, value, true)) return true;
  if (orvCore::caseCompare(text, "NaN") == 0) {
    value = std::numeric_limits<T>::quiet_NaN();
    return true;
  }
  if (orvCore::caseCompare(text, "Infinity") == 0 || orvCore::caseCompare(text, "Inf") == 0) {
    value = std::numeric_limits<T>::infinity();
    return true;
  }
  if (orvCore::caseCompare(text, "-Infinity") == 0 || orvCore::caseCompare(text, "-Inf") == 0) {
    value = -std::numeric_limits<T>::infinity();
    return true;
  }
  return false;
}

template <typename T>
DataTableCell* floatingCell(const std::string& text) {
  T value{};
  if (!parseFloating(text, value)) return nullptr;
  return new DataTableCellTyped<T>(value);
}

}  // namespace

DataTableCell* parseDataTableCell(UTILS::VariableType_t type, const std::string& text) {
  switch (type) {
    case UTILS::VT_UINT8: return integerCell<unsigned char, uint8_t>(text);
    case UTILS::VT_INT8: return integerCell<signed char, int8_t>(text);
    case UTILS::VT_UINT16: return integerCell<unsigned short, uint16_t>(text);
    case UTILS::VT_INT16: return integerCell<short, int16_t>(text);
    case UTILS::VT_UINT32: return integerCell<unsigned int, uint32_t>(text);
    case UTILS::VT_INT32: return integerCell<int, int32_t>(text);
    case UTILS::VT_UINT64: return integerCell<unsigned long, uint64_t>(text);
    case UTILS::VT_INT64: return integerCell<long, int64_t>(text);
    case UTILS::VT_FLOAT32:
      return floatingCell<float>(text);
    case UTILS::VT_FLOAT64:
      return floatingCell<double>(text);
    case UTILS::VT_STRING: return new DataTableCellTyped<std::string>(DataTableUtils::removeEscapeSlashes(text));
    default: return nullptr;
  }
}

void DataTable::executeStage1(const std::vector<std::string>& tokens) {
  const size_t n = tokens.size();
  if (n < 6) return setMessage(PICommon::PI_NOTIFY_ERROR, "Need at least 5 arguments");
  if (n % 2 != 0) return setMessage(PICommon::PI_NOTIFY_ERROR, "Need an even number of arguments");

  uint64_t hostId = 0;
  if (!parseId_(tokens[1], hostId, "Expecting positive number for Host ID")) return;
  Entity* host = provider_->getEntity(hostId);
  // From version 23 on a table may also hang on a projector.
  if (host == nullptr && provider_->version() > 22) host = provider_->getProjector(hostId);
  if (host == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, "Missing host");

  uint64_t tableId = 0;
  if (!parseId_(tokens[2], tableId, "Expecting positive number for the Table ID")) return;
  const std::string& name = tokens[3];
  if (host->addTable(name) != 0) return setMessage(PICommon::PI_NOTIFY_ERROR, "Duplicate table name for the same host");
  Table* table = provider_->createTable(name, host);
  if (provider_->addTable(tableId, table) != 0) {
    delete table;
    return setMessage(PICommon::PI_NOTIFY_ERROR, "DataTable ID already used");
  }

  std::vector<std::string> names;
  std::vector<UTILS::VariableType_t> types;
  for (size_t i = 4; i + 1 < n; i += 2) {
    names.push_back(tokens[i]);
    UTILS::VariableType_t type = UTILS::getVariableType(tokens[i + 1]);
    if (type == UTILS::VT_UNKNOWN) {
      setMessage(PICommon::PI_NOTIFY_WARN, "Column type \"" + tokens[i + 1] + "\" not recognized, changing to STRING");
      type = UTILS::VT_STRING;
    }
    if (type == UTILS::VT_BLOB)
      return setMessage(PICommon::PI_NOTIFY_ERROR, "Column type of BLOB not support via an ASI file.");
    types.push_back(type);
  }
  table->setNames(names);
  table->setTypes(types);
}

void DataTableUnits::executeStage1(const std::vector<std::string>& tokens) {
  if (tokens.size() < 2) return setMessage(PICommon::PI_NOTIFY_ERROR, "Need at least 2 arguments");
  uint64_t tableId = 0;
  if (!parseId_(tokens[1], tableId, "Expecting positive number for Table ID")) return;
  Table* table = provider_->getTable(tableId);
  if (table == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find specified table");
  if (tokens.size() - 2 != table->columnCount()) return setMessage(PICommon::PI_NOTIFY_ERROR, "Wrong number of units");
  std::vector<UTILS::UnitType_t> units;
  for (size_t i = 2; i < tokens.size(); ++i) units.push_back(UTILS::unitsGetTypeFromString(tokens[i]));
  table->setUnits(units);
}

void DataTableRow::executeStage1(const std::vector<std::string>& tokens) {
  const size_t n = tokens.size();
  if (n < 3) return setMessage(PICommon::PI_NOTIFY_ERROR, "Need at least 3 arguments");
  if (parseTime_(tokens[2], true, time_) != 0) return;
  if (!parseId_(tokens[1], tableId_, "Expecting positive number for Table ID")) return;
  const Table* table = provider_->getTable(tableId_);
  if (table == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, "Could not find specified table");
  if (n - 3 != table->columnCount())
    return setMessage(PICommon::PI_NOTIFY_ERROR, "The command DataTableRow specifies the wrong number of values");

  row_.clear();
  row_.setTime(time_);
  for (size_t i = 3; i < n; ++i) {
    if (tokens[i] == "NULL") continue;
    const size_t column = i - 3;
    const UTILS::VariableType_t type = column < table->types().size() ? table->types()[column] : UTILS::VT_STRING;
    DataTableCell* cell = parseDataTableCell(type, tokens[i]);
    if (cell == nullptr) {
      const bool floating = type == UTILS::VT_FLOAT32 || type == UTILS::VT_FLOAT64;
      const std::string typeName = floating ? "double" : orvCore::lowerCase(UTILS::getVariableTypeString(type));
      setMessage(PICommon::PI_NOTIFY_WARN, "Invalid " + typeName + " specified for column " + std::to_string(i - 2));
      continue;
    }
    row_.addCell(static_cast<int64_t>(column), cell);
  }
}

}  // namespace AsiInterface
