#pragma once
// Chooses the reader of a path, or tells in one message why none will. The
// readers are asked in a fixed order: ASI, ZIP of ASI, side formats.

#include "pipeline/FileReader.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace PUUnzip {
class Unzip;
}

namespace FileReaderPlugin {

class ReaderFactory {
 public:
  // `asiReader` is the reader of ".asi" files; the ZIP reader runs clones of
  // it over archive members.
  explicit ReaderFactory(std::shared_ptr<const FileReader> asiReader);
  ~ReaderFactory();
  ReaderFactory(const ReaderFactory&) = delete;
  ReaderFactory& operator=(const ReaderFactory&) = delete;

  // Pattern to description for every reader; "*.zip" appears once.
  void getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const;
  // A clone of the one reader that claims the file, or empty after a message.
  std::shared_ptr<FileReader> createReader(const std::string& path);

  PUUnzip::Unzip& unzip() { return *unzip_; }

 private:
  bool isZippedHdf5_(const std::string& path);

  PUUnzip::Unzip* unzip_;
  std::vector<FileReader*> readers_;
};

}  // namespace FileReaderPlugin
