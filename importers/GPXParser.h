#pragma once
// The GPS exchange file reader: every track of a GPX file becomes a platform
// "GPS TRK" and every waypoint a platform "GPS WPT" of a ScenarioUD.
//
// Messages: "GPX File: <name>" on standard output; faults (XML errors, a
// root other than "gpx", unsupported elements, unreadable times) on
// standard error (Importers::tellInfo, tellFault). The host is told only
// the load's result.

#include <cstdint>
#include <string>
#include <vector>

#include "document/ScenarioUD.h"
#include "document/ImporterEntry.h"

namespace GPX {

// One point: latitude and longitude in radians, altitude in metres, time in
// seconds since the start of `year`, course in radians, speed in m/s.
struct PosInfo {
  double latitude = 0.0;
  double longitude = 0.0;
  double altitude = 0.0;
  double time = 0.0;
  double course = 0.0;
  double speed = 0.0;
  int year = 0;
  bool hasCourse = false;
  bool hasSpeed = false;
};

// The points of one track or waypoint, until they become a platform.
class TrackData {
 public:
  TrackData(ScenarioUD* scenario, bool waypoint, std::string name, std::string type);

  void setName(const std::string& name) { name_ = name; }
  const std::string& name() const { return name_; }
  const std::string& type() const { return type_; }
  bool isWaypoint() const { return waypoint_; }
  void setIcon(const std::string& icon) { icon_ = icon; }
  const std::string& icon() const { return icon_; }

  void addData(double time, int year, double latitude, double longitude, double altitude, double course,
               double speed, bool hasCourse, bool hasSpeed);
  size_t size() const { return points_.size(); }
  // The smallest year of the points; the largest int without any.
  int smallestYear() const { return smallestYear_; }
  // Latitude, longitude, altitude of the earliest point; false without points.
  bool getOriginLLA(double* lla) const;
  // Makes the platform and adds every point, its time moved from the
  // point's year into `referenceYear`. Nothing without points. Answers the
  // platform's id, 0 for none.
  uint64_t sendToASI(int referenceYear);
  // The point list's memory passes from one track to the next, so that a
  // long file grows it once rather than once per track.
  void adoptPointBuffer(std::vector<PosInfo> buffer) {
    buffer.clear();
    if (points_.empty()) points_.swap(buffer);
  }
  std::vector<PosInfo> releasePointBuffer() {
    points_.clear();
    return std::move(points_);
  }

 private:
  ScenarioUD* scenario_;
  bool waypoint_;
  std::string name_;
  std::string type_;
  std::string icon_;
  int smallestYear_;
  std::vector<PosInfo> points_;
};

// Seconds between the starts of two years (negative when `toYear` is earlier).
double yearOffset(int fromYear, int toYear);

// "yyyy-mm-ddThh:mm:ss[.fff][Z|+hh:mm|-hh:mm]": seconds since the start of
// the (UTC) year, which comes out in `year`. Fractions of a second are
// dropped. False, with `year` untouched, for a text that is not a real date.
bool processTime(const std::string& text, double& seconds, int& year);

// The icon of a waypoint symbol ("Flag, Red" -> "red-flag.png"); "wpt" for
// any other symbol.
std::string waypointIcon(const std::string& symbol);

}  // namespace GPX

// Reads a GPX file into `scenario`: 0 on success, UD_USER_CANCEL when
// `progress` (percent of the file read) answers true, another non-zero
// value when the file can't be opened, isn't well-formed XML or hasn't the
// root "gpx". What was read before a fault stays in the scenario.
int ParseGPXFile(const std::string& fileName, ScenarioUD* scenario, bool append,
                 ScenarioUD::PercentCallback* progress = nullptr);

// The ".gpx" entry of the importer table.
ImporterEntry gpxImporter();
