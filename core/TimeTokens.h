#pragma once
// Token classes shared by the time-text parsers: which tokens can be a month,
// a day, an hour and so on. Internal to the time code of the core.

#include <string>
#include <vector>

namespace UTILS {
namespace timetokens {

bool isInteger(const std::string& token);
bool isFloat(const std::string& token);
// The three-letter month names, ignoring case.
bool isMonth(const std::string& token);
// An integer 1..31.
bool isMonthDay(const std::string& token);
// "sun" to "sat" (and the "thr" spelling), ignoring case.
bool isWeekday(const std::string& token);
// An integer 1..366.
bool isOrdinal(const std::string& token);
bool isHours(const std::string& token);
bool isMinutes(const std::string& token);
// A non-negative integer.
bool isYear(const std::string& token);
bool isAmPm(const std::string& token);

// Strict integer value of a token; false if it is none (or too large).
bool toInt(const std::string& token, int& value);
// A two-digit year: 70..99 are 1970..1999, 00..69 are 2000..2069.
int expandTwoDigitYear(int year);
// A two-digit year read near a reference year: the year of that ending that
// lies within 50 years of the reference year.
int expandTwoDigitYear(int year, int referenceYear);
// Blanks at both ends cut, then quotes removed.
std::string cleanTimeText(const std::string& text);
// Quoted runs or runs of non-space, as time strings are tokenised for their year.
std::vector<std::string> regexTokens(const std::string& text);

}  // namespace timetokens
}  // namespace UTILS
