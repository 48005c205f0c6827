#include "importers/Propagator.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "core/CoordinateConverter.h"
#include "core/Notify.h"
#include "importers/ConversionLog.h"

namespace {

// Columns `first` to `last` (from 1, inclusive) of a line; false, after a
// message naming what was asked for, when the line does not hold them.
bool columns(int first, int last, const std::string& line, const char* what, std::string& text) {
  if (first <= 0 || first >= last || static_cast<int>(line.size()) <= last) {
    orvNotify::notify(orvNotify::ERROR_LEVEL) << "Unable to get " << what << " [" << first << ", " << last
                                              << "] from TLE line: " << line;
    return false;
  }
  text = line.substr(first - 1, last - first + 1);
  return true;
}

}  // namespace

Propagator::Propagator(const std::string& name, const std::string& line1, const std::string& line2)
    : name_(name), line1_(line1), line2_(line2) {}

Propagator::~Propagator() = default;

double Propagator::getDouble_(int first, int last, const std::string& line) const {
  std::string text;
  return columns(first, last, line, "double", text) ? std::atof(text.c_str()) : 0.0;
}

int Propagator::getInt_(int first, int last, const std::string& line) const {
  std::string text;
  return columns(first, last, line, "int", text) ? std::atoi(text.c_str()) : 0;
}

int Propagator::idNumber() const { return getInt_(3, 7, line1_); }
int Propagator::launchYear() const { return fullYear(getInt_(10, 11, line1_)); }
int Propagator::epochYear() const { return fullYear(getInt_(19, 20, line1_)); }
double Propagator::epochDay() const { return getDouble_(21, 32, line1_); }
double Propagator::epochTime() const { return (epochDay() - 1.0) * 86400.0; }
double Propagator::estimatedError(double secondsFromEpoch) const { return std::fabs(secondsFromEpoch) / 86400.0; }

void Propagator::toGeodetic_(const double ecefPos[3], const double ecefVel[3], double* lla, double* orientation,
                             double* velocity) {
  orvCore::Vec3 geo;
  orvCore::CoordinateConverter::convertEcefToGeodeticPos(orvCore::Vec3(ecefPos), geo);
  orvCore::Vec3 enu;
  orvCore::CoordinateConverter::convertEcefToGeodeticVel(geo, orvCore::Vec3(ecefVel), enu,
                                                         orvCore::LOCAL_LEVEL_FRAME_ENU);
  for (int i = 0; i < 3; ++i) {
    lla[i] = geo[i];
    velocity[i] = enu[i];
  }
  double yaw = std::atan2(enu[0], enu[1]);
  if (yaw < 0.0) yaw += 2.0 * M_PI;
  const double horizontal = std::sqrt(enu[0] * enu[0] + enu[1] * enu[1]);
  orientation[0] = yaw;
  orientation[1] = std::atan2(enu[2], horizontal);
  orientation[2] = 0.0;
}

PropagatorAIAA::PropagatorAIAA(const std::string& name, const std::string& line1, const std::string& line2,
                               int gravity)
    : Propagator(name, line1, line2) {
  char l1[130] = {0};
  char l2[130] = {0};
  // Both lines sit in blank-padded buffers so that the fixed columns exist
  // whatever the caller passed.
  std::memset(l1, ' ', 129);
  std::memset(l2, ' ', 129);
  std::memcpy(l1, line1.data(), std::min<size_t>(line1.size(), 129));
  std::memcpy(l2, line2.data(), std::min<size_t>(line2.size(), 129));
  l1[std::min<size_t>(line1.size(), 129)] = '\0';
  l2[std::min<size_t>(line2.size(), 129)] = '\0';
  if (line1.size() < 69) l1[69] = '\0';
  if (line2.size() < 69) l2[69] = '\0';
  double start = 0.0, stop = 0.0, step = 0.0;
  AIAA::twoline2rv(l1, l2, 'i', gravity, start, stop, step, rec_);
}

PropagatorAIAA::~PropagatorAIAA() = default;

const std::map<int, std::string>& PropagatorAIAA::errorTexts_() {
  static const std::map<int, std::string> texts = {
      {1, "Mean elements, ecc >= 1.0 or ecc < -0.001"},
      {2, "Mean motion less than 0.0"},
      {3, "Pert elements, ecc < 0.0  or  ecc > 1.0"},
      {4, "Semi-latus rectum < 0.0"},
      {5, "Epoch elements are sub-orbital"},
      {6, "Satellite has decayed"}};
  return texts;
}

std::string PropagatorAIAA::errorText(int code) {
  const auto found = errorTexts_().find(code);
  return found == errorTexts_().end() ? std::string() : found->second;
}

double PropagatorAIAA::epochGmst() const { return AIAA::gstime(epochJulianDate()); }

int PropagatorAIAA::propagate(double secondsFromEpoch, double* lla, double* orientation, double* velocity) {
  double r[3], v[3];
  if (!AIAA::sgp4(rec_, secondsFromEpoch / 60.0, r, v) || !std::isfinite(r[0])) {
    const int code = rec_.error != 0 ? rec_.error : 1;
    // The issue line is the user's fault report and stays exactly this; the
    // model's own words for the code go beside it on the notice stream.
    ConversionLog::issue("Code [" + std::to_string(code) + "] occurred with " + name() + " in AIAA::sgp4");
    ConversionLog::notice(name() + ": " + errorText(code));
    return code;
  }
  // TEME to Earth-fixed: a turn about Z by the sidereal angle of the moment.
  const double jd = epochJulianDate() + secondsFromEpoch / 86400.0;
  const double gmst = AIAA::gstime(jd);
  const double c = std::cos(gmst), s = std::sin(gmst);
  const double pos[3] = {(c * r[0] + s * r[1]) * 1000.0, (-s * r[0] + c * r[1]) * 1000.0, r[2] * 1000.0};
  const double vel[3] = {(c * v[0] + s * v[1]) * 1000.0, (-s * v[0] + c * v[1]) * 1000.0, v[2] * 1000.0};
  toGeodetic_(pos, vel, lla, orientation, velocity);
  return 0;
}
