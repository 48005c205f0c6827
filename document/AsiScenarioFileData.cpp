// Lasers, generic data, data tables and projectors of the document: the row
// functors that carry table rows to the host.
#include <cstdlib>
#include <limits>
#include <vector>

#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "document/AsiScenarioFile.h"
#include "document/ProgressPrinter.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"

namespace {

void tellError(const std::string& text) { PICommon::notify(text, PICommon::PI_NOTIFY_ERROR, ""); }

double rowBegin(const TimeWindowUD& window) {
  return window.hasMin ? window.min : -std::numeric_limits<double>::max();
}
double rowEnd(const TimeWindowUD& window) { return window.hasMax ? window.max : std::numeric_limits<double>::max(); }

template <typename T>
bool cellValue(const DataTableRowT& row, int64_t column, T& out) {
  const DataTableCell* cell = row.cell(column);
  if (cell == nullptr) return false;
  cell->getValue(out);
  return true;
}

int32_t convertCoordinateSystemFlag(orvCore::CoordinateSystem system) {
  switch (system) {
    case orvCore::NED: return PIData::PI_COORD_NED;
    case orvCore::NWU: return PIData::PI_COORD_NWU;
    case orvCore::ENU: return PIData::PI_COORD_ENU;
    case orvCore::LLA: return PIData::PI_COORD_LLA;
    case orvCore::ECI: return PIData::PI_COORD_ECI;
    case orvCore::XEAST: return PIData::PI_COORD_XEAST;
    case orvCore::GTP: return PIData::PI_COORD_GTP;
    default: return PIData::PI_COORD_ECEF;
  }
}

}  // namespace

// Sends one data-table row, its cells moved from the document's column ids
// to the host's; a row the host refuses does not stop the table.
class AddDataTableRow2ScenarioFunctor : public PerDataTableRowFunctor {
 public:
  AddDataTableRow2ScenarioFunctor(int64_t hostTable, std::vector<std::pair<int64_t, int64_t>> columns)
      : hostTable_(hostTable), columns_(std::move(columns)) {}
  bool operator()(DataTable&, const DataTableRowT& row) override {
    DataTableRowT out(row.time());
    for (const auto& column : columns_)
      if (const DataTableCell* cell = row.cell(column.first)) out.addCell(column.second, cell->clone());
    PIData::addDataTableRow(hostTable_, out);
    return true;
  }

 private:
  int64_t hostTable_;
  std::vector<std::pair<int64_t, int64_t>> columns_;  // (document column, host column)
};

class TransmitLaserDataPointFunctor : public PerDataTableRowFunctor {
 public:
  TransmitLaserDataPointFunctor(uint64_t laserId, const TimeWindowUD& window) : id_(laserId), window_(window) {}
  bool operator()(DataTable&, const DataTableRowT& row) override {
    const double t = row.time();
    if (t != -1.0 && ((window_.hasMin && t < window_.min) || (window_.hasMax && t > window_.max))) return true;
    uint8_t on = 0;
    if (cellValue(row, Laser::COL_ON_OFF, on))
      PIData::setStatus(id_, on ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF, t);
    uint32_t color = 0;
    if (cellValue(row, Laser::COL_COLOR, color)) PIData::setColor(id_, color, t);
    PIData::PILaserPoint orientation;
    orientation.time = t;
    if (cellValue(row, Laser::COL_YAW, orientation.orientation.x) &&
        cellValue(row, Laser::COL_PITCH, orientation.orientation.y) &&
        cellValue(row, Laser::COL_ROLL, orientation.orientation.z))
      PIData::addLaserOriDataPoint(id_, orientation);
    double range = 0.0;
    if (cellValue(row, Laser::COL_MAX_RANGE, range)) PIData::addLaserMaxRangeDataPoint(id_, range, t);
    int32_t width = 0;
    if (cellValue(row, Laser::COL_WIDTH, width)) PIData::addLaserWidthDataPoint(id_, t, width);
    PIData::PILaserOffset offset;
    offset.time = t;
    if (cellValue(row, Laser::COL_OFFSET_X, offset.x) && cellValue(row, Laser::COL_OFFSET_Y, offset.y) &&
        cellValue(row, Laser::COL_OFFSET_Z, offset.z))
      PIData::addLaserOffsetDataPoint(id_, offset);
    return true;
  }

 private:
  uint64_t id_;
  TimeWindowUD window_;
};

class InsertOnOffDataRowFunctor : public PerDataTableRowFunctor {
 public:
  InsertOnOffDataRowFunctor(uint64_t id, int64_t column) : id_(id), column_(column) {}
  bool operator()(DataTable&, const DataTableRowT& row) override {
    uint8_t on = 0;
    if (cellValue(row, column_, on))
      PIData::setStatus(id_, on ? PIData::PI_VISIBILITY_ON : PIData::PI_VISIBILITY_OFF, row.time());
    return true;
  }

 private:
  uint64_t id_;
  int64_t column_;
};

class InsertFovDataRowFunctor : public PerDataTableRowFunctor {
 public:
  InsertFovDataRowFunctor(uint64_t id, int64_t column) : id_(id), column_(column) {}
  bool operator()(DataTable&, const DataTableRowT& row) override {
    double fov = 0.0;
    if (cellValue(row, column_, fov)) PIData::addProjectorFOV(id_, row.time(), fov);
    return true;
  }

 private:
  uint64_t id_;
  int64_t column_;
};

class InsertDataTableIntoScenarioFunctor {
 public:
  InsertDataTableIntoScenarioFunctor(AsiScenarioFile& file, const TimeWindowUD& window)
      : file_(file), window_(window) {}
  bool operator()(const DataTableList& list, DataTable& table) { return file_.transmitDataTable_(list, table, window_); }

 private:
  AsiScenarioFile& file_;
  TimeWindowUD window_;
};

void AsiScenarioFile::transmitLaserData_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->lasers()) {
    if (counted_()) return;
    const LaserUD& object = *entry.second;
    Laser& laser = *object.laser();
    const uint64_t platformId = getPluginId_(laser.hostId());
    if (platformId == 0) {
      tellError("Unable to find laser host.\n");
      continue;
    }
    PIData::PILaserHeader header;
    header.name = laser.name();
    header.frame.coordSystem = convertCoordinateSystemFlag(laser.coordSystem());
    header.frame.latitude = laser.referenceLLA()[0];
    header.frame.longitude = laser.referenceLLA()[1];
    header.frame.altitude = laser.referenceLLA()[2];
    header.bodyFlag = laser.azElBodyFlag();
    const uint64_t hostId = PIData::createLaser(platformId, header, laser.originalId());
    if (hostId == 0) {
      tellError("Unable to create laser.\n");
      continue;
    }
    remember_(laser.id(), laser.originalId(), hostId);
    TransmitLaserDataPointFunctor rows(hostId, window);
    laser.table().forEachRow(-std::numeric_limits<double>::max(), std::numeric_limits<double>::max(), rows);
    transmitCategoryData_(hostId, object.categoryData(), window);
  }
}

std::string AsiScenarioFile::convertGenericEntityId_(const std::string& value) const {
  std::vector<std::string> parts;
  orvCore::stringTokenizer(parts, value, ",", true, false);
  std::string out;
  for (size_t i = 0; i < parts.size(); ++i) {
    std::string part = parts[i];
    const size_t equals = part.find('=');
    if (equals != std::string::npos && orvCore::lowerCase(part.substr(0, equals)) == "entityid") {
      const uint64_t id = std::strtoull(part.c_str() + equals + 1, nullptr, 10);
      part = "entityid=" + std::to_string(getPluginId_(id));
    }
    out += (i == 0 ? "" : ",") + part;
  }
  return out;
}

void AsiScenarioFile::transmitGenericData_(const TimeWindowUD& window) {
  static const std::string animatedLine = "orvide_animatedline";
  for (const auto& entry : scenario_->genericData()) {
    // An owner the host never saw (a range track with a legend but no
    // position) has host id 0: its items go to the scenario's own data.
    const uint64_t hostId = getPluginId_(entry.first);
    const GenericDataUD& data = *entry.second;
    const auto range = getAtOrInBetweenBeginAndEndIterators(data.items(), window);
    for (auto it = range.first; it != range.second; ++it)
      for (const GenericDataObject::Item& item : it->second) {
        PIData::PIGenericDataPoint point;
        point.time = it->first;
        point.expirationTime = item.first;
        point.tag = data.getTag(item.second.first);
        point.value = orvCore::lowerCase(point.tag.substr(0, animatedLine.size())) == animatedLine
                          ? convertGenericEntityId_(item.second.second)
                          : item.second.second;
        PIData::createGenericData(hostId, point);
      }
  }
}

void AsiScenarioFile::transmitDataTables_(const TimeWindowUD& window) {
  InsertDataTableIntoScenarioFunctor insert(*this, window);
  for (const auto& list : scenario_->dataTables().lists())
    for (const auto& table : list.second->tables()) {
      if (counted_()) return;
      if (!insert(*list.second, *table.second)) return;
    }
}

bool AsiScenarioFile::transmitDataTable_(const DataTableList& list, DataTable& table, const TimeWindowUD& window) {
  // The owner as this transmission sent it; an owner from elsewhere (an
  // earlier load) by its original id.
  uint64_t ownerId = getPluginId_(list.ownerId());
  if (ownerId == 0) {
    std::vector<uint64_t> found;
    PIData::findObjectsByOriginalID(list.ownerId(), found);
    if (found.empty()) {
      tellError("Data Table owner not found with ID = " + std::to_string(list.ownerId()));
      return true;
    }
    ownerId = found.front();
  }
  const std::vector<int64_t> columns = table.getColumnIds();
  const std::vector<std::string> names = table.getColumnNames();
  int64_t hostTable = 0;
  std::vector<int64_t> hostColumns;
  if (PIData::findDataTable(ownerId, table.name(), &hostTable) == 0 && hostTable != 0) {
    PIData::getDataTableColumns(hostTable, hostColumns);
    bool same = hostColumns.size() == names.size();
    for (size_t i = 0; same && i < names.size(); ++i) {
      std::string name;
      same = PIData::getDataTableColumnName(hostTable, hostColumns[i], name) == 0 && name == names[i];
    }
    if (!same) {
      tellError("Appending table \"" + table.name() + "\" does not match existing table.\n");
      return true;
    }
  } else {
    if (PIData::addDataTable(ownerId, table.name(), names, table.getColumnStorageTypes(), &hostTable) != 0 ||
        hostTable == 0) {
      tellError("Unable to create data table.\n");
      return true;
    }
    PIData::setDataTableColumnUnits(hostTable, table.getColumnUnitTypes());
    PIData::getDataTableColumns(hostTable, hostColumns);
  }
  std::vector<std::pair<int64_t, int64_t>> mapping;
  for (size_t i = 0; i < columns.size() && i < hostColumns.size(); ++i) mapping.emplace_back(columns[i], hostColumns[i]);
  AddDataTableRow2ScenarioFunctor rows(hostTable, std::move(mapping));
  table.forEachRow(rowBegin(window), rowEnd(window), rows);
  return true;
}

void AsiScenarioFile::transmitProjectors_(const TimeWindowUD& window) {
  for (const auto& entry : scenario_->GetProjectorManager().projectors()) {
    Projector& projector = *entry.second;
    const uint64_t ownerId = getPluginId_(projector.hostId());
    PIData::PIProjectorHeader header;
    header.name = projector.name();
    header.originalId = projector.originalId();
    const uint64_t hostId = PIData::createProjector(ownerId, header);
    if (hostId == 0) {
      tellError("Unable to create projector <" + projector.name() + ">.\n");
      continue;
    }
    if (!projector.rasterFileName().empty()) PIData::setProjectorRasterFileName(hostId, projector.rasterFileName());
    if (projector.interpolateFov()) PIData::setProjectorInterpolateFov(hostId, true);
    int64_t column = 0;
    if (projector.fovTable().getColumnId("FOV", column) == 0) {
      InsertFovDataRowFunctor fov(hostId, column);
      projector.fovTable().forEachRow(rowBegin(window), rowEnd(window), fov);
    }
    if (projector.onOffTable().getColumnId("OnOff", column) == 0) {
      InsertOnOffDataRowFunctor onOff(hostId, column);
      projector.onOffTable().forEachRow(rowBegin(window), rowEnd(window), onOff);
    }
  }
}
