#include "importers/ImporterTable.h"

namespace Importers {

// One entry per importer, added with the importer's own files. Order
// matters only among ".csv" entries: a file goes to the first entry whose
// marker its first line holds, so "PET CSV" is tested before "COM," and
// "SRC,". A format without an entry fails with "Unknown file format" (or
// "Unknown CSV file format detected").
ImporterTable sideFormatImporters() {
  ImporterTable table;
  return table;
}

}  // namespace Importers
