#include "document/ConvenienceFuncsUD.h"

#include <cmath>
#include <ctime>
#include <iostream>
#include <mutex>

#include "core/Angle.h"
#include "core/StringUtils.h"
#include "core/ValidNumber.h"

namespace {

const char* const kPlatformTypes[] = {"Unknown",    "Surface Ship", "Submarine", "Aircraft", "Satellite",
                                      "Helicopter", "Missile",      "Decoy",     "Buoy",     "Reference Site",
                                      "Land Vehicle", "Land Site",  "Torpedo",   "Contact"};
constexpr int kPlatformTypeCount = static_cast<int>(sizeof(kPlatformTypes) / sizeof(kPlatformTypes[0]));

std::mutex& errorMutex() {
  static std::mutex mutex;
  return mutex;
}
std::ostream*& errorStream() {
  static std::ostream* stream = nullptr;
  return stream;
}

}  // namespace

bool udIsFinite(double value) { return std::isfinite(value); }
bool udIsFltMax(double value) { return std::fabs(value) > UD_FLT_MAX; }
bool udIsBadAngle(double value) { return std::fabs(value) > 2.0 * M_PI + 1e-4; }
bool udIsBadAngle(const double* three) {
  return three && (udIsBadAngle(three[0]) || udIsBadAngle(three[1]) || udIsBadAngle(three[2]));
}
bool udIsBadElevAngle(double value) { return std::fabs(value) > M_PI / 2.0 + 1e-4; }
bool udIsBadElevAngle(const double* three) {
  return three && (udIsBadElevAngle(three[0]) || udIsBadElevAngle(three[1]) || udIsBadElevAngle(three[2]));
}

void udFixOrientationAngles(double& yaw, double& pitch, double& roll) {
  yaw = orvCore::angFix(yaw, orvCore::AE_ZERO_TWOPI);
  pitch = orvCore::angFix(pitch, orvCore::AE_PLUSMINUS_PI);
  roll = orvCore::angFix(roll, orvCore::AE_PLUSMINUS_PI);
}

void udSetBogusTimeAndActiveFalse(double& time, bool& active) {
  time = UD_NO_TIME;
  active = false;
}

std::string getPlatType(int index) {
  return index >= 0 && index < kPlatformTypeCount ? kPlatformTypes[index] : kPlatformTypes[0];
}

std::string GetPlatTypeCatValueUD(const std::string& text) {
  // The words of the "PlatformType" command, in the order of the values.
  static const char* const words[] = {"unknown",   "ship",   "submarine", "aircraft", "satellite",
                                      "helicopter", "missile", "decoy",    "buoy",     "reference",
                                      "vehicle",   "landsite", "torpedo",  "contact"};
  static_assert(sizeof(words) == sizeof(kPlatformTypes), "one word per platform type");
  unsigned int index = 0;
  if (orvCore::isValidNumber(text, index, false)) return getPlatType(static_cast<int>(index));
  for (int i = 0; i < kPlatformTypeCount; ++i)
    if (orvCore::caseCompare(words[i], text) == 0) return kPlatformTypes[i];
  return kPlatformTypes[0];
}

void GetFHNCategoryDataUD(const std::string& text, std::string& name, std::string& value) {
  name = "Affinity";
  const std::string upper = orvCore::upperCase(text);
  if (upper == "F" || upper == "FRIENDLY") value = "Friendly";
  else if (upper == "H" || upper == "HOSTILE") value = "Hostile";
  else if (upper == "N" || upper == "NEUTRAL") value = "Neutral";
  else value = "Unknown";
}

void writeErrorStreamUD(const std::string& text) {
  std::lock_guard<std::mutex> lock(errorMutex());
  std::ostream* stream = errorStream();
  (stream ? *stream : std::cerr) << text;
}

std::ostream* setErrorStreamUD(std::ostream* stream) {
  std::lock_guard<std::mutex> lock(errorMutex());
  std::ostream* previous = errorStream();
  errorStream() = stream;
  return previous;
}

int udCurrentYear() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  return parts.tm_year + 1900;
}
