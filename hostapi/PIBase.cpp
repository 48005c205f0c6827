#include "hostapi/PIBase.h"

#include <iostream>

#include "hostapi/PIDataStructs.h"

namespace {

constexpr int kMajor = 1;
constexpr int kMinor = 27;
constexpr int kRevision = 0;
constexpr int kBuild = 12700;

// Sub-operations of PI_OVERRIDE_THIS_POINTER.
constexpr int64_t kOverridePush = 0;
constexpr int64_t kOverridePop = 1;
constexpr int64_t kOverrideGet = 2;

PIFunctionMap* g_functionMap = nullptr;
void* g_pluginContext = nullptr;

void reportMissingMap() {
  std::cerr << "Invalid Plug-in API Support Function Map.  Plug-in API calls are being made outside of the "
               "context of a loaded plug-in.\n";
  std::cerr << "API service request has not been processed." << std::endl;
}

uint64_t overrideRequest(int64_t subOperation, void* context) {
  if (!g_functionMap) {
    reportMissingMap();
    return 0;
  }
  // handle() asks for the override before every request, so one record per
  // thread serves them all: the host only reads it, and its vectors keep
  // their room from call to call instead of being allocated each time.
  // Taken by reference once: each use of a thread-local in a shared library
  // is a call.
  thread_local PI_DATA_CATCHALL record;
  PI_DATA_CATCHALL& params = record;
  params.ints.assign(1, subOperation);
  params.strings.clear();
  params.pointers.assign(1, context);
  return g_functionMap->dispatch(g_functionMap, nullptr, PI_OVERRIDE_THIS_POINTER, &params, &g_functionMap);
}

}  // namespace

int PIBase::majorVersion() { return kMajor; }
int PIBase::minorVersion() { return kMinor; }
int PIBase::revisionVersion() { return kRevision; }
int PIBase::buildNumber() { return kBuild; }

std::string PIBase::versionString() {
  return std::to_string(kMajor) + "." + std::to_string(kMinor) + "." + std::to_string(kRevision);
}

double PIBase::legacyApiVersion() { return kMajor + kMinor / 100.0; }

void PIBase::setFunctionMap(PIFunctionMap* map, void* context) {
  g_functionMap = map;
  g_pluginContext = context;
}

PIFunctionMap* PIBase::functionMap() { return g_functionMap; }
void* PIBase::pluginContext() { return g_pluginContext; }
PIFunctionMap** PIBase::functionMapAddress() { return &g_functionMap; }

void PIBase::pushOverrideThisPointer(void* context) { overrideRequest(kOverridePush, context); }

void PIBase::popOverrideThisPointer() { overrideRequest(kOverridePop, nullptr); }

void* PIBase::getOverriddenThisPointer() {
  return reinterpret_cast<void*>(static_cast<uintptr_t>(overrideRequest(kOverrideGet, nullptr)));
}

uint64_t handle(PIServerFunctions_t code, void* params) {
  void* context = g_functionMap ? PIBase::getOverriddenThisPointer() : nullptr;
  if (!context) context = g_pluginContext;
  if (!g_functionMap) {
    reportMissingMap();
    return 0;
  }
  return g_functionMap->dispatch(g_functionMap, context, code, params, &g_functionMap);
}
