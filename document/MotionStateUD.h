#pragma once
// The time-tagged states of the document's objects. Times are seconds since
// the reference year (-1 marks a static state); angles are radians.

#include <array>
#include <memory>

class BaseMotionStateUD {
 public:
  explicit BaseMotionStateUD(double t = 0.0) : time(t) {}
  virtual ~BaseMotionStateUD() = default;
  double time;
};

// A platform state: geodetic position, orientation, velocity east-north-up
// and, optionally, acceleration.
class MotionStateUD : public BaseMotionStateUD {
 public:
  MotionStateUD() = default;
  // Either array may be null; a null one leaves zeros.
  MotionStateUD(double t, const double* position, const double* orientation);
  MotionStateUD(const MotionStateUD& other);
  MotionStateUD& operator=(const MotionStateUD& other);
  MotionStateUD(MotionStateUD&&) noexcept = default;
  MotionStateUD& operator=(MotionStateUD&&) noexcept = default;

  // Latitude and longitude wrapped to [-pi, pi].
  void SetLLA(double lat, double lon, double alt);
  void SetYaw(double yaw);
  void SetPitch(double pitch);
  void SetRoll(double roll);
  void SetOrientation(double yaw, double pitch, double roll);
  // Rebuilds the velocity from yaw and pitch; a negative speed is ignored.
  void SetSpeed(double speed);
  void SetVelocity(double east, double north, double up);
  void SetAcceleration(const double* acceleration);
  double Speed() const;
  const double* Acceleration() const { return acceleration_ ? acceleration_->data() : nullptr; }

  double lat = 0.0, lon = 0.0, alt = 0.0;
  double yaw = 0.0, pitch = 0.0, roll = 0.0;
  double velEast = 0.0, velNorth = 0.0, velUp = 0.0;

 private:
  std::unique_ptr<std::array<double, 3>> acceleration_;
};

class BeamStateUD : public BaseMotionStateUD {
 public:
  BeamStateUD() = default;
  BeamStateUD(double t, double r, double az, double el) : BaseMotionStateUD(t), range(r), azimuth(az), elevation(el) {}
  void SetRAE(double r, double az, double el) {
    range = r;
    azimuth = az;
    elevation = el;
  }
  double range = 0.0, azimuth = 0.0, elevation = 0.0;
};

class GateStateUD : public BaseMotionStateUD {
 public:
  GateStateUD() = default;
  GateStateUD(double t, double az, double el, double w, double h, double minR, double maxR, double c);
  // [0, 2 pi)
  void SetAzimuth(double az);
  // [-pi, pi]
  void SetElevation(double el);
  double azimuth = 0.0, elevation = 0.0, width = 0.0, height = 0.0;
  double minRange = 0.0, maxRange = 0.0, centroid = 0.0;
};

class LOBStateUD : public BaseMotionStateUD {
 public:
  LOBStateUD() = default;
  LOBStateUD(double t, double r, double az, double el) : BaseMotionStateUD(t), azimuth(az), elevation(el), range(r) {}
  void setRae(double r, double az, double el) {
    range = r;
    azimuth = az;
    elevation = el;
  }
  double azimuth = 0.0, elevation = 0.0, range = 0.0;
};

// Interpolates between two states at `time` (between their times). Position
// goes through ECEF for latitude and longitude, altitude straight; angles
// take the short way round.
void InterpolateMotionStateUD(const MotionStateUD& before, const MotionStateUD& after, double time,
                              MotionStateUD& out);
void InterpolateBeamStateUD(const BeamStateUD& before, const BeamStateUD& after, double time, BeamStateUD& out);
void InterpolateGateStateUD(const GateStateUD& before, const GateStateUD& after, double time, GateStateUD& out);
// An angle between `before` and `after` at `fraction`, across the 2 pi seam
// when they lie more than pi apart.
double checkZeroCrossing(double fraction, double after, double before);
