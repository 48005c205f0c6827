#pragma once
// The reader of the side formats (SCORE/PMRF CSV, TLE, GPX, OTH Gold, PET,
// Kepler, WAM) and of archives of them. Each file becomes a document that
// AsiScenarioFile sends to the host; the members of an archive are read in
// name order, the first as the load asks, the others appended.

#include "document/ImporterEntry.h"
#include "pipeline/FileReader.h"

#include <set>
#include <string>

namespace PUUnzip {
class Unzip;
}

namespace FileReaderPlugin {

class LegacyReader : public FileReader {
 public:
  // The side formats of this build (importers/ImporterTable.cpp).
  explicit LegacyReader(PUUnzip::Unzip& unzip);
  // Reads the formats of `importers` instead.
  LegacyReader(PUUnzip::Unzip& unzip, ImporterTable importers);

  // 0 loaded, 1 canceled, -1 failed (the reasons are told as warnings).
  int read(const std::string& path) override;
  int canReadFile(const std::string& path) const override;
  // Side formats carry no scenario identifier: `id` is emptied, result 0.
  int getScenarioIdentifier(const std::string& path, std::string& id) const override;
  void setAppend(bool append, AsiInterface::Resolver* resolver) override;
  FileReader* clone() const override;
  void getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const override;

 private:
  bool isSupportedFormat_(const std::string& extension) const;

  PUUnzip::Unzip& unzip_;
  bool append_ = false;
  AsiInterface::Resolver* resolver_ = nullptr;
  std::set<std::string> extensions_;
  ImporterTable importers_;
};

}  // namespace FileReaderPlugin
