#pragma once
// Helpers of the range-file tests: a file written for the test, read into a
// scenario, with what the reader printed and complained about.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "document/ScenarioUD.h"

struct CsvLoad {
  std::unique_ptr<ScenarioUD> scenario = std::make_unique<ScenarioUD>();
  int result = -1;
  std::string out;     // standard output
  std::string err;     // standard error
  std::string issues;  // the document's error stream

  PlatformUD* platform(const std::string& callsign) const { return scenario->findPlatform(callsign); }
  // The text of a category of a platform at time -1, or "" without one.
  std::string category(const PlatformUD* platform, const std::string& name) const;
  // The scenario's event texts (generic data of id 0), in time and key order.
  std::vector<std::string> events() const;
  // The generic values of an object under a tag.
  std::vector<std::string> generic(uint64_t id, const std::string& tag) const;
};

// Writes `text` to a file of its own and reads it with CSVFile.
CsvLoad loadCsv(const std::string& text, int useXYZ = 0);

// A SCORE file: packet header, optional extra header lines, then `body`.
std::string scoreFile(const std::string& body, const std::string& header = "");
// A PMRF file likewise.
std::string pmrfFile(const std::string& body, const std::string& header = "");

// A SCORE POS line on 15 January 2021 at `clock` (h,m,s) of a track.
std::string scorePos(const std::string& source, int tid, const std::string& clock, double lat, double lon,
                     double feet, double course, double knots, int squawk = 0, const std::string& tail = "");
// A SCORE LEG line of a track.
std::string scoreLeg(const std::string& source, int tid, const std::string& callsign, const std::string& vehicle,
                     int iff);
