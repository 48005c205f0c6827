#pragma once
// The field grammar of OTH Gold sets: check digits, date-time groups,
// positions, ellipse axes and bearings, courses, speeds, and the code letters
// of overlays. Readers answer a result code (0 success) and never throw;
// writers give the text that the readers take back.

#include <string>

namespace OthLib {

// Units of the fields, as the sets write them.
inline constexpr double DEG_TO_RAD = 0.017453292519943295;
inline constexpr double RAD_TO_DEG = 57.29577951308232;
inline constexpr double FEET_TO_METRES = 0.30479999;
inline constexpr double NAUTICAL_MILE_METRES = 1852.0;
inline constexpr double KNOT_METRES_PER_SECOND = 1852.0 / 3600.0;

// --- check digits -----------------------------------------------------------

// The sum of the digit values of the text's digits, modulo 10.
int calcChecksum(const std::string& text);
// True when the last character is a digit equal to calcChecksum of the text
// in front of it; false for an empty text.
bool verifyChecksummedField(const std::string& text);
// The text followed by its check digit.
std::string appendChecksum(const std::string& text);

// --- time -------------------------------------------------------------------

// Three upper-case letters for a month counted from 0; below 1 gives "JAN",
// above 10 "DEC".
std::string getMonth(int zeroBasedMonth);

// Seconds since the start of the current year of a position's date-time
// group "DDHHMMZc" (c the check digit) and month "MMM". 1: wrong lengths;
// 2: check digit; 3: not a date or time (bad digits, no "Z", no such day).
int getTime(const std::string& dateTimeGroup, const std::string& month, double& result);
// The same, also giving the year that the seconds count from.
int getTime(const std::string& dateTimeGroup, const std::string& month, double& result, int& year);
// The expanded form "DDHHMMSS.fZ" with a month "MMM" or "MMMYYYY"; a month
// without a year counts from the current year. 1: wrong lengths; 3: not a
// date or time.
int getExpandedTime(const std::string& dateTimeGroup, const std::string& month, double& result, int& year);

// The date-time group (with its check digit) and month of `time`, seconds
// since the start of referenceYear. A time that can't be split gives
// "0100000Z" and "JAN".
void setDateTimeGroup(double time, int referenceYear, std::string& dateTimeGroup, std::string& month);
// The expanded form, to a tenth of a second, with the year in the month
// field ("MAR2024"). A time that can't be split gives "01000000.0Z" and "JAN".
void setExpandedDateTimeGroup(double time, int referenceYear, std::string& dateTimeGroup, std::string& month);

// Seconds between the starts of two years (negative when `to` is earlier).
double secondsBetweenYears(int from, int to);

// --- position ---------------------------------------------------------------

// Latitude "DDMM[SS]Hc", longitude "DDDMM[SS]Hc" and height ("ALT" then
// hundreds of feet, or feet then "FT" for a depth; empty is 0) into
// radians, radians and metres. 1: null result; 2: empty latitude or
// longitude; 3: a check digit fails; 4: latitude or longitude malformed;
// 5: height malformed (latitude and longitude are written, height 0).
int getPositionLLA(double* lla, const std::string& latitude, const std::string& longitude,
                   const std::string& height);
// The written forms, to the minute (or the second with withSeconds), with
// check digits; heights at or above 0 as "ALT" and hundreds of feet, depths
// as feet and "FT".
std::string formatLatitude(double radians, bool withSeconds = false);
std::string formatLongitude(double radians, bool withSeconds = false);
std::string formatHeight(double metres);

// --- ellipse, course, speed -------------------------------------------------

// An axis "<number><unit>[c]" in metres; units "NM", "KM", "FT", "KY"
// (thousands of yards), "YD". A text of 2 to 9 characters that ends in a
// digit carries a check digit (`checked` tells so); a failed check gives
// -2.0, anything unreadable -1.0.
double getAxisM(const std::string& text, bool& checked);
// The bearing in degrees of "<number>T" (4 to 6 characters): -1.0 for the
// length, -2.0 without "T", -3.0 for no number from 0 to 360 before it.
double getMajorAxisBearing(const std::string& text);
// "<number>T" in radians. 1: empty; 2: malformed.
int getCourse(const std::string& text, double& radians);
// "<number>K", "<number>KTS" or "<number>KPH" in metres per second.
// 1: empty; 2: malformed.
int getSpeed(const std::string& text, double& metresPerSecond);
// Written forms: "%0.1fT" of degrees; "%0.1f" of knots and the unit ("K"
// or "KTS"); "%0.1fNM"; "%03.0fT".
std::string formatCourse(double radians);
std::string formatSpeed(double metresPerSecond, const char* unit);
std::string formatAxis(double metres);
std::string formatBearing(double degrees);

// --- overlay codes ----------------------------------------------------------

// "B" red, "C" yellow, "D" green, "E" blue, "F" cyan, "G" magenta, "H" black,
// "I" orange; anything else "white".
std::string getColorCode(const std::string& letter);
// "1" "dash", "2" "dot"; anything else "solid".
std::string getLineType(const std::string& digit);
// "1" "solid", "2" "hatched"; anything else "none".
std::string getFillType(const std::string& digit);
// "1" "times.ttf", "2" "timesi.ttf"; anything else "timesbd.ttf".
std::string getFontType(const std::string& digit);

// The number of "/"-separated tokens of the line once trimmed, its set name
// included; 0 for a blank line.
int tokenCount(const std::string& line);

}  // namespace OthLib
