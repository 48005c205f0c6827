#pragma once
// The plug-in's end of the host door: the two globals that the host hands
// over when it loads the plug-in, the API version, the caller-context
// override, and handle(), through which every client wrapper passes.

#include <cstdint>
#include <string>

#include "hostapi/PIFunctionMap.h"
#include "hostapi/PIServerFunctions.h"

class PIBase {
 public:
  // Version of the host API that this client layer is written against.
  static int majorVersion();
  static int minorVersion();
  static int revisionVersion();
  static int buildNumber();
  static std::string versionString();  // "major.minor.revision"
  static double legacyApiVersion();    // major + minor / 100

  // Installs the host's function map and the plug-in context; called once by
  // OPI_InitializeFunctionMap. setFunctionMap(nullptr, nullptr) detaches the
  // plug-in from its host again (clean-up, tests).
  static void setFunctionMap(PIFunctionMap* map, void* context);
  static PIFunctionMap* functionMap();
  static void* pluginContext();
  // Address of the function-map global, as handed to every dispatch.
  static PIFunctionMap** functionMapAddress();

  // Context override, kept by the host: while an override is pushed, handle()
  // passes it instead of the plug-in context. Each goes straight to the
  // dispatch with context 0 and PI_OVERRIDE_THIS_POINTER.
  static void pushOverrideThisPointer(void* context);
  static void popOverrideThisPointer();
  static void* getOverriddenThisPointer();
};

// The single door: one request, one answer. Without a function map it writes
// the two-line notice to the standard error stream and answers 0.
uint64_t handle(PIServerFunctions_t code, void* params);
