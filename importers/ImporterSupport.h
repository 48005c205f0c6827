#pragma once
// Helpers shared by the side-format readers.

#include <iosfwd>
#include <string>
#include <vector>

#include "document/ImporterEntry.h"

namespace Importers {

// The importer-table entry of a reader that answers 0, UD_USER_CANCEL, or
// any other value for a file it could not read (made UD_FATAL). `name`
// fills the texts: "Reading GPX file: ", "Fatal error when loading GPX file\n".
ImporterEntry readerEntry(std::vector<std::string> extensions, const std::string& name, ImporterEntry::Load read);

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
