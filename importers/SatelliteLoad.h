#pragma once
// The importer entries of the two converters: the file is turned into ASI
// text beside it, which the document's own loader then reads.

#include <string>

#include "document/ImporterEntry.h"

namespace Importers {

// Both loads answer UD_FATAL when the conversion fails (its messages are on
// the document's error stream), else the result of loading the ASI text.
int loadTleFile(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress);
int loadKeplerFile(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress);

// ".tle" and ".kp", with their notices, issue headings and fatal texts.
ImporterEntry tleEntry();
ImporterEntry keplerEntry();

}  // namespace Importers
