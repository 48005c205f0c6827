#pragma once
// The PET table reader. A PET file is comma-separated: a version line that
// holds "STD PET CSV", a line of column names, then one report per line.
// Each object name becomes a platform placed by the named columns; every
// other column goes, row by row, into the platform's data table "Extra".
//
// The faults of the file's layout ("Error: ...") are printed on standard
// output and end the read at their line; a row whose state the document
// refuses is told on standard error and passed over.

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/VariableType.h"
#include "document/ScenarioUD.h"
#include "document/ImporterEntry.h"

struct PETColumn {
  std::string name;
  int index = 0;  // field of the row
  UTILS::VariableType_t type = UTILS::VT_FLOAT64;
};

struct PETPlatform {
  std::string name;
  PlatformUD* platform = nullptr;
  DataTable* table = nullptr;
  std::vector<int64_t> columnIds;  // one per extra column, in column order
  double lastTime = 0.0;
};

class PETFile {
 public:
  // The columns that are read into the platform rather than the table, in
  // the order that their absence is told; the velocities may be missing.
  enum Required { LAT, LONG, ALTITUDE, DVALTIME, ONAME, GEOMETRY, XVELS15, YVELS15, ZVELS15, REQUIRED_COUNT };

  PETFile();
  ~PETFile();

  // Reads a file into `scenario`, every row's time moved by `timeOffset`;
  // the two flags are kept for callers and change nothing. 0 on success,
  // UD_USER_CANCEL when `progress` (percent of the file read) answers true.
  int ParsePETFile(const std::string& fileName, ScenarioUD* scenario, double timeOffset, bool, bool,
                   ScenarioUD::PercentCallback* progress = nullptr);

  // The steps of a read, each 0 on success.
  int ParseVersionLine(const std::vector<std::string>& tokens);
  int ParseColumnHeaderLine(const std::vector<std::string>& tokens);
  int ParseDataLine(const std::vector<std::string>& tokens, ScenarioUD* scenario, double timeOffset);

  // The platform of the row's object name, made on its first row; null on a fault.
  PETPlatform* getPlatform(const std::vector<std::string>& tokens, ScenarioUD* scenario);
  // kRowRefused when the document refuses the row's state: the row is
  // passed over and the read goes on.
  static constexpr int kRowRefused = -1;
  int updatePlatformLocation(const std::vector<std::string>& tokens, PETPlatform* platform, ScenarioUD* scenario,
                             double time);
  int updatePlatformTable(const std::vector<std::string>& tokens, PETPlatform* platform, double time);

  const std::vector<std::unique_ptr<PETColumn>>& columns() const { return columns_; }
  void clearColumns();

 private:
  const std::string& field_(const std::vector<std::string>& tokens, Required column) const;
  // Text columns: an extra column holding any value that is not a number.
  void typeColumns_(std::istream& in);

  std::vector<std::unique_ptr<PETColumn>> columns_;
  std::vector<PETColumn*> extra_;
  int required_[REQUIRED_COUNT];
  std::map<std::string, PETPlatform> platforms_;
  bool originSet_ = false;
};

// The entry of the importer table for ".pet" files and ".csv" files whose
// first line holds "PET CSV".
ImporterEntry petImporter();
