#pragma once
// A time-indexed table of typed columns that hangs on a scenario object.
// Time is the row key and a cell may be absent. Columns that are filled at
// the same times share one sub-table (one list of times); a row that fills
// only some columns of a sub-table splits it, so that the table ends up with
// one sub-table per pattern of filling and still reads as one table.
//
// Operations answer DataTableCodes (0 success); nothing throws.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "datatable/DataTableCodes.h"
#include "datatable/SubDataTable.h"
#include "hostapi/DataTableRow.h"

class DataTable;

// Visits the rows of forEachRow; answers false to stop.
class PerDataTableRowFunctor {
 public:
  virtual ~PerDataTableRowFunctor() = default;
  virtual bool operator()(DataTable& table, const DataTableRowT& row) = 0;
};

// Visits the values of one column in forEachValueInColumn; false stops.
class TimeValueFunctor {
 public:
  virtual ~TimeValueFunctor() = default;
  virtual bool operator()(double time, const DataTableCell& value) = 0;
};

// Straight line between two rows; at or beyond an end, that end's value.
class LinearInterpolate : public SubDataTable::Interpolator {
 public:
  double interpolate(const DataColumn* column, double x0, double x, double x1, double y0,
                     double y1) const override;
};

// The short way round between two angles, in the column's unit.
class AngleInterpolate : public SubDataTable::Interpolator {
 public:
  double interpolate(const DataColumn* column, double x0, double x, double x1, double y0,
                     double y1) const override;
};

class DataTable {
 public:
  using AddRowCallback = std::function<void(DataTable&, const DataTableRowT&)>;
  using ColumnCallback = std::function<void(DataTable&, int64_t columnId)>;

  // A storage mode above 2 is kept, but every addColumn is then refused.
  DataTable(uint8_t storageMode, uint64_t ownerId, const std::string& name, int64_t tableId);
  DataTable(const DataTable&) = delete;
  DataTable& operator=(const DataTable&) = delete;

  uint8_t storageMode() const { return storageMode_; }
  uint64_t ownerId() const { return ownerId_; }
  const std::string& name() const { return name_; }
  int64_t tableId() const { return tableId_; }

  // Columns. Ids run up from 0 in the order of addColumn; a removed column
  // keeps its id, which then answers COLUMN_WITHOUT_SUBTABLE.
  int32_t addColumn(const std::string& name, UTILS::VariableType_t type, int64_t& outId,
                    UTILS::UnitType_t unit = UTILS::UNITS_UNKNOWN);
  int32_t removeColumn(int64_t id);
  int32_t getColumnId(const std::string& name, int64_t& out) const;
  std::string getColumnName(int64_t id) const;
  UTILS::VariableType_t getColumnStorageType(int64_t id) const;
  UTILS::UnitType_t getColumnUnitType(int64_t id) const;
  int32_t setColumnUnitType(int64_t id, UTILS::UnitType_t unit);
  // One unit per live column, in id order.
  int32_t setColumnUnitTypes(const std::vector<UTILS::UnitType_t>& units);
  // Live columns in id order.
  std::vector<int64_t> getColumnIds() const;
  std::vector<std::string> getColumnNames() const;
  std::vector<UTILS::VariableType_t> getColumnStorageTypes() const;
  std::vector<UTILS::UnitType_t> getColumnUnitTypes() const;
  size_t getNumColumns() const { return getColumnIds().size(); }

  // Rows. A bad cell does not stop the others: the last failure is answered.
  int32_t addRow(const DataTableRowT* row);
  int32_t addRow(const DataTableRowT& row) { return addRow(&row); }
  int32_t deleteRow(double time);
  // The cells of the row at exactly `time`.
  int32_t getRow(double time, DataTableRowT& out) const;
  // Distinct row times over all sub-tables.
  size_t getNumRows() const;
  bool empty() const;
  // Empties every row; columns stay.
  void flush();

  // Every row with begin <= time <= end, in ascending time; a time held by
  // some sub-tables only gives a row with their cells.
  int32_t forEachRow(double begin, double end, PerDataTableRowFunctor& functor);
  int32_t forEachValueInColumn(int64_t id, double begin, double end, TimeValueFunctor& functor) const;

  int32_t getColumnBeginEndTimes(int64_t id, double& begin, double& end) const;
  size_t getColumnNumRows(int64_t id) const;
  // -1 for an empty table.
  double getLeastTime() const;
  double getGreatestTime() const;
  bool hasRowWithinTimeBounds(double begin, double end) const;
  // The value at `time`, interpolated between the rows around it (linearly
  // when `interpolator` is null); a time before the first row is NO_STATE.
  int32_t getCellValueInterpolated(int64_t id, double time, double& out,
                                   const SubDataTable::Interpolator* interpolator = nullptr) const;
  // Every column's value at or before `time`; NO_STATE when none has one.
  int32_t getStateAtOrBeforeTime(double time, DataTableRowT& row) const;

  // Records the time, refills the current row and limits when asked.
  void update(double time, bool limit);
  const DataTableRowT& currentRow() const { return currentRow_; }
  double lastUpdateTime() const { return lastUpdateTime_; }
  void limitData(double time);

  void setLimitingEnabled(bool enabled);
  void setLimitType(UTILS::EDataLimitType type);
  // 0 becomes 1.
  void setLimitNumPoints(uint64_t points);
  // Below 1.0 becomes 1.0.
  void setLimitSeconds(double seconds);
  const DataLimits& limits() const { return limits_; }

  size_t subTableCount() const { return subTables_.size(); }
  // Bytes of the bit mask of absent cells in a row's binary form.
  uint32_t nullMaskBytes() const { return nullMaskBytes_; }
  size_t bytes() const;

  void addRowCallback(AddRowCallback callback) { addRowCallbacks_.push_back(std::move(callback)); }
  void addColumnCallback(ColumnCallback callback) { addColumnCallbacks_.push_back(std::move(callback)); }
  void removeColumnCallback(ColumnCallback callback) { removeColumnCallbacks_.push_back(std::move(callback)); }

 private:
  struct ColumnRecord {
    std::string name;
    SubDataTable* subTable = nullptr;  // null once removed
    size_t index = 0;
  };

  const ColumnRecord* record_(int64_t id) const;
  const DataColumn* column_(int64_t id) const;
  void postColumnAddOrRemove_();
  void applyLimits_();

  uint8_t storageMode_;
  uint64_t ownerId_;
  std::string name_;
  int64_t tableId_;
  std::vector<std::unique_ptr<SubDataTable>> subTables_;
  std::vector<ColumnRecord> columns_;
  DataLimits limits_;
  double lastUpdateTime_ = -1.0;
  DataTableRowT currentRow_;
  std::vector<AddRowCallback> addRowCallbacks_;
  std::vector<ColumnCallback> addColumnCallbacks_;
  std::vector<ColumnCallback> removeColumnCallbacks_;
  uint32_t nullMaskBytes_ = 0;
};
