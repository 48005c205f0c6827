// GeoJSON (RFC 7946): one Feature per platform, a LineString of its track or
// a Point for a platform that stands still, positions as longitude, latitude
// and altitude in degrees and metres on WGS-84.

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

json position(const GeoPoint& p) { return json::array({p.lon * DEGREES, p.lat * DEGREES, p.alt}); }

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
  json features = json::array();
  for (const PlatformTrack& track : scene.tracks) {
    const HostObject& platform = *track.object;
    const std::vector<const GeoPoint*> timed = timedPoints(track);
    json geometry;
    json times = json::array();
    if (timed.size() >= 2) {
      json line = json::array();
      for (const GeoPoint* p : timed) {
        line.push_back(position(*p));
        times.push_back(isoOrNull(year, p->time));
      }
      geometry = {{"type", "LineString"}, {"coordinates", std::move(line)}};
    } else {
      // One place: the timed point if there is one, else the last static one.
      const GeoPoint& p = timed.empty() ? track.points.back() : *timed.front();
      geometry = {{"type", "Point"}, {"coordinates", position(p)}};
      if (!timed.empty()) times.push_back(isoOrNull(year, p.time));
    }
    json properties = {{"name", platform.header.name},
                       {"icon", platform.header.icon},
                       {"originalId", platform.originalId},
                       {"id", platform.id},
                       {"static", timed.empty()},
                       {"times", std::move(times)}};
    properties["begin"] = timed.empty() ? json(nullptr) : isoOrNull(year, platform.data(SERIES_POINTS).minTime());
    properties["end"] = timed.empty() ? json(nullptr) : isoOrNull(year, platform.data(SERIES_POINTS).maxTime());
    const json objects = children(*scene.scenario, platform.id);
    if (!objects.empty()) properties["objects"] = objects;
    features.push_back({{"type", "Feature"}, {"geometry", std::move(geometry)}, {"properties", std::move(properties)}});
  }
  const json collection = {{"type", "FeatureCollection"}, {"features", std::move(features)}};
  out << collection.dump(-1, ' ', false, json::error_handler_t::replace) << "\n";
}

}  // namespace RefHost
