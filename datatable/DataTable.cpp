#include "datatable/DataTable.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>

namespace {

constexpr double kTwoPi = 2.0 * M_PI;

bool isLinearPosition(double x0, double x1) { return !(x1 == x0); }

}  // namespace

double LinearInterpolate::interpolate(const DataColumn*, double x0, double x, double x1, double y0,
                                      double y1) const {
  // Either direction of time: x0 may lie after x1.
  if (!isLinearPosition(x0, x1)) return y0;
  const double fraction = (x - x0) / (x1 - x0);
  if (fraction <= 0.0) return y0;
  if (fraction >= 1.0) return y1;
  return y0 + (y1 - y0) * fraction;
}

double AngleInterpolate::interpolate(const DataColumn* column, double x0, double x, double x1, double y0,
                                     double y1) const {
  const UTILS::UnitType_t unit = column ? column->unit() : UTILS::UNITS_RADIANS;
  const double toRadians = column ? UTILS::unitsGetConversionFactor(unit, UTILS::UNITS_RADIANS) : 1.0;
  if (!isLinearPosition(x0, x1)) return y0;
  const double fraction = (x - x0) / (x1 - x0);
  if (fraction <= 0.0) return y0;
  if (fraction >= 1.0) return y1;
  const double a0 = y0 * toRadians;
  double delta = std::fmod(y1 * toRadians - a0, kTwoPi);
  if (delta > M_PI) delta -= kTwoPi;
  if (delta < -M_PI) delta += kTwoPi;
  const double radians = a0 + delta * fraction;
  return toRadians != 0.0 ? radians / toRadians : radians;
}

DataTable::DataTable(uint8_t storageMode, uint64_t ownerId, const std::string& name, int64_t tableId)
    : storageMode_(storageMode), ownerId_(ownerId), name_(name), tableId_(tableId) {}

const DataTable::ColumnRecord* DataTable::record_(int64_t id) const {
  if (id < 0 || static_cast<size_t>(id) >= columns_.size()) return nullptr;
  return &columns_[static_cast<size_t>(id)];
}

const DataColumn* DataTable::column_(int64_t id) const {
  const ColumnRecord* record = record_(id);
  if (record == nullptr || record->subTable == nullptr) return nullptr;
  return record->subTable->column(record->index);
}

void DataTable::postColumnAddOrRemove_() {
  // Sub-tables move columns about: rebuild where each column now lives.
  for (ColumnRecord& record : columns_) record.subTable = nullptr;
  for (const auto& sub : subTables_)
    for (size_t i = 0; i < sub->columnCount(); ++i) {
      ColumnRecord& record = columns_[static_cast<size_t>(sub->column(i)->id())];
      record.subTable = sub.get();
      record.index = i;
    }
  nullMaskBytes_ = subTables_.size() <= 1 ? 0 : static_cast<uint32_t>((columns_.size() + 7) / 8);
}

int32_t DataTable::addColumn(const std::string& name, UTILS::VariableType_t type, int64_t& outId,
                             UTILS::UnitType_t unit) {
  if (name.empty()) return DataTableCodes::EMPTY_COLUMN_NAME;
  for (const ColumnRecord& record : columns_)
    if (record.subTable != nullptr && record.name == name) return DataTableCodes::COLUMN_EXISTS;
  // No container holds a BLOB or an unknown type, nor any type in a mode above 2.
  if (storageMode_ > 2 || type < UTILS::VT_UINT8 || type > UTILS::VT_STRING) {
    std::cerr << "ERROR:  unhandled storage type.\n";
    return DataTableCodes::UNSUPPORTED_TYPE;
  }
  outId = static_cast<int64_t>(columns_.size());
  auto column = std::make_unique<DataColumn>(name, outId, type, unit);
  // Columns declared before any row share a sub-table; a column added to a
  // table with rows starts one of its own.
  SubDataTable* target = nullptr;
  for (const auto& sub : subTables_)
    if (sub->empty()) target = sub.get();
  if (target == nullptr) {
    subTables_.push_back(std::make_unique<SubDataTable>(storageMode_, limits_));
    target = subTables_.back().get();
  }
  target->addColumn_(std::move(column));
  columns_.push_back({name, nullptr, 0});
  postColumnAddOrRemove_();
  for (auto& callback : addColumnCallbacks_) callback(*this, outId);
  return DataTableCodes::OK;
}

int32_t DataTable::removeColumn(int64_t id) {
  const ColumnRecord* record = record_(id);
  if (record == nullptr) return DataTableCodes::INVALID_COLUMN_ID;
  SubDataTable* sub = record->subTable;
  if (sub == nullptr) return DataTableCodes::COLUMN_WITHOUT_SUBTABLE;
  for (auto& callback : removeColumnCallbacks_) callback(*this, id);
  sub->removeColumn_(record->index);
  if (sub->columnCount() == 0)
    subTables_.erase(std::find_if(subTables_.begin(), subTables_.end(),
                                  [sub](const std::unique_ptr<SubDataTable>& s) { return s.get() == sub; }));
  postColumnAddOrRemove_();
  return DataTableCodes::OK;
}

int32_t DataTable::getColumnId(const std::string& name, int64_t& out) const {
  for (size_t i = 0; i < columns_.size(); ++i)
    if (columns_[i].subTable != nullptr && columns_[i].name == name) {
      out = static_cast<int64_t>(i);
      return DataTableCodes::OK;
    }
  return DataTableCodes::INVALID_COLUMN_ID;
}

std::string DataTable::getColumnName(int64_t id) const {
  const DataColumn* column = column_(id);
  return column ? column->name() : std::string();
}

UTILS::VariableType_t DataTable::getColumnStorageType(int64_t id) const {
  const DataColumn* column = column_(id);
  return column ? column->type() : UTILS::VT_UNKNOWN;
}

UTILS::UnitType_t DataTable::getColumnUnitType(int64_t id) const {
  const DataColumn* column = column_(id);
  return column ? column->unit() : UTILS::UNITS_UNKNOWN;
}

int32_t DataTable::setColumnUnitType(int64_t id, UTILS::UnitType_t unit) {
  const ColumnRecord* record = record_(id);
  if (record == nullptr) return DataTableCodes::INVALID_COLUMN_ID;
  if (record->subTable == nullptr) return DataTableCodes::COLUMN_WITHOUT_SUBTABLE;
  record->subTable->column(record->index)->setUnit(unit);
  return DataTableCodes::OK;
}

int32_t DataTable::setColumnUnitTypes(const std::vector<UTILS::UnitType_t>& units) {
  const std::vector<int64_t> ids = getColumnIds();
  if (units.size() != ids.size()) return DataTableCodes::INVALID_COLUMN_INDEX;
  for (size_t i = 0; i < ids.size(); ++i) setColumnUnitType(ids[i], units[i]);
  return DataTableCodes::OK;
}

std::vector<int64_t> DataTable::getColumnIds() const {
  std::vector<int64_t> ids;
  for (size_t i = 0; i < columns_.size(); ++i)
    if (columns_[i].subTable != nullptr) ids.push_back(static_cast<int64_t>(i));
  return ids;
}

std::vector<std::string> DataTable::getColumnNames() const {
  std::vector<std::string> names;
  for (int64_t id : getColumnIds()) names.push_back(getColumnName(id));
  return names;
}

std::vector<UTILS::VariableType_t> DataTable::getColumnStorageTypes() const {
  std::vector<UTILS::VariableType_t> types;
  for (int64_t id : getColumnIds()) types.push_back(getColumnStorageType(id));
  return types;
}

std::vector<UTILS::UnitType_t> DataTable::getColumnUnitTypes() const {
  std::vector<UTILS::UnitType_t> units;
  for (int64_t id : getColumnIds()) units.push_back(getColumnUnitType(id));
  return units;
}

int32_t DataTable::addRow(const DataTableRowT* row) {
  if (row == nullptr) return DataTableCodes::NULL_ROW;
  struct Touch {
    SubDataTable* subTable;
    size_t index;
    bool isNew;
  };
  Touch touches[8];
  std::vector<Touch> moreTouches;
  size_t touchCount = 0;
  int32_t result = DataTableCodes::OK;

  for (const auto& entry : row->cells()) {
    const ColumnRecord* record = record_(entry.first);
    if (record == nullptr) {
      result = DataTableCodes::INVALID_COLUMN_ID;
      continue;
    }
    SubDataTable* sub = record->subTable;
    if (sub == nullptr) {
      result = DataTableCodes::COLUMN_WITHOUT_SUBTABLE;
      continue;
    }
    // A second cell of this row in the same sub-table reuses its row index.
    Touch* touch = nullptr;
    for (size_t i = 0; i < touchCount && touch == nullptr; ++i)
      if (touches[i].subTable == sub) touch = &touches[i];
    for (size_t i = 0; i < moreTouches.size() && touch == nullptr; ++i)
      if (moreTouches[i].subTable == sub) touch = &moreTouches[i];
    if (touch == nullptr) {
      Touch fresh{sub, 0, false};
      fresh.index = sub->findOrAddTime(row->time(), fresh.isNew);
      if (touchCount < 8) {
        touches[touchCount] = fresh;
        touch = &touches[touchCount++];
      } else {
        moreTouches.push_back(fresh);
        touch = &moreTouches.back();
      }
    }
    // A column given twice in one row inserts once and then overwrites.
    const BaseColumnDataContainer* data = sub->column(record->index)->data();
    const bool insert = touch->isNew && data != nullptr && data->size() < sub->size();
    if (!sub->setCellValue(record->index, touch->index, insert, *entry.second))
      result = DataTableCodes::UNSUPPORTED_TYPE;
  }

  bool changed = false;
  auto settle = [&](const Touch& touch) {
    if (!touch.isNew) return;
    std::unique_ptr<SubDataTable> split = touch.subTable->splitIfNeeded(touch.index);
    if (split) {
      subTables_.push_back(std::move(split));
      changed = true;
    }
  };
  for (size_t i = 0; i < touchCount; ++i) settle(touches[i]);
  for (const Touch& touch : moreTouches) settle(touch);
  if (changed) postColumnAddOrRemove_();
  for (auto& callback : addRowCallbacks_) callback(*this, *row);
  return result;
}

int32_t DataTable::deleteRow(double time) {
  bool found = false;
  for (const auto& sub : subTables_) {
    const size_t index = sub->lowerBound(time);
    if (index < sub->size() && sub->timeAt(index) == time) {
      sub->eraseRow(index);
      found = true;
    }
  }
  return found ? DataTableCodes::OK : DataTableCodes::NO_STATE;
}

int32_t DataTable::getRow(double time, DataTableRowT& out) const {
  out.clear();
  out.setTime(time);
  for (const auto& sub : subTables_) {
    const size_t index = sub->lowerBound(time);
    if (index >= sub->size() || sub->timeAt(index) != time) continue;
    for (size_t c = 0; c < sub->columnCount(); ++c)
      out.addCell(sub->column(c)->id(), sub->column(c)->data()->makeCell(index));
  }
  return out.cells().empty() ? DataTableCodes::NO_STATE : DataTableCodes::OK;
}

size_t DataTable::getNumRows() const {
  if (subTables_.size() == 1) return subTables_[0]->size();
  std::vector<double> times;
  for (const auto& sub : subTables_) times.insert(times.end(), sub->times().begin(), sub->times().end());
  std::sort(times.begin(), times.end());
  return static_cast<size_t>(std::unique(times.begin(), times.end()) - times.begin());
}

bool DataTable::empty() const {
  for (const auto& sub : subTables_)
    if (!sub->empty()) return false;
  return true;
}

void DataTable::flush() {
  for (const auto& sub : subTables_) sub->flush();
  currentRow_.clear();
}

int32_t DataTable::forEachRow(double begin, double end, PerDataTableRowFunctor& functor) {
  if (begin > end) {
    std::cerr << "ERROR:  given beginTime is > given endTime\n";
    return DataTableCodes::BAD_TIME_RANGE;
  }
  struct Cursor {
    SubDataTable* subTable;
    size_t at;
    size_t stop;
  };
  std::vector<Cursor> cursors;
  for (const auto& sub : subTables_) {
    Cursor cursor{sub.get(), sub->lowerBound(begin), sub->upperBound(end)};
    if (cursor.at < cursor.stop) cursors.push_back(cursor);
  }
  DataTableRowT row;
  while (!cursors.empty()) {
    double least = std::numeric_limits<double>::infinity();
    for (const Cursor& cursor : cursors) least = std::min(least, cursor.subTable->timeAt(cursor.at));
    row.clear();
    row.setTime(least);
    size_t contributors = 0;
    for (Cursor& cursor : cursors) {
      if (cursor.subTable->timeAt(cursor.at) != least) continue;
      ++contributors;
      for (size_t c = 0; c < cursor.subTable->columnCount(); ++c) {
        const DataColumn* column = cursor.subTable->column(c);
        row.addCell(column->id(), column->data()->makeCell(cursor.at));
      }
      ++cursor.at;
    }
    if (contributors > 1) {
      // Cells in column order, whichever sub-tables they came from.
      auto& cells = const_cast<std::vector<std::pair<int64_t, DataTableCell*>>&>(row.cells());
      std::sort(cells.begin(), cells.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    }
    cursors.erase(std::remove_if(cursors.begin(), cursors.end(), [](const Cursor& c) { return c.at >= c.stop; }),
                  cursors.end());
    if (!functor(*this, row)) break;
  }
  return DataTableCodes::OK;
}

int32_t DataTable::forEachValueInColumn(int64_t id, double begin, double end, TimeValueFunctor& functor) const {
  if (begin > end) {
    std::cerr << "ERROR:  given beginTime is > given endTime\n";
    return DataTableCodes::BAD_TIME_RANGE;
  }
  const ColumnRecord* record = record_(id);
  if (record == nullptr) return DataTableCodes::INVALID_COLUMN_ID;
  if (record->subTable == nullptr) return DataTableCodes::COLUMN_WITHOUT_SUBTABLE;
  const SubDataTable& sub = *record->subTable;
  const BaseColumnDataContainer* data = sub.column(record->index)->data();
  for (size_t i = sub.lowerBound(begin), stop = sub.upperBound(end); i < stop; ++i) {
    std::unique_ptr<DataTableCell> cell(data->makeCell(i));
    if (!functor(sub.timeAt(i), *cell)) break;
  }
  return DataTableCodes::OK;
}

int32_t DataTable::getColumnBeginEndTimes(int64_t id, double& begin, double& end) const {
  const ColumnRecord* record = record_(id);
  if (record == nullptr) return DataTableCodes::INVALID_COLUMN_ID;
  if (record->subTable == nullptr) return DataTableCodes::COLUMN_WITHOUT_SUBTABLE;
  if (record->subTable->empty()) return DataTableCodes::NO_STATE;
  begin = record->subTable->times().front();
  end = record->subTable->times().back();
  return DataTableCodes::OK;
}

size_t DataTable::getColumnNumRows(int64_t id) const {
  const ColumnRecord* record = record_(id);
  return record && record->subTable ? record->subTable->size() : 0;
}

double DataTable::getLeastTime() const {
  double least = std::numeric_limits<double>::infinity();
  for (const auto& sub : subTables_)
    if (!sub->empty()) least = std::min(least, sub->times().front());
  return std::isinf(least) ? -1.0 : least;
}

double DataTable::getGreatestTime() const {
  double greatest = -std::numeric_limits<double>::infinity();
  for (const auto& sub : subTables_)
    if (!sub->empty()) greatest = std::max(greatest, sub->times().back());
  return std::isinf(greatest) ? -1.0 : greatest;
}

bool DataTable::hasRowWithinTimeBounds(double begin, double end) const {
  for (const auto& sub : subTables_)
    if (sub->lowerBound(begin) < sub->upperBound(end)) return true;
  return false;
}

int32_t DataTable::getCellValueInterpolated(int64_t id, double time, double& out,
                                            const SubDataTable::Interpolator* interpolator) const {
  const ColumnRecord* record = record_(id);
  if (record == nullptr) return DataTableCodes::INVALID_COLUMN_ID;
  if (record->subTable == nullptr) return DataTableCodes::COLUMN_WITHOUT_SUBTABLE;
  const SubDataTable& sub = *record->subTable;
  const size_t at = sub.findTimeAtOrBeforeGivenTime(time);
  if (at >= sub.size()) return DataTableCodes::INVALID_COLUMN_INDEX;
  const DataColumn* column = sub.column(record->index);
  const double y0 = column->data()->valueAsDouble(at);
  if (sub.timeAt(at) == time || at + 1 >= sub.size()) {
    out = y0;
    return DataTableCodes::OK;
  }
  const double y1 = column->data()->valueAsDouble(at + 1);
  static const LinearInterpolate linear;
  const SubDataTable::Interpolator& use = interpolator ? *interpolator : linear;
  out = use.interpolate(column, sub.timeAt(at), time, sub.timeAt(at + 1), y0, y1);
  return DataTableCodes::OK;
}

int32_t DataTable::getStateAtOrBeforeTime(double time, DataTableRowT& row) const {
  row.clear();
  row.setTime(time);
  for (const auto& sub : subTables_) {
    const size_t at = sub->findTimeAtOrBeforeGivenTime(time);
    if (at >= sub->size()) continue;
    for (size_t c = 0; c < sub->columnCount(); ++c)
      row.addCell(sub->column(c)->id(), sub->column(c)->data()->makeCell(at));
  }
  return row.cells().empty() ? DataTableCodes::NO_STATE : DataTableCodes::OK;
}

void DataTable::update(double time, bool limit) {
  lastUpdateTime_ = time;
  getStateAtOrBeforeTime(time, currentRow_);
  if (limit) limitData(time);
}

void DataTable::limitData(double time) {
  if (!limits_.enabled) return;
  for (const auto& sub : subTables_) sub->limitData(time);
}

void DataTable::applyLimits_() {
  for (const auto& sub : subTables_) sub->setLimits(limits_);
}

void DataTable::setLimitingEnabled(bool enabled) {
  limits_.enabled = enabled;
  applyLimits_();
}

void DataTable::setLimitType(UTILS::EDataLimitType type) {
  limits_.type = type;
  applyLimits_();
}

void DataTable::setLimitNumPoints(uint64_t points) {
  limits_.points = points == 0 ? 1 : points;
  applyLimits_();
}

void DataTable::setLimitSeconds(double seconds) {
  limits_.seconds = seconds < 1.0 || std::isnan(seconds) ? 1.0 : seconds;
  applyLimits_();
}

size_t DataTable::bytes() const {
  size_t total = sizeof(*this) + columns_.capacity() * sizeof(ColumnRecord);
  for (const auto& sub : subTables_) total += sub->bytes();
  return total;
}
