#pragma once
// A group of columns of one table that are filled at the same times: one
// ascending list of row times, and per column a value for every row. A table
// whose columns arrive at different times holds one sub-table per pattern of
// filling (DataTable::addRow splits them).
//
// Storage modes: 0 time-sequential (old rows are dropped row by row by the
// limits); 1 and 2 double-buffered (the rows are an old and a new buffer,
// and limiting drops the old buffer whole when a swap is due).

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "core/UnitTypes.h"
#include "datatable/DataColumn.h"

namespace UTILS {
// How a table limits its rows; 0 ("None") is not a limiting type.
enum EDataLimitType : int {
  DATA_LIMIT_NONE = 0,
  DATA_LIMIT_POINTS = 1,
  DATA_LIMIT_SECONDS = 2,
  DATA_LIMIT_POINTS_OR_SECONDS = 3
};
}  // namespace UTILS

struct DataLimits {
  bool enabled = false;
  UTILS::EDataLimitType type = UTILS::DATA_LIMIT_POINTS;
  uint64_t points = 1000;
  double seconds = 600.0;
};

class SubDataTable {
 public:
  // Linear interpolation of a column's value between two rows.
  class Interpolator {
   public:
    virtual ~Interpolator() = default;
    virtual double interpolate(const DataColumn* column, double x0, double x, double x1, double y0,
                               double y1) const = 0;
  };

  SubDataTable(uint8_t storageMode, const DataLimits& limits);

  uint8_t storageMode() const { return storageMode_; }
  size_t size() const { return times_.size(); }
  bool empty() const { return times_.empty(); }
  double timeAt(size_t index) const { return times_[index]; }
  const std::deque<double>& times() const { return times_; }

  // Index of the first row at or after `time`.
  size_t lowerBound(double time) const;
  // Index of the first row after `time`.
  size_t upperBound(double time) const;
  // Index of the last row at or before `time`; size() when there is none.
  size_t findTimeAtOrBeforeGivenTime(double time) const;
  // Index of the row at `time`, adding an empty one in time order if missing.
  size_t findOrAddTime(double time, bool& added);

  size_t columnCount() const { return columns_.size(); }
  DataColumn* column(size_t index) const { return columns_[index].get(); }
  void addColumn_(std::unique_ptr<DataColumn> column);
  std::unique_ptr<DataColumn> removeColumn_(size_t index);

  // Sets a column's cell at a row found by findOrAddTime; a new row takes
  // the value by insertion. False when the column holds no container.
  bool setCellValue(size_t columnIndex, size_t row, bool rowIsNew, const DataTableCell& cell);

  // After a row: if the columns no longer have equal lengths, moves the
  // columns whose length differs from the first column's to a new
  // sub-table, which is returned. `row` is the index of the row just added.
  std::unique_ptr<SubDataTable> splitIfNeeded(size_t row);

  void eraseRow(size_t index);
  void flush();
  void setLimits(const DataLimits& limits);
  const DataLimits& limits() const { return limits_; }
  // Drops old rows by the limits, with `time` as the current time.
  void limitData(double time);

  size_t bytes() const;

 private:
  void timeSequentialLimitData_();
  void doubleBufferLimitData_();
  void eraseFront_(size_t count);
  void eraseTimeOnly_(size_t index);

  uint8_t storageMode_;
  std::deque<double> times_;
  std::vector<std::unique_ptr<DataColumn>> columns_;
  DataLimits limits_;
  double limitTime_ = -1.0;
  // Double buffer: rows [0, oldRows_) are the old buffer.
  size_t oldRows_ = 0;
  double lastSwapTime_ = -1.0;
  double nextSwapTime_ = -1.0;
};
