#pragma once
// Archive work behind the ZIP reader: a manager of temporary files, a minizip
// unpacker and the thread that runs it, so that the host's thread can keep its
// progress dialog alive while a large archive unpacks.

#include <OpenThreads/Thread>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace UTILS {

// Remembers temporary files and directories and removes them on clean() and
// at destruction. The duration is how long, in seconds, the owner expects to
// keep them; nothing is removed before clean() is called.
class FUTempFileManager {
 public:
  FUTempFileManager() = default;
  virtual ~FUTempFileManager();
  FUTempFileManager(const FUTempFileManager&) = delete;
  FUTempFileManager& operator=(const FUTempFileManager&) = delete;

  void add(const std::string& path, int duration);
  void clean();
  // Removes every remembered path but keep.
  void cleanAllBut(const std::string& keep);
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  std::vector<std::string> paths_;
};

// Lists and unpacks one archive into an output directory. Member names that
// would escape the output directory (absolute, or with a ".." component) make
// the archive invalid.
class Unzipper {
 public:
  // Results of unzip().
  enum Result {
    UNPACKED = 0,
    CANCELED = 1,
    NOT_VALID = -1,     // the archive cannot be read, or a member is corrupt
    WRITE_FAILED = -2,  // the output directory or a member could not be written
    TOO_LARGE = -3,     // the members hold more than the allowed size
    FAILED = -4         // anything else, such as memory running out
  };

  Unzipper(FUTempFileManager* manager, const std::string& outputDir, int duration);
  virtual ~Unzipper() = default;

  // All member names in archive order, directories left out. False when the
  // archive is not a regular file, cannot be listed or holds an unsafe name.
  bool getFileNames(const std::string& zipPath, std::vector<std::string>& names) const;
  // Unpacks the members named in `members` (names as listed) below the
  // output directory, no more than maxBytes in all: sizes the archive
  // declares are checked before anything is written, and the bytes written
  // as they come. The output directory is created, but not its parents, and
  // handed to the manager only if made here.
  int unzip(const std::string& zipPath, const std::vector<std::string>& members, std::uint64_t maxBytes,
            const std::atomic<bool>* cancel = nullptr);

  const std::string& outputDir() const { return outputDir_; }
  // What went wrong in the last failed unzip(), for the user.
  const std::string& error() const { return error_; }

 private:
  int fail_(int result, const std::string& error);

  FUTempFileManager* manager_;
  std::string outputDir_;
  int duration_;
  std::string error_;
};

// Runs Unzipper::unzip on a thread of its own. cancel() asks the unpacking
// to stop between blocks instead of killing the thread, so files are closed.
class UnzipperThread : public OpenThreads::Thread {
 public:
  UnzipperThread(Unzipper& unzipper, const std::string& zipPath, const std::vector<std::string>& members,
                 std::uint64_t maxBytes);
  ~UnzipperThread() override;

  int cancel() override;
  void run() override;
  int result() const { return result_; }
  // What the unpacking threw, when result() is FAILED.
  const char* failure() const { return failure_; }

 private:
  Unzipper& unzipper_;
  std::string zipPath_;
  std::vector<std::string> members_;
  std::uint64_t maxBytes_;
  std::atomic<bool> cancel_{false};
  std::atomic<int> result_{0};
  const char* failure_ = "";
};

}  // namespace UTILS
