#pragma once
// Archive work behind the ZIP reader: a manager of temporary files, a minizip
// unpacker and the thread that runs it, so that the host's thread can keep its
// progress dialog alive while a large archive unpacks.

#include <OpenThreads/Thread>

#include <atomic>
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
  Unzipper(FUTempFileManager* manager, const std::string& outputDir, int duration);
  virtual ~Unzipper() = default;

  // All member names in archive order, directories left out. False when the
  // archive cannot be listed or holds an unsafe name.
  bool getFileNames(const std::string& zipPath, std::vector<std::string>& names) const;
  // Unpacks every member below the output directory. 0 on success, 1 when
  // canceled through the flag, negative on failure.
  int unzipAll(const std::string& zipPath, const std::atomic<bool>* cancel = nullptr);

  const std::string& outputDir() const { return outputDir_; }

 private:
  FUTempFileManager* manager_;
  std::string outputDir_;
  int duration_;
};

// Runs Unzipper::unzipAll on a thread of its own. cancel() asks the unpacking
// to stop between blocks instead of killing the thread, so files are closed.
class UnzipperThread : public OpenThreads::Thread {
 public:
  UnzipperThread(Unzipper& unzipper, const std::string& zipPath);
  ~UnzipperThread() override;

  int cancel() override;
  void run() override;
  int result() const { return result_; }

 private:
  Unzipper& unzipper_;
  std::string zipPath_;
  std::atomic<bool> cancel_{false};
  std::atomic<int> result_{0};
};

}  // namespace UTILS
