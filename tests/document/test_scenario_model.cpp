// The document's objects and their ownership: adding by id, duplicates,
// deleting a platform with what it hosts, on/off and colour commands, target
// links, generic and category data, lasers and projectors, the validity
// check, and the error table.
#include <gtest/gtest.h>

#include <sstream>

#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"

namespace {

class Model : public ::testing::Test {
 protected:
  PlatformUD* addPlatform(uint64_t id, const std::string& callsign = "") {
    auto* p = new PlatformUD(&scenario, std::make_unique<PlatformHeaderUD>());
    p->SetUniqueID(id);
    p->SetDesc(callsign);
    EXPECT_EQ(p->AddToScenario(&scenario), 0);
    return p;
  }
  BeamUD* addBeam(PlatformUD* host, uint64_t id, int type = BEAM_ABSOLUTE) {
    auto header = std::make_unique<BeamHeaderUD>();
    header->uniqueID = id;
    header->beamType = type;
    auto* b = new BeamUD(&scenario, host, std::move(header));
    EXPECT_EQ(b->AddToScenario(&scenario), 0);
    return b;
  }
  GateUD* addGate(BeamUD* host, uint64_t id) {
    auto header = std::make_unique<GateHeaderUD>();
    header->uniqueID = id;
    auto* g = new GateUD(&scenario, host, std::move(header));
    EXPECT_EQ(g->AddToScenario(&scenario), 0);
    return g;
  }
  ScenarioUD scenario;
};

TEST_F(Model, DuplicateIdsAnswerTheirKindsCode) {
  PlatformUD* first = addPlatform(1, "first");
  auto second = std::make_unique<PlatformUD>(&scenario, std::make_unique<PlatformHeaderUD>());
  second->SetUniqueID(1);
  EXPECT_EQ(second->AddToScenario(&scenario), UD_DUP_PLATFORM);
  EXPECT_EQ(scenario.findPlatform(1), first);

  addBeam(first, 2);
  auto header = std::make_unique<BeamHeaderUD>();
  header->uniqueID = 2;
  auto beam = std::make_unique<BeamUD>(&scenario, first, std::move(header));
  EXPECT_EQ(beam->AddToScenario(&scenario), UD_DUP_BEAM);
  EXPECT_EQ(first->beams().size(), 1u);
}

TEST_F(Model, DeletingAPlatformTakesItsBeamsAndGates) {
  PlatformUD* p = addPlatform(1);
  BeamUD* b = addBeam(p, 2);
  addGate(b, 3);
  ASSERT_EQ(scenario.addLaser(1, 4, "laser"), 0);
  scenario.AddDataTable(2, "table");
  EXPECT_EQ(scenario.findObject(3)->type(), OBJECT_GATE);
  EXPECT_TRUE(scenario.deletePlatform(1));
  EXPECT_EQ(scenario.findPlatform(1), nullptr);
  EXPECT_EQ(scenario.findBeam(2), nullptr);
  EXPECT_EQ(scenario.findGate(3), nullptr);
  EXPECT_EQ(scenario.findLaser(4), nullptr);
  EXPECT_EQ(scenario.laserManager().getNumLasers(), 0u);
  EXPECT_EQ(scenario.dataTables().getNumberOfDataTables(), 0u);
}

TEST_F(Model, OnOffAndColourAnswerTheLastCommandAtOrBefore) {
  PlatformUD* p = addPlatform(1);
  bool on = true;
  EXPECT_FALSE(p->ActiveAtTime(5, &on));
  EXPECT_FALSE(on);
  p->AddOnOffCmd(10, true);
  p->AddOnOffCmd(20, false);
  p->AddOnOffCmd(20, true);  // replaces
  EXPECT_FALSE(p->ActiveAtTime(5, &on));
  EXPECT_TRUE(p->ActiveAtTime(15, &on));
  EXPECT_TRUE(on);
  EXPECT_TRUE(p->ActiveAtTime(25, &on));
  EXPECT_TRUE(on);
  p->AddColorCmd(1, 0xff0000ff);
  uint32_t color = 0;
  EXPECT_TRUE(p->ColorAtTime(3, &color));
  EXPECT_EQ(color, 0xff0000ffu);
}

TEST_F(Model, TargetsGivenBeforeTheirPlatformResolveLater) {
  PlatformUD* host = addPlatform(1);
  BeamUD* beam = addBeam(host, 2, BEAM_TARGET);
  beam->AddTargetCmd(5, uint64_t{7});
  beam->AddTargetCmd(9, std::string("Bravo"));
  EXPECT_EQ(beam->AddState(5, 1, 0, 0), UD_NO_MOTION);
  addPlatform(7, "Alpha");
  PlatformUD* bravo = addPlatform(8, "Bravo");
  std::ostringstream errors;
  std::ostream* previous = setErrorStreamUD(&errors);
  EXPECT_EQ(scenario.makeRefLinks(), 0);
  setErrorStreamUD(previous);
  EXPECT_EQ(beam->TargetAtTime(6)->target(), scenario.findPlatform(7));
  EXPECT_EQ(beam->TargetAtTime(10)->target(), bravo);
  EXPECT_EQ(beam->TargetAtTime(1), nullptr);
  EXPECT_TRUE(errors.str().empty());

  beam->AddTargetCmd(20, uint64_t{99});
  previous = setErrorStreamUD(&errors);
  EXPECT_EQ(scenario.makeRefLinks(), 1);
  setErrorStreamUD(previous);
  EXPECT_EQ(errors.str(), "Warning: Problem detected when resolving IDs or callsigns.  See console.\n");
}

TEST_F(Model, BeamAndGateStatesAreChecked) {
  BeamUD* beam = addBeam(addPlatform(1), 2);
  EXPECT_EQ(beam->AddState(0, -1, 0, 0), UD_BAD_BEAM_RANGE);
  EXPECT_EQ(beam->AddState(0, 1, 7, 0), UD_BAD_BEAM_AZIMUTH);
  EXPECT_EQ(beam->AddState(0, 1, 0, 2), UD_BAD_BEAM_ELEVATION);
  EXPECT_EQ(beam->AddState(0, 1, 0, 0), UD_NO_ERROR);
  GateUD* gate = addGate(beam, 3);
  EXPECT_EQ(gate->AddState(GateStateUD(0, 0, 0, 7, 0, 0, 0, 0)), UD_BAD_GATE_WIDTH);
  EXPECT_EQ(gate->AddState(GateStateUD(0, 0, 0, 0, 0, 4e38, 0, 0)), UD_BAD_GATE_MIN_RANGE);
  EXPECT_EQ(gate->AddState(GateStateUD(0, 0, 0, 0, 0, 0, 0, 0)), UD_NO_ERROR);
}

TEST_F(Model, GenericAndCategoryDataOfObjects) {
  PlatformUD* p = addPlatform(1);
  EXPECT_EQ(scenario.addCategoryData(1, 10, "Affinity", "Friendly"), 0);
  EXPECT_EQ(scenario.addCategoryData(5, 10, "Affinity", "Friendly"), UD_UNKNOWN_OBJECT_ID);
  ASSERT_EQ(p->categoryData().size(), 1u);
  const auto& entry = *p->categoryData().begin();
  EXPECT_EQ(scenario.categoryManager().getCategoryNameString(entry.first), "Affinity");
  EXPECT_EQ(scenario.categoryManager().getCategoryValueString(entry.first, entry.second.at(10)), "Friendly");

  EXPECT_EQ(scenario.addGenericData(1, "Tag", "v", 3, 5), 0);
  EXPECT_EQ(scenario.addGenericData(1, "Tag", "v", 3, 5), UD_GENERIC_EXISTS);
  EXPECT_EQ(scenario.addGenericData(1, "", "v", 3), UD_BAD_GENERIC_VALUES);
  EXPECT_EQ(p->EnterGenericData("Other", "w", 4), 0);
  const GenericDataUD* data = scenario.getGenericData(1);
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(data->items().size(), 2u);
  EXPECT_GE(data->getTagId("Tag"), 2000u);
  EXPECT_EQ(data->getTagId("ORVIDE_Callsign"), 3u);
}

TEST(GenericData, ExpiryAndClearDecideWhatIsCurrent) {
  GenericDataObject data(1);
  EXPECT_EQ(data.addState("T", "a", 0, 5), 0);
  EXPECT_EQ(data.addState("U", "b", 0, -1), 0);
  // Only expiring items count as repeats; a never-expiring one is kept again.
  EXPECT_EQ(data.addState("T", "a", 0, 7), 3);
  EXPECT_EQ(data.addState("U", "b", 0, -1), 0);
  EXPECT_EQ(data.items().at(0).size(), 3u);
  EXPECT_EQ(data.addState("U", "ClearGenData", 10, -1), 0);
  EXPECT_EQ(data.addState("\"\"", "x", 0, -1), 1);
  EXPECT_EQ(data.addState("T", "x", -2, -1), 2);
  auto now = data.updateToTime(3, false);
  EXPECT_EQ(now.size(), 2u);
  now = data.updateToTime(7, false);
  EXPECT_EQ(now.count(data.getTagId("T")), 0u);
  now = data.updateToTime(11, false);
  EXPECT_TRUE(now.empty());
  EXPECT_TRUE(data.hasClear());
  EXPECT_FALSE(data.allNeverExpire());
}

TEST_F(Model, LasersKeepTheirDataInATable) {
  addPlatform(1);
  LaserUD* laser = nullptr;
  ASSERT_EQ(scenario.addLaser(1, 4, "L", &laser), 0);
  EXPECT_EQ(scenario.addLaser(1, 4, "again"), UD_LASER_ERROR);
  EXPECT_EQ(scenario.addLaser(9, 5, "no host"), UD_UNKNOWN_OBJECT_ID);
  laser->AddOnOffCmd(10, true);
  laser->laser()->addOriDataPoint(10, 0.1, 0.2, 0.3);
  laser->laser()->addWidthDataPoint(12, 3);
  bool on = false;
  EXPECT_FALSE(laser->ActiveAtTime(5, &on));
  EXPECT_TRUE(laser->ActiveAtTime(11, &on));
  EXPECT_TRUE(on);
  EXPECT_EQ(laser->laser()->table().getNumRows(), 2u);
  EXPECT_EQ(scenario.laserManager().findLaserId(1, "L"), 4u);
}

TEST_F(Model, ValidityNeedsTimesAndOrigin) {
  std::ostringstream errors;
  std::ostream* previous = setErrorStreamUD(&errors);
  EXPECT_FALSE(scenario.isValid());
  EXPECT_EQ(errors.str(), "\n\nERROR  Scenario Start time has not been set.\n\n");
  PlatformUD* p = addPlatform(1);
  const double pos[3] = {0, 0, 0};
  p->AddState(10, pos, nullptr, nullptr);
  p->AddState(20, pos, nullptr, nullptr);
  errors.str("");
  EXPECT_FALSE(scenario.isValid());
  EXPECT_EQ(errors.str(), "\n\nERROR  Scenario Reference origin has not been set.\n\n");
  scenario.setLatLonAlt(0.5, 0.5, 0);
  EXPECT_TRUE(scenario.isValid());
  setErrorStreamUD(previous);
  EXPECT_EQ(scenario.startTime(), 10);
  EXPECT_EQ(scenario.endTime(), 20);
}

TEST_F(Model, SettingsRefuseBadValues) {
  EXPECT_EQ(scenario.setLatLonAlt(NAN, 0, 0), UD_BAD_SCEN_REFLLA);
  EXPECT_EQ(scenario.setWindAngle(7), UD_BAD_WIND_ANGLE);
  EXPECT_EQ(scenario.setWindSpeed(4e38), UD_BAD_WIND_SPEED);
  EXPECT_EQ(scenario.setEciReferenceTime(90000), UD_BAD_ECI_TIME);
  EXPECT_EQ(scenario.setVersion(25), UD_BAD_VERSION);
  EXPECT_EQ(scenario.addExternalFile(EFT_GOG_FILE, "a.gog"), 0);
  EXPECT_EQ(scenario.addExternalFile(EFT_GOG_FILE, "a.gog"), UD_DUP_FILE);
}

TEST(ErrorCodes, TextsAndFatality) {
  EXPECT_FALSE(udIsFatalError(74));
  EXPECT_TRUE(udIsFatalError(75));
  EXPECT_EQ(udErrorString(52), "Invalid or unknown keyword");
  EXPECT_EQ(udErrorString(10), udErrorString(73));
  EXPECT_EQ(udErrorString(84), "Unknown General Error");
  EXPECT_EQ(udErrorString(81), "Invalid scenario version - only versions 2 through 24 are currently supported");
  EXPECT_EQ(udErrorString(3).rfind("Invalid Input: Platform Position Data\nEither not finite or value > ", 0), 0u);
  EXPECT_EQ(udErrorHTMLHelpSection(33), "#Gate_Data");
  EXPECT_EQ(udErrorHTMLHelpSection(97), "#Custom_Rendering_Init");
  EXPECT_EQ(udErrorHTMLHelpSection(1), "");
}

}  // namespace
