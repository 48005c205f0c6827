#include "datatable/CategoryData.h"

#include <iostream>

namespace CategoryValues {
const char* const NO_VALUE_TEXT = "No Value";
const char* const UNLISTED_TEXT = "Unlisted Value";
}  // namespace CategoryValues

namespace {

const char* const kPlatformTypes[] = {"Unknown",    "Surface Ship",   "Submarine",   "Aircraft", "Satellite",
                                      "Helicopter", "Missile",        "Decoy",       "Buoy",     "Reference Site",
                                      "Land Vehicle", "Land Site",    "Torpedo",     "Contact"};

}  // namespace

void CategoryStrings::appendValueString(const std::string& text) {
  if (text.empty()) std::cerr << "ERROR:  Unexpected empty string.\n";
  values_.push_back(text);
}

std::string CategoryStrings::getCategoryValueString(int value) const {
  if (value >= 0 && static_cast<size_t>(value) < values_.size()) return values_[static_cast<size_t>(value)];
  if (value == CategoryValues::NO_VALUE) return CategoryValues::NO_VALUE_TEXT;
  if (value == CategoryValues::UNLISTED) return CategoryValues::UNLISTED_TEXT;
  return "";
}

int CategoryStrings::removeCategoryValue(const std::string& text) {
  for (size_t i = 0; i < values_.size(); ++i)
    if (values_[i] == text) {
      values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(i));
      return static_cast<int>(i);
    }
  return CategoryValues::NONE;
}

bool CategoryStrings::renameCategoryValue(int value, const std::string& text) {
  if (value < 0 || static_cast<size_t>(value) >= values_.size() || text.empty()) return false;
  values_[static_cast<size_t>(value)] = text;
  return true;
}

CategoryManager::CategoryManager() {
  int category = 0;
  int value = 0;
  addAndGetCategoryName("Platform Type", category);
  for (const char* text : kPlatformTypes) addAndGetCategoryValue(category, text, value);
}

CategoryManager::CategoryManager(const CategoryManager& other) { copyFrom_(other); }

CategoryManager& CategoryManager::operator=(const CategoryManager& other) {
  if (this != &other) copyFrom_(other);
  return *this;
}

CategoryManager::~CategoryManager() = default;

void CategoryManager::copyFrom_(const CategoryManager& other) {
  categories_.clear();
  for (const auto& entry : other.categories_)
    categories_[entry.first] = std::make_unique<CategoryStrings>(*entry.second);
  nameToNumber_ = other.nameToNumber_;
  valueToNumber_ = other.valueToNumber_;
  nextCategory_ = other.nextCategory_;
}

bool CategoryManager::addAndGetCategoryName(const std::string& name, int& category) {
  if (name.empty()) return false;
  auto known = nameToNumber_.find(name);
  if (known != nameToNumber_.end()) {
    category = known->second;
    return true;
  }
  category = nextCategory_++;
  categories_[category] = std::make_unique<CategoryStrings>(name);
  nameToNumber_[name] = category;
  valueToNumber_[category];
  return true;
}

namespace {

// The two value texts that every category knows without a number of its own.
bool specialValue(const std::string& text, int& value) {
  if (text == CategoryValues::NO_VALUE_TEXT) {
    value = CategoryValues::NO_VALUE;
    return true;
  }
  if (text == CategoryValues::UNLISTED_TEXT) {
    value = CategoryValues::UNLISTED;
    return true;
  }
  return false;
}

}  // namespace

bool CategoryManager::addAndGetCategoryValue(int category, const std::string& text, int& value) {
  if (text.empty()) return false;
  auto strings = categories_.find(category);
  if (strings == categories_.end() || strings->second->name().empty()) return false;
  if (specialValue(text, value)) return true;
  auto lookup = valueToNumber_.find(category);
  if (lookup == valueToNumber_.end()) {
    std::cerr << "ERROR:  Unexpected NULL\n";
    return false;
  }
  auto known = lookup->second.find(text);
  if (known != lookup->second.end()) {
    value = known->second;
    return true;
  }
  value = static_cast<int>(strings->second->values().size());
  lookup->second[text] = value;
  strings->second->appendValueString(text);
  return true;
}

bool CategoryManager::addAndGetCategoryNameAndValue(const std::string& name, const std::string& text, int& category,
                                                    int& value) {
  return addAndGetCategoryName(name, category) && addAndGetCategoryValue(category, text, value);
}

bool CategoryManager::getCategoryName(const std::string& name, int& category) const {
  auto known = nameToNumber_.find(name);
  if (known == nameToNumber_.end()) return false;
  category = known->second;
  return true;
}

bool CategoryManager::getCategoryValue(int category, const std::string& text, int& value) const {
  if (specialValue(text, value)) return true;
  auto lookup = valueToNumber_.find(category);
  if (lookup == valueToNumber_.end()) return false;
  auto known = lookup->second.find(text);
  if (known == lookup->second.end()) return false;
  value = known->second;
  return true;
}

bool CategoryManager::getCategoryNameAndValue(const std::string& name, const std::string& text, int& category,
                                              int& value) const {
  return getCategoryName(name, category) && getCategoryValue(category, text, value);
}

std::string CategoryManager::getCategoryNameString(int category) const {
  auto strings = categories_.find(category);
  return strings == categories_.end() ? std::string() : strings->second->name();
}

std::string CategoryManager::getCategoryValueString(int category, int value) const {
  auto strings = categories_.find(category);
  return strings == categories_.end() ? std::string() : strings->second->getCategoryValueString(value);
}

int CategoryManager::removeCategory(const std::string& name) {
  auto known = nameToNumber_.find(name);
  if (known == nameToNumber_.end()) return CategoryValues::NONE;
  const int category = known->second;
  nameToNumber_.erase(known);
  valueToNumber_.erase(category);
  categories_.erase(category);
  return category;
}

int CategoryManager::removeCategoryValue(int category, const std::string& text) {
  auto strings = categories_.find(category);
  if (strings == categories_.end()) return CategoryValues::NONE;
  const int removed = strings->second->removeCategoryValue(text);
  if (removed == CategoryValues::NONE) return removed;
  // Later values move down by one, as their positions in the list do.
  auto& lookup = valueToNumber_[category];
  lookup.erase(text);
  for (auto& entry : lookup)
    if (entry.second > removed) --entry.second;
  return removed;
}

bool CategoryManager::renameCategory(int category, const std::string& name) {
  auto strings = categories_.find(category);
  if (strings == categories_.end() || name.empty() || nameToNumber_.count(name) != 0) return false;
  nameToNumber_.erase(strings->second->name());
  strings->second->setCategoryNameString(name);
  nameToNumber_[name] = category;
  return true;
}

bool CategoryManager::renameCategoryValue(int category, int value, const std::string& text) {
  auto strings = categories_.find(category);
  if (strings == categories_.end()) return false;
  auto& lookup = valueToNumber_[category];
  if (lookup.count(text) != 0) return false;
  const std::string old = strings->second->getCategoryValueString(value);
  if (!strings->second->renameCategoryValue(value, text)) return false;
  lookup.erase(old);
  lookup[text] = value;
  return true;
}

void CategoryManager::clear() {
  categories_.clear();
  nameToNumber_.clear();
  valueToNumber_.clear();
  nextCategory_ = 0;
}

bool GetCategoryValueAtGivenTime(double time, const CategorySeries& series, int category, int& value,
                                 double* valueTime) {
  value = CategoryValues::NONE;
  auto entries = series.find(category);
  if (entries == series.end() || entries->second.empty()) return false;
  auto after = entries->second.upper_bound(time);
  if (after == entries->second.begin()) return false;
  --after;
  value = after->second;
  if (valueTime) *valueTime = after->first;
  return true;
}

bool GetCategoryValueAtGivenTime(const CategorySnapshot& snapshot, int category, int& value, double* valueTime) {
  value = CategoryValues::NONE;
  auto entry = snapshot.find(category);
  if (entry == snapshot.end() || entry->second.first == CategoryValues::NONE) return false;
  value = entry->second.first;
  if (valueTime) *valueTime = entry->second.second;
  return true;
}

void GetCategoryDataAtGivenTime(double time, const CategorySeries& series, CategorySnapshot& out) {
  out.clear();
  for (const auto& entries : series) {
    int value = CategoryValues::NONE;
    double valueTime = 0.0;
    if (GetCategoryValueAtGivenTime(time, series, entries.first, value, &valueTime))
      out[entries.first] = {value, valueTime};
  }
}

bool AddCategoryDataToGiven(int category, int value, double time, CategorySeries& series) {
  if (category == CategoryValues::NONE) return false;
  series[category][time] = value;
  return true;
}

bool RemoveCategoryDataItem(int category, double time, CategorySeries& series) {
  auto entries = series.find(category);
  if (entries == series.end() || entries->second.erase(time) == 0) return false;
  if (entries->second.empty()) series.erase(entries);
  return true;
}

void RemoveCategoryValue(int category, int value, CategorySeries& series) {
  auto entries = series.find(category);
  if (entries == series.end()) return;
  for (auto it = entries->second.begin(); it != entries->second.end();) {
    if (it->second == value) {
      it = entries->second.erase(it);
      continue;
    }
    if (it->second > value) --it->second;
    ++it;
  }
  if (entries->second.empty()) series.erase(entries);
}

void RemoveCategory(int category, CategorySeries& series) { series.erase(category); }

bool CategoryDataEqualTo(const CategorySnapshot& a, const CategorySnapshot& b) {
  if (a.size() != b.size()) return false;
  for (auto ia = a.begin(), ib = b.begin(); ia != a.end(); ++ia, ++ib)
    if (ia->first != ib->first || ia->second.first != ib->second.first) return false;
  return true;
}

bool CategoryDataEqual(const CategorySeries& a, const CategorySeries& b) { return a == b; }

void CopyCategoryDataFromTo(const CategorySeries& from, const CategoryManager& fromManager, CategorySeries& to,
                            CategoryManager& toManager) {
  for (const auto& entries : from) {
    int category = CategoryValues::NONE;
    if (!toManager.addAndGetCategoryName(fromManager.getCategoryNameString(entries.first), category)) continue;
    for (const auto& entry : entries.second) {
      int value = entry.second;
      if (value >= 0 &&
          !toManager.addAndGetCategoryValue(category, fromManager.getCategoryValueString(entries.first, value), value))
        continue;
      to[category][entry.first] = value;
    }
  }
}

void CopyCategoryDataFromToSameCategoryManager(const CategorySeries& from, CategorySeries& to) {
  for (const auto& entries : from)
    for (const auto& entry : entries.second) to[entries.first][entry.first] = entry.second;
}

void LimitCategoryDataByPoints(CategorySeries& series, size_t points) {
  for (auto& entries : series)
    while (entries.second.size() > points) entries.second.erase(entries.second.begin());
}

void LimitCategoryDataByTime(CategorySeries& series, double latest, double seconds) {
  const double cut = latest - seconds;
  for (auto& entries : series) {
    auto inForce = entries.second.upper_bound(cut);
    // The entry in force at the cut stays: it still decides the value then.
    if (inForce != entries.second.begin()) --inForce;
    entries.second.erase(entries.second.begin(), inForce);
  }
}

void LimitCategoryData(CategorySeries& series, size_t points, double latest, double seconds) {
  if (points > 0) LimitCategoryDataByPoints(series, points);
  if (seconds > 0.0) LimitCategoryDataByTime(series, latest, seconds);
}

void SynchronizeCategoryLists(const CategoryManager& from, CategoryManager& to) {
  for (const auto& entry : from.categories()) {
    int category = CategoryValues::NONE;
    if (!to.addAndGetCategoryName(entry.second->name(), category)) continue;
    int value = CategoryValues::NONE;
    for (const std::string& text : entry.second->values()) to.addAndGetCategoryValue(category, text, value);
  }
}
