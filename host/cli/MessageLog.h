#pragma once
// The notifications of a run as a user reads them. Each one arrives as a line
// of the host's notification log; this echoes it on stderr as
// "FILE:LINE: SEVERITY: text" (the file being loaded, the line read from the
// "Line <n> <Keyword>: " that commands put in front of their texts), copies it
// to the --messages file with the members file, line, keyword and
// severityName added, and counts it. Severity and text stay as received.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

namespace RefHost {

// "fatal", "error", "warning", "notice", "info", "debug", "always"; other
// values "severity N".
std::string severityName(std::int64_t severity);

// What the text of a command's message tells: its line and keyword.
struct MessageOrigin {
  std::optional<long long> line;
  std::string keyword;  // empty when the text has no line prefix
};
MessageOrigin messageOrigin(const std::string& text);

class MessageLog {
 public:
  // `file` receives the log lines (null: none); `clearBar` when a progress
  // bar may stand on the terminal's last line.
  MessageLog(std::ostream* file, bool clearBar) : file_(file), clearBar_(clearBar) {}

  // The file that the following notifications are about; "" for none.
  void setCurrentFile(const std::string& path) { currentFile_ = path; }

  // One line of the host's notification log.
  void onLogLine(const std::string& line);
  // Message boxes and console prints of the host, echoed as the user would
  // see them.
  void echoMessageBox(const std::string& title, const std::string& text);
  void echoConsoleLine(const std::string& text);

  std::size_t errors() const { return errors_; }      // fatal and error
  std::size_t warnings() const { return warnings_; }
  std::size_t notes() const { return notes_; }        // everything else

 private:
  void clearBarLine_() const;
  std::ostream* file_;
  bool clearBar_;
  std::string currentFile_;
  std::size_t errors_ = 0;
  std::size_t warnings_ = 0;
  std::size_t notes_ = 0;
};

}  // namespace RefHost
