#pragma once
// Lists and unpacks a ZIP archive into a temporary directory and remembers the
// result, so that the identifier scan and the read that follows share one
// unpacking. The temporary files live until the next unpacking, clear() or
// destruction.

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace UTILS {
class FUTempFileManager;
class Unzipper;
}  // namespace UTILS

namespace PUUnzip {

class Unzip {
 public:
  // The settings-store value that caps what one archive may unpack, in
  // megabytes (2^20 bytes), and its default.
  static const char* const MAX_UNZIPPED_MEGABYTES;
  static constexpr std::uint64_t DEFAULT_MAX_UNZIPPED_MEGABYTES = 2048;

  Unzip();
  virtual ~Unzip();
  Unzip(const Unzip&) = delete;
  Unzip& operator=(const Unzip&) = delete;

  // Reads the table of contents only. -1: no member with one of the extensions
  // (or the archive cannot be listed); 0: all matching members share one
  // extension; 1: they have more than one. names gets the matches in archive order.
  int getSupportedFile(const std::string& path, const std::set<std::string>& extensions,
                       std::vector<std::string>& names);
  // Lists and unpacks the members with one of the extensions, no more than
  // maxUnpackedBytes() in all. 0 on success (names are then full paths), 1
  // when the user canceled, negative on failure, told in one message.
  int unzipFile(const std::string& path, const std::set<std::string>& extensions,
                std::vector<std::string>& names);

  const std::string& lastZipFilename() const { return lastZipFilename_; }
  // True if `path` is the archive last unpacked and has not changed on disk
  // since (same file, size and times), so that its members can be read again.
  bool isCurrent(const std::string& path) const;
  // The cap on one archive's unpacked members, from the settings store.
  static std::uint64_t maxUnpackedBytes();
  const std::vector<std::string>& lastFilenames() const { return lastFilenames_; }

  // Forgets the remembered archive and removes its temporary files.
  void clear();

 private:
  static void removeDir_(const std::string& dir);

  UTILS::FUTempFileManager* tempFiles_;
  UTILS::Unzipper* unzipper_ = nullptr;
  std::string lastZipFilename_;
  std::vector<std::string> lastFilenames_;
  std::string lastSignature_;
};

}  // namespace PUUnzip
