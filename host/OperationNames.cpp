#include "host/OperationNames.h"

#include <algorithm>

namespace RefHost {

const std::vector<std::string>& clientOperationNames() {
  static const std::vector<std::string> names = {
    "initializeScenario", "isScenarioInitialized", "deleteScenario", "setClassification",
    "setClassificationColor", "setDescription", "getReferenceYear", "setReferenceYear", "setOriginLLA",
    "setTangentPlaneOffsets", "setWindSpeed", "setWindDirection", "getScenarioFileName", "setScenarioFileName",
    "clockSetTime", "clockAutoConfigureBeginEnd", "clockGetBegin", "clockGetEnd", "clockSetTimeFormat",
    "createPlatform", "createBeam", "createGate", "createLob", "createLaser", "createProjector",
    "createCustomRendering", "createGenericData", "updateHeader", "getHeader", "findPlatform", "findBeam",
    "getPlatformList", "getBeamList", "getGateList", "getLobList", "getLaserList", "getProjectorList",
    "getCustomRenderingList", "getObjectType", "findObjectsByOriginalID", "getOriginalId", "addDataPoint",
    "addDataPoints", "addLaserOriDataPoint", "addLaserOffsetDataPoint", "addLaserMaxRangeDataPoint",
    "addLaserWidthDataPoint", "addLobDrawStyle", "addProjectorFOV", "setProjectorRasterFileName",
    "setProjectorInterpolateFov", "setStatus", "setColor", "setTarget", "setObjectOffset",
    "setObjectOrientationOffset", "getObjectOrientationOffset", "setPlatformOrientationOffset",
    "setAzimuthOffset", "setElevationOffset", "setPlatformInterpolate", "setBeamInterpolatePosition",
    "setGateInterpolatePosition", "setPlatformRCSPatternFileName", "getPlatformRCSPatternFileName",
    "addCategoryData", "flushEntityData", "addDataTable", "findDataTable", "getDataTableColumns",
    "getDataTableColumnName", "addDataTableColumn", "setDataTableColumnUnits", "addDataTableRow", "notify",
    "debugPrint", "debugMsgBox", "beginWaitCursor", "endWaitCursor", "getApplicationId", "getApplicationName",
    "createAction", "parseAccelerator", "initializeHotKey", "registerFileHandler",
    "registerFileOpenAdvancedGui", "showFileLoadDialog", "setValue", "getValue", "PIProgressDialog", "show",
    "hide", "setLabelText", "isCanceled", "runWhileEvents", "~PIProgressDialog", "AddObjectToServerGarbage",
    "RemoveObjectFromServerGarbage", "bind", "unbind", "raiseSignal", "findFile", "loadGOGFile",
    "setAntennaInfo", "loadTerrainConfiguration", "loadPrefRuleFile", "removeAllPrefRules",
    "rfpropSetInputFiles", "loadMediaFile", "loadViewFile", "loadRangeConfiguration",
    "pushOverrideThisPointer", "popOverrideThisPointer", "getOverriddenThisPointer"};
  return names;
}

bool isClientOperation(const std::string& name) {
  const std::vector<std::string>& names = clientOperationNames();
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace RefHost
