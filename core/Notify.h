#pragma once
// orvNotify: the small notification layer of the core. A message goes, at a
// severity, to the handler installed for that severity; the default handler
// writes the severity's prefix and the text to the standard error stream.
// Handlers are replaceable per severity, so that a caller can filter or
// capture what the libraries below it report.

#include <memory>
#include <mutex>
#include <sstream>
#include <string>

namespace orvNotify {

// The numbering is the host's notify severity numbering.
enum NotifySeverity {
  ALWAYS = 0,
  FATAL = 1,
  ERROR_LEVEL = 2,
  WARN = 3,
  NOTICE = 4,
  INFO = 5,
  DEBUG_INFO = 6
};

class NotifyHandler {
 public:
  NotifyHandler() = default;
  virtual ~NotifyHandler();
  NotifyHandler(const NotifyHandler&) = delete;
  NotifyHandler& operator=(const NotifyHandler&) = delete;

  // Receives text as it is sent, which may be part of a line or several lines.
  virtual void notify(const std::string& text);
  // The text put in front of every message of this handler's severity.
  virtual std::string notifyPrefix() const;

  void setSeverity(NotifySeverity severity) { severity_ = severity; }
  NotifySeverity severity() const { return severity_; }

 protected:
  virtual void lockMutex_();
  virtual void unlockMutex_();

 private:
  friend void notify(NotifySeverity severity, const std::string& text);
  NotifySeverity severity_ = NOTICE;
  std::mutex mutex_;
};

// Text put in front of messages of a severity: "ERROR:  " for errors.
std::string severityPrefix(NotifySeverity severity);

// The handler of a severity; a default handler exists for every severity.
std::shared_ptr<NotifyHandler> notifyHandler(NotifySeverity severity);
// Installs a handler for a severity; null restores the default handler.
void setNotifyHandler(NotifySeverity severity, std::shared_ptr<NotifyHandler> handler);

// Messages up to this severity (inclusive) are delivered; the default is INFO.
void setNotifyLevel(NotifySeverity level);
NotifySeverity notifyLevel();
bool isNotifyEnabled(NotifySeverity severity);

// Sends one message: the handler receives its prefix followed by the text.
void notify(NotifySeverity severity, const std::string& text);

// Collects streamed text and sends it as one message when it goes out of scope:
//   orvNotify::notify(orvNotify::ERROR_LEVEL) << "bad value " << x << "\n";
class NotifyStream {
 public:
  explicit NotifyStream(NotifySeverity severity) : severity_(severity) {}
  NotifyStream(NotifyStream&& other) noexcept;
  ~NotifyStream();
  template <typename T>
  NotifyStream& operator<<(const T& value) {
    text_ << value;
    return *this;
  }
  NotifyStream& operator<<(std::ostream& (*manip)(std::ostream&)) {
    text_ << manip;
    return *this;
  }

 private:
  NotifySeverity severity_;
  std::ostringstream text_;
  bool active_ = true;
};

NotifyStream notify(NotifySeverity severity);

}  // namespace orvNotify
