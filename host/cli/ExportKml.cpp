// KML: one Placemark per platform with a gx:Track of "when" and "gx:coord",
// so that Google Earth's time slider plays it; a Point for a platform that
// stands still; a style per platform in its colour.

#include <cmath>
#include <cstdio>
#include <ostream>

#include "host/HostScenario.h"
#include "host/TerminalText.h"
#include "host/cli/Exports.h"
#include "host/cli/IsoTime.h"

namespace RefHost {

namespace {

constexpr double DEGREES = 180.0 / M_PI;

// Character data for XML 1.0: well-formed UTF-8, markup escaped, and the
// control characters that XML can't hold replaced by U+FFFD.
std::string xml(const std::string& text) {
  std::string out;
  for (char c : validUtf8(text)) {
    const unsigned char u = static_cast<unsigned char>(c);
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&apos;"; break;
      default:
        if (u < 0x20 && c != '\t' && c != '\n' && c != '\r')
          out += "\xEF\xBF\xBD";
        else
          out += c;
    }
  }
  return out;
}

// KML colours are aabbggrr in hexadecimal.
std::string kmlColour(const Rgb& colour) {
  char text[16];
  std::snprintf(text, sizeof text, "ff%02x%02x%02x", static_cast<int>(colour.b * 255 + 0.5),
                static_cast<int>(colour.g * 255 + 0.5), static_cast<int>(colour.r * 255 + 0.5));
  return text;
}

std::string baseName(const std::string& path) {
  const std::string::size_type slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string coordinates(const GeoPoint& p, char separator) {
  char text[96];
  std::snprintf(text, sizeof text, "%.10f%c%.10f%c%.3f", p.lon * DEGREES, separator, p.lat * DEGREES, separator,
                p.alt);
  return text;
}

}  // namespace

void writeKml(std::ostream& out, const ExportScene& scene) {
  const HostScenario& scenario = *scene.scenario;
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<kml xmlns=\"http://www.opengis.net/kml/2.2\" xmlns:gx=\"http://www.google.com/kml/ext/2.2\">\n"
         "<Document>\n<name>"
      << xml(baseName(scenario.settings().fileName)) << "</name>\n";
  if (!scenario.settings().description.empty())
    out << "<description>" << xml(scenario.settings().description) << "</description>\n";
  for (std::size_t i = 0; i < scene.tracks.size(); ++i) {
    const std::string colour = kmlColour(platformColour(i));
    out << "<Style id=\"platform" << scene.tracks[i].object->id << "\"><IconStyle><color>" << colour
        << "</color></IconStyle><LineStyle><color>" << colour << "</color><width>2</width></LineStyle></Style>\n";
  }
  for (const PlatformTrack& track : scene.tracks) {
    const HostObject& platform = *track.object;
    out << "<Placemark>\n<name>" << xml(platform.header.name) << "</name>\n<styleUrl>#platform" << platform.id
        << "</styleUrl>\n<ExtendedData><Data name=\"id\"><value>" << platform.id
        << "</value></Data><Data name=\"icon\"><value>" << xml(platform.header.icon)
        << "</value></Data><Data name=\"originalId\"><value>" << platform.originalId << "</value></Data></ExtendedData>\n";
    // A time that has no calendar date can't be a "when": its point stays out.
    std::vector<std::pair<std::string, const GeoPoint*>> samples;
    for (const GeoPoint* p : timedPoints(track)) {
      const std::string when = isoTime(scene.referenceYear, p->time);
      if (!when.empty()) samples.emplace_back(when, p);
    }
    if (samples.empty()) {
      out << "<Point><altitudeMode>absolute</altitudeMode><coordinates>" << coordinates(track.points.back(), ',')
          << "</coordinates></Point>\n";
    } else {
      out << "<gx:Track>\n<altitudeMode>absolute</altitudeMode>\n";
      for (const auto& sample : samples) out << "<when>" << sample.first << "</when>\n";
      for (const auto& sample : samples) out << "<gx:coord>" << coordinates(*sample.second, ' ') << "</gx:coord>\n";
      out << "</gx:Track>\n";
    }
    out << "</Placemark>\n";
  }
  out << "</Document>\n</kml>\n";
}

}  // namespace RefHost
