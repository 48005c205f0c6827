#pragma once
// Value records that cross the host door: object headers, time-tagged data
// points, the coordinate reference frame, and the small enumerations that go
// with them. All are plain copyable values; the host copies what it keeps.

#include <cstdint>
#include <string>

#include "hostapi/PIDataStructs.h"

namespace PIData {

// Kind masks: what PI_DATA_STRUCT::kindMask carries, and the object types that
// getObjectType answers with.
enum PIObjectType_t : uint32_t {
  PI_OBJECT_NONE = 0,
  PI_OBJECT_PLATFORM = 1,
  PI_OBJECT_BEAM = 2,
  PI_OBJECT_GATE = 4,
  PI_OBJECT_GENERIC_DATA = 16,
  PI_OBJECT_LASER = 32,
  PI_OBJECT_LOB = 64,
  PI_OBJECT_PROJECTOR = 128,
  PI_OBJECT_CUSTOM_RENDERING = 256,
  PI_OBJECT_ALL = 1 | 2 | 4 | 16 | 32 | 64 | 128 | 256
};

enum PIVisibilityStatus_t : int32_t { PI_VISIBILITY_OFF = 0, PI_VISIBILITY_ON = 1 };

// Which part of an object's data flushEntityData drops.
enum FlushType : int32_t { PI_FLUSH_ALL = 0, PI_FLUSH_NON_STATIC = 1, PI_FLUSH_STATIC = 2 };

enum PINetworkProtocol_t : int32_t { PI_PROTOCOL_NONE = 0, PI_PROTOCOL_TCP = 1, PI_PROTOCOL_UDP = 2 };

enum PITimeFormat_t : int32_t {
  PI_TIME_FORMAT_SECONDS = 1,
  PI_TIME_FORMAT_MINUTES = 2,
  PI_TIME_FORMAT_HOURS = 3,
  PI_TIME_FORMAT_ORDINAL = 4,
  PI_TIME_FORMAT_MONTHDAY = 5,
  PI_TIME_FORMAT_ISO8601 = 6
};

// Coordinate systems; numbers below 10 that have no name here are passed on
// as they stand.
enum PICoordSystem_t : int32_t {
  PI_COORD_NED = 0,
  PI_COORD_NWU = 1,
  PI_COORD_ENU = 2,
  PI_COORD_LLA = 3,
  PI_COORD_ECEF = 4,
  PI_COORD_XEAST = 5,
  PI_COORD_GTP = 8,
  PI_COORD_ECI = 9
};

enum PIVerticalDatum_t : int32_t { PI_VDATUM_WGS84 = 1, PI_VDATUM_MSL = 2, PI_VDATUM_USER = 13 };

enum PIMagneticVariance_t : int32_t { PI_MAGVAR_TRUE = 1, PI_MAGVAR_WMM = 2, PI_MAGVAR_USER = 3 };

enum PIBeamType_t : int32_t {
  PI_BEAM_UNKNOWN = 0,
  PI_BEAM_TARGET = 1,
  PI_BEAM_ABSOLUTE = 9,
  PI_BEAM_BODY = 10
};

enum PIGateType_t : int32_t {
  PI_GATE_UNKNOWN = 0,
  PI_GATE_RANGE = 1,
  PI_GATE_TARGET = 3,
  PI_GATE_COVERAGE = 10,
  PI_GATE_BODY = 11
};

enum PILobType_t : int32_t { PI_LOB_ABSOLUTE = 1, PI_LOB_RELATIVE = 2 };

// The frame in which positions are given. The default state is ECEF with no
// reference origin, WGS84 vertical datum and true north.
struct PICoordReferenceFrame {
  int32_t coordSystem = PI_COORD_ECEF;  // a PICoordSystem_t value
  double latitude = PI_UNSET_DOUBLE;    // reference origin, radians
  double longitude = PI_UNSET_DOUBLE;
  double altitude = 0.0;                // metres
  double tangentPlaneX = 0.0;           // metres
  double tangentPlaneY = 0.0;
  double tangentPlaneAngle = 0.0;       // radians
  double eciReferenceTime = 0.0;        // seconds of the day
  int32_t verticalDatum = PI_VDATUM_WGS84;
  double verticalDatumOffset = 0.0;     // metres, for PI_VDATUM_USER
  int32_t magneticVariance = PI_MAGVAR_TRUE;
  double magneticVarianceOffset = 0.0;  // radians, for PI_MAGVAR_USER
};

// The frame's default state, as a value to copy from.
extern const PICoordReferenceFrame PI_DEFAULT_REFFRAME;

struct PIPoint {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

struct PIPlatformHeader {
  std::string name;
  std::string iconName;
  uint64_t originalId = 0;
};

struct PIBeamHeader {
  std::string name;
  double azimuthOffset = PI_UNSET_DOUBLE;    // radians
  double elevationOffset = PI_UNSET_DOUBLE;
  double horizontalWidth = PI_UNSET_DOUBLE;
  double verticalWidth = PI_UNSET_DOUBLE;
  int32_t beamType = PI_BEAM_UNKNOWN;        // a PIBeamType_t value
  bool missileOffset = false;
  uint64_t originalId = 0;
};

struct PIGateHeader {
  std::string name;
  int32_t gateType = PI_GATE_UNKNOWN;  // a PIGateType_t value
  uint64_t originalId = 0;
};

struct PILobHeader {
  std::string name;
  uint64_t originalId = 0;
  int32_t type = PI_LOB_ABSOLUTE;  // a PILobType_t value
};

struct PILaserHeader {
  std::string name;
  PICoordReferenceFrame frame;
  bool bodyFlag = false;
};

struct PIProjectorHeader {
  std::string name;
  uint64_t originalId = 0;
};

struct PICustomRenderingHeader {
  std::string name;
  std::string rendererName;
  uint64_t originalId = 0;
};

// One time-tagged platform state. Orientation and velocity start unset, so
// that the host derives them when the sender has none.
struct PIPlatformPoint {
  double time = 0.0;
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  double yaw = PI_UNSET_DOUBLE;
  double pitch = PI_UNSET_DOUBLE;
  double roll = PI_UNSET_DOUBLE;
  double vx = PI_UNSET_DOUBLE;
  double vy = PI_UNSET_DOUBLE;
  double vz = PI_UNSET_DOUBLE;
  PICoordReferenceFrame frame;
};

struct PIBeamPoint {
  double time = 0.0;
  double azimuth = 0.0;
  double elevation = 0.0;
  double range = 0.0;
};

struct PIGatePoint {
  double time = 0.0;
  double azimuth = 0.0;
  double elevation = 0.0;
  double width = 0.0;
  double height = 0.0;
  double minRange = 0.0;
  double maxRange = 0.0;
  double centroid = 0.0;
};

struct PILobPoint {
  double time = 0.0;
  double azimuth = 0.0;
  double elevation = 0.0;
  double range = 0.0;
};

// Orientation of a laser: x yaw, y pitch, z roll, radians.
struct PILaserPoint {
  double time = 0.0;
  PIPoint orientation;
};

struct PILaserOffset {
  double time = 0.0;
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

struct PILobDrawStyle {
  double time = 0.0;
  uint32_t color1 = 0;  // 0xRRGGBBAA
  uint32_t color2 = 0;
  uint32_t stipple1 = 0;
  uint32_t stipple2 = 0;
  uint32_t width = 0;   // pixels
};

struct PIGenericDataPoint {
  double time = 0.0;
  double expirationTime = -1.0;
  std::string tag;
  std::string value;
};

struct PICategoryDataPoint {
  double time = 0.0;
  std::string categoryName;
  std::string categoryValue;
};

}  // namespace PIData
