#include "core/TimeParse.h"

#include <cmath>
#include <vector>

#include "core/Convert.h"
#include "core/StringUtils.h"
#include "core/TimeCalendar.h"
#include "core/TimeTokens.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"

namespace UTILS {

using orvCore::TimeException;
using namespace timetokens;

namespace {

const char* const MSG_EMPTY = "Illegal empty string or empty quote detected.";
const char* const MSG_NOT_RECOGNIZED = "Time format not recognized.";
const char* const MSG_REFERENCE_AFTER = "Reference year is greater than year in time string.";
const char* const MSG_DTG_SHORT = "Not enough characters to decode Month-Day, Hours, Minutes, and Seconds.";
const char* const MSG_DTG_TAIL = "Invalid character string: expecting MMMYY (month name, year).";
const char* const MSG_DAY_MONTH_YEAR =
    "Invalid character string: expecting MDMNTYYYY (month day, month name, year).";
const char* const MSG_ISO_DATE = "Bad format for date string, expected YYYY-MM-DD.";
const char* const MSG_BAD_CLOCK = "The calculated time string is not in a recognized format.";
const char* const MSG_ORDINAL = "The ordinal day is not a day of the year.";

[[noreturn]] void fail(int code, const char* message) { throw TimeException(code, message); }

int intToken(const std::string& token, int code = TimeException::BAD_FORMAT, const char* message = MSG_NOT_RECOGNIZED) {
  int value = 0;
  if (!toInt(token, value))
    fail(code, message);
  return value;
}

// Seconds from the start of `from` to the start of `to`, to >= from.
double yearsToSeconds(int from, int to) {
  const long long days = 365LL * (static_cast<long long>(to) - from) +
                         (orvCore::leapDays(to - 1900) - orvCore::leapDays(from - 1900));
  return static_cast<double>(days) * 86400.0;
}

// A date of the text as seconds since the start of the reference year.
double dateToSeconds(int year, int yearDay, double clock, int referenceYear) {
  if (year < referenceYear)
    fail(TimeException::BAD_REFERENCE_YEAR, MSG_REFERENCE_AFTER);
  return yearsToSeconds(referenceYear, year) + yearDay * 86400.0 + clock;
}

double ordinalDate(const std::string& ordinal, int year, double clock, int referenceYear) {
  const int day = intToken(ordinal, TimeException::BAD_YEAR_DAY, MSG_ORDINAL);
  if (year < referenceYear)
    fail(TimeException::BAD_REFERENCE_YEAR, MSG_REFERENCE_AFTER);
  if (day < 1 || day > orvCore::daysPerYear(year))
    fail(TimeException::BAD_YEAR_DAY, MSG_ORDINAL);
  return dateToSeconds(year, day - 1, clock, referenceYear);
}

// month from 0
double calendarDate(int month, int monthDay, int year, double clock, int referenceYear) {
  if (year < referenceYear)
    fail(TimeException::BAD_REFERENCE_YEAR, MSG_REFERENCE_AFTER);
  orvCore::checkValidDMY(monthDay, month + 1, year);
  return dateToSeconds(year, orvCore::getYearDay(month, monthDay, year), clock, referenceYear);
}

double clockOf(const std::string& hours, const std::string& minutes, const std::string& seconds) {
  return getHHMMSSFromString(hours + ":" + minutes + ":" + seconds);
}

// "15MAR2018": day of month, month name, four-digit year.
void readDayMonthYear(const std::string& text, int& monthDay, int& month, int& year) {
  size_t digits = 0;
  while (digits < text.size() && digits < 2 && text[digits] >= '0' && text[digits] <= '9')
    ++digits;
  if (digits == 0 || text.size() != digits + 7)
    fail(TimeException::BAD_FORMAT, MSG_DAY_MONTH_YEAR);
  const std::string monthText = text.substr(digits, 3);
  const std::string yearText = text.substr(digits + 3);
  if (!isMonth(monthText) || !orvCore::stringIsIntegerNumber(yearText, true, false, false))
    fail(TimeException::BAD_FORMAT, MSG_DAY_MONTH_YEAR);
  monthDay = intToken(text.substr(0, digits));
  month = getMonthFromString(monthText);
  year = intToken(yearText);
}

// "1230z" or "30z": digits followed by a z.
std::string withoutZulu(const std::string& token) {
  if (token.size() < 2 || (token.back() != 'z' && token.back() != 'Z'))
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  const std::string digits = token.substr(0, token.size() - 1);
  if (!orvCore::stringIsIntegerNumber(digits, true, false, false))
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  return digits;
}

double parseDtg(const std::string& text, int referenceYear) {
  std::vector<std::string> words;
  orvCore::stringTokenizer(words, text, orvCore::STR_WHITE_SPACE_CHARS);
  if (words.size() != 3 || (words[1] != "Z" && words[1] != "z"))
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  const std::string& group = words[0];
  if (group.size() < 8)
    fail(TimeException::BAD_FORMAT, MSG_DTG_SHORT);
  const std::string fused = group.substr(0, 6);
  if (group[6] != ':' || !orvCore::stringIsIntegerNumber(fused, true, false, false))
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  const int monthDay = intToken(group.substr(0, 2));
  const double clock = clockOf(group.substr(2, 2), group.substr(4, 2), group.substr(7));
  const std::string& tail = words[2];
  if (tail.size() != 5 || !isMonth(tail.substr(0, 3)) ||
      !orvCore::stringIsIntegerNumber(tail.substr(3), true, false, false))
    fail(TimeException::BAD_FORMAT, MSG_DTG_TAIL);
  const int month = getMonthFromString(tail.substr(0, 3));
  const int year = expandTwoDigitYear(intToken(tail.substr(3)), referenceYear);
  return calendarDate(month, monthDay, year, clock, referenceYear);
}

double parseIsoDate(const std::vector<std::string>& t, int referenceYear) {
  std::vector<std::string> parts;
  orvCore::stringTokenizer(parts, t[0], "-", true, false);
  if (parts.size() != 3)
    fail(TimeException::BAD_FORMAT, MSG_ISO_DATE);
  for (const std::string& part : parts) {
    if (!orvCore::stringIsIntegerNumber(part, true, false, false))
      fail(TimeException::BAD_FORMAT, MSG_ISO_DATE);
  }
  const int year = intToken(parts[0], TimeException::BAD_FORMAT, MSG_ISO_DATE);
  const int month = intToken(parts[1], TimeException::BAD_FORMAT, MSG_ISO_DATE);
  const int monthDay = intToken(parts[2], TimeException::BAD_FORMAT, MSG_ISO_DATE);
  return calendarDate(month - 1, monthDay, year, clockOf(t[1], t[2], t[3]), referenceYear);
}

// "15-Mar", optionally "15-Mar-2018": midnight of that day.
double parseDayMonth(const std::string& text, int referenceYear) {
  std::vector<std::string> parts;
  orvCore::stringTokenizer(parts, text, "-", true, false);
  if (parts.size() != 2 && parts.size() != 3)
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  const int monthDay = intToken(parts[0]);
  const int month = getMonthFromString(parts[1]);
  const int year = parts.size() == 3 ? intToken(parts[2], TimeException::BAD_YEAR) : referenceYear;
  return calendarDate(month, monthDay, year, 0.0, referenceYear);
}

}  // namespace

double getHHMMSSFromString(const std::string& text) {
  std::vector<std::string> fields;
  orvCore::stringTokenizer(fields, text, ":", true, false);
  if (fields.empty() || fields.size() > 3)
    fail(TimeException::BAD_FORMAT, MSG_BAD_CLOCK);
  double values[3] = {0, 0, 0};
  for (size_t i = 0; i < fields.size(); ++i) {
    if (!orvCore::isValidNumber(fields[i], values[i], true))
      fail(TimeException::BAD_FORMAT, MSG_BAD_CLOCK);
  }
  double hours = 0;
  double minutes = 0;
  const double seconds = values[fields.size() - 1];
  if (fields.size() == 3) {
    hours = values[0];
    minutes = values[1];
  } else if (fields.size() == 2) {
    minutes = values[0];
  }
  if (hours < 0)
    fail(TimeException::BAD_FORMAT, "The calculated hours value is less than zero.");
  if (minutes < 0)
    fail(TimeException::BAD_FORMAT, "The calculated minutes value is less than zero.");
  if (seconds < 0)
    fail(TimeException::BAD_FORMAT, "The calculated seconds value is less than zero.");
  if (fields.size() > 1 && seconds > 60)
    fail(TimeException::BAD_FORMAT, "The calculated seconds value exceeds 60.");
  const double total = hours * 3600.0 + minutes * 60.0 + seconds;
  if (!std::isfinite(total))
    fail(TimeException::BAD_FORMAT, MSG_BAD_CLOCK);
  return total;
}

double parseTimeString(const std::string& text, int referenceYear, double timeOffset) {
  if (referenceYear < 1900)
    fail(TimeException::BAD_REFERENCE_YEAR, "The reference year is < 1900.");
  const std::string clean = cleanTimeText(text);
  if (clean.empty())
    fail(TimeException::BAD_FORMAT, MSG_EMPTY);
  std::vector<std::string> t;
  orvCore::stringTokenizer(t, clean, " :");
  double result = 0;
  switch (getTimeMatch(clean)) {
    case TIMEFORMAT_SS:
    case TIMEFORMAT_NEGATIVE_SS:
      orvCore::isValidNumber(t[0], result, true);
      break;
    case TIMEFORMAT_MM_SS:
      result = getHHMMSSFromString(t[0] + ":" + t[1]);
      break;
    case TIMEFORMAT_HH_MM_SS:
      result = clockOf(t[0], t[1], t[2]);
      break;
    case TIMEFORMAT_JJJ_YYYY_HH_MM_SS:
      result = ordinalDate(t[0], intToken(t[1], TimeException::BAD_YEAR), clockOf(t[2], t[3], t[4]), referenceYear);
      break;
    case TIMEFORMAT_JJJ_HH_MM_SS_YYYY:
      result = ordinalDate(t[0], intToken(t[4], TimeException::BAD_YEAR), clockOf(t[1], t[2], t[3]), referenceYear);
      break;
    case TIMEFORMAT_JJJ_HH_MM_SS:
      result = ordinalDate(t[0], referenceYear, clockOf(t[1], t[2], t[3]), referenceYear);
      break;
    case TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY: {
      double clock = clockOf(t[1], t[2], t[3]);
      if (orvCore::lowerCase(t[4]) == "pm")
        clock += 12 * 3600.0;
      const int year = t.size() == 6 ? intToken(t[5], TimeException::BAD_YEAR) : referenceYear;
      result = ordinalDate(t[0], year, clock, referenceYear);
      break;
    }
    case TIMEFORMAT_MNT_MD_YYYY_HH_MM_SS:
      result = calendarDate(getMonthFromString(t[0]), intToken(t[1], TimeException::BAD_MONTH_DAY),
                            intToken(t[2], TimeException::BAD_YEAR), clockOf(t[3], t[4], t[5]), referenceYear);
      break;
    case TIMEFORMAT_MD_MNT_YYYY_HH_MM_SS:
      result = calendarDate(getMonthFromString(t[1]), intToken(t[0], TimeException::BAD_MONTH_DAY),
                            intToken(t[2], TimeException::BAD_YEAR), clockOf(t[3], t[4], t[5]), referenceYear);
      break;
    case TIMEFORMAT_MNT_MD_HH_MM_SS_YYYY:
      result = calendarDate(getMonthFromString(t[0]), intToken(t[1], TimeException::BAD_MONTH_DAY),
                            intToken(t[5], TimeException::BAD_YEAR), clockOf(t[2], t[3], t[4]), referenceYear);
      break;
    case TIMEFORMAT_WKD_MNT_MD_HH_MM_SS_YYYY:
      // the weekday is redundant with the date and isn't checked against it
      result = calendarDate(getMonthFromString(t[1]), intToken(t[2], TimeException::BAD_MONTH_DAY),
                            intToken(t[6], TimeException::BAD_YEAR), clockOf(t[3], t[4], t[5]), referenceYear);
      break;
    case TIMEFORMAT_WKD_MNT_MD_HH_MM_SS:
      result = calendarDate(getMonthFromString(t[1]), intToken(t[2], TimeException::BAD_MONTH_DAY), referenceYear,
                            clockOf(t[3], t[4], t[5]), referenceYear);
      break;
    case TIMEFORMAT_DATE_TIME_GROUP:
      result = parseDtg(clean, referenceYear);
      break;
    case TIMEFORMAT_HH_MMZ_MDMNTYYYY: {
      int monthDay = 0, month = 0, year = 0;
      readDayMonthYear(t[2], monthDay, month, year);
      result = calendarDate(month, monthDay, year, clockOf(t[0], withoutZulu(t[1]), "0"), referenceYear);
      break;
    }
    case TIMEFORMAT_HHMMZ_MDMNTYYYY: {
      const std::string digits = withoutZulu(t[0]);
      if (digits.size() < 3 || digits.size() > 4)
        fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
      int monthDay = 0, month = 0, year = 0;
      readDayMonthYear(t[1], monthDay, month, year);
      const double clock = clockOf(digits.substr(0, digits.size() - 2), digits.substr(digits.size() - 2), "0");
      result = calendarDate(month, monthDay, year, clock, referenceYear);
      break;
    }
    case TIMEFORMAT_MD_MNT:
      result = parseDayMonth(clean, referenceYear);
      break;
    case TIMEFORMAT_ISO_DATE:
      result = parseIsoDate(t, referenceYear);
      break;
    default:
      fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  }
  return result + timeOffset;
}

int getYearFromTimeString(const std::string& text) {
  const std::string clean = cleanTimeText(text);
  if (clean.empty())
    fail(TimeException::BAD_FORMAT, MSG_EMPTY);
  const TimeFormatMatch_t match = getTimeMatch(clean);
  const std::vector<std::string> tokens = regexTokens(clean);
  // index of the token that holds the year, by shape
  size_t index = 0;
  switch (match) {
    case TIMEFORMAT_NO_MATCH:
      fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
    case TIMEFORMAT_SS:
    case TIMEFORMAT_NEGATIVE_SS:
    case TIMEFORMAT_MM_SS:
    case TIMEFORMAT_HH_MM_SS:
    case TIMEFORMAT_MD_MNT:
      fail(TimeException::BAD_FORMAT, "Time string is not in one of the supported formats that contains a year value.");
    case TIMEFORMAT_JJJ_HH_MM_SS:
    case TIMEFORMAT_WKD_MNT_MD_HH_MM_SS:
      fail(TimeException::BAD_YEAR, "Time string is missing optional year value.");
    case TIMEFORMAT_JJJ_HH_MM_SS_AMPM_YYYY:
      if (tokens.size() != 4)
        fail(TimeException::BAD_YEAR, "Time string is missing optional year value.");
      index = 3;
      break;
    case TIMEFORMAT_ISO_DATE: {
      std::vector<std::string> parts;
      if (!tokens.empty())
        orvCore::stringTokenizer(parts, tokens[0], "-", true, false);
      int year = 0;
      if (parts.size() != 3 || !orvCore::stringIsIntegerNumber(parts[0], true, false, false) || !toInt(parts[0], year))
        fail(TimeException::BAD_FORMAT, "Bad time string, expected YYYY-MM-DD");
      return year;
    }
    case TIMEFORMAT_JJJ_YYYY_HH_MM_SS:
    case TIMEFORMAT_HH_MMZ_MDMNTYYYY:
    case TIMEFORMAT_HHMMZ_MDMNTYYYY:
      index = 1;
      break;
    case TIMEFORMAT_MNT_MD_YYYY_HH_MM_SS:
    case TIMEFORMAT_MD_MNT_YYYY_HH_MM_SS:
    case TIMEFORMAT_JJJ_HH_MM_SS_YYYY:
    case TIMEFORMAT_DATE_TIME_GROUP:
      index = 2;
      break;
    case TIMEFORMAT_MNT_MD_HH_MM_SS_YYYY:
      index = 3;
      break;
    case TIMEFORMAT_WKD_MNT_MD_HH_MM_SS_YYYY:
      index = 4;
      break;
  }
  if (index >= tokens.size())
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  std::string yearText = tokens[index];
  if (match == TIMEFORMAT_DATE_TIME_GROUP) {
    if (yearText.size() != 5)
      fail(TimeException::BAD_FORMAT, MSG_DTG_TAIL);
    return expandTwoDigitYear(intToken(yearText.substr(3), TimeException::BAD_FORMAT, MSG_DTG_TAIL));
  }
  if (match == TIMEFORMAT_HH_MMZ_MDMNTYYYY || match == TIMEFORMAT_HHMMZ_MDMNTYYYY) {
    int monthDay = 0, month = 0, year = 0;
    readDayMonthYear(yearText, monthDay, month, year);
    return year;
  }
  return intToken(yearText, TimeException::BAD_YEAR);
}

double getSecondsFromJdayString(const std::string& text) {
  const std::string clean = cleanTimeText(text);
  if (clean.empty())
    fail(TimeException::BAD_FORMAT, MSG_EMPTY);
  const std::vector<std::string> tokens = regexTokens(clean);
  if (tokens.size() != 2)
    fail(TimeException::BAD_FORMAT, MSG_NOT_RECOGNIZED);
  const int day = intToken(tokens[0], TimeException::BAD_YEAR_DAY, MSG_ORDINAL);
  if (day < 1 || day > 366)
    fail(TimeException::BAD_YEAR_DAY, MSG_ORDINAL);
  return (day - 1) * 86400.0 + getHHMMSSFromString(tokens[1]);
}

double getSecondsSinceYearFromScoreTimeString(const std::string& text) {
  std::vector<std::string> tokens;
  orvCore::stringTokenizer(tokens, text, " \t\n:;");
  if (tokens.empty())
    return 0;
  const size_t n = tokens.size();
  double seconds = stringConvertToDouble(tokens[n - 1]);
  if (!std::isfinite(seconds))
    seconds = 0;
  long long hours = 0;
  long long minutes = 0;
  long long days = 0;
  if (n >= 2) {
    // the last two digits are minutes, the rest hours
    const std::string& fused = tokens[n - 2];
    const size_t split = fused.size() > 2 ? fused.size() - 2 : 0;
    hours = split > 0 ? stringConvertToLongLong(fused.substr(0, split)) : 0;
    minutes = stringConvertToLongLong(fused.substr(split));
  }
  if (n >= 3)
    days = stringConvertToLongLong(tokens[n - 3]);
  return static_cast<double>(days) * 86400.0 + static_cast<double>(hours) * 3600.0 +
         static_cast<double>(minutes) * 60.0 + seconds;
}

int getReferenceYearFromScoreDateString(const std::string& text) {
  // set on first use, as the fallback for texts without a year
  static const int fallbackYear = orvCore::currentYear();
  std::vector<std::string> tokens;
  orvCore::stringTokenizer(tokens, text, " \t\n/\\-.,");
  for (const std::string& token : tokens) {
    if (token.size() == 4 && orvCore::stringIsIntegerNumber(token, true, false, false))
      return stringConvertToInt(token);
  }
  if (!tokens.empty()) {
    const std::string& last = tokens.back();
    if (last.size() == 2 && orvCore::stringIsIntegerNumber(last, true, false, false))
      return expandTwoDigitYear(stringConvertToInt(last));
  }
  return fallbackYear;
}

}  // namespace UTILS
