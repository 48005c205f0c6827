#pragma once
// Counts and forwards everything that one read of one file has to say. The
// cap of 500 written messages keeps a broken file from flooding the console;
// the error count is what the read engine watches to stop a read.

#include <cstddef>
#include <cstdint>
#include <string>

#include "hostapi/PICommon.h"

namespace FileReaderPlugin {

class MessageManager {
 public:
  static constexpr std::uint64_t MAX_MESSAGES = 500;
  // Longer texts are cut to this many characters, with a note of how many
  // were left out: a message may quote a file's text, which can be huge.
  static constexpr std::size_t MAX_MESSAGE_LENGTH = 2000;

  MessageManager() = default;
  virtual ~MessageManager() = default;

  // The one way in. `line` is the file line, 0 for none.
  void addMessage(PICommon::NotifySeverity severity, const std::string& text,
                  unsigned long line);

  std::uint64_t numberOfErrors() const { return errors_; }
  std::uint64_t numberOfWarnings() const { return warnings_; }
  std::uint64_t numberOfInfos() const { return infos_; }
  std::uint64_t numberOfMessages() const { return errors_ + warnings_ + infos_; }
  bool hasFatalError() const { return fatal_; }

 protected:
  // The one point of output; replace it to send messages elsewhere.
  virtual void writeMessage_(PICommon::NotifySeverity severity, const std::string& text,
                             unsigned long line);

 private:
  void count_(PICommon::NotifySeverity severity);
  void write_(PICommon::NotifySeverity severity, const std::string& text, unsigned long line);

  bool fatal_ = false;
  std::uint64_t errors_ = 0;
  std::uint64_t warnings_ = 0;
  std::uint64_t infos_ = 0;
};

}  // namespace FileReaderPlugin
