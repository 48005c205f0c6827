#pragma once
// The read side of the pipeline: reads the lines behind the Version line,
// splits them into tokens, clones the command of each keyword and hands the
// filled items to the calling thread. It never touches the host and adds no
// messages while it runs; unknown keywords are only counted.

#include <atomic>
#include <cstdint>
#include <istream>
#include <map>
#include <string>

#include <OpenThreads/Thread>

#include "pipeline/KeywordLess.h"

namespace FileReaderPlugin {

class FileReaderParser;
class MessageManager;
class PipelineData;
class ProtectedQueue;

class ReadThread : public OpenThreads::Thread {
 public:
  ReadThread(FileReaderParser& parser, std::istream& stream, unsigned long lineNumber,
             ProtectedQueue& freeQueue, ProtectedQueue& fullQueue);
  ~ReadThread() override;

  void run() override;

  // Reports the unknown keywords at info severity; call after the join.
  void getUnsupportedCommands(MessageManager& messages) const;

  FileReaderParser* parser;  // not owned
  std::istream* stream;      // not owned, positioned behind the Version line
  unsigned long lineNumber;
  ProtectedQueue* freeQueue;  // not owned
  ProtectedQueue* fullQueue;  // not owned
  // Written by the calling thread only, read between lines.
  std::atomic<bool> stop{false};
  // Each unknown keyword as first spelled, with how often it came.
  std::map<std::string, std::uint64_t, KeywordLess> unsupported;

 private:
  // Waits for a free item; null when told to stop meanwhile.
  PipelineData* takeFreeItem_();
  void readLines_();
  void sendEndOfFile_();

  // The item being filled; goes back to the free queue if the thread ends early.
  PipelineData* held_ = nullptr;
};

}  // namespace FileReaderPlugin
