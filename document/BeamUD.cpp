#include "document/BeamUD.h"

#include <algorithm>

#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/GateUD.h"
#include "document/PlatformUD.h"
#include "document/ScenarioUD.h"

bool TargetCmdUD::resolveTarget(const ScenarioUD& scenario) {
  if (target_ != nullptr) return true;
  if (id_ != 0) target_ = scenario.findPlatform(id_);
  if (target_ == nullptr && !callsign_.empty()) target_ = scenario.findPlatform(callsign_);
  if (target_ != nullptr && id_ == 0) id_ = target_->UniqueID();
  return target_ != nullptr;
}

BeamUD::BeamUD(ScenarioUD* scenario, PlatformUD* host, std::unique_ptr<BeamHeaderUD> header)
    : ObjectLAUD(scenario, OBJECT_BEAM, std::move(header)), host_(host) {
  chooseMotion_();
}

void BeamUD::chooseMotion_() {
  switch (Header()->beamType) {
    case BEAM_TARGET: SetMotion(std::make_unique<TargetBeamMotionUD>()); break;
    case BEAM_BODY: SetMotion(std::make_unique<BodyBeamMotionUD>()); break;
    default: SetMotion(std::make_unique<LinearBeamMotionUD>()); break;
  }
}

void BeamUD::SetBeamType(int type) {
  Header()->SetBeamType(type);
  if (motion_ == nullptr || motion_->Size() == 0) chooseMotion_();
}

int BeamUD::Valid(const DataFormatUD& format) const {
  const BeamHeaderUD* h = Header();
  if (h == nullptr) return UD_NO_BEAM_HEADER;
  if (h->beamType < 0 || h->beamType > BEAM_BODY) return UD_BAD_BEAM_TYPE;
  if (!(h->hbw > 0.0) || !(h->vbw > 0.0) || udIsBadValue(h->hbw) || udIsBadValue(h->vbw)) return UD_BAD_BEAM_WIDTH;
  if (udIsBadValue(h->azimOffset) || udIsBadValue(h->elevOffset) || udIsBadValue(h->rollOffset))
    return UD_BAD_BEAM_OFFSET;
  if (h->beamType == BEAM_TARGET) return UD_NO_ERROR;
  return motion_ ? motion_->Valid(format) : UD_NO_MOTION;
}

int BeamUD::AddState(double time, double range, double azimuth, double elevation) {
  auto* motion = dynamic_cast<LinearBeamMotionUD*>(motion_.get());
  if (motion == nullptr) return UD_NO_MOTION;
  if (udIsBadValue(azimuth) || udIsBadAngle(azimuth)) return UD_BAD_BEAM_AZIMUTH;
  if (udIsBadValue(elevation) || udIsBadElevAngle(elevation)) return UD_BAD_BEAM_ELEVATION;
  if (udIsBadValue(range) || range < 0.0) return UD_BAD_BEAM_RANGE;
  if (!udIsFinite(time) || (time < 0.0 && time != -1.0)) return UD_BAD_TIME_VALUE;
  motion->AddState(BeamStateUD(time, range, azimuth, elevation));
  return UD_NO_ERROR;
}

bool BeamUD::GetState(double time, BeamStateUD& out) const {
  if (auto* target = dynamic_cast<TargetBeamMotionUD*>(motion_.get())) {
    (void)target;
    const TargetCmdUD* command = TargetAtTime(time);
    MotionStateUD hostState;
    MotionStateUD targetState;
    if (command == nullptr || command->target() == nullptr || host_ == nullptr) return false;
    if (!host_->GetState(time, hostState) || !command->target()->GetState(time, targetState)) return false;
    return TargetBeamMotionUD::GetState(time, hostState, &targetState, out);
  }
  if (auto* body = dynamic_cast<BodyBeamMotionUD*>(motion_.get())) {
    MotionStateUD hostState;
    const bool hasHost = host_ != nullptr && host_->GetState(time, hostState);
    return body->GetState(time, out, hasHost ? &hostState : nullptr, interpolate_);
  }
  auto* linear = dynamic_cast<LinearBeamMotionUD*>(motion_.get());
  return linear != nullptr && linear->GetState(time, out, interpolate_);
}

GateUD* BeamUD::FindGate(uint64_t id) const {
  for (GateUD* gate : gates_)
    if (gate->UniqueID() == id) return gate;
  return nullptr;
}

void BeamUD::RemoveGate(uint64_t id) {
  gates_.erase(std::remove_if(gates_.begin(), gates_.end(), [id](GateUD* g) { return g->UniqueID() == id; }),
               gates_.end());
}

void BeamUD::AddTargetCmd(double time, PlatformUD* target) {
  TargetCmdUD command;
  command.setTarget(target);
  if (target) command.setId(target->UniqueID());
  targets_[time] = command;
}

void BeamUD::AddTargetCmd(double time, uint64_t targetId) {
  TargetCmdUD command;
  command.setId(targetId);
  targets_[time] = command;
}

void BeamUD::AddTargetCmd(double time, const std::string& callsign) {
  TargetCmdUD command;
  command.setCallsign(callsign);
  targets_[time] = command;
}

const TargetCmdUD* BeamUD::TargetAtTime(double time) const {
  auto after = targets_.upper_bound(time);
  if (after == targets_.begin()) return nullptr;
  return &std::prev(after)->second;
}

int BeamUD::MakeRefLinks() {
  int failures = 0;
  for (auto& entry : targets_)
    if (scenario_ == nullptr || !entry.second.resolveTarget(*scenario_)) ++failures;
  if (auto* target = dynamic_cast<TargetBeamMotionUD*>(motion_.get())) {
    if (!targets_.empty()) target->setTimes(targets_.begin()->first, targets_.rbegin()->first);
  }
  return failures;
}

int BeamUD::AddToScenario(ScenarioUD* scenario) {
  scenario_ = scenario;
  return scenario->addBeam(this);
}
