#pragma once
// All data tables of a document: by table id, and per owner (a scenario
// object's id) by name in a DataTableList.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "datatable/DataTable.h"

// The tables of one owner, by name. Not owning: the manager owns the tables.
class DataTableList {
 public:
  explicit DataTableList(uint64_t ownerId) : ownerId_(ownerId) {}
  virtual ~DataTableList() = default;

  uint64_t ownerId() const { return ownerId_; }
  const std::map<std::string, DataTable*>& tables() const { return tables_; }
  DataTable* find(const std::string& name) const;

  // Refreshes every table's current row, limiting as it goes.
  virtual void update(double time);
  virtual void limitData(double time);
  // Empties the rows of every table.
  virtual void flush();

 private:
  friend class DataTableManager;
  uint64_t ownerId_;
  std::map<std::string, DataTable*> tables_;
};

class DataTableManager {
 public:
  using TableCallback = std::function<void(DataTable&)>;
  using OwnerIdToName = std::function<std::string(uint64_t)>;
  using OwnerNameToId = std::function<bool(const std::string&, uint64_t&)>;

  DataTableManager() = default;
  DataTableManager(const DataTableManager&) = delete;
  DataTableManager& operator=(const DataTableManager&) = delete;
  virtual ~DataTableManager();

  // A new table for `ownerId`. TABLE_EXISTS when the owner has one of that
  // name (`outTable` is then that table), EMPTY_TABLE_NAME, UNSUPPORTED_TYPE
  // for a storage mode above 2.
  int32_t addTable(uint64_t ownerId, const std::string& name, DataTable*& outTable, DataTableList** outList = nullptr,
                   uint8_t storageMode = 0);
  int32_t getTable(int64_t tableId, DataTable*& out) const;
  int32_t getTable(uint64_t ownerId, const std::string& name, DataTable*& out) const;
  // Through the owner name mapping; NO_SUCH_TABLE without one.
  int32_t getTable(const std::string& ownerName, const std::string& name, DataTable*& out) const;
  int32_t deleteTable(int64_t tableId);
  int32_t deleteOwnersTables(uint64_t ownerId);
  size_t getNumberOfDataTables() const { return tables_.size(); }
  int32_t forEachDataTableRow(DataTable& table, double begin, double end, PerDataTableRowFunctor& functor) const {
    return table.forEachRow(begin, end, functor);
  }

  // Owners in ascending id, each list's tables by name.
  const std::map<uint64_t, std::unique_ptr<DataTableList>>& lists() const { return lists_; }
  const DataTableList* getList(uint64_t ownerId) const;
  // Tables in ascending id.
  const std::map<int64_t, std::unique_ptr<DataTable>>& tables() const { return tables_; }

  void setOwnerIdNameMapping(OwnerIdToName toName, OwnerNameToId toId);
  void addAddTableCallback(TableCallback callback) { addCallbacks_.push_back(std::move(callback)); }
  void addRemoveTableCallback(TableCallback callback) { removeCallbacks_.push_back(std::move(callback)); }

  void clear();

 private:
  std::map<int64_t, std::unique_ptr<DataTable>> tables_;
  std::map<uint64_t, std::unique_ptr<DataTableList>> lists_;
  int64_t nextTableId_ = 1;
  std::vector<TableCallback> addCallbacks_;
  std::vector<TableCallback> removeCallbacks_;
  OwnerIdToName ownerIdToName_;
  OwnerNameToId ownerNameToId_;
};
