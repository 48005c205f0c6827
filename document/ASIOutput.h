#pragma once
// The ASI writer: one free function per command, each writing whole lines
// to the stream it is given (stream first, then the unique id where the
// command has one). ScenarioUD::save drives them in file order; the
// importers that produce ASI text (TLE, Kepler) call them directly.
//
// Times are seconds since `format.referenceYear`, written with
// getOutputTimeString; a time that cannot be written is reported on the
// document's error stream and its line is left out. Positions and
// orientation follow `format.degreeAngles`; the angles that the language
// always reads in degrees (beam widths, offsets, reference origins) are
// written in degrees.

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "core/UnitTypes.h"
#include "core/VariableType.h"
#include "document/CommandsUD.h"
#include "hostapi/DataTableRow.h"

class ScenarioUD;

// Support (ASIConvenienceFuncs)
bool inputLimitCheck(double value, double low, double high);
// The coordinate system of a word ("LLA", "ECEF", ...) or of the host's
// number for it (0 NED, 1 NWU, 2 ENU, 3 LLA, 4 ECEF, 5 XEAST, 8 GTP, 9 ECI), or -1.
int checkCoordSystem(const std::string& text);
// The word of a coordinate system; NED and any unknown value give "NED".
std::string getCoordSystem(int system);
// The classification label for a text, accepting "SECRET-WN" and "SECRET WN"
// for "SECRET - WN"; empty when not a label.
std::string checkClassification(const std::string& text);
// -1 for a negative time, else the time text; false (and an empty text) when
// the time cannot be written, after "Time Exception while saving <label>: ...".
bool getOutputTimeString(double time, UTILS::UnitType_t format, int referenceYear, std::string& out,
                         const std::string& label = "");

// Scenario (ASIScenarioOutput)
void saveASIScenarioRequired(std::ostream& os, const ScenarioUD& scenario, int system);
void saveASIScenarioWinds(std::ostream& os, double angle, double speed);
void saveASIClassification(std::ostream& os, const std::string& label, uint32_t colorAABBGGRR);
// By level: 0 "UNCLASSIFIED", 1 "CONFIDENTIAL", ..., 8 "TOP SECRET", 9 "FOR OFFICIAL USE ONLY".
void saveASIClassification(std::ostream& os, int level, uint32_t colorAABBGGRR);
void saveStrings(std::ostream& os, const std::string& keyword, const std::vector<std::string>& names);
// Types 1 "DEDMap", 2 "GOGFile", 3 "WVSMap", 4 "ViewFile", 5 "ImageFile", 6 "MediaFile",
// 7 "ITConfigFile", 8 "RuleFile", 9 "File".
void saveASIExternalFiles(std::ostream& os, int type, const std::vector<std::string>& names);
void saveASISoundFiles(std::ostream& os, const std::vector<std::pair<std::string, double>>& files,
                       const DataFormatUD& format);
void saveASIDegreeAngles(std::ostream& os, bool degrees);
void saveASIScenarioInfo(std::ostream& os, const std::string& text);
void saveASIMagneticVariance(std::ostream& os, UTILS::EMagneticVariance variance, double user);
void saveASIVerticalDatum(std::ostream& os, UTILS::EVerticalDatum datum, double user);

// Platform (ASIPlatformOutput)
void saveASIPlatformRequired(std::ostream& os, uint64_t id, const std::string& name, const std::string& icon);
void saveASIPlatformCoordFrame(std::ostream& os, uint64_t id, int system, const double* refLLA,
                               const double* tangentPlane, double referenceTimeECI);
void saveASIPlatformOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASIPlatformOffset(std::ostream& os, uint64_t id, const double* offset);
void saveASIPlatformOriOffset(std::ostream& os, uint64_t id, double yaw, double pitch, double roll);
void saveASIPlatformRCS(std::ostream& os, uint64_t id, const std::string& file);
void saveASIPlatformInterpolatePos(std::ostream& os, uint64_t id, bool interpolate);
void saveASIPlatformAttachedGOG(std::ostream& os, uint64_t id, const std::vector<std::string>& files);
// One data line: position in the output system (latitude and longitude in
// radians, or degrees with format.degreeAngles), then the orientation
// (yaw, pitch, roll; may be null), then the velocity (may be null) or, with
// a null velocity and `speed` not negative, the speed. `keyword` lets the
// importers write other data commands in the same shape.
void saveASIPlatformData(std::ostream& os, uint64_t id, double time, const DataFormatUD& format,
                         const double* position, const double* orientation, const double* velocity,
                         double speed = -1.0, const char* keyword = "PlatformData");
// The same with the acceleration after the velocity.
void saveASIPlatformData(std::ostream& os, uint64_t id, double time, const DataFormatUD& format,
                         const double* position, const double* orientation, const double* velocity,
                         const double* acceleration, const char* keyword = "PlatformData");
void saveASIPlatformVerticalDatum(std::ostream& os, uint64_t id, UTILS::EVerticalDatum datum, double user);
void saveASIPlatformMagneticVariance(std::ostream& os, uint64_t id, UTILS::EMagneticVariance variance, double user);

// Beam (ASIBeamOutput)
void saveASIBeamRequired(std::ostream& os, uint64_t hostId, uint64_t id, double vbw, double hbw, int beamType);
void saveASIBeamOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASIBeamDesc(std::ostream& os, uint64_t id, const std::string& desc);
void saveASIBeamOffsets(std::ostream& os, uint64_t id, double azim, double elev, double roll, const double* body,
                        bool missileOffset, double missileValue);
void saveASIAntennaBeamInfo(std::ostream& os, uint64_t id, const std::string& type, const std::string& name,
                            const std::string& algorithm, double gain, double power, double frequency,
                            int polarity);
void saveASIAREPSPatterns(std::ostream& os, uint64_t id, const std::vector<std::string>& files);
void saveASIBeamOnOffCmd(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format);
void saveASIBeamTargetIdCmd(std::ostream& os, uint64_t id, double time, uint64_t targetId,
                            const DataFormatUD& format);
void saveASIBeamColorCmd(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, const DataFormatUD& format);
void saveASIBeamData(std::ostream& os, uint64_t id, double time, double range, double azimuth, double elevation,
                     const DataFormatUD& format);
void saveASIBeamInterpolatePosition(std::ostream& os, uint64_t id, bool interpolate);

// Gate (ASIGateOutput)
void saveASIGateRequired(std::ostream& os, uint64_t hostId, uint64_t id, int gateType);
void saveASIGateOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASIGateDesc(std::ostream& os, uint64_t id, const std::string& desc);
void saveASIGateOffsets(std::ostream& os, uint64_t id, double azim, double elev, double roll);
void saveASIGateOnOffCmd(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format);
void saveASIGateColorCmd(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, const DataFormatUD& format);
// Azimuth, elevation, width, height, minimum, maximum range, centroid.
void saveASIGateData(std::ostream& os, uint64_t id, double time, const double values[7], const DataFormatUD& format);
void saveASIGateInterpolatePosition(std::ostream& os, uint64_t id, bool interpolate);

// Custom rendering (ASICustomRenderingOutput)
void saveASICustomRenderingRequired(std::ostream& os, uint64_t hostId, uint64_t id, const std::string& renderer,
                                    const std::string& desc = "");
void saveASICustomRenderingOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASICustomRenderingColor(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA,
                                 const DataFormatUD& format);

// Generic and category data
void saveASIGenericData(std::ostream& os, uint64_t id, const std::string& tag, const std::string& value, double time,
                        double expire, const DataFormatUD& format);
void saveASICategoryData(std::ostream& os, uint64_t id, double time, const std::string& name,
                         const std::string& value, const DataFormatUD& format);

// Data table (ASIDataTableOutput)
void saveASIDataTableHeader(std::ostream& os, uint64_t ownerId, int64_t tableId, const std::string& name,
                            const std::vector<std::string>& columns,
                            const std::vector<UTILS::VariableType_t>& types,
                            const std::vector<UTILS::UnitType_t>& units);
// Cells in column order; an absent cell writes "NULL". `columnIds` maps
// the row's column ids to positions.
void saveASIDataTableRow(std::ostream& os, const std::string& keyword, int64_t tableId, const DataTableRowT& row,
                         const std::vector<int64_t>& columnIds, const DataFormatUD& format);

// Projector (ASIProjectorOutput)
void saveASIProjector(std::ostream& os, uint64_t hostId, uint64_t id, const std::string& name,
                      const std::string& rasterFile, bool interpolateFov);
void saveASIProjectorOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASIProjectorOnOffCmd(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format);
void saveASIProjectorFovCmd(std::ostream& os, uint64_t id, double time, double fov, const DataFormatUD& format);

// Laser (ASILaserOutput)
void saveASILaser(std::ostream& os, uint64_t hostId, uint64_t id, const std::string& name, int system,
                  const double* refLLA, bool azElBody);
void saveASILaserOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASILaserOrientation(std::ostream& os, uint64_t id, double time, double yaw, double pitch, double roll,
                             const DataFormatUD& format);
void saveASILaserWidth(std::ostream& os, uint64_t id, double time, int width, const DataFormatUD& format);
void saveASILaserOnOff(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format);
void saveASILaserMaxRange(std::ostream& os, uint64_t id, double time, double range, const DataFormatUD& format);
void saveASILaserColor(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, const DataFormatUD& format);
void saveASILaserOffsetXYZ(std::ostream& os, uint64_t id, double time, double x, double y, double z,
                           const DataFormatUD& format);

// LOB (ASILOBOutput)
void saveASILOBRequired(std::ostream& os, uint64_t hostId, uint64_t id, int type, const std::string& desc);
void saveASILOBOriginalID(std::ostream& os, uint64_t id, uint64_t originalId);
void saveASILOBDrawStyle(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, uint32_t width,
                         uint32_t color2, uint32_t stipple1, uint32_t stipple2, const DataFormatUD& format);
void saveASILOBData(std::ostream& os, uint64_t id, double time, double range, double azimuth, double elevation,
                    const DataFormatUD& format);
