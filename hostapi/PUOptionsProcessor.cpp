#include "hostapi/PUOptionsProcessor.h"

#include <algorithm>
#include <cctype>

bool PUOptionsProcessor::getBoolean(const PICommon::FileOptions& options, const std::string& key,
                                    bool defaultValue) {
  auto it = options.find(key);
  if (it == options.end()) return defaultValue;
  std::string text = it->second;
  auto notSpace = [](unsigned char c) { return !std::isspace(c); };
  text.erase(text.begin(), std::find_if(text.begin(), text.end(), notSpace));
  text.erase(std::find_if(text.rbegin(), text.rend(), notSpace).base(), text.end());
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  if (text == "true" || text == "yes" || text == "on" || text == "1") return true;
  if (text == "false" || text == "no" || text == "off" || text == "0") return false;
  return defaultValue;
}
