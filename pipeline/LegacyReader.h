#pragma once
// The reader of the side formats (SCORE/PMRF CSV, TLE, GPX, OTH Gold, PET,
// Kepler, WAM) and of archives of them. Selection is complete; the document
// stack that turns these files into host objects is not part of this build
// yet, so read() reports that and fails.

#include "pipeline/FileReader.h"

#include <set>
#include <string>

namespace PUUnzip {
class Unzip;
}

namespace FileReaderPlugin {

class LegacyReader : public FileReader {
 public:
  explicit LegacyReader(PUUnzip::Unzip& unzip);

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
};

}  // namespace FileReaderPlugin
