#include <cmath>
#include <cstdio>

#include "importers/sgp4/AIAASgp4.h"

namespace AIAA {

bool getgravconst(int whichconst, GravConst& g) {
  g = GravConst();
  switch (whichconst) {
    case wgs72old:
      g.mu = 398600.79964;
      g.radiusearthkm = 6378.135;
      g.xke = 0.0743669161;
      g.j2 = 0.001082616;
      g.j3 = -0.00000253881;
      g.j4 = -0.00000165597;
      break;
    case wgs72:
      g.mu = 398600.8;
      g.radiusearthkm = 6378.135;
      g.xke = 60.0 / std::sqrt(g.radiusearthkm * g.radiusearthkm * g.radiusearthkm / g.mu);
      g.j2 = 0.001082616;
      g.j3 = -0.00000253881;
      g.j4 = -0.00000165597;
      break;
    case wgs84:
      g.mu = 398600.5;
      g.radiusearthkm = 6378.137;
      g.xke = 60.0 / std::sqrt(g.radiusearthkm * g.radiusearthkm * g.radiusearthkm / g.mu);
      g.j2 = 0.00108262998905;
      g.j3 = -0.00000253215306;
      g.j4 = -0.00000161098761;
      break;
    default:
      std::printf("unknown gravity option (%d)\n", whichconst);
      return false;
  }
  g.tumin = 1.0 / g.xke;
  g.j3oj2 = g.j3 / g.j2;
  return true;
}

void getgravconst(int whichconst, double& tumin, double& mu, double& radiusearthkm, double& xke, double& j2,
                  double& j3, double& j4, double& j3oj2) {
  GravConst g;
  getgravconst(whichconst, g);
  tumin = g.tumin;
  mu = g.mu;
  radiusearthkm = g.radiusearthkm;
  xke = g.xke;
  j2 = g.j2;
  j3 = g.j3;
  j4 = g.j4;
  j3oj2 = g.j3oj2;
}

}  // namespace AIAA
