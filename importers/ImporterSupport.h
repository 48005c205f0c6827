#pragma once
// Helpers shared by the side-format readers.

#include <iosfwd>
#include <string>

namespace Importers {

// Seconds between the starts of two years (negative when `toYear` is earlier).
double yearOffset(int fromYear, int toYear);

// Where the readers' progress lines go ("GPX File: ...", the WAM track
// summaries): nowhere unless a stream is set. Faults go to the document's
// error stream instead. Answers the previous stream.
std::ostream* setInfoStream(std::ostream* stream);
void tellInfo(const std::string& text);

}  // namespace Importers
