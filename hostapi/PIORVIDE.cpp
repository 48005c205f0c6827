#include "hostapi/PIORVIDE.h"

#include "hostapi/PIBase.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIDataStructs.h"

namespace PIORVIDE {

namespace {

// Sub-operations of PI_PREF_RULES.
constexpr int64_t kLoadRules = 0;
constexpr int64_t kRemoveAllRules = 1;

int status(uint64_t answer) { return static_cast<int>(static_cast<int64_t>(answer)); }

int fileRequest(PIServerFunctions_t code, const std::string& name) {
  PI_DATA_CATCHALL params;
  params.strings = {name};
  return status(handle(code, &params));
}

}  // namespace

bool runningInORVIDE() { return PICommon::getApplicationId() == PICommon::PI_HOST_ORVIDE; }
bool runningInORVIDE10() { return PICommon::getApplicationId() == PICommon::PI_HOST_ORVIDE10; }

int loadGOGFile(const std::string& name, uint64_t hostId, bool flag) {
  PI_DATA_CATCHALL params;
  params.ints = {flag ? 1 : 0};
  params.strings = {name};
  params.pointers = {&hostId};
  return status(handle(PI_LOAD_GOG_FILE, &params));
}

int setAntennaInfo(uint64_t id, PIAntennaName_t kind, PIAntennaAlgorithm_t algorithm, PIAntennaPolarity_t polarity,
                   const std::string& file, double gain, double peakPower, double frequency) {
  PI_DATA_CATCHALL params;
  params.ints = {kind, algorithm, polarity};
  params.strings = {file};
  params.pointers = {&id, &gain, &peakPower, &frequency};
  return status(handle(PI_SET_ANTENNA_INFO, &params));
}

int loadTerrainConfiguration(const std::string& name) { return fileRequest(PI_LOAD_TERRAIN_CONFIGURATION, name); }

int loadPrefRuleFile(const std::string& name, std::vector<uint64_t>& outRuleIds) {
  PI_DATA_CATCHALL params;
  params.ints = {kLoadRules};
  params.strings = {name};
  params.pointers = {&outRuleIds};
  return status(handle(PI_PREF_RULES, &params));
}

int removeAllPrefRules() {
  PI_DATA_CATCHALL params;
  params.ints = {kRemoveAllRules};
  return status(handle(PI_PREF_RULES, &params));
}

int rfpropSetInputFiles(uint64_t id, const std::vector<std::string>& names) {
  PI_DATA_CATCHALL params;
  params.strings = names;
  params.pointers = {&id};
  return status(handle(PI_RFPROP_SET_INPUT_FILES, &params));
}

int loadRangeConfiguration(const std::string& text, bool flag, const std::string& name) {
  PI_DATA_CATCHALL params;
  params.ints = {flag ? 1 : 0};
  params.strings = {text, name};
  return status(handle(PI_LOAD_RANGE_CONFIGURATION, &params));
}

int loadMediaFile(const std::string& name) { return fileRequest(PI_LOAD_MEDIA_FILE, name); }
int loadViewFile(const std::string& name) { return fileRequest(PI_LOAD_VIEW_FILE, name); }

}  // namespace PIORVIDE
