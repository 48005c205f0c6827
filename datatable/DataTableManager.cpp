#include "datatable/DataTableManager.h"

DataTable* DataTableList::find(const std::string& name) const {
  auto it = tables_.find(name);
  return it == tables_.end() ? nullptr : it->second;
}

void DataTableList::update(double time) {
  for (auto& entry : tables_) entry.second->update(time, true);
}

void DataTableList::limitData(double time) {
  for (auto& entry : tables_) entry.second->limitData(time);
}

void DataTableList::flush() {
  for (auto& entry : tables_) entry.second->flush();
}

DataTableManager::~DataTableManager() = default;

int32_t DataTableManager::addTable(uint64_t ownerId, const std::string& name, DataTable*& outTable,
                                   DataTableList** outList, uint8_t storageMode) {
  outTable = nullptr;
  if (name.empty()) return DataTableCodes::EMPTY_TABLE_NAME;
  if (storageMode > 2) return DataTableCodes::UNSUPPORTED_TYPE;
  std::unique_ptr<DataTableList>& list = lists_[ownerId];
  if (!list) list = std::make_unique<DataTableList>(ownerId);
  if (outList) *outList = list.get();
  if (DataTable* existing = list->find(name)) {
    outTable = existing;
    return DataTableCodes::TABLE_EXISTS;
  }
  const int64_t id = nextTableId_++;
  auto table = std::make_unique<DataTable>(storageMode, ownerId, name, id);
  outTable = table.get();
  list->tables_[name] = outTable;
  tables_[id] = std::move(table);
  for (auto& callback : addCallbacks_) callback(*outTable);
  return DataTableCodes::OK;
}

int32_t DataTableManager::getTable(int64_t tableId, DataTable*& out) const {
  auto it = tables_.find(tableId);
  out = it == tables_.end() ? nullptr : it->second.get();
  return out ? DataTableCodes::OK : DataTableCodes::NO_SUCH_TABLE;
}

int32_t DataTableManager::getTable(uint64_t ownerId, const std::string& name, DataTable*& out) const {
  const DataTableList* list = getList(ownerId);
  out = list ? list->find(name) : nullptr;
  return out ? DataTableCodes::OK : DataTableCodes::NO_SUCH_TABLE;
}

int32_t DataTableManager::getTable(const std::string& ownerName, const std::string& name, DataTable*& out) const {
  out = nullptr;
  uint64_t ownerId = 0;
  if (!ownerNameToId_ || !ownerNameToId_(ownerName, ownerId)) return DataTableCodes::NO_SUCH_TABLE;
  return getTable(ownerId, name, out);
}

const DataTableList* DataTableManager::getList(uint64_t ownerId) const {
  auto it = lists_.find(ownerId);
  return it == lists_.end() ? nullptr : it->second.get();
}

int32_t DataTableManager::deleteTable(int64_t tableId) {
  auto it = tables_.find(tableId);
  if (it == tables_.end()) return DataTableCodes::NO_SUCH_TABLE;
  DataTable& table = *it->second;
  for (auto& callback : removeCallbacks_) callback(table);
  auto list = lists_.find(table.ownerId());
  if (list != lists_.end()) {
    list->second->tables_.erase(table.name());
    if (list->second->tables_.empty()) lists_.erase(list);
  }
  tables_.erase(it);
  return DataTableCodes::OK;
}

int32_t DataTableManager::deleteOwnersTables(uint64_t ownerId) {
  auto list = lists_.find(ownerId);
  if (list == lists_.end()) return DataTableCodes::NO_SUCH_TABLE;
  std::vector<int64_t> ids;
  for (const auto& entry : list->second->tables()) ids.push_back(entry.second->tableId());
  for (int64_t id : ids) deleteTable(id);
  return DataTableCodes::OK;
}

void DataTableManager::setOwnerIdNameMapping(OwnerIdToName toName, OwnerNameToId toId) {
  ownerIdToName_ = std::move(toName);
  ownerNameToId_ = std::move(toId);
}

void DataTableManager::clear() {
  lists_.clear();
  tables_.clear();
}
