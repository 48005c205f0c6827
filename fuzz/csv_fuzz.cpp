// Fuzzes the SCORE/PMRF reader: the first byte picks a header (SCORE packet
// header, PMRF packet header, or none), the rest is the file. Nothing may
// fault, the result is 0 or 1, no object is made that no line asked for,
// and every platform state is a finite position at a time that is not negative.

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"
#include "importers/csv/CSVFile.h"

namespace {

const std::string& path() {
  static const std::string name = "/tmp/csv_fuzz_" + std::to_string(getpid()) + ".csv";
  return name;
}

size_t countLines(const std::string& text, const char* record) {
  size_t count = 0;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line))
    if (line.compare(0, 3, record) == 0) ++count;
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  static const char* const headers[] = {"COM,x\nPKL,0,0,0,0,0,0,Source,TID\n", "COM,x\nPKL,0,0,0,0,0,0,VID,Lat\n", ""};
  const std::string text = std::string(headers[data[0] % 3]) + std::string(reinterpret_cast<const char*>(data + 1), size - 1);
  std::ofstream(path(), std::ios::binary | std::ios::trunc) << text;

  static std::ostringstream sink;
  sink.str("");
  std::streambuf* out = std::cout.rdbuf(sink.rdbuf());
  std::streambuf* err = std::cerr.rdbuf(sink.rdbuf());
  setErrorStreamUD(&sink);
  ScenarioUD scenario;
  CSVFile file;
  file.setOriginWarningPause(0);
  const int result = file.ParseCSVFile(path(), &scenario, -1, static_cast<int>(data[0] / 3 % 2));
  setErrorStreamUD(nullptr);
  std::cout.rdbuf(out);
  std::cerr.rdbuf(err);

  if (result != 0 && result != 1) abort();
  if (scenario.platforms().size() > countLines(text, "LEG") + countLines(text, "POS") + countLines(text, "EVT"))
    abort();
  for (const auto& entry : scenario.platforms())
    for (const MotionStateUD& s : entry.second->Motion()->states()) {
      if (s.time < 0.0 || !std::isfinite(s.lat) || !std::isfinite(s.lon)) abort();
    }
  return 0;
}
