#pragma once
// The host's side of the door. The host hands the plug-in one object of a
// subclass of PIFunctionMap; every request travels through dispatch().

#include <cstdint>

#include "hostapi/PIServerFunctions.h"

class PIFunctionMap {
 public:
  virtual ~PIFunctionMap() = default;

  // Serves one request. `map` is the object itself, `context` the caller's
  // plug-in context, `params` the request's parameter record (its type is
  // fixed by the code), and `mapGlobal` the address of the plug-in's own
  // function-map global. The answer's meaning is the operation's.
  virtual uint64_t dispatch(PIFunctionMap* map, void* context, PIServerFunctions_t code, void* params,
                            PIFunctionMap** mapGlobal) = 0;
};
