// Data tables (code 261): ints are (sub-operation, result, arguments...).

#include <string>
#include <vector>

#include "core/UnitTypes.h"
#include "core/VariableType.h"
#include "host/HostDispatch.h"
#include "hostapi/DataTableRow.h"

namespace RefHost {

namespace {

using nlohmann::json;

TableCell toCell(std::int64_t column, const DataTableCell& cell, StringPool& strings, bool keepStrings) {
  TableCell out;
  out.column = column;
  out.type = static_cast<std::int32_t>(cell.getType());
  switch (cell.getType()) {
    case UTILS::VT_INT8:
    case UTILS::VT_INT16:
    case UTILS::VT_INT32:
    case UTILS::VT_INT64:
      out.kind = CELL_SIGNED;
      cell.getValue(out.i);
      break;
    case UTILS::VT_UINT8:
    case UTILS::VT_UINT16:
    case UTILS::VT_UINT32:
    case UTILS::VT_UINT64:
      out.kind = CELL_UNSIGNED;
      cell.getValue(out.u);
      break;
    case UTILS::VT_STRING: {
      out.kind = CELL_STRING;
      std::string text;
      cell.getValue(text);
      out.s = keepStrings ? strings.intern(text) : 0;
      break;
    }
    default:
      out.kind = CELL_DOUBLE;
      cell.getValue(out.d);
      break;
  }
  return out;
}

json cellTrace(const DataTableCell& cell) {
  if (cell.getType() == UTILS::VT_STRING) {
    std::string text;
    cell.getValue(text);
    return text;
  }
  double value = 0.0;
  cell.getValue(value);
  return value;
}

}  // namespace

std::uint64_t Dispatcher::tables(Request& r) {
  auto* rec = record<PI_DATA_CATCHALL>(r);
  r.op = "dataTable";
  if (!rec || rec->ints.empty()) return 1;
  if (rec->ints.size() < 2) rec->ints.resize(2, 0);
  HostScenario& s = host.scenario_;
  auto intAt = [&](std::size_t i) -> std::int64_t { return i < rec->ints.size() ? rec->ints[i] : 0; };
  auto pointer = [&](std::size_t i) -> void* { return i < rec->pointers.size() ? rec->pointers[i] : nullptr; };
  const std::string name = rec->strings.empty() ? std::string() : rec->strings[0];
  std::int64_t& result = rec->ints[1];
  const std::int64_t tableId = intAt(2);

  switch (rec->ints[0]) {
    case 1: {  // addDataTable: result is the new table's id, 0 on failure
      result = 0;
      auto* owner = static_cast<std::uint64_t*>(pointer(0));
      auto* names = static_cast<std::vector<std::string>*>(pointer(1));
      auto* types = static_cast<std::vector<UTILS::VariableType_t>*>(pointer(2));
      auto* units = static_cast<std::vector<UTILS::UnitType_t>*>(pointer(3));
      if (owner) arg(r, "id", *owner);
      arg(r, "name", name);
      if (names) arg(r, "columnNames", *names);
      if (types && r.tracing) {
        json list = json::array();
        for (auto t : *types) list.push_back(static_cast<int>(t));
        r.args["columnTypes"] = std::move(list);
      }
      if (units && r.tracing) {
        json list = json::array();
        for (auto u : *units) list.push_back(static_cast<int>(u));
        r.args["columnUnits"] = std::move(list);
      }
      if (refuse(r, "addDataTable")) return 0;
      if (!owner || !names || !types || names->size() != types->size() ||
          (units && !units->empty() && units->size() != names->size())) {
        r.problem = "missing or mismatched columns";
        return 0;
      }
      std::vector<TableColumn> columns;
      for (std::size_t i = 0; i < names->size(); ++i) {
        TableColumn c;
        c.name = (*names)[i];
        c.type = static_cast<std::int32_t>((*types)[i]);
        c.unit = units && !units->empty() ? static_cast<std::int32_t>((*units)[i]) : 0;
        columns.push_back(c);
      }
      result = s.addTable(*owner, name, columns);
      return static_cast<std::uint64_t>(result);
    }
    case 2: {  // findDataTable: result is the table's id, 0 when none
      result = 0;
      auto* owner = static_cast<std::uint64_t*>(pointer(0));
      if (owner) arg(r, "id", *owner);
      arg(r, "name", name);
      if (refuse(r, "findDataTable") || !owner) return 0;
      result = s.findTable(*owner, name);
      return static_cast<std::uint64_t>(result);
    }
    case 3: {  // getDataTableColumns
      result = 1;
      arg(r, "tableId", tableId);
      auto* out = static_cast<std::vector<std::int64_t>*>(pointer(0));
      const DataTable* t = s.table(tableId);
      if (refuse(r, "getDataTableColumns") || !out || !t) return 1;
      out->clear();
      for (const TableColumn& c : t->columns) out->push_back(c.id);
      if (r.tracing) r.out = *out;
      return static_cast<std::uint64_t>(result = 0);
    }
    case 4: {  // getDataTableColumnName
      result = 1;
      const std::int64_t columnId = intAt(3);
      arg(r, "tableId", tableId);
      arg(r, "columnId", columnId);
      auto* out = static_cast<std::string*>(pointer(0));
      const DataTable* t = s.table(tableId);
      if (refuse(r, "getDataTableColumnName") || !out || !t) return 1;
      for (const TableColumn& c : t->columns) {
        if (c.id != columnId) continue;
        *out = c.name;
        if (r.tracing) r.out = *out;
        return static_cast<std::uint64_t>(result = 0);
      }
      return 1;
    }
    case 5: {  // addDataTableColumn: the column id goes to ints[5]
      result = 1;
      if (rec->ints.size() < 6) rec->ints.resize(6, 0);
      rec->ints[5] = 0;
      arg(r, "tableId", tableId);
      arg(r, "name", name);
      arg(r, "type", intAt(3));
      arg(r, "unit", intAt(4));
      if (refuse(r, "addDataTableColumn")) return 1;
      const std::int64_t column =
          s.addColumn(tableId, name, static_cast<std::int32_t>(intAt(3)), static_cast<std::int32_t>(intAt(4)));
      if (!column) return 1;
      rec->ints[5] = column;
      if (r.tracing) r.out = column;
      return static_cast<std::uint64_t>(result = 0);
    }
    case 6: {  // setDataTableColumnUnits: one unit per column, in column order
      result = 1;
      auto* units = static_cast<std::vector<UTILS::UnitType_t>*>(pointer(0));
      arg(r, "tableId", tableId);
      if (units && r.tracing) {
        json list = json::array();
        for (auto u : *units) list.push_back(static_cast<int>(u));
        r.args["units"] = std::move(list);
      }
      DataTable* t = s.table(tableId);
      if (refuse(r, "setDataTableColumnUnits") || !units || !t || units->size() != t->columns.size()) return 1;
      for (std::size_t i = 0; i < units->size(); ++i) t->columns[i].unit = static_cast<std::int32_t>((*units)[i]);
      return static_cast<std::uint64_t>(result = 0);
    }
    case 7: {  // addDataTableRow
      result = 1;
      auto* row = static_cast<const DataTableRowT*>(pointer(0));
      arg(r, "tableId", tableId);
      if (row && r.tracing) {
        json cells = json::object();
        for (const auto& [column, cell] : row->cells())
          cells[std::to_string(column)] = cell ? cellTrace(*cell) : json(nullptr);
        r.args["row"] = {{"time", row->time()}, {"cells", std::move(cells)}};
      }
      if (refuse(r, "addDataTableRow")) return 1;
      if (!row) {
        r.problem = "null row";
        return 1;
      }
      std::vector<TableCell> cells;
      cells.reserve(row->cells().size());
      for (const auto& [column, cell] : row->cells())
        if (cell) cells.push_back(toCell(column, *cell, s.strings(), !s.noData()));
      if (!s.addRow(tableId, row->time(), cells)) return 1;
      return static_cast<std::uint64_t>(result = 0);
    }
    default:
      r.problem = "unknown sub-operation";
      return 1;
  }
}

}  // namespace RefHost
