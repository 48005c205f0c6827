#pragma once
// A beam hung on a platform: header, one of three motions by beam type
// (linear, body-relative, or computed toward a target), target commands and
// the gates it hosts.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "document/ObjectUD.h"

class PlatformUD;
class GateUD;

// A beam's time-tagged target, given by id or call sign and resolved to the
// platform after loading.
class TargetCmdUD {
 public:
  void setTarget(PlatformUD* target) { target_ = target; }
  void setId(uint64_t id) { id_ = id; }
  void setCallsign(const std::string& callsign) { callsign_ = callsign; }
  // True when the target platform is found (by id first, else by call sign).
  bool resolveTarget(const ScenarioUD& scenario);
  PlatformUD* target() const { return target_; }
  const std::string& getCallsign() const { return callsign_; }
  uint64_t getId() const { return id_; }

 private:
  PlatformUD* target_ = nullptr;
  uint64_t id_ = 0;
  std::string callsign_;
};

class BeamUD : public ObjectLAUD {
 public:
  BeamUD(ScenarioUD* scenario, PlatformUD* host, std::unique_ptr<BeamHeaderUD> header);
  ~BeamUD() override = default;

  BeamHeaderUD* Header() const { return static_cast<BeamHeaderUD*>(header_.get()); }
  PlatformUD* host() const { return host_; }
  std::string Desc() const override { return Header()->desc; }
  void SetDesc(const std::string& text) override { Header()->desc = text; }
  // Also chooses the motion while the beam has no states.
  void SetBeamType(int type);
  int Valid(const DataFormatUD& format) const override;

  // Range (m), azimuth and elevation (radians); 51 for a target beam.
  int AddState(double time, double range, double azimuth, double elevation);
  bool GetState(double time, BeamStateUD& out) const;

  void AddGate(GateUD* gate) { gates_.push_back(gate); }
  GateUD* FindGate(uint64_t id) const;
  void RemoveGate(uint64_t id);
  const std::vector<GateUD*>& gates() const { return gates_; }

  void AddTargetCmd(double time, PlatformUD* target);
  void AddTargetCmd(double time, uint64_t targetId);
  void AddTargetCmd(double time, const std::string& callsign);
  // The target command in force at `time`, or null.
  const TargetCmdUD* TargetAtTime(double time) const;
  const std::map<double, TargetCmdUD>& targetCommands() const { return targets_; }
  // Resolves every target command; answers the number that failed.
  int MakeRefLinks();
  int AddToScenario(ScenarioUD* scenario);

 private:
  void chooseMotion_();

  PlatformUD* host_;
  std::vector<GateUD*> gates_;
  std::map<double, TargetCmdUD> targets_;
};
