#pragma once
// The two-thread read of the document's ASI loader. The caller's thread
// reads and splits lines into records taken from a pool of 10000; the
// AsiParserThread parses them into the document. Two first-in-first-out
// queues (free and work) under one mutex join them. A side that runs out of
// records waits on a condition, for a batch of them or a short time, instead
// of sleeping a fixed time: it wakes as soon as there is work for it.

#include <atomic>
#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include <OpenThreads/Condition>
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
  // The longest wait before the flags are looked at again.
  static constexpr unsigned long POLL_MILLISECONDS = 10;

  AsiLoaderThread();
  ~AsiLoaderThread();

  // Under the mutex: hands records over and wakes the other side once it has
  // as many as it waits for (at once with `now`).
  void pushWork(AsiLineRecord* record, bool now = false);
  void pushFree(std::deque<AsiLineRecord*>& records);
  // Under the mutex: moves every record of the queue to the back of `out`,
  // first waiting, up to POLL_MILLISECONDS, for `atLeast` of them.
  void takeWork(std::deque<AsiLineRecord*>& out, size_t atLeast);
  void takeFree(std::deque<AsiLineRecord*>& out, size_t atLeast);

  OpenThreads::Mutex mutex;
  std::deque<AsiLineRecord*> freeQueue;
  std::deque<AsiLineRecord*> workQueue;
  std::atomic<bool> endOfFile{false};
  std::atomic<bool> stop{false};
  std::atomic<int> fatalCode{0};

 private:
  void take_(std::deque<AsiLineRecord*>& queue, OpenThreads::Condition& arrived, size_t& wanted,
             std::deque<AsiLineRecord*>& out, size_t atLeast);

  OpenThreads::Condition workArrived_;
  OpenThreads::Condition freeArrived_;
  size_t workWanted_ = 0;  // what the waiting side wants; 0: no one waits
  size_t freeWanted_ = 0;
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
