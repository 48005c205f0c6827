#pragma once
// Motions: the time-ordered states of one document object. A linear motion
// keeps one state per time (a state at a time already present replaces it);
// a LOB motion keeps a list of bearings per time.

#include <cstddef>
#include <iterator>
#include <list>
#include <map>

#include "document/CommandsUD.h"
#include "document/MotionStateUD.h"

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

// The states of one kind, by time. Importers append in rising time, so an
// insertion tries the end of the map before searching.
template <typename State>
class TimeOrderedStates {
 public:
  using Map = std::map<double, State>;

  void add(State state) {
    const double time = state.time;
    if (states_.empty() || states_.rbegin()->first < time) {
      states_.emplace_hint(states_.end(), time, std::move(state));
      return;
    }
    states_.insert_or_assign(time, std::move(state));
  }
  const Map& states() const { return states_; }
  Map& states() { return states_; }
  double startTime() const;
  double endTime() const;

  // The linear GetState: nothing before the first state; the last state
  // from there on; exact or first states as they are; between two states
  // the earlier one, or the interpolation when `interpolate`. `holdTime`
  // gives a state beyond the last one the asked time.
  template <typename Interpolate>
  bool getState(double time, State& out, bool interpolate, bool holdTime, Interpolate interpolator) const {
    if (states_.empty() || time < states_.begin()->first) return false;
    auto at = states_.lower_bound(time);
    if (at == states_.end()) {
      out = states_.rbegin()->second;
      if (holdTime) out.time = time;
      return time >= states_.rbegin()->first;
    }
    if (at->first == time || at == states_.begin()) {
      out = at->second;
      return true;
    }
    auto before = std::prev(at);
    if (!interpolate) {
      out = before->second;
      return true;
    }
    interpolator(before->second, at->second, time, out);
    return true;
  }

 private:
  Map states_;
};

class LinearPlatMotionUD : public BaseMotionUD {
 public:
  using StateMap = std::map<double, MotionStateUD>;

  void AddState(MotionStateUD state) { states_.add(std::move(state)); }
  // Adds a copy of the last state at `time` when that lies after it.
  void AddEndPoint(double time);
  bool GetState(double time, MotionStateUD& out, bool interpolate = true) const;
  // The first state after `time` / the last before it.
  bool GetPointAfter(double time, MotionStateUD& out) const;
  bool GetPointBefore(double time, MotionStateUD& out) const;
  const MotionStateUD* EndPoint() const;
  // Velocity from the neighbouring states, for data without speeds.
  void CalculateVelocities();
  // Pitch of each state set to the flight-path angle of its velocity.
  void CalculateFlightPathAnglePitch();
  // Removes states that change the path by less than `degrees`.
  void cull(double degrees);
  bool DeleteItem(double time);

  double StartTime() const override { return states_.startTime(); }
  double EndTime() const override { return states_.endTime(); }
  size_t Size() const override { return states_.states().size(); }
  int Valid(const DataFormatUD& format) const override;

  const StateMap& states() const { return states_.states(); }
  // Whether the file gave velocities / orientation (else they are derived).
  bool hasVelocity() const { return hasVelocity_; }
  void setHasVelocity(bool given) { hasVelocity_ = given; }
  bool hasOrientation() const { return hasOrientation_; }
  void setHasOrientation(bool given) { hasOrientation_ = given; }

 private:
  // Velocity of `state` from its neighbour in the map; 0 without one.
  void findSpeed_(StateMap::iterator state);

  TimeOrderedStates<MotionStateUD> states_;
  bool hasVelocity_ = false;
  bool hasOrientation_ = false;
};

class LinearBeamMotionUD : public BaseMotionUD {
 public:
  using StateMap = std::map<double, BeamStateUD>;
  void AddState(BeamStateUD state) { states_.add(std::move(state)); }
  bool GetState(double time, BeamStateUD& out, bool interpolate = true) const;
  const BeamStateUD* EndPoint() const;
  double StartTime() const override { return states_.startTime(); }
  double EndTime() const override { return states_.endTime(); }
  size_t Size() const override { return states_.states().size(); }
  int Valid(const DataFormatUD& format) const override;
  const StateMap& states() const { return states_.states(); }

 private:
  TimeOrderedStates<BeamStateUD> states_;
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
  using StateMap = std::map<double, GateStateUD>;
  void AddState(GateStateUD state) { states_.add(std::move(state)); }
  bool GetState(double time, GateStateUD& out, bool interpolate = true) const;
  double StartTime() const override { return states_.startTime(); }
  double EndTime() const override { return states_.endTime(); }
  size_t Size() const override { return states_.states().size(); }
  int Valid(const DataFormatUD& format) const override;
  const StateMap& states() const { return states_.states(); }

 private:
  TimeOrderedStates<GateStateUD> states_;
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
