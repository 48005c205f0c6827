#pragma once
// The settings of a TLE conversion, with the defaults the side-format
// loader gives.

#include <cstdint>
#include <string>

namespace TLE2ASI {

struct TleSettings {
  std::string inputFile;
  // Empty: the input's name with ".asi" added.
  std::string outputFile;
  std::string classification = "UNCLASSIFIED";
  uint32_t trackColor = 0x8000ff00;
  double step = 60.0;  // seconds
  double span = 24.0;  // hours
  bool useCurrentTime = false;
  int startYear = -1;
  double startSeconds = -1.0;  // seconds of startYear
  bool writeGog = false;
};

}  // namespace TLE2ASI
