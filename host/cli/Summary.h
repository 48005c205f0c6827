#pragma once
// The one-screen summary that scenario-host prints at the end of a run.

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace RefHost {

class ReferenceHost;
class MessageLog;

struct LoadOutcome {
  std::string path;
  bool reported = true;  // false when the path gives no result (the dialog)
  int result = 0;
  bool skipped = false;  // not loaded: the run was interrupted before it
  // The number of points that each object held once this file was loaded,
  // by unique id: which file brought which point.
  std::map<std::uint64_t, std::size_t> pointsAfter;
};

// "loaded", "canceled", ... for a load result.
const char* resultName(int result);
// The exit status of the loads: the first non-zero result, mapped 0, 1, 2 ->
// the same, -1 -> 3, -2 -> 4, anything else -> 3; a file skipped after an
// interrupt counts as canceled.
int exitStatus(const std::vector<LoadOutcome>& outcomes);

// The path of the file that brought point `index` (from 0) of an object;
// "" when no load is on record for it.
std::string fileOfPoint(const std::vector<LoadOutcome>& outcomes, std::uint64_t id, std::size_t index);

struct RunVerdict {
  int exitStatus = 0;
  std::string why;  // what decided a status other than the loads' own
};

void writeSummary(std::ostream& out, const ReferenceHost& host, const std::vector<LoadOutcome>& outcomes,
                  const MessageLog& messages, const RunVerdict& verdict);

}  // namespace RefHost
