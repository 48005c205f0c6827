#pragma once
// Angles: wrapping into a range, tolerant comparison, and the text forms of
// an angle (degrees, degrees-minutes, degrees-minutes-seconds, radians, BAM,
// mils, milliradians) in both directions. Angles are radians unless a name
// says degrees.

#include <string>

#include "core/Vec3.h"

namespace orvCore {

// How angFix wraps an angle.
enum AngleExtents {
  AE_NONE = 0,              // unchanged
  AE_ZERO_TWOPI = 1,        // [0, 2 pi)
  AE_PLUSMINUS_PI = 2,      // [-pi, pi]
  AE_PLUSMINUS_HALFPI = 3   // wrapped to [-pi, pi], then clamped (not folded) to [-pi/2, pi/2]
};

// The text form of an angle.
enum GeodeticFormat {
  GF_DEGREES = 0,
  GF_DEGREES_MINUTES = 1,
  GF_DEGREES_MINUTES_SECONDS = 2,
  GF_RADIANS = 3,
  GF_BAM = 4,
  GF_MIL = 5,
  GF_MILLIRADIANS = 6
};

// Which bytes stand for the degree sign.
enum DegreeSymbolFormat {
  DS_NONE = 0,     // no sign
  DS_ASCII = 1,    // the single byte 0xB0
  DS_UNICODE = 2,  // C2 B0
  DS_UTF8 = 3      // C2 B0
};

// acos and asin with the argument clamped to [-1, 1], so that rounding just
// outside the domain gives the end value instead of NaN.
double inverseCosine(double x);
double inverseSine(double x);

// True if a and b name the same direction within the tolerance, also across
// the wrap (0 and 2 pi; pi and -pi).
bool areAnglesEqual(double a, double b, double tolerance = 1e-6);
// areAnglesEqual on each of the three components.
bool v3AreAnglesEqual(const Vec3& a, const Vec3& b, double tolerance = 1e-6);

// The orientation (yaw, pitch, roll) reached by applying `second` after
// `first`, composed through quaternions.
Vec3 rotateEulerAngle(const Vec3& first, const Vec3& second);

// Wraps an angle in radians into the range that `extents` names. A remainder
// under 1e-10 in magnitude is taken as exactly 0.
double angFix(double angle, AngleExtents extents);
// The same in degrees (360, 180, 90), without the 1e-10 rule.
double angFixDegrees(double angle, AngleExtents extents);

// The bytes of the degree sign in the given form; empty for DS_NONE and for
// any value that is not a DegreeSymbolFormat.
std::string getDegreeSymbol(DegreeSymbolFormat format);

// The text of an angle given in radians. A negative angle gets `negativeDir`
// as a suffix after one blank ("12.50 S"), a positive one `positiveDir`; a
// direction of '\0' gives no suffix, and then a negative angle shows a minus
// sign. `allNumerics` drops the suffix and all symbols and shows the minus sign.
std::string getAngleString(double radians, GeodeticFormat format, bool allNumerics, int precision,
                           DegreeSymbolFormat degreeSymbol, char positiveDir, char negativeDir);

// A latitude, wrapped to [-pi, pi] and folded into [-pi/2, pi/2] (so 135
// degrees prints as 45 N), with suffixes "N" and "S".
std::string printLatitude(double radians, GeodeticFormat format, bool allNumerics, int precision,
                          DegreeSymbolFormat degreeSymbol);
// A longitude, wrapped to [-pi, pi], with suffixes "E" and "W".
std::string printLongitude(double radians, GeodeticFormat format, bool allNumerics, int precision,
                           DegreeSymbolFormat degreeSymbol);

// Reads an angle in degrees: a plain number ("-12.5", "+3", "1e2"), or
// degrees, minutes and seconds split by blanks, ",", ":", degree, minute and
// second signs and direction letters ("12 30 S", "12:30:30 w", "45°30'N").
// Any of "SsWw-" makes the whole angle negative. Writes the angle to `out`,
// in radians if `rads` is set, and answers 0; answers 1 and leaves `out`
// alone when the text is no angle.
int getAngleFromDegreeString(const std::string& text, bool rads, double& out);

// Splits a value into a mantissa in [1, 10) with the value's sign and a
// power of ten: 1234 gives 1.234 and 3. Zero (and a non-finite value) gives
// the value itself and exponent 0. `exponent` may be null.
double toScientific(double value, int* exponent);

}  // namespace orvCore
