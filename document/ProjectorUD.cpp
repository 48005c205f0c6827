#include "document/ProjectorUD.h"

namespace {

class CopyRows : public PerDataTableRowFunctor {
 public:
  explicit CopyRows(DataTable& to) : to_(to) {}
  bool operator()(DataTable&, const DataTableRowT& row) override {
    to_.addRow(row);
    return true;
  }

 private:
  DataTable& to_;
};

void copyTable(const DataTable& from, DataTable& to) {
  to.flush();
  CopyRows copy(to);
  const_cast<DataTable&>(from).forEachRow(-1.0e300, 1.0e300, copy);
}

}  // namespace

Projector::Projector(uint64_t id, uint64_t hostId, const std::string& name)
    : id_(id), hostId_(hostId), name_(name), onOff_(0, id, "OnOff", 0), fov_(0, id, "FOV", 0) {
  int64_t column = 0;
  onOff_.addColumn("OnOff", UTILS::VT_UINT8, column);
  fov_.addColumn("FOV", UTILS::VT_FLOAT64, column, UTILS::UNITS_RADIANS);
}

void Projector::addOnOffDataPoint(double time, bool on) {
  DataTableRowT row(time);
  row.addCell(0, new DataTableCellTyped<uint8_t>(on ? 1 : 0));
  onOff_.addRow(row);
}

void Projector::addFovDataPoint(double time, double fov) {
  DataTableRowT row(time);
  row.addCell(0, new DataTableCellTyped<double>(fov));
  fov_.addRow(row);
}

void Projector::copyOnOffDataTable(const Projector& other) { copyTable(other.onOff_, onOff_); }
void Projector::copyFovDataTable(const Projector& other) { copyTable(other.fov_, fov_); }

Projector* ProjectorManager::addProjector(uint64_t id, uint64_t hostId, const std::string& name) {
  if (projectors_.count(id) != 0) return nullptr;
  auto& slot = projectors_[id];
  slot = std::make_unique<Projector>(id, hostId, name);
  return slot.get();
}

bool ProjectorManager::removeProjector(uint64_t id) { return projectors_.erase(id) != 0; }

Projector* ProjectorManager::findProjector(uint64_t id) const {
  auto it = projectors_.find(id);
  return it == projectors_.end() ? nullptr : it->second.get();
}
