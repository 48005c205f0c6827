#pragma once
// Reads an archive of ASI files by running a fresh ASI reader over each member.
// The member reader is a prototype handed in by the caller, so that this layer
// does not depend on the host-bound ASI reader above it.

#include "pipeline/FileReader.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace PUUnzip {
class Unzip;
}

namespace FileReaderPlugin {

class ZipReader : public FileReader {
 public:
  ZipReader(PUUnzip::Unzip& unzip, std::shared_ptr<const FileReader> memberReader);

  int read(const std::string& path) override;
  int canReadFile(const std::string& path) const override;
  int getScenarioIdentifier(const std::string& path, std::string& id) const override;
  void setAppend(bool append, AsiInterface::Resolver* resolver) override;
  FileReader* clone() const override;
  void getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const override;

 private:
  // The unpacked members: the remembered ones when `path` was the last
  // archive, else a fresh unpacking. Non-zero when unpacking did not succeed.
  int members_(const std::string& path, std::vector<std::string>& names) const;

  PUUnzip::Unzip& unzip_;
  bool append_ = false;
  AsiInterface::Resolver* resolver_ = nullptr;
  std::set<std::string> extensions_;
  std::shared_ptr<const FileReader> memberReader_;
};

}  // namespace FileReaderPlugin
