#include "importers/ImporterSupport.h"

#include <cmath>
#include <iostream>

#include "core/TimeCalendar.h"

namespace Importers {

namespace {
std::ostream* infoStream = nullptr;   // null: standard output
std::ostream* faultStream = nullptr;  // null: standard error
}

ImporterEntry readerEntry(std::vector<std::string> extensions, const std::string& name, ImporterEntry::Load read) {
  ImporterEntry entry;
  entry.extensions = std::move(extensions);
  entry.notice = "Reading " + name + " file: ";
  entry.fatalText = "Fatal error when loading " + name + " file\n";
  entry.load = [read](const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
    const int result = read(path, scenario, progress);
    return result == 0 || result == UD_USER_CANCEL ? result : static_cast<int>(UD_FATAL);
  };
  return entry;
}

double yearOffset(int fromYear, int toYear) {
  if (fromYear > toYear) return -yearOffset(toYear, fromYear);
  double days = 0.0;
  for (int year = fromYear; year < toYear; ++year) days += orvCore::daysPerYear(year);
  return days * 86400.0;
}

bool courseRadians(double degrees, double& radians) {
  if (!std::isfinite(degrees)) return false;
  double turned = std::fmod(degrees, 360.0);
  if (turned < 0.0) turned += 360.0;
  radians = turned * M_PI / 180.0;
  if (radians >= 2.0 * M_PI) radians = 0.0;
  return true;
}

std::ostream* setInfoStream(std::ostream* stream) {
  std::ostream* previous = infoStream;
  infoStream = stream;
  return previous;
}

std::ostream* setFaultStream(std::ostream* stream) {
  std::ostream* previous = faultStream;
  faultStream = stream;
  return previous;
}

void tellInfo(const std::string& text) { (infoStream ? *infoStream : std::cout) << text << std::flush; }

void tellFault(const std::string& text) { (faultStream ? *faultStream : std::cerr) << text << std::flush; }

}  // namespace Importers
