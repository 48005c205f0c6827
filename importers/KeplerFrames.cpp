#include "importers/KeplerFrames.h"

#include <cmath>

namespace UTILS {

namespace {
// Equatorial radius squared (ft^2) and first eccentricity squared of the ellipsoid.
constexpr double A_SQUARED = 437882673072703.75;
constexpr double E2 = 0.006694377124708455;
}  // namespace

void ecf2eci(double time, const double ecf[6], double eci[6]) {
  const double theta = KEPLER_EARTH_RATE * time;
  const double c = std::cos(theta), s = std::sin(theta);
  // The inertial velocity adds the earth's turn at the point.
  const double vx = ecf[3] - KEPLER_EARTH_RATE * ecf[1];
  const double vy = ecf[4] + KEPLER_EARTH_RATE * ecf[0];
  eci[0] = c * ecf[0] - s * ecf[1];
  eci[1] = s * ecf[0] + c * ecf[1];
  eci[2] = ecf[2];
  eci[3] = c * vx - s * vy;
  eci[4] = s * vx + c * vy;
  eci[5] = ecf[5];
}

void eci2ecf(double time, const double eci[6], double ecf[6]) {
  const double theta = KEPLER_EARTH_RATE * time;
  const double c = std::cos(theta), s = std::sin(theta);
  const double x = c * eci[0] + s * eci[1];
  const double y = -s * eci[0] + c * eci[1];
  const double vx = c * eci[3] + s * eci[4];
  const double vy = -s * eci[3] + c * eci[4];
  ecf[0] = x;
  ecf[1] = y;
  ecf[2] = eci[2];
  ecf[3] = vx + KEPLER_EARTH_RATE * y;
  ecf[4] = vy - KEPLER_EARTH_RATE * x;
  ecf[5] = eci[5];
}

void rllxyz(const double xyz[3], double lla[3], int option) {
  const double a = std::sqrt(A_SQUARED);
  const double rho = std::sqrt(xyz[0] * xyz[0] + xyz[1] * xyz[1]);
  lla[1] = std::atan2(xyz[1], xyz[0]);
  if (option == 1) {
    lla[0] = std::atan2(xyz[2], rho);
    lla[2] = std::sqrt(rho * rho + xyz[2] * xyz[2]) - a;
    return;
  }
  // Fixed-point iteration on the geodetic latitude; a few rounds reach the
  // last bit for any point outside the earth's core.
  double lat = std::atan2(xyz[2], rho * (1.0 - E2));
  double height = 0.0;
  for (int i = 0; i < 8; ++i) {
    const double s = std::sin(lat);
    const double n = a / std::sqrt(1.0 - E2 * s * s);
    const double c = std::cos(lat);
    height = std::fabs(c) > 1e-10 ? rho / c - n : std::fabs(xyz[2]) - n * (1.0 - E2);
    lat = std::atan2(xyz[2], rho * (1.0 - E2 * n / (n + height)));
  }
  lla[0] = lat;
  lla[2] = height;
}

void tran_g2e(double lat, double lon, double m[3][3]) {
  const double sl = std::sin(lat), cl = std::cos(lat);
  const double so = std::sin(lon), co = std::cos(lon);
  m[0][0] = -sl * co;
  m[0][1] = -sl * so;
  m[0][2] = cl;
  m[1][0] = -so;
  m[1][1] = co;
  m[1][2] = 0.0;
  m[2][0] = -cl * co;
  m[2][1] = -cl * so;
  m[2][2] = -sl;
}

void vel_e2g(const double m[3][3], const double ecf[3], double ned[3]) {
  for (int i = 0; i < 3; ++i) ned[i] = m[i][0] * ecf[0] + m[i][1] * ecf[1] + m[i][2] * ecf[2];
}

}  // namespace UTILS
