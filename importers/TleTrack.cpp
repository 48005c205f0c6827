#include "importers/TleTrack.h"

#include <cmath>

#include "core/CoordinateConverter.h"
#include "core/TimeCalendar.h"
#include "core/TimeDateTime.h"
#include "importers/sgp4/AIAASgp4.h"

namespace TLE2ASI {

namespace {

constexpr double DEG = M_PI / 180.0;
constexpr double AU_METRES = 149597870700.0;
constexpr double SUN_RADIUS_METRES = 695700000.0;
// Terrestrial time runs ahead of UTC by the leap seconds and 32.184 s;
// 69.184 s holds since 2017 and is well inside what the eclipse test needs.
constexpr double TT_MINUS_UTC_DAYS = 69.184 / 86400.0;

double yearStart1900(int year) { return orvCore::DateTime(year, 1, 1, 0, 0, 0.0, 0.0, 0).getReference1900(); }

// Julian date of seconds of a year.
double julianDate(int year, double secondsOfYear) {
  double jd, frac;
  AIAA::jday(year, 1, 1, 0, 0, 0.0, jd, frac);
  return jd + frac + secondsOfYear / 86400.0;
}

}  // namespace

double epochSince1900(const Propagator& satellite) {
  return yearStart1900(satellite.epochYear()) + satellite.epochTime();
}

TimeFrame startTime(const TleSettings& settings, const Propagator& first) {
  TimeFrame frame;
  frame.referenceYear = first.epochYear();
  if (frame.referenceYear == 0) frame.referenceYear = orvCore::currentYear();
  if (settings.useCurrentTime) {
    // The scenario then lives in the current year.
    frame.referenceYear = orvCore::currentYear();
    frame.fromEpoch = false;
    frame.start = yearStart1900(frame.referenceYear) + orvCore::systemTimeToSecsBgnYr();
  } else if (settings.startYear >= frame.referenceYear && settings.startSeconds > 0.0) {
    frame.fromEpoch = false;
    frame.start = yearStart1900(settings.startYear) + settings.startSeconds;
  }
  frame.referenceStart = yearStart1900(frame.referenceYear);
  return frame;
}

int pointCount(const TleSettings& settings) {
  if (!(settings.step > 0.0) || !(settings.span > 0.0)) return 0;
  const double n = 3600.0 * settings.span / settings.step;
  return n < 2.0e9 ? static_cast<int>(n) : 0;
}

int computeTrack(Propagator& satellite, int count, double step, const TimeFrame& frame,
                 std::vector<TrackPoint>& points) {
  const double epoch = epochSince1900(satellite);
  const double offset = frame.fromEpoch ? 0.0 : frame.start - epoch;
  const int year = satellite.epochYear();
  for (int i = 0; i < count; ++i) {
    TrackPoint p;
    p.secondsFromEpoch = i * step + offset;
    const int code = satellite.propagate(p.secondsFromEpoch, p.lla, p.orientation, p.velocity);
    if (code != 0) return code;
    p.time = epoch + p.secondsFromEpoch - frame.referenceStart;
    const double jdUt = julianDate(year, satellite.epochTime() + p.secondsFromEpoch);
    p.eclipse = getEarthEclipse(jdUt + TT_MINUS_UTC_DAYS, jdUt, p.lla);
    points.push_back(p);
  }
  return 0;
}

bool getEarthEclipse(double tdtJulianDate, double utJulianDate, const double lla[3]) {
  // The sun's apparent place by the low-precision formulae of the
  // Astronomical Almanac (about 0.01 degree over 1950 to 2050).
  const double n = tdtJulianDate - 2451545.0;
  const double meanLongitude = (280.460 + 0.9856474 * n) * DEG;
  const double g = (357.528 + 0.9856003 * n) * DEG;
  const double lambda = meanLongitude + (1.915 * std::sin(g) + 0.020 * std::sin(2.0 * g)) * DEG;
  const double epsilon = (23.439 - 0.0000004 * n) * DEG;
  const double distance = (1.00014 - 0.01671 * std::cos(g) - 0.00014 * std::cos(2.0 * g)) * AU_METRES;
  const double sunEci[3] = {distance * std::cos(lambda), distance * std::cos(epsilon) * std::sin(lambda),
                            distance * std::sin(epsilon) * std::sin(lambda)};
  const double gmst = AIAA::gstime(utJulianDate);
  const double c = std::cos(gmst), s = std::sin(gmst);
  const double sun[3] = {c * sunEci[0] + s * sunEci[1], -s * sunEci[0] + c * sunEci[1], sunEci[2]};

  orvCore::Vec3 at;
  orvCore::CoordinateConverter::convertGeodeticPosToEcef(orvCore::Vec3(lla), at);
  const double up[3] = {std::cos(lla[0]) * std::cos(lla[1]), std::cos(lla[0]) * std::sin(lla[1]), std::sin(lla[0])};
  const double d[3] = {sun[0] - at[0], sun[1] - at[1], sun[2] - at[2]};
  const double range = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
  const double elevation = std::asin((d[0] * up[0] + d[1] * up[1] + d[2] * up[2]) / range);
  const double raised = elevation + std::asin(SUN_RADIUS_METRES / range);

  const double altitude = lla[2];
  const double radius = orvCore::WGS_A;
  const double horizon = altitude > 0.0 ? -(M_PI / 2.0 - std::asin(radius / (altitude + radius))) : 0.0;
  return raised < horizon;
}

}  // namespace TLE2ASI
