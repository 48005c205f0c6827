#include "pipeline/Unzip.h"

#include "core/FileUtils.h"
#include "core/StringUtils.h"
#include "core/ValidNumber.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIGUI.h"
#include "pipeline/Unzipper.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace PUUnzip {

namespace {

constexpr int kTempDuration = 120;
constexpr unsigned kPollMicroseconds = 100000;

void tell(const std::string& text) { PICommon::notify(text, PICommon::PI_NOTIFY_ERROR, ""); }

// Which file a path names and how it stood: an archive replaced or rewritten
// in place under the same name gives another signature.
std::string fileSignature(const std::string& path) {
  struct stat info;
  if (::stat(path.c_str(), &info) != 0) return std::string();
  return std::to_string(info.st_dev) + ":" + std::to_string(info.st_ino) + ":" + std::to_string(info.st_size) + ":" +
         std::to_string(info.st_mtim.tv_sec) + "." + std::to_string(info.st_mtim.tv_nsec) + ":" +
         std::to_string(info.st_ctim.tv_sec) + "." + std::to_string(info.st_ctim.tv_nsec);
}

}  // namespace

const char* const Unzip::MAX_UNZIPPED_MEGABYTES = "Maximum Unzipped Megabytes";

Unzip::Unzip() : tempFiles_(new UTILS::FUTempFileManager) {}

Unzip::~Unzip() {
  delete unzipper_;
  tempFiles_->clean();
  delete tempFiles_;
}

int Unzip::getSupportedFile(const std::string& path, const std::set<std::string>& extensions,
                            std::vector<std::string>& names) {
  names.clear();
  std::vector<std::string> members;
  UTILS::Unzipper lister(nullptr, std::string(), 0);
  if (!lister.getFileNames(path, members)) return -1;
  std::set<std::string> seen;
  for (const std::string& member : members) {
    std::string ext = orvCore::getExtension(member);
    if (extensions.count(ext)) {
      names.push_back(member);
      seen.insert(ext);
    }
  }
  if (names.empty()) return -1;
  return seen.size() > 1 ? 1 : 0;
}

std::uint64_t Unzip::maxUnpackedBytes() {
  std::uint64_t megabytes = DEFAULT_MAX_UNZIPPED_MEGABYTES;
  std::uint64_t value = 0;
  if (orvCore::isValidNumber(PIGUI::PIRegistry::getValue(MAX_UNZIPPED_MEGABYTES), value, true) && value > 0 &&
      value < (std::uint64_t(1) << 43))
    megabytes = value;
  return megabytes << 20;
}

bool Unzip::isCurrent(const std::string& path) const {
  return !lastZipFilename_.empty() && lastZipFilename_ == path && fileSignature(path) == lastSignature_;
}

int Unzip::unzipFile(const std::string& path, const std::set<std::string>& extensions,
                     std::vector<std::string>& names) {
  names.clear();
  delete unzipper_;
  unzipper_ = nullptr;

  const std::string outputDir = UTILS::getTempFileName("", "");
  unzipper_ = new UTILS::Unzipper(tempFiles_, outputDir, kTempDuration);
  const std::string signature = fileSignature(path);

  std::vector<std::string> all;
  if (outputDir.empty() || !unzipper_->getFileNames(path, all)) {
    tell("Zip file \"" + path + "\" not valid\n");
    return -1;
  }
  int supported = getSupportedFile(path, extensions, names);
  if (supported != 0) {
    tell("Zip file \"" + path + "\" contains no supported formats\n");
    names.clear();
    return supported;
  }

  PIGUI::PIProgressDialog dialog(nullptr, "Unzipping File",
                                 "Unzipping file " + UTILS::fileBaseName(path) + ".  Please wait...", true, 100);
  dialog.show();

  // Only the members that the reader can take are unpacked.
  const std::uint64_t maxBytes = maxUnpackedBytes();
  UTILS::UnzipperThread thread(*unzipper_, path, names, maxBytes);
  thread.start();
  // The bar only shows that work goes on; it is not the share done.
  int counter = 0;
  while (thread.isRunning()) {
    usleep(kPollMicroseconds);
    ++counter;
    dialog.setValue(counter % 100);
    if (dialog.isCanceled()) {
      thread.cancel();
      thread.join();
      removeDir_(outputDir);
      names.clear();
      return 1;
    }
  }
  thread.join();
  const int result = thread.result();
  if (result != UTILS::Unzipper::UNPACKED) {
    switch (result) {
      case UTILS::Unzipper::TOO_LARGE:
        tell("Zip file \"" + path + "\" unpacks to more than " + std::to_string(maxBytes >> 20) +
             " MB, the limit set by \"" + MAX_UNZIPPED_MEGABYTES + "\"\n");
        break;
      case UTILS::Unzipper::WRITE_FAILED:
        tell("Zip file \"" + path + "\" could not be unpacked: " + unzipper_->error() + "\n");
        break;
      case UTILS::Unzipper::FAILED:
        tell("Zip file \"" + path + "\" could not be unpacked: " + thread.failure() + "\n");
        break;
      default:
        tell("Zip file \"" + path + "\" not valid\n");
        break;
    }
    removeDir_(outputDir);
    names.clear();
    return result == UTILS::Unzipper::CANCELED ? 1 : (result < 0 ? result : -1);
  }

  // The previous archive's files are no longer remembered, so they can go.
  tempFiles_->cleanAllBut(outputDir);
  for (std::string& name : names) name = outputDir + "/" + name;
  lastFilenames_ = names;
  lastZipFilename_ = path;
  lastSignature_ = signature;
  return 0;
}

void Unzip::removeDir_(const std::string& dir) {
  std::error_code ec;
  std::filesystem::remove_all(dir, ec);
}

void Unzip::clear() {
  lastZipFilename_.clear();
  lastSignature_.clear();
  lastFilenames_.clear();
  tempFiles_->clean();
}

}  // namespace PUUnzip
