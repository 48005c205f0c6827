// A refused operation answers failure in its own convention and changes
// nothing: for each operation, the host's whole dump is compared before and
// after the refused call, and the same call succeeds on a host that does not
// refuse it.

#include <cstdio>
#include <fstream>
#include <functional>

#include "HostFixture.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIGUI.h"
#include "hostapi/PIORVIDE.h"
#include "hostapi/PIServices.h"

using namespace PIData;

namespace {

struct RefusalCase {
  const char* op;
  // Runs the operation once; answers true when its answer means failure.
  std::function<bool()> failed;
};

void PrintTo(const RefusalCase& c, std::ostream* os) { *os << c.op; }

class Noop : public PICommon::PICallbackFunctor {
 public:
  long call(void*, void*) override { return 0; }
};

const std::string& existingFile() {
  static const std::string path = [] {
    std::string p = std::string(ORV_BINARY_DIR) + "/refhost_refusal.gog";
    std::ofstream(p) << "start\nend\n";
    return p;
  }();
  return path;
}

PIPlatformPoint point(double t) {
  PIPlatformPoint p;
  p.time = t;
  return p;
}

// Ids of the prepared scenario: platform 1 "ship", beam 2 "radar", gate 3,
// laser 4, LOB 5, projector 6; data table 1 on the platform.
const std::vector<RefusalCase>& cases() {
  static const std::vector<RefusalCase> all = {
      {"initializeScenario", [] { return initializeScenario("other", 0, PI_PROTOCOL_NONE, false) != 0; }},
      {"deleteScenario", [] { return deleteScenario() != 0; }},
      {"setReferenceYear", [] { return setReferenceYear(2030) != 0; }},
      {"setClassification", [] { return setClassification("SECRET") != 0; }},
      {"setWindSpeed", [] { return setWindSpeed(3.0) != 0; }},
      {"setOriginLLA", [] { return setOriginLLA(0.1, 0.2, 0.3) != 0; }},
      {"setScenarioFileName", [] { return setScenarioFileName("x.asi") != 0; }},
      {"clockSetTime", [] { return clockSetTime(9.0, 0.0) != 0; }},
      {"clockAutoConfigureBeginEnd", [] { return clockAutoConfigureBeginEnd() != 0; }},
      {"createPlatform", [] { return createPlatform(PIPlatformHeader{"new", "", 0}, point(1)) == 0; }},
      {"createBeam", [] { return createBeam(1, PIBeamHeader(), nullptr, true) == 0; }},
      {"createGate", [] { return createGate(2, PIGateHeader(), nullptr, true) == 0; }},
      {"createLob", [] { return createLob(1, PILobHeader()) == 0; }},
      {"createLaser", [] { return createLaser(1, PILaserHeader(), 0) == 0; }},
      {"createProjector", [] { return createProjector(1, PIProjectorHeader()) == 0; }},
      {"createCustomRendering", [] { return createCustomRendering(0, PICustomRenderingHeader()) == 0; }},
      {"createGenericData", [] { return createGenericData(1, PIGenericDataPoint()) == 0; }},
      {"updateHeader", [] { return updateHeader(1, PIPlatformHeader{"renamed", "", 0}) != 0; }},
      {"getHeader",
       [] {
         PIPlatformHeader h;
         return !getHeader(1, h) && h.name.empty();
       }},
      {"findPlatform", [] { return findPlatform("ship") == 0; }},
      {"findBeam", [] { return findBeam("radar") == 0; }},
      {"getPlatformList",
       [] {
         std::vector<uint64_t> out;
         return getPlatformList(out) != 0 && out.empty();
       }},
      {"findObjectsByOriginalID",
       [] {
         std::vector<uint64_t> out;
         return findObjectsByOriginalID(0, out) != 0 && out.empty();
       }},
      {"getObjectType", [] { return getObjectType(1) == 0; }},
      {"addDataPoint", [] { return addDataPoint(1, point(5)) != 0; }},
      {"addDataPoints", [] { return addDataPoints(1, {point(5), point(6)}) != 0; }},
      {"addLaserOriDataPoint", [] { return addLaserOriDataPoint(4, PILaserPoint()) != 0; }},
      {"addLaserMaxRangeDataPoint", [] { return addLaserMaxRangeDataPoint(4, 10.0, 1.0) != 0; }},
      {"addLobDrawStyle", [] { return addLobDrawStyle(5, PILobDrawStyle()) != 0; }},
      {"addProjectorFOV", [] { return addProjectorFOV(6, 1.0, 0.5) != 0; }},
      {"setProjectorRasterFileName", [] { return setProjectorRasterFileName(6, "r.png") != 0; }},
      {"setStatus", [] { return setStatus(2, PI_VISIBILITY_ON, 1.0) != 0; }},
      {"setColor", [] { return setColor(2, 0xFFFFFFFFu, 1.0) != 0; }},
      {"setTarget", [] { return setTarget(2, 1, 1.0) != 0; }},
      {"setObjectOffset", [] { return setObjectOffset(2, PIPoint{1, 2, 3}) != 0; }},
      {"setObjectOrientationOffset", [] { return setObjectOrientationOffset(2, PIPoint{1, 2, 3}) != 0; }},
      {"setAzimuthOffset", [] { return setAzimuthOffset(2, 0.5) != 0; }},
      {"setPlatformInterpolate", [] { return setPlatformInterpolate(1, true) != 0; }},
      {"setPlatformRCSPatternFileName", [] { return setPlatformRCSPatternFileName(1, "a.rcs") != 0; }},
      {"addCategoryData", [] { return addCategoryData(1, PICategoryDataPoint{1.0, "k", "v"}) != 0; }},
      {"flushEntityData", [] { return flushEntityData(1, PI_FLUSH_ALL) != 0; }},
      {"addDataTable",
       [] {
         int64_t id = -1;
         return addDataTable(1, "Other", {"a"}, {UTILS::VT_INT32}, &id) != 0 && id == 0;
       }},
      {"findDataTable",
       [] {
         int64_t id = -1;
         return findDataTable(1, "Fuel", &id) != 0 && id == 0;
       }},
      {"addDataTableRow",
       [] {
         DataTableRowT row(1.0);
         row.addCell(1, new DataTableCellTyped<double>(1.0));
         return addDataTableRow(1, row) != 0;
       }},
      {"loadGOGFile", [] { return PIORVIDE::loadGOGFile(existingFile(), 0, true) != 0; }},
      {"setValue", [] { return PIGUI::PIRegistry::setValue("key", "value") != 0; }},
      {"createAction",
       [] {
         static Noop noop;
         return PICommon::createAction("Show ASI Import", "File Reader", &noop) == 0;
       }},
      {"registerFileHandler", [] { return PICommon::registerFileHandler("*.asi", "ASI", 3) != 0; }},
      {"showFileLoadDialog",
       [] { return PICommon::showFileLoadDialog("Import Files", "", "", "", true, nullptr, "").empty(); }},
      {"bind",
       [] {
         PluginClient::Interfaces::SignalClient client;
         return client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME) != 0 && !client.getInterface();
       }},
  };
  return all;
}

class Refusals : public HostTest, public ::testing::WithParamInterface<RefusalCase> {
 protected:
  void prepare(bool refuse) {
    RefHost::HostConfig config;
    if (refuse) config.refusals.insert(GetParam().op);
    config.fileDialogAnswers = {"/data/a.asi"};
    start(config);
    // Built behind the door, so that the refusal cannot get in the way.
    RefHost::HostScenario& s = host->scenario();
    s.initialize("prepared.asi", 0, 0, false);
    RefHost::ObjectHeader h;
    h.name = "ship";
    const uint64_t platform = s.create(RefHost::KIND_PLATFORM, 0, h, 0);
    const double first[11] = {0, 1, 2, 3, 0, 0, 0, 0, 0, 0, 0};
    s.frames().intern("{}");
    s.addRecord(platform, RefHost::SERIES_POINTS, first);
    h.name = "radar";
    const uint64_t beam = s.create(RefHost::KIND_BEAM, platform, h, 0);
    h.name = "gate";
    s.create(RefHost::KIND_GATE, beam, h, 0);
    h.name = "laser";
    h.frame = s.frames().intern("{}");
    s.create(RefHost::KIND_LASER, platform, h, 0);
    h.name = "lob";
    s.create(RefHost::KIND_LOB, platform, h, 0);
    h.name = "projector";
    s.create(RefHost::KIND_PROJECTOR, platform, h, 0);
    s.addTable(platform, "Fuel", {RefHost::TableColumn{0, "level", UTILS::VT_FLOAT64, 0}});
  }

  nlohmann::json state() const {
    nlohmann::json j = host->toJson();
    j["host"].erase("requests");
    return j;
  }
};

}  // namespace

TEST_P(Refusals, RefusedOperationFailsAndChangesNothing) {
  prepare(true);
  const nlohmann::json before = state();
  EXPECT_TRUE(GetParam().failed()) << GetParam().op << " was not refused";
  EXPECT_EQ(state(), before) << GetParam().op << " changed the host";
}

TEST_P(Refusals, TheSameCallSucceedsWithoutTheRefusal) {
  prepare(false);
  EXPECT_FALSE(GetParam().failed()) << GetParam().op << " fails even when not refused";
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, Refusals, ::testing::ValuesIn(cases()),
                         [](const ::testing::TestParamInfo<RefusalCase>& info) { return std::string(info.param.op); });

TEST_F(HostTest, RefusalIsMarkedInTheTrace) {
  RefHost::HostConfig config;
  config.refusals = {"addDataPoint"};
  start(config);
  std::stringstream trace;
  host->setTraceStream(&trace);
  const uint64_t platform = scenarioWithPlatform();
  EXPECT_NE(addDataPoint(platform, platformPoint(3.0)), 0);
  std::string line, last;
  while (std::getline(trace, line)) last = line;
  const nlohmann::json j = nlohmann::json::parse(last);
  EXPECT_EQ(j["op"], "addDataPoint");
  EXPECT_EQ(j["refused"], true);
  EXPECT_EQ(j["answer"], 1);
  EXPECT_EQ(j["args"]["point"]["time"], 3.0) << "a refused request is traced with its arguments";
}
