#include "asi/host/TableCommands.h"

#include "asi/host/CommandFamilies.h"
#include "asi/host/TransmitSkeleton.h"
#include "hostapi/PIData.h"

namespace AsiReader {

void addTableCommands(const std::shared_ptr<AsiInterface::ScenarioProvider>& provider, int /*version*/,
                      CommandList& commands) {
  commands.push_back(new DataTable(provider));
  commands.push_back(new DataTableUnits(provider));
  commands.push_back(new DataTableRow(provider));
}

int64_t DataTableRow::findUpdateTable_(AsiInterface::Table& table, uint64_t hostUniqueId) {
  std::string name = table.name();
  // A table that the host renamed on modification still matches its first name.
  const size_t modified = name.find("_Modified_");
  if (modified != std::string::npos) name.erase(modified);

  int64_t tableId = 0;
  if (PIData::findDataTable(hostUniqueId, name, &tableId) != 0 || tableId == 0) return 0;
  std::vector<int64_t> columns;
  PIData::getDataTableColumns(tableId, columns);
  const std::vector<std::string>& names = table.names();
  // The names both have are compared in order up to the first that
  // differs; a host column beyond the file's fails the match as well.
  bool matches = true;
  for (size_t i = 0; matches && i < columns.size() && i < names.size(); ++i) {
    std::string hostName;
    PIData::getDataTableColumnName(tableId, columns[i], hostName);
    matches = hostName == names[i];
  }
  if (!matches || columns.size() > names.size()) {
    // The note names the table that was looked up.
    setMessage(PICommon::PI_NOTIFY_INFO, "Appending table \"" + name + "\" does not match existing table.\n");
    return 0;
  }
  for (size_t i = columns.size(); i < names.size(); ++i) {
    int64_t columnId = 0;
    const UTILS::UnitType_t unit = i < table.units().size() ? table.units()[i] : UTILS::UNITS_UNKNOWN;
    const UTILS::VariableType_t type = i < table.types().size() ? table.types()[i] : UTILS::VT_STRING;
    PIData::addDataTableColumn(tableId, &columnId, names[i], type, unit);
    columns.push_back(columnId);
  }
  table.setColumnIds(columns);
  return tableId;
}

bool DataTableRow::makeTable_(AsiInterface::Table& table, AsiInterface::Entity& host) {
  const std::string key = "TableName:" + table.name();
  if (provider_->doneOnce(host.asiId(), key)) {
    setMessage(PICommon::PI_NOTIFY_ERROR, "Entity has tables with duplicate name of \"" + table.name() + "\"\n");
    return false;
  }
  provider_->setDoneOnce(host.asiId(), key);

  int64_t tableId = findUpdateTable_(table, host.uniqueId());
  if (tableId == 0) {
    if (PIData::addDataTable(host.uniqueId(), table.name(), table.names(), table.types(), &tableId) != 0 ||
        tableId == 0) {
      setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to make table; check console for error messages");
      return false;
    }
    std::vector<int64_t> columns;
    PIData::getDataTableColumns(tableId, columns);
    table.setColumnIds(columns);
    if (!table.units().empty() && PIData::setDataTableColumnUnits(tableId, table.units()) != 0) {
      setMessage(PICommon::PI_NOTIFY_ERROR, "Failed to add units to table; check console for error messages");
      return false;
    }
  }
  table.setUniqueId(static_cast<uint64_t>(tableId));
  return true;
}

void DataTableRow::transmit() {
  if (TransmitSkeleton::guard(*this)) return;
  AsiInterface::Table* table = provider_->getTable(tableId_);
  if (table == nullptr) return setMessage(PICommon::PI_NOTIFY_ERROR, TransmitSkeleton::MISSING_ENTITY);
  AsiInterface::Entity* host = table->hostEntity();
  if (host == nullptr || host->ignore()) return;
  if (!host->doesExist()) return provider_->addCommand(host->asiId(), clone());
  if (table->uniqueId() == 0 && !makeTable_(*table, *host)) return;
  if (!TransmitSkeleton::normalizeTime(*this, *provider_, time_)) return;

  // The file numbers columns from 0; the host has ids of its own.
  DataTableRowT row(time_);
  const std::vector<int64_t>& ids = table->columnIds();
  for (const auto& cell : row_.cells()) {
    const size_t column = static_cast<size_t>(cell.first);
    row.addCell(column < ids.size() ? ids[column] : cell.first, cell.second->clone());
  }
  if (PIData::addDataTableRow(static_cast<int64_t>(table->uniqueId()), row) != 0)
    setMessage(PICommon::PI_NOTIFY_WARN, "Failed to add row to data table; check console for error messages");
}

}  // namespace AsiReader
