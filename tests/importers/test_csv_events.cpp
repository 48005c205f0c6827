// Event records: one generic-data text per event, sonobuoy platforms.

#include <gtest/gtest.h>

#include <sstream>

#include "importers/csv/CSVEvt.h"
#include "support_csv.h"

namespace {

constexpr double kJan15 = 14 * 86400.0;

// Fields 21 onward, `count` of them, "f21", "f22", ... unless given.
std::string fields(size_t from, size_t to, const std::map<size_t, std::string>& given = {}) {
  std::string text;
  for (size_t i = from; i < to; ++i) {
    auto it = given.find(i);
    text += "," + (it != given.end() ? it->second : "f" + std::to_string(i));
  }
  return text;
}

std::string scoreEvt(const std::string& kind, const std::string& serial, const std::string& source,
                     const std::string& callsign, double lat, double lon, double feet, const std::string& rest) {
  std::ostringstream line;
  line << "EVT,2021,1,15,12,0,0," << source << ",9," << lat << "," << lon << ",0,0," << feet << ",90,10,"
       << callsign << "," << serial << "," << kind << ",mode,1" << rest << "\n";
  return line.str();
}

// A participant's ten fields: source, id, lat, lon, X, Y, Z, course, speed, call sign.
std::string party(const std::string& callsign, double lat, double lon, double feet) {
  std::ostringstream text;
  text << ",LTS,1," << lat << "," << lon << ",0,0," << feet << ",0,0," << callsign;
  return text.str();
}

bool hasEvent(const CsvLoad& load, const std::string& text) {
  for (const std::string& e : load.events())
    if (e == text) return true;
  return false;
}

TEST(CsvEvents, DeploymentOfASonobuoyMakesAPlatformThatLastsToTheEnd) {
  const std::string dep = fields(21, 30) + ",Laid by P-3" + fields(31, 40) + ",second,300";
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 1, "Ship", "Ship", 1) +
                                   scorePos("LTS", 1, "13:00:00", 33, -118, 0, 0, 0) +
                                   scoreEvt("DEP", "B7", "SON", "DC12", 33.5, -118.25, -30, dep) +
                                   scoreEvt("BUOY", "B8", "LTS", "VL3", 33.5, -118.25, 60, dep)));
  ASSERT_EQ(load.result, 0);
  EXPECT_TRUE(hasEvent(load, "EVT=DEP`ID=B7`CSO=Laid by P-3`CSB=DC12`CSR=second`LIFE=300`CSBLAT=33.5"
                             "`CSBLON=-118.25`CSBALT=-30"));
  EXPECT_TRUE(hasEvent(load, "EVT=DEP`ID=B8`CSO=Laid by P-3`CSB=VL3`CSR=second`LIFE=300`DEPTH=60`CSBLAT=33.5"
                             "`CSBLON=-118.25`CSBALT=60"));
  // Only the SON deployment is a platform; the depth's sign does not matter.
  PlatformUD* buoy = load.platform("DC12");
  ASSERT_NE(buoy, nullptr);
  EXPECT_EQ(load.platform("VL3"), nullptr);
  EXPECT_EQ(buoy->Header()->iconName, "an-ssq-62");
  const auto& states = buoy->Motion()->states();
  ASSERT_EQ(states.size(), 2u);
  EXPECT_DOUBLE_EQ(states.front().time, kJan15 + 12 * 3600);
  EXPECT_NEAR(states.front().alt, -30 * 0.30479999, 1e-9);
  EXPECT_DOUBLE_EQ(states.back().time, kJan15 + 13 * 3600);
  EXPECT_EQ(states.back().alt, states.front().alt);
}

TEST(CsvEvents, EachKindWritesItsFieldsAndPositionGroups) {
  const std::string two = party("Alpha", 33.25, -118.5, 100) + party("Bravo", 33.75, -118, 0);
  CsvLoad load = loadCsv(scoreFile(
      scoreEvt("NOT", "N1", "LTS", "Ship", 33.5, -118.25, 10, ",Weapon away") +
      scoreEvt("DOP", "D1", "LTS", "Ship", 33.5, -118.25, 10, two + ",12.5,13,x") +
      scoreEvt("CPA", "C1", "LTS", "Ship", 0, -118.25, 10, two + ",850,900,t") +
      scoreEvt("RAD", "R1", "LTS", "Ship", 33.5, -118.25, 10, two + ",45,,47,1000,a,s,i") +
      scoreEvt("ESM", "E1", "LTS", "Ship", 33.5, -118.25, 10, two + ",45,2000,,,a,s,i") +
      scoreEvt("CON", "K1", "LTS", "Ship", 33.5, -118.25, 10, two + ",1,2,3,4,5,6,7") +
      scoreEvt("C/S", "S1", "LTS", "Ship", 33.5, -118.25, 10, two + ",180,12,181,13,5,6,7") +
      scoreEvt("MOT", "M1", "LTS", "Ship", 33.5, -118.25, 10, two + ",1,2,3,4,5,6,7") +
      scoreEvt("FP", "F1", "LTS", "Ship", 33.5, -118.25, 10, ",Point A") +
      scoreEvt("MIN", "X1", "LTS", "Ship", 33.5, -118.25, 10, ",Mine 4")));
  const std::string alpha = "`CSO=Alpha`CSOLAT=33.25`CSOLON=-118.5`CSOALT=100";
  const std::string bravo = "`CSR=Bravo`CSRLAT=33.75`CSRLON=-118`CSRALT=0";
  const std::string ship = "`CSB=Ship`CSBLAT=33.5`CSBLON=-118.25`CSBALT=10";
  EXPECT_TRUE(hasEvent(load, "EVT=NOT`ID=N1`CSO=Ship`CSOLAT=33.5`CSOLON=-118.25`CSOALT=10`NOT=Weapon away"));
  EXPECT_TRUE(hasEvent(load, "EVT=DOP`ID=D1" + alpha + bravo + ship + "`DOP=12.5"));
  // Latitude 0 leaves the position out, not the event.
  EXPECT_TRUE(hasEvent(load, "EVT=CPA`ID=C1" + alpha + bravo + "`CSB=Ship`RNG=850"));
  EXPECT_TRUE(hasEvent(load, "EVT=RAD`ID=R1" + alpha + bravo + "`BRG=45`ACTBRG=47`ACTRNG=1000"));
  EXPECT_TRUE(hasEvent(load, "EVT=ESM`ID=E1" + alpha + bravo + "`DESIG=Ship`BRG=45`RNG=2000"));
  EXPECT_TRUE(hasEvent(load, "EVT=CON`ID=K1" + alpha + bravo + ship));
  EXPECT_TRUE(hasEvent(load, "EVT=C/S`ID=S1" + alpha + bravo + "`CRS=180`SPD=12`ACTCRS=181`ACTSPD=13"));
  EXPECT_TRUE(hasEvent(load, "EVT=MOT`ID=M1" + alpha + bravo));
  EXPECT_TRUE(hasEvent(load, "EVT=FXP`ID=F1`CSO=Point A`LAT=33.5`LON=-118.25`ALT=10"));
  EXPECT_TRUE(hasEvent(load, "EVT=MIN`ID=X1`CSO=Mine 4`CSOLAT=33.5`CSOLON=-118.25`CSOALT=10"));
  EXPECT_EQ(load.events().size(), 10u);
}

TEST(CsvEvents, EveryEventHasItsOwnKeyAtItsTime) {
  CsvLoad load = loadCsv(scoreFile(scoreEvt("NOT", "N1", "LTS", "Ship", 0, 0, 0, ",same") +
                                   scoreEvt("NOT", "N1", "LTS", "Ship", 0, 0, 0, ",same")));
  const GenericDataUD* data = load.scenario->getGenericData(0);
  ASSERT_NE(data, nullptr);
  ASSERT_EQ(data->items().size(), 1u);
  EXPECT_DOUBLE_EQ(data->items().begin()->first, kJan15 + 12 * 3600);
  const auto& items = data->items().begin()->second;
  ASSERT_EQ(items.size(), 2u);
  const std::string first = data->getTag(items.front().second.first);
  const std::string second = data->getTag(items.back().second.first);
  EXPECT_EQ(first.rfind("PluginData_SCOREEvent_", 0), 0u);
  EXPECT_NE(first, second);
}

TEST(CsvEvents, DuplicateFixedPointsLeaveOne) {
  CsvLoad load = loadCsv(scoreFile(scoreEvt("FP", "F1", "LTS", "Ship", 1, 1, 0, ",A") +
                                   scoreEvt("FP", "F1", "LTS", "Ship", 1, 1, 0, ",B") +
                                   scoreEvt("FP", "F2", "LTS", "Ship", 1, 1, 0, ",C")));
  EXPECT_EQ(load.events().size(), 2u);
  EXPECT_NE(load.out.find("FPEvent size =         2"), std::string::npos);
}

TEST(CsvEvents, ShortRecordsAreDroppedWithTheirSize) {
  CsvLoad load = loadCsv(scoreFile(scoreEvt("NOT", "N1", "LTS", "Ship", 0, 0, 0, "") +
                                   scoreEvt("ATK", "A1", "LTS", "Ship", 0, 0, 0, "") +
                                   // an unknown kind is a contact and needs 48 fields
                                   scoreEvt("ZZZ", "Z1", "LTS", "Ship", 0, 0, 0, fields(21, 47)) +
                                   scoreEvt("ZZZ", "Z2", "LTS", "Ship", 0, 0, 0, fields(21, 48)) +
                                   "EVT,2021,1,15\n"));
  EXPECT_NE(load.out.find("AddNOT size = 21"), std::string::npos);
  EXPECT_NE(load.out.find("AddAtk size = 21"), std::string::npos);
  ASSERT_EQ(load.events().size(), 1u);
  EXPECT_EQ(load.events()[0].rfind("EVT=ZZZ`ID=Z2`", 0), 0u);
}

TEST(CsvEvents, AttackXmlIsKeptRawWithQuotesEscaped) {
  const std::string xml =
      ",<atk><stamp>014 1205:30.5</stamp><rpttype>ASWDPY</rpttype>"
      "<item xsi:type=\"ns:tgt\"><lat>33.1</lat><lon>-118.2</lon></item></atk>";
  CsvLoad load = loadCsv(scoreFile(scoreEvt("XML-ATK", "A1", "LTS", "Ship", 0, 0, 0, xml)));
  ASSERT_EQ(load.events().size(), 1u);
  EXPECT_EQ(load.events()[0], "<atk><stamp>014 1205:30.5</stamp><rpttype>ASWDPY</rpttype>"
                              "<item xsi:type=&quot;ns:tgt&quot;><lat>33.1</lat><lon>-118.2</lon></item></atk>");
  EXPECT_EQ(load.generic(0, "").size(), 1u);
  const GenericDataUD* data = load.scenario->getGenericData(0);
  EXPECT_EQ(data->getTag(data->items().begin()->second.front().second.first).rfind("PluginData_SCOREEventRawXML_", 0),
            0u);
}

TEST(CsvEvents, XmlSectionsAreFoundByNameWithOrWithoutAttributes) {
  std::string value;
  const std::string text = "<a><stamp>1 0102:03</stamp><item xsi:type=\"ns:lnch\"><lat>5</lat></item><b id=\"2\">x</b>";
  ASSERT_TRUE(CSVEvt::extractXmlSection_(value, text, "stamp"));
  EXPECT_EQ(value, "1 0102:03");
  EXPECT_DOUBLE_EQ(CSVEvt::convertXMLTime_(value), 86400 + 3600 + 120 + 3);
  ASSERT_TRUE(CSVEvt::extractXmlSection_(value, text, "item xsi:type=\"ns:lnch\""));
  EXPECT_EQ(value, "<lat>5</lat>");
  ASSERT_TRUE(CSVEvt::extractXmlSection_(value, text, "b"));
  EXPECT_EQ(value, "x");
  EXPECT_FALSE(CSVEvt::extractXmlSection_(value, text, "st"));
}

TEST(CsvEvents, PmrfDeploymentIsTextOnly) {
  CsvLoad load = loadCsv(pmrfFile("EVT,2021,1,15,12,0,0,31,x,x,x,x,DEP,Sono 1,S9\n"));
  ASSERT_EQ(load.events().size(), 1u);
  EXPECT_EQ(load.events()[0], "EVT=DEP`ID=S9`CSO=31`CSB=Sono 1`CSR=`DEPTH=0");
  EXPECT_TRUE(load.scenario->platforms().empty());
}

TEST(CsvEvents, EventWithABadDateIsDroppedWithItsLine) {
  std::string bad = scoreEvt("NOT", "N1", "LTS", "Ship", 0, 0, 0, ",text");
  bad.replace(bad.find(",1,15,"), 6, ",0,15,");
  CsvLoad load = loadCsv(scoreFile(bad));
  EXPECT_TRUE(load.events().empty());
  EXPECT_NE(load.issues.find("Line 3 EVT: orvCore::getYearDay, The given month is not valid."), std::string::npos)
      << load.issues;
}

TEST(CsvEvents, EventOutsideTheYearOrWithoutATimeIsDroppedWithItsLine) {
  const std::string dep = fields(21, 30) + ",Laid" + fields(31, 40);
  std::string endless = scoreEvt("DEP", "B1", "SON", "DC1", 33.5, -118.25, 30, dep);
  endless.replace(endless.find(",12,0,0,"), 8, ",nan,0,0,");
  std::string early = scoreEvt("NOT", "N1", "LTS", "Ship", 0, 0, 0, ",early");
  early.replace(early.find(",1,15,12,0,0,"), 13, ",1,1,0,0,-5,");
  // A flag far beyond an int is no reason to drop a record.
  std::string flagged = scoreEvt("NOT", "N2", "LTS", "Ship", 0, 0, 0, ",kept");
  flagged.replace(flagged.find(",mode,1,"), 8, ",mode,1e300,");
  CsvLoad load = loadCsv(scoreFile(endless + early + flagged + scoreEvt("NOT", "N3", "LTS", "Ship", 0, 0, 0, ",on")));
  EXPECT_EQ(load.events(), (std::vector<std::string>{"EVT=NOT`ID=N2`CSO=Ship`NOT=kept", "EVT=NOT`ID=N3`CSO=Ship`NOT=on"}));
  EXPECT_TRUE(load.scenario->platforms().empty());
  EXPECT_NE(load.issues.find("Line 3 EVT: Invalid time value, time is either not finite or < 0"), std::string::npos)
      << load.issues;
  EXPECT_NE(load.issues.find("Line 4 EVT: Invalid time value, time is either not finite or < 0"), std::string::npos);
}

}  // namespace
