#pragma once
// Text names of the document's enumerations, first entry for value 0, and
// the plain record of how a document's values are written.

#include <string>

#include "core/Coordinate.h"
#include "core/UnitTypes.h"

namespace CommandsUD {

extern const char* const BEAM_TYPES[11];
extern const char* const GATE_TYPES[12];
extern const char* const LOB_GROUP_TYPES[3];
extern const char* const POLARITIES[9];
extern const char* const ANTENNA_ALGORITHMS[5];
extern const char* const ANTENNA_PATTERN_FILES[8];
extern const char* const ANTENNA_FILE_EXTENSIONS[8];
extern const char* const VERTICAL_DATUMS[3];
extern const char* const MAGNETIC_VARIANCES[3];
extern const char* const DATA_LIMITING[4];
extern const char* const ANGLE_FORMATS[6];
extern const char* const CLASSIFICATIONS[10];

// The index of `text` in `names` (case ignored), or -1.
int indexOf(const char* const* names, int count, const std::string& text);
// The name at `index`, or "" outside the list.
std::string nameAt(const char* const* names, int count, int index);

template <int N>
int indexOf(const char* const (&names)[N], const std::string& text) {
  return indexOf(names, N, text);
}
template <int N>
std::string nameAt(const char* const (&names)[N], int index) {
  return nameAt(names, N, index);
}

}  // namespace CommandsUD

// Beam types by their place in BEAM_TYPES.
enum BeamTypeUD : int {
  BEAM_UNKNOWN = 0, BEAM_TARGET = 1, BEAM_CONICAL_SPIRAL = 2, BEAM_HORZ_BIDIR = 3, BEAM_VERT_BIDIR = 4,
  BEAM_HORZ_UNIDIR = 5, BEAM_VERT_UNIDIR = 6, BEAM_HORZ_RASTER = 7, BEAM_VERT_RASTER = 8, BEAM_ABSOLUTE = 9,
  BEAM_BODY = 10
};

// Gate types by their place in GATE_TYPES.
enum GateTypeUD : int {
  GATE_UNKNOWN = 0, GATE_RANGE = 1, GATE_GUARD = 2, GATE_TARGET = 3, GATE_ANGLE = 4, GATE_RAIN = 5,
  GATE_CLUTTER = 6, GATE_FOOTPRINT = 7, GATE_SECTOR = 8, GATE_PUSH = 9, GATE_COVERAGE = 10, GATE_BODY = 11
};

namespace UTILS {
enum LOBGroupType_t : int { LOB_UNKNOWN = 0, LOB_RELATIVE = 1, LOB_ABSOLUTE = 2 };
enum EVerticalDatum : int { VD_WGS84 = 0, VD_MSL = 1, VD_USER = 2 };
enum EMagneticVariance : int { MV_TRUE = 0, MV_WMM = 1, MV_USER = 2 };
}  // namespace UTILS

// How the document's values are written: time format, reference year,
// degree angles and coordinate system. Kept in step by the scenario.
struct DataFormatUD {
  UTILS::UnitType_t timeFormat = UTILS::UNITS_SECONDS;
  int referenceYear = 1970;
  bool degreeAngles = false;
  orvCore::CoordinateSystem coordSystem = orvCore::LLA;

  void setTimeFormat(UTILS::UnitType_t format) { timeFormat = format; }
  void setReferenceYear(int year) { referenceYear = year; }
  void setCoordSystem(orvCore::CoordinateSystem system) { coordSystem = system; }
};
