#pragma once
// A hand-over queue of pipeline items under one mutex. Neither side blocks:
// an empty queue yields null and the caller sleeps and polls again.

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

 private:
  std::deque<PipelineData*> items_;
  OpenThreads::Mutex mutex_;
};

}  // namespace FileReaderPlugin
