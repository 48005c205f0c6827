#include "pipeline/FileReaderEngine.h"

#include <deque>
#include <fstream>
#include <limits>
#include <memory>
#include <vector>

#include "core/Failure.h"
#include "core/ValidNumber.h"
#include "pipeline/AsiLine.h"
#include "pipeline/AsiLineReader.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReader.h"
#include "pipeline/FileReaderParser.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/KeywordLess.h"
#include "pipeline/LineTooLong.h"
#include "pipeline/MessageManager.h"
#include "pipeline/PipelineData.h"
#include "pipeline/ProtectedQueue.h"
#include "pipeline/ReadLimits.h"
#include "pipeline/ReadThread.h"

namespace FileReaderPlugin {

namespace {

// The longest wait for items before the queue is looked at again.
const unsigned long POLL_MILLISECONDS = 10;
// Items the calling thread waits for once it has run out: the read thread,
// when it is the slower one, then wakes it once per batch.
const std::size_t READY_BATCH = 64;
// Items that have run go back to the free queue this many at a time.
const std::size_t DONE_BATCH = 64;

bool isKeyword(const std::string& token, const char* keyword) {
  const std::string word(keyword);
  KeywordLess less;
  return !less(token, word) && !less(word, token);
}

void deleteItems(ProtectedQueue& queue) {
  while (PipelineData* item = queue.pop()) delete item;
}

// The two queues of one read, the items that the calling thread has taken
// from the full queue but not run yet, and those it has run but not given
// back; whatever items they hold go with them.
struct Pool {
  ProtectedQueue freeQueue;
  ProtectedQueue fullQueue;
  std::deque<PipelineData*> ready;
  std::deque<PipelineData*> done;

  ~Pool() {
    deleteItems(freeQueue);
    deleteItems(fullQueue);
    for (PipelineData* item : ready) delete item;
    for (PipelineData* item : done) delete item;
  }

  // The next item to run, after handing back what has run; null when none
  // came within the poll.
  PipelineData* next() {
    if (ready.empty()) {
      // What has run goes back before the wait: the read thread may be
      // waiting for it.
      freeQueue.pushAll(done, true);
      fullQueue.takeAll(ready, READY_BATCH, POLL_MILLISECONDS);
      if (ready.empty()) return nullptr;
    }
    PipelineData* item = ready.front();
    ready.pop_front();
    return item;
  }

  // An item that has run; `now` hands it back at once.
  void giveBack(PipelineData* item, bool now) {
    done.push_back(item);
    if (now || done.size() >= DONE_BATCH) freeQueue.pushAll(done, now);
  }

};

enum class Stop { NONE, CANCELED, FATAL, TOO_MANY_ERRORS };

}  // namespace

int FileReaderEngine::getVersion_(AsiLineReader& reader, unsigned long& lineNumber,
                                  MessageManager& messages) {
  std::vector<std::string> tokens;
  while (true) {
    const AsiLineReader::Status status = reader.next();
    if (status == AsiLineReader::END || status == AsiLineReader::FAILED) {
      messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Did not find required Version command", lineNumber);
      return -1;
    }
    ++lineNumber;
    tokenizeAsiLine(reader.line(), tokens);
    if (status == AsiLineReader::TOO_LONG) {
      // No command, as in the rest of the file: reported and skipped.
      messages.addMessage(PICommon::PI_NOTIFY_ERROR,
                          LineTooLong::text(lineNumber, tokens.empty() ? std::string() : tokens[0]), lineNumber);
      continue;
    }
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
  try {
    return execute_(path, messages, progress);
  } catch (...) {
    // Reached only from the steps around the transmission loop (the table,
    // the scenario's start, the end-of-file checks); the read thread has been
    // joined by the time the exception arrives here.
    const char* why = orvCore::currentFailure();
    try {
      messages.addMessage(PICommon::PI_NOTIFY_FATAL, "Reading " + path + " failed: " + why, 0);
    } catch (...) {
      // Not even the message fits in memory; the result still says so.
    }
    return -1;
  }
}

int FileReaderEngine::execute_(const std::string& path, MessageManager& messages,
                               FileReaderProgress& progress) {
  // Only a regular file is read: a named pipe would block the host's thread
  // in open, and a device never ends.
  std::ifstream stream;
  if (!FileReader::openRegularFile(path, stream)) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Could not open " + path, 0);
    return -1;
  }
  AsiLineReader reader(stream);

  unsigned long lineNumber = 0;
  const int version = getVersion_(reader, lineNumber, messages);
  if (version < 0) return -1;

  parser_.populateCommands(version);
  parser_.initializeScenario(path);

  // Declared before the thread, so that on every way out the thread is
  // joined before the items go.
  Pool pool;
  for (std::size_t i = 0; i < POOL_SIZE; ++i) pool.freeQueue.push(new PipelineData);

  std::unique_ptr<ReadThread> thread(new ReadThread(parser_, reader, lineNumber, pool.freeQueue, pool.fullQueue));
  if (thread->start() != 0) {
    messages.addMessage(PICommon::PI_NOTIFY_ERROR, "Could not start the thread that reads " + path, 0);
    return -1;
  }

  Stop stopped = Stop::NONE;
  bool completeFailed = false;
  int lastPercent = 0;
  while (true) {
    PipelineData* item = pool.next();
    if (item == nullptr) continue;

    bool ran = true;
    if (CommandParser* command = item->parser) ran = runCommand_(*command, item->tokens, messages);
    const bool heavy = item->weight > ITEM_KEEP_BYTES;
    if (heavy) {
      // A huge line's tokens are not kept in the pool, and the read thread
      // may be waiting for the room.
      thread->queuedWeight -= item->weight;
      item->releaseTokens();
    }

    if (!ran || messages.hasFatalError() || messages.numberOfErrors() > MAX_ERRORS) {
      stopped = !ran || messages.hasFatalError() ? Stop::FATAL : Stop::TOO_MANY_ERRORS;
      thread->stop = true;
      pool.giveBack(item, true);
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
        pool.giveBack(item, true);
        break;
      }
    }

    const bool last = item->endOfFile;
    pool.giveBack(item, heavy || last);
    if (last) {
      if (const char* why = thread->failure()) {
        // The read thread stopped early: the rest of the file never came.
        messages.addMessage(PICommon::PI_NOTIFY_FATAL,
                            "Read failed at line " + std::to_string(thread->failureLine()) + ": " + why +
                                "; the rest of the file is not loaded",
                            0);
        stopped = Stop::FATAL;
      } else {
        completeFailed = parser_.didComplete(messages) < 0;
      }
      break;
    }
  }

  thread->join();
  thread->getUnsupportedCommands(messages);
  thread.reset();
  // Commands still queued when a read stopped go unexecuted with the pool.

  if (stopped == Stop::CANCELED) {
    messages.addMessage(PICommon::PI_NOTIFY_INFO, "File loading canceled by user", 0);
    return 1;
  }
  if (stopped == Stop::FATAL || completeFailed || messages.hasFatalError()) return -1;
  if (stopped == Stop::TOO_MANY_ERRORS) return -2;
  return messages.numberOfErrors() == 0 ? 0 : 2;
}

bool FileReaderEngine::runCommand_(CommandParser& command, const std::vector<std::string>& tokens,
                                   MessageManager& messages) noexcept {
  try {
    command.setMessageManager(&messages);
    command.executeStage1(tokens);
    command.transmit();
    return true;
  } catch (...) {
    // Whatever a command or the host lets fly (memory running out above
    // all) ends the read as a fatal error at the command's line.
    const char* why = orvCore::currentFailure();
    try {
      const unsigned long line = command.lineNumber();
      messages.addMessage(PICommon::PI_NOTIFY_FATAL,
                          "Line " + std::to_string(line) + " " + command.name() + ": " + why + "; the read stops",
                          line);
    } catch (...) {
      // Not even the message fits in memory; the caller stops all the same.
    }
    return false;
  }
}

}  // namespace FileReaderPlugin
