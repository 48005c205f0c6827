#pragma once
// A data table of the file: named, typed columns attached to an entity. The
// host learns of it with the first row that can be sent; until then uniqueId
// stays 0.

#include <cstdint>
#include <string>
#include <vector>

#include "core/UnitTypes.h"
#include "core/VariableType.h"

namespace AsiInterface {

class Entity;

class Table {
 public:
  Table(const std::string& name, Entity* hostEntity) : name_(name), hostEntity_(hostEntity) {}
  virtual ~Table() = default;

  const std::string& name() const { return name_; }
  // Not owned: the provider owns both the table and its host.
  Entity* hostEntity() const { return hostEntity_; }

  const std::vector<std::string>& names() const { return names_; }
  void setNames(const std::vector<std::string>& names) { names_ = names; }
  const std::vector<UTILS::VariableType_t>& types() const { return types_; }
  void setTypes(const std::vector<UTILS::VariableType_t>& types) { types_ = types; }
  const std::vector<UTILS::UnitType_t>& units() const { return units_; }
  void setUnits(const std::vector<UTILS::UnitType_t>& units) { units_ = units; }
  size_t columnCount() const { return names_.size(); }

  // The host's column id of each file column, once the host holds the table.
  const std::vector<int64_t>& columnIds() const { return columnIds_; }
  void setColumnIds(const std::vector<int64_t>& ids) { columnIds_ = ids; }

  uint64_t uniqueId() const { return uniqueId_; }
  void setUniqueId(uint64_t id) { uniqueId_ = id; }

 private:
  std::string name_;
  Entity* hostEntity_;
  std::vector<std::string> names_;
  std::vector<UTILS::VariableType_t> types_;
  std::vector<UTILS::UnitType_t> units_;
  std::vector<int64_t> columnIds_;
  uint64_t uniqueId_ = 0;
};

}  // namespace AsiInterface
