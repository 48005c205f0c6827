#pragma once
// What the SCORE and PMRF records share: the unit factors, angle wrapping,
// lenient number fields and the time of a record.

#include <string>
#include <vector>

namespace CSVFields {

// These digits are the range's own; keep them.
constexpr double FEET_TO_METERS = 0.30479999;
constexpr double YARDS_TO_METERS = 0.91439997;
constexpr double KNOTS_TO_MPS = 0.51444444;
constexpr double DEG_TO_RAD = 0.017453292519943295;
constexpr double RAD_TO_DEG = 57.29577951308232;
constexpr double METERS_TO_FEET = 3.28084;

// A field as a number; text that is no number reads as 0, as strtod and
// strtol leave it.
double toDouble(const std::string& text);
int toInt(const std::string& text);

// A number cut toward zero to an int; 0 for one that no int holds (NaN,
// infinities, beyond the int's range), whose cast would be undefined.
int truncateToInt(double value);

// Degrees to radians in [-pi, pi] (latitude, longitude, pitch, roll).
double wrapPlusMinusPi(double degrees);
// Degrees to radians in [0, 2 pi) (yaw, course).
double wrapZeroTwoPi(double degrees);

// Seconds since the start of the record's year from the fields year, month
// (1 to 12), day, hours, minutes, seconds at `first` onward; throws
// orvCore::TimeException for a date that does not exist.
double recordTime(const std::vector<std::string>& tokens, size_t first = 1);

}  // namespace CSVFields
