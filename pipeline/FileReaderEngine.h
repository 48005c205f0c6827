#pragma once
// Carries a text file of commands into the host in two stages: a read thread
// reads and splits lines, the calling thread (the host's own) runs each
// command, updates progress and lets host events run. Commands reach the
// host strictly in file order, and only the calling thread touches the host.

#include <cstddef>
#include <istream>
#include <string>
#include <vector>

namespace FileReaderPlugin {

class AsiLineReader;
class CommandParser;
class FileReaderParser;
class FileReaderProgress;
class MessageManager;

class FileReaderEngine {
 public:
  // The whole stock of items of one read: the read thread can never get more
  // than this many lines ahead, whatever the file's size.
  static constexpr std::size_t POOL_SIZE = 10000;
  // More than this many errors stop a read.
  static constexpr unsigned long MAX_ERRORS = 100;
  static constexpr int MAX_SUPPORTED_VERSION = 24;

  explicit FileReaderEngine(FileReaderParser& parser) : parser_(parser) {}
  virtual ~FileReaderEngine() = default;

  // One read of one file. Returns 0 loaded, 1 canceled, 2 loaded with errors,
  // -1 failed, -2 stopped after too many errors. Nothing that a command, the
  // host or the standard library throws leaves it: a failure is a fatal error.
  int execute(const std::string& path, MessageManager& messages, FileReaderProgress& progress);

 private:
  // The version to read the file as, or -1 after reporting why there is none.
  int getVersion_(AsiLineReader& reader, unsigned long& lineNumber, MessageManager& messages);
  int execute_(const std::string& path, MessageManager& messages, FileReaderProgress& progress);
  // Runs both stages of one command; false if it threw, which has been
  // reported as a fatal error as far as memory allows.
  static bool runCommand_(CommandParser& command, const std::vector<std::string>& tokens,
                          MessageManager& messages) noexcept;

  FileReaderParser& parser_;
};

}  // namespace FileReaderPlugin
