#pragma once
// Reading typed values out of the options of an advanced file open.

#include <string>

#include "hostapi/PICommon.h"

class PUOptionsProcessor {
 public:
  // The option `key` read as a boolean: "true", "yes", "on" and "1" (without
  // regard to case or surrounding blanks) are true, "false", "no", "off" and
  // "0" false; a missing key or any other text gives `defaultValue`.
  static bool getBoolean(const PICommon::FileOptions& options, const std::string& key, bool defaultValue);
};
