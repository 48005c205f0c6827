#include "datatable/SubDataTable.h"

#include <algorithm>
#include <iostream>

SubDataTable::SubDataTable(uint8_t storageMode, const DataLimits& limits)
    : storageMode_(storageMode), limits_(limits) {}

size_t SubDataTable::lowerBound(double time) const {
  return static_cast<size_t>(std::lower_bound(times_.begin(), times_.end(), time) - times_.begin());
}

size_t SubDataTable::upperBound(double time) const {
  return static_cast<size_t>(std::upper_bound(times_.begin(), times_.end(), time) - times_.begin());
}

size_t SubDataTable::findTimeAtOrBeforeGivenTime(double time) const {
  const size_t after = upperBound(time);
  return after == 0 ? times_.size() : after - 1;
}

size_t SubDataTable::findOrAddTime(double time, bool& added) {
  added = false;
  // Rows nearly always arrive in time order: try the end first.
  if (times_.empty() || times_.back() < time) {
    times_.push_back(time);
    added = true;
    return times_.size() - 1;
  }
  if (times_.back() == time) return times_.size() - 1;
  const size_t index = lowerBound(time);
  if (times_[index] == time) return index;
  times_.insert(times_.begin() + static_cast<std::ptrdiff_t>(index), time);
  if (index < oldRows_) ++oldRows_;
  added = true;
  return index;
}

void SubDataTable::addColumn_(std::unique_ptr<DataColumn> column) { columns_.push_back(std::move(column)); }

std::unique_ptr<DataColumn> SubDataTable::removeColumn_(size_t index) {
  std::unique_ptr<DataColumn> column = std::move(columns_[index]);
  columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(index));
  return column;
}

bool SubDataTable::setCellValue(size_t columnIndex, size_t row, bool rowIsNew, const DataTableCell& cell) {
  BaseColumnDataContainer* data = columns_[columnIndex]->data();
  if (data == nullptr) return false;
  if (rowIsNew) data->insert(row, cell);
  else data->set(row, cell);
  return true;
}

std::unique_ptr<SubDataTable> SubDataTable::splitIfNeeded(size_t row) {
  if (columns_.empty() || columns_[0]->data() == nullptr) return nullptr;
  const size_t firstSize = columns_[0]->data()->size();
  std::vector<size_t> differing;
  for (size_t i = 1; i < columns_.size(); ++i) {
    const BaseColumnDataContainer* data = columns_[i]->data();
    if (data != nullptr && data->size() != firstSize) differing.push_back(i);
  }
  if (differing.empty()) {
    // No column took the row's value: the time it added goes again.
    if (firstSize < times_.size()) eraseTimeOnly_(row);
    return nullptr;
  }

  // The group that did not take the row's value is one time short: it keeps
  // every time but the row's.
  const bool firstIsShort = firstSize < times_.size();
  auto split = std::make_unique<SubDataTable>(storageMode_, limits_);
  split->times_ = times_;
  split->limitTime_ = limitTime_;
  if (firstIsShort) times_.erase(times_.begin() + static_cast<std::ptrdiff_t>(row));
  else split->times_.erase(split->times_.begin() + static_cast<std::ptrdiff_t>(row));
  for (auto it = differing.rbegin(); it != differing.rend(); ++it) split->columns_.push_back(removeColumn_(*it));
  std::reverse(split->columns_.begin(), split->columns_.end());
  split->oldRows_ = std::min(oldRows_, split->times_.size());
  oldRows_ = std::min(oldRows_, times_.size());
  return split;
}

void SubDataTable::eraseTimeOnly_(size_t index) {
  times_.erase(times_.begin() + static_cast<std::ptrdiff_t>(index));
  if (index < oldRows_) --oldRows_;
}

void SubDataTable::eraseRow(size_t index) {
  if (index >= times_.size()) return;
  times_.erase(times_.begin() + static_cast<std::ptrdiff_t>(index));
  for (auto& column : columns_)
    if (column->data()) column->data()->erase(index);
  if (index < oldRows_) --oldRows_;
}

void SubDataTable::eraseFront_(size_t count) {
  count = std::min(count, times_.size());
  times_.erase(times_.begin(), times_.begin() + static_cast<std::ptrdiff_t>(count));
  for (auto& column : columns_)
    if (column->data()) column->data()->eraseFront(count);
  oldRows_ = oldRows_ > count ? oldRows_ - count : 0;
}

void SubDataTable::flush() {
  times_.clear();
  for (auto& column : columns_)
    if (column->data()) column->data()->clear();
  oldRows_ = 0;
}

void SubDataTable::setLimits(const DataLimits& limits) { limits_ = limits; }

void SubDataTable::limitData(double time) {
  if (!limits_.enabled) return;
  limitTime_ = time;
  if (storageMode_ == 0) timeSequentialLimitData_();
  else doubleBufferLimitData_();
}

void SubDataTable::timeSequentialLimitData_() {
  size_t count = 0;
  const bool byPoints = limits_.type == UTILS::DATA_LIMIT_POINTS || limits_.type == UTILS::DATA_LIMIT_POINTS_OR_SECONDS;
  const bool bySeconds = limits_.type == UTILS::DATA_LIMIT_SECONDS || limits_.type == UTILS::DATA_LIMIT_POINTS_OR_SECONDS;
  // A table below its point limit has nothing to drop.
  if (byPoints && times_.size() > limits_.points) count = times_.size() - limits_.points;
  if (bySeconds) {
    const size_t cut = lowerBound(limitTime_ - limits_.seconds);
    if (cut == times_.size()) {
      flush();
      return;
    }
    count = std::max(count, cut);
  }
  if (count != 0) eraseFront_(count);
}

void SubDataTable::doubleBufferLimitData_() {
  if (limitTime_ <= 0.0) return;
  const double interval = limits_.seconds;
  if (lastSwapTime_ < 0.0 || lastSwapTime_ > limitTime_) {
    lastSwapTime_ = limitTime_;
    nextSwapTime_ = limitTime_ + interval;
  }
  bool swap = false;
  const bool byPoints = limits_.type == UTILS::DATA_LIMIT_POINTS || limits_.type == UTILS::DATA_LIMIT_POINTS_OR_SECONDS;
  const bool bySeconds = limits_.type == UTILS::DATA_LIMIT_SECONDS || limits_.type == UTILS::DATA_LIMIT_POINTS_OR_SECONDS;
  // The new buffer is full when it alone holds the point limit.
  if (byPoints && times_.size() - oldRows_ >= limits_.points) swap = true;
  if (bySeconds && limitTime_ >= nextSwapTime_) swap = true;
  if (!swap) return;
  eraseFront_(oldRows_);
  oldRows_ = times_.size();
  lastSwapTime_ = limitTime_;
  nextSwapTime_ = limitTime_ + interval;
}

size_t SubDataTable::bytes() const {
  size_t total = sizeof(*this) + times_.size() * sizeof(double);
  for (const auto& column : columns_) total += sizeof(DataColumn) + (column->data() ? column->data()->bytes() : 0);
  return total;
}
