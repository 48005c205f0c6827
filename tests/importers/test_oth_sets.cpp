// Every set kind reads its line and writes it back unchanged; fields a line
// lacks keep their defaults; the readers of ellipses, line points, remarks.

#include <gtest/gtest.h>

#include "importers/oth/OTHMessage.h"
#include "importers/oth/OthFields.h"

using namespace OthLib;

namespace {

template <typename Set>
void expectRoundTrip(const std::string& line) {
  Set set;
  ASSERT_EQ(set.unpack(line), 0) << line;
  EXPECT_EQ(set.packToString(), line);
  Set again;
  ASSERT_EQ(again.unpack(set.packToString()), 0);
  for (size_t i = 0; i < set.fieldCount(); ++i) EXPECT_EQ(again.field(i), set.field(i)) << line << " field " << i;
}

}  // namespace

TEST(OthSets, EveryKindReadsAndWritesItsLine) {
  expectRoundTrip<OTHMsgID>("MSGID/GOLD/CTF-65/OPS/0042/MAR/EXTRA");
  expectRoundTrip<OTHContact>("CTC/T0042/NORDKAPP/FRIGATE/FFG/4/NO/X/12345/LAKX/A/F/N/SURFACE/Q/R/S/T/U/V");
  expectRoundTrip<OTHPosition>("POS/121530Z2/JAN/3530N1/07530W5/A/045T/3NM/2NM/270.0T/12.0K/ALT350/B/C/D/E");
  expectRoundTrip<OTHExpandedPosition>(
      "XPOS/12153045.5Z/JAN2023/353015N7/0753015W1/A/045T/3NM/2NM/270.0T/12.0KTS/ALT350/B/C/D/E");
  expectRoundTrip<OTHOverlay>("OVLY/121530Z2/HARBOUR/1/2/3/4/5/6/7/8");
  expectRoundTrip<OTHAreaAmplification>("AREAM/BOX/GC/1/2/3/4");
  expectRoundTrip<OTHArc>("ARC/B/1/2/3530N1/07530W5/10NM/000T/090T/x/LABEL");
  expectRoundTrip<OTHLine>("LINE/C/2/0/PATROL/3530N1/07530W5/3600N9/07600W3/END/X");
  expectRoundTrip<OTHText>("TEXT/E/1/3530N1/07530W5/090T/ANCHORAGE");
  expectRoundTrip<OTHChart>("CHART/MERC/3530N1/07530W5/250000");
  expectRoundTrip<OTHRemarks>("RMKS/AIS/257123000");
  expectRoundTrip<OTHExpandedRadarData>("RADB/1/2/3/4/5/6/7/8/9");
  expectRoundTrip<OTHEndData>("ENDAT/UNCLASS/X");
  // Fields this program doesn't read survive, trailing empty ones included.
  expectRoundTrip<OTHPosition>("POS/121530Z2/JAN/3530N1/07530W5/A/045T/3NM/2NM/270.0T/12.0K/ALT350/B/C/D/E/F//");
}

TEST(OthSets, UnpackRulesAndDefaults) {
  OTHPosition position;
  EXPECT_EQ(position.unpack("   "), 1);
  EXPECT_EQ(position.unpack("XPOS/121530Z2"), 2);
  EXPECT_EQ(position.unpack("POSX/121530Z2"), 2);
  EXPECT_EQ(position.fieldCount(), 15u);
  EXPECT_EQ(position.unpack("  POS/121530Z2/JAN/3530N1/07530W5/A/045T/3NM/2NM/270.0T\r\n"), 0);
  // A shorter line leaves the fields it lacks as they were.
  ASSERT_EQ(position.unpack("POS/010000Z1/FEB"), 0);
  EXPECT_EQ(position.field(OTHPosition::MONTH), "FEB");
  EXPECT_EQ(position.field(OTHPosition::COURSE), "270.0T");
  EXPECT_EQ(position.fieldCount(), 15u);

  EXPECT_EQ(OTHAreaAmplification().packToString(), "AREAM/NOT SET/GC////");
  OTHEndData end;
  ASSERT_EQ(end.unpack("ENDAT"), 0);
  EXPECT_EQ(end.packToString(), "ENDAT/UNCLASS/");

  // A field can't carry the separator or a line end; setting one far out adds fields.
  OTHContact contact;
  contact.setField(OTHContact::TRACK_NAME, "A/B\nC");
  EXPECT_EQ(contact.getName(), "A-B C");
  contact.setField(25, "far");
  EXPECT_EQ(contact.packToString(), "CTC//A-B C////////////////////////far");
}

TEST(OthSets, SerialNumberWrapsAtFourDigits) {
  OTHMsgID header;
  header.incrementMSN();
  EXPECT_EQ(header.field(OTHMsgID::SERIAL_NUMBER), "0001");
  header.setSerialNumber(9999);
  header.incrementMSN();
  EXPECT_EQ(header.field(OTHMsgID::SERIAL_NUMBER), "0000");
  header.setField(OTHMsgID::SERIAL_NUMBER, "X1");
  EXPECT_EQ(header.getSerialNumber(), -1);
}

TEST(OthSets, ReportsWrittenFromValuesReadBackToThem) {
  OTHExpandedPosition written;
  written.setTime(31 * 86400.0 + 3661.5, 2023);
  written.setPosition(-35.5 * DEG_TO_RAD, 175.25 * DEG_TO_RAD, -30.48, true);
  written.setCourse(270 * DEG_TO_RAD);
  written.setSpeed(12 * KNOT_METRES_PER_SECOND);
  written.setUncertaintyEllipse(3 * 1852.0, 2 * 1852.0, 45.0);
  OTHExpandedPosition read;
  ASSERT_EQ(read.unpack(written.packToString()), 0);
  double seconds = 0, lla[3] = {}, course = 0, speed = 0, major = 0, minor = 0, bearing = 0;
  int year = 0;
  ASSERT_EQ(read.getTime(seconds, year), 0);
  EXPECT_EQ(year, 2023);
  EXPECT_DOUBLE_EQ(seconds, 31 * 86400.0 + 3661.5);
  ASSERT_EQ(read.getPosition(lla), 0);
  EXPECT_NEAR(lla[0], -35.5 * DEG_TO_RAD, 1e-9);
  EXPECT_NEAR(lla[1], 175.25 * DEG_TO_RAD, 1e-9);
  EXPECT_NEAR(lla[2], -30.48, 0.01);
  ASSERT_EQ(read.getCourse(course), 0);
  EXPECT_NEAR(course, 270 * DEG_TO_RAD, 1e-9);
  ASSERT_EQ(read.getSpeed(speed), 0);
  EXPECT_NEAR(speed, 12 * KNOT_METRES_PER_SECOND, 1e-9);
  ASSERT_EQ(read.getUncertaintyEllipse(major, minor, bearing), 0);
  EXPECT_DOUBLE_EQ(major, 5556.0);
  EXPECT_DOUBLE_EQ(minor, 3704.0);
  EXPECT_DOUBLE_EQ(bearing, 45.0);
}

TEST(OthSets, UncertaintyEllipseCases) {
  auto ellipse = [](const std::string& bearing, const std::string& major, const std::string& minor,
                    double* values = nullptr) {
    OTHPosition position;
    position.setField(OTHPosition::MAJOR_AXIS_BEARING, bearing);
    position.setField(OTHPosition::MAJOR_AXIS, major);
    position.setField(OTHPosition::MINOR_AXIS, minor);
    double scratch[3] = {-1, -1, -1};
    double* out = values != nullptr ? values : scratch;
    return position.getUncertaintyEllipse(out[0], out[1], out[2]);
  };
  double values[3] = {};
  // Equal axes without a bearing: a circle of bearing 0.
  ASSERT_EQ(ellipse("", "2NM", "2NM", values), 0);
  EXPECT_DOUBLE_EQ(values[0], 3704.0);
  EXPECT_DOUBLE_EQ(values[2], 0.0);
  ASSERT_EQ(ellipse("120T", "2NM", "2NM", values), 0);
  EXPECT_DOUBLE_EQ(values[2], 0.0);
  EXPECT_EQ(ellipse("", "3NM", "2NM"), 5);
  EXPECT_EQ(ellipse("12", "3NM", "2NM"), 5);
  EXPECT_EQ(ellipse("045T", "", "2NM"), 2);
  EXPECT_EQ(ellipse("045T", "3NM", ""), 2);
  EXPECT_EQ(ellipse("045T", "3QQ", "2NM"), 3);
  EXPECT_EQ(ellipse("045T", "3NM", "2NM5"), 4);
}

TEST(OthSets, LinePointsSitBetweenFixedAndClosingFields) {
  OTHLine line;
  line.setField(OTHLine::COLOR, "B");
  line.setClosingField(0, "END");
  line.addPoint(35.5 * DEG_TO_RAD, -75.5 * DEG_TO_RAD);
  line.addPoint(36.0 * DEG_TO_RAD, -76.0 * DEG_TO_RAD);
  EXPECT_EQ(line.packToString(), "LINE/B////3530N1/07530W5/3600N9/07600W3/END/");
  ASSERT_EQ(line.pointCount(), 2u);
  double lat = 0, lon = 0;
  ASSERT_EQ(line.getPoint(1, lat, lon), 0);
  EXPECT_NEAR(lon, -76.0 * DEG_TO_RAD, 1e-12);
  EXPECT_NE(line.getPoint(2, lat, lon), 0);

  OTHLine read;
  ASSERT_EQ(read.unpack("LINE/B/1/0/L/3530N1/07530W5/LONE/END/X"), 0);
  EXPECT_EQ(read.pointCount(), 1u);
  EXPECT_EQ(read.closingField(0), "END");
  EXPECT_EQ(read.closingField(1), "X");
  read.addPoint(0.0, 0.0);
  EXPECT_EQ(read.packToString(), "LINE/B/1/0/L/3530N1/07530W5/0000N0/00000E0/LONE/END/X");
}

TEST(OthSets, RemarksGiveTheAisNumber) {
  OTHRemarks remark;
  unsigned long mmsi = 0;
  ASSERT_EQ(remark.unpack("RMKS/AIS/ 257123000 "), 0);
  ASSERT_EQ(remark.getAisMmsi(mmsi), 0);
  EXPECT_EQ(mmsi, 257123000ul);
  ASSERT_EQ(remark.unpack("RMKS/AIS/ "), 0);
  EXPECT_EQ(remark.getAisMmsi(mmsi), 1);
  ASSERT_EQ(remark.unpack("RMKS/NOTE/257123000"), 0);
  EXPECT_EQ(remark.getAisMmsi(mmsi), 1);
  ASSERT_EQ(remark.unpack("RMKS/AIS/TWO"), 0);
  EXPECT_EQ(remark.getAisMmsi(mmsi), 2);
}
