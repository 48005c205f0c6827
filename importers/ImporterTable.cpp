#include "importers/ImporterTable.h"

#include "importers/GPXParser.h"
#include "importers/OTGFile.h"
#include "importers/PETFile.h"
#include "importers/SatelliteLoad.h"
#include "importers/WAMFile.h"
#include "importers/csv/CSVFile.h"

namespace Importers {

// One entry per importer, added with the importer's own files. Order
// matters only among ".csv" entries: a file goes to the first entry whose
// marker its first line holds, so "PET CSV" is tested before "COM," and
// "SRC,". A format without an entry fails with "Unknown file format" (or
// "Unknown CSV file format detected").
ImporterTable sideFormatImporters() {
  ImporterTable table;
  table.push_back(petImporter());  // before the SCORE/PMRF entry: both read ".csv"

  ImporterEntry range;
  range.extensions = {".csv"};
  range.csvMarkers = {"COM,", "SRC,"};
  range.notice = "Reading SCORE/PMRF CSV file: ";
  range.fatalText = "Fatal error when loading CSV file\n";
  range.load = loadRangeFile;
  table.push_back(range);

  table.push_back(gpxImporter());
  table.push_back(wamImporter());

  ImporterEntry otg;
  otg.extensions = {".otg"};
  otg.notice = "Reading OTG file: ";
  otg.fatalText = "Fatal error when loading OTG file\n";
  otg.load = [](const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress) {
    return LoadOTGFile(path, &scenario, progress);
  };
  table.push_back(otg);

  table.push_back(tleEntry());
  table.push_back(keplerEntry());
  return table;
}

}  // namespace Importers
