#pragma once
// Carries a text file of commands into the host in two stages: a read thread
// reads and splits lines, the calling thread (the host's own) runs each
// command, updates progress and lets host events run. Commands reach the
// host strictly in file order, and only the calling thread touches the host.

#include <cstddef>
#include <istream>
#include <string>

namespace FileReaderPlugin {

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
  // -1 failed, -2 stopped after too many errors.
  int execute(const std::string& path, MessageManager& messages, FileReaderProgress& progress);

 private:
  // The version to read the file as, or -1 after reporting why there is none.
  int getVersion_(std::istream& stream, unsigned long& lineNumber, MessageManager& messages);

  FileReaderParser& parser_;
};

}  // namespace FileReaderPlugin
