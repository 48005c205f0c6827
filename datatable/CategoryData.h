#pragma once
// Category data: a small vocabulary that a scenario attaches to its objects
// over time. The manager turns category names and value texts into small
// integers once; objects hold time series of those integers.

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

// Per category number: time -> value number.
using CategorySeries = std::map<int, std::map<double, int>>;
// Per category number: (value number, time) in force at one moment.
using CategorySnapshot = std::map<int, std::pair<int, double>>;

namespace CategoryValues {
constexpr int NONE = -1;       // a look-up that found nothing
constexpr int NO_VALUE = -2;   // "No Value"
constexpr int UNLISTED = -3;   // "Unlisted Value"
extern const char* const NO_VALUE_TEXT;
extern const char* const UNLISTED_TEXT;
}  // namespace CategoryValues

class CategoryStrings {
 public:
  explicit CategoryStrings(const std::string& name = "") : name_(name) {}
  virtual ~CategoryStrings() = default;

  const std::string& name() const { return name_; }
  void setCategoryNameString(const std::string& name) { name_ = name; }
  // An empty text is reported on standard error and appended all the same.
  void appendValueString(const std::string& text);
  // The text of a value number, "No Value" for -2, "Unlisted Value" for -3,
  // else empty.
  std::string getCategoryValueString(int value) const;
  // Removes the text; answers its former number, or -1.
  int removeCategoryValue(const std::string& text);
  bool renameCategoryValue(int value, const std::string& text);
  const std::vector<std::string>& values() const { return values_; }

 private:
  std::string name_;
  std::vector<std::string> values_;
};

class CategoryManager {
 public:
  // Holds "Platform Type" (number 0) with its fourteen values.
  CategoryManager();
  CategoryManager(const CategoryManager& other);
  CategoryManager& operator=(const CategoryManager& other);
  virtual ~CategoryManager();

  bool addAndGetCategoryName(const std::string& name, int& category);
  bool addAndGetCategoryValue(int category, const std::string& text, int& value);
  bool addAndGetCategoryNameAndValue(const std::string& name, const std::string& text, int& category, int& value);

  // Text to numbers, without adding; false when not known.
  bool getCategoryName(const std::string& name, int& category) const;
  bool getCategoryValue(int category, const std::string& text, int& value) const;
  bool getCategoryNameAndValue(const std::string& name, const std::string& text, int& category, int& value) const;
  // Numbers to text; empty when not known.
  std::string getCategoryNameString(int category) const;
  std::string getCategoryValueString(int category, int value) const;

  // The former number of what was removed, or -1.
  int removeCategory(const std::string& name);
  int removeCategoryValue(int category, const std::string& text);
  bool renameCategory(int category, const std::string& name);
  bool renameCategoryValue(int category, int value, const std::string& text);
  void clear();

  const std::map<int, std::unique_ptr<CategoryStrings>>& categories() const { return categories_; }

 private:
  void copyFrom_(const CategoryManager& other);

  std::map<int, std::unique_ptr<CategoryStrings>> categories_;
  std::unordered_map<std::string, int> nameToNumber_;
  std::map<int, std::unordered_map<std::string, int>> valueToNumber_;
  int nextCategory_ = 0;
};

// Series form: the value in force at `time` (the last entry not later).
bool GetCategoryValueAtGivenTime(double time, const CategorySeries& series, int category, int& value,
                                 double* valueTime = nullptr);
// Snapshot form: fails for a missing category or a stored -1.
bool GetCategoryValueAtGivenTime(const CategorySnapshot& snapshot, int category, int& value,
                                 double* valueTime = nullptr);
// Every category's value in force at `time`.
void GetCategoryDataAtGivenTime(double time, const CategorySeries& series, CategorySnapshot& out);
bool AddCategoryDataToGiven(int category, int value, double time, CategorySeries& series);
bool RemoveCategoryDataItem(int category, double time, CategorySeries& series);
// Drops entries of `value` and renumbers the later values of the category.
void RemoveCategoryValue(int category, int value, CategorySeries& series);
// Drops the category's series.
void RemoveCategory(int category, CategorySeries& series);
bool CategoryDataEqualTo(const CategorySnapshot& a, const CategorySnapshot& b);
bool CategoryDataEqual(const CategorySeries& a, const CategorySeries& b);
// Translates numbers of `fromManager` into `toManager`'s, adding what is missing.
void CopyCategoryDataFromTo(const CategorySeries& from, const CategoryManager& fromManager, CategorySeries& to,
                            CategoryManager& toManager);
void CopyCategoryDataFromToSameCategoryManager(const CategorySeries& from, CategorySeries& to);
// Keeps the last `points` entries of each category.
void LimitCategoryDataByPoints(CategorySeries& series, size_t points);
// Keeps entries at or after `latest - seconds`, and always the one in force then.
void LimitCategoryDataByTime(CategorySeries& series, double latest, double seconds);
void LimitCategoryData(CategorySeries& series, size_t points, double latest, double seconds);
// Makes `to` know every category and value of `from`.
void SynchronizeCategoryLists(const CategoryManager& from, CategoryManager& to);
