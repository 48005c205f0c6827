#pragma once
// KEPLER2ASI::convert: a Kepler keyword file (.kp) turned into ASI text, one
// ballistic platform with the points that the file's mode keeps.

#include <string>

namespace KEPLER2ASI {

// Writes the trajectory of `fileName` beside it: under the file's "otfile"
// name (its folder part dropped), else the input's name with ".asi" added.
// Times are timeOffset + tzero + the time in the run. 0 on success; -1
// after the message of a bad file, an output that can't be written, or a
// failed propagation (the points written so far stay on disk).
// `outputFile`, when not null, receives the path of the file written.
int convert(const std::string& fileName, double timeOffset, std::string* outputFile = nullptr);

}  // namespace KEPLER2ASI
