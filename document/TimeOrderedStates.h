#pragma once
// The states of one motion: sorted by time, one state per time, in a
// ChunkedArray. A state is built once where it stays: appending never moves
// the states already held, and a state costs its own size.
//
// Importers append in rising time: that is a push_back. A state at a time
// already present replaces the old one. A state out of order that lands
// near the end is inserted in place; one further back is appended as it
// comes and the states are sorted again before the next read, stably, so
// that of two states at one time the later added stays. A file in any order
// then costs n log n, never n squared.
//
// Reads sort on demand and so change the (mutable) states: like the rest of
// the document, one thread at a time.

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "document/ChunkedArray.h"

template <typename State>
class TimeOrderedStates {
 public:
  using Storage = ChunkedArray<State>;
  using iterator = typename Storage::iterator;
  using const_iterator = typename Storage::const_iterator;
  using value_type = State;

  void add(State state) {
    const double time = state.time;
    if (sorted_() && (states_.empty() || states_.back().time < time)) {
      states_.push_back(std::move(state));
      sorted_size_ = states_.size();
      return;
    }
    if (sorted_()) {
      const auto at = lowerBound_(time);
      if (at->time == time) {
        *at = std::move(state);
        return;
      }
      if (states_.end() - at <= kNearEnd) {
        const size_t index = static_cast<size_t>(at - states_.begin());
        states_.push_back(std::move(state));
        std::rotate(states_.begin() + static_cast<std::ptrdiff_t>(index), states_.end() - 1, states_.end());
        sorted_size_ = states_.size();
        return;
      }
    }
    states_.push_back(std::move(state));
  }

  void clear() {
    Storage().swap(states_);
    sorted_size_ = 0;
  }

  size_t size() const {
    sort_();
    return states_.size();
  }
  bool empty() const { return states_.empty(); }

  const_iterator begin() const {
    sort_();
    return states_.begin();
  }
  const_iterator end() const {
    sort_();
    return states_.end();
  }
  // Changing a state's time through these breaks the order: callers change
  // the other fields only.
  iterator begin() {
    sort_();
    return states_.begin();
  }
  iterator end() {
    sort_();
    return states_.end();
  }
  const State& front() const { return *begin(); }
  const State& back() const {
    sort_();
    return states_.back();
  }

  // The first state at or after / after `time`.
  const_iterator lower_bound(double time) const {
    sort_();
    return lowerBound_(time);
  }
  const_iterator upper_bound(double time) const {
    sort_();
    return std::upper_bound(states_.begin(), states_.end(), time,
                            [](double t, const State& s) { return t < s.time; });
  }
  // The state at exactly `time`, or null.
  const State* find(double time) const {
    const auto at = lower_bound(time);
    return at != states_.end() && at->time == time ? &*at : nullptr;
  }
  // The state at exactly `time`; std::out_of_range when there is none.
  const State& at(double time) const {
    if (const State* state = find(time)) return *state;
    throw std::out_of_range("no state at that time");
  }

  bool erase(double time) {
    const auto at = lower_bound(time);
    if (at == states_.end() || at->time != time) return false;
    states_.erase(at);
    sorted_size_ = states_.size();
    return true;
  }
  iterator erase(iterator first, iterator last) {
    const auto next = states_.erase(first, last);
    sorted_size_ = states_.size();
    return next;
  }

  // Adds `seconds` to every time. Times that meet after rounding keep the
  // later state, as adding them one by one would.
  void shiftTimes(double seconds) {
    sort_();
    Storage moved;
    moved.swap(states_);
    sorted_size_ = 0;
    for (State& state : moved) {
      state.time += seconds;
      add(std::move(state));
    }
  }

  double startTime(double none) const { return empty() ? none : front().time; }
  double endTime(double none) const { return empty() ? none : back().time; }

  // The linear GetState: nothing before the first state; the last state
  // from there on; exact or first states as they are; between two states
  // the earlier one, or the interpolation when `interpolate`. `holdTime`
  // gives a state beyond the last one the asked time.
  template <typename Interpolate>
  bool getState(double time, State& out, bool interpolate, bool holdTime, Interpolate interpolator) const {
    if (empty() || time < front().time) return false;
    const auto at = lower_bound(time);
    if (at == states_.end()) {
      out = states_.back();
      if (holdTime) out.time = time;
      return time >= states_.back().time;
    }
    if (at->time == time || at == states_.begin()) {
      out = *at;
      return true;
    }
    const auto before = std::prev(at);
    if (!interpolate) {
      out = *before;
      return true;
    }
    interpolator(*before, *at, time, out);
    return true;
  }

 private:
  // An out-of-order state at most this far from the end is moved into place
  // at once; the cost is a few moves, and the states stay sorted.
  static constexpr std::ptrdiff_t kNearEnd = 64;

  bool sorted_() const { return sorted_size_ == states_.size(); }

  typename Storage::iterator lowerBound_(double time) const {
    return std::lower_bound(states_.begin(), states_.end(), time,
                            [](const State& s, double t) { return s.time < t; });
  }

  void sort_() const {
    if (sorted_()) return;
    const auto byTime = [](const State& a, const State& b) { return a.time < b.time; };
    const auto middle = states_.begin() + static_cast<std::ptrdiff_t>(sorted_size_);
    std::stable_sort(middle, states_.end(), byTime);
    std::inplace_merge(states_.begin(), middle, states_.end(), byTime);
    // Every run of one time keeps its last state: the one added last.
    auto kept = states_.begin();
    for (auto run = states_.begin(); run != states_.end();) {
      auto next = std::next(run);
      while (next != states_.end() && next->time == run->time) ++next;
      const auto last = std::prev(next);
      if (kept != last) *kept = std::move(*last);
      ++kept;
      run = next;
    }
    states_.erase(kept, states_.end());
    sorted_size_ = states_.size();
  }

  mutable Storage states_;
  mutable size_t sorted_size_ = 0;  // the length of the sorted prefix
};
