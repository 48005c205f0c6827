#pragma once
// The two-thread read of the document's ASI loader. The caller's thread
// reads and splits lines into records taken from a pool of 10000; the
// AsiParserThread parses them into the document. Two first-in-first-out
// queues (free and work) under one mutex join them; both sides poll with
// short sleeps.

#include <atomic>
#include <deque>
#include <string>
#include <vector>

#include <OpenThreads/Mutex>
#include <OpenThreads/Thread>

class AsiKeywordHandlers;

struct AsiLineRecord {
  std::vector<std::string> tokens;
  unsigned long line = 0;
  int result = 0;  // ErrorCodesUD of its last parse
};

// The block that both threads share.
struct AsiLoaderThread {
  static constexpr size_t POOL_SIZE = 10000;

  AsiLoaderThread();
  ~AsiLoaderThread();

  OpenThreads::Mutex mutex;
  std::deque<AsiLineRecord*> freeQueue;
  std::deque<AsiLineRecord*> workQueue;
  std::atomic<bool> endOfFile{false};
  std::atomic<bool> stop{false};
  std::atomic<int> fatalCode{0};

 private:
  std::vector<AsiLineRecord> records_;
};

class AsiParserThread : public OpenThreads::Thread {
 public:
  AsiParserThread(AsiLoaderThread& shared, AsiKeywordHandlers& handlers) : shared_(shared), handlers_(handlers) {}
  void run() override;

 private:
  AsiLoaderThread& shared_;
  AsiKeywordHandlers& handlers_;
};
