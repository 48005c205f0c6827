#pragma once
// Value checks shared by the document objects, and the document's error
// stream, which a caller may redirect (the transmission gathers a load's
// complaints this way).

#include <ostream>
#include <string>

constexpr double UD_FLT_MAX = 3.4028234663852886e38;
// The time bounds of an empty motion.
constexpr double UD_NO_TIME = -987654321.0;

bool udIsFinite(double value);
// Magnitude above the float limit.
bool udIsFltMax(double value);
// Magnitude above 2 pi plus 1e-4.
bool udIsBadAngle(double value);
bool udIsBadAngle(const double* three);
// Magnitude above pi/2 plus 1e-4.
bool udIsBadElevAngle(double value);
bool udIsBadElevAngle(const double* three);
// Not finite, or beyond the float limit.
inline bool udIsBadValue(double value) { return !udIsFinite(value) || udIsFltMax(value); }
// Yaw to [0, 2 pi), pitch and roll to [-pi, pi].
void udFixOrientationAngles(double& yaw, double& pitch, double& roll);
// What a caller does with an object that has no state at a time.
void udSetBogusTimeAndActiveFalse(double& time, bool& active);

// The current year (UTC): a new document's reference year.
int udCurrentYear();

// The "Platform Type" value text of an index, "Unknown" outside the list.
std::string getPlatType(int index);
// The "Platform Type" value of a type word (case ignored) or index; "Unknown" if neither.
std::string GetPlatTypeCatValueUD(const std::string& text);
// The category name and value of a friend/hostile/neutral letter: "Affinity" and
// "Friendly", "Hostile", "Neutral" or "Unknown".
void GetFHNCategoryDataUD(const std::string& text, std::string& name, std::string& value);

// The stream that the document writes its complaints to (standard error
// unless redirected). Writing is serialised: the loader writes from two threads.
void writeErrorStreamUD(const std::string& text);
// Redirects the stream (null restores standard error); answers the previous one.
std::ostream* setErrorStreamUD(std::ostream* stream);
