#include "importers/ImporterTable.h"

#include "importers/SatelliteLoad.h"
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

  ImporterEntry tle;
  tle.extensions = {".tle"};
  tle.notice = "Reading TLE file: ";
  tle.issuesHeading = "Issues detected during conversion of TLE to ASI:\n";
  tle.fatalText = "Fatal error when loading TLE file\n";
  tle.load = loadTleFile;
  table.push_back(tle);

  ImporterEntry kepler;
  kepler.extensions = {".kp"};
  kepler.notice = "Reading Kepler file: ";
  kepler.issuesHeading = "Issues detected during conversion of Kepler to ASI:\n";
  kepler.fatalText = "Fatal error when loading Kepler file\n";
  kepler.load = loadKeplerFile;
  table.push_back(kepler);

  return table;
}

}  // namespace Importers
