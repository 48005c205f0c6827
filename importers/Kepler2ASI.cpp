#include "importers/Kepler2ASI.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "document/ASIOutput.h"
#include "document/ScenarioUD.h"
#include "importers/ConversionLog.h"
#include "importers/KeplerFile.h"

namespace KEPLER2ASI {

namespace {

constexpr double DEG = M_PI / 180.0;

// The output beside the input. Only the last component of "otfile" is
// kept, so that a file can't make the loader write into another folder.
bool outputPath(const std::string& fileName, const KeplerInput& input, std::string& path) {
  const std::filesystem::path in(fileName);
  const std::filesystem::path name =
      input.outputFile.empty() ? std::filesystem::path(in.filename().string() + ".asi")
                                : std::filesystem::path(input.outputFile).filename();
  if (name.empty() || name == "." || name == ".." || name == in.filename()) {
    ConversionLog::issue("Invalid output file name (" + input.outputFile + ")");
    return false;
  }
  path = (in.parent_path() / name).string();
  return true;
}

void writeHeader(std::ostream& os, const KeplerInput& input) {
  ScenarioUD header;
  header.setLatLonAlt(input.latRef * DEG, input.lonRef * DEG, 0.0);
  saveASIScenarioRequired(os, header, orvCore::LLA);
  saveASIClassification(os, "UNCLASSIFIED", 0x8000ff00);
  saveASIScenarioInfo(os, "Kepler propagation");
  saveASIDegreeAngles(os, true);
}

void writeTrajectory(std::ostream& os, const std::vector<KeplerPoint>& points) {
  DataFormatUD format;
  format.setReferenceYear(ScenarioUD().referenceYear());
  format.degreeAngles = true;
  format.setCoordSystem(orvCore::LLA);
  const uint64_t id = 1;
  saveASIPlatformRequired(os, id, "Rocket", "ss-1c_scud");
  saveASICategoryData(os, id, -1.0, "Platform Type", "Missile", format);
  for (const KeplerPoint& p : points) {
    const double position[3] = {p.lat, p.lon, p.alt};
    // A ballistic point is its position and velocity: the orientation
    // columns stay 0 (the propagator's yaw and pitch are not written).
    const double velocity[3] = {p.velEast, p.velNorth, p.velUp};
    saveASIPlatformData(os, id, p.time, format, position, nullptr, velocity);
  }
}

}  // namespace

int convert(const std::string& fileName, double timeOffset, std::string* outputFile) {
  if (fileName.empty()) {
    ConversionLog::issue("No Kepler file specified");
    return -1;
  }
  std::ifstream in(fileName);
  if (!in) {
    ConversionLog::issue("Could not open (" + fileName + ")");
    return -1;
  }
  KeplerInput input;
  if (readKeplerFile(in, input) != 0) return -1;
  if (!(std::fabs(input.latRef) <= 90.0) || !(std::fabs(input.lonRef) <= 360.0)) {
    ConversionLog::issue("Invalid reference origin detected (latref " + std::to_string(input.latRef) + ", lonref " +
                         std::to_string(input.lonRef) + ")");
    return -1;
  }

  std::vector<KeplerPoint> points;
  const int propagated = computeTrajectory(input, timeOffset, points);

  std::string path;
  if (!outputPath(fileName, input, path)) return -1;
  if (outputFile) *outputFile = path;
  std::ofstream os(path, std::ios::out | std::ios::trunc);
  if (!os) {
    ConversionLog::issue("Cannot write the ASI file <" + path + ">: " + std::strerror(errno));
    return -1;
  }
  os.precision(15);
  writeHeader(os, input);
  if (!points.empty()) writeTrajectory(os, points);
  os.flush();
  if (!os) {
    ConversionLog::issue("Cannot write the ASI file <" + path + ">: " + std::strerror(errno));
    return -1;
  }
  ConversionLog::notice("Finished writing: " + path);
  if (propagated != 0) return -1;
  if (points.empty()) {
    ConversionLog::issue("No point of the trajectory is kept: it never passes the event height, or ends at once");
    return -1;
  }
  return 0;
}

}  // namespace KEPLER2ASI
