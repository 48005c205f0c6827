// CZML: a document packet with the clock, then one packet per platform with
// its availability and time-tagged cartographicDegrees, so that Cesium plays
// the scenario; a platform that stands still has a plain position.

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

#include <nlohmann/json.hpp>

#include "host/HostScenario.h"
#include "host/cli/Exports.h"
#include "host/cli/IsoTime.h"

namespace RefHost {

namespace {

using nlohmann::json;

constexpr double DEGREES = 180.0 / M_PI;

// Stands where the samples go until the packet is written.
const char* const SAMPLES = "@samples@";

std::string text(const json& value) { return value.dump(-1, ' ', false, json::error_handler_t::replace); }

json rgba(const Rgb& colour) {
  return json::array({static_cast<int>(colour.r * 255 + 0.5), static_cast<int>(colour.g * 255 + 0.5),
                      static_cast<int>(colour.b * 255 + 0.5), 255});
}

// Timed points with a calendar date, in time order: Cesium wants its samples
// sorted.
std::vector<const GeoPoint*> samples(const PlatformTrack& track, int year) {
  std::vector<const GeoPoint*> points;
  for (const GeoPoint* p : timedPoints(track))
    if (!isoTime(year, p->time).empty()) points.push_back(p);
  std::stable_sort(points.begin(), points.end(), [](const GeoPoint* a, const GeoPoint* b) { return a->time < b->time; });
  return points;
}

}  // namespace

void writeCzml(std::ostream& out, const ExportScene& scene) {
  const int year = scene.referenceYear;
  double first = std::numeric_limits<double>::infinity(), last = -first;
  for (const PlatformTrack& track : scene.tracks)
    for (const GeoPoint* p : samples(track, year)) {
      first = std::min(first, p->time);
      last = std::max(last, p->time);
    }

  json document = {{"id", "document"}, {"name", scene.scenario->settings().fileName}, {"version", "1.0"}};
  if (first <= last) {
    const std::string interval = isoTime(year, first) + "/" + isoTime(year, last);
    document["clock"] = {{"interval", interval}, {"currentTime", isoTime(year, first)}, {"multiplier", 10},
                         {"range", "LOOP_STOP"}, {"step", "SYSTEM_CLOCK_MULTIPLIER"}};
  }
  out << "[\n" << text(document);

  for (std::size_t i = 0; i < scene.tracks.size(); ++i) {
    const PlatformTrack& track = scene.tracks[i];
    const HostObject& platform = *track.object;
    json packet = {{"id", "platform-" + std::to_string(platform.id)}, {"name", platform.header.name}};
    packet["properties"] = {{"id", platform.id}, {"icon", platform.header.icon}, {"originalId", platform.originalId}};
    const std::vector<const GeoPoint*> timed = samples(track, year);
    if (timed.empty()) {
      const GeoPoint& p = track.points.back();
      packet["position"] = {{"cartographicDegrees", json::array({p.lon * DEGREES, p.lat * DEGREES, p.alt})}};
    } else {
      const double epoch = timed.front()->time;
      packet["availability"] = isoTime(year, epoch) + "/" + isoTime(year, timed.back()->time);
      // The samples are streamed into this placeholder's place below.
      packet["position"] = {{"epoch", isoTime(year, epoch)}, {"cartographicDegrees", SAMPLES}};
      packet["path"] = {{"material", {{"solidColor", {{"color", {{"rgba", rgba(platformColour(i))}}}}}}},
                        {"width", 2},
                        {"leadTime", 0},
                        {"trailTime", last - first + 1}};
    }
    packet["point"] = {{"pixelSize", 8}, {"color", {{"rgba", rgba(platformColour(i))}}}};
    packet["label"] = {{"text", platform.header.name}, {"pixelOffset", {{"cartesian2", json::array({10, -10})}}},
                       {"horizontalOrigin", "LEFT"}, {"font", "12px sans-serif"}};
    out << ",\n";
    const std::string head = text(packet);
    // Searched with its key: inside a string of the packet its quotes would
    // be escaped.
    const std::string marker = "\"cartographicDegrees\":" + text(SAMPLES);
    const std::size_t at = timed.empty() ? std::string::npos : head.find(marker);
    if (at == std::string::npos) {
      out << head;
      continue;
    }
    out << head.substr(0, at) << "\"cartographicDegrees\":[";
    const double epoch = timed.front()->time;
    for (std::size_t k = 0; k < timed.size(); ++k) {
      const GeoPoint& p = *timed[k];
      out << (k ? "," : "") << shortestNumber(p.time - epoch) << ',' << shortestNumber(p.lon * DEGREES) << ','
          << shortestNumber(p.lat * DEGREES) << ',' << shortestNumber(p.alt);
    }
    out << ']' << head.substr(at + marker.size());
  }
  out << "\n]\n";
}

}  // namespace RefHost
