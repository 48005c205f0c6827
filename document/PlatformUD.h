#pragma once
// A platform of the document: header, linear motion, and the beams, lasers,
// custom rendering objects and LOB groups it hosts (owned by the scenario;
// the platform keeps the lists).

#include <memory>
#include <string>
#include <vector>

#include "document/ObjectUD.h"

class BeamUD;
class LaserUD;
class CustomRenderingUD;
class LOBGroupUD;

class PlatformUD : public ObjectLAUD {
 public:
  PlatformUD(ScenarioUD* scenario, std::unique_ptr<PlatformHeaderUD> header);
  ~PlatformUD() override = default;

  PlatformHeaderUD* Header() const { return static_cast<PlatformHeaderUD*>(header_.get()); }
  LinearPlatMotionUD* Motion() const { return static_cast<LinearPlatMotionUD*>(motion_.get()); }
  std::string Desc() const override { return Header()->callSign; }
  void SetDesc(const std::string& text) override { Header()->callSign = text; }
  virtual void SetIconName(const std::string& name) { Header()->iconName = name; }
  int Valid(const DataFormatUD& format) const override;

  // Validates, then adds the state. Position is latitude, longitude (radians)
  // and altitude; orientation yaw, pitch, roll; velocity east, north, up;
  // each pointer may be null but the position. A time of -1 on a platform
  // without states makes it static; negative times are refused otherwise.
  int AddState(double time, const double* position, const double* orientation, const double* velocity,
               const double* acceleration = nullptr);
  // The speed form: velocity from the speed along yaw and pitch; a negative
  // speed gives none.
  int AddState(double time, const double* position, const double* orientation, double speed);
  bool isStatic() const { return static_; }

  void AddBeam(BeamUD* beam) { beams_.push_back(beam); }
  BeamUD* FindBeam(uint64_t id) const;
  void RemoveBeam(uint64_t id);
  void AddLaser(LaserUD* laser) { lasers_.push_back(laser); }
  LaserUD* FindLaser(uint64_t id) const;
  void RemoveLaser(uint64_t id);
  void AddCustomRendering(CustomRenderingUD* object) { customRenderings_.push_back(object); }
  CustomRenderingUD* FindCustomRendering(uint64_t id) const;
  void RemoveCustomRendering(uint64_t id);
  void AddLOBGroup(LOBGroupUD* group) { lobGroups_.push_back(group); }
  LOBGroupUD* FindLOBGroup(uint64_t id) const;
  void RemoveLOBGroup(uint64_t id);
  const std::vector<BeamUD*>& beams() const { return beams_; }
  const std::vector<LaserUD*>& lasers() const { return lasers_; }
  const std::vector<CustomRenderingUD*>& customRenderings() const { return customRenderings_; }
  const std::vector<LOBGroupUD*>& lobGroups() const { return lobGroups_; }

  // Enters the platform in the scenario, which owns it from then on; a
  // taken id answers 10 and the caller keeps the platform.
  int AddToScenario(ScenarioUD* scenario);
  void MakeRefLinks() {}

  double StartTime() const { return Motion()->StartTime(); }
  double EndTime() const { return Motion()->EndTime(); }
  // The span of the hosted beams' states; UD_NO_TIME without any.
  double BeamStartTime() const;
  double BeamEndTime() const;
  bool GetState(double time, MotionStateUD& out) const { return Motion()->GetState(time, out, interpolate_); }
  double GetReferenceTimeECI() const { return Header()->referenceTimeECI; }
  void setRadarCrossSection(const std::string& file) { rcsFile_ = file; }
  const std::string& getRCSFilename() const { return rcsFile_; }
  // Leaves static platforms alone.
  void cull(double degrees);

 private:
  // Both forms: the checks in their order, then the state. A speed of 0 or
  // more sets the velocity from the state's own yaw and pitch.
  int addState_(double time, const double* position, const double* orientation, const double* velocity,
                const double* acceleration, double speed);

  std::vector<BeamUD*> beams_;
  std::vector<LaserUD*> lasers_;
  std::vector<CustomRenderingUD*> customRenderings_;
  std::vector<LOBGroupUD*> lobGroups_;
  std::string rcsFile_;
  bool static_ = false;
};
