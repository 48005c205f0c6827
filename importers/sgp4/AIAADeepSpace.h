#pragma once
// The deep-space (SDP4) part of the AIAA code: lunar-solar terms common to
// initialisation (dscom), their periodics (dpper), the secular and
// resonance initialisation (dsinit) and the resonance integrator (dspace).
// Internal to the propagator; the arguments follow the code's names.

#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

// What dscom works out for dsinit besides the coefficients it stores in the
// record: the solar (ss*, sz*) and lunar (s*, z*) terms and the angles.
struct DsCommon {
  double snodm, cnodm, sinim, cosim, sinomm, cosomm, day, em, emsq, gam, rtemsq, nm;
  double s1, s2, s3, s4, s5, s6, s7;
  double ss1, ss2, ss3, ss4, ss5, ss6, ss7;
  double sz1, sz2, sz3, sz11, sz12, sz13, sz21, sz22, sz23, sz31, sz32, sz33;
  double z1, z2, z3, z11, z12, z13, z21, z22, z23, z31, z32, z33;
};

void dscom(double epoch, double ep, double argpp, double tc, double inclp, double nodep, double np, ElsetRec& rec,
           DsCommon& c);

// Adds the lunar-solar periodics at rec.t to the elements (init 'y' during
// initialisation, 'n' afterwards).
void dpper(const ElsetRec& rec, double t, char init, double& ep, double& inclp, double& nodep, double& argpp,
           double& mp, char opsmode);

void dsinit(const DsCommon& c, double t, double tc, double xpidot, double& em, double& emsq, double& argpm,
            double& inclm, double& mm, double& nm, double& nodem, double& dndt, ElsetRec& rec);

void dspace(double t, double tc, ElsetRec& rec, double& em, double& argpm, double& inclm, double& mm,
            double& nodem, double& dndt, double& nm);

}  // namespace AIAA
