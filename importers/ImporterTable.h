#pragma once
// The side formats that this build can read, in the order in which a file
// is matched against them (see docs/importers.md).

#include "document/ImporterEntry.h"

namespace Importers {

ImporterTable sideFormatImporters();

}  // namespace Importers
