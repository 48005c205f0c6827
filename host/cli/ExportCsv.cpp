// CSV: one row per point of every platform, in degrees, metres and metres
// per second, with the time both in ISO 8601 and in seconds of the
// reference year. Text fields are quoted as RFC 4180 says.

#include <cmath>
#include <cstdio>
#include <ostream>

#include "host/HostScenario.h"
#include "host/cli/Exports.h"
#include "host/cli/IsoTime.h"

namespace RefHost {

namespace {

constexpr double DEGREES = 180.0 / M_PI;

std::string quoted(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (char c : text) out += c == '"' ? std::string("\"\"") : std::string(1, c);
  return out + "\"";
}

}  // namespace

void writeCsv(std::ostream& out, const ExportScene& scene) {
  out << "kind,name,id,time,seconds,latitude,longitude,altitude,yaw,pitch,roll,speed\n";
  char numbers[256];
  for (const PlatformTrack& track : scene.tracks) {
    const HostObject& platform = *track.object;
    const std::string head = std::string(kindName(platform.kind)) + "," + quoted(platform.header.name) + "," +
                             std::to_string(platform.id) + ",";
    for (const GeoPoint& p : track.points) {
      const std::string time = p.time == -1.0 ? std::string("static") : isoTime(scene.referenceYear, p.time);
      std::snprintf(numbers, sizeof numbers, ",%.10f,%.10f,%.3f,%.6f,%.6f,%.6f,%.3f", p.lat * DEGREES, p.lon * DEGREES,
                    p.alt, p.orientation.yaw() * DEGREES, p.orientation.pitch() * DEGREES,
                    p.orientation.roll() * DEGREES, p.speed);
      out << head << time << "," << shortestNumber(p.time) << numbers << "\n";
    }
  }
}

}  // namespace RefHost
