#include "importers/TLE2ASI.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/CoordinateConverter.h"
#include "core/TimePrint.h"
#include "document/ASIOutput.h"
#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"
#include "importers/ConversionLog.h"
#include "importers/ParseTLE.h"

namespace TLE2ASI {

const char* const ECLIPSE_COLOR = "0xFF8F008F";
const char* const SUNLIGHT_COLOR = "0xFF00FFFF";
const char* const START_COLOR = "0xFFFFFFFF";

namespace {

// The classification's colour, as the Kepler converter writes it (AABBGGRR).
constexpr uint32_t CLASSIFICATION_COLOR = 0x8000ff00;
constexpr double TO_DEG = 180.0 / M_PI;

std::string number(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

void writeScenarioHeader(std::ostream& os, const TleSettings& settings, int referenceYear) {
  ScenarioUD header;
  header.setReferenceYear(referenceYear);
  header.setLatLonAlt(0.0, 0.0, 0.0);
  saveASIScenarioRequired(os, header, orvCore::LLA);
  saveASIClassification(os, settings.classification, CLASSIFICATION_COLOR);
  saveASIScenarioInfo(os, "Satellites of " + std::filesystem::path(settings.inputFile).filename().string());
  saveASIDegreeAngles(os, true);
}

// Platform, frame, categories and the generic data of the set, at the time
// of the track's first point.
void writePlatform(std::ostream& os, Propagator& satellite, const TrackPoint& firstPoint, uint64_t id,
                   const DataFormatUD& format) {
  saveASIPlatformRequired(os, id, satellite.name(), "gps_satellite");
  saveASIPlatformCoordFrame(os, id, orvCore::LLA, nullptr, nullptr, satellite.epochGmst());
  saveASICategoryData(os, id, -1.0, "Platform Type", "Satellite", format);
  saveASICategoryData(os, id, -1.0, "Data Format", "TLE", format);
  const double t = firstPoint.time;
  saveASIGenericData(os, id, "Satellite Number", std::to_string(satellite.idNumber()), t, -1.0, format);
  saveASIGenericData(os, id, "Launch Year", std::to_string(satellite.launchYear()), t, -1.0, format);
  saveASIGenericData(os, id, "Epoch Time",
                     UTILS::getTimeString(satellite.epochYear(), satellite.epochTime(), UTILS::UNITS_ORDINAL), t,
                     -1.0, format);
  saveASIGenericData(os, id, "Estimated Error (km)", number(satellite.estimatedError(firstPoint.secondsFromEpoch)),
                     t, -1.0, format);
}

void writeGog(std::ostream& gog, const std::vector<TrackPoint>& points, uint32_t color) {
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%08x", color);
  gog << "version 2\nstart\npoints\npointsize 2\ndepthbuffer true\naltitudeUnits meters\n";
  gog << "linecolor hex " << hex << "\n";
  for (const TrackPoint& p : points)
    gog << "lla " << p.lla[0] * TO_DEG << " " << p.lla[1] * TO_DEG << " " << p.lla[2] << "\n";
  gog << "end\n\n";
}

bool openForWriting(const std::string& path, std::ofstream& out, const char* what) {
  out.open(path, std::ios::out | std::ios::trunc);
  if (out) return true;
  ConversionLog::issue(std::string("Cannot write the ") + what + " <" + path + ">: " + std::strerror(errno));
  return false;
}

}  // namespace

std::string gogFileName(const std::string& satelliteName) {
  std::string name;
  for (char c : satelliteName) name += (c == '/' || c == '\\' || c == '\0' || c == ':') ? '_' : c;
  // "." and ".." name folders, not files.
  if (name.empty() || name.find_first_not_of('.') == std::string::npos) name = "_" + name;
  return name + ".gog";
}

int writeSatProp2ASI(Propagator& satellite, int points, const TimeFrame& frame, std::ostream& os, bool first,
                     const TleSettings& settings, uint64_t id, std::ostream* gog) {
  std::vector<TrackPoint> track;
  computeTrack(satellite, points, settings.step, frame, track);
  // With every track from its own epoch, a satellite whose epoch lies in a
  // year before the scenario's would have negative times, which the
  // language reads as static data: those points are left out.
  size_t early = 0;
  while (early < track.size() && track[early].time < 0.0) ++early;
  if (early > 0) {
    ConversionLog::issue(std::to_string(early) + " points of " + satellite.name() +
                         " before the start of the reference year " + std::to_string(frame.referenceYear) +
                         " were left out");
    track.erase(track.begin(), track.begin() + static_cast<std::ptrdiff_t>(early));
  }
  if (track.empty()) return 0;

  DataFormatUD format;
  format.setReferenceYear(frame.referenceYear);
  format.degreeAngles = true;
  format.setCoordSystem(orvCore::LLA);
  if (first) writeScenarioHeader(os, settings, frame.referenceYear);
  writePlatform(os, satellite, track.front(), id, format);

  const char* shown = START_COLOR;
  for (const TrackPoint& p : track) {
    saveASIPlatformData(os, id, p.time, format, p.lla, p.orientation, p.velocity);
    const char* color = p.eclipse ? ECLIPSE_COLOR : SUNLIGHT_COLOR;
    if (color != shown) {
      saveASIGenericData(os, id, "ORVIDE_TrackColor", color, p.time, -1.0, format);
      shown = color;
    }
  }
  if (gog) writeGog(*gog, track, settings.trackColor);
  return static_cast<int>(track.size());
}

int convert(const TleSettings& settings, ScenarioUD::PercentCallback* progress) {
  ParseTLE::TleMap sets;
  if (ParseTLE::parseTLEFile(settings, sets) != 0) return -1;
  if (sets.empty()) {
    ConversionLog::issue("No element sets found in TLE file <" + settings.inputFile + ">");
    return -1;
  }
  const std::string output = settings.outputFile.empty() ? settings.inputFile + ".asi" : settings.outputFile;
  std::ofstream os;
  if (!openForWriting(output, os, "ASI file")) return -2;
  os.precision(15);

  const int points = pointCount(settings);
  const ParseTLE::TwoLineElement& firstSet = sets.begin()->second;
  const TimeFrame frame = startTime(settings, PropagatorAIAA(firstSet.name, firstSet.line1, firstSet.line2));
  const std::filesystem::path folder = std::filesystem::path(output).parent_path();

  bool headerWritten = false;
  size_t done = 0;
  for (const auto& entry : sets) {
    if (progress && progress->updateProgress(static_cast<int>(100 * done++ / sets.size()))) return UD_USER_CANCEL;
    const ParseTLE::TwoLineElement& set = entry.second;
    PropagatorAIAA satellite(set.name, set.line1, set.line2);
    ConversionLog::notice("TLE: " + set.name);
    std::ostringstream gog;
    // A satellite's platform id is its catalogue number (unique in a file:
    // a repeated number is left out), so that the same satellite in another
    // file of one archive continues its platform and another never does.
    // A number that is no valid id gets one above the five-digit range.
    const uint64_t id = entry.first > 0 ? static_cast<uint64_t>(entry.first) : 100000 + done;
    // The header goes with the first satellite that has a point to write.
    if (writeSatProp2ASI(satellite, points, frame, os, !headerWritten, settings, id,
                         settings.writeGog ? &gog : nullptr) == 0)
      continue;
    headerWritten = true;
    if (!settings.writeGog) continue;
    const std::string gogPath = (folder / gogFileName(set.name)).string();
    std::ofstream gogFile;
    if (!openForWriting(gogPath, gogFile, "GOG file")) return -1;
    gogFile << gog.str();
    ConversionLog::notice("Wrote GOG : " + gogPath);
  }
  if (!headerWritten) {
    ConversionLog::issue("No satellite of TLE file <" + settings.inputFile + "> has a point to write");
    return -1;
  }
  os.flush();
  if (!os) {
    ConversionLog::issue("Cannot write the ASI file <" + output + ">: " + std::strerror(errno));
    return -1;
  }
  return 0;
}

}  // namespace TLE2ASI
