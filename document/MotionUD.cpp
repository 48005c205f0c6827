#include "document/MotionUD.h"

#include <cmath>
#include <iterator>

#include "core/Angle.h"
#include "core/CoordinateConverter.h"
#include "core/VectorMath.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"

namespace {

orvCore::Vec3 toEcef(const MotionStateUD& state) {
  orvCore::Vec3 ecef;
  orvCore::CoordinateConverter::convertGeodeticPosToEcef(orvCore::Vec3(state.lat, state.lon, state.alt), ecef);
  return ecef;
}

// The velocity east, north, up at `at` of the move from `from` to `to`
// (ECEF, altitudes `fromAlt`, `toAlt`) over `dt`: along the great circle
// between them, in the direction that the move has at `at`, and straight up
// by the change of altitude. The chord between the points dips below the
// surface; taken as it is, it would tilt a level track downward.
void greatCircleVelocity(const MotionStateUD& at, const orvCore::Vec3& from, double fromAlt, const orvCore::Vec3& to,
                         double toAlt, double dt, double out[3]) {
  const double dx = to[0] - from[0], dy = to[1] - from[1], dz = to[2] - from[2];
  const double sinLat = std::sin(at.lat), cosLat = std::cos(at.lat);
  const double sinLon = std::sin(at.lon), cosLon = std::cos(at.lon);
  const double east = -sinLon * dx + cosLon * dy;
  const double north = -sinLat * cosLon * dx - sinLat * sinLon * dy + cosLat * dz;
  const double across = std::hypot(east, north);
  const double radius = 0.5 * (std::sqrt(from[0] * from[0] + from[1] * from[1] + from[2] * from[2]) +
                               std::sqrt(to[0] * to[0] + to[1] * to[1] + to[2] * to[2]));
  // The angle between the points seen from the earth's centre, by atan2,
  // which stays exact for the metre steps of a dense track.
  const double cx = from[1] * to[2] - from[2] * to[1];
  const double cy = from[2] * to[0] - from[0] * to[2];
  const double cz = from[0] * to[1] - from[1] * to[0];
  const double dot = from[0] * to[0] + from[1] * to[1] + from[2] * to[2];
  const double speed = std::atan2(std::sqrt(cx * cx + cy * cy + cz * cz), dot) * radius / dt;
  out[0] = across > 0.0 ? speed * east / across : 0.0;
  out[1] = across > 0.0 ? speed * north / across : 0.0;
  out[2] = (toAlt - fromAlt) / dt;
}

int checkPlatformState(const MotionStateUD& s) {
  if (udIsBadValue(s.lat) || udIsBadValue(s.lon) || udIsBadValue(s.alt)) return UD_BAD_PLAT_POSITION;
  const double ori[3] = {s.yaw, s.pitch, s.roll};
  if (udIsBadValue(s.yaw) || udIsBadValue(s.pitch) || udIsBadValue(s.roll) || udIsBadAngle(ori))
    return UD_BAD_PLAT_ANGLE;
  if (udIsBadValue(s.velEast) || udIsBadValue(s.velNorth) || udIsBadValue(s.velUp)) return UD_BAD_PLAT_VELOCITY;
  if (const double* a = s.Acceleration())
    if (udIsBadValue(a[0]) || udIsBadValue(a[1]) || udIsBadValue(a[2])) return UD_BAD_PLAT_ACCELERATION;
  return UD_NO_ERROR;
}

}  // namespace

void LinearPlatMotionUD::AddEndPoint(double time) {
  if (states_.empty() || time <= states_.back().time) return;
  MotionStateUD last = states_.back();
  last.time = time;
  states_.add(std::move(last));
}

bool LinearPlatMotionUD::GetState(double time, MotionStateUD& out, bool interpolate) const {
  return states_.getState(time, out, interpolate, false, InterpolateMotionStateUD);
}

bool LinearPlatMotionUD::GetPointAfter(double time, MotionStateUD& out) const {
  const auto after = states_.upper_bound(time);
  if (after == states_.end()) return false;
  out = *after;
  return true;
}

bool LinearPlatMotionUD::GetPointBefore(double time, MotionStateUD& out) const {
  const auto at = states_.lower_bound(time);
  if (at == states_.begin()) return false;
  out = *std::prev(at);
  return true;
}

const MotionStateUD* LinearPlatMotionUD::EndPoint() const { return states_.empty() ? nullptr : &states_.back(); }

void LinearPlatMotionUD::findSpeed_(MotionStateUD& state, const MotionStateUD& from, const orvCore::Vec3& fromEcef,
                                    const MotionStateUD& to, const orvCore::Vec3& toEcef) {
  const double dt = to.time - from.time;
  if (!(dt > 0.0)) {
    state.SetVelocity(0.0, 0.0, 0.0);
    return;
  }
  double velocity[3];
  greatCircleVelocity(state, fromEcef, from.alt, toEcef, to.alt, dt, velocity);
  state.SetVelocity(velocity[0], velocity[1], velocity[2]);
}

void LinearPlatMotionUD::CalculateVelocities() {
  const size_t count = states_.size();
  if (count == 0) return;
  const auto s = states_.begin();
  if (count == 1) {
    if (!s->velocityGiven()) s->SetSpeed(0.0);
    return;
  }
  if (hasVelocity_) {
    calculateMissingVelocities_();
    return;
  }
  // Each state's velocity is that of the step from the state before it; the
  // first takes the step to the second. Each position goes to ECEF once: it
  // ends one step and starts the next.
  orvCore::Vec3 from = toEcef(s[0]);
  orvCore::Vec3 to = toEcef(s[1]);
  findSpeed_(s[0], s[0], from, s[1], to);
  for (size_t i = 1; i < count; ++i) {
    if (i > 1) {
      from = to;
      to = toEcef(s[static_cast<std::ptrdiff_t>(i)]);
    }
    const auto at = static_cast<std::ptrdiff_t>(i);
    findSpeed_(s[at], s[at - 1], from, s[at], to);
  }
}

void LinearPlatMotionUD::calculateMissingVelocities_() {
  // A track that gives speeds on some points only: the others are derived,
  // the given ones stand. The ECEF of the state before is kept while a run
  // of derived states goes on.
  const size_t count = states_.size();
  const auto s = states_.begin();
  orvCore::Vec3 previous;
  size_t previousIndex = count;
  for (size_t i = 0; i < count; ++i) {
    const auto at = static_cast<std::ptrdiff_t>(i);
    if (s[at].velocityGiven()) continue;
    // The first state takes the step to the second, the others the step from the state before.
    const auto from = at == 0 ? 0 : at - 1;
    const auto to = at == 0 ? 1 : at;
    const orvCore::Vec3 fromEcef = previousIndex == static_cast<size_t>(from) ? previous : toEcef(s[from]);
    const orvCore::Vec3 toEcefPos = toEcef(s[to]);
    findSpeed_(s[at], s[from], fromEcef, s[to], toEcefPos);
    previous = toEcefPos;
    previousIndex = static_cast<size_t>(to);
  }
}

void LinearPlatMotionUD::CalculateFlightPathAnglePitch() {
  for (MotionStateUD& s : states_) {
    const double horizontal = std::hypot(s.velEast, s.velNorth);
    if (horizontal == 0.0 && s.velUp == 0.0) continue;
    s.SetPitch(std::atan2(s.velUp, horizontal));
  }
}

void LinearPlatMotionUD::cull(double degrees) {
  const double tolerance = std::fabs(orvCore::angFix(degrees * M_PI / 180.0, orvCore::AE_PLUSMINUS_PI));
  if (states_.size() < 3) return;
  auto deviation = [](double x, double y) { return std::fabs(orvCore::angFix(x - y, orvCore::AE_PLUSMINUS_PI)); };
  // Compacts in place: `kept` is one past the last state kept, the previous
  // point of each triple; the next point lies beyond the cursor, untouched.
  auto kept = std::next(states_.begin());
  const auto last = std::prev(states_.end());
  for (auto current = kept; current != last; ++current) {
    const MotionStateUD& p = *std::prev(kept);
    const MotionStateUD& s = *current;
    const orvCore::Vec3 a = toEcef(p);
    const orvCore::Vec3 b = toEcef(*std::next(current));
    // Previous and next seen from the earth's centre, and the attitude,
    // all within the tolerance: the point between them adds nothing.
    const bool steady = deviation(s.yaw, p.yaw) <= tolerance && deviation(s.pitch, p.pitch) <= tolerance &&
                        deviation(s.roll, p.roll) <= tolerance;
    if (steady && orvCore::v3Angle(a, b) <= tolerance) continue;
    if (kept != current) *kept = std::move(*current);
    ++kept;
  }
  if (kept != last) *kept = std::move(*last);
  states_.erase(std::next(kept), states_.end());
}

bool LinearPlatMotionUD::DeleteItem(double time) { return states_.erase(time); }

int LinearPlatMotionUD::Valid(const DataFormatUD&) const {
  if (states_.empty()) return UD_NO_MOTION;
  for (const MotionStateUD& state : states_)
    if (int code = checkPlatformState(state)) return code;
  return UD_NO_ERROR;
}

bool LinearBeamMotionUD::GetState(double time, BeamStateUD& out, bool interpolate) const {
  return states_.getState(time, out, interpolate, true, InterpolateBeamStateUD);
}

const BeamStateUD* LinearBeamMotionUD::EndPoint() const { return states_.empty() ? nullptr : &states_.back(); }

int LinearBeamMotionUD::Valid(const DataFormatUD&) const {
  if (states_.empty()) return UD_NO_MOTION;
  for (const BeamStateUD& s : states_) {
    if (udIsBadValue(s.azimuth) || udIsBadAngle(s.azimuth)) return UD_BAD_BEAM_AZIMUTH;
    if (udIsBadValue(s.elevation) || udIsBadElevAngle(s.elevation)) return UD_BAD_BEAM_ELEVATION;
    if (udIsBadValue(s.range) || s.range < 0.0) return UD_BAD_BEAM_RANGE;
  }
  return UD_NO_ERROR;
}

bool BodyBeamMotionUD::GetState(double time, BeamStateUD& out, const MotionStateUD* host, bool interpolate) const {
  if (!LinearBeamMotionUD::GetState(time, out, interpolate)) return false;
  if (host == nullptr || (host->yaw == 0.0 && host->pitch == 0.0 && host->roll == 0.0)) return true;
  // The beam's pointing in the body frame, turned into the local level frame.
  const orvCore::Vec3 body(std::cos(out.elevation) * std::cos(out.azimuth),
                           std::cos(out.elevation) * std::sin(out.azimuth), -std::sin(out.elevation));
  double dcm[3][3];
  orvCore::d3EulertoDCM(orvCore::Vec3(host->yaw, host->pitch, host->roll), dcm);
  orvCore::Vec3 local;
  orvCore::d3MTv3Mult(dcm, body, local);
  out.azimuth = orvCore::angFix(std::atan2(local[1], local[0]), orvCore::AE_ZERO_TWOPI);
  out.elevation = std::atan2(-local[2], std::hypot(local[0], local[1]));
  return true;
}

bool TargetBeamMotionUD::GetState(double time, const MotionStateUD& host, const MotionStateUD* target,
                                  BeamStateUD& out) {
  if (target == nullptr) return false;
  const orvCore::Vec3 h = toEcef(host);
  const orvCore::Vec3 t = toEcef(*target);
  const double d[3] = {t[0] - h[0], t[1] - h[1], t[2] - h[2]};
  const double sinLat = std::sin(host.lat), cosLat = std::cos(host.lat);
  const double sinLon = std::sin(host.lon), cosLon = std::cos(host.lon);
  const double east = -sinLon * d[0] + cosLon * d[1];
  const double north = -sinLat * cosLon * d[0] - sinLat * sinLon * d[1] + cosLat * d[2];
  const double up = cosLat * cosLon * d[0] + cosLat * sinLon * d[1] + sinLat * d[2];
  out.time = time;
  out.range = std::sqrt(east * east + north * north + up * up);
  out.azimuth = orvCore::angFix(std::atan2(east, north), orvCore::AE_ZERO_TWOPI);
  out.elevation = std::atan2(up, std::hypot(east, north));
  return true;
}

bool LinearGateMotionUD::GetState(double time, GateStateUD& out, bool interpolate) const {
  return states_.getState(time, out, interpolate, false, InterpolateGateStateUD);
}

int LinearGateMotionUD::Valid(const DataFormatUD&) const {
  if (states_.empty()) return UD_NO_MOTION;
  for (const GateStateUD& s : states_) {
    if (udIsBadValue(s.azimuth) || udIsBadAngle(s.azimuth)) return UD_BAD_GATE_AZIMUTH;
    if (udIsBadValue(s.elevation) || udIsBadElevAngle(s.elevation)) return UD_BAD_GATE_ELEVATION;
    if (udIsBadValue(s.width) || udIsBadAngle(s.width)) return UD_BAD_GATE_WIDTH;
    if (udIsBadValue(s.height) || udIsBadElevAngle(s.height)) return UD_BAD_GATE_HEIGHT;
    if (udIsBadValue(s.minRange)) return UD_BAD_GATE_MIN_RANGE;
    if (udIsBadValue(s.maxRange)) return UD_BAD_GATE_MAX_RANGE;
    if (udIsBadValue(s.centroid)) return UD_BAD_GATE_CENTROID;
  }
  return UD_NO_ERROR;
}

bool LOBMotionUD::deleteState(double time, double range, double azimuth, double elevation) {
  auto at = states_.find(time);
  if (at == states_.end()) return false;
  for (auto it = at->second.begin(); it != at->second.end(); ++it)
    if (it->range == range && it->azimuth == azimuth && it->elevation == elevation) {
      at->second.erase(it);
      if (at->second.empty()) states_.erase(at);
      return true;
    }
  return false;
}

double LOBMotionUD::StartTime() const { return states_.empty() ? UD_NO_TIME : states_.begin()->first; }
double LOBMotionUD::EndTime() const { return states_.empty() ? UD_NO_TIME : states_.rbegin()->first; }

size_t LOBMotionUD::Size() const {
  size_t total = 0;
  for (const auto& entry : states_) total += entry.second.size();
  return total;
}

int LOBMotionUD::Valid(const DataFormatUD&) const {
  if (states_.empty()) return UD_NO_MOTION;
  for (const auto& entry : states_)
    for (const LOBStateUD& s : entry.second) {
      if (udIsBadValue(s.azimuth) || udIsBadAngle(s.azimuth)) return UD_BAD_LOB_AZIMUTH;
      if (udIsBadValue(s.elevation) || udIsBadElevAngle(s.elevation)) return UD_BAD_LOB_ELEVATION;
      if (udIsBadValue(s.range)) return UD_BAD_LOB_RANGE;
    }
  return UD_NO_ERROR;
}
