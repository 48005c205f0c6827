#pragma once
// The Kepler keyword file (.kp): one ballistic state vector, the run's times
// and how much of the trajectory to keep; and the trajectory it gives.

#include <iosfwd>
#include <string>
#include <vector>

namespace KEPLER2ASI {

struct KeplerInput {
  int mode = 0;             // "ind": 1 to 4; 0 (not given) is refused
  double tzero = 0.0;       // seconds
  double tend = 0.0;
  double dt = 0.0;
  double eventHeight = 0.0;  // "hgd", kept in metres
  std::string outputFile;    // "otfile"
  double latRef = 22.5;      // degrees
  double lonRef = -160.0;
  bool haveState = false;
  double stateTime = 0.0;
  double state[6] = {0, 0, 0, 0, 0, 0};  // Earth-fixed, ft and ft/s
};

// One written point: time (s), latitude and longitude (radians), altitude
// (m), yaw, pitch (radians), east, north, up velocity (m/s).
struct KeplerPoint {
  double time, lat, lon, alt, yaw, pitch, velEast, velNorth, velUp;
};

// Reads the keywords; 0 on success, -1 after the message of the first bad
// line (or of a missing value, named at the file's last line).
int readKeplerFile(std::istream& in, KeplerInput& input);

// Propagates the run and keeps the points that the mode and the event
// height select, each with time timeOffset + tzero + its time in the run.
// 0 on success, -1 after a failure message (the points kept so far stay).
int computeTrajectory(const KeplerInput& input, double timeOffset, std::vector<KeplerPoint>& points);

}  // namespace KEPLER2ASI
