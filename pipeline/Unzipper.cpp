#include "pipeline/Unzipper.h"

#include <minizip/unzip.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

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

int Unzipper::unzipAll(const std::string& zipPath, const std::atomic<bool>* cancel) {
  std::vector<std::string> names;
  if (!getFileNames(zipPath, names)) return -1;
  std::error_code ec;
  fs::create_directories(outputDir_, ec);
  if (ec) return -2;
  if (manager_) manager_->add(outputDir_, duration_);

  ArchiveCloser archive{unzOpen64(zipPath.c_str())};
  if (!archive.file) return -1;
  std::vector<char> buffer(1 << 16);
  for (int rc = unzGoToFirstFile(archive.file); rc == UNZ_OK; rc = unzGoToNextFile(archive.file)) {
    if (cancel && cancel->load()) return 1;
    std::string name = currentName(archive.file);
    if (isDirectoryEntry(name)) continue;
    fs::path target = fs::path(outputDir_) / name;
    fs::create_directories(target.parent_path(), ec);
    if (ec) return -2;
    if (unzOpenCurrentFile(archive.file) != UNZ_OK) return -3;
    FILE* out = std::fopen(target.c_str(), "wb");
    if (!out) {
      unzCloseCurrentFile(archive.file);
      return -2;
    }
    int got = 0;
    while ((got = unzReadCurrentFile(archive.file, buffer.data(), static_cast<unsigned>(buffer.size()))) > 0) {
      if (std::fwrite(buffer.data(), 1, static_cast<size_t>(got), out) != static_cast<size_t>(got)) {
        got = -1;
        break;
      }
      if (cancel && cancel->load()) break;
    }
    std::fclose(out);
    // unzCloseCurrentFile checks the CRC of a member read to its end.
    int closeRc = unzCloseCurrentFile(archive.file);
    if (cancel && cancel->load()) return 1;
    if (got < 0 || closeRc != UNZ_OK) return -3;
  }
  return 0;
}

UnzipperThread::UnzipperThread(Unzipper& unzipper, const std::string& zipPath)
    : unzipper_(unzipper), zipPath_(zipPath) {}

UnzipperThread::~UnzipperThread() {
  cancel_ = true;
  if (isRunning()) join();
}

int UnzipperThread::cancel() {
  cancel_ = true;
  return 0;
}

void UnzipperThread::run() { result_ = unzipper_.unzipAll(zipPath_, &cancel_); }

}  // namespace UTILS
