#include "importers/ImporterSupport.h"

#include <ostream>

#include "core/TimeCalendar.h"

namespace Importers {

namespace {
std::ostream* infoStream = nullptr;
}

double yearOffset(int fromYear, int toYear) {
  if (fromYear > toYear) return -yearOffset(toYear, fromYear);
  double days = 0.0;
  for (int year = fromYear; year < toYear; ++year) days += orvCore::daysPerYear(year);
  return days * 86400.0;
}

std::ostream* setInfoStream(std::ostream* stream) {
  std::ostream* previous = infoStream;
  infoStream = stream;
  return previous;
}

void tellInfo(const std::string& text) {
  if (infoStream != nullptr) *infoStream << text;
}

}  // namespace Importers
