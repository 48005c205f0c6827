#include "pipeline/ReadThread.h"

#include <new>

#include "core/Failure.h"
#include "pipeline/AsiLine.h"
#include "pipeline/AsiLineReader.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReaderParser.h"
#include "pipeline/LineTooLong.h"
#include "pipeline/MessageManager.h"
#include "pipeline/NullParser.h"
#include "pipeline/PipelineData.h"
#include "pipeline/ProtectedQueue.h"
#include "pipeline/ReadLimits.h"

namespace FileReaderPlugin {

namespace {

// The longest wait for items before the stop flag is looked at again.
const unsigned long POLL_MILLISECONDS = 10;
// Free items the read thread waits for once it has run out: the calling
// thread, when it is the slower one, then wakes it once per batch.
const std::size_t FREE_BATCH = 1000;

// The memory that a token vector holds: the vector's slots and every
// string's own buffer.
std::size_t tokenBytes(const std::vector<std::string>& tokens) {
  std::size_t bytes = tokens.capacity() * sizeof(std::string);
  for (const std::string& token : tokens) bytes += token.capacity();
  return bytes;
}

}  // namespace

ReadThread::ReadThread(FileReaderParser& parserIn, AsiLineReader& readerIn, unsigned long lineNumberIn,
                       ProtectedQueue& freeQueueIn, ProtectedQueue& fullQueueIn)
    : parser(&parserIn),
      reader(&readerIn),
      lineNumber(lineNumberIn),
      freeQueue(&freeQueueIn),
      fullQueue(&fullQueueIn) {}

ReadThread::~ReadThread() {
  // The engine joins before deleting; this only guards against misuse.
  if (isRunning()) {
    stop = true;
    join();
  }
}

PipelineData* ReadThread::takeFreeItem_() {
  while (free_.empty()) {
    freeQueue->takeAll(free_, FREE_BATCH, POLL_MILLISECONDS);
    if (free_.empty() && stop) return nullptr;
  }
  PipelineData* item = free_.front();
  free_.pop_front();
  return item;
}

bool ReadThread::pushHeld_() {
  const std::size_t weight = held_->weight;
  const bool heavy = weight > ITEM_KEEP_BYTES;
  if (heavy) {
    // One item always passes, however heavy, so a huge line cannot wait for
    // ever. Each item that comes back may have made room.
    while (queuedWeight > 0 && queuedWeight + weight > MAX_QUEUED_TOKEN_BYTES) {
      freeQueue->takeAll(free_, 1, POLL_MILLISECONDS);
      if (stop) return false;
    }
    queuedWeight += weight;
  }
  // A heavy item is no reason to wait for company.
  fullQueue->push(held_, heavy);
  held_ = nullptr;
  return true;
}

void ReadThread::run() {
  try {
    readLines_();
  } catch (...) {
    // Nothing may escape a thread. The calling thread still needs its end
    // item, or it would wait for ever, and must learn that the rest of the
    // file was not read.
    fail_(orvCore::currentFailure(), lineNumber);
  }
  if (held_ != nullptr) {
    freeQueue->push(held_);
    held_ = nullptr;
  }
  freeQueue->pushAll(free_);
}

void ReadThread::fail_(const char* why, unsigned long line) {
  if (stop) return;
  failure_ = why;
  failureLine_ = line;
  try {
    sendEndOfFile_();
  } catch (...) {
    // Memory is gone even for the end mark: send the held item bare.
    if (held_ != nullptr) {
      held_->releaseParser();
      held_->tokens.clear();
      held_->endOfFile = true;
      fullQueue->push(held_, true);
      held_ = nullptr;
    }
  }
}

void ReadThread::sendEndOfFile_() {
  if (held_ == nullptr) held_ = takeFreeItem_();
  if (held_ == nullptr) return;
  // A fresh item keeps the percent of its earlier use.
  held_->releaseParser();
  held_->tokens.clear();
  held_->weight = 0;
  held_->endOfFile = true;
  held_->parser = new NullParser("Null");
  // The last item wakes the calling thread at once.
  fullQueue->push(held_, true);
  held_ = nullptr;
}

void ReadThread::countUnsupported_(const std::string& keyword) {
  const std::string kept = keyword.size() > MAX_REPORTED_KEYWORD_LENGTH
                               ? keyword.substr(0, MAX_REPORTED_KEYWORD_LENGTH) + "..."
                               : keyword;
  auto found = unsupported.find(kept);
  if (found != unsupported.end()) {
    ++found->second;
  } else if (unsupported.size() < MAX_UNSUPPORTED_KEYWORDS) {
    unsupported.emplace(kept, 1);
  } else {
    ++unsupportedBeyond;
  }
}

void ReadThread::readLines_() {
  AsiLineReader& in = *reader;
  const double factor = in.size() > 0 ? 100.0 / static_cast<double>(in.size()) : 0.0;

  while (true) {
    const AsiLineReader::Status status = in.next();
    if (status == AsiLineReader::END) break;
    if (status == AsiLineReader::FAILED) return fail_("the file could not be read any further", lineNumber + 1);
    if (stop) return;
    ++lineNumber;

    if (held_ == nullptr) {
      held_ = takeFreeItem_();
      if (held_ == nullptr) return;
    } else if (stop) {
      return;
    }
    // The command of the item's earlier use stays until this line's command
    // is known: a line of the same command renews it in place.
    held_->endOfFile = false;
    held_->percent = factor * static_cast<double>(in.consumed());

    if (status == AsiLineReader::TOO_LONG) {
      // Only the line's start was kept; its keyword names it in the report.
      tokenizeAsiLine(in.line(), held_->tokens);
      const std::string keyword = held_->tokens.empty() ? std::string() : held_->tokens[0];
      held_->releaseTokens();
      held_->releaseParser();
      held_->parser = new LineTooLong(lineNumber, keyword);
      if (!pushHeld_()) return;
      continue;
    }

    tokenizeAsiLine(in.line(), held_->tokens);
    if (held_->tokens.empty()) continue;  // blank and comment lines use no item

    const std::string& keyword = held_->tokens[0];
    if (!looked_ || keyword != lastKeyword_) {
      lastCommand_ = parser->getCommand(held_->tokens);
      lastKeyword_ = keyword;
      looked_ = true;
    }
    CommandParser* command = lastCommand_;
    if (command == nullptr) {
      countUnsupported_(held_->tokens[0]);
      continue;
    }
    if (held_->parser == nullptr || !held_->parser->renewFrom(*command)) {
      held_->releaseParser();
      held_->parser = command->clone();
    }
    if (held_->parser == nullptr) continue;  // a prototype that cannot be cloned runs nothing
    held_->parser->setLineNumber(lineNumber);
    held_->weight = tokenBytes(held_->tokens);
    if (!pushHeld_()) return;
  }
  if (stop) return;
  // A file that ends before the size it had at the start has been cut short
  // under the reader: what was read is not the whole file.
  if (in.size() >= 0 && in.consumed() < static_cast<std::uint64_t>(in.size()))
    return fail_("the file became shorter while it was read", lineNumber + 1);
  sendEndOfFile_();
}

void ReadThread::getUnsupportedCommands(MessageManager& messages) const {
  if (unsupported.empty()) return;
  messages.addMessage(PICommon::PI_NOTIFY_INFO,
                      "The following " + std::to_string(unsupported.size()) +
                          " commands are unsupported:",
                      0);
  for (const auto& entry : unsupported) {
    messages.addMessage(PICommon::PI_NOTIFY_INFO,
                        "Command \"" + entry.first + "\" appeared " +
                            std::to_string(entry.second) + " times",
                        0);
  }
  if (unsupportedBeyond > 0) {
    messages.addMessage(PICommon::PI_NOTIFY_INFO,
                        "Commands with further unsupported keywords appeared " +
                            std::to_string(unsupportedBeyond) + " times",
                        0);
  }
}

}  // namespace FileReaderPlugin
