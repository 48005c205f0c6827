#include "document/CommandsUD.h"

#include "core/StringUtils.h"

namespace CommandsUD {

const char* const BEAM_TYPES[11] = {"UNKNOWN",     "TARGET",      "CONICAL_SPIRAL", "HORZ_BIDIR",
                                    "VERT_BIDIR",  "HORZ_UNIDIR", "VERT_UNIDIR",    "HORZ_RASTER",
                                    "VERT_RASTER", "ABSOLUTE",    "BODY"};
const char* const GATE_TYPES[12] = {"UNKNOWN", "RANGE",     "GUARD",  "TARGET", "ANGLE",    "RAIN",
                                    "CLUTTER", "FOOTPRINT", "SECTOR", "PUSH",   "COVERAGE", "BODY"};
const char* const LOB_GROUP_TYPES[3] = {"UNKNOWN", "RELATIVE", "ABSOLUTE"};
const char* const POLARITIES[9] = {"UNKNOWN",  "HORIZONTAL", "VERTICAL", "CIRCULAR", "HORZVERT",
                                   "VERTHORZ", "LEFTCIRC",   "RIGHTCIRC", "LINEAR"};
const char* const ANTENNA_ALGORITHMS[5] = {"GAUSS", "CSCSQ", "SINXX", "PEDESTAL", "OMNI"};
const char* const ANTENNA_PATTERN_FILES[8] = {"TABLE", "RELATIVE", "MONOPULSE", "BILINEAR",
                                              "CRUISE", "NSMA",    "EZNEC",     "XFDTD"};
const char* const ANTENNA_FILE_EXTENSIONS[8] = {".aptf", ".aprf", ".apbf", ".apcf", ".apmf", ".nsm", ".txt", ".uan"};
const char* const VERTICAL_DATUMS[3] = {"WGS84", "MSL", "USER"};
const char* const MAGNETIC_VARIANCES[3] = {"TRUE", "WMM", "USER"};
const char* const DATA_LIMITING[4] = {"None", "Points", "Seconds", "PointsOrSeconds"};
const char* const ANGLE_FORMATS[6] = {"unknown", "radians", "degrees", "bam", "mils", "milliradians"};
const char* const CLASSIFICATIONS[10] = {"UNCLASSIFIED", "FOR OFFICIAL USE ONLY", "CONFIDENTIAL", "SECRET",
                                         "SECRET - WN",  "SECRET - NF",           "SECRET - NC",  "SECRET - OC",
                                         "SECRET - PR",  "TOP SECRET"};

int indexOf(const char* const* names, int count, const std::string& text) {
  for (int i = 0; i < count; ++i)
    if (orvCore::caseCompare(names[i], text) == 0) return i;
  return -1;
}

std::string nameAt(const char* const* names, int count, int index) {
  return index >= 0 && index < count ? names[index] : "";
}

}  // namespace CommandsUD
