#pragma once
// The read side of the pipeline: reads the lines behind the Version line,
// splits them into tokens, clones the command of each keyword and hands the
// filled items to the calling thread. It never touches the host and adds no
// messages while it runs; unknown keywords are only counted, and a read that
// breaks down is recorded for the calling thread to report.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>

#include <OpenThreads/Thread>

#include "pipeline/KeywordLess.h"

namespace FileReaderPlugin {

class AsiLineReader;
class CommandParser;
class FileReaderParser;
class MessageManager;
class PipelineData;
class ProtectedQueue;

class ReadThread : public OpenThreads::Thread {
 public:
  ReadThread(FileReaderParser& parser, AsiLineReader& reader, unsigned long lineNumber,
             ProtectedQueue& freeQueue, ProtectedQueue& fullQueue);
  ~ReadThread() override;

  void run() override;

  // Reports the unknown keywords at info severity; call after the join.
  void getUnsupportedCommands(MessageManager& messages) const;

  // Why the read stopped before the end of the file, or null if it did not.
  // Set before the end item is queued, so the calling thread may read it once
  // it has taken that item.
  const char* failure() const { return failure_; }
  // The line at which it stopped.
  unsigned long failureLine() const { return failureLine_; }

  FileReaderParser* parser;  // not owned
  AsiLineReader* reader;     // not owned, positioned behind the Version line
  unsigned long lineNumber;
  ProtectedQueue* freeQueue;  // not owned
  ProtectedQueue* fullQueue;  // not owned
  // Written by the calling thread only, read between lines.
  std::atomic<bool> stop{false};
  // Token memory of the heavy items (over ITEM_KEEP_BYTES) handed over and not
  // yet run: the read thread adds an item's weight as it queues it, the
  // calling thread takes it off once the command has run.
  std::atomic<std::size_t> queuedWeight{0};
  // Each unknown keyword as first spelled (its start only, if very long),
  // with how often it came; at most MAX_UNSUPPORTED_KEYWORDS of them.
  std::map<std::string, std::uint64_t, KeywordLess> unsupported;
  // Lines whose unknown keyword found the map full.
  std::uint64_t unsupportedBeyond = 0;

 private:
  // Waits for a free item; null when told to stop meanwhile.
  PipelineData* takeFreeItem_();
  // Queues the held item; a heavy one first waits while the queued lines hold
  // too much memory. False when told to stop meanwhile.
  bool pushHeld_();
  void readLines_();
  void countUnsupported_(const std::string& keyword);
  void sendEndOfFile_();
  void fail_(const char* why, unsigned long line);

  // The item being filled; goes back to the free queue if the thread ends early.
  PipelineData* held_ = nullptr;
  // Free items taken from the free queue in one go, used one by one.
  std::deque<PipelineData*> free_;
  // The last keyword looked up, exactly as spelled, and the table's answer:
  // data lines come in long runs of one keyword.
  std::string lastKeyword_;
  CommandParser* lastCommand_ = nullptr;
  bool looked_ = false;
  const char* failure_ = nullptr;
  unsigned long failureLine_ = 0;
};

}  // namespace FileReaderPlugin
