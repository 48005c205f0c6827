#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <ostream>

#include "host/ReferenceHost.h"
#include "host/TerminalText.h"
#include "host/cli/IsoTime.h"
#include "host/cli/Reports.h"
#include "host/cli/Tracks.h"

namespace RefHost {

namespace {

constexpr double DEGREES = 180.0 / M_PI;

std::string timeSpan(const HostObject& object, int year) {
  double first = std::numeric_limits<double>::infinity();
  double last = -first;
  bool anyRecord = false;
  for (const Series& series : object.series) {
    anyRecord = anyRecord || !series.empty();
    if (!series.hasTimedRecords()) continue;
    first = std::min(first, series.minTime());
    last = std::max(last, series.maxTime());
  }
  if (first <= last) return timeText(year, first) + "/" + timeText(year, last);
  return anyRecord ? "static" : "none";
}

std::string extent(const PlatformTrack& track) {
  if (!track.hasRecords) return "extent unknown (no data kept)";
  if (!track.problem.empty()) return "extent unknown (" + track.problem + ")";
  if (track.points.empty()) return "extent none";
  double latMin = track.points[0].lat, latMax = latMin, lonMin = track.points[0].lon, lonMax = lonMin;
  for (const GeoPoint& p : track.points) {
    latMin = std::min(latMin, p.lat);
    latMax = std::max(latMax, p.lat);
    lonMin = std::min(lonMin, p.lon);
    lonMax = std::max(lonMax, p.lon);
  }
  char text[160];
  std::snprintf(text, sizeof text, "lat %.6f..%.6f lon %.6f..%.6f", latMin * DEGREES, latMax * DEGREES,
                lonMin * DEGREES, lonMax * DEGREES);
  return text;
}

}  // namespace

void writeObjectList(std::ostream& out, const ReferenceHost& host) {
  const HostScenario& scenario = host.scenario();
  const int year = scenario.settings().referenceYear;
  TrackConverter converter(scenario);
  for (const auto& object : scenario.objects()) {
    out << kindName(object->kind) << " \"" << terminalSafe(object->header.name) << "\" id " << object->id
        << " parent " << object->parent << " points " << object->data(SERIES_POINTS).count() << " time "
        << timeSpan(*object, year);
    if (object->kind == KIND_PLATFORM) out << " " << terminalSafe(extent(converter.track(*object)));
    out << "\n";
  }
}

}  // namespace RefHost
