#pragma once
// The one-screen summary that scenario-host prints at the end of a run.

#include <iosfwd>
#include <string>
#include <vector>

namespace RefHost {

class ReferenceHost;

struct LoadOutcome {
  std::string path;
  bool reported = true;  // false when the path gives no result (the dialog)
  int result = 0;
};

// "loaded", "canceled", ... for a load result.
const char* resultName(int result);
// The exit status of a run: the first non-zero result, mapped 0, 1, 2 -> the
// same, -1 -> 3, -2 -> 4, anything else -> 3.
int exitStatus(const std::vector<LoadOutcome>& outcomes);

void writeSummary(std::ostream& out, const ReferenceHost& host, const std::vector<LoadOutcome>& outcomes);

}  // namespace RefHost
