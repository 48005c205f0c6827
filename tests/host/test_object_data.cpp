// Data of objects and data tables, through the client wrappers.

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

#include "HostFixture.h"

using namespace PIData;
using RefHost::HostObject;

namespace {

const double* lastRecord(const HostObject& o, RefHost::SeriesId s) {
  const RefHost::Series& series = o.data(s);
  return series.count() ? series.record(series.count() - 1) : nullptr;
}

}  // namespace

TEST_F(HostTest, PointsGoOnlyToObjectsOfTheirKind) {
  const uint64_t platform = scenarioWithPlatform();
  const uint64_t beam = beamOn(platform);
  PIPlatformPoint p = platformPoint(10.0, 5.0);
  p.yaw = 0.3;
  p.frame.coordSystem = PI_COORD_LLA;
  EXPECT_EQ(addDataPoint(platform, p), 0);
  EXPECT_NE(addDataPoint(beam, p), 0) << "a platform point for a beam";
  PIBeamPoint bp{2.0, 0.1, 0.2, 1000.0};
  EXPECT_EQ(addDataPoint(beam, bp), 0);
  EXPECT_NE(addDataPoint(platform, bp), 0);
  EXPECT_NE(addDataPoint(999, bp), 0);

  const HostObject& o = *host->scenario().find(platform);
  ASSERT_EQ(o.data(RefHost::SERIES_POINTS).count(), 2u);
  const double* r = lastRecord(o, RefHost::SERIES_POINTS);
  EXPECT_EQ(r[0], 10.0);
  EXPECT_EQ(r[1], 5.0);
  EXPECT_EQ(r[4], 0.3);
  EXPECT_EQ(r[7], PI_UNSET_DOUBLE);
  // Two frames were seen: the first point's default one and the LLA one.
  EXPECT_EQ(host->scenario().frames().size(), 2u);
  EXPECT_EQ(lastRecord(*host->scenario().find(beam), RefHost::SERIES_POINTS)[3], 1000.0);
}

TEST_F(HostTest, GateAndLobPointsAndBatches) {
  const uint64_t platform = scenarioWithPlatform();
  PIGateHeader gh;
  const uint64_t gate = createGate(beamOn(platform), gh, nullptr, true);
  PIGatePoint gp{3.0, 0.1, 0.2, 0.3, 0.4, 100.0, 200.0, 150.0};
  EXPECT_EQ(addDataPoint(gate, gp), 0);
  EXPECT_EQ(lastRecord(*host->scenario().find(gate), RefHost::SERIES_POINTS)[7], 150.0);

  PILobHeader lh;
  const uint64_t lob = createLob(platform, lh);
  EXPECT_EQ(addDataPoint(lob, PILobPoint{4.0, 1.0, 0.5, 10.0}), 0);
  PILobDrawStyle style;
  style.time = 4.0;
  style.color1 = 0xFF0000FFu;
  style.width = 3;
  EXPECT_EQ(addLobDrawStyle(lob, style), 0);
  EXPECT_NE(addLobDrawStyle(platform, style), 0);
  EXPECT_EQ(lastRecord(*host->scenario().find(lob), RefHost::SERIES_LOB_DRAW_STYLE)[1], double(0xFF0000FFu));

  std::vector<PIPlatformPoint> batch = {platformPoint(1), platformPoint(2), platformPoint(3)};
  EXPECT_EQ(addDataPoints(platform, batch), 0);
  EXPECT_EQ(host->scenario().find(platform)->data(RefHost::SERIES_POINTS).count(), 4u);
  EXPECT_NE(addDataPoints(lob, batch), 0);
}

TEST_F(HostTest, LaserAndProjectorData) {
  const uint64_t platform = scenarioWithPlatform();
  PILaserHeader lh;
  const uint64_t laser = createLaser(platform, lh, 0);
  PILaserPoint ori;
  ori.time = 1.0;
  ori.orientation = {0.1, 0.2, 0.3};
  EXPECT_EQ(addLaserOriDataPoint(laser, ori), 0);
  EXPECT_EQ(addLaserOffsetDataPoint(laser, PILaserOffset{2.0, 1.0, 2.0, 3.0}), 0);
  EXPECT_EQ(addLaserMaxRangeDataPoint(laser, 5000.0, 3.0), 0);
  EXPECT_EQ(addLaserWidthDataPoint(laser, 4.0, 7), 0);
  EXPECT_NE(addLaserWidthDataPoint(platform, 4.0, 7), 0);
  const HostObject& l = *host->scenario().find(laser);
  EXPECT_EQ(lastRecord(l, RefHost::SERIES_POINTS)[3], 0.3);
  EXPECT_EQ(lastRecord(l, RefHost::SERIES_LASER_OFFSET)[3], 3.0);
  const double* range = lastRecord(l, RefHost::SERIES_LASER_MAX_RANGE);
  EXPECT_EQ(range[0], 3.0);
  EXPECT_EQ(range[1], 5000.0);
  EXPECT_EQ(lastRecord(l, RefHost::SERIES_LASER_WIDTH)[1], 7.0);

  PIProjectorHeader ph;
  const uint64_t projector = createProjector(platform, ph);
  EXPECT_EQ(setProjectorRasterFileName(projector, "raster.png"), 0);
  EXPECT_EQ(setProjectorInterpolateFov(projector, true), 0);
  EXPECT_EQ(addProjectorFOV(projector, 5.0, 0.5), 0);
  EXPECT_NE(addProjectorFOV(laser, 5.0, 0.5), 0);
  const HostObject& p = *host->scenario().find(projector);
  EXPECT_EQ(p.settings["rasterFile"], "raster.png");
  EXPECT_EQ(p.settings["interpolateFov"], true);
  EXPECT_EQ(lastRecord(p, RefHost::SERIES_PROJECTOR_FOV)[1], 0.5);
}

TEST_F(HostTest, StatusColourAndTargets) {
  const uint64_t platform = scenarioWithPlatform();
  const uint64_t beam = beamOn(platform);
  EXPECT_EQ(setStatus(beam, PI_VISIBILITY_ON, 1.0), 0);
  EXPECT_EQ(setColor(beam, 0x11223344u, 2.0), 0);
  EXPECT_EQ(setTarget(beam, platform, 3.0), 0);
  EXPECT_EQ(setTarget(beam, 0, 4.0), 0) << "0 clears the target";
  EXPECT_NE(setTarget(beam, 999, 5.0), 0) << "unknown target";
  EXPECT_NE(setTarget(platform, beam, 5.0), 0) << "a platform has no target";
  EXPECT_NE(setStatus(999, PI_VISIBILITY_OFF, 1.0), 0);
  const HostObject& b = *host->scenario().find(beam);
  EXPECT_EQ(lastRecord(b, RefHost::SERIES_STATUS)[1], 1.0);
  EXPECT_EQ(lastRecord(b, RefHost::SERIES_COLOR)[1], double(0x11223344u));
  EXPECT_EQ(b.data(RefHost::SERIES_TARGET).count(), 2u);
  EXPECT_EQ(lastRecord(b, RefHost::SERIES_TARGET)[1], 0.0);
}

TEST_F(HostTest, OffsetsFlagsAndFileNames) {
  const uint64_t platform = scenarioWithPlatform();
  const uint64_t beam = beamOn(platform);
  EXPECT_EQ(getObjectOrientationOffset(beam).x, 0.0) << "never set";
  EXPECT_EQ(setObjectOrientationOffset(beam, PIPoint{0.1, 0.2, 0.3}), 0);
  PIPoint back = getObjectOrientationOffset(beam);
  EXPECT_EQ(back.y, 0.2);
  EXPECT_EQ(back.z, 0.3);
  EXPECT_EQ(setObjectOffset(beam, PIPoint{1, 2, 3}), 0);
  EXPECT_EQ(setPlatformOrientationOffset(platform, PIPoint{0.5, 0, 0}), 0);
  EXPECT_NE(setPlatformOrientationOffset(beam, PIPoint{0.5, 0, 0}), 0);
  EXPECT_EQ(setAzimuthOffset(beam, 0.7), 0);
  EXPECT_EQ(setElevationOffset(beam, -0.2), 0);
  EXPECT_NE(setAzimuthOffset(platform, 0.7), 0);
  EXPECT_EQ(setPlatformInterpolate(platform, true), 0);
  EXPECT_EQ(setBeamInterpolatePosition(beam, false), 0);
  EXPECT_NE(setGateInterpolatePosition(beam, true), 0) << "the beam is no gate";

  EXPECT_EQ(getPlatformRCSPatternFileName(platform), "");
  EXPECT_EQ(setPlatformRCSPatternFileName(platform, "ship.rcs"), 0);
  EXPECT_EQ(getPlatformRCSPatternFileName(platform), "ship.rcs");
  EXPECT_NE(setPlatformRCSPatternFileName(beam, "x.rcs"), 0);

  const HostObject& b = *host->scenario().find(beam);
  EXPECT_EQ(b.settings["offset"], nlohmann::json({1.0, 2.0, 3.0}));
  EXPECT_EQ(b.settings["azimuthOffset"], 0.7);
  EXPECT_EQ(b.settings["elevationOffset"], -0.2);
  EXPECT_EQ(b.settings["interpolate"], false);
  EXPECT_EQ(host->scenario().find(platform)->settings["interpolate"], true);
}

TEST_F(HostTest, CategoryAndGenericData) {
  const uint64_t platform = scenarioWithPlatform();
  PICategoryDataPoint point;
  point.time = -1.0;
  point.categoryName = "Platform Type";
  point.categoryValue = "Ship";
  EXPECT_EQ(addCategoryData(platform, point), 0);
  EXPECT_EQ(addCategoryData(0, point), 0) << "the scenario's own category data";
  EXPECT_NE(addCategoryData(999, point), 0);
  const HostObject& o = *host->scenario().find(platform);
  const double* r = lastRecord(o, RefHost::SERIES_CATEGORY);
  EXPECT_EQ(r[0], -1.0);
  EXPECT_EQ(host->scenario().strings().at(static_cast<uint32_t>(r[1])), "Platform Type");
  EXPECT_EQ(host->scenario().strings().at(static_cast<uint32_t>(r[2])), "Ship");

  PIGenericDataPoint gd;
  gd.time = 5.0;
  gd.expirationTime = 10.0;
  gd.tag = "ORVIDE_DropTrack";
  gd.value = "true";
  const uint64_t entry = createGenericData(platform, gd);
  const double* g = lastRecord(o, RefHost::SERIES_GENERIC);
  EXPECT_EQ(g[1], 10.0);
  EXPECT_EQ(host->scenario().strings().at(static_cast<uint32_t>(g[2])), "ORVIDE_DropTrack");
  EXPECT_EQ(static_cast<uint64_t>(g[4]), entry);
}

TEST_F(HostTest, TheScenariosOwnDataNeedsAScenario) {
  const PICategoryDataPoint category{-1.0, "Exercise", "RIMPAC"};
  const PIGenericDataPoint generic{1.0, -1.0, "tag", "value"};
  int64_t table = 0;
  EXPECT_NE(addCategoryData(0, category), 0);
  EXPECT_EQ(createGenericData(0, generic), 0u);
  EXPECT_NE(addDataTable(0, "T", {"a"}, {UTILS::VT_INT32}, &table), 0);
  EXPECT_EQ(host->scenario().scenarioObject().data(RefHost::SERIES_CATEGORY).count(), 0u);

  initializeScenario("test.asi", 0, PI_PROTOCOL_NONE, false);
  EXPECT_EQ(addCategoryData(0, category), 0);
  EXPECT_NE(createGenericData(0, generic), 0u);
  EXPECT_EQ(addDataTable(0, "T", {"a"}, {UTILS::VT_INT32}, &table), 0);
}

TEST_F(HostTest, FlushDropsDataByType) {
  const uint64_t platform = scenarioWithPlatform();  // first point at time 0
  addDataPoint(platform, platformPoint(-1.0));
  addDataPoint(platform, platformPoint(5.0));
  setStatus(platform, PI_VISIBILITY_ON, 5.0);
  const RefHost::Series& points = host->scenario().find(platform)->data(RefHost::SERIES_POINTS);
  EXPECT_EQ(flushEntityData(platform, PI_FLUSH_STATIC), 0);
  EXPECT_EQ(points.count(), 2u);
  EXPECT_EQ(points.record(0)[0], 0.0);
  EXPECT_EQ(flushEntityData(platform, PI_FLUSH_ALL), 0);
  EXPECT_EQ(points.count(), 0u);
  EXPECT_EQ(host->scenario().find(platform)->data(RefHost::SERIES_STATUS).count(), 0u);
  EXPECT_NE(flushEntityData(platform, 7), 0);
  EXPECT_NE(flushEntityData(999, PI_FLUSH_ALL), 0);
}

TEST_F(HostTest, LongSeriesKeepEveryRecordInOrderThroughFlushes) {
  const uint64_t platform = scenarioWithPlatform();  // first point at time 0
  // Thousands of points, every third one static, so that records lie in
  // many blocks of storage and a flush has to gather them again.
  for (int i = 1; i <= 5000; ++i) addDataPoint(platform, platformPoint(i % 3 == 0 ? -1.0 : i, i));
  const RefHost::Series& points = host->scenario().find(platform)->data(RefHost::SERIES_POINTS);
  ASSERT_EQ(points.count(), 5001u);
  for (std::size_t i = 1; i <= 5000; ++i) ASSERT_EQ(points.record(i)[1], static_cast<double>(i)) << i;

  EXPECT_EQ(flushEntityData(platform, PI_FLUSH_STATIC), 0);
  ASSERT_EQ(points.count(), 3335u);
  std::vector<double> kept;
  for (std::size_t i = 0; i < points.count(); ++i) kept.push_back(points.record(i)[1]);
  EXPECT_EQ(kept[1], 1.0);
  EXPECT_EQ(kept[2], 2.0);
  EXPECT_EQ(kept[3], 4.0);
  EXPECT_EQ(kept.back(), 5000.0);
  EXPECT_TRUE(std::is_sorted(kept.begin(), kept.end()));
}

TEST_F(HostTest, DataTablesRoundTrip) {
  const uint64_t platform = scenarioWithPlatform();
  int64_t table = 0;
  EXPECT_EQ(addDataTable(platform, "Fuel", {"level", "note"}, {UTILS::VT_FLOAT64, UTILS::VT_STRING}, &table), 0);
  EXPECT_EQ(table, 1);
  int64_t again = -1;
  EXPECT_NE(addDataTable(platform, "Fuel", {"x"}, {UTILS::VT_INT32}, &again), 0) << "one name per owner";
  EXPECT_EQ(again, 0);
  EXPECT_NE(addDataTable(999, "Other", {"x"}, {UTILS::VT_INT32}, &again), 0);
  EXPECT_NE(addDataTable(platform, "Bad", {"x", "y"}, {UTILS::VT_INT32}, &again), 0) << "a type per name";

  int64_t found = 0;
  EXPECT_EQ(findDataTable(platform, "Fuel", &found), 0);
  EXPECT_EQ(found, table);
  EXPECT_NE(findDataTable(platform, "Water", &found), 0);
  EXPECT_EQ(found, 0);

  std::vector<int64_t> columns;
  EXPECT_EQ(getDataTableColumns(table, columns), 0);
  ASSERT_EQ(columns.size(), 2u);
  std::string name;
  EXPECT_EQ(getDataTableColumnName(table, columns[1], name), 0);
  EXPECT_EQ(name, "note");
  EXPECT_NE(getDataTableColumnName(table, 99, name), 0);

  int64_t added = 0;
  EXPECT_EQ(addDataTableColumn(table, &added, "count", UTILS::VT_UINT16, static_cast<UTILS::UnitType_t>(0)), 0);
  EXPECT_EQ(added, 3);
  int64_t duplicate = -1;
  EXPECT_NE(addDataTableColumn(table, &duplicate, "count", UTILS::VT_UINT16, static_cast<UTILS::UnitType_t>(0)), 0);
  EXPECT_EQ(duplicate, 0);
  const std::vector<UTILS::UnitType_t> units = {static_cast<UTILS::UnitType_t>(4), static_cast<UTILS::UnitType_t>(0),
                                                static_cast<UTILS::UnitType_t>(0)};
  EXPECT_EQ(setDataTableColumnUnits(table, units), 0);
  EXPECT_NE(setDataTableColumnUnits(table, {static_cast<UTILS::UnitType_t>(4)}), 0) << "one unit per column";

  DataTableRowT row(12.5);
  row.addCell(columns[0], new DataTableCellTyped<double>(0.75));
  row.addCell(columns[1], new DataTableCellTyped<std::string>("half \"full\""));
  row.addCell(added, new DataTableCellTyped<uint16_t>(9));
  EXPECT_EQ(addDataTableRow(table, row), 0);
  DataTableRowT sparse(13.0);
  sparse.addCell(columns[0], new DataTableCellTyped<double>(std::nan("")));
  EXPECT_EQ(addDataTableRow(table, sparse), 0);
  DataTableRowT wrong(14.0);
  wrong.addCell(77, new DataTableCellTyped<int32_t>(1));
  EXPECT_NE(addDataTableRow(table, wrong), 0) << "unknown column";
  EXPECT_NE(addDataTableRow(42, sparse), 0) << "unknown table";

  std::stringstream text;
  host->writeDump(text);
  const nlohmann::json dump = nlohmann::json::parse(text.str());
  const nlohmann::json& t = dump["tables"][0];
  EXPECT_EQ(t["columns"][0]["unit"], 4);
  EXPECT_EQ(t["rows"]["count"], 2);
  EXPECT_EQ(t["rows"]["records"][0]["cells"]["2"], "half \"full\"");
  EXPECT_EQ(t["rows"]["records"][0]["cells"]["3"], 9);
  EXPECT_TRUE(t["rows"]["records"][1]["cells"]["1"].is_null()) << "NaN is written as null";
  EXPECT_EQ(t["rows"]["records"][1]["cells"].size(), 1u);
}
