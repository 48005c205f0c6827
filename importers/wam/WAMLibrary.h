#pragma once
// A WAM log read into tracks: every record of the file, grouped by the
// unit and track that it names.

#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "importers/wam/WAMRecords.h"

namespace WAMLib {

// One track: its TRACK record (made up from the unit and track when the
// file has none) with its points and actions in file order. A log is
// written as time goes on; a point that runs back in time is a fault that
// the reader's filter drops, so the points are not sorted.
class WAMPlatform {
 public:
  WAMTrack track;
  std::vector<std::unique_ptr<WAMPoint>> points;
  std::vector<std::unique_ptr<WAMAction>> actions;
};

class WAMLibrary {
 public:
  // Told the percent of the file read now and then; true cancels the read.
  using Progress = std::function<bool(int percent)>;
  static constexpr int kCannotOpen = -1;
  static constexpr int kCanceled = -2;

  // Reads a file; the result is the number of lines that were dropped,
  // kCannotOpen or kCanceled. Faults go to `errors`.
  int parseFile(const std::string& fileName, std::ostream& errors, const Progress& progress = nullptr);
  int parseStream(std::istream& in, std::ostream& errors, const Progress& progress = nullptr);
  const std::map<std::string, WAMPlatform>& platforms() const { return platforms_; }
  size_t recordCount() const { return records_; }
  // The smallest year of any point; 0 without points.
  int firstYear() const { return firstYear_; }
  void reset();

  // The fields of a line, split at every backslash (empty fields kept).
  static Tokens tokenizeOnBackslash_(const std::string& line);

 private:
  bool parseLine_(const std::string& line, std::ostream& errors);
  WAMPlatform& platform_(const WAMBaseData& record);

  std::map<std::string, WAMPlatform> platforms_;
  size_t records_ = 0;
  int firstYear_ = 0;
};

}  // namespace WAMLib
