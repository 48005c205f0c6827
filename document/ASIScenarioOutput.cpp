#include <cmath>
#include <ctime>
#include <iomanip>
#include <sstream>

#include "core/Angle.h"
#include "document/ASIOutput.h"
#include "document/ASIOutputSupport.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

namespace {

constexpr double kToDeg = 180.0 / M_PI;

}  // namespace

void saveASIScenarioRequired(std::ostream& os, const ScenarioUD& scenario, int system) {
  os << "# ORVIDE ASCII Scenario Input (ASI) File Format\n\n";
  os << "# Scenario Initialization Keywords\n";
  os << "Version\t" << scenario.version() << "\n";
  const orvCore::CoordinateConverter& c = scenario.converter();
  // The language reads reference origins in degrees.
  os << "RefLLA\t" << orvCore::angFix(c.referenceLat(), orvCore::AE_PLUSMINUS_PI) * kToDeg << " "
     << orvCore::angFix(c.referenceLon(), orvCore::AE_PLUSMINUS_PI) * kToDeg << " " << c.referenceAlt() << "\n";
  os << "CoordSystem\t\"" << getCoordSystem(system) << "\"\n";
  int year = scenario.referenceYear();
  // The readers' range: every year they take is written as it is.
  if (!inputLimitCheck(year, 1970, 2200)) {
    year = udCurrentYear();
    writeErrorStreamUD("WARNING!  Incorrect value for Reference Year, value reset to " + std::to_string(year) + "\n");
  }
  os << "ReferenceYear\t" << year << "\n";
  if (system == orvCore::XEAST || system == orvCore::GTP) {
    os << "TangentPlaneOffset\t" << c.tangentPlaneOffsetX() << " " << c.tangentPlaneOffsetY() << " "
       << orvCore::angFix(c.tangentPlaneRotation(), orvCore::AE_ZERO_TWOPI) * kToDeg << "\n";
  }
  if (system == orvCore::ECI) {
    const double eci = std::min(86400.0, std::max(0.0, scenario.eciReferenceTime()));
    os << "ReferenceTimeECI\t\"" << eci << "\"\n";
  }
}

void saveASIScenarioWinds(std::ostream& os, double angle, double speed) {
  os << "WindAngle\t" << orvCore::angFix(angle, orvCore::AE_ZERO_TWOPI) * kToDeg << "\n";
  os << "WindSpeed\t" << speed << "\n";
}

void saveASIClassification(std::ostream& os, const std::string& label, uint32_t colorAABBGGRR) {
  os << "Classification\t\"" << label << "\" " << ASIOutputSupport::hex8(colorAABBGGRR) << "\n";
}

void saveASIClassification(std::ostream& os, int level, uint32_t colorAABBGGRR) {
  static const char* const labels[] = {"UNCLASSIFIED", "CONFIDENTIAL", "SECRET",    "SECRET - WN",
                                       "SECRET - NF",  "SECRET - NC",  "SECRET - OC", "SECRET - PR",
                                       "TOP SECRET",   "FOR OFFICIAL USE ONLY"};
  saveASIClassification(os, level >= 0 && level < 10 ? labels[level] : labels[0], colorAABBGGRR);
}

void saveStrings(std::ostream& os, const std::string& keyword, const std::vector<std::string>& names) {
  for (const std::string& name : names) os << keyword << "\t\"" << name << "\"\n";
}

void saveASIExternalFiles(std::ostream& os, int type, const std::vector<std::string>& names) {
  static const char* const keywords[] = {"",          "DEDMap",    "GOGFile",      "WVSMap",   "ViewFile",
                                         "ImageFile", "MediaFile", "ITConfigFile", "RuleFile", "File"};
  if (type < 1 || type > 9) return;
  saveStrings(os, keywords[type], names);
}

void saveASISoundFiles(std::ostream& os, const std::vector<std::pair<std::string, double>>& files,
                       const DataFormatUD& format) {
  for (const auto& file : files) {
    std::string time;
    if (!getOutputTimeString(file.second, format.timeFormat, format.referenceYear, time, "Sound File")) continue;
    os << "SoundFile\t\"" << file.first << "\" \"" << time << "\"\n";
  }
}

void saveASIDegreeAngles(std::ostream& os, bool degrees) { os << "DegreeAngles\t" << (degrees ? 1 : 0) << "\n"; }

void saveASIScenarioInfo(std::ostream& os, const std::string& text) { os << "ScenarioInfo\t\"" << text << "\"\n"; }

void saveASIMagneticVariance(std::ostream& os, UTILS::EMagneticVariance variance, double user) {
  os << "MagneticVariance\t";
  if (variance == UTILS::MV_USER) os << orvCore::angFix(user, orvCore::AE_ZERO_TWOPI) * kToDeg << "\n";
  else os << "\"" << CommandsUD::nameAt(CommandsUD::MAGNETIC_VARIANCES, variance) << "\"\n";
}

void saveASIVerticalDatum(std::ostream& os, UTILS::EVerticalDatum datum, double user) {
  os << "VerticalDatum\t";
  if (datum == UTILS::VD_USER) os << user << "\n";
  else os << "\"" << CommandsUD::nameAt(CommandsUD::VERTICAL_DATUMS, datum) << "\"\n";
}
