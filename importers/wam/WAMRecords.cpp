#include "importers/wam/WAMRecords.h"

#include <cmath>
#include <cstdlib>
#include <ostream>

#include "core/TimeCalendar.h"

namespace WAMLib {

namespace {

bool allDigits(const std::string& text) {
  for (char c : text)
    if (c < '0' || c > '9') return false;
  return true;
}

int twoDigits(const std::string& text, size_t at) { return (text[at] - '0') * 10 + (text[at + 1] - '0'); }

// A number field: false when empty; text that is not a number reads as 0.
bool numberField(const std::string& text, double& value) {
  if (text.empty()) return false;
  value = std::strtod(text.c_str(), nullptr);
  return true;
}

double latLon(const std::string& value, const std::string& hemisphere) {
  const double degrees = std::strtod(value.c_str(), nullptr);
  return hemisphere == "S" || hemisphere == "s" || hemisphere == "W" || hemisphere == "w" ? -degrees : degrees;
}

int letterCode(const std::string& letter, const char* letters, const int* codes, int otherwise) {
  if (letter.size() != 1) return otherwise;
  for (int i = 0; letters[i]; ++i)
    if (letters[i] == letter[0]) return codes[i];
  return otherwise;
}

}  // namespace

int parseField(Tokens::const_iterator& it, const Tokens& tokens, std::string& result) {
  if (it == tokens.end()) {
    result.clear();
    return 1;
  }
  result = *it++;
  return 0;
}

bool parseTime(int year, const std::string& date, const std::string& time, const std::string& milliseconds,
               double& seconds, std::ostream& errors) {
  if (date.empty() || time.empty() || milliseconds.empty()) {
    errors << "Unable to process time due to empty fields\n";
    return false;
  }
  if (date.size() != 8) {
    errors << "The yyyymmdd field must contain 8 characters: " << date << '\n';
    return false;
  }
  if (time.size() != 6) {
    errors << "The hhmmss field must contain 6 characters: " << time << '\n';
    return false;
  }
  const int month = allDigits(date) ? twoDigits(date, 4) : 0;
  const int day = allDigits(date) ? twoDigits(date, 6) : 0;
  // Calendar dates only: getYearDay counts months from 0 and trusts them.
  if (!orvCore::isValidDMY(day, month, year)) {
    errors << "The yyyymmdd field is not a date: " << date << '\n';
    return false;
  }
  if (!allDigits(time) || twoDigits(time, 0) > 23 || twoDigits(time, 2) > 59 || twoDigits(time, 4) > 60) {
    errors << "The hhmmss field is not a time of day: " << time << '\n';
    return false;
  }
  // "nan" or "inf" would give a time that no filter can order.
  const double thousandths = std::strtod(milliseconds.c_str(), nullptr);
  if (!std::isfinite(thousandths)) {
    errors << "The milliseconds field is not a number: " << milliseconds << '\n';
    return false;
  }
  seconds = orvCore::getYearDay(month - 1, day, year) * 86400.0 + twoDigits(time, 0) * 3600.0 +
            twoDigits(time, 2) * 60.0 + twoDigits(time, 4) + thousandths * 0.001;
  return true;
}

bool WAMTrack::parseLine(const Tokens& tokens, std::ostream& errors) {
  if (tokens.size() < 3) {
    errors << "\nError parsing TRACK, expected at least 3 tokens, received " << tokens.size();
    return false;
  }
  auto it = tokens.begin();
  std::string* fields[] = {&source,  &unit,     &track,    &name,  &unitType,   &platformType, &country,
                           &mission, &exercise, &taxonomy, &truth, &dataSource, &remarks};
  for (std::string* field : fields) parseField(it, tokens, *field);
  if (truth.empty()) truth = source == "TRU" ? "Y" : "N";
  return true;
}

const char* WAMPoint::categoryName(Text field) {
  static const char* const names[TEXT_COUNT] = {
      "",        "",       "Domain",     "",                "",
      "",        "",       "",           "",                "Mode 2",
      "Mode 3",  "",       "Raid Size",  "Origin Source",   "ID Marker",
      "ID Amplification", "Reporting Unit", "Other Track Num Type", "Other Track Num", "Platform",
      "Activity", "Specific Type"};
  return names[field];
}

bool WAMPoint::parseLine(const Tokens& tokens, std::ostream& errors) {
  if (tokens.size() < 8) {
    errors << "\nError parsing POINT, expected at least 8 tokens, received " << tokens.size();
    return false;
  }
  auto it = tokens.begin();
  std::string clock, milliseconds, lat, latHemisphere, lon, lonHemisphere, field;
  parseField(it, tokens, date);
  parseField(it, tokens, clock);
  parseField(it, tokens, milliseconds);
  year = date.size() >= 4 && allDigits(date.substr(0, 4)) ? std::atoi(date.substr(0, 4).c_str()) : 0;
  if (!parseTime(year, date, clock, milliseconds, time, errors)) return false;
  parseField(it, tokens, lat);
  parseField(it, tokens, latHemisphere);
  parseField(it, tokens, lon);
  parseField(it, tokens, lonHemisphere);
  latitude = latLon(lat, latHemisphere);
  longitude = latLon(lon, lonHemisphere);
  parseField(it, tokens, field);
  hasAltitude = numberField(field, altitude);
  parseField(it, tokens, field);
  hasCourse = numberField(field, course);
  parseField(it, tokens, field);
  hasSpeed = numberField(field, speed);
  parseField(it, tokens, unit);
  parseField(it, tokens, track);
  carriesLocalTQ = parseField(it, tokens, localTQText) == 0;
  hasLocalTQ = numberField(localTQText, localTQ);
  carriesRemoteTQ = parseField(it, tokens, remoteTQText) == 0;
  hasRemoteTQ = numberField(remoteTQText, remoteTQ);
  for (int i = 0; i < TEXT_COUNT; ++i) carried[i] = parseField(it, tokens, text[i]) == 0;
  category = parseCategory(text[CATEGORY]);
  identity = parseFHN(text[IDENTITY]);
  threat = parseThreat(text[THREAT]);
  colour = parseColor(text[COLOUR]);
  mode4 = parseMode4(text[MODE4]);
  return true;
}

bool WAMAction::parseLine(const Tokens& tokens, std::ostream& errors) {
  if (tokens.size() != kFieldCount) {
    errors << "\nError parsing ACTION, expected 148 tokens, received " << tokens.size();
    return false;
  }
  fields = tokens;
  auto it = fields.cbegin();
  parseField(it, fields, unit);
  parseField(it, fields, track);
  return true;
}

int parseCategory(const std::string& letter) {
  static const int codes[] = {0, 1, 2, 3, 4, 5};
  return letterCode(letter, "ASULCO", codes, 6);
}

int parseFHN(const std::string& letter) {
  static const int codes[] = {0, 1, 3, 4, 5, 6, 7, 8};
  return letterCode(letter, "FHOPSANX", codes, 2);
}

int parseThreat(const std::string& letter) {
  static const int codes[] = {0, 1, 2, 3};
  return letterCode(letter, "BMSF", codes, 4);
}

int parseColor(const std::string& letter) {
  static const int codes[] = {0, 1, 2, 3};
  return letterCode(letter, "OPWB", codes, 4);
}

int parseMode4(const std::string& letter) {
  static const int codes[] = {1, 2, 3, 5, 6, 7, 4};
  return letterCode(letter, "VINXDCU", codes, 0);
}

std::string domainText(const std::string& letter) {
  if (letter.empty()) return "Not Found";
  static const char* const texts[] = {"Air", "Surface", "Subsurface", "Land", "Space", "Other", "Unknown"};
  return texts[parseCategory(letter)];
}

}  // namespace WAMLib
