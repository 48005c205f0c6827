#include "pipeline/ReaderFactory.h"

#include "core/StringUtils.h"
#include "hostapi/PICommon.h"
#include "pipeline/LegacyReader.h"
#include "pipeline/Unzip.h"
#include "pipeline/ZipReader.h"

namespace FileReaderPlugin {

namespace {

void tell(const std::string& text) { PICommon::notify(text, PICommon::PI_NOTIFY_ERROR, ""); }

std::string quoted(const std::string& path) { return "\"" + orvCore::toNativeSeparators(path) + "\""; }

}  // namespace

ReaderFactory::ReaderFactory(std::shared_ptr<const FileReader> asiReader) : unzip_(new PUUnzip::Unzip) {
  if (asiReader) readers_.push_back(asiReader->clone());
  readers_.push_back(new ZipReader(*unzip_, asiReader));
  readers_.push_back(new LegacyReader(*unzip_));
}

ReaderFactory::~ReaderFactory() {
  for (FileReader* reader : readers_) delete reader;
  delete unzip_;
}

void ReaderFactory::getSupportedFileExtensions(std::map<std::string, std::string>& extensions) const {
  for (const FileReader* reader : readers_) reader->getSupportedFileExtensions(extensions);
}

std::shared_ptr<FileReader> ReaderFactory::createReader(const std::string& path) {
  std::shared_ptr<FileReader> chosen;
  for (const FileReader* reader : readers_) {
    switch (reader->canReadFile(path)) {
      case FileReader::CAN_READ:
        if (chosen) {
          tell("File " + quoted(path) + " contains multiple supported file types.  Please remove unnecessary extra files.\n");
          return nullptr;
        }
        chosen.reset(reader->clone());
        break;
      case FileReader::NOT_READABLE:
        tell("File " + quoted(path) + " not found or not readable.\n");
        return nullptr;
      case FileReader::SEVERAL_TYPES:
        tell("File " + quoted(path) + " contains multiple supported file types.  Please remove unnecessary extra files.\n");
        return nullptr;
      default:
        break;
    }
  }
  if (chosen) return chosen;
  if (isZippedHdf5_(path))
    tell("A zipped HDF5 file must have an hdfz extension.\n");
  else
    tell("Unsupported format for the file " + quoted(path) + "\n");
  return nullptr;
}

bool ReaderFactory::isZippedHdf5_(const std::string& path) {
  if (orvCore::getExtension(path) != ".zip") return false;
  std::vector<std::string> names;
  unzip_->getSupportedFile(path, {".hdf5"}, names);
  unzip_->clear();
  return !names.empty();
}

}  // namespace FileReaderPlugin
