// libFuzzer target of the WAM reader: any bytes as a .wam file, read with a
// mapping file that switches every filter on. No crash, and every platform
// has points in rising time.

#include <sys/stat.h>

#include <fstream>

#include "ImporterFuzzSupport.h"
#include "importers/WAMFile.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const std::string dir = fuzzsupport::inputFile("_map");
  mkdir(dir.c_str(), 0755);
  std::ofstream(dir + "/wamModel.map") << "Maximum_Speed_Filter 900\nUse_Calculated_Speed_Filter true\n"
                                          "Reject_Local_Track_Quality 1\nIgnore_Duplicate_Position true\n"
                                          "Hawk hawk.png\n";
  setenv("ORVIDE_USER_DIR", dir.c_str(), 1);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path = fuzzsupport::inputFile(".wam");
  fuzzsupport::writeInput(path, data, size);
  fuzzsupport::Quiet quiet;
  ScenarioUD scenario;
  ParseWAMFile(path, &scenario);
  fuzzsupport::checkPlatforms(scenario, true);
  return 0;
}
