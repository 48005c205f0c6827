#pragma once
// What scenario-host reports beside the summary: the object listing
// (--list) and the sanity notes (--check).

#include <cstddef>
#include <iosfwd>
#include <vector>

#include "host/cli/Summary.h"

namespace RefHost {

class ReferenceHost;

// One line per object in creation order: kind, name, id, parent, points,
// ISO time span and, for a platform, its latitude and longitude extent.
void writeObjectList(std::ostream& out, const ReferenceHost& host);

struct CheckLimits {
  double maxSpeed = 1715.0;  // metres per second: Mach 5 at sea level
};

// Sanity notes on what the host received, one line "FILE: object NAME: ..."
// per object and kind of finding; answers the number of lines written.
std::size_t writeSanityNotes(std::ostream& out, const ReferenceHost& host, const std::vector<LoadOutcome>& outcomes,
                             const CheckLimits& limits);

}  // namespace RefHost
