#include "core/Coordinate.h"

namespace orvCore {

std::string coordinateSystemName(CoordinateSystem system) {
  switch (system) {
    case NONE: return "";
    case NED: return "NED";
    case NWU: return "NWU";
    case ENU: return "ENU";
    case LLA: return "LLA";
    case ECEF: return "ECEF";
    case ECI: return "ECI";
    case XEAST: return "XEAST";
    case GTP: return "GTP";
  }
  return std::to_string(static_cast<int>(system));
}

std::string coordinateSystemLabel(CoordinateSystem system) {
  if (system == XEAST) return "X-East";
  if (system == GTP) return "Generic";
  return coordinateSystemName(system);
}

Coordinate::Coordinate(CoordinateSystem system, const Vec3& position, double elapsedEciTime)
    : system_(system), position_(position), elapsedEciTime_(elapsedEciTime) {}

Coordinate::Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation,
                       double elapsedEciTime)
    : Coordinate(system, position, elapsedEciTime) {
  setOrientation(orientation);
}

Coordinate::Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation,
                       const Vec3& velocity, double elapsedEciTime)
    : Coordinate(system, position, orientation, elapsedEciTime) {
  setVelocity(velocity);
}

Coordinate::Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation,
                       const Vec3& velocity, const Vec3& acceleration, double elapsedEciTime)
    : Coordinate(system, position, orientation, velocity, elapsedEciTime) {
  setAcceleration(acceleration);
}

void Coordinate::clear() { *this = Coordinate(); }

void Coordinate::clear(CoordinateSystem system, double elapsedEciTime) {
  clear();
  system_ = system;
  elapsedEciTime_ = elapsedEciTime;
}

}  // namespace orvCore
