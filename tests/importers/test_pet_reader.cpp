// The PET reader: objects by name with their states, the "Extra" table of
// the other columns, velocities, and each fault with its message.

#include <gtest/gtest.h>

#include <cmath>

#include "ImporterTestSupport.h"
#include "datatable/DataTable.h"
#include "importers/PETFile.h"

using importertest::ConsoleCapture;
using importertest::staticCategory;
using importertest::writeFile;

namespace {

constexpr double kDeg = 0.017453292519943295;

struct Loaded {
  ScenarioUD scenario;
  int result = -1;
  std::string printed;  // standard output: the file's layout faults
  std::string errors;   // standard error
};

void load(Loaded& out, const std::string& name, const std::string& text) {
  ConsoleCapture console;
  PETFile reader;
  out.result = reader.ParsePETFile(writeFile(name, text), &out.scenario, 0.0, false, true);
  out.printed = console.info();
  out.errors = console.faults();
}

DataTable* extraOf(const ScenarioUD& scenario, const PlatformUD& platform) {
  DataTable* table = nullptr;
  scenario.dataTables().getTable(platform.UniqueID(), "Extra", table);
  return table;
}

std::string cellText(const DataTable& table, double time, const std::string& column) {
  DataTableRowT row;
  int64_t id = -1;
  if (table.getRow(time, row) != 0 || table.getColumnId(column, id) != 0) return "<none>";
  const DataTableCell* cell = row.cell(id);
  if (cell == nullptr) return "<absent>";
  std::string text;
  cell->getValue(text);
  return text;
}

}  // namespace

TEST(PetObjects, OnePlatformPerNameWithStatesAndExtraTable) {
  Loaded pet;
  load(pet, "objects.pet",
       "STD PET CSV,v2\n"
       "LAT,long,Altitude,DVALTIME,ONAME,Geometry,Speed,Note\n"
       "\n"
       "10,20,100,5,alpha,WGSLLA,12.5,climbing\n"
       "11,21,200,6,bravo,wgslla,7,\n"
       "10.5,20.5,150,15,alpha,WGSLLA,13,level\n");
  ASSERT_EQ(pet.result, 0) << pet.errors;
  EXPECT_EQ(pet.errors, "");
  ASSERT_EQ(pet.scenario.platforms().size(), 2u);
  const PlatformUD& alpha = *pet.scenario.platforms().begin()->second;
  EXPECT_EQ(alpha.Header()->callSign, "alpha");
  EXPECT_EQ(alpha.Header()->iconName, "x");
  EXPECT_EQ(staticCategory(pet.scenario, alpha, "Data Format"), "PET");
  const auto& states = alpha.Motion()->states();
  ASSERT_EQ(states.size(), 2u);
  const MotionStateUD& first = states.at(5.0);
  EXPECT_NEAR(first.lat, 10 * kDeg, 1e-12);
  EXPECT_NEAR(first.lon, 20 * kDeg, 1e-12);
  EXPECT_NEAR(first.alt, 91.439997, 1e-9);  // yards
  EXPECT_NE(states.find(15.0), nullptr);
  // The first row places the scenario.
  EXPECT_NEAR(pet.scenario.converter().referenceLat(), 10 * kDeg, 1e-12);

  DataTable* table = extraOf(pet.scenario, alpha);
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->getColumnNames(), (std::vector<std::string>{"Speed", "Note"}));
  EXPECT_EQ(table->getColumnStorageTypes(), (std::vector<UTILS::VariableType_t>{UTILS::VT_FLOAT64, UTILS::VT_STRING}));
  EXPECT_EQ(table->getNumRows(), 2u);
  EXPECT_EQ(cellText(*table, 5.0, "Speed"), "12.5");
  EXPECT_EQ(cellText(*table, 15.0, "Note"), "level");
  const PlatformUD& bravo = *std::next(pet.scenario.platforms().begin())->second;
  EXPECT_EQ(cellText(*extraOf(pet.scenario, bravo), 6.0, "Note"), "<absent>");
}

TEST(PetObjects, VelocitiesAreEarthCentredAndNewStartsAfresh) {
  Loaded pet;
  load(pet, "velocity.pet",
       "STD PET CSV\n"
       "Lat,Long,Altitude,DVALTIME,oName,Geometry,XVELS15,YVELS15,ZVELS15\n"
       "0,0,0,1,v,WGSLLA,NEW,,\n"
       "0,0,0,2,v,WGSLLA,1,2,3\n");
  ASSERT_EQ(pet.result, 0) << pet.errors;
  const PlatformUD& v = *pet.scenario.platforms().begin()->second;
  // Over latitude 0, longitude 0: X is up, Y east, Z north.
  const MotionStateUD& moving = v.Motion()->states().at(2.0);
  EXPECT_NEAR(moving.velEast, 2 * 0.91439997, 1e-9);
  EXPECT_NEAR(moving.velNorth, 3 * 0.91439997, 1e-9);
  EXPECT_NEAR(moving.velUp, 1 * 0.91439997, 1e-9);
  // No velocity columns go to the table.
  EXPECT_EQ(extraOf(pet.scenario, v)->getNumColumns(), 0u);
}

TEST(PetFaults, EachEndsTheReadWithItsMessage) {
  struct Case {
    const char* text;
    const char* message;
  } cases[] = {
      {"PET CSV\nLat\n", "Error: File format not correct.  Expecting first line to contain \"STD PET CSV\"\n"},
      {"STD PET CSV\nLat,Long,Altitude,DVALTIME,oName\n1,1,1,1,a\n", "Error: Missing required Geometry column\n"},
      {"STD PET CSV\nLong,Altitude,oName\n", "Error: Missing required Lat column\n"},
      {"STD PET CSV\nLat,Long,Altitude,oName,Geometry\n", "Error: Missing required DVALTIME column\n"},
      {"STD PET CSV\n", "Error: Missing required Lat column\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    Loaded pet;
    load(pet, "fault.pet", c.text);
    EXPECT_NE(pet.result, 0);
    EXPECT_EQ(pet.printed, c.message);
    EXPECT_TRUE(pet.scenario.platforms().empty());
  }
  // A row of another geometry stops the read there; earlier rows stay.
  Loaded pet;
  load(pet, "geometry.pet",
       "STD PET CSV\nLat,Long,Altitude,DVALTIME,oName,Geometry\n"
       "1,1,1,1,a,WGSLLA\n1,1,1,2,a,ECEF\n1,1,1,3,a,WGSLLA\n");
  EXPECT_NE(pet.result, 0);
  EXPECT_EQ(pet.printed, "Error: Currently only support WGSLLA\n");
  ASSERT_EQ(pet.scenario.platforms().size(), 1u);
  EXPECT_EQ(pet.scenario.platforms().begin()->second->Motion()->states().size(), 1u);
}

TEST(PetFaults, ARowTheDocumentRefusesIsPassedOver) {
  Loaded pet;
  load(pet, "refused.pet",
       "STD PET CSV\n"
       "Lat,Long,Altitude,DVALTIME,oName,Geometry,Note\n"
       "1,1,1,1,a,WGSLLA,x\n1,1,1,-5,a,WGSLLA,x\n1,1,1,nan,a,WGSLLA,x\n1,1,1,3,a,WGSLLA,x\n"
       "1,1,1,-5,ghost,WGSLLA,x\n");
  EXPECT_EQ(pet.result, 0) << pet.errors;
  EXPECT_NE(pet.errors.find(" for a\n"), std::string::npos) << pet.errors;
  ASSERT_EQ(pet.scenario.platforms().size(), 1u);  // "ghost" had no state at all
  const PlatformUD& a = *pet.scenario.platforms().begin()->second;
  EXPECT_EQ(a.Motion()->states().size(), 2u);
  EXPECT_EQ(extraOf(pet.scenario, a)->getNumRows(), 2u);  // refused rows add no table row
}
