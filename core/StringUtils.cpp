#include "core/StringUtils.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <sstream>
#include <strings.h>

#include "core/Convert.h"
#include "core/Tokenizer.h"

namespace orvCore {

int caseCompare(const std::string& a, const std::string& b) {
  if (a.empty() && b.empty()) return 0;
  if (a.empty()) return -1;
  if (b.empty()) return 1;
  return strcasecmp(a.c_str(), b.c_str());
}

std::string lowerCase(const std::string& text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

std::string upperCase(const std::string& text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return out;
}

size_t stringCaseFind(const std::string& text, const std::string& pattern) {
  return upperCase(text).find(upperCase(pattern));
}

std::string getExtension(const std::string& name) {
  if (name.empty()) return std::string();
  const std::string lower = lowerCase(name);
  const size_t dot = lower.rfind('.');
  return dot == std::string::npos ? std::string() : lower.substr(dot);
}

bool hasExtension(const std::string& name, const std::string& extension) {
  return getExtension(name) == lowerCase(extension);
}

std::string buildString(const std::string& prefix, double value, size_t width, size_t precision,
                        const std::string& suffix, bool padZero, double sciNotationGT, double sciNotationLT) {
  std::ostringstream os;
  os << prefix;
  if (std::isnan(value)) {
    os << "NaN";
  } else if (std::isinf(value)) {
    os << (value > 0 ? "inf" : "-inf");
  } else {
    precision = std::min<size_t>(precision, 16);
    sciNotationGT = std::min(sciNotationGT, 1e80);
    const bool scientific = value > sciNotationGT || value < -sciNotationGT ||
                            (value != 0.0 && value > -sciNotationLT && value < sciNotationLT);
    os << (scientific ? std::scientific : std::fixed) << std::setprecision(static_cast<int>(precision));
    if (padZero) os << std::setfill('0');
    os << std::setw(static_cast<int>(width)) << value;
  }
  os << suffix;
  return os.str();
}

std::string sanitizeFilename(const std::string& name) {
  if (name.empty()) return std::string();
  std::string path(name);
  std::replace(path.begin(), path.end(), '\\', '/');
  const size_t slash = path.rfind('/');
  std::string base = slash == std::string::npos ? path : path.substr(slash + 1);
  base.erase(std::remove_if(base.begin(), base.end(),
                            [](char c) { return std::string(":?*<>|").find(c) != std::string::npos; }),
             base.end());
  if (slash == std::string::npos) return base;
  return path.substr(0, slash) + "/" + base;
}

std::string toNativeSeparators(const std::string& path) {
  if (path.find("://") != std::string::npos) return path;
  std::string out;
  out.reserve(path.size());
  for (size_t i = 0; i < path.size(); ++i) {
    const char c = path[i] == '\\' ? '/' : path[i];
    // A network path keeps its two leading separators.
    if (c == '/' && !out.empty() && out.back() == '/' && !(i == 1 && out.size() == 1)) continue;
    out.push_back(c);
  }
  return out;
}

bool hasEnv(const std::string& text) {
  const size_t open = text.find("$(");
  return open != std::string::npos && text.find(')', open + 2) != std::string::npos;
}

std::string getEnvVar(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  if (value == nullptr) return std::string();
  std::string out(value);
  while (!out.empty() && out.back() == '\r') out.pop_back();
  return out;
}

std::string expandEnv(const std::string& text) {
  std::string out(text);
  size_t from = 0;
  while (true) {
    const size_t open = out.find("$(", from);
    if (open == std::string::npos) break;
    const size_t close = out.find(')', open + 2);
    if (close == std::string::npos) break;
    const std::string name = out.substr(open + 2, close - open - 2);
    if (name.find_first_of(STR_WHITE_SPACE_CHARS) != std::string::npos) {
      from = open + 2;
      continue;
    }
    const std::string value = getEnvVar(name);
    out.replace(open, close + 1 - open, value);
    // Values are not expanded again, so a variable cannot expand into itself.
    from = open + value.size();
  }
  return out;
}

}  // namespace orvCore

namespace UTILS {

std::string buildFormatStr(const std::string& prefix, double value, size_t width, size_t precision,
                           const std::string& suffix, bool padZero, double sciNotationGT, double sciNotationLT) {
  return orvCore::buildString(prefix, value, width, precision, suffix, padZero, sciNotationGT, sciNotationLT);
}

std::string addSpaces(const std::string& text, size_t count) { return text + std::string(count, ' '); }

std::string removeTrailingZeros(const std::string& text, bool keepPoint) {
  if (text.find('.') == std::string::npos) return text;
  std::string out(text);
  while (!out.empty() && out.back() == '0') out.pop_back();
  if (!keepPoint && !out.empty() && out.back() == '.') out.pop_back();
  return out;
}

std::string removeExtension(const std::string& name) {
  const size_t dot = name.rfind('.');
  const size_t slash = name.find_last_of("/\\");
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return name;
  return name.substr(0, dot);
}

void changeExtension(std::string& out, const std::string& name, const std::string& extension) {
  out = removeExtension(name);
  if (!extension.empty() && extension[0] != '.') out += '.';
  out += extension;
}

std::string formatDouble(double value) { return stringConvertToString(value, 6, false); }

std::string generateRandomString(size_t length, unsigned int seed) {
  static const char alphabet[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890";
  std::srand(seed);
  std::string out;
  out.reserve(length);
  for (size_t i = 0; i < length; ++i) out.push_back(alphabet[std::rand() % 62]);
  return out;
}

std::string genFilename(const std::string& directory, const std::string& name, const std::string& extension) {
  std::string out(directory);
  if (!out.empty() && out.back() != '/' && out.back() != '\\') out += '/';
  out += name;
  if (!extension.empty()) {
    const bool nameHasPoint = !name.empty() && name.back() == '.';
    const bool extHasPoint = extension[0] == '.';
    if (!nameHasPoint && !extHasPoint) out += '.';
    out += (nameHasPoint && extHasPoint) ? extension.substr(1) : extension;
  }
  return out;
}

bool compareFileNames(const std::string& a, const std::string& b) {
  auto normal = [](const std::string& path) {
    std::string out = orvCore::toNativeSeparators(path);
    while (out.size() > 1 && out.back() == '/') out.pop_back();
    return out;
  };
  return normal(a) == normal(b);
}

bool compareFileName2List(const std::vector<std::string>& list, const std::string& name) {
  for (const std::string& entry : list)
    if (compareFileNames(entry, name)) return true;
  return false;
}

}  // namespace UTILS
