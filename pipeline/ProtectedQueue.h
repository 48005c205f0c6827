#pragma once
// A hand-over queue of pipeline items under one mutex. Neither side blocks:
// an empty queue yields null and the caller sleeps and polls again. The queue
// keeps the sum of its items' weights, so that the read thread can hold back
// huge lines before they fill memory.

#include <cstddef>
#include <deque>

#include <OpenThreads/Mutex>

namespace FileReaderPlugin {

class PipelineData;

class ProtectedQueue {
 public:
  ProtectedQueue() = default;
  virtual ~ProtectedQueue() = default;
  ProtectedQueue(const ProtectedQueue&) = delete;
  ProtectedQueue& operator=(const ProtectedQueue&) = delete;

  void push(PipelineData* item);
  // The front item, or null when empty.
  PipelineData* pop();
  std::size_t size();
  // The sum of the weights of the items in the queue.
  std::size_t weight();

 private:
  std::deque<PipelineData*> items_;
  std::size_t weight_ = 0;
  OpenThreads::Mutex mutex_;
};

}  // namespace FileReaderPlugin
