#pragma once
// Shared by the reader fuzzers: the input goes to a file of this process
// (the readers take file names), the readers' messages are swallowed, and
// broken invariants trap.

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>

#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

namespace fuzzsupport {

inline void check(bool condition) {
  if (!condition) __builtin_trap();
}

inline std::string inputFile(const char* extension) {
  const char* dir = std::getenv("TMPDIR");
  return std::string(dir && *dir ? dir : "/tmp") + "/orv_fuzz_" + std::to_string(getpid()) + extension;
}

inline void writeInput(const std::string& path, const uint8_t* data, size_t size) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  check(file != nullptr);
  if (size > 0) std::fwrite(data, 1, size, file);
  std::fclose(file);
}

// Silences standard output and the document's error stream while it lives.
class Quiet {
 public:
  Quiet()
      : out_(std::cout.rdbuf(sink_.rdbuf())), err_(std::cerr.rdbuf(sink_.rdbuf())), errors_(setErrorStreamUD(&sink_)) {}
  ~Quiet() {
    std::cout.rdbuf(out_);
    std::cerr.rdbuf(err_);
    setErrorStreamUD(errors_);
  }

 private:
  std::ostringstream sink_;
  std::streambuf* out_;
  std::streambuf* err_;
  std::ostream* errors_;
};

// Every state of every platform has a finite time and position.
inline void checkPlatforms(const ScenarioUD& scenario, bool requireStates) {
  for (const auto& entry : scenario.platforms()) {
    const auto& states = entry.second->Motion()->states();
    if (requireStates) check(!states.empty());
    for (const auto& state : states) {
      check(std::isfinite(state.time));
      check(std::isfinite(state.lat) && std::isfinite(state.lon) && std::isfinite(state.alt));
    }
  }
}

}  // namespace fuzzsupport
