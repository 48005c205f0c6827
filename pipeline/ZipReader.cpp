#include "pipeline/ZipReader.h"

#include "core/StringUtils.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIData.h"
#include "pipeline/Unzip.h"

#include <algorithm>
#include <fstream>

namespace FileReaderPlugin {

ZipReader::ZipReader(PUUnzip::Unzip& unzip, std::shared_ptr<const FileReader> memberReader)
    : unzip_(unzip), extensions_{".asi"}, memberReader_(std::move(memberReader)) {}

int ZipReader::canReadFile(const std::string& path) const {
  if (orvCore::getExtension(path) != ".zip") return NOT_THIS_FORMAT;
  std::ifstream in;
  if (!openRegularFile(path, in)) return NOT_READABLE;
  std::vector<std::string> names;
  // Several extensions still count as readable here: only ".asi" is in the set.
  if (unzip_.getSupportedFile(path, extensions_, names) < 0) return NOT_THIS_FORMAT;
  return CAN_READ;
}

int ZipReader::members_(const std::string& path, std::vector<std::string>& names) const {
  // The unpacked members serve again only while the archive is unchanged.
  if (unzip_.isCurrent(path)) {
    names = unzip_.lastFilenames();
    return 0;
  }
  return unzip_.unzipFile(path, extensions_, names);
}

int ZipReader::getScenarioIdentifier(const std::string& path, std::string& id) const {
  std::vector<std::string> names;
  int rc = members_(path, names);
  if (rc != 0) return rc;
  std::stable_sort(names.begin(), names.end());
  if (names.empty() || !memberReader_) return 0;

  std::unique_ptr<FileReader> first(memberReader_->clone());
  first->getScenarioIdentifier(names[0], id);
  for (size_t i = 1; i < names.size(); ++i) {
    std::unique_ptr<FileReader> reader(memberReader_->clone());
    std::string other;
    reader->getScenarioIdentifier(names[i], other);
    if (other != id) {
      PICommon::notify("ZIP contains multiple files with different Scenario IDs\n", PICommon::PI_NOTIFY_ERROR, "");
      return -1;
    }
  }
  return 0;
}

int ZipReader::read(const std::string& path) {
  std::vector<std::string> names;
  int rc = members_(path, names);
  if (rc < 0) return rc;
  // A canceled unpacking ends the load as canceled.
  if (rc != 0) return rc;
  if (names.empty() || !memberReader_) return -1;

  // The archive's order decides which member comes first and so whether the
  // scenario is replaced.
  std::unique_ptr<FileReader> first(memberReader_->clone());
  first->setAppend(append_, resolver_);
  int result = first->read(names[0]);
  if (result != 0) return result;
  if (!append_) PIData::setScenarioFileName(path);

  for (size_t i = 1; i < names.size(); ++i) {
    std::unique_ptr<FileReader> reader(memberReader_->clone());
    reader->setAppend(true, resolver_);
    result = reader->read(names[i]);
    if (result != 0) return result;
  }
  return result;
}

void ZipReader::setAppend(bool append, AsiInterface::Resolver* resolver) {
  append_ = append;
  resolver_ = resolver;
}

FileReader* ZipReader::clone() const { return new ZipReader(*this); }

void ZipReader::getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const {
  extensions["*.zip"] = "ZIP Archive Of Supported Formats";
}

}  // namespace FileReaderPlugin
