#pragma once
// The OTG loader: a file of OTH Gold messages into a scenario document, one
// platform per track with its category and generic data, and a
// position-uncertainty ellipse per report.

#include <cstdint>
#include <map>
#include <string>

#include "document/ScenarioUD.h"

namespace OthLib {
class OTHContact;
class OTHMsgID;
}  // namespace OthLib
namespace WAMLib {
class WAMMapping;
}  // namespace WAMLib

// The value of the "Data Format" category of every OTG platform.
inline constexpr char OTG_DATA_FORMAT[] = "OTG";
// What a load answers when a message could not be read: the rest loaded.
inline constexpr int OTG_LOADED_WITH_ERRORS = UD_UNKNOWN_KEYWORD;

// Reads `fileName` into `scenario`. 0 on success; UD_FATAL when the file
// can't be read or holds no message; OTG_LOADED_WITH_ERRORS when a message
// failed and was left out. Messages without a loadable report load as an
// empty scenario (0, with a warning). Faults go to the document's error stream, each
// with its file line. `progress` (may be null) hears the percentage and
// cancels the load by answering true; a canceled load answers UD_USER_CANCEL.
int LoadOTGFile(const std::string& fileName, ScenarioUD* scenario, ScenarioUD::PercentCallback* progress = nullptr);

// False for an empty placeholder: a report at the pole (within 1e-6 rad)
// of a contact whose name holds "-", "I" or a blank.
bool isValidContactMessage(const OthLib::OTHContact& contact, const double* lla);

// One track of a load: its platform and what was last written for it, so
// that category data is entered when it changes and generic data once per message.
struct OTGTrack {
  PlatformUD* platform = nullptr;
  std::map<std::string, std::string> categories;
  const OthLib::OTHMsgID* lastHeader = nullptr;
};
using OTGPlatformMap = std::map<std::string, OTGTrack>;

// The "Custom Ellipse" table of a platform and its column ids.
struct OTGEllipseTable {
  DataTable* table = nullptr;
  int64_t columns[7] = {};
};
using OTGEllipseTableMap = std::map<uint64_t, OTGEllipseTable>;

// One report of a contact: creates or finds the platform of the track
// (the first one of the file also sets the scenario's frame, year,
// description and classification), enters its category and generic data
// and adds the state. Position in radians and metres, course in radians,
// speed in metres per second (negative: none). 0 or an ErrorCodesUD value;
// `platform` is the track's platform, null when it couldn't be made.
int addData(const std::string& fileName, ScenarioUD* scenario, OTGPlatformMap& platforms,
            const WAMLib::WAMMapping& mapping, const OthLib::OTHMsgID& header, const OthLib::OTHContact& contact,
            double time, int year, const double* lla, double course, double speed, PlatformUD*& platform);

// One row of the platform's position-uncertainty ellipse, made with its
// custom rendering object and table on the first call. Axes in metres,
// bearing in degrees. 0 or an ErrorCodesUD value.
int addPositionUncertaintyData(ScenarioUD* scenario, PlatformUD* platform, OTGEllipseTableMap& tableMap,
                               double time, const double* lla, double majorMetres, double minorMetres,
                               double bearingDegrees);
