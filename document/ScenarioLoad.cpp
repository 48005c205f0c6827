// ScenarioUD::load: the document's own two-thread ASI read. The caller's
// thread reads and splits lines; AsiParserThread parses them into the
// document. Errors surface when a record comes back to the free queue, so
// they may be reported up to 10000 lines behind the reader.
#include <fstream>

#include <OpenThreads/ScopedLock>

#include "core/StringUtils.h"
#include "core/TimeException.h"
#include "core/Tokenizer.h"
#include "document/AsiKeywordHandlers.h"
#include "document/AsiLoaderThread.h"
#include "document/ConvenienceFuncsUD.h"
#include "document/ScenarioUD.h"

AsiLoaderThread::AsiLoaderThread() : records_(POOL_SIZE) {
  for (AsiLineRecord& record : records_) freeQueue.push_back(&record);
}

AsiLoaderThread::~AsiLoaderThread() = default;

void AsiLoaderThread::pushWork(AsiLineRecord* record, bool now) {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex);
  if (record != nullptr) workQueue.push_back(record);
  if (workWanted_ != 0 && (now || workQueue.size() >= workWanted_)) {
    workWanted_ = 0;
    workArrived_.signal();
  }
}

void AsiLoaderThread::pushFree(std::deque<AsiLineRecord*>& records) {
  if (records.empty()) return;
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex);
  freeQueue.insert(freeQueue.end(), records.begin(), records.end());
  records.clear();
  if (freeWanted_ != 0 && freeQueue.size() >= freeWanted_) {
    freeWanted_ = 0;
    freeArrived_.signal();
  }
}

void AsiLoaderThread::takeWork(std::deque<AsiLineRecord*>& out, size_t atLeast) {
  take_(workQueue, workArrived_, workWanted_, out, atLeast);
}

void AsiLoaderThread::takeFree(std::deque<AsiLineRecord*>& out, size_t atLeast) {
  take_(freeQueue, freeArrived_, freeWanted_, out, atLeast);
}

void AsiLoaderThread::take_(std::deque<AsiLineRecord*>& queue, OpenThreads::Condition& arrived, size_t& wanted,
                            std::deque<AsiLineRecord*>& out, size_t atLeast) {
  OpenThreads::ScopedLock<OpenThreads::Mutex> lock(mutex);
  if (queue.size() < atLeast) {
    wanted = atLeast;
    arrived.wait(&mutex, POLL_MILLISECONDS);
    wanted = 0;
  }
  out.insert(out.end(), queue.begin(), queue.end());
  queue.clear();
}

namespace {

// Records the parser waits for once it has run out, and those the reader
// waits for: the faster side is woken once per batch, not once per line.
constexpr size_t WORK_BATCH = 64;
constexpr size_t FREE_BATCH = 1000;

std::string joined(const std::vector<std::string>& tokens) {
  std::string text;
  for (size_t i = 0; i < tokens.size(); ++i) text += (i ? " " : "") + tokens[i];
  return text;
}

// Reports the last parse of a record; true when it was fatal.
bool reportResult(const AsiLineRecord& record) {
  if (record.result == 0) return false;
  const bool fatal = udIsFatalError(record.result);
  writeErrorStreamUD(std::string(fatal ? "Error (FATAL) in file, see line #" : "Error (non-fatal) in file, see line #") +
                     std::to_string(record.line) + "  >>>> " + joined(record.tokens) + "\n" +
                     udErrorString(record.result) + "\n");
  return fatal;
}

bool isWhite(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Splits a line into tokens: quoted tokens stay whole; an unquoted "#" or
// "//" ends the line. One pass over the characters, reusing the strings of
// `tokens` (a recycled record's), since this runs for every line of a file.
void splitLine(const std::string& text, std::vector<std::string>& tokens) {
  size_t count = 0;
  auto add = [&tokens, &count, &text](size_t from, size_t length) {
    if (count == tokens.size()) tokens.emplace_back();
    tokens[count++].assign(text, from, length);
  };
  const size_t size = text.size();
  size_t pos = 0;
  while (pos < size && isWhite(text[pos])) ++pos;
  while (pos < size) {
    size_t end = pos;
    const char first = text[pos];
    if (first == '"' || first == '\'') {
      const std::string terminator = orvCore::getTerminateForStringPos(text, pos);
      end = orvCore::getFirstCharPosAfterString(text, pos + terminator.size(), terminator);
      if (end == std::string::npos) end = size;
      add(pos, end - pos);
      tokens[count - 1] = orvCore::removeQuotes(tokens[count - 1]);
    } else {
      bool comment = false;
      while (end < size && !isWhite(text[end])) {
        if (text[end] == '#' || (text[end] == '/' && end + 1 < size && text[end + 1] == '/')) {
          comment = true;
          break;
        }
        ++end;
      }
      if (end > pos) add(pos, end - pos);
      if (comment) break;
    }
    pos = end;
    while (pos < size && isWhite(text[pos])) ++pos;
  }
  tokens.resize(count);
}

}  // namespace

void AsiParserThread::run() {
  std::deque<AsiLineRecord*> work;  // taken from the work queue in one go
  std::deque<AsiLineRecord*> done;  // parsed, on their way back
  for (;;) {
    if (work.empty()) {
      // What was parsed goes back before the wait: the reader may need it.
      shared_.pushFree(done);
      // Read before looking: once the end is marked, nothing more comes.
      const bool ending = shared_.endOfFile || shared_.stop;
      shared_.takeWork(work, WORK_BATCH);
      if (work.empty()) {
        if (ending) return;
        continue;
      }
    }
    AsiLineRecord* record = work.front();
    work.pop_front();
    if (shared_.stop) {
      record->result = 0;
    } else {
      try {
        record->result = handlers_.parse(record->tokens, record->line);
      } catch (const orvCore::TimeException&) {
        record->result = UD_BAD_TIME_STRING;
        writeErrorStreamUD("Error (non-fatal) in file, see line # " + std::to_string(record->line) + "  (" +
                           std::to_string(record->result) + "): " + udErrorString(record->result) + "\n");
      } catch (...) {
        writeErrorStreamUD("Error (unknown) in file, see line # " + std::to_string(record->line) + "\n");
        record->result = 1;
      }
      if (udIsFatalError(record->result)) {
        shared_.fatalCode = record->result;
        shared_.stop = true;
      }
    }
    done.push_back(record);
    // A fatal record goes back at once: the reader stops when it meets it.
    if (done.size() >= WORK_BATCH || shared_.stop) shared_.pushFree(done);
  }
}

int ScenarioUD::load(const std::string& fileName, const FileFinder& fileFinder, PercentCallback* callback) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    writeErrorStreamUD("\n\nERROR!  Unable to open file for loading: " + fileName + "\n");
    return UD_LOAD_OPEN_FAILED;
  }
  setFilename(fileName);
  in.seekg(0, std::ios::end);
  const std::streamoff size = in.tellg();
  in.seekg(0, std::ios::beg);
  return load(in, fileFinder, false, callback, size);
}

int ScenarioUD::load(std::istream& stream, const FileFinder&, bool, PercentCallback* callback, std::streamoff size) {
  // Times without a year refer to this one until "ReferenceYear" says otherwise.
  setReferenceYear(udCurrentYear());
  AsiLoaderThread shared;
  AsiKeywordHandlers handlers(*this);
  AsiParserThread parser(shared, handlers);
  parser.start();

  int result = 0;
  std::string line;
  std::vector<std::string> tokens;
  std::deque<AsiLineRecord*> free;  // taken from the free queue in one go
  unsigned long number = 0;
  std::streamoff consumed = 0;
  int percent = -1;
  while (!shared.stop && orvCore::getStrippedLine(stream, line)) {
    ++number;
    if (callback && size > 0) {
      consumed += static_cast<std::streamoff>(line.size()) + 1;
      const int now = static_cast<int>(std::min<std::streamoff>(100, consumed * 100 / size));
      if (now > percent) {
        percent = now;
        const std::streamoff at = stream.tellg();
        if (at > 0) consumed = at;
        if (callback->updateProgress(percent)) {
          result = UD_USER_CANCEL;
          writeErrorStreamUD("User canceled file loading.\n");
          shared.stop = true;
          break;
        }
      }
    }
    splitLine(line, tokens);
    if (tokens.empty()) continue;
    while (free.empty() && !shared.stop) shared.takeFree(free, FREE_BATCH);
    if (free.empty()) break;
    AsiLineRecord* record = free.front();
    free.pop_front();
    reportResult(*record);
    record->result = 0;
    record->tokens.swap(tokens);
    record->line = number;
    shared.pushWork(record);
  }
  shared.endOfFile = true;
  shared.pushWork(nullptr, true);  // wakes the parser for the end
  parser.join();
  // What was parsed and not yet recycled is reported now, in the order the
  // records came back.
  {
    OpenThreads::ScopedLock<OpenThreads::Mutex> lock(shared.mutex);
    free.insert(free.end(), shared.freeQueue.begin(), shared.freeQueue.end());
    for (AsiLineRecord* record : free) {
      reportResult(*record);
      record->result = 0;
    }
  }
  if (result == 0) result = shared.fatalCode;
  makeRefLinks();
  setStartEndTimes();
  return result;
}
