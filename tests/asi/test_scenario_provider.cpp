// The scenario provider against the reference host: parking and release of
// commands, the end-of-file checks, time normalisation, the done-once book,
// the entity table and the frame flush.

#include <cmath>

#include "AsiTestSupport.h"
#include "asi/BeamEntity.h"
#include "asi/PlatformEntity.h"
#include "asi/host/HostEntities.h"

using namespace AsiTest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

size_t colorRecords(RefHost::ReferenceHost& host, uint64_t id) {
  const RefHost::HostObject* object = host.scenario().find(id);
  return object == nullptr ? 0 : object->data(RefHost::SERIES_COLOR).count();
}

class ParkingTest : public AsiFixture {};
class EndOfFileTest : public AsiFixture {};
class ProviderTest : public AsiFixture {};

}  // namespace

// --- parking ---------------------------------------------------------------

TEST_F(ParkingTest, CommandsForAnUncreatedEntityRunInFileOrderAtCreation) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  TestColor color(provider);
  TestData data(provider);
  run(color, 3, {"TestColor", "1", "10"});
  run(color, 4, {"TestColor", "1", "20"});
  EXPECT_THAT(executionLog(), IsEmpty());
  run(data, 5, {"TestData", "1", "30"});
  run(color, 6, {"TestColor", "1", "40"});

  // Parked commands run inside the creating command, after the creation.
  EXPECT_THAT(executionLog(), ElementsAre("create 5", "color 3", "color 4", "color 6"));
  EXPECT_EQ(3u, colorRecords(*host_, provider->getEntity(1)->uniqueId()));
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(0, provider->didComplete(messages_));
}

TEST_F(ParkingTest, TheStoreHoldsABoundedNumberOfWaitingCommands) {
  const size_t max = AsiInterface::ScenarioProvider::MAX_PARKED_COMMANDS;
  auto provider = makeProvider(23);
  declarePlatform(1, "ship");
  TestPark park(provider);
  TestData data(provider);
  for (size_t i = 0; i < 3; ++i) run(park, 2, {"TestPark", "1"});
  for (size_t i = 3; i < max; ++i) run(park, i + 2, {"TestPark", std::to_string(100 + i % 1000)});
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(max, provider->parkedCommands());

  run(park, max + 2, {"TestPark", "7"});
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 100002 TestPark: More than 100000 commands wait for entities "
                                             "that do not exist yet; the read stops"));
  EXPECT_EQ(1, messages_.messages.at(0).severity);
  EXPECT_EQ(max, provider->parkedCommands());
  // Commands that ran leave room behind them.
  run(data, max + 3, {"TestData", "1", "0"});
  EXPECT_EQ(max - 3, provider->parkedCommands());
}

TEST_F(ParkingTest, AnErrorInAParkedCommandDropsTheRestOfItsQueue) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  declarePlatform(2, "boat");
  TestColor color(provider);
  TestData data(provider);
  run(color, 2, {"TestColor", "1", "10"});
  run(color, 3, {"TestColor", "1", "11", "fail"});
  run(color, 4, {"TestColor", "1", "12"});
  run(color, 5, {"TestColor", "2", "13"});
  run(data, 6, {"TestData", "1", "30"});

  EXPECT_THAT(executionLog(), ElementsAre("create 6", "color 2"));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 3 TestColor: deferred failure"));
  // Platform 2's queue is untouched and runs at its own creation.
  run(data, 7, {"TestData", "2", "30"});
  EXPECT_THAT(executionLog(), ElementsAre("create 6", "color 2", "create 7", "color 5"));
  // Nothing is left behind: the failed queue was freed, not kept.
  EXPECT_EQ(0, provider->didComplete(messages_));
}

TEST_F(ParkingTest, AWarningInAParkedCommandDoesNotStopItsQueue) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  TestColor color(provider);
  run(color, 2, {"TestColor", "1", "10", "warn"});
  run(color, 3, {"TestColor", "1", "11"});
  TestData data(provider);
  run(data, 4, {"TestData", "1", "30"});
  EXPECT_THAT(executionLog(), ElementsAre("create 4", "color 2", "color 3"));
}

TEST_F(ParkingTest, TransmitCommandsAnswersOneOnErrorAndZeroOtherwise) {
  auto provider = makeProvider();
  EXPECT_EQ(0, provider->transmitCommands(42));  // no queue at all
  declarePlatform(1, "ship");
  TestColor color(provider);
  run(color, 2, {"TestColor", "1", "10", "fail"});
  provider->getEntity(1)->setUniqueId(PIData::createPlatform({}, {}));
  EXPECT_EQ(1, provider->transmitCommands(1));
  EXPECT_EQ(0, provider->transmitCommands(1));  // the queue is gone
}

TEST_F(ParkingTest, ACommandThatDrewAWarningInStageOneIsNeitherSentNorParked) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  TestColor color(provider);
  run(color, 7, {"TestColor", "1"});
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 7 TestColor: Expecting at least 2 arguments"));
  TestData data(provider);
  run(data, 8, {"TestData", "1", "30"});
  EXPECT_THAT(executionLog(), ElementsAre("create 8"));
}

TEST_F(ParkingTest, ATimeBeforeTheHostsYearIsRefusedAtTransmit) {
  auto provider = makeProvider();
  provider->setReferenceYear(2004);
  provider->setScenarioReferenceYear(2005);
  declarePlatform(1, "ship");
  TestData data(provider);
  run(data, 3, {"TestData", "1", "100"});
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Line 3 TestData: Time invalid with respect to the current scenario time."));
  EXPECT_FALSE(provider->getEntity(1)->doesExist());
}

// --- end of file -------------------------------------------------------------

TEST_F(EndOfFileTest, AFileWithoutEntitiesFails) {
  auto provider = makeProvider();
  EXPECT_EQ(-1, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(), ElementsAre("Must define at least one non-static independent entity"));
  EXPECT_EQ(0u, messages_.messages[0].line);
  EXPECT_FALSE(provider->hasLoadedAllEntities());
}

TEST_F(EndOfFileTest, APlatformWithOnlyStaticDataExistsButIsNotIndependent) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  TestData data(provider);
  run(data, 2, {"TestData", "1", "-1"});
  EXPECT_TRUE(provider->getEntity(1)->doesExist());
  EXPECT_EQ(-1, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(), ElementsAre("Must define at least one non-static independent entity"));
}

TEST_F(EndOfFileTest, AnIncompleteFrameFailsWithItsMessage) {
  AsiReader::ScenarioProvider noSystem(24, PICommon::PI_HOST_ORVIDE);
  noSystem.setHaveNonStaticIndependent();
  EXPECT_EQ(-1, noSystem.didComplete(messages_));

  AsiReader::ScenarioProvider v14(14, PICommon::PI_HOST_ORVIDE);
  v14.setHaveNonStaticIndependent();
  v14.setCoordSystem(PIData::PI_COORD_LLA);
  EXPECT_EQ(-1, v14.didComplete(messages_));

  AsiReader::ScenarioProvider v15(15, PICommon::PI_HOST_ORVIDE);
  v15.setHaveNonStaticIndependent();
  v15.setCoordSystem(PIData::PI_COORD_LLA);
  PIData::PICoordReferenceFrame frame;
  v15.referenceFrame(frame);
  frame.latitude = 0.1;  // longitude still unset
  v15.setReferenceFrame(frame);
  EXPECT_EQ(-1, v15.didComplete(messages_));

  EXPECT_THAT(messages_.texts(), ElementsAre("Must specify coordinate system via CoordSystem command",
                                             "Must specify reference origin via the RefLat and RefLon commands",
                                             "Must specify reference origin via the RefLLA command"));
}

TEST_F(EndOfFileTest, EntitiesWithoutDataAreIncompleteInAscendingIdOrder) {
  auto provider = makeProvider();
  declarePlatform(12, "late");
  declarePlatform(1, "ship");
  declarePlatform(3, "ignored");
  provider->getEntity(3)->setIgnore(true);
  TestData data(provider);
  run(data, 5, {"TestData", "1", "0"});
  auto* beam = provider->createBeamEntity(1);
  ASSERT_EQ(0, provider->addEntity(5, beam));
  // The beam's parked command is not reported: its incomplete definition ends the checks.
  TestPark park(provider);
  run(park, 9, {"TestPark", "5"});

  EXPECT_EQ(1, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Incomplete definition for Beam 5", "Incomplete definition for Platform 12"));
  EXPECT_TRUE(provider->hasLoadedAllEntities());
}

TEST_F(EndOfFileTest, Version22ListsCommandsForUndefinedIdsWithTheirLines) {
  auto provider = makeProvider(22);
  declarePlatform(1, "ship");
  TestData data(provider);
  TestPark park(provider);
  run(data, 2, {"TestData", "1", "0"});
  run(park, 4, {"TestPark", "99"});
  run(park, 6, {"TestPark", "99"});
  run(park, 7, {"TestPark", "50"});

  EXPECT_EQ(1, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(), ElementsAre("Reference(s) to undefined entities were detected : ",
                                             "Unique ID 50 at line(s): 7 ", "Unique ID 99 at line(s): 4 6 "));
}

TEST_F(EndOfFileTest, Version23DropsCommandsForUndefinedIdsSilently) {
  auto provider = makeProvider(23);
  declarePlatform(1, "ship");
  TestData data(provider);
  TestPark park(provider);
  run(data, 2, {"TestData", "1", "0"});
  run(park, 4, {"TestPark", "99"});
  EXPECT_EQ(0, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(EndOfFileTest, ProjectorIdsAreNotReportedAsUndefined) {
  auto provider = makeProvider(22);
  declarePlatform(1, "ship");
  ASSERT_EQ(0, provider->addProjector(7, provider->createProjector("lamp", 7, 1)));
  TestData data(provider);
  TestPark park(provider);
  run(data, 2, {"TestData", "1", "0"});
  run(park, 4, {"TestPark", "7"});
  EXPECT_EQ(0, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(EndOfFileTest, CommandsLeftForExistingEntitiesAreAnInternalErrorAfterTheUndefinedOnes) {
  auto provider = makeProvider(22);
  declarePlatform(1, "ship");
  TestData data(provider);
  TestPark park(provider);
  run(data, 2, {"TestData", "1", "0"});
  run(park, 3, {"TestPark", "8"});
  // A command stranded under an entity that exists (as when a queue was
  // filled after the entity's release).
  std::unique_ptr<FileReaderPlugin::CommandParser> stranded(park.clone());
  provider->addCommand(1, stranded.release());

  EXPECT_EQ(-1, provider->didComplete(messages_));
  EXPECT_THAT(messages_.texts(),
              ElementsAre("Reference(s) to undefined entities were detected : ", "Unique ID 8 at line(s): 3 ",
                          "An internal error prevented all commands to execute for the following entities: ",
                          "ship 1"));
  for (const auto& m : messages_.messages) {
    EXPECT_EQ(2, m.severity);
    EXPECT_EQ(0u, m.line);
  }
}

TEST_F(EndOfFileTest, ScenarioCommandsParkedUntilAllEntitiesLoadedRunAtTheEnd) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  TestData data(provider);
  TestPark park(provider);
  std::string message;
  ASSERT_EQ(0, provider->flushScenarioCommands(message));
  run(data, 2, {"TestData", "1", "0"});
  std::unique_ptr<FileReaderPlugin::CommandParser> later(park.clone());
  later->setLineNumber(3);
  provider->addCommand(0, later.release());
  EXPECT_THAT(executionLog(), ElementsAre("create 2"));
  EXPECT_EQ(0, provider->didComplete(messages_));
  EXPECT_THAT(executionLog(), ElementsAre("create 2", "park 3"));
}

TEST_F(EndOfFileTest, AnUnflushedScenarioIsFlushedAtTheEnd) {
  auto provider = makeProvider();
  provider->setHaveNonStaticIndependent();
  EXPECT_EQ(0, provider->didComplete(messages_));
  EXPECT_TRUE(provider->hasScenarioFlushed());
  ASSERT_TRUE(host_->scenario().settings().originLLA.has_value());
  EXPECT_DOUBLE_EQ(0.5, (*host_->scenario().settings().originLLA)[0]);
}

// --- provider operations -----------------------------------------------------

TEST_F(ProviderTest, FlushSendsTheOriginOnceAndRunsTheScenarioQueue) {
  auto provider = makeProvider();
  TestPark park(provider);
  std::unique_ptr<FileReaderPlugin::CommandParser> waiting(park.clone());
  waiting->setLineNumber(4);
  provider->addCommand(0, waiting.release());

  std::string message;
  EXPECT_EQ(0, provider->flushScenarioCommands(message));
  EXPECT_THAT(executionLog(), ElementsAre("park 4"));
  const auto& settings = host_->scenario().settings();
  ASSERT_TRUE(settings.originLLA.has_value());
  EXPECT_DOUBLE_EQ(-1.2, (*settings.originLLA)[1]);
  EXPECT_TRUE(settings.tangentPlaneOffsets.has_value());

  // Later flushes do nothing more.
  host_->scenario().settings().originLLA.reset();
  EXPECT_EQ(0, provider->flushScenarioCommands(message));
  EXPECT_FALSE(host_->scenario().settings().originLLA.has_value());
}

TEST_F(ProviderTest, AnAppendingFlushLeavesTheHostsOriginAlone) {
  auto provider = makeProvider();
  provider->setAppending(true);
  std::string message;
  EXPECT_EQ(0, provider->flushScenarioCommands(message));
  EXPECT_TRUE(provider->hasScenarioFlushed());
  EXPECT_FALSE(host_->scenario().settings().originLLA.has_value());
}

TEST_F(ProviderTest, NormalizeTimeMovesTimesBetweenReferenceYears) {
  auto provider = makeProvider();
  provider->setReferenceYear(2005);
  provider->setScenarioReferenceYear(2005);
  EXPECT_DOUBLE_EQ(100.0, provider->normalizeTime(100.0));

  // 2004 is a leap year: a time of the file's 2005 lies 366 days into the host's 2004.
  provider->setScenarioReferenceYear(2004);
  EXPECT_DOUBLE_EQ(366.0 * 86400.0 + 100.0, provider->normalizeTime(100.0));
  EXPECT_DOUBLE_EQ(-1.0, provider->normalizeTime(-1.0));  // static stays static

  // A time of the file's 2004 before the host's 2005 has no place in the host.
  provider->setReferenceYear(2004);
  provider->setScenarioReferenceYear(2005);
  EXPECT_DOUBLE_EQ(AsiInterface::ScenarioProvider::INVALID_TIME, provider->normalizeTime(100.0));
  EXPECT_DOUBLE_EQ(100.0, provider->normalizeTime(366.0 * 86400.0 + 100.0));
}

TEST_F(ProviderTest, DoneOnceKeysAreKeywordPlusSuffixPerId) {
  auto provider = makeProvider();
  TestColor command(provider);
  command.setLineNumber(3);
  command.setMessageManager(&messages_);
  EXPECT_FALSE(provider->checkAndSetDoneOnce(0, &command, ""));
  EXPECT_TRUE(provider->checkAndSetDoneOnce(0, &command, ""));
  EXPECT_FALSE(provider->checkAndSetDoneOnce(1, &command, ""));  // another id
  EXPECT_FALSE(provider->checkAndSetDoneOnce(0, &command, "Media"));
  EXPECT_TRUE(provider->checkAndSetDoneOnce(0, &command, "Media"));
  EXPECT_FALSE(provider->checkAndSetDoneOnce(0, &command, ".toc"));
  EXPECT_TRUE(provider->doneOnce(0, "TestColorMedia"));
  EXPECT_FALSE(provider->doneOnce(0, "testcolormedia"));  // keys are exact
  provider->setDoneOnce(4, "BeamType");
  EXPECT_TRUE(provider->doneOnce(4, "BeamType"));
  EXPECT_THAT(messages_.texts(), ElementsAre("Line 3 TestColor: Can only specified the command once",
                                             "Line 3 TestColor: Can only specified the command once per file type"));
  EXPECT_TRUE(command.hasWarning());
  EXPECT_FALSE(command.hasError());
}

TEST_F(ProviderTest, PlatformTypesByIndexOrWord) {
  auto provider = makeProvider();
  PIData::PICategoryDataPoint point;
  EXPECT_EQ(0, provider->platformType("3", point));
  EXPECT_EQ("Aircraft", point.categoryValue);
  point.categoryValue.clear();
  EXPECT_EQ(0, provider->platformType("AirCraft", point));
  EXPECT_EQ("Aircraft", point.categoryValue);
  EXPECT_EQ(0, provider->platformType("13", point));
  EXPECT_EQ("Contact", point.categoryValue);
  EXPECT_EQ(0, provider->platformType("reference", point));
  EXPECT_EQ("Reference Site", point.categoryValue);
  EXPECT_EQ(1, provider->platformType("14", point));
  EXPECT_EQ(1, provider->platformType("boat", point));
  EXPECT_EQ("Reference Site", point.categoryValue);  // untouched on failure
}

TEST_F(ProviderTest, TheEntityTableRefusesTakenIdsAndChecksClasses) {
  auto provider = makeProvider();
  declarePlatform(4, "alpha");
  declarePlatform(2, "alpha");
  auto* beam = provider->createBeamEntity(4);
  EXPECT_EQ(1, provider->addEntity(4, beam));  // the caller keeps a refused entity
  delete beam;
  auto* intruder = provider->createPlatformEntity(PIData::PI_DEFAULT_REFFRAME);
  EXPECT_EQ(1, provider->addEntity(0, intruder));  // id 0 is the scenario's
  delete intruder;

  AsiInterface::Entity* platform = provider->getEntity(4);
  ASSERT_NE(nullptr, platform);
  EXPECT_EQ(4u, platform->asiId());
  EXPECT_EQ(4u, platform->originalId());
  EXPECT_NE(nullptr, provider->getPlatformEntity(4));
  EXPECT_EQ(nullptr, provider->getBeamEntity(4));
  EXPECT_EQ(nullptr, provider->getPlatformEntity(9));

  uint64_t id = 0;
  EXPECT_EQ(0, provider->getPlatformAsiId("alpha", id));
  EXPECT_EQ(2u, id);  // ascending ASI id
  EXPECT_EQ(1, provider->getPlatformAsiId("Alpha", id));

  uint64_t hostId = 0;
  EXPECT_EQ(0, provider->addEvent(3, 4));
  EXPECT_EQ(1, provider->addEvent(3, 2));
  EXPECT_EQ(0, provider->getEvent(3, hostId));
  EXPECT_EQ(4u, hostId);
  EXPECT_EQ(1, provider->getGenericDeprecated(3, hostId));
}

TEST_F(ProviderTest, HostBoundEntitiesRewriteTheHostsOriginalId) {
  auto provider = makeProvider();
  declarePlatform(1, "ship");
  TestData data(provider);
  run(data, 2, {"TestData", "1", "0"});
  AsiInterface::Entity* platform = provider->getEntity(1);
  platform->setOriginalId(77);
  PIData::PIPlatformHeader header;
  ASSERT_TRUE(PIData::getHeader(platform->uniqueId(), header));
  EXPECT_EQ(77u, header.originalId);
  EXPECT_EQ("ship", header.name);

  // Before creation only the entity records it; the beam keeps it in its header.
  auto* beam = provider->createBeamEntity(1);
  ASSERT_EQ(0, provider->addEntity(5, beam));
  beam->setName("radar");
  beam->setOriginalId(9);
  PIData::PIBeamHeader beamHeader;
  beam->header(beamHeader);
  EXPECT_EQ(9u, beamHeader.originalId);
  const uint64_t beamId = PIData::createBeam(platform->uniqueId(), beamHeader, nullptr, true);
  ASSERT_NE(0u, beamId);
  beam->setUniqueId(beamId);
  beam->setOriginalId(10);
  ASSERT_TRUE(PIData::getHeader(beamId, beamHeader));
  EXPECT_EQ(10u, beamHeader.originalId);
  EXPECT_EQ("radar", beamHeader.name);

  auto* gate = provider->createGateEntity(5);
  ASSERT_EQ(0, provider->addEntity(6, gate));
  PIData::PIGateHeader gateHeader;
  gateHeader.name = "g";
  const uint64_t gateId = PIData::createGate(beamId, gateHeader, nullptr, true);
  gate->setUniqueId(gateId);
  gate->setOriginalId(33);
  ASSERT_TRUE(PIData::getHeader(gateId, gateHeader));
  EXPECT_EQ(33u, gateHeader.originalId);
  EXPECT_EQ("g", gateHeader.name);

  auto* projector = provider->createProjector("lamp", 7, 1);
  ASSERT_EQ(0, provider->addProjector(7, projector));
  EXPECT_EQ(7u, projector->asiId());
  PIData::PIProjectorHeader projectorHeader;
  projectorHeader.name = "lamp";
  projector->setUniqueId(PIData::createProjector(platform->uniqueId(), projectorHeader));
  projector->setOriginalId(44);
  ASSERT_TRUE(PIData::getHeader(projector->uniqueId(), projectorHeader));
  EXPECT_EQ(44u, projectorHeader.originalId);
}

TEST_F(ProviderTest, DisplayHostIsTheFullDisplayApplication) {
  AsiReader::ScenarioProvider display(24, PICommon::PI_HOST_ORVIDE);
  EXPECT_TRUE(display.runningInORVIDE9or10());
  AsiReader::ScenarioProvider display10(24, static_cast<PICommon::PIApplicationHost_t>(0x11));
  EXPECT_TRUE(display10.runningInORVIDE9or10());
  AsiReader::ScenarioProvider named10(24, PICommon::PI_HOST_ORVIDE10);
  EXPECT_TRUE(named10.runningInORVIDE9or10());
  AsiReader::ScenarioProvider plot(24, PICommon::PI_HOST_KURVEX);
  EXPECT_FALSE(plot.runningInORVIDE9or10());
  AsiReader::ScenarioProvider plot10(24, PICommon::PI_HOST_KURVEX10);
  EXPECT_FALSE(plot10.runningInORVIDE9or10());
}

TEST_F(ProviderTest, ClearFreesEverythingParkedAndHeld) {
  auto provider = makeProvider(22);
  declarePlatform(1, "ship");
  TestPark park(provider);
  run(park, 3, {"TestPark", "9"});
  provider->clear();
  EXPECT_EQ(nullptr, provider->getEntity(0));
  EXPECT_EQ(nullptr, provider->getEntity(1));
  provider->setHaveNonStaticIndependent();
  EXPECT_EQ(0, provider->didComplete(messages_));  // the parked command is gone too

}

TEST_F(ProviderTest, ClearBreaksTheCycleBetweenTheProviderAndItsParkedCommands) {
  std::weak_ptr<AsiReader::ScenarioProvider> weak = makeProvider(22);
  {
    TestPark park(provider_);
    run(park, 4, {"TestPark", "9"});
  }
  provider_->clear();
  provider_.reset();
  EXPECT_TRUE(weak.expired());
}

TEST_F(ProviderTest, BeamAntennaIsDefinedOnceAndDefaultsToSinxx) {
  auto provider = makeProvider();
  auto* beam = provider->createBeamEntity(1);
  ASSERT_EQ(0, provider->addEntity(5, beam));
  PIData::PIBeamHeader header;
  beam->header(header);
  EXPECT_EQ("UNKNOWN", header.name);
  EXPECT_EQ(PIData::PI_UNSET_DOUBLE, header.horizontalWidth);

  beam->setGain(30.0);  // defaults the pattern without defining the antenna
  EXPECT_EQ(1, beam->patternKind());
  EXPECT_EQ(4, beam->algorithm());
  EXPECT_EQ(0, beam->setPattern(5, "table.txt"));
  EXPECT_EQ(1, beam->setAlgorithm(2));
  EXPECT_EQ(1, beam->setPattern(2, "other.txt"));
  EXPECT_EQ(5, beam->patternKind());
  EXPECT_EQ("table.txt", beam->patternFile());
  EXPECT_DOUBLE_EQ(30.0, beam->gain());
  EXPECT_DOUBLE_EQ(7000.0, beam->frequency());

  beam->setName("radar");
  beam->header(header);
  EXPECT_EQ("radar", header.name);
}
