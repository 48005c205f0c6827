// Legends and positions: platforms, icons, call signs, categories, states.

#include <gtest/gtest.h>

#include <cmath>

#include "importers/csv/CSVPos.h"
#include "importers/csv/ScoreMsgId.h"
#include "support_csv.h"

namespace {

constexpr double kDeg = 0.017453292519943295;
constexpr double kJan15 = 14 * 86400.0;

const MotionStateUD& firstState(const PlatformUD* platform) { return platform->Motion()->states().front(); }

TEST(CsvLegend, ScoreLegendMakesAPlatformWithIconCategoriesAndOriginalId) {
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 101, "Viper 1", "F18", 1) + scoreLeg("RER", 7, "Bandit", "Sub", 2) +
                                   scoreLeg("ETR", 9, "Range", "Land Site", 4)));
  ASSERT_EQ(load.result, 0);
  PlatformUD* viper = load.platform("Viper 1");
  ASSERT_NE(viper, nullptr);
  EXPECT_EQ(viper->Header()->iconName, "F18V_F.png");
  EXPECT_EQ(load.category(viper, "Platform Type"), "Aircraft");
  EXPECT_EQ(load.category(viper, "Affinity"), "Friendly");
  EXPECT_EQ(load.category(viper, "Source"), "LTS");
  EXPECT_EQ(load.category(viper, "Data Format"), "SCORE CSV");
  EXPECT_EQ(viper->GetOriginalID(), SCORE::toOriginalID(SCORE::LTS, 101));
  EXPECT_EQ(load.generic(viper->UniqueID(), "LEG"), (std::vector<std::string>{"LTS 101 Viper 1 F18 x 1 13 14"}));

  // "RER" shows as "IFF" but keys and original ids keep the alias's source.
  PlatformUD* bandit = load.platform("Bandit");
  ASSERT_NE(bandit, nullptr);
  EXPECT_EQ(bandit->Header()->iconName, "SubV_H.png");
  EXPECT_EQ(load.category(bandit, "Source"), "IFF");
  EXPECT_EQ(load.category(bandit, "Platform Type"), "Submarine");
  EXPECT_EQ(bandit->GetOriginalID(), SCORE::toOriginalID(SCORE::IFF, 7));

  PlatformUD* site = load.platform("Range");
  ASSERT_NE(site, nullptr);
  EXPECT_EQ(site->Header()->iconName, "LandSiteV_U.png");
  EXPECT_EQ(load.category(site, "Affinity"), "Unknown");
}

TEST(CsvLegend, VehicleNamesMapByTheFirstRuleThatMatches) {
  int type = -1;
  EXPECT_EQ(CSVPos::GetVehicleType("mk39", &type), "Mk30V_N.png");
  EXPECT_EQ(type, 12);
  EXPECT_EQ(CSVPos::GetVehicleType("TORP", &type), "Mk48V_N.png");
  EXPECT_EQ(CSVPos::GetVehicleType("BQM-74", &type), "MissileV_N.png");
  EXPECT_EQ(type, 6);
  // The missile test is case-sensitive, the others are not.
  EXPECT_EQ(CSVPos::GetVehicleType("missile", &type), "plus.png");
  EXPECT_EQ(type, 9);
  EXPECT_EQ(CSVPos::GetVehicleType("plane", &type), "IFFplane.png");
  EXPECT_EQ(type, 3);
  EXPECT_EQ(CSVPos::GetVehicleType("sono", &type), "SonoV.png");
  EXPECT_EQ(type, 8);
}

TEST(CsvLegend, IconsWithoutTheNeutralSuffixAreNeverColoured) {
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 1, "Hornet", "Plane", 2) + scoreLeg("LTS", 2, "Buoy", "Marker", 1)));
  EXPECT_EQ(load.platform("Hornet")->Header()->iconName, "IFFplane.png");
  EXPECT_EQ(load.platform("Buoy")->Header()->iconName, "plus.png");
}

TEST(CsvLegend, SecondLegendRefreshesCategoriesOnly) {
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 5, "First", "Ship", 1) + scoreLeg("LTS", 5, "Second", "Sub", 2)));
  ASSERT_EQ(load.scenario->platforms().size(), 1u);
  PlatformUD* platform = load.platform("First");
  ASSERT_NE(platform, nullptr);
  EXPECT_EQ(platform->Header()->iconName, "ShipV_F.png");
  EXPECT_EQ(load.category(platform, "Platform Type"), "Submarine");
  EXPECT_EQ(load.category(platform, "Affinity"), "Hostile");
  EXPECT_NE(load.out.find("Already seen this LEG, src= LTS, tid= 5, updating ..."), std::string::npos);
  EXPECT_EQ(load.generic(platform->UniqueID(), "LEG").size(), 2u);
}

TEST(CsvLegend, PmrfLegendIsNeutralAndMeetsOnlyPmrfSourcedPositions) {
  CsvLoad load = loadCsv(pmrfFile("LEG,12,Kingfish,Ship,x,PMRF\nLEG,13,Other,Sub,x,RADAR\n"
                                  "POS,2021,1,15,10,0,0,12,22.0,-159.5,30,90,10\n"
                                  "POS,2021,1,15,10,0,0,13,22.0,-159.5,30,90,10\n"));
  ASSERT_EQ(load.result, 0);
  PlatformUD* ship = load.platform("Kingfish");
  ASSERT_NE(ship, nullptr);
  EXPECT_EQ(ship->Header()->iconName, "ShipV_N.png");
  EXPECT_EQ(load.category(ship, "Affinity"), "Neutral");
  EXPECT_EQ(load.category(ship, "Data Format"), "PMRF CSV");
  EXPECT_EQ(load.category(ship, "Source"), "");
  ASSERT_EQ(ship->Motion()->Size(), 1u);
  const MotionStateUD& s = firstState(ship);
  EXPECT_NEAR(s.alt, 30 * 0.30479999, 1e-9);
  EXPECT_NEAR(s.yaw, 90 * kDeg, 1e-12);
  EXPECT_EQ(load.platform("Other")->Motion()->Size(), 0u);
  EXPECT_NE(load.out.find("No LEG id: Source: PMRF  TID: 13  Squawk: 0 - Skipping data."), std::string::npos);
}

TEST(CsvPosition, ScorePositionInRadiansMetresAndCalendarTime) {
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 1, "Ship", "Ship", 3) +
                                   scorePos("LTS", 1, "10:30:15.5", 33.1, -118.5, 1000, 270, 20)));
  PlatformUD* ship = load.platform("Ship");
  ASSERT_EQ(ship->Motion()->Size(), 1u);
  const MotionStateUD& s = firstState(ship);
  // 15 January is day 14 of the year.
  EXPECT_DOUBLE_EQ(s.time, kJan15 + 10 * 3600 + 30 * 60 + 15.5);
  EXPECT_NEAR(s.lat, 33.1 * kDeg, 1e-12);
  EXPECT_NEAR(s.lon, -118.5 * kDeg, 1e-12);
  EXPECT_NEAR(s.alt, 1000 * 0.30479999, 1e-9);
  EXPECT_NEAR(s.yaw, 270 * kDeg, 1e-12);
  EXPECT_EQ(s.pitch, 0.0);
  EXPECT_NEAR(s.Speed(), 20 * 0.51444444, 1e-6);
  EXPECT_EQ(load.scenario->referenceYear(), 2021);
}

TEST(CsvPosition, AnglesWrapIntoTheirRanges) {
  CsvLoad load = loadCsv(scoreFile(scorePos("LTS", 1, "10:00:00", 33, 190, 0, -90, 0)));
  const MotionStateUD& s = firstState(load.scenario->platforms().begin()->second.get());
  EXPECT_NEAR(s.lon, -170 * kDeg, 1e-12);
  EXPECT_NEAR(s.yaw, 270 * kDeg, 1e-12);
}

TEST(CsvPosition, E3DOrientationUnlessAllThreeAreTheTextZero) {
  CsvLoad load = loadCsv(scoreFile(scorePos("LTS", 1, "10:00:00", 33, -118, 0, 45, 0, 0, ",e3d,10,5,-3") +
                                   scorePos("LTS", 2, "10:00:00", 33, -118, 0, 45, 0, 0, ",E3D,0,0,0") +
                                   scorePos("LTS", 3, "10:00:00", 33, -118, 0, 45, 0, 0, ",E3D,0.0,0,0")));
  const auto& platforms = load.scenario->platforms();
  ASSERT_EQ(platforms.size(), 3u);
  auto it = platforms.begin();
  const MotionStateUD& e3d = firstState(it->second.get());
  EXPECT_NEAR(e3d.yaw, 10 * kDeg, 1e-12);
  EXPECT_NEAR(e3d.pitch, 5 * kDeg, 1e-12);
  EXPECT_NEAR(e3d.roll, -3 * kDeg, 1e-12);
  const MotionStateUD& zeros = firstState((++it)->second.get());
  EXPECT_NEAR(zeros.yaw, 45 * kDeg, 1e-12);
  const MotionStateUD& decimal = firstState((++it)->second.get());
  EXPECT_EQ(decimal.yaw, 0.0);
}

TEST(CsvPosition, PositionWithoutLegendMakesADefaultTrack) {
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 4, "Legend", "Ship", 1) +
                                   scorePos("LTS", 4, "10:00:00", 33, -118, 0, 0, 0, 1234) +
                                   scorePos("IFF", 4, "10:00:00", 33, -118, 0, 0, 0, 1234) +
                                   scorePos("STS", 77, "10:00:00", 33, -118, 0, 0, 0, 0, ",SON,DIFAR")));
  // The legend's key has squawk 0; a squawked position is another track.
  EXPECT_EQ(load.platform("Legend")->Motion()->Size(), 0u);
  PlatformUD* squawked = load.platform("1234 0004 0000");
  ASSERT_NE(squawked, nullptr);
  EXPECT_EQ(squawked->Header()->iconName, "UnknownV_U.png");
  EXPECT_EQ(load.category(squawked, "Affinity"), "Unknown");
  EXPECT_EQ(load.category(squawked, "Platform Type"), "Unknown");
  EXPECT_EQ(load.category(squawked, "Data Format"), "");
  EXPECT_NE(load.platform("1234 0004 0002"), nullptr);
  EXPECT_NE(load.out.find("No LEG id: Source: LTS  TID: 4  Squawk: 1234 - Creating a default!"), std::string::npos);

  PlatformUD* buoy = load.platform("DIFAR77");
  ASSERT_NE(buoy, nullptr);
  EXPECT_EQ(buoy->Header()->iconName, "SonoV.png");
  EXPECT_EQ(load.category(buoy, "Platform Type"), "Buoy");
  EXPECT_EQ(load.category(buoy, "Source"), "STS");
  EXPECT_EQ(buoy->GetOriginalID(), SCORE::toOriginalID(SCORE::SON, 77));
}

TEST(CsvPosition, BadLinesAreDroppedAndTheRestLoads) {
  CsvLoad load = loadCsv(scoreFile(scoreLeg("LTS", 1, "Ship", "Ship", 3) + "POS,2021,13,1,0,0,0,LTS,1\n" +
                                   "POS,2021,13,1,0,0,0,LTS,1,33,-118,0,0,0,0,0,16,17,18,19,20,21,0\n" +
                                   "POS,2021,2,30,0,0,0,LTS,1,33,-118,0,0,0,0,0,16,17,18,19,20,21,0\n" +
                                   "POS,2021,1,1,0,0,-1,LTS,1,33,-118,0,0,0,0,0,16,17,18,19,20,21,0\n" +
                                   scorePos("LTS", 1, "11:00:00", 33, -118, 0, 0, 0)));
  EXPECT_EQ(load.platform("Ship")->Motion()->Size(), 1u);
  EXPECT_NE(load.issues.find("Line 5 POS: orvCore::getYearDay, The given month is not valid."), std::string::npos)
      << load.issues;
  EXPECT_NE(load.issues.find("Line 6 POS: orvCore::getYearDay, The given month day is not valid."),
            std::string::npos);
  // A second before the year would otherwise make the track static.
  EXPECT_NE(load.issues.find("Line 7 POS: The time lies before the start of the year."), std::string::npos);
  EXPECT_FALSE(load.platform("Ship")->isStatic());
}

TEST(CsvLegend, LegendWithABadDateStillNamesItsTrack) {
  // The date only times the legend's text; the track keeps its name, icon,
  // categories and original id, and its positions find it.
  std::string leg = scoreLeg("LTS", 3, "Hornet", "F18", 2);
  leg.replace(leg.find(",1,15,"), 6, ",13,15,");
  CsvLoad load = loadCsv(scoreFile(leg + scorePos("LTS", 3, "10:00:00", 33, -118, 0, 0, 0)));
  PlatformUD* hornet = load.platform("Hornet");
  ASSERT_NE(hornet, nullptr);
  EXPECT_EQ(load.scenario->platforms().size(), 1u);
  EXPECT_EQ(hornet->Header()->iconName, "F18V_H.png");
  EXPECT_EQ(load.category(hornet, "Data Format"), "SCORE CSV");
  EXPECT_EQ(hornet->GetOriginalID(), SCORE::toOriginalID(SCORE::LTS, 3));
  EXPECT_EQ(hornet->Motion()->Size(), 1u);
  EXPECT_TRUE(load.generic(hornet->UniqueID(), "LEG").empty());
  EXPECT_NE(load.issues.find("Line 3 LEG: orvCore::getYearDay, The given month is not valid."), std::string::npos)
      << load.issues;
}

TEST(CsvPosition, LastYearInTheFileBecomesTheReferenceYear) {
  std::string later = scorePos("LTS", 1, "10:00:00", 33, -118, 0, 0, 0);
  later.replace(later.find("2021"), 4, "2022");
  CsvLoad load = loadCsv(scoreFile(scorePos("LTS", 1, "09:00:00", 33, -118, 0, 0, 0) + later));
  EXPECT_EQ(load.scenario->referenceYear(), 2022);
}

TEST(CsvPosition, XyzColumnsGiveThePositionFromTheOrigin) {
  CsvLoad load = loadCsv(scoreFile(scorePos("LTS", 1, "10:00:00", 0, 0, 500, 0, 0), "ORG,33.026669,-118.578636,0,0\n"),
                         1);
  const MotionStateUD& s = firstState(load.scenario->platforms().begin()->second.get());
  // 100 yards east and 200 north of the origin; altitude stays the Z column.
  EXPECT_NEAR(s.lat, 33.026669 * kDeg + 200 * 0.91439997 / 6371000.0, 2e-7);
  EXPECT_GT(s.lon, -118.578636 * kDeg);
  EXPECT_NEAR(s.alt, 500 * 0.30479999, 1e-9);

  // Without an ORG line the columns are measured from the range's origin.
  CsvLoad noOrg = loadCsv(scoreFile(scorePos("LTS", 1, "10:00:00", 0, 0, 500, 0, 0)), 1);
  const MotionStateUD& same = firstState(noOrg.scenario->platforms().begin()->second.get());
  EXPECT_DOUBLE_EQ(same.lat, s.lat);
  EXPECT_DOUBLE_EQ(same.lon, s.lon);
  EXPECT_FALSE(noOrg.scenario->hasReferenceOrigin());
}

}  // namespace
