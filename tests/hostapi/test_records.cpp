// The fixed records of the host door and the value records that cross it.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "hostapi/DataTableRow.h"
#include "hostapi/PIDataRecords.h"
#include "hostapi/PIDataStructs.h"
#include "hostapi/PUOptionsProcessor.h"

namespace {

std::vector<int32_t> blockOf(const PI_DATA_BASE_CLASS& record) {
  return std::vector<int32_t>(record.block(), record.block() + PI_DATA_BASE_CLASS::BLOCK_SIZE);
}

const std::vector<int32_t> kBlock = {0, 0, 2, 2, 2, 2, 2, 2, 0};

TEST(HostApiBaseRecord, EveryRecordCarriesTheNineIntegerBlock) {
  EXPECT_EQ(blockOf(PI_DATA_BASE_CLASS()), kBlock);
  EXPECT_EQ(blockOf(PIData::PI_DATA_STRUCT()), kBlock);
  EXPECT_EQ(blockOf(PI_DATA_CATCHALL()), kBlock);
  EXPECT_EQ(blockOf(PI_DATA_POINTER_AND_STRING()), kBlock);
  EXPECT_EQ(blockOf(PI_REGISTER_HANDLER_DATA()), kBlock);
}

TEST(HostApiBaseRecord, CopiesOwnTheirOwnBlock) {
  PI_DATA_CATCHALL original;
  original.ints = {7};
  PI_DATA_CATCHALL copy(original);
  EXPECT_NE(copy.block(), original.block());
  EXPECT_EQ(blockOf(copy), kBlock);
  PI_DATA_CATCHALL assigned;
  assigned = original;
  EXPECT_NE(assigned.block(), original.block());
  EXPECT_EQ(blockOf(assigned), kBlock);
  EXPECT_EQ(assigned.ints, original.ints);
}

TEST(HostApiDataStruct, DefaultsAreTheHostsEmptyValues) {
  PIData::PI_DATA_STRUCT s;
  EXPECT_EQ(s.uniqueId, 0u);
  EXPECT_EQ(s.objectId, 0u);
  EXPECT_TRUE(s.text.empty());
  EXPECT_EQ(s.value1, -999999999.0);
  EXPECT_EQ(s.value2, -999999999.0);
  EXPECT_EQ(s.value3, -999999999.0);
  EXPECT_EQ(s.pointer1, nullptr);
  EXPECT_EQ(s.pointer2, nullptr);
  EXPECT_EQ(s.intValue, 0);
  EXPECT_EQ(s.longValue, 0u);
  EXPECT_EQ(s.kindMask, 0u);
}

TEST(HostApiValueRecords, ReferenceFrameStartsInItsDefaultState) {
  const PIData::PICoordReferenceFrame frame;
  EXPECT_EQ(frame.coordSystem, 4);
  EXPECT_EQ(frame.latitude, -999999999.0);
  EXPECT_EQ(frame.longitude, -999999999.0);
  EXPECT_EQ(frame.altitude, 0.0);
  EXPECT_EQ(frame.verticalDatum, 1);
  EXPECT_EQ(frame.magneticVariance, 1);
  EXPECT_EQ(frame.tangentPlaneX, 0.0);
  EXPECT_EQ(frame.eciReferenceTime, 0.0);
  EXPECT_EQ(PIData::PI_DEFAULT_REFFRAME.coordSystem, frame.coordSystem);
  EXPECT_EQ(PIData::PI_DEFAULT_REFFRAME.latitude, frame.latitude);
}

TEST(HostApiValueRecords, UnsetFieldsCarryTheUnsetValue) {
  const PIData::PIBeamHeader beam;
  EXPECT_EQ(beam.azimuthOffset, PIData::PI_UNSET_DOUBLE);
  EXPECT_EQ(beam.verticalWidth, PIData::PI_UNSET_DOUBLE);
  EXPECT_EQ(beam.beamType, PIData::PI_BEAM_UNKNOWN);
  EXPECT_FALSE(beam.missileOffset);
  const PIData::PIPlatformPoint point;
  EXPECT_EQ(point.yaw, PIData::PI_UNSET_DOUBLE);
  EXPECT_EQ(point.vz, PIData::PI_UNSET_DOUBLE);
  EXPECT_EQ(point.frame.coordSystem, PIData::PI_COORD_ECEF);
}

TEST(HostApiDataTableRow, OwnsAndCopiesItsCells) {
  DataTableRowT row(12.5);
  row.addCell(3, new DataTableCellTyped<double>(1.5));
  row.addCell(7, new DataTableCellTyped<std::string>("abc"));
  row.addCell(9, nullptr);
  ASSERT_EQ(row.cells().size(), 2u);

  DataTableRowT copy(row);
  ASSERT_EQ(copy.cells().size(), 2u);
  EXPECT_NE(copy.cells()[0].second, row.cells()[0].second);
  EXPECT_EQ(copy.time(), 12.5);
  std::string text;
  copy.cell(7)->getValue(text);
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(copy.cell(4), nullptr);

  DataTableRowT moved(std::move(copy));
  EXPECT_EQ(moved.cells().size(), 2u);
  EXPECT_TRUE(copy.cells().empty());
}

TEST(HostApiDataTableCell, ConvertsBetweenTypesAndReportsItsTag) {
  DataTableCellTyped<int32_t> cell;
  EXPECT_EQ(cell.getType(), UTILS::VT_INT32);
  cell.setValue(2.9);
  int32_t i = 0;
  cell.getValue(i);
  EXPECT_EQ(i, 2);
  cell.setValue(std::string("-17"));
  double d = 0;
  cell.getValue(d);
  EXPECT_EQ(d, -17.0);
  std::string text;
  cell.getValue(text);
  EXPECT_EQ(text, "-17");

  DataTableCellTyped<uint8_t> small(200);
  small.getValue(text);
  EXPECT_EQ(text, "200");
  EXPECT_EQ(small.getBinaryFormatSize(), 1u);

  DataTableCellTyped<double> real;
  const double stored = 3.25;
  EXPECT_TRUE(real.getValueFromBinaryFormat(reinterpret_cast<const char*>(&stored)));
  EXPECT_EQ(real.value(), 3.25);
  EXPECT_FALSE(real.getValueFromBinaryFormat(nullptr));

  DataTableCellTyped<std::string> str("x");
  EXPECT_EQ(str.getBinaryFormatSize(), 0u);
  EXPECT_FALSE(str.getValueFromBinaryFormat("abc"));
  std::unique_ptr<DataTableCell> clone(str.clone());
  EXPECT_EQ(clone->getType(), UTILS::VT_STRING);
}

TEST(HostApiDataTableCell, FloatingValuesOutsideAnIntegerTypeAreClamped) {
  DataTableCellTyped<double> cell(std::nan(""));
  int32_t i = 5;
  cell.getValue(i);
  EXPECT_EQ(i, 0);
  cell.setValue(1e30);
  cell.getValue(i);
  EXPECT_EQ(i, std::numeric_limits<int32_t>::max());
  uint8_t u = 0;
  cell.setValue(-3.0);
  cell.getValue(u);
  EXPECT_EQ(u, 0);
  DataTableCellTyped<int64_t> wide;
  wide.setValue(-1e300);
  EXPECT_EQ(wide.value(), std::numeric_limits<int64_t>::lowest());
}

TEST(HostApiOptionsProcessor, ReadsBooleansWithDefault) {
  PICommon::FileOptions options{{"Append", " TRUE "}, {"a", "0"}, {"b", "maybe"}, {"c", "Yes"}};
  EXPECT_TRUE(PUOptionsProcessor::getBoolean(options, PICommon::FileImportExportDelegate::APPEND, false));
  EXPECT_FALSE(PUOptionsProcessor::getBoolean(options, "a", true));
  EXPECT_TRUE(PUOptionsProcessor::getBoolean(options, "b", true));
  EXPECT_FALSE(PUOptionsProcessor::getBoolean(options, "b", false));
  EXPECT_TRUE(PUOptionsProcessor::getBoolean(options, "c", false));
  EXPECT_FALSE(PUOptionsProcessor::getBoolean(options, "missing", false));
  EXPECT_EQ(PICommon::FileImportExportDelegate::APPEND, "Append");
}

}  // namespace

#include "hostapi/PIApplication.h"

namespace {

class KurvexOnly : public PIApp::PIApplication_v1_24 {
 public:
  int starts = 0;
  int StartUp() override { return ++starts; }
  bool LoadInKurvex() override { return true; }
};

TEST(HostApiApplicationBase, DefaultsFollowTheClassicAnswersAndStartUp) {
  KurvexOnly app;
  PIApp::PIApplication_v1_24& base = app;
  EXPECT_TRUE(base.LoadInKurvex10());
  EXPECT_FALSE(base.LoadInORVIDE10());
  EXPECT_EQ(base.startUpWithArguments(0, nullptr), 1);
  EXPECT_EQ(app.starts, 1);
  EXPECT_EQ(base.Callback(), 0);
  EXPECT_EQ(base.initializeTerrainRasterSet("x"), nullptr);
}

}  // namespace
