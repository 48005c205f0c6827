#include "host/cli/Tracks.h"

#include <cmath>
#include <memory>

#include <nlohmann/json.hpp>

#include "core/Coordinate.h"
#include "core/CoordinateConverter.h"
#include "core/Notify.h"
#include "host/HostScenario.h"
#include "hostapi/PIDataStructs.h"

namespace RefHost {

namespace {

// The host's frame numbers (PICoordSystem_t) as the core's systems.
orvCore::CoordinateSystem coreSystem(int hostSystem) {
  switch (hostSystem) {
    case 0: return orvCore::NED;
    case 1: return orvCore::NWU;
    case 2: return orvCore::ENU;
    case 3: return orvCore::LLA;
    case 4: return orvCore::ECEF;
    case 5: return orvCore::XEAST;
    case 8: return orvCore::GTP;
    case 9: return orvCore::ECI;
    default: return orvCore::NONE;
  }
}

bool needsOrigin(orvCore::CoordinateSystem system) {
  return system == orvCore::NED || system == orvCore::NWU || system == orvCore::ENU || system == orvCore::XEAST ||
         system == orvCore::GTP;
}

// Collects what the converter reports at error level instead of letting it
// reach the terminal; the caller turns it into one clear problem.
class CaptureErrors : public orvNotify::NotifyHandler {
 public:
  void notify(const std::string& text) override { captured += text; }
  std::string captured;
};

class ErrorCapture {
 public:
  ErrorCapture() : previous_(orvNotify::notifyHandler(orvNotify::ERROR_LEVEL)), handler_(std::make_shared<CaptureErrors>()) {
    orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, handler_);
  }
  ~ErrorCapture() { orvNotify::setNotifyHandler(orvNotify::ERROR_LEVEL, previous_); }
  std::string text() const {
    std::string t = handler_->captured;
    while (!t.empty() && (t.back() == '\n' || t.back() == ' ')) t.pop_back();
    return t;
  }

 private:
  std::shared_ptr<orvNotify::NotifyHandler> previous_;
  std::shared_ptr<CaptureErrors> handler_;
};

}  // namespace

struct TrackConverter::Frame {
  orvCore::CoordinateSystem system = orvCore::NONE;
  orvCore::CoordinateConverter converter;
  double eciReferenceTime = 0.0;
  std::string problem;
};

TrackConverter::TrackConverter(const HostScenario& scenario) : scenario_(scenario) {}
TrackConverter::~TrackConverter() = default;

const TrackConverter::Frame& TrackConverter::frame_(std::uint32_t index) {
  if (index >= frames_.size()) frames_.resize(index + 1);
  if (frames_[index]) return *frames_[index];
  auto frame = std::make_unique<Frame>();
  if (index >= scenario_.frames().size()) {
    frame->problem = "its points name a coordinate frame the host never received";
  } else {
    const nlohmann::json f = nlohmann::json::parse(scenario_.frames().at(index), nullptr, false);
    const int hostSystem = f.value("coordSystem", -1);
    frame->system = coreSystem(hostSystem);
    frame->eciReferenceTime = f.value("eciReferenceTime", 0.0);
    const double lat = f.value("latitude", PIData::PI_UNSET_DOUBLE);
    const double lon = f.value("longitude", PIData::PI_UNSET_DOUBLE);
    const bool hasOrigin = lat != PIData::PI_UNSET_DOUBLE && lon != PIData::PI_UNSET_DOUBLE;
    if (frame->system == orvCore::NONE) {
      frame->problem = "its points are in coordinate system " + std::to_string(hostSystem) + ", which is no known frame";
    } else if (needsOrigin(frame->system) && !hasOrigin) {
      frame->problem = "its points are in the " + orvCore::coordinateSystemName(frame->system) +
                       " frame, which has no reference origin";
    } else {
      if (hasOrigin) frame->converter.setReferenceOrigin(lat, lon, f.value("altitude", 0.0));
      frame->converter.setTangentPlaneOffsets(f.value("tangentPlaneX", 0.0), f.value("tangentPlaneY", 0.0),
                                              f.value("tangentPlaneAngle", 0.0));
      if (needsOrigin(frame->system) && frame->converter.originState() == orvCore::CoordinateConverter::ORIGIN_DEGENERATE &&
          frame->system != orvCore::XEAST && frame->system != orvCore::GTP)
        frame->problem = "its points are in the " + orvCore::coordinateSystemName(frame->system) +
                         " frame, whose reference origin lies at a pole";
    }
  }
  frames_[index] = std::move(frame);
  return *frames_[index];
}

PlatformTrack TrackConverter::track(const HostObject& platform) {
  PlatformTrack track;
  track.object = &platform;
  const Series& points = platform.data(SERIES_POINTS);
  track.hasRecords = points.keepsRecords();
  if (!track.hasRecords) return track;
  ErrorCapture capture;
  track.points.reserve(points.count());
  for (std::size_t i = 0; i < points.count(); ++i) {
    // time, x, y, z, yaw, pitch, roll, vx, vy, vz, frame
    const double* r = points.record(i);
    const Frame& frame = frame_(static_cast<std::uint32_t>(r[10]));
    if (!frame.problem.empty()) {
      track.problem = frame.problem;
      break;
    }
    // An ECI frame turns with the earth from its reference time on; a static
    // point is taken at that time.
    const double elapsed = r[0] == -1.0 ? 0.0 : r[0] - frame.eciReferenceTime;
    const orvCore::Coordinate in(frame.system, orvCore::Vec3(r[1], r[2], r[3]), orvCore::Vec3(r[4], r[5], r[6]),
                                 orvCore::Vec3(r[7], r[8], r[9]), elapsed);
    orvCore::Coordinate lla;
    orvCore::Coordinate ecef;
    bool finite = true;
    for (int k = 1; k <= 9; ++k) finite = finite && std::isfinite(r[k]);
    if (!finite || frame.converter.convert(in, lla, orvCore::LLA) != 0 ||
        frame.converter.convert(in, ecef, orvCore::ECEF) != 0) {
      const std::string why = capture.text();
      track.problem = "point " + std::to_string(i + 1) + " does not convert to latitude and longitude" +
                      (why.empty() ? std::string(finite ? "" : " (a value is not a number)") : " (" + why + ")");
      break;
    }
    GeoPoint p;
    p.index = i;
    p.time = r[0];
    p.lat = lla.position().lat();
    p.lon = lla.position().lon();
    p.alt = lla.position().alt();
    p.orientation = lla.orientation();
    const orvCore::Vec3& v = lla.velocity();
    p.speed = std::sqrt(v.x() * v.x() + v.y() * v.y() + v.z() * v.z());
    p.ecef = ecef.position();
    track.points.push_back(p);
  }
  // Never half a track: a platform that does not convert whole is left out.
  if (!track.problem.empty()) track.points.clear();
  return track;
}

std::vector<PlatformTrack> TrackConverter::allPlatforms() {
  std::vector<PlatformTrack> tracks;
  for (const auto& object : scenario_.objects())
    if (object->kind == KIND_PLATFORM) tracks.push_back(track(*object));
  return tracks;
}

}  // namespace RefHost
