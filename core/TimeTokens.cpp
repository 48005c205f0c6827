#include "core/TimeTokens.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <memory>

#include "core/StringUtils.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"

namespace UTILS {
namespace timetokens {

namespace {

bool intInRange(const std::string& token, int low, int high) {
  int value = 0;
  return toInt(token, value) && value >= low && value <= high;
}

// Compiled once; pcre2 code is safe to share between threads for matching.
class YearTokenPattern {
 public:
  YearTokenPattern() {
    int error = 0;
    PCRE2_SIZE offset = 0;
    code_ = pcre2_compile(reinterpret_cast<PCRE2_SPTR>("(((\")+)[^\"]*\\2)|([^\\s]+)"), PCRE2_ZERO_TERMINATED, 0,
                          &error, &offset, nullptr);
  }
  ~YearTokenPattern() { pcre2_code_free(code_); }
  YearTokenPattern(const YearTokenPattern&) = delete;
  YearTokenPattern& operator=(const YearTokenPattern&) = delete;

  std::vector<std::string> tokens(const std::string& text) const {
    std::vector<std::string> result;
    if (code_ == nullptr)
      return result;
    std::unique_ptr<pcre2_match_data, decltype(&pcre2_match_data_free)> match(
        pcre2_match_data_create_from_pattern(code_, nullptr), &pcre2_match_data_free);
    if (!match)
      return result;
    PCRE2_SIZE start = 0;
    const auto subject = reinterpret_cast<PCRE2_SPTR>(text.data());
    while (start < text.size()) {
      const int rc = pcre2_match(code_, subject, text.size(), start, 0, match.get(), nullptr);
      if (rc < 0)
        break;
      const PCRE2_SIZE* ovector = pcre2_get_ovector_pointer(match.get());
      if (ovector[1] <= ovector[0])  // an empty match can't move on
        break;
      result.push_back(text.substr(ovector[0], ovector[1] - ovector[0]));
      start = ovector[1];
    }
    return result;
  }

 private:
  pcre2_code* code_ = nullptr;
};

}  // namespace

bool toInt(const std::string& token, int& value) { return orvCore::isValidNumber(token, value, true); }

bool isInteger(const std::string& token) {
  long value = 0;
  return orvCore::isValidNumber(token, value, true);
}

bool isFloat(const std::string& token) {
  double value = 0;
  return orvCore::isValidNumber(token, value, true);
}

bool isMonth(const std::string& token) {
  if (token.size() != 3)
    return false;
  static const char* const names[12] = {"jan", "feb", "mar", "apr", "may", "jun",
                                        "jul", "aug", "sep", "oct", "nov", "dec"};
  const std::string lower = orvCore::lowerCase(token);
  for (const char* name : names) {
    if (lower == name)
      return true;
  }
  return false;
}

bool isMonthDay(const std::string& token) { return intInRange(token, 1, 31); }

bool isWeekday(const std::string& token) {
  if (token.size() != 3)
    return false;
  static const char* const names[8] = {"sun", "mon", "tue", "wed", "thu", "thr", "fri", "sat"};
  const std::string lower = orvCore::lowerCase(token);
  for (const char* name : names) {
    if (lower == name)
      return true;
  }
  return false;
}

bool isOrdinal(const std::string& token) { return intInRange(token, 1, 366); }
bool isHours(const std::string& token) { return intInRange(token, 0, 23); }
bool isMinutes(const std::string& token) { return intInRange(token, 0, 59); }
bool isYear(const std::string& token) { return intInRange(token, 0, 2147483647); }

bool isAmPm(const std::string& token) {
  const std::string lower = orvCore::lowerCase(token);
  return lower == "am" || lower == "pm";
}

int expandTwoDigitYear(int year) { return year < 70 ? 2000 + year : 1900 + year; }

int expandTwoDigitYear(int year, int referenceYear) {
  long long candidate = (static_cast<long long>(referenceYear) / 100) * 100 + year;
  if (candidate < static_cast<long long>(referenceYear) - 50)
    candidate += 100;
  else if (candidate >= static_cast<long long>(referenceYear) + 50)
    candidate -= 100;
  if (candidate > 2147483647 || candidate < 0)
    return expandTwoDigitYear(year);
  return static_cast<int>(candidate);
}

std::string cleanTimeText(const std::string& text) {
  const size_t first = text.find_first_not_of(orvCore::STR_WHITE_SPACE_CHARS);
  if (first == std::string::npos)
    return std::string();
  const size_t last = text.find_last_not_of(orvCore::STR_WHITE_SPACE_CHARS);
  return orvCore::removeQuotes(text.substr(first, last - first + 1));
}

std::vector<std::string> regexTokens(const std::string& text) {
  static const YearTokenPattern pattern;
  return pattern.tokens(text);
}

}  // namespace timetokens
}  // namespace UTILS
