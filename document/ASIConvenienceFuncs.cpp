#include <cmath>

#include "core/StringUtils.h"
#include "core/ValidNumber.h"
#include "core/TimeException.h"
#include "core/TimePrint.h"
#include "document/ASIOutput.h"
#include "document/ConvenienceFuncsUD.h"

bool inputLimitCheck(double value, double low, double high) { return value >= low && value <= high; }

namespace {

// Indexed by orvCore::CoordinateSystem.
const char* const kSystems[] = {"NED", "NED", "NWU", "ENU", "LLA", "ECEF", "ECI", "XEAST", "GTP"};

}  // namespace

int checkCoordSystem(const std::string& text) {
  for (int i = 1; i < 9; ++i)
    if (orvCore::caseCompare(text, kSystems[i]) == 0) return i;
  // ASI text may give the host's number of the system instead (3 is LLA);
  // 6 and 7 name no system of the document.
  static const int fromHost[] = {orvCore::NED, orvCore::NWU,  orvCore::ENU, orvCore::LLA,   orvCore::ECEF,
                                 orvCore::XEAST, -1,          -1,           orvCore::GTP,   orvCore::ECI};
  unsigned int number = 0;
  if (orvCore::isValidNumber(text, number, true) && number < 10) return fromHost[number];
  return -1;
}

std::string getCoordSystem(int system) { return system >= 1 && system < 9 ? kSystems[system] : "NED"; }

std::string checkClassification(const std::string& text) {
  const std::string upper = orvCore::upperCase(text);
  for (const char* label : CommandsUD::CLASSIFICATIONS) {
    const std::string name = label;
    if (upper == name) return name;
    const size_t dash = name.find(" - ");
    if (dash == std::string::npos) continue;
    const std::string head = name.substr(0, dash);
    const std::string tail = name.substr(dash + 3);
    if (upper == head + "-" + tail || upper == head + " " + tail) return name;
  }
  return "";
}

bool getOutputTimeString(double time, UTILS::UnitType_t format, int referenceYear, std::string& out,
                         const std::string& label) {
  out.clear();
  if (time < 0.0) {
    out = "-1";
    return true;
  }
  try {
    out = UTILS::printTimeString(time, referenceYear, format, 8);
  } catch (const orvCore::TimeException& e) {
    writeErrorStreamUD("Time Exception while saving " + label + ": " + e.what() + "\n");
    out.clear();
  }
  return !out.empty();
}
