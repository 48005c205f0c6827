#include "pipeline/LegacyReader.h"

#include "core/StringUtils.h"
#include "hostapi/PICommon.h"
#include "pipeline/Unzip.h"

#include <fstream>
#include <vector>

namespace FileReaderPlugin {

LegacyReader::LegacyReader(PUUnzip::Unzip& unzip)
    : unzip_(unzip), extensions_{".csv", ".tle", ".gpx", ".otg", ".pet", ".kp", ".wam"} {}

bool LegacyReader::isSupportedFormat_(const std::string& extension) const {
  return extensions_.count(extension) != 0;
}

int LegacyReader::canReadFile(const std::string& path) const {
  const std::string extension = orvCore::getExtension(path);
  if (extension == ".zip") {
    std::vector<std::string> names;
    switch (unzip_.getSupportedFile(path, extensions_, names)) {
      case 0: return CAN_READ;
      case 1: return SEVERAL_TYPES;
      default: return NOT_THIS_FORMAT;
    }
  }
  if (!isSupportedFormat_(extension)) return NOT_THIS_FORMAT;
  std::ifstream in;
  return openRegularFile(path, in) ? CAN_READ : NOT_READABLE;
}

int LegacyReader::read(const std::string& path) {
  PICommon::notify("Cannot load \"" + orvCore::toNativeSeparators(path) + "\": reading of " +
                       orvCore::getExtension(path) + " files is not available in this version of the plug-in.\n",
                   PICommon::PI_NOTIFY_ERROR, "");
  return -1;
}

int LegacyReader::getScenarioIdentifier(const std::string& /*path*/, std::string& id) const {
  id.clear();
  return 0;
}

void LegacyReader::setAppend(bool append, AsiInterface::Resolver* resolver) {
  append_ = append;
  resolver_ = resolver;
}

FileReader* LegacyReader::clone() const { return new LegacyReader(*this); }

void LegacyReader::getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const {
  extensions["*.zip"] = "ZIP Archive Of Supported Formats";
  extensions["*.csv"] = "SCORE & PMRF Comma Separated Value";
  extensions["*.tle"] = "NORAD Two-Line Element";
  extensions["*.gpx"] = "GPS Exchange Format";
  extensions["*.otg"] = "OTG Format";
  extensions["*.pet"] = "PET Format";
  extensions["*.kp"] = "Kepler Propagation Format";
  extensions["*.wam"] = "WAM Format";
}

}  // namespace FileReaderPlugin
