// libFuzzer target of the GPX reader: any bytes as a .gpx file. The reader
// must not crash, every platform it makes has points, and the XML parser's
// memory stays within its budget (ASan reports the rest).

#include "ImporterFuzzSupport.h"
#include "importers/GPXParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path = fuzzsupport::inputFile(".gpx");
  fuzzsupport::writeInput(path, data, size);
  fuzzsupport::Quiet quiet;
  ScenarioUD scenario;
  ParseGPXFile(path, &scenario, false);
  fuzzsupport::checkPlatforms(scenario, true);
  return 0;
}
