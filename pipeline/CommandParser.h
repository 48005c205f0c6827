#pragma once
// The command of one ASI keyword, as the read engine sees it. The table keeps
// one prototype per keyword; the read thread clones it for each file line and
// the calling thread runs the clone's two stages.

#include <string>
#include <vector>

#include "hostapi/PICommon.h"

namespace FileReaderPlugin {

class MessageManager;

class CommandParser {
 public:
  virtual ~CommandParser() = default;

  // A copy for one file line, owned by the caller.
  virtual CommandParser* clone() const = 0;
  // Turns this command, a copy that has run, into a fresh copy of
  // `prototype` without allocating; false when it cannot (the caller then
  // clones anew). Worth it only for the commands of which files are made.
  virtual bool renewFrom(const CommandParser& prototype) {
    (void)prototype;
    return false;
  }
  virtual std::string name() const = 0;
  // Where messages go; the manager is not owned.
  virtual void setMessageManager(MessageManager* manager) = 0;
  // Parses and checks the tokens (keyword first) without touching the host.
  virtual void executeStage1(const std::vector<std::string>& tokens) = 0;
  // Sends what stage 1 produced to the host.
  virtual void transmit() = 0;
  virtual bool hasError() = 0;
  virtual bool hasWarning() = 0;
  virtual unsigned long lineNumber() const = 0;
  virtual void setLineNumber(unsigned long line) = 0;
  virtual void setMessage(PICommon::NotifySeverity severity, const std::string& text) = 0;
  virtual void setMessage(PICommon::NotifySeverity severity, const std::string& text,
                          unsigned long line) = 0;
};

}  // namespace FileReaderPlugin
