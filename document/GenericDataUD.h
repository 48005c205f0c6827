#pragma once
// Generic data: time-tagged (tag, value) items of one entity, with optional
// expiry. Tag texts become numbers once: the display keywords have fixed
// numbers below 2000, other tags get their own from 2000 up.

#include <cstdint>
#include <limits>
#include <list>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

class GenericDataObject {
 public:
  // (expire time, (tag id, value))
  using Item = std::pair<double, std::pair<unsigned long, std::string>>;
  using TimeMap = std::map<double, std::list<Item>>;

  static const char* const CLEAR_KEYWORD;  // "ClearGenData"

  explicit GenericDataObject(unsigned long entityId = 0);
  virtual ~GenericDataObject() = default;

  // 0 added, 1 empty tag, 2 negative time, 3 the same item exists.
  virtual int addState(const std::string& tag, const std::string& value, double time, double expireTime);
  // Removes the item with that tag id, value, time and expiry; false if none matches.
  virtual bool removeState(unsigned long id, const std::string& value, double time, double expireTime);

  // The items in force at `time`: per tag the last value at or before it,
  // unless expired or cleared after it. `limit` first applies the limits.
  std::map<unsigned long, std::string> updateToTime(double time, bool limit);
  void limitByTime(double seconds);
  void limitByPoints(size_t count);
  void limitValues();
  void setLimits(bool enabled, long count, double seconds) {
    limitsEnabled_ = enabled;
    limitCount_ = count;
    limitSeconds_ = seconds;
  }

  std::string getTag(unsigned long id) const;
  // 0 for an unknown tag.
  unsigned long getTagId(const std::string& tag) const;
  void flush();

  const TimeMap& items() const { return times_; }
  unsigned long entityId() const { return entityId_; }
  void setEntityId(unsigned long id) { entityId_ = id; }
  double earliestTime() const { return earliest_; }
  double latestTime() const { return latest_; }
  bool hasClear() const { return hasClear_; }
  bool allNeverExpire() const { return allNeverExpire_; }

 private:
  unsigned long findOrCreateTag_(const std::string& tag);
  bool doesItemExist_(unsigned long tagId, const std::string& value, double time, double expireTime) const;
  void dropOldest_();

  TimeMap times_;
  std::unordered_map<unsigned long, std::string> tags_;
  std::unordered_map<std::string, unsigned long> tagIds_;
  double earliest_ = std::numeric_limits<double>::max();
  double latest_ = -std::numeric_limits<double>::max();
  unsigned long entityId_;
  unsigned long nextTagId_ = 2000;
  bool hasClear_ = false;
  bool allNeverExpire_ = true;
  long limitCount_ = -1;
  double limitSeconds_ = -1.0;
  bool limitsEnabled_ = false;
  std::map<unsigned long, std::map<double, Item>> expiring_;
};

// The generic data of one document object.
class GenericDataUD : public GenericDataObject {
 public:
  using GenericDataObject::GenericDataObject;
};
