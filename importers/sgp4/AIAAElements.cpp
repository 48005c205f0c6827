#include <cmath>

#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

namespace {

constexpr double SMALL = 0.00000001;
constexpr double UNDEFINED = 999999.1;
constexpr double INFINITE = 999999.9;

double mag(const double x[3]) { return std::sqrt(x[0] * x[0] + x[1] * x[1] + x[2] * x[2]); }
double dot(const double x[3], const double y[3]) { return x[0] * y[0] + x[1] * y[1] + x[2] * y[2]; }
double sgn(double x) { return x < 0.0 ? -1.0 : 1.0; }

double angle(const double v1[3], const double v2[3]) {
  const double magv1 = mag(v1);
  const double magv2 = mag(v2);
  if (magv1 * magv2 <= SMALL * SMALL) return UNDEFINED;
  double temp = dot(v1, v2) / (magv1 * magv2);
  if (std::fabs(temp) > 1.0) temp = sgn(temp);
  return std::acos(temp);
}

// acos of a ratio clamped to -1..1, turned to the far half when `flip`.
double clampedAcos(double ratio, bool flip) {
  if (std::fabs(ratio) > 1.0) ratio = sgn(ratio);
  const double a = std::acos(ratio);
  return flip ? TWOPI - a : a;
}

}  // namespace

void rv2coe(const double r[3], const double v[3], double mus, double& p, double& a, double& ecc, double& incl,
            double& omega, double& argp, double& nu, double& m, double& arglat, double& truelon, double& lonper) {
  const double halfpi = 0.5 * PI;
  const double magr = mag(r);
  const double magv = mag(v);

  const double hbar[3] = {r[1] * v[2] - r[2] * v[1], r[2] * v[0] - r[0] * v[2], r[0] * v[1] - r[1] * v[0]};
  const double magh = mag(hbar);
  if (magh <= SMALL) {
    p = a = ecc = incl = omega = argp = nu = m = arglat = truelon = lonper = UNDEFINED;
    return;
  }
  const double nbar[3] = {-hbar[1], hbar[0], 0.0};
  const double magn = mag(nbar);
  const double c1 = magv * magv - mus / magr;
  const double rdotv = dot(r, v);
  double ebar[3];
  for (int i = 0; i < 3; ++i) ebar[i] = (c1 * r[i] - rdotv * v[i]) / mus;
  ecc = mag(ebar);

  const double sme = magv * magv * 0.5 - mus / magr;
  a = std::fabs(sme) > SMALL ? -mus / (2.0 * sme) : INFINITE;
  p = magh * magh / mus;

  incl = std::acos(hbar[2] / magh);

  // e: elliptical (or parabolic, hyperbolic), c: circular; i: inclined, e: equatorial.
  const bool equatorial = incl < SMALL || std::fabs(incl - PI) < SMALL;
  char shape = 'e', plane = 'i';
  if (ecc < SMALL) {
    shape = 'c';
    plane = equatorial ? 'e' : 'i';
  } else if (equatorial) {
    plane = 'e';
  }

  omega = magn > SMALL ? clampedAcos(nbar[0] / magn, nbar[1] < 0.0) : UNDEFINED;

  if (shape == 'e' && plane == 'i') {
    argp = angle(nbar, ebar);
    if (ebar[2] < 0.0) argp = TWOPI - argp;
  } else {
    argp = UNDEFINED;
  }

  if (shape == 'e') {
    nu = angle(ebar, r);
    if (rdotv < 0.0) nu = TWOPI - nu;
  } else {
    nu = UNDEFINED;
  }

  if (shape == 'c' && plane == 'i') {
    arglat = angle(nbar, r);
    if (r[2] < 0.0) arglat = TWOPI - arglat;
    m = arglat;
  } else {
    arglat = UNDEFINED;
  }

  if (ecc > SMALL && shape == 'e' && plane == 'e') {
    lonper = clampedAcos(ebar[0] / ecc, ebar[1] < 0.0);
    if (incl > halfpi) lonper = TWOPI - lonper;
  } else {
    lonper = UNDEFINED;
  }

  if (magr > SMALL && shape == 'c' && plane == 'e') {
    truelon = clampedAcos(r[0] / magr, r[1] < 0.0);
    if (incl > halfpi) truelon = TWOPI - truelon;
    m = truelon;
  } else {
    truelon = UNDEFINED;
  }

  if (shape == 'e') {
    double e;
    newtonnu(ecc, nu, e, m);
  }
}

void newtonnu(double ecc, double nu, double& e0, double& m) {
  e0 = INFINITE;
  m = INFINITE;

  if (std::fabs(ecc) < SMALL) {
    m = nu;
    e0 = nu;
  } else if (ecc < 1.0 - SMALL) {
    const double sine = (std::sqrt(1.0 - ecc * ecc) * std::sin(nu)) / (1.0 + ecc * std::cos(nu));
    const double cose = (ecc + std::cos(nu)) / (1.0 + ecc * std::cos(nu));
    e0 = std::atan2(sine, cose);
    m = e0 - ecc * std::sin(e0);
  } else if (ecc > 1.0 + SMALL) {
    if (ecc > 1.0 && std::fabs(nu) + 0.00001 < PI - std::acos(1.0 / ecc)) {
      const double sine = (std::sqrt(ecc * ecc - 1.0) * std::sin(nu)) / (1.0 + ecc * std::cos(nu));
      e0 = std::asinh(sine);
      m = ecc * std::sinh(e0) - e0;
    }
  } else if (std::fabs(nu) < 168.0 * PI / 180.0) {
    e0 = std::tan(nu * 0.5);
    m = e0 + (e0 * e0 * e0) / 3.0;
  }

  if (ecc < 1.0) {
    m = std::fmod(m, TWOPI);
    if (m < 0.0) m += TWOPI;
    e0 = std::fmod(e0, TWOPI);
  }
}

}  // namespace AIAA
