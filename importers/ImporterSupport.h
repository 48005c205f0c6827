#pragma once
// Helpers shared by the side-format readers.

#include <iosfwd>
#include <string>

namespace Importers {

// Seconds between the starts of two years (negative when `toYear` is earlier).
double yearOffset(int fromYear, int toYear);

// A course in degrees as radians in [0, 2 pi): files write 370 or -10 too.
// False for a value that is not finite.
bool courseRadians(double degrees, double& radians);

// Where the readers' progress lines go ("GPX File: ...", the WAM track
// summaries): nowhere unless a stream is set. Faults go to the document's
// error stream instead. Answers the previous stream.
std::ostream* setInfoStream(std::ostream* stream);
void tellInfo(const std::string& text);

}  // namespace Importers
