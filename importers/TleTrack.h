#pragma once
// The track of one satellite over the conversion's span: the time frame the
// settings choose, the propagated points and the eclipse state of each.

#include <vector>

#include "importers/Propagator.h"
#include "importers/TleSettings.h"

namespace TLE2ASI {

// When the tracks start. Times are kept as seconds since 1900 (UTC).
struct TimeFrame {
  int referenceYear = 0;        // the scenario's reference year
  double referenceStart = 0.0;  // start of referenceYear, seconds since 1900
  bool fromEpoch = true;        // each track starts at its own epoch
  double start = 0.0;           // otherwise: the common start, seconds since 1900
};

// The frame of a conversion whose first set is `first`: the current time,
// the settings' start year and seconds, or each set's epoch.
TimeFrame startTime(const TleSettings& settings, const Propagator& first);

// Number of points of a track: 3600 * span / step, cut to an int (0 for a
// step that is not positive).
int pointCount(const TleSettings& settings);

struct TrackPoint {
  double time;  // seconds since the start of the reference year
  double secondsFromEpoch;
  double lla[3], orientation[3], velocity[3];
  bool eclipse;
};

// Propagates `count` points; 0, or the model's code of the point that
// failed (the points before it are kept).
int computeTrack(Propagator& satellite, int count, double step, const TimeFrame& frame,
                 std::vector<TrackPoint>& points);

// Seconds since 1900 at a satellite's epoch.
double epochSince1900(const Propagator& satellite);

// True when the sun, raised by its apparent radius, stands below the
// horizon depression of a point at geodetic `lla` (radians, metres): for a
// point above the ground the angle -(pi/2 - asin(R / (h + R))), else 0.
// Julian dates in terrestrial dynamical time (the sun's place) and
// universal time (the earth's turn).
bool getEarthEclipse(double tdtJulianDate, double utJulianDate, const double lla[3]);

}  // namespace TLE2ASI
