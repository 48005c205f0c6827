// GeoJSON (RFC 7946): one Feature per platform, a LineString of its track or
// a Point for a platform that stands still, positions as longitude, latitude
// and altitude in degrees and metres on WGS-84. Coordinates and times are
// streamed, so that a long track needs no JSON tree.

#include <cmath>
#include <ostream>

#include <nlohmann/json.hpp>

#include "host/HostScenario.h"
#include "host/cli/Exports.h"
#include "host/cli/IsoTime.h"

namespace RefHost {

namespace {

using nlohmann::json;

constexpr double DEGREES = 180.0 / M_PI;

std::string text(const json& value) { return value.dump(-1, ' ', false, json::error_handler_t::replace); }

std::string position(const GeoPoint& p) {
  return "[" + shortestNumber(p.lon * DEGREES) + "," + shortestNumber(p.lat * DEGREES) + "," + shortestNumber(p.alt) +
         "]";
}

json isoOrNull(int year, double seconds) {
  const std::string iso = isoTime(year, seconds);
  return iso.empty() ? json(nullptr) : json(iso);
}

// The objects that hang on a platform (beams with their gates, lasers,
// lines of bearing, projectors, custom rendering), as plain descriptions.
json children(const HostScenario& scenario, std::uint64_t parent) {
  json list = json::array();
  for (const auto& object : scenario.objects()) {
    if (object->parent != parent) continue;
    json entry = {{"kind", kindName(object->kind)},
                  {"id", object->id},
                  {"name", object->header.name},
                  {"points", object->data(SERIES_POINTS).count()}};
    if (object->originalId != 0) entry["originalId"] = object->originalId;
    const json below = children(scenario, object->id);
    if (!below.empty()) entry["objects"] = below;
    list.push_back(std::move(entry));
  }
  return list;
}

}  // namespace

void writeGeoJson(std::ostream& out, const ExportScene& scene) {
  const int year = scene.referenceYear;
  out << "{\"type\":\"FeatureCollection\",\"features\":[";
  bool firstFeature = true;
  for (const PlatformTrack& track : scene.tracks) {
    const HostObject& platform = *track.object;
    const std::vector<const GeoPoint*> timed = timedPoints(track);
    // A line needs two points; one place is a Point: the timed point if
    // there is one, else the last static one.
    const bool line = timed.size() >= 2;
    std::vector<const GeoPoint*> vertices = timed;
    if (!line) vertices = {timed.empty() ? &track.points.back() : timed.front()};

    json properties = {{"name", platform.header.name},
                       {"icon", platform.header.icon},
                       {"originalId", platform.originalId},
                       {"id", platform.id},
                       {"static", timed.empty()}};
    properties["begin"] = timed.empty() ? json(nullptr) : isoOrNull(year, platform.data(SERIES_POINTS).minTime());
    properties["end"] = timed.empty() ? json(nullptr) : isoOrNull(year, platform.data(SERIES_POINTS).maxTime());
    const json objects = children(*scene.scenario, platform.id);
    if (!objects.empty()) properties["objects"] = objects;

    out << (firstFeature ? "\n" : ",\n") << "{\"type\":\"Feature\",\"geometry\":{\"type\":\""
        << (line ? "LineString" : "Point") << "\",\"coordinates\":";
    firstFeature = false;
    if (line) {
      out << '[';
      for (std::size_t i = 0; i < vertices.size(); ++i) out << (i ? "," : "") << position(*vertices[i]);
      out << ']';
    } else {
      out << position(*vertices.front());
    }
    std::string head = text(properties);
    head.pop_back();  // the closing brace: the times follow
    out << "},\"properties\":" << head << ",\"times\":[";
    for (std::size_t i = 0; i < timed.size() && (line || i == 0); ++i)
      out << (i ? "," : "") << text(isoOrNull(year, timed[i]->time));
    out << "]}}";
  }
  out << "\n]}\n";
}

}  // namespace RefHost
