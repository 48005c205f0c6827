// Category names and values become small numbers once, and objects' time
// series of those numbers read back the value in force at a time.
#include <gtest/gtest.h>

#include "datatable/CategoryData.h"

namespace {

TEST(CategoryManagerTest, PlatformTypeIsThereFromTheStart) {
  CategoryManager manager;
  int category = -1, value = -1;
  ASSERT_TRUE(manager.addAndGetCategoryNameAndValue("Platform Type", "Aircraft", category, value));
  EXPECT_EQ(value, 3);
  ASSERT_TRUE(manager.addAndGetCategoryValue(category, "Aircraft", value));
  EXPECT_EQ(value, 3);
  EXPECT_EQ(manager.categories().at(category)->values().size(), 14u);
  EXPECT_EQ(manager.getCategoryValueString(category, 13), "Contact");
  EXPECT_EQ(manager.getCategoryValueString(category, 99), "");
}

TEST(CategoryManagerTest, ReservedValuesNeverEnterTheList) {
  CategoryManager manager;
  int category = -1, value = 0;
  ASSERT_TRUE(manager.addAndGetCategoryName("Affinity", category));
  ASSERT_TRUE(manager.addAndGetCategoryValue(category, "No Value", value));
  EXPECT_EQ(value, -2);
  ASSERT_TRUE(manager.addAndGetCategoryValue(category, "Unlisted Value", value));
  EXPECT_EQ(value, -3);
  EXPECT_TRUE(manager.categories().at(category)->values().empty());
  EXPECT_EQ(manager.getCategoryValueString(category, -2), "No Value");
  EXPECT_FALSE(manager.addAndGetCategoryValue(category, "", value));
  EXPECT_FALSE(manager.addAndGetCategoryName("", category));
  EXPECT_FALSE(manager.addAndGetCategoryValue(999, "x", value));
}

TEST(CategoryManagerTest, RoundTripThroughNumbersAndCopies) {
  CategoryManager manager;
  int category = -1, friendly = -1, hostile = -1;
  manager.addAndGetCategoryNameAndValue("Affinity", "Friendly", category, friendly);
  manager.addAndGetCategoryNameAndValue("Affinity", "Hostile", category, hostile);
  EXPECT_EQ(manager.getCategoryNameString(category), "Affinity");
  EXPECT_EQ(manager.getCategoryValueString(category, hostile), "Hostile");

  CategoryManager copy(manager);
  int c = -1, v = -1;
  ASSERT_TRUE(copy.getCategoryNameAndValue("Affinity", "Hostile", c, v));
  EXPECT_EQ(v, hostile);

  // Removing a value renumbers the later ones, and series follow.
  CategorySeries series;
  AddCategoryDataToGiven(category, friendly, 1.0, series);
  AddCategoryDataToGiven(category, hostile, 2.0, series);
  EXPECT_EQ(manager.removeCategoryValue(category, "Friendly"), friendly);
  RemoveCategoryValue(category, friendly, series);
  EXPECT_EQ(series.at(category).size(), 1u);
  EXPECT_EQ(manager.getCategoryValueString(category, series.at(category).at(2.0)), "Hostile");
}

TEST(CategorySeriesTest, ValueInForceAtATime) {
  CategorySeries series;
  EXPECT_FALSE(AddCategoryDataToGiven(-1, 0, 1.0, series));
  AddCategoryDataToGiven(4, 1, 10.0, series);
  AddCategoryDataToGiven(4, 2, 20.0, series);
  int value = 0;
  double at = 0;
  EXPECT_FALSE(GetCategoryValueAtGivenTime(5.0, series, 4, value));
  EXPECT_EQ(value, -1);
  ASSERT_TRUE(GetCategoryValueAtGivenTime(20.0, series, 4, value, &at));
  EXPECT_EQ(value, 2);
  EXPECT_EQ(at, 20.0);
  ASSERT_TRUE(GetCategoryValueAtGivenTime(15.0, series, 4, value));
  EXPECT_EQ(value, 1);
  EXPECT_FALSE(GetCategoryValueAtGivenTime(15.0, series, 5, value));

  CategorySnapshot snapshot;
  GetCategoryDataAtGivenTime(15.0, series, snapshot);
  ASSERT_TRUE(GetCategoryValueAtGivenTime(snapshot, 4, value, &at));
  EXPECT_EQ(at, 10.0);
}

TEST(CategorySeriesTest, LimitsKeepTheEntryInForce) {
  CategorySeries series;
  for (int t = 0; t < 10; ++t) AddCategoryDataToGiven(0, t, t, series);
  CategorySeries byTime = series;
  LimitCategoryDataByTime(byTime, 9.0, 3.5);
  EXPECT_EQ(byTime.at(0).begin()->first, 5.0);
  LimitCategoryDataByPoints(series, 2);
  EXPECT_EQ(series.at(0).size(), 2u);
}

}  // namespace
