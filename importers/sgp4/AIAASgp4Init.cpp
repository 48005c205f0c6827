#include <cmath>

#include "importers/sgp4/AIAADeepSpace.h"
#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

namespace {

// Epoch quantities of the elements, and the mean motion with Kozai's
// definition turned into Brouwer's (un-Kozai'd).
struct InitL {
  double ainv, ao, con42, cosio, cosio2, eccsq, omeosq, posq, rp, rteosq, sinio;
};

void initl(double epoch, ElsetRec& r, InitL& o) {
  const double x2o3 = 2.0 / 3.0;

  o.eccsq = r.ecco * r.ecco;
  o.omeosq = 1.0 - o.eccsq;
  o.rteosq = std::sqrt(o.omeosq);
  o.cosio = std::cos(r.inclo);
  o.cosio2 = o.cosio * o.cosio;

  const double ak = std::pow(r.xke / r.no_kozai, x2o3);
  const double d1 = 0.75 * r.j2 * (3.0 * o.cosio2 - 1.0) / (o.rteosq * o.omeosq);
  double del = d1 / (ak * ak);
  const double adel = ak * (1.0 - del * del - del * (1.0 / 3.0 + 134.0 * del * del / 81.0));
  del = d1 / (adel * adel);
  r.no_unkozai = r.no_kozai / (1.0 + del);

  o.ao = std::pow(r.xke / r.no_unkozai, x2o3);
  r.aonv0 = o.ao;
  o.sinio = std::sin(r.inclo);
  r.sinio = o.sinio;
  r.cosio = o.cosio;
  const double po = o.ao * o.omeosq;
  o.con42 = 1.0 - 5.0 * o.cosio2;
  r.con41 = -o.con42 - o.cosio2 - o.cosio2;
  o.ainv = 1.0 / o.ao;
  o.posq = po * po;
  o.rp = o.ao * (1.0 - r.ecco);
  r.method = 'n';

  if (r.operationmode == 'a') {
    // The older sidereal time from whole days since 1970.
    const double ts70 = epoch - 7305.0;
    const double ds70 = std::floor(ts70 + 1.0e-8);
    const double tfrac = ts70 - ds70;
    const double c1 = 1.72027916940703639e-2;
    const double thgr70 = 1.7321343856509374;
    const double fk5r = 5.07551419432269442e-15;
    const double c1p2p = c1 + TWOPI;
    r.gsto = std::fmod(thgr70 + c1 * ds70 + c1p2p * tfrac + ts70 * ts70 * fk5r, TWOPI);
    if (r.gsto < 0.0) r.gsto += TWOPI;
  } else {
    r.gsto = gstime(epoch + 2433281.5);
  }
}

}  // namespace

bool sgp4init(int whichconst, char opsmode, long satnum, double epoch, double xbstar, double xndot, double xnddot,
              double xecco, double xargpo, double xinclo, double xmo, double xno_kozai, double xnodeo,
              ElsetRec& r) {
  // Divisor guard near 180 degrees of inclination.
  const double temp4 = 1.5e-12;

  // Everything derived starts from zero; what the caller set about the set
  // itself (names, epoch, catalogue data) stays.
  ElsetRec fresh;
  fresh.satnum = satnum;
  fresh.epochyr = r.epochyr;
  fresh.epochdays = r.epochdays;
  fresh.jdsatepoch = r.jdsatepoch;
  fresh.jdsatepochF = r.jdsatepochF;
  fresh.classification = r.classification;
  for (int i = 0; i < 11; ++i) fresh.intldesg[i] = r.intldesg[i];
  fresh.elnum = r.elnum;
  fresh.revnum = r.revnum;
  r = fresh;

  GravConst g;
  if (!getgravconst(whichconst, g)) {
    r.error = 1;
    return false;
  }
  r.tumin = g.tumin;
  r.mu = g.mu;
  r.radiusearthkm = g.radiusearthkm;
  r.xke = g.xke;
  r.j2 = g.j2;
  r.j3 = g.j3;
  r.j4 = g.j4;
  r.j3oj2 = g.j3oj2;

  r.operationmode = opsmode;
  r.bstar = xbstar;
  r.ndot = xndot;
  r.nddot = xnddot;
  r.ecco = xecco;
  r.argpo = xargpo;
  r.inclo = xinclo;
  r.mo = xmo;
  r.no_kozai = xno_kozai;
  r.nodeo = xnodeo;

  const double ss = 78.0 / r.radiusearthkm + 1.0;
  const double qzms2ttemp = (120.0 - 78.0) / r.radiusearthkm;
  const double qzms2t = qzms2ttemp * qzms2ttemp * qzms2ttemp * qzms2ttemp;
  const double x2o3 = 2.0 / 3.0;

  r.init = 'y';
  r.t = 0.0;

  InitL o;
  initl(epoch, r, o);
  r.a = std::pow(r.no_unkozai * r.tumin, -2.0 / 3.0);
  r.alta = r.a * (1.0 + r.ecco) - 1.0;
  r.altp = r.a * (1.0 - r.ecco) - 1.0;
  r.error = 0;

  if (o.omeosq >= 0.0 || r.no_unkozai >= 0.0) {
    r.isimp = 0;
    if (o.rp < 220.0 / r.radiusearthkm + 1.0) r.isimp = 1;
    double sfour = ss;
    double qzms24 = qzms2t;
    const double perige = (o.rp - 1.0) * r.radiusearthkm;

    // Perigees below 156 km change the density parameters.
    if (perige < 156.0) {
      sfour = perige - 78.0;
      if (perige < 98.0) sfour = 20.0;
      const double qzms24temp = (120.0 - sfour) / r.radiusearthkm;
      qzms24 = qzms24temp * qzms24temp * qzms24temp * qzms24temp;
      sfour = sfour / r.radiusearthkm + 1.0;
    }
    const double pinvsq = 1.0 / o.posq;

    const double tsi = 1.0 / (o.ao - sfour);
    r.eta = o.ao * r.ecco * tsi;
    const double etasq = r.eta * r.eta;
    const double eeta = r.ecco * r.eta;
    const double psisq = std::fabs(1.0 - etasq);
    const double coef = qzms24 * std::pow(tsi, 4.0);
    const double coef1 = coef / std::pow(psisq, 3.5);
    const double cc2 = coef1 * r.no_unkozai *
                       (o.ao * (1.0 + 1.5 * etasq + eeta * (4.0 + etasq)) +
                        0.375 * r.j2 * tsi / psisq * r.con41 * (8.0 + 3.0 * etasq * (8.0 + etasq)));
    r.cc1 = r.bstar * cc2;
    double cc3 = 0.0;
    if (r.ecco > 1.0e-4) cc3 = -2.0 * coef * tsi * r.j3oj2 * r.no_unkozai * o.sinio / r.ecco;
    r.x1mth2 = 1.0 - o.cosio2;
    r.cc4 = 2.0 * r.no_unkozai * coef1 * o.ao * o.omeosq *
            (r.eta * (2.0 + 0.5 * etasq) + r.ecco * (0.5 + 2.0 * etasq) -
             r.j2 * tsi / (o.ao * psisq) *
                 (-3.0 * r.con41 * (1.0 - 2.0 * eeta + etasq * (1.5 - 0.5 * eeta)) +
                  0.75 * r.x1mth2 * (2.0 * etasq - eeta * (1.0 + etasq)) * std::cos(2.0 * r.argpo)));
    r.cc5 = 2.0 * coef1 * o.ao * o.omeosq * (1.0 + 2.75 * (etasq + eeta) + eeta * etasq);
    const double cosio4 = o.cosio2 * o.cosio2;
    const double temp1 = 1.5 * r.j2 * pinvsq * r.no_unkozai;
    const double temp2 = 0.5 * temp1 * r.j2 * pinvsq;
    const double temp3 = -0.46875 * r.j4 * pinvsq * pinvsq * r.no_unkozai;
    r.mdot = r.no_unkozai + 0.5 * temp1 * o.rteosq * r.con41 +
             0.0625 * temp2 * o.rteosq * (13.0 - 78.0 * o.cosio2 + 137.0 * cosio4);
    r.argpdot = -0.5 * temp1 * o.con42 + 0.0625 * temp2 * (7.0 - 114.0 * o.cosio2 + 395.0 * cosio4) +
                temp3 * (3.0 - 36.0 * o.cosio2 + 49.0 * cosio4);
    const double xhdot1 = -temp1 * o.cosio;
    r.nodedot = xhdot1 + (0.5 * temp2 * (4.0 - 19.0 * o.cosio2) + 2.0 * temp3 * (3.0 - 7.0 * o.cosio2)) * o.cosio;
    const double xpidot = r.argpdot + r.nodedot;
    r.omgcof = r.bstar * cc3 * std::cos(r.argpo);
    r.xmcof = 0.0;
    if (r.ecco > 1.0e-4) r.xmcof = -x2o3 * coef * r.bstar / eeta;
    r.nodecf = 3.5 * o.omeosq * xhdot1 * r.cc1;
    r.t2cof = 1.5 * r.cc1;
    if (std::fabs(o.cosio + 1.0) > 1.5e-12)
      r.xlcof = -0.25 * r.j3oj2 * o.sinio * (3.0 + 5.0 * o.cosio) / (1.0 + o.cosio);
    else
      r.xlcof = -0.25 * r.j3oj2 * o.sinio * (3.0 + 5.0 * o.cosio) / temp4;
    r.aycof = -0.5 * r.j3oj2 * o.sinio;
    const double delmotemp = 1.0 + r.eta * std::cos(r.mo);
    r.delmo = delmotemp * delmotemp * delmotemp;
    r.sinmao = std::sin(r.mo);
    r.x7thm1 = 7.0 * o.cosio2 - 1.0;

    // Periods of 225 minutes and more take the deep-space terms.
    if (TWOPI / r.no_unkozai >= 225.0) {
      r.method = 'd';
      r.isimp = 1;
      const double tc = 0.0;
      double inclm = r.inclo;

      DsCommon c;
      dscom(epoch, r.ecco, r.argpo, tc, r.inclo, r.nodeo, r.no_unkozai, r, c);
      dpper(r, r.t, r.init, r.ecco, r.inclo, r.nodeo, r.argpo, r.mo, r.operationmode);

      double argpm = 0.0, nodem = 0.0, mm = 0.0, dndt = 0.0;
      double em = c.em, emsq = c.emsq, nm = c.nm;
      dsinit(c, r.t, tc, xpidot, em, emsq, argpm, inclm, mm, nm, nodem, dndt, r);
    }

    if (r.isimp != 1) {
      const double cc1sq = r.cc1 * r.cc1;
      r.d2 = 4.0 * o.ao * tsi * cc1sq;
      const double temp = r.d2 * tsi * r.cc1 / 3.0;
      r.d3 = (17.0 * o.ao + sfour) * temp;
      r.d4 = 0.5 * temp * o.ao * tsi * (221.0 * o.ao + 31.0 * sfour) * r.cc1;
      r.t3cof = r.d2 + 2.0 * cc1sq;
      r.t4cof = 0.25 * (3.0 * r.d3 + r.cc1 * (12.0 * r.d2 + 10.0 * cc1sq));
      r.t5cof =
          0.2 * (3.0 * r.d4 + 12.0 * r.cc1 * r.d3 + 6.0 * r.d2 * r.d2 + 15.0 * cc1sq * (2.0 * r.d2 + cc1sq));
    }
  }

  // One call at the epoch completes the state; a set that fails there keeps
  // its code in r.error.
  double rr[3], vv[3];
  sgp4(r, 0.0, rr, vv);
  r.init = 'n';
  return true;
}

}  // namespace AIAA
