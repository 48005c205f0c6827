#pragma once
// The time-tagged states of the document's objects. Times are seconds since
// the reference year (-1 marks a static state); angles are radians.

#include <array>
#include <cstdint>

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
  MotionStateUD(MotionStateUD&& other) noexcept;
  MotionStateUD& operator=(MotionStateUD&& other) noexcept;
  ~MotionStateUD() override;

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
  const double* Acceleration() const {
    const auto* a = acceleration_();
    return a ? a->data() : nullptr;
  }
  // Whether the file gave this state's velocity; a state without one has
  // its velocity derived from its neighbours before it is sent.
  bool velocityGiven() const { return (extras_ & kVelocityGiven) != 0; }
  void setVelocityGiven(bool given) { extras_ = given ? extras_ | kVelocityGiven : extras_ & ~kVelocityGiven; }

  double lat = 0.0, lon = 0.0, alt = 0.0;
  double yaw = 0.0, pitch = 0.0, roll = 0.0;
  double velEast = 0.0, velNorth = 0.0, velUp = 0.0;

 private:
  using Acceleration3 = std::array<double, 3>;
  static constexpr uintptr_t kVelocityGiven = 1;
  Acceleration3* acceleration_() const { return reinterpret_cast<Acceleration3*>(extras_ & ~kVelocityGiven); }

  // The owned acceleration (null when none) and, in the pointer's low bit
  // that the array's alignment leaves free, the velocity-given mark: states
  // are held by the million, and one word keeps a state at 96 bytes.
  uintptr_t extras_ = 0;
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
