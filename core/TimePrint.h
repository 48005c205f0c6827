#pragma once
// Writing time text: the forms that parseTimeString reads back, SCORE time
// stamps, and the time texts of file names and progress displays.

#include <ctime>
#include <ostream>
#include <string>

#include "core/TimeException.h"
#include "core/TimeFormat.h"

namespace UTILS {

// `value` seconds since the start of `referenceYear` in a time format:
//   UNITS_SECONDS   "12.500"
//   UNITS_MINUTES   "MM:SS.sss"
//   UNITS_HOURS     "HH:MM:SS.sss"
//   UNITS_ORDINAL   "JJJ yyyy HH:MM:SS.sss" (no year unless showYear)
//   UNITS_MONTHDAY  "Mnt MD yyyy HH:MM:SS.sss" (no year unless showYear)
//   UNITS_DTG       "MDHHMM:SS.sss Z MNTYY"
// The value is first rounded to `precision` decimals (0..9). zeroPad writes
// the leading minutes or hours with two digits. With base 16 the numbers are
// written in hexadecimal and fractions of a second are dropped. Throws
// TimeException for another format, a value that is not finite or too large,
// and negative values in the calendar formats.
std::string printTimeString(double value, int referenceYear, UnitType_t format, int precision = 3,
                            bool zeroPad = true, bool showYear = true, int base = 10);
// printTimeString that never throws: an empty text when the time can't be written.
std::string getTimeString(int referenceYear, double seconds, UnitType_t format, int precision = 3,
                          bool zeroPad = true, bool showYear = true);

// SCORE time stamp "DDD HHMM:SS.sss" (day from 0) or, without the day,
// "HHMM:SS.sss" with the hours counted on past 23. Empty for a value that is
// not finite.
std::string getScoreTimeString(double seconds, bool showDay, int precision = 3);
// "JJJ HH:MM:SS.sss", day 001 at 0 seconds. Empty for a negative or
// non-finite value.
std::string getJdayStringFromSeconds(double seconds, int precision = 3);

// The current UTC time as "YYYYmmdd-HHMMSS".
std::string getSystemTimeString();
// "name_YYYYmmdd-HHMMSS.ext": the current time put in front of the extension.
std::string appendTimeToString(const std::string& name);
// prefix + "YYYYmmdd-HHMMSS" of a scenario time + extension. Throws
// TimeException for a time that has no calendar date.
std::string getFilenameFromTime(int referenceYear, double seconds, const std::string& prefix = "",
                                const std::string& extension = "");
// Remaining time of a task that has taken `elapsed` seconds for `fraction`
// (0..1) of its work: "Calculating", "Moments", "<n> Seconds", "HH:MM:00" or
// "<n> Days".
std::string getTimeRemainingText(double elapsed, double fraction);
// The fields of a tm, one "tm_xxx = value" line each.
void printTimeStruct(const struct tm& fields, std::ostream& out);

}  // namespace UTILS
