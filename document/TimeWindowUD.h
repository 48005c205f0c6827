#pragma once
// The part of a time-keyed map or state list that a time window selects, for
// every time series of the document (motions, on/off, colours, generic data, ...).

#include <iterator>
#include <utility>

#include "hostapi/PICommon.h"

// Bounds in seconds since the document's reference year.
struct TimeWindowUD {
  bool hasMin = false;
  bool hasMax = false;
  double min = 0.0;
  double max = 0.0;
};

// The time of an entry: the key of a time-keyed map, or a state's own time.
template <typename Entry>
auto entryTimeUD(const Entry& entry) -> decltype(double(entry.first)) {
  return entry.first;
}
template <typename Entry>
auto entryTimeUD(const Entry& entry) -> decltype(double(entry.time)) {
  return entry.time;
}

// [begin, end) of `states`: everything without bounds; a lone static entry
// (time -1) whatever the bounds; otherwise from the last entry at or before
// the minimum (the state in force when the window opens) to the first entry
// at or after the maximum, that one included. A minimum beyond the maximum
// is reported and selects nothing.
template <typename Map>
std::pair<typename Map::const_iterator, typename Map::const_iterator> getAtOrInBetweenBeginAndEndIterators(
    const Map& states, const TimeWindowUD& window) {
  auto begin = states.end();
  auto end = states.end();
  if (states.empty()) return {begin, end};
  if (window.hasMin && window.hasMax && window.min > window.max) {
    PICommon::notify("Time range minTimeFilter is > maxTimeFilter\n", PICommon::PI_NOTIFY_ERROR, "");
    return {end, end};
  }
  if (states.size() == 1 && entryTimeUD(*states.begin()) == -1.0) return {states.begin(), end};
  begin = states.begin();
  if (window.hasMin) {
    auto after = states.upper_bound(window.min);
    if (after != states.begin()) begin = std::prev(after);
  }
  if (window.hasMax) {
    end = states.lower_bound(window.max);
    if (end != states.end()) ++end;
  }
  return {begin, end};
}
