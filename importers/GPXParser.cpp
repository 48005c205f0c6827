#include "importers/GPXParser.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "core/TimeCalendar.h"
#include "core/ValidNumber.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"
#include "importers/ImporterSupport.h"
#include "importers/XmlTree.h"

namespace GPX {

namespace {

constexpr double kDegToRad = M_PI / 180.0;
constexpr size_t kBlockSize = 8192;
// Years that a GPS time can name; beyond them a time is not read.
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 9999;

void complain(const std::string& text) { Importers::tellFault(text); }

// A number as strtod reads it (leading blanks skipped, what does not read
// is 0), through from_chars: it is the reader's hottest call.
double number(const std::string& text) {
  const char* begin = text.data();
  const char* end = begin + text.size();
  while (begin < end && (*begin == ' ' || *begin == '\t' || *begin == '\r' || *begin == '\n')) ++begin;
  if (begin < end && *begin == '+') ++begin;
  double value = 0.0;
  // Trailing text is left unread, as strtod leaves it.
  if (orvCore::readExactDecimal(begin, end, false, value)) return value;
  if (std::from_chars(begin, end, value).ec != std::errc()) return std::strtod(text.c_str(), nullptr);
  return value;
}
double number(const std::string* text) { return text ? number(*text) : 0.0; }
double number(const XML::XmlTree* node) { return node ? number(node->value()) : 0.0; }

// Reads an unsigned run of digits at `p`; false when there is none.
// (Each time of a track point passes here: plain digits, not strtol.)
bool digits(const char*& p, long& value) {
  const char* start = p;
  value = 0;
  while (*p >= '0' && *p <= '9' && p - start < 9) value = value * 10 + (*p++ - '0');
  return p != start;
}

}  // namespace

// ---------------------------------------------------------------- time

double yearOffset(int fromYear, int toYear) { return Importers::yearOffset(fromYear, toYear); }

bool processTime(const std::string& text, double& seconds, int& year) {
  const char* p = text.c_str();
  while (*p == ' ' || *p == '\t' || *p == '\r' || *p == '\n') ++p;
  long y = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (!digits(p, y) || *p++ != '-' || !digits(p, month) || *p++ != '-' || !digits(p, day)) return false;
  if (*p == 'T' || *p == 't' || *p == ' ') {
    ++p;
    if (!digits(p, hour) || *p++ != ':' || !digits(p, minute) || *p++ != ':' || !digits(p, second)) return false;
    if (*p == '.' || *p == ',')
      for (++p; *p >= '0' && *p <= '9'; ++p) {
      }
  }
  if (y < kFirstYear || y > kLastYear || month < 1 || month > 12 || hour > 24 || minute > 59 || second > 60)
    return false;
  if (!orvCore::isValidDMY(static_cast<int>(day), static_cast<int>(month), static_cast<int>(y))) return false;
  // A zone other than UTC moves the time to UTC.
  double zone = 0.0;
  if (*p == '+' || *p == '-') {
    const double sign = *p == '-' ? -1.0 : 1.0;
    ++p;
    long zoneHour = 0, zoneMinute = 0;
    if (!digits(p, zoneHour)) return false;
    if (*p == ':') {
      ++p;
      if (!digits(p, zoneMinute)) return false;
    } else if (zoneHour >= 100) {
      zoneMinute = zoneHour % 100;
      zoneHour /= 100;
    }
    zone = sign * (zoneHour * 3600.0 + zoneMinute * 60.0);
  }
  int theYear = static_cast<int>(y);
  double value = orvCore::getYearDay(static_cast<int>(month) - 1, static_cast<int>(day), theYear) * 86400.0 +
                 hour * 3600.0 + minute * 60.0 + second - zone;
  if (value < 0.0 && theYear > kFirstYear) {
    --theYear;
    value += orvCore::daysPerYear(theYear) * 86400.0;
  } else if (value >= orvCore::daysPerYear(theYear) * 86400.0 && theYear < kLastYear) {
    value -= orvCore::daysPerYear(theYear) * 86400.0;
    ++theYear;
  }
  seconds = value;
  year = theYear;
  return true;
}

// ---------------------------------------------------------------- TrackData

TrackData::TrackData(ScenarioUD* scenario, bool waypoint, std::string name, std::string type)
    : scenario_(scenario),
      waypoint_(waypoint),
      name_(std::move(name)),
      type_(std::move(type)),
      icon_(waypoint ? "wpt" : "trk"),
      smallestYear_(INT_MAX) {}

void TrackData::addData(double time, int year, double latitude, double longitude, double altitude, double course,
                        double speed, bool hasCourse, bool hasSpeed) {
  PosInfo point;
  point.latitude = latitude;
  point.longitude = longitude;
  point.altitude = altitude;
  point.time = time;
  point.year = year;
  point.course = course;
  point.speed = speed;
  point.hasCourse = hasCourse;
  point.hasSpeed = hasSpeed;
  points_.push_back(point);
  // A waypoint's year 0 means "the scenario's"; it does not count.
  if (year > 0) smallestYear_ = std::min(smallestYear_, year);
}

bool TrackData::getOriginLLA(double* lla) const {
  if (points_.empty()) return false;
  // The earliest point; with equal times the first read.
  const PosInfo* first = &points_.front();
  for (const PosInfo& point : points_) {
    if (point.year < first->year || (point.year == first->year && point.time < first->time)) first = &point;
  }
  lla[0] = first->latitude;
  lla[1] = first->longitude;
  lla[2] = first->altitude;
  return true;
}

uint64_t TrackData::sendToASI(int referenceYear) {
  if (points_.empty()) return 0;
  const uint64_t id = scenario_->NewId();
  auto header = std::make_unique<PlatformHeaderUD>(scenario_->dataFormat());
  header->uniqueID = id;
  header->iconName = icon_;
  header->callSign = name_;
  header->coordSystem = orvCore::LLA;
  // A file whose first point is no place on earth leaves the scenario
  // without an origin; its platforms then have none either.
  const orvCore::CoordinateConverter& converter = scenario_->converter();
  if (converter.hasReferenceOrigin())
    header->SetReferenceLLA(converter.referenceLat(), converter.referenceLon(), converter.referenceAlt());
  auto platform = std::make_unique<PlatformUD>(scenario_, std::move(header));
  PlatformUD* made = platform.get();
  if (made->AddToScenario(scenario_) != UD_NO_ERROR) return 0;
  platform.release();
  scenario_->addCategoryData(id, -1.0, "Platform Type", type_);
  scenario_->addCategoryData(id, -1.0, "Data Format", "GPX");

  for (const PosInfo& point : points_) {
    const double time = point.year > 0 ? point.time + yearOffset(referenceYear, point.year) : point.time;
    const double position[3] = {point.latitude, point.longitude, point.altitude};
    // Every point carries an orientation: yaw is the course (0 without
    // one), pitch and roll 0. A speed without a course is therefore along 0.
    const double orientation[3] = {point.hasCourse ? point.course : 0.0, 0.0, 0.0};
    made->AddState(time, position, orientation, point.hasSpeed ? point.speed : -1.0);
  }
  points_.clear();
  // Points that the document refused all (no place on earth) leave nothing to show.
  if (made->Motion()->Size() == 0) {
    scenario_->deletePlatform(id);
    return 0;
  }
  return id;
}

std::string waypointIcon(const std::string& symbol) {
  static const std::pair<const char*, const char*> icons[] = {
      {"Block, Blue", "blue-block.png"}, {"Block, Green", "green-block.png"}, {"Block, Red", "red-block.png"},
      {"Flag, Blue", "blue-flag.png"},   {"Flag, Green", "green-flag.png"},   {"Flag, Red", "red-flag.png"},
      {"Pin, Blue", "blue-pin.png"},     {"Pin, Green", "green-pin.png"},     {"Pin, Red", "red-pin.png"}};
  for (const auto& icon : icons)
    if (symbol == icon.first) return icon.second;
  return "wpt";
}

// ---------------------------------------------------------------- the walk

namespace {

// Builds the tree of a GPX file and walks each child of the root as soon as
// its end tag has been read, dropping it then; track points are taken as
// they end. So a file of any length costs the memory of its points, not of
// its XML.
class GPXTreeParser : public XML::XmlTreeParser {
 public:
  GPXTreeParser(ScenarioUD* scenario, std::string fileName)
      : scenario_(scenario), fileName_(std::move(fileName)) {}

  bool wrongRoot() const { return wrongRoot_; }
  // At the end of the file: a file of waypoints only takes the year of the
  // file's own time.
  void finish();

 protected:
  void rootStarted_(XML::XmlTree& root) override;
  bool elementEnded_(XML::XmlTree& element, size_t depth) override;

 private:
  void trackPoint_(const XML::XmlTree& point);
  void track_(const XML::XmlTree& track);
  void waypoint_(const XML::XmlTree& waypoint);
  bool inTrackSegment_() const;
  // Makes the platform of a track or waypoint as soon as it is read. The
  // first timed track sets the reference year; a later one that starts in
  // an earlier year moves what was sent onto that year, so that no time is
  // negative and none is lost.
  void send_(std::unique_ptr<TrackData> track);
  void rebase_(int year);

  ScenarioUD* scenario_;
  std::string fileName_;
  bool wrongRoot_ = false;
  int fileYear_ = 0;
  bool started_ = false;
  int referenceYear_ = 0;        // 0 until a timed track has set it
  std::vector<uint64_t> timed_;  // platforms whose times count from referenceYear_
  std::unique_ptr<TrackData> track_in_;  // the track being read
  std::vector<PosInfo> pointBuffer_;     // the last sent track's, kept for the next
};

void GPXTreeParser::rootStarted_(XML::XmlTree& root) {
  if (!root.is("gpx")) {
    complain("Expecting \"gpx\", but found \"" + root.name() + "\".\n");
    wrongRoot_ = true;
    stop_();
    return;
  }
  Importers::tellInfo("GPX File: " + fileName_ + "\n");
}

bool GPXTreeParser::inTrackSegment_() const {
  const auto& open = openElements_();
  return open.size() == 3 && open[1]->is("trk") && open[2]->is("trkseg");
}

bool GPXTreeParser::elementEnded_(XML::XmlTree& element, size_t depth) {
  if (wrongRoot_) return true;
  if (depth == 3 && element.is("trkpt") && inTrackSegment_()) {
    trackPoint_(element);
    return true;
  }
  if (depth != 1) return false;
  if (element.is("trk")) {
    track_(element);
  } else if (element.is("wpt")) {
    waypoint_(element);
  } else if (element.is("metadata")) {
    // Only "metadata" carries the file's own time; the loose header
    // elements of GPX 1.0 ("name", "time", "bounds", ...) are told as
    // unsupported like any other element.
    double seconds = 0.0;
    if (const XML::XmlTree* time = element.child("time")) processTime(time->value(), seconds, fileYear_);
  } else {
    complain("Unsupported GPX element type on line " + std::to_string(element.line()) +
             " type: " + element.name() + "\n");
  }
  return true;
}

void GPXTreeParser::trackPoint_(const XML::XmlTree& point) {
  if (!track_in_) {
    track_in_ = std::make_unique<TrackData>(scenario_, false, "GPS TRK", "GPX trk");
    track_in_->adoptPointBuffer(std::move(pointBuffer_));
  }
  // One pass over the children: a point has a handful.
  const XML::XmlTree *time = nullptr, *elevation = nullptr, *course = nullptr, *speed = nullptr;
  for (const auto& child : point.children()) {
    const XML::XmlTree* node = child.get();
    if (!time && node->is("time")) time = node;
    else if (!elevation && node->is("ele")) elevation = node;
    else if (!course && node->is("course")) course = node;
    else if (!speed && node->is("speed")) speed = node;
  }
  if (time == nullptr) return;
  double seconds = 0.0;
  int year = 0;
  if (!processTime(time->value(), seconds, year)) {
    complain("Unreadable GPX time \"" + time->trimmedValue() + "\" on line " + std::to_string(time->line()) +
             ": point skipped\n");
    return;
  }
  double heading = 0.0;
  const bool hasCourse = course != nullptr && Importers::courseRadians(number(course), heading);
  track_in_->addData(seconds, year, number(point.attribute("lat")) * kDegToRad,
                     number(point.attribute("lon")) * kDegToRad, number(elevation), heading, number(speed), hasCourse,
                     speed != nullptr);
}

void GPXTreeParser::track_(const XML::XmlTree& track) {
  std::unique_ptr<TrackData> data = std::move(track_in_);
  if (!data) data = std::make_unique<TrackData>(scenario_, false, "GPS TRK", "GPX trk");
  if (const XML::XmlTree* name = track.child("name")) {
    const std::string text = name->trimmedValue();
    if (!text.empty()) data->setName(text);
  }
  send_(std::move(data));
}

void GPXTreeParser::waypoint_(const XML::XmlTree& waypoint) {
  const std::string* lat = waypoint.attribute("lat");
  const std::string* lon = waypoint.attribute("lon");
  if (lat == nullptr || lon == nullptr) return;
  auto data = std::make_unique<TrackData>(scenario_, true, "GPS WPT", "GPX wpt");
  // The waypoint's label: its description, else its comment ("name" is
  // not read: without either it stays "GPS WPT").
  for (const char* field : {"desc", "cmt"}) {
    const XML::XmlTree* node = waypoint.child(field);
    const std::string text = node ? node->trimmedValue() : std::string();
    if (!text.empty()) {
      data->setName(text);
      break;
    }
  }
  if (const XML::XmlTree* symbol = waypoint.child("sym")) data->setIcon(waypointIcon(symbol->trimmedValue()));
  data->addData(0.0, 0, number(lat) * kDegToRad, number(lon) * kDegToRad, number(waypoint.child("ele")), 0.0, 0.0,
                false, false);
  send_(std::move(data));
}

void GPXTreeParser::send_(std::unique_ptr<TrackData> track) {
  double origin[3];
  if (!track->getOriginLLA(origin)) return;
  if (!started_) {
    started_ = true;
    scenario_->setLatLonAlt(origin[0], origin[1], 0.0);
    scenario_->setCoordSystem(orvCore::LLA);
    scenario_->setClassification("UNCLASSIFIED", 0x8000ff00u);
    scenario_->setDesc(fileName_);
  }
  const int year = track->smallestYear();
  const bool timed = year != INT_MAX;
  if (timed && referenceYear_ == 0) {
    referenceYear_ = year;
    scenario_->setReferenceYear(year);
  } else if (timed && year < referenceYear_) {
    rebase_(year);
  }
  const uint64_t id = track->sendToASI(referenceYear_ ? referenceYear_ : scenario_->referenceYear());
  if (id != 0 && timed) timed_.push_back(id);
  if (!track->isWaypoint()) pointBuffer_ = track->releasePointBuffer();
}

void GPXTreeParser::rebase_(int year) {
  const double shift = yearOffset(year, referenceYear_);
  for (uint64_t id : timed_) scenario_->findPlatform(id)->Motion()->shiftTimes(shift);
  referenceYear_ = year;
  scenario_->setReferenceYear(year);
}

void GPXTreeParser::finish() {
  if (started_ && referenceYear_ == 0 && fileYear_ > 0) scenario_->setReferenceYear(fileYear_);
}

// A Latin-1 degree sign (0xB0) that is not part of a UTF-8 sequence would
// stop expat: it is written as a character reference instead. `previous`
// carries the byte before the block.
void escapeDegreeSigns(const char* block, size_t size, unsigned char& previous, std::string& out) {
  out.clear();
  for (size_t i = 0; i < size; ++i) {
    const unsigned char byte = static_cast<unsigned char>(block[i]);
    if (byte == 0xB0 && (previous & 0x80) == 0)
      out += "&#176;";
    else
      out += static_cast<char>(byte);
    previous = byte;
  }
}

}  // namespace

}  // namespace GPX

int ParseGPXFile(const std::string& fileName, ScenarioUD* scenario, bool append,
                 ScenarioUD::PercentCallback* progress) {
  // Appending needs nothing special: every track becomes a new platform.
  (void)append;
  std::FILE* file = std::fopen(fileName.c_str(), "rb");
  if (file == nullptr) {
    GPX::complain(std::string("\nERROR: Cannot open input file ") + fileName + "\n");
    return 1;
  }
  std::fseek(file, 0, SEEK_END);
  const long size = std::ftell(file);
  std::fseek(file, 0, SEEK_SET);
  GPX::GPXTreeParser parser(scenario, fileName);
  size_t done = 0;
  int percent = -1;
  std::string escaped;
  unsigned char previous = 0;
  int result = 0;
  for (;;) {
    // Blocks are read straight into expat's buffer.
    char* block = parser.buffer(GPX::kBlockSize);
    if (block == nullptr) {
      GPX::complain("XML Parser Error: " + parser.errorText() + " at line " + std::to_string(parser.errorLine()) +
                    "\n");
      result = 2;
      break;
    }
    const size_t got = std::fread(block, 1, GPX::kBlockSize, file);
    const bool last = got < GPX::kBlockSize;
    done += got;
    const int now = size > 0 ? static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(size)) : 100;
    if (progress && now != percent && progress->updateProgress(percent = now)) {
      result = UD_USER_CANCEL;
      break;
    }
    bool parsed = false;
    if (std::memchr(block, 0xB0, got) == nullptr) {
      if (got > 0) previous = static_cast<unsigned char>(block[got - 1]);
      parsed = parser.parseBuffer(got, last);
    } else {
      GPX::escapeDegreeSigns(block, got, previous, escaped);
      parsed = parser.parse(escaped.data(), escaped.size(), last);
    }
    if (!parsed) {
      if (!parser.wrongRoot())
        GPX::complain("XML Parser Error: " + parser.errorText() + " at line " + std::to_string(parser.errorLine()) +
                      "\n");
      result = parser.wrongRoot() ? 3 : 2;
      break;
    }
    if (last) break;
  }
  std::fclose(file);
  if (result == 0 && parser.wrongRoot()) result = 3;
  // What was read before a fault is kept: the caller decides.
  if (result != UD_USER_CANCEL) parser.finish();
  return result;
}

ImporterEntry gpxImporter() {
  return Importers::readerEntry({".gpx"}, "GPX", [](const std::string& path, ScenarioUD& scenario,
                                                   ScenarioUD::PercentCallback* progress) {
    return ParseGPXFile(path, &scenario, false, progress);
  });
}
