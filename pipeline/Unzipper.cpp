#include "pipeline/Unzipper.h"

#include <minizip/unzip.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <set>
#include <system_error>

#include "core/Failure.h"
#include "core/FileUtils.h"

namespace fs = std::filesystem;

namespace UTILS {

namespace {

// A member name is safe when it stays below the output directory.
bool isSafeMemberName(const std::string& name) {
  if (name.empty() || name[0] == '/' || name[0] == '\\') return false;
  if (name.size() > 1 && name[1] == ':') return false;
  std::string part;
  for (size_t i = 0; i <= name.size(); ++i) {
    if (i == name.size() || name[i] == '/' || name[i] == '\\') {
      if (part == "..") return false;
      part.clear();
    } else {
      part += name[i];
    }
  }
  return true;
}

bool isDirectoryEntry(const std::string& name) {
  return !name.empty() && (name.back() == '/' || name.back() == '\\');
}

struct ArchiveCloser {
  unzFile file;
  ~ArchiveCloser() {
    if (file) unzClose(file);
  }
};

std::string currentName(unzFile file) {
  unz_file_info64 info;
  if (unzGetCurrentFileInfo64(file, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK) return {};
  std::string name(info.size_filename, '\0');
  if (unzGetCurrentFileInfo64(file, &info, name.data(), static_cast<uLong>(name.size()) + 0, nullptr, 0,
                              nullptr, 0) != UNZ_OK)
    return {};
  return name;
}

}  // namespace

FUTempFileManager::~FUTempFileManager() { clean(); }

void FUTempFileManager::add(const std::string& path, int /*duration*/) { paths_.push_back(path); }

void FUTempFileManager::clean() {
  for (const std::string& path : paths_) {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
  paths_.clear();
}

void FUTempFileManager::cleanAllBut(const std::string& keep) {
  std::vector<std::string> kept;
  for (const std::string& path : paths_) {
    if (path == keep) {
      kept.push_back(path);
      continue;
    }
    std::error_code ec;
    fs::remove_all(path, ec);
  }
  paths_.swap(kept);
}

Unzipper::Unzipper(FUTempFileManager* manager, const std::string& outputDir, int duration)
    : manager_(manager), outputDir_(outputDir), duration_(duration) {}

bool Unzipper::getFileNames(const std::string& zipPath, std::vector<std::string>& names) const {
  names.clear();
  // A named pipe would block in open, a device never end.
  if (!fileIsFile(zipPath)) return false;
  ArchiveCloser archive{unzOpen64(zipPath.c_str())};
  if (!archive.file) return false;
  int rc = unzGoToFirstFile(archive.file);
  while (rc == UNZ_OK) {
    std::string name = currentName(archive.file);
    if (name.empty() || !isSafeMemberName(name)) {
      names.clear();
      return false;
    }
    if (!isDirectoryEntry(name)) names.push_back(name);
    rc = unzGoToNextFile(archive.file);
  }
  if (rc != UNZ_END_OF_LIST_OF_FILE) {
    names.clear();
    return false;
  }
  return true;
}

int Unzipper::fail_(int result, const std::string& error) {
  error_ = error;
  return result;
}

int Unzipper::unzip(const std::string& zipPath, const std::vector<std::string>& members, std::uint64_t maxBytes,
                    const std::atomic<bool>* cancel) {
  error_.clear();
  std::vector<std::string> names;
  if (!getFileNames(zipPath, names)) return fail_(NOT_VALID, "the archive cannot be read");
  const std::set<std::string> wanted(members.begin(), members.end());

  ArchiveCloser archive{unzOpen64(zipPath.c_str())};
  if (!archive.file) return fail_(NOT_VALID, "the archive cannot be read");

  // What the archive says its wanted members hold, before anything is written.
  std::uint64_t declared = 0;
  for (int rc = unzGoToFirstFile(archive.file); rc == UNZ_OK; rc = unzGoToNextFile(archive.file)) {
    unz_file_info64 info;
    if (unzGetCurrentFileInfo64(archive.file, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK)
      return fail_(NOT_VALID, "the archive cannot be read");
    if (wanted.count(currentName(archive.file)) != 0) declared += info.uncompressed_size;
  }
  if (declared > maxBytes) return fail_(TOO_LARGE, "");

  // Only the last component is made: a temporary folder that does not exist
  // is not created on the way.
  std::error_code ec;
  if (!fs::create_directory(outputDir_, ec) || ec)
    return fail_(WRITE_FAILED, "creating \"" + outputDir_ + "\" failed: " + (ec ? ec.message() : "it exists"));
  if (manager_) manager_->add(outputDir_, duration_);

  std::vector<char> buffer(1 << 16);
  std::uint64_t written = 0;
  for (int rc = unzGoToFirstFile(archive.file); rc == UNZ_OK; rc = unzGoToNextFile(archive.file)) {
    if (cancel && cancel->load()) return CANCELED;
    const std::string name = currentName(archive.file);
    if (wanted.count(name) == 0) continue;
    const fs::path target = fs::path(outputDir_) / name;
    fs::create_directories(target.parent_path(), ec);
    if (ec) return fail_(WRITE_FAILED, "writing \"" + name + "\" failed: " + ec.message());
    if (unzOpenCurrentFile(archive.file) != UNZ_OK) return fail_(NOT_VALID, "\"" + name + "\" is corrupt");
    FILE* out = std::fopen(target.c_str(), "wb");
    if (!out) {
      const int code = errno;
      unzCloseCurrentFile(archive.file);
      return fail_(WRITE_FAILED, "writing \"" + name + "\" failed: " + std::strerror(code));
    }
    int got = 0;
    int writeError = 0;
    bool tooLarge = false;
    while ((got = unzReadCurrentFile(archive.file, buffer.data(), static_cast<unsigned>(buffer.size()))) > 0) {
      written += static_cast<std::uint64_t>(got);
      // The declared sizes may lie; the bytes themselves count.
      if (written > maxBytes) {
        tooLarge = true;
        break;
      }
      if (std::fwrite(buffer.data(), 1, static_cast<size_t>(got), out) != static_cast<size_t>(got)) {
        writeError = errno;
        break;
      }
      if (cancel && cancel->load()) break;
    }
    if (std::fclose(out) != 0 && writeError == 0) writeError = errno;
    // unzCloseCurrentFile checks the CRC of a member read to its end.
    const int closeRc = unzCloseCurrentFile(archive.file);
    if (cancel && cancel->load()) return CANCELED;
    if (tooLarge) return fail_(TOO_LARGE, "");
    if (writeError != 0) return fail_(WRITE_FAILED, "writing \"" + name + "\" failed: " + std::strerror(writeError));
    if (got < 0 || closeRc != UNZ_OK) return fail_(NOT_VALID, "\"" + name + "\" is corrupt");
  }
  return UNPACKED;
}

UnzipperThread::UnzipperThread(Unzipper& unzipper, const std::string& zipPath,
                               const std::vector<std::string>& members, std::uint64_t maxBytes)
    : unzipper_(unzipper), zipPath_(zipPath), members_(members), maxBytes_(maxBytes) {}

UnzipperThread::~UnzipperThread() {
  cancel_ = true;
  if (isRunning()) join();
}

int UnzipperThread::cancel() {
  cancel_ = true;
  return 0;
}

void UnzipperThread::run() {
  try {
    result_ = unzipper_.unzip(zipPath_, members_, maxBytes_, &cancel_);
  } catch (...) {
    // Nothing may escape a thread; the caller reports the failure.
    failure_ = orvCore::currentFailure();
    result_ = Unzipper::FAILED;
  }
}

}  // namespace UTILS
