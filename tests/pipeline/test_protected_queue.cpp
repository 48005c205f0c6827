// The hand-over queue between the read thread and the calling thread: items
// leave in the order they came, batches included, and none is lost when two
// threads pass them back and forth.

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <vector>

#include <OpenThreads/Thread>

#include "pipeline/PipelineData.h"
#include "pipeline/ProtectedQueue.h"

using FileReaderPlugin::PipelineData;
using FileReaderPlugin::ProtectedQueue;

namespace {

std::vector<std::unique_ptr<PipelineData>> makeItems(std::size_t count) {
  std::vector<std::unique_ptr<PipelineData>> items;
  for (std::size_t i = 0; i < count; ++i) {
    items.emplace_back(new PipelineData);
    items.back()->weight = i;
  }
  return items;
}

// Sends `count` numbered items through `full`, taking each from `free`.
class Producer : public OpenThreads::Thread {
 public:
  Producer(ProtectedQueue& free, ProtectedQueue& full, std::size_t count) : free_(free), full_(full), count_(count) {}
  void run() override {
    std::deque<PipelineData*> taken;
    for (std::size_t sent = 0; sent < count_; ++sent) {
      while (taken.empty()) free_.takeAll(taken, 50, 10);
      PipelineData* item = taken.front();
      taken.pop_front();
      item->weight = sent;
      full_.push(item, sent + 1 == count_);
    }
    free_.pushAll(taken);
  }

 private:
  ProtectedQueue& free_;
  ProtectedQueue& full_;
  std::size_t count_;
};

}  // namespace

TEST(ProtectedQueue, ItemsLeaveInTheOrderTheyCame) {
  auto items = makeItems(6);
  ProtectedQueue queue;
  EXPECT_EQ(queue.pop(), nullptr);
  queue.push(items[0].get());
  std::deque<PipelineData*> batch{items[1].get(), items[2].get()};
  queue.pushAll(batch);
  EXPECT_TRUE(batch.empty());
  queue.push(items[3].get(), true);
  EXPECT_EQ(queue.size(), 4u);

  EXPECT_EQ(queue.pop(), items[0].get());
  // What is taken goes behind what the caller already holds.
  std::deque<PipelineData*> out{items[5].get()};
  EXPECT_EQ(queue.takeAll(out, 1, 0), 3u);
  ASSERT_EQ(out.size(), 4u);
  EXPECT_EQ(out[0], items[5].get());
  EXPECT_EQ(out[1], items[1].get());
  EXPECT_EQ(out[3], items[3].get());
  EXPECT_EQ(queue.size(), 0u);
}

TEST(ProtectedQueue, TakingFromAnEmptyQueueGivesUpAfterTheWait) {
  ProtectedQueue queue;
  std::deque<PipelineData*> out;
  EXPECT_EQ(queue.takeAll(out, 10, 1), 0u);
  EXPECT_TRUE(out.empty());
}

TEST(ProtectedQueue, TwoThreadsPassEveryItemOnceAndInOrder) {
  // Far more items than the pool, so that each one makes many round trips.
  const std::size_t count = 200000;
  auto items = makeItems(100);
  ProtectedQueue free, full;
  for (auto& item : items) free.push(item.get());

  Producer producer(free, full, count);
  producer.start();
  std::deque<PipelineData*> ready, done;
  std::size_t expected = 0;
  std::size_t misplaced = 0;  // counted rather than asserted, so the producer is always joined
  while (expected < count) {
    if (ready.empty()) {
      free.pushAll(done);
      full.takeAll(ready, 20, 10);
      continue;
    }
    PipelineData* item = ready.front();
    ready.pop_front();
    if (item->weight != expected) ++misplaced;
    ++expected;
    done.push_back(item);
    if (done.size() >= 7) free.pushAll(done);
  }
  free.pushAll(done);
  producer.join();
  EXPECT_EQ(misplaced, 0u);
  EXPECT_EQ(full.size(), 0u);
  EXPECT_EQ(free.size(), items.size());
}
