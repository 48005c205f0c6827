#include "document/PlatformUD.h"

#include <algorithm>

#include "document/BeamUD.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/CustomRenderingUD.h"
#include "document/ErrorCodesUD.h"
#include "document/LOBGroupUD.h"
#include "document/LaserUD.h"
#include "document/ScenarioUD.h"

namespace {

template <typename T>
T* findById(const std::vector<T*>& list, uint64_t id) {
  for (T* item : list)
    if (item->UniqueID() == id) return item;
  return nullptr;
}

template <typename T>
void removeById(std::vector<T*>& list, uint64_t id) {
  list.erase(std::remove_if(list.begin(), list.end(), [id](T* item) { return item->UniqueID() == id; }), list.end());
}

bool badTriple(const double* v) { return v && (udIsBadValue(v[0]) || udIsBadValue(v[1]) || udIsBadValue(v[2])); }

}  // namespace

PlatformUD::PlatformUD(ScenarioUD* scenario, std::unique_ptr<PlatformHeaderUD> header)
    : ObjectLAUD(scenario, OBJECT_PLATFORM, std::move(header)) {
  SetMotion(std::make_unique<LinearPlatMotionUD>());
  interpolate_ = Header()->defaultInterpolation;
}

int PlatformUD::Valid(const DataFormatUD& format) const {
  const PlatformHeaderUD* h = Header();
  if (h == nullptr) return UD_NO_PLAT_HEADER;
  if (badTriple(h->positionOffset)) return UD_BAD_PLAT_OFFSET;
  if (h->hasRefLLA && badTriple(h->refLLA)) return UD_BAD_PLAT_REFLLA;
  if (badTriple(h->tangentPlane)) return UD_BAD_PLAT_TANGENT_PLANE;
  return Motion()->Valid(format);
}

int PlatformUD::AddState(double time, const double* position, const double* orientation, const double* velocity,
                         const double* acceleration) {
  return addState_(time, position, orientation, velocity, acceleration, -1.0);
}

int PlatformUD::AddState(double time, const double* position, const double* orientation, double speed) {
  if (speed < 0.0 || orientation == nullptr) return AddState(time, position, orientation, nullptr, nullptr);
  if (udIsBadValue(speed)) {
    // Refused as a velocity: after the position and orientation checks.
    const double bad[3] = {speed, speed, speed};
    return AddState(time, position, orientation, bad, nullptr);
  }
  return addState_(time, position, orientation, nullptr, nullptr, speed);
}

int PlatformUD::addState_(double time, const double* position, const double* orientation, const double* velocity,
                          const double* acceleration, double speed) {
  LinearPlatMotionUD* motion = Motion();
  if (motion == nullptr) return UD_NO_MOTION;
  if (position == nullptr || badTriple(position)) return UD_BAD_PLAT_POSITION;
  if (orientation && (badTriple(orientation) || udIsBadAngle(orientation))) return UD_BAD_PLAT_ANGLE;
  // Built before the remaining checks so that a speed turns into the
  // velocity once, along the angles the state keeps.
  MotionStateUD state(time, position, orientation);
  double fromSpeed[3];
  if (speed >= 0.0) {
    state.SetSpeed(speed);
    fromSpeed[0] = state.velEast;
    fromSpeed[1] = state.velNorth;
    fromSpeed[2] = state.velUp;
    velocity = fromSpeed;
  }
  if (badTriple(velocity)) return UD_BAD_PLAT_VELOCITY;
  if (badTriple(acceleration)) return UD_BAD_PLAT_ACCELERATION;
  if (!udIsFinite(time)) return UD_BAD_TIME_VALUE;
  if (time < 0.0) {
    // The first state at -1 marks the platform static; from then on
    // negative times are its own.
    if (time == -1.0 && motion->Size() == 0) {
      static_ = true;
      active_ = true;
    } else if (!static_) {
      return UD_BAD_TIME_VALUE;
    }
  }
  if (velocity) {
    state.SetVelocity(velocity[0], velocity[1], velocity[2]);
    state.setVelocityGiven(true);
  }
  if (acceleration) state.SetAcceleration(acceleration);
  if (orientation) motion->setHasOrientation(true);
  if (velocity) motion->setHasVelocity(true);
  motion->AddState(std::move(state));
  return UD_NO_ERROR;
}

BeamUD* PlatformUD::FindBeam(uint64_t id) const { return findById(beams_, id); }
void PlatformUD::RemoveBeam(uint64_t id) { removeById(beams_, id); }
LaserUD* PlatformUD::FindLaser(uint64_t id) const { return findById(lasers_, id); }
void PlatformUD::RemoveLaser(uint64_t id) { removeById(lasers_, id); }
CustomRenderingUD* PlatformUD::FindCustomRendering(uint64_t id) const { return findById(customRenderings_, id); }
void PlatformUD::RemoveCustomRendering(uint64_t id) { removeById(customRenderings_, id); }
LOBGroupUD* PlatformUD::FindLOBGroup(uint64_t id) const { return findById(lobGroups_, id); }
void PlatformUD::RemoveLOBGroup(uint64_t id) { removeById(lobGroups_, id); }

int PlatformUD::AddToScenario(ScenarioUD* scenario) {
  scenario_ = scenario;
  return scenario->addPlatform(this);
}

double PlatformUD::BeamStartTime() const {
  double start = UD_NO_TIME;
  for (const BeamUD* beam : beams_) {
    const double t = beam->motion() ? beam->motion()->StartTime() : UD_NO_TIME;
    if (t != UD_NO_TIME && (start == UD_NO_TIME || t < start)) start = t;
  }
  return start;
}

double PlatformUD::BeamEndTime() const {
  double end = UD_NO_TIME;
  for (const BeamUD* beam : beams_) {
    const double t = beam->motion() ? beam->motion()->EndTime() : UD_NO_TIME;
    if (t != UD_NO_TIME && (end == UD_NO_TIME || t > end)) end = t;
  }
  return end;
}

void PlatformUD::cull(double degrees) {
  if (!static_) Motion()->cull(degrees);
}
