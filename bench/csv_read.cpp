// Reads a SCORE or PMRF file into a document, the reader alone, and prints
// the records read per second and the states kept.
// Usage: csv_read FILE

#include <chrono>
#include <iostream>
#include <sstream>

#include "document/ScenarioUD.h"
#include "importers/csv/CSVFile.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " FILE\n";
    return 64;
  }
  ScenarioUD scenario;
  CSVFile file;
  std::ostringstream console;
  std::streambuf* out = std::cout.rdbuf(console.rdbuf());
  const auto start = std::chrono::steady_clock::now();
  const int result = file.ParseCSVFile(argv[1], &scenario, -1, 0);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::cout.rdbuf(out);
  size_t states = 0;
  for (const auto& entry : scenario.platforms()) states += entry.second->Motion()->Size();
  std::cout << "result " << result << ", " << scenario.platforms().size() << " platforms, " << states << " states, "
            << seconds << " s, " << static_cast<long>(states / seconds) << " states/s\n";
  return result == 0 ? 0 : 1;
}
