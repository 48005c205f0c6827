#include "importers/wam/WAMLibrary.h"

#include <fstream>
#include <ostream>

namespace WAMLib {

Tokens WAMLibrary::tokenizeOnBackslash_(const std::string& line) {
  Tokens tokens;
  size_t start = 0;
  for (;;) {
    const size_t end = line.find('\\', start);
    tokens.push_back(line.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return tokens;
}

void WAMLibrary::reset() {
  platforms_.clear();
  records_ = 0;
  firstYear_ = 0;
}

WAMPlatform& WAMLibrary::platform_(const WAMBaseData& record) {
  const std::string id = record.unitTrackID();
  auto found = platforms_.find(id);
  if (found != platforms_.end()) return found->second;
  WAMPlatform& platform = platforms_[id];
  platform.track.unit = record.unit;
  platform.track.track = record.track;
  platform.track.truth = "N";
  return platform;
}

bool WAMLibrary::parseLine_(const std::string& line, std::ostream& errors) {
  Tokens tokens = tokenizeOnBackslash_(line);
  const std::string keyword = tokens.front();
  tokens.erase(tokens.begin());
  std::unique_ptr<WAMBaseData> record;
  if (keyword == "TRACK") record = std::make_unique<WAMTrack>();
  else if (keyword == "POINT") record = std::make_unique<WAMPoint>();
  else if (keyword == "ACTION") record = std::make_unique<WAMAction>();
  else {
    errors << "Unrecognized keyword: " << keyword << '\n';
    return false;
  }
  if (!record->parseLine(tokens, errors)) {
    errors << "\nUnable to parse " << keyword << ":\n" << line << '\n';
    return false;
  }
  ++records_;
  WAMPlatform& platform = platform_(*record);
  switch (record->getDataType()) {
    case WAM_TRACK:
      platform.track = static_cast<WAMTrack&>(*record);
      break;
    case WAM_POINT: {
      auto* point = static_cast<WAMPoint*>(record.release());
      if (firstYear_ == 0 || point->year < firstYear_) firstYear_ = point->year;
      platform.points.emplace_back(point);
      break;
    }
    case WAM_ACTION:
      platform.actions.emplace_back(static_cast<WAMAction*>(record.release()));
      break;
  }
  return true;
}

int WAMLibrary::parseStream(std::istream& in, std::ostream& errors, const Progress& progress) {
  std::streamoff size = -1;
  if (progress) {
    in.seekg(0, std::ios::end);
    size = in.tellg();
    in.seekg(0, std::ios::beg);
  }
  int dropped = 0;
  std::string line;
  for (size_t number = 1; std::getline(in, line); ++number) {
    if (progress && number % 4096 == 0 && size > 0 &&
        progress(static_cast<int>(100.0 * static_cast<double>(in.tellg()) / static_cast<double>(size))))
      return kCanceled;
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n' || line.back() == ' ' || line.back() == '\t'))
      line.pop_back();
    if (line.empty()) continue;
    if (!parseLine_(line, errors)) ++dropped;
  }
  return dropped;
}

int WAMLibrary::parseFile(const std::string& fileName, std::ostream& errors, const Progress& progress) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    errors << "Unable to open WAM file: " << fileName << '\n';
    return kCannotOpen;
  }
  return parseStream(in, errors, progress);
}

}  // namespace WAMLib
