#include "document/ErrorCodesUD.h"

#include <cstdio>
#include <map>

#include "core/TimeFormat.h"

namespace {

// The float limit as the texts print it.
std::string floatLimit() {
  char text[64];
  std::snprintf(text, sizeof text, "%g", 3.4028234663852886e38);
  return text;
}

}  // namespace

std::string udErrorString(int code) {
  static const std::map<int, std::string> texts = {
      {3, "Invalid Input: Platform Position Data\nEither not finite or value > " + floatLimit()},
      {4, "Invalid Input: Platform Angular Data\nEither not finite or value > 360 (6.28319 rad)"},
      {5, "Invalid Input: Platform Velocity Data\nEither not finite or value > " + floatLimit()},
      {6, "Invalid Input: Platform Acceleration Data\nEither not finite or value > " + floatLimit()},
      {7, "Invalid platform offset value"},
      {8, "Invalid platform reference lla origin"},
      {9, "Invalid platform tangent plane translation or rotation value"},
      {10, "Failure to create object with duplicated unique id"},
      {11, "Cannot add beam, beam already exists with same unique id"},
      {12, "Cannot locate GOG file"},
      {13, "Unknown vertical datum setting"},
      {14, "Bad magnetic variance setting"},
      {15, "Cannot locate RCS file for platform"},
      {16, "Invalid beam type value"},
      {17, "Cannot locate AREPS file for beam"},
      {18, "Invalid antenna name value"},
      {19, "Unsupported antenna algorithm name"},
      {20, "Unsupported antenna pattern type"},
      {21, "Invalid Input: Beam Azimuth Data\nEither not finite or value > 360 (6.28319 rad)"},
      {22, "Invalid Input: Beam Elevation Data\nEither not finite or value > 90 (1.5708 rad)"},
      {23, "Invalid Input: Beam Range Data\nEither < 0 or value > " + floatLimit()},
      {24, "Invalid beam width value, must be > 0"},
      {25, "Invalid beam offset value"},
      {26, "Failure to create object with duplicated unique id"},
      {27, "Cannot add gate, gate already exists with same unique id"},
      {28, "Improper number of parameters in beam data command"},
      {29, "Invalid gate type value"},
      // The gate azimuth text carries a stray "%" before its limit.
      {30, "Invalid Input: Gate Azimuth Data\nEither not finite or value > 360 (%6.28319 rad)"},
      {31, "Invalid Input: Gate Elevation Data\nEither not finite or value > 90 (1.5708 rad)"},
      {32, "Invalid Input: Gate Width Data\nEither not finite or value > 360 (6.28319 rad)"},
      {33, "Invalid Input: Gate Height Data\nEither not finite or value > 90 (1.5708 rad)"},
      {34, "Invalid Input: Gate Min-Range Data\nEither not finite or value > " + floatLimit()},
      {35, "Invalid Input: Gate Max-Range Data\nEither not finite or value > " + floatLimit()},
      {36, "Invalid Input: Gate Centroid Data\nEither not finite or value > " + floatLimit()},
      {37, "Invalid gate offset value"},
      {38, "Failure to create object with duplicated unique id"},
      {39, "Cannot add generic data, data already exists with same time"},
      {40, "Unknown Generic Data error"},
      {41, "Invalid values for GenericData keyword."},
      {42, "Duplicate unique id detected during load"},
      {43, "Illegal unique id (<=0) detected during load"},
      {44, "Command references unique id of unknown object or generic data"},
      {45, "Invalid scenario reference lla origin"},
      {46, "Invalid scenario tangent plane translation or rotation angle value"},
      {47, "Invalid scenario wind angle value"},
      {48, "Invalid scenario wind speed value"},
      {49, "Bad scenario vertical datum setting"},
      {50, "Bad scenario magnetic variance setting"},
      {51, "No motion type has been created for this object yet"},
      {52, "Invalid or unknown keyword"},
      {53, "Illegally formed time string"},
      {54, "Invalid time value, time is either not finite or < 0"},
      {55, "Invalid ECI reference time value, valid range is 0 to 86400"},
      {56, "Deprecated command.  Please check documentation for updated command."},
      {57, "Deprecated command.  Please use BeamTargetIDCmd with the target's unique ID instead."},
      {58, "Deprecated command.  Please use GenericData instead."},
      {59, "Deprecated command 'entity'.  Please use 'entityid' instead."},
      {60, "Cannot locate entity associated with data"},
      {61, "Invalid number of tokens for keyword"},
      {62, "Duplicate file in list"},
      {63, "File not found"},
      {64, "Invalid number detected"},
      {65, "DataTable related error"},
      {66, "Projector related error"},
      {67, "Laser related error"},
      {68, "Invalid Input: LOB Azimuth Data\nEither not finite or value > 360 (6.28319 rad)"},
      {69, "Invalid Input: LOB Elevation Data\nEither not finite or value > 90 (1.5708 rad)"},
      {70, "Invalid Input: LOB Range Data\nEither not finite or value > " + floatLimit()},
      {71, "Invalid Input: LOB draw style pixel width"},
      {72, "Failure to create object with duplicated unique id"},
      {73, "Failure to create object with duplicated unique id"},
      {74, "Cannot perform requested operation, custom rendering header does not specify a renderer"},
      {75, "Fatal error encountered"},
      {76, "Scenario is invalid, cannot save"},
      {77, "Unable to open file for saving"},
      {78, "Unable to open file for loading"},
      {79, "Invalid range for scenario begin/end times"},
      {80, "Unsupported time format.  Range is " + std::to_string(UTILS::UNITS_SECONDS) + " to " +
               std::to_string(UTILS::UNITS_DTG)},
      {81, "Invalid scenario version - only versions 2 through " + std::to_string(UD_HIGHEST_VERSION) +
               " are currently supported"},
      {82, "Invalid scenario description value"},
      {83, "Invalid scenario file name value"},
      {85, "Invalid gate description value"},
      {86, "Cannot perform requested operation, gate header does not exist"},
      {87, "Invalid beam description value"},
      {88, "Cannot perform requested operation, beam header does not exist"},
      {89, "Invalid platform callsign value"},
      {90, "Invalid platform callsign value"},
      {91, "Cannot perform requested operation, platform header does not exist"},
      {92, "Illegal empty string or empty quote detected"},
      {96, "Invalid custom rendering description value"},
      {97, "Cannot perform requested operation, custom rendering header does not exist"},
  };
  auto it = texts.find(code);
  return it == texts.end() ? "Unknown General Error" : it->second;
}

bool udIsFatalError(int code) { return code > 74; }

std::string udErrorHTMLHelpSection(int code) {
  auto in = [code](std::initializer_list<int> codes) {
    for (int c : codes)
      if (c == code) return true;
    return false;
  };
  if (code >= 3 && code <= 6) return "#Plat_Data";
  if (in({10, 89, 90, 91})) return "#Plat_Init";
  if (in({11, 16, 18, 19, 20, 26, 87, 88})) return "#Beam_Init";
  if (in({21, 22, 23, 28, 57})) return "#Beam_Data";
  if (in({27, 29, 38, 85, 86})) return "#Gate_Init";
  if (code >= 30 && code <= 36) return "#Gate_Data";
  if (in({39, 40})) return "#Gen_Init";
  if (in({41, 58, 59})) return "#Gen_Data";
  if (in({53, 80})) return "#Time_Formats";
  if (in({68, 69})) return "#LOB_Data";
  if (code == 72) return "#LOB_Init";
  if (in({73, 74, 96, 97})) return "#Custom_Rendering_Init";
  if (in({79, 81, 82, 83})) return "#Scen_Init";
  return "";
}
