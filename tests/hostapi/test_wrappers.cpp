// Wrapper fillings: which code each operation sends and what it puts in
// which field, checked by a function map that inspects the record while the
// call is under way.

#include <gtest/gtest.h>

#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"
#include "hostapi/PIGUI.h"
#include "hostapi/PIKurvex.h"
#include "hostapi/PIORVIDE.h"
#include "hostapi/PIServices.h"
#include "recording_map.h"

namespace {

using PIData::PI_DATA_STRUCT;

class HostApiObjects : public WithRecordingMap {};

TEST_F(HostApiObjects, CreatePlatformSendsBothRecordsAndReturnsTheResultId) {
  PIData::PIPlatformHeader header;
  header.name = "ship";
  PIData::PIPlatformPoint point;
  point.time = 10.0;
  expectRecord<PI_DATA_STRUCT>([&](PIServerFunctions_t code, PI_DATA_STRUCT& s) {
    EXPECT_EQ(code, PI_CREATE_OBJECT);
    EXPECT_EQ(code, 248);
    EXPECT_EQ(s.pointer1, &header);
    EXPECT_EQ(static_cast<PIData::PIPlatformPoint*>(s.pointer2)->time, 10.0);
    EXPECT_EQ(s.kindMask, 1u);
    EXPECT_EQ(s.uniqueId, 0u);
    s.uniqueId = 77;
  });
  EXPECT_EQ(PIData::createPlatform(header, point), 77u);
  EXPECT_EQ(map.calls.size(), 1u);
}

TEST_F(HostApiObjects, CreateBeamAndGateCarryParentFlagAndOptionalPoint) {
  std::vector<PI_DATA_STRUCT> seen;
  expectRecord<PI_DATA_STRUCT>([&](PIServerFunctions_t, PI_DATA_STRUCT& s) {
    seen.push_back(s);
    s.uniqueId = 5;
  });
  PIData::PIBeamPoint beamPoint;
  EXPECT_EQ(PIData::createBeam(11, PIData::PIBeamHeader(), &beamPoint, true), 5u);
  EXPECT_EQ(PIData::createBeam(11, PIData::PIBeamHeader(), nullptr, false), 5u);
  EXPECT_EQ(PIData::createGate(12, PIData::PIGateHeader(), nullptr, true), 5u);
  ASSERT_EQ(seen.size(), 3u);
  EXPECT_EQ(seen[0].objectId, 11u);
  EXPECT_EQ(seen[0].kindMask, 2u);
  EXPECT_EQ(seen[0].intValue, 1);
  EXPECT_EQ(seen[0].pointer2, &beamPoint);
  EXPECT_EQ(seen[1].intValue, -1);
  EXPECT_EQ(seen[1].pointer2, nullptr);
  EXPECT_EQ(seen[2].objectId, 12u);
  EXPECT_EQ(seen[2].kindMask, 4u);
}

TEST_F(HostApiObjects, CreateLaserPassesTheOriginalIdByAddress) {
  expectRecord<PI_DATA_STRUCT>([](PIServerFunctions_t, PI_DATA_STRUCT& s) {
    EXPECT_EQ(s.kindMask, 32u);
    EXPECT_EQ(s.objectId, 3u);
    ASSERT_NE(s.pointer2, nullptr);
    EXPECT_EQ(*static_cast<uint64_t*>(s.pointer2), 999u);
    EXPECT_EQ(static_cast<PIData::PILaserHeader*>(s.pointer1)->name, "laser");
  });
  PIData::PILaserHeader header;
  header.name = "laser";
  EXPECT_EQ(PIData::createLaser(3, header, 999), 0u);  // the host made nothing
}

TEST_F(HostApiObjects, OtherCreatorsUseTheirKindMask) {
  std::vector<uint32_t> kinds;
  expectRecord<PI_DATA_STRUCT>([&](PIServerFunctions_t, PI_DATA_STRUCT& s) {
    kinds.push_back(s.kindMask);
    EXPECT_NE(s.pointer1, nullptr);
  });
  PIData::createLob(1, PIData::PILobHeader());
  PIData::createProjector(1, PIData::PIProjectorHeader());
  PIData::createCustomRendering(0, PIData::PICustomRenderingHeader());
  PIData::createGenericData(0, PIData::PIGenericDataPoint());
  EXPECT_EQ(kinds, (std::vector<uint32_t>{64, 128, 256, 16}));
}

TEST_F(HostApiObjects, GetHeaderIsTrueOnlyForANonZeroAnswer) {
  expectRecord<PI_DATA_STRUCT>(
      [](PIServerFunctions_t code, PI_DATA_STRUCT& s) {
        EXPECT_EQ(code, PI_GET_HEADER);
        EXPECT_EQ(s.objectId, 9u);
        EXPECT_EQ(s.kindMask, 4u);
        static_cast<PIData::PIGateHeader*>(s.pointer1)->name = "from host";
      },
      1);
  PIData::PIGateHeader header;
  EXPECT_TRUE(PIData::getHeader(9, header));
  EXPECT_EQ(header.name, "from host");
  map.responder = [](PIServerFunctions_t, void*) { return uint64_t{0}; };
  EXPECT_FALSE(PIData::getHeader(9, header));
}

TEST_F(HostApiObjects, ListsTellAllFromChildren) {
  std::vector<PI_DATA_STRUCT> seen;
  expectRecord<PI_DATA_STRUCT>([&](PIServerFunctions_t code, PI_DATA_STRUCT& s) {
    EXPECT_EQ(code, PI_GET_OBJECT_LIST);
    seen.push_back(s);
    static_cast<std::vector<uint64_t>*>(s.pointer1)->push_back(4);
  });
  std::vector<uint64_t> out;
  PIData::getBeamList(out);
  PIData::getGateList(8, out);
  EXPECT_EQ(out, (std::vector<uint64_t>{4, 4}));
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].intValue, 0);
  EXPECT_EQ(seen[0].kindMask, 2u);
  EXPECT_EQ(seen[1].intValue, 1);
  EXPECT_EQ(seen[1].objectId, 8u);
  EXPECT_EQ(seen[1].kindMask, 4u);
}

class HostApiData : public WithRecordingMap {};

TEST_F(HostApiData, ScalarOperationsPassTheBareValue) {
  map.responder = [](PIServerFunctions_t code, void* params) {
    EXPECT_EQ(code, PI_SET_WIND_SPEED);
    EXPECT_EQ(*static_cast<double*>(params), 12.5);
    return uint64_t{0};
  };
  EXPECT_EQ(PIData::setWindSpeed(12.5), 0);
  map.responder = [](PIServerFunctions_t code, void* params) {
    EXPECT_EQ(code, PI_GET_REFERENCE_YEAR);
    *static_cast<int32_t*>(params) = 2024;
    return uint64_t{0};
  };
  EXPECT_EQ(PIData::getReferenceYear(), 2024);
}

TEST_F(HostApiData, AddCategoryDataAnswersTheSecondInteger) {
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 247);
    EXPECT_EQ(c.ints, (std::vector<int64_t>{0, 0}));
    ASSERT_EQ(c.pointers.size(), 2u);
    EXPECT_EQ(*static_cast<uint64_t*>(c.pointers[0]), 31u);
    EXPECT_EQ(static_cast<PIData::PICategoryDataPoint*>(c.pointers[1])->categoryName, "Type");
    c.ints[1] = 6;
  });
  PIData::PICategoryDataPoint point;
  point.categoryName = "Type";
  EXPECT_EQ(PIData::addCategoryData(31, point), 6);
}

TEST_F(HostApiData, ClockOperationsShareOneCodeWithSubOperations) {
  std::vector<int64_t> subs;
  expectRecord<PI_DATA_CATCHALL>([&](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 246);
    subs.push_back(c.ints.at(0));
    if (c.ints[0] == 12) *static_cast<double*>(c.pointers.at(0)) = 100.0;
    if (c.ints[0] == 4) {
      EXPECT_EQ(*static_cast<double*>(c.pointers.at(0)), 100.0);
      EXPECT_EQ(*static_cast<double*>(c.pointers.at(1)), 0.0);
    }
  });
  PIData::clockSetTime(PIData::clockGetBegin(), 0.0);
  PIData::clockAutoConfigureBeginEnd();
  PIData::clockSetTimeFormat(PIData::PI_TIME_FORMAT_SECONDS);
  EXPECT_EQ(subs, (std::vector<int64_t>{12, 4, 10, 19}));
}

TEST_F(HostApiData, LaserOperationsKeepTheirArgumentOrder) {
  std::vector<PI_DATA_STRUCT> seen;
  expectRecord<PI_DATA_STRUCT>([&](PIServerFunctions_t code, PI_DATA_STRUCT& s) {
    EXPECT_EQ(code, PI_LASER_DATA);
    seen.push_back(s);
  });
  PIData::addLaserMaxRangeDataPoint(2, 5000.0, 7.0);
  PIData::addLaserWidthDataPoint(2, 8.0, 3);
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].intValue, 2);
  EXPECT_EQ(seen[0].value1, 7.0);
  EXPECT_EQ(seen[0].value2, 5000.0);
  EXPECT_EQ(seen[1].intValue, 3);
  EXPECT_EQ(seen[1].value1, 8.0);
  EXPECT_EQ(seen[1].longValue, 3u);
}

TEST_F(HostApiData, OrientationOffsetComesBackFromTheRecord) {
  expectRecord<PI_DATA_STRUCT>([](PIServerFunctions_t code, PI_DATA_STRUCT& s) {
    EXPECT_EQ(code, 258);
    EXPECT_EQ(s.intValue, 1);
    s.value1 = 0.1;
    s.value2 = 0.2;
    s.value3 = 0.3;
  });
  const PIData::PIPoint p = PIData::getObjectOrientationOffset(4);
  EXPECT_EQ(p.x, 0.1);
  EXPECT_EQ(p.z, 0.3);
}

TEST_F(HostApiData, RefusalsReachTheCaller) {
  map.responder = [](PIServerFunctions_t, void*) { return uint64_t{1}; };
  EXPECT_NE(PIData::addDataPoint(1, PIData::PIBeamPoint()), 0);
  EXPECT_NE(PIData::setStatus(1, PIData::PI_VISIBILITY_ON, 0.0), 0);
}

class HostApiTables : public WithRecordingMap {};

TEST_F(HostApiTables, AddDataTableReadsTheIdFromTheIntegers) {
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 261);
    EXPECT_EQ(c.ints, (std::vector<int64_t>{1, 0}));
    EXPECT_EQ(c.strings, (std::vector<std::string>{"speeds"}));
    ASSERT_EQ(c.pointers.size(), 4u);
    EXPECT_EQ(*static_cast<uint64_t*>(c.pointers[0]), 15u);
    EXPECT_EQ(static_cast<std::vector<std::string>*>(c.pointers[1])->size(), 2u);
    c.ints[1] = 40;
  });
  int64_t tableId = 0;
  EXPECT_EQ(PIData::addDataTable(15, "speeds", {"a", "b"}, {UTILS::VT_FLOAT64, UTILS::VT_STRING}, &tableId), 0);
  EXPECT_EQ(tableId, 40);
}

TEST_F(HostApiTables, FailuresAndShortAnswersAreFailures) {
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t, PI_DATA_CATCHALL& c) { c.ints.clear(); });
  int64_t tableId = 99;
  EXPECT_NE(PIData::findDataTable(1, "x", &tableId), 0);
  EXPECT_EQ(tableId, 0);
  EXPECT_NE(PIData::addDataTableRow(3, DataTableRowT(1.0)), 0);
  int64_t column = 5;
  EXPECT_NE(PIData::addDataTableColumn(3, &column, "c", UTILS::VT_INT32, UTILS::UNITS_METERS), 0);
  EXPECT_EQ(column, 0);
}

TEST_F(HostApiTables, AddColumnAnswersTheNewColumnId) {
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(c.ints, (std::vector<int64_t>{5, 0, 3, UTILS::VT_INT32, UTILS::UNITS_METERS, 0}));
    EXPECT_EQ(c.strings.at(0), "c");
    c.ints[5] = 12;
  });
  int64_t column = 0;
  EXPECT_EQ(PIData::addDataTableColumn(3, &column, "c", UTILS::VT_INT32, UTILS::UNITS_METERS), 0);
  EXPECT_EQ(column, 12);
}

class HostApiCommon : public WithRecordingMap {};

TEST_F(HostApiCommon, NotifyCarriesSeverityTextAndPrefix) {
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 325);
    EXPECT_EQ(c.ints, (std::vector<int64_t>{3}));
    EXPECT_EQ(c.strings, (std::vector<std::string>{"Line 4 X: bad\n", ""}));
  });
  PICommon::notify("Line 4 X: bad\n", PICommon::PI_NOTIFY_WARN, "");
  EXPECT_EQ(map.calls.size(), 1u);
}

TEST_F(HostApiCommon, FileDialogAnswersTheHostsText) {
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 163);
    EXPECT_EQ(c.ints, (std::vector<int64_t>{1}));
    EXPECT_EQ(c.strings,
              (std::vector<std::string>{"Import Files", "", "LastFileReaderDirectory", "filter", "SETTINGS"}));
    ASSERT_EQ(c.pointers.size(), 2u);
    *static_cast<std::string*>(c.pointers[1]) = "/a.asi;/b.asi";
  });
  EXPECT_EQ(PICommon::showFileLoadDialog("Import Files", "", "LastFileReaderDirectory", "filter", true, nullptr,
                                         "SETTINGS"),
            "/a.asi;/b.asi");
}

TEST_F(HostApiCommon, ApplicationIdDecidesTheRunningInQueries) {
  map.responder = [](PIServerFunctions_t code, void* params) {
    EXPECT_EQ(code, PI_APPLICATION_INFO);
    EXPECT_EQ(static_cast<PI_DATA_CATCHALL*>(params)->ints.at(0), 0);
    return uint64_t{PICommon::PI_HOST_KURVEX10};
  };
  EXPECT_TRUE(PIKurvex::runningInKurvex10());
  EXPECT_FALSE(PIKurvex::runningInKurvex());
  EXPECT_FALSE(PIORVIDE::runningInORVIDE());
}

TEST_F(HostApiCommon, AdvancedOpenRefusesANullDelegateWithoutACall) {
  EXPECT_NE(PICommon::registerFileOpenAdvancedGui("*.asi", "ASI", nullptr, 2), 0);
  EXPECT_TRUE(map.calls.empty());
}

TEST_F(HostApiCommon, ActionsCarryTheCallbackTheHostWillCall) {
  struct Target {
    int hits = 0;
    long onCmd(void*, void*) { return ++hits; }
  } target;
  PICommon::PIMemberCallback<Target> callback(&target, &Target::onCmd);
  expectRecord<PI_DATA_CATCHALL>([](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 319);
    if (c.ints.at(0) == 0) {
      EXPECT_EQ(c.strings, (std::vector<std::string>{"Show ASI Import", "File Reader"}));
      static_cast<PICommon::PICallbackFunctor*>(c.pointers.at(0))->call(nullptr, nullptr);
    }
  });
  PICommon::createAction("Show ASI Import", "File Reader", &callback);
  EXPECT_EQ(target.hits, 1);
}

class HostApiGui : public WithRecordingMap {};

TEST_F(HostApiGui, RegistryUsesKeyAndOutputString) {
  expectRecord<PI_DATA_POINTER_STRING_AND_STRING>(
      [](PIServerFunctions_t code, PI_DATA_POINTER_STRING_AND_STRING& r) {
        EXPECT_EQ(code, PI_REGISTRY_GET_VALUE);
        EXPECT_EQ(r.text1, "Always Append By Name and Original ID");
        *static_cast<std::string*>(r.pointer) = "False";
      });
  EXPECT_EQ(PIGUI::PIRegistry::getValue("Always Append By Name and Original ID"), "False");
}

TEST_F(HostApiGui, ProgressDialogAddressesTheHostsHandle) {
  std::vector<std::vector<int64_t>> requests;
  expectRecord<PI_DATA_CATCHALL>(
      [&](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
        EXPECT_EQ(code, 162);
        requests.push_back(c.ints);
      },
      55);
  {
    PIGUI::PIProgressDialog dialog(nullptr, "Reading File", "Reading file a.asi.  Please wait...", true, 1000);
    dialog.setValue(500);
    EXPECT_TRUE(dialog.isCanceled());
  }
  ASSERT_EQ(requests.size(), 4u);
  EXPECT_EQ(requests[0], (std::vector<int64_t>{0, 1, 1000}));
  EXPECT_EQ(requests[1], (std::vector<int64_t>{3, 55, 500}));
  EXPECT_EQ(requests[2], (std::vector<int64_t>{5, 55, 0}));
  EXPECT_EQ(requests[3], (std::vector<int64_t>{7, 55, 0}));
}

TEST_F(HostApiGui, RefusedDialogSendsNothingMore) {
  PIGUI::PIProgressDialog dialog(nullptr, "t", "l", true, 100);
  dialog.show();
  dialog.runWhileEvents();
  EXPECT_FALSE(dialog.isCanceled());
  EXPECT_EQ(map.calls.size(), 1u);
}

TEST(HostApiGarbageCollector, DeletesWhatItHolds) {
  static int destroyed = 0;
  struct Counted : PIObject {
    ~Counted() override { ++destroyed; }
  };
  auto* a = new Counted;
  auto* b = new Counted;
  PIGarbageCollector::global()->add(a);
  PIGarbageCollector::global()->add(a);
  PIGarbageCollector::global()->add(b);
  EXPECT_EQ(PIGarbageCollector::global()->size(), 2u);
  EXPECT_TRUE(PIGarbageCollector::global()->remove(b));
  PIGarbageCollector::destroyGlobal();
  EXPECT_EQ(destroyed, 1);
  delete b;
}

class HostApiServices : public WithRecordingMap {};

struct Signals : PluginClient::Interfaces::SignalInterface {
  std::vector<std::string> raised;
  int raiseSignal(const std::string& name) override {
    raised.push_back(name);
    return 0;
  }
};

TEST_F(HostApiServices, BindConnectsTheOfferedInterfaceAndUnbindClearsIt) {
  Signals service;
  expectRecord<PI_DATA_CATCHALL>([&](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    EXPECT_EQ(code, 322);
    auto* client = static_cast<PICommon::ServiceClient*>(c.pointers.at(0));
    if (c.ints.at(0) == 0 && c.strings.at(0) == PluginClient::Interfaces::SIGNAL_SERVICE_NAME)
      client->onServiceConnected(&service);
    if (c.ints.at(0) == 1) client->onServiceDisconnected();
  });
  PluginClient::Interfaces::SignalClient client;
  client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  ASSERT_NE(client.getInterface(), nullptr);
  client.getInterface()->raiseSignal(PluginClient::Interfaces::APPEND_DATA_SIGNAL);
  client.unbind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  EXPECT_EQ(client.getInterface(), nullptr);
  EXPECT_EQ(service.raised, (std::vector<std::string>{"kesmet.orvide/PluginClient/SignalService/AppendData/1.0"}));
}

TEST_F(HostApiServices, AMissingOrMismatchedServiceLeavesTheInterfaceNull) {
  Signals wrongKind;
  expectRecord<PI_DATA_CATCHALL>([&](PIServerFunctions_t, PI_DATA_CATCHALL& c) {
    if (c.ints.at(0) == 0) static_cast<PICommon::ServiceClient*>(c.pointers.at(0))->onServiceConnected(&wrongKind);
  });
  PluginClient::Interfaces::FileLocatorService locator;
  locator.bind(PluginClient::Interfaces::FILE_LOCATOR_SERVICE_NAME);
  EXPECT_EQ(locator.getInterface(), nullptr);
  locator.unbind(PluginClient::Interfaces::FILE_LOCATOR_SERVICE_NAME);
}

TEST_F(HostApiServices, AClientDestroyedWhileBoundUnbindsItself) {
  std::vector<int64_t> subs;
  expectRecord<PI_DATA_CATCHALL>([&](PIServerFunctions_t, PI_DATA_CATCHALL& c) { subs.push_back(c.ints.at(0)); });
  {
    PluginClient::Interfaces::SignalClient client;
    client.bind(PluginClient::Interfaces::SIGNAL_SERVICE_NAME);
  }
  EXPECT_EQ(subs, (std::vector<int64_t>{0, 1}));
}

class HostApiDisplay : public WithRecordingMap {};

TEST_F(HostApiDisplay, GogAndAntennaRecords) {
  std::vector<PIServerFunctions_t> codes;
  expectRecord<PI_DATA_CATCHALL>([&](PIServerFunctions_t code, PI_DATA_CATCHALL& c) {
    codes.push_back(code);
    if (code == PI_LOAD_GOG_FILE) {
      EXPECT_EQ(c.ints, (std::vector<int64_t>{1}));
      EXPECT_EQ(c.strings.at(0), "a.gog");
      EXPECT_EQ(*static_cast<uint64_t*>(c.pointers.at(0)), 6u);
    } else {
      EXPECT_EQ(c.ints, (std::vector<int64_t>{1, 4, 2}));
      EXPECT_EQ(*static_cast<double*>(c.pointers.at(1)), 20.0);
      EXPECT_EQ(*static_cast<double*>(c.pointers.at(3)), 7000.0);
    }
  });
  PIORVIDE::loadGOGFile("a.gog", 6, true);
  PIORVIDE::setAntennaInfo(6, PIORVIDE::PI_ANTENNA_ALGORITHM, PIORVIDE::PI_ALGORITHM_SINXX,
                           PIORVIDE::PI_POLARITY_VERTICAL, "", 20.0, 2000.0, 7000.0);
  EXPECT_EQ(codes, (std::vector<PIServerFunctions_t>{PI_LOAD_GOG_FILE, PI_SET_ANTENNA_INFO}));
  EXPECT_EQ(PI_LOAD_GOG_FILE, 428);
}

}  // namespace
