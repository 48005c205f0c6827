#pragma once
// SGP4/SDP4 orbit propagation in the form of the public AIAA paper code
// ("Revisiting Spacetrack Report #3"), in its improved operation mode.
//
// Units follow that code: time in minutes from the element set's epoch,
// positions in km and velocities in km/s in the TEME frame, epochs as days
// since 0 January 1950 (Julian date - 2433281.5), angles in radians.
//
// Error codes left in ElsetRec::error by sgp4 and sgp4init:
//   1 mean elements, ecc >= 1.0 or ecc < -0.001
//   2 mean motion less than 0.0
//   3 perturbed elements, ecc < 0.0 or ecc > 1.0
//   4 semi-latus rectum < 0.0
//   5 epoch elements are sub-orbital (not raised by the improved mode)
//   6 satellite has decayed

namespace AIAA {

constexpr double PI = 3.14159265358979323846;
constexpr double TWOPI = 2.0 * PI;
constexpr double DEG2RAD = PI / 180.0;
// Revolutions per day to radians per minute: 1440 / (2 pi).
constexpr double XPDOTP = 229.1831180523293;

// The three gravity models of the code; the numbers are those the code uses.
enum GravConstType { wgs72old = 0, wgs72 = 1, wgs84 = 2 };

struct GravConst {
  double tumin = 0.0;          // minutes in one time unit
  double mu = 0.0;             // km^3/s^2
  double radiusearthkm = 0.0;  // km
  double xke = 0.0;            // sqrt(mu) in earth radii^1.5 per minute
  double j2 = 0.0, j3 = 0.0, j4 = 0.0, j3oj2 = 0.0;
};

// The constants of a model. An unknown option prints
// "unknown gravity option (<n>)" on the standard output and answers false,
// with the constants left at zero.
bool getgravconst(int whichconst, GravConst& out);
// The classic out-parameter form.
void getgravconst(int whichconst, double& tumin, double& mu, double& radiusearthkm, double& xke, double& j2,
                  double& j3, double& j4, double& j3oj2);

// Everything sgp4init derives from an element set, and the state of the
// deep-space resonance integrator between calls.
struct ElsetRec {
  long satnum = 0;
  int epochyr = 0;
  int error = 0;
  char operationmode = 'i';
  char init = 'n';
  char method = 'n';
  char classification = 'U';
  char intldesg[11] = {0};
  long elnum = 0;
  long revnum = 0;

  // Near earth.
  int isimp = 0;
  double aycof = 0, con41 = 0, cc1 = 0, cc4 = 0, cc5 = 0, d2 = 0, d3 = 0, d4 = 0, delmo = 0, eta = 0,
         argpdot = 0, omgcof = 0, sinmao = 0, t = 0, t2cof = 0, t3cof = 0, t4cof = 0, t5cof = 0, x1mth2 = 0,
         x7thm1 = 0, mdot = 0, nodedot = 0, xlcof = 0, xmcof = 0, nodecf = 0;

  // Deep space.
  int irez = 0;
  double d2201 = 0, d2211 = 0, d3210 = 0, d3222 = 0, d4410 = 0, d4422 = 0, d5220 = 0, d5232 = 0, d5421 = 0,
         d5433 = 0, dedt = 0, del1 = 0, del2 = 0, del3 = 0, didt = 0, dmdt = 0, dnodt = 0, domdt = 0, e3 = 0,
         ee2 = 0, peo = 0, pgho = 0, pho = 0, pinco = 0, plo = 0, se2 = 0, se3 = 0, sgh2 = 0, sgh3 = 0,
         sgh4 = 0, sh2 = 0, sh3 = 0, si2 = 0, si3 = 0, sl2 = 0, sl3 = 0, sl4 = 0, gsto = 0, xfact = 0,
         xgh2 = 0, xgh3 = 0, xgh4 = 0, xh2 = 0, xh3 = 0, xi2 = 0, xi3 = 0, xl2 = 0, xl3 = 0, xl4 = 0,
         xlamo = 0, zmol = 0, zmos = 0, atime = 0, xli = 0, xni = 0;
  // The resonance rates at the integrator's current step; they change only
  // when the integrator moves, so dspace keeps them between calls.
  bool dotsValid = false;
  double xndt = 0, xnddt = 0, xldot = 0;
  // Sine and cosine of the epoch inclination, which near-earth sets keep.
  double sinio = 0, cosio = 1;
  // (xke / no_unkozai)^(2/3): the unperturbed semi-major axis, in earth radii.
  double aonv0 = 0;

  // Elements and epoch.
  double a = 0, altp = 0, alta = 0, epochdays = 0, jdsatepoch = 0, jdsatepochF = 0, nddot = 0, ndot = 0,
         bstar = 0, rcse = 0, inclo = 0, nodeo = 0, ecco = 0, argpo = 0, mo = 0, no_kozai = 0, no_unkozai = 0;

  // Singly averaged mean elements of the last sgp4 call.
  double am = 0, em = 0, im = 0, Om = 0, om = 0, mm = 0, nm = 0;

  // Gravity constants of the model chosen at initialisation.
  double tumin = 0, mu = 0, radiusearthkm = 0, xke = 0, j2 = 0, j3 = 0, j4 = 0, j3oj2 = 0;
};

// Initialises `satrec` from mean elements (radians, radians per minute;
// ndot and nddot in the units twoline2rv gives) at `epoch`, days since
// 0 January 1950, and propagates once to the epoch. `opsmode` is 'i'
// (improved) or 'a' (the older AFSPC sidereal time and node handling).
// Answers false for an unknown gravity model; satrec.error holds the rest.
bool sgp4init(int whichconst, char opsmode, long satnum, double epoch, double xbstar, double xndot, double xnddot,
              double xecco, double xargpo, double xinclo, double xmo, double xno_kozai, double xnodeo,
              ElsetRec& satrec);

// Position (km) and velocity (km/s) in TEME at `tsince` minutes from the
// epoch. False on an error, with the code in satrec.error.
bool sgp4(ElsetRec& satrec, double tsince, double r[3], double v[3]);

// Reads a two-line element set and initialises `satrec` with sgp4init.
// The lines are edited in place (implied decimal points and zero fills),
// so they must be writable buffers of at least 130 characters holding a
// terminated text. Start, stop and step times in minutes are read from
// behind the second line's 69 columns where a verification file has them,
// and left unchanged otherwise.
void twoline2rv(char longstr1[130], char longstr2[130], char opsmode, int whichconst, double& startmfe,
                double& stopmfe, double& deltamin, ElsetRec& satrec);

// Greenwich mean sidereal time (radians, 0 to 2 pi) of a UT1 Julian date.
double gstime(double jdut1);
// Julian date of a calendar date, split into a whole part ending in .5 and
// the fraction of the day.
void jday(int year, int mon, int day, int hr, int minute, double sec, double& jd, double& jdFrac);
// Calendar date of a split Julian date (1900 to 2100).
void invjday(double jd, double jdfrac, int& year, int& mon, int& day, int& hr, int& minute, double& sec);
// Month, day and clock of a day of the year (1.0 is the start of 1 January).
void days2mdhms(int year, double days, int& mon, int& day, int& hr, int& minute, double& sec);

// Classical elements of a position and velocity (km, km/s; mus in km^3/s^2).
// Angles in radians; values that don't exist for the kind of orbit are
// 999999.1 (undefined) and an infinite semi-major axis 999999.9.
void rv2coe(const double r[3], const double v[3], double mus, double& p, double& a, double& ecc, double& incl,
            double& omega, double& argp, double& nu, double& m, double& arglat, double& truelon, double& lonper);
// Eccentric (or hyperbolic, or parabolic) anomaly e0 and mean anomaly m of a
// true anomaly nu; 999999.9 where they don't exist.
void newtonnu(double ecc, double nu, double& e0, double& m);

}  // namespace AIAA
