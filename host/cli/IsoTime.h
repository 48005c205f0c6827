#pragma once
// Scenario times for people: seconds since the start of a reference year
// (UTC) as ISO 8601 date-times, and spans as durations.

#include <string>

namespace RefHost {

// "2025-05-14T08:30:00Z", with ".250" when the time has milliseconds; "" when
// the time has no date of years 0000 to 9999 (not finite, or far off).
std::string isoTime(int referenceYear, double seconds);

// isoTime, or, when there is none, the seconds as they are ("1e+300 s of
// 2024"); "static" for the static time -1.
std::string timeText(int referenceYear, double seconds);

// "00:25:23", "3 d 04:05:06", "00:00:01.5"; the plain seconds when too large.
std::string durationText(double seconds);

// The shortest decimal text that reads back as the same double.
std::string shortestNumber(double value);

}  // namespace RefHost
