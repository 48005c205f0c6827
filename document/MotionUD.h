#pragma once
// Motions: the time-ordered states of one document object. A linear motion
// keeps one state per time (a state at a time already present replaces it);
// a LOB motion keeps a list of bearings per time.

#include <cstddef>
#include <list>
#include <map>

#include "core/Vec3.h"
#include "document/CommandsUD.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/MotionStateUD.h"
#include "document/TimeOrderedStates.h"

class BaseMotionUD {
 public:
  virtual ~BaseMotionUD() = default;
  // The first and last state's times; UD_NO_TIME when empty.
  virtual double StartTime() const = 0;
  virtual double EndTime() const = 0;
  virtual size_t Size() const = 0;
  // 51 when empty, else the first state's failure (codes of AddState), else 0.
  virtual int Valid(const DataFormatUD& format) const = 0;
};

class LinearPlatMotionUD : public BaseMotionUD {
 public:
  using States = TimeOrderedStates<MotionStateUD>;

  void AddState(MotionStateUD state) { states_.add(std::move(state)); }
  // Adds `seconds` to every state's time (a track moved onto another year).
  void shiftTimes(double seconds) { states_.shiftTimes(seconds); }
  // Drops every state and the memory that held them.
  void flush() { states_.clear(); }
  // Adds a copy of the last state at `time` when that lies after it.
  void AddEndPoint(double time);
  bool GetState(double time, MotionStateUD& out, bool interpolate = true) const;
  // The first state after `time` / the last before it.
  bool GetPointAfter(double time, MotionStateUD& out) const;
  bool GetPointBefore(double time, MotionStateUD& out) const;
  const MotionStateUD* EndPoint() const;
  // Velocity from the neighbouring states for each state whose velocity the
  // file did not give.
  void CalculateVelocities();
  // Pitch of each state set to the flight-path angle of its velocity.
  void CalculateFlightPathAnglePitch();
  // Removes states that change the path by less than `degrees`.
  void cull(double degrees);
  bool DeleteItem(double time);

  double StartTime() const override { return states_.startTime(UD_NO_TIME); }
  double EndTime() const override { return states_.endTime(UD_NO_TIME); }
  size_t Size() const override { return states_.size(); }
  int Valid(const DataFormatUD& format) const override;

  const States& states() const { return states_; }
  // Whether the file gave velocities (on any state) / orientation.
  bool hasVelocity() const { return hasVelocity_; }
  void setHasVelocity(bool given) { hasVelocity_ = given; }
  bool hasOrientation() const { return hasOrientation_; }
  void setHasOrientation(bool given) { hasOrientation_ = given; }

 private:
  // Velocity of `state` from the step between two states and their ECEF
  // positions; 0 for a step without time.
  static void findSpeed_(MotionStateUD& state, const MotionStateUD& from, const orvCore::Vec3& fromEcef,
                         const MotionStateUD& to, const orvCore::Vec3& toEcef);

  void calculateMissingVelocities_();

  States states_;
  bool hasVelocity_ = false;
  bool hasOrientation_ = false;
};

class LinearBeamMotionUD : public BaseMotionUD {
 public:
  using States = TimeOrderedStates<BeamStateUD>;
  void AddState(BeamStateUD state) { states_.add(std::move(state)); }
  bool GetState(double time, BeamStateUD& out, bool interpolate = true) const;
  const BeamStateUD* EndPoint() const;
  double StartTime() const override { return states_.startTime(UD_NO_TIME); }
  double EndTime() const override { return states_.endTime(UD_NO_TIME); }
  size_t Size() const override { return states_.size(); }
  int Valid(const DataFormatUD& format) const override;
  const States& states() const { return states_; }

 private:
  States states_;
};

class MotionStateUD;

// States relative to the host platform's body.
class BodyBeamMotionUD : public LinearBeamMotionUD {
 public:
  // `host` is the host's state at the time; with no orientation the beam's
  // values stand, else they are turned by the host's yaw, pitch and roll.
  bool GetState(double time, BeamStateUD& out, const MotionStateUD* host, bool interpolate = true) const;
};

// No states: range, azimuth and elevation follow from host and target.
class TargetBeamMotionUD : public BaseMotionUD {
 public:
  static bool GetState(double time, const MotionStateUD& host, const MotionStateUD* target, BeamStateUD& out);
  void setTimes(double start, double end) {
    start_ = start;
    end_ = end;
  }
  double StartTime() const override { return start_; }
  double EndTime() const override { return end_; }
  size_t Size() const override { return 0; }
  int Valid(const DataFormatUD&) const override { return 0; }

 private:
  double start_ = -987654321.0;
  double end_ = -987654321.0;
};

class LinearGateMotionUD : public BaseMotionUD {
 public:
  using States = TimeOrderedStates<GateStateUD>;
  void AddState(GateStateUD state) { states_.add(std::move(state)); }
  bool GetState(double time, GateStateUD& out, bool interpolate = true) const;
  double StartTime() const override { return states_.startTime(UD_NO_TIME); }
  double EndTime() const override { return states_.endTime(UD_NO_TIME); }
  size_t Size() const override { return states_.size(); }
  int Valid(const DataFormatUD& format) const override;
  const States& states() const { return states_; }

 private:
  States states_;
};

class LOBMotionUD : public BaseMotionUD {
 public:
  using StateMap = std::map<double, std::list<LOBStateUD>>;
  void addState(const LOBStateUD& state) { states_[state.time].push_back(state); }
  // Removes the bearing that matches all four values; false if none does.
  bool deleteState(double time, double range, double azimuth, double elevation);
  void flush() { states_.clear(); }
  double StartTime() const override;
  double EndTime() const override;
  size_t Size() const override;
  int Valid(const DataFormatUD& format) const override;
  const StateMap& states() const { return states_; }

 private:
  StateMap states_;
};
