#include "pipeline/AsiKeywords.h"

#include <string>

#include "pipeline/KeywordLess.h"

namespace FileReaderPlugin {

const char* const ASI_KEYWORDS[ASI_KEYWORD_COUNT] = {
    // Scenario
    "ReferenceYear", "CoordSystem", "RefLat", "RefLon", "DegreeAngles", "CategoryData", "RefAlt",
    "RefLLA", "ReferenceTimeECI", "TangentPlaneOffset", "ScenarioInfo", "WindSpeed", "WindAngle",
    "DEDMap", "WVSMap", "GOGFile", "SoundFile", "ViewFile", "MediaFile", "MagneticVariance",
    "EventObjID", "EventObjRefID", "EventData", "OriginalID", "ITConfigFile", "RuleFile",
    "VerticalDatum", "GenericObjID", "GenericObjRefID", "GenericData", "Classification",
    "ImageFile", "File",
    // Platform
    "PlatformID", "PlatformData", "PlatformName", "PlatformIcon", "PlatformUsesQuaternion",
    "PlatformCoordSystem", "PlatformRefLLA", "PlatformReferenceTimeECI",
    "PlatformTangentPlaneOffset", "PlatformOffset", "PlatformType", "PlatformFHN", "PlatformRCS",
    "PlatformAttachedGOG", "PlatformInterpolateOri", "PlatformInterpolate",
    "PlatformMagneticVariance", "PlatformVerticalDatum", "PlatformOriOffset",
    // Beam
    "BeamID", "VertBW", "HorzBW", "AzimOffset", "ElevOffset", "RollOffset", "BodyOffset",
    "AntennaPattern", "AntennaAlgorithm", "AntennaGain", "AntennaPeakPower", "AntennaFrequency",
    "AntennaPolarity", "BeamDataRAE", "BeamOnOffCmd", "BeamTargetCmd", "BeamTargetIDCmd",
    "BeamLengthCmd", "BeamColorCmd", "BeamDesc", "BeamType", "AREPSPattern", "BeamMissileOffset",
    "BeamInterpolate", "BeamInterpolatePos", "BeamData", "BeamDataBody", "BeamDataTarget",
    // Gate
    "GateID", "GateDataRAE", "GateFollowData", "GateOnOffCmd", "GateColorCmd", "GateDesc",
    "GateType", "GateInterpolate", "GateAzimOffset", "GateElevOffset", "GateRollOffset",
    "GateInterpolatePos", "TargetGateData", "BodyGateData", "GateData",
    // Data table
    "DataTable", "DataTableUnits", "DataTableRow",
    // Projector
    "Projector", "ProjectorFOV", "ProjectorOn", "ProjectorRasterFile", "ProjectorInterpolateFOV",
    // Laser
    "Laser", "LaserCoordSystem", "LaserRefLLA", "LaserAzElBody", "LaserXYZOffset",
    "LaserMaxRange", "LaserWidth", "LaserColor", "LaserOn", "LaserOri",
    // Line of bearing
    "LOBID", "LOBType", "LOBDesc", "LOBData", "LOBDrawStyle",
    // Custom rendering
    "CustomRendering", "CustomRenderingColor"};

const VersionDependentKeyword ASI_VERSION_DEPENDENT_KEYWORDS[ASI_VERSION_DEPENDENT_COUNT] = {
    {"Classification", 4}, {"GenericData", 6}, {"ImageFile", 13}};

bool usesDeprecatedCommand(const char* keyword, int version) {
  const std::string word(keyword);
  KeywordLess less;
  for (const VersionDependentKeyword& entry : ASI_VERSION_DEPENDENT_KEYWORDS) {
    const std::string other(entry.keyword);
    if (!less(word, other) && !less(other, word)) return version <= entry.lastDeprecatedVersion;
  }
  return false;
}

}  // namespace FileReaderPlugin
