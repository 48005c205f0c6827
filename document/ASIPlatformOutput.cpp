#include <cmath>

#include "core/Angle.h"
#include "document/ASIOutput.h"
#include "document/ASIOutputSupport.h"

using ASIOutputSupport::TO_DEG;

void saveASIPlatformRequired(std::ostream& os, uint64_t id, const std::string& name, const std::string& icon) {
  os << "# Platform Keywords\n";
  os << "PlatformID\t" << id << "\n";
  os << "PlatformName\t" << id << " \"" << name << "\"\n";
  os << "PlatformIcon\t" << id << " \"" << (icon.empty() ? "None" : icon) << "\"\n";
}

void saveASIPlatformCoordFrame(std::ostream& os, uint64_t id, int system, const double* refLLA,
                               const double* tangentPlane, double referenceTimeECI) {
  if (refLLA)
    os << "PlatformRefLLA\t" << id << " " << orvCore::angFix(refLLA[0], orvCore::AE_PLUSMINUS_PI) * TO_DEG << " "
       << orvCore::angFix(refLLA[1], orvCore::AE_PLUSMINUS_PI) * TO_DEG << " " << refLLA[2] << "\n";
  os << "PlatformCoordSystem\t" << id << " \"" << getCoordSystem(system) << "\"\n";
  if (tangentPlane)
    os << "PlatformTangentPlaneOffset\t" << id << " " << tangentPlane[0] << " " << tangentPlane[1] << " "
       << orvCore::angFix(tangentPlane[2], orvCore::AE_ZERO_TWOPI) * TO_DEG << "\n";
  if (system == orvCore::ECI) os << "PlatformReferenceTimeECI\t" << id << " " << referenceTimeECI << "\n";
}

void saveASIPlatformOriginalID(std::ostream& os, uint64_t id, uint64_t originalId) {
  ASIOutputSupport::originalId(os, id, originalId);
}

void saveASIPlatformOffset(std::ostream& os, uint64_t id, const double* offset) {
  if (offset == nullptr || (offset[0] == 0.0 && offset[1] == 0.0 && offset[2] == 0.0)) return;
  os << "PlatformOffset\t" << id << " " << offset[0] << " " << offset[1] << " " << offset[2] << "\n";
}

void saveASIPlatformOriOffset(std::ostream& os, uint64_t id, double yaw, double pitch, double roll) {
  if (yaw == 0.0 && pitch == 0.0 && roll == 0.0) return;
  os << "PlatformOriOffset\t" << id << " " << yaw * TO_DEG << " " << pitch * TO_DEG << " " << roll * TO_DEG << "\n";
}

void saveASIPlatformRCS(std::ostream& os, uint64_t id, const std::string& file) {
  if (!file.empty()) os << "PlatformRCS\t" << id << " \"" << file << "\"\n";
}

void saveASIPlatformInterpolatePos(std::ostream& os, uint64_t id, bool interpolate) {
  os << "PlatformInterpolate\t" << id << " " << (interpolate ? "1\n" : "0\n");
}

void saveASIPlatformAttachedGOG(std::ostream& os, uint64_t id, const std::vector<std::string>& files) {
  for (const std::string& file : files) os << "PlatformAttachedGOG\t" << id << " \"" << file << "\"\n";
}

namespace {

bool platformDataStart(std::ostream& os, uint64_t id, double time, const DataFormatUD& format,
                       const double* position, const double* orientation, const char* keyword) {
  std::string text;
  if (!getOutputTimeString(time, format.timeFormat, format.referenceYear, text, "Platform Data")) {
    writeErrorStreamUD("ERROR:  Unable to obtain Platform Data time string.\n");
    return false;
  }
  if (position == nullptr) {
    writeErrorStreamUD("ERROR:  Unable to obtain Platform Data position.\n");
    return false;
  }
  os << keyword << "\t" << id << " \"" << text << "\" ";
  if (format.coordSystem == orvCore::LLA)
    os << ASIOutputSupport::angleOut(position[0], format) << " " << ASIOutputSupport::angleOut(position[1], format);
  else
    os << position[0] << " " << position[1];
  os << " " << position[2];
  if (orientation)
    os << " " << ASIOutputSupport::angleOut(orientation[0], format) << " "
       << ASIOutputSupport::angleOut(orientation[1], format) << " " << ASIOutputSupport::angleOut(orientation[2], format);
  return true;
}

}  // namespace

void saveASIPlatformData(std::ostream& os, uint64_t id, double time, const DataFormatUD& format,
                         const double* position, const double* orientation, const double* velocity, double speed,
                         const char* keyword) {
  if (!platformDataStart(os, id, time, format, position, orientation, keyword)) return;
  // Speed and velocity columns follow the three orientation columns.
  if ((velocity || speed >= 0.0) && orientation == nullptr) os << " 0 0 0";
  if (velocity) os << " " << velocity[0] << " " << velocity[1] << " " << velocity[2];
  else if (speed >= 0.0) os << " " << speed;
  os << "\n";
}

void saveASIPlatformData(std::ostream& os, uint64_t id, double time, const DataFormatUD& format,
                         const double* position, const double* orientation, const double* velocity,
                         const double* acceleration, const char* keyword) {
  if (!platformDataStart(os, id, time, format, position, orientation, keyword)) return;
  if (orientation == nullptr) os << " 0 0 0";
  const double zero[3] = {0.0, 0.0, 0.0};
  const double* v = velocity ? velocity : zero;
  os << " " << v[0] << " " << v[1] << " " << v[2];
  if (acceleration) os << " " << acceleration[0] << " " << acceleration[1] << " " << acceleration[2];
  os << "\n";
}

void saveASIPlatformVerticalDatum(std::ostream& os, uint64_t id, UTILS::EVerticalDatum datum, double user) {
  os << "PlatformVerticalDatum\t" << id << " ";
  if (datum == UTILS::VD_USER) os << user << "\n";
  else os << (datum == UTILS::VD_MSL ? "\"MSL\"\n" : "\"WGS84\"\n");
}

void saveASIPlatformMagneticVariance(std::ostream& os, uint64_t id, UTILS::EMagneticVariance variance,
                                     double user) {
  os << "PlatformMagneticVariance\t" << id << " ";
  if (variance == UTILS::MV_USER) os << orvCore::angFix(user, orvCore::AE_ZERO_TWOPI) * TO_DEG << "\n";
  else os << (variance == UTILS::MV_WMM ? "\"WMM\"\n" : "\"TRUE\"\n");
}
