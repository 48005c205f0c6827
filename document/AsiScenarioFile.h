#pragma once
// Turns one file of a side format (or ASI text, through the document's own
// loader) into a ScenarioUD, checks it against the host and any time window,
// and sends it to the host kind by kind: platforms, beams, gates, lasers,
// LOB groups, generic data, data tables, projectors.
//
// The formats come from an ImporterTable (importers/ImporterTable.h); ASI is
// always known. The id map (document object -> host object) outlives one
// file, so that files appended through the same object find the objects of
// the earlier ones.

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "document/ImporterEntry.h"
#include "document/ScenarioUD.h"
#include "document/TimeWindowUD.h"

namespace orvCore {
class TimeStamp;
}
namespace ASIPlugin {
class ProgressPrinter;
}
class DataTableList;

class AsiScenarioFile {
 public:
  explicit AsiScenarioFile(ImporterTable importers = ImporterTable());
  virtual ~AsiScenarioFile();
  AsiScenarioFile(const AsiScenarioFile&) = delete;
  AsiScenarioFile& operator=(const AsiScenarioFile&) = delete;

  // Drops the current document; the id map stays.
  void flush();

  // Loads `path` and sends it. Either bound may be null. `progress` may be
  // null (no dialog, no cancel). Texts for the user are appended to
  // `issues`. Answers false on success, true on failure or cancel.
  bool transmitScenario(const std::string& path, const orvCore::TimeStamp* minTime, const orvCore::TimeStamp* maxTime,
                        ASIPlugin::ProgressPrinter* progress, bool append, std::vector<std::string>& issues);

  // The host id of a document object of the current file: 0 for id 0 or an
  // object that neither this file nor an earlier one under the same id and
  // original id has sent. A later file's object of the same key replaces the
  // entry; an object that this file does not send (a platform without
  // points) keeps the earlier file's, so that what hangs on it finds it.
  uint64_t getPluginId_(uint64_t id) const;
  // For a load of several files (an archive): remember the times of the
  // platform points sent, so that a later file that continues a platform
  // does not send a point at a time the platform already has. Off for a
  // single file, which has no later file to meet.
  void setRemembersPointTimes(bool remember) { remembersPointTimes_ = remember; }

 private:
  friend class InsertDataTableIntoScenarioFunctor;

  // Chooses the format and fills scenario_; false when the file cannot be
  // loaded (the reason is in `issues`).
  bool load_(const std::string& path, std::vector<std::string>& issues);
  const ImporterEntry* findImporter_(const std::string& path, std::string& unknownText) const;
  bool checkAgainstHost_(bool append, bool& writeSettings, const orvCore::TimeStamp* minTime,
                         const orvCore::TimeStamp* maxTime, std::vector<std::string>& issues) const;
  bool canceled_() const;
  bool counted_() const;

  void transmitScenarioSettings(bool writeSettings, bool append);
  void transmitExternalFiles();

  void transmitPlatformData_(const TimeWindowUD& window);
  void transmitBeamData_(const TimeWindowUD& window);
  void transmitGateData_(const TimeWindowUD& window);
  void transmitLaserData_(const TimeWindowUD& window);
  void transmitLobGroupData_(const TimeWindowUD& window);
  // Custom rendering objects go out before the data tables that hang on them.
  void transmitCustomRenderings_(const TimeWindowUD& window);
  void transmitGenericData_(const TimeWindowUD& window);
  void transmitDataTables_(const TimeWindowUD& window);
  void transmitProjectors_(const TimeWindowUD& window);

  void transmitActiveMap_(uint64_t hostId, const ObjectLAUD& object, const TimeWindowUD& window);
  void transmitActiveMapAndTargets_(uint64_t hostId, const BeamUD& beam, const TimeWindowUD& window);
  void transmitColorMap_(uint64_t hostId, const ObjectLAUD& object, const TimeWindowUD& window);
  void transmitCategoryData_(uint64_t hostId, const CategorySeries& categories, const TimeWindowUD& window);
  bool transmitDataTable_(const DataTableList& list, DataTable& table, const TimeWindowUD& window);

  void remember_(uint64_t id, uint64_t originalId, uint64_t hostId);
  // The host platform that an earlier file sent under the same id and
  // original id (or any original id when this file gives none), if the host
  // still has it under the same name: an appended file continues it (a live
  // feed split into files). Importers number their objects from 1 in every
  // file, so the name keeps unrelated platforms apart.
  uint64_t sameHostPlatform_(const PlatformHeaderUD& h) const;
  std::string convertGenericEntityId_(const std::string& value) const;

  ImporterTable importers_;
  // (document id, original id) -> host id
  std::map<std::pair<uint64_t, uint64_t>, uint64_t> ids_;
  // host platform id -> the times of its points sent so far, in sending order
  std::map<uint64_t, std::vector<double>> pointTimes_;
  bool remembersPointTimes_ = false;
  ScenarioUD* scenario_ = nullptr;
  ASIPlugin::ProgressPrinter* progress_ = nullptr;
};
