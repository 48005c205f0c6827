// Data addressed to entities by number: category data, generic data in both
// forms, events, original ids, and the waiting for entities not yet created.

#include "asi/LliResolver.h"
#include "asi/ScenarioDataCommands.h"
#include "asi/host/ScenarioDataCommands.h"
#include "test_scenario_cmd_support.h"

using namespace ScnTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class CategoryDataTest : public ScnFixture {};
class GenericDataTest : public ScnFixture {};
class GenericDataV6Test : public ScnFixture {};
class EventDataTest : public ScnFixture {};
class OriginalIdTest : public ScnFixture {};
class ProjectorDataTest : public ScnFixture {
 protected:
  // Platform 1 in the host with projector 7 on it, as the projector
  // commands would leave them.
  void makeProjector(int version) {
    auto provider = makeProvider(version);
    declarePlatform(1, "ship");
    run(AsiTest::TestData(provider), 2, {"TestData", "1", "0"});
    AsiInterface::Projector* projector = provider->createProjector("lamp", 7, 1);
    ASSERT_EQ(0, provider->addProjector(7, projector));
    PIData::PIProjectorHeader header;
    header.name = "lamp";
    projector->setUniqueId(PIData::createProjector(provider->getEntity(1)->uniqueId(), header));
    projectorId_ = projector->uniqueId();
  }
  uint64_t projectorId_ = 0;
};

bool sameRecord(const GenericRecord& r, double time, double expiration, const std::string& tag,
                const std::string& value) {
  return r.time == time && r.expiration == expiration && r.tag == tag && r.value == value;
}

MATCHER_P4(IsGeneric, time, expiration, tag, value, "") { return sameRecord(arg, time, expiration, tag, value); }
MATCHER_P3(IsCategory, time, name, value, "") { return arg.time == time && arg.name == name && arg.value == value; }

}  // namespace

// --- category data ---------------------------------------------------------------------

TEST_F(CategoryDataTest, ValuesReachTheEntityOnceItExistsAndTheScenarioAtOnce) {
  ASSERT_EQ(0, runFile(header() + "CategoryData 0 -1 Exercise Alpha\nTestID 1 ship\n"
                       "CategoryData 1 -1 Affinity Friendly\nTestData 1 0\nCategoryData 1 10 Status \"On station\"\n"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(categories(0), ElementsAre(IsCategory(-1.0, "Exercise", "Alpha")));
  EXPECT_THAT(categories(hostId(1)),
              ElementsAre(IsCategory(-1.0, "Affinity", "Friendly"), IsCategory(10.0, "Status", "On station")));
}

TEST_F(CategoryDataTest, BadLinesAreReported) {
  EXPECT_EQ(2, runFile(header() + ship() + "CategoryData one 0 a b\nCategoryData 1 -2 a b\nCategoryData 1 0 a\n"
                       "CategoryData 9 0 a b\n"));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 6 CategoryData: Invalid ID", "Line 7 CategoryData: Invalid time",
                          "Line 8 CategoryData: Expecting 4 arguments", "Line 9 CategoryData: Missing host entity"));
  EXPECT_THAT(severities(), ElementsAre(3, 2, 3, 2));
  EXPECT_THAT(categories(hostId(1)), IsEmpty());
}

TEST_F(CategoryDataTest, AMergedEntityGetsTimedValuesButNoStaticOnesAgain) {
  AsiInterface::LliResolver resolver("feed");
  ASSERT_EQ(0, runFile(header() + ship(), false, &resolver));
  const uint64_t ship = hostId(1);
  // The second file of the feed: platform 1 merges with the host's.
  runFile(header() + "TestID 1 ship\nTestData 1 5\nCategoryData 1 -1 Affinity Hostile\nCategoryData 1 20 Status Gone\n",
          true, &resolver);
  EXPECT_EQ(ship, hostId(1));
  EXPECT_THAT(categories(ship), ElementsAre(IsCategory(20.0, "Status", "Gone")));
}

// --- generic data, version 7 on ---------------------------------------------------------------

TEST_F(GenericDataTest, PointsReachTheEntityWithTheirExpireTimes) {
  ASSERT_EQ(0, runFile(header() + ship() + "GenericData 1 ORVIDE_Callsign Bravo 10 5\nGenericData 1 note \"a b\" 12\n"
                       "GenericData 1 note c 14 0\nGenericData 0 ClearGenData x 3\n"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(generic(hostId(1)), ElementsAre(IsGeneric(10.0, 5.0, "ORVIDE_Callsign", "Bravo"),
                                              IsGeneric(12.0, -1.0, "note", "a b"), IsGeneric(14.0, 0.0, "note", "c")));
  EXPECT_THAT(generic(0), ElementsAre(IsGeneric(3.0, -1.0, "ClearGenData", "x")));
}

TEST_F(GenericDataTest, BadLinesAreReported) {
  EXPECT_EQ(2, runFile(header() + ship() + "GenericData 1 a b\nGenericData 1 a b 0 1 2\nGenericData x a b 0\n"
                       "GenericData 1 a b 0 soon\nGenericData 1 a b -3\nGenericData 1 a entityid=x 0\n"));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 6 GenericData: Expecting 4 to 5 arguments",
                          "Line 7 GenericData: Expecting 4 to 5 arguments", "Line 8 GenericData: Invalid ID",
                          "Line 9 GenericData: Invalid expire time", "Line 10 GenericData: Invalid time",
                          "Line 11 GenericData: Invalid 'entityid' key in data string"));
  EXPECT_THAT(severities(), ElementsAre(2, 2, 3, 3, 2, 3));
  EXPECT_THAT(generic(hostId(1)), IsEmpty());
}

TEST_F(GenericDataTest, AnimatedLineWithEntityIsDeprecatedFromVersion8) {
  const std::string lines = "GenericData 1 ORVIDE_AnimatedLine \"entity=2\" 0\nGenericData 1 animatedline7 v 1\n";
  ASSERT_EQ(0, runFile(header(7) + ship() + lines));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 GenericData: Deprecated Generic Data Command"));
  EXPECT_THAT(generic(hostId(1)), ElementsAre(IsGeneric(0.0, -1.0, "ORVIDE_AnimatedLine", "entity=2")));

  ASSERT_EQ(0, runFile(header(8) + ship() + lines));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 6 GenericData: Deprecated Generic Data Command",
                                             "Line 7 GenericData: Deprecated Generic Data Command"));
  EXPECT_THAT(generic(hostId(1)), IsEmpty());
}

TEST_F(GenericDataTest, TheDeprecatedTagRuleByVersion) {
  using AsiInterface::checkDeprecatedTagData;
  EXPECT_FALSE(checkDeprecatedTagData("AnimatedLine", "", 6));
  EXPECT_TRUE(checkDeprecatedTagData("ANIMATEDLINE_x", "", 7));
  EXPECT_FALSE(checkDeprecatedTagData("orvide_animatedline", "entity=2", 7));
  EXPECT_TRUE(checkDeprecatedTagData("orvide_animatedline", "a,entity=2", 8));
  EXPECT_FALSE(checkDeprecatedTagData("ORVIDE_AnimatedLine", "entityid=2", 8));
  EXPECT_FALSE(checkDeprecatedTagData("ORVIDE_Animated", "entity=2", 24));
}

TEST_F(GenericDataTest, AnEmbeddedIdWaitsForItsEntityAndIsSentAsTheHostsId) {
  ASSERT_EQ(0, runFile(header(8) + "TestID 1 ship\nTestID 2 boat\nTestData 1 0\n"
                       "GenericData 1 ORVIDE_AnimatedLine \"EntityID=2, width=3,entityid=2\" 5\n"
                       "GenericData 1 PluginData_x entityid=2 6\nTestData 2 0\n"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  const std::string boat = std::to_string(hostId(2));
  ASSERT_NE(hostId(1), hostId(2));
  // Only the animated line is rewritten, at every "entityid" key in any case.
  EXPECT_THAT(generic(hostId(1)),
              ElementsAre(IsGeneric(5.0, -1.0, "ORVIDE_AnimatedLine", "entityid=" + boat + ", width=3,entityid=" + boat),
                          IsGeneric(6.0, -1.0, "PluginData_x", "entityid=2")));
}

TEST_F(GenericDataTest, DataBeforeItsEntitysIdLineWaitsForIt) {
  ASSERT_EQ(0, runFile(header() + "GenericData 2 note early 1\n" + ship() + "TestID 2 boat\nTestData 2 0\n"));
  EXPECT_THAT(generic(hostId(2)), ElementsAre(IsGeneric(1.0, -1.0, "note", "early")));
}

TEST_F(GenericDataTest, DataForAnIdNeverDefinedIsReportedUpToVersion22) {
  EXPECT_EQ(2, runFile(header(22) + ship() + "GenericData 9 note lost 1\nCategoryData 1 0 a b\n"));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Reference(s) to undefined entities were detected : ", "Unique ID 9 at line(s): 6 "));
  EXPECT_EQ(0, runFile(header(23) + ship() + "GenericData 9 note lost 1\n"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

// --- generic data up to version 6 and events ------------------------------------------------------

TEST_F(GenericDataV6Test, ObjectIdsAreMappedAndExpireTimesLimited) {
  ASSERT_EQ(0, runFile(header(6) + "GenericObjID anything at all\nGenericObjRefID 3 1\n" + ship() +
                       "GenericData 3 a b 10 0\nGenericData 3 a c 11 50\nGenericData 3 a d 12 99999998\n"
                       "GenericData 3 a e 13\n"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(generic(hostId(1)), ElementsAre(IsGeneric(10.0, -1.0, "a", "b"), IsGeneric(11.0, 50.0, "a", "c"),
                                              IsGeneric(12.0, -1.0, "a", "d"), IsGeneric(13.0, -1.0, "a", "e")));
}

TEST_F(GenericDataV6Test, BadLinesAreReported) {
  EXPECT_EQ(2, runFile(header(6) + "GenericObjRefID 3 1\nGenericObjRefID 3 2\nGenericObjRefID x 1\n"
                       "GenericObjRefID 4 y\n" + ship() + "GenericData 4 a b 0\nGenericData 3 a b\n"
                       "GenericData 3 a b 0 1 2\nGenericData 3 a b 0 later\n"));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 5 GenericObjRefID: Duplicate Host ID", "Line 6 GenericObjRefID: Invalid ID",
                          "Line 7 GenericObjRefID: Invalid Host ID", "Line 10 GenericData: Invalid ID",
                          "Line 11 GenericData: Expecting at least 4 arguments",
                          "Line 12 GenericData: Expecting less than 5 arguments",
                          "Line 13 GenericData: Invalid expire time"));
  EXPECT_THAT(severities(), ElementsAre(2, 2, 2, 3, 3, 2, 3));
}

TEST_F(EventDataTest, EventsAreGenericDataTaggedEventWithTheirDuration) {
  ASSERT_EQ(0, runFile(header() + "EventObjID 5\nEventObjRefID 5 1\nEventObjRefID 6 1\nTestID 1 ship\n"
                       "EventData 5 Launch 10 25\nTestData 1 0\nEventData 6 Stop 30\nEventData 6 Back 40 35\n"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(generic(hostId(1)), ElementsAre(IsGeneric(10.0, 15.0, "EVENT", "Launch"),
                                              IsGeneric(30.0, -1.0, "EVENT", "Stop"),
                                              IsGeneric(40.0, -1.0, "EVENT", "Back")));
}

TEST_F(EventDataTest, BadLinesAreReported) {
  EXPECT_EQ(2, runFile(header() + "EventObjRefID 5 1\nEventObjRefID 5 1\nEventObjRefID x 1\nEventObjRefID 6 y\n"
                       "EventObjRefID 7 9\nEventObjRefID 8\n" + ship() +
                       "EventData 6 a 0\nEventData 7 a 0\nEventData 5 a\nEventData 5 a 0 1 2\n"));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 5 EventObjRefID: Duplicate Host ID", "Line 6 EventObjRefID: Invalid ID",
                          "Line 7 EventObjRefID: Invalid Host ID", "Line 9 EventObjRefID: Expecting 2 arguments",
                          "Line 12 EventData: Invalid ID", "Line 13 EventData: Event data created before entity",
                          "Line 14 EventData: Expecting at least 3 arguments",
                          "Line 15 EventData: Expecting less than 4 arguments"));
  EXPECT_THAT(severities(), ElementsAre(2, 2, 2, 3, 3, 3, 3, 2));
}

// --- original ids ---------------------------------------------------------------------------

TEST_F(OriginalIdTest, TheValueReachesTheHostBeforeAndAfterCreation) {
  ASSERT_EQ(0, runFile(header() + "TestID 1 ship\nOriginalID 1 77\nTestData 1 0\n"));
  PIData::PIPlatformHeader header;
  ASSERT_TRUE(PIData::getHeader(hostId(1), header));
  EXPECT_EQ(77u, header.originalId);

  ASSERT_EQ(0, runFile(ScnFixture::header() + ship() + "OriginalID 1 88\n"));
  ASSERT_TRUE(PIData::getHeader(hostId(1), header));
  EXPECT_EQ(88u, header.originalId);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(OriginalIdTest, BadLinesAreReported) {
  EXPECT_EQ(2, runFile(header() + ship() + "OriginalID 9 5\nOriginalID x 5\nOriginalID 1 y\nOriginalID 1\n"));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 6 OriginalID: Missing host entity", "Line 7 OriginalID: Invalid ID",
                          "Line 8 OriginalID: Invalid Original ID", "Line 9 OriginalID: Expecting 2 arguments"));
  EXPECT_THAT(severities(), ElementsAre(2, 3, 3, 3));
}

TEST_F(OriginalIdTest, ChangingAnExistingEntityWhileAppendingWarnsAndStillSets) {
  ASSERT_EQ(0, runFile(header() + ship() + "OriginalID 1 42\n", true));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 6 OriginalID: Setting OriginalID after first data point may result in a invalid merge."));
  PIData::PIPlatformHeader header;
  ASSERT_TRUE(PIData::getHeader(hostId(1), header));
  EXPECT_EQ(42u, header.originalId);
}

// --- projectors, version 23 on ----------------------------------------------------------------

TEST_F(ProjectorDataTest, NewerFilesAddressProjectorsByTheirId) {
  makeProjector(23);
  const AsiReader::CategoryData category(provider_);
  const AsiReader::GenericData generic(provider_);
  const AsiReader::OriginalId original(provider_);
  run(category, 3, {"CategoryData", "7", "0", "Mode", "Wide"});
  run(generic, 4, {"GenericData", "7", "note", "v", "2"});
  run(original, 5, {"OriginalID", "7", "70"});
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_THAT(categories(projectorId_), ElementsAre(IsCategory(0.0, "Mode", "Wide")));
  EXPECT_THAT(this->generic(projectorId_), ElementsAre(IsGeneric(2.0, -1.0, "note", "v")));
  EXPECT_EQ(70u, provider_->getProjector(7)->originalId());
}

TEST_F(ProjectorDataTest, Version22HasNoDataForProjectors) {
  makeProjector(22);
  run(AsiReader::CategoryData(provider_), 3, {"CategoryData", "7", "0", "Mode", "Wide"});
  run(AsiReader::OriginalId(provider_), 4, {"OriginalID", "7", "70"});
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 3 CategoryData: Missing host entity",
                                             "Line 4 OriginalID: Missing host entity"));
  EXPECT_THAT(categories(projectorId_), IsEmpty());
}
