#pragma once
// One column of a sub-table: its name, id, type and unit, and a typed
// container of its values, one per row of the sub-table. A column of doubles
// costs its doubles: values are held in a deque of the column's own type.

#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "core/UnitTypes.h"
#include "core/VariableType.h"
#include "hostapi/DataTableRow.h"


// The per-column store, one instantiation per cell type.
class BaseColumnDataContainer {
 public:
  virtual ~BaseColumnDataContainer() = default;
  virtual size_t size() const = 0;
  // Inserts the cell's value, converted to the column's type, before `index`.
  virtual void insert(size_t index, const DataTableCell& cell) = 0;
  virtual void set(size_t index, const DataTableCell& cell) = 0;
  virtual void eraseFront(size_t count) = 0;
  virtual void erase(size_t index) = 0;
  virtual void clear() = 0;
  // A new cell of the column's type holding the value at `index`; the caller owns it.
  virtual DataTableCell* makeCell(size_t index) const = 0;
  virtual double valueAsDouble(size_t index) const = 0;
  // Heap bytes of the values (strings count their characters too).
  virtual size_t bytes() const = 0;
};

template <typename T>
class ColumnDataDeque : public BaseColumnDataContainer {
 public:
  size_t size() const override { return values_.size(); }
  void insert(size_t index, const DataTableCell& cell) override {
    T value{};
    cell.getValue(value);
    if (index >= values_.size()) values_.push_back(std::move(value));
    else values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(index), std::move(value));
  }
  void set(size_t index, const DataTableCell& cell) override {
    if (index < values_.size()) cell.getValue(values_[index]);
  }
  void eraseFront(size_t count) override {
    if (count >= values_.size()) values_.clear();
    else values_.erase(values_.begin(), values_.begin() + static_cast<std::ptrdiff_t>(count));
  }
  void erase(size_t index) override {
    if (index < values_.size()) values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(index));
  }
  void clear() override { values_.clear(); }
  DataTableCell* makeCell(size_t index) const override { return new DataTableCellTyped<T>(values_[index]); }
  double valueAsDouble(size_t index) const override {
    return DataTableCellDetail::convert<double>(values_[index]);
  }
  size_t bytes() const override {
    size_t total = values_.size() * sizeof(T);
    if constexpr (std::is_same_v<T, std::string>) {
      for (const std::string& s : values_)
        if (s.capacity() > 15) total += s.capacity();
    }
    return total;
  }

 private:
  std::deque<T> values_;
};

class SubDataTable;

class DataColumn {
 public:
  DataColumn(const std::string& name, int64_t id, UTILS::VariableType_t type, UTILS::UnitType_t unit);

  const std::string& name() const { return name_; }
  int64_t id() const { return id_; }
  UTILS::VariableType_t type() const { return type_; }
  UTILS::UnitType_t unit() const { return unit_; }
  void setUnit(UTILS::UnitType_t unit) { unit_ = unit; }
  // Null for a type that no container holds (BLOB, unknown).
  BaseColumnDataContainer* data() const { return data_.get(); }

 private:
  // One container per cell type.
  static std::unique_ptr<BaseColumnDataContainer> createDataContainer_(UTILS::VariableType_t type);

  std::string name_;
  int64_t id_;
  UTILS::VariableType_t type_;
  UTILS::UnitType_t unit_;
  std::unique_ptr<BaseColumnDataContainer> data_;
};
