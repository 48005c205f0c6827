#pragma once
// PIORVIDE: the display application's own services: overlay, terrain, rule,
// range and view files, and beam antenna patterns.

#include <cstdint>
#include <string>
#include <vector>

namespace PIORVIDE {

// Antenna pattern kinds; 1 is a pattern computed by a PIAntennaAlgorithm_t.
enum PIAntennaName_t : int32_t {
  PI_ANTENNA_NONE = 0,
  PI_ANTENNA_ALGORITHM = 1,
  PI_ANTENNA_MONOPULSE = 2,
  PI_ANTENNA_CRUISE = 3,
  PI_ANTENNA_RELATIVE = 4,
  PI_ANTENNA_TABLE = 5,
  PI_ANTENNA_BILINEAR = 6,
  PI_ANTENNA_NSMA = 7,
  PI_ANTENNA_EZNEC = 8,
  PI_ANTENNA_XFDTD = 9
};

enum PIAntennaAlgorithm_t : int32_t {
  PI_ALGORITHM_NONE = 0,
  PI_ALGORITHM_PEDESTAL = 1,
  PI_ALGORITHM_GAUSS = 2,
  PI_ALGORITHM_CSCSQ = 3,
  PI_ALGORITHM_SINXX = 4,
  PI_ALGORITHM_OMNI = 5
};

enum PIAntennaPolarity_t : int32_t {
  PI_POLARITY_UNKNOWN = 0,
  PI_POLARITY_HORIZONTAL = 1,
  PI_POLARITY_VERTICAL = 2,
  PI_POLARITY_CIRCULAR = 3,
  PI_POLARITY_HORZVERT = 4,
  PI_POLARITY_VERTHORZ = 5,
  PI_POLARITY_LEFTCIRC = 6,
  PI_POLARITY_RIGHTCIRC = 7,
  PI_POLARITY_LINEAR = 8
};

// Whether the display application (classic, or version 10) has loaded the
// plug-in; both come from PICommon::getApplicationId().
bool runningInORVIDE();
bool runningInORVIDE10();

// All of the following answer 0 on success, non-zero when the host refused.

// Loads an overlay file, attached to `hostId` (0 for the scenario).
int loadGOGFile(const std::string& name, uint64_t hostId, bool flag);
int setAntennaInfo(uint64_t id, PIAntennaName_t kind, PIAntennaAlgorithm_t algorithm, PIAntennaPolarity_t polarity,
                   const std::string& file, double gain, double peakPower, double frequency);
int loadTerrainConfiguration(const std::string& name);
// Loads a preference-rule file; the ids of the rules made are added to `outRuleIds`.
int loadPrefRuleFile(const std::string& name, std::vector<uint64_t>& outRuleIds);
int removeAllPrefRules();
int rfpropSetInputFiles(uint64_t id, const std::vector<std::string>& names);
// Loads a range configuration given as text; `name` is the file it came from.
int loadRangeConfiguration(const std::string& text, bool flag, const std::string& name);
int loadMediaFile(const std::string& name);
int loadViewFile(const std::string& name);

}  // namespace PIORVIDE
