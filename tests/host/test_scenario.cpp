// Scenario state, clock, object creation, look-ups and headers, each sent
// through the client wrappers and the door into the reference host.

#include <algorithm>
#include <cmath>

#include "HostFixture.h"

using namespace PIData;

TEST_F(HostTest, ScenarioSettingsRoundTrip) {
  EXPECT_FALSE(isScenarioInitialized());
  EXPECT_EQ(initializeScenario("first.asi", 5, PI_PROTOCOL_UDP, true), 0);
  EXPECT_TRUE(isScenarioInitialized());
  EXPECT_EQ(getScenarioFileName(), "first.asi");
  EXPECT_EQ(setScenarioFileName("/data/other.asi"), 0);
  EXPECT_EQ(getScenarioFileName(), "/data/other.asi");

  EXPECT_EQ(getReferenceYear(), 1970);
  EXPECT_EQ(setReferenceYear(2024), 0);
  EXPECT_EQ(getReferenceYear(), 2024);

  EXPECT_EQ(setClassification("UNCLASSIFIED"), 0);
  EXPECT_EQ(setClassificationColor(0x00FF0080u), 0);
  EXPECT_EQ(setDescription("a test"), 0);
  EXPECT_EQ(setOriginLLA(0.5, -1.25, 10.0), 0);
  EXPECT_EQ(setTangentPlaneOffsets(100.0, 200.0, 0.1), 0);
  EXPECT_EQ(setWindSpeed(7.5), 0);
  EXPECT_EQ(setWindDirection(1.5), 0);

  const RefHost::ScenarioSettings& s = host->scenario().settings();
  EXPECT_EQ(s.name, "first.asi");
  EXPECT_EQ(s.port, 5);
  EXPECT_EQ(s.protocol, PI_PROTOCOL_UDP);
  EXPECT_TRUE(s.flag);
  EXPECT_EQ(s.classification, "UNCLASSIFIED");
  EXPECT_EQ(*s.classificationColor, 0x00FF0080u);
  EXPECT_EQ(s.description, "a test");
  EXPECT_EQ((*s.originLLA)[1], -1.25);
  EXPECT_EQ((*s.tangentPlaneOffsets)[2], 0.1);
  EXPECT_EQ(*s.windSpeed, 7.5);
  EXPECT_EQ(*s.windDirection, 1.5);
}

TEST_F(HostTest, DeleteScenarioRemovesEverythingButNeverReusesIds) {
  const uint64_t first = scenarioWithPlatform();
  EXPECT_EQ(first, 1u);
  setReferenceYear(2001);
  EXPECT_EQ(deleteScenario(), 0);
  EXPECT_FALSE(isScenarioInitialized());
  EXPECT_EQ(getReferenceYear(), 1970);
  EXPECT_EQ(findPlatform("ship"), 0u);
  EXPECT_EQ(getObjectType(first), 0u);
  const uint64_t second = scenarioWithPlatform();
  EXPECT_GT(second, first);
}

TEST_F(HostTest, ClockFollowsTheDataAndTheClient) {
  const uint64_t id = scenarioWithPlatform();
  addDataPoint(id, platformPoint(-1.0));  // static: no part of the span
  addDataPoint(id, platformPoint(50.0));
  addDataPoint(id, platformPoint(20.0));
  EXPECT_EQ(clockGetBegin(), 0.0);
  EXPECT_EQ(clockAutoConfigureBeginEnd(), 0);
  EXPECT_EQ(clockGetBegin(), 0.0);
  EXPECT_EQ(clockGetEnd(), 50.0);
  EXPECT_EQ(clockSetTime(clockGetEnd(), 0.0), 0);
  EXPECT_EQ(host->scenario().clock().time, 50.0);
  EXPECT_EQ(clockSetTimeFormat(PI_TIME_FORMAT_ISO8601), 0);
  EXPECT_EQ(*host->scenario().clock().timeFormat, PI_TIME_FORMAT_ISO8601);
}

TEST_F(HostTest, AutoConfigureWithoutTimedDataFails) {
  const uint64_t id = scenarioWithPlatform();
  PIPlatformPoint still = platformPoint(-1.0);
  addDataPoint(id, still);
  host->scenario().flush(id, 1);  // only the static point stays
  EXPECT_NE(clockAutoConfigureBeginEnd(), 0);
}

TEST_F(HostTest, ObjectsOfEveryKindGetIdsFromOneUp) {
  const uint64_t platform = scenarioWithPlatform();
  PIBeamPoint beamPoint{1.0, 0.1, 0.2, 300.0};
  PIBeamHeader beamHeader;
  beamHeader.name = "radar";
  beamHeader.beamType = PI_BEAM_BODY;
  const uint64_t beam = createBeam(platform, beamHeader, &beamPoint, false);
  PIGateHeader gateHeader;
  gateHeader.name = "gate";
  const uint64_t gate = createGate(beam, gateHeader, nullptr, true);
  PILobHeader lobHeader;
  lobHeader.name = "lob";
  const uint64_t lob = createLob(platform, lobHeader);
  PILaserHeader laserHeader;
  laserHeader.name = "laser";
  const uint64_t laser = createLaser(platform, laserHeader, 77);
  PIProjectorHeader projectorHeader;
  projectorHeader.name = "projector";
  const uint64_t projector = createProjector(beam, projectorHeader);
  PICustomRenderingHeader crHeader;
  crHeader.name = "cr";
  crHeader.rendererName = "lines";
  const uint64_t free = createCustomRendering(0, crHeader);
  PIGenericDataPoint gd;
  gd.tag = "ORVIDE_DropTrack";
  gd.value = "1";
  const uint64_t entry = createGenericData(platform, gd);

  EXPECT_EQ(std::vector<uint64_t>({platform, beam, gate, lob, laser, projector, free, entry}),
            std::vector<uint64_t>({1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(getObjectType(platform), PI_OBJECT_PLATFORM);
  EXPECT_EQ(getObjectType(beam), PI_OBJECT_BEAM);
  EXPECT_EQ(getObjectType(gate), PI_OBJECT_GATE);
  EXPECT_EQ(getObjectType(lob), PI_OBJECT_LOB);
  EXPECT_EQ(getObjectType(laser), PI_OBJECT_LASER);
  EXPECT_EQ(getObjectType(projector), PI_OBJECT_PROJECTOR);
  EXPECT_EQ(getObjectType(free), PI_OBJECT_CUSTOM_RENDERING);
  EXPECT_EQ(getObjectType(entry), PI_OBJECT_GENERIC_DATA);
  EXPECT_EQ(getObjectType(999), 0u);

  // The beam's first point is kept; the gate came without one.
  EXPECT_EQ(host->scenario().find(beam)->data(RefHost::SERIES_POINTS).count(), 1u);
  EXPECT_EQ(host->scenario().find(gate)->data(RefHost::SERIES_POINTS).count(), 0u);
  EXPECT_EQ(getOriginalId(laser), 77u);
}

TEST_F(HostTest, CreationChecksScenarioAndParents) {
  PIPlatformHeader header;
  header.name = "early";
  EXPECT_EQ(createPlatform(header, platformPoint(0)), 0u) << "no scenario yet";
  const uint64_t platform = scenarioWithPlatform();
  const uint64_t beam = beamOn(platform);
  PIBeamHeader bh;
  EXPECT_EQ(createBeam(beam, bh, nullptr, true), 0u) << "a beam hangs on a platform";
  EXPECT_EQ(createBeam(12345, bh, nullptr, true), 0u) << "unknown host";
  PIGateHeader gh;
  EXPECT_EQ(createGate(platform, gh, nullptr, true), 0u) << "a gate hangs on a beam";
  PILobHeader lh;
  EXPECT_EQ(createLob(0, lh), 0u);
  PIGenericDataPoint gd;
  EXPECT_NE(createGenericData(0, gd), 0u) << "the scenario takes generic data";
  EXPECT_EQ(createGenericData(4242, gd), 0u);
}

TEST_F(HostTest, ListsByClassAndParent) {
  const uint64_t a = scenarioWithPlatform("a");
  PIPlatformHeader h;
  h.name = "b";
  const uint64_t b = createPlatform(h, platformPoint(0));
  const uint64_t a1 = beamOn(a, "a1");
  const uint64_t b1 = beamOn(b, "b1");
  const uint64_t a2 = beamOn(a, "a2");

  std::vector<uint64_t> out;
  EXPECT_EQ(getPlatformList(out), 0);
  EXPECT_EQ(out, std::vector<uint64_t>({a, b}));
  out.clear();
  EXPECT_EQ(getBeamList(out), 0);
  EXPECT_EQ(out, std::vector<uint64_t>({a1, b1, a2}));
  out.clear();
  EXPECT_EQ(getBeamList(a, out), 0);
  EXPECT_EQ(out, std::vector<uint64_t>({a1, a2}));
  out.clear();
  EXPECT_EQ(getGateList(a1, out), 0);
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(findPlatform("b"), b);
  EXPECT_EQ(findPlatform("a2"), 0u) << "a beam's name is no platform";
  EXPECT_EQ(findBeam("a2"), a2);
  EXPECT_EQ(findBeam("zzz"), 0u);
}

TEST_F(HostTest, FindObjectsByOriginalIdAcrossKinds) {
  const uint64_t platform = scenarioWithPlatform("p", 500);
  PIBeamHeader bh;
  bh.originalId = 500;
  const uint64_t beam = createBeam(platform, bh, nullptr, true);
  PILobHeader lh;
  lh.originalId = 501;
  createLob(platform, lh);
  std::vector<uint64_t> out;
  EXPECT_EQ(findObjectsByOriginalID(500, out), 0);
  EXPECT_EQ(out, std::vector<uint64_t>({platform, beam}));
  out.clear();
  EXPECT_EQ(findObjectsByOriginalID(9, out), 0);
  EXPECT_TRUE(out.empty());
}

TEST_F(HostTest, HeadersRoundTripByKind) {
  const uint64_t platform = scenarioWithPlatform("ship", 3);
  PIPlatformHeader ph;
  ASSERT_TRUE(getHeader(platform, ph));
  EXPECT_EQ(ph.name, "ship");
  EXPECT_EQ(ph.iconName, "ship.png");
  EXPECT_EQ(ph.originalId, 3u);
  ph.originalId = 44;
  ph.name = "boat";
  EXPECT_EQ(updateHeader(platform, ph), 0);
  EXPECT_EQ(getOriginalId(platform), 44u);
  EXPECT_EQ(findPlatform("boat"), platform);

  PIBeamHeader bh;
  bh.name = "radar";
  bh.azimuthOffset = 0.25;
  bh.horizontalWidth = 0.1;
  bh.beamType = PI_BEAM_TARGET;
  bh.missileOffset = true;
  const uint64_t beam = createBeam(platform, bh, nullptr, true);
  PIBeamHeader back;
  ASSERT_TRUE(getHeader(beam, back));
  EXPECT_EQ(back.azimuthOffset, 0.25);
  EXPECT_EQ(back.elevationOffset, PI_UNSET_DOUBLE);
  EXPECT_EQ(back.horizontalWidth, 0.1);
  EXPECT_EQ(back.beamType, PI_BEAM_TARGET);
  EXPECT_TRUE(back.missileOffset);

  PILaserHeader lh;
  lh.name = "laser";
  lh.bodyFlag = true;
  lh.frame.coordSystem = PI_COORD_LLA;
  lh.frame.latitude = 0.7;
  const uint64_t laser = createLaser(platform, lh, 0);
  PILaserHeader lback;
  ASSERT_TRUE(getHeader(laser, lback));
  EXPECT_TRUE(lback.bodyFlag);
  EXPECT_EQ(lback.frame.coordSystem, PI_COORD_LLA);
  EXPECT_EQ(lback.frame.latitude, 0.7);
  EXPECT_EQ(lback.frame.verticalDatum, PI_VDATUM_WGS84);
  lh.frame.longitude = std::nan("");
  EXPECT_EQ(updateHeader(laser, lh), 0);
  ASSERT_TRUE(getHeader(laser, lback));
  EXPECT_TRUE(std::isnan(lback.frame.longitude)) << "a NaN in a frame survives";
  EXPECT_EQ(lback.frame.latitude, 0.7);

  PILobHeader lob;
  lob.name = "lob";
  lob.type = PI_LOB_RELATIVE;
  const uint64_t lobId = createLob(platform, lob);
  PILobHeader lobBack;
  ASSERT_TRUE(getHeader(lobId, lobBack));
  EXPECT_EQ(lobBack.type, PI_LOB_RELATIVE);

  PICustomRenderingHeader ch;
  ch.name = "cr";
  ch.rendererName = "renderer";
  ch.originalId = 8;
  const uint64_t cr = createCustomRendering(platform, ch);
  PICustomRenderingHeader cback;
  ASSERT_TRUE(getHeader(cr, cback));
  EXPECT_EQ(cback.rendererName, "renderer");
  EXPECT_EQ(cback.originalId, 8u);
}

TEST_F(HostTest, HeaderOfTheWrongKindOrObjectFails) {
  const uint64_t platform = scenarioWithPlatform();
  PIBeamHeader bh;
  EXPECT_FALSE(getHeader(platform, bh));
  EXPECT_NE(updateHeader(platform, bh), 0);
  PIPlatformHeader ph;
  EXPECT_FALSE(getHeader(999, ph));
  EXPECT_NE(updateHeader(999, ph), 0);
  ASSERT_TRUE(getHeader(platform, ph));
  EXPECT_EQ(ph.name, "ship") << "a failed update changes nothing";
}
