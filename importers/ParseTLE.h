#pragma once
// Reading a file of three-line element sets (a name line, then the two
// 69-column element lines; a set without its name line is accepted).

#include <iosfwd>
#include <map>
#include <string>

#include "importers/TleSettings.h"

namespace ParseTLE {

struct TwoLineElement {
  std::string name;
  std::string line1;
  std::string line2;
};

// Sets keyed, and so sorted, by object number.
using TleMap = std::map<long, TwoLineElement>;

// Reads settings.inputFile into `sets`: 0 on success; -1 when the file
// can't be opened or holds a format error, after the message and, for a
// format error, the help text. A second set with a number seen before is
// left out with a warning.
int parseTLEFile(const TLE2ASI::TleSettings& settings, TleMap& sets);
// The same over a stream.
int parseTLEStream(std::istream& in, TleMap& sets);

// Prints the help text on the format, on the standard output.
void correctTLEFormat();
// The help text.
const std::string& tleFormatHelp();

}  // namespace ParseTLE
