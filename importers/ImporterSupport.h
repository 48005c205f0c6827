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

// The GPX, PET and WAM readers talk to the console, not to the host: their
// progress lines ("GPX File: ...", the WAM track summaries) go to standard
// output and their faults to standard error. The host sees only the load's
// result. Tests point either at a stream of their own; each setter answers
// the previous stream (null restores the console).
std::ostream* setInfoStream(std::ostream* stream);
std::ostream* setFaultStream(std::ostream* stream);
void tellInfo(const std::string& text);
void tellFault(const std::string& text);

}  // namespace Importers
