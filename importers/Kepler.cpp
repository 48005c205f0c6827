#include "importers/Kepler.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "core/Notify.h"
#include "importers/ConversionLog.h"
#include "importers/KeplerFrames.h"

namespace KEPLER2ASI {

namespace {

constexpr double PI = 3.14159265358979323846;
constexpr double TWOPI = 2.0 * PI;
constexpr int MAX_ITERATIONS = 200;
constexpr double TOLERANCE = 1.0e-12;
// Energies closer to zero than this part of mu / r make a parabola.
constexpr double PARABOLIC_ENERGY = 1.0e-10;

double dot(const double* a, const double* b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

std::string number(double value) {
  std::ostringstream os;
  os << value;
  return os.str();
}

// Newton's iteration on x for mean anomaly `m` = kepler(x), each step held
// within +-0.3 and x within [low, high]; false when it does not converge.
template <typename Equation, typename Slope>
bool solveAnomaly(double m, double& x, Equation kepler, Slope slope, double low, double high) {
  for (int i = 0; i < MAX_ITERATIONS; ++i) {
    double step = (m - kepler(x)) / slope(x);
    if (!std::isfinite(step)) step = 0.3;
    step = std::max(-0.3, std::min(0.3, step));
    x = std::max(low, std::min(high, x + step));
    if (std::fabs(step) < TOLERANCE) return true;
  }
  return false;
}

}  // namespace

void Kepler::EvtConst(double latitudeDegrees) {
  const double lat = latitudeDegrees * PI / 180.0;
  const double s = std::sin(lat), c = std::cos(lat);
  const double s2 = s * s, c2 = c * c;
  const double d = 1.0 - E2 * s2;
  eventK1 = EVENT_K1 * (ONE_MINUS_E2_SQUARED * s2 + c2) / d;
  eventK2 = EVENT_K2 * (c2 + ONE_MINUS_E2 * s2) / std::sqrt(d);
}

void Kepler::SetStateVec(double time, const double* state, double latitudeReference) {
  EvtConst(latitudeReference);
  epochTime = time;
  UTILS::ecf2eci(time, state, stateEci);
  std::copy(stateEci, stateEci + 6, currentEci);
  error = 0;
  elements_();
}

bool Kepler::elements_() {
  const double* r = stateEci;
  const double* v = stateEci + 3;
  const double rmag = std::sqrt(dot(r, r));
  if (rmag == 0.0) return false;
  const double v2 = dot(v, v);
  const double h[3] = {r[1] * v[2] - r[2] * v[1], r[2] * v[0] - r[0] * v[2], r[0] * v[1] - r[1] * v[0]};
  const double h2 = dot(h, h);
  const double rv = dot(r, v);
  double e[3];
  for (int i = 0; i < 3; ++i) e[i] = ((v2 - MU / rmag) * r[i] - rv * v[i]) / MU;
  eccentricity = std::sqrt(dot(e, e));
  semiLatusRectum = h2 / MU;
  const double energy = 0.5 * v2 - MU / rmag;
  semiMajorAxis = std::fabs(energy) > PARABOLIC_ENERGY * MU / rmag ? -MU / (2.0 * energy) : 0.0;
  meanMotion = semiMajorAxis != 0.0 ? std::sqrt(MU / std::fabs(semiMajorAxis * semiMajorAxis * semiMajorAxis)) : 0.0;
  return true;
}

int Kepler::TwoBody(double time, int flag) {
  const double* r0 = stateEci;
  const double* v0 = stateEci + 3;
  const double rmag0 = std::sqrt(dot(r0, r0));
  if (rmag0 == 0.0 || !elements_()) {
    error = 1;
    return 0;
  }
  const double dt = time - epochTime;
  const double rv0 = dot(r0, v0);
  const double a = semiMajorAxis;
  double f, g, fdot, gdot;

  if (a > 0.0) {
    // Ellipse: Kepler's equation in the eccentric anomaly, steps bounded.
    const double sqrtMuA = std::sqrt(MU * a);
    const double ecosE0 = 1.0 - rmag0 / a;
    const double esinE0 = rv0 / sqrtMuA;
    const double e0 = std::atan2(esinE0, ecosE0);
    const double m = e0 - esinE0 + meanMotion * dt;
    const double e = eccentricity;
    double ecc = m + e * std::sin(m);
    const auto equation = [e](double x) { return x - e * std::sin(x); };
    const auto slope = [e](double x) { return 1.0 - e * std::cos(x); };
    const double unbounded = std::numeric_limits<double>::max();
    if (!solveAnomaly(m, ecc, equation, slope, -unbounded, unbounded)) {
      ConversionLog::issue("Convergence Failure for Time = " + number(time));
      error = 2;
      return 0;
    }
    const double de = ecc - e0;
    const double r = a * (1.0 - e * std::cos(ecc));
    f = 1.0 - a / rmag0 * (1.0 - std::cos(de));
    g = dt - (de - std::sin(de)) / meanMotion;
    fdot = -sqrtMuA / (r * rmag0) * std::sin(de);
    gdot = 1.0 - a / r * (1.0 - std::cos(de));
  } else if (a < 0.0) {
    // Hyperbola: the same in the hyperbolic anomaly, kept within +-88.
    const double sqrtMuA = std::sqrt(-MU * a);
    const double e = eccentricity;
    const double h0 = std::asinh(rv0 / (e * sqrtMuA));
    const double m = e * std::sinh(h0) - h0 + meanMotion * dt;
    double hyp = std::asinh(m / e);
    const auto equation = [e](double x) { return e * std::sinh(x) - x; };
    const auto slope = [e](double x) { return e * std::cosh(x) - 1.0; };
    if (!solveAnomaly(m, hyp, equation, slope, -88.0, 88.0)) {
      ConversionLog::issue("Convergence Failure for time = " + number(time));
      error = 2;
      return 0;
    }
    const double dh = hyp - h0;
    const double r = a * (1.0 - e * std::cosh(hyp));
    f = 1.0 - a / rmag0 * (1.0 - std::cosh(dh));
    g = dt - (std::sinh(dh) - dh) / meanMotion;
    fdot = -sqrtMuA / (r * rmag0) * std::sinh(dh);
    gdot = 1.0 - a / r * (1.0 - std::cosh(dh));
  } else {
    // Parabola: Barker's equation, a cubic in D = sqrt(p) tan(nu / 2).
    const double p = semiLatusRectum;
    const double d0 = rv0 / SQRT_MU;
    // 2 sqrt(mu) t = p D + D^3 / 3, t counted from periapsis.
    const double target = p * d0 + d0 * d0 * d0 / 3.0 + TWO_SQRT_MU * dt;
    double roots[3];
    const int n = Cubic(0.0, 3.0 * p, -3.0 * target, roots);
    if (n < 1) {
      ConversionLog::issue("Convergence Failure for Time = " + number(time));
      error = 2;
      return 0;
    }
    const double d = roots[0];
    const double r = 0.5 * (p + d * d);
    const double dd = d - d0;
    f = 1.0 - dd * dd / (2.0 * rmag0);
    g = (rmag0 * dd + 0.5 * d0 * dd * dd) / SQRT_MU;
    fdot = -SQRT_MU * dd / (r * rmag0);
    gdot = 1.0 - dd * dd / (2.0 * r);
  }

  for (int i = 0; i < 3; ++i) {
    currentEci[i] = f * r0[i] + g * v0[i];
    currentEci[i + 3] = fdot * r0[i] + gdot * v0[i];
  }
  for (double x : currentEci) {
    if (!std::isfinite(x)) {
      error = 3;
      return 0;
    }
  }
  if (flag) {
    if (a <= 0.0) {
      if (!conicWarned_)
        ConversionLog::issue(a < 0.0 ? "Hyperbolic Algorithm Not Set Up to Determine Altitude Events"
                                     : "Parabolic Algorithm Not Set Up to Determine Altitude Events");
      conicWarned_ = true;
    } else {
      double radius;
      apogeeTime = TrajectoryTime(&radius, 1);
      eventTime = TrajectoryTime(&radius, 4);
    }
  }
  error = 0;
  return 1;
}

double Kepler::TrajectoryTime(double* radiusResult, int mode) {
  const double e = eccentricity, p = semiLatusRectum;
  if (semiMajorAxis <= 0.0 || meanMotion == 0.0) return 0.0;
  double nu = PI;
  const double h = eventHeight_;
  const double r = std::sqrt(eventK1 + eventK2 * h + h * h);
  if (mode == 4) {
    // The conic r = p / (1 + e cos nu) solved for the anomaly at radius r.
    const double arg = e > 0.0 ? (p - r) / (r * e) : 2.0;
    if (arg < -1.0 || arg > 1.0) return 0.0;
    nu = std::acos(arg);
  }
  if (radiusResult) *radiusResult = mode == 4 ? r : p / (1.0 - e);
  // Time from periapsis of a true anomaly, through the eccentric anomaly.
  const double beta = std::sqrt((1.0 - e) / (1.0 + e));
  auto fromPeriapsis = [&](double anomaly) {
    const double ecc = 2.0 * std::atan(beta * std::tan(0.5 * anomaly));
    return (ecc - e * std::sin(ecc)) / meanMotion;
  };
  const double* r0 = stateEci;
  const double rmag0 = std::sqrt(dot(r0, r0));
  const double e0 = std::atan2(dot(r0, stateEci + 3) / std::sqrt(MU * semiMajorAxis), 1.0 - rmag0 / semiMajorAxis);
  const double now = (e0 - e * std::sin(e0)) / meanMotion;
  const double period = TWOPI / meanMotion;
  double t;
  if (mode == 4) {
    const double up = fromPeriapsis(-nu) - now;
    const double down = fromPeriapsis(nu) - now;
    t = std::fabs(up) < std::fabs(down) ? up : down;
  } else {
    // The apogee: half a period from periapsis.
    t = 0.5 * period - now;
  }
  if (t < 0.0) t += period;
  return t;
}

int Kepler::Cubic(double a, double b, double c, double roots[3]) {
  // Cardano on the depressed cubic y^3 + p y + q with x = y - a / 3.
  const double p = b - a * a / 3.0;
  const double q = 2.0 * a * a * a / 27.0 - a * b / 3.0 + c;
  const double shift = -a / 3.0;
  const double disc = q * q / 4.0 + p * p * p / 27.0;
  if (disc > 0.0) {
    const double s = std::sqrt(disc);
    roots[0] = std::cbrt(-q / 2.0 + s) + std::cbrt(-q / 2.0 - s) + shift;
    return 1;
  }
  if (p == 0.0) {
    roots[0] = std::cbrt(-q) + shift;
    return 1;
  }
  const double m = 2.0 * std::sqrt(-p / 3.0);
  const double arg = std::max(-1.0, std::min(1.0, 3.0 * q / (p * m)));
  const double theta = std::acos(arg) / 3.0;
  for (int k = 0; k < 3; ++k) roots[k] = m * std::cos(theta - TWOPI * k / 3.0) + shift;
  return 3;
}

void Kepler::ConvertToLLA(double time) {
  bool zero = true;
  for (double x : currentEci) zero = zero && x == 0.0;
  if (zero) {
    ConversionLog::issue("Failure to compute position, error with output ECI vector");
    return;
  }
  double ecf[6];
  UTILS::eci2ecf(time, currentEci, ecf);
  double lla[3];
  UTILS::rllxyz(ecf, lla, 2);
  double m[3][3];
  UTILS::tran_g2e(lla[0], lla[1], m);
  double ned[3];
  UTILS::vel_e2g(m, ecf + 3, ned);
  latitude = lla[0];
  longitude = lla[1];
  altitude = lla[2] * FEET_TO_METRES;
  velNorth = ned[0] * FEET_TO_METRES;
  velEast = ned[1] * FEET_TO_METRES;
  velUp = -ned[2] * FEET_TO_METRES;
  yaw = std::atan2(velEast, velNorth);
  if (yaw < 0.0) yaw += TWOPI;
  pitch = std::atan2(velUp, std::sqrt(velEast * velEast + velNorth * velNorth));
}

}  // namespace KEPLER2ASI
