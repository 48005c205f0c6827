#include <cmath>
#include <cstdio>
#include <ostream>
#include <string>

#include "host/ReferenceHost.h"
#include "host/TerminalText.h"
#include "host/cli/IsoTime.h"
#include "host/cli/Reports.h"
#include "host/cli/Tracks.h"

namespace RefHost {

namespace {

// Deeper than the deepest ocean floor: inside the earth.
constexpr double LOWEST_ALTITUDE = -11000.0;

// One kind of finding on one object: how often, and the first case told.
struct Finding {
  std::size_t count = 0;
  std::size_t index = 0;  // the point of the first case, from 0
  std::string first;

  void add(std::size_t pointIndex, const std::string& text) {
    if (count++ == 0) {
      index = pointIndex;
      first = text;
    }
  }
};

std::string number(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

}  // namespace

std::size_t writeSanityNotes(std::ostream& out, const ReferenceHost& host, const std::vector<LoadOutcome>& outcomes,
                             const CheckLimits& limits) {
  const HostScenario& scenario = host.scenario();
  const int year = scenario.settings().referenceYear;
  TrackConverter converter(scenario);
  std::size_t lines = 0;
  for (const auto& object : scenario.objects()) {
    if (object->kind != KIND_PLATFORM) continue;
    const PlatformTrack track = converter.track(*object);
    const auto note = [&](std::size_t pointIndex, const std::string& text) {
      std::string file = fileOfPoint(outcomes, object->id, pointIndex);
      if (file.empty()) file = "scenario-host";
      out << terminalSafe(file) << ": object " << terminalSafe(object->header.name) << ": " << terminalSafe(text)
          << "\n";
      ++lines;
    };
    if (!track.problem.empty()) {
      note(0, "positions not checked: " + track.problem);
      continue;
    }
    const std::vector<GeoPoint>& points = track.points;
    if (points.size() == 1 && points[0].time == -1.0) note(0, "its only point is static (time -1)");

    Finding backwards, repeats, fast, outside;
    const GeoPoint* previous = nullptr;
    for (const GeoPoint& p : points) {
      const std::string at = "point " + std::to_string(p.index + 1);
      if (std::fabs(p.lat) > M_PI / 2 + 1e-9 || std::fabs(p.lon) > 2 * M_PI + 1e-9 || p.alt < LOWEST_ALTITUDE)
        outside.add(p.index, at + " (latitude " + number("%.6f", p.lat * 180 / M_PI) + " deg, longitude " +
                                 number("%.6f", p.lon * 180 / M_PI) + " deg, altitude " + number("%.1f", p.alt) +
                                 " m)");
      if (p.time == -1.0) continue;  // static points have no place in time
      if (previous) {
        const double dt = p.time - previous->time;
        if (dt < 0)
          backwards.add(p.index, at + " (" + timeText(year, p.time) + " after " + timeText(year, previous->time) + ")");
        else if (dt == 0)
          repeats.add(p.index, at + " (" + timeText(year, p.time) + ")");
        else {
          const double dx = p.ecef.x() - previous->ecef.x(), dy = p.ecef.y() - previous->ecef.y(),
                       dz = p.ecef.z() - previous->ecef.z();
          const double speed = std::sqrt(dx * dx + dy * dy + dz * dz) / dt;
          if (speed > limits.maxSpeed)
            fast.add(p.index, number("%.0f", speed) + " m/s from point " + std::to_string(previous->index + 1) +
                                  " to " + std::to_string(p.index + 1));
        }
      }
      previous = &p;
    }
    const auto report = [&](const Finding& finding, const std::string& what) {
      if (finding.count == 0) return;
      std::string text = what + finding.first;
      if (finding.count > 1) text += ", and " + std::to_string(finding.count - 1) + " more";
      note(finding.index, text);
    };
    report(backwards, "time goes backwards at ");
    report(repeats, "time repeats at ");
    report(fast, "faster than " + number("%.0f", limits.maxSpeed) + " m/s: ");
    report(outside, "position outside the earth at ");
  }
  return lines;
}

}  // namespace RefHost
