#pragma once
// Coordinate: a position in one named coordinate system, with optional
// orientation, velocity and acceleration, and the elapsed time that ties an
// ECI position to the rotating earth.
//
// Units: LLA positions are latitude and longitude in radians and altitude in
// meters; every other system is in meters. Orientation is yaw, pitch, roll in
// radians. In LLA, velocity and acceleration are in the local east, north, up
// order; in the flat frames (NED, NWU, ENU) they follow the frame's own axes.

#include <string>

#include "core/Vec3.h"

namespace orvCore {

enum CoordinateSystem {
  NONE = 0,
  NED = 1,    // flat earth about the origin: north, east, down
  NWU = 2,    // flat earth: north, west, up
  ENU = 3,    // flat earth: east, north, up
  LLA = 4,    // geodetic latitude, longitude, altitude (WGS-84)
  ECEF = 5,   // earth-centred, earth-fixed
  ECI = 6,    // earth-centred inertial, aligned with ECEF at elapsed time 0
  XEAST = 7,  // tangent plane touching the ellipsoid at the origin, x east
  GTP = 8     // XEAST with offsets and a rotation about the vertical
};

// "NED", "NWU", ..., "GTP"; "" for NONE; the number for any other value.
std::string coordinateSystemName(CoordinateSystem system);
// The label for selection lists: as above, but "X-East" and "Generic".
std::string coordinateSystemLabel(CoordinateSystem system);

class Coordinate {
 public:
  Coordinate() = default;
  Coordinate(CoordinateSystem system, const Vec3& position, double elapsedEciTime = 0.0);
  Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation,
             double elapsedEciTime = 0.0);
  Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation, const Vec3& velocity,
             double elapsedEciTime = 0.0);
  Coordinate(CoordinateSystem system, const Vec3& position, const Vec3& orientation, const Vec3& velocity,
             const Vec3& acceleration, double elapsedEciTime = 0.0);
  virtual ~Coordinate() = default;

  Coordinate(const Coordinate&) = default;
  Coordinate& operator=(const Coordinate&) = default;

  CoordinateSystem system() const { return system_; }
  const Vec3& position() const { return position_; }
  const Vec3& orientation() const { return orientation_; }
  const Vec3& velocity() const { return velocity_; }
  const Vec3& acceleration() const { return acceleration_; }
  double elapsedEciTime() const { return elapsedEciTime_; }
  bool hasOrientation() const { return hasOrientation_; }
  bool hasVelocity() const { return hasVelocity_; }
  bool hasAcceleration() const { return hasAcceleration_; }

  void setSystem(CoordinateSystem system) { system_ = system; }
  void setPosition(const Vec3& position) { position_ = position; }
  void setPosition(double x, double y, double z) { position_.set(x, y, z); }
  // The setters below raise the field's flag.
  void setOrientation(const Vec3& orientation) {
    orientation_ = orientation;
    hasOrientation_ = true;
  }
  void setOrientation(double yaw, double pitch, double roll) { setOrientation(Vec3(yaw, pitch, roll)); }
  void setVelocity(const Vec3& velocity) {
    velocity_ = velocity;
    hasVelocity_ = true;
  }
  void setVelocity(double x, double y, double z) { setVelocity(Vec3(x, y, z)); }
  void setAcceleration(const Vec3& acceleration) {
    acceleration_ = acceleration;
    hasAcceleration_ = true;
  }
  void setAcceleration(double x, double y, double z) { setAcceleration(Vec3(x, y, z)); }
  void setElapsedEciTime(double seconds) { elapsedEciTime_ = seconds; }

  // Back to the default: no system, zeros, no flags, ECI time 0.
  void clear();
  // clear(), then the system and the ECI time.
  void clear(CoordinateSystem system, double elapsedEciTime);

 private:
  CoordinateSystem system_ = NONE;
  Vec3 position_;
  Vec3 orientation_;
  Vec3 velocity_;
  Vec3 acceleration_;
  double elapsedEciTime_ = 0.0;
  bool hasOrientation_ = false;
  bool hasVelocity_ = false;
  bool hasAcceleration_ = false;
};

}  // namespace orvCore
