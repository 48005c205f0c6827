#pragma once
// Internal to the reference host: one request while it is served, and the
// band handlers that decode it. Each handler names the operation, checks the
// refusal list, records the arguments when tracing, and answers.

#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/ReferenceHost.h"
#include "hostapi/PIDataStructs.h"
#include "hostapi/PIServerFunctions.h"

namespace RefHost {

struct Request {
  PIServerFunctions_t code{};
  void* params = nullptr;
  void* context = nullptr;
  std::uint64_t sequence = 0;
  bool tracing = false;
  const char* op = "unknown";
  nlohmann::json args;  // made on the first argument, and only when tracing
  nlohmann::json out;  // what the host wrote back through pointers
  bool refused = false;
  const char* problem = nullptr;  // why a request could not be decoded
};

struct Dispatcher {
  ReferenceHost& host;

  // Names the operation; true when the configuration refuses it.
  bool refuse(Request& r, const char* op) {
    r.op = op;
    if (!host.config().outOfMemory.empty() && host.config().outOfMemory.count(op) != 0) throw std::bad_alloc();
    r.refused = !host.config().refusals.empty() && host.refuses(op);
    return r.refused;
  }
  // Records an argument for the trace; a callable is only called when
  // tracing, so that costly conversions are skipped otherwise.
  template <typename T>
  void arg(Request& r, const char* name, T&& value) {
    if (!r.tracing) return;
    if constexpr (std::is_invocable_v<T>) r.args[name] = value();
    else r.args[name] = std::forward<T>(value);
  }
  // The request's record as T, or null (with the reason kept) when the
  // pointer is null or the block does not hold the host's fixed values.
  template <typename T>
  T* record(Request& r) {
    if (!r.params) {
      r.problem = "null record";
      return nullptr;
    }
    T* rec = static_cast<T*>(r.params);
    if (!blockValid(rec->block())) {
      r.problem = "record block not recognised";
      return nullptr;
    }
    return rec;
  }
  static bool blockValid(const std::int32_t* block);

  std::uint64_t housekeeping(Request& r);  // below 100
  std::uint64_t gui(Request& r);           // 100-199
  std::uint64_t progress(Request& r);      // progress dialogs
  std::uint64_t scenario(Request& r);      // 200-280
  std::uint64_t clock(Request& r);         // the clock's sub-operations
  std::uint64_t objects(Request& r);       // object creation, look-ups, headers
  std::uint64_t objectData(Request& r);    // data of objects
  std::uint64_t tables(Request& r);        // data tables
  std::uint64_t common(Request& r);        // 300-399
  std::uint64_t services(Request& r);      // service binding
  std::uint64_t display(Request& r);       // 400 on
};

}  // namespace RefHost
