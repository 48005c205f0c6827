#include "core/TimeFormat.h"

#include <iostream>
#include <vector>

#include "core/StringUtils.h"
#include "core/TimeCalendar.h"
#include "core/TimeException.h"
#include "core/TimeTokens.h"
#include "core/Tokenizer.h"

namespace UTILS {

using orvCore::TimeException;

namespace {

// Weekday names as getDayFromString spells them, Sunday first.
constexpr const char* DAY_NAME[7] = {"Sun", "Mon", "Tue", "Wed", "Thr", "Fri", "Sat"};

const char* const MATCH_PATTERN[19] = {"NO MATCH",
                                       "SS.sss",
                                       "MM:SS.sss",
                                       "HH:MM:SS.sss",
                                       "JJJ yyyy HH:MM:SS.sss",
                                       "MNT MD yyyy HH:MM:SS.sss",
                                       "MD MNT yyyy HH:MM:SS.sss",
                                       "JJJ HH:MM:SS.sss yyyy",
                                       "MNT MD HH:MM:SS.sss yyyy",
                                       "JJJ HH:MM:SS.sss",
                                       "WKD MNT MD HH:MM:SS.sss yyyy",
                                       "WKD MNT MD HH:MM:SS.sss",
                                       "-SS.sss",
                                       "MDHHMM:SS.sss Z MNTYY",
                                       "HH:MMz MDMNTYYYY",
                                       "HHMMz MDMNTYYYY",
                                       "MD-MNT",
                                       "JJJ HH:MM:SS [AM|PM] yyyy",
                                       "YYYY-MON-DAY HH:MM:SS.sss"};

using namespace timetokens;

TimeFormatMatch_t matchTokens(const std::string& text, const std::vector<std::string>& t) {
  switch (t.size()) {
    case 1:
      if (isFloat(t[0]))
        return t[0][0] == '-' ? TIMEFORMAT_NEGATIVE_SS : TIMEFORMAT_SS;
      if (t[0].find('-') != std::string::npos && isMonthDay(t[0].substr(0, t[0].find('-'))))
        return TIMEFORMAT_MD_MNT;
      return TIMEFORMAT_NO_MATCH;
    case 2:
      if (t[1].size() > 5 && t[1].find('.') == std::string::npos)
        return TIMEFORMAT_HHMMZ_MDMNTYYYY;
      if (isInteger(t[0]) && isFloat(t[1]))
        return TIMEFORMAT_MM_SS;
      return TIMEFORMAT_NO_MATCH;
    case 3:
      if (!isFloat(t[2]))
        return TIMEFORMAT_HH_MMZ_MDMNTYYYY;
      if (isInteger(t[0]) && isInteger(t[1]))
        return TIMEFORMAT_HH_MM_SS;
      return TIMEFORMAT_NO_MATCH;
    case 4:
      if (text.find('Z') != std::string::npos)
        return TIMEFORMAT_DATE_TIME_GROUP;
      if (!isInteger(t[1]) || !isInteger(t[2]) || !isFloat(t[3]))
        return TIMEFORMAT_NO_MATCH;
      if (t[0].find('-') != std::string::npos)
        return TIMEFORMAT_ISO_DATE;
      if (isOrdinal(t[0]))
        return TIMEFORMAT_JJJ_HH_MM_SS;
      return TIMEFORMAT_NO_MATCH;
    case 5:
      if (!isOrdinal(t[0]))
        return TIMEFORMAT_NO_MATCH;
      if (isAmPm(t[4]) && isInteger(t[1]) && isInteger(t[2]) && isFloat(t[3]))
        return TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY;
      if (isHours(t[1]) && isMinutes(t[2]) && isFloat(t[3]) && isYear(t[4]))
        return TIMEFORMAT_JJJ_HH_MM_SS_YYYY;
      if (isYear(t[1]) && isInteger(t[2]) && isInteger(t[3]) && isFloat(t[4]))
        return TIMEFORMAT_JJJ_YYYY_HH_MM_SS;
      return TIMEFORMAT_NO_MATCH;
    case 6:
      if (isOrdinal(t[0]) && isInteger(t[1]) && isInteger(t[2]) && isFloat(t[3]) && isAmPm(t[4]) && isYear(t[5]))
        return TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY;
      // the month-like token decides between the overlapping shapes
      if (isWeekday(t[0])) {
        if (isMonth(t[1]) && isMonthDay(t[2]) && isInteger(t[3]) && isInteger(t[4]) && isFloat(t[5]))
          return TIMEFORMAT_WKD_MNT_MD_HH_MM_SS;
        return TIMEFORMAT_NO_MATCH;
      }
      if (isMonth(t[0]) && isMonthDay(t[1])) {
        if (isHours(t[2]) && isMinutes(t[3]) && isFloat(t[4]) && isYear(t[5]))
          return TIMEFORMAT_MNT_MD_HH_MM_SS_YYYY;
        if (isYear(t[2]) && isInteger(t[3]) && isInteger(t[4]) && isFloat(t[5]))
          return TIMEFORMAT_MNT_MD_YYYY_HH_MM_SS;
        return TIMEFORMAT_NO_MATCH;
      }
      if (isMonthDay(t[0]) && isMonth(t[1]) && isYear(t[2]) && isInteger(t[3]) && isInteger(t[4]) && isFloat(t[5]))
        return TIMEFORMAT_MD_MNT_YYYY_HH_MM_SS;
      return TIMEFORMAT_NO_MATCH;
    case 7:
      if (isWeekday(t[0]) && isMonth(t[1]) && isMonthDay(t[2]) && isInteger(t[3]) && isInteger(t[4]) &&
          isFloat(t[5]) && isYear(t[6]))
        return TIMEFORMAT_WKD_MNT_MD_HH_MM_SS_YYYY;
      return TIMEFORMAT_NO_MATCH;
    default:
      return TIMEFORMAT_NO_MATCH;
  }
}

}  // namespace

TimeFormatMatch_t getTimeMatch(const std::string& text) {
  const std::string clean = orvCore::removeQuotes(text);
  std::vector<std::string> tokens;
  orvCore::stringTokenizer(tokens, clean, " :");
  return matchTokens(clean, tokens);
}

std::string getTimeMatchString(TimeFormatMatch_t match) {
  if (match < TIMEFORMAT_NO_MATCH || match > TIMEFORMAT_ISO_DATE)
    return MATCH_PATTERN[0];
  return MATCH_PATTERN[match];
}

std::string getTimeFormatString(UnitType_t format) {
  switch (format) {
    case UNITS_SECONDS:
      return "secs";
    case UNITS_MINUTES:
      return "mins";
    case UNITS_HOURS:
      return "hrs";
    case UNITS_ORDINAL:
      return "jul";
    case UNITS_MONTHDAY:
      return "mon";
    case UNITS_DTG:
      return "dtg";
    default:
      std::cerr << "WARNING:  Unrecognized Time Format\n";
      return "unknown";
  }
}

UnitType_t getTimeFormatValue(const std::string& keyword) {
  if (keyword.empty())
    return UNITS_SECONDS;
  const std::string word = orvCore::lowerCase(keyword);
  if (word == "secs")
    return UNITS_SECONDS;
  if (word == "mins")
    return UNITS_MINUTES;
  if (word == "hrs")
    return UNITS_HOURS;
  if (word == "jul" || word == "ord")
    return UNITS_ORDINAL;
  if (word == "mon")
    return UNITS_MONTHDAY;
  if (word == "dtg")
    return UNITS_DTG;
  std::cerr << "WARNING:  Unrecognized Time Format String\n";
  return UNITS_SECONDS;
}

orvCore::TimeFormat convertUtilsTimeFormat(UnitType_t format) {
  switch (format) {
    case UNITS_MINUTES:
      return orvCore::TIMEFORMAT_MINUTES;
    case UNITS_HOURS:
      return orvCore::TIMEFORMAT_HOURS;
    case UNITS_ORDINAL:
      return orvCore::TIMEFORMAT_ORDINAL;
    case UNITS_MONTHDAY:
      return orvCore::TIMEFORMAT_MONTHDAY;
    case UNITS_DTG:
      return orvCore::TIMEFORMAT_DTG;
    default:
      return orvCore::TIMEFORMAT_SECONDS;
  }
}

UnitType_t convertUtilsTimeFormat(orvCore::TimeFormat format) {
  switch (format) {
    case orvCore::TIMEFORMAT_MINUTES:
      return UNITS_MINUTES;
    case orvCore::TIMEFORMAT_HOURS:
      return UNITS_HOURS;
    case orvCore::TIMEFORMAT_ORDINAL:
      return UNITS_ORDINAL;
    case orvCore::TIMEFORMAT_MONTHDAY:
      return UNITS_MONTHDAY;
    case orvCore::TIMEFORMAT_DTG:
      return UNITS_DTG;
    default:
      return UNITS_SECONDS;
  }
}

int getMonthFromString(const std::string& text) {
  if (text.empty())
    throw TimeException(TimeException::BAD_MONTH, "Empty string detected for the month string.");
  for (int m = 0; m < 12; ++m) {
    if (orvCore::caseCompare(text, orvCore::ABBREV_MONTH_NAME[m]) == 0 ||
        orvCore::caseCompare(text, orvCore::MONTH_NAME[m]) == 0)
      return m;
  }
  throw TimeException(TimeException::BAD_MONTH, "Unrecognized month string.");
}

std::string getStringFromMonth(int month, bool abbreviated) {
  if (month < 0 || month > 11)
    throw TimeException(TimeException::BAD_MONTH, "The given month number is not valid.");
  return abbreviated ? orvCore::ABBREV_MONTH_NAME[month] : orvCore::MONTH_NAME[month];
}

int getDayFromString(const std::string& text) {
  if (text.empty())
    throw TimeException(TimeException::BAD_FORMAT, "Empty string detected for the weekday string.");
  for (int d = 0; d < 7; ++d) {
    if (orvCore::caseCompare(text, DAY_NAME[d]) == 0)
      return d;
  }
  throw TimeException(TimeException::BAD_FORMAT, "Unrecognized weekday string.");
}

std::string getStringFromDay(int day) {
  if (day < 0 || day > 6)
    throw TimeException(TimeException::BAD_FORMAT, "The given weekday number is not valid.");
  return DAY_NAME[day];
}

}  // namespace UTILS
