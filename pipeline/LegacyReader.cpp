#include "pipeline/LegacyReader.h"

#include "core/StringUtils.h"
#include "document/AsiScenarioFile.h"
#include "document/ProgressPrinter.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"
#include "importers/ImporterTable.h"
#include "pipeline/Unzip.h"

#include <algorithm>
#include <fstream>
#include <vector>

namespace FileReaderPlugin {

LegacyReader::LegacyReader(PUUnzip::Unzip& unzip) : LegacyReader(unzip, Importers::sideFormatImporters()) {}

LegacyReader::LegacyReader(PUUnzip::Unzip& unzip, ImporterTable importers)
    : unzip_(unzip),
      extensions_{".csv", ".tle", ".gpx", ".otg", ".pet", ".kp", ".wam"},
      importers_(std::move(importers)) {}

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
  std::vector<std::string> files;
  const bool archive = orvCore::getExtension(path) == ".zip";
  if (archive) {
    const int unzipped = unzip_.unzipFile(path, extensions_, files);
    if (unzipped != 0) return unzipped;
    // Members are read in name order, whatever their order in the archive.
    std::stable_sort(files.begin(), files.end());
  } else {
    files.push_back(path);
  }

  AsiScenarioFile scenarioFile(importers_);
  scenarioFile.setRemembersPointTimes(files.size() > 1);
  std::vector<std::string> issues;
  PICommon::beginWaitCursor();
  bool failed = false;
  for (size_t i = 0; i < files.size() && !failed; ++i) {
    ASIPlugin::ProgressPrinter progress(files[i]);
    const bool append = i == 0 ? append_ : true;
    failed = scenarioFile.transmitScenario(files[i], nullptr, nullptr, &progress, append, issues);
    if (progress.isCanceled()) {
      PICommon::endWaitCursor();
      return 1;
    }
    if (i == 0 && !failed && !append_ && archive) PIData::setScenarioFileName(path);
  }
  // Problems in a side-format file are warnings: the load itself went through
  // or failed as a whole.
  for (const std::string& issue : issues) PICommon::notify(issue + "\n", PICommon::PI_NOTIFY_WARN, "");
  PIData::clockAutoConfigureBeginEnd();
  PICommon::endWaitCursor();
  return failed ? -1 : 0;
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
