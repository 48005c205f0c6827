#pragma once
// The reader of SCORE and PMRF range files (.csv): three passes over the
// file straight into a ScenarioUD. The first learns the format from the
// packet header, the second reads classification, description, origin and
// the legends, the third the positions and events.

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "core/CoordinateConverter.h"
#include "document/ScenarioUD.h"

class CSVPos;
class CSVEvt;

class CSVFile {
 public:
  enum Format : int { FORMAT_UNKNOWN = 0, FORMAT_SCORE = 1, FORMAT_PMRF = 2 };

  // The range origins that the two formats are known by (degrees).
  static constexpr double SCORE_LAT = 33.026669;
  static constexpr double SCORE_LON = -118.578636;
  static constexpr double PMRF_LAT = 22.119439197;
  static constexpr double PMRF_LON = -159.91949881;

  CSVFile();
  ~CSVFile();
  CSVFile(const CSVFile&) = delete;
  CSVFile& operator=(const CSVFile&) = delete;

  // 0 when the file was read, 1 when its format is not SCORE or PMRF (a
  // file that can't be opened is one), 2 when the progress callback asked
  // to cancel. `limit` has no effect. With `useXYZ` SCORE positions come
  // from the X/Y/Z columns.
  int ParseCSVFile(const std::string& fileName, ScenarioUD* scenario, int limit = -1, int useXYZ = 0);
  // Told the percentage of the file read now and then; a true answer cancels.
  void setProgress(ScenarioUD::PercentCallback* progress) { progress_ = progress; }

  // The stored format, else the one the reference origin lies in (by whole degrees).
  int DataFormat() const;
  // The id of a new entity: the scenario's next id (1 without a scenario).
  uint64_t NewAsiId();

  int classification() const { return classification_; }
  int useXYZ() const { return useXYZ_; }
  const std::string& description() const { return description_; }
  double referenceLatitude() const { return refLat_; }
  double referenceLongitude() const { return refLon_; }
  double referenceAltitude() const { return refAlt_; }
  double latestPositionTime() const { return latestPositionTime_; }
  void raiseLatestPositionTime(double time) {
    if (time > latestPositionTime_) latestPositionTime_ = time;
  }
  const orvCore::CoordinateConverter& converter() const { return converter_; }
  ScenarioUD* scenario() const { return scenario_; }
  // The number of the line in hand (from 1), for messages.
  size_t lineNumber() const { return lineNumber_; }

  // How long the warning about an unknown origin holds the load, so that a
  // user reading the console sees it (microseconds).
  void setOriginWarningPause(unsigned int microseconds) { originWarningPause_ = microseconds; }

  // Splits at every ",", keeping empty fields; no quotes, no trimming.
  static void csvTokenize_(std::vector<std::string>& tokens, const std::string& line);

 private:
  void learnFormat_(std::istream& in);
  void readSettingsAndLegends_(std::istream& in);
  // False when the user canceled.
  bool readPositionsAndEvents_(std::istream& in, double fileSize);
  void setOrigin_(const std::vector<std::string>& tokens);
  // Sets the held origin on the scenario and the converter; `report` tells a
  // value the scenario refuses.
  void applyOrigin_(bool report);

  int classification_ = 1;
  int useXYZ_ = 0;
  std::string description_;
  double refLat_ = -1.0;
  double refLon_ = -1.0;
  double refAlt_ = 0.0;
  double latestPositionTime_ = -1.0;
  std::unique_ptr<CSVPos> csvPos_;
  std::unique_ptr<CSVEvt> csvEvt_;
  orvCore::CoordinateConverter converter_;
  int format_ = FORMAT_UNKNOWN;
  ScenarioUD* scenario_ = nullptr;
  unsigned int originWarningPause_ = 2500000;
  size_t lineNumber_ = 0;
  size_t lineBytes_ = 0;  // bytes of the lines of the settings pass: the file's size
  ScenarioUD::PercentCallback* progress_ = nullptr;
};

// The importer's entry: fills `scenario` from a range file; an ErrorCodesUD
// value (fatal for a file of neither range, the cancel code on a cancel).
int loadRangeFile(const std::string& path, ScenarioUD& scenario, ScenarioUD::PercentCallback* progress);
