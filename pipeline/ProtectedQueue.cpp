#include "pipeline/ProtectedQueue.h"

#include <OpenThreads/ScopedLock>

namespace FileReaderPlugin {

void ProtectedQueue::push(PipelineData* item) {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  items_.push_back(item);
}

PipelineData* ProtectedQueue::pop() {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  if (items_.empty()) return nullptr;
  PipelineData* item = items_.front();
  items_.pop_front();
  return item;
}

std::size_t ProtectedQueue::size() {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  return items_.size();
}

}  // namespace FileReaderPlugin
