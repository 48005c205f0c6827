#include "host/HostScenario.h"

#include <algorithm>
#include <cmath>

namespace RefHost {

const char* kindName(std::uint32_t kind) {
  switch (kind) {
    case KIND_PLATFORM: return "platform";
    case KIND_BEAM: return "beam";
    case KIND_GATE: return "gate";
    case KIND_GENERIC_DATA: return "genericData";
    case KIND_LASER: return "laser";
    case KIND_LOB: return "lob";
    case KIND_PROJECTOR: return "projector";
    case KIND_CUSTOM_RENDERING: return "customRendering";
    default: return "none";
  }
}

const char* seriesName(unsigned series) {
  static const char* const names[SERIES_COUNT] = {
      "points", "status", "colors", "targets", "genericData", "categoryData", "laserOffsets",
      "laserMaxRange", "laserWidth", "lobDrawStyles", "projectorFov"};
  return series < SERIES_COUNT ? names[series] : "";
}

std::vector<const char*> seriesFields(unsigned series, std::uint32_t kind) {
  switch (series) {
    case SERIES_POINTS:
      switch (kind) {
        case KIND_PLATFORM:
          return {"time", "x", "y", "z", "yaw", "pitch", "roll", "vx", "vy", "vz", "frame"};
        case KIND_GATE:
          return {"time", "azimuth", "elevation", "width", "height", "minRange", "maxRange", "centroid"};
        case KIND_LASER: return {"time", "yaw", "pitch", "roll"};
        default: return {"time", "azimuth", "elevation", "range"};
      }
    case SERIES_STATUS: return {"time", "status"};
    case SERIES_COLOR: return {"time", "color"};
    case SERIES_TARGET: return {"time", "target"};
    case SERIES_GENERIC: return {"time", "expiration", "tag", "value", "id"};
    case SERIES_CATEGORY: return {"time", "name", "value"};
    case SERIES_LASER_OFFSET: return {"time", "x", "y", "z"};
    case SERIES_LASER_MAX_RANGE: return {"time", "range"};
    case SERIES_LASER_WIDTH: return {"time", "width"};
    case SERIES_LOB_DRAW_STYLE: return {"time", "color1", "color2", "stipple1", "stipple2", "width"};
    case SERIES_PROJECTOR_FOV: return {"time", "fov"};
    default: return {};
  }
}

unsigned seriesStride(unsigned series, std::uint32_t kind) {
  return static_cast<unsigned>(seriesFields(series, kind).size());
}

namespace {

void prepareSeries(HostObject& object) {
  for (unsigned s = 0; s < SERIES_COUNT; ++s) object.series[s] = Series(seriesStride(s, object.kind));
}

bool parentFits(std::uint32_t kind, std::uint32_t parentKind, bool parentIsNone) {
  switch (kind) {
    case KIND_PLATFORM: return parentIsNone;
    case KIND_BEAM:
    case KIND_LOB:
    case KIND_LASER: return parentKind == KIND_PLATFORM;
    case KIND_GATE: return parentKind == KIND_BEAM;
    case KIND_PROJECTOR: return parentKind == KIND_PLATFORM || parentKind == KIND_BEAM;
    case KIND_CUSTOM_RENDERING: return parentIsNone || parentKind == KIND_PLATFORM;
    default: return false;
  }
}

}  // namespace

HostScenario::HostScenario(bool noData, int defaultReferenceYear)
    : noData_(noData), defaultReferenceYear_(defaultReferenceYear) {
  settings_.referenceYear = defaultReferenceYear;
  scenarioObject_.kind = KIND_NONE;
  prepareSeries(scenarioObject_);
}

void HostScenario::initialize(const std::string& name, std::int64_t port, std::int64_t protocol, bool flag) {
  settings_.initialized = true;
  settings_.name = name;
  settings_.port = port;
  settings_.protocol = protocol;
  settings_.flag = flag;
  if (settings_.fileName.empty()) settings_.fileName = name;
}

void HostScenario::deleteScenario() {
  settings_ = ScenarioSettings();
  settings_.referenceYear = defaultReferenceYear_;
  clock_ = Clock();
  objects_.clear();
  byId_.clear();
  genericEntries_.clear();
  tables_.clear();
  scenarioObject_ = HostObject();
  prepareSeries(scenarioObject_);
  strings_.clear();
  frames_.clear();
}

bool HostScenario::autoConfigureClock() {
  bool any = false;
  double lo = 0.0, hi = 0.0;
  auto take = [&](const Series& s) {
    if (!s.hasTimedRecords()) return;
    if (!any) {
      lo = s.minTime();
      hi = s.maxTime();
      any = true;
    } else {
      lo = std::min(lo, s.minTime());
      hi = std::max(hi, s.maxTime());
    }
  };
  for (const auto& object : objects_) take(object->data(SERIES_POINTS));
  if (!any) return false;
  clock_.begin = lo;
  clock_.end = hi;
  clock_.time = std::min(std::max(clock_.time, lo), hi);
  return true;
}

std::uint64_t HostScenario::create(std::uint32_t kind, std::uint64_t parent, const ObjectHeader& header,
                                   std::uint64_t originalId) {
  if (!canCreate(kind, parent)) return 0;
  auto object = std::make_unique<HostObject>();
  object->id = nextId_++;
  object->kind = kind;
  object->parent = parent;
  object->originalId = originalId;
  object->header = header;
  prepareSeries(*object);
  byId_[object->id] = object.get();
  objects_.push_back(std::move(object));
  return objects_.back()->id;
}

bool HostScenario::canCreate(std::uint32_t kind, std::uint64_t parent) const {
  if (!settings_.initialized) return false;
  const HostObject* parentObject = parent ? find(parent) : nullptr;
  if (parent && !parentObject) return false;
  return parentFits(kind, parentObject ? parentObject->kind : KIND_NONE, parent == 0);
}

std::uint64_t HostScenario::addGenericData(std::uint64_t ownerId, double time, double expiration,
                                           const std::string& tag, const std::string& value) {
  if (!settings_.initialized) return 0;
  HostObject* target = owner(ownerId);
  if (!target) return 0;
  const std::uint64_t id = nextId_++;
  double record[5] = {time, expiration, 0.0, 0.0, static_cast<double>(id)};
  // The entry is known in every mode: getObjectType must not depend on
  // whether records are kept.
  genericEntries_.emplace_back(id, ownerId);
  if (!noData_) {
    record[2] = strings_.intern(tag);
    record[3] = strings_.intern(value);
  }
  target->data(SERIES_GENERIC).add(record, !noData_);
  return id;
}

HostObject* HostScenario::find(std::uint64_t id) {
  auto it = byId_.find(id);
  return it == byId_.end() ? nullptr : it->second;
}

const HostObject* HostScenario::find(std::uint64_t id) const {
  auto it = byId_.find(id);
  return it == byId_.end() ? nullptr : it->second;
}

std::uint32_t HostScenario::objectType(std::uint64_t id) const {
  if (const HostObject* object = find(id)) return object->kind;
  auto it = std::lower_bound(genericEntries_.begin(), genericEntries_.end(), std::make_pair(id, std::uint64_t(0)));
  if (it != genericEntries_.end() && it->first == id) return KIND_GENERIC_DATA;
  return KIND_NONE;
}

std::uint64_t HostScenario::findByName(std::uint32_t kind, const std::string& name) const {
  for (const auto& object : objects_)
    if (object->kind == kind && object->header.name == name) return object->id;
  return 0;
}

std::vector<std::uint64_t> HostScenario::list(std::uint32_t kind, std::optional<std::uint64_t> parent) const {
  std::vector<std::uint64_t> ids;
  for (const auto& object : objects_)
    if ((object->kind & kind) && (!parent || object->parent == *parent)) ids.push_back(object->id);
  return ids;
}

std::vector<std::uint64_t> HostScenario::findByOriginalId(std::uint64_t originalId) const {
  std::vector<std::uint64_t> ids;
  for (const auto& object : objects_)
    if (object->originalId == originalId) ids.push_back(object->id);
  return ids;
}

bool HostScenario::addRecord(std::uint64_t id, SeriesId series, const double* record) {
  HostObject* object = owner(id);
  if (!object) return false;
  object->data(series).add(record, !noData_);
  return true;
}

bool HostScenario::flush(std::uint64_t id, int type) {
  HostObject* object = find(id);
  if (!object || type < 0 || type > 2) return false;
  for (auto& s : object->series) {
    if (type == 0) s.clear();
    else if (type == 1) s.removeTimed();
    else s.removeStatic();
  }
  return true;
}

std::int64_t HostScenario::addTable(std::uint64_t ownerId, const std::string& name,
                                    const std::vector<TableColumn>& columns) {
  if (!settings_.initialized || !owner(ownerId) || name.empty()) return 0;
  if (findTable(ownerId, name)) return 0;
  auto table = std::make_unique<DataTable>();
  table->id = nextTableId_++;
  table->owner = ownerId;
  table->name = name;
  for (const TableColumn& column : columns) {
    TableColumn c = column;
    c.id = table->nextColumnId++;
    table->columns.push_back(c);
  }
  tables_.push_back(std::move(table));
  return tables_.back()->id;
}

DataTable* HostScenario::table(std::int64_t id) {
  for (auto& table : tables_)
    if (table->id == id) return table.get();
  return nullptr;
}

std::int64_t HostScenario::findTable(std::uint64_t ownerId, const std::string& name) const {
  for (const auto& table : tables_)
    if (table->owner == ownerId && table->name == name) return table->id;
  return 0;
}

std::int64_t HostScenario::addColumn(std::int64_t tableId, const std::string& name, std::int32_t type,
                                     std::int32_t unit) {
  DataTable* t = table(tableId);
  if (!t || name.empty()) return 0;
  for (const TableColumn& c : t->columns)
    if (c.name == name) return 0;
  TableColumn column;
  column.id = t->nextColumnId++;
  column.name = name;
  column.type = type;
  column.unit = unit;
  t->columns.push_back(column);
  return column.id;
}

bool HostScenario::addRow(std::int64_t tableId, double time, const std::vector<TableCell>& cells) {
  DataTable* t = table(tableId);
  if (!t) return false;
  for (const TableCell& cell : cells) {
    bool known = false;
    for (const TableColumn& c : t->columns) known = known || c.id == cell.column;
    if (!known) return false;
  }
  t->rowTimes.add(&time, !noData_);
  if (!noData_) {
    t->rowStart.push_back(static_cast<std::uint32_t>(t->cells.size()));
    t->cells.insert(t->cells.end(), cells.begin(), cells.end());
  }
  return true;
}

std::size_t HostScenario::dataBytes() const {
  std::size_t bytes = 0;
  auto objectBytes = [&](const HostObject& o) {
    for (const auto& s : o.series) bytes += s.memoryBytes();
  };
  objectBytes(scenarioObject_);
  for (const auto& o : objects_) objectBytes(*o);
  for (const auto& t : tables_)
    bytes += t->rowTimes.memoryBytes() + t->cells.capacity() * sizeof(TableCell) +
             t->rowStart.capacity() * sizeof(std::uint32_t);
  bytes += genericEntries_.capacity() * sizeof(genericEntries_[0]);
  return bytes;
}

}  // namespace RefHost
