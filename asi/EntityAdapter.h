#pragma once
// The common state of every entity; a concrete class adds its type name and
// its own fields.

#include <set>

#include "asi/Entity.h"

namespace AsiInterface {

class EntityAdapter : public Entity {
 public:
  EntityAdapter() = default;
  explicit EntityAdapter(const std::string& name) : name_(name) {}

  uint64_t uniqueId() const override { return uniqueId_; }
  void setUniqueId(uint64_t id) override;
  std::string name() const override { return name_; }
  void setName(const std::string& name) override { name_ = name; }
  uint64_t originalId() const override { return originalId_; }
  void setOriginalId(uint64_t id) override { originalId_ = id; }
  uint64_t asiId() const override { return asiId_; }
  void setAsiId(uint64_t id) override { asiId_ = id; }
  int addTable(const std::string& name) override;
  bool doesExist() const override { return doesExist_; }
  bool ignore() const override { return ignore_; }
  void setIgnore(bool ignore) override { ignore_ = ignore; }
  bool isMerging() const override { return merging_; }
  void setMerging(bool merging) override { merging_ = merging; }

 private:
  std::string name_;
  uint64_t uniqueId_ = 0;
  uint64_t originalId_ = 0;
  uint64_t asiId_ = 0;
  std::set<std::string> tables_;
  bool doesExist_ = false;
  bool ignore_ = false;
  bool merging_ = false;
};

}  // namespace AsiInterface
