#include "core/CoordinateConverter.h"

#include <cmath>
#include <string>

#include "core/Angle.h"
#include "core/Notify.h"
#include "core/VectorMath.h"

namespace orvCore {

namespace {

constexpr double WGS_E4 = WGS_E2 * WGS_E2;
// An origin this close to a pole makes the flat-earth longitude scale useless.
constexpr double POLE_TOLERANCE = 1.0e-5;
// Radii under this have no usable inverse; the inverse becomes the float max.
constexpr double MIN_RADIUS = 1.0e-5;
constexpr double HUGE_INVERSE = 3.4028234663852886e38;

bool isFlat(CoordinateSystem s) { return s == NED || s == NWU || s == ENU; }

// Reports a failed conversion, clears the output and answers 1.
int fail(Coordinate& out, const char* message, CoordinateSystem system) {
  orvNotify::notify(orvNotify::ERROR_LEVEL) << message << coordinateSystemName(system) << "\n";
  out.clear();
  return 1;
}

void reportUnset(const char* what) {
  orvNotify::notify(orvNotify::ERROR_LEVEL) << "CoordinateConverter " << what << " has not been set\n";
}

// ENU-ordered local vector to the order of a flat frame, and back.
Vec3 enuToFrame(const Vec3& enu, CoordinateSystem frame) {
  if (frame == NED) return Vec3(enu[1], enu[0], -enu[2]);
  if (frame == NWU) return Vec3(enu[1], -enu[0], enu[2]);
  return enu;
}

Vec3 frameToEnu(const Vec3& v, CoordinateSystem frame) {
  if (frame == NED) return Vec3(v[1], v[0], -v[2]);
  if (frame == NWU) return Vec3(-v[1], v[0], v[2]);
  return v;
}

// Orientation against one frame to orientation against another, where
// `toFromOld` takes vectors of the old frame into the new one: the body DCM
// against the new frame is DCM(old) * transpose(toFromOld).
Vec3 reframeOrientation(const Vec3& ori, const double toFromOld[][3]) {
  double dcm[3][3];
  d3EulertoDCM(ori, dcm);
  d3MMTmult(dcm, toFromOld, dcm);
  Vec3 result;
  d3DCMtoEuler(dcm, result);
  return result;
}

// The rotation that takes ECI vectors into ECEF after `angle` of earth turn.
void eciToEcefMatrix(double angle, double m[][3]) {
  const double wrapped = angFix(angle, AE_ZERO_TWOPI);
  double s = 0.0;
  double c = 1.0;
  if (wrapped != 0.0) {
    s = std::sin(wrapped);
    c = std::cos(wrapped);
  }
  m[0][0] = c;
  m[0][1] = s;
  m[0][2] = 0.0;
  m[1][0] = -s;
  m[1][1] = c;
  m[1][2] = 0.0;
  m[2][0] = 0.0;
  m[2][1] = 0.0;
  m[2][2] = 1.0;
}

// m * v and transpose(m) * v, kept here so that they inline.
inline Vec3 mul(const double m[][3], const Vec3& v) {
  return Vec3(m[0][0] * v[0] + m[0][1] * v[1] + m[0][2] * v[2], m[1][0] * v[0] + m[1][1] * v[1] + m[1][2] * v[2],
              m[2][0] * v[0] + m[2][1] * v[1] + m[2][2] * v[2]);
}

inline Vec3 mulT(const double m[][3], const Vec3& v) {
  return Vec3(m[0][0] * v[0] + m[1][0] * v[1] + m[2][0] * v[2], m[0][1] * v[0] + m[1][1] * v[1] + m[2][1] * v[2],
              m[0][2] * v[0] + m[1][2] * v[1] + m[2][2] * v[2]);
}

// Starts a result in `out` from `in`: every field and flag is carried, and
// the conversion then overwrites what it changes. The conversions read what
// they need from `in` before writing a field, so `out` may be `in`.
inline void startFrom(const Coordinate& in, Coordinate& out, CoordinateSystem system) {
  if (&out != &in) out = in;
  out.setSystem(system);
}

// The earth's rotation vector crossed with v.
Vec3 omegaCross(const Vec3& v) { return Vec3(-EARTH_ROTATION_RATE * v[1], EARTH_ROTATION_RATE * v[0], 0.0); }

}  // namespace

CoordinateConverter::~CoordinateConverter() = default;

// --- origin -----------------------------------------------------------------

void CoordinateConverter::setReferenceOrigin(double lat, double lon, double alt) {
  refLat_ = angFix(lat, AE_PLUSMINUS_HALFPI);
  refLon_ = angFix(lon, AE_PLUSMINUS_PI);
  refAlt_ = alt;

  const double s = std::sin(refLat_);
  const double c = std::cos(refLat_);
  const double d = 1.0 - WGS_E2 * s * s;
  const double n = WGS_A / std::sqrt(d);
  latRadius_ = WGS_ONE_MINUS_E2 * n / d;
  lonRadius_ = n * c;

  originState_ = (M_PI_2 - std::fabs(refLat_) < POLE_TOLERANCE) ? ORIGIN_DEGENERATE : ORIGIN_SET;
  invLatRadius_ = latRadius_ < MIN_RADIUS ? HUGE_INVERSE : 1.0 / latRadius_;
  invLonRadius_ = lonRadius_ < MIN_RADIUS ? HUGE_INVERSE : 1.0 / lonRadius_;

  setLocalToEarthMatrix(refLat_, refLon_, LOCAL_LEVEL_FRAME_NED, localToEarth_);
  convertGeodeticPosToEcef(Vec3(refLat_, refLon_, refAlt_), originEcef_);
}

void CoordinateConverter::setReferenceOrigin(const Vec3& lla) { setReferenceOrigin(lla[0], lla[1], lla[2]); }

void CoordinateConverter::setReferenceOriginDegrees(double latDeg, double lonDeg, double alt) {
  setReferenceOrigin(latDeg * (M_PI / 180.0), lonDeg * (M_PI / 180.0), alt);
}

void CoordinateConverter::setReferenceOriginDegrees(const Vec3& llaDeg) {
  setReferenceOriginDegrees(llaDeg[0], llaDeg[1], llaDeg[2]);
}

double CoordinateConverter::referenceLat() const {
  if (originState_ == ORIGIN_NOT_SET) reportUnset("reference latitude");
  return refLat_;
}

double CoordinateConverter::referenceLon() const {
  if (originState_ == ORIGIN_NOT_SET) reportUnset("reference longitude");
  return refLon_;
}

double CoordinateConverter::referenceAlt() const {
  if (originState_ == ORIGIN_NOT_SET) reportUnset("reference altitude");
  return refAlt_;
}

Vec3 CoordinateConverter::referenceOrigin() const {
  if (originState_ == ORIGIN_NOT_SET) reportUnset("reference origin");
  return Vec3(refLat_, refLon_, refAlt_);
}

double CoordinateConverter::latRadius() const {
  if (originState_ == ORIGIN_NOT_SET) reportUnset("latitude radius");
  return latRadius_;
}

double CoordinateConverter::lonRadius() const {
  if (originState_ == ORIGIN_NOT_SET) reportUnset("longitude radius");
  return lonRadius_;
}

void CoordinateConverter::setTangentPlaneOffsets(double x, double y, double rotation) {
  tpOffsetX_ = x;
  tpOffsetY_ = y;
  setTangentPlaneRotation(rotation);
}

void CoordinateConverter::setTangentPlaneRotation(double rotation) {
  tpRotation_ = rotation;
  tpSin_ = std::sin(rotation);
  tpCos_ = std::cos(rotation);
}

// --- dispatch ---------------------------------------------------------------
//
// `in` and `out` are different objects here, so every later step works on
// `out` in place.

int CoordinateConverter::convert(const Coordinate& in, Coordinate& out, CoordinateSystem outSystem) const {
  if (&in == &out) {
    orvNotify::notify(orvNotify::ERROR_LEVEL) << "CoordinateConverter::convert, input and output are the same object\n";
    return 1;
  }
  const CoordinateSystem from = in.system();
  if (from == outSystem) {
    out = in;
    return 0;
  }
  if (from <= NONE || from > GTP) return fail(out, "CoordinateConverter::convert, invalid input coordinate system: ", from);
  if (outSystem <= NONE || outSystem > GTP)
    return fail(out, "CoordinateConverter::convert, invalid output coordinate system: ", outSystem);

  switch (from) {
    case NED:
    case NWU:
    case ENU:
      if (isFlat(outSystem)) {
        if (from == NED) return outSystem == NWU ? swapNedNwu(in, out) : swapNedEnu(in, out);
        if (from == NWU) return outSystem == NED ? swapNedNwu(in, out) : convertNwuToEnu(in, out);
        return outSystem == NED ? swapNedEnu(in, out) : convertEnuToNwu(in, out);
      }
      if (outSystem == LLA) return convertFlatToGeodetic_(in, out);
      if (convertFlatToEcef_(in, out) != 0) return 1;
      return convertFromEcef_(out, out, outSystem);
    case LLA:
      if (isFlat(outSystem)) return convertGeodeticToFlat_(in, out, outSystem);
      if (outSystem == XEAST || outSystem == GTP) {
        if (convertGeodeticToXEast_(in, out) != 0) return 1;
        if (outSystem == GTP) applyTPOffsetRotate_(out, out);
        return 0;
      }
      if (convertGeodeticToEcef(in, out) != 0) return 1;
      return convertFromEcef_(out, out, outSystem);
    case ECEF:
      return convertFromEcef_(in, out, outSystem);
    case ECI:
      if (convertEciToEcef(in, out) != 0) return 1;
      return convertFromEcef_(out, out, outSystem);
    case XEAST:
    case GTP:
      if (from == GTP)
        reverseTPOffsetRotate_(in, out);
      else
        out = in;
      if (outSystem == XEAST) return 0;
      if (outSystem == GTP) {
        applyTPOffsetRotate_(out, out);
        return 0;
      }
      if (outSystem == LLA) return convertXEastToGeodetic_(out, out);
      if (isFlat(outSystem)) {
        if (convertXEastToGeodetic_(out, out) != 0) return 1;
        return convertGeodeticToFlat_(out, out, outSystem);
      }
      if (convertXEastToEcef_(out, out) != 0) return 1;
      return convertFromEcef_(out, out, outSystem);
    default:
      return fail(out, "CoordinateConverter::convert, invalid input coordinate system: ", from);
  }
}

int CoordinateConverter::convertFromEcef_(const Coordinate& ecef, Coordinate& out, CoordinateSystem outSystem) const {
  switch (outSystem) {
    case NED:
    case NWU:
    case ENU:
      return convertEcefToFlat_(ecef, out, outSystem);
    case LLA:
      return convertEcefToGeodetic(ecef, out);
    case ECEF:
      if (&out != &ecef) out = ecef;
      return 0;
    case ECI:
      return convertEcefToEci(ecef, out);
    case XEAST:
      return convertEcefToXEast_(ecef, out);
    case GTP:
      if (convertEcefToXEast_(ecef, out) != 0) return 1;
      applyTPOffsetRotate_(out, out);
      return 0;
    default:
      return fail(out, "CoordinateConverter::convert, invalid output coordinate system: ", outSystem);
  }
}

// --- flat-earth frames ------------------------------------------------------

void CoordinateConverter::swapNedEnu(const Vec3& in, Vec3& out) { out.set(in[1], in[0], -in[2]); }

void CoordinateConverter::swapNedNwu(const Vec3& in, Vec3& out) { out.set(in[0], -in[1], -in[2]); }

void CoordinateConverter::convertEnuToNwu(const Vec3& in, Vec3& out) { out.set(in[1], -in[0], in[2]); }

void CoordinateConverter::convertNwuToEnu(const Vec3& in, Vec3& out) { out.set(-in[1], in[0], in[2]); }

namespace {

// Reorders position, velocity and acceleration with `swap`, keeps the rest.
template <typename Swap>
void reorderCoordinate(const Coordinate& in, Coordinate& out, CoordinateSystem outSystem, Swap swap) {
  startFrom(in, out, outSystem);
  Vec3 v;
  swap(out.position(), v);
  out.setPosition(v);
  if (out.hasVelocity()) {
    swap(out.velocity(), v);
    out.setVelocity(v);
  }
  if (out.hasAcceleration()) {
    swap(out.acceleration(), v);
    out.setAcceleration(v);
  }
}

}  // namespace

int CoordinateConverter::swapNedEnu(const Coordinate& in, Coordinate& out) {
  if (in.system() != NED && in.system() != ENU) return fail(out, "swapNedEnu, invalid coordinate system: ", in.system());
  reorderCoordinate(in, out, in.system() == NED ? ENU : NED, [](const Vec3& a, Vec3& b) { swapNedEnu(a, b); });
  return 0;
}

int CoordinateConverter::swapNedNwu(const Coordinate& in, Coordinate& out) {
  if (in.system() != NED && in.system() != NWU) return fail(out, "swapNedNwu, invalid coordinate system: ", in.system());
  reorderCoordinate(in, out, in.system() == NED ? NWU : NED, [](const Vec3& a, Vec3& b) { swapNedNwu(a, b); });
  return 0;
}

int CoordinateConverter::convertEnuToNwu(const Coordinate& in, Coordinate& out) {
  if (in.system() != ENU) return fail(out, "convertEnuToNwu, invalid coordinate system: ", in.system());
  reorderCoordinate(in, out, NWU, [](const Vec3& a, Vec3& b) { convertEnuToNwu(a, b); });
  return 0;
}

int CoordinateConverter::convertNwuToEnu(const Coordinate& in, Coordinate& out) {
  if (in.system() != NWU) return fail(out, "convertNwuToEnu, invalid coordinate system: ", in.system());
  reorderCoordinate(in, out, ENU, [](const Vec3& a, Vec3& b) { convertNwuToEnu(a, b); });
  return 0;
}

int CoordinateConverter::convertGeodeticToFlat_(const Coordinate& in, Coordinate& out,
                                                CoordinateSystem outSystem) const {
  if (originState_ == ORIGIN_NOT_SET)
    return fail(out, "convertGeodeticToFlat, reference origin not set: ", outSystem);
  if (in.system() != LLA) return fail(out, "convertGeodeticToFlat, input system is not LLA: ", in.system());
  if (!isFlat(outSystem)) return fail(out, "convertGeodeticToFlat, invalid local coordinate system: ", outSystem);
  if (originState_ == ORIGIN_DEGENERATE)
    return fail(out, "convertGeodeticToFlat, degenerate reference origin at/near pole: ", outSystem);

  const Vec3 lla = in.position();
  const double north = latRadius_ * angFix(lla[0] - refLat_, AE_PLUSMINUS_PI);
  const double east = lonRadius_ * angFix(lla[1] - refLon_, AE_PLUSMINUS_PI);
  startFrom(in, out, outSystem);
  out.setPosition(enuToFrame(Vec3(east, north, lla[2] - refAlt_), outSystem));
  if (out.hasVelocity()) out.setVelocity(enuToFrame(out.velocity(), outSystem));
  if (out.hasAcceleration()) out.setAcceleration(enuToFrame(out.acceleration(), outSystem));
  return 0;
}

int CoordinateConverter::convertFlatToGeodetic_(const Coordinate& in, Coordinate& out) const {
  const CoordinateSystem frame = in.system();
  if (originState_ == ORIGIN_NOT_SET) return fail(out, "convertFlatToGeodetic, reference origin not set: ", frame);
  if (!isFlat(frame)) return fail(out, "convertFlatToGeodetic, invalid local coordinate system: ", frame);
  if (originState_ == ORIGIN_DEGENERATE)
    return fail(out, "convertFlatToGeodetic, degenerate reference origin at/near pole: ", frame);

  const Vec3 enu = frameToEnu(in.position(), frame);
  startFrom(in, out, LLA);
  out.setPosition(angFix(refLat_ + enu[1] * invLatRadius_, AE_PLUSMINUS_HALFPI),
                  angFix(refLon_ + enu[0] * invLonRadius_, AE_PLUSMINUS_PI), refAlt_ + enu[2]);
  if (out.hasVelocity()) out.setVelocity(frameToEnu(out.velocity(), frame));
  if (out.hasAcceleration()) out.setAcceleration(frameToEnu(out.acceleration(), frame));
  return 0;
}

int CoordinateConverter::convertEcefToFlat_(const Coordinate& in, Coordinate& out, CoordinateSystem outSystem) const {
  if (originState_ == ORIGIN_NOT_SET) return fail(out, "convertEcefToFlat, reference origin not set: ", outSystem);
  if (in.system() != ECEF) return fail(out, "convertEcefToFlat, input system is not ECEF: ", in.system());
  if (!isFlat(outSystem)) return fail(out, "convertEcefToFlat, invalid local coordinate system: ", outSystem);
  if (originState_ == ORIGIN_DEGENERATE)
    return fail(out, "convertEcefToFlat, degenerate reference origin at/near pole: ", outSystem);
  if (convertEcefToGeodetic(in, out) != 0) return 1;
  return convertGeodeticToFlat_(out, out, outSystem);
}

int CoordinateConverter::convertFlatToEcef_(const Coordinate& in, Coordinate& out) const {
  if (originState_ == ORIGIN_NOT_SET) return fail(out, "convertFlatToEcef, reference origin not set: ", in.system());
  if (!isFlat(in.system())) return fail(out, "convertFlatToEcef, invalid local coordinate system: ", in.system());
  if (originState_ == ORIGIN_DEGENERATE)
    return fail(out, "convertFlatToEcef, degenerate reference origin at/near pole: ", in.system());
  if (convertFlatToGeodetic_(in, out) != 0) return 1;
  return convertGeodeticToEcef(out, out);
}

// --- ECEF and geodetic --------------------------------------------------------

void CoordinateConverter::setLocalToEarthMatrix(double lat, double lon, LocalLevelFrame frame, double matrix[][3]) {
  const double sLat = std::sin(lat), cLat = std::cos(lat);
  const double sLon = std::sin(lon), cLon = std::cos(lon);
  const double north[3] = {-sLat * cLon, -sLat * sLon, cLat};
  const double east[3] = {-sLon, cLon, 0.0};
  const double up[3] = {cLat * cLon, cLat * sLon, sLat};
  for (int j = 0; j < 3; ++j) {
    switch (frame) {
      case LOCAL_LEVEL_FRAME_NED:
        matrix[0][j] = north[j];
        matrix[1][j] = east[j];
        matrix[2][j] = -up[j];
        break;
      case LOCAL_LEVEL_FRAME_NWU:
        matrix[0][j] = north[j];
        matrix[1][j] = -east[j];
        matrix[2][j] = up[j];
        break;
      default:
        matrix[0][j] = east[j];
        matrix[1][j] = north[j];
        matrix[2][j] = up[j];
        break;
    }
  }
}

void CoordinateConverter::convertGeodeticPosToEcef(const Vec3& lla, Vec3& ecef) {
  const double sLat = std::sin(lla[0]), cLat = std::cos(lla[0]);
  const double sLon = std::sin(lla[1]), cLon = std::cos(lla[1]);
  const double n = WGS_A / std::sqrt(1.0 - WGS_E2 * sLat * sLat);
  const double r = (n + lla[2]) * cLat;
  ecef.set(r * cLon, r * sLon, (n * WGS_ONE_MINUS_E2 + lla[2]) * sLat);
}

int CoordinateConverter::convertEcefToGeodeticPos(const Vec3& ecef, Vec3& lla) {
  const double x = ecef[0], y = ecef[1], z = ecef[2];
  double lon;
  if (x == 0.0)
    lon = y > 0.0 ? M_PI_2 : (y < 0.0 ? -M_PI_2 : 0.0);
  else
    lon = std::atan2(y, x);

  if (x == 0.0 && y == 0.0) {
    if (z == 0.0)
      lla.set(0.0, lon, -WGS_B);
    else
      lla.set(z > 0.0 ? M_PI_2 : -M_PI_2, lon, std::fabs(z) - WGS_B);
    return 0;
  }

  // Closed form (Vermeille): u is the root of the quartic in the distance to
  // the ellipse, found through the cubic resolvent.
  const double w2 = x * x + y * y;
  const double w = std::sqrt(w2);
  const double p = w2 / (WGS_A * WGS_A);
  const double q = WGS_ONE_MINUS_E2 * z * z / (WGS_A * WGS_A);
  const double r = (p + q - WGS_E4) / 6.0;
  if (r == 0.0) return 1;
  const double s = WGS_E4 * p * q / (4.0 * r * r * r);
  const double disc = s * (2.0 + s);
  double u;
  if (disc >= 0.0) {
    // Of the two cube roots t and 1/t, take the larger for accuracy.
    const double t = std::cbrt(1.0 + s + std::copysign(std::sqrt(disc), 1.0 + s));
    if (t == 0.0) return 1;
    u = r * (1.0 + t + 1.0 / t);
  } else {
    // Inside the evolute (within ~43 km of the centre): the three real roots
    // of the resolvent, taking the one that continues the outer branch.
    u = r * (1.0 + 2.0 * std::cos(std::atan2(std::sqrt(-disc), 1.0 + s) / 3.0));
  }
  const double v = std::sqrt(u * u + WGS_E4 * q);
  if (v == 0.0) return 1;
  const double uv = u + v;
  const double wk = WGS_E2 * (uv - q) / (2.0 * v);
  // sqrt(uv + wk^2) - wk, without the cancellation.
  const double k = uv / (std::sqrt(uv + wk * wk) + wk);
  if (k == 0.0 || !std::isfinite(k)) return 1;
  const double d = k * w / (k + WGS_E2);
  const double hyp = std::hypot(d, z);
  const double lat = 2.0 * std::atan2(z, d + hyp);
  // Height along the normal from the latitude: better conditioned than the
  // closed form's own (k + e2 - 1) / k, which cancels near the surface.
  const double sLat = std::sin(lat), cLat = std::cos(lat);
  lla.set(lat, lon, w * cLat + z * sLat - WGS_A * std::sqrt(1.0 - WGS_E2 * sLat * sLat));
  return 0;
}

void CoordinateConverter::convertEcefToGeodeticVel(const Vec3& lla, const Vec3& ecefVel, Vec3& localVel,
                                                   LocalLevelFrame frame) {
  double m[3][3];
  setLocalToEarthMatrix(lla[0], lla[1], frame, m);
  localVel = mul(m, ecefVel);
}

void CoordinateConverter::convertEcefToGeodeticAccel(const Vec3& lla, const Vec3& ecefAcc, Vec3& localAcc,
                                                     LocalLevelFrame frame) {
  convertEcefToGeodeticVel(lla, ecefAcc, localAcc, frame);
}

void CoordinateConverter::convertGeodeticVelToEcef(const Vec3& lla, const Vec3& localVel, Vec3& ecefVel,
                                                   LocalLevelFrame frame) {
  double m[3][3];
  setLocalToEarthMatrix(lla[0], lla[1], frame, m);
  ecefVel = mulT(m, localVel);
}

void CoordinateConverter::convertGeodeticAccelToEcef(const Vec3& lla, const Vec3& localAcc, Vec3& ecefAcc,
                                                     LocalLevelFrame frame) {
  convertGeodeticVelToEcef(lla, localAcc, ecefAcc, frame);
}

void CoordinateConverter::convertEcefToGeodeticOri(const Vec3& lla, const Vec3& ecefOri, Vec3& llaOri) {
  double ned[3][3];
  setLocalToEarthMatrix(lla[0], lla[1], LOCAL_LEVEL_FRAME_NED, ned);
  llaOri = reframeOrientation(ecefOri, ned);
}

void CoordinateConverter::convertGeodeticOriToEcef(const Vec3& lla, const Vec3& llaOri, Vec3& ecefOri) {
  double ned[3][3];
  setLocalToEarthMatrix(lla[0], lla[1], LOCAL_LEVEL_FRAME_NED, ned);
  double dcm[3][3];
  d3EulertoDCM(llaOri, dcm);
  d3MMmult(dcm, ned, dcm);
  d3DCMtoEuler(dcm, ecefOri);
}

int CoordinateConverter::convertEcefToGeodetic(const Coordinate& in, Coordinate& out, LocalLevelFrame frame) {
  if (in.system() != ECEF) return fail(out, "convertEcefToGeodetic, invalid coordinate system: ", in.system());
  Vec3 lla;
  if (convertEcefToGeodeticPos(in.position(), lla) != 0)
    return fail(out, "convertEcefToGeodetic, no geodetic solution for the position: ", in.system());
  startFrom(in, out, LLA);
  out.setPosition(lla);
  if (out.hasVelocity() || out.hasAcceleration()) {
    double m[3][3];
    setLocalToEarthMatrix(lla[0], lla[1], frame, m);
    if (out.hasVelocity()) out.setVelocity(mul(m, out.velocity()));
    if (out.hasAcceleration()) out.setAcceleration(mul(m, out.acceleration()));
  }
  if (out.hasOrientation()) {
    Vec3 ori;
    convertEcefToGeodeticOri(lla, out.orientation(), ori);
    out.setOrientation(ori);
  }
  return 0;
}

int CoordinateConverter::convertGeodeticToEcef(const Coordinate& in, Coordinate& out, LocalLevelFrame frame) {
  if (in.system() != LLA) return fail(out, "convertGeodeticToEcef, invalid coordinate system: ", in.system());
  const Vec3 lla = in.position();
  startFrom(in, out, ECEF);
  Vec3 v;
  convertGeodeticPosToEcef(lla, v);
  out.setPosition(v);
  if (out.hasVelocity() || out.hasAcceleration()) {
    double m[3][3];
    setLocalToEarthMatrix(lla[0], lla[1], frame, m);
    if (out.hasVelocity()) out.setVelocity(mulT(m, out.velocity()));
    if (out.hasAcceleration()) out.setAcceleration(mulT(m, out.acceleration()));
  }
  if (out.hasOrientation()) {
    convertGeodeticOriToEcef(lla, out.orientation(), v);
    out.setOrientation(v);
  }
  return 0;
}

// --- ECI ------------------------------------------------------------------------

int CoordinateConverter::convertEciToEcef(const Coordinate& in, Coordinate& out) {
  if (in.system() != ECI) return fail(out, "convertEciToEcef, invalid coordinate system: ", in.system());
  double rot[3][3];
  eciToEcefMatrix(EARTH_ROTATION_RATE * in.elapsedEciTime(), rot);

  startFrom(in, out, ECEF);
  const Vec3 pos = mul(rot, out.position());
  out.setPosition(pos);
  // In the turning frame: v = R v_i - w x r, a = R a_i - 2 w x v - w x (w x r).
  Vec3 vel;
  if (out.hasVelocity()) {
    vel = mul(rot, out.velocity()) - omegaCross(pos);
    out.setVelocity(vel);
  }
  if (out.hasAcceleration())
    out.setAcceleration(mul(rot, out.acceleration()) - omegaCross(vel) * 2.0 - omegaCross(omegaCross(pos)));
  if (out.hasOrientation()) out.setOrientation(reframeOrientation(out.orientation(), rot));
  return 0;
}

int CoordinateConverter::convertEcefToEci(const Coordinate& in, Coordinate& out) {
  if (in.system() != ECEF) return fail(out, "convertEcefToEci, invalid coordinate system: ", in.system());
  double rot[3][3];
  eciToEcefMatrix(-EARTH_ROTATION_RATE * in.elapsedEciTime(), rot);

  startFrom(in, out, ECI);
  const Vec3 pos = out.position();
  const Vec3 vel = out.hasVelocity() ? out.velocity() : Vec3();
  out.setPosition(mul(rot, pos));
  // v_i = R (v + w x r), a_i = R (a + 2 w x v + w x (w x r)).
  if (out.hasVelocity()) out.setVelocity(mul(rot, vel + omegaCross(pos)));
  if (out.hasAcceleration())
    out.setAcceleration(mul(rot, out.acceleration() + omegaCross(vel) * 2.0 + omegaCross(omegaCross(pos))));
  if (out.hasOrientation()) out.setOrientation(reframeOrientation(out.orientation(), rot));
  return 0;
}

// --- tangent planes -------------------------------------------------------------
//
// The origin's matrix has rows north, east, down; XEAST is east, north, up.

int CoordinateConverter::convertEcefToXEast_(const Coordinate& in, Coordinate& out) const {
  if (in.system() != ECEF) return fail(out, "convertEcefToXEast, input system is not ECEF: ", in.system());
  if (originState_ == ORIGIN_NOT_SET) return fail(out, "convertEcefToXEast, reference origin not set: ", in.system());
  const auto toXEast = [this](const Vec3& ecef) {
    const Vec3 ned = mul(localToEarth_, ecef);
    return Vec3(ned[1], ned[0], -ned[2]);
  };
  startFrom(in, out, XEAST);
  out.setPosition(toXEast(out.position() - originEcef_));
  if (out.hasVelocity()) out.setVelocity(toXEast(out.velocity()));
  if (out.hasAcceleration()) out.setAcceleration(toXEast(out.acceleration()));
  if (out.hasOrientation()) out.setOrientation(reframeOrientation(out.orientation(), localToEarth_));
  return 0;
}

void CoordinateConverter::xEastToEcef_(const Coordinate& in, Coordinate& out) const {
  const auto toEcef = [this](const Vec3& e) { return mulT(localToEarth_, Vec3(e[1], e[0], -e[2])); };
  startFrom(in, out, ECEF);
  out.setPosition(toEcef(out.position()) + originEcef_);
  if (out.hasVelocity()) out.setVelocity(toEcef(out.velocity()));
  if (out.hasAcceleration()) out.setAcceleration(toEcef(out.acceleration()));
  if (out.hasOrientation()) {
    double dcm[3][3];
    d3EulertoDCM(out.orientation(), dcm);
    d3MMmult(dcm, localToEarth_, dcm);
    Vec3 ori;
    d3DCMtoEuler(dcm, ori);
    out.setOrientation(ori);
  }
}

int CoordinateConverter::convertXEastToEcef_(const Coordinate& in, Coordinate& out) const {
  if (in.system() != XEAST) return fail(out, "convertXEastToEcef, input system is not XEAST: ", in.system());
  if (originState_ == ORIGIN_NOT_SET) return fail(out, "convertXEastToEcef, reference origin not set: ", in.system());
  xEastToEcef_(in, out);
  return 0;
}

int CoordinateConverter::convertGeodeticToXEast_(const Coordinate& in, Coordinate& out) const {
  if (in.system() != LLA) return fail(out, "convertGeodeticToXEast, input system is not LLA: ", in.system());
  if (originState_ == ORIGIN_NOT_SET)
    return fail(out, "convertGeodeticToXEast, reference origin not set: ", in.system());
  convertGeodeticToEcef(in, out);
  return convertEcefToXEast_(out, out);
}

int CoordinateConverter::convertXEastToGeodetic_(const Coordinate& in, Coordinate& out) const {
  if (in.system() != XEAST) return fail(out, "convertXEastToGeodetic, input system is not XEAST: ", in.system());
  if (originState_ == ORIGIN_NOT_SET)
    return fail(out, "convertXEastToGeodetic, reference origin not set: ", in.system());
  xEastToEcef_(in, out);
  return convertEcefToGeodetic(out, out);
}

void CoordinateConverter::applyTPOffsetRotate_(const Coordinate& in, Coordinate& out) const {
  // Shift, then turn the plane's axes by the rotation about the vertical; a
  // heading measured in the turned plane grows by the same angle.
  const double c = tpCos_, s = tpSin_;
  const auto turn = [c, s](const Vec3& v) { return Vec3(v[0] * c + v[1] * s, -v[0] * s + v[1] * c, v[2]); };
  startFrom(in, out, GTP);
  const Vec3 p = out.position();
  out.setPosition(turn(Vec3(p[0] - tpOffsetX_, p[1] - tpOffsetY_, p[2])));
  if (out.hasVelocity()) out.setVelocity(turn(out.velocity()));
  if (out.hasAcceleration()) out.setAcceleration(turn(out.acceleration()));
  if (out.hasOrientation()) {
    const Vec3 o = out.orientation();
    out.setOrientation(angFix(o[0] + tpRotation_, AE_ZERO_TWOPI), o[1], o[2]);
  }
}

void CoordinateConverter::reverseTPOffsetRotate_(const Coordinate& in, Coordinate& out) const {
  const double c = tpCos_, s = tpSin_;
  const auto unturn = [c, s](const Vec3& v) { return Vec3(v[0] * c - v[1] * s, v[0] * s + v[1] * c, v[2]); };
  startFrom(in, out, XEAST);
  const Vec3 p = unturn(out.position());
  out.setPosition(p[0] + tpOffsetX_, p[1] + tpOffsetY_, p[2]);
  if (out.hasVelocity()) out.setVelocity(unturn(out.velocity()));
  if (out.hasAcceleration()) out.setAcceleration(unturn(out.acceleration()));
  if (out.hasOrientation()) {
    const Vec3 o = out.orientation();
    out.setOrientation(angFix(o[0] - tpRotation_, AE_ZERO_TWOPI), o[1], o[2]);
  }
}

}  // namespace orvCore
