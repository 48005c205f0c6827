#pragma once
// The WAM reader: a WAM log's tracks become platforms of a ScenarioUD,
// their points filtered by the limits of the mapping file wamModel.map,
// which also gives the icons and the classification.
//
// Progress lines ("Parsing WAM File : ...", a summary per track, tracks
// dropped whole) go to standard output, faults to standard error; the host
// is told only the load's result.

#include <cstdint>
#include <string>

#include "document/ImporterEntry.h"
#include "document/ScenarioUD.h"

namespace WAMLib {
class WAMLibrary;
class WAMMapping;
class WAMPlatform;
}  // namespace WAMLib

// Reads a WAM file; the mapping file is looked up through the environment.
// 0 on success; UD_USER_CANCEL when `progress` (percent of the file read)
// answers true; another non-zero value when the file can't be read or
// holds no record.
int ParseWAMFile(const std::string& fileName, ScenarioUD* scenario, ScenarioUD::PercentCallback* progress = nullptr);

// The platforms of every track with at least one point that passes the
// filters. False when any state was refused by the document.
bool convertWAMFile(ScenarioUD* scenario, const WAMLib::WAMLibrary& library, const WAMLib::WAMMapping& mapping);

// The track's name, else its unit and track, else "Unknown Track".
std::string getPlatformName(const WAMLib::WAMPlatform* platform);

// The ".wam" entry of the importer table.
ImporterEntry wamImporter();
