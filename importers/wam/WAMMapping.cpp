#include "importers/wam/WAMMapping.h"

#include <algorithm>
#include <fstream>
#include <ostream>
#include <vector>

#include "core/Convert.h"
#include "core/FileUtils.h"
#include "core/StringUtils.h"
#include "core/TimeTokens.h"
#include "core/Tokenizer.h"
#include "core/ValidNumber.h"

namespace WAMLib {

namespace {

// The line up to its first "#" or "//", whichever comes first: the comment
// rule of the keyword files.
std::string cutComment(const std::string& line) {
  return line.substr(0, std::min(line.find('#'), line.find("//")));
}

bool readBool(const std::string& text, bool& value) {
  if (orvCore::stringIsTrueToken(text)) return value = true, true;
  if (UTILS::stringIsFalseToken(text)) return value = false, true;
  return false;
}

}  // namespace

std::string WAMMapping::findMappingFile() {
  const std::pair<const char*, const char*> places[] = {
      {"ORVIDE_USER_DIR", "/wamModel.map"},
      {"ORVIDE_DIR", "/wamModel.map"},
      {"ORVIDE_HOME", "/config/ORVIDE/wamModel.map"}};
  for (const auto& place : places) {
    const std::string directory = orvCore::getEnvVar(place.first);
    if (directory.empty()) continue;
    const std::string path = directory + place.second;
    if (UTILS::fileIsFile(path)) return path;
  }
  return std::string();
}

bool WAMMapping::load(std::ostream& out, std::ostream& errors) {
  const std::string path = findMappingFile();
  if (path.empty()) return false;
  out << "Loading WAM mapping file: \"" << path << "\"\n";
  return read(path, errors);
}

bool WAMMapping::read(const std::string& path, std::ostream& errors) {
  std::ifstream in(path);
  if (!in) {
    errors << "Unable to open WAM mapping file \"" << path << "\"\n";
    return false;
  }
  return read(in, errors);
}

bool WAMMapping::read(std::istream& in, std::ostream& errors) {
  std::string line;
  unsigned long number = 0;
  while (std::getline(in, line)) readLine_(line, ++number, errors);
  return true;
}

bool WAMMapping::readLine_(const std::string& line, unsigned long number, std::ostream& errors) {
  std::vector<std::string> tokens = UTILS::timetokens::regexTokens(cutComment(line));
  if (tokens.empty()) return true;
  for (std::string& token : tokens) {
    token = orvCore::removeQuotes(token);
    if (token.empty()) {
      errors << "Illegal empty string or empty quote detected.  Line#: " << number << '\n';
      return false;
    }
  }
  auto fault = [&](const char* what) {
    errors << "WAM mapping file line " << number << ": " << what << ": " << line << '\n';
    return false;
  };
  if (tokens.size() != 2) return fault("expected a key or a name and one value");

  const std::string& key = tokens[0];
  const std::string& value = tokens[1];
  double number_ = 0.0;
  if (orvCore::caseCompare(key, "Maximum_Speed_Filter") == 0) {
    if (!orvCore::isValidNumber(value, number_)) return fault("not a number");
    maximumSpeed_ = number_;
  } else if (orvCore::caseCompare(key, "Use_Calculated_Speed_Filter") == 0) {
    if (!readBool(value, useCalculatedSpeed_)) return fault("not a true or false value");
  } else if (orvCore::caseCompare(key, "Reject_Local_Track_Quality") == 0) {
    if (!orvCore::isValidNumber(value, number_)) return fault("not a number");
    rejectQuality_ = number_;
  } else if (orvCore::caseCompare(key, "Ignore_Duplicate_Position") == 0) {
    if (!readBool(value, ignoreDuplicates_)) return fault("not a true or false value");
  } else if (orvCore::caseCompare(key, "Classification") == 0) {
    classification_ = value;
  } else if (orvCore::caseCompare(key, "Classification_Color") == 0) {
    unsigned int colour = 0;
    if (!orvCore::isValidHexNumber(value, colour, true) && !orvCore::isValidNumber(value, colour, false))
      return fault("not a colour (0xAABBGGRR)");
    classificationColor_ = colour;
  } else {
    icons_[orvCore::lowerCase(key)] = value;
  }
  return true;
}

std::string WAMMapping::icon(const std::string& name, const std::string& fallback) const {
  const auto it = icons_.find(orvCore::lowerCase(name));
  return it == icons_.end() ? fallback : it->second;
}

}  // namespace WAMLib
