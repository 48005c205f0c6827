#include "pipeline/ProtectedQueue.h"

#include <OpenThreads/ScopedLock>

namespace FileReaderPlugin {

using Lock = OpenThreads::ScopedLock<OpenThreads::Mutex>;

void ProtectedQueue::push(PipelineData* item, bool wakeNow) {
  Lock lock(mutex_);
  items_.push_back(item);
  if (wanted_ != 0 && (wakeNow || items_.size() >= wanted_)) {
    wanted_ = 0;
    arrived_.signal();
  }
}

void ProtectedQueue::pushAll(std::deque<PipelineData*>& items, bool wakeNow) {
  if (items.empty()) return;
  Lock lock(mutex_);
  items_.insert(items_.end(), items.begin(), items.end());
  items.clear();
  if (wanted_ != 0 && (wakeNow || items_.size() >= wanted_)) {
    wanted_ = 0;
    arrived_.signal();
  }
}

PipelineData* ProtectedQueue::pop() {
  Lock lock(mutex_);
  if (items_.empty()) return nullptr;
  PipelineData* item = items_.front();
  items_.pop_front();
  return item;
}

std::size_t ProtectedQueue::takeAll(std::deque<PipelineData*>& out, std::size_t atLeast,
                                    unsigned long milliseconds) {
  Lock lock(mutex_);
  if (items_.size() < atLeast) {
    wanted_ = atLeast;
    // A wake-up without enough items (spurious, or a push with wakeNow)
    // ends the wait too: the caller takes what there is and asks again.
    arrived_.wait(&mutex_, milliseconds);
    wanted_ = 0;
  }
  const std::size_t count = items_.size();
  if (out.empty()) {
    out.swap(items_);
  } else {
    out.insert(out.end(), items_.begin(), items_.end());
    items_.clear();
  }
  return count;
}

std::size_t ProtectedQueue::size() {
  Lock lock(mutex_);
  return items_.size();
}

}  // namespace FileReaderPlugin
