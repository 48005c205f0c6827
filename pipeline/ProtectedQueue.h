#pragma once
// A hand-over queue of pipeline items under one mutex. Pushing never blocks.
// A taker that finds too few items waits, up to a time limit, until enough
// have come, and then takes all of them at once: each side so wakes the
// other once per batch rather than once per item, and an empty queue is
// noticed at once instead of after a fixed sleep.

#include <cstddef>
#include <deque>

#include <OpenThreads/Condition>
#include <OpenThreads/Mutex>

namespace FileReaderPlugin {

class PipelineData;

class ProtectedQueue {
 public:
  ProtectedQueue() = default;
  virtual ~ProtectedQueue() = default;
  ProtectedQueue(const ProtectedQueue&) = delete;
  ProtectedQueue& operator=(const ProtectedQueue&) = delete;

  // Pushes at the back. A waiting taker is woken once the queue holds as
  // many items as it asked for, or at once with wakeNow (the last item of
  // a read, an item that must not wait for company).
  void push(PipelineData* item, bool wakeNow = false);
  // Pushes every item of `items` in order and empties it; wakes a waiting
  // taker as push does.
  void pushAll(std::deque<PipelineData*>& items, bool wakeNow = false);
  // The front item, or null when empty; never waits.
  PipelineData* pop();
  // Moves every item, in order, to the back of `out`. With fewer than
  // `atLeast` items queued it first waits until that many are there or
  // `milliseconds` have passed. Answers how many items were moved.
  std::size_t takeAll(std::deque<PipelineData*>& out, std::size_t atLeast, unsigned long milliseconds);
  std::size_t size();

 private:
  std::deque<PipelineData*> items_;
  OpenThreads::Mutex mutex_;
  OpenThreads::Condition arrived_;
  // How many items the waiting taker wants; 0 when no one waits.
  std::size_t wanted_ = 0;
};

}  // namespace FileReaderPlugin
