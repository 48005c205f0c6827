#pragma once
// The reader of ".asi" files: runs the read engine over an AsiParser, with
// the host's progress dialog, and moves the host's clock over the data read.

#include "pipeline/FileReader.h"

#include <map>
#include <string>

namespace AsiReader {

class AsiReader : public FileReaderPlugin::FileReader {
 public:
  AsiReader() = default;

  int read(const std::string& path) override;
  // 4 for any extension but ".asi"; otherwise the code of canReadAsiFile.
  int canReadFile(const std::string& path) const override;
  // The "# Scenario Identifier:" comment above the first command.
  int getScenarioIdentifier(const std::string& path, std::string& id) const override;
  void setAppend(bool append, AsiInterface::Resolver* resolver) override;
  FileReaderPlugin::FileReader* clone() const override;
  void getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const override;

  bool append() const { return append_; }
  AsiInterface::Resolver* resolver() const { return resolver_; }

 private:
  bool append_ = false;
  AsiInterface::Resolver* resolver_ = nullptr;  // not owned
};

}  // namespace AsiReader
