#pragma once
// Earth-fixed, inertial and geodetic frames of the Kepler propagator, in
// feet and seconds. The inertial frame is the Earth-fixed frame of time 0,
// held still while the earth turns under it.

namespace UTILS {

// Earth's rotation, rad/s.
constexpr double KEPLER_EARTH_RATE = 7.2921151467e-5;

// Position and velocity (6 doubles) from the Earth-fixed to the inertial
// frame at `time` seconds, and back.
void ecf2eci(double time, const double ecf[6], double eci[6]);
void eci2ecf(double time, const double eci[6], double ecf[6]);

// Earth-fixed position (ft) to latitude, longitude (radians) and height
// (ft): option 1 geocentric latitude and height above the sphere of the
// equatorial radius, option 2 (any other value) geodetic on the ellipsoid.
void rllxyz(const double xyz[3], double lla[3], int option);

// Rows of `m` are the local north, east and down as Earth-fixed unit vectors
// at a geodetic latitude and longitude (radians).
void tran_g2e(double lat, double lon, double m[3][3]);
// Earth-fixed velocity to north, east, down with the matrix of tran_g2e.
void vel_e2g(const double m[3][3], const double ecf[3], double ned[3]);

}  // namespace UTILS
