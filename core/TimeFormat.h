#pragma once
// The time formats of the file layer, the shapes of time text that the
// parser recognises, and the month and weekday names of time text.

#include <string>

#include "core/UnitTypes.h"

namespace orvCore {

// The text forms of a time value.
enum TimeFormat {
  TIMEFORMAT_SECONDS = 0,   // a decimal number
  TIMEFORMAT_MINUTES = 1,   // MM:SS.sss
  TIMEFORMAT_HOURS = 2,     // HH:MM:SS.sss
  TIMEFORMAT_ORDINAL = 3,   // JJJ yyyy HH:MM:SS.sss
  TIMEFORMAT_MONTHDAY = 4,  // MNT MD yyyy HH:MM:SS.sss
  TIMEFORMAT_DTG = 5        // MDHHMM:SS.sss Z MNTYY
};

}  // namespace orvCore

namespace UTILS {

// The shapes of time text; getTimeMatchString gives each one's pattern.
enum TimeFormatMatch_t {
  TIMEFORMAT_NO_MATCH = 0,
  TIMEFORMAT_SS = 1,                         // SS.sss
  TIMEFORMAT_MM_SS = 2,                      // MM:SS.sss
  TIMEFORMAT_HH_MM_SS = 3,                   // HH:MM:SS.sss
  TIMEFORMAT_JJJ_YYYY_HH_MM_SS = 4,          // JJJ yyyy HH:MM:SS.sss
  TIMEFORMAT_MNT_MD_YYYY_HH_MM_SS = 5,       // MNT MD yyyy HH:MM:SS.sss
  TIMEFORMAT_MD_MNT_YYYY_HH_MM_SS = 6,       // MD MNT yyyy HH:MM:SS.sss
  TIMEFORMAT_JJJ_HH_MM_SS_YYYY = 7,          // JJJ HH:MM:SS.sss yyyy
  TIMEFORMAT_MNT_MD_HH_MM_SS_YYYY = 8,       // MNT MD HH:MM:SS.sss yyyy
  TIMEFORMAT_JJJ_HH_MM_SS = 9,               // JJJ HH:MM:SS.sss
  TIMEFORMAT_WKD_MNT_MD_HH_MM_SS_YYYY = 10,  // WKD MNT MD HH:MM:SS.sss yyyy
  TIMEFORMAT_WKD_MNT_MD_HH_MM_SS = 11,       // WKD MNT MD HH:MM:SS.sss
  TIMEFORMAT_NEGATIVE_SS = 12,               // -SS.sss
  TIMEFORMAT_DATE_TIME_GROUP = 13,           // MDHHMM:SS.sss Z MNTYY
  TIMEFORMAT_HH_MMZ_MDMNTYYYY = 14,          // HH:MMz MDMNTYYYY
  TIMEFORMAT_HHMMZ_MDMNTYYYY = 15,           // HHMMz MDMNTYYYY
  TIMEFORMAT_MD_MNT = 16,                    // MD-MNT
  TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY = 17,    // JJJ HH:MM:SS [AM|PM] yyyy
  TIMEFORMAT_ISO_DATE = 18                   // YYYY-MON-DAY HH:MM:SS.sss
};

// The shape of a time text, or TIMEFORMAT_NO_MATCH. Never throws.
TimeFormatMatch_t getTimeMatch(const std::string& text);
// The pattern of a shape; "NO MATCH" for 0 and unknown values.
std::string getTimeMatchString(TimeFormatMatch_t match);

// The keyword of a time format code ("secs", "mins", "hrs", "jul", "mon",
// "dtg"); other codes warn on the error stream and answer "unknown".
std::string getTimeFormatString(UnitType_t format);
// The code of a keyword, ignoring case ("ord" is "jul"); an empty text is
// seconds, and an unknown one warns on the error stream and is seconds too.
UnitType_t getTimeFormatValue(const std::string& keyword);
// Between the unit codes and the time formats; codes that are no time format
// map to seconds.
orvCore::TimeFormat convertUtilsTimeFormat(UnitType_t format);
UnitType_t convertUtilsTimeFormat(orvCore::TimeFormat format);

// Month from 0, by abbreviated or full name, ignoring case. Throws code 4.
int getMonthFromString(const std::string& text);
// "Jan".."Dec" or "January".."December" for a month from 0. Throws code 4.
std::string getStringFromMonth(int month, bool abbreviated = true);
// Weekday (0 Sunday) of "Sun", "Mon", "Tue", "Wed", "Thr", "Fri", "Sat",
// ignoring case. Throws code 1.
int getDayFromString(const std::string& text);
// The name of a weekday (0 Sunday) as getDayFromString reads it. Throws code 1.
std::string getStringFromDay(int day);

}  // namespace UTILS
