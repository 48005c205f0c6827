#pragma once
// A gate hung on a beam: header and linear motion.

#include <memory>

#include "document/ObjectUD.h"

class BeamUD;
class PlatformUD;

class GateUD : public ObjectLAUD {
 public:
  GateUD(ScenarioUD* scenario, BeamUD* host, std::unique_ptr<GateHeaderUD> header);

  GateHeaderUD* Header() const { return static_cast<GateHeaderUD*>(header_.get()); }
  LinearGateMotionUD* Motion() const { return static_cast<LinearGateMotionUD*>(motion_.get()); }
  BeamUD* host() const { return host_; }
  std::string Desc() const override { return Header()->desc; }
  void SetDesc(const std::string& text) override { Header()->desc = text; }
  int Valid(const DataFormatUD& format) const override;

  int AddState(const GateStateUD& state);
  bool GetState(double time, GateStateUD& out) const { return Motion()->GetState(time, out, interpolate_); }
  // The host beam's target at `time`, or null.
  PlatformUD* Target(double time) const;
  int AddToScenario(ScenarioUD* scenario);

 private:
  BeamUD* host_;
};
