#pragma once
// Legends (LEG, one per track) and positions (POS) of a SCORE or PMRF file:
// each track becomes a platform with linear motion, its icon, call sign and
// the categories "Platform Type", "Affinity", "Source" and "Data Format".

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "importers/csv/CSVUniqueId.h"

class CSVFile;
class PlatformUD;
class ScenarioUD;

// "Friendly", "Hostile", "Neutral" for 1, 2, 3; "Unknown" otherwise.
std::string GetAffinityString(int iff);

class CSVPos {
 public:
  struct Ids {
    uint64_t asiId = 0;
    uint64_t spare = 0;
    uint64_t genericDataId = 0;  // 0 until the track's first LEG text
  };
  using Entry = std::pair<Ids, PlatformUD*>;

  CSVPos(ScenarioUD* scenario, CSVFile* file) : scenario_(scenario), file_(file) {}

  void AddLEG(const std::vector<std::string>& tokens, ScenarioUD* scenario, int dataFormat);
  void AddPOS(const std::vector<std::string>& tokens, int dataFormat);

  // The icon file of a vehicle name and, through `platformType`, its type.
  static std::string GetVehicleType(const std::string& vehicle, int* platformType);
  // "RER" shows as "IFF"; any other name as it stands.
  static std::string convertCSVName2OrvideName(const std::string& name);

  // The platform of a track, or null.
  PlatformUD* findPlatform(const UniqueID& key) const;
  size_t trackCount() const { return tracks_.size(); }

 private:
  // The entry of a track; with `create` 1 a missing one is made as a
  // default legend, otherwise null.
  Entry* createFakeLegend_(const UniqueID& id, int create, const std::string& icon, const std::string& callsign,
                           int platformType);
  // A new platform with its header, type and affinity categories.
  Entry* makePlatform_(const UniqueID& key, const std::string& icon, const std::string& callsign, int type,
                       int iff);
  void addTypeAndAffinity_(PlatformUD* platform, int type, int iff);
  void setOriginalId_(PlatformUD* platform, const UniqueID& key);
  void report_(const std::string& record, const std::string& text) const;
  // The time of a LEG or POS line; false, reported, for a date that does not exist.
  bool lineTime_(const std::vector<std::string>& tokens, const char* record, double& time) const;

  ScenarioUD* scenario_;
  CSVFile* file_;
  std::map<UniqueID, std::unique_ptr<Entry>> tracks_;
  // The track of the previous POS line: files list a track's points together.
  Entry* lastEntry_ = nullptr;
  UniqueID lastKey_;
};
