#pragma once
// Reading time text. Every malformed text throws orvCore::TimeException with
// a code and a message fit for the user; nothing else escapes.

#include <string>

#include "core/TimeException.h"
#include "core/TimeFormat.h"

namespace UTILS {

// Seconds since the start of `referenceYear` of a time text of any shape of
// getTimeMatch, plus `timeOffset`. Shapes without a year take the reference
// year. A year in the text before the reference year throws code 10, as
// does a reference year before 1900.
double parseTimeString(const std::string& text, int referenceYear, double timeOffset = 0.0);
// Seconds of "SS.sss", "MM:SS.sss" or "HH:MM:SS.sss".
double getHHMMSSFromString(const std::string& text);
// The year written in a time text, for the shapes that carry one.
int getYearFromTimeString(const std::string& text);
// Seconds since the start of the year of "JJJ HH:MM:SS.sss".
double getSecondsFromJdayString(const std::string& text);

// SCORE time stamps "[DDD ]HHMM:SS.sss": seconds since the start of the
// year. Lenient like the other UTILS conversions: missing fields count as 0
// and it never throws.
double getSecondsSinceYearFromScoreTimeString(const std::string& text);
// The year of a SCORE date ("MM/DD/YYYY", "YYYY-MM-DD", "MM/DD/YY" ...); the
// current year when the text holds none.
int getReferenceYearFromScoreDateString(const std::string& text);

}  // namespace UTILS
