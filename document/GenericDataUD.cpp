#include "document/GenericDataUD.h"

#include <algorithm>

#include "core/StringUtils.h"
#include "core/Tokenizer.h"

namespace {

// The display keywords, tag ids 1 to 22.
const char* const kDefaultTags[] = {
    "ORVIDE_DropTrack",    "ORVIDE_ChangeIcon",   "ORVIDE_Callsign",     "ORVIDE_FontColor",
    "ORVIDE_TrackColor",   "ORVIDE_OverrideColor", "ORVIDE_ScaleLevel",  "ORVIDE_DynamicScale",
    "ORVIDE_InfoText",     "ORVIDE_ScreenText",   "ORVIDE_TitleText",    "ORVIDE_ScaleXYZ",
    "ORVIDE_PolygonMode",  "ORVIDE_PolygonStipple", "ORVIDE_CullFace",   "ORVIDE_AlphaVolume",
    "ORVIDE_ServerState",  "ORVIDE_DrawMode",     "ORVIDE_WindSpeed",    "ORVIDE_WindDirection",
    "ORVIDE_HBW",          "ORVIDE_VBW"};

// DefaultTagMap: built once, on first use.
const std::unordered_map<std::string, unsigned long>& defaultTagIds() {
  static const std::unordered_map<std::string, unsigned long> ids = [] {
    std::unordered_map<std::string, unsigned long> map;
    for (unsigned long i = 0; i < sizeof(kDefaultTags) / sizeof(kDefaultTags[0]); ++i) map[kDefaultTags[i]] = i + 1;
    return map;
  }();
  return ids;
}

bool isClear(const std::string& value) {
  return orvCore::caseCompare(value, GenericDataObject::CLEAR_KEYWORD) == 0 || orvCore::caseCompare(value, "NULL") == 0;
}

}  // namespace

const char* const GenericDataObject::CLEAR_KEYWORD = "ClearGenData";

GenericDataObject::GenericDataObject(unsigned long entityId) : entityId_(entityId) { defaultTagIds(); }

unsigned long GenericDataObject::findOrCreateTag_(const std::string& tag) {
  auto known = defaultTagIds().find(tag);
  if (known != defaultTagIds().end()) return known->second;
  auto own = tagIds_.find(tag);
  if (own != tagIds_.end()) return own->second;
  const unsigned long id = nextTagId_++;
  tagIds_[tag] = id;
  tags_[id] = tag;
  return id;
}

std::string GenericDataObject::getTag(unsigned long id) const {
  if (id >= 1 && id <= sizeof(kDefaultTags) / sizeof(kDefaultTags[0])) return kDefaultTags[id - 1];
  auto it = tags_.find(id);
  return it == tags_.end() ? std::string() : it->second;
}

unsigned long GenericDataObject::getTagId(const std::string& tag) const {
  auto known = defaultTagIds().find(tag);
  if (known != defaultTagIds().end()) return known->second;
  auto own = tagIds_.find(tag);
  return own == tagIds_.end() ? 0 : own->second;
}

bool GenericDataObject::doesItemExist_(unsigned long tagId, const std::string& value, double time,
                                       double expireTime) const {
  // A never-expiring item is looked for among the expiring ones only, which
  // never hold such items: repeating one adds it again (a second legend line
  // of a track is kept as its own text).
  if (expireTime < 0.0) {
    auto perTag = expiring_.find(tagId);
    if (perTag == expiring_.end()) return false;
    auto at = perTag->second.find(time);
    return at != perTag->second.end() && at->second.second.second == value;
  }
  auto list = times_.find(time);
  if (list == times_.end()) return false;
  for (auto it = list->second.rbegin(); it != list->second.rend(); ++it)
    if (it->second.first == tagId && it->second.second == value) return true;
  return false;
}

int GenericDataObject::addState(const std::string& tagText, const std::string& valueText, double time,
                                double expireTime) {
  const std::string tag = orvCore::removeQuotes(tagText);
  std::string value = orvCore::removeQuotes(valueText);
  if (tag.empty()) return 1;
  if (time < 0.0) return 2;
  if (value.empty()) value = " ";
  if (expireTime > 0.0) allNeverExpire_ = false;
  const unsigned long tagId = findOrCreateTag_(tag);
  const bool clear = isClear(value);
  if (clear) hasClear_ = true;
  else if (doesItemExist_(tagId, value, time, expireTime)) return 3;
  Item item{expireTime, {tagId, value}};
  times_[time].push_back(item);
  earliest_ = std::min(earliest_, time);
  latest_ = std::max(latest_, time);
  if (expireTime >= 0.0 && (clear || expireTime > 0.0)) expiring_[tagId][time] = item;
  return 0;
}

bool GenericDataObject::removeState(unsigned long id, const std::string& value, double time, double expireTime) {
  auto list = times_.find(time);
  if (list == times_.end()) return false;
  for (auto it = list->second.begin(); it != list->second.end(); ++it)
    if (it->second.first == id && it->second.second == value && it->first == expireTime) {
      list->second.erase(it);
      if (list->second.empty()) times_.erase(list);
      auto perTag = expiring_.find(id);
      if (perTag != expiring_.end()) perTag->second.erase(time);
      return true;
    }
  return false;
}

void GenericDataObject::dropOldest_() {
  auto oldest = times_.begin();
  for (const Item& item : oldest->second) {
    auto perTag = expiring_.find(item.second.first);
    if (perTag != expiring_.end()) perTag->second.erase(oldest->first);
  }
  times_.erase(oldest);
  earliest_ = times_.empty() ? std::numeric_limits<double>::max() : times_.begin()->first;
}

void GenericDataObject::limitByTime(double seconds) {
  if (!limitsEnabled_ || seconds <= 0.0) return;
  const double cut = latest_ - seconds;
  while (!times_.empty() && times_.begin()->first < cut) dropOldest_();
}

void GenericDataObject::limitByPoints(size_t count) {
  if (!limitsEnabled_) return;
  while (times_.size() > count) dropOldest_();
}

void GenericDataObject::limitValues() {
  if (limitCount_ > 0) limitByPoints(static_cast<size_t>(limitCount_));
  if (limitSeconds_ > 0.0) limitByTime(limitSeconds_);
}

std::map<unsigned long, std::string> GenericDataObject::updateToTime(double time, bool limit) {
  if (limit) limitValues();
  std::map<unsigned long, std::string> current;
  std::map<unsigned long, double> expires;
  for (auto list = times_.begin(); list != times_.end() && list->first <= time; ++list)
    for (const Item& item : list->second) {
      const unsigned long tag = item.second.first;
      if (isClear(item.second.second)) {
        current.erase(tag);
        continue;
      }
      current[tag] = item.second.second;
      expires[tag] = item.first > 0.0 ? list->first + item.first : -1.0;
    }
  for (auto it = current.begin(); it != current.end();) {
    const double expires_at = expires[it->first];
    if (expires_at >= 0.0 && expires_at < time) it = current.erase(it);
    else ++it;
  }
  return current;
}

void GenericDataObject::flush() {
  times_.clear();
  expiring_.clear();
  earliest_ = std::numeric_limits<double>::max();
  latest_ = -std::numeric_limits<double>::max();
  hasClear_ = false;
  allNeverExpire_ = true;
}
