#pragma once
// The platforms' points as positions on the WGS-84 ellipsoid, whatever frame
// the host received them in (LLA, ECEF, ECI, NED, NWU, ENU, XEAST, GTP), by
// way of the core's coordinate converter. The listing, the sanity checks and
// the exports all read positions from here.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Vec3.h"

namespace RefHost {

class HostScenario;
struct HostObject;

struct GeoPoint {
  std::size_t index = 0;  // the record's place in the platform's points
  double time = 0.0;      // seconds of the reference year; -1 static
  double lat = 0.0;       // radians
  double lon = 0.0;       // radians, -pi..pi
  double alt = 0.0;       // metres above the ellipsoid
  orvCore::Vec3 orientation;  // yaw, pitch, roll in radians against local north, east, down
  double speed = 0.0;         // metres per second, against the earth
  orvCore::Vec3 ecef;         // metres
};

struct PlatformTrack {
  const HostObject* object = nullptr;
  std::vector<GeoPoint> points;
  // Why the points could not be converted: then `points` is empty and the
  // platform is left out of everything that needs positions.
  std::string problem;
  // False in no-data mode, where the host keeps no records.
  bool hasRecords = true;
};

// Converts the points of every platform, in creation order. Conversion
// problems are collected, never reported on the way.
class TrackConverter {
 public:
  explicit TrackConverter(const HostScenario& scenario);
  ~TrackConverter();
  TrackConverter(const TrackConverter&) = delete;
  TrackConverter& operator=(const TrackConverter&) = delete;

  PlatformTrack track(const HostObject& platform);
  std::vector<PlatformTrack> allPlatforms();

 private:
  struct Frame;
  const Frame& frame_(std::uint32_t index);
  const HostScenario& scenario_;
  std::vector<std::unique_ptr<Frame>> frames_;
};

}  // namespace RefHost
