#include "core/Notify.h"

#include <array>
#include <cstdio>

namespace orvNotify {

namespace {

constexpr int kSeverities = DEBUG_INFO + 1;

struct Registry {
  std::mutex mutex;
  std::array<std::shared_ptr<NotifyHandler>, kSeverities> handlers;
  NotifySeverity level = INFO;
};

Registry& registry() {
  static Registry instance;
  return instance;
}

int slot(NotifySeverity severity) {
  int s = static_cast<int>(severity);
  if (s < 0) return 0;
  if (s >= kSeverities) return kSeverities - 1;
  return s;
}

std::shared_ptr<NotifyHandler> makeDefault(NotifySeverity severity) {
  auto handler = std::make_shared<NotifyHandler>();
  handler->setSeverity(severity);
  return handler;
}

}  // namespace

NotifyHandler::~NotifyHandler() = default;

void NotifyHandler::notify(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

std::string NotifyHandler::notifyPrefix() const { return severityPrefix(severity_); }

void NotifyHandler::lockMutex_() { mutex_.lock(); }
void NotifyHandler::unlockMutex_() { mutex_.unlock(); }

std::string severityPrefix(NotifySeverity severity) {
  switch (severity) {
    case FATAL: return "FATAL:  ";
    case ERROR_LEVEL: return "ERROR:  ";
    case WARN: return "WARNING:  ";
    case INFO: return "INFO:  ";
    case DEBUG_INFO: return "DEBUG:  ";
    default: return "";
  }
}

std::shared_ptr<NotifyHandler> notifyHandler(NotifySeverity severity) {
  Registry& r = registry();
  std::lock_guard<std::mutex> lock(r.mutex);
  auto& h = r.handlers[slot(severity)];
  if (!h) h = makeDefault(severity);
  return h;
}

void setNotifyHandler(NotifySeverity severity, std::shared_ptr<NotifyHandler> handler) {
  Registry& r = registry();
  std::lock_guard<std::mutex> lock(r.mutex);
  if (handler) handler->setSeverity(severity);
  r.handlers[slot(severity)] = handler ? std::move(handler) : makeDefault(severity);
}

void setNotifyLevel(NotifySeverity level) {
  Registry& r = registry();
  std::lock_guard<std::mutex> lock(r.mutex);
  r.level = level;
}

NotifySeverity notifyLevel() {
  Registry& r = registry();
  std::lock_guard<std::mutex> lock(r.mutex);
  return r.level;
}

bool isNotifyEnabled(NotifySeverity severity) { return severity <= notifyLevel(); }

void notify(NotifySeverity severity, const std::string& text) {
  if (!isNotifyEnabled(severity)) return;
  std::shared_ptr<NotifyHandler> handler = notifyHandler(severity);
  handler->lockMutex_();
  handler->notify(handler->notifyPrefix() + text);
  handler->unlockMutex_();
}

NotifyStream::NotifyStream(NotifyStream&& other) noexcept
    : severity_(other.severity_), text_(std::move(other.text_)) {
  other.active_ = false;
}

NotifyStream::~NotifyStream() {
  if (active_) notify(severity_, text_.str());
}

NotifyStream notify(NotifySeverity severity) { return NotifyStream(severity); }

}  // namespace orvNotify
