#include "importers/ImportTime.h"

#include "core/TimeCalendar.h"

namespace Importers {

double yearOffset(int fromYear, int toYear) {
  if (fromYear > toYear) return -yearOffset(toYear, fromYear);
  double days = 0.0;
  for (int year = fromYear; year < toYear; ++year) days += orvCore::daysPerYear(year);
  return days * 86400.0;
}

}  // namespace Importers
