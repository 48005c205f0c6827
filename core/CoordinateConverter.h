#pragma once
// CoordinateConverter: moves a Coordinate between coordinate systems about
// one reference origin, on the WGS-84 ellipsoid.
//
// LLA <-> ECEF <-> ECI need no origin. The flat-earth frames (NED, NWU, ENU)
// scale latitude and longitude differences by the radii of curvature at the
// origin, and are refused when the origin is within 1e-5 rad of a pole. The
// tangent planes (XEAST, GTP) are exact: ECEF rotated into east, north, up at
// the origin, GTP then shifted by the plane offsets and turned about the
// vertical.
//
// Orientation in LLA, the flat frames and the tangent planes is yaw, pitch,
// roll against the local north, east, down; in ECEF and ECI it is against
// the frame's own axes.
//
// Failures answer 1, clear the output, and say why through orvNotify at
// error level. A converter is not locked: set the origin before sharing it.

#include "core/Coordinate.h"
#include "core/Vec3.h"

namespace orvCore {

// WGS-84.
constexpr double WGS_A = 6378137.0;                  // semi-major axis, m
constexpr double WGS_B = 6356752.314245179;          // semi-minor axis, m
constexpr double WGS_E2 = 0.0066943799901378;        // first eccentricity squared
constexpr double WGS_ONE_MINUS_E2 = 0.9933056200098622;
constexpr double WGS_B_OVER_A = 0.9966471893352543;
constexpr double WGS_EP2 = 0.010041569985206701;     // second eccentricity squared
constexpr double EARTH_ROTATION_RATE = 7.2921151467e-5;  // rad/s

// The axes of a local level frame, for setLocalToEarthMatrix and the local
// velocity of the geodetic functions. Any other value reads as ENU.
enum LocalLevelFrame {
  LOCAL_LEVEL_FRAME_NED = 0,
  LOCAL_LEVEL_FRAME_NWU = 1,
  LOCAL_LEVEL_FRAME_ENU = 2
};

class CoordinateConverter {
 public:
  enum OriginState { ORIGIN_NOT_SET = 0, ORIGIN_SET = 1, ORIGIN_DEGENERATE = 2 };

  CoordinateConverter() = default;
  virtual ~CoordinateConverter();

  // Latitude is wrapped and clamped to [-pi/2, pi/2], longitude wrapped to
  // [-pi, pi]; radians and meters.
  void setReferenceOrigin(double lat, double lon, double alt);
  void setReferenceOrigin(const Vec3& lla);
  void setReferenceOriginDegrees(double latDeg, double lonDeg, double alt);
  void setReferenceOriginDegrees(const Vec3& llaDeg);

  // Without an origin these report it and answer the stored zeros.
  double referenceLat() const;
  double referenceLon() const;
  double referenceAlt() const;
  Vec3 referenceOrigin() const;
  // Meridional and parallel radii of curvature at the origin, meters.
  double latRadius() const;
  double lonRadius() const;

  OriginState originState() const { return originState_; }
  bool hasReferenceOrigin() const { return originState_ != ORIGIN_NOT_SET; }

  // GTP: the plane's x and y offsets (meters) and its rotation (radians)
  // against XEAST.
  void setTangentPlaneOffsets(double x, double y, double rotation);
  void setTangentPlaneRotation(double rotation);
  double tangentPlaneOffsetX() const { return tpOffsetX_; }
  double tangentPlaneOffsetY() const { return tpOffsetY_; }
  double tangentPlaneRotation() const { return tpRotation_; }

  // Converts `in` into `outSystem`: 0 on success, 1 on failure (with `out`
  // cleared). `in` and `out` must be different objects.
  int convert(const Coordinate& in, Coordinate& out, CoordinateSystem outSystem) const;

  // NED <-> ENU, NED <-> NWU, ENU <-> NWU. The Vec3 forms reorder one vector;
  // the Coordinate forms check the input system and reorder position,
  // velocity and acceleration (orientation stays).
  static void swapNedEnu(const Vec3& in, Vec3& out);
  static void swapNedNwu(const Vec3& in, Vec3& out);
  static void convertEnuToNwu(const Vec3& in, Vec3& out);
  static void convertNwuToEnu(const Vec3& in, Vec3& out);
  static int swapNedEnu(const Coordinate& in, Coordinate& out);
  static int swapNedNwu(const Coordinate& in, Coordinate& out);
  static int convertEnuToNwu(const Coordinate& in, Coordinate& out);
  static int convertNwuToEnu(const Coordinate& in, Coordinate& out);

  // ECI <-> ECEF by the earth's turn over the coordinate's elapsed ECI time.
  static int convertEciToEcef(const Coordinate& in, Coordinate& out);
  static int convertEcefToEci(const Coordinate& in, Coordinate& out);

  // ECEF <-> LLA. `frame` is the local frame of the LLA velocity and
  // acceleration (ENU unless told otherwise).
  static int convertEcefToGeodetic(const Coordinate& in, Coordinate& out,
                                   LocalLevelFrame frame = LOCAL_LEVEL_FRAME_ENU);
  static int convertGeodeticToEcef(const Coordinate& in, Coordinate& out,
                                   LocalLevelFrame frame = LOCAL_LEVEL_FRAME_ENU);

  // Position only. Answers 1 for the few points near the earth's centre where
  // the closed form has no answer.
  static int convertEcefToGeodeticPos(const Vec3& ecef, Vec3& lla);
  static void convertGeodeticPosToEcef(const Vec3& lla, Vec3& ecef);
  // Vectors at the geodetic position `lla` between ECEF and the local frame.
  static void convertEcefToGeodeticVel(const Vec3& lla, const Vec3& ecefVel, Vec3& localVel,
                                       LocalLevelFrame frame = LOCAL_LEVEL_FRAME_ENU);
  static void convertEcefToGeodeticAccel(const Vec3& lla, const Vec3& ecefAcc, Vec3& localAcc,
                                         LocalLevelFrame frame = LOCAL_LEVEL_FRAME_ENU);
  static void convertGeodeticVelToEcef(const Vec3& lla, const Vec3& localVel, Vec3& ecefVel,
                                       LocalLevelFrame frame = LOCAL_LEVEL_FRAME_ENU);
  static void convertGeodeticAccelToEcef(const Vec3& lla, const Vec3& localAcc, Vec3& ecefAcc,
                                         LocalLevelFrame frame = LOCAL_LEVEL_FRAME_ENU);
  // Orientation at `lla` between ECEF axes and local north, east, down.
  static void convertEcefToGeodeticOri(const Vec3& lla, const Vec3& ecefOri, Vec3& llaOri);
  static void convertGeodeticOriToEcef(const Vec3& lla, const Vec3& llaOri, Vec3& ecefOri);

  // Rows of `matrix` are the local frame's axes as ECEF unit vectors: NED
  // gives north, east, down; NWU north, west, up; anything else east,
  // north, up. So local = matrix * ecef and ecef = transpose(matrix) * local.
  static void setLocalToEarthMatrix(double lat, double lon, LocalLevelFrame frame, double matrix[][3]);

 private:
  int convertGeodeticToFlat_(const Coordinate& in, Coordinate& out, CoordinateSystem outSystem) const;
  int convertFlatToGeodetic_(const Coordinate& in, Coordinate& out) const;
  int convertEcefToFlat_(const Coordinate& in, Coordinate& out, CoordinateSystem outSystem) const;
  int convertFlatToEcef_(const Coordinate& in, Coordinate& out) const;
  int convertGeodeticToXEast_(const Coordinate& in, Coordinate& out) const;
  int convertEcefToXEast_(const Coordinate& in, Coordinate& out) const;
  int convertXEastToGeodetic_(const Coordinate& in, Coordinate& out) const;
  int convertXEastToEcef_(const Coordinate& in, Coordinate& out) const;
  void applyTPOffsetRotate_(const Coordinate& in, Coordinate& out) const;
  void reverseTPOffsetRotate_(const Coordinate& in, Coordinate& out) const;
  // From ECEF on to any system; the shared tail of the dispatch.
  int convertFromEcef_(const Coordinate& ecef, Coordinate& out, CoordinateSystem outSystem) const;
  // XEAST -> ECEF with the tangent-plane rules but no checks.
  void xEastToEcef_(const Coordinate& in, Coordinate& out) const;

  double latRadius_ = 0.0;
  double lonRadius_ = 0.0;
  double invLatRadius_ = 0.0;
  double invLonRadius_ = 0.0;
  double refLat_ = 0.0;
  double refLon_ = 0.0;
  double refAlt_ = 0.0;
  // Rows: north, east, down at the origin, as ECEF unit vectors.
  double localToEarth_[3][3] = {{0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}};
  Vec3 originEcef_;
  double tpOffsetX_ = 0.0;
  double tpOffsetY_ = 0.0;
  double tpSin_ = 0.0;
  double tpCos_ = 1.0;
  double tpRotation_ = 0.0;
  OriginState originState_ = ORIGIN_NOT_SET;
};

}  // namespace orvCore
