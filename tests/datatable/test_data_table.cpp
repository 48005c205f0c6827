// The data-table store through its public interface: columns, rows with
// absent cells, the self-splitting sub-tables, reading back in time order,
// limits by count and by age, interpolation, and the manager.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "datatable/DataTable.h"
#include "datatable/DataTableManager.h"
#include "datatable/DataTableUtils.h"

namespace {

DataTableRowT row(double time, std::vector<std::pair<int64_t, double>> cells) {
  DataTableRowT r(time);
  for (const auto& c : cells) r.addCell(c.first, new DataTableCellTyped<double>(c.second));
  return r;
}

// Every row as time -> {column id -> value}.
struct Collect : PerDataTableRowFunctor {
  std::vector<std::pair<double, std::map<int64_t, double>>> rows;
  bool operator()(DataTable&, const DataTableRowT& r) override {
    std::map<int64_t, double> cells;
    for (const auto& c : r.cells()) {
      double v = 0;
      c.second->getValue(v);
      cells[c.first] = v;
    }
    rows.emplace_back(r.time(), cells);
    return true;
  }
};

class Table3 : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b", "c"}) ASSERT_EQ(table.addColumn(name, UTILS::VT_FLOAT64, id), 0);
  }
  DataTable table{0, 7, "t", 1};
  int64_t id = -1;
};

TEST_F(Table3, ColumnsGetIdsInOrderAndRefuseBadNames) {
  EXPECT_EQ(id, 2);
  EXPECT_EQ(table.addColumn("b", UTILS::VT_INT32, id), DataTableCodes::COLUMN_EXISTS);
  EXPECT_EQ(table.addColumn("", UTILS::VT_INT32, id), DataTableCodes::EMPTY_COLUMN_NAME);
  EXPECT_EQ(table.addColumn("blob", UTILS::VT_BLOB, id), DataTableCodes::UNSUPPORTED_TYPE);
  EXPECT_EQ(table.getColumnNames(), (std::vector<std::string>{"a", "b", "c"}));
  int64_t found = -1;
  EXPECT_EQ(table.getColumnId("c", found), 0);
  EXPECT_EQ(found, 2);
}

TEST_F(Table3, FullRowsShareOneSubTable) {
  for (int t = 0; t < 5; ++t) ASSERT_EQ(table.addRow(row(t, {{0, 1.0 * t}, {1, 2.0 * t}, {2, 3.0 * t}})), 0);
  EXPECT_EQ(table.subTableCount(), 1u);
  EXPECT_EQ(table.nullMaskBytes(), 0u);
  EXPECT_EQ(table.getNumRows(), 5u);
}

TEST_F(Table3, APartialRowSplitsAndRowsReadBackMerged) {
  ASSERT_EQ(table.addRow(row(1, {{0, 1}, {1, 10}, {2, 100}})), 0);
  ASSERT_EQ(table.addRow(row(2, {{0, 2}, {1, 20}})), 0);  // c falls behind
  EXPECT_EQ(table.subTableCount(), 2u);
  EXPECT_EQ(table.nullMaskBytes(), 1u);
  ASSERT_EQ(table.addRow(row(3, {{2, 300}})), 0);
  ASSERT_EQ(table.addRow(row(2.5, {{0, 2.5}, {1, 25}})), 0);  // out of order

  Collect all;
  ASSERT_EQ(table.forEachRow(0, 10, all), 0);
  ASSERT_EQ(all.rows.size(), 4u);
  EXPECT_EQ(all.rows[0].first, 1);
  EXPECT_EQ(all.rows[0].second, (std::map<int64_t, double>{{0, 1}, {1, 10}, {2, 100}}));
  EXPECT_EQ(all.rows[1].second, (std::map<int64_t, double>{{0, 2}, {1, 20}}));
  EXPECT_EQ(all.rows[2].first, 2.5);
  EXPECT_EQ(all.rows[3].second, (std::map<int64_t, double>{{2, 300}}));

  Collect window;
  table.forEachRow(2, 2.5, window);
  EXPECT_EQ(window.rows.size(), 2u);
  EXPECT_EQ(table.getLeastTime(), 1);
  EXPECT_EQ(table.getGreatestTime(), 3);
}

TEST_F(Table3, ColumnsFilledAtDifferentTimesEachGetASubTable) {
  for (int64_t c = 0; c < 3; ++c)
    for (int t = 0; t < 4; ++t) ASSERT_EQ(table.addRow(row(c * 10 + t, {{c, 1.0 * t}})), 0);
  EXPECT_EQ(table.subTableCount(), 3u);
  EXPECT_EQ(table.getNumRows(), 12u);
  EXPECT_EQ(table.getColumnNumRows(1), 4u);
  double begin = 0, end = 0;
  ASSERT_EQ(table.getColumnBeginEndTimes(2, begin, end), 0);
  EXPECT_EQ(begin, 20);
  EXPECT_EQ(end, 23);
}

TEST_F(Table3, BadCellsDoNotStopGoodOnes) {
  EXPECT_EQ(table.addRow(row(1, {{0, 1}, {9, 2}, {2, 3}})), DataTableCodes::INVALID_COLUMN_ID);
  EXPECT_EQ(table.addRow(nullptr), DataTableCodes::NULL_ROW);
  DataTableRowT stored;
  ASSERT_EQ(table.getRow(1, stored), 0);
  EXPECT_EQ(stored.cells().size(), 2u);
  ASSERT_EQ(table.removeColumn(1), 0);
  EXPECT_EQ(table.addRow(row(2, {{1, 5}})), DataTableCodes::COLUMN_WITHOUT_SUBTABLE);
}

TEST_F(Table3, RepeatedTimeOverwritesAndDeleteRemoves) {
  table.addRow(row(1, {{0, 1}, {1, 1}, {2, 1}}));
  table.addRow(row(1, {{0, 9}}));
  EXPECT_EQ(table.subTableCount(), 1u);
  DataTableRowT stored;
  table.getRow(1, stored);
  double v = 0;
  stored.cell(0)->getValue(v);
  EXPECT_EQ(v, 9);
  EXPECT_EQ(table.deleteRow(1), 0);
  EXPECT_TRUE(table.empty());
  EXPECT_EQ(table.deleteRow(1), DataTableCodes::NO_STATE);
}

TEST_F(Table3, StateAtOrBeforeAndInterpolation) {
  table.addRow(row(0, {{0, 0}, {1, 350}, {2, 7}}));
  table.addRow(row(10, {{0, 100}, {1, 10}}));
  DataTableRowT state;
  EXPECT_EQ(table.getStateAtOrBeforeTime(-1, state), DataTableCodes::NO_STATE);
  ASSERT_EQ(table.getStateAtOrBeforeTime(5, state), 0);
  EXPECT_EQ(state.cells().size(), 3u);

  double out = 0;
  ASSERT_EQ(table.getCellValueInterpolated(0, 2.5, out), 0);
  EXPECT_DOUBLE_EQ(out, 25);
  ASSERT_EQ(table.getCellValueInterpolated(0, 50, out), 0);
  EXPECT_DOUBLE_EQ(out, 100);
  table.setColumnUnitType(1, UTILS::UNITS_DEGREES);
  AngleInterpolate angle;
  ASSERT_EQ(table.getCellValueInterpolated(1, 5, out, &angle), 0);
  EXPECT_NEAR(std::fmod(out + 360.0, 360.0), 0.0, 1e-9);  // 350 -> 10 passes through 0

  table.update(5, false);
  EXPECT_EQ(table.currentRow().cells().size(), 3u);
  EXPECT_EQ(table.lastUpdateTime(), 5);
}

TEST(DataTableLimits, SettersClampAndPointLimitDropsOldest) {
  DataTable table(0, 1, "t", 1);
  int64_t id = 0;
  table.addColumn("v", UTILS::VT_INT32, id);
  table.setLimitNumPoints(0);
  table.setLimitSeconds(0.2);
  EXPECT_EQ(table.limits().points, 1u);
  EXPECT_EQ(table.limits().seconds, 1.0);

  table.setLimitNumPoints(3);
  table.setLimitingEnabled(true);
  for (int t = 0; t < 10; ++t) {
    DataTableRowT r(t);
    r.addCell(0, new DataTableCellTyped<int32_t>(t));
    table.addRow(r);
  }
  table.limitData(9);
  EXPECT_EQ(table.getNumRows(), 3u);
  EXPECT_EQ(table.getLeastTime(), 7);
}

TEST(DataTableLimits, SecondsLimitKeepsRecentRowsAndFlushesWhenAllAreOld) {
  DataTable table(0, 1, "t", 1);
  int64_t id = 0;
  table.addColumn("v", UTILS::VT_FLOAT64, id);
  table.setLimitType(UTILS::DATA_LIMIT_SECONDS);
  table.setLimitSeconds(5);
  table.setLimitingEnabled(true);
  for (int t = 0; t < 10; ++t) table.addRow(row(t, {{0, 1.0}}));
  table.limitData(9);
  EXPECT_EQ(table.getLeastTime(), 4);
  table.limitData(100);
  EXPECT_TRUE(table.empty());
}

TEST(DataTableLimits, DoubleBufferDropsTheOldBufferWhole) {
  DataTable table(1, 1, "t", 1);
  int64_t id = 0;
  table.addColumn("v", UTILS::VT_FLOAT64, id);
  table.setLimitNumPoints(4);
  table.setLimitingEnabled(true);
  for (int t = 1; t <= 12; ++t) {
    table.addRow(row(t, {{0, 1.0}}));
    table.limitData(t);
    EXPECT_LE(table.getNumRows(), 8u);
  }
  EXPECT_GE(table.getNumRows(), 4u);
  EXPECT_EQ(table.getGreatestTime(), 12);
}

TEST(DataTableCells, TypedColumnsConvertAndStringsKeepText) {
  DataTable table(0, 1, "t", 1);
  int64_t id = 0;
  table.addColumn("u8", UTILS::VT_UINT8, id);
  table.addColumn("s", UTILS::VT_STRING, id);
  DataTableRowT r(1);
  r.addCell(0, new DataTableCellTyped<double>(300.7));
  r.addCell(1, new DataTableCellTyped<std::string>("hello world"));
  ASSERT_EQ(table.addRow(r), 0);
  DataTableRowT back;
  table.getRow(1, back);
  EXPECT_EQ(back.cell(0)->getType(), UTILS::VT_UINT8);
  uint8_t small = 0;
  back.cell(0)->getValue(small);
  EXPECT_EQ(small, 255);
  std::string text;
  back.cell(1)->getValue(text);
  EXPECT_EQ(text, "hello world");
}

TEST(DataTableManagerTest, TablesByOwnerAndId) {
  DataTableManager manager;
  DataTable* a = nullptr;
  DataTable* again = nullptr;
  DataTableList* list = nullptr;
  ASSERT_EQ(manager.addTable(5, "one", a, &list), 0);
  EXPECT_EQ(manager.addTable(5, "one", again), DataTableCodes::TABLE_EXISTS);
  EXPECT_EQ(again, a);
  DataTable* b = nullptr;
  ASSERT_EQ(manager.addTable(6, "one", b), 0);
  EXPECT_EQ(manager.addTable(6, "bad", b, nullptr, 3), DataTableCodes::UNSUPPORTED_TYPE);
  EXPECT_EQ(manager.getNumberOfDataTables(), 2u);
  DataTable* found = nullptr;
  EXPECT_EQ(manager.getTable(5, "one", found), 0);
  EXPECT_EQ(found, a);
  EXPECT_EQ(list->find("one"), a);
  EXPECT_EQ(manager.deleteOwnersTables(5), 0);
  EXPECT_EQ(manager.getTable(a == nullptr ? 0 : 1, found), DataTableCodes::NO_SUCH_TABLE);
  EXPECT_EQ(manager.getNumberOfDataTables(), 1u);
}

TEST(DataTableUtilsTest, EscapesAreUndonePassByPass) {
  EXPECT_EQ(DataTableUtils::removeEscapeSlashes("a\\\"b\\\"c"), "a\"b\"c");
  EXPECT_EQ(DataTableUtils::removeEscapeSlashes("x\\0xAy"), "x\ny");
  EXPECT_EQ(DataTableUtils::removeEscapeSlashes("back\\\\slash"), "back\\slash");
  // The first pass makes an escaped quote out of "\\\"", which the
  // second pass then undoes.
  EXPECT_EQ(DataTableUtils::removeEscapeSlashes("\\\\\""), "\"");
}

}  // namespace
