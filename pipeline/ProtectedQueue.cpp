#include "pipeline/ProtectedQueue.h"

#include <OpenThreads/ScopedLock>

#include "pipeline/PipelineData.h"

namespace FileReaderPlugin {

void ProtectedQueue::push(PipelineData* item) {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  items_.push_back(item);
  weight_ += item->weight;
}

PipelineData* ProtectedQueue::pop() {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  if (items_.empty()) return nullptr;
  PipelineData* item = items_.front();
  items_.pop_front();
  weight_ -= item->weight;
  return item;
}

std::size_t ProtectedQueue::size() {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  return items_.size();
}

std::size_t ProtectedQueue::weight() {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex_);
  return weight_;
}

}  // namespace FileReaderPlugin
