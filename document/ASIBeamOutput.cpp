#include "core/StringUtils.h"
#include "document/HeadersUD.h"
#include "document/ASIOutput.h"
#include "document/ASIOutputSupport.h"

using ASIOutputSupport::TO_DEG;
using ASIOutputSupport::angleOut;
using ASIOutputSupport::timedLine;

void saveASIBeamRequired(std::ostream& os, uint64_t hostId, uint64_t id, double vbw, double hbw, int beamType) {
  os << "# Beam Keywords\n";
  os << "BeamID\t" << hostId << " " << id << "\n";
  os << "VertBW\t" << id << " " << vbw * TO_DEG << "\n";
  os << "HorzBW\t" << id << " " << hbw * TO_DEG << "\n";
  os << "BeamType\t" << id << " \"" << CommandsUD::nameAt(CommandsUD::BEAM_TYPES, beamType) << "\"\n";
}

void saveASIBeamOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASIBeamDesc(std::ostream& os, uint64_t id, const std::string& desc) {
  if (!desc.empty()) os << "BeamDesc\t" << id << " \"" << desc << "\"\n";
}

void saveASIBeamOffsets(std::ostream& os, uint64_t id, double azim, double elev, double roll, const double* body,
                        bool missileOffset, double missileValue) {
  if (azim != 0.0) os << "AzimOffset\t" << id << " " << azim * TO_DEG << "\n";
  if (elev != 0.0) os << "ElevOffset\t" << id << " " << elev * TO_DEG << "\n";
  if (roll != 0.0) os << "RollOffset\t" << id << " " << roll * TO_DEG << "\n";
  if (body && (body[0] != 0.0 || body[1] != 0.0 || body[2] != 0.0))
    os << "BodyOffset\t" << id << " " << body[0] << " " << body[1] << " " << body[2] << "\n";
  (void)missileValue;
  if (missileOffset) os << "BeamMissileOffset\t" << id << "\n";
}

void saveASIAntennaBeamInfo(std::ostream& os, uint64_t id, const std::string& type, const std::string& name,
                            const std::string& algorithm, double gain, double power, double frequency,
                            int polarity) {
  if (!type.empty()) {
    // The default algorithm is left out.
    const bool isAlgorithm = orvCore::caseCompare(type, "ALGORITHM") == 0;
    if (!(isAlgorithm && orvCore::caseCompare(name, "SINXX") == 0))
      os << "AntennaPattern\t" << id << " \"" << type << "\" \"" << name << "\"\n";
  }
  if (!algorithm.empty() && orvCore::caseCompare(algorithm, "SINXX") != 0)
    os << "AntennaAlgorithm\t" << id << " \"" << algorithm << "\"\n";
  if (gain != UD_ANT_UNSET) os << "AntennaGain\t" << id << " " << gain << "\t\t// Units (dB)\n";
  if (power != UD_ANT_UNSET) os << "AntennaPeakPower\t" << id << " " << power << "\t// Units (W)\n";
  if (frequency != UD_ANT_UNSET) os << "AntennaFrequency\t" << id << " " << frequency << "\t// Units (MHz)\n";
  if (polarity != 0)
    os << "AntennaPolarity\t" << id << " \"" << CommandsUD::nameAt(CommandsUD::POLARITIES, polarity) << "\"\n";
}

void saveASIAREPSPatterns(std::ostream& os, uint64_t id, const std::vector<std::string>& files) {
  if (files.empty()) return;
  os << "AREPSPattern\t" << id;
  for (const std::string& file : files) os << " \"" << file << "\"";
  os << "\n";
}

void saveASIBeamOnOffCmd(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format) {
  if (timedLine(os, "BeamOnOffCmd", id, time, format, "Beam On|Off Cmd")) os << " " << (on ? 1 : 0) << "\n";
}

void saveASIBeamTargetIdCmd(std::ostream& os, uint64_t id, double time, uint64_t targetId,
                            const DataFormatUD& format) {
  if (timedLine(os, "BeamTargetIDCmd", id, time, format, "Beam Target Id Cmd")) os << " " << targetId << "\n";
}

void saveASIBeamColorCmd(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, const DataFormatUD& format) {
  if (timedLine(os, "BeamColorCmd", id, time, format, "Beam Color Cmd"))
    os << " " << ASIOutputSupport::asiColor(colorRGBA) << "\n";
}

void saveASIBeamData(std::ostream& os, uint64_t id, double time, double range, double azimuth, double elevation,
                     const DataFormatUD& format) {
  // The language gives azimuth, elevation, then range.
  if (timedLine(os, "BeamDataRAE", id, time, format, "Beam Data"))
    os << " " << angleOut(azimuth, format) << " " << angleOut(elevation, format) << " " << range << "\n";
}

void saveASIBeamInterpolatePosition(std::ostream& os, uint64_t id, bool interpolate) {
  os << "BeamInterpolatePos\t" << id << " " << (interpolate ? 1 : 0) << "\n";
}

void saveASIGateRequired(std::ostream& os, uint64_t hostId, uint64_t id, int gateType) {
  os << "# Gate Keywords\n";
  os << "GateID\t" << hostId << " " << id << "\n";
  os << "GateType\t" << id << " \"" << CommandsUD::nameAt(CommandsUD::GATE_TYPES, gateType) << "\"\n";
}

void saveASIGateOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASIGateDesc(std::ostream& os, uint64_t id, const std::string& desc) {
  if (!desc.empty()) os << "GateDesc\t" << id << " \"" << desc << "\"\n";
}

void saveASIGateOffsets(std::ostream& os, uint64_t id, double azim, double elev, double roll) {
  if (azim != 0.0) os << "GateAzimOffset\t" << id << " " << azim * TO_DEG << "\n";
  if (elev != 0.0) os << "GateElevOffset\t" << id << " " << elev * TO_DEG << "\n";
  if (roll != 0.0) os << "GateRollOffset\t" << id << " " << roll * TO_DEG << "\n";
}

void saveASIGateOnOffCmd(std::ostream& os, uint64_t id, double time, bool on, const DataFormatUD& format) {
  if (timedLine(os, "GateOnOffCmd", id, time, format, "Gate On|Off Cmd")) os << " " << (on ? 1 : 0) << "\n";
}

void saveASIGateColorCmd(std::ostream& os, uint64_t id, double time, uint32_t colorRGBA, const DataFormatUD& format) {
  if (timedLine(os, "GateColorCmd", id, time, format, "Gate Color Cmd"))
    os << " " << ASIOutputSupport::asiColor(colorRGBA) << "\n";
}

void saveASIGateData(std::ostream& os, uint64_t id, double time, const double v[7], const DataFormatUD& format) {
  if (!timedLine(os, "GateDataRAE", id, time, format, "Gate Data")) return;
  os << " " << angleOut(v[0], format) << " " << angleOut(v[1], format) << " " << angleOut(v[2], format) << " "
     << angleOut(v[3], format) << " " << v[4] << " " << v[5] << " " << v[6] << "\n";
}

void saveASIGateInterpolatePosition(std::ostream& os, uint64_t id, bool interpolate) {
  os << "GateInterpolatePos\t" << id << " " << (interpolate ? 1 : 0) << "\n";
}
