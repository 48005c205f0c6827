#include "pipeline/ReadThread.h"

#include <unistd.h>

#include "pipeline/AsiLine.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReaderParser.h"
#include "pipeline/MessageManager.h"
#include "pipeline/NullParser.h"
#include "pipeline/PipelineData.h"
#include "pipeline/ProtectedQueue.h"

namespace FileReaderPlugin {

namespace {
const useconds_t POLL_MICROSECONDS = 10000;
}  // namespace

ReadThread::ReadThread(FileReaderParser& parserIn, std::istream& streamIn,
                       unsigned long lineNumberIn, ProtectedQueue& freeQueueIn,
                       ProtectedQueue& fullQueueIn)
    : parser(&parserIn),
      stream(&streamIn),
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
  PipelineData* item = freeQueue->pop();
  while (item == nullptr) {
    usleep(POLL_MICROSECONDS);
    if (stop) return nullptr;
    item = freeQueue->pop();
  }
  return item;
}

void ReadThread::run() {
  try {
    readLines_();
  } catch (...) {
    // Nothing may escape a thread. If reading broke down, the calling thread
    // still needs its end item, or it would wait for ever.
    if (!stop) sendEndOfFile_();
  }
  if (held_ != nullptr) {
    freeQueue->push(held_);
    held_ = nullptr;
  }
}

void ReadThread::sendEndOfFile_() {
  if (held_ == nullptr) held_ = takeFreeItem_();
  if (held_ == nullptr) return;
  // A fresh item keeps the percent of its earlier use.
  held_->releaseParser();
  held_->tokens.clear();
  held_->endOfFile = true;
  held_->parser = new NullParser("Null");
  fullQueue->push(held_);
  held_ = nullptr;
}

void ReadThread::readLines_() {
  std::istream& in = *stream;
  const std::streamoff start = in.tellg();
  double consumed = start < 0 ? 0.0 : static_cast<double>(start);
  double factor = 0.0;
  if (start >= 0) {
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    in.seekg(start, std::ios::beg);
    if (size > 0) factor = 100.0 / static_cast<double>(size);
  }

  std::string line;
  // A failed read ends the input; a last line without a line feed still counts.
  while (std::getline(in, line)) {
    if (stop) return;
    consumed += static_cast<double>(line.size()) + 1.0;
    stripLineEnd(line);
    ++lineNumber;

    if (held_ == nullptr) {
      held_ = takeFreeItem_();
      if (held_ == nullptr) return;
    } else if (stop) {
      return;
    }
    held_->releaseParser();
    tokenizeAsiLine(line, held_->tokens);
    held_->percent = factor * consumed;
    if (held_->tokens.empty()) continue;  // blank and comment lines use no item

    CommandParser* command = parser->getCommand(held_->tokens);
    if (command == nullptr) {
      ++unsupported[held_->tokens[0]];
      continue;
    }
    held_->parser = command->clone();
    if (held_->parser == nullptr) continue;  // a prototype that cannot be cloned runs nothing
    held_->parser->setLineNumber(lineNumber);
    fullQueue->push(held_);
    held_ = nullptr;
  }
  if (!stop) sendEndOfFile_();
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
}

}  // namespace FileReaderPlugin
