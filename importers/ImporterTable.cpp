#include "importers/ImporterTable.h"

#include "importers/csv/CSVFile.h"

namespace Importers {

// One entry per importer, added with the importer's own files. Order
// matters only among ".csv" entries: a file goes to the first entry whose
// marker its first line holds, so "PET CSV" is tested before "COM," and
// "SRC,". A format without an entry fails with "Unknown file format" (or
// "Unknown CSV file format detected").
ImporterTable sideFormatImporters() {
  ImporterTable table;

  ImporterEntry range;
  range.extensions = {".csv"};
  range.csvMarkers = {"COM,", "SRC,"};
  range.notice = "Reading SCORE/PMRF CSV file: ";
  range.fatalText = "Fatal error when loading CSV file\n";
  range.load = loadRangeFile;
  table.push_back(range);

  return table;
}

}  // namespace Importers
