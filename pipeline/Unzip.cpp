#include "pipeline/Unzip.h"

#include "core/FileUtils.h"
#include "core/StringUtils.h"
#include "hostapi/PICommon.h"
#include "hostapi/PIGUI.h"
#include "pipeline/Unzipper.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace PUUnzip {

namespace {
constexpr int kTempDuration = 120;
constexpr unsigned kPollMicroseconds = 100000;
}  // namespace

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

int Unzip::unzipFile(const std::string& path, const std::set<std::string>& extensions,
                     std::vector<std::string>& names) {
  names.clear();
  delete unzipper_;
  unzipper_ = nullptr;

  const std::string outputDir = UTILS::getTempFileName("", "");
  unzipper_ = new UTILS::Unzipper(tempFiles_, outputDir, kTempDuration);

  std::vector<std::string> all;
  if (outputDir.empty() || !unzipper_->getFileNames(path, all)) {
    PICommon::notify("Zip file \"" + path + "\" not valid\n", PICommon::PI_NOTIFY_ERROR, "");
    return -1;
  }
  int supported = getSupportedFile(path, extensions, names);
  if (supported != 0) {
    PICommon::notify("Zip file \"" + path + "\" contains no supported formats\n", PICommon::PI_NOTIFY_ERROR, "");
    names.clear();
    return supported;
  }

  PIGUI::PIProgressDialog dialog(nullptr, "Unzipping File",
                                 "Unzipping file " + UTILS::fileBaseName(path) + ".  Please wait...", true, 100);
  dialog.show();

  UTILS::UnzipperThread thread(*unzipper_, path);
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
  if (thread.result() != 0) {
    PICommon::notify("Zip file \"" + path + "\" not valid\n", PICommon::PI_NOTIFY_ERROR, "");
    removeDir_(outputDir);
    names.clear();
    return -1;
  }

  // The previous archive's files are no longer remembered, so they can go.
  tempFiles_->cleanAllBut(outputDir);
  for (std::string& name : names) name = outputDir + "/" + name;
  lastFilenames_ = names;
  lastZipFilename_ = path;
  return 0;
}

void Unzip::removeDir_(const std::string& dir) {
  std::error_code ec;
  std::filesystem::remove_all(dir, ec);
}

void Unzip::clear() {
  lastZipFilename_.clear();
  lastFilenames_.clear();
  tempFiles_->clean();
}

}  // namespace PUUnzip
