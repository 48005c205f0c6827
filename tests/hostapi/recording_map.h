#pragma once
// A function map for tests: it keeps a stack of context overrides as a host
// would, records every other request, and lets the test answer each one
// while the record is still alive.

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "hostapi/PIBase.h"
#include "hostapi/PIDataStructs.h"
#include "hostapi/PIFunctionMap.h"

class RecordingMap : public PIFunctionMap {
 public:
  struct Call {
    PIServerFunctions_t code;
    void* context;
    PIFunctionMap* map;
    PIFunctionMap** mapGlobal;
  };

  // Called for every request except the override requests.
  std::function<uint64_t(PIServerFunctions_t, void*)> responder;
  std::vector<Call> calls;
  std::vector<void*> overrides;
  int overrideRequests = 0;
  void* overrideRequestContext = reinterpret_cast<void*>(1);

  uint64_t dispatch(PIFunctionMap* map, void* context, PIServerFunctions_t code, void* params,
                    PIFunctionMap** mapGlobal) override {
    if (code == PI_OVERRIDE_THIS_POINTER) {
      ++overrideRequests;
      overrideRequestContext = context;
      auto* record = static_cast<PI_DATA_CATCHALL*>(params);
      switch (record->ints.at(0)) {
        case 0:
          overrides.push_back(record->pointers.at(0));
          return 0;
        case 1:
          if (!overrides.empty()) overrides.pop_back();
          return 0;
        default:
          return overrides.empty() ? 0 : reinterpret_cast<uintptr_t>(overrides.back());
      }
    }
    calls.push_back({code, context, map, mapGlobal});
    return responder ? responder(code, params) : 0;
  }
};

// Installs a RecordingMap for the length of a test and detaches it after.
class WithRecordingMap : public ::testing::Test {
 protected:
  void SetUp() override { PIBase::setFunctionMap(&map, &pluginContext); }
  void TearDown() override { PIBase::setFunctionMap(nullptr, nullptr); }

  // Answers `answer` to every request and hands each record to `inspect`.
  template <typename Record>
  void expectRecord(std::function<void(PIServerFunctions_t, Record&)> inspect, uint64_t answer = 0) {
    map.responder = [inspect, answer](PIServerFunctions_t code, void* params) {
      inspect(code, *static_cast<Record*>(params));
      return answer;
    };
  }

  RecordingMap map;
  int pluginContext = 0;
};
