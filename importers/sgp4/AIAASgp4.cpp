#include <cmath>

#include "importers/sgp4/AIAADeepSpace.h"
#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

bool sgp4(ElsetRec& r, double tsince, double ro[3], double vo[3]) {
  const double temp4 = 1.5e-12;
  const double x2o3 = 2.0 / 3.0;
  const double vkmpersec = r.radiusearthkm * r.xke / 60.0;

  r.t = tsince;
  r.error = 0;

  // Secular gravity and atmospheric drag.
  const double xmdf = r.mo + r.mdot * r.t;
  const double argpdf = r.argpo + r.argpdot * r.t;
  const double nodedf = r.nodeo + r.nodedot * r.t;
  double argpm = argpdf;
  double mm = xmdf;
  const double t2 = r.t * r.t;
  double nodem = nodedf + r.nodecf * t2;
  double tempa = 1.0 - r.cc1 * r.t;
  double tempe = r.bstar * r.cc4 * r.t;
  double templ = r.t2cof * t2;

  if (r.isimp != 1) {
    const double delomg = r.omgcof * r.t;
    const double delmtemp = 1.0 + r.eta * std::cos(xmdf);
    const double delm = r.xmcof * (delmtemp * delmtemp * delmtemp - r.delmo);
    const double temp = delomg + delm;
    mm = xmdf + temp;
    argpm = argpdf - temp;
    const double t3 = t2 * r.t;
    const double t4 = t3 * r.t;
    tempa = tempa - r.d2 * t2 - r.d3 * t3 - r.d4 * t4;
    tempe = tempe + r.bstar * r.cc5 * (std::sin(mm) - r.sinmao);
    templ = templ + r.t3cof * t3 + t4 * (r.t4cof + r.t * r.t5cof);
  }

  double nm = r.no_unkozai;
  double em = r.ecco;
  double inclm = r.inclo;
  if (r.method == 'd') {
    double dndt = 0.0;
    dspace(r.t, r.t, r, em, argpm, inclm, mm, nodem, dndt, nm);
  }

  if (nm <= 0.0) {
    r.error = 2;
    return false;
  }
  // Without resonance the mean motion is the epoch's, and so is its power.
  const double aonv = nm == r.no_unkozai ? r.aonv0 : std::pow(r.xke / nm, x2o3);
  const double am = aonv * tempa * tempa;
  nm = r.xke / (am * std::sqrt(am));
  em -= tempe;

  if (em >= 1.0 || em < -0.001) {
    r.error = 1;
    return false;
  }
  // Keeps the divisions by the eccentricity finite.
  if (em < 1.0e-6) em = 1.0e-6;
  mm += r.no_unkozai * templ;
  double xlm = mm + argpm + nodem;

  nodem = std::fmod(nodem, TWOPI);
  argpm = std::fmod(argpm, TWOPI);
  xlm = std::fmod(xlm, TWOPI);
  mm = std::fmod(xlm - argpm - nodem, TWOPI);

  r.am = am;
  r.em = em;
  r.im = inclm;
  r.Om = nodem;
  r.om = argpm;
  r.mm = mm;
  r.nm = nm;

  // Near-earth sets keep the epoch inclination.
  const double sinim = r.method == 'd' ? std::sin(inclm) : r.sinio;
  const double cosim = r.method == 'd' ? std::cos(inclm) : r.cosio;

  // Lunar-solar periodics.
  double ep = em;
  double xincp = inclm;
  double argpp = argpm;
  double nodep = nodem;
  double mp = mm;
  double sinip = sinim;
  double cosip = cosim;
  if (r.method == 'd') {
    dpper(r, r.t, 'n', ep, xincp, nodep, argpp, mp, r.operationmode);
    if (xincp < 0.0) {
      xincp = -xincp;
      nodep += PI;
      argpp -= PI;
    }
    if (ep < 0.0 || ep > 1.0) {
      r.error = 3;
      return false;
    }
    sinip = std::sin(xincp);
    cosip = std::cos(xincp);
    r.aycof = -0.5 * r.j3oj2 * sinip;
    if (std::fabs(cosip + 1.0) > 1.5e-12)
      r.xlcof = -0.25 * r.j3oj2 * sinip * (3.0 + 5.0 * cosip) / (1.0 + cosip);
    else
      r.xlcof = -0.25 * r.j3oj2 * sinip * (3.0 + 5.0 * cosip) / temp4;
  }

  // Long-period periodics.
  const double axnl = ep * std::cos(argpp);
  double temp = 1.0 / (am * (1.0 - ep * ep));
  const double aynl = ep * std::sin(argpp) + temp * r.aycof;
  const double xl = mp + argpp + nodep + temp * r.xlcof * axnl;

  // Kepler's equation, with the step bounded so that it can't run away.
  const double u = std::fmod(xl - nodep, TWOPI);
  double eo1 = u;
  double tem5 = 9999.9;
  double sineo1 = 0.0, coseo1 = 0.0;
  for (int ktr = 1; std::fabs(tem5) >= 1.0e-12 && ktr <= 10; ++ktr) {
    sineo1 = std::sin(eo1);
    coseo1 = std::cos(eo1);
    tem5 = 1.0 - coseo1 * axnl - sineo1 * aynl;
    tem5 = (u - aynl * coseo1 + axnl * sineo1 - eo1) / tem5;
    if (std::fabs(tem5) >= 0.95) tem5 = tem5 > 0.0 ? 0.95 : -0.95;
    eo1 += tem5;
  }

  // Short-period preliminaries.
  const double ecose = axnl * coseo1 + aynl * sineo1;
  const double esine = axnl * sineo1 - aynl * coseo1;
  const double el2 = axnl * axnl + aynl * aynl;
  const double pl = am * (1.0 - el2);
  if (pl < 0.0) {
    r.error = 4;
    return false;
  }
  const double rl = am * (1.0 - ecose);
  const double rdotl = std::sqrt(am) * esine / rl;
  const double rvdotl = std::sqrt(pl) / rl;
  const double betal = std::sqrt(1.0 - el2);
  temp = esine / (1.0 + betal);
  const double sinu = am / rl * (sineo1 - aynl - axnl * temp);
  const double cosu = am / rl * (coseo1 - axnl + aynl * temp);
  double su = std::atan2(sinu, cosu);
  const double sin2u = (cosu + cosu) * sinu;
  const double cos2u = 1.0 - 2.0 * sinu * sinu;
  temp = 1.0 / pl;
  const double temp1 = 0.5 * r.j2 * temp;
  const double temp2 = temp1 * temp;

  // Short-period periodics.
  if (r.method == 'd') {
    const double cosisq = cosip * cosip;
    r.con41 = 3.0 * cosisq - 1.0;
    r.x1mth2 = 1.0 - cosisq;
    r.x7thm1 = 7.0 * cosisq - 1.0;
  }
  const double mrt = rl * (1.0 - 1.5 * temp2 * betal * r.con41) + 0.5 * temp1 * r.x1mth2 * cos2u;
  su -= 0.25 * temp2 * r.x7thm1 * sin2u;
  const double xnode = nodep + 1.5 * temp2 * cosip * sin2u;
  const double xinc = xincp + 1.5 * temp2 * cosip * sinip * cos2u;
  const double mvt = rdotl - nm * temp1 * r.x1mth2 * sin2u / r.xke;
  const double rvdot = rvdotl + nm * temp1 * (r.x1mth2 * cos2u + 1.5 * r.con41) / r.xke;

  // Orientation vectors.
  const double sinsu = std::sin(su);
  const double cossu = std::cos(su);
  const double snod = std::sin(xnode);
  const double cnod = std::cos(xnode);
  const double sini = std::sin(xinc);
  const double cosi = std::cos(xinc);
  const double xmx = -snod * cosi;
  const double xmy = cnod * cosi;
  const double ux = xmx * sinsu + cnod * cossu;
  const double uy = xmy * sinsu + snod * cossu;
  const double uz = sini * sinsu;
  const double vx = xmx * cossu - cnod * sinsu;
  const double vy = xmy * cossu - snod * sinsu;
  const double vz = sini * cossu;

  ro[0] = mrt * ux * r.radiusearthkm;
  ro[1] = mrt * uy * r.radiusearthkm;
  ro[2] = mrt * uz * r.radiusearthkm;
  vo[0] = (mvt * ux + rvdot * vx) * vkmpersec;
  vo[1] = (mvt * uy + rvdot * vy) * vkmpersec;
  vo[2] = (mvt * uz + rvdot * vz) * vkmpersec;

  // Below the earth's surface: decayed.
  if (mrt < 1.0) {
    r.error = 6;
    return false;
  }
  return true;
}

}  // namespace AIAA
