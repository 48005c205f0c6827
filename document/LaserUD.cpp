#include "document/LaserUD.h"

#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"

Laser::Laser(uint64_t id, uint64_t hostId, const std::string& name)
    : id_(id), hostId_(hostId), name_(name), table_(0, id, "Laser", 0) {
  int64_t column = 0;
  table_.addColumn("OnOff", UTILS::VT_UINT8, column);
  table_.addColumn("Yaw", UTILS::VT_FLOAT64, column, UTILS::UNITS_RADIANS);
  table_.addColumn("Pitch", UTILS::VT_FLOAT64, column, UTILS::UNITS_RADIANS);
  table_.addColumn("Roll", UTILS::VT_FLOAT64, column, UTILS::UNITS_RADIANS);
  table_.addColumn("Width", UTILS::VT_INT32, column);
  table_.addColumn("MaxRange", UTILS::VT_FLOAT64, column, UTILS::UNITS_METERS);
  table_.addColumn("Color", UTILS::VT_UINT32, column);
  table_.addColumn("OffsetX", UTILS::VT_FLOAT64, column, UTILS::UNITS_METERS);
  table_.addColumn("OffsetY", UTILS::VT_FLOAT64, column, UTILS::UNITS_METERS);
  table_.addColumn("OffsetZ", UTILS::VT_FLOAT64, column, UTILS::UNITS_METERS);
}

void Laser::addRow_(double time, std::initializer_list<std::pair<int64_t, DataTableCell*>> cells) {
  DataTableRowT row(time);
  for (const auto& cell : cells) row.addCell(cell.first, cell.second);
  table_.addRow(row);
}

void Laser::addOnOffDataPoint(double time, bool on) {
  addRow_(time, {{COL_ON_OFF, new DataTableCellTyped<uint8_t>(on ? 1 : 0)}});
}

void Laser::addOriDataPoint(double time, double yaw, double pitch, double roll) {
  addRow_(time, {{COL_YAW, new DataTableCellTyped<double>(yaw)},
                 {COL_PITCH, new DataTableCellTyped<double>(pitch)},
                 {COL_ROLL, new DataTableCellTyped<double>(roll)}});
}

void Laser::addWidthDataPoint(double time, int32_t width) {
  addRow_(time, {{COL_WIDTH, new DataTableCellTyped<int32_t>(width)}});
}

void Laser::addMaxRangeDataPoint(double time, double range) {
  addRow_(time, {{COL_MAX_RANGE, new DataTableCellTyped<double>(range)}});
}

void Laser::addColorDataPoint(double time, uint32_t color) {
  addRow_(time, {{COL_COLOR, new DataTableCellTyped<uint32_t>(color)}});
}

void Laser::addPositionOffsetDataPoint(double time, double x, double y, double z) {
  addRow_(time, {{COL_OFFSET_X, new DataTableCellTyped<double>(x)},
                 {COL_OFFSET_Y, new DataTableCellTyped<double>(y)},
                 {COL_OFFSET_Z, new DataTableCellTyped<double>(z)}});
}

Laser* LaserManager::addLaser(uint64_t id, uint64_t hostId, const std::string& name) {
  if (lasers_.count(id) != 0) return nullptr;
  auto& slot = lasers_[id];
  slot = std::make_unique<Laser>(id, hostId, name);
  for (auto& callback : addCallbacks_) callback(*slot);
  return slot.get();
}

bool LaserManager::removeLaser(uint64_t id) {
  auto it = lasers_.find(id);
  if (it == lasers_.end()) return false;
  for (auto& callback : removeCallbacks_) callback(*it->second);
  lasers_.erase(it);
  return true;
}

Laser* LaserManager::findLaser(uint64_t id) const {
  auto it = lasers_.find(id);
  return it == lasers_.end() ? nullptr : it->second.get();
}

uint64_t LaserManager::findLaserId(uint64_t hostId, const std::string& name) const {
  for (const auto& entry : lasers_)
    if (entry.second->hostId() == hostId && entry.second->name() == name) return entry.first;
  return 0;
}

void LaserManager::moveLasers(uint64_t fromHost, uint64_t toHost) {
  for (auto& entry : lasers_)
    if (entry.second->hostId() == fromHost) entry.second->setHostId(toHost);
}

bool LaserManager::renameLaser(uint64_t id, const std::string& name) {
  Laser* laser = findLaser(id);
  if (laser == nullptr) return false;
  laser->setName(name);
  return true;
}

void LaserManager::update(double time) {
  for (auto& entry : lasers_) entry.second->table().update(time, false);
}

LaserUD::LaserUD(ScenarioUD* scenario, PlatformUD* host, Laser* laser)
    : ObjectUD(scenario, OBJECT_LASER), host_(host), laser_(laser) {}

int LaserUD::Valid(const DataFormatUD&) const {
  return laser_->name().empty() ? UD_LASER_ERROR : UD_NO_ERROR;
}

namespace {

class LastOnOff : public TimeValueFunctor {
 public:
  bool operator()(double, const DataTableCell& value) override {
    uint8_t on = 0;
    value.getValue(on);
    last = on != 0;
    found = true;
    return true;
  }
  bool last = false;
  bool found = false;
};

}  // namespace

bool LaserUD::ActiveAtTime(double time, bool* out) const {
  LastOnOff visitor;
  laser_->table().forEachValueInColumn(Laser::COL_ON_OFF, -1.0e300, time, visitor);
  if (out) *out = visitor.last;
  return visitor.found;
}
