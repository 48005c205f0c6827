#pragma once
// What the host received, written for GIS tools: GeoJSON (RFC 7946), CSV,
// KML with gx:Track and CZML, each platform's points placed on WGS-84 by the
// core's coordinate converter. The format follows the file's extension.

#include <iosfwd>
#include <string>
#include <vector>

#include "host/cli/Tracks.h"

namespace RefHost {

class HostScenario;

enum class ExportFormat { None, GeoJson, Csv, Kml, Czml };

// The format of an export file by its extension (any case); None for another.
ExportFormat exportFormat(const std::string& path);

// The platforms that exports and the picture show, in creation order: every
// platform whose points could be placed, with at least one point.
struct ExportScene {
  const HostScenario* scenario = nullptr;
  int referenceYear = 1970;
  std::vector<PlatformTrack> tracks;
  // One line per platform left out, saying why.
  std::vector<std::string> leftOut;
};
ExportScene exportScene(const HostScenario& scenario);

// The points of a track that have a place in time (not static), in the
// order received.
std::vector<const GeoPoint*> timedPoints(const PlatformTrack& track);

void writeGeoJson(std::ostream& out, const ExportScene& scene);
void writeCsv(std::ostream& out, const ExportScene& scene);
void writeKml(std::ostream& out, const ExportScene& scene);
void writeCzml(std::ostream& out, const ExportScene& scene);

// A colour per platform, by its place in the scene: red, green, blue (0..1).
struct Rgb {
  double r, g, b;
};
Rgb platformColour(std::size_t index);

}  // namespace RefHost
