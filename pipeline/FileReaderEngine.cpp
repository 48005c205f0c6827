#include "pipeline/FileReaderEngine.h"

#include <unistd.h>

#include <fstream>
#include <limits>
#include <memory>
#include <vector>

#include "core/Tokenizer.h"
#include "core/ValidNumber.h"
#include "pipeline/AsiLine.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReaderParser.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/KeywordLess.h"
#include "pipeline/MessageManager.h"
#include "pipeline/PipelineData.h"
#include "pipeline/ProtectedQueue.h"
#include "pipeline/ReadThread.h"

namespace FileReaderPlugin {

namespace {

const useconds_t POLL_MICROSECONDS = 10000;

bool isKeyword(const std::string& token, const char* keyword) {
  const std::string word(keyword);
  KeywordLess less;
  return !less(token, word) && !less(word, token);
}

void deleteItems(ProtectedQueue& queue) {
  while (PipelineData* item = queue.pop()) delete item;
}

enum class Stop { NONE, CANCELED, FATAL, TOO_MANY_ERRORS };

}  // namespace

int FileReaderEngine::getVersion_(std::istream& stream, unsigned long& lineNumber,
                                  MessageManager& messages) {
  std::string line;
  std::vector<std::string> tokens;
  while (true) {
    if (!orvCore::getStrippedLine(stream, line)) {
      messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Did not find required Version command", lineNumber);
      return -1;
    }
    ++lineNumber;
    tokenizeAsiLine(line, tokens);
    if (!tokens.empty()) break;
  }

  if (!isKeyword(tokens[0], "Version") || tokens.size() != 2) {
    messages.addMessage(
        PICommon::PI_NOTIFY_ERROR,
        "The Version command with a positive number > 1 argument must be the first command in an ASI file",
        lineNumber);
    return -1;
  }
  unsigned int version = 0;
  if (!orvCore::isValidNumber(tokens[1], version, false)) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Expecting a positive number > 1 argument for the Version command",
                        lineNumber);
    return -1;
  }
  if (version < 2) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Expecting a number between 2 and 24 for the Version command",
                        lineNumber);
    return -1;
  }
  if (version > static_cast<unsigned int>(MAX_SUPPORTED_VERSION)) {
    messages.addMessage(PICommon::PI_NOTIFY_WARN,
                        "Version number of " + tokens[1] +
                            " higher than supported version of 24. Will read as version 24",
                        lineNumber);
  }
  // The file's own number goes on, not the supported maximum.
  const unsigned int largest = static_cast<unsigned int>(std::numeric_limits<int>::max());
  return static_cast<int>(version > largest ? largest : version);
}

int FileReaderEngine::execute(const std::string& path, MessageManager& messages,
                              FileReaderProgress& progress) {
  std::ifstream stream(path, std::ios::in | std::ios::binary);
  if (!stream.is_open()) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Could not open " + path, 0);
    return -1;
  }

  unsigned long lineNumber = 0;
  const int version = getVersion_(stream, lineNumber, messages);
  if (version < 0) return -1;

  parser_.populateCommands(version);
  parser_.initializeScenario(path);

  ProtectedQueue freeQueue;
  ProtectedQueue fullQueue;
  for (std::size_t i = 0; i < POOL_SIZE; ++i) freeQueue.push(new PipelineData);

  std::unique_ptr<ReadThread> thread(
      new ReadThread(parser_, stream, lineNumber, freeQueue, fullQueue));
  if (thread->start() != 0) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Could not start the thread that reads " + path, 0);
    deleteItems(freeQueue);
    return -1;
  }

  Stop stopped = Stop::NONE;
  bool completeFailed = false;
  int lastPercent = 0;
  while (true) {
    PipelineData* item = fullQueue.pop();
    if (item == nullptr) {
      usleep(POLL_MICROSECONDS);
      continue;
    }

    if (CommandParser* command = item->parser) {
      command->setMessageManager(&messages);
      command->executeStage1(item->tokens);
      command->transmit();
    }

    if (messages.hasFatalError() || messages.numberOfErrors() > MAX_ERRORS) {
      stopped = messages.hasFatalError() ? Stop::FATAL : Stop::TOO_MANY_ERRORS;
      thread->stop = true;
      freeQueue.push(item);
      break;
    }

    const int percent = static_cast<int>(item->percent);
    if (percent != lastPercent || item->endOfFile) {
      progress.setValue(percent * 10);
      progress.runWhileEvents();
      const bool canceled = progress.isCanceled();
      lastPercent = percent;
      if (canceled) {
        stopped = Stop::CANCELED;
        thread->stop = true;
        freeQueue.push(item);
        break;
      }
    }

    const bool last = item->endOfFile;
    freeQueue.push(item);
    if (last) {
      completeFailed = parser_.didComplete(messages) < 0;
      break;
    }
  }

  thread->join();
  thread->getUnsupportedCommands(messages);
  thread.reset();

  int result;
  if (stopped == Stop::CANCELED) {
    messages.addMessage(PICommon::PI_NOTIFY_INFO, "File loading canceled by user", 0);
    result = 1;
  } else if (stopped == Stop::FATAL || completeFailed || messages.hasFatalError()) {
    result = -1;
  } else if (stopped == Stop::TOO_MANY_ERRORS) {
    result = -2;
  } else if (messages.numberOfErrors() == 0) {
    result = 0;
  } else {
    result = 2;
  }

  // Commands still queued when a read stopped go unexecuted.
  deleteItems(freeQueue);
  deleteItems(fullQueue);
  return result;
}

}  // namespace FileReaderPlugin
