#include "host/cli/Exports.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "host/HostScenario.h"
#include "host/TerminalText.h"

namespace RefHost {

ExportFormat exportFormat(const std::string& path) {
  const std::string::size_type dot = path.rfind('.');
  if (dot == std::string::npos || path.find('/', dot) != std::string::npos) return ExportFormat::None;
  std::string extension = path.substr(dot + 1);
  std::transform(extension.begin(), extension.end(), extension.begin(), [](unsigned char c) { return std::tolower(c); });
  if (extension == "geojson") return ExportFormat::GeoJson;
  if (extension == "csv") return ExportFormat::Csv;
  if (extension == "kml") return ExportFormat::Kml;
  if (extension == "czml") return ExportFormat::Czml;
  return ExportFormat::None;
}

namespace {

// Why a converted point can't be drawn on a map, or "" when it can. --check
// reports such points; an export would write a wrong number (or "inf").
std::string unplaceable(const PlatformTrack& track) {
  for (const GeoPoint& p : track.points) {
    const bool onEarth = std::fabs(p.lat) <= M_PI / 2 + 1e-9 && std::fabs(p.lon) <= 2 * M_PI + 1e-9 &&
                         std::isfinite(p.alt) && std::isfinite(p.ecef.x()) && std::isfinite(p.ecef.y()) &&
                         std::isfinite(p.ecef.z());
    if (!onEarth) return "point " + std::to_string(p.index + 1) + " is no position on the earth";
  }
  return std::string();
}

}  // namespace

ExportScene exportScene(const HostScenario& scenario) {
  ExportScene scene;
  scene.scenario = &scenario;
  scene.referenceYear = scenario.settings().referenceYear;
  TrackConverter converter(scenario);
  for (PlatformTrack& track : converter.allPlatforms()) {
    if (track.problem.empty()) track.problem = unplaceable(track);
    if (!track.problem.empty()) {
      // Never a wrong position: a platform that can't be placed stays out.
      scene.leftOut.push_back("platform \"" + terminalSafe(track.object->header.name) + "\" (id " +
                              std::to_string(track.object->id) + ") is left out: " + track.problem);
      continue;
    }
    if (track.points.empty()) continue;
    scene.tracks.push_back(std::move(track));
  }
  return scene;
}

std::vector<const GeoPoint*> timedPoints(const PlatformTrack& track) {
  std::vector<const GeoPoint*> points;
  for (const GeoPoint& p : track.points)
    if (p.time != -1.0) points.push_back(&p);
  return points;
}

Rgb platformColour(std::size_t index) {
  // Twelve colours that stay apart on white and on a map.
  static const Rgb palette[] = {{0.12, 0.47, 0.71}, {0.84, 0.15, 0.16}, {0.17, 0.63, 0.17}, {1.00, 0.50, 0.05},
                                {0.58, 0.40, 0.74}, {0.55, 0.34, 0.29}, {0.89, 0.47, 0.76}, {0.09, 0.75, 0.81},
                                {0.74, 0.74, 0.13}, {0.50, 0.50, 0.50}, {0.22, 0.23, 0.47}, {0.68, 0.29, 0.29}};
  return palette[index % (sizeof palette / sizeof palette[0])];
}

}  // namespace RefHost
