#pragma once
// Pieces shared by the writer's families.

#include <cstdint>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>

#include "document/ASIOutput.h"
#include "document/ConvenienceFuncsUD.h"

namespace ASIOutputSupport {

constexpr double TO_DEG = 57.29577951308232;

inline std::string hex8(uint32_t value) {
  std::ostringstream text;
  text << "0x" << std::hex << std::uppercase << std::setw(8) << std::setfill('0') << value;
  return text.str();
}

// A host colour (0xRRGGBBAA) in the AABBGGRR order of ASI text.
inline std::string asiColor(uint32_t rgba) { return hex8(__builtin_bswap32(rgba)); }

// An angle as the file's DegreeAngles setting reads it.
inline double angleOut(double radians, const DataFormatUD& format) {
  return format.degreeAngles ? radians * TO_DEG : radians;
}

// Writes "<keyword>\t<id> "<time>"" and answers true; with a time that
// cannot be written, reports and answers false, and nothing is written.
inline bool timedLine(std::ostream& os, const char* keyword, uint64_t id, double time, const DataFormatUD& format,
                      const std::string& label) {
  std::string text;
  if (!getOutputTimeString(time, format.timeFormat, format.referenceYear, text, label)) {
    writeErrorStreamUD("ERROR:  Unable to obtain " + label + " time string.\n");
    return false;
  }
  os << keyword << "\t" << id << " \"" << text << "\"";
  return true;
}

inline void originalId(std::ostream& os, uint64_t id, uint64_t originalId) {
  if (originalId != 0) os << "OriginalID\t" << id << " " << originalId << "\n";
}

}  // namespace ASIOutputSupport
