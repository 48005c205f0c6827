#include "importers/sgp4/AIAADeepSpace.h"

#include <cmath>

namespace AIAA {

namespace {
// Lunar and solar mean motions (rad/min) and eccentricities.
constexpr double ZNS = 1.19459e-5;
constexpr double ZES = 0.01675;
constexpr double ZNL = 1.5835218e-4;
constexpr double ZEL = 0.05490;
// Earth's rotation, rad/min.
constexpr double RPTIM = 4.37526908801129966e-3;
}  // namespace

void dscom(double epoch, double ep, double argpp, double tc, double inclp, double nodep, double np, ElsetRec& rec,
           DsCommon& c) {
  const double c1ss = 2.9864797e-6, c1l = 4.7968065e-7, zsinis = 0.39785416, zcosis = 0.91744867,
               zcosgs = 0.1945905, zsings = -0.98088458;

  c.nm = np;
  c.em = ep;
  c.snodm = std::sin(nodep);
  c.cnodm = std::cos(nodep);
  c.sinomm = std::sin(argpp);
  c.cosomm = std::cos(argpp);
  c.sinim = std::sin(inclp);
  c.cosim = std::cos(inclp);
  c.emsq = c.em * c.em;
  const double betasq = 1.0 - c.emsq;
  c.rtemsq = std::sqrt(betasq);

  rec.peo = 0.0;
  rec.pinco = 0.0;
  rec.plo = 0.0;
  rec.pgho = 0.0;
  rec.pho = 0.0;
  c.day = epoch + 18261.5 + tc / 1440.0;
  const double xnodce = std::fmod(4.5236020 - 9.2422029e-4 * c.day, TWOPI);
  const double stem = std::sin(xnodce);
  const double ctem = std::cos(xnodce);
  const double zcosil = 0.91375164 - 0.03568096 * ctem;
  const double zsinil = std::sqrt(1.0 - zcosil * zcosil);
  const double zsinhl = 0.089683511 * stem / zsinil;
  const double zcoshl = std::sqrt(1.0 - zsinhl * zsinhl);
  c.gam = 5.8351514 + 0.0019443680 * c.day;
  double zx = 0.39785416 * stem / zsinil;
  const double zy = zcoshl * ctem + 0.91744867 * zsinhl * stem;
  zx = std::atan2(zx, zy);
  zx = c.gam + zx - xnodce;
  const double zcosgl = std::cos(zx);
  const double zsingl = std::sin(zx);

  // First pass the sun, second the moon.
  double zcosg = zcosgs, zsing = zsings, zcosi = zcosis, zsini = zsinis;
  double zcosh = c.cnodm, zsinh = c.snodm;
  double cc = c1ss;
  const double xnoi = 1.0 / c.nm;
  const double emsq = c.emsq;
  for (int lsflg = 1; lsflg <= 2; ++lsflg) {
    const double a1 = zcosg * zcosh + zsing * zcosi * zsinh;
    const double a3 = -zsing * zcosh + zcosg * zcosi * zsinh;
    const double a7 = -zcosg * zsinh + zsing * zcosi * zcosh;
    const double a8 = zsing * zsini;
    const double a9 = zsing * zsinh + zcosg * zcosi * zcosh;
    const double a10 = zcosg * zsini;
    const double a2 = c.cosim * a7 + c.sinim * a8;
    const double a4 = c.cosim * a9 + c.sinim * a10;
    const double a5 = -c.sinim * a7 + c.cosim * a8;
    const double a6 = -c.sinim * a9 + c.cosim * a10;

    const double x1 = a1 * c.cosomm + a2 * c.sinomm;
    const double x2 = a3 * c.cosomm + a4 * c.sinomm;
    const double x3 = -a1 * c.sinomm + a2 * c.cosomm;
    const double x4 = -a3 * c.sinomm + a4 * c.cosomm;
    const double x5 = a5 * c.sinomm;
    const double x6 = a6 * c.sinomm;
    const double x7 = a5 * c.cosomm;
    const double x8 = a6 * c.cosomm;

    c.z31 = 12.0 * x1 * x1 - 3.0 * x3 * x3;
    c.z32 = 24.0 * x1 * x2 - 6.0 * x3 * x4;
    c.z33 = 12.0 * x2 * x2 - 3.0 * x4 * x4;
    c.z1 = 3.0 * (a1 * a1 + a2 * a2) + c.z31 * emsq;
    c.z2 = 6.0 * (a1 * a3 + a2 * a4) + c.z32 * emsq;
    c.z3 = 3.0 * (a3 * a3 + a4 * a4) + c.z33 * emsq;
    c.z11 = -6.0 * a1 * a5 + emsq * (-24.0 * x1 * x7 - 6.0 * x3 * x5);
    c.z12 = -6.0 * (a1 * a6 + a3 * a5) + emsq * (-24.0 * (x2 * x7 + x1 * x8) - 6.0 * (x3 * x6 + x4 * x5));
    c.z13 = -6.0 * a3 * a6 + emsq * (-24.0 * x2 * x8 - 6.0 * x4 * x6);
    c.z21 = 6.0 * a2 * a5 + emsq * (24.0 * x1 * x5 - 6.0 * x3 * x7);
    c.z22 = 6.0 * (a4 * a5 + a2 * a6) + emsq * (24.0 * (x2 * x5 + x1 * x6) - 6.0 * (x4 * x7 + x3 * x8));
    c.z23 = 6.0 * a4 * a6 + emsq * (24.0 * x2 * x6 - 6.0 * x4 * x8);
    c.z1 = c.z1 + c.z1 + betasq * c.z31;
    c.z2 = c.z2 + c.z2 + betasq * c.z32;
    c.z3 = c.z3 + c.z3 + betasq * c.z33;
    c.s3 = cc * xnoi;
    c.s2 = -0.5 * c.s3 / c.rtemsq;
    c.s4 = c.s3 * c.rtemsq;
    c.s1 = -15.0 * c.em * c.s4;
    c.s5 = x1 * x3 + x2 * x4;
    c.s6 = x2 * x3 + x1 * x4;
    c.s7 = x2 * x4 - x1 * x3;

    if (lsflg == 1) {
      c.ss1 = c.s1;
      c.ss2 = c.s2;
      c.ss3 = c.s3;
      c.ss4 = c.s4;
      c.ss5 = c.s5;
      c.ss6 = c.s6;
      c.ss7 = c.s7;
      c.sz1 = c.z1;
      c.sz2 = c.z2;
      c.sz3 = c.z3;
      c.sz11 = c.z11;
      c.sz12 = c.z12;
      c.sz13 = c.z13;
      c.sz21 = c.z21;
      c.sz22 = c.z22;
      c.sz23 = c.z23;
      c.sz31 = c.z31;
      c.sz32 = c.z32;
      c.sz33 = c.z33;
      zcosg = zcosgl;
      zsing = zsingl;
      zcosi = zcosil;
      zsini = zsinil;
      zcosh = zcoshl * c.cnodm + zsinhl * c.snodm;
      zsinh = c.snodm * zcoshl - c.cnodm * zsinhl;
      cc = c1l;
    }
  }

  rec.zmol = std::fmod(4.7199672 + 0.22997150 * c.day - c.gam, TWOPI);
  rec.zmos = std::fmod(6.2565837 + 0.017201977 * c.day, TWOPI);

  // Solar terms.
  rec.se2 = 2.0 * c.ss1 * c.ss6;
  rec.se3 = 2.0 * c.ss1 * c.ss7;
  rec.si2 = 2.0 * c.ss2 * c.sz12;
  rec.si3 = 2.0 * c.ss2 * (c.sz13 - c.sz11);
  rec.sl2 = -2.0 * c.ss3 * c.sz2;
  rec.sl3 = -2.0 * c.ss3 * (c.sz3 - c.sz1);
  rec.sl4 = -2.0 * c.ss3 * (-21.0 - 9.0 * emsq) * ZES;
  rec.sgh2 = 2.0 * c.ss4 * c.sz32;
  rec.sgh3 = 2.0 * c.ss4 * (c.sz33 - c.sz31);
  rec.sgh4 = -18.0 * c.ss4 * ZES;
  rec.sh2 = -2.0 * c.ss2 * c.sz22;
  rec.sh3 = -2.0 * c.ss2 * (c.sz23 - c.sz21);

  // Lunar terms.
  rec.ee2 = 2.0 * c.s1 * c.s6;
  rec.e3 = 2.0 * c.s1 * c.s7;
  rec.xi2 = 2.0 * c.s2 * c.z12;
  rec.xi3 = 2.0 * c.s2 * (c.z13 - c.z11);
  rec.xl2 = -2.0 * c.s3 * c.z2;
  rec.xl3 = -2.0 * c.s3 * (c.z3 - c.z1);
  rec.xl4 = -2.0 * c.s3 * (-21.0 - 9.0 * emsq) * ZEL;
  rec.xgh2 = 2.0 * c.s4 * c.z32;
  rec.xgh3 = 2.0 * c.s4 * (c.z33 - c.z31);
  rec.xgh4 = -18.0 * c.s4 * ZEL;
  rec.xh2 = -2.0 * c.s2 * c.z22;
  rec.xh3 = -2.0 * c.s2 * (c.z23 - c.z21);
}

void dpper(const ElsetRec& r, double t, char init, double& ep, double& inclp, double& nodep, double& argpp,
           double& mp, char opsmode) {
  double zm = r.zmos + ZNS * t;
  if (init == 'y') zm = r.zmos;
  double zf = zm + 2.0 * ZES * std::sin(zm);
  double sinzf = std::sin(zf);
  double f2 = 0.5 * sinzf * sinzf - 0.25;
  double f3 = -0.5 * sinzf * std::cos(zf);
  const double ses = r.se2 * f2 + r.se3 * f3;
  const double sis = r.si2 * f2 + r.si3 * f3;
  const double sls = r.sl2 * f2 + r.sl3 * f3 + r.sl4 * sinzf;
  const double sghs = r.sgh2 * f2 + r.sgh3 * f3 + r.sgh4 * sinzf;
  const double shs = r.sh2 * f2 + r.sh3 * f3;

  zm = r.zmol + ZNL * t;
  if (init == 'y') zm = r.zmol;
  zf = zm + 2.0 * ZEL * std::sin(zm);
  sinzf = std::sin(zf);
  f2 = 0.5 * sinzf * sinzf - 0.25;
  f3 = -0.5 * sinzf * std::cos(zf);
  const double sel = r.ee2 * f2 + r.e3 * f3;
  const double sil = r.xi2 * f2 + r.xi3 * f3;
  const double sll = r.xl2 * f2 + r.xl3 * f3 + r.xl4 * sinzf;
  const double sghl = r.xgh2 * f2 + r.xgh3 * f3 + r.xgh4 * sinzf;
  const double shll = r.xh2 * f2 + r.xh3 * f3;

  double pe = ses + sel;
  double pinc = sis + sil;
  double pl = sls + sll;
  double pgh = sghs + sghl;
  double ph = shs + shll;

  if (init != 'n') return;

  pe -= r.peo;
  pinc -= r.pinco;
  pl -= r.plo;
  pgh -= r.pgho;
  ph -= r.pho;
  inclp += pinc;
  ep += pe;
  const double sinip = std::sin(inclp);
  const double cosip = std::cos(inclp);

  // The perturbed inclination chooses between the direct periodics and
  // Lyddane's form, which stays regular at small inclinations.
  if (inclp >= 0.2) {
    ph /= sinip;
    pgh -= cosip * ph;
    argpp += pgh;
    nodep += ph;
    mp += pl;
  } else {
    const double sinop = std::sin(nodep);
    const double cosop = std::cos(nodep);
    double alfdp = sinip * sinop;
    double betdp = sinip * cosop;
    const double dalf = ph * cosop + pinc * cosip * sinop;
    const double dbet = -ph * sinop + pinc * cosip * cosop;
    alfdp += dalf;
    betdp += dbet;
    nodep = std::fmod(nodep, TWOPI);
    if (nodep < 0.0 && opsmode == 'a') nodep += TWOPI;
    double xls = mp + argpp + cosip * nodep;
    const double dls = pl + pgh - pinc * nodep * sinip;
    xls += dls;
    const double xnoh = nodep;
    nodep = std::atan2(alfdp, betdp);
    if (nodep < 0.0 && opsmode == 'a') nodep += TWOPI;
    if (std::fabs(xnoh - nodep) > PI) {
      if (nodep < xnoh)
        nodep += TWOPI;
      else
        nodep -= TWOPI;
    }
    mp += pl;
    argpp = xls - mp - cosip * nodep;
  }
}

void dsinit(const DsCommon& c, double t, double tc, double xpidot, double& em, double& emsq, double& argpm,
            double& inclm, double& mm, double& nm, double& nodem, double& dndt, ElsetRec& r) {
  const double q22 = 1.7891679e-6, q31 = 2.1460748e-6, q33 = 2.2123015e-7, root22 = 1.7891679e-6,
               root44 = 7.3636953e-9, root54 = 2.1765803e-9, root32 = 3.7393792e-7, root52 = 1.1428639e-7,
               x2o3 = 2.0 / 3.0;
  const double cosim = c.cosim, sinim = c.sinim;

  r.irez = 0;
  if (nm < 0.0052359877 && nm > 0.0034906585) r.irez = 1;
  if (nm >= 8.26e-3 && nm <= 9.24e-3 && em >= 0.5) r.irez = 2;

  // Solar secular terms.
  const double ses = c.ss1 * ZNS * c.ss5;
  const double sis = c.ss2 * ZNS * (c.sz11 + c.sz13);
  const double sls = -ZNS * c.ss3 * (c.sz1 + c.sz3 - 14.0 - 6.0 * emsq);
  const double sghs = c.ss4 * ZNS * (c.sz31 + c.sz33 - 6.0);
  double shs = -ZNS * c.ss2 * (c.sz21 + c.sz23);
  // Near 0 and 180 degrees of inclination the node rate is left out.
  if (inclm < 5.2359877e-2 || inclm > PI - 5.2359877e-2) shs = 0.0;
  if (sinim != 0.0) shs /= sinim;
  const double sgs = sghs - cosim * shs;

  // Lunar secular terms.
  r.dedt = ses + c.s1 * ZNL * c.s5;
  r.didt = sis + c.s2 * ZNL * (c.z11 + c.z13);
  r.dmdt = sls - ZNL * c.s3 * (c.z1 + c.z3 - 14.0 - 6.0 * emsq);
  const double sghl = c.s4 * ZNL * (c.z31 + c.z33 - 6.0);
  double shll = -ZNL * c.s2 * (c.z21 + c.z23);
  if (inclm < 5.2359877e-2 || inclm > PI - 5.2359877e-2) shll = 0.0;
  r.domdt = sgs + sghl;
  r.dnodt = shs;
  if (sinim != 0.0) {
    r.domdt -= cosim / sinim * shll;
    r.dnodt += shll / sinim;
  }

  dndt = 0.0;
  const double theta = std::fmod(r.gsto + tc * RPTIM, TWOPI);
  em += r.dedt * t;
  inclm += r.didt * t;
  argpm += r.domdt * t;
  nodem += r.dnodt * t;
  mm += r.dmdt * t;

  if (r.irez == 0) return;

  const double aonv = std::pow(nm / r.xke, x2o3);

  if (r.irez == 2) {
    // Half-day resonance (12-hour orbits) with the geopotential.
    const double cosisq = cosim * cosim;
    const double emo = em;
    em = r.ecco;
    const double emsqo = emsq;
    emsq = r.ecco * r.ecco;
    const double eoc = em * emsq;
    const double g201 = -0.306 - (em - 0.64) * 0.440;
    double g211, g310, g322, g410, g422, g520, g521, g532, g533;
    if (em <= 0.65) {
      g211 = 3.616 - 13.2470 * em + 16.2900 * emsq;
      g310 = -19.302 + 117.3900 * em - 228.4190 * emsq + 156.5910 * eoc;
      g322 = -18.9068 + 109.7927 * em - 214.6334 * emsq + 146.5816 * eoc;
      g410 = -41.122 + 242.6940 * em - 471.0940 * emsq + 313.9530 * eoc;
      g422 = -146.407 + 841.8800 * em - 1629.014 * emsq + 1083.4350 * eoc;
      g520 = -532.114 + 3017.977 * em - 5740.032 * emsq + 3708.2760 * eoc;
    } else {
      g211 = -72.099 + 331.819 * em - 508.738 * emsq + 266.724 * eoc;
      g310 = -346.844 + 1582.851 * em - 2415.925 * emsq + 1246.113 * eoc;
      g322 = -342.585 + 1554.908 * em - 2366.899 * emsq + 1215.972 * eoc;
      g410 = -1052.797 + 4758.686 * em - 7193.992 * emsq + 3651.957 * eoc;
      g422 = -3581.690 + 16178.110 * em - 24462.770 * emsq + 12422.520 * eoc;
      if (em > 0.715)
        g520 = -5149.66 + 29936.92 * em - 54087.36 * emsq + 31324.56 * eoc;
      else
        g520 = 1464.74 - 4664.75 * em + 3763.64 * emsq;
    }
    if (em < 0.7) {
      g533 = -919.22770 + 4988.6100 * em - 9064.7700 * emsq + 5542.21 * eoc;
      g521 = -822.71072 + 4568.6173 * em - 8491.4146 * emsq + 5337.524 * eoc;
      g532 = -853.66600 + 4690.2500 * em - 8624.7700 * emsq + 5341.4 * eoc;
    } else {
      g533 = -37995.780 + 161616.52 * em - 229838.20 * emsq + 109377.94 * eoc;
      g521 = -51752.104 + 218913.95 * em - 309468.16 * emsq + 146349.42 * eoc;
      g532 = -40023.880 + 170470.89 * em - 242699.48 * emsq + 115605.82 * eoc;
    }

    const double sini2 = sinim * sinim;
    const double f220 = 0.75 * (1.0 + 2.0 * cosim + cosisq);
    const double f221 = 1.5 * sini2;
    const double f321 = 1.875 * sinim * (1.0 - 2.0 * cosim - 3.0 * cosisq);
    const double f322 = -1.875 * sinim * (1.0 + 2.0 * cosim - 3.0 * cosisq);
    const double f441 = 35.0 * sini2 * f220;
    const double f442 = 39.3750 * sini2 * sini2;
    const double f522 = 9.84375 * sinim *
                        (sini2 * (1.0 - 2.0 * cosim - 5.0 * cosisq) +
                         0.33333333 * (-2.0 + 4.0 * cosim + 6.0 * cosisq));
    const double f523 = sinim * (4.92187512 * sini2 * (-2.0 - 4.0 * cosim + 10.0 * cosisq) +
                                 6.56250012 * (1.0 + 2.0 * cosim - 3.0 * cosisq));
    const double f542 = 29.53125 * sinim * (2.0 - 8.0 * cosim + cosisq * (-12.0 + 8.0 * cosim + 10.0 * cosisq));
    const double f543 = 29.53125 * sinim * (-2.0 - 8.0 * cosim + cosisq * (12.0 + 8.0 * cosim - 10.0 * cosisq));
    const double xno2 = nm * nm;
    const double ainv2 = aonv * aonv;
    double temp1 = 3.0 * xno2 * ainv2;
    double temp = temp1 * root22;
    r.d2201 = temp * f220 * g201;
    r.d2211 = temp * f221 * g211;
    temp1 *= aonv;
    temp = temp1 * root32;
    r.d3210 = temp * f321 * g310;
    r.d3222 = temp * f322 * g322;
    temp1 *= aonv;
    temp = 2.0 * temp1 * root44;
    r.d4410 = temp * f441 * g410;
    r.d4422 = temp * f442 * g422;
    temp1 *= aonv;
    temp = temp1 * root52;
    r.d5220 = temp * f522 * g520;
    r.d5232 = temp * f523 * g532;
    temp = 2.0 * temp1 * root54;
    r.d5421 = temp * f542 * g521;
    r.d5433 = temp * f543 * g533;
    r.xlamo = std::fmod(r.mo + r.nodeo + r.nodeo - theta - theta, TWOPI);
    r.xfact = r.mdot + r.dmdt + 2.0 * (r.nodedot + r.dnodt - RPTIM) - r.no_unkozai;
    em = emo;
    emsq = emsqo;
  }

  if (r.irez == 1) {
    // Synchronous (one-day) resonance.
    const double g200 = 1.0 + emsq * (-2.5 + 0.8125 * emsq);
    const double g310 = 1.0 + 2.0 * emsq;
    const double g300 = 1.0 + emsq * (-6.0 + 6.60937 * emsq);
    const double f220 = 0.75 * (1.0 + cosim) * (1.0 + cosim);
    const double f311 = 0.9375 * sinim * sinim * (1.0 + 3.0 * cosim) - 0.75 * (1.0 + cosim);
    double f330 = 1.0 + cosim;
    f330 = 1.875 * f330 * f330 * f330;
    r.del1 = 3.0 * nm * nm * aonv * aonv;
    r.del2 = 2.0 * r.del1 * f220 * g200 * q22;
    r.del3 = 3.0 * r.del1 * f330 * g300 * q33 * aonv;
    r.del1 = r.del1 * f311 * g310 * q31 * aonv;
    r.xlamo = std::fmod(r.mo + r.nodeo + r.argpo - theta, TWOPI);
    r.xfact = r.mdot + xpidot - RPTIM + r.dmdt + r.domdt + r.dnodt - r.no_unkozai;
  }

  // Start of the resonance integrator.
  r.xli = r.xlamo;
  r.xni = r.no_unkozai;
  r.atime = 0.0;
  r.dotsValid = false;
  nm = r.no_unkozai + dndt;
}

void dspace(double t, double tc, ElsetRec& r, double& em, double& argpm, double& inclm, double& mm, double& nodem,
            double& dndt, double& nm) {
  const double fasx2 = 0.13130908, fasx4 = 2.8843198, fasx6 = 0.37448087, g22 = 5.7686396, g32 = 0.95240898,
               g44 = 1.8014998, g52 = 1.0508330, g54 = 4.4108898, stepp = 720.0, stepn = -720.0,
               step2 = 259200.0;

  dndt = 0.0;
  const double theta = std::fmod(r.gsto + tc * RPTIM, TWOPI);
  em += r.dedt * t;
  inclm += r.didt * t;
  argpm += r.domdt * t;
  nodem += r.dnodt * t;
  mm += r.dmdt * t;

  if (r.irez == 0) return;

  // Euler-Maclaurin integration in steps of 720 minutes from the epoch. The
  // integrator restarts at the epoch when the time changes side or comes
  // closer to the epoch than the last integrated step; otherwise it goes on
  // from where the previous call left it.
  if (r.atime == 0.0 || t * r.atime <= 0.0 || std::fabs(t) < std::fabs(r.atime)) {
    if (r.atime != 0.0 || r.xni != r.no_unkozai || r.xli != r.xlamo) r.dotsValid = false;
    r.atime = 0.0;
    r.xni = r.no_unkozai;
    r.xli = r.xlamo;
  }
  const double delt = t > 0.0 ? stepp : stepn;

  double ft = 0.0;
  for (;;) {
    if (!r.dotsValid) {
      if (r.irez != 2) {
        r.xndt = r.del1 * std::sin(r.xli - fasx2) + r.del2 * std::sin(2.0 * (r.xli - fasx4)) +
                 r.del3 * std::sin(3.0 * (r.xli - fasx6));
        r.xldot = r.xni + r.xfact;
        r.xnddt = r.del1 * std::cos(r.xli - fasx2) + 2.0 * r.del2 * std::cos(2.0 * (r.xli - fasx4)) +
                  3.0 * r.del3 * std::cos(3.0 * (r.xli - fasx6));
        r.xnddt *= r.xldot;
      } else {
        const double xomi = r.argpo + r.argpdot * r.atime;
        const double x2omi = xomi + xomi;
        const double x2li = r.xli + r.xli;
        r.xndt = r.d2201 * std::sin(x2omi + r.xli - g22) + r.d2211 * std::sin(r.xli - g22) +
                 r.d3210 * std::sin(xomi + r.xli - g32) + r.d3222 * std::sin(-xomi + r.xli - g32) +
                 r.d4410 * std::sin(x2omi + x2li - g44) + r.d4422 * std::sin(x2li - g44) +
                 r.d5220 * std::sin(xomi + r.xli - g52) + r.d5232 * std::sin(-xomi + r.xli - g52) +
                 r.d5421 * std::sin(xomi + x2li - g54) + r.d5433 * std::sin(-xomi + x2li - g54);
        r.xldot = r.xni + r.xfact;
        r.xnddt = r.d2201 * std::cos(x2omi + r.xli - g22) + r.d2211 * std::cos(r.xli - g22) +
                  r.d3210 * std::cos(xomi + r.xli - g32) + r.d3222 * std::cos(-xomi + r.xli - g32) +
                  r.d5220 * std::cos(xomi + r.xli - g52) + r.d5232 * std::cos(-xomi + r.xli - g52) +
                  2.0 * (r.d4410 * std::cos(x2omi + x2li - g44) + r.d4422 * std::cos(x2li - g44) +
                         r.d5421 * std::cos(xomi + x2li - g54) + r.d5433 * std::cos(-xomi + x2li - g54));
        r.xnddt *= r.xldot;
      }
      r.dotsValid = true;
    }
    if (std::fabs(t - r.atime) < stepp) {
      ft = t - r.atime;
      break;
    }
    r.xli = r.xli + r.xldot * delt + r.xndt * step2;
    r.xni = r.xni + r.xndt * delt + r.xnddt * step2;
    r.atime += delt;
    r.dotsValid = false;
  }
  const double xndt = r.xndt, xnddt = r.xnddt, xldot = r.xldot;

  nm = r.xni + xndt * ft + xnddt * ft * ft * 0.5;
  const double xl = r.xli + xldot * ft + xndt * ft * ft * 0.5;
  if (r.irez != 1)
    mm = xl - 2.0 * nodem + 2.0 * theta;
  else
    mm = xl - nodem - argpm + theta;
  dndt = nm - r.no_unkozai;
  nm = r.no_unkozai + dndt;
}

}  // namespace AIAA
