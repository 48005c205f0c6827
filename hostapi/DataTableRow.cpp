#include "hostapi/DataTableRow.h"

DataTableRowT::DataTableRowT(const DataTableRowT& other) : time_(other.time_) {
  cells_.reserve(other.cells_.size());
  for (const auto& entry : other.cells_) cells_.emplace_back(entry.first, entry.second->clone());
}

DataTableRowT& DataTableRowT::operator=(const DataTableRowT& other) {
  if (this != &other) {
    DataTableRowT copy(other);
    *this = std::move(copy);
  }
  return *this;
}

DataTableRowT::DataTableRowT(DataTableRowT&& other) noexcept
    : time_(other.time_), cells_(std::move(other.cells_)) {
  other.cells_.clear();
}

DataTableRowT& DataTableRowT::operator=(DataTableRowT&& other) noexcept {
  if (this != &other) {
    clear();
    time_ = other.time_;
    cells_ = std::move(other.cells_);
    other.cells_.clear();
  }
  return *this;
}

DataTableRowT::~DataTableRowT() { clear(); }

void DataTableRowT::addCell(int64_t columnId, DataTableCell* cell) {
  if (cell) cells_.emplace_back(columnId, cell);
}

const DataTableCell* DataTableRowT::cell(int64_t columnId) const {
  for (const auto& entry : cells_)
    if (entry.first == columnId) return entry.second;
  return nullptr;
}

void DataTableRowT::clear() {
  for (auto& entry : cells_) delete entry.second;
  cells_.clear();
}
