#include "datatable/DataColumn.h"

DataColumn::DataColumn(const std::string& name, int64_t id, UTILS::VariableType_t type, UTILS::UnitType_t unit)
    : name_(name), id_(id), type_(type), unit_(unit), data_(createDataContainer_(type)) {}

std::unique_ptr<BaseColumnDataContainer> DataColumn::createDataContainer_(UTILS::VariableType_t type) {
  switch (type) {
    case UTILS::VT_UINT8: return std::make_unique<ColumnDataDeque<uint8_t>>();
    case UTILS::VT_INT8: return std::make_unique<ColumnDataDeque<int8_t>>();
    case UTILS::VT_UINT16: return std::make_unique<ColumnDataDeque<uint16_t>>();
    case UTILS::VT_INT16: return std::make_unique<ColumnDataDeque<int16_t>>();
    case UTILS::VT_UINT32: return std::make_unique<ColumnDataDeque<uint32_t>>();
    case UTILS::VT_INT32: return std::make_unique<ColumnDataDeque<int32_t>>();
    case UTILS::VT_UINT64: return std::make_unique<ColumnDataDeque<uint64_t>>();
    case UTILS::VT_INT64: return std::make_unique<ColumnDataDeque<int64_t>>();
    case UTILS::VT_FLOAT32: return std::make_unique<ColumnDataDeque<float>>();
    case UTILS::VT_FLOAT64: return std::make_unique<ColumnDataDeque<double>>();
    case UTILS::VT_STRING: return std::make_unique<ColumnDataDeque<std::string>>();
    default: return nullptr;
  }
}
