#pragma once
// Stand-ins for the host-bound parts of a read: a message manager that keeps
// what it is given, a progress that can cancel, and a command table whose
// commands report by their keyword, so the engine can be driven by plain files.

#include <atomic>
#include <cstdio>
#include <fstream>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

#include "pipeline/AsiParserAdapter.h"
#include "pipeline/CommandParser.h"
#include "pipeline/FileReaderProgress.h"
#include "pipeline/MessageManager.h"

namespace spinetest {

using FileReaderPlugin::CommandParser;
using FileReaderPlugin::MessageManager;

struct Message {
  int severity;
  std::string text;
  unsigned long line;
};

class CapturingMessages : public MessageManager {
 public:
  std::vector<Message> written;

  bool wrote(const std::string& text) const {
    for (const Message& m : written)
      if (m.text == text) return true;
    return false;
  }

 protected:
  void writeMessage_(PICommon::NotifySeverity severity, const std::string& text,
                     unsigned long line) override {
    written.push_back({static_cast<int>(severity), text, line});
  }
};

class RecordingProgress : public FileReaderPlugin::FileReaderProgress {
 public:
  std::vector<int> values;
  int events = 0;
  int cancelAtCall = -1;  // 1-based call of isCanceled that answers true
  int canceledCalls = 0;

  void setValue(int value) override { values.push_back(value); }
  void runWhileEvents() override { ++events; }
  bool isCanceled() override { return ++canceledCalls == cancelAtCall; }
};

// What the calling thread did with the commands, in order.
struct Journal {
  std::vector<std::string> executed;  // "<line>:<keyword> <args...>"
  int transmits = 0;
};

// The file that "Truncate" cuts short.
inline std::string& truncateTarget() {
  static std::string path;
  return path;
}

// A command that reports by its keyword: "Err [n]" n errors (default 1),
// "Warn" a warning, "Fatal" a fatal message, "Slow <ms>" sleeps, "Throw
// alloc|length" throws what running out of memory or a too long string
// throws, "Truncate <bytes>" cuts truncateTarget() to that size; anything
// else does nothing. Live copies are counted to check the pool's bound.
class ScriptedCommand : public CommandParser {
 public:
  ScriptedCommand(const std::string& name, Journal* journal) : name_(name), journal_(journal) {
    track_(1);
  }
  ScriptedCommand(const ScriptedCommand& other) : CommandParser(other), name_(other.name_),
      journal_(other.journal_), messages_(other.messages_), line_(other.line_),
      error_(other.error_), warning_(other.warning_) {
    track_(1);
  }
  ~ScriptedCommand() override { track_(-1); }

  static std::atomic<long>& live() {
    static std::atomic<long> count{0};
    return count;
  }
  static std::atomic<long>& peak() {
    static std::atomic<long> count{0};
    return count;
  }

  CommandParser* clone() const override { return new ScriptedCommand(*this); }
  std::string name() const override { return name_; }
  void setMessageManager(MessageManager* manager) override { messages_ = manager; }
  void executeStage1(const std::vector<std::string>& tokens) override {
    std::string entry = std::to_string(line_) + ":" + tokens[0];
    for (std::size_t i = 1; i < tokens.size(); ++i) entry += " " + tokens[i];
    journal_->executed.push_back(entry);
    if (name_ == "Err") {
      const int count = tokens.size() > 1 ? std::stoi(tokens[1]) : 1;
      for (int i = 0; i < count; ++i) setMessage(PICommon::PI_NOTIFY_ERROR, "bad");
    }
    if (name_ == "Slow" && tokens.size() > 1) usleep(1000 * std::stoi(tokens[1]));
    if (name_ == "Warn") setMessage(PICommon::PI_NOTIFY_WARN, "odd");
    if (name_ == "Fatal") setMessage(PICommon::PI_NOTIFY_FATAL, "broken");
    if (name_ == "Throw" && tokens.size() > 1 && tokens[1] == "alloc") throw std::bad_alloc();
    if (name_ == "Throw" && tokens.size() > 1 && tokens[1] == "length") throw std::length_error("basic_string");
    if (name_ == "Truncate" && tokens.size() > 1) {
      if (::truncate(truncateTarget().c_str(), std::stol(tokens[1])) != 0) std::abort();
    }
  }
  void transmit() override { ++journal_->transmits; }
  bool hasError() override { return error_; }
  bool hasWarning() override { return warning_; }
  unsigned long lineNumber() const override { return line_; }
  void setLineNumber(unsigned long line) override { line_ = line; }
  void setMessage(PICommon::NotifySeverity severity, const std::string& text) override {
    setMessage(severity, "Line " + std::to_string(line_) + " " + name_ + ": " + text, line_);
  }
  void setMessage(PICommon::NotifySeverity severity, const std::string& text,
                  unsigned long line) override {
    if (severity == PICommon::PI_NOTIFY_ERROR || severity == PICommon::PI_NOTIFY_FATAL) error_ = true;
    if (severity == PICommon::PI_NOTIFY_WARN) warning_ = true;
    if (messages_ != nullptr) messages_->addMessage(severity, text, line);
  }

 private:
  static void track_(long delta) {
    const long now = live() += delta;
    long seen = peak();
    while (now > seen && !peak().compare_exchange_weak(seen, now)) {
    }
  }

  std::string name_;
  Journal* journal_;
  MessageManager* messages_ = nullptr;
  unsigned long line_ = 0;
  bool error_ = false;
  bool warning_ = false;
};

// The keyword table with stand-by commands for the 120 known keywords, plus
// the scripted commands above. Looking up "Boom" throws, as the read
// thread's work does when memory runs out.
class TestParser : public FileReaderPlugin::AsiParserAdapter {
 public:
  Journal journal;
  std::vector<int> populatedWith;
  std::vector<std::string> initializedWith;
  int completions = 0;
  int completeResult = 0;

  void populateCommands(int version) override {
    populatedWith.push_back(version);
    initializeNullCommands_(version);
    for (const char* name : {"Cmd", "Err", "Warn", "Fatal", "Slow", "Throw", "Truncate"})
      replaceCommand_(new ScriptedCommand(name, &journal));
  }
  CommandParser* getCommand(const std::vector<std::string>& tokens) override {
    if (!tokens.empty() && tokens[0] == "Boom") throw std::bad_alloc();
    return tokens.empty() ? nullptr : findCommand_(tokens[0]);
  }
  int didComplete(MessageManager&) override {
    ++completions;
    return completeResult;
  }
  void initializeScenario(const std::string& path) override { initializedWith.push_back(path); }

  std::size_t tableSize() const { return commands_.size(); }
  CommandParser* lookUp(const std::string& keyword) const { return findCommand_(keyword); }
  void add(CommandParser* command) { addCommand_(command); }
  void replace(CommandParser* command) { replaceCommand_(command); }
  void fillNull() { initializeNullCommands_(0); }
};

// A file in the temporary directory, removed with the object.
class TempFile {
 public:
  explicit TempFile(const std::string& content) {
    char name[] = "/tmp/spine_test_XXXXXX";
    const int fd = mkstemp(name);
    if (fd >= 0) close(fd);
    path_ = name;
    std::ofstream out(path_, std::ios::binary);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
  }
  ~TempFile() { std::remove(path_.c_str()); }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace spinetest
