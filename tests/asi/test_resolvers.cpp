// The append resolvers against the reference host: what the metadata resolver
// finds in the host's scenario, and how the ASI-id resolver carries a feed's
// entities from one read to the next.

#include "AsiTestSupport.h"
#include "asi/LliResolver.h"
#include "asi/MetadataResolver.h"

using namespace AsiTest;
using ::testing::ElementsAre;

namespace {

PIData::PIPlatformHeader platformHeader(const std::string& name, uint64_t originalId) {
  PIData::PIPlatformHeader header;
  header.name = name;
  header.originalId = originalId;
  return header;
}

PIData::PIBeamHeader beamHeader(const std::string& name, uint64_t originalId, int32_t type) {
  PIData::PIBeamHeader header;
  header.name = name;
  header.originalId = originalId;
  header.beamType = type;
  return header;
}

uint64_t hostPlatform(const std::string& name, uint64_t originalId) {
  PIData::PIPlatformPoint point;
  point.time = 0.0;
  return PIData::createPlatform(platformHeader(name, originalId), point);
}

class MetadataResolverTest : public AsiFixture {};
class LliResolverTest : public AsiFixture {};

}  // namespace

TEST_F(MetadataResolverTest, PlatformsMatchOnNameAndOriginalIdAndTheLowerIdWins) {
  const uint64_t first = hostPlatform("ship", 1);
  const uint64_t second = hostPlatform("ship", 1);
  const uint64_t other = hostPlatform("ship", 2);
  ASSERT_LT(first, second);

  AsiInterface::MetadataResolver resolver;
  resolver.initialize();
  EXPECT_EQ(first, resolver.getPlatformId(99, platformHeader("ship", 1)));
  EXPECT_EQ(other, resolver.getPlatformId(1, platformHeader("ship", 2)));
  EXPECT_EQ(0u, resolver.getPlatformId(1, platformHeader("ship", 3)));
  EXPECT_EQ(0u, resolver.getPlatformId(1, platformHeader("Ship", 1)));  // names compare exactly
}

TEST_F(MetadataResolverTest, ChildrenMatchOnlyUnderTheSameParent) {
  const uint64_t a = hostPlatform("a", 1);
  const uint64_t b = hostPlatform("b", 2);
  const uint64_t beam = PIData::createBeam(a, beamHeader("radar", 5, 9), nullptr, true);
  ASSERT_NE(0u, beam);
  PIData::PIGateHeader gate;
  gate.name = "g";
  gate.originalId = 6;
  gate.gateType = 1;
  const uint64_t gateId = PIData::createGate(beam, gate, nullptr, true);
  PIData::PILaserHeader laser;
  laser.name = "l";
  laser.bodyFlag = true;
  const uint64_t laserId = PIData::createLaser(b, laser, 8);
  PIData::PILobHeader lob;
  lob.name = "bearing";
  lob.originalId = 3;
  const uint64_t lobId = PIData::createLob(a, lob);
  PIData::PIProjectorHeader projector;
  projector.name = "lamp";
  projector.originalId = 4;
  const uint64_t projectorId = PIData::createProjector(beam, projector);
  PIData::PICustomRenderingHeader custom;
  custom.name = "shape";
  custom.rendererName = "r";
  custom.originalId = 11;
  const uint64_t hostless = PIData::createCustomRendering(0, custom);
  ASSERT_NE(0u, hostless);

  AsiInterface::MetadataResolver resolver;
  resolver.initialize();
  EXPECT_EQ(beam, resolver.getBeamId(a, 2, beamHeader("radar", 5, 9)));
  EXPECT_EQ(0u, resolver.getBeamId(b, 2, beamHeader("radar", 5, 9)));
  EXPECT_EQ(0u, resolver.getBeamId(a, 2, beamHeader("radar", 5, 10)));  // another beam type
  EXPECT_EQ(gateId, resolver.getGateId(beam, 3, gate));
  gate.gateType = 3;
  EXPECT_EQ(0u, resolver.getGateId(beam, 3, gate));
  EXPECT_EQ(laserId, resolver.getLaserId(b, 4, laser, 8));
  EXPECT_EQ(0u, resolver.getLaserId(b, 4, laser, 9));
  EXPECT_EQ(lobId, resolver.getLobGroupId(a, 5, lob));
  EXPECT_EQ(0u, resolver.getLobGroupId(b, 5, lob));
  EXPECT_EQ(projectorId, resolver.getProjectorId(beam, 6, projector));
  EXPECT_EQ(0u, resolver.getProjectorId(a, 6, projector));
  EXPECT_EQ(hostless, resolver.getCustomRenderingId(0, 7, custom));
  custom.rendererName = "other";
  EXPECT_EQ(0u, resolver.getCustomRenderingId(0, 7, custom));
}

TEST_F(MetadataResolverTest, CreationsOfTheReadMergeLaterEqualDefinitions) {
  AsiInterface::MetadataResolver resolver;
  resolver.initialize();
  EXPECT_EQ(0u, resolver.getPlatformId(1, platformHeader("ship", 1)));
  resolver.setPlatformId(1, platformHeader("ship", 1), 40);
  EXPECT_EQ(40u, resolver.getPlatformId(2, platformHeader("ship", 1)));
  resolver.setBeamId(40, 3, beamHeader("radar", 3, 9), 41);
  EXPECT_EQ(41u, resolver.getBeamId(40, 4, beamHeader("radar", 3, 9)));

  // initialize() forgets them and reads the host anew.
  resolver.initialize();
  EXPECT_EQ(0u, resolver.getPlatformId(2, platformHeader("ship", 1)));
}

TEST_F(MetadataResolverTest, AnAppendedFileMergesEqualPlatformsAndCreatesDifferentOnes) {
  AsiInterface::MetadataResolver resolver;
  auto first = makeProvider();
  first->setResolver(&resolver);
  resolver.initialize();
  declarePlatform(1, "ship");
  TestData data(first);
  run(data, 2, {"TestData", "1", "0"});
  const uint64_t shipId = first->getEntity(1)->uniqueId();

  // The second read: same name and original id merges, another original id does not.
  auto second = makeProvider();
  second->setAppending(true);
  second->setResolver(&resolver);
  resolver.initialize();
  declarePlatform(1, "ship");
  declarePlatform(2, "ship");
  second->getEntity(2)->setOriginalId(5);
  TestData data2(second);
  run(data2, 2, {"TestData", "1", "10"});
  run(data2, 3, {"TestData", "2", "10"});

  EXPECT_EQ(shipId, second->getEntity(1)->uniqueId());
  EXPECT_TRUE(second->getEntity(1)->isMerging());
  EXPECT_NE(shipId, second->getEntity(2)->uniqueId());
  std::vector<uint64_t> platforms;
  PIData::getPlatformList(platforms);
  EXPECT_EQ(2u, platforms.size());
  EXPECT_EQ(2u, host_->scenario().find(shipId)->data(RefHost::SERIES_POINTS).count());
}

TEST_F(LliResolverTest, EveryClassMatchesByAsiIdAloneAndProjectorsApart) {
  AsiInterface::LliResolver resolver(" feed");
  EXPECT_EQ(" feed", resolver.getScenarioIdentifier());
  resolver.initialize();
  resolver.setPlatformId(1, platformHeader("ship", 1), 100);
  resolver.setBeamId(100, 2, beamHeader("radar", 2, 9), 200);
  resolver.setProjectorId(200, 1, PIData::PIProjectorHeader(), 500);

  resolver.initialize();  // keeps its state
  EXPECT_EQ(100u, resolver.getPlatformId(1, platformHeader("renamed", 9)));
  EXPECT_EQ(200u, resolver.getBeamId(7, 2, beamHeader("other", 0, 1)));
  // ASI ids are unique across the entity classes: any class finds id 2.
  EXPECT_EQ(200u, resolver.getGateId(0, 2, PIData::PIGateHeader()));
  EXPECT_EQ(100u, resolver.getLaserId(0, 1, PIData::PILaserHeader(), 0));
  EXPECT_EQ(100u, resolver.getLobGroupId(0, 1, PIData::PILobHeader()));
  EXPECT_EQ(100u, resolver.getCustomRenderingId(0, 1, PIData::PICustomRenderingHeader()));
  EXPECT_EQ(500u, resolver.getProjectorId(0, 1, PIData::PIProjectorHeader()));
  EXPECT_EQ(0u, resolver.getProjectorId(0, 2, PIData::PIProjectorHeader()));
  EXPECT_EQ(0u, resolver.getPlatformId(3, platformHeader("ship", 1)));
}

TEST_F(LliResolverTest, TheSecondFileOfAFeedFindsThePlatformsOfTheFirstDespiteANameChange) {
  AsiInterface::LliResolver resolver("feed");
  auto first = makeProvider();
  first->setResolver(&resolver);
  resolver.initialize();
  declarePlatform(1, "alpha");
  TestData data(first);
  run(data, 2, {"TestData", "1", "0"});
  const uint64_t alpha = first->getEntity(1)->uniqueId();

  auto second = makeProvider();
  second->setAppending(true);
  second->setResolver(&resolver);
  resolver.initialize();
  declarePlatform(1, "beta");
  TestData data2(second);
  run(data2, 2, {"TestData", "1", "5"});

  EXPECT_EQ(alpha, second->getEntity(1)->uniqueId());
  std::vector<uint64_t> platforms;
  PIData::getPlatformList(platforms);
  EXPECT_THAT(platforms, ElementsAre(alpha));
  EXPECT_EQ(2u, host_->scenario().find(alpha)->data(RefHost::SERIES_POINTS).count());
}
