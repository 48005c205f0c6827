#include "document/GateUD.h"

#include "document/BeamUD.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ErrorCodesUD.h"
#include "document/ScenarioUD.h"

GateUD::GateUD(ScenarioUD* scenario, BeamUD* host, std::unique_ptr<GateHeaderUD> header)
    : ObjectLAUD(scenario, OBJECT_GATE, std::move(header)), host_(host) {
  SetMotion(std::make_unique<LinearGateMotionUD>());
}

int GateUD::Valid(const DataFormatUD& format) const {
  const GateHeaderUD* h = Header();
  if (h == nullptr) return UD_NO_GATE_HEADER;
  if (h->gateType < 0 || h->gateType > GATE_BODY) return UD_BAD_GATE_TYPE;
  if (udIsBadValue(h->azimOffset) || udIsBadValue(h->elevOffset) || udIsBadValue(h->rollOffset))
    return UD_BAD_GATE_OFFSET;
  return Motion()->Valid(format);
}

int GateUD::AddState(const GateStateUD& s) {
  if (udIsBadValue(s.azimuth) || udIsBadAngle(s.azimuth)) return UD_BAD_GATE_AZIMUTH;
  if (udIsBadValue(s.elevation) || udIsBadElevAngle(s.elevation)) return UD_BAD_GATE_ELEVATION;
  if (udIsBadValue(s.width) || udIsBadAngle(s.width)) return UD_BAD_GATE_WIDTH;
  if (udIsBadValue(s.height) || udIsBadElevAngle(s.height)) return UD_BAD_GATE_HEIGHT;
  if (udIsBadValue(s.minRange)) return UD_BAD_GATE_MIN_RANGE;
  if (udIsBadValue(s.maxRange)) return UD_BAD_GATE_MAX_RANGE;
  if (udIsBadValue(s.centroid)) return UD_BAD_GATE_CENTROID;
  if (!udIsFinite(s.time) || (s.time < 0.0 && s.time != -1.0)) return UD_BAD_TIME_VALUE;
  Motion()->AddState(s);
  return UD_NO_ERROR;
}

PlatformUD* GateUD::Target(double time) const {
  const TargetCmdUD* command = host_ ? host_->TargetAtTime(time) : nullptr;
  return command ? command->target() : nullptr;
}

int GateUD::AddToScenario(ScenarioUD* scenario) {
  scenario_ = scenario;
  return scenario->addGate(this);
}
