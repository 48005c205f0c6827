#pragma once
// The static descriptions of the document's objects.

#include <cstdint>
#include <string>
#include <vector>

#include "core/CoordinateConverter.h"
#include "document/CommandsUD.h"

class ObjectHeaderUD {
 public:
  virtual ~ObjectHeaderUD() = default;
  uint64_t uniqueID = 0;
  uint64_t originalID = 0;
};

class PlatformHeaderUD : public ObjectHeaderUD {
 public:
  explicit PlatformHeaderUD(const DataFormatUD& format = DataFormatUD()) : coordSystem(format.coordSystem) {}

  void SetCourseOffset(float radians) { courseOffset = radians; }
  void SetPitchOffset(float radians) { pitchOffset = radians; }
  void SetRollOffset(float radians) { rollOffset = radians; }
  void SetReferenceLLA(double lat, double lon, double alt) {
    refLLA[0] = lat;
    refLLA[1] = lon;
    refLLA[2] = alt;
    hasRefLLA = true;
  }
  const double* LatLonAlt() const { return refLLA; }
  void SetReferenceTimeECI(double seconds) { referenceTimeECI = seconds; }
  void SetTangentPlaneOffsets(double x, double y, double angle) {
    tangentPlane[0] = x;
    tangentPlane[1] = y;
    tangentPlane[2] = angle;
  }
  void SetVerticalDatum(UTILS::EVerticalDatum datum, double user = 0.0) {
    verticalDatum = datum;
    verticalDatumUser = user;
  }
  void SetMagneticVariance(UTILS::EMagneticVariance variance, double user = 0.0) {
    magneticVariance = variance;
    magneticVarianceUser = user;
  }
  // True when the platform has a frame of its own beside the scenario's.
  bool hasOwnFrame() const { return ownFrame; }

  std::string callSign;
  std::string iconName;
  std::vector<std::string> gogFiles;
  double saveBegin = -1.0, saveEnd = -1.0;
  float courseOffset = 0.0f, pitchOffset = 0.0f, rollOffset = 0.0f;
  double positionOffset[3] = {0.0, 0.0, 0.0};
  orvCore::CoordinateSystem coordSystem;
  double refLLA[3] = {0.0, 0.0, 0.0};
  bool hasRefLLA = false;
  double referenceTimeECI = 0.0;
  double tangentPlane[3] = {0.0, 0.0, 0.0};
  UTILS::EVerticalDatum verticalDatum = UTILS::VD_WGS84;
  double verticalDatumUser = 0.0;
  UTILS::EMagneticVariance magneticVariance = UTILS::MV_TRUE;
  double magneticVarianceUser = 0.0;
  int referenceYear = 1970;
  bool defaultInterpolation = true;
  bool ownFrame = false;
};

// An unset antenna value.
constexpr double UD_ANT_UNSET = -1.0;

class BeamHeaderUD : public ObjectHeaderUD {
 public:
  void SetDesc(const std::string& text) { desc = text; }
  void SetBeamType(int type) { beamType = type; }
  void SetHBW(double radians) { hbw = radians; }
  void SetVBW(double radians) { vbw = radians; }
  void SetHBWDeg(double degrees) { hbw = degrees * M_PI / 180.0; }
  void SetVBWDeg(double degrees) { vbw = degrees * M_PI / 180.0; }
  void SetAntName(const std::string& name) { antName = name; }
  void SetAntAlgo(const std::string& algorithm) { antAlgo = algorithm; }
  // The pattern's type word ("TABLE", "ALGORITHM", ...) and its file or algorithm name.
  void SetAntInfo(const std::string& type, const std::string& name) {
    antType = type;
    antName = name;
  }
  void SetAntGain(double db) { antGain = db; }
  void SetAntPower(double watts) { antPower = watts; }
  void SetAntFreq(double mhz) { antFreq = mhz; }
  void SetAntPolarity(int polarity) { antPolarity = polarity; }
  void SetAREPSFile(const std::string& file) { arepsFiles.push_back(file); }
  // Unset values fall back on what the antenna pattern gives (nothing here).
  double AntGain() const { return antGain; }
  double AntFreq() const { return antFreq; }
  int AntPolarity() const { return antPolarity; }

  std::string desc;
  int beamType = BEAM_UNKNOWN;
  double hbw = 0.0, vbw = 0.0;
  std::string antType;
  std::string antName;
  std::string antAlgo;
  double antGain = UD_ANT_UNSET, antPower = UD_ANT_UNSET, antFreq = UD_ANT_UNSET;
  int antPolarity = 0;
  std::vector<std::string> arepsFiles;
  double azimOffset = 0.0, elevOffset = 0.0, rollOffset = 0.0;
  double bodyOffset[3] = {0.0, 0.0, 0.0};
  bool missileOffset = false;
  double missileOffsetValue = 0.0;
};

class GateHeaderUD : public ObjectHeaderUD {
 public:
  std::string desc;
  int gateType = GATE_UNKNOWN;
  double azimOffset = 0.0, elevOffset = 0.0, rollOffset = 0.0;
};

class LOBGroupHeaderUD : public ObjectHeaderUD {
 public:
  std::string description;
  UTILS::LOBGroupType_t type = UTILS::LOB_ABSOLUTE;
};

class CustomRenderingHeaderUD : public ObjectHeaderUD {
 public:
  void SetRenderer(const std::string& name) { renderer = name; }
  std::string desc;
  std::string renderer;
};
