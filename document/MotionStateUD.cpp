#include "document/MotionStateUD.h"

#include <cmath>

#include "core/Angle.h"
#include "core/CoordinateConverter.h"

namespace {

constexpr double kTwoPi = 2.0 * M_PI;
static_assert(alignof(std::array<double, 3>) > 1, "the velocity-given mark needs the pointer's low bit");

// Moves `before` toward `after` by `fraction` the short way round; both in [0, 2 pi).
double shortWay(double before, double after, double fraction) {
  const double d = after - before;
  if (d == 0.0) return before;
  if (std::fabs(d) < M_PI) return before + fraction * d;
  if (d > 0.0) return before - fraction * (kTwoPi - d);
  return before + fraction * (kTwoPi + d);
}

}  // namespace

MotionStateUD::MotionStateUD(double t, const double* position, const double* orientation) : BaseMotionStateUD(t) {
  if (position) SetLLA(position[0], position[1], position[2]);
  if (orientation) SetOrientation(orientation[0], orientation[1], orientation[2]);
}

MotionStateUD::MotionStateUD(const MotionStateUD& other)
    : BaseMotionStateUD(other.time),
      lat(other.lat), lon(other.lon), alt(other.alt),
      yaw(other.yaw), pitch(other.pitch), roll(other.roll),
      velEast(other.velEast), velNorth(other.velNorth), velUp(other.velUp),
      extras_(other.extras_ & kVelocityGiven) {
  if (const Acceleration3* a = other.acceleration_()) extras_ |= reinterpret_cast<uintptr_t>(new Acceleration3(*a));
}

MotionStateUD::MotionStateUD(MotionStateUD&& other) noexcept
    : BaseMotionStateUD(other.time),
      lat(other.lat), lon(other.lon), alt(other.alt),
      yaw(other.yaw), pitch(other.pitch), roll(other.roll),
      velEast(other.velEast), velNorth(other.velNorth), velUp(other.velUp),
      extras_(other.extras_) {
  other.extras_ = 0;
}

MotionStateUD& MotionStateUD::operator=(const MotionStateUD& other) {
  if (this != &other) {
    MotionStateUD copy(other);
    *this = std::move(copy);
  }
  return *this;
}

MotionStateUD& MotionStateUD::operator=(MotionStateUD&& other) noexcept {
  if (this != &other) {
    delete acceleration_();
    time = other.time;
    lat = other.lat, lon = other.lon, alt = other.alt;
    yaw = other.yaw, pitch = other.pitch, roll = other.roll;
    velEast = other.velEast, velNorth = other.velNorth, velUp = other.velUp;
    extras_ = other.extras_;
    other.extras_ = 0;
  }
  return *this;
}

MotionStateUD::~MotionStateUD() { delete acceleration_(); }

void MotionStateUD::SetLLA(double la, double lo, double al) {
  lat = orvCore::angFix(la, orvCore::AE_PLUSMINUS_PI);
  lon = orvCore::angFix(lo, orvCore::AE_PLUSMINUS_PI);
  alt = al;
}

void MotionStateUD::SetYaw(double value) { yaw = orvCore::angFix(value, orvCore::AE_ZERO_TWOPI); }
void MotionStateUD::SetPitch(double value) { pitch = orvCore::angFix(value, orvCore::AE_PLUSMINUS_PI); }
void MotionStateUD::SetRoll(double value) { roll = orvCore::angFix(value, orvCore::AE_PLUSMINUS_PI); }

void MotionStateUD::SetOrientation(double y, double p, double r) {
  SetYaw(y);
  SetPitch(p);
  SetRoll(r);
}

void MotionStateUD::SetSpeed(double speed) {
  if (speed < 0.0) return;
  velEast = speed * std::cos(pitch) * std::sin(yaw);
  velNorth = speed * std::cos(pitch) * std::cos(yaw);
  velUp = speed * std::sin(pitch);
}

void MotionStateUD::SetVelocity(double east, double north, double up) {
  velEast = east;
  velNorth = north;
  velUp = up;
}

void MotionStateUD::SetAcceleration(const double* acceleration) {
  Acceleration3* a = acceleration_();
  if (!acceleration) {
    delete a;
    extras_ &= kVelocityGiven;
    return;
  }
  if (!a) {
    a = new Acceleration3();
    extras_ |= reinterpret_cast<uintptr_t>(a);
  }
  (*a)[0] = acceleration[0];
  (*a)[1] = acceleration[1];
  (*a)[2] = acceleration[2];
}

double MotionStateUD::Speed() const { return std::sqrt(velEast * velEast + velNorth * velNorth + velUp * velUp); }

GateStateUD::GateStateUD(double t, double az, double el, double w, double h, double minR, double maxR, double c)
    : BaseMotionStateUD(t), width(w), height(h), minRange(minR), maxRange(maxR), centroid(c) {
  SetAzimuth(az);
  SetElevation(el);
}

void GateStateUD::SetAzimuth(double az) { azimuth = orvCore::angFix(az, orvCore::AE_ZERO_TWOPI); }
void GateStateUD::SetElevation(double el) { elevation = orvCore::angFix(el, orvCore::AE_PLUSMINUS_PI); }

void InterpolateMotionStateUD(const MotionStateUD& before, const MotionStateUD& after, double time,
                              MotionStateUD& out) {
  const double fraction = (time - before.time) / (after.time - before.time);
  out.time = time;

  orvCore::Vec3 a;
  orvCore::Vec3 b;
  orvCore::CoordinateConverter::convertGeodeticPosToEcef(orvCore::Vec3(before.lat, before.lon, before.alt), a);
  orvCore::CoordinateConverter::convertGeodeticPosToEcef(orvCore::Vec3(after.lat, after.lon, after.alt), b);
  const orvCore::Vec3 ecef(a[0] + fraction * (b[0] - a[0]), a[1] + fraction * (b[1] - a[1]),
                           a[2] + fraction * (b[2] - a[2]));
  orvCore::Vec3 lla;
  orvCore::CoordinateConverter::convertEcefToGeodeticPos(ecef, lla);
  // The chord between the points cuts below the ellipsoid: altitude is
  // interpolated on its own.
  out.SetLLA(lla[0], lla[1], before.alt + fraction * (after.alt - before.alt));

  const double roll = shortWay(orvCore::angFix(before.roll, orvCore::AE_ZERO_TWOPI),
                               orvCore::angFix(after.roll, orvCore::AE_ZERO_TWOPI), fraction);
  const double pitch = shortWay(orvCore::angFix(before.pitch, orvCore::AE_ZERO_TWOPI),
                                orvCore::angFix(after.pitch, orvCore::AE_ZERO_TWOPI), fraction);
  const double yaw = shortWay(orvCore::angFix(before.yaw, orvCore::AE_ZERO_TWOPI),
                              orvCore::angFix(after.yaw, orvCore::AE_ZERO_TWOPI), fraction);
  out.SetRoll(roll);
  out.SetPitch(pitch);
  out.SetYaw(yaw);

  out.SetVelocity(before.velEast + fraction * (after.velEast - before.velEast),
                  before.velNorth + fraction * (after.velNorth - before.velNorth),
                  before.velUp + fraction * (after.velUp - before.velUp));
  const double* ab = before.Acceleration();
  const double* aa = after.Acceleration();
  if (ab && aa) {
    const double acceleration[3] = {ab[0] + fraction * (aa[0] - ab[0]), ab[1] + fraction * (aa[1] - ab[1]),
                                    ab[2] + fraction * (aa[2] - ab[2])};
    out.SetAcceleration(acceleration);
  }
}

double checkZeroCrossing(double fraction, double after, double before) {
  const double d = after - before;
  if (std::fabs(d) <= M_PI) return fraction * d + before;
  if (after > before) return fraction * (after - before - kTwoPi) + before + kTwoPi;
  return fraction * (after + kTwoPi - before) + before;
}

void InterpolateBeamStateUD(const BeamStateUD& before, const BeamStateUD& after, double time, BeamStateUD& out) {
  const double fraction = (time - before.time) / (after.time - before.time);
  out.time = time;
  out.azimuth = checkZeroCrossing(fraction, after.azimuth, before.azimuth);
  out.elevation = checkZeroCrossing(fraction, after.elevation, before.elevation);
  out.range = before.range + fraction * (after.range - before.range);
}

void InterpolateGateStateUD(const GateStateUD& before, const GateStateUD& after, double time, GateStateUD& out) {
  const double fraction = (time - before.time) / (after.time - before.time);
  auto lerp = [fraction](double a, double b) { return a + fraction * (b - a); };
  out.time = time;
  out.azimuth = checkZeroCrossing(fraction, after.azimuth, before.azimuth);
  out.elevation = checkZeroCrossing(fraction, after.elevation, before.elevation);
  out.width = lerp(before.width, after.width);
  out.height = lerp(before.height, after.height);
  out.minRange = lerp(before.minRange, after.minRange);
  out.maxRange = lerp(before.maxRange, after.maxRange);
  out.centroid = lerp(before.centroid, after.centroid);
}
