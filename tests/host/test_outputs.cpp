// The three outputs (scenario dump, request trace, notification log) and
// the no-data mode.

#include <sstream>
#include <string>
#include <vector>

#include "HostFixture.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIServices.h"

using namespace PIData;
using nlohmann::json;

namespace {

std::vector<json> lines(const std::stringstream& text) {
  std::vector<json> out;
  std::istringstream in(text.str());
  std::string line;
  while (std::getline(in, line)) out.push_back(json::parse(line));
  return out;
}

// The trace without the context-override queries that precede every request.
std::vector<json> requests(const std::stringstream& text) {
  std::vector<json> out;
  for (json& j : lines(text))
    if (j["op"] != "getOverriddenThisPointer") out.push_back(std::move(j));
  return out;
}

json dumped(const RefHost::ReferenceHost& host) {
  std::stringstream text;
  host.writeDump(text);
  return json::parse(text.str());
}

}  // namespace

TEST_F(HostTest, TraceHasOneLinePerRequestWithArgumentsAndAnswer) {
  std::stringstream trace;
  host->setTraceStream(&trace);
  const uint64_t platform = scenarioWithPlatform("ship", 12);
  setColor(platform, 0xAABBCCDDu, 4.0);
  std::vector<uint64_t> ids;
  getPlatformList(ids);

  const std::vector<json> all = lines(trace);
  const std::vector<json> r = requests(trace);
  ASSERT_EQ(r.size(), 4u);
  EXPECT_EQ(all.size(), 8u) << "each request is preceded by the override query";
  EXPECT_EQ(all[0]["code"], 16);

  EXPECT_EQ(r[0]["op"], "initializeScenario");
  EXPECT_EQ(r[0]["code"], 200);
  EXPECT_EQ(r[0]["args"]["name"], "test.asi");
  EXPECT_EQ(r[0]["answer"], 0);

  EXPECT_EQ(r[1]["op"], "createPlatform");
  EXPECT_EQ(r[1]["code"], 248);
  EXPECT_EQ(r[1]["args"]["header"]["name"], "ship");
  EXPECT_EQ(r[1]["args"]["header"]["originalId"], 12);
  EXPECT_EQ(r[1]["args"]["point"]["frame"]["coordSystem"], PI_COORD_ECEF);
  EXPECT_EQ(r[1]["answer"], platform);

  EXPECT_EQ(r[2]["op"], "setColor");
  EXPECT_EQ(r[2]["args"], json({{"id", platform}, {"color", 0xAABBCCDDu}, {"time", 4.0}}));

  EXPECT_EQ(r[3]["op"], "getPlatformList");
  EXPECT_EQ(r[3]["out"], json::array({platform}));
  for (std::size_t i = 1; i < all.size(); ++i) EXPECT_GT(all[i]["seq"], all[i - 1]["seq"]);
}

TEST_F(HostTest, TraceNamesTheOperationsOfSharedCodes) {
  std::stringstream trace;
  host->setTraceStream(&trace);
  clockGetBegin();
  clockGetEnd();
  clockSetTimeFormat(PI_TIME_FORMAT_SECONDS);
  const uint64_t platform = scenarioWithPlatform();
  setObjectOrientationOffset(platform, PIPoint{1, 2, 3});
  getObjectOrientationOffset(platform);
  PICommon::parseAccelerator("Ctrl+Shift+A");
  std::vector<std::string> ops;
  for (const json& j : requests(trace)) ops.push_back(j["op"]);
  EXPECT_EQ(ops, std::vector<std::string>({"clockGetBegin", "clockGetEnd", "clockSetTimeFormat", "initializeScenario",
                                           "createPlatform", "setObjectOrientationOffset",
                                           "getObjectOrientationOffset", "parseAccelerator"}));
}

TEST_F(HostTest, ServiceCallsAreTracedWithoutACode) {
  std::stringstream trace;
  host->setTraceStream(&trace);
  PluginClient::Interfaces::SignalClient client;
  client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  client.getInterface()->raiseSignal(PluginClient::Interfaces::APPEND_DATA_SIGNAL);
  client.unbind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  const std::vector<json> r = requests(trace);
  ASSERT_EQ(r.size(), 3u);
  EXPECT_EQ(r[0]["op"], "bind");
  EXPECT_EQ(r[0]["args"]["name"], PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  EXPECT_EQ(r[1]["op"], "raiseSignal");
  EXPECT_TRUE(r[1]["code"].is_null());
  EXPECT_EQ(r[1]["args"]["name"], PluginClient::Interfaces::APPEND_DATA_SIGNAL);
  EXPECT_EQ(r[2]["op"], "unbind");
}

TEST_F(HostTest, NotificationLogKeepsTextExactly) {
  std::stringstream log;
  host->setNotificationLogStream(&log);
  PICommon::notify("Line 7 PlatformData: Invalid ID\n", PICommon::PI_NOTIFY_WARN, "");
  PICommon::notify("  two  spaces\ttab\n", PICommon::PI_NOTIFY_FATAL, "pre: ");
  const std::vector<json> l = lines(log);
  ASSERT_EQ(l.size(), 2u);
  EXPECT_EQ(l[0]["severity"], 3);
  EXPECT_EQ(l[0]["text"], "Line 7 PlatformData: Invalid ID\n");
  EXPECT_EQ(l[0]["prefix"], "");
  EXPECT_EQ(l[1]["severity"], 1);
  EXPECT_EQ(l[1]["text"], "  two  spaces\ttab\n");
  EXPECT_EQ(l[1]["prefix"], "pre: ");
}

TEST_F(HostTest, DumpHoldsScenarioObjectsAndHostState) {
  const uint64_t platform = scenarioWithPlatform("ship", 9);
  setReferenceYear(2020);
  addDataPoint(platform, platformPoint(10.0, 4.0));
  PICategoryDataPoint cat{-1.0, "Platform Type", "Ship"};
  addCategoryData(platform, cat);
  PIGenericDataPoint gd{1.0, -1.0, "tag", "value"};
  createGenericData(0, gd);
  const json d = dumped(*host);

  EXPECT_EQ(d["noData"], false);
  EXPECT_EQ(d["scenario"]["referenceYear"], 2020);
  EXPECT_EQ(d["scenario"]["initialized"], true);
  ASSERT_EQ(d["objects"].size(), 1u);
  const json& o = d["objects"][0];
  EXPECT_EQ(o["id"], platform);
  EXPECT_EQ(o["kind"], "platform");
  EXPECT_EQ(o["originalId"], 9);
  EXPECT_EQ(o["header"]["icon"], "ship.png");
  const json& points = o["data"]["points"];
  EXPECT_EQ(points["count"], 2);
  EXPECT_EQ(points["begin"], 0.0);
  EXPECT_EQ(points["end"], 10.0);
  EXPECT_EQ(points["fields"][1], "x");
  EXPECT_EQ(points["records"][1][1], 4.0);
  const json& frame = d["frames"].at(points["records"][1][10].get<std::size_t>());
  EXPECT_EQ(frame["coordSystem"], PI_COORD_ECEF) << "a point's frame is an index into the frames";
  EXPECT_EQ(o["data"]["categoryData"]["records"][0], json({-1.0, "Platform Type", "Ship"}));
  EXPECT_EQ(d["scenarioData"]["genericData"]["records"][0][2], "tag");
  EXPECT_EQ(d["statistics"]["points"], 2);
  EXPECT_EQ(d["host"]["application"], "display");
  EXPECT_TRUE(d["host"].contains("registry"));
}

TEST_F(HostTest, NoDataModeKeepsCountsAndSpansOnly) {
  RefHost::HostConfig config;
  config.noData = true;
  start(config);
  const uint64_t platform = scenarioWithPlatform();
  for (int i = 1; i <= 1000; ++i) addDataPoint(platform, platformPoint(i * 0.5));
  addDataPoint(platform, platformPoint(-1.0));
  PICategoryDataPoint cat{2.0, "k", "v"};
  addCategoryData(platform, cat);
  int64_t table = 0;
  addDataTable(platform, "T", {"a"}, {UTILS::VT_STRING}, &table);
  DataTableRowT row(3.0);
  row.addCell(1, new DataTableCellTyped<std::string>("text"));
  EXPECT_EQ(addDataTableRow(table, row), 0);

  const json d = dumped(*host);
  EXPECT_EQ(d["noData"], true);
  const json& points = d["objects"][0]["data"]["points"];
  EXPECT_EQ(points["count"], 1002);
  EXPECT_EQ(points["begin"], 0.0);
  EXPECT_EQ(points["end"], 500.0);
  EXPECT_FALSE(points.contains("records"));
  EXPECT_EQ(d["objects"][0]["data"]["categoryData"]["count"], 1);
  EXPECT_EQ(d["tables"][0]["rows"]["count"], 1);
  EXPECT_FALSE(d["tables"][0]["rows"].contains("records"));
  EXPECT_EQ(host->scenario().strings().size(), 0u) << "no strings of data kept";
  EXPECT_EQ(host->scenario().dataBytes(), 0u);

  // Look-ups and the clock still work on counts alone.
  EXPECT_EQ(findPlatform("ship"), platform);
  const uint64_t entry = createGenericData(platform, PIGenericDataPoint{4.0, -1.0, "tag", "value"});
  EXPECT_EQ(getObjectType(entry), PI_OBJECT_GENERIC_DATA) << "an entry keeps its type without its record";
  EXPECT_EQ(clockAutoConfigureBeginEnd(), 0);
  EXPECT_EQ(clockGetEnd(), 500.0);
}
